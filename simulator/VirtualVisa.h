/// @file
/// The part of the public VISA C interface (VPP-4.3.2) that the virtual library exports, over multimeters that live in
/// the same process. What is not declared here is not there.
#pragma once

#include "visa/VisaTable.h"

#if defined(_WIN32)
#define KV7000_VISA_EXPORT __declspec(dllexport)
#else
#define KV7000_VISA_EXPORT __attribute__((visibility("default")))
#endif

using ViAttr = ViUInt32;
using ViAttrState = std::uintptr_t; ///< as wide as an address, as the binding has it

inline constexpr ViAttr VI_ATTR_TMO_VALUE = 0x3FFF001A; ///< ViUInt32, ms; the one attribute that is there

extern "C" {

KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viOpenDefaultRM(ViSession *manager);

/// The list may be null when only the first match is wanted. No match: VI_ERROR_RSRC_NFOUND and a count of 0; an
/// expression that is not understood: VI_ERROR_INV_EXPR. For what is understood see MatchResource.
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viFindRsrc(ViSession manager, ViConstString expression, ViFindList *list,
                                                          ViUInt32 *count, ViChar *description);
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viFindNext(ViFindList list, ViChar *description);

/// Locks are not there: an access mode other than 0 is refused with VI_ERROR_INV_ACC_MODE. Every open gives a session
/// number that was never used before; a failed one gives 0.
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viOpen(ViSession manager, ViConstRsrc name, ViAccessMode mode,
                                                      ViUInt32 timeout, ViSession *session);
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viClose(ViObject object);

/// One call is one message, sent at once, with or without a line feed at its end. For what a format may hold see
/// ExpandFormat; any other is refused with VI_ERROR_INV_FMT and nothing is sent.
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viVPrintf(ViSession session, ViConstString format, ViVAList arguments);
KV7000_VISA_EXPORT ViStatus viPrintf(ViSession session, ViConstString format, ...);

/// "%t": the reply to its end, line feed included, and a closing NUL. "%<width>t": at most width characters and the
/// NUL.
/// "%#t": an address of a ViUInt32 stands before the buffer, holds its size in bytes, and gets the number of characters
/// stored. What does not fit is left for the next read. Any other format: VI_ERROR_INV_FMT.
///
/// With no reply waiting: VI_ERROR_TMO, the buffer as it was. An instrument in the same process has replied when its
/// command was written, so waiting could change nothing: the read returns at once, unless
/// kv7000_control_set_read_wait asks for a wait, which is then real and no longer than the session's time-out.
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viVScanf(ViSession session, ViConstString format, ViVAList arguments);
KV7000_VISA_EXPORT ViStatus viScanf(ViSession session, ViConstString format, ...);

/// Up to count bytes of the reply; VI_SUCCESS_MAX_CNT when more is waiting. Time-outs as in viVScanf.
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viRead(ViSession session, ViByte *buffer, ViUInt32 count,
                                                      ViUInt32 *transferred);
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viWrite(ViSession session, const ViByte *buffer, ViUInt32 count,
                                                       ViUInt32 *transferred);

KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viSetAttribute(ViSession session, ViAttr attribute, ViAttrState value);
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viGetAttribute(ViSession session, ViAttr attribute, void *value);

/// bmRequestType 0x40 (to the device, vendor, device) with bRequest 0x1B to 0x1F is accepted and recorded; the
/// instrument stalls any other out request, VI_ERROR_IO. An in request: VI_ERROR_INV_PARAMETER.
KV7000_VISA_EXPORT ViStatus OSTRAKON_VISA_CALL viUsbControlOut(ViSession session, ViInt16 bmRequestType,
                                                               ViInt16 bRequest, ViUInt16 wValue, ViUInt16 wIndex,
                                                               ViUInt16 wLength, const ViByte *buffer);
}
