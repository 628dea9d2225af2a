#include "shell/FrameCommandModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "curve/ReferenceEditModule.h"
#include "curve/ReferenceListModule.h"
#include "link/ConnectionModule.h"
#include "project/LifecycleModule.h"
#include "project/ProjectCommandModule.h"
#include "project/SaveModule.h"
#include "shell/ActiveProject.h"
#include "shell/HelpModule.h"
#include "shell/LanguageModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectSheetModule.h"
#include "shell/ProjectTreeModule.h"
#include "shell/SystemStatus.h"
#include "shell/WindowListModule.h"

#include <cstddef>
#include <cstdlib>

namespace {

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

// The toolkit has flipped a mark when its command comes.
void ShowToolBarAsMarked()
{
    MainForm->tbToolBar->setVisible(MainForm->mnuViewToolbar->isChecked());
}

void ShowStatusBarAsMarked()
{
    MainForm->sbrStatus->setVisible(MainForm->mnuViewStatusBar->isChecked());
}

void ShowAbout()
{
    PlainBox(
        QStringLiteral("Version:00.04.00.00\r\n\r\nCopyright (C) the makers of Ostrakon"),
        Wording(QStringLiteral("About Ostrakon For KV7000 Series"), QStringLiteral("关于 Ostrakon For KV7000 Series")));
}

void SaveActiveProject()
{
    SaveProject(ActiveSlot());
}

/// Required: it meets the barrier ahead of every label edit.
void RenameSelectedNode()
{
    ProjectSheet->ProjectSheetTree->StartLabelEdit();
}

void SwitchAllTexts(std::int32_t language)
{
    CurrentLanguage = language;
    TranslateReferenceLists(); // ahead of the rest, which ends where the choice cannot be stored
    SwitchLanguage(language);
}

struct ToolBarCommand {
    QLatin1StringView Key;
    void (*Run)();
};

constexpr ToolBarCommand toolBarCommands[] = {
    {QLatin1StringView("New"), BeginNewProject},
    {QLatin1StringView("Open"), OpenProject},
    {QLatin1StringView("Save"), SaveActiveProject},
    {QLatin1StringView("Connect"), ConnectInstrument},
    {QLatin1StringView("DisConnect"), DisconnectInstrument},
    {QLatin1StringView("Options"), EditActiveProject},
    {QLatin1StringView("TileHorizontal"), TileProjectWindowsHorizontally},
    {QLatin1StringView("TileVertical"), TileProjectWindowsVertically},
    {QLatin1StringView("CasadeWindows"), CascadeProjectWindows},
    {QLatin1StringView("Help"), SendHelpKey},
};

/// A key that is none of these does nothing.
void RunToolBarButton(const QString &key)
{
    for (const ToolBarCommand &command : toolBarCommands) {
        if (key == command.Key)
            command.Run();
    }
}

/// Required: no question, no save, and the curve library's memory is left to the system. The close box differs
/// deliberately, so nobody should make the two alike.
[[noreturn]] void ExitAtOnce()
{
    std::_Exit(EXIT_SUCCESS);
}

/// A menu item and its routine.
template <typename Form>
struct MenuCommand {
    QAction *Form::*Item;
    void (*Run)();
};

using M = MainFrm;
using P = ProjectSheetFrm;

constexpr MenuCommand<MainFrm> frameCommands[] = {
    {&M::mnuFileNew, BeginNewProject},
    {&M::mnuFileOpen, OpenProject},
    {&M::mnuFileSave, SaveActiveProject},
    {&M::mnuFileSaveAs, SaveProjectCopy},
    {&M::mnuFileSaveAllProject, SaveAllProjects},
    {&M::mnuFileCloseAllProjects, CloseAllProjects},
    {&M::mnuFileExit, ExitAtOnce},
    {&M::mnuViewToolbar, ShowToolBarAsMarked},
    {&M::mnuViewStatusBar, ShowStatusBarAsMarked},
    {&M::mnuViewProjectWindow, ToggleProjectPanel},
    {&M::mnuSettingsSensorOption, BeginEditProject},
    {&M::mnuToolsConnect, ConnectInstrument},
    {&M::mnuToolsDisconnect, DisconnectInstrument},
    {&M::mnuToolsSensorOption, EditActiveProject},
    {&M::mnuWindowCascade, CascadeProjectWindows},
    {&M::mnuWindowTileHorizontal, TileProjectWindowsHorizontally},
    {&M::mnuWindowTileVertical, TileProjectWindowsVertically},
    {&M::mnuWindowArrangeIcons, ArrangeProjectIcons},
    {&M::mnuHelpContents, SendHelpKey},
    {&M::mnuHelpAbout, ShowAbout},
    {&M::mnuHelpLang_Chinese, [] { SwitchAllTexts(LanguageChinese); }},
    {&M::mnuHelpLang_English, [] { SwitchAllTexts(LanguageEnglish); }},
};

/// Both menus of the tree. Required: save and copy act on the active project, whatever node is selected.
constexpr MenuCommand<ProjectSheetFrm> treeCommands[] = {
    {&P::mnuNewProject, BeginNewProject},          {&P::mnuOpenProject, OpenProject},
    {&P::mnuSaveProject, SaveActiveProject},       {&P::mnuSaveProjectAs, SaveProjectCopy},
    {&P::mnuSaveAllProjects, SaveAllProjects},     {&P::mnuRename, RenameSelectedNode},
    {&P::mnuCloseProject, CloseSelectedProject},   {&P::mnuCloseAllProjects, CloseAllProjects},
    {&P::mnuPop2NewProject, BeginNewProject},      {&P::mnuPop2OpenProject, OpenProject},
    {&P::mnuPop2SaveAllProjects, SaveAllProjects}, {&P::mnuPop2CloseAllProjects, CloseAllProjects},
};

template <typename Form, std::size_t Count>
void ConnectMenus(const Form &form, const MenuCommand<Form> (&commands)[Count])
{
    for (const MenuCommand<Form> &command : commands)
        ConnectGuarded(form.*command.Item, &QAction::triggered, &form, command.Run);
}

} // namespace

void ConnectFrameCommands()
{
    ConnectMenus(*MainForm, frameCommands);
    ConnectMenus(*ProjectSheet, treeCommands);
    ConnectGuarded(MainForm->mnuWindow, &QMenu::aboutToShow, MainForm, ListProjectWindows);
    ConnectReferencePopup();
    ConnectGuarded(MainForm, &MainFrm::ToolBarButtonClick, MainForm, [](const QString &key) { RunToolBarButton(key); });
}
