#include "platform/FileAccess.h"

#include <utility>

#ifdef Q_OS_UNIX

InputFile::InputFile(const QString &path) : m_file(PosixFile::OpenForReading(path)) {}

QByteArray InputFile::ReadAll() const
{
    return m_file.ReadAll();
}

QByteArray InputFile::ReadStart(qint64 most) const
{
    return m_file.ReadStart(most);
}

void InputFile::LeaveOpen(InputFile file)
{
    PosixFile::LeaveOpen(std::move(file.m_file));
}

void WriteFileBytes(const QString &path, const QByteArray &bytes)
{
    PosixFile::OpenEmptied(path).WriteAt(0, bytes);
}

#else

#include "platform/RuntimeError.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace {

constexpr qint64 LargestFile = qint64(64) << 20; ///< bytes

std::vector<std::unique_ptr<QFile>> &LeftOpen()
{
    static std::vector<std::unique_ptr<QFile>> files;
    return files;
}

bool IsLeftOpen(const QFileInfo &info)
{
    return std::ranges::any_of(LeftOpen(), [&info](const auto &file) { return QFileInfo(*file) == info; });
}

} // namespace

InputFile::InputFile(const QString &path) : m_file(std::make_unique<QFile>(path))
{
    const QFileInfo info(path);
    if (!info.exists())
        throw RuntimeError(QFileInfo(info.path()).isDir() ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
    // A file that another process has open without sharing it does not open.
    if (!info.isFile() || !m_file->open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorNumber::PermissionDenied);
}

QByteArray InputFile::ReadAll() const
{
    if (m_file->size() > LargestFile)
        throw RuntimeError(ErrorNumber::OutOfMemory);
    return ReadStart(LargestFile);
}

QByteArray InputFile::ReadStart(qint64 most) const
{
    QByteArray bytes;
    if (m_file->seek(0))
        bytes = m_file->read(most);
    if (m_file->error() != QFileDevice::NoError)
        throw RuntimeError(ErrorNumber::DeviceError);
    return bytes;
}

void InputFile::LeaveOpen(InputFile file)
{
    if (!IsLeftOpen(QFileInfo(*file.m_file)))
        LeftOpen().push_back(std::move(file.m_file));
}

void WriteFileBytes(const QString &path, const QByteArray &bytes)
{
    const QFileInfo info(path);
    if (!QFileInfo(info.path()).isDir())
        throw RuntimeError(ErrorNumber::PathNotFound);
    if (info.exists() && IsLeftOpen(info))
        throw RuntimeError(ErrorNumber::FileAlreadyOpen);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw RuntimeError(ErrorNumber::PermissionDenied);
    if (file.write(bytes) != bytes.size())
        throw RuntimeError(file.error() == QFileDevice::ResourceError ? ErrorNumber::DiskFull
                                                                      : ErrorNumber::DeviceError);
}

#endif

InputFile::~InputFile() = default;
InputFile::InputFile(InputFile &&) noexcept = default;
InputFile &InputFile::operator=(InputFile &&) noexcept = default;
