/// @file
/// Zoom and scroll of the time curves: changes the view of a record, never its samples.
#pragma once

#include "controls/FlatScrollBar.h"
#include "display/WaveRecord.h"

class SensorProjFrm;

/// Sets a vertical bar up for a curve: minimum 0, maximum 50 times the zoom factor, value from the top of the run's
/// range.
/// @param rangeMin, rangeMax extremes of the whole run
/// @throws RuntimeError 11 when the extremes are equal, 6 when the maximum or the value does not fit 16 bits
void SetUpVerticalBar(FlatScrollBar &bar, const WaveRecord &record, double rangeMin, double rangeMax);

/// Sets the horizontal bar's range for a number of samples, and its value from the first visible one. Above 32768
/// samples the bar counts in steps of several samples, so that it stays within 16 bits.
/// @throws RuntimeError 6 when the value does not fit 16 bits
void SetUpHorizontalBar(FlatScrollBar &bar, const WaveRecord &record);

/// The four zoom buttons and the three bars of a window.
void ConnectZoom(SensorProjFrm &form);
