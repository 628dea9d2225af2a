/// @file
/// From the sensor dialogue's controls to a sensor definition.
#pragma once

#include "project/ProjectTable.h"

class SensorPropertyFrm;

/// Fills a definition from the dialogue. Fields that the chosen type does not use keep their old contents.
/// @param instrumentKind model code of the link: decides how a thermocouple is read
void FillSensorProject(const SensorPropertyFrm &form, SensorProject &project, std::int16_t instrumentKind);
