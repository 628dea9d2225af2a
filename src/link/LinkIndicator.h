/// @file
/// What the frame shows of the link, and the step that marks a link as lost.
#pragma once

/// Panel "ConnectStatus" reads "Connect", the green indicator shows.
void ShowLinkUp();
/// Panel "ConnectStatus" reads "Unconnected", the red indicator shows, the check mark of mnuToolsConnect goes out.
void ShowLinkDown();
/// Only the indicator changes to red; the panel keeps its text.
void ShowIndicatorOff();

/// Marks the link as down and shows it. Does nothing when it is down. The VISA session stays open, a later connect
/// opens a new one. Writes LinkUp.
void LinkLost();
