/// @file
/// See Curve.h.
#include "curve/lintab/Curve.h"

#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Scaling.h"

#include <algorithm>
#include <cmath>

namespace Lintab {

namespace {

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
    CurvePoint last = {FirstNumber(points, &CurvePoint::X), FirstNumber(points, &CurvePoint::Y)};
    std::vector<CurvePoint> table;
    table.reserve(points.size());
    for (const CurvePoint &point : points) {
        if (!std::isnan(point.X))
            last.X = std::max(last.X, Saturated(point.X));
        if (!std::isnan(point.Y))
            last.Y = Saturated(point.Y);
        table.push_back(last);
    }
    return table;
}

/// The power of two that brings the largest |X| near 1, as near as the range of a double allows.
double FactorFor(std::span<const CurvePoint> ascending)
{
    const double largest = std::max(std::abs(ascending.front().X), std::abs(ascending.back().X));
    return largest > 0 ? std::ldexp(1.0, std::clamp(-std::ilogb(largest), -1022, 1022)) : 1.0;
}

} // namespace

std::unique_ptr<const Curve> Curve::Build(std::span<const CurvePoint> points, std::span<const CurveFlag> flags)
{
    auto curve = std::make_unique<Curve>();
    curve->points = TablePoints(points);
    curve->xFactor = FactorFor(curve->points);
    for (CurvePoint &point : curve->points)
        point.X *= curve->xFactor;
    if (!curve->CutIntoStretches(flags))
        return nullptr;
    curve->JoinStretches();
    curve->start = curve->StartTail();
    curve->end = curve->EndTail();
    return curve;
}

/// Finds the stretches and fits the "Least" ones, each for itself. False when one of those has too few points.
bool Curve::CutIntoStretches(std::span<const CurveFlag> flags)
{
    const std::size_t count = points.size();
    for (std::size_t first = 0; first < count;) {
        std::size_t next = first + 1;
        while (next < count && flags[next].IsSegment == 0)
            ++next;
        Stretch stretch;
        stretch.First = first;
        stretch.Last = std::min(next, count - 1);
        stretch.IsLeast = flags[first].Arithmetic == 1;
        stretch.StartX = points[stretch.First].X;
        stretch.EndX = points[stretch.Last].X;
        stretch.StartY = points[stretch.First].Y;
        stretch.EndY = points[stretch.Last].Y;
        if (stretch.IsLeast) {
            if (next - first < LeastPointsNeeded)
                return false;
            stretch.Fit = LeastSquares(std::span(points).subspan(first, stretch.Last - first + 1)).Best();
            stretch.StartY = Lintab::ValueAt(stretch.Fit, stretch.StartX);
            stretch.EndY = Lintab::ValueAt(stretch.Fit, stretch.EndX);
        }
        stretches.push_back(stretch);
        first = next;
    }
    return true;
}

/// Makes the curve continuous at its inner segment points: two fits meet at the mean of their values, a fit beside
/// straight lines goes to the point.
void Curve::JoinStretches()
{
    for (std::size_t i = 1; i < stretches.size(); ++i) {
        Stretch &left = stretches[i - 1];
        Stretch &right = stretches[i];
        const bool bothLeast = left.IsLeast && right.IsLeast;
        const double joint = bothLeast ? std::lerp(left.EndY, right.StartY, 0.5) : points[right.First].Y;
        left.EndY = joint;
        right.StartY = joint;
    }
    for (Stretch &stretch : stretches) {
        if (stretch.IsLeast && stretch.StartX < stretch.EndX)
            stretch.Fit = PinnedAtEnds(stretch.Fit, stretch.StartY, stretch.EndY);
    }
}

/// The line before the first point: the slope is that of the first stretch with any width.
Curve::Tail Curve::StartTail() const
{
    const double x = points.front().X;
    const auto stretch = std::find_if(stretches.begin(), stretches.end(),
                                      [](const Stretch &candidate) { return candidate.StartX < candidate.EndX; });
    if (stretch == stretches.end())
        return {x, InsideAt(x), 1, 0};
    std::size_t left = stretch->First;
    while (points[left + 1].X == x)
        ++left;
    return TailAt(x, *stretch, left);
}

/// The line behind the last point: the slope is that of the last stretch with any width.
Curve::Tail Curve::EndTail() const
{
    const double x = points.back().X;
    const auto stretch = std::find_if(stretches.rbegin(), stretches.rend(),
                                      [](const Stretch &candidate) { return candidate.StartX < candidate.EndX; });
    if (stretch == stretches.rend())
        return {x, InsideAt(x), 1, 0};
    std::size_t left = stretch->Last - 1;
    while (points[left].X == x)
        --left;
    return TailAt(x, *stretch, left);
}

/// The line through the curve at its end `x`, with the slope of `stretch` there; in a "Line" stretch that is the slope
/// between the points `left` and `left` + 1.
Curve::Tail Curve::TailAt(double x, const Stretch &stretch, std::size_t left) const
{
    const double value = InsideAt(x);
    if (stretch.IsLeast) {
        const double scale = std::max(stretch.Fit.Scale, PowerOfTwoBelow(std::abs(value)));
        return {x, value, scale, SlopeAt(stretch.Fit, x) * (stretch.Fit.Scale / scale)};
    }
    const CurvePoint &from = points[left];
    const CurvePoint &to = points[left + 1];
    const double scale = PowerOfTwoBelow(std::max({std::abs(value), std::abs(from.Y), std::abs(to.Y)}));
    return {x, value, scale, (to.Y / scale - from.Y / scale) / (to.X - from.X)};
}

double Curve::ValueAt(double x) const
{
    if (std::isnan(x))
        return start.Value;
    const double scaled = Saturated(x * xFactor);
    if (scaled < start.X)
        return BeyondAt(start, scaled);
    if (scaled > end.X)
        return BeyondAt(end, scaled);
    return InsideAt(scaled);
}

double Curve::BeyondAt(const Tail &tail, double x)
{
    return Saturated((tail.Value / tail.Scale + tail.Slope * (x - tail.X)) * tail.Scale);
}

double Curve::InsideAt(double x) const
{
    const auto behind = std::upper_bound(stretches.begin(), stretches.end(), x,
                                         [](double value, const Stretch &stretch) { return value < stretch.StartX; });
    const Stretch &stretch = *(behind - 1);
    if (!stretch.IsLeast)
        return LineAt(stretch, x);
    if (x == stretch.StartX)
        return stretch.StartY;
    if (x == stretch.EndX)
        return stretch.EndY;
    return Lintab::ValueAt(stretch.Fit, x);
}

double Curve::LineAt(const Stretch &stretch, double x) const
{
    const CurvePoint *behind = std::upper_bound(points.data() + stretch.First, points.data() + stretch.Last + 1, x,
                                                [](double value, const CurvePoint &point) { return value < point.X; });
    const CurvePoint &from = behind[-1];
    if (x == from.X)
        return from.Y;
    return std::lerp(from.Y, behind->Y, (x - from.X) / (behind->X - from.X));
}

} // namespace Lintab
