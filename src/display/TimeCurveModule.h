/// @file
/// The two time curves of a project window: complete redraw, memory surfaces, and the display choices of the page.
#pragma once

class SensorProjFrm;

/// The complete redraw of one curve of a slot: clear, axis text, grid, trace, refresh. Does nothing for a slot without
/// window.
void RedrawValueWave(int slot);
void RedrawMeasureWave(int slot);

/// Makes the two memory surfaces of both curves in the size of the pictures. Release them first.
void CreateWaveBuffers(int slot);
/// Gives the surfaces back and zeroes their handles; what was not made is passed over.
void ReleaseWaveBuffers(int slot);

/// ChkGrid, ChkLink, OptWave1 and OptWave2 of a window.
void ConnectTimeCurve(SensorProjFrm &form);
