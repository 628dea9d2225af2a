/// @file
/// The text door to the instrument: reads the I/O settings and routes a command to the chosen transport.
#pragma once

#include <QString>

/// Reserved wording for a read time-out. Required: the texts are kept and no path shows them, since a read waits as
/// long as the VISA session does and a silent instrument is no error. Nobody should wire them to a behaviour.
namespace ReservedWording {
inline const QString UsbTimeOut = QStringLiteral("Read USB time out! ");
inline const QString UsbTimeOutTitle = QStringLiteral("USB Read Message");
inline const QString Rs232TimeOut = QStringLiteral("Read RS232 time out! ");
inline const QString Rs232TimeOutTitle = QStringLiteral("RS232 Read Message");
inline const QString RunEnded = QStringLiteral("Communication is failed, Measuring has been ended! ");
inline const QString RunEndedChinese = QStringLiteral("通信中断，测量结束! ");
inline const QString ParseFinished = QStringLiteral("PARSE FINISHED");
} // namespace ReservedWording

/// Puts the link's state to "down", switches TimeOutTimer on, shows the red indicator and reads the settings. Called
/// once, when the frame loads.
/// @throws RuntimeError 13 or 6 from LoadIOSettings
void InitIO();

/// Reads the six I/O settings of the store.
/// @throws RuntimeError 13 when a number's text is none, 6 when it does not fit; the settings behind it are not read
/// then
void LoadIOSettings();

/// Sends one command without a reply over USB. GPIB and RS232 carry nothing: no such device is opened.
void SendCommand(const QString &text);

/// Sends one command and returns its reply, empty when there is none. Only USB carries a query: with GPIB or RS232
/// nothing is sent.
QString QueryCommand(const QString &text);
