/// @file
/// The commands that store projects in files: Save, Save As, Save All.
#pragma once

/// Writes a project to its file, which it asks for when there is none yet.
void SaveProject(int slot);

/// Save of every open project in the order of slots.
void SaveAllProjects();

/// Writes the active project to a file of the user's choice. A copy: the project keeps its own file and name.
void SaveProjectCopy();
