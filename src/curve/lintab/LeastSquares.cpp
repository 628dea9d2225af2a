/// @file
/// See LeastSquares.h.
#include "curve/lintab/LeastSquares.h"

#include "curve/lintab/Scaling.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <numeric>
#include <utility>

namespace Lintab {

namespace {

constexpr double PressTolerance = 1.05;      ///< a lower degree may be this much worse than the best
constexpr double ResidualRounding = 0x1p-46; ///< residual, for |y| up to 2, that is rounding and tells no degrees apart
constexpr double SmallestFreedom = 1e-12;    ///< 1 - leverage below which a point alone decides the fit at its x
constexpr double SmallestNewDirection = 1e-12; ///< part of a new column outside the old ones that is still a number

double Product(const std::vector<double> &left, const std::vector<double> &right)
{
    return std::inner_product(left.begin(), left.end(), right.begin(), 0.0);
}

int DifferentValues(const std::vector<double> &ascending)
{
    int count = 1;
    for (std::size_t i = 1; i < ascending.size(); ++i)
        count += ascending[i] != ascending[i - 1] ? 1 : 0;
    return count;
}

int HighestCandidate(int differentX)
{
    const int byRoot = static_cast<int>(std::floor(2 * std::sqrt(static_cast<double>(differentX)))) - 1;
    return std::max(0, std::min({HighestPolynomialDegree, byRoot, differentX - 2}));
}

int DirectionOf(std::span<const CurvePoint> points)
{
    const auto falls = [](const CurvePoint &left, const CurvePoint &right) { return right.Y < left.Y; };
    const auto rises = [](const CurvePoint &left, const CurvePoint &right) { return right.Y > left.Y; };
    if (std::adjacent_find(points.begin(), points.end(), falls) == points.end())
        return 1;
    return std::adjacent_find(points.begin(), points.end(), rises) == points.end() ? -1 : 0;
}

} // namespace

LeastSquares::LeastSquares(std::span<const CurvePoint> points) : direction(DirectionOf(points))
{
    const double start = points.front().X;
    const double end = points.back().X;
    double largest = 0;
    for (const CurvePoint &point : points)
        largest = std::max(largest, std::abs(point.Y));
    frame.Centre = start + (end - start) / 2;
    frame.HalfWidth = (end - start) / 2;
    frame.Scale = PowerOfTwoBelow(largest);

    positions.reserve(points.size());
    residuals.reserve(points.size());
    for (const CurvePoint &point : points) {
        positions.push_back(PositionAt(frame, point.X));
        residuals.push_back(point.Y / frame.Scale);
    }
    leverages.assign(points.size(), 0.0);

    const int highest = HighestCandidate(DifferentValues(positions));
    basis.reserve(highest + 1);
    basis.emplace_back(points.size(), 1 / std::sqrt(static_cast<double>(points.size())));
    ExpandResidual();
    while (HighestDegree() < highest && AddColumn())
        ExpandResidual();
}

/// Appends the orthonormal polynomial of the next degree. False, with nothing appended, when the points do not carry
/// it.
bool LeastSquares::AddColumn()
{
    const int degree = HighestDegree();
    Column column = basis[degree];
    for (std::size_t i = 0; i < column.size(); ++i)
        column[i] *= positions[i];
    for (int pass = 0; pass < 2; ++pass) {
        for (int k = 0; k <= degree; ++k) {
            const double share = Product(column, basis[k]);
            recurrence[k][degree] += share;
            for (std::size_t i = 0; i < column.size(); ++i)
                column[i] -= share * basis[k][i];
        }
    }
    const double norm = std::sqrt(Product(column, column));
    if (!(norm > SmallestNewDirection))
        return false;
    recurrence[degree + 1][degree] = norm;
    for (double &value : column)
        value /= norm;
    basis.push_back(std::move(column));
    return true;
}

/// Takes the share of the newest column out of the residuals, and notes the PRESS that its degree reaches.
void LeastSquares::ExpandResidual()
{
    const int degree = HighestDegree();
    const Column &column = basis[degree];
    // The second pass takes what rounding left behind in the first.
    for (int pass = 0; pass < 2; ++pass) {
        const double share = Product(column, residuals);
        weights[degree] += share;
        for (std::size_t i = 0; i < column.size(); ++i)
            residuals[i] -= share * column[i];
    }
    double sum = 0;
    for (std::size_t i = 0; i < column.size(); ++i) {
        leverages[i] += column[i] * column[i];
        const double freedom = 1 - leverages[i];
        const double residual =
            freedom > SmallestFreedom ? residuals[i] / freedom : std::numeric_limits<double>::infinity();
        sum += residual * residual;
    }
    press[degree] = sum;
}

double LeastSquares::LeaveOneOutError(int degree) const
{
    return std::sqrt(press[degree] / static_cast<double>(positions.size())) * frame.Scale;
}

int LeastSquares::BestDegree() const
{
    const double rounding = static_cast<double>(positions.size()) * ResidualRounding * ResidualRounding;
    const auto lastDegree = press.begin() + HighestDegree();
    const double least = std::max(*std::min_element(press.begin(), lastDegree + 1), rounding);
    const auto best = std::find_if(press.begin(), lastDegree,
                                   [least](double candidate) { return candidate <= PressTolerance * least; });
    return static_cast<int>(best - press.begin());
}

/// Sum of the first columns' polynomials at any u, in units of frame.Scale.
double LeastSquares::SeriesAt(int degree, double u) const
{
    std::array<double, HighestPolynomialDegree + 1> values{};
    values[0] = basis[0][0];
    double sum = weights[0] * values[0];
    for (int k = 0; k < degree; ++k) {
        double next = u * values[k];
        for (int j = 0; j <= k; ++j)
            next -= recurrence[j][k] * values[j];
        values[k + 1] = next / recurrence[k + 1][k];
        sum += weights[k + 1] * values[k + 1];
    }
    return sum;
}

Polynomial LeastSquares::OfDegree(int degree) const
{
    // A polynomial is its Chebyshev interpolant of the same degree, whose coefficients are a cosine transform.
    Polynomial polynomial = frame;
    polynomial.Degree = degree;
    const int nodes = degree + 1;
    for (int node = 0; node < nodes; ++node) {
        const double angle = std::numbers::pi * (node + 0.5) / nodes;
        const double value = SeriesAt(degree, std::cos(angle));
        for (int k = 0; k < nodes; ++k)
            polynomial.Coefficients[k] += (k == 0 ? 1 : 2) * value * std::cos(k * angle) / nodes;
    }
    return polynomial;
}

Polynomial LeastSquares::Best() const
{
    for (int degree = BestDegree(); degree > 0; --degree) {
        const Polynomial polynomial = OfDegree(degree);
        if (IsFinite(polynomial) && (direction == 0 || IsMonotone(polynomial, direction)))
            return polynomial;
    }
    return OfDegree(0);
}

} // namespace Lintab
