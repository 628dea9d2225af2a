/// @file
/// Chebyshev series: their value, their slope and their product with u.
#include "curve/lintab/ChebyshevSeries.h"

#include <QTest>

#include <cmath>

using Lintab::HighestPolynomialDegree;
using Lintab::PerDegree;

namespace {

PerDegree Only(int degree)
{
    PerDegree series{};
    series[static_cast<std::size_t>(degree)] = 1;
    return series;
}

} // namespace

class TestLintabSeries : public QObject {
    Q_OBJECT

private slots:
    void isACosineOfTheAngle();
    void slopeIsThatOfACosine();
    void slopesAtTheEnds();
    void timesPosition();
};

// T_k(cos a) = cos(k a).
void TestLintabSeries::isACosineOfTheAngle()
{
    for (int k = 0; k <= HighestPolynomialDegree; ++k) {
        for (double angle = 0; angle < 3.2; angle += 0.1) {
            const double value = Lintab::SeriesAt(Only(k), HighestPolynomialDegree, std::cos(angle));
            QVERIFY(std::abs(value - std::cos(k * angle)) < 1e-14);
        }
    }
    QCOMPARE(Lintab::SeriesAt({1, 10, 100}, 2, 0.5), 1 + 10 * 0.5 + 100 * -0.5);
}

// Both sides of the line above, differentiated by the angle.
void TestLintabSeries::slopeIsThatOfACosine()
{
    for (int k = 0; k <= HighestPolynomialDegree; ++k) {
        const PerDegree slope = Lintab::DerivativeOf(Only(k), k);
        for (double angle = 0.1; angle < 3.1; angle += 0.1) {
            const double value = Lintab::SeriesAt(slope, HighestPolynomialDegree, std::cos(angle));
            QVERIFY(std::abs(value * std::sin(angle) - k * std::sin(k * angle)) < 1e-13);
        }
    }
}

// T_k rises by k^2 at 1, and by as much, or falls when k is even, at -1.
void TestLintabSeries::slopesAtTheEnds()
{
    for (int k = 1; k <= HighestPolynomialDegree; ++k) {
        const PerDegree slope = Lintab::DerivativeOf(Only(k), k);
        QCOMPARE(Lintab::SeriesAt(slope, k - 1, 1), double(k * k));
        QCOMPARE(Lintab::SeriesAt(slope, k - 1, -1), double(k % 2 == 0 ? -k * k : k * k));
    }
}

void TestLintabSeries::timesPosition()
{
    PerDegree series{};
    for (int k = 0; k < HighestPolynomialDegree; ++k) {
        series[static_cast<std::size_t>(k)] = 1.0 + k * k % 5;
        const PerDegree product = Lintab::TimesPosition(series);
        for (double u = -1; u <= 1; u += 0.0625) {
            const double value = Lintab::SeriesAt(product, HighestPolynomialDegree, u);
            QVERIFY(std::abs(value - u * Lintab::SeriesAt(series, k, u)) < 1e-13);
        }
    }
}

QTEST_GUILESS_MAIN(TestLintabSeries)
#include "tst_lintab_series.moc"
