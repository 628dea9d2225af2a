#include "display/WaveRecord.h"

#include <utility>

std::array<WaveRecord, SlotCount> ValueWave;
std::array<WaveRecord, SlotCount> MeasureWave;
ColourRef WaveBackColour = Rgb(0, 0, 0);

namespace {

WaveRecord NewRecord(const WaveRecord &old, double sampleSeconds, ColourRef yTextColour, const QString &unit)
{
    WaveRecord record;
    record.MemoryDcA = old.MemoryDcA;
    record.MemoryBitmapA = old.MemoryBitmapA;
    record.MemoryDcB = old.MemoryDcB;
    record.MemoryBitmapB = old.MemoryBitmapB;
    record.YTextColour = yTextColour;
    record.XUnitText = QStringLiteral("S");
    record.YUnitText = unit;
    record.Step = sampleSeconds;
    record.XMax = sampleSeconds * (record.WindowSamples - 1);
    return record;
}

} // namespace

bool IsOverload(double value)
{
    return value == -8888.0 || value == -7777.0 || value == 9e15 || value == -9e15;
}

void ResetWaveRecords(int slot, double sampleSeconds)
{
    const SensorProject &project = SensorProjects[CheckedSlot(slot)];
    ValueWave[slot] = NewRecord(ValueWave[slot], sampleSeconds, Rgb(255, 0, 255), project.OutputUnit);
    MeasureWave[slot] = NewRecord(MeasureWave[slot], sampleSeconds, Rgb(255, 255, 255), project.InputUnit);
}

void ResetWaveTable()
{
    ValueWave.fill({});
    MeasureWave.fill({});
    WaveBackColour = Rgb(0, 0, 0);
}
