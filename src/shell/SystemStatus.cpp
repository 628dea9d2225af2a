#include "shell/SystemStatus.h"

#include "project/ProjectTable.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

namespace {

/// Enabled while any project is open.
constexpr const char *projectButtons[] = {"Save", "Options", "TileHorizontal", "TileVertical", "CasadeWindows"};

constexpr QAction *MainFrm::*projectItems[] = {
    &MainFrm::mnuFileSave,
    &MainFrm::mnuFileSaveAs,
    &MainFrm::mnuFileSaveAllProject,
    &MainFrm::mnuFileCloseAllProjects,
    &MainFrm::mnuSettingsSensorOption,
    &MainFrm::mnuToolsEnableSensor,
    &MainFrm::mnuToolsSensorOption,
    &MainFrm::mnuWindowTileHorizontal,
    &MainFrm::mnuWindowTileVertical,
    &MainFrm::mnuWindowArrangeIcons,
    &MainFrm::mnuWindowCascade,
};

/// Disabled whether a project is open or not.
constexpr QAction *MainFrm::*deadItems[] = {
    &MainFrm::mnuSettingsArithmeticSetting,
    &MainFrm::mnuSettingsUserDefine,
    &MainFrm::mnuSettingsCommand,
    &MainFrm::mnuSettingsIO,
};

bool AnyProjectOpen()
{
    return ProjectCount >= 1;
}

} // namespace

void UpdateToolbarState()
{
    for (const char *key : projectButtons)
        MainForm->ToolBarButton(QString::fromLatin1(key))->setEnabled(AnyProjectOpen());
}

void UpdateMenuState()
{
    for (QAction *MainFrm::*item : projectItems)
        (MainForm->*item)->setEnabled(AnyProjectOpen());
    for (QAction *MainFrm::*item : deadItems)
        (MainForm->*item)->setEnabled(false);
    MainForm->mnuViewProjectWindow->setChecked(ProjectPanelVisible);
    // One of the two marks is set for any stored language, also for one that is neither 0 nor 1.
    MainForm->mnuHelpLang_Chinese->setChecked(CurrentLanguage == LanguageChinese);
    MainForm->mnuHelpLang_English->setChecked(CurrentLanguage != LanguageChinese);
}
