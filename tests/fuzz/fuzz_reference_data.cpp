/// @file
/// Any bytes as a reference data file, in both layouts: they give a whole table, a refusal, or one of three errors.
/// What is written of such a table can be read again and gives the same file.
#include "curve/ReferenceDataFile.h"
#include "fuzz/FuzzTarget.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

/// What stands in a table ahead of a reading, in every row.
ReferencePoint Mark()
{
    ReferencePoint mark;
    mark.Used = true;
    mark.Input = -7;
    mark.InputText = mark.OutputText = QStringLiteral("mark");
    return mark;
}

bool HasTextsOfMark(const ReferencePoint &row)
{
    return row.InputText == QStringLiteral("mark") && row.OutputText == QStringLiteral("mark");
}

bool IsUsed(const ReferencePoint &row)
{
    return row.Used;
}

/// Rows of the table read; none when the file is refused or fails.
std::optional<std::int32_t> Read(const QByteArray &bytes, ReferenceDataLayout layout, ReferenceRows &rows)
{
    rows.fill(Mark());
    try {
        if (ReadReferenceDataBytes(bytes, layout, rows) != ReferenceDataRefusal::None)
            return {};
    } catch (const RuntimeError &error) {
        const int number = error.Number();
        Require(number == ErrorNumber::InputPastEnd || number == ErrorNumber::TypeMismatch ||
                    number == ErrorNumber::Overflow,
                "a file fails by its end, a value or its range only");
        return {};
    }
    return static_cast<std::int32_t>(std::count_if(rows.begin() + 1, rows.end(), IsUsed));
}

void RequireWholeTable(const ReferenceRows &rows, std::int32_t count, ReferenceDataLayout layout)
{
    const auto end = rows.begin() + 1 + count;
    Require(count >= 1, "a table read has a row");
    Require(std::all_of(rows.begin() + 1, end, IsUsed), "the used rows are the first ones");
    Require(rows[0].Used && rows[0].Input == Mark().Input, "row 0 stays");
    Require(std::ranges::all_of(rows, HasTextsOfMark), "no text of a row is touched");
    Require(std::all_of(rows.begin() + 1, end,
                        [](const ReferencePoint &row) { return std::isfinite(row.Input + 0 * row.Output); }),
            "every number is one");
    Require(layout == ReferenceDataLayout::Csv ||
                std::all_of(rows.begin() + 1, end,
                            [](const ReferencePoint &row) { return row.Arithmetic == 0 || row.Arithmetic == 1; }),
            "the text layout knows two arithmetics");
}

/// The greatest doubles are rounded to 15 digits beyond what a double can be.
bool CanBeReadAgain(const ReferencePoint &row)
{
    constexpr double most = 1.79769313486231E+308;
    return !row.Used || (std::abs(row.Input) <= most && std::abs(row.Output) <= most);
}

void RequireSameAgain(const ReferenceRows &rows, std::int32_t count, ReferenceDataLayout layout)
{
    const QByteArray written = ReferenceDataBytes(rows, count, layout);
    static ReferenceRows again;
    Require(Read(written, layout, again) == count, "a written file is read");
    Require(ReferenceDataBytes(again, count, layout) == written, "a file read is written as it was");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    for (const ReferenceDataLayout layout : {ReferenceDataLayout::Csv, ReferenceDataLayout::Text}) {
        static ReferenceRows rows;
        const std::optional<std::int32_t> count = Read(bytes, layout, rows);
        if (!count)
            continue;
        RequireWholeTable(rows, *count, layout);
        if (std::ranges::all_of(rows, CanBeReadAgain))
            RequireSameAgain(rows, *count, layout);
    }
    return 0;
}
