/// @file
/// See VarianceEvidence.h.
#include "VarianceEvidence.h"

#include "curve/LintabTable.h"
#include "curve/lintab/LeastSquares.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <random>
#include <vector>

using Lintab::LeastSquares;
using Lintab::Polynomial;

namespace {

constexpr int Readings = 10; ///< at each set point
constexpr int Tables = 1000;

/// Largest variance anywhere of the fit of the highest degree, for y of variance 1: the sum of the squares of what the
/// fit makes of each y alone.
double LargestVarianceOf(std::vector<CurvePoint> points)
{
    std::vector<Polynomial> responses;
    for (CurvePoint &point : points) {
        point.Y = 1;
        const LeastSquares fits(points, Infinity);
        responses.push_back(fits.OfDegree(fits.HighestDegree()));
        point.Y = 0;
    }
    double largest = 0;
    for (const double share : Steps(0, 1, 1 / 1024.0)) {
        const double x = std::lerp(points.front().X, points.back().X, share);
        double sum = 0;
        for (const Polynomial &response : responses)
            sum += std::pow(ValueAt(response, x), 2);
        largest = std::max(largest, sum);
    }
    return largest;
}

/// `count` points with y = 0, from 1 to 10 to the power of `decades`, or even when that is 0.
std::vector<CurvePoint> SpacedPoints(int count, int decades)
{
    std::vector<CurvePoint> points;
    for (int i = 0; i < count; ++i)
        points.push_back({decades == 0 ? i : std::pow(10, decades * i / (count - 1.0)), 0});
    return points;
}

double True(double x)
{
    return x + 0.1 * x * x;
}

std::vector<CurvePoint> RepeatedReadings(std::mt19937_64 &random, int setPoints)
{
    std::normal_distribution<double> jitter(0, 1e-3);
    std::vector<CurvePoint> points;
    for (int i = 0; i < setPoints * Readings; ++i) {
        const double x = static_cast<double>(i / Readings) / (setPoints - 1);
        points.push_back({x + jitter(random), True(x) + jitter(random)});
    }
    std::sort(points.begin(), points.end(), [](const CurvePoint &a, const CurvePoint &b) { return a.X < b.X; });
    return points;
}

double ErrorBetweenSetPoints(const Polynomial &fit)
{
    double largest = 0;
    for (const double x : Steps(0, 1, 1 / 512.0))
        largest = std::max(largest, std::abs(ValueAt(fit, x) - True(x)));
    return largest;
}

} // namespace

void PrintVariances()
{
    std::printf(
        "\n## Largest variance of the fit of the highest degree, for y of variance 1\n\n| points | even | over one "
        "decade | over two decades |\n|---|---|---|---|\n");
    for (const int count : {5, 9, 16, 21, 30, 60, 120}) {
        std::printf("| %d |", count);
        for (const int decades : {0, 1, 2})
            std::printf(" %.2g |", LargestVarianceOf(SpacedPoints(count, decades)));
        std::printf("\n");
    }
}

void PrintRepeatedReadings()
{
    std::printf("\n## %d readings at each set point, jitter 0.1 %%: median and largest error in %% of the span\n\n"
                "| set points | no limit | 100 | 16 | 4 |\n|---|---|---|---|---|\n",
                Readings);
    for (const int setPoints : {2, 3, 4, 5, 6, 8}) {
        std::printf("| %d |", setPoints);
        for (const double limit : {Infinity, 100.0, LeastSquares::LargestVariance, 4.0}) {
            std::mt19937_64 random(3);
            std::vector<double> errors;
            for (int table = 0; table < Tables; ++table)
                errors.push_back(
                    ErrorBetweenSetPoints(LeastSquares(RepeatedReadings(random, setPoints), limit).Best()));
            std::sort(errors.begin(), errors.end());
            std::printf(" %.2g, %.2g |", 100 * errors[Tables / 2], 100 * errors.back());
        }
        std::printf("\n");
    }
}
