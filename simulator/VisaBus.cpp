#include "simulator/VisaBus.h"

#include "simulator/ScpiHeader.h"

#include <algorithm>
#include <utility>

namespace {

// Vendor 0xFFFE and the product numbers are made up; no real device carries them.
constexpr std::string_view ForeignResourceName = "USB0::0xFFFE::0x0001::SN00000001::INSTR";

std::string SerialNumber(int instrument)
{
    return "KV7060000" + std::to_string(instrument + 1);
}

BusInstrument MakeInstrument(VisaBus &bus, int index)
{
    BusInstrument instrument;
    instrument.ResourceName = "USB0::0xFFFE::0x7060::" + SerialNumber(index) + "::INSTR";
    instrument.Model = MakeInstrumentModel(
        MakeSignalSource([&bus] { return BusSeconds(bus); }, static_cast<std::uint64_t>(index) + 1));
    instrument.Model.Identity.Serial = SerialNumber(index);
    return instrument;
}

/// The instrument behind a session, or the status that says why there is none.
struct Reached {
    BusInstrument *Instrument = nullptr;
    ViStatus Status = VI_SUCCESS;
};

Reached ReachInstrument(VisaBus &bus, ViSession number)
{
    const auto found = bus.Sessions.find(number);
    if (found == bus.Sessions.end())
        return {nullptr, VI_ERROR_INV_OBJECT};
    const BusSession &session = found->second;
    if (session.Kind == SessionKind::Foreign)
        return {nullptr,
                bus.ForeignDevice && session.Generation == bus.ForeignGeneration ? VI_SUCCESS : VI_ERROR_CONN_LOST};
    if (session.Kind != SessionKind::Instrument)
        return {nullptr, VI_ERROR_NSUP_OPER};
    BusInstrument &instrument = bus.Instruments.at(session.Instrument);
    const bool connected = instrument.Plugged && session.Instrument < bus.InstrumentCount;
    if (!connected || session.Generation != instrument.Generation)
        return {nullptr, VI_ERROR_CONN_LOST};
    return {&instrument, VI_SUCCESS};
}

ViStatus OpenInstrument(VisaBus &bus, ViSession manager, int index, ViSession &session)
{
    const BusInstrument &instrument = bus.Instruments.at(index);
    if (instrument.OpenStatus < 0)
        return instrument.OpenStatus;
    BusSession opened;
    opened.Kind = SessionKind::Instrument;
    opened.Manager = manager;
    opened.Instrument = index;
    opened.Generation = instrument.Generation;
    session = AddSession(bus, std::move(opened));
    return VI_SUCCESS;
}

ViStatus OpenForeign(VisaBus &bus, ViSession manager, ViSession &session)
{
    BusSession opened;
    opened.Kind = SessionKind::Foreign;
    opened.Manager = manager;
    opened.Generation = bus.ForeignGeneration;
    session = AddSession(bus, std::move(opened));
    return VI_SUCCESS;
}

/// What leaving the bus does to an instrument: sessions opened so far reach it no more.
void LoseSessions(BusInstrument &instrument)
{
    ++instrument.Generation;
    instrument.Unread.clear();
}

} // namespace

VisaBus &TheBus()
{
    static VisaBus bus;
    static const bool made = (ResetBus(bus), true);
    static_cast<void>(made);
    return bus;
}

void ResetBus(VisaBus &bus)
{
    bus.Instruments.clear();
    for (int index = 0; index < InstrumentLimit; ++index)
        bus.Instruments.push_back(MakeInstrument(bus, index));
    bus.InstrumentCount = 1;
    bus.ForeignDevice = false;
    bus.Sessions.clear();
    bus.ReadWait = 0;
    bus.Clock = BusClock();
}

double BusSeconds(const VisaBus &bus)
{
    const BusClock &clock = bus.Clock;
    if (clock.Held)
        return *clock.Held;
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - clock.Start;
    return clock.Offset + clock.Speed * passed.count();
}

void SetClockSpeed(VisaBus &bus, double speed)
{
    BusClock running;
    running.Offset = BusSeconds(bus);
    running.Speed = speed;
    bus.Clock = running;
}

