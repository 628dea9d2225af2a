/// @file
/// Reference data files as they are read: rows, refusals and errors, whatever the bytes are.
#include "curve/ReferenceDataTable.h"
#include "support/CommaLocale.h"
#include "support/ErrorOf.h"

#include <QtTest>

namespace {

/// What reading gives: the rows, a refusal by its name, or an error by its number.
struct Reading {
    QString Outcome;
    ReferenceRows Rows;
};

QString NameOf(ReferenceDataRefusal refusal)
{
    switch (refusal) {
    case ReferenceDataRefusal::RowCount:
        return QStringLiteral("no row count");
    case ReferenceDataRefusal::Segment:
        return QStringLiteral("no segment");
    case ReferenceDataRefusal::Arithmetic:
        return QStringLiteral("no arithmetic");
    case ReferenceDataRefusal::None:
        break;
    }
    return QStringLiteral("read");
}

Reading Read(const QByteArray &bytes, ReferenceDataLayout layout)
{
    Reading reading;
    const int error = ErrorOf([&] { reading.Outcome = NameOf(ReadReferenceDataBytes(bytes, layout, reading.Rows)); });
    if (error != 0)
        reading.Outcome = QStringLiteral("error %1").arg(error);
    return reading;
}

/// A file of some lines.
QByteArray Lines(const QByteArrayList &lines, const QByteArray &lineEnd = "\r\n")
{
    return lines.join(lineEnd) + lineEnd;
}

} // namespace

class ReferenceDataReadingTest : public QObject {
    Q_OBJECT

private slots:
    void a_file_made_by_hand_is_read_data();
    void a_file_made_by_hand_is_read();
    void a_locale_with_a_comma_changes_nothing();
    void the_count_is_the_first_field_data();
    void the_count_is_the_first_field();
    void a_count_beyond_the_table_is_its_size();
    void rows_behind_the_count_become_unused();
    void a_csv_row_is_read_data();
    void a_csv_row_is_read();
    void a_text_row_is_read_data();
    void a_text_row_is_read();
    void fields_behind_the_count_are_dropped();
    void what_makes_the_lines_does_not_matter_data();
    void what_makes_the_lines_does_not_matter();
    void a_file_cut_short_fails_or_is_refused_data();
    void a_file_cut_short_fails_or_is_refused();
    void foreign_files_are_not_taken_data();
    void foreign_files_are_not_taken();
    void a_huge_line_comes_to_an_end_data();
    void a_huge_line_comes_to_an_end();
    void units_of_the_scratch_rows_stay_empty();
};

void ReferenceDataReadingTest::a_file_made_by_hand_is_read_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    for (const char *name : {"reference_three_rows", "reference_wide_items"}) {
        QTest::addRow("%s.CSV", name) << Csv;
        QTest::addRow("%s.txt", name) << Text;
    }
}

void ReferenceDataReadingTest::a_file_made_by_hand_is_read()
{
    QFETCH(ReferenceDataLayout, layout);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const ReferenceRows expected = name.startsWith(QStringLiteral("reference_three")) ? ThreeRows() : WideItems();
    const Reading reading = Read(DataBytes(name), layout);
    QCOMPARE(reading.Outcome, QStringLiteral("read"));
    QCOMPARE(UsedRows(reading.Rows), UsedRows(expected));
}

void ReferenceDataReadingTest::a_locale_with_a_comma_changes_nothing()
{
    const CommaLocale locale;
    QVERIFY(locale.IsInForce());
    const Reading csv = Read(DataBytes(QStringLiteral("reference_three_rows.CSV")), Csv);
    QCOMPARE(UsedRows(csv.Rows), UsedRows(ThreeRows()));
    const Reading text = Read(DataBytes(QStringLiteral("reference_three_rows.txt")), Text);
    QCOMPARE(UsedRows(text.Rows), UsedRows(ThreeRows()));
}

void ReferenceDataReadingTest::the_count_is_the_first_field_data()
{
    QTest::addColumn<QString>("csv");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *count, const char *outcome) {
        QTest::newRow(count) << QString::fromLatin1(outcome) << QString::fromLatin1(outcome);
    };
    row(" 3 ", "read");
    row("3", "read");
    row("+3", "read");
    row("3.0E0", "read");
    row("0.6", "read");
    row("1.5", "read");
    row("2.5", "read");
    row("3.4", "read");
    row(" 0 ", "no row count");
    row("-1", "no row count");
    row("-1e9", "no row count");
    row("0.5", "no row count"); // rounds to the even 0
    row("-0.4", "no row count");
    row("", "no row count");
    row("x", "no row count");
    row("3x", "no row count");
    row("x3", "no row count");
    row("\"3\"", "no row count");
    row("0x3", "no row count");
    row("nan", "no row count");
    row("inf", "no row count");
    row("three rows", "no row count");
    row("3.7", "error 62"); // rounds to 4, and there are 3 rows
    row("3.5", "error 62"); // rounds to the even 4
    row("4", "error 62");   // the same
    row("500", "error 62");
    row("501", "error 62");
    row("1e9", "error 62");
    row("2147483647", "error 62");
    row("2147483648", "error 62"); // beyond 32 bits is above 500 all the same
    row("1e300", "error 62");
    row("-2147483649", "no row count");
    row("-1e300", "no row count");
    row("1e400", "error 6"); // no double
}

