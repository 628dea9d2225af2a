/// @file
/// The rules of the dialogue that defines a sensor.
#pragma once

#include <QString>

/// True for a key that Txtname, or TxtUnit, takes. @param key character code; Backspace is 8, Enter 13
bool SensorNameKeyPasses(int key);
bool OutputUnitKeyPasses(int key);

/// True for the hint that Txtname opens with, in either language.
bool IsSensorNameHint(const QString &text);

/// Opens the dialogue in the mode of NewProjectMode or EditProjectMode, and returns when it is closed.
void ShowSensorProperty();
