/// @file
/// Twips, pixels and colours.

#include "platform/Measures.h"

#include <QtTest>

class TestMeasures : public QObject {
    Q_OBJECT

private slots:
    void twipsBecomeTheNearestPixel_data()
    {
        QTest::addColumn<int>("twips");
        QTest::addColumn<int>("pixels");
        QTest::newRow("none") << 0 << 0;
        QTest::newRow("one pixel") << 15 << 1;
        QTest::newRow("just under a half") << 7 << 0;
        QTest::newRow("just over a half") << 8 << 1;
        QTest::newRow("a form") << 9000 << 600;
        QTest::newRow("negative, under a half") << -7 << 0;
        QTest::newRow("negative, over a half") << -8 << -1;
        QTest::newRow("outside the form") << -75000 << -5000;
    }
    void twipsBecomeTheNearestPixel()
    {
        QFETCH(int, twips);
        QTEST(PixelsFromTwips(twips), "pixels");
    }

    void redStandsInTheLowestByte()
    {
        QCOMPARE(Rgb(0xFF, 0, 0), 0x0000FF);
        QCOMPARE(Rgb(0x12, 0x34, 0x56), 0x563412);
        QCOMPARE(ColourFromRef(0xFFFF00), QColor(Qt::cyan));
    }

    void aColourComesBackFromItsNumber()
    {
        for (const ColourRef colour : {0, 0xFFFFFF, 0x00FFFF, 0x563412})
            QCOMPARE(RefFromColour(ColourFromRef(colour)), colour);
    }
};

QTEST_GUILESS_MAIN(TestMeasures)
#include "tst_measures.moc"
