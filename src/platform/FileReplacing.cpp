#include "platform/FileReplacing.h"

#include "platform/RuntimeError.h"

#include <QFileInfo>

#ifdef Q_OS_UNIX

#include "platform/PosixFile.h"

#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int LongestLinkChain = 40; ///< links to links; as many as the system itself follows

/// The path itself, or what it leads to when it is a symbolic link.
QString LinkTarget(const QString &path)
{
    QFileInfo file(path);
    if (QString canonical = file.canonicalFilePath(); !canonical.isEmpty())
        return canonical;
    for (int links = 0; file.isSymLink() && links < LongestLinkChain; ++links)
        file.setFile(file.symLinkTarget()); // to a file that is still to be made
    return file.filePath();
}

/// The file that stands at the path, none when there is none.
std::optional<PosixFile> OldFile(const QString &path)
{
    try {
        return PosixFile::OpenForWriting(path);
    } catch (const RuntimeError &error) {
        if (error.Number() != ErrorNumber::FileNotFound)
            throw;
        return {};
    }
}

/// A name of its own in the target's folder. Not made of the target's, which may be as long as a name can be.
QString NameBeside(const QString &target)
{
    const quint64 number = QRandomGenerator::system()->generate64();
    return QFileInfo(target).path() + QStringLiteral("/.ostrakon-") + QString::number(number, 36);
}

/// A new file in the target's folder, which is gone with this object unless it has taken the target's place.
class FileBeside {
public:
    FileBeside(const QString &target, mode_t mode)
        : m_target(target), m_path(NameBeside(target)), m_file(PosixFile::Create(m_path, mode))
    {
    }

    ~FileBeside()
    {
        if (!m_inPlace)
            unlink(SystemPath(m_path).constData());
    }

    FileBeside(const FileBeside &) = delete;
    FileBeside &operator=(const FileBeside &) = delete;

    const PosixFile &File() const { return m_file; }

    void TakePlace()
    {
        if (std::rename(SystemPath(m_path).constData(), SystemPath(m_target).constData()) != 0)
            ThrowSystemError(errno, m_target);
        m_inPlace = true;
    }

private:
    QString m_target;
    QString m_path;
    PosixFile m_file;
    bool m_inPlace = false;
};

/// Makes the folder's new entry last. Without it a loss of power may bring the old file back, which is whole, too.
void SyncFolder(const QString &target)
{
    const FileDescriptor folder(
        open(SystemPath(QFileInfo(target).path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.Number() >= 0)
        fsync(folder.Number());
}

void ReplaceFromBeside(const QString &target, const std::optional<PosixFile> &old, const QByteArray &bytes)
{
    // Nobody else shall see the bytes ahead of the old file's own mode.
    FileBeside beside(target, old ? 0600 : 0666);
    if (old)
        beside.File().TakeAttributesOf(*old);
    beside.File().WriteAt(0, bytes);
    beside.File().Sync();
    beside.TakePlace();
    SyncFolder(target);
}

void Overwrite(const PosixFile &file, const QByteArray &bytes)
{
    const QByteArray before = file.ReadAll();
    try {
        // What lies behind the old end goes first: only there room can be lacking.
        if (bytes.size() > before.size())
            file.WriteAt(before.size(), QByteArrayView(bytes).sliced(before.size()));
        file.WriteAt(0, QByteArrayView(bytes).first(qMin(bytes.size(), before.size())));
        file.Resize(bytes.size());
        file.Sync();
    } catch (const RuntimeError &) {
        file.WriteAt(0, before);
        file.Resize(before.size());
        file.Sync();
        throw;
    }
}

} // namespace

void ReplaceWholeFile(const QString &path, const QByteArray &bytes)
{
    const QString target = LinkTarget(path);
    const std::optional<PosixFile> old = OldFile(target);
    try {
        ReplaceFromBeside(target, old, bytes);
    } catch (const RuntimeError &error) {
        if (!old || error.Number() != ErrorNumber::PermissionDenied)
            throw;
        Overwrite(*old, bytes);
    }
}

#else

#include <QSaveFile>

void ReplaceWholeFile(const QString &path, const QByteArray &bytes)
{
    if (!QFileInfo(QFileInfo(path).path()).isDir())
        throw RuntimeError(ErrorNumber::PathNotFound);
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    // A file that another process has open without sharing it does not open, and is not replaced.
    if (!file.open(QIODevice::WriteOnly))
        throw RuntimeError(ErrorNumber::PermissionDenied);
    // Flushed first: the toolkit's commit overlooks a last write that fails.
    if (file.write(bytes) == bytes.size() && file.flush() && file.commit())
        return;
    const QFileDevice::FileError error = file.error();
    const bool refused = error == QFileDevice::RenameError || error == QFileDevice::PermissionsError;
    throw RuntimeError(error == QFileDevice::ResourceError ? ErrorNumber::DiskFull
                       : refused                           ? ErrorNumber::PermissionDenied
                                                           : ErrorNumber::DeviceError);
}

#endif
