/// @file
/// Reference data files of other programs, cut short, or no such files at all, as they are read.
#include "curve/ReferenceReading.h"

#include <QtTest>

class ReferenceDataForeignTest : public QObject {
    Q_OBJECT

private slots:
    void what_makes_the_lines_does_not_matter_data();
    void what_makes_the_lines_does_not_matter();
    void a_file_cut_short_fails_or_is_refused_data();
    void a_file_cut_short_fails_or_is_refused();
    void foreign_files_are_not_taken_data();
    void foreign_files_are_not_taken();
    void a_huge_line_comes_to_an_end_data();
    void a_huge_line_comes_to_an_end();
};

void ReferenceDataForeignTest::what_makes_the_lines_does_not_matter_data()
{
    QTest::addColumn<QByteArray>("ahead");
    QTest::addColumn<QByteArray>("lineEnd");
    QTest::addColumn<bool>("lastOne");
    QTest::newRow("CR LF") << QByteArray() << QByteArray("\r\n") << true;
    QTest::newRow("LF") << QByteArray() << QByteArray("\n") << true;
    QTest::newRow("CR") << QByteArray() << QByteArray("\r") << true;
    QTest::newRow("no last line end") << QByteArray() << QByteArray("\r\n") << false;
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF") << QByteArray("\r\n") << true;
    QTest::newRow("byte order mark, LF") << QByteArray("\xEF\xBB\xBF") << QByteArray("\n") << false;
}

void ReferenceDataForeignTest::what_makes_the_lines_does_not_matter()
{
    QFETCH(QByteArray, ahead);
    QFETCH(QByteArray, lineEnd);
    QFETCH(bool, lastOne);
    for (const ReferenceDataLayout layout : {Csv, Text}) {
        QByteArray bytes = DataBytes(QStringLiteral("reference_three_rows") +
                                     (layout == Csv ? QStringLiteral(".CSV") : QStringLiteral(".txt")));
        QCOMPARE(bytes.count("\r\n"), 4);
        bytes.replace("\r\n", lineEnd);
        const Reading reading = Read(ahead + (lastOne ? bytes : bytes.chopped(lineEnd.size())), layout);
        QCOMPARE(reading.Outcome, QStringLiteral("read"));
        QCOMPARE(UsedRows(reading.Rows), UsedRows(ThreeRows()));
    }
}

void ReferenceDataForeignTest::a_file_cut_short_fails_or_is_refused_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::addColumn<QByteArray>("wholeFrom"); // the shortest beginning that still holds every row whole
    QTest::newRow("reference_three_rows.CSV") << Csv << QByteArray("False, 0");
    QTest::newRow("reference_three_rows.txt") << Text << QByteArray("False          0");
}

/// At every byte. Nothing that lacks a value is taken for a table.
void ReferenceDataForeignTest::a_file_cut_short_fails_or_is_refused()
{
    QFETCH(ReferenceDataLayout, layout);
    QFETCH(QByteArray, wholeFrom);
    const QByteArray bytes = DataBytes(QString::fromLatin1(QTest::currentDataTag()));
    const qsizetype whole = bytes.lastIndexOf(wholeFrom) + wholeFrom.size();
    QVERIFY(whole > wholeFrom.size());
    for (qsizetype size = 0; size <= bytes.size(); ++size)
        QCOMPARE(Read(bytes.first(size), layout).Outcome == QStringLiteral("read"), size >= whole);
    QCOMPARE(Read(bytes.first(0), layout).Outcome, QStringLiteral("error 62"));
    QCOMPARE(Read(bytes.first(1), layout).Outcome, QStringLiteral("error 62"));
}

void ReferenceDataForeignTest::foreign_files_are_not_taken_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("outcome");
    const auto row = [](const char *name, const QByteArray &bytes, const char *outcome) {
        QTest::newRow(name) << bytes << QString::fromLatin1(outcome);
    };
    row("empty", {}, "error 62");
    row("blanks", "  \t  ", "error 62");
    row("empty lines", "\r\n\r\n\r\n", "no row count");
    row("commas", ",,,,,,", "no row count");
    row("title line", "Input,Output,Segment,Arithmetic\r\n1,2,True,0\r\n", "no row count");
    row("zero bytes", QByteArray(1000, '\0'), "no row count");
    row("program",
        QByteArray("\x7F"
                   "ELF\x02\x01\x01\0\0\0",
                   10),
        "no row count");
    row("two-byte text", QByteArray("3\0\r\0\n\0", 6), "no row count");
    row("two-byte text with its mark",
        QByteArray("\xFF\xFE"
                   "3\0\r\0\n\0",
                   8),
        "no row count");
    row("broken characters", "\xC3\x28\xFF\x80", "no row count");
    row("quote without an end", "\"1,,,\r\n1,2,True,0\r\n", "no row count");
    row("quote without an end behind the count", "1,\",,\r\n1,2,True,0\r\n", "error 62");
    row("word processor's full-width digit", "３\r\n", "no row count");
}

void ReferenceDataForeignTest::foreign_files_are_not_taken()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, outcome);
    if (QByteArray(QTest::currentDataTag()) != "quote without an end behind the count")
        QCOMPARE(Read(bytes, Text).Outcome, outcome);
    QCOMPARE(Read(bytes, Csv).Outcome, outcome);
}

void ReferenceDataForeignTest::a_huge_line_comes_to_an_end_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("outcome");
    constexpr qsizetype size = 10'000'000;
    QTest::newRow("digits") << QByteArray(size, '1') << QStringLiteral("error 6");
    QTest::newRow("decimals") << "0." + QByteArray(size, '9') << QStringLiteral("error 62"); // a count of 1, and no row
    QTest::newRow("letters") << QByteArray(size, 'x') << QStringLiteral("no row count");
    QTest::newRow("blanks") << QByteArray(size, ' ') << QStringLiteral("error 62");
    QTest::newRow("commas") << "500" + QByteArray(size, ',') << QStringLiteral("error 13");
    QTest::newRow("quotes") << "1," + QByteArray(size, '"') << QStringLiteral("error 13");
}

void ReferenceDataForeignTest::a_huge_line_comes_to_an_end()
{
    QFETCH(QByteArray, bytes);
    QTEST(Read(bytes, Csv).Outcome, "outcome");
}

QTEST_MAIN(ReferenceDataForeignTest)
#include "tst_reference_data_foreign.moc"
