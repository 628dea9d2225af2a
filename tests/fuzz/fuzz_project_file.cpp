/// @file
/// Any bytes as a project file: they are read into a slot, and nothing outside it changes. What is written of that slot
/// can be read again and gives the same file.
#include "fuzz/FuzzTarget.h"
#include "platform/RuntimeError.h"
#include "project/ProjectFileModule.h"
#include "project/ProjectTable.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int Slot = 1;
constexpr int OtherSlot = 4;
constexpr std::int32_t EarlierCount = 3; ///< what a file without a readable count meets
const QString Mark = QStringLiteral("mark");

bool IsMark(const ReferencePoint &row)
{
    return !row.Used && row.Input == 0 && row.Output == 0 && !row.Segment && row.Arithmetic == 0 &&
           row.InputText == Mark && row.OutputText == Mark;
}

void PutMarks()
{
    ReferencePoint mark;
    mark.InputText = mark.OutputText = Mark;
    for (ReferenceRows &rows : ReferenceTable)
        rows.fill(mark);
    for (SensorProject &project : SensorProjects)
        project.SensorName = Mark;
}

/// Around the slot, and in its row 0.
bool MarksStand()
{
    for (const int neighbour : {Slot - 1, Slot + 1}) {
        if (SensorProjects[neighbour].SensorName != Mark || SensorProjects[neighbour].ThermistorOhms != 0 ||
            !std::ranges::all_of(ReferenceTable[neighbour], IsMark))
            return false;
    }
    return IsMark(ReferenceTable[Slot][0]);
}

void EmptySlot(int slot)
{
    SensorProjects[slot] = {};
    std::fill(ReferenceTable[slot].begin() + 1, ReferenceTable[slot].end(), ReferencePoint{});
}

/// A text that stands in a file as it is: nothing in it ends or begins a value, or marks the file's byte order.
bool IsPlain(const QString &text)
{
    static const QString delimiters = QStringLiteral(",\r\n");
    const auto isDelimiter = [](QChar character) { return delimiters.contains(character); };
    const bool plainStart = text.isEmpty() || !QStringLiteral(" \t\"\uFEFF").contains(text.front());
    return plainStart && std::none_of(text.begin(), text.end(), isDelimiter);
}

/// The greatest doubles are rounded to 15 digits beyond what a double can be.
bool CanBeReadAgain(const ReferencePoint &row)
{
    constexpr double most = 1.79769313486231E+308;
    return std::abs(row.Input) <= most && std::abs(row.Output) <= most;
}

bool SlotCanBeReadAgain()
{
    const SensorProject &project = SensorProjects[Slot];
    return IsPlain(project.SensorName) && IsPlain(project.InputUnit) && IsPlain(project.OutputUnit) &&
           std::ranges::all_of(ReferenceTable[Slot], CanBeReadAgain);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool once = (PutMarks(), true);
    static_cast<void>(once);
    EmptySlot(Slot);
    ProjectPointCount = EarlierCount;
    ErrorsSetAside steps;
    ReadProjectBytes(Slot, QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)),
                     steps);
    Require(MarksStand(), "reading changes its slot only");
    if (!SlotCanBeReadAgain())
        return 0;
    const QByteArray written = ProjectFileBytes(Slot);
    EmptySlot(OtherSlot);
    ErrorsSetAside again;
    ReadProjectBytes(OtherSlot, written, again);
    Require(!again.Last(), "a written file is read without an error");
    Require(ProjectFileBytes(OtherSlot) == written, "a file read is written as it was");
    return 0;
}
