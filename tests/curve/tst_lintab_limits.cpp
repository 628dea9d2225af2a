/// @file
/// Curves at the limits of a double: finite for every table and every input, and right as far as the result is in
/// range.
#include "curve/LintabTable.h"

#include <QTest>

#include <algorithm>

namespace {

/// Checks the steep line from one point to another, which are `steps` apart: its values, that it nowhere turns round,
/// and that it leaves the one point and reaches the other.
void CheckSteepLine(const CurvePoint &from, const CurvePoint &to, int steps)
{
    const double step = (to.X - from.X) / steps;
    const double height = std::max(std::abs(from.Y), std::abs(to.Y));
    double previous = from.Y;
    for (int i = 0; i <= steps; ++i) {
        const double share = static_cast<double>(i) / steps;
        const double value = SEN_Meas_Z(from.X + i * step);
        QVERIFY(std::abs(value / height - (from.Y / height * (1 - share) + to.Y / height * share)) <= 1e-15);
        QVERIFY(to.Y > from.Y ? value >= previous && value <= to.Y : value <= previous && value >= to.Y);
        previous = value;
    }
    QCOMPARE(MeasuredBits(from.X), BitsOf(from.Y));
    QCOMPARE(MeasuredBits(to.X), BitsOf(to.Y));
}

} // namespace

class TestLintabLimits : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void finiteForEveryInput_data();
    void finiteForEveryInput();
    void aFitStopsAtTheLargestNumber();
    void linesWhoseSlopeIsOutOfRange_data();
    void linesWhoseSlopeIsOutOfRange();
    void linesOverAnOddDenormalWidth();
    void linesBesideASteepOne();
    void straightOnWhereTheProductIsOutOfRange_data();
    void straightOnWhereTheProductIsOutOfRange();
    void straightOnFromTheSmallestNumber();
    void straightOnFromASteepLine();
    void straightOnFromAValueFarAboveTheFit();
};

void TestLintabLimits::finiteForEveryInput_data()
{
    QTest::addColumn<QList<double>>("xs");
    QTest::addColumn<QList<double>>("ys");
    const QList<double> plain = {1, 2, 3, 4, 5, 6};
    QTest::newRow("plain") << plain << plain;
    QTest::newRow("one point") << QList<double>{3} << QList<double>{4};
    QTest::newRow("huge inputs") << QList<double>{-Largest, -1e308, 0, 1, 1e308, Largest} << plain;
    QTest::newRow("huge outputs") << plain << QList<double>{-Largest, Largest, -Largest, Largest, -Largest, Largest};
    QTest::newRow("huge both") << QList<double>{-Largest, -1e308, -1e307, 1e307, 1e308, Largest}
                               << QList<double>{Largest, -Largest, Largest, -Largest, 1e308, -1e308};
    QTest::newRow("denormal inputs") << QList<double>{0, Denormal, 2 * Denormal, 3 * Denormal, 9 * Denormal, 1e-310}
                                     << plain;
    QTest::newRow("denormal outputs") << plain << QList<double>{0, Denormal, 0, Denormal, 3 * Denormal, 1e-310};
    QTest::newRow("denormal inputs, huge outputs")
        << QList<double>{0, Denormal, 2 * Denormal, 3 * Denormal, 9 * Denormal, 1e-310}
        << QList<double>{Largest, -Largest, Largest, -Largest, Largest, -Largest};
    QTest::newRow("denormal and huge inputs")
        << QList<double>{0, Denormal, 2 * Denormal, 3 * Denormal, 1, Largest} << plain;
    QTest::newRow("neighbouring inputs") << QList<double>{1,           1 + 0x1p-52, 1 + 0x2p-52,
                                                          1 + 0x3p-52, 1 + 0x4p-52, 1 + 0x5p-52}
                                         << QList<double>{1, 2, 1, 2, 1, 1e9};
    QTest::newRow("a cluster and one far off")
        << QList<double>{0, 1e-15, 2e-15, 3e-15, 4e-15, 1e9} << QList<double>{1, 2, 1, 3, 1, -4};
    QTest::newRow("all points equal") << QList<double>(6, 2.5) << QList<double>(6, -1.5);
    QTest::newRow("all zero") << QList<double>(6, 0.0) << QList<double>(6, 0.0);
    QTest::newRow("equal inputs") << QList<double>(6, 2.5) << plain;
    QTest::newRow("not ascending") << QList<double>{5, 1, 9, -3, 9, 2} << plain;
    QTest::newRow("NaN inputs") << QList<double>{NotANumber, 1, NotANumber, 4, 5, NotANumber} << plain;
    QTest::newRow("NaN outputs") << plain << QList<double>{NotANumber, 1, NotANumber, 4, 5, NotANumber};
    QTest::newRow("only NaN") << QList<double>(6, NotANumber) << QList<double>(6, NotANumber);
    QTest::newRow("infinite inputs") << QList<double>{-Infinity, -1, 0, 1, 2, Infinity} << plain;
    QTest::newRow("infinite outputs") << plain << QList<double>{Infinity, 1, 2, 3, 4, -Infinity};
    QTest::newRow("infinite throughout") << QList<double>(6, Infinity) << QList<double>(6, -Infinity);
}

