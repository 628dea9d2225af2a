/// @file
/// The number format of reference tables and their dialogue: one to six decimals, rounded, no exponent.
#pragma once

#include <QString>

/// Text of the number that a text starts with (0 for none), in the format "0.0#####".
QString FormatInputValue(const QString &text);
QString FormatOutputValue(const QString &text);
