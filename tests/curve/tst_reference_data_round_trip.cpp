/// @file
/// Reference tables that go into a file and come back: equal to the 15 digits that a file keeps.
#include "curve/ReferenceDataTable.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>

namespace {

constexpr int Tables = 200; ///< random tables a layout

/// Any sign, any number of digits from 1 to 17, and a size over 600 decades; sometimes 0.
double RandomNumber(QRandomGenerator &random)
{
    const quint32 kind = random.bounded(20U);
    if (kind == 0)
        return 0;
    const double decade = std::pow(10.0, random.bounded(17));
    double number = std::round(random.generateDouble() * decade) / decade * std::pow(10.0, random.bounded(600) - 300);
    if (kind < 8) // as a sensor has them
        number = std::round((random.generateDouble() - 0.5) * 1e7) / 1e4;
    return random.bounded(2) == 0 ? number : -number;
}

/// The number that 15 of its digits stand for, by the toolkit's own arithmetic.
double Kept(double number)
{
    return QString::number(number, 'g', 15).toDouble();
}

DataRow RandomRow(QRandomGenerator &random, ReferenceDataLayout layout)
{
    const int arithmetic = layout == Text ? random.bounded(2) : random.bounded(65536) - 32768;
    return {RandomNumber(random), RandomNumber(random), random.bounded(2) == 0, static_cast<std::int16_t>(arithmetic)};
}

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
            const DataRow random_row = RandomRow(random, layout);
            table[row] = TableOf({random_row})[1];
            expected[row] = TableOf(
                {{Kept(random_row.Input), Kept(random_row.Output), random_row.Segment, random_row.Arithmetic}})[1];
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
