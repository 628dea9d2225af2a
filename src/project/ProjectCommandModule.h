/// @file
/// The commands that begin with a question to the user: New, Open, and the change of a sensor's properties.
#pragma once

/// Asks for a sensor in the dialogue and makes a project of it; refused while no instrument is connected.
void BeginNewProject();

/// Asks for a project file and opens it in the lowest free slot; refused while no instrument is connected.
void OpenProject();

/// Shows the dialogue with the active project's definition; refused during a run.
void BeginEditProject();

/// The same, and the grid is enabled or disabled after it: a built-in sensor has no reference points.
void EditActiveProject();
