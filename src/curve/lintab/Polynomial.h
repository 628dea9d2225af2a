/// @file
/// The polynomial of a "Least" stretch, as a Chebyshev series in u, the x of the stretch mapped to -1 to 1.
#pragma once

#include "curve/lintab/ChebyshevSeries.h"

namespace Lintab {

/// What x and y of a stretch are counted in: u = (x - Start) / HalfWidth - 1, which rounding leaves exact at both ends
/// (widths of a few denormal numbers apart), and y / Scale.
struct StretchFrame {
    double Start = 0;     ///< x where u is -1
    double HalfWidth = 0; ///< x from u = -1 to u = 0; 0 when the stretch has one x only, u is 0 then
    double Scale = 1;     ///< a power of two
};

/// y = Scale * sum of Coefficients[k] * T_k(u).
struct Polynomial {
    StretchFrame Frame;
    int Degree = 0;           ///< 0 to HighestPolynomialDegree
    PerDegree Coefficients{}; ///< index k, 0 above Degree
};

/// Position of `x` in the stretch, -1 at its start and 1 at its end.
double PositionAt(const StretchFrame &frame, double x);

/// y at `x`, saturated to finite numbers.
double ValueAt(const Polynomial &polynomial, double x);

/// dy/dx at `x` in units of Scale. Infinite where the stretch is too narrow for a finite slope, 0 where it has no
/// width.
double SlopeAt(const Polynomial &polynomial, double x);

/// The polynomial plus the straight line that makes it `startValue` at u = -1 and `endValue` at u = 1.
Polynomial PinnedAtEnds(const Polynomial &polynomial, double startValue, double endValue);

/// A place in the stretch and the slope there, dy/du in units of Scale.
struct SlopeAtPlace {
    double U = 0;
    double Slope = 0;
    double Rounding =
        0; ///< slope that counts as 0: a billionth of the largest coefficient of the slope's Bernstein form
};

/// Where direction * dy/du is lowest for u from -1 to 1, to rounding, and its value there.
/// @param direction 1 for a polynomial that is to rise, -1 for one that is to fall
SlopeAtPlace LowestSlope(const Polynomial &polynomial, int direction);

/// True when the polynomial nowhere falls (direction 1) or nowhere rises (direction -1) for u from -1 to 1. A slope the
/// wrong way that is within rounding of 0 is let pass.
bool IsMonotone(const Polynomial &polynomial, int direction);

} // namespace Lintab
