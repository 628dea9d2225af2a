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
/// equations and no powers of x occur (G. E. Forsythe, 1957). The polynomials are made by the Arnoldi process with a
/// second orthogonalisation (P. D. Brubeck, Y. Nakatsukasa, L. N. Trefethen, 2021).
class LeastSquares {
public:
    /// Prepares every candidate degree. `points` are finite, ascending in X, at least one; the span of X is finite.
    /// @throws std::bad_alloc
    explicit LeastSquares(std::span<const CurvePoint> points);

    /// Highest candidate: with m different x, max(0, min(8, floor(2 sqrt(m)) - 1, m - 2)), or lower where the points do
    /// not carry it numerically.
    int HighestDegree() const { return static_cast<int>(basis.size()) - 1; }

    /// Root mean square, in units of y, of the residuals that each point has to the fit through all others: the square
    /// root of PRESS / n (D. M. Allen, 1974). Infinite when the fit is not determined without some point.
    double LeaveOneOutError(int degree) const;

    /// The smallest degree whose PRESS is at most 1.05 of the least one.
    int BestDegree() const;

    /// The fit of `degree`, 0 to HighestDegree().
    Polynomial OfDegree(int degree) const;

    /// The fit of the best degree. Where the points only rise or only fall with x and that fit does not, the degree is
    /// lowered until it does.
    Polynomial Best() const;

private:
    using Column = std::vector<double>;

    bool AddColumn();
    void ExpandResidual();
    double SeriesAt(int degree, double u) const;

    Polynomial frame;          ///< mapping of x and unit of y of every fit; its coefficients are not used
    Column positions;          ///< u of each point
    Column residuals;          ///< y of each point in units of frame.Scale, less the fit of the last column
    Column leverages;          ///< influence of each point on the fit at its own x, 0 to 1
    std::vector<Column> basis; ///< value at each point of the orthonormal polynomial of each degree
    std::array<double, HighestPolynomialDegree + 1> weights{}; ///< share of each orthonormal polynomial in y
    std::array<double, HighestPolynomialDegree + 1> press{};   ///< PRESS of each degree, in squares of frame.Scale
    /// u times column k is the sum over j of recurrence[j][k] times column j.
    std::array<std::array<double, HighestPolynomialDegree + 1>, HighestPolynomialDegree + 1> recurrence{};
    int direction = 0; ///< 1 points nowhere fall, -1 nowhere rise, 0 neither
};

} // namespace Lintab
