/// @file
/// The layout of a project window: which page is visible, where its controls stand, and when it is drawn.
#pragma once

class SensorProjFrm;

/// Shows one of the three page panels and hides the others.
/// @param tabIndex 1 reference curve, 2 edit data, 3 measure curve
void SwitchProjectPage(int slot, int tabIndex);

/// Lays the selected page out and draws it anew. Does nothing for a minimised window or one without a slot number. An
/// error in a step is skipped. Also what others call to have the current page redrawn.
void ResizeProjectView(SensorProjFrm &form);

/// Places pictures, frames and bars of the measure page; the pictures are whole multiples of 60 by 25 pixels. Writes
/// TickCell of the slot's ValueWave.
void LayoutMeasurePage(int slot);

/// Resize, tabs and deactivation of a window.
void ConnectProjectView(SensorProjFrm &form);
