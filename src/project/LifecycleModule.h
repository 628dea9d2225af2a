/// @file
/// The life of a project: made, opened, changed, and closed with its window.
#pragma once

#include <QString>

class SensorProjFrm;
class SensorPropertyFrm;

/// True while fewer than ten projects are open; tells the user otherwise.
bool RoomForProject();

/// Makes a project from the dialogue in the lowest free slot: record, window, wave records, tree node, enablement.
/// Refused with a notice when all ten slots are taken.
void NewProject(const SensorPropertyFrm &dialogue);

/// Opens a file in the lowest free slot, named after it, with its definition and rows. Refused with a notice when a
/// slot up to the found one holds a project of that name. Errors of reading are shown when the project is open.
void OpenProjectFile(const QString &path);

/// Takes the dialogue over into the active project; its rows stay, its curve must be applied anew.
void ChangeProjectProperties(const SensorPropertyFrm &dialogue);

/// Runs when a project window is asked to close, by whatever path: asks, ends a run, and frees the slot.
/// @param cancel set to true when the user keeps the window
void CloseProjectWindow(SensorProjFrm &form, bool &cancel);

/// Closes all projects after one question.
void CloseAllProjects();

/// The closing of a window.
void ConnectLifecycle(SensorProjFrm &form);
