/// @file
/// Apply: turns a reference table into the curve that readings are converted by.
#pragma once

/// The command Apply for the active project: its checks, the build, and the drawing. Refused while a measurement runs.
/// Writes CurveApplied of all slots and the project's ReferenceCurve.
void mnuPopEditDataApply();

/// Publishes the built curve of a slot in its ReferenceCurve and draws it. A curve with less than two points, or with
/// all outputs equal, is refused: CurveApplied goes out, the axes of the refused curve stay.
void ApplyReferenceCurve(int slot);

/// The same for a built-in sensor, which has no reference table: a placeholder of two points, without a build.
void ApplyPlaceholderCurve(int slot);
