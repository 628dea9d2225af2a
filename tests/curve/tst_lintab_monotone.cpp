/// @file
/// Points that only rise or only fall get a fit that does.
#include "curve/LintabTable.h"
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Polynomial.h"

#include <QTest>

#include <algorithm>
#include <random>

using Lintab::LeastSquares;
using Lintab::Polynomial;

namespace {

using Shape = double (*)(double);

double Parabola(double x)
{
    return x * x;
}
double LevelAtBothEnds(double x)
{
    return x * x * (3 - 2 * x);
}
double Exponential(double x)
{
    return std::exp(8 * (x - 1));
}
double Saturation(double x)
{
    return 1 - std::exp(-6 * x);
}
double LetterS(double x)
{
    return std::tanh(8 * x - 4);
}
double KneeAt40(double x)
{
    return x < 0.4 ? 0 : x - 0.4;
}
double StepAt40(double x)
{
    return x < 0.4 ? 0 : 1;
}

bool Rises(const std::vector<CurvePoint> &points)
{
    const auto falls = [](const CurvePoint &left, const CurvePoint &right) { return right.Y < left.Y; };
    return std::adjacent_find(points.begin(), points.end(), falls) == points.end();
}

/// The farthest that the curve held falls back from 0 to 1.
double Backslide()
{
    double top = SEN_Meas_Z(0);
    double farthest = 0;
    for (int i = 1; i <= 5000; ++i) {
        const double value = SEN_Meas_Z(i / 5000.0);
        top = std::max(top, value);
        farthest = std::max(farthest, top - value);
    }
    return farthest;
}

} // namespace

class TestLintabMonotone : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void risingPointsGetARisingCurve_data();
    void risingPointsGetARisingCurve();
    void noiseDoesNotFlattenTheCurve_data();
    void noiseDoesNotFlattenTheCurve();
    void fallingPointsAreRisingOnesUpsideDown();
    void aFitThatRisesIsLeftAsItIs();
    void pointsOfOneInputAreInNoOrder();
    void pointsThatTurnRoundKeepTheirFit();
    void monotoneMeansEverywhere();
    void lowestSlopeIsFoundAnywhere();
};

void TestLintabMonotone::risingPointsGetARisingCurve_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<double>("share");
    // Of the root mean square error of the straight line through the points. The smooth ones: of all polynomials of
    // degree 8 the best are off by 8e-5 and 1.3e-5 at most, the first term left out of the Chebyshev series of an
    // exponential; twice that is let pass, and the line is off by 0.14. The others have a bend that no such polynomial
    // follows, and must halve the error; at a step, where that falls with the root of the degree only, it is three
    // quarters.
    QTest::newRow("parabola from its vertex") << &Parabola << 1e-14;
    QTest::newRow("exponential over three decades") << &Exponential << 2 * 8e-5 / 0.14;
    QTest::newRow("saturation") << &Saturation << 2 * 1.3e-5 / 0.14;
    QTest::newRow("S") << &LetterS << 0.5;
    QTest::newRow("knee") << &KneeAt40 << 0.5;
    QTest::newRow("step") << &StepAt40 << 0.75;
}

void TestLintabMonotone::risingPointsGetARisingCurve()
{
    QFETCH(Shape, shape);
    QFETCH(double, share);
    const std::vector<CurvePoint> points = PointsOn(shape, 0, 1 / 32.0, 33);
    QVERIFY(Rises(points));
    QCOMPARE(OneStretch(points, Least).Build(), 0);
    QVERIFY(Backslide() <= 1e-9);
    const Polynomial line = LeastSquares(points).OfDegree(1);
    double squares = 0;
    double squaresOfLine = 0;
    for (const double x : Steps(0, 1, 1e-3)) {
        squares += std::pow(SEN_Meas_Z(x) - shape(x), 2);
        squaresOfLine += std::pow(Lintab::ValueAt(line, x) - shape(x), 2);
    }
    QVERIFY(std::sqrt(squares) <= share * std::sqrt(squaresOfLine));
}

void TestLintabMonotone::noiseDoesNotFlattenTheCurve_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<double>("noise");
    for (const double noise : {1e-6, 1e-5, 1e-4, 1e-3}) {
        QTest::addRow("parabola, %g", noise) << &Parabola << noise;
        QTest::addRow("cubic, level at both ends, %g", noise) << &LevelAtBothEnds << noise;
    }
}

// Polynomials that are level somewhere: half of their fits to noisy points go the wrong way there.
void TestLintabMonotone::noiseDoesNotFlattenTheCurve()
{
    QFETCH(Shape, shape);
    QFETCH(double, noise);
    std::mt19937_64 random(17);
    std::normal_distribution<double> normal(0, noise);
    int held = 0;
    int tables = 0;
    while (tables < 50) {
        std::vector<CurvePoint> points = PointsOn(shape, 0, 0.0625, 17);
        for (CurvePoint &point : points)
            point.Y += normal(random);
        if (!Rises(points))
            continue;
        ++tables;
        const LeastSquares fits(points);
        held += IsMonotone(fits.OfDegree(fits.BestDegree()), 1) ? 0 : 1;
        QCOMPARE(fits.Best().Degree, fits.BestDegree());
        QCOMPARE(OneStretch(points, Least).Build(), 0);
        QVERIFY(Backslide() <= 1e-9);
        for (const double x : Steps(0, 1, 1e-3))
            QVERIFY(std::abs(SEN_Meas_Z(x) - shape(x)) <= 4 * noise);
    }
    QVERIFY(held >= 10);
}

