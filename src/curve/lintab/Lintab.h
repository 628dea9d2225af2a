/// @file
/// The curve library: builds the one reference curve of the process from a table of points, and evaluates it.
///
/// A row with `IsSegment` opens a stretch of the curve, which runs to the next such row or to the last row; the first
/// row opens one in any case. The `Arithmetic` of the opening row decides the whole stretch. "Line" passes through
/// every point and is straight between neighbours. "Least" is one polynomial fitted by least squares to the points of
/// the stretch and to the segment point that closes it; where these only rise or only fall, so does the polynomial,
/// before it is moved to meet its neighbours. The curve is continuous as long as no two rows have the same X.
///
/// All three operations belong to one thread. None of them throws.
#pragma once

#include <cstdint>

#if defined(_WIN32)
#if defined(lintab_EXPORTS)
#define LINTAB_API __declspec(dllexport)
#else
#define LINTAB_API __declspec(dllimport)
#endif
#else
#define LINTAB_API __attribute__((visibility("default")))
#endif

/// One row of the reference table. The layout is part of the interface.
struct CurvePoint {
    double X = 0; ///< input of the row, in the project's input unit
    double Y = 0; ///< output of the row, in the project's output unit
};
static_assert(sizeof(CurvePoint) == 16);

/// How a row takes part in the curve. The layout is part of the interface.
struct CurveFlag {
    std::uint8_t Arithmetic = 0; ///< 0 "Line", 1 "Least"; read on rows that open a stretch
    std::uint8_t IsSegment = 0;  ///< 1 when the row opens a stretch, else 0
};
static_assert(sizeof(CurveFlag) == 2);

extern "C" {

/// Releases the curve held. Harmless when none is held.
LINTAB_API void SEN_Free() noexcept;

/// Builds the curve from `count` rows and holds it in place of the one held before. Both arrays have `count` elements
/// and are copied. Rows are ascending in X; equal X are allowed, and in a "Line" stretch the last of them holds at that
/// X.
///
/// What cannot be a table is taken as well as it goes: an X below the one before it counts as equal to it, a number
/// that is none repeats the one before it, an infinity is the largest finite number. A count of 0 or less, or a null
/// address, leaves no curve held.
///
/// @return 0 built; 1 out of memory; 2 a "Least" stretch with fewer than 5 points, the closing segment point not
///         counted. After 1 and 2 no curve is held.
LINTAB_API std::uint8_t SEN_NewBuild_Z(std::int32_t count, const CurvePoint *points, const CurveFlag *flags) noexcept;

/// The curve at `x`, in the project's output unit; always finite. Outside the span of the points the curve goes on as a
/// straight line with the value and the slope of its end, up to the largest finite number. A NaN gives the value at the
/// first point, no curve held gives 0. Never allocates, and does not depend on earlier calls.
LINTAB_API double SEN_Meas_Z(double x) noexcept;
}
