/// @file
/// The blocking pause.
#pragma once

/// Blocks the thread for the given milliseconds; 0 and below return at once.
void Sleep(int milliseconds);
