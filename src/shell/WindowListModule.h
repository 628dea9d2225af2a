/// @file
/// The project windows as a group: how they are arranged in the frame, and their list in the menu.
#pragma once

/// Lays the project windows over one another from the upper left corner on. Minimised ones stay as they are.
void CascadeProjectWindows();

/// One above the other, each in the full width of the frame's inner area. Minimised ones stay as they are.
void TileProjectWindowsHorizontally();

/// Side by side, each in the full height. Minimised ones stay as they are.
void TileProjectWindowsVertically();

/// Writes the open project windows below the items of mnuWindow, the active one with a check mark; each brings its
/// window up. Called whenever the menu is about to open.
void ListProjectWindows();
