/// @file
/// Chebyshev series of low degree: the sum of series[k] * T_k(u), for u from -1 to 1.
#pragma once

#include <array>

namespace Lintab {

inline constexpr int HighestPolynomialDegree = 8;

using PerDegree = std::array<double, HighestPolynomialDegree + 1>; ///< a number for each degree

/// Value of a series at `u`.
double SeriesAt(const PerDegree &series, int degree, double u);

/// Series of the slope over u, one degree lower.
PerDegree DerivativeOf(const PerDegree &series, int degree);

/// Series of u times a series whose degree is below HighestPolynomialDegree.
PerDegree TimesPosition(const PerDegree &series);

} // namespace Lintab
