/// @file
/// Print zones of a line: 14 columns each, counted anew in every line.
#include "platform/SequentialFile.h"

#include <QtTest>

namespace {

/// Items one behind the other, each but the first in the next zone.
QByteArray InZones(const QStringList &items)
{
    SequentialWriter writer;
    for (const QString &item : items) {
        if (&item != &items.front())
            writer.NextZone();
        writer.WriteText(item);
    }
    return writer.Bytes();
}

} // namespace

class PrintZonesTest : public QObject {
    Q_OBJECT

private slots:
    void an_item_starts_in_the_next_free_zone_data();
    void an_item_starts_in_the_next_free_zone();
    void zones_begin_anew_in_each_line();
    void numbers_stand_with_their_blanks();
};

void PrintZonesTest::an_item_starts_in_the_next_free_zone_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("column"); // of the next item, from 1
    for (const auto &[length, column] : {std::pair{0, 15}, {1, 15}, {13, 15}, {14, 29}, {15, 29}, {27, 29}, {28, 43}})
        QTest::addRow("%d characters", length) << length << column;
}

void PrintZonesTest::an_item_starts_in_the_next_free_zone()
{
    QFETCH(int, length);
    QFETCH(int, column);
    const QString item(length, u'x');
    QCOMPARE(InZones({item, QStringLiteral("y")}).indexOf('y'), column - 1);
    // The zones behind it are as wide.
    QCOMPARE(InZones({item, QStringLiteral("a"), QStringLiteral("y")}).indexOf('y'), column + 13);
    QCOMPARE(InZones({item, item, QStringLiteral("y")}).indexOf('y'), 2 * (column - 1));
}

void PrintZonesTest::zones_begin_anew_in_each_line()
{
    SequentialWriter writer;
    writer.WriteText(u"count");
    writer.EndLine();
    writer.WriteText(u"ab");
    writer.NextZone();
    writer.WriteText(u"c");
    writer.EndLine();
    QCOMPARE(writer.Bytes(), QByteArray("count\r\nab            c\r\n"));
}

void PrintZonesTest::numbers_stand_with_their_blanks()
{
    SequentialWriter writer;
    writer.WriteNumber(1.5);
    writer.NextZone();
    writer.WriteNumber(-20);
    writer.NextZone();
    writer.WriteBoolean(true);
    QCOMPARE(writer.Bytes(), QByteArray(" 1.5          -20           True"));
}

QTEST_MAIN(PrintZonesTest)
#include "tst_print_zones.moc"
