/// @file
/// A project's window from the side of the project table: made, titled, and put into the state of a new project.
#pragma once

/// Makes the slot's window if it has none. Whoever connects it does so at the frame's signal.
void MakeProjectWindow(int slot);

/// The five column titles of the grid, with the units of the slot's definition.
void SetGridTitles(int slot);

/// Grid titles, no undo or redo, no run.
void PrepareEditPage(int slot);

/// The grid takes reference points, unless the instrument's own curve applies. Required: after the sensor dialogue
/// only. The grid of an opened project stays enabled; that of a temperature sensor refuses each press by its notice.
void EnableGrid(int slot);

/// The captions that the buttons of a new window get, and the project's name as the window's title.
void SetNewProjectCaptions(int slot);

/// Both wave records and the controls of the measure page as they are for a new project; the page of the reference
/// points comes up.
void ResetWavesAndControls(int slot);

/// Both wave records as they are for a new project, but for the sample period, which is that of Timer1; without the
/// bars that move their view.
void ResetWaves(int slot);

/// Writes the units of the slot's definition under the reference picture.
void ShowUnits(int slot);
