#include "project/LifecycleModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "curve/ReferenceCurve.h"
#include "curve/ReferenceListModule.h"
#include "display/ProjectViewModule.h"
#include "display/ReferencePictureModule.h"
#include "display/SensorProjFrm.h"
#include "display/TimeCurveModule.h"
#include "link/LinkState.h"
#include "platform/RuntimeError.h"
#include "project/ProjectFileModule.h"
#include "project/ProjectTable.h"
#include "project/ProjectWindowModule.h"
#include "project/SensorPropertyFrm.h"
#include "project/SensorRecordModule.h"
#include "shell/ActiveProject.h"
#include "shell/LanguageModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectTreeModule.h"
#include "shell/SystemStatus.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <functional>

namespace {

constexpr std::int16_t FirstProjectNode = 2; ///< right after the root

const QString WarningTitle = QStringLiteral("Warning"); // Required: in both languages.

int NewSlot()
{
    return ProjectCount == 0 ? 0 : FindFreeSlot();
}

void ClearRows(int slot)
{
    ReferenceRows &rows = ReferenceTable[slot];
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        rows[row].Used = false;
}

void ResetCurveView(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
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
    if (slot == 0 && std::ranges::none_of(ProjectOccupied, std::identity()))
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

void UpdateEnablement()
{
    UpdateToolbarState();
    UpdateMenuState();
}

bool TellLimitReached()
{
    InformationBox(Wording(QStringLiteral("You can create only 10 projects as maximum limit! "),
                           QStringLiteral("工程数目达到上限! ")));
    return false;
}

/// What New and Open have in common up to the name: window and grid.
void PrepareWindow(int slot, ErrorsSetAside &steps)
{
    steps.Run([&] { MakeProjectWindow(slot); });
    steps.Run([&] { PrepareEditPage(slot); });
    ProjectSlots[slot].CurveApplied = false;
}

/// The same from the name on: captions, waves and curve as for a new project, and the window comes up.
void ShowNewWindow(int slot, ErrorsSetAside &steps)
{
    steps.Run([&] { SetNewProjectCaptions(slot); });
    steps.Run([&] { ResetWavesAndControls(slot); });
    steps.Run([&] { ResetCurveView(slot); });
    steps.Run([&] { FormOfSlot(slot).showMaximized(); });
}

/// The same once the window is there: the slot is taken, the tree follows, and what went wrong on the way is shown.
void TakeSlot(int slot, ErrorsSetAside &steps)
{
    ProjectSlots[slot].NodeIndex = NewNodeIndex(slot);
    ProjectOccupied[slot] = true;
    if (ProjectPanelVisible)
        steps.Run([&] { AddProjectNode(slot); });
    if (steps.Last())
        ExclamationBox(steps.Last()->Description());
    ++ProjectNodeCount;
    steps.Run([] { UpdateEnablement(); });
    steps.Run([] { LoadLanguage(CurrentLanguage); });
}

/// Required: slots above the found one are not looked at, so two projects of one name can come about.
bool NameIsOpenUpTo(int slot, const QString &name)
{
    for (int other = 0; other <= slot; ++other) {
        if (ProjectOccupied[other] && ProjectSlots[other].ProjectName == name)
            return true;
    }
    return false;
}

/// Asks what the state of the project calls for. Required: never about unsaved work, here and anywhere else.
/// True when the window may go; a run has been ended then.
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

bool RoomForProject()
{
    return ProjectCount + 1 <= SlotCount || TellLimitReached();
}

void NewProject(const SensorPropertyFrm &dialogue)
{
    if (!RoomForProject())
        return;
    CurrentNewSlot = static_cast<std::int16_t>(NewSlot());
    const int slot = CurrentNewSlot;
    ErrorsSetAside steps;
    steps.Run([&] { FillSensorProject(dialogue, SensorProjects[slot], InstrumentKind); });
    PrepareWindow(slot, steps);
    ProjectSlots[slot].ProjectName = QStringLiteral("Project-%1").arg(slot + 1);
    ClearRows(slot);
    ShowNewWindow(slot, steps);
    ForgetFile(ProjectSlots[slot]);
    ++ProjectCount;
    TakeSlot(slot, steps);
}

void OpenProjectFile(const QString &path)
{
    ++ProjectCount; // Required: ahead of the checks, which take it back.
    const int slot = FindFreeSlot();
    const QString name = ProjectNameOfPath(path);
    if (NameIsOpenUpTo(slot, name)) {
        ExclamationBox(
            Wording(QStringLiteral("The same project already exists! "), QStringLiteral("已经有同名工程被打开！")));
        --ProjectCount;
        return;
    }
    ProjectSlot &project = ProjectSlots[slot];
    project.LoadedPath = path;
    project.FilePath = path;
    project.ProjectName = name;
    ErrorsSetAside steps;
    ReadProjectFile(slot, path, steps);
    PrepareWindow(slot, steps);
    ShowNewWindow(slot, steps);
    project.HasFile = true;
    project.Dirty = false;
    TakeSlot(slot, steps);
    RefreshReferenceLists();
}

void ChangeProjectProperties(const SensorPropertyFrm &dialogue)
{
    const int slot = ActiveSlot();
    SensorProjFrm &form = FormOfSlot(slot);
    ProjectSlot &project = ProjectSlots[slot];
    FillSensorProject(dialogue, SensorProjects[slot], InstrumentKind);
    SetGridTitles(slot);
    form.Timer1->stop();
    project.CurveApplied = false;
    form.setWindowTitle(project.ProjectName);
    ResetWaves(slot);
    ShowUnits(slot);
    ResizeProjectView(form);
    // Required: FilePath stays, so that the next Save replaces the file without a question.
    project.HasFile = false;
    project.Dirty = false;
    project.LoadedPath.clear();
    if (ProjectPanelVisible)
        ShowNodeName(slot);
    UpdateEnablement();
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
