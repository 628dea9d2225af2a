/// @file
/// The commands of the frame: which routine stands behind each menu item, in the frame's own menus and in those of the
/// project tree, and behind each toolbar button.
#pragma once

/// Connects the menus and the toolbar of the frame, and the menus of the project tree. Call it with the panel made.
void ConnectFrameCommands();
