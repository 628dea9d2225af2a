#include "platform/RuntimeError.h"

QString ErrorDescription(int number)
{
    switch (number) {
    case ErrorNumber::InvalidCall:
        return QStringLiteral("Invalid call");
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::OutOfMemory:
        return QStringLiteral("Out of memory");
    case ErrorNumber::OutOfRange:
        return QStringLiteral("Out of range");
    case ErrorNumber::DivisionByZero:
        return QStringLiteral("Division by zero");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::FileAlreadyOpen:
        return QStringLiteral("File already open");
    case ErrorNumber::DeviceError:
        return QStringLiteral("Device I/O error");
    case ErrorNumber::DiskFull:
        return QStringLiteral("Disk full");
    case ErrorNumber::InputPastEnd:
        return QStringLiteral("Input past end of file");
    case ErrorNumber::PermissionDenied:
        return QStringLiteral("Permission denied");
    case ErrorNumber::PathNotFound:
        return QStringLiteral("Path not found");
    case ErrorNumber::NoObject:
        return QStringLiteral("No object");
    case ErrorNumber::PortClosed:
        return QStringLiteral("The port is closed");
    case ErrorNumber::NoViewer:
        return QStringLiteral("No program opens this kind of file");
    case ErrorNumber::Cancelled:
        return QStringLiteral("Cancelled");
    default:
        return QStringLiteral("Unknown error");
    }
}
