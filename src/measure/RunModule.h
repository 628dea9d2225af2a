/// @file
/// The measurement run: start, sampling tick, sample period and end.
#pragma once

class SensorProjFrm;

/// Starts a run of the active project after its checks; each refusal is told in a box. The first sample comes one
/// period later.
void StartMeasurement();

/// One sample: one line out, one line back, stored, converted and drawn. Works on the project that is active at the
/// moment, whichever window's timer fired.
void SampleTick();

/// Takes the period field of a window over: 1 s to 60 s in steps of 0.1 s. What does not fit is put right with a
/// notice.
void ApplySamplePeriod(SensorProjFrm &form);

/// Ends the run and makes the active project's page ready for looking at it. Restores no control when the link is down
/// or the project has no applied curve.
void EndMeasurement();

/// True for a key that the period field takes on the text as it stands before the key.
/// @param key character code; Backspace is 8, Enter 13
bool SamplePeriodKeyPasses(int key, int textLength);

/// Record and end button, period field and Timer1 of a window.
void ConnectRun(SensorProjFrm &form);
