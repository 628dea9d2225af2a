/// @file
/// Reference data files as they are read: counts and rows, and what is refused or fails.
#include "curve/ReferenceReading.h"
#include "support/CommaLocale.h"

#include <QtTest>

namespace {

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

void ReferenceDataReadingTest::units_of_the_scratch_rows_stay_empty()
{
    const Reading reading = Read(DataBytes(QStringLiteral("reference_three_rows.CSV")), Csv);
    for (const ReferencePoint &row : reading.Rows)
        QVERIFY(row.InputText.isEmpty() && row.OutputText.isEmpty());
}

QTEST_MAIN(ReferenceDataReadingTest)
#include "tst_reference_data_reading.moc"
