#include "simulator/VirtualVisa.h"

#include "simulator/VisaBus.h"
#include "simulator/VisaText.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <limits>
#include <thread>

namespace {

using BusLock = std::lock_guard<std::mutex>;

constexpr int VendorOut = 0x40;   ///< bmRequestType: to the device, vendor, recipient device
constexpr int DirectionIn = 0x80; ///< bit of bmRequestType
constexpr ViAccessMode NoLock = 0;

void CopyDescription(ViChar *description, const std::string &name)
{
    if (description != nullptr)
        std::memcpy(description, name.c_str(), name.size() + 1);
}

/// The names that fit; nothing when the expression is not understood.
std::optional<std::vector<std::string>> Matching(const VisaBus &bus, std::string_view expression)
{
    if (MatchResource(expression, "") == ExpressionMatch::Invalid)
        return std::nullopt;
    std::vector<std::string> names = ResourceNames(bus);
    std::erase_if(names, [expression](const std::string &name) {
        return MatchResource(expression, name) == ExpressionMatch::No;
    });
    return names;
}

ViFindList AddFindList(VisaBus &bus, ViSession manager, const std::vector<std::string> &names)
{
    BusSession list;
    list.Kind = SessionKind::FindList;
    list.Manager = manager;
    list.Matches.assign(names.begin() + 1, names.end());
    return AddSession(bus, std::move(list));
}

/// The session of a device, of either kind, or null.
BusSession *DeviceSession(VisaBus &bus, ViSession number)
{
    BusSession *session = FindSession(bus, number, SessionKind::Instrument);
    return session != nullptr ? session : FindSession(bus, number, SessionKind::Foreign);
}

/// How long a read of a session without a reply really waits.
std::chrono::milliseconds ReplyWait(VisaBus &bus, ViSession number)
{
    const BusSession *session = DeviceSession(bus, number);
    const auto timeout = session != nullptr ? static_cast<long long>(session->Timeout) : 0;
    return std::chrono::milliseconds(std::min<long long>(timeout, bus.ReadWait));
}

/// One read with its wait. The bus is not locked while it waits, so a control function can still reach it.
ViStatus ReadWithWait(ViSession session, std::size_t limit, std::string &bytes)
{
    VisaBus &bus = TheBus();
    std::chrono::milliseconds wait{};
    {
        const BusLock lock(bus.Lock);
        const ViStatus status = ReadReply(bus, session, limit, bytes);
        if (status != VI_ERROR_TMO)
            return status;
        wait = ReplyWait(bus, session);
    }
    std::this_thread::sleep_for(wait);
    return VI_ERROR_TMO;
}

/// Reads text of at most limit characters into the caller's buffer, which is larger by one.
ViStatus ReadText(ViSession session, std::size_t limit, char *buffer, std::size_t &stored)
{
    std::string bytes;
    const ViStatus status = ReadWithWait(session, limit, bytes);
    if (status < 0)
        return status;
    std::memcpy(buffer, bytes.data(), bytes.size());
    buffer[bytes.size()] = '\0';
    stored = bytes.size();
    return VI_SUCCESS;
}

ViStatus ReadSizedText(ViSession session, ViUInt32 *size, char *buffer)
{
    if (size == nullptr || *size == 0)
        return VI_ERROR_USER_BUF;
    std::size_t stored = 0;
    const ViStatus status = ReadText(session, *size - 1, buffer, stored);
    if (status >= 0)
        *size = static_cast<ViUInt32>(stored);
    return status;
}

} // namespace

ViStatus OSTRAKON_VISA_CALL viOpenDefaultRM(ViSession *manager)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    *manager = AddSession(bus, BusSession());
    return VI_SUCCESS;
}

ViStatus OSTRAKON_VISA_CALL viFindRsrc(ViSession manager, ViConstString expression, ViFindList *list, ViUInt32 *count,
                                       ViChar *description)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    if (list != nullptr)
        *list = VI_NULL;
    if (count != nullptr)
        *count = 0;
    if (FindSession(bus, manager, SessionKind::Manager) == nullptr)
        return VI_ERROR_INV_OBJECT;
    const std::optional<std::vector<std::string>> names = Matching(bus, expression);
    if (!names)
        return VI_ERROR_INV_EXPR;
    if (names->empty())
        return VI_ERROR_RSRC_NFOUND;
    if (list != nullptr)
        *list = AddFindList(bus, manager, *names);
    if (count != nullptr)
        *count = static_cast<ViUInt32>(names->size());
    CopyDescription(description, names->front());
    return VI_SUCCESS;
}

ViStatus OSTRAKON_VISA_CALL viFindNext(ViFindList list, ViChar *description)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    BusSession *found = FindSession(bus, list, SessionKind::FindList);
    if (found == nullptr)
        return VI_ERROR_INV_OBJECT;
    if (found->Matches.empty())
        return VI_ERROR_RSRC_NFOUND;
    CopyDescription(description, found->Matches.front());
    found->Matches.erase(found->Matches.begin());
    return VI_SUCCESS;
}

