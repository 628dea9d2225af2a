/// @file
/// The part of the tour that shows several projects side by side.
#pragma once

#include "tour/TourScript.h"

/// Saves a copy of the first project, opens it as the second, and makes a third.
void AddMoreProjects(TourScript &script);

/// Cascade and the two tilings, a picture of each.
void AddArrangements(TourScript &script, const QString &language);

/// The windows side by side in the whole width of the frame, the project panel closed.
void AddHiddenPanel(TourScript &script);
