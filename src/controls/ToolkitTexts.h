/// @file
/// The language of the texts that the toolkit itself brings: the buttons of message boxes and the whole of the common
/// dialogues.
#pragma once

#include <QLibraryInfo>
#include <QString>

/// Chooses Chinese, from the toolkit's own catalogue, or its built-in English. Dialogues follow when they next open.
/// Where the folder has no catalogue the texts stay English.
void SetToolkitTexts(bool chinese, const QString &folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath));
