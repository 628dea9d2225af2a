/// @file
/// The captions of all windows in the two languages: which table goes to which window, and when.
#pragma once

#include <cstdint>

class EditDataFrm;
class SensorPropertyFrm;

/// Applies the main table to the frame, its menus and toolbar, the grid's pop-up menu, the project panel while it is
/// shown, the device choice dialogue, and every open project window with its node in the tree.
/// @param language 0 Chinese; any other value English
void LoadLanguage(std::int32_t language);

/// Sets the captions of a dialogue in the current language; called when it opens.
void LoadEditDataLanguage(EditDataFrm &form);
void LoadSensorPropertyLanguage(SensorPropertyFrm &form);
