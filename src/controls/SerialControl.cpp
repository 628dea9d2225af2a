#include "controls/SerialControl.h"

#include "platform/RuntimeError.h"

#include <optional>

namespace {

constexpr int CharactersSent = 1;
constexpr int CharactersReceived = 2;
constexpr int ClearToSendTimeout = 1002;
constexpr int TransmitBufferFull = 1010;
constexpr int ControlBlockError = 1011;
constexpr int OtherLineError = 1012;

/// The event of an error on an open line. The toolkit does not tell breaks, framing, parity and overrun errors apart.
std::optional<int> EventOfError(QSerialPort::SerialPortError error)
{
    switch (error) {
    case QSerialPort::TimeoutError:
        return ClearToSendTimeout;
    case QSerialPort::WriteError:
        return TransmitBufferFull;
    case QSerialPort::UnsupportedOperationError:
        return ControlBlockError;
    case QSerialPort::ReadError:
    case QSerialPort::ResourceError:
    case QSerialPort::UnknownError:
        return OtherLineError;
    default:
        return std::nullopt; // opening failed, or no error
    }
}

} // namespace

SerialControl::SerialControl(QObject *parent) : QObject(parent)
{
    connect(&m_port, &QSerialPort::readyRead, this, [this] { Report(CharactersReceived); });
    connect(&m_port, &QSerialPort::bytesWritten, this, [this] { Report(CharactersSent); });
    connect(&m_port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        if (const std::optional<int> event = EventOfError(error))
            Report(*event);
    });
}

void SerialControl::Output(const QString &text)
{
    if (!m_port.isOpen())
        throw RuntimeError(ErrorNumber::PortClosed);
    m_port.write(text.toLocal8Bit());
}

QString SerialControl::Input()
{
    return m_port.isOpen() ? QString::fromLocal8Bit(m_port.readAll()) : QString();
}

void SerialControl::Report(int event)
{
    m_event = event;
    emit OnComm();
}
