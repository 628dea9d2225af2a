/// @file
/// Numbers as text and back, the same in every locale: leading-number reading, general decimal writing, picture
/// formats, and the conversions from real to integer.
#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>

/// The leading decimal number of a text: leading blanks are skipped, then sign, digits with at most one point, and an
/// exponent as far as it is complete. 0 when the text does not start with a number, and for a number beyond double.
/// Never reads "nan", "inf" or hexadecimal.
double LeadingNumber(QStringView text);

/// The number that the whole text is, blanks around it allowed.
/// @throws RuntimeError 13 when the text is anything else, 6 when the number is beyond double
double WholeNumber(QStringView text);

/// General decimal text of a double, at most 15 significant digits, without blanks; exponent form (as "1E-05") where
/// the size calls for it. What is no finite number gives "INF", "-INF" or "NAN".
QString GeneralNumber(double value);

/// The same for a single, at most 7 significant digits.
QString GeneralNumber(float value);

/// A number in a picture format of "0" (a digit always), "#" (a digit if present) and one ".": "0.0#####", "###.000",
/// "0". Works on the 15 leading decimal digits, and rounds half away from zero on the last place shown. Digits ahead of
/// the point are never cut off. A number that rounds to zero has no sign. The point of a picture is always shown.
/// @throws RuntimeError 6 when the value is not finite, 5 when the picture has another character
QString FormatNumber(double value, QStringView picture);

/// To the nearest integer, ties to even.
/// @throws RuntimeError 6 when the result does not fit or the value is no number
std::uint8_t RoundToUInt8(double value);
std::int16_t RoundToInt16(double value);
std::int32_t RoundToInt32(double value);

/// To the nearest single, ties to even.
/// @throws RuntimeError 6 when the value is beyond single or no number
float RoundToSingle(double value);

/// The greatest integer not above the value.
/// @throws RuntimeError 6 as above
std::int32_t FloorToInt32(double value);

/// dividend / divisor.
/// @throws RuntimeError 11 when the divisor is 0, 6 when the quotient is not finite
double Quotient(double dividend, double divisor);
