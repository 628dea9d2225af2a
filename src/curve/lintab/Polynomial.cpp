/// @file
/// See Polynomial.h.
#include "curve/lintab/Polynomial.h"

#include "curve/lintab/Scaling.h"

#include <algorithm>
#include <cmath>

namespace Lintab {

namespace {

constexpr double SlopeRounding = 1e-9; ///< share of the slope's largest coefficient below which a slope counts as 0
constexpr int HalvingsOfSpan = 30;     ///< intervals of 2^-30, over which a control polygon is its curve to rounding

double Binomial(int n, int k)
{
    double result = 1;
    for (int i = 1; i <= k; ++i)
        result = result * (n - k + i) / i;
    return result;
}

/// The same series over the Bernstein polynomials of its degree, whose coefficients enclose it. Uses
/// T_n = sum over j of (-1)^(n-j) C(2n, 2j) / C(n, j) B(j, n) (A. Rababah, 2003) and the elevation of degrees.
PerDegree BernsteinForm(const PerDegree &series, int degree)
{
    PerDegree form{};
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

/// Slope of a polynomial of degree 1 at least over u, turned so that it ought to be positive.
struct SlopeForm {
    PerDegree Form; ///< over the Bernstein polynomials
    int Degree;
    double Rounding; ///< slope that counts as 0
};

SlopeForm SlopeFormOf(const Polynomial &polynomial, int direction)
{
    const int degree = polynomial.Degree - 1;
    const PerDegree derivative = DerivativeOf(polynomial.Coefficients, polynomial.Degree);
    SlopeForm slope{BernsteinForm(derivative, degree), degree, 0};
    double steepest = 0;
    for (double &coefficient : slope.Form) {
        coefficient *= direction;
        steepest = std::max(steepest, std::abs(coefficient));
    }
    slope.Rounding = SlopeRounding * steepest;
    return slope;
}

/// The lower of `known` and the lowest slope from one place to another, of which the form is given; to rounding. Where
/// the enclosure leaves a lower slope open, the halves are asked.
SlopeAtPlace LowestOf(const SlopeForm &slope, double from, double to, const SlopeAtPlace &known, int halvings)
{
    const PerDegree &form = slope.Form;
    SlopeAtPlace lowest = known;
    if (form[0] < lowest.Slope)
        lowest = {from, form[0], slope.Rounding};
    if (form[slope.Degree] < lowest.Slope)
        lowest = {to, form[slope.Degree], slope.Rounding};
    const double enclosed = *std::min_element(form.begin(), form.begin() + slope.Degree + 1);
    if (!(enclosed < lowest.Slope - slope.Rounding) || halvings == 0)
        return lowest;
    SlopeForm left = slope;
    SlopeForm right = slope;
    for (int level = 0; level <= slope.Degree; ++level) {
        left.Form[level] = right.Form[0];
        for (int j = 0; j < slope.Degree - level; ++j)
            right.Form[j] = (right.Form[j] + right.Form[j + 1]) / 2;
    }
    const double middle = (from + to) / 2;
    lowest = LowestOf(left, from, middle, lowest, halvings - 1);
    return LowestOf(right, middle, to, lowest, halvings - 1);
}

} // namespace

double PositionAt(const StretchFrame &frame, double x)
{
    return frame.HalfWidth > 0 ? (x - frame.Start) / frame.HalfWidth - 1 : 0.0;
}

double ValueAt(const Polynomial &polynomial, double x)
{
    return Saturated(SeriesAt(polynomial.Coefficients, polynomial.Degree, PositionAt(polynomial.Frame, x)) *
                     polynomial.Frame.Scale);
}

double SlopeAt(const Polynomial &polynomial, double x)
{
    if (polynomial.Degree == 0 || polynomial.Frame.HalfWidth <= 0)
        return 0;
    const PerDegree derivative = DerivativeOf(polynomial.Coefficients, polynomial.Degree);
    return SeriesAt(derivative, polynomial.Degree - 1, PositionAt(polynomial.Frame, x)) / polynomial.Frame.HalfWidth;
}

Polynomial PinnedAtEnds(const Polynomial &polynomial, double startValue, double endValue)
{
    Polynomial pinned = polynomial;
    const double largest = std::max(std::abs(startValue), std::abs(endValue));
    if (largest > 0)
        pinned.Frame.Scale = std::max(polynomial.Frame.Scale, PowerOfTwoBelow(largest));
    for (double &coefficient : pinned.Coefficients)
        coefficient *= polynomial.Frame.Scale / pinned.Frame.Scale;
    const double atStart = startValue / pinned.Frame.Scale - SeriesAt(pinned.Coefficients, pinned.Degree, -1);
    const double atEnd = endValue / pinned.Frame.Scale - SeriesAt(pinned.Coefficients, pinned.Degree, 1);
    pinned.Coefficients[0] += (atStart + atEnd) / 2;
    pinned.Coefficients[1] += (atEnd - atStart) / 2;
    pinned.Degree = std::max(pinned.Degree, 1);
    return pinned;
}

SlopeAtPlace LowestSlope(const Polynomial &polynomial, int direction)
{
    if (polynomial.Degree == 0)
        return {};
    const SlopeForm slope = SlopeFormOf(polynomial, direction);
    return LowestOf(slope, -1, 1, {-1, slope.Form[0], slope.Rounding}, HalvingsOfSpan);
}

bool IsMonotone(const Polynomial &polynomial, int direction)
{
    const SlopeAtPlace lowest = LowestSlope(polynomial, direction);
    return lowest.Slope >= -lowest.Rounding;
}

} // namespace Lintab
