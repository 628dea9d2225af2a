/// @file
/// Reference tables that go into a file and come back: equal to the 15 digits that a file keeps.
#include "curve/RandomReferenceRows.h"

#include <QtTest>

namespace {

constexpr int Tables = 200; ///< random tables a layout

} // namespace

class ReferenceDataRoundTripTest : public QObject {
    Q_OBJECT

private slots:
    void random_tables_come_back_data();
    void random_tables_come_back();
    void what_came_back_comes_back_as_the_same_bytes_data();
    void what_came_back_comes_back_as_the_same_bytes();
};

void ReferenceDataRoundTripTest::random_tables_come_back_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::newRow("CSV") << Csv;
    QTest::newRow("text") << Text;
}

void ReferenceDataRoundTripTest::random_tables_come_back()
{
    QFETCH(ReferenceDataLayout, layout);
    QRandomGenerator random(20240229);
    for (int i = 0; i < Tables; ++i) {
        const int count = i == 0 ? ReferenceRowLimit : 1 + random.bounded(ReferenceRowLimit);
        ReferenceRows table;
        ReferenceRows expected;
        for (int row = 1; row <= count; ++row) {
            const DataRow any = RandomRow(random, layout);
            table[row] = TableOf({any})[1];
            expected[row] = TableOf({KeptRow(any)})[1];
        }
        ReferenceRows read;
        QVERIFY(ReadReferenceDataBytes(ReferenceDataBytes(table, count, layout), layout, read) ==
                ReferenceDataRefusal::None);
        QCOMPARE(UsedRows(read), UsedRows(expected));
    }
}

void ReferenceDataRoundTripTest::what_came_back_comes_back_as_the_same_bytes_data()
{
    random_tables_come_back_data();
}

/// Digits are lost the first time only.
void ReferenceDataRoundTripTest::what_came_back_comes_back_as_the_same_bytes()
{
    QFETCH(ReferenceDataLayout, layout);
    QRandomGenerator random(19700101);
    ReferenceRows table;
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        table[row] = TableOf({RandomRow(random, layout)})[1];
    const QByteArray bytes = ReferenceDataBytes(table, ReferenceRowLimit, layout);
    ReferenceRows read;
    QVERIFY(ReadReferenceDataBytes(bytes, layout, read) == ReferenceDataRefusal::None);
    QCOMPARE(ReferenceDataBytes(read, ReferenceRowLimit, layout), bytes);
}

QTEST_MAIN(ReferenceDataRoundTripTest)
#include "tst_reference_data_round_trip.moc"
