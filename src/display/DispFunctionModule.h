/// @file
/// The drawing steps of the pictures: axis text, grid and trace. All coordinates are pixels; real numbers round to the
/// nearest integer, ties to even, where nothing else is said.
#pragma once

#include "controls/PictureBox.h"
#include "display/WaveRecord.h"

/// The numbers and units of a time curve on its surround, which is cleared: 12 divisions below the plot, the value of
/// the lines 0 to 4 and the unit to its left.
void DrawWaveAxisText(PictureBox &background, const PictureBox &plot, const WaveRecord &record);

/// Frame, ticks and, if the record wants it, the dotted grid of 12 by 5 divisions.
void DrawWaveGrid(PictureBox &plot, const WaveRecord &record);

/// The curve, through the record's second memory surface. Draws nothing for less than two samples.
/// @throws RuntimeError 6 when a line's coordinate does not fit; 9 when the window holds no sample
void DrawWaveTrace(PictureBox &plot, const WaveRecord &record);

/// The colours and the value ranges of the reference picture's axis numbers.
struct ReferenceAxes {
    ColourRef AbscissaColor = 0;
    ColourRef OrdinateColor = 0;
    double XMin = 0;
    double XMax = 0;
    double YMax = 0;
    double YMin = 0;
};

/// Clears the surround and writes eleven numbers along each axis of the reference picture. Does nothing unless enabled.
void DrawReferenceAxisText(bool enabled, const PictureBox &plot, PictureBox &background, const ReferenceAxes &axes);

/// Clears the plot of the reference picture and draws its two axes, the ticks and, if visible, the grid of 10 by 10
/// dots.
void DrawReferenceGrid(bool gridVisible, PictureBox &plot, ColourRef gridColor, ColourRef backColor);
