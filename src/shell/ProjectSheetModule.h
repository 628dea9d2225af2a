/// @file
/// What the user does in the tree of open projects: its two menus, the double click, and the closed label editing.
#pragma once

#include <QCursor>
#include <QPoint>
#include <QString>

/// Shows the menu that belongs to the selected node: the one of projects, or the one of the root.
/// @param place its corner on the screen
void ShowProjectMenu(const QPoint &place = QCursor::pos());

/// Brings up the page that the selected node stands for. During a run, refused for any project but the active one.
/// @throws RuntimeError 91 when the frame has no active child
void ActivateNode();

/// Closes the window of the project that the selected node belongs to; nothing on the root.
void CloseSelectedProject();

/// What follows an edited label: a project takes the new name, root and pages get their text back. Required: no user
/// action leads here, since label editing is refused before it begins; kept behind that barrier.
void CommitNodeRename(const QString &text);

/// Connects the panel's own events. The items of its menus are commands of the frame.
void ConnectProjectSheet();
