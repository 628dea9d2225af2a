#include "curve/ReferenceFileModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "curve/ReferenceDataFile.h"
#include "curve/ReferenceEditModule.h"
#include "curve/ReferenceListModule.h"
#include "curve/ReferenceRows.h"
#include "display/SensorProjFrm.h"
#include "platform/RuntimeError.h"
#include "shell/ActiveProject.h"
#include "shell/MainModule.h"

#include <QCoreApplication>

namespace {

void PrepareDialog(CommonDialog &dialog, const QString &title)
{
    // The program never makes this folder; without it the dialogue starts elsewhere.
    dialog.InitDir = QCoreApplication::applicationDirPath() + QStringLiteral("/Temp");
    dialog.DialogTitle = title;
    dialog.Filter = ReferenceDataFilter;
    dialog.FileName.clear();
}

/// Required: the chosen filter decides, not the name.
ReferenceDataLayout ChosenLayout(const CommonDialog &dialog)
{
    return dialog.FilterIndex == static_cast<int>(ReferenceDataLayout::Text) ? ReferenceDataLayout::Text
                                                                             : ReferenceDataLayout::Csv;
}

bool MayReplace(const QString &path)
{
    return !FileExists(path) || AskOkCancel(Wording(QStringLiteral("The file has existed, whether replace it? "),
                                                    QStringLiteral("该文件已经存在，是否替换? ")),
                                            Wording(QStringLiteral("Warning"), QStringLiteral("警告")));
}

void ExportReferenceData(int slot)
{
    ReferenceRowCount = LastUsedRow(slot);
    if (ReferenceRowCount == 0) {
        ExclamationBox(Wording(QStringLiteral("No reference point! "), QStringLiteral("没有参考点! ")));
        return;
    }
    CommonDialog &dialog = *FormOfSlot(slot).CommonDialog1;
    PrepareDialog(dialog, Wording(QStringLiteral("Export reference datas"), QStringLiteral("导出参考数据")));
    dialog.ShowSave(); // a cancel is an error only since the first import; without one it leaves no name
    const ReferenceDataLayout layout = ChosenLayout(dialog);
    const QString path = ReferenceDataPath(dialog.FileName, layout);
    if (!path.isEmpty() && MayReplace(path))
        WriteReferenceDataFile(path, ReferenceTable[slot], ReferenceRowCount, layout);
}

void ReportRefusal(ReferenceDataRefusal refusal)
{
    switch (refusal) {
    case ReferenceDataRefusal::RowCount:
        ExclamationBox(
            Wording(QStringLiteral("File format is not correct, the first line is the number of reference points! "),
                    QStringLiteral("文件格式不正确，第一行为参考点数! ")));
        break;
    case ReferenceDataRefusal::Segment:
        ExclamationBox(Wording(QStringLiteral("Description of the segment points is incorrect! "),
                               QStringLiteral("分段点表述方式不正确! ")));
        break;
    case ReferenceDataRefusal::Arithmetic:
        ExclamationBox(Wording(QStringLiteral("Algorithm type incorrect! "), QStringLiteral("算法类型不正确! ")));
        break;
    case ReferenceDataRefusal::None:
        break;
    }
}

void TakeReferenceTable(int slot, const ReferenceRows &rows)
{
    CopyReferenceTable(ReferenceTable[slot], ReferenceBackup[slot]);
    CopyReferenceTable(rows, ReferenceTable[slot]);
    SortReferenceTable(static_cast<std::int16_t>(slot));
    RefreshReferenceLists();
    OfferUndo(slot, true);
}

/// Required: no question ahead of it, no test of the project or of a run, none of the limits of the dialogue; the undo
/// is its protection.
void ImportReferenceData(int slot)
{
    CommonDialog &dialog = *FormOfSlot(slot).CommonDialog1;
    PrepareDialog(dialog, Wording(QStringLiteral("Import reference datas"), QStringLiteral("导入参考数据")));
    dialog.CancelError = true;
    dialog.ShowOpen();
    if (dialog.FileName.isEmpty())
        return;
    const ReferenceDataLayout layout = ChosenLayout(dialog);
    ReferenceRows rows;
    const ReferenceDataRefusal refusal =
        ReadReferenceDataFile(ReferenceDataPathToRead(dialog.FileName, layout), layout, rows);
    if (refusal == ReferenceDataRefusal::None) {
        TakeReferenceTable(slot, rows);
    } else {
        ReportRefusal(refusal);
    }
}

/// Runs an operation on the active project.
void RunTrapped(void (*operation)(int slot))
{
    const int slot = ActiveSlot();
    ErrorsSetAside trap;
    trap.Run([&] { operation(slot); });
    // Required: every other failure, a full disk or a file cut short among them, ends the operation without a word; and
    // the text speaks of writing for an import, too. Its spelling stands.
    if (trap.Last() && trap.Last()->Number() == ErrorNumber::PermissionDenied) {
        ExclamationBox(Wording(QStringLiteral("The file has been opened by other process, can not be writen! "),
                               QStringLiteral("该文件已经被其他进程打开，不能写入! ")));
    }
}

} // namespace

void ConnectReferenceFile(SensorProjFrm &form)
{
    ConnectGuarded(form.ImportLumoBtn, &LumoButton::MouseClick, &form, [] { RunTrapped(ImportReferenceData); });
    ConnectGuarded(form.ExportLumoBtn, &LumoButton::MouseClick, &form, [] { RunTrapped(ExportReferenceData); });
}
