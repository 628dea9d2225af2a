/// @file
/// A reference curve: its points, cut into stretches, and what it is at any x.
#pragma once

#include "curve/lintab/Lintab.h"
#include "curve/lintab/Polynomial.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace Lintab {

inline constexpr std::size_t LeastPointsNeeded = 5; ///< own points that a "Least" stretch must have

/// Never changes once built. All its x are the table's x times one power of two, so that no difference of two
/// overflows.
class Curve {
public:
    /// The curve through `points`, at least one, with as many `flags`. Null when a "Least" stretch has too few points.
    /// @throws std::bad_alloc
    static std::unique_ptr<const Curve> Build(std::span<const CurvePoint> points, std::span<const CurveFlag> flags);

    /// y at any `x`, NaN and infinities included; always finite, never allocates.
    double ValueAt(double x) const;

private:
    struct Stretch {
        std::size_t First = 0; ///< index of the point that opens it
        std::size_t Last = 0;  ///< index of the point that closes it: the next segment point, or the last point
        bool IsLeast = false;
        double StartX = 0;
        double EndX = 0;
        double StartY = 0; ///< the curve's value at StartX, exactly
        double EndY = 0;   ///< the curve's value just before EndX
        Polynomial Fit;    ///< of a "Least" stretch
    };

    /// The straight line beyond an end of the curve: y = (Value / Scale + Slope * (x - X)) * Scale.
    struct Tail {
        double X = 0;
        double Value = 0;
        double Scale = 1;
        double Slope = 0;
    };

    bool CutIntoStretches(std::span<const CurveFlag> flags);
    void JoinStretches();
    Tail StartTail() const;
    Tail EndTail() const;
    Tail TailAt(double x, const Stretch &stretch, std::size_t left) const;
    double InsideAt(double x) const;
    double LineAt(const Stretch &stretch, double x) const;
    static double BeyondAt(const Tail &tail, double x);

    double xFactor = 1;             ///< a power of two; the table's x times this are the curve's x
    std::vector<CurvePoint> points; ///< finite, ascending in X
    std::vector<Stretch> stretches; ///< ascending in StartX, never empty
    Tail start;
    Tail end;
};

} // namespace Lintab
