/// @file
/// How the rules for the degree of a fit compare with others on shapes of sensor curves, as tables in Markdown.
#pragma once

/// The degree of the least PRESS, or a lower one that comes near it, beside fixed degrees: errors of points with noise.
void PrintDegreeChoice();

/// What is done about a fit that falls though its points rise: errors, and how far the curves fall back.
void PrintMonotoneRules();

/// The mean and the straight line where points rise and leaving one out speaks for the mean.
void PrintLevelCurves();

/// How far curves of several stretches through rising points fall back, since fits are moved to meet each other.
void PrintJoints();
