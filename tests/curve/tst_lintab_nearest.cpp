/// @file
/// The fit to points that only rise is, of the polynomials of its degree that do, the one nearest to the points.
#include "curve/CurveData.h"
#include "curve/LintabTable.h"
#include "curve/lintab/HalfSpaces.h"
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Polynomial.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <random>
#include <string>

using Lintab::LeastSquares;
using Lintab::PerDegree;
using Lintab::Polynomial;

namespace {

constexpr const char *RisingTables[] = {"exponential", "saturation", "S", "knee"};

std::vector<CurvePoint> RisingPoints(const std::string &name)
{
    return PointsOfTable("monotone_points.csv", name);
}

double SumOfSquares(const Polynomial &polynomial, const std::vector<CurvePoint> &points)
{
    double sum = 0;
    for (const CurvePoint &point : points)
        sum += std::pow(point.Y - Lintab::ValueAt(polynomial, point.X), 2);
    return sum;
}

/// A polynomial that nowhere falls: the integral of the square of one with random values.
class RandomRising {
public:
    explicit RandomRising(std::mt19937_64 &random)
    {
        for (double &coefficient : m_square)
            coefficient = static_cast<double>(random() >> 11) * 0x1p-52 - 1;
        m_start = static_cast<double>(random() >> 11) * 0x1p-53 - 0.5;
        m_height = static_cast<double>(random() >> 11) * 0x1p-52;
    }

    /// Degree 5: the square of c0 + c1 x + c2 x^2, integrated.
    double operator()(double x) const
    {
        const auto [a, b, c] = m_square;
        return m_start +
               m_height * x * (a * a + x * (a * b + x * ((b * b + 2 * a * c) / 3 + x * (b * c / 2 + x * c * c / 5))));
    }

private:
    std::array<double, 3> m_square{};
    double m_start;
    double m_height;
};

} // namespace

class TestLintabNearest : public QObject {
    Q_OBJECT

private slots:
    void agreesWithTheExactOptimum_data();
    void agreesWithTheExactOptimum();
    void noRisingPolynomialIsNearer();
    void nearestPointWithinHalfSpaces();
};

void TestLintabNearest::agreesWithTheExactOptimum_data()
{
    QTest::addColumn<double>("bound");
    // Shares of the span. A slope that is held at an end is held exactly there. Elsewhere it leaves its lowest value
    // with the square of the distance: a billionth of the steepest slope, to which it is searched for, leaves the place
    // open by the root of that, and with it the fit.
    const double root = std::sqrt(1e-9);
    QTest::newRow("exponential") << 1e-13;
    QTest::newRow("saturation") << root;
    QTest::newRow("S") << root;
    QTest::newRow("knee") << root;
}

void TestLintabNearest::agreesWithTheExactOptimum()
{
    QFETCH(double, bound);
    const std::string name = QTest::currentDataTag();
    const std::vector<CurvePoint> points = RisingPoints(name);
    const double span = points.back().Y - points.front().Y;
    const LeastSquares fits(points);
    const Polynomial best = fits.Best();
    const Polynomial free = fits.OfDegree(best.Degree);
    int values = 0;
    double farthestFromFree = 0;
    for (const DataRow &row : RowsOf("monotone_fits.csv")) {
        if (row.at(0) != name)
            continue;
        QCOMPARE(best.Degree, int(NumberOf(row.at(1))));
        const double expected = NumberOf(row.at(4));
        if (row.at(2) == "rss") {
            // The points pull hardly more at the slopes held than at those of the optimum.
            QVERIFY(std::abs(SumOfSquares(best, points) - expected) <= 1e-6 * expected);
            QVERIFY(SumOfSquares(free, points) < 0.99 * expected);
            continue;
        }
        ++values;
        const double x = NumberOf(row.at(3));
        QVERIFY(std::abs(Lintab::ValueAt(best, x) - expected) <= bound * span);
        farthestFromFree = std::max(farthestFromFree, std::abs(Lintab::ValueAt(free, x) - expected));
    }
    QCOMPARE(values, 41);
    QVERIFY(farthestFromFree > 5e-4 * span);
}

// The nearest point p of a convex set is the one from which no q of the set lies on the side of the data: the inner
// product of data - p and q - p is never positive.
void TestLintabNearest::noRisingPolynomialIsNearer()
{
    std::mt19937_64 random(23);
    for (const char *name : RisingTables) {
        const std::vector<CurvePoint> points = RisingPoints(name);
        const Polynomial best = LeastSquares(points).Best();
        QVERIFY(best.Degree >= 5);
        for (int trial = 0; trial < 2000; ++trial) {
            const RandomRising other(random);
            double product = 0;
            double otherSquare = 0;
            for (const CurvePoint &point : points) {
                const double fitted = Lintab::ValueAt(best, point.X);
                product += (point.Y - fitted) * (other(point.X) - fitted);
                otherSquare += std::pow(other(point.X) - fitted, 2);
            }
            QVERIFY(product <= 1e-6 * std::sqrt(SumOfSquares(best, points) * otherSquare));
        }
    }
}

void TestLintabNearest::nearestPointWithinHalfSpaces()
{
    const auto nearestWithin = [](const std::vector<PerDegree> &normals, const PerDegree &point) {
        Lintab::HalfSpaces halfSpaces(point);
        for (const PerDegree &normal : normals)
            halfSpaces.Add(normal);
        return halfSpaces.Nearest();
    };
    const PerDegree right = {1};
    const PerDegree up = {0, 1};
    const PerDegree inside = {2, 3, -4, 5};
    QCOMPARE(nearestWithin({right, up}, inside), inside);
    QCOMPARE(nearestWithin({right, up}, PerDegree{-1, 3, 7}), (PerDegree{0, 3, 7}));
    QCOMPARE(nearestWithin({right, up}, PerDegree{-1, -3, 7}), (PerDegree{0, 0, 7}));
    // A wedge of 45 degrees below the diagonal y = x and above the axis y = 0: from beside the diagonal to it, from
    // behind the tip to the tip.
    const double half = std::sqrt(0.5);
    const PerDegree belowDiagonal = {half, -half};
    const PerDegree onDiagonal = nearestWithin({up, belowDiagonal}, PerDegree{1, 3});
    QVERIFY(std::abs(onDiagonal[0] - 2) < 1e-12 && std::abs(onDiagonal[1] - 2) < 1e-12);
    const PerDegree tip = nearestWithin({up, belowDiagonal}, PerDegree{-3, 1});
    QVERIFY(std::abs(tip[0]) < 1e-10 && std::abs(tip[1]) < 1e-10);
    // Pushed in by one and pushed on by the next, the first push has to be taken back.
    const PerDegree back = nearestWithin({belowDiagonal, right, up}, PerDegree{-1, 0.5});
    QVERIFY(std::abs(back[0]) < 1e-10 && std::abs(back[1]) < 1e-10);
}

QTEST_GUILESS_MAIN(TestLintabNearest)
#include "tst_lintab_nearest.moc"
