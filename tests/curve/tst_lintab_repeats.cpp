/// @file
/// Readings that repeat a few set points: the fit is one that they determine, between the set points too.
#include "curve/LintabTable.h"
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Polynomial.h"

#include <QTest>

#include <algorithm>
#include <cstddef>
#include <random>

using Lintab::LeastSquares;

namespace {

constexpr double NoGuard = 1e300; ///< a variance that every fit keeps to

/// Highest candidate by the number of different x alone.
int HighestByCount(int differentX)
{
    const int byRoot = static_cast<int>(std::floor(2 * std::sqrt(differentX))) - 1;
    return std::max(0, std::min({8, byRoot, differentX - 2}));
}

/// From -1 to 1.
double Either(std::mt19937_64 &random)
{
    return static_cast<double>(random() >> 11) * 0x1p-52 - 1;
}

/// Ten readings at each of some even set points from 0 to 1, off by up to `jitter` in x and in y.
std::vector<CurvePoint> Readings(int setPoints, double (*truth)(double), double jitter, std::mt19937_64 &random)
{
    std::vector<CurvePoint> points;
    for (int setPoint = 0; setPoint < setPoints; ++setPoint) {
        for (int reading = 0; reading < 10; ++reading) {
            const double x = static_cast<double>(setPoint) / (setPoints - 1);
            points.push_back({x + jitter * Either(random), truth(x) + jitter * Either(random)});
        }
    }
    std::sort(points.begin(), points.end(), [](const CurvePoint &a, const CurvePoint &b) { return a.X < b.X; });
    return points;
}

/// Variance at u of the polynomial through the means of some readings at each of some set points (J. L. Lagrange's
/// form), a reading having the variance 1.
double VarianceOfMeans(const std::vector<double> &setPoints, int readings, double u)
{
    double variance = 0;
    for (const double own : setPoints) {
        double share = 1;
        for (const double other : setPoints)
            share *= other == own ? 1 : (u - other) / (own - other);
        variance += share * share / readings;
    }
    return variance;
}

double Straight(double x)
{
    return x;
}
double Parabola(double x)
{
    return x * x;
}

} // namespace

class TestLintabRepeats : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void evenPointsKeepEveryCandidate();
    void clustersTakeCandidatesAway_data();
    void clustersTakeCandidatesAway();
    void staysNearTheTruthBetweenSetPoints_data();
    void staysNearTheTruthBetweenSetPoints();
    void whatIsTooUncertainIsNoCandidate();
    void aFitIsNeverMuchLessCertainThanAReading();
    void aPointThatDecidesAloneIsNoWitness();
    void aPointFarOffIsAWitnessAllTheSame();
};

void TestLintabRepeats::evenPointsKeepEveryCandidate()
{
    for (int count = 1; count <= 500; ++count) {
        const std::vector<CurvePoint> points = PointsOn([](double x) { return std::sin(x); }, -3, 0.7, count);
        QCOMPARE(LeastSquares(points).HighestDegree(), HighestByCount(count));
    }
}

void TestLintabRepeats::clustersTakeCandidatesAway_data()
{
    QTest::addColumn<int>("setPoints");
    QTest::addColumn<double>("jitter");
    for (const int setPoints : {2, 3, 4, 6}) {
        for (const double jitter : {1e-9, 1e-6, 1e-4, 1e-3})
            QTest::addRow("%d set points, %g", setPoints, jitter) << setPoints << jitter;
    }
}

// Polynomials of a degree that is the number of set points vanish at all of them.
void TestLintabRepeats::clustersTakeCandidatesAway()
{
    QFETCH(int, setPoints);
    QFETCH(double, jitter);
    std::mt19937_64 random(3);
    const std::vector<CurvePoint> points = Readings(setPoints, Parabola, jitter, random);
    QVERIFY(LeastSquares(points).HighestDegree() < setPoints);
    // By the number of different x there would be more, up to what rounding leaves.
    QVERIFY(LeastSquares(points, NoGuard).HighestDegree() >= setPoints);
}

void TestLintabRepeats::staysNearTheTruthBetweenSetPoints_data()
{
    QTest::addColumn<int>("setPoints");
    QTest::newRow("two") << 2;
    QTest::newRow("three") << 3;
}

void TestLintabRepeats::staysNearTheTruthBetweenSetPoints()
{
    QFETCH(int, setPoints);
    double (*truth)(double) = setPoints == 2 ? Straight : Parabola;
    std::mt19937_64 random(11);
    for (int table = 0; table < 200; ++table) {
        const std::vector<CurvePoint> points = Readings(setPoints, truth, 1e-3, random);
        QVERIFY(LeastSquares(points).BestDegree() < setPoints);
        QCOMPARE(OneStretch(points, Least).Build(), 0);
        for (const double x : Steps(0, 1, 0.01))
            QVERIFY(std::abs(SEN_Meas_Z(x) - truth(x)) <= 0.05);
    }
}

