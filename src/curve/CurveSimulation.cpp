#include "curve/CurveSimulation.h"

#include "platform/NumberText.h"
#include "platform/RuntimeError.h"

#include <algorithm>

namespace {

void CheckArrays(const CurveView &view)
{
    const std::size_t held = std::min(view.Points.size(), view.Flags.size());
    if (view.Count < 1 || static_cast<std::size_t>(view.Count) > held)
        throw RuntimeError(ErrorNumber::OutOfRange);
}

/// The segment points with their pixel columns, ascending, as the columns are gone through.
std::vector<CurveStretch> SegmentColumns(const CurveView &view, double xScale)
{
    std::vector<CurveStretch> segments;
    for (std::int32_t i = 0; i < view.Count; ++i) {
        if (view.Flags[i].IsSegment == 1)
            segments.push_back({RoundToInt32((view.Points[i].X - view.XMin) * xScale), view.Flags[i].Arithmetic});
    }
    return segments;
}

/// Arithmetic of the last segment point at or before a column, 0 when there is none.
std::uint8_t ArithmeticAt(const std::vector<CurveStretch> &segments, std::int32_t column)
{
    const auto last = std::find_if(segments.rbegin(), segments.rend(),
                                   [column](const CurveStretch &segment) { return segment.Column <= column; });
    return last == segments.rend() ? std::uint8_t{0} : last->Arithmetic;
}

std::vector<CurveStretch> FindStretches(const CurveView &view, double xScale, std::int32_t firstColumn,
                                        std::int64_t columns)
{
    std::vector<CurveStretch> segments = SegmentColumns(view, xScale);
    std::vector<CurveStretch> stretches{{firstColumn, ArithmeticAt(segments, firstColumn)}};
    // The columns are gone through in order, and at each of them the segment points in order.
    std::ranges::stable_sort(segments, {}, &CurveStretch::Column);
    for (const CurveStretch &segment : segments) {
        const std::int64_t i = std::int64_t{segment.Column} - firstColumn;
        // Required: the recorded column counts from the first one, so that a picture whose first column is not 0 has
        // its boundaries shifted to the left. Both numbers agree in every picture after Apply; not to be repaired.
        if (i >= 1 && i <= columns - 2)
            stretches.push_back({static_cast<std::int32_t>(i), segment.Arithmetic});
    }
    return stretches;
}

} // namespace

bool AnyPointInView(const CurveView &view)
{
    CheckArrays(view);
    return !(view.Points[0].X > view.XMax || view.Points[view.Count - 1].X < view.XMin);
}

PointsInView FindPointsInView(const CurveView &view)
{
    CheckArrays(view);
    PointsInView range;
    while (range.First < view.Count && !(view.Points[range.First].X >= view.XMin))
        ++range.First;
    range.Last = -1;
    while (range.Last + 1 < view.Count && !(view.Points[range.Last + 1].X > view.XMax))
        ++range.Last;
    if (range.First >= view.Count || range.Last < 0)
        throw RuntimeError(ErrorNumber::OutOfRange);
    return range;
}

CurveSimulation SimulateCurve(const CurveView &view, std::int32_t width)
{
    const PointsInView range = FindPointsInView(view);
    const double step = Quotient(view.XMax - view.XMin, width);
    const double xScale = Quotient(width, view.XMax - view.XMin);

    CurveSimulation simulation;
    simulation.FirstColumn = range.First > 0 ? 0 : RoundToInt32((view.Points[0].X - view.XMin) * xScale);
    simulation.LastColumn =
        range.Last < view.Count - 1 ? width - 1 : RoundToInt32((view.Points[view.Count - 1].X - view.XMin) * xScale);
    const std::int64_t columns = std::int64_t{simulation.LastColumn} - simulation.FirstColumn + 1;
    if (columns < 1)
        throw RuntimeError(ErrorNumber::OutOfRange);
    for (std::int64_t i = 0; i < columns; ++i) {
        const double x = view.XMin + static_cast<double>(simulation.FirstColumn + i) * step;
        simulation.Simulated.push_back({x, SEN_Meas_Z(x)});
    }
    simulation.Stretches = FindStretches(view, xScale, simulation.FirstColumn, columns);
    return simulation;
}
