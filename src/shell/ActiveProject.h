/// @file
/// The current project: the one whose window is the frame's active child.
#pragma once

class SensorProjFrm;

/// The frame's active project window, nullptr when it has none.
SensorProjFrm *ActiveProjectForm();

/// The slot number in the tag of the frame's active child.
/// @throws RuntimeError 91 when the frame has no active child, 13 when its tag is no number, 9 when it is not 0 to 9
int ActiveSlot();

/// The slot number in a window's tag. @throws RuntimeError 13 when the tag is no number, 9 when it is not 0 to 9
int SlotOf(const SensorProjFrm &form);

/// The window of a slot. @throws RuntimeError 91 when it has none, 9 when the slot is not 0 to 9
SensorProjFrm &FormOfSlot(int slot);