void SetInstrumentCount(VisaBus &bus, int count)
{
    for (int index = count; index < bus.InstrumentCount; ++index)
        LoseSessions(bus.Instruments.at(index));
    bus.InstrumentCount = count;
}

void SetForeignDevice(VisaBus &bus, bool connected)
{
    if (bus.ForeignDevice && !connected)
        ++bus.ForeignGeneration;
    bus.ForeignDevice = connected;
}

void SetPlugged(BusInstrument &instrument, bool plugged)
{
    if (instrument.Plugged && !plugged)
        LoseSessions(instrument);
    instrument.Plugged = plugged;
}

std::vector<std::string> ResourceNames(const VisaBus &bus)
{
    std::vector<std::string> names;
    if (bus.ForeignDevice)
        names.emplace_back(ForeignResourceName);
    for (int index = 0; index < bus.InstrumentCount; ++index) {
        const BusInstrument &instrument = bus.Instruments.at(index);
        if (instrument.Plugged)
            names.push_back(instrument.ResourceName);
    }
    return names;
}

ViSession AddSession(VisaBus &bus, BusSession session)
{
    ++bus.LastSession;
    bus.Sessions.emplace(bus.LastSession, std::move(session));
    return bus.LastSession;
}

BusSession *FindSession(VisaBus &bus, ViSession number, SessionKind kind)
{
    const auto found = bus.Sessions.find(number);
    return found != bus.Sessions.end() && found->second.Kind == kind ? &found->second : nullptr;
}

ViStatus OpenResource(VisaBus &bus, ViSession manager, std::string_view name, ViSession &session)
{
    if (bus.ForeignDevice && EqualInAnyCase(name, ForeignResourceName))
        return OpenForeign(bus, manager, session);
    for (int index = 0; index < bus.InstrumentCount; ++index) {
        const BusInstrument &instrument = bus.Instruments.at(index);
        if (instrument.Plugged && EqualInAnyCase(name, instrument.ResourceName))
            return OpenInstrument(bus, manager, index, session);
    }
    return VI_ERROR_RSRC_NFOUND;
}

ViStatus CloseObject(VisaBus &bus, ViObject object)
{
    if (object == VI_NULL)
        return VI_WARN_NULL_OBJECT;
    if (bus.Sessions.erase(object) == 0)
        return VI_ERROR_INV_OBJECT;
    std::erase_if(bus.Sessions, [object](const auto &entry) { return entry.second.Manager == object; });
    return VI_SUCCESS;
}

ViStatus WriteMessage(VisaBus &bus, ViSession session, std::string_view message)
{
    const auto [instrument, status] = ReachInstrument(bus, session);
    if (instrument == nullptr)
        return status;
    if (instrument->Model.Faults.WriteStatus < 0)
        return instrument->Model.Faults.WriteStatus;
    instrument->Unread.clear();
    while (!message.empty()) {
        const std::size_t end = message.find('\n');
        const std::string_view line = message.substr(0, end);
        message.remove_prefix(end == std::string_view::npos ? message.size() : end + 1);
        if (const std::optional<std::string> reply = ExecuteLine(instrument->Model, line))
            instrument->Unread += *reply;
    }
    return VI_SUCCESS;
}

ViStatus ReadReply(VisaBus &bus, ViSession session, std::size_t limit, std::string &bytes)
{
    const auto [instrument, status] = ReachInstrument(bus, session);
    if (status < 0)
        return status;
    if (instrument == nullptr || instrument->Unread.empty())
        return VI_ERROR_TMO;
    bytes = instrument->Unread.substr(0, limit);
    instrument->Unread.erase(0, bytes.size());
    return instrument->Unread.empty() ? VI_SUCCESS : VI_SUCCESS_MAX_CNT;
}

ViStatus ControlOut(VisaBus &bus, ViSession session, int request, int value, int index,
                    std::span<const std::uint8_t> data)
{
    const auto [instrument, status] = ReachInstrument(bus, session);
    if (status < 0)
        return status;
    if (instrument == nullptr)
        return VI_ERROR_IO;
    return ReceiveVendorRequest(instrument->Model, request, value, index, data).value_or(VI_ERROR_IO);
}
