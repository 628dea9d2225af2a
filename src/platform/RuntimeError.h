/// @file
/// Run-time errors by number: what a failing step throws, and the plain description that a user sees.
#pragma once

#include <QString>

#include <concepts>
#include <exception>
#include <optional>
#include <utility>

/// The numbers in use. Code branches on PermissionDenied and Cancelled only; all others end in a box or are set aside.
namespace ErrorNumber {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int OutOfRange = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyOpen = 55;
inline constexpr int DeviceError = 57;
inline constexpr int DiskFull = 61;
inline constexpr int InputPastEnd = 62;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathNotFound = 76;
inline constexpr int NoObject = 91;
inline constexpr int PortClosed = 8018;
inline constexpr int NoViewer = 32751;
inline constexpr int Cancelled = 32755;
} // namespace ErrorNumber

/// The plain description of an error number, in English; "Unknown error" for a number that is not in use.
QString ErrorDescription(int number);

/// A run-time error. It never crosses a signal: Guard (controls/Guard.h) or a routine's own trap ends its way.
class RuntimeError : public std::exception {
public:
    explicit RuntimeError(int number) : m_number(number) {}

    int Number() const { return m_number; }
    QString Description() const { return ErrorDescription(m_number); }
    const char *what() const noexcept override { return "run-time error"; }

private:
    int m_number;
};

/// Runs steps with run-time errors set aside: a failing step is left where it failed, the next one is tried.
class ErrorsSetAside {
public:
    template <std::invocable Step>
    void Run(Step &&step)
    {
        try {
            std::forward<Step>(step)();
        } catch (const RuntimeError &error) {
            m_last = error;
        }
    }

    /// The error of the last step that failed, none when all went well.
    const std::optional<RuntimeError> &Last() const { return m_last; }

private:
    std::optional<RuntimeError> m_last;
};
