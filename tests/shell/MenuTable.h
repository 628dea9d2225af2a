/// @file
/// The menus of the frame as they are designed: every item with its caption, its key and whether it is in sight.
#pragma once

/// An item of a menu: caption nullptr for a separator.
struct DesignedItem {
    const char *Name;
    const char *Caption;
    const char *Key;
    bool Shown;
};

inline constexpr DesignedItem DesignedItems[] = {
    {"mnuFileNew", "&New Project", "Ctrl+N", true},
    {"mnuFileOpen", "&Open Project...", "Ctrl+O", true},
    {"mnuFileBar0", nullptr, "", true},
    {"mnuFileSave", "&Save Project", "Ctrl+S", true},
    {"mnuFileSaveAs", "&Save Project As...", "", true},
    {"mnuFileSaveAllProject", "Sav&e All", "", true},
    {"mnuFileCloseAllProjects", "&Close All ", "", true},
    {"mnuFileBar1", nullptr, "", false},
    {"mnuFilePrint", "&Print", "Ctrl+P", false},
    {"mnuFilePrintPreview", "Print Pre&view", "", false},
    {"mnuFilePageSetup", "Print Set&up...", "", false},
    {"mnuFileBar3", nullptr, "", true},
    {"mnuFileExit", "E&xit", "", true},
    {"mnuEditUndo", "&Undo", "Ctrl+Z", true},
    {"mnuEditRedo", "&Redo", "Ctrl+Y", true},
    {"mnuEditCut", "Cu&t", "Ctrl+X", true},
    {"mnuEditCopy", "&Copy", "Ctrl+C", true},
    {"mnuEditPaste", "&Paste", "Ctrl+V", true},
    {"mnuEditDelete", "&Delete", "", true},
    {"mnuEditBar0", nullptr, "", true},
    {"mnuEditBar1", nullptr, "", true},
    {"mnuViewToolbar", "&Toolbar", "", true},
    {"mnuViewStatusBar", "Status &Bar", "", true},
    {"mnuViewBar0", nullptr, "", true},
    {"mnuViewProjectWindow", "&Project Window", "", true},
    {"mnuViewBar1", nullptr, "", false},
    {"mnuViewBar2", nullptr, "", false},
    {"mnuViewGrid", "&Grid", "", false},
    {"mnuViewZoomIn", "Zoom &In", "", false},
    {"mnuViewZoomOut", "Zoom &Out", "", false},
    {"mnuViewZoomNot", "Zoom &Not", "", false},
    {"mnuSettingsSensorOption", "Sensor &Option...", "", true},
    {"mnuSettingsArithmeticSetting", "Arithmetic &Setting...", "", false},
    {"mnuSettingsUserDefine", "&User Define...", "", false},
    {"mnuSettingsIO", "&I/O Settings...", "", false},
    {"mnuSettingsCommand", "&Command Collection...", "", false},
    {"mnuLibrary", "&Library", "", false},
    {"mnuToolsConnect", "&Connect to Multimeter", "", true},
    {"mnuToolsDisconnect", "&Disconnect", "", true},
    {"mnuToolsBar0", nullptr, "", true},
    {"mnuToolsSensorOption", "Sensor &Option...", "", true},
    {"mnuToolsRun", "&Run", "", false},
    {"mnuToolsStop", "&Stop", "", false},
    {"mnuToolsDisableSensor", "&Disable Sensor", "", false},
    {"mnuToolsBar1", nullptr, "", true},
    {"mnuToolsEnableSensor", "&Load Project to Instrument", "", true},
    {"mnuWindowCascade", "&Cascade", "", true},
    {"mnuWindowTileHorizontal", "Tile &Horizontal", "", true},
    {"mnuWindowTileVertical", "Tile &Vertical", "", true},
    {"mnuWindowArrangeIcons", "&Arrange Icons", "", false},
    {"mnuHelpContents", "Contents...", "", true},
    {"mnuHelpBar0", nullptr, "", true},
    {"mnuHelpAbout", "&About... ", "", true},
    {"mnuHelpBar1", nullptr, "", false},
    {"mnuHelpLang_Chinese", "&Chinese", "", true},
    {"mnuHelpLang_English", "&English", "", true},
    {"mnuPopEditDataAdd", "Add", "", true},
    {"mnuPopEditDataChange", "Change", "", true},
    {"mnuPopEditDataDelete", "Delete", "", true},
    {"mnuPopEditDataDeleteAll", "Delete All", "", true},
    {"mnuPopEditDataApply", "Apply", "", true},
    {"mnuPopEditDataExport", "Export", "", false},
};

/// A menu and its entries in order, submenus by their own names.
struct DesignedMenu {
    const char *Name;
    const char *Caption;
    bool Shown; ///< in the menu bar or in another menu
    const char *Entries;
};

inline constexpr DesignedMenu DesignedMenus[] = {
    {"mnuFile", "&File", true,
     "mnuFileNew mnuFileOpen mnuFileBar0 mnuFileSave mnuFileSaveAs mnuFileSaveAllProject mnuFileCloseAllProjects "
     "mnuFileBar1 mnuFilePrint mnuFilePrintPreview mnuFilePageSetup mnuFileBar3 mnuFileExit"},
    {"mnuEdit", "&Edit", false, "mnuEditUndo mnuEditRedo mnuEditCut mnuEditCopy mnuEditPaste mnuEditDelete"},
    {"mnuView", "&View", true,
     "mnuViewToolbar mnuViewStatusBar mnuViewBar0 mnuViewProjectWindow mnuViewGrid mnuViewZoomIn mnuViewZoomOut "
     "mnuViewZoomNot"},
    {"mnuSettings", "&Settings", false,
     "mnuSettingsSensorOption mnuSettingsArithmeticSetting mnuSettingsUserDefine mnuSettingsIO mnuSettingsCommand"},
    {"mnuTools", "&Tools", true,
     "mnuToolsConnect mnuToolsDisconnect mnuToolsBar0 mnuToolsSensorOption mnuToolsRun mnuToolsStop "
     "mnuToolsDisableSensor mnuToolsBar1 mnuToolsEnableSensor"},
    {"mnuWindow", "&Window", true,
     "mnuWindowCascade mnuWindowTileHorizontal mnuWindowTileVertical mnuWindowArrangeIcons"},
    {"mnuHelp", "&Help", true, "mnuHelpContents mnuHelpBar0 mnuHelpAbout mnuHelpBar1 mnuHelpLanguage"},
    {"mnuHelpLanguage", "&Language", true, "mnuHelpLang_Chinese mnuHelpLang_English"},
    {"mnuPopEditData", "EditDataPopMenu", false,
     "mnuPopEditDataAdd mnuPopEditDataChange mnuPopEditDataDelete mnuPopEditDataDeleteAll mnuPopEditDataApply "
     "mnuPopEditDataExport"},
};
