/// @file
/// The manual: the help file of the current language, and the key that opens it.
#pragma once

#include <QString>

/// Path of the help file that the key F1 opens. Written by LoadLanguage.
extern QString HelpFile;

/// Opens the help file with the desktop's viewer.
/// @throws RuntimeError 53 when the file is not there, 32751 when the desktop knows no viewer for it
void OpenHelpFile();

/// Sends the key F1 to the program, as the help commands do.
void SendHelpKey();

/// From now on the key F1 opens the help file, whatever window of the program has the keyboard; a failure is shown by
/// its plain description. Call it once, with the frame made; it ends with the frame.
void ConnectHelpKey();
