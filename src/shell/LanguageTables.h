/// @file
/// The captions as data: one table a window, a row a control, by control name.
#pragma once

#include <span>

struct CaptionRow {
    const char *Control; ///< object name; empty for the title of the window itself
    const char *English; ///< UTF-8
    const char *Chinese; ///< UTF-8
};

// The main table, in the order in which it is applied. Single rows and arrays have a rule of their own each.
std::span<const CaptionRow> ToolBarToolTips(); ///< by button key
std::span<const CaptionRow> FrameMenuCaptions();
extern const CaptionRow HelpFileName;           ///< what follows the program's folder
std::span<const CaptionRow> GridMenuCaptions(); ///< the pop-up menu of the grid
extern const CaptionRow ProjectSheetCaption;
extern const CaptionRow ProjectRootCaption;
std::span<const CaptionRow> TreeMenuCaptions(); ///< the two pop-up menus of the tree
std::span<const CaptionRow> DeviceChoiceCaptions();
extern const CaptionRow TabCaptions[3];
extern const CaptionRow GridColumnTitles[3];         ///< columns 1, 4 and 5
extern const CaptionRow GridUnitTitle;               ///< ahead of the unit, columns 2 and 3
std::span<const CaptionRow> ProjectButtonCaptions(); ///< the image buttons of a project window

// The dialogues.
std::span<const CaptionRow> EditDataCaptions();
std::span<const CaptionRow> SensorPropertyCaptions();
std::span<const CaptionRow> RefColourCaptions();
std::span<const CaptionRow> WaveColourCaptions(); ///< of both time curves, but for the frame of the dots
extern const CaptionRow Wave1DotCaption;
extern const CaptionRow Wave2DotCaption;
std::span<const CaptionRow> SendProjectCaptions();
