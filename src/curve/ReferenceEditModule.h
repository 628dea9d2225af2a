/// @file
/// The commands of the reference list: add, change, delete, and one step of undo and redo.
#pragma once

#include <cstdint>

class SensorProjFrm;

/// Adds rows through the dialogue; refused for a built-in sensor.
void mnuPopEditDataAdd_Click();
/// Changes rows through the dialogue; does nothing for a built-in sensor or an empty list.
void mnuPopEditDataChange_Click();
/// Deletes the selected rows, or all, after a question.
void mnuPopEditDataDelete_Click();
void mnuPopEditDataDeleteAll_Click();

/// Exchanges the table of a slot with its backup.
void UndoReferenceEdit(std::int16_t slot);
void RedoReferenceEdit(std::int16_t slot);

/// Lets the user of a slot's window undo but not redo, or redo but not undo.
void OfferUndo(int slot, bool undo);

/// The list with its pop-up menu and double click, and the undo and redo buttons of a window.
void ConnectReferenceEdit(SensorProjFrm &form);

/// The commands of the frame's pop-up menu. Called once.
void ConnectReferencePopup();
