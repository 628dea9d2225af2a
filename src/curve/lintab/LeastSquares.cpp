/// @file
/// See LeastSquares.h.
#include "curve/lintab/LeastSquares.h"

#include "curve/lintab/HalfSpaces.h"
#include "curve/lintab/Scaling.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>
#include <utility>

namespace Lintab {

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double PressTolerance = 1.05;      ///< a lower degree may be this much worse than the best
constexpr double ResidualRounding = 0x1p-46; ///< residual, for |y| up to 2, that is rounding and tells no degrees apart
constexpr double SmallestFreedom = 1e-12;    ///< 1 - leverage below which a point alone decides the fit at its x
constexpr int MostHeldSlopes = 60;           ///< places; 42 were the most that random tables needed

/// Inner product in four sums, so that no addition waits for the one before it; the order is the same on every machine.
double Product(const std::vector<double> &left, const std::vector<double> &right)
{
    std::array<double, 4> sums{};
    std::size_t i = 0;
    for (; i + sums.size() <= left.size(); i += sums.size()) {
        for (std::size_t lane = 0; lane < sums.size(); ++lane)
            sums[lane] += left[i + lane] * right[i + lane];
    }
    for (; i < left.size(); ++i)
        sums[0] += left[i] * right[i];
    return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

/// Adds `factor` times other numbers to as many.
template <typename Numbers>
void AddMultiple(Numbers &numbers, double factor, const Numbers &others)
{
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] += factor * others[i];
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

/// 1 when y nowhere falls, -1 when it nowhere rises, 0 when it does both or neither. Points of one x are in no order.
int DirectionOf(std::span<const CurvePoint> points)
{
    const auto byY = [](const CurvePoint &left, const CurvePoint &right) { return left.Y < right.Y; };
    bool rises = false;
    bool falls = false;
    auto [low, high] = std::pair(points.front().Y, points.front().Y);
    for (auto group = points.begin(); group != points.end();) {
        const auto next = std::find_if(group, points.end(), [group](const CurvePoint &p) { return p.X != group->X; });
        const auto [lowest, highest] = std::minmax_element(group, next, byY);
        rises = rises || (group != points.begin() && highest->Y > low);
        falls = falls || (group != points.begin() && lowest->Y < high);
        low = lowest->Y;
        high = highest->Y;
        group = next;
    }
    return (rises ? 1 : 0) - (falls ? 1 : 0);
}

} // namespace

LeastSquares::LeastSquares(std::span<const CurvePoint> points, double largestVariance)
    : m_largestVariance(largestVariance), m_direction(DirectionOf(points))
{
    double largest = 0;
    for (const CurvePoint &point : points)
        largest = std::max(largest, std::abs(point.Y));
    m_frame.Start = points.front().X;
    m_frame.HalfWidth = (points.back().X - points.front().X) / 2;
    m_frame.Scale = PowerOfTwoBelow(largest);

    m_positions.reserve(points.size());
    m_residuals.reserve(points.size());
    for (const CurvePoint &point : points) {
        m_positions.push_back(PositionAt(m_frame, point.X));
        m_residuals.push_back(point.Y / m_frame.Scale);
    }
    m_leverages.assign(points.size(), 0.0);

    const int highest = HighestCandidate(DifferentValues(m_positions));
    m_basis.reserve(highest + 1);
    m_series[0][0] = 1 / std::sqrt(static_cast<double>(points.size()));
    m_variances.fill(m_series[0][0] * m_series[0][0]);
    m_basis.emplace_back(points.size(), m_series[0][0]);
    ExpandResidual();
    while (HighestDegree() < highest && AddColumn())
        ExpandResidual();
}

/// Appends the orthonormal polynomial of the next degree. False, with nothing appended, when the points leave a fit of
/// that degree open.
bool LeastSquares::AddColumn()
{
    const int degree = HighestDegree();
    Column column = m_basis[degree];
    for (std::size_t i = 0; i < column.size(); ++i)
        column[i] *= m_positions[i];
    PerDegree series = TimesPosition(m_series[degree]);
    // Of all columns only the last two have a share in the new one.
    for (int k = std::max(0, degree - 1); k <= degree; ++k) {
        const double share = Product(column, m_basis[k]);
        AddMultiple(column, -share, m_basis[k]);
        AddMultiple(series, -share, m_series[k]);
    }
    const double norm = std::sqrt(Product(column, column));
    if (!(norm > 0))
        return false;
    for (double &value : column)
        value *= 1 / norm;
    for (double &coefficient : series)
        coefficient *= 1 / norm;
    if (!AddVariance(series))
        return false;
    m_basis.push_back(std::move(column));
    m_series[degree + 1] = series;
    return true;
}

/// Counts the next orthonormal polynomial's share in the variance of the fit. False when the fit is then too uncertain
/// somewhere: readings that repeat a few set points leave it open between them, where no residual tells of it.
bool LeastSquares::AddVariance(const PerDegree &series)
{
    for (int node = 0; node < VarianceNodes; ++node) {
        // Closer together towards the ends, where polynomials change most.
        const double even = 2.0 * node / (VarianceNodes - 1) - 1;
        const double value = SeriesAt(series, HighestDegree() + 1, even * (3 - even * even) / 2);
        m_variances[node] += value * value;
    }
    return *std::max_element(m_variances.begin(), m_variances.end()) <= m_largestVariance;
}

/// Takes the share of the newest column out of the residuals, and notes the PRESS that its degree reaches.
void LeastSquares::ExpandResidual()
{
    const int degree = HighestDegree();
    const Column &column = m_basis[degree];
    // The second pass takes what rounding left behind in the first.
    for (int pass = 0; pass < 2; ++pass) {
        const double share = Product(column, m_residuals);
        m_weights[degree] += share;
        AddMultiple(m_residuals, -share, column);
    }
    double sum = 0;
    for (std::size_t i = 0; i < column.size(); ++i) {
        m_leverages[i] += column[i] * column[i];
        const double freedom = 1 - m_leverages[i];
        // The residual of the point to the fit through all others.
        const double deleted = freedom > SmallestFreedom ? m_residuals[i] / freedom : Infinity;
        sum += deleted * deleted;
    }
    m_press[degree] = sum;
}

double LeastSquares::LeaveOneOutError(int degree) const
{
    return std::sqrt(m_press[degree] / static_cast<double>(m_positions.size())) * m_frame.Scale;
}

int LeastSquares::BestDegree() const
{
    const double rounding = static_cast<double>(m_positions.size()) * ResidualRounding * ResidualRounding;
    // A curve that is level where its points are not would tell nothing of the reading.
    const auto lowest = m_press.begin() + (m_direction == 0 ? 0 : std::min(1, HighestDegree()));
    const auto highest = m_press.begin() + HighestDegree();
    const double least = std::max(*std::min_element(lowest, highest + 1), rounding);
    const auto best =
        std::find_if(lowest, highest, [least](double candidate) { return candidate <= PressTolerance * least; });
    return static_cast<int>(best - m_press.begin());
}

/// The sum of the orthonormal polynomials up to a degree, each times its weight.
Polynomial LeastSquares::WithWeights(const PerDegree &weights, int degree) const
{
    Polynomial polynomial{.Frame = m_frame, .Degree = degree};
    for (int k = 0; k <= degree; ++k)
        AddMultiple(polynomial.Coefficients, weights[k], m_series[k]);
    return polynomial;
}

Polynomial LeastSquares::OfDegree(int degree) const
{
    return WithWeights(m_weights, degree);
}

/// Of all polynomials of `degree`, 1 at least, that nowhere go against the direction of the points, the one of the
/// least sum of squares.
Polynomial LeastSquares::MonotoneOfDegree(int degree) const
{
    // The sum of squares grows with the square of the distance of the weights from those of the free fit. The slope is
    // held to the direction where it goes most against it, then where it now does, and so on.
    HalfSpaces rightWay(m_weights);
    Polynomial nearest = OfDegree(degree);
    SlopeAtPlace lowest = LowestSlope(nearest, m_direction);
    for (int place = 0; place < MostHeldSlopes && lowest.Slope < -lowest.Rounding; ++place) {
        rightWay.Add(SlopeDirection(lowest.U, degree));
        nearest = WithWeights(rightWay.Nearest(), degree);
        lowest = LowestSlope(nearest, m_direction);
    }
    // The straight line through the points never goes against them: as much of it as makes up for what is left.
    const double wrong = -lowest.Slope;
    if (wrong > 0) {
        const Polynomial line = OfDegree(1);
        const double share = wrong / (wrong + m_direction * line.Coefficients[1]);
        for (int k = 0; k <= degree; ++k)
            nearest.Coefficients[k] += share * (line.Coefficients[k] - nearest.Coefficients[k]);
    }
    return nearest;
}

/// What weights the slope at `u` is made with, in the direction of the points; of length 1.
PerDegree LeastSquares::SlopeDirection(double u, int degree) const
{
    PerDegree slopes{};
    for (int k = 1; k <= degree; ++k)
        slopes[k] = m_direction * SeriesAt(DerivativeOf(m_series[k], k), k - 1, u);
    const double length = std::sqrt(std::inner_product(slopes.begin(), slopes.end(), slopes.begin(), 0.0));
    for (double &slope : slopes)
        slope /= length;
    return slopes;
}

Polynomial LeastSquares::Best() const
{
    const int degree = BestDegree();
    Polynomial polynomial = OfDegree(degree);
    if (m_direction != 0 && !IsMonotone(polynomial, m_direction))
        polynomial = MonotoneOfDegree(degree);
    return polynomial;
}

} // namespace Lintab
