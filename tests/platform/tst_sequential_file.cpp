/// @file
/// The delimited reader and the writer of lines, on bytes. Everything runs under a German locale, where the decimal
/// point is a comma.
#include "platform/SequentialFile.h"
#include "support/CommaLocale.h"
#include "support/ErrorOf.h"

#include <QtTest>

#include <limits>
#include <memory>

namespace {

/// What a reader takes from bytes when asked for texts (t) and numbers (n) in turn: a text between bars, a number in 17
/// digits, or the number of the error.
QStringList Taken(const QByteArray &bytes, const QByteArray &kinds)
{
    SequentialReader reader(bytes);
    QStringList taken;
    for (const char kind : kinds) {
        try {
            taken.append(kind == 't' ? QString(u'|' + reader.ReadText() + u'|')
                                     : QString::number(reader.ReadNumber(), 'g', 17));
        } catch (const RuntimeError &error) {
            taken.append(QStringLiteral("error %1").arg(error.Number()));
        }
    }
    return taken;
}

QByteArray Written(const std::function<void(SequentialWriter &)> &write)
{
    SequentialWriter writer;
    write(writer);
    return writer.Bytes();
}

} // namespace

class TestSequentialFile : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<CommaLocale> m_locale;

private slots:
    void initTestCase()
    {
        m_locale = std::make_unique<CommaLocale>();
        QVERIFY(m_locale->IsInForce());
    }
    void cleanupTestCase() { m_locale.reset(); }

    void valuesAreTakenInTurn_data();
    void valuesAreTakenInTurn();
    void aNumberHasAnyDecimalForm_data();
    void aNumberHasAnyDecimalForm();
    void bytesAreUtf8OrElseGb18030_data();
    void bytesAreUtf8OrElseGb18030();
    void theEndIsWhereNothingIsLeft();
    void aHugeLineIsOneValue();
    void numbersAreWrittenBetweenBlanks_data();
    void numbersAreWrittenBetweenBlanks();
    void singlesHaveSevenDigits_data();
    void singlesHaveSevenDigits();
    void integersAreWrittenWhole();
    void linesEndWithCrLf();
    void textStandsAsItIs();
};

void TestSequentialFile::valuesAreTakenInTurn_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("kinds");
    QTest::addColumn<QString>("taken");
    const auto row = [](const char *name, const QByteArray &bytes, const char *kinds, const char *taken) {
        QTest::newRow(name) << bytes << QByteArray(kinds) << QString::fromUtf8(taken);
    };
    row("one text a line", "a\r\nbc\r\n", "ttt", "|a| |bc| error 62");
    row("lone CR ends a line", "a\rb\r", "ttt", "|a| |b| error 62");
    row("lone LF ends a line", "a\nb\n", "ttt", "|a| |b| error 62");
    row("LF CR is two line ends", "a\n\rb", "ttt", "|a| || |b|");
    row("CR CR LF is two line ends", "a\r\r\nb", "ttt", "|a| || |b|");
    row("missing last line end", "a\r\nb", "ttt", "|a| |b| error 62");
    row("missing last line end after a number", "1\r\n2", "nnn", "1 2 error 62");
    row("nothing", "", "tn", "error 62 error 62");
    row("blanks only", "   ", "tn", "error 62 error 62");
    row("empty line", "\r\na", "tt", "|| |a|");
    row("line of blanks is an empty text", "   \r\na", "tt", "|| |a|");
    row("blanks ahead are skipped", "   a\r\n\t b\r\n", "tt", "|a| |b|");
    row("blanks inside and behind stay", "a b  \r\nc\r\n", "tt", "|a b  | |c|");
    row("comma ends a text", "a,b\r\nc", "ttt", "|a| |b| |c|");
    row("commas alone are empty texts", ",,\r\nx", "tttt", "|| || || |x|");
    row("comma ahead of the line end leaves an empty text", "a,\r\nb", "ttt", "|a| || |b|");
    row("quotes enclose a comma", "\"a,b\",c", "ttt", "|a,b| |c| error 62");
    row("quotes enclose a line end", "\"a\r\nb\"\r\nc", "tt", "|a\r\nb| |c|");
    row("quotes enclose blanks", "  \" a \"  ,b", "tt", "| a | |b|");
    row("empty quotes", "\"\"\r\na", "tt", "|| |a|");
    row("quotes without an end go to the end", "\"a,\r\nb", "tt", "|a,\r\nb| error 62");
    row("lone quote", "\"", "tt", "|| error 62");
    row("quote inside a text is a character", "a\"b,c\"\r\n", "tt", "|a\"b| |c\"|");
    row("text right behind quotes is the next value", "\"a\"b\r\nc", "ttt", "|a| |b| |c|");
    row("a word is read as any text", "True\r\nFalse\r\n", "tt", "|True| |False|");
    row("number read as text", " 1 \r\n", "t", "|1 |");
    row("zero character belongs to a text", QByteArray("a\0b\r\nc", 6), "t", "|a\0b|");

    row("one number a line", " 1 \r\n-2 \r\n", "nnn", "1 -2 error 62");
    row("two numbers on a line", " 1.5  20 \r\n 3 \r\n", "nnn", "1.5 20 3");
    row("numbers between commas", " 1.5 , 20 ,True, 0 \r\n", "nntn", "1.5 20 |True| 0");
    row("count and empty fields", " 3 ,,,\r\n 7 ", "ntttn", "3 || || || 7");
    row("tab ends a number", "1\t2", "nn", "1 2");
    row("blanks and one comma behind a number", "1  ,2", "nn", "1 2");
    row("blanks and one line end behind a number", "1  \r\n2", "nn", "1 2");
    row("an empty line behind a number stays", " 1 \r\n\r\n 2 \r\n", "ntn", "1 || 2");
    row("an empty line behind a number without a blank stays", "1\n\n2", "ntn", "1 || 2");
    row("comma behind a number, then the line end", "1,\r\n2", "ntn", "1 || 2");
    row("text on the rest of a number's line", " 1 abc\r\n 2", "ntn", "1 |abc| 2");
    row("text is no number", "abc\r\n5", "nn", "error 13 5");
    row("text with blanks is two values", "abc def\r\n5", "nnn", "error 13 error 13 5");
    row("word is no number", "True\r\n5", "nn", "error 13 5");
    row("empty line is no number", "\r\n5", "nn", "error 13 5");
    row("nothing between commas is no number", "1,,2", "nnn", "1 error 13 2");
    row("number in quotes is none", "\"1\"\r\n5", "nn", "error 13 5");
    row("number and more is none", "1x,5", "nn", "error 13 5");
    row("decimal comma is two numbers", "1,5", "nn", "1 5");
    row("beyond double", "1e400\r\n5", "nn", "error 6 5");
    row("zero character is no number", QByteArray("1\0\r\n5", 5), "nn", "error 13 5");
    row("full-width digit is none", "４\r\n5", "nn", "error 13 5");
    row("no-break space is no blank",
        "\xC2\xA0"
        "1\r\n5",
        "nn", "error 13 5");
}