void ReferenceDataReadingTest::the_count_is_the_first_field()
{
    const QByteArray count(QTest::currentDataTag());
    const QByteArrayList rows{" 1 , 2 ,True, 0 ", " 3 , 4 ,False, 1 ", " 5 , 6 ,True, 1 "};
    QTEST(Read(count + ",,,\r\n" + Lines(rows), Csv).Outcome, "csv");
    const QByteArrayList lines{" 1  2  True  0 ", " 3  4  False  1 ", " 5  6  True  1 "};
    QTEST(Read(count + "\r\n" + Lines(lines), Text).Outcome, "text");
}

void ReferenceDataReadingTest::a_count_beyond_the_table_is_its_size()
{
    for (const char *count : {"501", "600", "1e9", "2147483648", "1e300"}) {
        QByteArrayList csv{count + QByteArray(",,,")};
        QByteArrayList text{count};
        for (int row = 1; row <= 500; ++row) {
            csv.append(QByteArray::number(row) + ",0,True,0");
            text.append(QByteArray::number(row) + " 0 True 0");
        }
        // The rest of the file is not read, so it may be anything.
        csv.append("501,0,Nonsense,99999999");
        text.append("x");
        for (const Reading &reading : {Read(Lines(csv), Csv), Read(Lines(text), Text)}) {
            QCOMPARE(reading.Outcome, QStringLiteral("read"));
            QCOMPARE(UsedRows(reading.Rows).size(), 500);
            QCOMPARE(reading.Rows[500].Input, 500.0);
            QVERIFY(!reading.Rows[0].Used);
        }
    }
}

void ReferenceDataReadingTest::rows_behind_the_count_become_unused()
{
    ReferenceRows rows;
    for (ReferencePoint &row : rows)
        row.Used = true;
    QVERIFY(ReadReferenceDataBytes("2,,,\r\n1,2,T,0\r\n3,4,F,1\r\n5,6,T,0\r\n", Csv, rows) ==
            ReferenceDataRefusal::None);
    QCOMPARE(UsedRows(rows), (QStringList{QStringLiteral("1: 1 2 True 0"), QStringLiteral("2: 3 4 False 1")}));
}

void ReferenceDataReadingTest::a_csv_row_is_read_data()
{
    QTest::addColumn<QString>("outcome");
    const auto row = [](const char *line, const char *outcome) { QTest::newRow(line) << QString::fromLatin1(outcome); };
    row(" 1.5 , 20 ,True, 0 ", "1.5 20 True 0");
    row("1.5,20,True,0", "1.5 20 True 0");
    row("1.5 20 True,0", "1.5 20 True 0"); // a number ends at a blank, too
    row("-1E-05,+2.5E+1,False,1", "-1.0000000000000001e-05 25 False 1");
    row(".5,5.,FALSE,1", "0.5 5 False 1");
    row("1,2,TRUE,1", "1 2 True 1");
    row("1,2,true,1", "1 2 True 1");
    row("1,2,t,1", "1 2 True 1");
    row("1,2,Tom,1", "1 2 True 1"); // the first letter decides
    row("1,2,false,1", "1 2 False 1");
    row("1,2,foo bar,1", "1 2 False 1");
    row("1,2,  F  ,1", "1 2 False 1");
    row("1,2,\"True\",1", "1 2 True 1");
    row("1,2,\"T,\",1", "1 2 True 1");
    row("1,2,True,2", "1 2 True 2"); // any 16-bit arithmetic
    row("1,2,True,-32768", "1 2 True -32768");
    row("1,2,True,32767", "1 2 True 32767");
    row("1,2,True,0.5", "1 2 True 0");
    row("1,2,True,1.5", "1 2 True 2");
    row("1,2,True,32768", "error 6");
    row("1,2,True,1e9", "error 6");
    row("1,2,True,x", "error 13");
    row("1,2,True,", "error 13");
    row("1,2,,0", "no segment");
    row("1,2,yes,0", "no segment");
    row("1,2,1,0", "no segment");
    row("1,2,-1,0", "no segment");
    row("1,2,\"\",0", "no segment");
    row("1,2,\" True\",0", "no segment");
    row("1,5,20,True,0", "no segment"); // a comma as decimal sign
    row("1,2", "error 62");
    row("1", "error 62");
    row("x,2,True,0", "error 13");
    row("1,x,True,0", "error 13");
    row(",2,True,0", "error 13");
    row("1x,2,True,0", "error 13");
    row("1e400,2,True,0", "error 6");
    row("1;2;True;0", "error 13");
}

void ReferenceDataReadingTest::a_csv_row_is_read()
{
    QFETCH(QString, outcome);
    const Reading reading = Read("1,,,\r\n" + QByteArray(QTest::currentDataTag()) + "\r\n", Csv);
    QCOMPARE(reading.Outcome == QStringLiteral("read") ? RowText(reading.Rows[1]) : reading.Outcome, outcome);
}

