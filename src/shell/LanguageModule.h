/// @file
/// The captions of all windows in the two languages: which table goes to which window, and when.
#pragma once

#include <cstdint>

class EditDataFrm;
class RefPicColorrizeFrm;
class SendProjFrm;
class SensorPropertyFrm;
class Wave1picColorrizeFrm;
class Wave2picColorrizeFrm;

/// Reads the stored language into CurrentLanguage; English when none is stored.
/// @throws RuntimeError 13 when the stored text is no number or the store is damaged, 6 when it is too large
void ReadLanguage();

/// The two language commands: switches all open windows at once, dialogues when they next open, and stores the choice.
/// @throws RuntimeError 13 or 70 when it cannot be stored
void SwitchLanguage(std::int32_t language);

/// Applies the main table to the frame, its menus and toolbar, the grid's pop-up menu, the project panel while it is
/// shown, the device choice dialogue, and every open project window with its node in the tree. Writes HelpFile. The
/// toolkit's own texts (buttons of boxes, common dialogues) follow where its catalogue is installed.
/// @param language 0 Chinese; any other value English
void LoadLanguage(std::int32_t language);

/// Sets the captions of a dialogue in the current language; called when it opens.
void LoadEditDataLanguage(EditDataFrm &form);
void LoadSensorPropertyLanguage(SensorPropertyFrm &form);
void LoadRefColourLanguage(RefPicColorrizeFrm &form);
void LoadWave1ColourLanguage(Wave1picColorrizeFrm &form);
void LoadWave2ColourLanguage(Wave2picColorrizeFrm &form);
void LoadSendProjectLanguage(SendProjFrm &form);
