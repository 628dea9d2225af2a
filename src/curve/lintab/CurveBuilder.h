/// @file
/// From the rows of a table to a curve: cuts them into stretches, fits the "Least" ones, and joins them.
#pragma once

#include "curve/lintab/Curve.h"
#include "curve/lintab/Lintab.h"

#include <memory>
#include <span>

namespace Lintab {

inline constexpr int LeastPointsNeeded = 5; ///< own points that a "Least" stretch must have

/// The curve through `points`, at least one, with as many `flags`. Null when a "Least" stretch has too few points.
/// @throws std::bad_alloc
std::unique_ptr<const Curve> BuildCurve(std::span<const CurvePoint> points, std::span<const CurveFlag> flags);

} // namespace Lintab
