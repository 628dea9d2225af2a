/// @file
/// The nearest point that lies within several half-spaces.
#pragma once

#include "curve/lintab/ChebyshevSeries.h"

#include <cstddef>
#include <vector>

namespace Lintab {

/// The half-spaces are given one after the other, and each is the points whose inner product with its normal is not
/// negative. The nearest point is the one asked for, moved by the pushes of some of them (C. L. Lawson, R. J. Hanson,
/// 1974); those of the half-spaces before are where the search for the next begins.
class HalfSpaces {
public:
    /// @param point that is asked for
    explicit HalfSpaces(const PerDegree &point);

    /// One more half-space.
    /// @param normal of length 1
    /// @throws std::bad_alloc
    void Add(const PerDegree &normal);

    /// The point nearest to the one asked for that lies in all half-spaces, to rounding.
    const PerDegree &Nearest() const { return m_nearest; }

private:
    /// How far a half-space moves the point, along its normal.
    struct Push {
        std::size_t HalfSpace;
        double Length;
    };

    void Settle();
    bool Lengthen(const std::vector<double> &wanted);

    PerDegree m_point;
    PerDegree m_nearest;
    std::vector<PerDegree> m_normals;
    std::vector<Push> m_pushes;
};

} // namespace Lintab
