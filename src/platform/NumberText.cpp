#include "platform/NumberText.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

namespace {

constexpr int DoubleDigits = 15; ///< significant decimal digits shown of a double
constexpr int SingleDigits = 7;  ///< and of a single

bool IsBlank(QChar character)
{
    return character == u' ' || character == u'\t' || character == u'\r' || character == u'\n';
}

bool IsDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

qsizetype SkipBlanks(QStringView text, qsizetype position)
{
    while (position < text.size() && IsBlank(text[position]))
        ++position;
    return position;
}

/// The characters of a number at the start of a text.
struct NumberScan {
    std::string Plain;   ///< the number without a plus sign ahead, empty when there is none
    qsizetype End = 0;   ///< where it ends in the text
    qint64 Power = 0;    ///< power of ten of the leading digit that is not 0
    bool AllZero = true; ///< no digit but 0
};

void TakeDigits(QStringView text, NumberScan &scan)
{
    while (scan.End < text.size() && IsDigit(text[scan.End]))
        scan.Plain += text[scan.End++].toLatin1();
}

/// Digits with at most one point; clears the scan when there is no digit.
void TakeMantissa(QStringView text, NumberScan &scan)
{
    const std::size_t start = scan.Plain.size();
    TakeDigits(text, scan);
    const std::size_t pointAt = scan.Plain.size();
    std::size_t digits = pointAt - start;
    if (scan.End < text.size() && text[scan.End] == u'.') {
        scan.Plain += '.';
        ++scan.End;
        TakeDigits(text, scan);
        digits = scan.Plain.size() - start - 1;
    }
    if (digits == 0) {
        scan = {};
        return;
    }
    const std::size_t leading = scan.Plain.find_first_of("123456789", start);
    scan.AllZero = leading == std::string::npos;
    if (!scan.AllZero)
        scan.Power = static_cast<qint64>(pointAt) - static_cast<qint64>(leading) - (leading < pointAt ? 1 : 0);
}

/// An exponent, only when it has at least one digit.
void TakeExponent(QStringView text, NumberScan &scan)
{
    qsizetype position = scan.End;
    if (position >= text.size() || text[position].toLower() != u'e')
        return;
    ++position;
    const bool negative = position < text.size() && text[position] == u'-';
    if (position < text.size() && (text[position] == u'+' || text[position] == u'-'))
        ++position;
    if (position >= text.size() || !IsDigit(text[position]))
        return;
    scan.Plain += negative ? "e-" : "e+";
    qint64 exponent = 0;
    constexpr qint64 exponentLimit =
        1'000'000'000'000'000; // far beyond any text's length; keeps the sum from overflowing
    for (; position < text.size() && IsDigit(text[position]); ++position) {
        scan.Plain += text[position].toLatin1();
        exponent = std::min(exponent * 10 + text[position].digitValue(), exponentLimit);
    }
    scan.Power += negative ? -exponent : exponent;
    scan.End = position;
}

NumberScan ScanNumber(QStringView text)
{
    NumberScan scan;
    scan.End = SkipBlanks(text, 0);
    if (scan.End < text.size() && (text[scan.End] == u'+' || text[scan.End] == u'-')) {
        if (text[scan.End] == u'-')
            scan.Plain += '-';
        ++scan.End;
    }
    TakeMantissa(text, scan);
    if (!scan.Plain.empty())
        TakeExponent(text, scan);
    return scan;
}

/// The number scanned; infinite when it is beyond double, 0 when it is too small for one.
double Value(const NumberScan &scan)
{
    double value = 0;
    const std::from_chars_result result =
        std::from_chars(scan.Plain.data(), scan.Plain.data() + scan.Plain.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return scan.AllZero || scan.Power < 0 ? 0.0 : std::numeric_limits<double>::infinity();
    return value;
}

template <typename Real>
QString GeneralText(Real value, int digits)
{
    if (value == 0)
        return QStringLiteral("0"); // no "-0"
    std::array<char, 64> buffer{};
    const std::to_chars_result result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, digits);
    return QString::fromLatin1(buffer.data(), result.ptr - buffer.data()).toUpper();
}

/// A finite number as 0.ddddddddddddddd times a power of ten.
struct DecimalDigits {
    bool Negative = false;
    std::string Digits; ///< DoubleDigits of them
    int Power = 0;
};

DecimalDigits Decompose(double value)
{
    std::array<char, 64> buffer{};
    const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                                      std::chars_format::scientific, DoubleDigits - 1);
    const std::string text(buffer.data(), result.ptr); // d.dddddddddddddde+xx
    const std::size_t e = text.find('e');
    DecimalDigits decimal;
    decimal.Negative = std::signbit(value);
    decimal.Digits = text[0] + text.substr(2, e - 2);
    decimal.Power = std::stoi(text.substr(e + 1)) + 1;
    return decimal;
}

