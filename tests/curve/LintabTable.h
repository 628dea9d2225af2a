/// @file
/// Tables of points for the tests of the curve library, and what is asked of a curve again and again.
#pragma once

#include "curve/lintab/Lintab.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

inline constexpr std::uint8_t Line = 0;
inline constexpr std::uint8_t Least = 1;
inline constexpr double Largest = std::numeric_limits<double>::max();
inline constexpr double Infinity = std::numeric_limits<double>::infinity();
inline constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double Denormal = std::numeric_limits<double>::denorm_min();

/// Rows as a reference table hands them to the library.
struct Table {
    std::vector<CurvePoint> Points;
    std::vector<CurveFlag> Flags;

    void Add(double x, double y) { AddRow(x, y, Line, 0); }
    void Open(double x, double y, std::uint8_t arithmetic) { AddRow(x, y, arithmetic, 1); }
    std::uint8_t Build() const
    {
        return SEN_NewBuild_Z(static_cast<std::int32_t>(Points.size()), Points.data(), Flags.data());
    }

private:
    void AddRow(double x, double y, std::uint8_t arithmetic, std::uint8_t isSegment)
    {
        Points.push_back({x, y});
        Flags.push_back({arithmetic, isSegment});
    }
};

/// One stretch over all points.
inline Table OneStretch(const std::vector<CurvePoint> &points, std::uint8_t arithmetic)
{
    Table table;
    for (const CurvePoint &point : points) {
        if (table.Points.empty()) {
            table.Open(point.X, point.Y, arithmetic);
        } else {
            table.Add(point.X, point.Y);
        }
    }
    return table;
}

inline std::vector<CurvePoint> PointsOn(double (*function)(double), double from, double step, int count)
{
    std::vector<CurvePoint> points;
    for (int i = 0; i < count; ++i)
        points.push_back({from + i * step, function(from + i * step)});
    return points;
}

/// Both ends and what lies between them in even steps.
inline std::vector<double> Steps(double from, double to, double step)
{
    const auto count = static_cast<std::size_t>(std::floor((to - from) / step)) + 1;
    std::vector<double> steps(count);
    for (std::size_t i = 0; i < count; ++i)
        steps[i] = from + static_cast<double>(i) * step;
    return steps;
}

inline std::uint64_t BitsOf(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

/// Bits of the curve held at `x`: what is to be exact is compared by them, since QCOMPARE lets doubles differ a little.
inline std::uint64_t MeasuredBits(double x)
{
    return BitsOf(SEN_Meas_Z(x));
}

/// Inputs that ought to be no trouble anywhere.
inline std::vector<double> AwkwardInputs()
{
    return {0.0,    -0.0, 1.0,     -1.0,     Denormal, -Denormal, 1e-300,    1e300,
            -1e300, 1e15, Largest, -Largest, Infinity, -Infinity, NotANumber};
}
