/// @file
/// Connects a project window to the routines of all subsystems.
#pragma once

class SensorProjFrm;

void ConnectProjectWindow(SensorProjFrm &form);