// From 3 to 5 set points at random, and the polynomial through the means of their readings.
void TestLintabRepeats::whatIsTooUncertainIsNoCandidate()
{
    std::mt19937_64 random(19);
    const int readings = 4;
    int kept = 0;
    int refused = 0;
    for (int table = 0; table < 3000; ++table) {
        std::vector<double> setPoints = {-1, 1};
        for (auto more = 1 + random() % 3; more > 0; --more)
            setPoints.push_back(0.999 * Either(random));
        std::sort(setPoints.begin(), setPoints.end());
        double variance = 0;
        for (const double u : Steps(-1, 1, 0x1p-8))
            variance = std::max(variance, VarianceOfMeans(setPoints, readings, u));
        // It is looked at in a few places only, between which it may be a little more.
        if (variance > 15.9 && variance < 17.5)
            continue;
        std::vector<CurvePoint> points;
        for (const double setPoint : setPoints) {
            for (int reading = 0; reading < readings; ++reading)
                points.push_back({setPoint + reading * 1e-11, 0});
        }
        const int degree = static_cast<int>(setPoints.size()) - 1;
        const bool isCandidate = variance < 16;
        QCOMPARE(LeastSquares(points).HighestDegree() == degree, isCandidate);
        kept += isCandidate && variance > 4 ? 1 : 0;
        refused += !isCandidate && variance < 64 ? 1 : 0;
    }
    QVERIFY(kept > 100);
    QVERIFY(refused > 100);
}

// Random spacings of every kind. A reading more by 1 moves the fit by the covariance of both, which is at most the root
// of the variance of the fit times that of the fit at the reading, the leverage, which is 1 at most.
void TestLintabRepeats::aFitIsNeverMuchLessCertainThanAReading()
{
    std::mt19937_64 random(13);
    for (int table = 0; table < 300; ++table) {
        std::vector<CurvePoint> points;
        const double jitter = std::pow(10, -static_cast<double>(random() % 6));
        const auto setPoints = 2 + random() % 9;
        for (int i = 0; i < 40; ++i)
            points.push_back({static_cast<double>(random() % setPoints) + jitter * Either(random), 0});
        std::sort(points.begin(), points.end(), [](const CurvePoint &a, const CurvePoint &b) { return a.X < b.X; });
        points[random() % points.size()].Y = 1;
        const LeastSquares fits(points);
        const Lintab::Polynomial highest = fits.OfDegree(fits.HighestDegree());
        const double width = points.back().X - points.front().X;
        for (const double share : Steps(0, 1, 0.01)) {
            const double moved = std::abs(Lintab::ValueAt(highest, points.front().X + share * width));
            // Between the places where the variance is looked at it may be a little more.
            QVERIFY(moved <= 1.1 * std::sqrt(LeastSquares::LargestVariance));
        }
    }
}

void TestLintabRepeats::aPointThatDecidesAloneIsNoWitness()
{
    // Inputs equal but for rounding, and one far off: without that one there is no straight line.
    for (int count = 5; count <= 60; ++count) {
        std::vector<CurvePoint> points = PointsOn([](double) { return 0.0; }, 1, 0x1p-52, count);
        for (int i = 0; i < count; i += 3)
            points[static_cast<std::size_t>(i)].Y = 1;
        points.push_back({2, 5});
        const LeastSquares fits(points);
        QCOMPARE(fits.HighestDegree(), 1);
        QCOMPARE(fits.LeaveOneOutError(1), Infinity);
        QCOMPARE(fits.BestDegree(), 0);
    }
}

void TestLintabRepeats::aPointFarOffIsAWitnessAllTheSame()
{
    // A straight line, known by points close together: the one far off lies where they say.
    for (const int exponent : {-10, -13, -16, -19}) {
        std::vector<CurvePoint> points = PointsOn(Straight, 0, std::ldexp(1.0, exponent), 20);
        points.push_back({1, 1});
        const LeastSquares fits(points);
        QVERIFY(fits.LeaveOneOutError(1) < 1e-6);
        QCOMPARE(fits.BestDegree(), 1);
        QVERIFY(std::abs(Lintab::ValueAt(fits.Best(), 0.5) - 0.5) < 1e-14);
    }
}

QTEST_GUILESS_MAIN(TestLintabRepeats)
#include "tst_lintab_repeats.moc"
