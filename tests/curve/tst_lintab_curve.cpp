/// @file
/// The shape of the curve that the library holds: through and between its points, outside them, and for awkward
/// numbers.
#include "curve/LintabTable.h"
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Polynomial.h"

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
    void leastOverOneInputIsTheMean();
    void goesOnStraightOutsideTheSpan();
    void leastGoesOnStraightOutsideTheSpan();
    void notANumberGivesTheFirstPoint();
    void saturatesFarOutside();
    void twoFitsMeetAtTheirMean();
    void fitBesideALineGoesToThePoint();
    void doesNotDependOnEarlierCalls();
    void takesWhatIsNoTableAsWellAsItGoes();
    void finiteForEveryInput_data();
    void finiteForEveryInput();
    void randomTablesKeepThePromises();
};

void TestLintabCurve::linePassesThroughItsPoints()
{
    const std::vector<CurvePoint> points = {{-7.3, 0.1}, {1e-7, 1e17}, {0.3, -1.0 / 3}, {1e6, Denormal}, {3e9, -0.7}};
    QCOMPARE(OneStretch(points, Line).Build(), 0);
    for (const CurvePoint &point : points)
        QCOMPARE(BitsOf(SEN_Meas_Z(point.X)), BitsOf(point.Y));
}

void TestLintabCurve::lineIsStraightBetweenNeighbours()
{
    QCOMPARE(OneStretch({{0, 0}, {4, 8}, {8, -8}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), 2.0);
    QCOMPARE(SEN_Meas_Z(3.5), 7.0);
    QCOMPARE(SEN_Meas_Z(5), 4.0);
    QCOMPARE(SEN_Meas_Z(7.5), -6.0);
}

void TestLintabCurve::fallingOutputsApply()
{
    QCOMPARE(OneStretch({{1, 30}, {2, 20}, {3, 10}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1.5), 25.0);
    QCOMPARE(OneStretch({{1, 50}, {2, 40}, {3, 30}, {4, 20}, {5, 10}}, Least).Build(), 0);
    for (const double x : Steps(0, 7, 0.25))
        QVERIFY(std::abs(SEN_Meas_Z(x) - (60 - 10 * x)) < 1e-12);
}

void TestLintabCurve::equalOutputsGiveThatOutput()
{
    QCOMPARE(OneStretch({{1, 5.1}, {2, 5.1}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1.7), 5.1);
    QCOMPARE(SEN_Meas_Z(-1e300), 5.1);
    QCOMPARE(OneStretch({{1, 5.1}, {2, 5.1}, {3, 5.1}, {4, 5.1}, {5, 5.1}}, Least).Build(), 0);
    for (const double x : Steps(-3, 9, 0.5))
        QVERIFY(std::abs(SEN_Meas_Z(x) - 5.1) < 1e-14);
}

void TestLintabCurve::lastOfEqualInputsHolds()
{
    QCOMPARE(OneStretch({{0, 0}, {1, 1}, {1, 9}, {1, 5}, {2, 6}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), 5.0);
    QCOMPARE(SEN_Meas_Z(0.5), 0.5);
    QCOMPARE(SEN_Meas_Z(1.5), 5.5);
    QCOMPARE(OneStretch({{3, 1}, {3, 2}, {3, 4}}, Line).Build(), 0);
    for (const double x : {-8.0, 3.0, 9.0})
        QCOMPARE(SEN_Meas_Z(x), 4.0);
    // Equal inputs at both ends: the lines beyond start from the value that holds, with the slope next to it.
    QCOMPARE(OneStretch({{0, 9}, {0, 1}, {1, 3}, {1, 7}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(-1), -1.0);
    QCOMPARE(SEN_Meas_Z(1), 7.0);
    QCOMPARE(SEN_Meas_Z(2), 9.0);
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
    QCOMPARE(SEN_Meas_Z(-10), -20.0);
    QCOMPARE(SEN_Meas_Z(12), 13.0);
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
    QCOMPARE(SEN_Meas_Z(NotANumber), 7.0);
    QCOMPARE(OneStretch(PointsOn([](double x) { return x * x; }, 1, 1, 10), Least).Build(), 0);
    QCOMPARE(SEN_Meas_Z(NotANumber), SEN_Meas_Z(1));
}

void TestLintabCurve::saturatesFarOutside()
{
    QCOMPARE(OneStretch({{0, 0}, {1, 2}, {2, 1}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(Infinity), -Largest);
    QCOMPARE(SEN_Meas_Z(-Infinity), -Largest);
    QCOMPARE(SEN_Meas_Z(Largest), -Largest);
    QCOMPARE(OneStretch({{0, 0}, {1, 2}, {2, 1}, {3, 9}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(Infinity), Largest);
    QCOMPARE(OneStretch({{0, 0}, {1, 3}, {2, 3}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(Infinity), 3.0);
}

void TestLintabCurve::twoFitsMeetAtTheirMean()
{
    Table table;
    table.Open(0, 1, Least);
    for (int x = 1; x < 8; ++x)
        table.Add(x, 1 + x);
    table.Open(8, 9, Least);
    for (int x = 9; x <= 30; ++x)
        table.Add(x, 25 - 2 * x);
    // Both fits pass through (8, 9), and so does the curve: 1 + x to its left, 25 - 2 x to its right.
    QCOMPARE(table.Build(), 0);
    for (const double x : Steps(0, 30, 0.25))
        QVERIFY(std::abs(SEN_Meas_Z(x) - (x < 8 ? 1 + x : 25 - 2 * x)) < 1e-12);

    // Raised by 9, the shared point pulls the fits apart.
    table.Points[8].Y = 18;
    QCOMPARE(table.Build(), 0);
    const std::vector<CurvePoint> left(table.Points.begin(), table.Points.begin() + 9);
    const std::vector<CurvePoint> right(table.Points.begin() + 8, table.Points.end());
    const double leftFit = Lintab::ValueAt(Lintab::LeastSquares(left).Best(), 8);
    const double rightFit = Lintab::ValueAt(Lintab::LeastSquares(right).Best(), 8);
    QVERIFY(std::abs(leftFit - rightFit) > 1e-3);
    QVERIFY(std::abs(SEN_Meas_Z(8) - (leftFit + rightFit) / 2) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(8, 0)) - SEN_Meas_Z(8)) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(8, 9)) - SEN_Meas_Z(8)) < 1e-12);
    // The correction is a straight line that leaves the free end alone.
    QVERIFY(std::abs(SEN_Meas_Z(0) - Lintab::ValueAt(Lintab::LeastSquares(left).Best(), 0)) < 1e-12);
}

void TestLintabCurve::fitBesideALineGoesToThePoint()
{
    Table table = OneStretch({{0, 3}, {1, 0}}, Line);
    table.Open(2, 5, Least);
    for (int x = 3; x < 10; ++x)
        table.Add(x, x % 2 == 0 ? x + 1.0 : x - 1.0);
    table.Open(10, 2, Line);
    table.Add(12, 0);
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(2), 5.0);
    QCOMPARE(SEN_Meas_Z(10), 2.0);
    for (const double x : {2.0, 10.0}) {
        QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(x, -1)) - SEN_Meas_Z(x)) < 1e-12);
        QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(x, 99)) - SEN_Meas_Z(x)) < 1e-12);
    }
    QCOMPARE(SEN_Meas_Z(1.5), 2.5);
    QCOMPARE(SEN_Meas_Z(11), 1.0);
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
        QCOMPARE(BitsOf(SEN_Meas_Z(inputs[i])), BitsOf(rising[i]));
    std::mt19937_64 random(7);
    for (int i = 0; i < 5000; ++i) {
        const std::size_t index = random() % inputs.size();
        QCOMPARE(BitsOf(SEN_Meas_Z(inputs[index])), BitsOf(rising[index]));
    }
}

void TestLintabCurve::takesWhatIsNoTableAsWellAsItGoes()
{
    // An input below the one before it counts as equal to it.
    QCOMPARE(OneStretch({{0, 0}, {2, 4}, {1, 9}, {3, 5}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), 2.0);
    QCOMPARE(SEN_Meas_Z(2), 9.0);
    QCOMPARE(SEN_Meas_Z(2.5), 7.0);
    // A number that is none repeats the one before it, or the first that there is.
    QCOMPARE(OneStretch({{-5, NotANumber}, {-3, 4}, {NotANumber, 6}, {-1, NotANumber}, {1, 8}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(-5), 4.0);
    QCOMPARE(SEN_Meas_Z(-3), 6.0);
    QCOMPARE(SEN_Meas_Z(-1), 6.0);
    QCOMPARE(SEN_Meas_Z(0), 7.0);
    // An infinity is the largest number.
    QCOMPARE(OneStretch({{0, 1}, {1, Infinity}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), Largest);
    QCOMPARE(SEN_Meas_Z(0.5), Largest / 2);
}

void TestLintabCurve::finiteForEveryInput_data()
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

void TestLintabCurve::finiteForEveryInput()
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

void TestLintabCurve::randomTablesKeepThePromises()
{
    std::mt19937_64 random(20240229);
    const auto upTo = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto unit = [&random] { return static_cast<double>(random() >> 11) * 0x1p-53; };
    int built = 0;
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        Table table;
        const int rows = 1 + upTo(60);
        const double width = std::pow(10.0, upTo(13) - 6);
        double x = (unit() - 0.5) * 100 * width;
        std::vector<int> openings;
        for (int row = 0; row < rows; ++row) {
            const double y = (unit() - 0.5) * 200;
            if (row == 0 || upTo(12) == 0) {
                openings.push_back(row);
                table.Open(x, y, upTo(2) == 0 ? Line : Least);
            } else {
                table.Add(x, y);
                table.Flags.back().Arithmetic = static_cast<std::uint8_t>(upTo(2));
            }
            x += upTo(10) == 0 ? 0.0 : (0.05 + unit()) * width;
        }
        openings.push_back(rows);
        bool tooFew = false;
        for (std::size_t i = 0; i + 1 < openings.size(); ++i) {
            if (table.Flags[openings[i]].Arithmetic == Least && openings[i + 1] - openings[i] < 5)
                tooFew = true;
        }
        QCOMPARE(int(table.Build()), tooFew ? 2 : 0);
        ++(tooFew ? refused : built);
        if (tooFew)
            continue;

        const double first = table.Points.front().X;
        const double last = table.Points.back().X;
        for (int i = -50; i <= 150; ++i)
            QVERIFY(std::isfinite(SEN_Meas_Z(first + (last - first) * i / 100)));
        for (const double input : AwkwardInputs())
            QVERIFY(std::isfinite(SEN_Meas_Z(input)));
        for (int row = 0; row < rows; ++row) {
            const CurvePoint &point = table.Points[row];
            if (row + 1 < rows && table.Points[row + 1].X == point.X)
                continue;
            std::size_t stretch = 0;
            while (openings[stretch + 1] <= row)
                ++stretch;
            const bool onLine = table.Flags[openings[stretch]].Arithmetic == Line;
            const bool closesLine =
                row == openings[stretch] && stretch > 0 && table.Flags[openings[stretch - 1]].Arithmetic == Line;
            if (onLine || closesLine)
                QCOMPARE(BitsOf(SEN_Meas_Z(point.X)), BitsOf(point.Y));
            if (row == 0 || table.Points[row - 1].X == point.X)
                continue;
            const double value = SEN_Meas_Z(point.X);
            for (const double side : {-Infinity, Infinity}) {
                const double beside = SEN_Meas_Z(std::nextafter(point.X, side));
                QVERIFY2(std::abs(beside - value) <= 1e-6 * (200 + std::abs(value)),
                         qPrintable(QStringLiteral("round %1 row %2").arg(round).arg(row)));
            }
        }
    }
    QVERIFY(built > 500);
    QVERIFY(refused > 500);
}

QTEST_GUILESS_MAIN(TestLintabCurve)
#include "tst_lintab_curve.moc"
