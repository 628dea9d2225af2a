/// @file
/// Numbers as text and back. Everything runs under a German locale, where the decimal point is a comma.

#include "platform/NumberText.h"
#include "support/ErrorOf.h"

#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <clocale>
#include <cmath>
#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class TestNumberText : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_locales;

private slots:
    /// Makes the German locale where the system has not generated it.
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(QLocale().toString(1.5), QStringLiteral("1,5"));
        if (!std::setlocale(LC_ALL, "de_DE.UTF-8")) {
            QCOMPARE(QProcess::execute(QStringLiteral("localedef"),
                                       {QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                                        QStringLiteral("UTF-8"), m_locales.filePath(QStringLiteral("de_DE.UTF-8"))}),
                     0);
            qputenv("LOCPATH", m_locales.path().toLocal8Bit());
            QVERIFY(std::setlocale(LC_ALL, "de_DE.UTF-8"));
        }
        QCOMPARE(std::localeconv()->decimal_point, ",");
    }

    void theLeadingNumberIsRead_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");
        const auto row = [](const char *text, double number) {
            QTest::newRow(text) << QString::fromUtf8(text) << number;
        };
        row("0", 0);
        row("12", 12);
        row("+7", 7);
        row("-7", -7);
        row("1.", 1);
        row(".5", 0.5);
        row("-.5e3", -500);
        row("1e", 1);
        row("1e+", 1);
        row("1e-", 1);
        row("2E3", 2000);
        row("2e-03x", 0.002);
        row("1.2.3", 1.2);
        row("1..2", 1);
        row("0x10", 0);
        row("&H10", 0);
        row("1,5", 1);
        row(" \t\r\n 42 ", 42);
        row("1 2", 1);
        row("- 5", 0);
        row("--5", 0);
        row("+-5", 0);
        row("+", 0);
        row(".", 0);
        row("-.", 0);
        row(".e5", 0);
        row("e5", 0);
        row("12V", 12);
        row("V12", 0);
        row("nan", 0);
        row("inf", 0);
        row("-infinity", 0);
        row("1e999", 0);
        row("-1e999", 0);
        row("1e-999", 0);
        row("1e99999999999999999999999", 0);
        row("1e-99999999999999999999999", 0);
        row("0e99999999999999999999999", 0);
        row("5e-324", std::numeric_limits<double>::denorm_min());
        row("2.2250738585072011e-308", 0x0.fffffffffffffp-1022); // the largest denormal
        row("1.7976931348623157e308", std::numeric_limits<double>::max());
        row("1.8e308", 0);
        row("0.1", 0.1);
        row("9007199254740993", 9007199254740992.0); // 2^53 + 1 is a tie, to even
        row("٣", 0);                                 // an Arabic digit three
        row("４", 0);                                // a full-width digit four
        QTest::newRow("empty") << QString() << 0.0;
        QTest::newRow("blanks") << QStringLiteral("  ") << 0.0;
        QTest::newRow("no-break space") << QStringLiteral("\u00A05") << 0.0;
        QTest::newRow("many zeros") << QString(QStringLiteral("0.") + QString(400, u'0') + QStringLiteral("1e401"))
                                    << 1.0;
        QTest::newRow("many digits") << QString(QStringLiteral("1") + QString(400, u'0') + QStringLiteral("e-400"))
                                     << 1.0;
        QTest::newRow("too many digits") << QString(400, u'9') << 0.0;
    }
    void theLeadingNumberIsRead()
    {
        QFETCH(QString, text);
        QFETCH(double, number);
        QVERIFY2(LeadingNumber(text) == number, qPrintable(QString::number(LeadingNumber(text), 'g', 17)));
    }

    void aWholeNumberIsReadAlone_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");
        QTest::addColumn<int>("error");
        const auto row = [](const char *text, double number, int error) {
            QTest::newRow(text) << QString::fromUtf8(text) << number << error;
        };
        row("12", 12, 0);
        row(" -1.5e2\r\n", -150, 0);
        row("1.", 1, 0);
        row(".5", 0.5, 0);
        row("+3", 3, 0);
        row("1e-999", 0, 0);
        row("0e999", 0, 0);
        row("1e999", 0, 6);
        row("-1e999", 0, 6);
        row("", 0, 13);
        row(" ", 0, 13);
        row("1e", 0, 13);
        row("1 2", 0, 13);
        row("1.2.3", 0, 13);
        row("1,5", 0, 13);
        row("0x10", 0, 13);
        row("nan", 0, 13);
        row("inf", 0, 13);
        row("1e999x", 0, 13);
        row("abc", 0, 13);
    }
    void aWholeNumberIsReadAlone()
    {
        QFETCH(QString, text);
        QFETCH(double, number);
        double read = 0;
        QTEST(ErrorOf([&] { read = WholeNumber(text); }), "error");
        QVERIFY(read == number);
    }

    void aDoubleIsWrittenWithFifteenDigits_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        const auto row = [](double value, const char *text) {
            QTest::newRow(text) << value << QString::fromLatin1(text);
        };
        row(0.0, "0");
        QTest::newRow("negative zero") << -0.0 << QStringLiteral("0");
        row(1.0, "1");
        row(-1.5, "-1.5");
        row(0.1, "0.1");
        QTest::newRow("0.1 + 0.2") << 0.1 + 0.2 << QStringLiteral("0.3");
        row(1.0 / 3, "0.333333333333333");
        row(2.0 / 3, "0.666666666666667");
        row(0.0001, "0.0001");
        row(0.00001, "1E-05");
        row(-0.0000123, "-1.23E-05");
        row(1e14, "100000000000000");
        row(123456789012345.0, "123456789012345");
        row(1e15, "1E+15");
        row(1.5e15, "1.5E+15");
        row(1e100, "1E+100");
        QTest::newRow("rounds up to the exponent form") << 999999999999999.5 << QStringLiteral("1E+15");
        row(-8888.0, "-8888");
        row(9e15, "9E+15");
        row(Infinity, "INF");
        row(-Infinity, "-INF");
        row(NotANumber, "NAN");
    }
    void aDoubleIsWrittenWithFifteenDigits()
    {
        QFETCH(double, value);
        QTEST(GeneralNumber(value), "text");
    }

    void aSingleIsWrittenWithSevenDigits_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<QString>("text");
        const auto row = [](float value, const char *text) {
            QTest::newRow(text) << value << QString::fromLatin1(text);
        };
        row(0.0F, "0");
        QTest::newRow("negative zero") << -0.0F << QStringLiteral("0");
        row(0.1F, "0.1");
        row(1.0F / 3, "0.3333333");
        row(1234567.0F, "1234567");
        row(12345678.0F, "1.234568E+07");
        row(1e7F, "1E+07");
        row(-0.00001F, "-1E-05");
        row(3.4028235e38F, "3.402823E+38");
    }
    void aSingleIsWrittenWithSevenDigits()
    {
        QFETCH(float, value);
        QTEST(GeneralNumber(value), "text");
    }

    void aPictureShapesANumber_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("picture");
        QTest::addColumn<QString>("text");
        const auto row = [](double value, const char *picture, const char *text) {
            QTest::addRow("%.17g as %s", value, picture)
                << value << QString::fromLatin1(picture) << QString::fromLatin1(text);
        };
        row(0.1234565, "0.0#####", "0.123457");
        row(-0.1234565, "0.0#####", "-0.123457");
        row(-0.0000001, "0.0#####", "0.0");
        row(-0.0, "0.0#####", "0.0");
        row(5, "0.0#####", "5.0");
        row(5.25, "0.0#####", "5.25");
        row(1e-300, "0.0#####", "0.0");
        row(0.0000005, "0.0#####", "0.000001");
        row(0.00000049, "0.0#####", "0.0");
        row(999.9999999, "0.0#####", "1000.0");
        row(123456789012345678.0, "0.0#####", "123456789012346000.0");
        row(2.675, "0.0##", "2.675");
        row(2.6755, "0.0##", "2.676");
        row(0.5, "0.0##", "0.5");
        row(60, "0", "60");
        row(0, "0", "0");
        row(0.5, "0", "1");
        row(1.5, "0", "2");
        row(2.5, "0", "3");
        row(-2.5, "0", "-3");
        row(-0.4, "0", "0");
        row(9.5, "0", "10");
        row(1, "0.0", "1.0");
        row(0.95, "0.0", "1.0");
        row(1.25, "0.0", "1.3");
        row(1.005, "0.00", "1.01"); // 15 decimal digits are looked at, not the binary fraction below 1.005
        row(2, "###.000", "2.000");
        row(0.5, "###.000", ".500");
        row(-0.5, "###.000", "-.500");
        row(1234.5678, "###.000", "1234.568");
        row(1000, "###.0", "1000.0");
        row(99.999, "###.0", "100.0");
        row(-250.05, "###.0", "-250.1");
        row(0, "###.0", ".0");
        row(9.9999, "##.00", "10.00");
        row(12.345, "##.00", "12.35");
        row(1, "#.000", "1.000");
        row(0.99999, "#.000", "1.000");
        row(0, "###", "");
        row(0.4, "###", "");
        row(-0.4, "###", "");
        row(-0.5, "###", "-1");
        row(123.456, "###", "123");
        row(99999, "###", "99999");
        row(12.34, "##.0", "12.3");
        row(0, "#.00", ".00");
        row(1.001, "#.00", "1.00");
        row(-0.001, "#.00", ".00");
        row(7, "000", "007");
        row(7, "#00", "07");
        row(7, "0#", "07");
        row(7, "0.###", "7.");
        row(7, "0.0#0", "7.000");
        row(1e20, "0", "100000000000000000000");
        row(4503599627370497.5, "0", "4503599627370500");
        QTest::newRow("the largest double") << std::numeric_limits<double>::max() << QStringLiteral("0")
                                            << QString(QStringLiteral("179769313486232") + QString(294, u'0'));
    }
    void aPictureShapesANumber()
    {
        QFETCH(double, value);
        QFETCH(QString, picture);
        QTEST(FormatNumber(value, picture), "text");
    }

    void aPictureOfWhatIsNoNumberOverflows()
    {
        for (const double value : {Infinity, -Infinity, NotANumber})
            QCOMPARE(ErrorOf([&] { FormatNumber(value, u"0.0"); }), 6);
    }

    void aPictureOfOtherCharactersIsAnInvalidCall()
    {
        for (const char *picture : {"0,0", "0.0.0", "0.0E+00", "kHz"})
            QCOMPARE(ErrorOf([&] { FormatNumber(1, QString::fromLatin1(picture)); }), 5);
    }

    void realsRoundToTheNearestIntegerTiesToEven_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("integer");
        const auto row = [](double value, int integer) { QTest::addRow("%.17g", value) << value << integer; };
        row(0.5, 0);
        row(1.5, 2);
        row(2.5, 2);
        row(-0.5, 0);
        row(-1.5, -2);
        row(-2.5, -2);
        row(0.49999999999999994, 0);
        row(2.5000000000000004, 3);
        row(-2.4999999999999996, -2);
        row(3.7, 4);
        row(32766.5, 32766);
        row(32767.4, 32767);
        row(-32768.5, -32768);
    }
    void realsRoundToTheNearestIntegerTiesToEven()
    {
        QFETCH(double, value);
        QFETCH(int, integer);
        QCOMPARE(RoundToInt32(value), integer);
        QCOMPARE(int(RoundToInt16(value)), integer);
    }

    void whatDoesNotFitOverflows()
    {
        QCOMPARE(int(RoundToUInt8(254.5)), 254);
        QCOMPARE(int(RoundToUInt8(255.4)), 255);
        QCOMPARE(int(RoundToUInt8(-0.5)), 0);
        QCOMPARE(ErrorOf([] { RoundToUInt8(255.5); }), 6);
        QCOMPARE(ErrorOf([] { RoundToUInt8(300); }), 6);
        QCOMPARE(ErrorOf([] { RoundToUInt8(-0.6); }), 6);
        QCOMPARE(ErrorOf([] { RoundToInt16(32767.5); }), 6);
        QCOMPARE(ErrorOf([] { RoundToInt16(-32768.6); }), 6);
        QCOMPARE(RoundToInt32(2147483647.4), 2147483647);
        QCOMPARE(RoundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
        QCOMPARE(ErrorOf([] { RoundToInt32(2147483647.5); }), 6);
        QCOMPARE(ErrorOf([] { RoundToInt32(-2147483649.0); }), 6);
        QCOMPARE(ErrorOf([] { FloorToInt32(2147483648.0); }), 6);
        QCOMPARE(ErrorOf([] { FloorToInt32(-2147483648.1); }), 6);
        for (const double value : {Infinity, -Infinity, NotANumber}) {
            QCOMPARE(ErrorOf([&] { RoundToUInt8(value); }), 6);
            QCOMPARE(ErrorOf([&] { RoundToInt16(value); }), 6);
            QCOMPARE(ErrorOf([&] { RoundToInt32(value); }), 6);
            QCOMPARE(ErrorOf([&] { FloorToInt32(value); }), 6);
        }
    }

    void aSingleIsTheNearestOne()
    {
        constexpr float most = std::numeric_limits<float>::max();
        QCOMPARE(RoundToSingle(0.1), 0.1F);
        QCOMPARE(RoundToSingle(16777217.0), 16777216.0F); // 2^24 + 1 is a tie, to even
        QCOMPARE(RoundToSingle(-2.5), -2.5F);
        QCOMPARE(RoundToSingle(1e-60), 0.0F);
        QVERIFY(RoundToSingle(double(most)) == most);
        QVERIFY(RoundToSingle(-double(most)) == -most);
        for (const double value : {1e39, -1e39, 3.4028236e38, Infinity, -Infinity, NotANumber})
            QCOMPARE(ErrorOf([&] { RoundToSingle(value); }), 6);
    }

    void theFloorIsNeverAboveTheValue()
    {
        QCOMPARE(FloorToInt32(1.999), 1);
        QCOMPARE(FloorToInt32(-0.001), -1);
        QCOMPARE(FloorToInt32(-2.0), -2);
        QCOMPARE(FloorToInt32(2147483647.999), 2147483647);
    }

    void aQuotientFailsInsteadOfRunningAway()
    {
        QCOMPARE(Quotient(1, 4), 0.25);
        QCOMPARE(ErrorOf([] { Quotient(1, 0); }), 11);
        QCOMPARE(ErrorOf([] { Quotient(0, 0); }), 11);
        QCOMPARE(ErrorOf([] { Quotient(1, -0.0); }), 11);
        QCOMPARE(ErrorOf([] { Quotient(NotANumber, 0); }), 11);
        QCOMPARE(ErrorOf([] { Quotient(1e300, 1e-300); }), 6);
        QCOMPARE(ErrorOf([] { Quotient(Infinity, 2); }), 6);
        QCOMPARE(ErrorOf([] { Quotient(NotANumber, 2); }), 6);
        QVERIFY(Quotient(1, Infinity) == 0);
    }
};

QTEST_GUILESS_MAIN(TestNumberText)
#include "tst_number_text.moc"
