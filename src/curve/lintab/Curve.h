/// @file
/// A reference curve as it is evaluated: pieces side by side, straight or polynomial, and a straight line beyond
/// either end.
#pragma once

#include "curve/lintab/PieceGrid.h"
#include "curve/lintab/Polynomial.h"

#include <cstddef>
#include <vector>

namespace Lintab {

/// The curve from one x up to, not including, that of the next piece.
struct Piece {
    static constexpr int Straight = -1;

    double Y = 0;       ///< the curve's value where it starts, exactly
    double Slope = 0;   ///< of a straight piece; rounded so that no value passes the one at its end
    int Fit = Straight; ///< index of the piece's polynomial
};

/// The straight line beyond an end of the curve: y = (Value / Scale + Slope * (x - X)) * Scale.
struct Tail {
    double X = 0;
    double Value = 0; ///< the curve's value at X, exactly
    double Scale = 1;
    double Slope = 0;
};

/// Never changes once made.
class Curve {
public:
    /// @param xFactor a power of two: all x in here are the table's x times this, so that no difference of two
    /// overflows
    /// @param starts where the pieces start, ascending and different, and behind them the end of the curve
    /// @param pieces one fewer than starts; none when the curve is a single x
    Curve(double xFactor, const Tail &start, const Tail &end, std::vector<double> starts, std::vector<Piece> pieces,
          std::vector<Polynomial> fits);

    /// y at any `x`, NaN and infinities included; always finite, never allocates.
    /// @param hint index of the piece that is tried first, any number will do; takes the piece that held x. It decides
    /// how quickly the piece is found, not what y is.
    double ValueAt(double x, std::size_t &hint) const;

private:
    double OutsideAt(double x) const;

    double m_xFactor;
    Tail m_start;
    Tail m_end;
    PieceGrid m_grid;
    std::vector<Piece> m_pieces;
    std::vector<Polynomial> m_fits;
};

// In sight of its one caller, since a call of its own would take a fifth of its time.
inline double Curve::ValueAt(double x, std::size_t &hint) const
{
    const double scaled = x * m_xFactor;
    // Pictures ask for ascending x: mostly the piece is that of the call before.
    if (!m_grid.IsInside(scaled, hint)) {
        if (!(scaled >= m_start.X && scaled < m_end.X))
            return OutsideAt(scaled);
        hint = m_grid.Find(scaled);
    }
    const Piece &piece = m_pieces[hint];
    const double distance = scaled - m_grid.StartOf(hint);
    if (piece.Fit == Piece::Straight)
        return piece.Y + distance * piece.Slope;
    return distance == 0 ? piece.Y : Lintab::ValueAt(m_fits[piece.Fit], scaled);
}

} // namespace Lintab
