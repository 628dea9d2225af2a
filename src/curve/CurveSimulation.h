/// @file
/// The simulation of a reference curve: the curve library's answer for every pixel column of the picture.
#pragma once

#include "curve/ReferenceCurve.h"

#include <cstdint>
#include <span>
#include <vector>

/// The points that a picture shows and its horizontal range, in the input unit.
struct CurveView {
    std::span<const CurvePoint> Points; ///< ascending in X
    std::span<const CurveFlag> Flags;
    std::int32_t Count = 0;
    double XMin = 0;
    double XMax = 0;
};

/// A part of the curve that is drawn with one pen.
struct CurveStretch {
    std::int32_t Column = 0;     ///< first column
    std::uint8_t Arithmetic = 0; ///< of the segment point that opens it
};

struct CurveSimulation {
    std::int32_t FirstColumn = 0;
    std::int32_t LastColumn = 0;
    std::vector<CurvePoint> Simulated;   ///< one point a column, from FirstColumn on
    std::vector<CurveStretch> Stretches; ///< in the order of their columns; the last one ends at LastColumn
};

/// First and last index of the points that lie within a horizontal range.
struct PointsInView {
    std::int32_t First = 0;
    std::int32_t Last = 0;
};

/// True when at least one point can be in view: the first is not above XMax, the last not below XMin.
bool AnyPointInView(const CurveView &view);

/// First: the first point not below XMin. Last: the last one before the first that exceeds XMax.
/// @throws RuntimeError 9 when no point is in view
PointsInView FindPointsInView(const CurveView &view);

/// Evaluates the curve that the library holds once per pixel column.
/// @param width scale width of the picture in pixels
/// @throws RuntimeError 11 when XMax equals XMin, 6 when a column does not fit, 9 when no point is in view
CurveSimulation SimulateCurve(const CurveView &view, std::int32_t width);
