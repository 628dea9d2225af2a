/// @file
/// See PieceGrid.h.
#include "curve/lintab/PieceGrid.h"

#include "curve/lintab/Scaling.h"

#include <utility>

namespace Lintab {

namespace {

constexpr std::size_t CellsOfPiece = 4; ///< on average, so that most cells hold no start

} // namespace

PieceGrid::PieceGrid(std::vector<double> starts) : m_starts(std::move(starts))
{
    if (PieceCount() == 0)
        return;
    const std::size_t cells = CellsOfPiece * PieceCount();
    m_cellsPerX = Saturated(static_cast<double>(cells) / (m_starts.back() - m_starts.front()));
    // Rounding may put an x near the end one cell behind the last, and a cell is closed by the count of the next.
    m_before.assign(cells + 2, 0);
    for (std::size_t piece = 0; piece < PieceCount(); ++piece)
        ++m_before[CellOf(m_starts[piece]) + 1];
    for (std::size_t cell = 1; cell < m_before.size(); ++cell)
        m_before[cell] += m_before[cell - 1];
    m_before[0] = 1;
}

} // namespace Lintab
