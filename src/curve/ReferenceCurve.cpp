#include "curve/ReferenceCurve.h"

#include "platform/RuntimeError.h"

#include <algorithm>

std::array<ReferenceCurve, SlotCount> ReferenceCurves;
std::int32_t ReferenceRowsPassed = 0;

namespace {

std::span<const CurvePoint> Counted(std::span<const CurvePoint> points, std::int32_t count)
{
    if (count < 1 || static_cast<std::size_t>(count) > points.size())
        throw RuntimeError(ErrorNumber::OutOfRange);
    return points.first(static_cast<std::size_t>(count));
}

bool LowerOutput(const CurvePoint &left, const CurvePoint &right)
{
    return left.Y < right.Y;
}

} // namespace

void ResetReferenceCurve(int slot, ColourRef backColour)
{
    const ReferenceCurve &old = ReferenceCurves[CheckedSlot(slot)];
    ReferenceCurve curve;
    curve.Points.resize(ReferenceRowLimit);
    curve.Flags.resize(ReferenceRowLimit);
    curve.BackColor = backColour;
    curve.MemoryDC = old.MemoryDC;
    curve.MemoryBitmap = old.MemoryBitmap;
    ReferenceCurves[slot] = std::move(curve);
}

void FillCurveArrays(int slot, std::int32_t count)
{
    const ReferenceRows &rows = ReferenceTable[CheckedSlot(slot)];
    ReferenceCurve &curve = ReferenceCurves[slot];
    const std::size_t room = std::min({curve.Points.size(), curve.Flags.size(), rows.size() - 1});
    if (count < 0 || static_cast<std::size_t>(count) > room)
        throw RuntimeError(ErrorNumber::OutOfRange);
    for (std::int32_t i = 0; i < count; ++i) {
        const ReferencePoint &row = rows[i + 1];
        curve.Points[i] = {row.Input, row.Output};
        curve.Flags[i].Arithmetic = static_cast<std::uint8_t>(row.Arithmetic & 0xFF);
        curve.Flags[i].IsSegment = row.Segment ? 1 : 0;
    }
}

std::uint8_t BuildReferenceCurve(int slot)
{
    ReferenceCurve &curve = ReferenceCurves[CheckedSlot(slot)];
    const std::int32_t count = LastUsedRow(slot);
    ReferenceRowsPassed = count;
    curve.Points.assign(static_cast<std::size_t>(count), {});
    curve.Flags.assign(static_cast<std::size_t>(count), {});
    FillCurveArrays(slot, count);
    SEN_Free();
    return SEN_NewBuild_Z(count, curve.Points.data(), curve.Flags.data());
}

double MaxCurveOutput(std::span<const CurvePoint> points, std::int32_t count)
{
    return std::ranges::max_element(Counted(points, count), LowerOutput)->Y;
}

double MinCurveOutput(std::span<const CurvePoint> points, std::int32_t count)
{
    return std::ranges::min_element(Counted(points, count), LowerOutput)->Y;
}

void ResetReferenceCurveTable()
{
    ReferenceCurves.fill({});
    ReferenceRowsPassed = 0;
}
