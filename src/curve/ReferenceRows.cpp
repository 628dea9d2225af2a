#include "curve/ReferenceRows.h"

#include <algorithm>
#include <utility>
#include <vector>

std::array<ReferenceRows, SlotCount> ReferenceBackup;
std::array<bool, ReferenceRowLimit + 1> RowMarks{};
std::int32_t ReferenceRowCount = 0;
std::int32_t EditRowNumber = 0;
std::int16_t EditDataMode = EditDataModeAdd;

void CopyReferenceTable(const ReferenceRows &source, ReferenceRows &target)
{
    std::copy(source.begin() + 1, source.end(), target.begin() + 1);
}

void SortReferenceTable(std::int16_t slot)
{
    struct MarkedRow {
        ReferencePoint Point;
        bool Mark = false;
    };
    ReferenceRows &table = ReferenceTable[CheckedSlot(slot)];
    std::vector<MarkedRow> rows;
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        if (table[row].Used)
            rows.push_back({table[row], RowMarks[row]});
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = i + 1; j < rows.size(); ++j) {
            if (rows[j].Point.Input < rows[i].Point.Input)
                std::swap(rows[i], rows[j]);
        }
    }
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        const auto i = static_cast<std::size_t>(row - 1);
        if (i < rows.size()) {
            table[row] = std::move(rows[i].Point);
            RowMarks[row] = rows[i].Mark;
        } else {
            table[row].Used = false;
            RowMarks[row] = false;
        }
    }
}

void ResetReferenceRows()
{
    for (ReferenceRows &rows : ReferenceBackup)
        rows.fill({});
    RowMarks.fill(false);
    ReferenceRowCount = 0;
    EditRowNumber = 0;
    EditDataMode = EditDataModeAdd;
}
