/// @file
/// The shape of the curve that the library holds: through and between its points, and outside them.
#include "curve/LintabTable.h"

#include <QTest>

#include <random>

class TestLintabCurve : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void linePassesThroughItsPoints();
    void lineIsStraightBetweenNeighbours();
    void fallingOutputsApply();
    void equalOutputsGiveThatOutput();
    void lastOfEqualInputsHolds();
    void aStretchWithoutWidthIsPassedOver();
    void leastOverOneInputIsTheMean();
    void goesOnStraightOutsideTheSpan();
    void leastGoesOnStraightOutsideTheSpan();
    void notANumberGivesTheFirstPoint();
    void saturatesFarOutside();
    void doesNotDependOnEarlierCalls();
    void takesWhatIsNoTableAsWellAsItGoes();
};

void TestLintabCurve::linePassesThroughItsPoints()
{
    const std::vector<CurvePoint> points = {{-7.3, 0.1}, {1e-7, 1e17}, {0.3, -1.0 / 3}, {1e6, Denormal}, {3e9, -0.7}};
    Table table = OneStretch(points, Line);
    QCOMPARE(table.Build(), 0);
    for (const CurvePoint &point : points)
        QCOMPARE(MeasuredBits(point.X), BitsOf(point.Y));
    const std::uint64_t between = MeasuredBits(0.2);
    // Where one stretch of lines gives way to the next, the curve is the same.
    table.Flags[1].IsSegment = 1;
    table.Flags[3].IsSegment = 1;
    QCOMPARE(table.Build(), 0);
    for (const CurvePoint &point : points)
        QCOMPARE(MeasuredBits(point.X), BitsOf(point.Y));
    QCOMPARE(MeasuredBits(0.2), between);
}

