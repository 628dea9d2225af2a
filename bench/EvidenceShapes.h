/// @file
/// Shapes of sensor curves, and tables of points measured on them with noise.
#pragma once

#include "curve/lintab/Lintab.h"

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

/// A curve over 0 to 1 that runs from about 0 to about 1.
struct Shape {
    const char *Name;
    double (*At)(double x);
};

inline const std::vector<Shape> SmoothShapes = {
    {"parabola from its vertex", [](double x) { return x * x; }},
    {"cubic from its inflection", [](double x) { return x * x * x; }},
    {"cubic, level at both ends", [](double x) { return x * x * (3 - 2 * x); }},
    {"square root of 0.05 + x", [](double x) { return std::sqrt(0.05 + x); }},
    {"exponential, 1 to 55", [](double x) { return std::exp(4 * (x - 1)); }},
    {"exponential, 1 to 3000", [](double x) { return std::exp(8 * (x - 1)); }},
    {"saturation, 1 - exp(-6x)", [](double x) { return 1 - std::exp(-6 * x); }},
    {"S, tanh of -2 to 2", [](double x) { return 0.5 + std::tanh(4 * x - 2) / 2; }},
    {"S, tanh of -4 to 4", [](double x) { return 0.5 + std::tanh(8 * x - 4) / 2; }},
};

inline const Shape Knee = {"knee, 0 and then rising", [](double x) { return std::max(0.0, 2 * x - 1); }};

class ShapeSampler {
public:
    /// `count` points on a shape, even in x, with normal noise on y.
    std::vector<CurvePoint> Points(const Shape &shape, std::size_t count, double noise)
    {
        std::vector<CurvePoint> points;
        for (std::size_t i = 0; i < count; ++i) {
            const double x = static_cast<double>(i) / static_cast<double>(count - 1);
            points.push_back({x, shape.At(x) + noise * m_normal(m_random)});
        }
        return points;
    }

    /// A number of points from 8 to 60.
    std::size_t Count() { return 8 + m_random() % 53; }

private:
    std::mt19937_64 m_random{20240229};
    std::normal_distribution<double> m_normal;
};
