/// @file
/// Opens and closes the link, identifies the instrument, and keeps watch on an idle link.
#pragma once

/// Connects; while the link stands, disconnects first (asking when a measurement runs). A run-time error on the way
/// ends with the link down. Writes LinkUp, UsbInitOk and InstrumentKind.
void ConnectInstrument();

/// Disconnects, asking when a measurement runs. Does nothing while the link is down.
void DisconnectInstrument();

/// One tick of CheckLinkTimer: probes an idle link by a write, and switches the timer off when there is nothing to
/// watch.
void CheckLinkTick();

/// Makes the permanent device choice dialogue with its rules (DeviceChoiceForm).
void MakeDeviceChoice();
/// Unloads it.
void UnloadDeviceChoice();
