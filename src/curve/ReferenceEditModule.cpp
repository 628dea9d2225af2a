#include "curve/ReferenceEditModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "curve/CurveModule.h"
#include "curve/EditDataModule.h"
#include "curve/ReferenceListModule.h"
#include "curve/ReferenceRows.h"
#include "display/SensorProjFrm.h"
#include "shell/ActiveProject.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <algorithm>
#include <memory>

namespace {

void RefuseBuiltInSensor()
{
    ExclamationBox(Wording(QStringLiteral("Temperature sensor task does not need a reference points!"),
                           QStringLiteral("温度传感器任务无需设置参考点! ")));
}

bool UserAgrees(const QString &english, const QString &chinese)
{
    return AskOkCancel(Wording(english, chinese), Wording(QStringLiteral("Warning"), QStringLiteral("警告")));
}

void ClearRows(ReferenceRows &rows)
{
    std::for_each(rows.begin() + 1, rows.end(), [](ReferencePoint &point) { point.Used = false; });
}

void ExchangeWithBackup(int slot)
{
    ReferenceRows scratch;
    CopyReferenceTable(ReferenceTable[CheckedSlot(slot)], scratch);
    CopyReferenceTable(ReferenceBackup[slot], ReferenceTable[slot]);
    CopyReferenceTable(scratch, ReferenceBackup[slot]);
    SortReferenceTable(static_cast<std::int16_t>(slot));
    RefreshReferenceLists();
}

void OpenPopup(const ReportList &list, QPoint position)
{
    const int slot = ActiveSlot();
    if (SensorProjects[slot].IsBuiltInSensor) {
        RefuseBuiltInSensor();
        return;
    }
    const MainFrm &frame = *MainForm;
    frame.mnuPopEditDataAdd->setEnabled(LastUsedRow(slot) < ReferenceRowLimit);
    for (QAction *command : {frame.mnuPopEditDataChange, frame.mnuPopEditDataDelete, frame.mnuPopEditDataDeleteAll,
                             frame.mnuPopEditDataApply, frame.mnuPopEditDataExport})
        command->setEnabled(list.LineCount() > 0);
    frame.mnuPopEditData->popup(list.mapToGlobal(position));
}

/// Below the last line a double click adds, elsewhere it changes. The header counts as one line.
/// @param pointerHeight of the last press, in pixels of the list (its header included)
void EditByDoubleClick(const ReportList &list, int pointerHeight)
{
    if (list.LineCount() == 0 || list.LineHeight() * (list.LineCount() + 1) < pointerHeight) {
        // Required: a full list is not guarded here; the dialogue comes up for a row that the table does not have.
        mnuPopEditDataAdd_Click();
    } else {
        mnuPopEditDataChange_Click();
    }
}

} // namespace

void mnuPopEditDataAdd_Click()
{
    const int slot = ActiveSlot();
    if (SensorProjects[slot].IsBuiltInSensor) {
        RefuseBuiltInSensor();
        return;
    }
    ReferenceRowCount = LastUsedRow(slot);
    EditRowNumber = ReferenceRowCount + 1;
    EditDataMode = EditDataModeAdd;
    ShowEditData();
}

void mnuPopEditDataChange_Click()
{
    const int slot = ActiveSlot();
    const ReportList &list = *FormOfSlot(slot).EditDataView;
    if (SensorProjects[slot].IsBuiltInSensor || list.LineCount() == 0)
        return;
    // A list that has just been filled has no line with the focus yet: the first one counts.
    EditRowNumber = std::max(list.CurrentLine(), 1);
    EditDataMode = EditDataModeChange;
    ShowEditData();
}

void mnuPopEditDataDelete_Click()
{
    const int slot = ActiveSlot();
    const ReportList &list = *FormOfSlot(slot).EditDataView;
    if (list.LineCount() == 0 ||
        !UserAgrees(QStringLiteral("This action will delete data selected"), QStringLiteral("此动作将删除选中的数据")))
        return;
    CopyReferenceTable(ReferenceTable[slot], ReferenceBackup[slot]);
    for (int line = 1; line <= list.LineCount(); ++line) {
        if (list.LineSelected(line))
            ReferenceTable[slot][line].Used = false;
    }
    SortReferenceTable(static_cast<std::int16_t>(slot));
    RefreshReferenceLists();
    OfferUndo(slot, true);
}

void mnuPopEditDataDeleteAll_Click()
{
    const int slot = ActiveSlot();
    if (!UserAgrees(QStringLiteral("This action will delete all of the data"), QStringLiteral("此动作将删除所有数据")))
        return;
    CopyReferenceTable(ReferenceTable[slot], ReferenceBackup[slot]);
    ClearRows(ReferenceTable[slot]);
    FormOfSlot(slot).EditDataView->ClearLines();
    OfferUndo(slot, true);
}

void UndoReferenceEdit(std::int16_t slot)
{
    ExchangeWithBackup(slot);
    OfferUndo(slot, false);
}

void RedoReferenceEdit(std::int16_t slot)
{
    ExchangeWithBackup(slot);
    OfferUndo(slot, true);
}

void OfferUndo(int slot, bool undo)
{
    const SensorProjFrm &form = FormOfSlot(slot);
    form.UndoLumoBtn->setEnabled(undo);
    form.RedoLumoBtn->setEnabled(!undo);
}

void ConnectReferenceEdit(SensorProjFrm &form)
{
    const ReportList &list = *form.EditDataView;
    const auto pointer = std::make_shared<QPoint>(); // each window has its own, which goes with its connections
    ConnectGuarded(&list, &ReportList::MouseDown, &form, [&list, pointer](Qt::MouseButton button, QPoint position) {
        *pointer = position;
        if (button == Qt::RightButton)
            OpenPopup(list, position);
    });
    ConnectGuarded(&list, &ReportList::DoubleClick, &form, [&list, pointer] { EditByDoubleClick(list, pointer->y()); });
    ConnectGuarded(form.UndoLumoBtn, &LumoButton::MouseClick, &form,
                   [] { UndoReferenceEdit(static_cast<std::int16_t>(ActiveSlot())); });
    ConnectGuarded(form.RedoLumoBtn, &LumoButton::MouseClick, &form,
                   [] { RedoReferenceEdit(static_cast<std::int16_t>(ActiveSlot())); });
}

void ConnectReferencePopup()
{
    const MainFrm *frame = MainForm;
    ConnectGuarded(frame->mnuPopEditDataAdd, &QAction::triggered, frame, [] { mnuPopEditDataAdd_Click(); });
    ConnectGuarded(frame->mnuPopEditDataChange, &QAction::triggered, frame, [] { mnuPopEditDataChange_Click(); });
    ConnectGuarded(frame->mnuPopEditDataDelete, &QAction::triggered, frame, [] { mnuPopEditDataDelete_Click(); });
    ConnectGuarded(frame->mnuPopEditDataDeleteAll, &QAction::triggered, frame, [] { mnuPopEditDataDeleteAll_Click(); });
    ConnectGuarded(frame->mnuPopEditDataApply, &QAction::triggered, frame, [] { mnuPopEditDataApply(); });
}
