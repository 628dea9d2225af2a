/// @file
/// Reference tables as text files, to be prepared in a spreadsheet or carried to another project. No box, no dialogue.
#pragma once

#include "project/ProjectTable.h"

#include <QByteArray>
#include <QString>

#include <cstdint>

/// How a file is laid out; the values are the positions in the filter.
enum class ReferenceDataLayout {
    Csv = 1, ///< fields with a comma between them
    Text = 2 ///< items in print zones, no comma
};

/// What the file dialogues offer: one pair for each layout, in their order.
inline const QString ReferenceDataFilter = QStringLiteral("CSV file(.CSV)|*.CSV|Text file(.txt)(T)|*.txt");

/// What makes a file unfit.
enum class ReferenceDataRefusal {
    None,
    RowCount,  ///< it begins with no number above 0
    Segment,   ///< a word begins with none of "T", "t", "F" and "f"
    Arithmetic ///< a row of the text layout ends with neither "0" nor "1"
};

/// The path that a chosen one stands for: cut at its first point, and with the layout's extension. A path without any
/// point stays as it is.
QString ReferenceDataPath(const QString &chosen, ReferenceDataLayout layout);

/// The file that is read when a path was chosen: the one at ReferenceDataPath. Where there is none, the chosen file if
/// its path differs only in case, or else the first file of that folder whose name does.
QString ReferenceDataPathToRead(const QString &chosen, ReferenceDataLayout layout);

/// The file of the rows 1 to count. Values keep 15 digits; the unit texts are not in it.
QByteArray ReferenceDataBytes(const ReferenceRows &rows, std::int32_t count, ReferenceDataLayout layout);

/// Reads a file into rows 1 to 500, of which those behind the file's count become unused. Rows of a file that is
/// refused or fails are of no use.
/// @throws RuntimeError 62 when the file ends too early, 13 for a value that is no number, 6 for one out of its range
ReferenceDataRefusal ReadReferenceDataBytes(const QByteArray &bytes, ReferenceDataLayout layout, ReferenceRows &rows);

/// Writes the rows 1 to count to a file, which is emptied first. @throws as WriteFileBytes
void WriteReferenceDataFile(const QString &path, const ReferenceRows &rows, std::int32_t count,
                            ReferenceDataLayout layout);

/// Reads a file as ReadReferenceDataBytes does, however much stands behind its rows. @throws as that and InputFile, and
/// RuntimeError 7 for a table of more than 16 MiB
ReferenceDataRefusal ReadReferenceDataFile(const QString &path, ReferenceDataLayout layout, ReferenceRows &rows);
