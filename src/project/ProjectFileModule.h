/// @file
/// The project file: one sensor definition and its reference rows as lines of text. No box, no dialogue.
#pragma once

#include <QByteArray>
#include <QString>

class ErrorsSetAside;

/// What the file dialogues offer.
inline const QString ProjectFileFilter = QStringLiteral("Project file(.spj)|*.spj");

/// Name of a project that a file's path gives: without the folder, and without everything from the first point on.
/// Folders end at "/", on Windows at "\\" too.
QString ProjectNameOfPath(const QString &path);

/// Writes a slot's definition and rows. Replaces an old file only when the new one is whole on disk; on any failure the
/// old one is untouched. Writes ProjectPointCount.
/// @throws RuntimeError 70 without permission or when another process holds the file, 76 without its folder, 61 when
/// the disk is full, 9 when the slot is not 0 to 9
void WriteProjectFile(int slot, const QString &path);

/// Reads a file into a slot, field by field: a step that fails leaves its field as it was, and the next is tried. Marks
/// the rows of the slot unused ahead of the file's own. Writes ProjectPointCount. A file that cannot be read is one
/// failing step, and leaves all but those marks.
/// @throws RuntimeError 9 when the slot is not 0 to 9
void ReadProjectFile(int slot, const QString &path, ErrorsSetAside &steps);

/// The bytes that WriteProjectFile puts on the disk. Writes ProjectPointCount. @throws as LastUsedRow
QByteArray ProjectFileBytes(int slot);

/// What ReadProjectFile does with the bytes of a file, whatever they are. @throws as above
void ReadProjectBytes(int slot, const QByteArray &bytes, ErrorsSetAside &steps);
