/// @file
/// The text commands of the instrument: SCPI, upper case marking the short form.
#pragma once

#include <QString>

#include <cstdint>

inline const QString IdentificationQuery = QStringLiteral("*IDN?");
/// The two commands of the handshake; the first is also the probe of the link watch.
inline const QString IdentificationHandshake = QStringLiteral("IDNSET ZEMRA");
inline const QString CommandHandshake = QStringLiteral("CMDSET ZEMRA");

/// Required: the period group stands in the table of groups and no command uses it.
inline const QString PeriodGroup = QStringLiteral(":PERIod");

/// Selects a function: ":FUNCtion" with the group and qualifier of a function code (see MeasFunctionCode). Codes 0 to 9
/// are DC and AC voltage, DC and AC current, two-wire and four-wire resistance, continuity, diode, DC ratio and
/// frequency; any other code, the thermocouple's 10 included, is DC voltage.
QString ComposeFunctionCommand(std::int32_t measFunction);

/// Asks for one reading of that function: ":MEASure", group, qualifier and "?".
QString ComposeMeasureCommand(std::int32_t measFunction);
