/// @file
/// See Curve.h.
#include "curve/lintab/Curve.h"

#include "curve/lintab/Scaling.h"

#include <cmath>
#include <utility>

namespace Lintab {

namespace {

double BeyondAt(const Tail &tail, double x)
{
    return Saturated((tail.Value / tail.Scale + tail.Slope * (x - tail.X)) * tail.Scale);
}

} // namespace

Curve::Curve(double xFactor, const Tail &start, const Tail &end, std::vector<double> starts, std::vector<Piece> pieces,
             std::vector<Polynomial> fits)
    : m_xFactor(xFactor), m_start(start), m_end(end), m_grid(std::move(starts)), m_pieces(std::move(pieces)),
      m_fits(std::move(fits))
{
}

double Curve::OutsideAt(double x) const
{
    if (std::isnan(x))
        return m_start.Value;
    if (x == m_end.X)
        return m_end.Value;
    return x < m_start.X ? BeyondAt(m_start, Saturated(x)) : BeyondAt(m_end, Saturated(x));
}

} // namespace Lintab
