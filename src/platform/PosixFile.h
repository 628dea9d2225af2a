/// @file
/// A regular file held open by its descriptor, with the system's refusals as run-time errors. Not for Windows.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <utility>

#include <sys/types.h>

/// Its descriptor, which closes itself.
class FileDescriptor {
public:
    explicit FileDescriptor(int number) : m_number(number) {}
    FileDescriptor(FileDescriptor &&other) noexcept;
    FileDescriptor &operator=(FileDescriptor &&other) noexcept;
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;
    ~FileDescriptor();

    int Number() const { return m_number; }

private:
    int m_number; ///< -1 for none
};

/// A regular file. Whatever else stands at a path, a folder, a pipe or a device, is refused with 70 and never waited
/// for. Every operation throws RuntimeError: 53 when the file is missing, 76 when its folder is, 70 without permission
/// or while another process holds a lock (flock) on the file, 55 for writing what this program has left open, 61 when
/// there is no room, 7 without memory, 57 for what else goes wrong with a device.
class PosixFile {
public:
    /// An existing file, with a shared lock.
    static PosixFile OpenForReading(const QString &path);

    /// An existing file with its bytes as they are, with an exclusive lock. Its bytes can be read, too, if the user
    /// may.
    static PosixFile OpenForWriting(const QString &path);

    /// The file, made when it is missing, with an exclusive lock. What was in it is gone.
    static PosixFile OpenEmptied(const QString &path);

    /// A new, empty file; 57 when something stands there already. The process's mask takes from the mode.
    static PosixFile Create(const QString &path, mode_t mode);

    /// All bytes, wherever the file has been written or read before; 7 for a file above LargestFile.
    QByteArray ReadAll() const;

    /// The first bytes, as many as there are up to a number of them.
    QByteArray ReadStart(qint64 most) const;

    /// Writes all bytes at a position. After an error any part of them may have been written.
    void WriteAt(qint64 position, QByteArrayView bytes) const;

    void Resize(qint64 size) const;

    /// Returns when the file is on the disk.
    void Sync() const;

    /// Keeps a file open, and its lock held, until the program ends. The same file is kept once.
    static void LeaveOpen(PosixFile file);

    /// Takes owner, group and mode of another file over, as far as the system allows.
    void TakeAttributesOf(const PosixFile &other) const;

    /// Bytes; thousands of times what a table of 500 rows takes.
    static constexpr qint64 LargestFile = qint64(64) << 20;

private:
    explicit PosixFile(FileDescriptor descriptor) : m_descriptor(std::move(descriptor)) {}
    static PosixFile Open(const QString &path, int access, int lock);

    FileDescriptor m_descriptor;
};

/// The path as the system takes it.
/// @throws RuntimeError 76 when it has a zero character in it, since the system would take the part ahead of it
QByteArray SystemPath(const QString &path);

/// Throws the run-time error that stands for a number of errno.
/// @param path what the call was about; decides between 53 and 76
[[noreturn]] void ThrowSystemError(int code, const QString &path = {});
