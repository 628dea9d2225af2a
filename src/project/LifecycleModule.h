/// @file
/// The life of a project: made, and closed with its window.
#pragma once

class SensorProjFrm;
class SensorPropertyFrm;

/// Makes a project from the dialogue in the lowest free slot: record, window, wave records, tree node, enablement.
/// Refused with a notice when all ten slots are taken.
void NewProject(const SensorPropertyFrm &dialogue);

/// Runs when a project window is asked to close, by whatever path: asks, ends a run, and frees the slot.
/// @param cancel set to true when the user keeps the window
void CloseProjectWindow(SensorProjFrm &form, bool &cancel);

/// Closes all projects after one question.
void CloseAllProjects();

/// The closing of a window.
void ConnectLifecycle(SensorProjFrm &form);
