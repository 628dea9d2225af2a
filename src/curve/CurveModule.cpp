#include "curve/CurveModule.h"

#include "controls/Boxes.h"
#include "curve/ReferenceCurve.h"
#include "display/ReferencePictureModule.h"
#include "measure/RunState.h"
#include "platform/RuntimeError.h"
#include "shell/ActiveProject.h"
#include "shell/MainModule.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::int32_t PlaceholderCount = 2;

void Warn(const QString &english, const QString &chinese)
{
    ExclamationBox(Wording(english, chinese));
}

/// The checks ahead of a build, in their order.
bool TableMayBeApplied(int slot)
{
    const ReferenceRows &rows = ReferenceTable[slot];
    if (Measuring) {
        Warn(QStringLiteral("Currently the software only allows one measurement, please close running measurement! "),
             QStringLiteral("目前软件只允许一个测量工作，请关闭当前的测量工作! "));
        return false;
    }
    // Required: tested ahead of the count, so that an empty table is refused here.
    if (!rows[1].Segment) {
        Warn(QStringLiteral("The first point must be a segment point! "), QStringLiteral("第一个点必须是分段点! "));
        return false;
    }
    if (std::ranges::count_if(rows, &ReferencePoint::Used) < 2) {
        Warn(QStringLiteral("At least 2 points are required! "), QStringLiteral("点数要大于2! "));
        return false;
    }
    return true;
}

void RefuseBuild(int slot, std::uint8_t result)
{
    if (result == BuildOutOfMemory) {
        Warn(QStringLiteral("Out of memory! "), QStringLiteral("内存不够! "));
    } else {
        // Required: five points are enough, whatever the English text says.
        Warn(QStringLiteral("The number of least squares dot must be more than 5! "),
             QStringLiteral("最小二乘法至少需要5个参考点! "));
    }
    // Required: the flag of a project that was applied before stays, although its curve is gone.
    ProjectSlots[slot].CurveApplied = false;
}

/// Ranges, axes and curve of a slot whose points and count are in place.
/// @throws RuntimeError 9 when there is no point
void PublishCurve(int slot)
{
    ReferenceCurve &curve = ReferenceCurves[slot];
    const double highest = MaxCurveOutput(curve.Points, curve.Count);
    curve.XMin = curve.Points.front().X;
    curve.XMax = curve.Points[static_cast<std::size_t>(curve.Count) - 1].X;
    curve.YMax = highest;
    curve.YMin = MinCurveOutput(curve.Points, curve.Count);
    // Required: ahead of the two tests, so that the axes of a refused curve stay on the screen.
    DrawReferenceAxes(slot);
    if (curve.Count < 2) {
        ProjectSlots[slot].CurveApplied = false;
        return;
    }
    if (curve.YMax == curve.YMin) {
        // Ahead of the box: a resize under it would draw a curve that cannot be drawn.
        ProjectSlots[slot].CurveApplied = false;
        Warn(QStringLiteral("Simulation data is not meaningful, non-implementation of this software application! "),
             QStringLiteral("数据没有仿真意义，软件不执行此次应用! "));
        return;
    }
    DrawReferenceCurve(slot, true);
}

} // namespace

void mnuPopEditDataApply()
{
    const int slot = ActiveSlot();
    if (!TableMayBeApplied(slot))
        return;
    const std::uint8_t result = BuildReferenceCurve(slot);
    if (result == BuildOutOfMemory || result == BuildTooFewLeastPoints) {
        RefuseBuild(slot, result);
        return;
    }
    for (ProjectSlot &project : ProjectSlots)
        project.CurveApplied = false;
    ProjectSlots[slot].CurveApplied = true;
    ApplyReferenceCurve(slot);
}

void ApplyReferenceCurve(int slot)
{
    const std::int32_t count = LastUsedRow(slot);
    ReferenceCurves[slot].Count = count;
    FillCurveArrays(slot, count);
    PublishCurve(slot);
}

void ApplyPlaceholderCurve(int slot)
{
    ReferenceCurve &curve = ReferenceCurves[CheckedSlot(slot)];
    curve.Count = PlaceholderCount;
    // Required: element 0 stays as it is, and the loop runs one place beyond Count. Not to be repaired.
    for (std::size_t i = 1; i <= PlaceholderCount; ++i) {
        if (i >= std::min(curve.Points.size(), curve.Flags.size()))
            throw RuntimeError(ErrorNumber::OutOfRange);
        curve.Points[i] = {static_cast<double>(i), static_cast<double>(i)};
        curve.Flags[i].IsSegment = i == 1 ? 1 : 0;
        curve.Flags[i].Arithmetic = 0;
    }
    PublishCurve(slot);
}