void TestSequentialFile::valuesAreTakenInTurn()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, kinds);
    QFETCH(QString, taken);
    if (bytes.contains('\0') && kinds == "t")
        taken = QString(QStringLiteral("|a") + QChar(0) + QStringLiteral("b|"));
    QCOMPARE(Taken(bytes, kinds).join(u' '), taken);
}

void TestSequentialFile::aNumberHasAnyDecimalForm_data()
{
    QTest::addColumn<double>("number");
    const auto row = [](const char *text, double number) { QTest::newRow(text) << number; };
    row("0", 0);
    row("-0", 0);
    row(".5", 0.5);
    row("0.5", 0.5);
    row("-.5", -0.5);
    row("-0.5", -0.5);
    row("5.", 5);
    row("+5", 5);
    row("007", 7);
    row("1E-06", 1e-6);
    row("1e-6", 1e-6);
    row("1E+20", 1e20);
    row("1E20", 1e20);
    row("-1.25e+2", -125);
    row("1.79769313486231E+308", 1.79769313486231e308);
    row("4.94065645841247E-324", std::numeric_limits<double>::denorm_min());
    row("1E-400", 0);
    row("123456789.123456789", 123456789.123456789);
}

void TestSequentialFile::aNumberHasAnyDecimalForm()
{
    QFETCH(double, number);
    const QByteArray text(QTest::currentDataTag());
    for (const QByteArray &bytes : {text, " " + text + " \r\n", "\t" + text + "\n", text + ",", "  " + text + " 3"})
        QVERIFY2(SequentialReader(bytes).ReadNumber() == number, bytes.constData());
}

void TestSequentialFile::bytesAreUtf8OrElseGb18030_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("texts");
    const auto row = [](const char *name, const QByteArray &bytes, const QStringList &texts) {
        QTest::newRow(name) << bytes << texts;
    };
    row("UTF-8", "\xE6\xB8\xA9\xE5\xBA\xA6\r\n\xE2\x84\x83", {"温度", "℃"});
    row("UTF-8 beyond 16 bits", "\xF0\x9F\x8C\xA1", {QString::fromUcs4(U"\U0001F321")});
    row("byte order mark is no text", "\xEF\xBB\xBFname\r\n", {"name"});
    row("byte order mark alone", "\xEF\xBB\xBF", {});
    row("byte order mark further on is a character", "a\r\n\xEF\xBB\xBF", {"a", QString(QChar(0xFEFF))});
    row("GB18030 of two bytes", "\xCE\xC2\xB6\xC8\r\n\xA1\xE6", {"温度", "℃"});
    row("GB18030 of four bytes", "\x94\x39\xB3\x31\xCE\xC2", {QString::fromUcs4(U"\U0001F321") + QString("温")});
    row("one wrong byte decides for the whole file", "\xE6\xB8\xA9\r\n\xCE\xC2", {"娓�", "温"});
    row("UTF-8 that breaks off at the end is none", "a\r\n\xE5\xBA", {"a", "搴"});
    row("UTF-8 of a surrogate is none", "\xED\xB0\xB0\xB0", {"戆鞍"});
}

