/// @file
/// Finds the piece of a curve that holds an x.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Lintab {

/// Cells of equal width over the span of a curve, of which each knows the pieces that start in it. An x leads to its
/// cell by one product, and few pieces are left to be looked at: mostly one or two. Where the pieces crowd together, as
/// those of a table over many decades do, the cell's pieces are halved until one is left.
class PieceGrid {
public:
    /// @param starts where the pieces start, ascending and different, and behind them the end: one at least, which then
    /// is the end of no piece. No difference of two overflows.
    /// @throws std::bad_alloc
    explicit PieceGrid(std::vector<double> starts);

    std::size_t PieceCount() const { return m_starts.size() - 1; }
    double StartOf(std::size_t piece) const { return m_starts[piece]; }

    /// Whether `x` lies inside a piece, its start left out; false for an index that is none, and for a NaN.
    bool IsInside(double x, std::size_t piece) const
    {
        // One test, not one for either side, of which the processor would guess every other one wrong at random x.
        return piece < PieceCount() && std::min(x - m_starts[piece], m_starts[piece + 1] - x) > 0;
    }

    /// Index of the piece that holds `x`, which is not below the first start and below the end.
    std::size_t Find(double x) const
    {
        // What starts in an earlier cell starts below x, what starts in a later one above it: CellOf never falls.
        const std::size_t cell = CellOf(x);
        std::size_t found = m_before[cell] - 1;
        for (std::size_t count = m_before[cell + 1] - found; count > 1;) {
            const std::size_t half = count / 2;
            found = m_starts[found + half] <= x ? found + half : found;
            count -= half;
        }
        return found;
    }

private:
    std::size_t CellOf(double x) const
    {
        // Processors convert to a signed number in one step.
        return static_cast<std::size_t>(static_cast<std::int64_t>((x - m_starts.front()) * m_cellsPerX));
    }

    std::vector<double> m_starts;
    double m_cellsPerX = 0;
    std::vector<std::uint32_t> m_before; ///< by cell: pieces that start in the cells ahead of it; of the first cell 1
};

} // namespace Lintab
