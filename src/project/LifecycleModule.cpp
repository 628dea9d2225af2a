#include "project/LifecycleModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "curve/ReferenceCurve.h"
#include "display/ProjectViewModule.h"
#include "display/ReferencePictureModule.h"
#include "display/SensorProjFrm.h"
#include "display/TimeCurveModule.h"
#include "display/WaveRecord.h"
#include "link/LinkState.h"
#include "platform/RuntimeError.h"
#include "project/ProjectTable.h"
#include "project/SensorPropertyFrm.h"
#include "project/SensorRecordModule.h"
#include "shell/ActiveProject.h"
#include "shell/LanguageModule.h"
#include "shell/LanguageTables.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectTreeModule.h"
#include "shell/SystemStatus.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace {

constexpr int DefaultSampleMilliseconds = 1000;
constexpr int EditDataPage = 2;
constexpr std::int16_t FirstProjectNode = 2; ///< right after the root

const QString WarningTitle = QStringLiteral("Warning");

struct ButtonCaption {
    LumoButton *SensorProjFrm::*Button;
    const char *English; ///< UTF-8
    const char *Chinese; ///< UTF-8
};

constexpr ButtonCaption newProjectCaptions[] = {
    {&SensorProjFrm::RecordLumoBtn, "Start", "开始测量"}, {&SensorProjFrm::EndLumoBtn, "End", "结束测量"},
    {&SensorProjFrm::ReplayLumoBtn, "Replay", "回放"},    {&SensorProjFrm::PauseLumoBtn, "Pause", "暂停"},
    {&SensorProjFrm::StopLumoBtn, "Stop", "结束"},        {&SensorProjFrm::LowLumoBtn, "/ 2", "/ 2"},
    {&SensorProjFrm::FastLumoBtn, "× 2", "× 2"},          {&SensorProjFrm::ColorLumoBtn, "Color Setting", "颜色设置"},
    {&SensorProjFrm::ZoominHLumoBtn, "Zoomin", "放大"},   {&SensorProjFrm::ZoomInVLumoBtn, "Zoomin", "放大"},
    {&SensorProjFrm::ZoomOutHLumoBtn, "Zoomout", "缩小"}, {&SensorProjFrm::ZoomOutVLumoBtn, "Zoomout", "缩小"},
};

QString CaptionOf(const CaptionRow &row)
{
    return Wording(QString::fromUtf8(row.English), QString::fromUtf8(row.Chinese));
}

int NewSlot()
{
    return ProjectCount == 0 ? 0 : FindFreeSlot();
}

QStringList ColumnTitles(int slot)
{
    const SensorProject &project = SensorProjects[slot];
    const QString unit = CaptionOf(GridUnitTitle);
    return {CaptionOf(GridColumnTitles[0]), unit + project.InputUnit, unit + project.OutputUnit,
            CaptionOf(GridColumnTitles[1]), CaptionOf(GridColumnTitles[2])};
}

/// Makes the slot's window if it has none. Whoever connects it does so at the signal.
void MakeProjectWindow(int slot)
{
    SensorProjFrm *&form = ProjectForm[slot];
    if (form != nullptr) {
        form->Tag = QString::number(slot);
        return;
    }
    form = new SensorProjFrm;
    form->Tag = QString::number(slot);
    MainForm->Children->addSubWindow(form);
    emit MainForm->ProjectWindowMade(form);
}

void PrepareEditPage(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    form.EditDataView->SetColumnTitles(ColumnTitles(slot));
    form.EditDataView->setEnabled(!SensorProjects[slot].IsBuiltInSensor);
    form.UndoLumoBtn->setEnabled(false);
    form.RedoLumoBtn->setEnabled(false);
    form.Timer1->stop();
}

void NameNewProject(int slot)
{
    ProjectSlots[slot].ProjectName = QStringLiteral("Project-%1").arg(slot + 1);
    ProjectSlots[slot].CurveApplied = false;
}

void SetNewProjectCaptions(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    for (const ButtonCaption &row : newProjectCaptions)
        (form.*row.Button)->SetCaption(Wording(QString::fromUtf8(row.English), QString::fromUtf8(row.Chinese)));
    form.setWindowTitle(ProjectSlots[slot].ProjectName);
}

void ResetRunControls(SensorProjFrm &form)
{
    for (LumoButton *button :
         {form.RecordLumoBtn, form.ReplayLumoBtn, form.exportCom, form.ZoominHLumoBtn, form.ZoomOutHLumoBtn})
        button->setEnabled(true);
    for (LumoButton *button : {form.EndLumoBtn, form.PauseLumoBtn, form.StopLumoBtn, form.LowLumoBtn, form.FastLumoBtn,
                               form.ZoomInVLumoBtn, form.ZoomOutVLumoBtn})
        button->setEnabled(false);
    form.TxtSample->setEnabled(true);
    form.TxtSample->setText(QStringLiteral("1.0"));
    form.FlatScrollBar1->hide();
    form.FlatScrollBar2->hide();
    form.Recordpic->hide(); // carries the horizontal bar
}