void TestSequentialFile::bytesAreUtf8OrElseGb18030()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, texts);
    SequentialReader reader(bytes);
    QStringList read;
    while (!reader.AtEnd())
        read.append(reader.ReadText());
    QCOMPARE(read, texts);
}

void TestSequentialFile::theEndIsWhereNothingIsLeft()
{
    SequentialReader reader(" 1 \r\n a\r\n  ");
    QVERIFY(!reader.AtEnd());
    reader.ReadNumber();
    QVERIFY(!reader.AtEnd());
    reader.ReadText();
    QVERIFY(!reader.AtEnd());
    QCOMPARE(ErrorOf([&] { reader.ReadText(); }), 62);
    QVERIFY(reader.AtEnd());
    QVERIFY(SequentialReader("").AtEnd());
}

void TestSequentialFile::aHugeLineIsOneValue()
{
    const qsizetype length = 4'000'000;
    SequentialReader texts(QByteArray(length, 'x') + "\r\nb");
    QCOMPARE(texts.ReadText(), QString(length, u'x'));
    QCOMPARE(texts.ReadText(), QStringLiteral("b"));
    SequentialReader numbers(QByteArray(length, '9') + "\r\n0." + QByteArray(length, '0') + "1\r\n7");
    QCOMPARE(ErrorOf([&] { numbers.ReadNumber(); }), 6);
    QCOMPARE(numbers.ReadNumber(), 0.0);
    QCOMPARE(numbers.ReadNumber(), 7.0);
    SequentialReader blanks(QByteArray(length, ' ') + "1" + QByteArray(length, ' ') + "\r\n2");
    QCOMPARE(blanks.ReadNumber(), 1.0);
    QCOMPARE(blanks.ReadNumber(), 2.0);
}

void TestSequentialFile::numbersAreWrittenBetweenBlanks_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](double number, const char *bytes) { QTest::newRow(bytes) << number << QByteArray(bytes); };
    row(0, " 0 ");
    row(-0.0, " 0 ");
    row(1, " 1 ");
    row(-1, "-1 ");
    row(1.5, " 1.5 ");
    row(-0.25, "-0.25 ");
    row(0.1 + 0.2, " 0.3 ");
    row(1.0 / 3, " 0.333333333333333 ");
    row(123456789012345, " 123456789012345 ");
    row(1e15, " 1E+15 ");
    row(1e-5, " 1E-05 ");
    row(-1e-300, "-1E-300 ");
    row(2147483647, " 2147483647 ");
}

void TestSequentialFile::numbersAreWrittenBetweenBlanks()
{
    QFETCH(double, number);
    QTEST(Written([number](SequentialWriter &writer) { writer.WriteNumber(number); }), "bytes");
}

void TestSequentialFile::singlesHaveSevenDigits_data()
{
    QTest::addColumn<float>("number");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](float number, const char *bytes) { QTest::newRow(bytes) << number << QByteArray(bytes); };
    row(0.001F, " 0.001 ");
    row(1e-6F, " 1E-06 ");
    row(1000000.0F, " 1000000 ");
    row(1.0F / 3, " 0.3333333 ");
    row(100.25F, " 100.25 ");
    row(-2.5F, "-2.5 ");
}

void TestSequentialFile::singlesHaveSevenDigits()
{
    QFETCH(float, number);
    QTEST(Written([number](SequentialWriter &writer) { writer.WriteNumber(number); }), "bytes");
}

void TestSequentialFile::integersAreWrittenWhole()
{
    QCOMPARE(Written([](SequentialWriter &writer) {
                 writer.WriteNumber(std::uint8_t(255));
                 writer.WriteNumber(std::int16_t(-32768));
                 writer.WriteNumber(std::numeric_limits<std::int32_t>::min());
             }),
             QByteArray(" 255 -32768 -2147483648 "));
}

void TestSequentialFile::linesEndWithCrLf()
{
    QCOMPARE(Written([](SequentialWriter &writer) {
                 writer.EndLine();
                 writer.WriteNumber(1.0);
                 writer.WriteNumber(2.0);
                 writer.EndLine();
                 writer.WriteBoolean(true);
                 writer.EndLine();
                 writer.WriteBoolean(false);
                 writer.EndLine();
             }),
             QByteArray("\r\n 1  2 \r\nTrue\r\nFalse\r\n"));
}

void TestSequentialFile::textStandsAsItIs()
{
    QCOMPARE(Written([](SequentialWriter &writer) { writer.WriteText(u" a,\"b\" 温度 "); }),
             QByteArray(" a,\"b\" \xE6\xB8\xA9\xE5\xBA\xA6 "));
    QCOMPARE(Written([](SequentialWriter &writer) { writer.WriteText({}); }), QByteArray());
}

QTEST_GUILESS_MAIN(TestSequentialFile)
#include "tst_sequential_file.moc"
