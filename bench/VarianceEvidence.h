/// @file
/// Evidence for the limit on how uncertain a fit may be between its points.
#pragma once

/// How uncertain fits of the highest degree are, by the spacing of the points.
void PrintVariances();

/// What different limits make of readings that repeat a few set points.
void PrintRepeatedReadings();
