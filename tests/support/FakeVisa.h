/// @file
/// A VISA function table without any device: what it finds, replies and refuses is scripted, what it is asked is
/// recorded.
///     void init() { FakeVisa::Reset(); Visa = &FakeVisa::Table(); }
/// A test that needs no connect sequence takes a session directly: `VisaSession = FakeVisa::OpenSession(); LinkUp =
/// true;`
#pragma once

#include "visa/VisaTable.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QHash>
#include <QList>
#include <QSet>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <utility>

namespace FakeVisa {

/// One vendor control transfer as it was asked for, refused ones included.
struct ControlTransfer {
    ViSession Session = VI_NULL;
    int RequestType = 0;
    int Request = 0;
    int Value = 0;
    int Index = 0;
    int Length = 0;
    QByteArray Data;    ///< Length bytes of the caller's buffer
    int FirstByte = -1; ///< first byte of the buffer, also when Length is 0; -1 without a buffer
};

/// One opening of a device.
struct Opening {
    ViSession Manager = VI_NULL;
    QByteArray Name;
    ViAccessMode Mode = 0;
    ViUInt32 Timeout = 0;
};

struct Script {
    // What is there.

    QByteArrayList Resources{"USB0::0xFFFE::0x7060::KV70600001::INSTR"}; ///< what is found, in this order
    std::optional<ViUInt32> FoundCount;                                  ///< reported instead of their number

    // What the instrument says. A read takes the first of Replies while there is one; else the standing reply to the
    // last line written since the last read; else, and for a null QByteArray in Replies, it ends in VI_ERROR_TMO with
    // the buffer as it was. Replies are given as they stand: a line feed belongs to them.

    QList<QByteArray> Replies;
    QHash<QByteArray, QByteArray> Standing; ///< by the line, without its line feed
    bool Silent = false;                    ///< no reply whatever

    // Statuses that the calls give. A negative one refuses: nothing is found, opened or closed then.

    ViStatus OpenManagerStatus = VI_SUCCESS;
    ViStatus FindStatus = VI_SUCCESS;
    ViStatus FindNextStatus = VI_SUCCESS;
    ViStatus OpenStatus = VI_SUCCESS;
    ViStatus CloseStatus = VI_SUCCESS;
    ViStatus ControlStatus = VI_SUCCESS;
    QHash<int, ViStatus> ControlStatusOf;       ///< by bRequest, ahead of ControlStatus
    ViStatus WriteFailure = VI_ERROR_CONN_LOST; ///< what a failing write gives
    ViStatus WriteSuccess = VI_SUCCESS;         ///< what any other write gives; 0 or positive
    QSet<int> FailingWrites;                    ///< numbers of the writes that fail, counted from 1 since Reset
    std::optional<int> FailWritesFrom;          ///< from this number on all writes fail, as after an unplugging
    std::function<void(const QByteArray &)>
        OnWrite;                  ///< called at each write with its text, before it is refused or done
    std::function<void()> OnRead; ///< called at each read, before the reply is looked for

    // What was asked, since Reset.

    int ManagersOpened = 0;
    QByteArrayList Expressions; ///< of viFindRsrc
    int FindNexts = 0;
    QList<Opening> Openings;    ///< refused ones included
    QList<ViObject> Closed;     ///< objects handed to viClose, refused ones included
    QByteArrayList Written;     ///< texts that arrived, with their line feed
    QByteArrayList Refused;     ///< texts of the writes that failed, with their line feed
    QList<int> WriteArguments;  ///< the 16-bit word that each write's argument points to
    QByteArrayList ReadFormats; ///< one a read, failed ones included
    QList<ControlTransfer> Transfers;

    // The inner state.

