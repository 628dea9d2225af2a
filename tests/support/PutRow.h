/// @file
/// Rows of a reference table by hand.
#pragma once

#include "curve/ReferenceRows.h"

/// Puts one used row into a slot's reference table.
inline void PutRow(int slot, int row, double input, double output, bool segment = false, std::int16_t arithmetic = 0)
{
    ReferencePoint &point = ReferenceTable[slot][row];
    point.Used = true;
    point.Input = input;
    point.Output = output;
    point.Segment = segment;
    point.Arithmetic = arithmetic;
}
