#include "shell/FrameModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "curve/ReferenceCurve.h"
#include "curve/ReferenceEditModule.h"
#include "curve/ReferenceRows.h"
#include "curve/lintab/Lintab.h"
#include "display/SensorProjFrm.h"
#include "display/WaveRecord.h"
#include "link/CommunicateFunBox.h"
#include "link/ConnectionModule.h"
#include "link/LinkState.h"
#include "measure/RunState.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "platform/SettingsStore.h"
#include "project/LifecycleModule.h"
#include "project/ProjectCommandModule.h"
#include "project/ProjectTable.h"
#include "shell/LanguageModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "shell/SystemStatus.h"
#include "shell/WindowListModule.h"
#include "shell/WiringModule.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

constexpr int PanelWidth = 3000;     // twips
constexpr int IndicatorOffset = 300; // twips from the frame's right inner edge
constexpr int TimerInitInterval = 1; // milliseconds

const QString SettingsApplication = QStringLiteral("Ostrakon");
const QString LanguageSection = QStringLiteral("Language");
const QString LanguageKey = QStringLiteral("Currentlang");

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

void ReadLanguage()
{
    const QString text = ReadSetting(SettingsApplication, LanguageSection, LanguageKey, QStringLiteral("1"));
    CurrentLanguage = RoundToInt32(WholeNumber(text));
}

void MakeProjectPanel()
{
    ProjectSheet = new ProjectSheetFrm(MainForm);
    LoadProjectSheet();
    MainForm->TabDock->AddPanel(ProjectSheetPanel, ProjectSheet);
    MainForm->TabDock->SetLeftPanelWidth(PanelWidth);
    ProjectPanelVisible = true;
}

/// Commands that are not there yet: they stand under their names, and come into sight together with their handlers. Two
/// of the toolbar's separators would else stand next to others.
void HideCommandsWithoutHandler()
{
    for (QAction *MainFrm::*item :
         {&MainFrm::mnuFileOpen, &MainFrm::mnuFileSave, &MainFrm::mnuFileSaveAs, &MainFrm::mnuFileSaveAllProject,
          &MainFrm::mnuToolsBar0, &MainFrm::mnuToolsSensorOption, &MainFrm::mnuToolsBar1,
          &MainFrm::mnuToolsEnableSensor, &MainFrm::mnuHelpContents, &MainFrm::mnuHelpBar0})
        (MainForm->*item)->setVisible(false);
    const QList<QAction *> buttons = MainForm->tbToolBar->actions();
    for (const int index : {2, 3, 8, 9, 13, 14})
        buttons[index - 1]->setVisible(false);
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

void ToggleProjectPanel()
{
    ProjectPanelVisible = !ProjectPanelVisible;
    if (ProjectPanelVisible) {
        ShowProjectPanel();
        LoadLanguage(CurrentLanguage);
    } else {
        HideProjectPanel();
    }
    UpdateMenuState();
}

void SwitchLanguage(std::int32_t language)
{
    CurrentLanguage = language;
    MainForm->mnuHelpLang_Chinese->setChecked(language == LanguageChinese);
    MainForm->mnuHelpLang_English->setChecked(language == LanguageEnglish);
    LoadLanguage(language);
    WriteSetting(SettingsApplication, LanguageSection, LanguageKey, QString::number(language));
}

void ShowAbout()
{
    PlainBox(
        QStringLiteral("Version:00.04.00.00\r\n\r\nCopyright (C) the makers of Ostrakon"),
        Wording(QStringLiteral("About Ostrakon For KV7000 Series"), QStringLiteral("关于 Ostrakon For KV7000 Series")));
}

/// The keys of the commands that are there; any other key does nothing.
void RunToolBarButton(const QString &key)
{
    if (key == QStringLiteral("New")) {
        BeginNewProject();
    } else if (key == QStringLiteral("Connect")) {
        ConnectInstrument();
    } else if (key == QStringLiteral("DisConnect")) {
        DisconnectInstrument();
    } else if (key == QStringLiteral("TileHorizontal")) {
        TileProjectWindowsHorizontally();
    } else if (key == QStringLiteral("TileVertical")) {
        TileProjectWindowsVertically();
    } else if (key == QStringLiteral("CasadeWindows")) {
        CascadeProjectWindows();
    }
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

/// Required: no question, no save, and the curve library's memory is left to the system. The close box differs
/// deliberately, so nobody should make the two alike.
[[noreturn]] void ExitAtOnce()
{
    std::_Exit(EXIT_SUCCESS);
}

/// A menu item and its routine.
template <typename Routine>
void OnCommand(const QAction *item, Routine routine)
{
    ConnectGuarded(item, &QAction::triggered, MainForm, std::move(routine));
}

void ConnectMenus()
{
    MainFrm &frame = *MainForm;
    OnCommand(frame.mnuFileNew, [] { BeginNewProject(); });
    OnCommand(frame.mnuFileCloseAllProjects, [] { CloseAllProjects(); });
    OnCommand(frame.mnuFileExit, [] { ExitAtOnce(); });
    // The toolkit has flipped the mark when the command comes.
    OnCommand(frame.mnuViewToolbar, [&frame] { frame.tbToolBar->setVisible(frame.mnuViewToolbar->isChecked()); });
    OnCommand(frame.mnuViewStatusBar, [&frame] { frame.sbrStatus->setVisible(frame.mnuViewStatusBar->isChecked()); });
    OnCommand(frame.mnuViewProjectWindow, [] { ToggleProjectPanel(); });
    OnCommand(frame.mnuToolsConnect, [] { ConnectInstrument(); });
    OnCommand(frame.mnuToolsDisconnect, [] { DisconnectInstrument(); });
    OnCommand(frame.mnuWindowCascade, [] { CascadeProjectWindows(); });
    OnCommand(frame.mnuWindowTileHorizontal, [] { TileProjectWindowsHorizontally(); });
    OnCommand(frame.mnuWindowTileVertical, [] { TileProjectWindowsVertically(); });
    ConnectGuarded(frame.mnuWindow, &QMenu::aboutToShow, &frame, [] { ListProjectWindows(); });
    OnCommand(frame.mnuHelpAbout, [] { ShowAbout(); });
    OnCommand(frame.mnuHelpLang_Chinese, [] { SwitchLanguage(LanguageChinese); });
    OnCommand(frame.mnuHelpLang_English, [] { SwitchLanguage(LanguageEnglish); });
    ConnectReferencePopup();
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
    ConnectMenus();
    ConnectTimers();
    ConnectGuarded(&frame, &MainFrm::ToolBarButtonClick, &frame, [](const QString &key) { RunToolBarButton(key); });
    ConnectGuarded(&frame, &MainFrm::ProjectWindowMade, &frame,
                   [](SensorProjFrm *form) { ConnectProjectWindow(*form); });
    ConnectGuarded(&frame, &MainFrm::Resized, &frame, [] { ErrorsSetAside().Run(PlaceLinkIndicators); });
    ConnectGuarded(&frame, &MainFrm::CloseAsked, &frame, [](bool &cancel) { LeaveProgram(cancel); });
    ConnectGuarded(&frame, &MainFrm::Unloaded, &frame, [] { FreeCurve(); });
    ConnectGuarded(frame.TabDock, &TabDock::PanelClosed, &frame, [] { UnloadProjectSheet(); });
}
