/// @file
/// Numbers as short texts with an SI prefix, for the axes of the pictures.
#pragma once

#include <QString>

/// Text of the number that a text starts with, two or three figures, for the axes of the reference picture. Positive
/// numbers reach up to 9999900 ("M"), negative ones down to -999990 ("k"); beyond, the text is "??.?"; close to zero it
/// is "0.00".
QString FormatReadingValue(const QString &text);

/// Text of the number that a text starts with, four figures, for the value axis of the time curves; "0.000" close to
/// zero.
QString FormatAxisValue(const QString &text);
