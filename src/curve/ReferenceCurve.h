/// @file
/// The reference curve of each project in the form that the curve library takes, with the view settings of its picture.
#pragma once

#include "curve/lintab/Lintab.h"
#include "platform/Measures.h"
#include "platform/MemorySurface.h"
#include "project/ProjectTable.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

struct ReferenceCurve {
    std::vector<CurvePoint> Points; ///< element i is row i + 1 of the reference table
    std::vector<CurveFlag> Flags;   ///< one per point
    std::int32_t Count = 0;         ///< points in Points that count
    bool GridVisible = true;
    ColourRef GridColor = Rgb(0, 0, 255);
    ColourRef LineDotColor = Rgb(64, 0, 64);    ///< pen of straight stretches, dots of that arithmetic
    ColourRef LeastDotColor = Rgb(255, 0, 0);   ///< the same for least squares
    ColourRef SegmentDotColor = Rgb(0, 255, 0); ///< dots of segment points
    ColourRef AbscissaColor = Rgb(0, 0, 0);
    ColourRef OrdinateColor = Rgb(255, 0, 255);
    ColourRef BackColor = Rgb(255, 255, 255);
    double YMax = 0; ///< of Points, in the output unit
    double YMin = 0;
    double XMin = 0; ///< of Points, in the input unit
    double XMax = 0;
    SurfaceHandle MemoryDC = 0;
    SurfaceHandle MemoryBitmap = 0;
};

/// What SEN_NewBuild_Z answers; any other value counts as built.
inline constexpr std::uint8_t BuildOutOfMemory = 1;
inline constexpr std::uint8_t BuildTooFewLeastPoints = 2;

/// Indexed by slot. Written by New and Open, Apply and the colour dialogue.
extern std::array<ReferenceCurve, SlotCount> ReferenceCurves;

/// Points last given to the curve library.
extern std::int32_t ReferenceRowsPassed;

/// Gives a slot's curve the values of a new project, 500 empty points among them; the memory surface stays.
/// @param backColour back colour of the picture
void ResetReferenceCurve(int slot, ColourRef backColour);

/// Fills elements 0 to count - 1 of a slot's arrays from rows 1 to count of its reference table.
/// @throws RuntimeError 9 when the arrays are shorter
void FillCurveArrays(int slot, std::int32_t count);

/// Fills the arrays of a slot anew and has the curve library build its one curve from them; the curve held before is
/// released. Writes ReferenceRowsPassed.
/// @return the library's result: BuildOutOfMemory, BuildTooFewLeastPoints, or built
std::uint8_t BuildReferenceCurve(int slot);

/// Largest and smallest Y of elements 0 to count - 1. @throws RuntimeError 9 when count is not 1 to the number of
/// points
double MaxCurveOutput(std::span<const CurvePoint> points, std::int32_t count);
double MinCurveOutput(std::span<const CurvePoint> points, std::int32_t count);

/// Empties all curves and forgets their surfaces.
void ResetReferenceCurveTable();
