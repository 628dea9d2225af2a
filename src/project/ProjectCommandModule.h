/// @file
/// The commands that begin with a question to the user: New.
#pragma once

/// Asks for a sensor in the dialogue and makes a project of it; refused while no instrument is connected.
void BeginNewProject();
