/// @file
/// Whole reference tables: copy, sort, marks, and the number format of their texts.
#include "curve/ReferenceRows.h"
#include "curve/StringFunction.h"
#include "support/ErrorOf.h"

#include <QTest>

namespace {

ReferencePoint Point(double input, double output, bool segment = false, std::int16_t arithmetic = 0)
{
    return {true,    input,     QStringLiteral("in %1").arg(output), output, QStringLiteral("out %1").arg(output),
            segment, arithmetic};
}

/// Output tells the points of a table apart.
QList<double> UsedOutputs(const ReferenceRows &rows)
{
    QList<double> outputs;
    for (const ReferencePoint &point : rows) {
        if (point.Used)
            outputs.append(point.Output);
    }
    return outputs;
}

QList<int> MarkedRows()
{
    QList<int> rows;
    for (int row = 0; row <= ReferenceRowLimit; ++row) {
        if (RowMarks[row])
            rows.append(row);
    }
    return rows;
}

} // namespace

class ReferenceRowsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void a_copy_takes_all_fields_of_rows_1_to_500();
    void a_copy_leaves_row_0_alone();
    void sorting_closes_gaps();
    void sorting_is_ascending_by_input_whatever_the_output_does();
    void a_sorted_row_keeps_its_seven_fields();
    void equal_inputs_do_not_change_places_with_each_other();
    void an_exchange_can_carry_a_row_over_its_equal();
    void marks_travel_with_their_rows();
    void rows_beyond_the_used_ones_lose_use_and_mark_only();
    void a_full_table_is_sorted();
    void an_empty_table_stays_empty();
    void sorting_leaves_other_slots_alone();
    void a_slot_that_is_none_is_out_of_range();
    void numbers_show_one_to_six_decimals_data();
    void numbers_show_one_to_six_decimals();
};

void ReferenceRowsTest::init()
{
    ResetProjectTable();
    ResetReferenceRows();
}

void ReferenceRowsTest::a_copy_takes_all_fields_of_rows_1_to_500()
{
    ReferenceRows source;
    ReferenceRows target;
    source[1] = Point(1.5, -2.5, true, 1);
    source[500] = Point(7, 8, false, 1);
    target[2] = Point(3, 3);
    CopyReferenceTable(source, target);
    for (const int row : {1, 500}) {
        QVERIFY(target[row].Used);
        QCOMPARE(target[row].Input, source[row].Input);
        QCOMPARE(target[row].Output, source[row].Output);
        QCOMPARE(target[row].InputText, source[row].InputText);
        QCOMPARE(target[row].OutputText, source[row].OutputText);
        QCOMPARE(target[row].Segment, source[row].Segment);
        QCOMPARE(target[row].Arithmetic, source[row].Arithmetic);
    }
    QVERIFY(!target[2].Used);
    QVERIFY(target[2].InputText.isEmpty());
}

void ReferenceRowsTest::a_copy_leaves_row_0_alone()
{
    ReferenceRows source;
    ReferenceRows target;
    source[0] = Point(1, 1);
    target[0].Output = 42;
    CopyReferenceTable(source, target);
    QVERIFY(!target[0].Used);
    QCOMPARE(target[0].Output, 42.0);
}

void ReferenceRowsTest::sorting_closes_gaps()
{
    ReferenceTable[0][3] = Point(1, 10);
    ReferenceTable[0][7] = Point(2, 20);
    ReferenceTable[0][500] = Point(3, 30);
    SortReferenceTable(0);
    QCOMPARE(UsedOutputs(ReferenceTable[0]), (QList<double>{10, 20, 30}));
    QVERIFY(ReferenceTable[0][1].Used && ReferenceTable[0][2].Used && ReferenceTable[0][3].Used);
    QVERIFY(!ReferenceTable[0][7].Used);
    QVERIFY(!ReferenceTable[0][500].Used);
}

void ReferenceRowsTest::sorting_is_ascending_by_input_whatever_the_output_does()
{
    const double inputs[] = {7, -1, 3.5, 0, 1e-9};
    for (int i = 0; i < 5; ++i)
        ReferenceTable[0][i + 1] = Point(inputs[i], -inputs[i]);
    SortReferenceTable(0);
    QCOMPARE(UsedOutputs(ReferenceTable[0]), (QList<double>{1, 0, -1e-9, -3.5, -7}));
}

void ReferenceRowsTest::a_sorted_row_keeps_its_seven_fields()
{
    ReferenceTable[0][1] = Point(2, 20, true, 1);
    ReferenceTable[0][2] = Point(1, 10, false, 0);
    SortReferenceTable(0);
    const ReferencePoint &moved = ReferenceTable[0][2];
    QVERIFY(moved.Used);
    QCOMPARE(moved.Input, 2.0);
    QCOMPARE(moved.InputText, QStringLiteral("in 20"));
    QCOMPARE(moved.Output, 20.0);
    QCOMPARE(moved.OutputText, QStringLiteral("out 20"));
    QVERIFY(moved.Segment);
    QCOMPARE(moved.Arithmetic, std::int16_t{1});
    QCOMPARE(ReferenceTable[0][1].InputText, QStringLiteral("in 10"));
    QVERIFY(!ReferenceTable[0][1].Segment);
}

