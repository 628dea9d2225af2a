/// @file
/// The VISA functions that the program calls, as one table of pointers, with the types and status codes of the public
/// VISA C interface (VPP-4.3.2, the textual binding of VPP-4.3) that they need.
#pragma once

#include <cstdarg>
#include <cstdint>

#if defined(_WIN32)
#define OSTRAKON_VISA_CALL __stdcall ///< calling convention of every VISA function
#else
#define OSTRAKON_VISA_CALL ///< calling convention of every VISA function
#endif

// The binding has unsigned long for 32 bits on Windows and unsigned int elsewhere: 32 bits wide on both.
#if defined(_WIN32)
using ViUInt32 = unsigned long;
using ViInt32 = long;
#else
using ViUInt32 = std::uint32_t;
using ViInt32 = std::int32_t;
#endif
using ViUInt16 = std::uint16_t;
using ViInt16 = std::int16_t;
using ViByte = unsigned char;
using ViChar = char;
using ViStatus = ViInt32;  ///< 0 or positive: done; negative: failed
using ViObject = ViUInt32; ///< 0 is no object
using ViSession = ViObject;
using ViFindList = ViObject;
using ViAccessMode = ViUInt32;
using ViConstString = const ViChar *;
using ViConstRsrc = ViConstString;
using ViVAList = std::va_list;

static_assert(sizeof(ViUInt32) == 4 && sizeof(ViStatus) == 4, "VISA counts and statuses are 32 bits wide");

inline constexpr ViObject VI_NULL = 0; ///< no session, no find list

inline constexpr ViStatus VI_SUCCESS = 0;
inline constexpr ViStatus VI_ERROR_SYSTEM_ERROR = static_cast<ViStatus>(0xBFFF0000U);
inline constexpr ViStatus VI_ERROR_INV_OBJECT = static_cast<ViStatus>(0xBFFF000EU);     ///< no such session
inline constexpr ViStatus VI_ERROR_RSRC_NFOUND = static_cast<ViStatus>(0xBFFF0011U);    ///< no such device
inline constexpr ViStatus VI_ERROR_TMO = static_cast<ViStatus>(0xBFFF0015U);            ///< time-out
inline constexpr ViStatus VI_ERROR_NSUP_OPER = static_cast<ViStatus>(0xBFFF0067U);      ///< not for such a session
inline constexpr ViStatus VI_ERROR_LIBRARY_NFOUND = static_cast<ViStatus>(0xBFFF009EU); ///< no VISA library
inline constexpr ViStatus VI_ERROR_CONN_LOST = static_cast<ViStatus>(0xBFFF00A6U);      ///< unplugged

inline constexpr int VisaDescriptionSize = 256; ///< bytes that a buffer for a found resource name must hold

/// The eight functions. A table from LoadVisa() or LoadVisaFrom() never holds a null pointer; a test may fill its own.
/// Buffers belong to the caller; the library behind the table owns sessions and find lists until viClose.
struct VisaTable {
    /// Opens the resource manager.
    ViStatus(OSTRAKON_VISA_CALL *viOpenDefaultRM)(ViSession *manager) = nullptr;
    /// Finds resources by an expression such as "USB?*INSTR"; the first match goes into description.
    ViStatus(OSTRAKON_VISA_CALL *viFindRsrc)(ViSession manager, ViConstString expression, ViFindList *list,
                                             ViUInt32 *count, ViChar *description) = nullptr;
    /// Gives the next match of a list.
    ViStatus(OSTRAKON_VISA_CALL *viFindNext)(ViFindList list, ViChar *description) = nullptr;
    /// Opens a session with a resource; the time-out is that of opening, in ms.
    ViStatus(OSTRAKON_VISA_CALL *viOpen)(ViSession manager, ViConstRsrc name, ViAccessMode mode, ViUInt32 timeout,
                                         ViSession *session) = nullptr;
    /// Closes a session, a find list or a manager.
    ViStatus(OSTRAKON_VISA_CALL *viClose)(ViObject object) = nullptr;
    /// Formatted write; the text to send is a format, so a percent sign in it begins a conversion.
    ViStatus(OSTRAKON_VISA_CALL *viVPrintf)(ViSession session, ViConstString format, ViVAList arguments) = nullptr;
    /// Formatted read; waits for a reply no longer than the session's time-out.
    ViStatus(OSTRAKON_VISA_CALL *viVScanf)(ViSession session, ViConstString format, ViVAList arguments) = nullptr;
    /// One control transfer out on the device's default pipe; length bytes are read from buffer.
    ViStatus(OSTRAKON_VISA_CALL *viUsbControlOut)(ViSession session, ViInt16 bmRequestType, ViInt16 bRequest,
                                                  ViUInt16 wValue, ViUInt16 wIndex, ViUInt16 wLength,
                                                  const ViByte *buffer) = nullptr;
};

/// Calls the table's viVPrintf with a real argument list made of the arguments behind format.
/// @return the status of viVPrintf; negative when the write failed
ViStatus VisaPrintf(const VisaTable &table, ViSession session, const char *format, ...);

/// Calls the table's viVScanf with a real argument list. For "%<width>t" the one argument is a char buffer of at least
/// width + 1 bytes: the width counts characters, the closing NUL comes on top.
/// @return the status of viVScanf; negative when nothing was read, and the buffer is then as it was
ViStatus VisaScanf(const VisaTable &table, ViSession session, const char *format, ...);