ViStatus OSTRAKON_VISA_CALL viOpen(ViSession manager, ViConstRsrc name, ViAccessMode mode, ViUInt32, ViSession *session)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    *session = VI_NULL;
    if (FindSession(bus, manager, SessionKind::Manager) == nullptr)
        return VI_ERROR_INV_OBJECT;
    if (mode != NoLock)
        return VI_ERROR_INV_ACC_MODE;
    return OpenResource(bus, manager, name, *session);
}

ViStatus OSTRAKON_VISA_CALL viClose(ViObject object)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    return CloseObject(bus, object);
}

ViStatus OSTRAKON_VISA_CALL viVPrintf(ViSession session, ViConstString format, ViVAList arguments)
{
    const std::optional<std::string> message = ExpandFormat(format, arguments);
    if (!message)
        return VI_ERROR_INV_FMT;
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    return WriteMessage(bus, session, *message);
}

ViStatus viPrintf(ViSession session, ViConstString format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const ViStatus status = viVPrintf(session, format, arguments);
    va_end(arguments);
    return status;
}

ViStatus OSTRAKON_VISA_CALL viVScanf(ViSession session, ViConstString format, ViVAList arguments)
{
    const std::optional<ReadFormat> parsed = ParseReadFormat(format);
    if (!parsed)
        return VI_ERROR_INV_FMT;
    ViUInt32 *size = parsed->SizeArgument ? va_arg(arguments, ViUInt32 *) : nullptr;
    char *buffer = va_arg(arguments, char *);
    if (parsed->SizeArgument)
        return ReadSizedText(session, size, buffer);
    std::size_t stored = 0;
    return ReadText(session, parsed->Width.value_or(std::numeric_limits<unsigned>::max()), buffer, stored);
}

ViStatus viScanf(ViSession session, ViConstString format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const ViStatus status = viVScanf(session, format, arguments);
    va_end(arguments);
    return status;
}

ViStatus OSTRAKON_VISA_CALL viRead(ViSession session, ViByte *buffer, ViUInt32 count, ViUInt32 *transferred)
{
    std::string bytes;
    const ViStatus status = ReadWithWait(session, count, bytes);
    std::copy(bytes.begin(), bytes.end(), buffer);
    if (transferred != nullptr)
        *transferred = static_cast<ViUInt32>(bytes.size());
    return status;
}

ViStatus OSTRAKON_VISA_CALL viWrite(ViSession session, const ViByte *buffer, ViUInt32 count, ViUInt32 *transferred)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    const ViStatus status = WriteMessage(bus, session, std::string(buffer, buffer + count));
    if (transferred != nullptr)
        *transferred = status < 0 ? 0 : count;
    return status;
}

ViStatus OSTRAKON_VISA_CALL viSetAttribute(ViSession session, ViAttr attribute, ViAttrState value)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    BusSession *found = DeviceSession(bus, session);
    if (found == nullptr)
        return VI_ERROR_INV_OBJECT;
    if (attribute != VI_ATTR_TMO_VALUE)
        return VI_ERROR_NSUP_ATTR;
    if (value > std::numeric_limits<std::uint32_t>::max())
        return VI_ERROR_NSUP_ATTR_STATE;
    found->Timeout = static_cast<ViUInt32>(value);
    return VI_SUCCESS;
}

ViStatus OSTRAKON_VISA_CALL viGetAttribute(ViSession session, ViAttr attribute, void *value)
{
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    const BusSession *found = DeviceSession(bus, session);
    if (found == nullptr)
        return VI_ERROR_INV_OBJECT;
    if (attribute != VI_ATTR_TMO_VALUE)
        return VI_ERROR_NSUP_ATTR;
    *static_cast<ViUInt32 *>(value) = found->Timeout;
    return VI_SUCCESS;
}

ViStatus OSTRAKON_VISA_CALL viUsbControlOut(ViSession session, ViInt16 bmRequestType, ViInt16 bRequest, ViUInt16 wValue,
                                            ViUInt16 wIndex, ViUInt16 wLength, const ViByte *buffer)
{
    if ((bmRequestType & DirectionIn) != 0)
        return VI_ERROR_INV_PARAMETER;
    if (wLength > 0 && buffer == nullptr)
        return VI_ERROR_USER_BUF;
    VisaBus &bus = TheBus();
    const BusLock lock(bus.Lock);
    // Any other kind of request goes out with a number that the instrument does not know, and so is stalled.
    const int request = bmRequestType == VendorOut ? bRequest : -1;
    return ControlOut(bus, session, request, wValue, wIndex, {buffer, wLength});
}
