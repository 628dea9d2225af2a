/// @file
/// The captions as data: one table a window, a row a control, by control name.
#pragma once

#include <span>

struct CaptionRow {
    const char *Control; ///< object name
    const char *English; ///< UTF-8
    const char *Chinese; ///< UTF-8
};

std::span<const CaptionRow> ToolBarToolTips(); ///< by button key
std::span<const CaptionRow> FrameCaptions();   ///< menus and the pop-up menu of the grid
std::span<const CaptionRow> DeviceChoiceCaptions();
std::span<const CaptionRow> ProjectButtonCaptions(); ///< the image buttons of a project window
std::span<const CaptionRow> EditDataCaptions();
std::span<const CaptionRow> SensorPropertyCaptions(); ///< its title apart

/// Captions of the tabs and of the grid's columns, and the panel's texts, each with an own rule.
extern const CaptionRow TabCaptions[3];
extern const CaptionRow GridColumnTitles[3]; ///< columns 1, 4 and 5
extern const CaptionRow GridUnitTitle;       ///< ahead of the unit, columns 2 and 3
extern const CaptionRow ProjectSheetCaption;
extern const CaptionRow ProjectRootCaption;
extern const CaptionRow SensorPropertyTitle;
