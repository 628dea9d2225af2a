/// @file
/// Every row of both tables of number formats: at its threshold, just below it, and in its middle, on both sides of
/// zero.
#include "display/NumberFormatModule.h"
#include "support/ErrorOf.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace {

/// All digits of a number, so that the parser gets exactly this one.
QString Exact(float value)
{
    return QString::number(static_cast<double>(value), 'g', 17);
}

/// The next single towards zero.
float Smaller(float value)
{
    return std::nextafter(value, 0.0F);
}

float Larger(float value)
{
    return std::nextafter(value, std::copysign(std::numeric_limits<float>::max(), value));
}

void Add(const char *name, float value, const char *text)
{
    QTest::newRow(name) << Exact(value) << QString::fromLatin1(text);
}

/// A row of a table: what it makes of its threshold, and what the row below makes of the next single towards zero.
void AddThreshold(float threshold, const char *at, const char *below)
{
    const QByteArray number = QByteArray::number(static_cast<double>(threshold), 'g', 8);
    Add((number + " at").constData(), threshold, at);
    Add((number + " below").constData(), Smaller(threshold), below);
}

} // namespace

class TestNumberFormat : public QObject {
    Q_OBJECT

private slots:
    void AxisValuesAtTheThresholds_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("expected");
        // Written out by hand; the numbers come from an exact decimal computation.
        AddThreshold(99.999F, "100.0", "100.00");
        AddThreshold(9.9999F, "10.00", "10.000");
        AddThreshold(0.99999F, "1.000", "1000.0m");
        AddThreshold(0.099999F, "100.0m", "100.00m");
        AddThreshold(0.0099999F, "10.00m", "10.000m");
        AddThreshold(0.00099999F, "1.000m", "1000.0u");
        AddThreshold(9.9999e-05F, "100.0u", "100.00u");
        AddThreshold(9.9999e-06F, "10.00u", "10.000u");
        AddThreshold(9.9999e-07F, "1.000u", "1000.0n");
        AddThreshold(9.9999e-08F, "100.0n", "100.00n");
        AddThreshold(9.9999e-09F, "10.00n", "10.000n");
        AddThreshold(9.9999e-10F, "1.000n", "1000.0");
        AddThreshold(9.9999e-11F, "100.0", "100.00");
        AddThreshold(9.9999e-12F, "10.00", "10.000");
        AddThreshold(9.9999e-13F, "1.000", "0.000");
        AddThreshold(-99.999F, "-100.0", "-100.00");
        AddThreshold(-9.9999F, "-10.00", "-10.000");
        AddThreshold(-0.99999F, "-1.000", "-1000.0m");
        AddThreshold(-0.099999F, "-100.0m", "-100.00m");
        AddThreshold(-0.0099999F, "-10.00m", "-10.000m");
        AddThreshold(-0.00099999F, "-1.000m", "-1000.0u");
        AddThreshold(-9.9999e-05F, "-100.0u", "-100.00u");
        AddThreshold(-9.9999e-06F, "-10.00u", "-10.000u");
        AddThreshold(-9.9999e-07F, "-1.000u", "-1000.0n");
        AddThreshold(-9.9999e-08F, "-100.0n", "-100.00n");
        AddThreshold(-9.9999e-09F, "-10.00n", "-10.000n");
        AddThreshold(-9.9999e-10F, "-1.000n", "-1000.0p");
        AddThreshold(-9.9999e-11F, "-100.0p", "-100.00p");
        AddThreshold(-9.9999e-12F, "-10.00p", "-10.000p");
        AddThreshold(-9.9999e-13F, "-1.000p", "0.000");
        // The two scales on the size start above their thresholds.
        Add("1000 itself", 1000, "1000.0");
        Add("above 1000", Larger(1000), "1.000k");
        Add("1000000 itself", 1000000, "1000.000k");
        Add("above 1000000", Larger(1000000), "1.000M");
        Add("-1000 itself", -1000, "-1000.0");
        Add("below -1000", Larger(-1000), "-1.000k");
        Add("-1000000 itself", -1000000, "-1000.000k");
        Add("below -1000000", Larger(-1000000), "-1.000M");
    }

    void AxisValuesAtTheThresholds()
    {
        QFETCH(QString, number);
        QTEST(FormatAxisValue(number), "expected");
    }

    void AxisValues_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char *number, const char *expected) {
            QTest::newRow(number) << QString::fromLatin1(number) << QString::fromLatin1(expected);
        };
        add("2345678", "2.346M");
        add("-2345678", "-2.346M");
        add("2000", "2.000k");
        add("-1234.5", "-1.235k");
        add("123.46", "123.5");
        add("-123.46", "-123.5");
        add("12.345", "12.35");
        add("2.5", "2.500");
        add("0.5", "500.0m");
        add("0.05", "50.00m");
        add("0.005", "5.000m");
        add("5E-04", "500.0u");
        add("5E-05", "50.00u");
        add("5E-06", "5.000u");
        add("5E-07", "500.0n");
        add("5E-08", "50.00n");
        add("5E-09", "5.000n");
        add("5E-10", "500.0");
        add("-5E-10", "-500.0p");
        add("1E-11", "10.00");
        add("-1E-11", "-10.00p");
        add("5E-12", "5.000");
        add("-5E-12", "-5.000p");
        add("0", "0.000");
        add("-0", "0.000");
        add("", "0.000");
        add("volts", "0.000");
        add("  7.25 V", "7.250");
        // The number is a single before it is formatted: 1.0005 is then 1.00049996.
        add("1.0005", "1.000");
        // Ties round away from zero.
        add("2.0625", "2.063");
        add("-2.0625", "-2.063");
        add("9.99994", "10.00");
    }

    void AxisValues()
    {
        QFETCH(QString, number);
        QTEST(FormatAxisValue(number), "expected");
    }

    void AnAxisValueBeyondSingleIsAnOverflow()
    {
        QCOMPARE(ErrorOf([] { FormatAxisValue(QStringLiteral("1E+39")); }), ErrorNumber::Overflow);
    }

    void ReadingsAtTheThresholds_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("expected");
        AddThreshold(9999900.0F, "??.?", "10.00M");
        AddThreshold(999990.0F, "1.00M", "1000k");
        AddThreshold(99999.0F, "100k", "100.0k");
        AddThreshold(9999.9F, "10.0k", "10.00k");
        AddThreshold(999.99F, "1.00k", "1000");
        AddThreshold(99.999F, "100", "100.0");
        AddThreshold(9.9999F, "10.0", "10.00");
        AddThreshold(0.99999F, "1.00", "1000m");
        AddThreshold(0.099999F, "100m", "100.0m");
        AddThreshold(0.0099999F, "10.0m", "10.00m");
        AddThreshold(0.00099999F, "1.00m", "1000u");
        AddThreshold(9.9999e-05F, "100u", "100.0u");
        AddThreshold(9.9999e-06F, "10.0u", "10.00u");
        AddThreshold(9.9999e-07F, "1.00u", "0.00");
        AddThreshold(-999990.0F, "??.?", "-1000k");
        AddThreshold(-99999.0F, "-100k", "-100.0k");
        AddThreshold(-9999.9F, "-10.0k", "-10.00k");
        AddThreshold(-999.99F, "-1.00k", "-1000");
        AddThreshold(-99.999F, "-100", "-100.0");
        AddThreshold(-9.9999F, "-10.0", "-10.00");
        AddThreshold(-0.99999F, "-1.00", "-1000m");
        AddThreshold(-0.099999F, "-100m", "-100.0m");
        AddThreshold(-0.0099999F, "-10.0m", "-10.00m");
        AddThreshold(-0.00099999F, "-1.00m", "-1000u");
        AddThreshold(-9.9999e-05F, "-100u", "-100.0u");
        AddThreshold(-9.9999e-06F, "-10.0u", "-10.00u");
        // The threshold of the last row still belongs to the zero range.
        AddThreshold(-9.9999e-07F, "0.00", "0.00");
        Add("beyond -9.9999e-07", Larger(-9.9999e-07F), "-1.00u");
    }

    void ReadingsAtTheThresholds()
    {
        QFETCH(QString, number);
        QTEST(FormatReadingValue(number), "expected");
    }

    // Numbers that only the nudge of 0.001 brings over, or keeps below, a rounding tie: its sign shows in each row.
    void ReadingsAreNudged_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char *number, const char *expected) {
            QTest::newRow(number) << QString::fromLatin1(number) << QString::fromLatin1(expected);
        };
        add("1234500", "1.24M");
        add("123499.5", "124k");
        add("12349.5", "12.4k");
        add("1234.5", "1.24k");
        add("123.4995", "124");
        add("12.3495", "12.4");
        add("1.2345", "1.24");
        add("0.1234995", "124m");
        add("0.0123495", "12.4m");
        add("0.0012345", "1.24m");
        add("123.4995E-06", "124u");
        add("12.3495E-06", "12.4u");
        add("1.2345E-06", "1.24u");
        add("-123499.5", "-124k");
        add("-12349.5", "-12.4k");
        add("-1234.5", "-1.24k");
        add("-123.4995", "-124");
        add("-12.3495", "-12.4");
        add("-1.2345", "-1.24");
        add("-0.1234995", "-124m");
        add("-0.0123495", "-12.4m");
        add("-0.0012345", "-1.24m");
        // The micro rows are nudged upwards on the negative side too.
        add("-123.5005E-06", "-123u");
        add("-12.3505E-06", "-12.3u");
        add("-1.2355E-06", "-1.23u");
    }

    void ReadingsAreNudged()
    {
        QFETCH(QString, number);
        QTEST(FormatReadingValue(number), "expected");
    }

    void Readings_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char *number, const char *expected) {
            QTest::newRow(number) << QString::fromLatin1(number) << QString::fromLatin1(expected);
        };
        add("0", "0.00");
        add("1000", "1.00k");
        add("1000000", "1.00M");
        add("-1000000", "??.?");
        add("-9999900", "??.?");
        add("1E+30", "??.?");
        add("", "0.00");
        add("none", "0.00");
        add("25 mV", "25.0");
        add("2500000", "2.50M");
        add("250", "250");
        add("-2.5E-05", "-25.0u");
        add("5E-07", "0.00");
        add("-5E-07", "0.00");
    }

    void Readings()
    {
        QFETCH(QString, number);
        QTEST(FormatReadingValue(number), "expected");
    }
};

QTEST_GUILESS_MAIN(TestNumberFormat)
#include "tst_number_format.moc"