void ResetWavesAndControls(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    form.Timer1->setInterval(DefaultSampleMilliseconds);
    ResetWaveRecords(slot, DefaultSampleMilliseconds / 1000.0);
    ResetRunControls(form);
    form.OptWave1->setChecked(true);
    form.ChkGrid->setChecked(true);
    form.ChkLink->setChecked(true);
    form.LabXUnit->setText(QStringLiteral("X:  ") + SensorProjects[slot].InputUnit);
    form.LabYUnit->setText(QStringLiteral("Y:  ") + SensorProjects[slot].OutputUnit);
    form.TabStrip->SelectTab(EditDataPage);
    SwitchProjectPage(slot, EditDataPage);
}

void ClearRows(int slot)
{
    ReferenceRows &rows = ReferenceTable[slot];
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        rows[row].Used = false;
}

void ResetReferenceData(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    ClearRows(slot);
    ResetReferenceCurve(slot, form.PicRef->BackColour);
    form.ChkGridRef->setChecked(true);
}

void ForgetFile(ProjectSlot &slot)
{
    slot.HasFile = false;
    slot.Dirty = false;
    slot.FilePath.clear();
    slot.LoadedPath.clear();
}

/// Behind the last node of the open projects. The first project of all follows the root.
std::int16_t NewNodeIndex(int slot)
{
    if (slot == 0 && ProjectCount == 0)
        return FirstProjectNode;
    std::int16_t largest = FirstProjectNode;
    for (int other = 0; other < SlotCount; ++other) {
        if (ProjectOccupied[other])
            largest = std::max(largest, ProjectSlots[other].NodeIndex);
    }
    // Slot 0 has no slot below it, and comes here only when it was closed and is taken again.
    const std::int16_t children = ProjectSlots[std::max(slot - 1, 0)].ChildCount;
    return static_cast<std::int16_t>(largest + children + 1);
}

void OccupySlot(int slot)
{
    ProjectSlots[slot].NodeIndex = NewNodeIndex(slot);
    ProjectOccupied[slot] = true;
    ++ProjectCount;
}

void UpdateEnablement()
{
    UpdateToolbarState();
    UpdateMenuState();
}

/// Asks what the state of the project calls for. True when the window may go; a run has been ended then.
bool ClosingAccepted(SensorProjFrm &form)
{
    if (form.EndLumoBtn->isEnabled()) {
        const bool accepted =
            AskOkCancel(Wording(QStringLiteral("Measuring is running, the action will stop and remove this project! "),
                                QStringLiteral("测量正在运行，当操作前会停止测量并移除此工程! ")),
                        WarningTitle);
        if (accepted)
            form.EndLumoBtn_MouseClick();
        return accepted;
    }
    return ClosingAll || AskOkCancel(Wording(QStringLiteral("The action will remove this project!"),
                                             QStringLiteral("当前操作会移除此工程! ")));
}

void FreeSlot(int slot)
{
    ProjectSlots[slot].ProjectName.clear();
    ProjectSlots[slot].CurveApplied = false;
    ClearRows(slot);
    ReleaseReferenceBuffer(slot);
    ReleaseWaveBuffers(slot);
    RemoveProjectNode(slot);
    ProjectOccupied[slot] = false;
    --ProjectCount;
    ProjectForm[slot] = nullptr;
    UpdateEnablement();
}

} // namespace

void NewProject(const SensorPropertyFrm &dialogue)
{
    if (ProjectCount + 1 > SlotCount) {
        InformationBox(Wording(QStringLiteral("You can create only 10 projects as maximum limit! "),
                               QStringLiteral("工程数目达到上限! ")));
        return;
    }
    CurrentNewSlot = static_cast<std::int16_t>(NewSlot());
    const int slot = CurrentNewSlot;
    ErrorsSetAside steps;
    steps.Run([&] { FillSensorProject(dialogue, SensorProjects[slot], InstrumentKind); });
    steps.Run([&] { MakeProjectWindow(slot); });
    steps.Run([&] { PrepareEditPage(slot); });
    NameNewProject(slot);
    steps.Run([&] { SetNewProjectCaptions(slot); });
    steps.Run([&] { ResetWavesAndControls(slot); });
    steps.Run([&] { ResetReferenceData(slot); });
    steps.Run([&] { FormOfSlot(slot).showMaximized(); });
    ForgetFile(ProjectSlots[slot]);
    OccupySlot(slot);
    if (ProjectPanelVisible)
        steps.Run([&] { AddProjectNode(slot); });
    if (steps.Last())
        ExclamationBox(steps.Last()->Description());
    ++ProjectNodeCount;
    steps.Run([] { UpdateEnablement(); });
    steps.Run([] { LoadLanguage(CurrentLanguage); });
}

void CloseProjectWindow(SensorProjFrm &form, bool &cancel)
{
    const int slot = SlotOf(form);
    if (ClosingAccepted(form))
        FreeSlot(slot);
    else
        cancel = true;
}

void CloseAllProjects()
{
    if (ProjectCount < 1)
        return;
    if (!AskOkCancel(Wording(QStringLiteral("The action will remove all projects! "),
                             QStringLiteral("当前操作会移除所有工程! ")),
                     WarningTitle))
        return;
    const QScopedValueRollback<bool> closing(ClosingAll, true);
    for (int slot = 0; slot < SlotCount; ++slot) {
        if (ProjectOccupied[slot])
            FormOfSlot(slot).close();
    }
}

void ConnectLifecycle(SensorProjFrm &form)
{
    ConnectGuarded(&form, &SensorProjFrm::CloseAsked, &form,
                   [&form](bool &cancel) { CloseProjectWindow(form, cancel); });
}
