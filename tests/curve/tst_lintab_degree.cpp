/// @file
/// How the curve library chooses the degree of a fit.
#include "curve/CurveData.h"
#include "curve/LintabTable.h"
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Polynomial.h"

#include <QTest>

#include <algorithm>
#include <cstddef>
#include <random>

namespace {

/// Leave-one-out sum of squares of the constant: what a point has to the mean of the others.
double PressOfTheMean(const std::vector<CurvePoint> &points)
{
    double sum = 0;
    for (const CurvePoint &point : points)
        sum += point.Y;
    const auto others = static_cast<double>(points.size() - 1);
    double press = 0;
    for (const CurvePoint &point : points)
        press += std::pow(point.Y - (sum - point.Y) / others, 2);
    return press;
}

} // namespace

class TestLintabDegree : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void candidateDegrees_data();
    void candidateDegrees();
    void choosesTheSmallestGoodDegree();
    void choosesAConstantForOutputsWithoutATrend();
    void risingPointsGetNoLevelCurve();
    void choosesByLeavingPointsOut();
    void equalInputsCountAsData();
    void roundingAddsNoDegree();
    void inputsEqualButForRoundingAddNoDegree();
};

void TestLintabDegree::candidateDegrees_data()
{
    QTest::addColumn<int>("differentX");
    QTest::addColumn<int>("highest");
    // max(0, min(8, floor(2 sqrt(m)) - 1, m - 2)), worked out by hand
    QTest::newRow("1") << 1 << 0;
    QTest::newRow("2") << 2 << 0;
    QTest::newRow("3") << 3 << 1;
    QTest::newRow("4") << 4 << 2;
    QTest::newRow("5") << 5 << 3;
    QTest::newRow("6") << 6 << 3;
    QTest::newRow("7") << 7 << 4;
    QTest::newRow("9") << 9 << 5;
    QTest::newRow("20") << 20 << 7;
    QTest::newRow("21") << 21 << 8;
    QTest::newRow("500") << 500 << 8;
}

void TestLintabDegree::candidateDegrees()
{
    QFETCH(int, differentX);
    std::vector<CurvePoint> points;
    for (int i = 0; i < differentX; ++i) {
        points.push_back({i * 0.7, i % 5 * 1.0});
        points.push_back({i * 0.7, i % 3 * 1.0});
    }
    QTEST(Lintab::LeastSquares(points).HighestDegree(), "highest");
}

// The leave-one-out sums come from the exact table; the choice among them is made here by its rule.
void TestLintabDegree::choosesTheSmallestGoodDegree()
{
    for (const char *name : {"K_25pts_mV_to_C", "S_6pts", "tiny_x_1e-9_30pts"}) {
        const std::vector<CurvePoint> points = GoldenPoints(name);
        const Lintab::LeastSquares fits(points);
        std::vector<double> press = {PressOfTheMean(points)};
        for (int degree = 1; degree <= fits.HighestDegree(); ++degree)
            press.push_back(GoldenFitOf(name, degree).Press);
        const double least = *std::min_element(press.begin(), press.end());
        const auto good = [least](double candidate) { return candidate <= 1.05 * least; };
        const auto smallest = std::find_if(press.begin(), press.end(), good);
        QCOMPARE(fits.BestDegree(), int(smallest - press.begin()));
    }
}

void TestLintabDegree::choosesAConstantForOutputsWithoutATrend()
{
    // Each of them is off the mean of the others by 8/7, and further off the straight line and all that follows.
    const std::vector<CurvePoint> points = {{0, 1}, {1, -1}, {2, 1}, {3, -1}, {4, 1}, {5, -1}, {6, 1}, {7, -1}};
    const Lintab::LeastSquares fits(points);
    QCOMPARE(fits.HighestDegree(), 4);
    QVERIFY(std::abs(fits.LeaveOneOutError(0) - 8.0 / 7) < 1e-14);
    QCOMPARE(fits.BestDegree(), 0);
}

