/// @file
/// Which commands of the frame are enabled with and without an open project.
#pragma once

#include <QAction>

/// A command and whether it is enabled in each of the two states.
struct CommandState {
    const char *Name; ///< key of a toolbar button, or a menu item
    bool InToolBar;
    bool None; ///< without a project
    bool Some; ///< with at least one
};

inline constexpr CommandState CommandStates[] = {
    {"Save", true, false, true},
    {"Options", true, false, true},
    {"TileHorizontal", true, false, true},
    {"TileVertical", true, false, true},
    {"CasadeWindows", true, false, true},
    {"mnuFileSave", false, false, true},
    {"mnuFileSaveAs", false, false, true},
    {"mnuFileSaveAllProject", false, false, true},
    {"mnuFileCloseAllProjects", false, false, true},
    {"mnuSettingsSensorOption", false, false, true},
    {"mnuToolsEnableSensor", false, false, true},
    {"mnuToolsSensorOption", false, false, true},
    {"mnuWindowTileHorizontal", false, false, true},
    {"mnuWindowTileVertical", false, false, true},
    {"mnuWindowArrangeIcons", false, false, true},
    {"mnuWindowCascade", false, false, true},
    {"mnuSettingsArithmeticSetting", false, false, false},
    {"mnuSettingsUserDefine", false, false, false},
    {"mnuSettingsCommand", false, false, false},
    {"mnuSettingsIO", false, false, false},
    {"New", true, true, true},
    {"Open", true, true, true},
    {"Connect", true, true, true},
    {"DisConnect", true, true, true},
    {"Help", true, true, true},
    {"mnuFileNew", false, true, true},
    {"mnuFileOpen", false, true, true},
    {"mnuToolsConnect", false, true, true},
    {"mnuToolsDisconnect", false, true, true},
};

/// Whether a command is enabled as it was set. The toolkit disables whatever is out of sight, so it is brought into
/// sight for the look.
inline bool EnabledAsSet(QAction &command)
{
    const bool shown = command.isVisible();
    command.setVisible(true);
    const bool enabled = command.isEnabled();
    command.setVisible(shown);
    return enabled;
}
