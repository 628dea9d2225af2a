/// @file
/// Keeps the frame's commands in step with the project table. Depends on ProjectCount alone, not on link or run; only
/// the check marks follow ProjectPanelVisible and CurrentLanguage.
#pragma once

/// Enables the toolbar's buttons. Called ahead of UpdateMenuState wherever both are due.
void UpdateToolbarState();

/// Enables the menu items and sets the check marks.
void UpdateMenuState();
