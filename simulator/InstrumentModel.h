/// @file
/// The virtual multimeter itself, behind whatever carries its lines: identification, functions, readings, overload
/// values, vendor requests as far as they are accepted and recorded, and the faults that tests ask for.
#pragma once

#include "simulator/SignalSource.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

inline constexpr int FirstVendorRequest = 0x1B; ///< bRequest of the first of the five vendor requests
inline constexpr int LastVendorRequest = 0x1F;  ///< bRequest of the last one
inline constexpr int VendorRequestCount = LastVendorRequest - FirstVendorRequest + 1;

inline constexpr std::size_t RecordedLineLimit = 100000;  ///< lines kept by a model; later ones are not recorded
inline constexpr std::size_t RecordedRequestLimit = 1000; ///< vendor requests kept by a model

/// What the instrument says when a value does not fit its range, in its own number form.
enum class Overload {
    None,
    Minus8888,
    Minus7777,
    Plus9E15,
    Minus9E15,
};

/// The four fields of the reply to "*IDN?".
struct InstrumentIdentity {
    std::string Maker = "ZEMRA Technologies";
    std::string Model = "KV7060";
    std::string Serial = "KV70600001";
    std::string Firmware = "1.00";
};

/// What a test makes go wrong. All off in a fresh model. The first of RawReply, OverloadReply and Reading that is set
/// answers measure queries in place of the living signal.
struct InstrumentFaults {
    std::optional<std::string> RawReply; ///< these very bytes, nothing appended, in place of a reading
    Overload OverloadReply = Overload::None;
    std::optional<double> Reading; ///< a fixed reading in the unit of the function, without noise
    int SilentReplies = 0;         ///< this many replies to come are swallowed; negative: all of them
    std::int32_t WriteStatus = 0;  ///< negative: a line is not received and the sender gets this status
    std::array<std::int32_t, VendorRequestCount> VendorStatus = {}; ///< by request; negative: refused with this status
};

/// One vendor request that reached the instrument, refused ones included.
struct VendorRequest {
    int Request = 0; ///< bRequest
    int Value = 0;   ///< wValue
    int Index = 0;   ///< wIndex
    std::vector<std::uint8_t> Data;
    std::int32_t Status = 0; ///< what the sender got
};

struct InstrumentModel {
    SignalSource Signals;
    InstrumentIdentity Identity;
    InstrumentFaults Faults;
    MeasureFunction Function = MeasureFunction::DcVolts; ///< as last chosen by ":FUNCtion" or a measure query
    std::vector<std::string> Lines;                      ///< lines received, without their line ends, else as sent
    std::vector<VendorRequest> VendorRequests;
};

/// A fresh model over a signal source.
InstrumentModel MakeInstrumentModel(SignalSource source);

/// Receives one command line, with or without LF or CR LF at its end, blanks before and behind it allowed, and records
/// it.
///
/// Understood are "*IDN?", "IDNSET ZEMRA", "CMDSET ZEMRA", and ":FUNCtion" and ":MEASure" for each of the ten
/// functions, in SCPI long or short form and any case, the leading colon optional. Whatever else is sent is ignored.
/// @return the reply, ended by one LF unless it is a raw one; nothing for a command, an unknown line, or a silent model
std::optional<std::string> ExecuteLine(InstrumentModel &model, std::string_view line);

/// Receives one of the five vendor requests, which is recorded and has no further effect.
/// @param request bRequest, FirstVendorRequest to LastVendorRequest
/// @return 0, or the status that Faults.VendorStatus asks for; nothing, and nothing recorded, for another bRequest:
///         the instrument stalls it
std::optional<std::int32_t> ReceiveVendorRequest(InstrumentModel &model, int request, int value, int index,
                                                 std::span<const std::uint8_t> data);

/// A reading as the instrument writes it: sign, seven digits, exponent, for instance "+4.096230E-03". The same in every
/// locale.
std::string ReadingText(double value);

/// The text of an overload, without a line end: "-8888", "-7777", "+9.000000E+15" or "-9.000000E+15".
std::string_view OverloadText(Overload overload);
