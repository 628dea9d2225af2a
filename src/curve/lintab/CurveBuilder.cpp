/// @file
/// See CurveBuilder.h.
#include "curve/lintab/CurveBuilder.h"

#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Scaling.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

namespace Lintab {

namespace {

/// The points from one segment point to the next.
struct Stretch {
    std::size_t First = 0; ///< index of the point that opens it
    std::size_t Last = 0;  ///< index of the point that closes it: the next segment point, or the last point
    bool IsLeast = false;
    double StartX = 0;
    double EndX = 0;
    Polynomial Fit; ///< of a "Least" stretch

    bool HasWidth() const { return StartX < EndX; }
};

/// The first of the numbers that is one, saturated; 0 when none is.
double FirstNumber(std::span<const CurvePoint> points, double CurvePoint::*coordinate)
{
    const auto found = std::find_if(points.begin(), points.end(),
                                    [coordinate](const CurvePoint &point) { return !std::isnan(point.*coordinate); });
    return found == points.end() ? 0.0 : Saturated((*found).*coordinate);
}

/// Copy of the points that is finite and ascending in X, whatever they are.
std::vector<CurvePoint> TablePoints(std::span<const CurvePoint> points)
{
    double x = FirstNumber(points, &CurvePoint::X);
    double y = FirstNumber(points, &CurvePoint::Y);
    std::vector<CurvePoint> table;
    table.reserve(points.size());
    for (const CurvePoint &point : points) {
        if (!std::isnan(point.X))
            x = std::max(x, Saturated(point.X));
        if (!std::isnan(point.Y))
            y = Saturated(point.Y);
        table.push_back({x, y});
    }
    return table;
}

/// The power of two that brings the largest |X| near 1, as near as the range of a double allows. X that differ by less
/// than 2^-1074 of the largest may come to be equal.
double FactorFor(std::span<const CurvePoint> ascending)
{
    const double largest = std::max(std::abs(ascending.front().X), std::abs(ascending.back().X));
    return largest > 0 ? std::ldexp(1.0, std::clamp(-std::ilogb(largest), -1022, 1022)) : 1.0;
}

/// Finds the stretches and fits the "Least" ones, each for itself. None when one of those has too few points.
std::optional<std::vector<Stretch>> CutIntoStretches(std::span<const CurvePoint> points,
                                                     std::span<const CurveFlag> flags)
{
    std::vector<Stretch> stretches;
    for (std::size_t first = 0; first < points.size();) {
        std::size_t next = first + 1;
        while (next < points.size() && flags[next].IsSegment == 0)
            ++next;
        const std::size_t last = std::min(next, points.size() - 1);
        Stretch stretch{.First = first,
                        .Last = last,
                        .IsLeast = flags[first].Arithmetic == 1,
                        .StartX = points[first].X,
                        .EndX = points[last].X,
                        .Fit = {}};
        if (stretch.IsLeast) {
            if (next - first < LeastPointsNeeded)
                return {};
            stretch.Fit = LeastSquares(points.subspan(first, last - first + 1)).Best();
        }
        stretches.push_back(stretch);
        first = next;
    }
    return stretches;
}

/// The curve's value where each stretch starts, and behind these where the last one ends. Two fits meet at the mean of
/// their values, a fit beside straight lines goes to the point.
std::vector<double> JointsOf(std::span<const CurvePoint> points, const std::vector<Stretch> &stretches)
{
    const Stretch &first = stretches.front();
    std::vector<double> joints{first.IsLeast ? ValueAt(first.Fit, first.StartX) : points.front().Y};
    for (std::size_t i = 1; i < stretches.size(); ++i) {
        const Stretch &left = stretches[i - 1];
        const Stretch &right = stretches[i];
        const bool bothLeast = left.IsLeast && right.IsLeast;
        joints.push_back(bothLeast ? std::midpoint(ValueAt(left.Fit, left.EndX), ValueAt(right.Fit, right.StartX))
                                   : points[right.First].Y);
    }
    const Stretch &last = stretches.back();
    if (!last.IsLeast) {
        joints.push_back(points.back().Y);
    } else {
        joints.push_back(last.HasWidth() ? ValueAt(last.Fit, last.EndX) : joints.back());
    }
    return joints;
}

/// Moves the fits to the joints at their ends.
void JoinFits(std::vector<Stretch> &stretches, const std::vector<double> &joints)
{
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        Stretch &stretch = stretches[i];
        if (stretch.IsLeast && stretch.HasWidth())
            stretch.Fit = PinnedAtEnds(stretch.Fit, joints[i], joints[i + 1]);
    }
}

/// Slope from one point to the next, rounded so that no value between them passes the second. Not finite when it is out
/// of range.
double SlopeBetween(const CurvePoint &from, const CurvePoint &to)
{
    const double width = to.X - from.X;
    double slope = (to.Y - from.Y) / width;
    const auto passes = [&from, &to, width](double candidate) {
        const double reached = from.Y + width * candidate;
        return to.Y > from.Y ? reached > to.Y : reached < to.Y;
    };
    while (std::isfinite(slope) && passes(slope))
        slope = std::nextafter(slope, 0.0);
    return slope;
}

/// What the curve is made of, as it grows from stretch to stretch.
struct Parts {
    std::vector<double> Starts;
    std::vector<Piece> Pieces;
    std::vector<Polynomial> Fits;

