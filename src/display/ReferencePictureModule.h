/// @file
/// The reference picture: layout, memory surface, and the drawing of curve and dots.
#pragma once

class SensorProjFrm;

/// Sizes PicRefBack and PicRef after their page: the plot is a square of whole multiples of 50 pixels.
void LayoutReferencePage(int slot);

/// Makes the memory surface in the size of the plot. Release it first.
void CreateReferenceBuffer(int slot);
/// Gives the surface back and zeroes its handles.
void ReleaseReferenceBuffer(int slot);

/// Axis numbers and grid of a slot's picture from its ReferenceCurve.
void DrawReferenceAxes(int slot);
/// Its two steps: the numbers on the surround, for the range of the record; the cleared plot with axes, ticks and grid.
void DrawReferenceAxisNumbers(int slot);
void DrawReferencePlotGrid(int slot);

/// Draws the dots of a slot's reference curve and, when drawCurve is set, the curve as the curve library computes it. A
/// run-time error on the way is a project with unusable data: the user is told so, and the active project is closed
/// without a question.
void DrawReferenceCurve(int slot, bool drawCurve);

/// ChkGridRef of a window.
void ConnectReferencePicture(SensorProjFrm &form);
