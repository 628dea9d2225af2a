#include "shell/FrameModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "curve/ReferenceCurve.h"
#include "curve/ReferenceRows.h"
#include "curve/lintab/Lintab.h"
#include "display/SensorProjFrm.h"
#include "display/WaveRecord.h"
#include "link/CommunicateFunBox.h"
#include "link/ConnectionModule.h"
#include "link/LinkState.h"
#include "measure/RunState.h"
#include "platform/RuntimeError.h"
#include "project/ProjectTable.h"
#include "shell/FrameCommandModule.h"
#include "shell/HelpModule.h"
#include "shell/LanguageModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectSheetModule.h"
#include "shell/ProjectTreeModule.h"
#include "shell/SystemStatus.h"
#include "shell/WiringModule.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int PanelWidth = 3000;     // twips
constexpr int IndicatorOffset = 300; // twips from the frame's right inner edge
constexpr int TimerInitInterval = 1; // milliseconds

void ResetTables()
{
    ResetMainModule();
    ResetProjectTable();
    ResetReferenceCurveTable();
    ResetReferenceRows();
    ResetLinkState();
    ResetRunState();
    ResetWaveTable();
    ResetProjectTreeModule();
}

void MakeProjectPanel()
{
    ProjectSheet = new ProjectSheetFrm(MainForm);
    LoadProjectSheet();
    MainForm->TabDock->AddPanel(ProjectSheetPanel, ProjectSheet);
    MainForm->TabDock->SetLeftPanelWidth(PanelWidth);
    ProjectPanelVisible = true;
}

/// The hand-over to the instrument is not there yet: its command stands under its name, and comes into sight together
/// with its handler.
void HideCommandsWithoutHandler()
{
    MainForm->mnuToolsBar1->setVisible(false);
    MainForm->mnuToolsEnableSensor->setVisible(false);
}

/// The indicators stand 300 twips from the right edge of the whole frame, whether the panel is shown or not. The rule
/// for their left edge counts from an inner width that includes the dock while the panel is shown, and ends 3000 twips
/// earlier while it is hidden. So its two offsets differ by just the dock's width.
void PlaceLinkIndicators()
{
    if (ProjectPanelVisible) {
        MainForm->PlaceIndicators(MainForm->InnerWidth() - IndicatorOffset);
        return;
    }
    const int widthWithoutDock = MainForm->InnerWidth() - PanelWidth;
    MainForm->PlaceIndicators(widthWithoutDock + (PanelWidth - IndicatorOffset));
}

/// The one tick after the first layout.
void FinishFirstLayout()
{
    MainForm->TimerInit->stop();
    if (ProjectPanelVisible)
        ShowProjectPanel();
    ErrorsSetAside().Run(PlaceLinkIndicators);
}

void ClearStatus()
{
    MainForm->sbrStatus->SetPanelText(MainForm->sbrStatus->PanelOfKey(QStringLiteral("Status")), QString());
    MainForm->CommTimer->stop();
}

/// Closes all project windows. The one with a run comes first, since its question is the only one that can keep the
/// frame: a refusal then leaves every project as it is.
/// @return false when the user keeps a window
bool CloseProjectWindows()
{
    std::vector<SensorProjFrm *> forms;
    std::copy_if(ProjectForm.begin(), ProjectForm.end(), std::back_inserter(forms),
                 [](const SensorProjFrm *form) { return form != nullptr; });
    std::stable_partition(forms.begin(), forms.end(),
                          [](const SensorProjFrm *form) { return form->EndLumoBtn->isEnabled(); });
    return std::all_of(forms.begin(), forms.end(), [](SensorProjFrm *form) { return form->close(); });
}

/// The close box of the frame.
void LeaveProgram(bool &cancel)
{
    if (!Measuring && ProjectCount >= 1 &&
        !AskOkCancel(Wording(QStringLiteral("The action will remove all projects! "),
                             QStringLiteral("当前操作会移除所有工程! ")),
                     Wording(QStringLiteral("Warning"), QStringLiteral("警告")))) {
        cancel = true;
        return;
    }
    UnloadDeviceChoice();
    ClosingAll = true;
    if (CloseProjectWindows())
        return;
    cancel = true;
    ClosingAll = false;
    // The frame stays, and so must the dialogue of its next connect.
    MakeDeviceChoice();
    LoadLanguage(CurrentLanguage);
}

void FreeCurve()
{
    SEN_Free();
    ClosingAll = false;
}

void ConnectTimers()
{
    MainFrm &frame = *MainForm;
    ConnectGuarded(frame.TimerInit, &QTimer::timeout, &frame, [] { FinishFirstLayout(); });
    ConnectGuarded(frame.CommTimer, &QTimer::timeout, &frame, [] { ClearStatus(); });
    ConnectGuarded(frame.CheckLinkTimer, &QTimer::timeout, &frame, [] { CheckLinkTick(); });
}

} // namespace

void LoadFrame()
{
    ResetTables();
    RunGuarded(ReadLanguage);
    MakeProjectPanel();
    MakeDeviceChoice();
    MainForm->TimerInit->start(TimerInitInterval);
    LoadLanguage(CurrentLanguage);
    UpdateToolbarState();
    UpdateMenuState();
    for (ProjectSlot &slot : ProjectSlots)
        slot.ChildCount = ProjectChildCount;
    ProjectOccupied.fill(false);
    RunGuarded(InitIO);
    WaveBackColour = 0;
    InstrumentSensorOn = false;
    Measuring = false;
    OverloadAccepted = false;
    HideCommandsWithoutHandler();
    ConnectFrame();
}

void ConnectFrame()
{
    MainFrm &frame = *MainForm;
    ConnectFrameCommands();
    ConnectProjectSheet();
    ConnectTimers();
    ConnectHelpKey();
    ConnectGuarded(&frame, &MainFrm::ProjectWindowMade, &frame,
                   [](SensorProjFrm *form) { ConnectProjectWindow(*form); });
    ConnectGuarded(&frame, &MainFrm::Resized, &frame, [] { ErrorsSetAside().Run(PlaceLinkIndicators); });
    ConnectGuarded(&frame, &MainFrm::CloseAsked, &frame, [](bool &cancel) { LeaveProgram(cancel); });
    ConnectGuarded(&frame, &MainFrm::Unloaded, &frame, [] { FreeCurve(); });
    ConnectGuarded(frame.TabDock, &TabDock::PanelClosed, &frame, [] { UnloadProjectSheet(); });
}