/// The integer that the number times 10 to the power of decimals rounds to, as digits.
std::string Scaled(const DecimalDigits &decimal, int decimals)
{
    const int kept = decimal.Power + decimals;
    if (kept < 0)
        return "0";
    std::string digits = decimal.Digits;
    if (kept >= DoubleDigits)
        return digits.append(static_cast<std::size_t>(kept - DoubleDigits), '0');
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits.resize(static_cast<std::size_t>(kept));
    digits.insert(digits.begin(), '0'); // room for a carry
    if (up) {
        const std::size_t place = digits.find_last_not_of('9');
        ++digits[place];
        std::fill(digits.begin() + static_cast<std::ptrdiff_t>(place) + 1, digits.end(), '0');
    }
    return digits;
}

/// The digits that a picture asks for.
struct Picture {
    std::size_t IntegerDigits = 0; ///< shown always, ahead of the point
    std::size_t FixedDecimals = 0; ///< shown always
    std::size_t MostDecimals = 0;
    bool Point = false;
};

Picture ReadPicture(QStringView text)
{
    Picture picture;
    for (const QChar character : text) {
        if (character == u'.' && !picture.Point) {
            picture.Point = true;
        } else if (character != u'0' && character != u'#') {
            throw RuntimeError(ErrorNumber::InvalidCall);
        } else if (!picture.Point) {
            // From the first "0" on every place ahead of the point is shown.
            picture.IntegerDigits += character == u'0' || picture.IntegerDigits > 0 ? 1 : 0;
        } else {
            ++picture.MostDecimals;
            if (character == u'0')
                picture.FixedDecimals = picture.MostDecimals; // and up to the last "0" behind it
        }
    }
    return picture;
}

template <typename Integer>
Integer Checked(double rounded)
{
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Integer>(rounded);
}

double TiesToEven(double value)
{
    const double rounded = std::round(value);
    return std::abs(value - std::trunc(value)) == 0.5 ? 2 * std::round(value / 2) : rounded;
}

} // namespace

double LeadingNumber(QStringView text)
{
    const NumberScan scan = ScanNumber(text);
    if (scan.Plain.empty())
        return 0;
    const double value = Value(scan);
    return std::isfinite(value) ? value : 0;
}

double WholeNumber(QStringView text)
{
    const NumberScan scan = ScanNumber(text);
    if (scan.Plain.empty() || SkipBlanks(text, scan.End) != text.size())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    const double value = Value(scan);
    if (!std::isfinite(value))
        throw RuntimeError(ErrorNumber::Overflow);
    return value;
}

QString GeneralNumber(double value)
{
    return GeneralText(value, DoubleDigits);
}

QString GeneralNumber(float value)
{
    return GeneralText(value, SingleDigits);
}

QString FormatNumber(double value, QStringView picture)
{
    if (!std::isfinite(value))
        throw RuntimeError(ErrorNumber::Overflow);
    const Picture places = ReadPicture(picture);
    const DecimalDigits decimal = Decompose(value);
    std::string digits = Scaled(decimal, static_cast<int>(places.MostDecimals));
    const bool zero = digits.find_first_not_of('0') == std::string::npos;

    if (digits.size() < places.MostDecimals)
        digits.insert(0, places.MostDecimals - digits.size(), '0');
    std::string fraction = digits.substr(digits.size() - places.MostDecimals);
    std::string integer = digits.substr(0, digits.size() - places.MostDecimals);
    integer.erase(0, std::min(integer.find_first_not_of('0'), integer.size()));
    if (integer.size() < places.IntegerDigits)
        integer.insert(0, places.IntegerDigits - integer.size(), '0');
    while (fraction.size() > places.FixedDecimals && fraction.back() == '0')
        fraction.pop_back();

    const std::string sign = decimal.Negative && !zero ? "-" : "";
    return QString::fromStdString(sign + integer + (places.Point ? "." : "") + fraction);
}

std::uint8_t RoundToUInt8(double value)
{
    return Checked<std::uint8_t>(TiesToEven(value));
}

std::int16_t RoundToInt16(double value)
{
    return Checked<std::int16_t>(TiesToEven(value));
}

std::int32_t RoundToInt32(double value)
{
    return Checked<std::int32_t>(TiesToEven(value));
}

float RoundToSingle(double value)
{
    if (!(std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max())))
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<float>(value);
}

std::int32_t FloorToInt32(double value)
{
    return Checked<std::int32_t>(std::floor(value));
}

double Quotient(double dividend, double divisor)
{
    if (divisor == 0)
        throw RuntimeError(ErrorNumber::DivisionByZero);
    const double quotient = dividend / divisor;
    if (!std::isfinite(quotient))
        throw RuntimeError(ErrorNumber::Overflow);
    return quotient;
}
