/// @file
/// The commands that export a project's reference table to a file, and import one.
#pragma once

class SensorProjFrm;

/// The import and export buttons of a window.
void ConnectReferenceFile(SensorProjFrm &form);
