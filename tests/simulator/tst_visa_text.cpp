/// @file
/// Formats and resource expressions of the virtual VISA library.

#include "simulator/VisaText.h"

#include <QtTest>

namespace {

std::optional<std::string> Expanded(const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::optional<std::string> text = ExpandFormat(format, arguments);
    va_end(arguments);
    return text;
}

} // namespace

class tst_visa_text : public QObject {
    Q_OBJECT

private slots:
    void aFormatWithoutConversionsIsSentAsItStands()
    {
        QCOMPARE(Expanded(":MEASure:VOLTage:DC?\n").value(), std::string(":MEASure:VOLTage:DC?\n"));
        QCOMPARE(Expanded("").value(), std::string());
    }

    void conversionsAreExpanded()
    {
        QCOMPARE(Expanded("100%%\n").value(), std::string("100%\n"));
        QCOMPARE(Expanded("%s %d;%u", "CONF", -12, 7).value(), std::string("CONF -12;7"));
        QCOMPARE(Expanded("%.3f|%e|%g", 0.5, 1.0, 2.5).value(), std::string("0.500|1.000000e+00|2.5"));
        QCOMPARE(Expanded("%05d|%-4s|%+.1f|%c", 42, "ab", 1.0, 'z').value(), std::string("00042|ab  |+1.0|z"));
    }

    void anUnknownConversionIsRefused_data()
    {
        QTest::addColumn<QByteArray>("format");
        for (const char *format : {"50%", "%n", "%ld", "%*d", "%@2d", "%,3f", "%b", "a%\n", "%-", "%5%"})
            QTest::newRow(format) << QByteArray(format);
    }

    void anUnknownConversionIsRefused()
    {
        QFETCH(QByteArray, format);
        QVERIFY(!Expanded(format.constData()));
    }

    void readFormatsAreTakenApart()
    {
        QVERIFY(!ParseReadFormat("%t")->Width);
        QVERIFY(!ParseReadFormat("%t")->SizeArgument);
        QCOMPARE(ParseReadFormat("%256t")->Width.value(), 256U);
        QVERIFY(ParseReadFormat("%#t")->SizeArgument);
    }

    void otherReadFormatsAreRefused_data()
    {
        QTest::addColumn<QByteArray>("format");
        for (const char *format : {"", "%", "t", "%s", "%0t", "%-3t", "%3#t", "%t\n", " %t", "%99999999999t", "%T"})
            QTest::newRow(format) << QByteArray(format);
    }

    void otherReadFormatsAreRefused()
    {
        QFETCH(QByteArray, format);
        QVERIFY(!ParseReadFormat(format.constData()));
    }

    void expressionsFindResources_data()
    {
        QTest::addColumn<QByteArray>("expression");
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<bool>("found");
        const QByteArray usb = "USB0::0xFFFE::0x7060::KV70600001::INSTR";
        QTest::newRow("USB instruments") << QByteArray("USB?*INSTR") << usb << true;
        QTest::newRow("all instruments") << QByteArray("?*INSTR") << usb << true;
        QTest::newRow("everything") << QByteArray("?*") << usb << true;
        QTest::newRow("lower case") << QByteArray("usb?*instr") << usb << true;
        QTest::newRow("the name itself") << usb << usb << true;
        QTest::newRow("any board number") << QByteArray("USB?+::?*INSTR") << usb << true;
        QTest::newRow("another interface") << QByteArray("GPIB?*INSTR") << usb << false;
        QTest::newRow("another class") << QByteArray("USB?*RAW") << usb << false;
        QTest::newRow("a part is not the whole") << QByteArray("USB") << usb << false;
        QTest::newRow("a tail too many") << QByteArray("?*INSTRX") << usb << false;
        QTest::newRow("star of a letter, none") << QByteArray("AB*C") << QByteArray("AC") << true;
        QTest::newRow("star of a letter, some") << QByteArray("AB*C") << QByteArray("ABBBC") << true;
        QTest::newRow("plus of a letter, none") << QByteArray("AB+C") << QByteArray("AC") << false;
        QTest::newRow("plus of a letter, some") << QByteArray("AB+C") << QByteArray("ABBC") << true;
        QTest::newRow("question mark is one") << QByteArray("A?C") << QByteArray("AC") << false;
        QTest::newRow("escaped question mark") << QByteArray("A\\?C") << QByteArray("AxC") << false;
        QTest::newRow("escaped star") << QByteArray("A\\*") << QByteArray("A*") << true;
    }

    void expressionsFindResources()
    {
        QFETCH(QByteArray, expression);
        QFETCH(QByteArray, name);
        QFETCH(bool, found);
        const ExpressionMatch expected = found ? ExpressionMatch::Yes : ExpressionMatch::No;
        QVERIFY(MatchResource(expression.constData(), name.constData()) == expected);
    }

    void expressionsOutsideTheSubsetAreInvalid_data()
    {
        QTest::addColumn<QByteArray>("expression");
        for (const char *expression : {"", "*INSTR", "+", "A**", "A\\", "USB[0-9]::?*", "(GPIB|USB)?*", "?*{VI_ATTR}"})
            QTest::newRow(expression) << QByteArray(expression);
    }

    void expressionsOutsideTheSubsetAreInvalid()
    {
        QFETCH(QByteArray, expression);
        QVERIFY(MatchResource(expression.constData(), "USB0::INSTR") == ExpressionMatch::Invalid);
    }
};

QTEST_GUILESS_MAIN(tst_visa_text)
#include "tst_visa_text.moc"
