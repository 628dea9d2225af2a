/// @file
/// The C interface of the curve library, and the one curve of the process behind it.
#include "curve/lintab/Lintab.h"

#include "curve/lintab/Curve.h"
#include "curve/lintab/CurveBuilder.h"

#include <cstddef>
#include <memory>
#include <span>

namespace {

constexpr std::uint8_t Built = 0;
constexpr std::uint8_t OutOfMemory = 1;
constexpr std::uint8_t TooFewLeastPoints = 2;

/// The curve held, or none. Written by SEN_Free and SEN_NewBuild_Z.
constinit std::unique_ptr<const Lintab::Curve> heldCurve;

/// The piece of the curve that the last evaluation found. Never changes a result.
constinit std::size_t lastPiece = 0;

} // namespace

void SEN_Free() noexcept
{
    heldCurve.reset();
}

std::uint8_t SEN_NewBuild_Z(std::int32_t count, const CurvePoint *points, const CurveFlag *flags) noexcept
{
    heldCurve.reset();
    if (count <= 0 || points == nullptr || flags == nullptr)
        return Built;
    // Nothing but a lack of memory is thrown below; whatever it were, it must not cross this interface.
    try {
        const auto size = static_cast<std::size_t>(count);
        heldCurve = Lintab::BuildCurve(std::span(points, size), std::span(flags, size));
    } catch (...) {
        return OutOfMemory;
    }
    return heldCurve ? Built : TooFewLeastPoints;
}

double SEN_Meas_Z(double x) noexcept
{
    return heldCurve ? heldCurve->ValueAt(x, lastPiece) : 0.0;
}
