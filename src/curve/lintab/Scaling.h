/// @file
/// Powers of two as units, which keep sums of squares and differences inside the range of a double without any
/// rounding.
#pragma once

#include <cmath>
#include <limits>

namespace Lintab {

inline constexpr double LargestNumber = std::numeric_limits<double>::max();

/// The nearest finite number. A NaN stays one.
inline double Saturated(double value)
{
    if (value > LargestNumber)
        return LargestNumber;
    return value < -LargestNumber ? -LargestNumber : value;
}

/// The largest power of two not above `magnitude` (finite, not negative); 1 for 0.
inline double PowerOfTwoBelow(double magnitude)
{
    return magnitude > 0 ? std::ldexp(1.0, std::ilogb(magnitude)) : 1.0;
}

} // namespace Lintab
