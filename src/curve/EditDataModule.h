/// @file
/// The rules of the dialogue that adds and changes reference rows.
#pragma once

#include <QString>

class EditDataFrm;

/// What a key filter of the value fields found.
enum class ValueKeyVerdict { Accepted, Swallowed, TooLong, OutOfRange };

/// Tests a key of VolTxt or TemperateTxt on the text as it stands before the key.
/// @param key character code; Backspace is 8, Enter 13
/// @throws RuntimeError 6 when the number in the text is beyond single
ValueKeyVerdict TestValueKey(int key, const QString &text);

/// True for a key that NOTxt takes: digits, Backspace and Enter.
bool RowNumberKeyPasses(int key);

/// True when a current exceeds what the instrument's ranges reach: only on a KV7060 with a direct current project.
/// @param value in the input unit
bool CurrentLimitExceeded(int slot, double value);

/// Opens the dialogue for the active project in EditDataMode, at row EditRowNumber, and returns when it is closed.
void ShowEditData();