    QSet<ViSession> OpenSessions;
    ViObject LastObject = 100;
    int NextResource = 0;
    QByteArray Unanswered; ///< last line written since the last read
};

/// The one script. A test writes into it what shall happen, and reads what has happened.
inline Script &State()
{
    static Script script;
    return script;
}

/// One KV7060 that opens, takes every line and is silent; nothing recorded.
inline void Reset()
{
    State() = Script();
}

/// A session that is open, without any search.
inline ViSession OpenSession()
{
    const ViSession session = ++State().LastObject;
    State().OpenSessions.insert(session);
    return session;
}

/// Writes so far, failed ones included.
inline int WriteCount()
{
    return static_cast<int>(State().Written.size() + State().Refused.size());
}

/// All writes from the next one on fail.
inline void Unplug()
{
    State().FailWritesFrom = WriteCount() + 1;
}

/// The next write fails, the ones behind it pass.
inline void FailNextWrite()
{
    State().FailingWrites.insert(WriteCount() + 1);
}

/// Reads so far, failed ones included.
inline int ReadCount()
{
    return static_cast<int>(State().ReadFormats.size());
}

/// Forgets the lines, reads and transfers so far. Numbers of failing writes count anew from here.
inline void ClearRecords()
{
    Script &script = State();
    script.Written.clear();
    script.Refused.clear();
    script.WriteArguments.clear();
    script.ReadFormats.clear();
    script.Transfers.clear();
    script.Unanswered.clear();
}

/// The lines that arrived, each without the one line feed at its end; a line without one is marked.
inline QByteArrayList Lines()
{
    QByteArrayList lines;
    for (const QByteArray &text : State().Written)
        lines.append(text.endsWith('\n') ? text.chopped(1) : text + "(no line feed)");
    return lines;
}

namespace Detail {

inline void Give(const QByteArray &text, ViChar *buffer)
{
    std::memcpy(buffer, text.constData(), static_cast<std::size_t>(text.size()) + 1);
}

inline ViStatus OSTRAKON_VISA_CALL OpenDefaultRM(ViSession *manager)
{
    Script &script = State();
    ++script.ManagersOpened;
    *manager = script.OpenManagerStatus < 0 ? VI_NULL : ++script.LastObject;
    return script.OpenManagerStatus;
}

inline ViStatus OSTRAKON_VISA_CALL FindRsrc(ViSession, ViConstString expression, ViFindList *list, ViUInt32 *count,
                                            ViChar *description)
{
    Script &script = State();
    script.Expressions.append(expression);
    const bool none = script.FindStatus < 0 || script.Resources.isEmpty();
    *count = none ? 0 : script.FoundCount.value_or(static_cast<ViUInt32>(script.Resources.size()));
    *list = none ? VI_NULL : ++script.LastObject;
    if (none)
        return std::min(script.FindStatus, VI_ERROR_RSRC_NFOUND);
    Give(script.Resources.front(), description);
    script.NextResource = 1;
    return VI_SUCCESS;
}

inline ViStatus OSTRAKON_VISA_CALL FindNext(ViFindList, ViChar *description)
{
    Script &script = State();
    ++script.FindNexts;
    if (script.FindNextStatus < 0)
        return script.FindNextStatus;
    if (script.NextResource >= script.Resources.size())
        return VI_ERROR_RSRC_NFOUND;
    Give(script.Resources[script.NextResource++], description);
    return VI_SUCCESS;
}

inline ViStatus OSTRAKON_VISA_CALL Open(ViSession manager, ViConstRsrc name, ViAccessMode mode, ViUInt32 timeout,
                                        ViSession *session)
{
    Script &script = State();
    script.Openings.append({manager, name, mode, timeout});
    // Refused, the caller's session is left as it was: not every library clears it.
    if (script.OpenStatus < 0)
        return script.OpenStatus;
    *session = OpenSession();
    return script.OpenStatus;
}

inline ViStatus OSTRAKON_VISA_CALL Close(ViObject object)
{
    Script &script = State();
    script.Closed.append(object);
    if (script.CloseStatus >= 0)
        script.OpenSessions.remove(object);
    return script.CloseStatus;
}

inline ViStatus OSTRAKON_VISA_CALL Print(ViSession session, ViConstString format, ViVAList arguments)
{
    Script &script = State();
    const QByteArray text(format);
    if (script.OnWrite)
        script.OnWrite(text);
    script.WriteArguments.append(*va_arg(arguments, const std::int16_t *));
    const int number = WriteCount() + 1;
    const bool open = script.OpenSessions.contains(session);
    if (!open || script.FailingWrites.contains(number) || (script.FailWritesFrom && number >= *script.FailWritesFrom)) {
        script.Refused.append(text);
        return open ? script.WriteFailure : VI_ERROR_INV_OBJECT;
    }
    script.Written.append(text);
    script.Unanswered = text.endsWith('\n') ? text.chopped(1) : text;
    return script.WriteSuccess;
}

/// The reply that a read gives, none for a silence.
inline std::optional<QByteArray> TakeReply()
{
    Script &script = State();
    const QByteArray line = std::exchange(script.Unanswered, QByteArray());
    if (script.Silent)
        return std::nullopt;
    if (!script.Replies.isEmpty()) {
        const QByteArray reply = script.Replies.takeFirst();
        return reply.isNull() ? std::nullopt : std::optional(reply);
    }
    const auto standing = script.Standing.constFind(line);
    return standing == script.Standing.constEnd() ? std::nullopt : std::optional(*standing);
}

inline ViStatus OSTRAKON_VISA_CALL Scan(ViSession session, ViConstString format, ViVAList arguments)
{
    Script &script = State();
    script.ReadFormats.append(format);
    if (script.OnRead)
        script.OnRead();
    if (!script.OpenSessions.contains(session))
        return VI_ERROR_INV_OBJECT;
    const std::optional<QByteArray> reply = TakeReply();
    if (!reply)
        return VI_ERROR_TMO;
    Give(*reply, va_arg(arguments, ViChar *));
    return VI_SUCCESS;
}

inline ViStatus OSTRAKON_VISA_CALL ControlOut(ViSession session, ViInt16 requestType, ViInt16 request, ViUInt16 value,
                                              ViUInt16 index, ViUInt16 length, const ViByte *buffer)
{
    Script &script = State();
    const QByteArray data(reinterpret_cast<const char *>(buffer), length);
    script.Transfers.append({session, requestType, request, value, index, length, data, buffer ? *buffer : -1});
    if (!script.OpenSessions.contains(session))
        return VI_ERROR_INV_OBJECT;
    return script.ControlStatusOf.value(request, script.ControlStatus);
}

} // namespace Detail

/// The table over the script; lives as long as the process.
inline const VisaTable &Table()
{
    static const VisaTable table = {Detail::OpenDefaultRM, Detail::FindRsrc, Detail::FindNext, Detail::Open,
                                    Detail::Close,         Detail::Print,    Detail::Scan,     Detail::ControlOut};
    return table;
}

} // namespace FakeVisa
