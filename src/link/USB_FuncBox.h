/// @file
/// The USB transport: discovery, text lines and vendor control transfers through VISA.
#pragma once

#include "visa/VisaTable.h"

#include <QString>

#include <cstdint>

inline constexpr int ReplyLimit = 256; ///< characters of a reply, its end mark included

/// The VISA functions in use. The entry point sets it to the library found; tests set their own.
extern const VisaTable *Visa;

/// Finds and opens an instrument of the series. With several the user chooses, with none a box says so and UsbInitOk is
/// cleared. Writes VisaDefaultRM, VisaSession, VisaResourceName and VisaResourceBuffer; opening itself is not tested.
/// @throws RuntimeError 6 when more than 32767 devices are reported
void UsbInit();

/// Writes one line; a line feed is appended. Does nothing while the link is down. A failed write is told in a box, ends
/// a running measurement and marks the link as lost.
void UsbWrite(const QString &text);

/// Reads one reply with its terminator; empty when none came within the session's time-out.
/// @throws RuntimeError 5 when the reply is longer than ReplyLimit - 1 characters
QString UsbRead();

/// Writes, then reads, also when the write failed or did nothing.
QString UsbQuery(const QString &text);

/// One vendor control transfer out.
/// @return the VISA status, negative for a failure
std::int32_t UsbControlOut(std::int16_t bmRequestType, std::int16_t bRequest, std::uint16_t wValue,
                           std::uint16_t wIndex, std::uint16_t wLength, const std::uint8_t *data);
