#include "platform/SettingsStore.h"

#include "platform/RuntimeError.h"

#include <QFile>
#include <QSettings>
#include <QStringDecoder>
#include <QStringList>
#include <QVariant>

#include <algorithm>

namespace {

bool IsStoreLine(QByteArray line)
{
    line = line.trimmed();
    return line.isEmpty() || line.startsWith(';') || (line.startsWith('[') ? line.contains(']') : line.contains('='));
}

/// Whether the bytes are such as the toolkit writes: sections, keys with values and comments, in UTF-8.
bool IsStoreText(QByteArray bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    if (decoder.hasError() || text.contains(QChar(0)))
        return false;
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    const QList<QByteArray> lines = bytes.replace('\r', '\n').split('\n');
    return std::all_of(lines.begin(), lines.end(), IsStoreLine);
}

/// @throws RuntimeError 13 when the file is there and is no settings store
void RefuseDamagedFile(const QSettings &store)
{
    // The toolkit tells of a damaged file once, then keeps what it could make of it. So the bytes are looked at each
    // time.
    QFile file(store.fileName());
    const bool damaged = file.open(QIODevice::ReadOnly) && !IsStoreText(file.readAll());
    if (damaged || store.status() == QSettings::FormatError)
        throw RuntimeError(ErrorNumber::TypeMismatch);
}

QString KeyPath(const QString &section, const QString &key)
{
    return section + u'/' + key;
}

} // namespace

QString ReadSetting(const QString &application, const QString &section, const QString &key, const QString &absent)
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, application);
    store.setFallbacksEnabled(false);
    RefuseDamagedFile(store);
    const QVariant value = store.value(KeyPath(section, key), absent);
    // A comma that somebody wrote by hand, without quotes, makes a list in the toolkit's eyes.
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u',') : value.toString();
}

void WriteSetting(const QString &application, const QString &section, const QString &key, const QString &value)
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, application);
    store.setFallbacksEnabled(false);
    RefuseDamagedFile(store);
    if (!store.isWritable())
        throw RuntimeError(ErrorNumber::PermissionDenied);
    const QString path = KeyPath(section, key);
    const QVariant before = store.value(path);
    store.setValue(path, value);
    store.sync();
    if (store.status() == QSettings::NoError)
        return;
    // The toolkit would go on to show, and later to write, a value whose storing has failed.
    if (before.isValid()) {
        store.setValue(path, before);
    } else {
        store.remove(path);
    }
    throw RuntimeError(ErrorNumber::PermissionDenied);
}
