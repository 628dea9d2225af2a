/// @file
/// What is done to whole reference tables: copy, sort, the one undo level, and the marks of rows to show selected.
#pragma once

#include "project/ProjectTable.h"

#include <array>
#include <cstdint>

inline constexpr std::int16_t EditDataModeAdd = 0;
inline constexpr std::int16_t EditDataModeChange = 1;

/// Indexed by slot: the table before the last edit, or after the last undo.
extern std::array<ReferenceRows, SlotCount> ReferenceBackup;

/// Rows to show selected after the next refresh, by row number. They travel with their rows through the sort.
extern std::array<bool, ReferenceRowLimit + 1> RowMarks;

extern std::int32_t ReferenceRowCount; ///< used rows at the start of an add or an export
extern std::int32_t EditRowNumber;     ///< the row handed to the dialogue, from 1
extern std::int16_t EditDataMode;      ///< EditDataModeAdd or EditDataModeChange

/// Copies rows 1 to 500 with all their fields; row 0 of the target stays.
void CopyReferenceTable(const ReferenceRows &source, ReferenceRows &target);

/// Makes the used rows 1 to n without gaps, ascending by Input. Rows of equal Input keep their order as far as an
/// exchange on one position keeps it. Rows n + 1 to 500 and their marks are cleared.
void SortReferenceTable(std::int16_t slot);

void ResetReferenceRows();
