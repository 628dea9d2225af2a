/// @file
/// The bus behind the virtual VISA library: which devices hang on it, and the sessions opened with them. One bus a
/// process; every function here expects its lock to be held by the caller.
#pragma once

#include "simulator/InstrumentModel.h"
#include "visa/VisaTable.h"

#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

inline constexpr ViStatus VI_SUCCESS_MAX_CNT = 0x3FFF0006; ///< the buffer is full, more of the reply is waiting
inline constexpr ViStatus VI_WARN_NULL_OBJECT = 0x3FFF0082;
inline constexpr ViStatus VI_ERROR_INV_EXPR = static_cast<ViStatus>(0xBFFF0010U);
inline constexpr ViStatus VI_ERROR_INV_ACC_MODE = static_cast<ViStatus>(0xBFFF0013U);
inline constexpr ViStatus VI_ERROR_NSUP_ATTR = static_cast<ViStatus>(0xBFFF001DU);
inline constexpr ViStatus VI_ERROR_NSUP_ATTR_STATE = static_cast<ViStatus>(0xBFFF001EU);
inline constexpr ViStatus VI_ERROR_IO = static_cast<ViStatus>(0xBFFF003EU);
inline constexpr ViStatus VI_ERROR_INV_FMT = static_cast<ViStatus>(0xBFFF003FU);
inline constexpr ViStatus VI_ERROR_USER_BUF = static_cast<ViStatus>(0xBFFF0071U);
inline constexpr ViStatus VI_ERROR_INV_PARAMETER = static_cast<ViStatus>(0xBFFF0078U);

inline constexpr int InstrumentLimit = 2;               ///< virtual multimeters that a bus can hold
inline constexpr ViUInt32 DefaultSessionTimeout = 2000; ///< ms, the VISA default

/// One virtual multimeter and its place on the bus.
struct BusInstrument {
    std::string ResourceName;
    InstrumentModel Model;
    std::string Unread;               ///< the device's output queue: what is left of the last reply
    bool Plugged = true;              ///< an unplugged one is not found, and its sessions are lost for good
    int Generation = 0;               ///< counts the times it has left the bus
    ViStatus OpenStatus = VI_SUCCESS; ///< negative: viOpen is refused with this status
};

enum class SessionKind {
    Manager,
    FindList,
    Instrument,
    Foreign, ///< a USB device that is no multimeter: it opens, swallows what is written and never replies
};

/// Whatever a session number stands for.
struct BusSession {
    SessionKind Kind = SessionKind::Manager;
    ViSession Manager = VI_NULL;              ///< the manager it was opened under; closed with it
    int Instrument = 0;                       ///< index of the instrument
    int Generation = 0;                       ///< that of the device when the session was opened
    ViUInt32 Timeout = DefaultSessionTimeout; ///< ms
    std::vector<std::string> Matches;         ///< of a find list: names not given out yet, next first
};

/// The time of the signals: held at a value, or running at a speed.
struct BusClock {
    std::optional<double> Held; ///< seconds
    double Offset = 0;          ///< seconds at Start
    double Speed = 1;           ///< seconds of signals in one real second
    std::chrono::steady_clock::time_point Start = std::chrono::steady_clock::now();
};

struct VisaBus {
    std::mutex Lock;
    std::vector<BusInstrument> Instruments; ///< always InstrumentLimit; those from InstrumentCount on are not connected
    int InstrumentCount = 1;
    bool ForeignDevice = false; ///< a USB device of another kind is connected; it is found first
    int ForeignGeneration = 0;  ///< counts the times that device has left the bus
    std::map<ViSession, BusSession> Sessions;
    ViSession LastSession = VI_NULL; ///< session numbers are never used again
    int ReadWait = 0;                ///< ms that a read without a reply really waits, the session's time-out at most
    BusClock Clock;
};

/// The bus of this process: one KV7060, made at the first call.
VisaBus &TheBus();

/// As the process began: one KV7060 without faults, no sessions, a running clock at 0. Session numbers go on.
void ResetBus(VisaBus &bus);

/// Seconds of the signals now.
double BusSeconds(const VisaBus &bus);

/// Lets the clock run on from its present value at another speed.
void SetClockSpeed(VisaBus &bus, double speed);

/// How many instruments are connected, 0 to InstrumentLimit. Those that leave lose their sessions for good.
void SetInstrumentCount(VisaBus &bus, int count);

/// Connects the foreign device, or takes it off the bus, its sessions lost for good.
void SetForeignDevice(VisaBus &bus, bool connected);

/// Takes an instrument off the bus, or puts it back.
void SetPlugged(BusInstrument &instrument, bool plugged);

/// Names of the connected devices in the order in which they are found.
std::vector<std::string> ResourceNames(const VisaBus &bus);

/// Makes a session of a kind under a manager and gives its number.
ViSession AddSession(VisaBus &bus, BusSession session);

/// The session of a number when it is of that kind, else null. Valid until sessions are added or removed.
BusSession *FindSession(VisaBus &bus, ViSession number, SessionKind kind);

/// Opens a connected resource by its name, in any case.
/// @return VI_SUCCESS, VI_ERROR_RSRC_NFOUND, or the instrument's OpenStatus
ViStatus OpenResource(VisaBus &bus, ViSession manager, std::string_view name, ViSession &session);

/// Closes a session, a find list, or a manager with everything opened under it.
ViStatus CloseObject(VisaBus &bus, ViObject object);

/// Writes one message, which ends where the bytes end. Lines in it are executed one after another; an unread reply of
/// an earlier message is lost. A last line needs no line end.
ViStatus WriteMessage(VisaBus &bus, ViSession session, std::string_view message);

/// Takes up to limit bytes of the reply that is waiting.
/// @return VI_SUCCESS with the last byte, VI_SUCCESS_MAX_CNT when more is waiting, VI_ERROR_TMO when no reply is there
ViStatus ReadReply(VisaBus &bus, ViSession session, std::size_t limit, std::string &bytes);

/// A vendor request to the instrument of a session. VI_ERROR_IO when the instrument stalls it.
ViStatus ControlOut(VisaBus &bus, ViSession session, int request, int value, int index,
                    std::span<const std::uint8_t> data);