    void AddFit(double x, double y, const Polynomial &fit)
    {
        Starts.push_back(x);
        Pieces.push_back({.Y = y, .Fit = static_cast<int>(Fits.size())});
        Fits.push_back(fit);
    }

    void AddStraight(const CurvePoint &from, const CurvePoint &to)
    {
        const double slope = SlopeBetween(from, to);
        if (std::isfinite(slope)) {
            Starts.push_back(from.X);
            Pieces.push_back({.Y = from.Y, .Slope = slope});
            return;
        }
        // A polynomial has a unit of its own, and divides by the width.
        Polynomial flat;
        flat.Frame = {.Start = from.X, .HalfWidth = (to.X - from.X) / 2};
        AddFit(from.X, from.Y, PinnedAtEnds(flat, from.Y, to.Y));
    }
};

/// The pieces with a width. Of points at one x the last one opens the piece behind them.
Parts PartsOf(std::span<const CurvePoint> points, const std::vector<Stretch> &stretches,
              const std::vector<double> &joints)
{
    Parts parts;
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        const Stretch &stretch = stretches[i];
        if (stretch.IsLeast) {
            if (stretch.HasWidth())
                parts.AddFit(stretch.StartX, joints[i], stretch.Fit);
            continue;
        }
        for (std::size_t row = stretch.First; row < stretch.Last; ++row) {
            if (points[row].X < points[row + 1].X)
                parts.AddStraight(points[row], points[row + 1]);
        }
    }
    parts.Starts.push_back(points.back().X);
    return parts;
}

/// The line beyond the end `x` of the curve, with the slope that the piece beside it has there.
Tail TailAt(double x, double value, const Piece &piece, const std::vector<Polynomial> &fits)
{
    if (piece.Fit != Piece::Straight) {
        const Polynomial &fit = fits[piece.Fit];
        // Behind the last fit, rows of the same x may have led to a value far above the fit's.
        const double scale = std::max(fit.Frame.Scale, PowerOfTwoBelow(std::abs(value)));
        return {x, value, scale, SlopeAt(fit, x) * (fit.Frame.Scale / scale)};
    }
    const double scale = PowerOfTwoBelow(std::max(std::abs(value), std::abs(piece.Slope)));
    return {x, value, scale, piece.Slope / scale};
}

} // namespace

std::unique_ptr<const Curve> BuildCurve(std::span<const CurvePoint> points, std::span<const CurveFlag> flags)
{
    std::vector<CurvePoint> table = TablePoints(points);
    const double factor = FactorFor(table);
    for (CurvePoint &point : table)
        point.X *= factor;
    std::optional<std::vector<Stretch>> stretches = CutIntoStretches(table, flags);
    if (!stretches)
        return nullptr;
    const std::vector<double> joints = JointsOf(table, *stretches);
    JoinFits(*stretches, joints);
    Parts parts = PartsOf(table, *stretches, joints);
    const double lastValue = joints.back();
    Tail start{table.front().X, lastValue, 1, 0};
    Tail end{table.back().X, lastValue, 1, 0};
    if (!parts.Pieces.empty()) {
        start = TailAt(start.X, parts.Pieces.front().Y, parts.Pieces.front(), parts.Fits);
        end = TailAt(end.X, lastValue, parts.Pieces.back(), parts.Fits);
    }
    return std::make_unique<const Curve>(factor, start, end, std::move(parts.Starts), std::move(parts.Pieces),
                                         std::move(parts.Fits));
}

} // namespace Lintab