void TestLintabLimits::finiteForEveryInput()
{
    QFETCH(QList<double>, xs);
    QFETCH(QList<double>, ys);
    // As one stretch of either kind, each kind before the other, and two fits side by side.
    for (int arrangement = 0; arrangement < 5; ++arrangement) {
        const int copies = arrangement < 2 ? 1 : 2;
        Table table;
        for (int copy = 0; copy < copies; ++copy) {
            const bool least = arrangement == 4 || (arrangement + copy) % 2 == 1;
            for (qsizetype i = 0; i < xs.size(); ++i) {
                const double x = xs[i] + copy * (xs.last() - xs.first());
                if (i == 0) {
                    table.Open(x, ys[i], least ? Least : Line);
                } else {
                    table.Add(x, ys[i]);
                }
            }
        }
        const bool tooFew = xs.size() < 5 && arrangement != 0;
        QCOMPARE(int(table.Build()), tooFew ? 2 : 0);
        std::vector<double> inputs = AwkwardInputs();
        for (const CurvePoint &point : table.Points) {
            for (const double x : {point.X, std::nextafter(point.X, -Infinity), std::nextafter(point.X, Infinity),
                                   point.X / 2, point.X * 2, point.X * 1.1})
                inputs.push_back(x);
        }
        for (const double x : inputs)
            QVERIFY2(std::isfinite(SEN_Meas_Z(x)), qPrintable(QString::number(x, 'g', 17)));
    }
}

void TestLintabLimits::aFitStopsAtTheLargestNumber()
{
    QCOMPARE(OneStretch({{0, 0}, {1, Largest}, {2, Largest}, {3, Largest}, {4, Largest}, {5, Largest}, {6, 0}}, Least)
                 .Build(),
             0);
    // By hand: the polynomial of the sixth degree over seven points is 1 -6 15 -20 15 -6 1, with a sum of squares of
    // 924. The points have -2/924 of it, and nothing of the fifth degree, so the quartic is the points and 2/924 of
    // that.
    for (const double x : {2.0, 4.0})
        QCOMPARE(MeasuredBits(x), BitsOf(Largest));
    const double above[] = {2, -12, 30, -40, 30, -12, 2};
    for (const int x : {0, 1, 3, 5, 6}) {
        const double point = x % 6 == 0 ? 0 : 1;
        QVERIFY(std::abs(SEN_Meas_Z(x) / Largest - (point + above[x] / 924)) < 1e-14);
    }
    for (const double x : Steps(0, 6, 0.01))
        QVERIFY(std::isfinite(SEN_Meas_Z(x)));
}

