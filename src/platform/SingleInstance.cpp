#include "platform/SingleInstance.h"

#include <QDir>
#include <QStandardPaths>

namespace {

QString MarkPath(const QString &name)
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::TempLocation);
    return QDir(folder).filePath(name + QStringLiteral(".lock"));
}

} // namespace

SingleInstance::SingleInstance(const QString &name) : m_lock(std::make_unique<QLockFile>(MarkPath(name)))
{
    // A mark never grows stale by age: the program may run for weeks. One whose process is gone does not hold.
    m_lock->setStaleLockTime(0);
    // A folder that cannot be written to says nothing about another instance, and must not keep the program from
    // starting.
    m_only = m_lock->tryLock(0) || m_lock->error() != QLockFile::LockFailedError;
}