void ReferenceDataReadingTest::a_text_row_is_read_data()
{
    QTest::addColumn<QString>("outcome");
    const auto row = [](const char *line, const char *outcome) { QTest::newRow(line) << QString::fromLatin1(outcome); };
    row(" 1.5           20           True           0 ", "1.5 20 True 0");
    row("1.5 20 True 0", "1.5 20 True 0");
    row("1.5\t20\tTrue\t0\t", "1.5 20 True 0");
    row("1.5,20,True 0", "1.5 20 True 0"); // a comma ends a number here, too
    row("-1 -2 False 1", "-1 -2 False 1");
    row("1 2 Tom 1", "1 2 True 1"); // the first letter decides
    row("1 2 fast 1", "1 2 False 1");
    row("1 2 t0", "1 2 True 0");
    row("1 2 True10", "1 2 True 0"); // the last character decides
    row("1 2 True -1", "1 2 True 1");
    row("1 2 True 3 1", "1 2 True 1");
    row("1 2 True 2", "no arithmetic");
    row("1 2 True", "no arithmetic");
    row("1 2 T", "no arithmetic");
    row("1 2 True x", "no arithmetic");
    row("1 2 True 0.", "no arithmetic");
    row("1 2 True 0\xC2\xA0", "no arithmetic"); // a no-break space is no blank
    row("1 2 True,0", "no arithmetic");         // a comma ends the text
    row("1 2 True 0,", "1 2 True 0");
    row("1 2 yes 0", "no segment");
    row("1 2 1", "no segment");
    row("1 2 , 0", "no segment");
    row("1,5 20 True 0", "no segment"); // a comma as decimal sign
    row("1 2 yes 7", "no segment");     // tested ahead of the arithmetic
    row("1 2", "error 62");
    row("1", "error 62");
    row("x 2 True 0", "error 13");
    row("1 x True 0", "error 13");
    row("1 1e400 True 0", "error 6");
}

void ReferenceDataReadingTest::a_text_row_is_read()
{
    QFETCH(QString, outcome);
    const Reading reading = Read("1\r\n" + QByteArray(QTest::currentDataTag()) + "\r\n", Text);
    QCOMPARE(reading.Outcome == QStringLiteral("read") ? RowText(reading.Rows[1]) : reading.Outcome, outcome);
}

/// Three of them, whatever they are: a spreadsheet may have put something there.
void ReferenceDataReadingTest::fields_behind_the_count_are_dropped()
{
    for (const char *line : {"1,,,", " 1 ,,,", "1,a,\"b,c\",d", "1, , ,"})
        QCOMPARE(Read(Lines({line, "1,2,True,0"}), Csv).Outcome, QStringLiteral("read"));
    // Fewer of them, and the rows give theirs.
    QCOMPARE(Read(Lines({"1", "1,2,True,0"}), Csv).Outcome, QStringLiteral("error 62"));
    QCOMPARE(Read(Lines({"1,,,,", "1,2,True,0"}), Csv).Outcome, QStringLiteral("error 13"));
}

void ReferenceDataReadingTest::what_makes_the_lines_does_not_matter_data()
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

void ReferenceDataReadingTest::what_makes_the_lines_does_not_matter()
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

void ReferenceDataReadingTest::a_file_cut_short_fails_or_is_refused_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::addColumn<QByteArray>("wholeFrom"); // the shortest beginning that still holds every row whole
    QTest::newRow("reference_three_rows.CSV") << Csv << QByteArray("False, 0");
    QTest::newRow("reference_three_rows.txt") << Text << QByteArray("False          0");
}

/// At every byte. Nothing that lacks a value is taken for a table.
void ReferenceDataReadingTest::a_file_cut_short_fails_or_is_refused()
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

void ReferenceDataReadingTest::foreign_files_are_not_taken_data()
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

void ReferenceDataReadingTest::foreign_files_are_not_taken()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, outcome);
    if (QByteArray(QTest::currentDataTag()) != "quote without an end behind the count")
        QCOMPARE(Read(bytes, Text).Outcome, outcome);
    QCOMPARE(Read(bytes, Csv).Outcome, outcome);
}

void ReferenceDataReadingTest::a_huge_line_comes_to_an_end_data()
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

void ReferenceDataReadingTest::a_huge_line_comes_to_an_end()
{
    QFETCH(QByteArray, bytes);
    QTEST(Read(bytes, Csv).Outcome, "outcome");
}

void ReferenceDataReadingTest::units_of_the_scratch_rows_stay_empty()
{
    const Reading reading = Read(DataBytes(QStringLiteral("reference_three_rows.CSV")), Csv);
    for (const ReferencePoint &row : reading.Rows)
        QVERIFY(row.InputText.isEmpty() && row.OutputText.isEmpty());
}

QTEST_MAIN(ReferenceDataReadingTest)
#include "tst_reference_data_reading.moc"