void TestLintabLimits::linesWhoseSlopeIsOutOfRange_data()
{
    QTest::addColumn<double>("fromX");
    QTest::addColumn<double>("fromY");
    QTest::addColumn<double>("toX");
    QTest::addColumn<double>("toY");
    QTest::addColumn<int>("steps");
    QTest::newRow("up, the whole range over 1") << 0.0 << -Largest << 1.0 << Largest << 64;
    QTest::newRow("down, the whole range over 1") << 0.0 << Largest << 1.0 << -Largest << 64;
    QTest::newRow("the whole range over 2 around 0") << -1.0 << -Largest << 1.0 << Largest << 64;
    QTest::newRow("the whole range over 1024") << 512.0 << -Largest << 1536.0 << Largest << 64;
    QTest::newRow("half the range over 1/4") << 1.0 << 0.0 << 1.25 << Largest << 64;
    QTest::newRow("1 over 8 denormal steps") << 0.0 << 0.0 << 8 * Denormal << 1.0 << 8;
    QTest::newRow("1e300 over 8 denormal steps") << 0.0 << 0.0 << 8 * Denormal << 1e300 << 8;
    QTest::newRow("down 2 over 64 denormal steps") << 0.0 << 1.0 << 64 * Denormal << -1.0 << 64;
    QTest::newRow("the whole range over 8 denormal steps") << 0.0 << -Largest << 8 * Denormal << Largest << 8;
    QTest::newRow("the whole range over 2 denormal steps") << 0.0 << Largest << 2 * Denormal << -Largest << 2;
}

void TestLintabLimits::linesWhoseSlopeIsOutOfRange()
{
    QFETCH(double, fromX);
    QFETCH(double, fromY);
    QFETCH(double, toX);
    QFETCH(double, toY);
    QFETCH(int, steps);
    // Alone, and with a level line behind, beside whose end a denormal width stays one in any unit of x.
    QCOMPARE(OneStretch({{fromX, fromY}, {toX, toY}}, Line).Build(), 0);
    CheckSteepLine({fromX, fromY}, {toX, toY}, steps);
    QCOMPARE(OneStretch({{fromX, fromY}, {toX, toY}, {std::max(1.0, 2 * toX), toY}}, Line).Build(), 0);
    CheckSteepLine({fromX, fromY}, {toX, toY}, steps);
}

// The half of such a width is no number. What is left is that the line goes from point to point and nowhere back.
void TestLintabLimits::linesOverAnOddDenormalWidth()
{
    for (const int width : {1, 3, 5, 7, 9}) {
        QCOMPARE(OneStretch({{0, -Largest}, {width * Denormal, Largest}, {1, Largest}}, Line).Build(), 0);
        QCOMPARE(MeasuredBits(0), BitsOf(-Largest));
        QCOMPARE(MeasuredBits(width * Denormal), BitsOf(Largest));
        for (int i = 1; i <= width; ++i)
            QVERIFY(SEN_Meas_Z(i * Denormal) >= SEN_Meas_Z((i - 1) * Denormal));
    }
}