void TestLintabMonotone::fallingPointsAreRisingOnesUpsideDown()
{
    for (const Shape shape : {&Exponential, &LetterS, &KneeAt40}) {
        std::vector<CurvePoint> points = PointsOn(shape, 0, 0.05, 21);
        const Polynomial rising = LeastSquares(points).Best();
        for (CurvePoint &point : points)
            point.Y = -point.Y;
        const Polynomial falling = LeastSquares(points).Best();
        for (const double x : Steps(0, 1, 0.01))
            QCOMPARE(BitsOf(Lintab::ValueAt(falling, x)), BitsOf(-Lintab::ValueAt(rising, x)));
    }
}

void TestLintabMonotone::aFitThatRisesIsLeftAsItIs()
{
    const auto exponential = [](double x) { return std::exp(x); };
    const LeastSquares fits(PointsOn(exponential, 0, 0.1, 30));
    const Polynomial free = fits.OfDegree(fits.BestDegree());
    const Polynomial best = fits.Best();
    QVERIFY(best.Degree > 3);
    QCOMPARE(best.Coefficients, free.Coefficients);
}

// A second reading at the same x is lower or higher than the first, as it happens; no fall is seen in that.
void TestLintabMonotone::pointsOfOneInputAreInNoOrder()
{
    for (const Shape shape : {&Exponential, &LetterS}) {
        std::vector<CurvePoint> rising;
        std::vector<CurvePoint> falling;
        for (const CurvePoint &point : PointsOn(shape, 0, 0.05, 21)) {
            rising.push_back(point);
            falling.push_back(point);
            if (falling.size() % 4 == 1) {
                rising.push_back({point.X, point.Y + 1e-4});
                falling.insert(falling.end() - 1, {point.X, point.Y + 1e-4});
            }
        }
        QVERIFY(Rises(rising) != Rises(falling));
        const LeastSquares fits(rising);
        const Polynomial best = fits.Best();
        QVERIFY(!IsMonotone(fits.OfDegree(best.Degree), 1));
        QVERIFY(IsMonotone(best, 1));
        // Only sums are made in another order.
        const Polynomial other = LeastSquares(falling).Best();
        QVERIFY(IsMonotone(other, 1));
        for (const double x : Steps(0, 1, 0.01))
            QVERIFY(std::abs(Lintab::ValueAt(other, x) - Lintab::ValueAt(best, x)) < 1e-14);
    }
}

void TestLintabMonotone::pointsThatTurnRoundKeepTheirFit()
{
    const LeastSquares fits(PointsOn([](double x) { return x * x; }, -2, 0.25, 17));
    QCOMPARE(fits.Best().Degree, 2);
    for (const double x : Steps(-2, 2, 0.05))
        QVERIFY(std::abs(Lintab::ValueAt(fits.Best(), x) - x * x) < 1e-14);
}

void TestLintabMonotone::monotoneMeansEverywhere()
{
    // u^3/3 - a u has the slope u^2 - a; as a Chebyshev series, u^3 = (3 T1 + T3) / 4.
    const auto cubic = [](double a) {
        Polynomial polynomial;
        polynomial.Frame.HalfWidth = 1;
        polynomial.Degree = 3;
        polynomial.Coefficients = {0, 0.25 - a, 0, 1.0 / 12};
        return polynomial;
    };
    QVERIFY(Lintab::IsMonotone(cubic(-0.1), 1));
    QVERIFY(Lintab::IsMonotone(cubic(0), 1));
    QVERIFY(!Lintab::IsMonotone(cubic(1e-6), 1));
    QVERIFY(!Lintab::IsMonotone(cubic(0), -1));
    QVERIFY(Lintab::IsMonotone(cubic(1), -1));
    QVERIFY(!Lintab::IsMonotone(cubic(0.999), -1));
    for (const double a : {-0.3, 0.0, 1e-6, 0.2, 1.0, 3.0}) {
        QVERIFY(std::abs(Lintab::LowestSlope(cubic(a), 1).Slope + a) <= 1e-8);
        QVERIFY(std::abs(Lintab::LowestSlope(cubic(a), -1).Slope - (a - 1)) <= 1e-8);
    }
}

void TestLintabMonotone::lowestSlopeIsFoundAnywhere()
{
    std::mt19937_64 random(29);
    for (int round = 0; round < 300; ++round) {
        Polynomial polynomial;
        polynomial.Frame.HalfWidth = 1;
        polynomial.Frame.Start = -1;
        polynomial.Degree = 1 + static_cast<int>(random() % 8);
        double steepest = 0;
        for (int k = 0; k <= polynomial.Degree; ++k) {
            polynomial.Coefficients[k] = static_cast<double>(random() >> 11) * 0x1p-52 - 1;
            steepest += k * k * std::abs(polynomial.Coefficients[k]);
        }
        double lowest = Infinity;
        for (int i = 0; i <= 20000; ++i)
            lowest = std::min(lowest, Lintab::SlopeAt(polynomial, i / 10000.0 - 1));
        // The slope's second derivative is at most degree^4 / 3 times the steepest slope (A. A. Markov), and an
        // extremum lies within half a step of a sample.
        const double between = steepest * std::pow(polynomial.Degree, 4) / 3 * std::pow(0.5e-4, 2) / 2;
        const double found = Lintab::LowestSlope(polynomial, 1).Slope;
        QVERIFY(found <= lowest + 1e-7 * steepest);
        QVERIFY(found >= lowest - between - 1e-12 * steepest);
    }
}

QTEST_GUILESS_MAIN(TestLintabMonotone)
#include "tst_lintab_monotone.moc"