void TestLintabCurve::lineIsStraightBetweenNeighbours()
{
    QCOMPARE(OneStretch({{0, 0}, {4, 8}, {8, -8}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(1), BitsOf(2.0));
    QCOMPARE(MeasuredBits(3.5), BitsOf(7.0));
    QCOMPARE(MeasuredBits(5), BitsOf(4.0));
    QCOMPARE(MeasuredBits(7.5), BitsOf(-6.0));
}

void TestLintabCurve::fallingOutputsApply()
{
    QCOMPARE(OneStretch({{1, 30}, {2, 20}, {3, 10}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(1.5), BitsOf(25.0));
    QCOMPARE(OneStretch({{1, 50}, {2, 40}, {3, 30}, {4, 20}, {5, 10}}, Least).Build(), 0);
    for (const double x : Steps(0, 7, 0.25))
        QVERIFY(std::abs(SEN_Meas_Z(x) - (60 - 10 * x)) < 1e-12);
}

void TestLintabCurve::equalOutputsGiveThatOutput()
{
    QCOMPARE(OneStretch({{1, 5.1}, {2, 5.1}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(1.7), BitsOf(5.1));
    QCOMPARE(MeasuredBits(-1e300), BitsOf(5.1));
    QCOMPARE(OneStretch({{1, 5.1}, {2, 5.1}, {3, 5.1}, {4, 5.1}, {5, 5.1}}, Least).Build(), 0);
    for (const double x : Steps(-3, 9, 0.5))
        QVERIFY(std::abs(SEN_Meas_Z(x) - 5.1) < 1e-14);
}

void TestLintabCurve::lastOfEqualInputsHolds()
{
    QCOMPARE(OneStretch({{0, 0}, {1, 1}, {1, 9}, {1, 5}, {2, 6}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(1), BitsOf(5.0));
    QCOMPARE(MeasuredBits(0.5), BitsOf(0.5));
    QCOMPARE(MeasuredBits(1.5), BitsOf(5.5));
    QCOMPARE(OneStretch({{3, 1}, {3, 2}, {3, 4}}, Line).Build(), 0);
    for (const double x : {-8.0, 3.0, 9.0})
        QCOMPARE(MeasuredBits(x), BitsOf(4.0));
    // Equal inputs at both ends: the lines beyond start from the value that holds, with the slope next to it.
    QCOMPARE(OneStretch({{0, 9}, {0, 1}, {1, 3}, {1, 7}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(-1), BitsOf(-1.0));
    QCOMPARE(MeasuredBits(1), BitsOf(7.0));
    QCOMPARE(MeasuredBits(2), BitsOf(9.0));
}

void TestLintabCurve::aStretchWithoutWidthIsPassedOver()
{
    Table table = OneStretch({{0, 0}, {0.5, 2}}, Line);
    table.Open(1, 5, Least);
    for (const double y : {6, 7, 8, 9})
        table.Add(1, y);
    // At the end of the curve.
    QCOMPARE(table.Build(), 0);
    QCOMPARE(MeasuredBits(0.75), BitsOf(3.5));
    QCOMPARE(MeasuredBits(1), BitsOf(5.0));
    QCOMPARE(MeasuredBits(1.5), BitsOf(8.0));
    // Between two lines.
    table.Open(1, 3, Line);
    table.Add(2, 4);
    QCOMPARE(table.Build(), 0);
    QCOMPARE(MeasuredBits(0.75), BitsOf(3.5));
    QCOMPARE(MeasuredBits(1), BitsOf(3.0));
    QCOMPARE(MeasuredBits(1.5), BitsOf(3.5));
}

void TestLintabCurve::leastOverOneInputIsTheMean()
{
    QCOMPARE(OneStretch({{3, 1}, {3, 2}, {3, 3}, {3, 4}, {3, 10}}, Least).Build(), 0);
    for (const double x : {-8.0, 3.0, 9.0})
        QVERIFY(std::abs(SEN_Meas_Z(x) - 4) < 1e-14);
}

void TestLintabCurve::goesOnStraightOutsideTheSpan()
{
    QCOMPARE(OneStretch({{0, 0}, {1, 2}, {2, 3}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(-10), BitsOf(-20.0));
    QCOMPARE(MeasuredBits(12), BitsOf(13.0));
}

void TestLintabCurve::leastGoesOnStraightOutsideTheSpan()
{
    // y = x^2 has the slopes 2 and 20 at the ends.
    QCOMPARE(OneStretch(PointsOn([](double x) { return x * x; }, 1, 1, 10), Least).Build(), 0);
    QVERIFY(std::abs(SEN_Meas_Z(-4) - (1 - 2 * 5)) < 1e-10);
    QVERIFY(std::abs(SEN_Meas_Z(110) - (100 + 20 * 100)) < 1e-9);
}

void TestLintabCurve::notANumberGivesTheFirstPoint()
{
    QCOMPARE(OneStretch({{-2, 7}, {1, 2}, {2, 3}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(NotANumber), BitsOf(7.0));
    QCOMPARE(OneStretch(PointsOn([](double x) { return x * x; }, 1, 1, 10), Least).Build(), 0);
    QCOMPARE(MeasuredBits(NotANumber), MeasuredBits(1));
}

void TestLintabCurve::saturatesFarOutside()
{
    QCOMPARE(OneStretch({{0, 0}, {1, 2}, {2, 1}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(Infinity), BitsOf(-Largest));
    QCOMPARE(MeasuredBits(-Infinity), BitsOf(-Largest));
    QCOMPARE(MeasuredBits(Largest), BitsOf(-Largest));
    QCOMPARE(OneStretch({{0, 0}, {1, 2}, {2, 1}, {3, 9}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(Infinity), BitsOf(Largest));
    QCOMPARE(OneStretch({{0, 0}, {1, 3}, {2, 3}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(Infinity), BitsOf(3.0));
}

void TestLintabCurve::doesNotDependOnEarlierCalls()
{
    Table table = OneStretch(PointsOn([](double x) { return std::sin(x); }, 0, 0.5, 20), Least);
    table.Open(10, 0, Line);
    for (int x = 11; x < 30; ++x)
        table.Add(x, x % 3);
    QCOMPARE(table.Build(), 0);
    const std::vector<double> inputs = Steps(-5, 35, 0.0625);
    std::vector<double> rising;
    for (const double x : inputs)
        rising.push_back(SEN_Meas_Z(x));
    for (std::size_t i = inputs.size(); i-- > 0;)
        QCOMPARE(MeasuredBits(inputs[i]), BitsOf(rising[i]));
    std::mt19937_64 random(7);
    for (int i = 0; i < 5000; ++i) {
        const std::size_t index = random() % inputs.size();
        QCOMPARE(MeasuredBits(inputs[index]), BitsOf(rising[index]));
    }
}

void TestLintabCurve::takesWhatIsNoTableAsWellAsItGoes()
{
    // An input below the one before it counts as equal to it.
    QCOMPARE(OneStretch({{0, 0}, {2, 4}, {1, 9}, {3, 5}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(1), BitsOf(2.0));
    QCOMPARE(MeasuredBits(2), BitsOf(9.0));
    QCOMPARE(MeasuredBits(2.5), BitsOf(7.0));
    // A number that is none repeats the one before it, or the first that there is.
    QCOMPARE(OneStretch({{-5, NotANumber}, {-3, 4}, {NotANumber, 6}, {-1, NotANumber}, {1, 8}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(-5), BitsOf(4.0));
    QCOMPARE(MeasuredBits(-3), BitsOf(6.0));
    QCOMPARE(MeasuredBits(-1), BitsOf(6.0));
    QCOMPARE(MeasuredBits(0), BitsOf(7.0));
    // An infinity is the largest number.
    QCOMPARE(OneStretch({{0, 1}, {1, Infinity}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(1), BitsOf(Largest));
    QCOMPARE(MeasuredBits(0.5), BitsOf(Largest / 2));
}

QTEST_GUILESS_MAIN(TestLintabCurve)
#include "tst_lintab_curve.moc"
