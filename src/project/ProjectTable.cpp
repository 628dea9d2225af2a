#include "project/ProjectTable.h"

#include "platform/RuntimeError.h"

#include <QFileInfo>

std::array<bool, SlotCount> ProjectOccupied{};
std::array<SensorProjFrm *, SlotCount> ProjectForm{};
std::array<ProjectSlot, SlotCount> ProjectSlots;
std::array<SensorProject, SlotCount> SensorProjects;
std::array<ReferenceRows, SlotCount> ReferenceTable;
std::int16_t ProjectCount = 0;
std::int16_t CurrentNewSlot = 0;
std::int16_t ProjectNodeCount = 0;
std::int32_t ProjectPointCount = 0;

int CheckedSlot(int slot)
{
    if (slot < 0 || slot >= SlotCount)
        throw RuntimeError(ErrorNumber::OutOfRange);
    return slot;
}

int FindFreeSlot()
{
    for (int slot = 0; slot < SlotCount; ++slot) {
        if (!ProjectOccupied[slot])
            return slot;
    }
    return 0; // an empty result counts as 0 where it is used
}

std::int32_t LastUsedRow(int slot)
{
    const ReferenceRows &rows = ReferenceTable[CheckedSlot(slot)];
    for (int row = ReferenceRowLimit; row >= 1; --row) {
        if (rows[row].Used)
            return row;
    }
    return 0;
}

bool FileExists(const QString &path)
{
    return QFileInfo(path).isFile();
}

float InputUnitScaleOf(const QString &inputUnit)
{
    struct UnitScale {
        QLatin1StringView Unit;
        float Scale;
    };
    static constexpr std::array<UnitScale, 11> scales{{
        {QLatin1StringView("V"), 1.0F},
        {QLatin1StringView("A"), 1.0F},
        {QLatin1StringView("Hz"), 1.0F},
        {QLatin1StringView("ohm"), 1.0F},
        {QLatin1StringView("mV"), 1000.0F},
        {QLatin1StringView("mA"), 1000.0F},
        {QLatin1StringView("mHz"), 1000.0F},
        {QLatin1StringView("kHz"), 0.001F},
        {QLatin1StringView("kohm"), 0.001F},
        {QLatin1StringView("MHz"), 1e-06F},
        {QLatin1StringView("uA"), 1000000.0F},
    }};
    for (const UnitScale &entry : scales) {
        if (inputUnit == entry.Unit)
            return entry.Scale;
    }
    return 1.0F;
}

void ResetProjectTable()
{
    ProjectOccupied.fill(false);
    ProjectForm.fill(nullptr);
    ProjectSlots.fill({});
    SensorProjects.fill({});
    for (ReferenceRows &rows : ReferenceTable)
        rows.fill({});
    ProjectCount = 0;
    CurrentNewSlot = 0;
    ProjectNodeCount = 0;
    ProjectPointCount = 0;
}