void TestLintabLimits::linesBesideASteepOne()
{
    QCOMPARE(OneStretch({{-2, 4}, {0, -Largest}, {1, Largest}, {3, -4}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(-1), BitsOf(-Largest / 2));
    QCOMPARE(MeasuredBits(0.5), BitsOf(0.0));
    QCOMPARE(MeasuredBits(2), BitsOf(Largest / 2));
    // No step between a piece and the next, but for what one step of x is worth.
    for (const double x : {0.0, 1.0}) {
        for (const double side : {-Infinity, Infinity}) {
            const double beside = std::nextafter(x, side);
            const double change = SEN_Meas_Z(beside) / Largest - SEN_Meas_Z(x) / Largest;
            QVERIFY(std::abs(change) <= 2 * std::abs(beside - x) + 0x1p-52);
        }
    }
}

void TestLintabLimits::straightOnWhereTheProductIsOutOfRange_data()
{
    QTest::addColumn<int>("arithmetic");
    QTest::newRow("Line") << int(Line);
    QTest::newRow("Least") << int(Least);
}

// From the lowest number up to half of it in one step of x, and from there on at that rate: 5/2 steps further the line
// has risen by more than the largest number, but stands at three quarters of it.
void TestLintabLimits::straightOnWhereTheProductIsOutOfRange()
{
    QFETCH(int, arithmetic);
    std::vector<CurvePoint> points;
    for (const double x : Steps(0, 1, 0.125))
        points.push_back({x, -Largest * (1 - x / 2)});
    QCOMPARE(OneStretch(points, static_cast<std::uint8_t>(arithmetic)).Build(), 0);
    QVERIFY(std::abs(SEN_Meas_Z(3.5) / Largest - 0.75) < 1e-13);
    QVERIFY(std::abs(SEN_Meas_Z(3) / Largest - 0.5) < 1e-13);
    QCOMPARE(MeasuredBits(4.5), BitsOf(Largest));
    // The same in the other direction.
    std::reverse(points.begin(), points.end());
    for (CurvePoint &point : points)
        point.X = -point.X;
    QCOMPARE(OneStretch(points, static_cast<std::uint8_t>(arithmetic)).Build(), 0);
    QVERIFY(std::abs(SEN_Meas_Z(-3.5) / Largest - 0.75) < 1e-13);
    QCOMPARE(MeasuredBits(-4.5), BitsOf(Largest));
}

void TestLintabLimits::straightOnFromTheSmallestNumber()
{
    // The slope is out of range in units of the value at the end.
    QCOMPARE(OneStretch({{0, 1e308}, {1, Denormal}}, Line).Build(), 0);
    QVERIFY(std::abs(SEN_Meas_Z(1.5) / -5e307 - 1) < 1e-15);
    QVERIFY(std::abs(SEN_Meas_Z(-0.5) / 1.5e308 - 1) < 1e-15);
    // And the value at the end in units of a slope of 0.
    QCOMPARE(OneStretch({{0, Largest}, {1, Largest}}, Line).Build(), 0);
    for (const double x : {-1e300, -1.0, 2.0, 1e300})
        QCOMPARE(MeasuredBits(x), BitsOf(Largest));
}

void TestLintabLimits::straightOnFromASteepLine()
{
    // A slope of twice the largest number up, and of two thirds of it down.
    QCOMPARE(OneStretch({{0, 0}, {0.25, Largest / 2}, {1, 0}}, Line).Build(), 0);
    QVERIFY(std::abs(SEN_Meas_Z(-0.125) / Largest + 0.25) < 1e-15);
    QVERIFY(std::abs(SEN_Meas_Z(1.75) / Largest + 0.5) < 1e-15);
    QCOMPARE(MeasuredBits(-0.75), BitsOf(-Largest));
    // Two points a denormal number apart: whatever lies beyond is out of range at once.
    QCOMPARE(OneStretch({{0, 0}, {2 * Denormal, 1}, {1, 1}}, Line).Build(), 0);
    QCOMPARE(MeasuredBits(-1), BitsOf(-Largest));
    QCOMPARE(MeasuredBits(2), BitsOf(1.0));
}

void TestLintabLimits::straightOnFromAValueFarAboveTheFit()
{
    // A tiny fit that falls by 4e-10 an x, and a row at its last x that stands 310 decades above.
    std::vector<CurvePoint> points;
    for (const double x : Steps(0, 1, 0.25))
        points.push_back({x, 5e-10 - 4e-10 * x});
    Table table = OneStretch(points, Least);
    table.Open(1, 1e-10, Line);
    table.Add(1, 1e300);
    QCOMPARE(table.Build(), 0);
    QCOMPARE(MeasuredBits(2), BitsOf(1e300));
    const double farOff = 1e300 - 4e-10 * Largest;
    for (const auto &[x, y] : {std::pair(Largest, farOff), std::pair(Infinity, farOff)})
        QVERIFY(std::abs(SEN_Meas_Z(x) / y - 1) < 1e-12);
}

QTEST_GUILESS_MAIN(TestLintabLimits)
#include "tst_lintab_limits.moc"