// The leave-one-out sums come from as many fits, each really without one of the points.
// Three decades of a logarithm in five points: without one of the ends the mean does better there than any slope. Of
// the other degrees the straight line does best.
void TestLintabDegree::risingPointsGetNoLevelCurve()
{
    std::vector<CurvePoint> points;
    for (int i = 0; i < 5; ++i)
        points.push_back({std::pow(10, 0.75 * i), 0.75 * i});
    const Lintab::LeastSquares rising(points);
    QVERIFY(rising.LeaveOneOutError(0) < rising.LeaveOneOutError(1));
    QVERIFY(rising.LeaveOneOutError(1) < rising.LeaveOneOutError(2));
    QCOMPARE(rising.BestDegree(), 1);
    for (CurvePoint &point : points)
        point.Y = -point.Y;
    QCOMPARE(Lintab::LeastSquares(points).BestDegree(), 1);
    // Once they turn round, the mean may be best.
    std::swap(points[2].Y, points[3].Y);
    const Lintab::LeastSquares turning(points);
    QVERIFY(turning.LeaveOneOutError(0) < turning.LeaveOneOutError(1));
    QCOMPARE(turning.BestDegree(), 0);
}

void TestLintabDegree::choosesByLeavingPointsOut()
{
    std::mt19937_64 random(5);
    int nearMisses = 0;
    for (int round = 0; round < 60; ++round) {
        std::vector<CurvePoint> points;
        for (int i = 0; i < 30; ++i) {
            const double noise = static_cast<double>(random() >> 11) * 0x1p-53;
            points.push_back({i * 0.1, std::sin(i * 0.1 * (1 + round % 3)) + noise});
        }
        std::vector<double> press(Lintab::HighestPolynomialDegree + 1);
        for (std::size_t left = 0; left < points.size(); ++left) {
            std::vector<CurvePoint> others = points;
            others.erase(others.begin() + static_cast<std::ptrdiff_t>(left));
            const Lintab::LeastSquares fits(others);
            QCOMPARE(fits.HighestDegree(), Lintab::HighestPolynomialDegree);
            for (int degree = 0; degree <= fits.HighestDegree(); ++degree) {
                const double fitted = Lintab::ValueAt(fits.OfDegree(degree), points[left].X);
                press[degree] += std::pow(points[left].Y - fitted, 2);
            }
        }
        const double least = *std::min_element(press.begin(), press.end());
        int expected = 0;
        while (press[expected] > 1.05 * least)
            ++expected;
        const Lintab::LeastSquares fits(points);
        QCOMPARE(fits.BestDegree(), expected);
        for (int degree = 0; degree <= Lintab::HighestPolynomialDegree; ++degree) {
            const double reported = std::pow(fits.LeaveOneOutError(degree), 2) * 30;
            QVERIFY(std::abs(reported - press[degree]) < 1e-9 * press[degree]);
        }
        nearMisses += press[expected] > least ? 1 : 0;
        nearMisses += expected > 0 && press[expected - 1] < 1.2 * least ? 1 : 0;
    }
    QVERIFY(nearMisses > 10);
}

void TestLintabDegree::equalInputsCountAsData()
{
    // Three points at 0, one at 1, two at 2.
    const std::vector<CurvePoint> points = {{0, 1}, {0, 2}, {0, 6}, {1, 5}, {2, 7}, {2, 7}};
    const Lintab::Polynomial line = Lintab::LeastSquares(points).OfDegree(1);
    // By hand: mean x 5/6, mean y 28/6, sum of (x - mean) y 29/3, sum of (x - mean)^2 29/6.
    for (const double x : {0.0, 0.5, 2.0})
        QVERIFY(std::abs(Lintab::ValueAt(line, x) - (28.0 / 6 + 2 * (x - 5.0 / 6))) < 1e-14);
}

void TestLintabDegree::roundingAddsNoDegree()
{
    // Exact data of a low degree, where only rounding tells the higher degrees apart.
    for (int degree = 0; degree <= 4; ++degree) {
        std::vector<CurvePoint> points;
        for (int i = 0; i < 40; ++i)
            points.push_back({0.1 * i, std::pow(0.1 * i, degree) / 3});
        QCOMPARE(Lintab::LeastSquares(points).BestDegree(), degree);
    }
}

void TestLintabDegree::inputsEqualButForRoundingAddNoDegree()
{
    const std::vector<CurvePoint> points = {{0, 0}, {0, 1}, {0, 2}, {1, 7}, {1 + 0x1p-52, 8}, {1 + 0x1p-51, 9}};
    QCOMPARE(Lintab::LeastSquares(points).HighestDegree(), 1);
    QCOMPARE(OneStretch(points, Least).Build(), 0);
    // The line through the means of both ends.
    QVERIFY(std::abs(SEN_Meas_Z(0) - 1) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(0.5) - 4.5) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(1) - 8) < 1e-12);
}

QTEST_GUILESS_MAIN(TestLintabDegree)
#include "tst_lintab_degree.moc"
