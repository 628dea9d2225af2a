#include "platform/PosixFile.h"

#include "platform/RuntimeError.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <concepts>
#include <cstddef>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 ReadStep = 1 << 16; ///< bytes asked of the system at a time
constexpr mode_t NewFileMode = 0666; ///< the process's mask takes from it

int ErrorOfSystem(int code)
{
    switch (code) {
    case EACCES:
    case EPERM:
    case EROFS:
    case EAGAIN: // another process holds a lock or a lease
    case EBUSY:
    case ETXTBSY:
    case EISDIR:
    case EBADF: // not opened for this
        return ErrorNumber::PermissionDenied;
    case ENOENT:
        return ErrorNumber::FileNotFound;
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG:
        return ErrorNumber::PathNotFound;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ErrorNumber::DiskFull;
    case ENOMEM:
    case EMFILE:
    case ENFILE:
        return ErrorNumber::OutOfMemory;
    default:
        return ErrorNumber::DeviceError;
    }
}

/// What a system call answers; one that a signal has broken off is made again.
template <std::invocable Call>
auto Answer(const Call &call)
{
    auto answer = call();
    while (answer < 0 && errno == EINTR)
        answer = call();
    return answer;
}

/// A pipe would wait for its other end and a device may act on being opened, so this is asked ahead of it.
void RefuseUnlessRegular(const struct stat &status)
{
    if (!S_ISREG(status.st_mode))
        throw RuntimeError(ErrorNumber::PermissionDenied);
}

/// Not every file system knows locks; there nobody can hold one.
void TakeLock(int descriptor, int lock)
{
    if (flock(descriptor, lock | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        ThrowSystemError(errno);
}

/// What stays open until the program ends.
std::vector<FileDescriptor> &LeftOpen()
{
    static std::vector<FileDescriptor> files;
    return files;
}

bool IsLeftOpen(const struct stat &status)
{
    return std::ranges::any_of(LeftOpen(), [&status](const FileDescriptor &file) {
        struct stat kept {};
        return fstat(file.Number(), &kept) == 0 && kept.st_dev == status.st_dev && kept.st_ino == status.st_ino;
    });
}

} // namespace

FileDescriptor::FileDescriptor(FileDescriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}

FileDescriptor &FileDescriptor::operator=(FileDescriptor &&other) noexcept
{
    std::swap(m_number, other.m_number);
    return *this;
}

FileDescriptor::~FileDescriptor()
{
    if (m_number >= 0)
        close(m_number);
}

PosixFile PosixFile::Open(const QString &path, int access, int lock)
{
    const QByteArray name = SystemPath(path);
    struct stat status {};
    if (stat(name.constData(), &status) == 0) {
        RefuseUnlessRegular(status);
        access &= ~O_CREAT; // which systems refuse for the files of others in folders that all may write to
    } else if (errno != ENOENT || (access & O_CREAT) == 0) {
        ThrowSystemError(errno, path);
    }
    const auto opened = [&name](int mode) {
        return FileDescriptor(
            Answer([&] { return open(name.constData(), mode | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, NewFileMode); }));
    };
    FileDescriptor descriptor = opened(access);
    if (descriptor.Number() < 0 && errno == EACCES && access == O_RDWR)
        descriptor = opened(O_WRONLY);
    if (descriptor.Number() < 0 || fstat(descriptor.Number(), &status) != 0)
        ThrowSystemError(errno, path);
    RefuseUnlessRegular(status); // what stands there may have changed in between
    if (lock == LOCK_EX && IsLeftOpen(status))
        throw RuntimeError(ErrorNumber::FileAlreadyOpen);
    TakeLock(descriptor.Number(), lock);
    return PosixFile(std::move(descriptor));
}

PosixFile PosixFile::OpenForReading(const QString &path)
{
    return Open(path, O_RDONLY, LOCK_SH);
}

PosixFile PosixFile::OpenForWriting(const QString &path)
{
    return Open(path, O_RDWR, LOCK_EX);
}

PosixFile PosixFile::OpenEmptied(const QString &path)
{
    PosixFile file = Open(path, O_WRONLY | O_CREAT, LOCK_EX);
    file.Resize(0);
    return file;
}

PosixFile PosixFile::Create(const QString &path, mode_t mode)
{
    FileDescriptor descriptor(open(SystemPath(path).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (descriptor.Number() < 0)
        ThrowSystemError(errno, path);
    return PosixFile(std::move(descriptor));
}

QByteArray PosixFile::ReadAll() const
{
    const QByteArray bytes = ReadStart(LargestFile + 1);
    if (bytes.size() > LargestFile)
        throw RuntimeError(ErrorNumber::OutOfMemory);
    return bytes;
}

QByteArray PosixFile::ReadStart(qint64 most) const
{
    QByteArray bytes;
    while (bytes.size() < most) {
        const qsizetype before = bytes.size();
        const qint64 step = std::min(ReadStep, most - before);
        bytes.resize(before + step);
        const ssize_t count = Answer([&] {
            return pread(m_descriptor.Number(), bytes.data() + before, static_cast<std::size_t>(step), before);
        });
        if (count < 0)
            ThrowSystemError(errno);
        bytes.resize(before + count);
        if (count == 0)
            break;
    }
    return bytes;
}

void PosixFile::WriteAt(qint64 position, QByteArrayView bytes) const
{
    while (!bytes.isEmpty()) {
        const ssize_t count = Answer([&] {
            return pwrite(m_descriptor.Number(), bytes.data(), static_cast<std::size_t>(bytes.size()), position);
        });
        if (count <= 0)
            ThrowSystemError(count < 0 ? errno : ENOSPC);
        bytes = bytes.sliced(count);
        position += count;
    }
}

void PosixFile::Resize(qint64 size) const
{
    if (Answer([&] { return ftruncate(m_descriptor.Number(), size); }) != 0)
        ThrowSystemError(errno);
}

void PosixFile::Sync() const
{
    const bool synced = Answer([&] { return fsync(m_descriptor.Number()); }) == 0;
    const bool unknown = errno == EINVAL || errno == ENOTSUP || errno == ENOSYS; // to the file system
    if (!synced && !unknown)
        ThrowSystemError(errno);
}

void PosixFile::LeaveOpen(PosixFile file)
{
    struct stat status {};
    if (fstat(file.m_descriptor.Number(), &status) != 0)
        ThrowSystemError(errno);
    if (!IsLeftOpen(status))
        LeftOpen().push_back(std::move(file.m_descriptor));
}

void PosixFile::TakeAttributesOf(const PosixFile &other) const
{
    struct stat status {};
    if (fstat(other.m_descriptor.Number(), &status) != 0)
        ThrowSystemError(errno);
    // Only the superuser gives files away; others at least keep a group of their own.
    if (fchown(m_descriptor.Number(), status.st_uid, status.st_gid) != 0)
        static_cast<void>(fchown(m_descriptor.Number(), static_cast<uid_t>(-1), status.st_gid));
    // A file system that keeps no modes refuses them.
    static_cast<void>(fchmod(m_descriptor.Number(), status.st_mode & 07777U));
}

QByteArray SystemPath(const QString &path)
{
    if (path.contains(QChar(0)))
        throw RuntimeError(ErrorNumber::PathNotFound);
    return QFile::encodeName(path);
}

void ThrowSystemError(int code, const QString &path)
{
    const bool folderMissing = code == ENOENT && !QFileInfo(QFileInfo(path).path()).isDir();
    throw RuntimeError(folderMissing ? ErrorNumber::PathNotFound : ErrorOfSystem(code));
}
