/// @file
/// Controls of the virtual multimeters in the virtual VISA library, for the tests and programs that load it: what hangs
/// on the bus, what the instruments say, what goes wrong, and what they were told.
///
/// Instruments are numbered from 0, in the order in which they are found; two can be connected. A function that takes
/// an instrument does nothing, and gives 0 or null, for a number other than 0 and 1. Linkage is C, so that a program
/// can also look the functions up by name.
#pragma once

#if defined(_WIN32)
#define KV7000_CONTROL_EXPORT __declspec(dllexport)
#else
#define KV7000_CONTROL_EXPORT __attribute__((visibility("default")))
#endif

/// What kv7000_control_set_overload takes: the replies -8888, -7777, 9E+15 and -9E+15.
enum Kv7000Overload {
    KV7000_OVERLOAD_NONE = 0,
    KV7000_OVERLOAD_MINUS_8888 = 1,
    KV7000_OVERLOAD_MINUS_7777 = 2,
    KV7000_OVERLOAD_PLUS_9E15 = 3,
    KV7000_OVERLOAD_MINUS_9E15 = 4,
};

/// One vendor request that an instrument got, refused ones included.
struct Kv7000VendorRequest {
    int request;               ///< bRequest, 0x1B to 0x1F
    int value;                 ///< wValue
    int index;                 ///< wIndex
    int length;                ///< bytes of data
    int status;                ///< what the sender got, 0 or negative
    const unsigned char *data; ///< owned by the library
};

extern "C" {

/// As the library is when it is loaded: one KV7060, "USB0::0xFFFE::0x7060::KV70600001::INSTR", with living signals, no
/// faults, nothing recorded, the clock at 0 and running in real time. Open sessions become invalid.
KV7000_CONTROL_EXPORT void kv7000_control_reset();

// The bus.

/// How many multimeters are connected, 0 to 2; a number outside is taken as the nearer bound. To open sessions of one
/// that leaves it is as if it were unplugged.
KV7000_CONTROL_EXPORT void kv7000_control_set_instrument_count(int count);
/// Connects a USB device that is no multimeter, "USB0::0xFFFE::0x0001::SN00000001::INSTR"; it is found before them. Its
/// open sessions are lost when it is taken away.
KV7000_CONTROL_EXPORT void kv7000_control_set_foreign_device(int connected);
/// Pulls an instrument's plug, or puts it back. Unplugged, it is not found, and writes, reads and control transfers of
/// its open sessions fail with VI_ERROR_CONN_LOST, for these sessions also after it is plugged in again.
KV7000_CONTROL_EXPORT void kv7000_control_set_plugged(int instrument, int plugged);
/// viOpen of this instrument is refused with a negative VISA status; 0 lets it open.
KV7000_CONTROL_EXPORT void kv7000_control_set_open_status(int instrument, int status);
/// The resource name, as viFindRsrc gives it; owned by the library, valid until kv7000_control_reset.
KV7000_CONTROL_EXPORT const char *kv7000_control_resource_name(int instrument);
/// How many sessions with devices are open.
KV7000_CONTROL_EXPORT int kv7000_control_open_sessions();
/// How long a read without a reply really waits, in ms, but no longer than the session's time-out. 0 at start.
KV7000_CONTROL_EXPORT void kv7000_control_set_read_wait(int milliseconds);

// What an instrument says.

/// First and second field of the reply to "*IDN?"; the resource name stays as it is.
KV7000_CONTROL_EXPORT void kv7000_control_set_maker(int instrument, const char *maker);
KV7000_CONTROL_EXPORT void kv7000_control_set_model(int instrument, const char *model);
/// Every measure query is answered by this value, in the unit of its function, without noise.
KV7000_CONTROL_EXPORT void kv7000_control_set_reading(int instrument, double value);
/// Every measure query is answered by these very bytes, without a line feed of the model's own. With a length of 0 the
/// reply is empty, which a reader cannot tell from none.
KV7000_CONTROL_EXPORT void kv7000_control_set_raw_reply(int instrument, const char *bytes, int length);
/// Every measure query is answered by an overload value.
KV7000_CONTROL_EXPORT void kv7000_control_set_overload(int instrument, enum Kv7000Overload overload);
/// Ends a fixed reading, raw reply and overload: back to the living signals.
KV7000_CONTROL_EXPORT void kv7000_control_set_living(int instrument);
/// The instrument swallows the next count replies, "*IDN?" included; a negative count is for good, 0 ends it.
KV7000_CONTROL_EXPORT void kv7000_control_set_silent_replies(int instrument, int count);

// What goes wrong.

/// Text writes fail with this negative VISA status and do not reach the instrument; 0 lets them pass. The instrument is
/// still found and opened.
KV7000_CONTROL_EXPORT void kv7000_control_set_write_status(int instrument, int status);
/// Vendor requests of this bRequest, 0x1B to 0x1F, or all of them for 0, get this VISA status; 0 lets them pass.
KV7000_CONTROL_EXPORT void kv7000_control_set_vendor_status(int instrument, int request, int status);

// The clock of the signals, one for all instruments.

/// Holds the clock at a number of seconds.
KV7000_CONTROL_EXPORT void kv7000_control_hold_clock(double seconds);
/// Lets the clock run on from where it is, at a number of seconds a second.
KV7000_CONTROL_EXPORT void kv7000_control_set_clock_speed(double speed);

// What an instrument was told since the reset.

/// Function code 0 to 9, as last chosen by a function command or a measure query; -1 for no such instrument.
KV7000_CONTROL_EXPORT int kv7000_control_function(int instrument);
KV7000_CONTROL_EXPORT int kv7000_control_line_count(int instrument);
/// Line number index, from 0, without its line end; null when there is none. Owned by the library, valid until the next
/// line arrives or the records are cleared.
KV7000_CONTROL_EXPORT const char *kv7000_control_line(int instrument, int index);
KV7000_CONTROL_EXPORT int kv7000_control_vendor_count(int instrument);
/// Vendor request number index, from 0. Gives 1, or 0 and leaves the record when there is none. Its data stay valid
/// until the next vendor request arrives or the records are cleared.
KV7000_CONTROL_EXPORT int kv7000_control_vendor_request(int instrument, int index, struct Kv7000VendorRequest *record);
/// Forgets the recorded lines and vendor requests.
KV7000_CONTROL_EXPORT void kv7000_control_clear_records(int instrument);
}
