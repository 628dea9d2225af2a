/// @file
/// The state of the measurement run: one run at a time for the whole program.
#pragma once

#include "project/ProjectTable.h"

#include <QString>

#include <array>

/// A run is active. Set by StartMeasurement, cleared by EndMeasurement and by whoever ends a run from outside.
extern bool Measuring;
/// The user chose to go on at an overload. Cleared at the start of a run and by the next good sample.
extern bool OverloadAccepted;
/// A sensor task was sent to the instrument and measures there; the next run stops it.
extern bool InstrumentSensorOn;

/// Texts of the run, composed at its start.
extern QString FunctionCommand;
extern QString MeasureCommand;

/// Extremes of a slot's whole run, in the input and the output unit. Kept apart from the view's range, which zooming
/// changes. Written by the sampling tick.
extern std::array<double, SlotCount> MeasureMax;
extern std::array<double, SlotCount> MeasureMin;
extern std::array<double, SlotCount> ValueMax;
extern std::array<double, SlotCount> ValueMin;

void ResetRunState();
