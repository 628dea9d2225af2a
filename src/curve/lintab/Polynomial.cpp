/// @file
/// See Polynomial.h.
#include "curve/lintab/Polynomial.h"

#include "curve/lintab/Scaling.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Lintab {

namespace {

/// Coefficients of a series or of a Bernstein form; the length goes along as a degree.
using Coefficients = std::array<double, HighestPolynomialDegree + 1>;

constexpr double SlopeRounding = 1e-9; ///< share of the steepest slope below which a slope counts as 0
constexpr int HalvingsOfSpan = 30;     ///< intervals of 2^-30, over which a control polygon is its curve to rounding

/// Sum of a Chebyshev series, by Clenshaw's recurrence (C. W. Clenshaw, 1955).
double SeriesAt(const Coefficients &series, int degree, double u)
{
    double next = 0;
    double current = 0;
    for (int k = degree; k >= 1; --k) {
        const double previous = series[k] + 2 * u * current - next;
        next = current;
        current = previous;
    }
    return series[0] + u * current - next;
}

/// Series of dp/du, one degree lower: d[k-1] = d[k+1] + 2 k c[k], and d[0] is half of that.
Coefficients DerivativeOf(const Polynomial &polynomial)
{
    Coefficients derivative{};
    for (int k = polynomial.Degree; k >= 1; --k) {
        const double twoAbove = k + 1 <= HighestPolynomialDegree ? derivative[k + 1] : 0.0;
        derivative[k - 1] = twoAbove + 2 * k * polynomial.Coefficients[k];
    }
    derivative[0] /= 2;
    return derivative;
}

double Binomial(int n, int k)
{
    double result = 1;
    for (int i = 1; i <= k; ++i)
        result = result * (n - k + i) / i;
    return result;
}

/// The same series over the Bernstein polynomials of its degree, whose coefficients enclose it. Uses
/// T_n = sum over j of (-1)^(n-j) C(2n, 2j) / C(n, j) B(j, n) (A. Rababah, 2003) and the elevation of degrees.
Coefficients BernsteinForm(const Coefficients &series, int degree)
{
    Coefficients form{};
    form[0] = series[0];
    for (int n = 1; n <= degree; ++n) {
        for (int j = n; j >= 0; --j) {
            const double below = j > 0 ? form[j - 1] : 0.0;
            const double elevated = (j * below + (n - j) * form[j]) / n;
            const double sign = (n - j) % 2 == 0 ? 1 : -1;
            form[j] = elevated + series[n] * sign * Binomial(2 * n, 2 * j) / Binomial(n, j);
        }
    }
    return form;
}

/// Whether a Bernstein form stays at or above `floor` on its interval: decided by its enclosure, or by that of its
/// halves.
bool StaysAbove(const Coefficients &form, int degree, double floor, int halvings)
{
    if (*std::min_element(form.begin(), form.begin() + degree + 1) >= floor)
        return true;
    if (form[0] < floor || form[degree] < floor)
        return false;
    if (halvings == 0)
        return true;
    Coefficients left{};
    Coefficients right = form;
    for (int level = 0; level <= degree; ++level) {
        left[level] = right[0];
        for (int j = 0; j < degree - level; ++j)
            right[j] = (right[j] + right[j + 1]) / 2;
    }
    return StaysAbove(left, degree, floor, halvings - 1) && StaysAbove(right, degree, floor, halvings - 1);
}

} // namespace

double PositionAt(const Polynomial &polynomial, double x)
{
    return polynomial.HalfWidth > 0 ? (x - polynomial.Centre) / polynomial.HalfWidth : 0.0;
}

double ValueAt(const Polynomial &polynomial, double x)
{
    return Saturated(SeriesAt(polynomial.Coefficients, polynomial.Degree, PositionAt(polynomial, x)) *
                     polynomial.Scale);
}

double SlopeAt(const Polynomial &polynomial, double x)
{
    if (polynomial.Degree == 0 || polynomial.HalfWidth <= 0)
        return 0;
    return SeriesAt(DerivativeOf(polynomial), polynomial.Degree - 1, PositionAt(polynomial, x)) / polynomial.HalfWidth;
}

Polynomial PinnedAtEnds(const Polynomial &polynomial, double startValue, double endValue)
{
    Polynomial pinned = polynomial;
    pinned.Scale =
        std::max({polynomial.Scale, PowerOfTwoBelow(std::abs(startValue)), PowerOfTwoBelow(std::abs(endValue))});
    for (double &coefficient : pinned.Coefficients)
        coefficient *= polynomial.Scale / pinned.Scale;
    const double atStart = startValue / pinned.Scale - SeriesAt(pinned.Coefficients, pinned.Degree, -1);
    const double atEnd = endValue / pinned.Scale - SeriesAt(pinned.Coefficients, pinned.Degree, 1);
    pinned.Coefficients[0] += (atStart + atEnd) / 2;
    pinned.Coefficients[1] += (atEnd - atStart) / 2;
    pinned.Degree = std::max(pinned.Degree, 1);
    return pinned;
}

bool IsFinite(const Polynomial &polynomial)
{
    return std::all_of(polynomial.Coefficients.begin(), polynomial.Coefficients.end(),
                       [](double coefficient) { return std::isfinite(coefficient); });
}

bool IsMonotone(const Polynomial &polynomial, int direction)
{
    if (polynomial.Degree == 0)
        return true;
    const int degree = polynomial.Degree - 1;
    Coefficients slope = BernsteinForm(DerivativeOf(polynomial), degree);
    double steepest = 0;
    for (double &coefficient : slope) {
        coefficient *= direction;
        steepest = std::max(steepest, std::abs(coefficient));
    }
    return StaysAbove(slope, degree, -SlopeRounding * steepest, HalvingsOfSpan);
}

} // namespace Lintab
