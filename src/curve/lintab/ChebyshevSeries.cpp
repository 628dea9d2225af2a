/// @file
/// See ChebyshevSeries.h.
#include "curve/lintab/ChebyshevSeries.h"

namespace Lintab {

// Clenshaw's recurrence (C. W. Clenshaw, 1955).
double SeriesAt(const PerDegree &series, int degree, double u)
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

// d[k-1] = d[k+1] + 2 k c[k], and d[0] is half of that.
PerDegree DerivativeOf(const PerDegree &series, int degree)
{
    PerDegree derivative{};
    for (int k = degree; k >= 1; --k) {
        const double twoAbove = k + 1 <= HighestPolynomialDegree ? derivative[k + 1] : 0.0;
        derivative[k - 1] = twoAbove + 2 * k * series[k];
    }
    derivative[0] /= 2;
    return derivative;
}

// u T_0 = T_1, and 2 u T_k = T_(k-1) + T_(k+1).
PerDegree TimesPosition(const PerDegree &series)
{
    PerDegree product{};
    product[1] = series[0];
    for (int k = 1; k < HighestPolynomialDegree; ++k) {
        product[k - 1] += series[k] / 2;
        product[k + 1] += series[k] / 2;
    }
    return product;
}

} // namespace Lintab
