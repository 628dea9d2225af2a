/// @file
/// The two time curves of each project: samples, view and colours.
#pragma once

#include "platform/Measures.h"
#include "platform/MemorySurface.h"
#include "project/ProjectTable.h"

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

inline constexpr std::int32_t StandardWindowSamples = 61; ///< samples in the window of a run
inline constexpr std::int32_t SampleLimit = 524288;       ///< samples that a run can hold

/// A sample: X is its index as a number (0, 1, 2 ...), Y its value.
struct WavePoint {
    double X = 0;
    double Y = 0;
};

struct WaveRecord {
    std::vector<WavePoint> Points;
    std::int32_t Count = 0;                ///< samples held
    std::int32_t LastIndex = 0;            ///< newest sample shown, -1 for none; during a replay its cursor
    bool Grid = true;                      ///< dotted grid on
    ColourRef GridColour = Rgb(0, 255, 0); ///< frame, ticks and grid dots
    bool Link = true;                      ///< joins samples by lines, else plots single pixels
    ColourRef TraceColour = Rgb(255, 255, 0);
    ColourRef XTextColour = Rgb(0, 255, 255);
    ColourRef YTextColour = Rgb(255, 255, 255);
    double YMax = 0; ///< value range of the three middle divisions, in the curve's unit
    double YMin = 0;
    double XMin = 0; ///< seconds at the left and the right edge
    double XMax = 0;
    QString XUnitText;
    QString YUnitText;
    double Step = 1;                                    ///< seconds per sample
    std::int32_t WindowSamples = StandardWindowSamples; ///< samples in the window, one more than the span
    std::int32_t FirstVisible = 0;                      ///< window bounds as sample indices
    std::int32_t LastVisible = 0;
    std::int16_t TickCell = 1;   ///< pixels per tick step of the picture; only that of ValueWave is used
    std::int32_t ZoomFactor = 1; ///< vertical zoom, a power of two
    SurfaceHandle MemoryDcA = 0; ///< made and released with the pictures, never drawn on
    SurfaceHandle MemoryBitmapA = 0;
    SurfaceHandle MemoryDcB = 0; ///< the one that drawing uses
    SurfaceHandle MemoryBitmapB = 0;
};

/// Indexed by slot. ValueWave holds the values in the output unit, MeasureWave the readings in the input unit. Written
/// by New and Open, the run, replay, zoom and scroll, and the colour dialogues.
extern std::array<WaveRecord, SlotCount> ValueWave;
extern std::array<WaveRecord, SlotCount> MeasureWave;

/// Back colour of all time pictures: black, never changed.
extern ColourRef WaveBackColour;

/// True for the values that stand for an overload: -8888, -7777, 9e15 and -9e15, compared exactly.
bool IsOverload(double value);

/// Gives both records of a slot the values of a new project; their units come from SensorProjects, the memory surfaces
/// stay.
/// @param sampleSeconds seconds per sample
void ResetWaveRecords(int slot, double sampleSeconds);

/// Empties all records and forgets their surfaces.
void ResetWaveTable();
