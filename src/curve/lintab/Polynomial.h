/// @file
/// The polynomial of a "Least" stretch, as a Chebyshev series in u, the x of the stretch mapped to -1 to 1.
#pragma once

#include <array>

namespace Lintab {

inline constexpr int HighestPolynomialDegree = 8;

/// y = Scale * sum of Coefficients[k] * T_k(u), with u = (x - Centre) / HalfWidth.
struct Polynomial {
    double Centre = 0;    ///< x where u is 0
    double HalfWidth = 0; ///< x from u = 0 to u = 1; 0 when the stretch has one x only, u is 0 then
    double Scale = 1;     ///< a power of two, the unit of the coefficients
    int Degree = 0;       ///< 0 to HighestPolynomialDegree
    std::array<double, HighestPolynomialDegree + 1> Coefficients{}; ///< index k, 0 above Degree
};

/// Position of `x` in the stretch, -1 at its start and 1 at its end.
double PositionAt(const Polynomial &polynomial, double x);

/// y at `x`, saturated to finite numbers.
double ValueAt(const Polynomial &polynomial, double x);

/// dy/dx at `x` in units of Scale. Infinite where the stretch is too narrow for a finite slope.
double SlopeAt(const Polynomial &polynomial, double x);

/// The polynomial plus the straight line that makes it `startValue` at u = -1 and `endValue` at u = 1.
Polynomial PinnedAtEnds(const Polynomial &polynomial, double startValue, double endValue);

/// True when every coefficient is a finite number.
bool IsFinite(const Polynomial &polynomial);

/// True when the polynomial nowhere falls (direction 1) or nowhere rises (direction -1) for u from -1 to 1. A slope the
/// wrong way that is within rounding of 0 is let pass.
bool IsMonotone(const Polynomial &polynomial, int direction);

} // namespace Lintab
