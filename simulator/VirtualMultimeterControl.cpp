#include "simulator/VirtualMultimeterControl.h"

#include "simulator/VisaBus.h"

#include <algorithm>

namespace {

using BusLock = std::lock_guard<std::mutex>;

/// Runs a step on an instrument under the bus's lock; an unknown number gives otherwise.
template <typename Result, typename Step>
Result WithInstrument(int number, Result otherwise, Step step)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    if (number < 0 || number >= InstrumentLimit)
        return otherwise;
    return step(bus.Instruments.at(number));
}

template <typename Step>
void Change(int number, Step step)
{
    WithInstrument(number, 0, [&step](BusInstrument &instrument) {
        step(instrument);
        return 0;
    });
}

void EndFixedReplies(InstrumentFaults &faults)
{
    faults.RawReply.reset();
    faults.OverloadReply = Overload::None;
    faults.Reading.reset();
}

} // namespace

void kv7000_control_reset()
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    ResetBus(bus);
}

void kv7000_control_set_instrument_count(int count)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    SetInstrumentCount(bus, std::clamp(count, 0, InstrumentLimit));
}

void kv7000_control_set_foreign_device(int connected)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    SetForeignDevice(bus, connected != 0);
}

void kv7000_control_set_plugged(int instrument, int plugged)
{
    Change(instrument, [plugged](BusInstrument &found) { SetPlugged(found, plugged != 0); });
}

void kv7000_control_set_open_status(int instrument, int status)
{
    Change(instrument, [status](BusInstrument &found) { found.OpenStatus = status; });
}

const char *kv7000_control_resource_name(int instrument)
{
    return WithInstrument<const char *>(instrument, nullptr,
                                        [](const BusInstrument &found) { return found.ResourceName.c_str(); });
}

int kv7000_control_open_sessions()
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    const auto isDevice = [](const auto &entry) {
        return entry.second.Kind == SessionKind::Instrument || entry.second.Kind == SessionKind::Foreign;
    };
    return static_cast<int>(std::ranges::count_if(bus.Sessions, isDevice));
}

void kv7000_control_set_read_wait(int milliseconds)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    bus.ReadWait = std::max(milliseconds, 0);
}

void kv7000_control_set_maker(int instrument, const char *maker)
{
    Change(instrument, [maker](BusInstrument &found) { found.Model.Identity.Maker = maker; });
}

void kv7000_control_set_model(int instrument, const char *model)
{
    Change(instrument, [model](BusInstrument &found) { found.Model.Identity.Model = model; });
}

void kv7000_control_set_reading(int instrument, double value)
{
    Change(instrument, [value](BusInstrument &found) {
        EndFixedReplies(found.Model.Faults);
        found.Model.Faults.Reading = value;
    });
}

void kv7000_control_set_raw_reply(int instrument, const char *bytes, int length)
{
    Change(instrument, [bytes, length](BusInstrument &found) {
        EndFixedReplies(found.Model.Faults);
        found.Model.Faults.RawReply = std::string(bytes, static_cast<std::size_t>(std::max(length, 0)));
    });
}

void kv7000_control_set_overload(int instrument, enum Kv7000Overload overload)
{
    Change(instrument, [overload](BusInstrument &found) {
        EndFixedReplies(found.Model.Faults);
        found.Model.Faults.OverloadReply = static_cast<Overload>(overload);
    });
}

void kv7000_control_set_living(int instrument)
{
    Change(instrument, [](BusInstrument &found) { EndFixedReplies(found.Model.Faults); });
}

void kv7000_control_set_silent_replies(int instrument, int count)
{
    Change(instrument, [count](BusInstrument &found) { found.Model.Faults.SilentReplies = count; });
}

void kv7000_control_set_write_status(int instrument, int status)
{
    Change(instrument, [status](BusInstrument &found) { found.Model.Faults.WriteStatus = status; });
}

void kv7000_control_set_vendor_status(int instrument, int request, int status)
{
    Change(instrument, [request, status](BusInstrument &found) {
        auto &statuses = found.Model.Faults.VendorStatus;
        if (request == 0) {
            statuses.fill(status);
        } else if (request >= FirstVendorRequest && request <= LastVendorRequest) {
            statuses.at(request - FirstVendorRequest) = status;
        }
    });
}

void kv7000_control_hold_clock(double seconds)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    bus.Clock.Held = seconds;
}

void kv7000_control_set_clock_speed(double speed)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    SetClockSpeed(bus, speed);
}

int kv7000_control_function(int instrument)
{
    return WithInstrument(instrument, -1,
                          [](const BusInstrument &found) { return static_cast<int>(found.Model.Function); });
}

int kv7000_control_line_count(int instrument)
{
    return WithInstrument(instrument, 0,
                          [](const BusInstrument &found) { return static_cast<int>(found.Model.Lines.size()); });
}

const char *kv7000_control_line(int instrument, int index)
{
    return WithInstrument<const char *>(instrument, nullptr, [index](const BusInstrument &found) -> const char * {
        const auto &lines = found.Model.Lines;
        return index >= 0 && index < static_cast<int>(lines.size()) ? lines[index].c_str() : nullptr;
    });
}

int kv7000_control_vendor_count(int instrument)
{
    return WithInstrument(
        instrument, 0, [](const BusInstrument &found) { return static_cast<int>(found.Model.VendorRequests.size()); });
}

int kv7000_control_vendor_request(int instrument, int index, struct Kv7000VendorRequest *record)
{
    return WithInstrument(instrument, 0, [index, record](const BusInstrument &found) {
        const auto &requests = found.Model.VendorRequests;
        if (index < 0 || index >= static_cast<int>(requests.size()))
            return 0;
        const VendorRequest &request = requests[index];
        *record = {request.Request, request.Value,      request.Index, static_cast<int>(request.Data.size()),
                   request.Status,  request.Data.data()};
        return 1;
    });
}

void kv7000_control_clear_records(int instrument)
{
    Change(instrument, [](BusInstrument &found) {
        found.Model.Lines.clear();
        found.Model.VendorRequests.clear();
    });
}
