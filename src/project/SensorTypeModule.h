/// @file
/// What the sensor dialogue offers: types by the instrument's model, units and sub types by the type, and what it opens
/// with.
#pragma once

#include <QString>

class SensorPropertyFrm;

inline constexpr int NoType = 0;                      ///< first entry of the list of types
inline const QString NoUnit = QStringLiteral("None"); ///< entry of the unit lists that stands for none

/// Fills the dialogue's lists and presets its controls: for a new project in NewProjectMode, from the active project's
/// definition in EditProjectMode. A project that does not fit the connected model is refused with a notice, and the
/// dialogue opens as for a new one. Connect the types first: a preset runs the same routines as the user's choice.
void LoadSensorProperty(SensorPropertyFrm &form);

/// The type and sub type lists and the two output unit options.
void ConnectSensorTypes(SensorPropertyFrm &form);
