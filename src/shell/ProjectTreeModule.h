/// @file
/// The tree of open projects: a view of the project table, linked with it by node positions alone.
#pragma once

#include <QString>

class ProjectSheetFrm;
class QTreeWidget;
class QTreeWidgetItem;

/// Name of the panel in the frame's dock.
inline const QString ProjectSheetPanel = QStringLiteral("ProjectSheet");

/// The panel's window and its tree. Set when the frame loads, nullptr ahead of that.
extern ProjectSheetFrm *ProjectSheet;
extern QTreeWidget *ProjectTree;
/// The root's node; nullptr while the panel is unloaded.
extern QTreeWidgetItem *RootNode;
/// Text of the root, kept so that it can be put back. Written by LoadLanguage.
extern QString ProjectRootText;
/// The panel has not been shown before, so that there is nothing to rebuild. Set when the frame loads, cleared when the
/// panel is unloaded.
extern bool ProjectTreeFirstFill;

/// Fills the panel when it is shown: the root, and, when it was shown before, the projects of slots 0 to
/// ProjectNodeCount - 1. Does nothing while ClosingAll is set.
void LoadProjectSheet();

/// Empties the panel when it is closed; clears ProjectPanelVisible and ProjectTreeFirstFill.
void UnloadProjectSheet();

/// Adds the node of a slot's project with its children, the captions of the window's three tabs, and expands it and the
/// root. Writes ProjectNode at the index ProjectNodeCount.
void AddProjectNode(int slot);

/// Lowers NodeIndex of the occupied slots above this one's, removes the node at this slot's NodeIndex, and lowers
/// ProjectNodeCount. The failure to remove a node while the panel is hidden is set aside.
void RemoveProjectNode(int slot);

/// Writes a slot's ProjectName into the node at its NodeIndex; nothing while there is no such node.
void ShowNodeName(int slot);

/// Shows or hides the panel in the frame's dock.
void ShowProjectPanel();
void HideProjectPanel();

/// Forgets the panel.
void ResetProjectTreeModule();
