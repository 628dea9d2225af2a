/// @file
/// Data files as the user's commands open them: read from an open file, or written straight to the disk.
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#ifdef Q_OS_UNIX
#include "platform/PosixFile.h"
#else
#include <memory>

class QFile;
#endif

/// A file open for reading, under a shared lock. It closes with this object, unless it is left open.
class InputFile {
public:
    /// @throws RuntimeError 53 when the file is missing, 76 when its folder is; 70 without permission, for what is no
    /// regular file, and while another process holds it; 57 for errors of the device
    explicit InputFile(const QString &path);
    ~InputFile();
    InputFile(InputFile &&) noexcept;
    InputFile &operator=(InputFile &&) noexcept;

    /// All bytes. @throws RuntimeError 7 for a file above 64 MiB, 57 for errors of the device
    QByteArray ReadAll() const;

    /// The first bytes, as many as there are up to a number of them. @throws RuntimeError 57 for errors of the device
    QByteArray ReadStart(qint64 most) const;

    /// Keeps a file open until the program ends. Others cannot hold it alone from then on, and this program does not
    /// write to it.
    static void LeaveOpen(InputFile file);

private:
#ifdef Q_OS_UNIX
    PosixFile m_file;
#else
    std::unique_ptr<QFile> m_file;
#endif
};

/// Empties a file, or makes it, and writes bytes to it. After an error the bytes ahead of it stand.
/// @throws RuntimeError 70 without permission, for what is no regular file, and while another process holds a lock
/// (flock) on it; 55 when this program has left it open; 76 without its folder; 61 without room; 57 for other errors of
/// the device
void WriteFileBytes(const QString &path, const QByteArray &bytes);
