/// @file
/// Polynomials of least squares through the points of one stretch, and the choice of their degree.
#pragma once

#include "curve/lintab/Lintab.h"
#include "curve/lintab/Polynomial.h"

#include <array>
#include <span>
#include <vector>

namespace Lintab {

/// The fits of all candidate degrees to one set of points.
///
/// The points are expanded over polynomials in u that are orthonormal over the points themselves, so no normal
/// equations and no powers of x occur (G. E. Forsythe, 1957).
class LeastSquares {
public:
    /// Variance that a fit may have anywhere in the stretch when every y has the variance 1: it may be four times as
    /// uncertain as a reading.
    static constexpr double LargestVariance = 16;

    /// Prepares every candidate degree. `points` are finite, ascending in X, at least one; the span of X is finite.
    /// @throws std::bad_alloc
    explicit LeastSquares(std::span<const CurvePoint> points, double largestVariance = LargestVariance);

    /// Highest candidate: with m different x, max(0, min(8, floor(2 sqrt(m)) - 1, m - 2)); less where the points leave
    /// a fit of that degree open somewhere between them.
    int HighestDegree() const { return static_cast<int>(m_basis.size()) - 1; }

    /// Root mean square, in units of y, of the residuals that each point has to the fit through all others: the square
    /// root of PRESS / n (D. M. Allen, 1974). Infinite when the fit is not determined without some point.
    double LeaveOneOutError(int degree) const;

    /// The smallest degree whose PRESS is at most 1.05 of the least one; not 0 where the points rise or fall.
    int BestDegree() const;

    /// The fit of `degree`, 0 to HighestDegree().
    Polynomial OfDegree(int degree) const;

    /// The fit of the best degree. Where the points only rise or only fall with x and that fit does not, of all
    /// polynomials of its degree that do the one nearest to the points.
    Polynomial Best() const;

private:
    using Column = std::vector<double>;
    static constexpr int VarianceNodes = 33;

    bool AddColumn();
    bool AddVariance(const PerDegree &series);
    void ExpandResidual();
    Polynomial WithWeights(const PerDegree &weights, int degree) const;
    Polynomial MonotoneOfDegree(int degree) const;
    PerDegree SlopeDirection(double u, int degree) const;

    double m_largestVariance;
    StretchFrame m_frame;        ///< of every fit
    Column m_positions;          ///< u of each point
    Column m_residuals;          ///< y of each point in units of m_frame.Scale, less the fit of the last column
    Column m_leverages;          ///< influence of each point on the fit at its own x, 0 to 1
    std::vector<Column> m_basis; ///< value at each point of the orthonormal polynomial of each degree
    PerDegree m_weights{};       ///< share of each orthonormal polynomial in y
    PerDegree m_press{};         ///< PRESS of each degree, in squares of m_frame.Scale
    /// Chebyshev series of the orthonormal polynomial of each degree.
    std::array<PerDegree, HighestPolynomialDegree + 1> m_series{};
    std::array<double, VarianceNodes> m_variances{}; ///< of the fit at places of the stretch, for a y of variance 1
    int m_direction = 0;                             ///< 1 the points rise, -1 they fall, 0 both or neither
};

} // namespace Lintab