void ReferenceRowsTest::equal_inputs_do_not_change_places_with_each_other()
{
    ReferenceTable[0][1] = Point(1, 10);
    ReferenceTable[0][2] = Point(1, 20);
    ReferenceTable[0][3] = Point(1, 30);
    SortReferenceTable(0);
    QCOMPARE(UsedOutputs(ReferenceTable[0]), (QList<double>{10, 20, 30}));
}

void ReferenceRowsTest::an_exchange_can_carry_a_row_over_its_equal()
{
    // 3a 3b 1: the 1 changes places with 3a, which comes to stand behind 3b.
    ReferenceTable[0][1] = Point(3, 10);
    ReferenceTable[0][2] = Point(3, 20);
    ReferenceTable[0][3] = Point(1, 30);
    SortReferenceTable(0);
    QCOMPARE(UsedOutputs(ReferenceTable[0]), (QList<double>{30, 20, 10}));
}

void ReferenceRowsTest::marks_travel_with_their_rows()
{
    ReferenceTable[0][2] = Point(9, 1);
    ReferenceTable[0][4] = Point(5, 2);
    ReferenceTable[0][6] = Point(7, 3);
    RowMarks[2] = true;
    RowMarks[4] = true;
    RowMarks[3] = true; // of a row that is not used
    SortReferenceTable(0);
    QCOMPARE(MarkedRows(), (QList<int>{1, 3}));
}

void ReferenceRowsTest::rows_beyond_the_used_ones_lose_use_and_mark_only()
{
    ReferenceTable[0][2] = Point(4, 40, true, 1);
    RowMarks[500] = true;
    SortReferenceTable(0);
    QVERIFY(!ReferenceTable[0][2].Used);
    QCOMPARE(ReferenceTable[0][2].Input, 4.0);
    QCOMPARE(ReferenceTable[0][2].Output, 40.0);
    QVERIFY(ReferenceTable[0][2].Segment);
    QCOMPARE(MarkedRows(), QList<int>());
}

void ReferenceRowsTest::a_full_table_is_sorted()
{
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        ReferenceTable[9][row] = Point(ReferenceRowLimit - row, row);
    SortReferenceTable(9);
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        QVERIFY(ReferenceTable[9][row].Used);
        QCOMPARE(ReferenceTable[9][row].Input, static_cast<double>(row - 1));
        QCOMPARE(ReferenceTable[9][row].Output, static_cast<double>(ReferenceRowLimit + 1 - row));
    }
}

void ReferenceRowsTest::an_empty_table_stays_empty()
{
    RowMarks[1] = true;
    SortReferenceTable(0);
    QCOMPARE(LastUsedRow(0), 0);
    QCOMPARE(MarkedRows(), QList<int>());
}

void ReferenceRowsTest::sorting_leaves_other_slots_alone()
{
    ReferenceTable[0][5] = Point(1, 1);
    ReferenceTable[1][5] = Point(1, 1);
    SortReferenceTable(0);
    QCOMPARE(LastUsedRow(0), 1);
    QCOMPARE(LastUsedRow(1), 5);
}

void ReferenceRowsTest::a_slot_that_is_none_is_out_of_range()
{
    for (const std::int16_t slot : {std::int16_t{-1}, std::int16_t{10}})
        QCOMPARE(ErrorOf([&] { SortReferenceTable(slot); }), ErrorNumber::OutOfRange);
}

void ReferenceRowsTest::numbers_show_one_to_six_decimals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("whole") << QStringLiteral("5") << QStringLiteral("5.0");
    QTest::newRow("one decimal") << QStringLiteral("-1.5") << QStringLiteral("-1.5");
    QTest::newRow("six decimals") << QStringLiteral("0.123456") << QStringLiteral("0.123456");
    QTest::newRow("rounded up") << QStringLiteral("0.1234567") << QStringLiteral("0.123457");
    QTest::newRow("rounded down") << QStringLiteral("0.1234564") << QStringLiteral("0.123456");
    QTest::newRow("trailing zeros") << QStringLiteral("2.500000") << QStringLiteral("2.5");
    QTest::newRow("no exponent, small") << QStringLiteral("1E-05") << QStringLiteral("0.00001");
    QTest::newRow("no exponent, large") << QStringLiteral("1.5E+20") << QStringLiteral("150000000000000000000.0");
    QTest::newRow("below the last decimal") << QStringLiteral("0.0000001") << QStringLiteral("0.0");
    QTest::newRow("no sign at zero") << QStringLiteral("-0.0000001") << QStringLiteral("0.0");
    QTest::newRow("minus alone") << QStringLiteral("-") << QStringLiteral("0.0");
    QTest::newRow("no number") << QStringLiteral("abc") << QStringLiteral("0.0");
    QTest::newRow("number with more behind it") << QStringLiteral("12-3") << QStringLiteral("12.0");
    QTest::newRow("nothing") << QString() << QStringLiteral("0.0");
}

void ReferenceRowsTest::numbers_show_one_to_six_decimals()
{
    QFETCH(QString, text);
    QTEST(FormatInputValue(text), "shown");
    QTEST(FormatOutputValue(text), "shown");
}

QTEST_GUILESS_MAIN(ReferenceRowsTest)
#include "tst_reference_rows.moc"
