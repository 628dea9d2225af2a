/// @file
/// The project windows as a group: how they are arranged in the frame, and their list in the menu.
#pragma once

// The three arrangements bring a maximised window to normal size. Minimised ones stay where they are, and what their
// rows take at the lower edge stays free. The active project stays the active one.

/// Lays the project windows over one another in equal sizes, each a title bar lower and further right than the one
/// below it, the active one on top.
void CascadeProjectWindows();

/// One above the other, each in the full width of the frame's inner area; so many that they would be lower than 150
/// pixels stand in two or more columns.
void TileProjectWindowsHorizontally();

/// Side by side, each in the full height; so many that they would be narrower than 200 pixels stand in two or more
/// rows.
void TileProjectWindowsVertically();

/// Puts the minimised windows in rows along the lower edge, from the left.
void ArrangeProjectIcons();

/// Writes the open project windows below the items of mnuWindow, the active one with a check mark; each brings its
/// window up, a minimised one restored. Called whenever the menu is about to open.
void ListProjectWindows();
