#include "display/NumberFormatModule.h"

#include "platform/NumberText.h"

#include <cmath>
#include <span>

namespace {

/// One row of a table of formats. Rows are tried in order; the first whose threshold the number reaches decides.
struct FormatRow {
    double Threshold;
    const char16_t *Picture;
    double Scale; ///< the number is divided by this (axis) or multiplied with it (reading)
    double Nudge; ///< added after scaling
    const char16_t *Suffix;
};

float Single(double value)
{
    return static_cast<float>(value);
}

QString Shown(double value, const char16_t *picture, const char16_t *suffix)
{
    return FormatNumber(value, picture) + QString::fromUtf16(suffix);
}

// Thresholds and figures are required as they stand, those that look asymmetric included: the pico rows of positive
// numbers have no suffix, and the nudge of negative micro numbers is added.
constexpr FormatRow axisRows[] = {
    {99.999, u"###.0", 1, 0, u""},          {9.9999, u"##.00", 1, 0, u""},
    {0.99999, u"#.000", 1, 0, u""},         {0.099999, u"###.0", 0.001, 0, u"m"},
    {0.0099999, u"##.00", 0.001, 0, u"m"},  {0.00099999, u"#.000", 0.001, 0, u"m"},
    {9.9999e-05, u"###.0", 1e-06, 0, u"u"}, {9.9999e-06, u"##.00", 1e-06, 0, u"u"},
    {9.9999e-07, u"#.000", 1e-06, 0, u"u"}, {9.9999e-08, u"###.0", 1e-09, 0, u"n"},
    {9.9999e-09, u"##.00", 1e-09, 0, u"n"}, {9.9999e-10, u"#.000", 1e-09, 0, u"n"},
    {9.9999e-11, u"###.0", 1e-12, 0, u""},  {9.9999e-12, u"##.00", 1e-12, 0, u""},
    {9.9999e-13, u"#.000", 1e-12, 0, u""},
};
constexpr double picoScale = 1e-12;

constexpr FormatRow readingRows[] = {
    {999990, u"#.00", 1e-06, 0.001, u"M"},
    {99999, u"###", 1e-03, 0.001, u"k"},
    {9999.9, u"##.0", 1e-03, 0.001, u"k"},
    {999.99, u"#.00", 1e-03, 0.001, u"k"},
    {99.999, u"###", 1, 0.001, u""},
    {9.9999, u"##.0", 1, 0.001, u""},
    {0.99999, u"#.00", 1, 0.001, u""},
    {0.099999, u"###", 1000, 0.001, u"m"},
    {0.0099999, u"##.0", 1000, 0.001, u"m"},
    {0.00099999, u"#.00", 1000, 0.001, u"m"},
    {9.9999e-05, u"###", 1000000, 0.001, u"u"},
    {9.9999e-06, u"##.0", 1000000, 0.001, u"u"},
    {9.9999e-07, u"#.00", 1000000, 0.001, u"u"},
};

/// Scales below 1 are divisors, so that no last digit is lost to a factor such as 0.001.
double ScaledReading(double value, double scale)
{
    return scale < 1 ? value / std::round(1 / scale) : value * scale;
}

QString PositiveReading(float value)
{
    for (const FormatRow &row : readingRows) {
        if (value >= Single(row.Threshold))
            return Shown(ScaledReading(value, row.Scale) + row.Nudge, row.Picture, row.Suffix);
    }
    return {};
}

QString NegativeReading(float value)
{
    // Required: the negative side ends at -999990 and has no row for "M".
    if (value <= Single(-999990))
        return QStringLiteral("??.?");
    for (const FormatRow &row : std::span(readingRows).subspan(1)) {
        if (value <= Single(-row.Threshold)) {
            // Required: the nudge of the micro rows is added on this side too.
            const double nudge = row.Scale == 1000000 ? row.Nudge : -row.Nudge;
            return Shown(ScaledReading(value, row.Scale) + nudge, row.Picture, row.Suffix);
        }
    }
    return {};
}

} // namespace

QString FormatReadingValue(const QString &text)
{
    const float value = Single(LeadingNumber(text));
    if (value >= Single(9999900))
        return QStringLiteral("??.?");
    if (value >= Single(9.9999e-07))
        return PositiveReading(value);
    if (value >= Single(-9.9999e-07))
        return QStringLiteral("0.00");
    return NegativeReading(value);
}

QString FormatAxisValue(const QString &text)
{
    const float value = Single(LeadingNumber(text));
    const float size = std::abs(value);
    if (size > Single(1000000))
        return Shown(static_cast<double>(value) / 1000000, u"###.000", u"M");
    if (size > Single(1000))
        return Shown(static_cast<double>(value) / 1000, u"###.000", u"k");
    for (const FormatRow &row : axisRows) {
        if (value >= Single(row.Threshold))
            return Shown(static_cast<double>(value) / row.Scale, row.Picture, row.Suffix);
    }
    for (const FormatRow &row : axisRows) {
        if (value <= Single(-row.Threshold)) {
            return Shown(static_cast<double>(value) / row.Scale, row.Picture,
                         row.Scale == picoScale ? u"p" : row.Suffix);
        }
    }
    return QStringLiteral("0.000");
}
