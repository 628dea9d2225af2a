/// @file
/// The life of the frame: load, commands, resize, and the two ways of leaving.
#pragma once

/// Makes the frame's panels and puts all tables into the state of a fresh start; reads language and I/O settings. A
/// setting that is damaged is reported by its plain description, and the load goes on with the default.
void LoadFrame();

/// Connects the frame's own controls to the routines of the program.
void ConnectFrame();
