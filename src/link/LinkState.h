/// @file
/// The state of the link to the instrument, and the I/O settings.
#pragma once

#include <QString>

#include <array>
#include <cstdint>

class DeviceChoiceFrm;

inline constexpr std::uint8_t IOTypeUsb = 0; ///< any value that is not one of the other two behaves as this
inline constexpr std::uint8_t IOTypeGpib = 1;
inline constexpr std::uint8_t IOTypeRs232 = 2;

inline constexpr std::int16_t InstrumentKindOther = 0; ///< another model of the series
inline constexpr std::int16_t InstrumentKindKV7050 = 1;
inline constexpr std::int16_t InstrumentKindKV7060 = 2;

inline constexpr int VisaResourceNameLimit = 50; ///< characters of a resource name that are kept

/// The link stands. Cleared by InitIO, from then on written by ConnectionModule and LinkLost only.
extern bool LinkUp;
/// The last UsbInit found and opened a device. Set by the caller ahead of it and by UsbInit, which clears it when it
/// found none.
extern bool UsbInitOk;
/// Model of the instrument last identified; keeps its value after the link goes down.
extern std::int16_t InstrumentKind;

/// Read once from the settings store; never written by the program.
extern std::uint8_t IOType;
/// Read from the settings store and used nowhere: no GPIB device is opened and the serial port is never set up.
extern QString PrimaryAddressText;
extern QString Rs232Port;
extern std::int32_t Rs232BaudRate;
extern std::uint8_t Rs232ParityDataBits;
extern QString Rs232HandShake;
/// Always empty: no reply is ever read over RS232.
extern QString Rs232ReplyText;

/// VISA sessions: the resource manager's, opened anew by each UsbInit, and the instrument's, valid until it is closed.
extern std::uint32_t VisaDefaultRM;
extern std::uint32_t VisaSession;
/// Name of the resource in use.
extern QString VisaResourceName;
/// Found resource names; only element 0 is used.
extern std::array<QString, 11> VisaResourceBuffer;
/// VISA status of the last control transfer; negative for a failure.
extern std::int32_t LastUsbStatus;

/// The device choice dialogue. Made when the frame loads, unloaded when it closes; nullptr in between.
extern DeviceChoiceFrm *DeviceChoiceForm;

/// Puts all of this back to what it is when the process starts.
void ResetLinkState();
