/// @file
/// The per-user settings store: text values by application, section and key.
#pragma once

#include <QString>

/// The stored text, or the default when there is none.
/// @throws RuntimeError 13 when the store's file is damaged
QString ReadSetting(const QString &application, const QString &section, const QString &key, const QString &absent);

/// Stores a text, on disk when the call returns.
/// @throws RuntimeError 13 when the store's file is damaged: it is left as it is; 70 when it may not be written
void WriteSetting(const QString &application, const QString &section, const QString &key, const QString &value);
