#include "curve/ReferenceDataFile.h"

#include "platform/FileAccess.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "platform/SequentialFile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr qint64 MostBytes = qint64(16) << 20; ///< of a table; hundreds of times what 500 rows take

constexpr int EmptyFields = 3; ///< behind the count, so that a spreadsheet sees the columns of the rows in every line

QString ExtensionOf(ReferenceDataLayout layout)
{
    return layout == ReferenceDataLayout::Csv ? QStringLiteral(".CSV") : QStringLiteral(".txt");
}

void WriteComma(SequentialWriter &writer)
{
    writer.WriteText(u",");
}

void WriteCount(SequentialWriter &writer, std::int32_t count, ReferenceDataLayout layout)
{
    writer.WriteNumber(count);
    for (int field = 0; layout == ReferenceDataLayout::Csv && field < EmptyFields; ++field)
        WriteComma(writer);
    writer.EndLine();
}

void WriteRow(SequentialWriter &writer, const ReferencePoint &row, ReferenceDataLayout layout)
{
    const auto separate = [&] {
        if (layout == ReferenceDataLayout::Csv) {
            WriteComma(writer);
        } else {
            writer.NextZone();
        }
    };
    writer.WriteNumber(row.Input);
    separate();
    writer.WriteNumber(row.Output);
    separate();
    writer.WriteBoolean(row.Segment);
    separate();
    writer.WriteNumber(row.Arithmetic);
    writer.EndLine();
}

/// Rows that a file holds; 0 when its first field is negative or no number. A count beyond the table, however large, is
/// the table's size.
std::int32_t ReadCount(SequentialReader &reader)
{
    try {
        return RoundToInt32(std::clamp<double>(reader.ReadNumber(), 0, ReferenceRowLimit));
    } catch (const RuntimeError &error) {
        if (error.Number() != ErrorNumber::TypeMismatch)
            throw;
        return 0;
    }
}

/// Required: the first letter alone decides, whatever word follows.
std::optional<bool> SegmentOf(QStringView text)
{
    const QChar first = text.isEmpty() ? QChar() : text.front().toLower();
    if (first != u't' && first != u'f')
        return {};
    return first == u't';
}

/// Required: any arithmetic is taken here, only the text layout tests it.
ReferenceDataRefusal ReadCsvMethod(SequentialReader &reader, ReferencePoint &row)
{
    const std::optional<bool> segment = SegmentOf(reader.ReadText());
    if (!segment)
        return ReferenceDataRefusal::Segment;
    row.Segment = *segment;
    row.Arithmetic = RoundToInt16(reader.ReadNumber());
    return ReferenceDataRefusal::None;
}

/// The last character of a text that does not begin with a blank. A number has a blank behind it.
QChar LastCharacter(QStringView text)
{
    while (text.back() == u' ' || text.back() == u'\t')
        text.chop(1);
    return text.back();
}

/// Without a comma, the rest of a line is one text: the word and, as its last character, the arithmetic.
ReferenceDataRefusal ReadTextMethod(SequentialReader &reader, ReferencePoint &row)
{
    const QString text = reader.ReadText();
    const std::optional<bool> segment = SegmentOf(text);
    if (!segment)
        return ReferenceDataRefusal::Segment;
    row.Segment = *segment;
    const QChar last = LastCharacter(text);
    if (last != u'0' && last != u'1')
        return ReferenceDataRefusal::Arithmetic;
    row.Arithmetic = static_cast<std::int16_t>(last.digitValue());
    return ReferenceDataRefusal::None;
}

ReferenceDataRefusal ReadRow(SequentialReader &reader, ReferenceDataLayout layout, ReferencePoint &row)
{
    row.Used = true;
    row.Input = reader.ReadNumber();
    row.Output = reader.ReadNumber();
    return layout == ReferenceDataLayout::Csv ? ReadCsvMethod(reader, row) : ReadTextMethod(reader, row);
}

ReferenceDataRefusal ReadTable(SequentialReader &reader, ReferenceDataLayout layout, ReferenceRows &rows)
{
    const std::int32_t count = ReadCount(reader);
    if (count == 0)
        return ReferenceDataRefusal::RowCount;
    for (int field = 0; layout == ReferenceDataLayout::Csv && field < EmptyFields; ++field)
        reader.ReadText();
    for (std::int32_t row = 1; row <= count; ++row) {
        const ReferenceDataRefusal refusal = ReadRow(reader, layout, rows[row]);
        if (refusal != ReferenceDataRefusal::None)
            return refusal;
    }
    std::for_each(rows.begin() + count + 1, rows.end(), [](ReferencePoint &row) { row.Used = false; });
    return ReferenceDataRefusal::None;
}

} // namespace

QString ReferenceDataPath(const QString &chosen, ReferenceDataLayout layout)
{
    // Required: the whole path is searched, so that a point in a folder's name cuts it there.
    const qsizetype point = chosen.indexOf(u'.');
    return point < 0 ? chosen : chosen.first(point) + ExtensionOf(layout);
}

QString ReferenceDataPathToRead(const QString &chosen, ReferenceDataLayout layout)
{
    const auto sameButForCase = [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) == 0;
    };
    QString path = ReferenceDataPath(chosen, layout);
    if (FileExists(path))
        return path;
    if (sameButForCase(chosen, path) && FileExists(chosen))
        return chosen;
    const QFileInfo wanted(path);
    for (const QFileInfo &file : wanted.dir().entryInfoList(QDir::Files | QDir::Hidden, QDir::Name)) {
        if (sameButForCase(file.fileName(), wanted.fileName()))
            return file.filePath();
    }
    return path;
}

QByteArray ReferenceDataBytes(const ReferenceRows &rows, std::int32_t count, ReferenceDataLayout layout)
{
    SequentialWriter writer;
    WriteCount(writer, count, layout);
    for (std::int32_t row = 1; row <= count; ++row)
        WriteRow(writer, rows[row], layout);
    return writer.Bytes();
}

ReferenceDataRefusal ReadReferenceDataBytes(const QByteArray &bytes, ReferenceDataLayout layout, ReferenceRows &rows)
{
    SequentialReader reader(bytes);
    return ReadTable(reader, layout, rows);
}

void WriteReferenceDataFile(const QString &path, const ReferenceRows &rows, std::int32_t count,
                            ReferenceDataLayout layout)
{
    WriteFileBytes(path, ReferenceDataBytes(rows, count, layout));
}

ReferenceDataRefusal ReadReferenceDataFile(const QString &path, ReferenceDataLayout layout, ReferenceRows &rows)
{
    InputFile file(path);
    const QByteArray start = file.ReadStart(MostBytes);
    SequentialReader reader(start);
    const ReferenceDataRefusal refusal = ReadTable(reader, layout, rows);
    // Required: what is refused stays open until the program ends. A file that fails in another way closes.
    if (refusal != ReferenceDataRefusal::None)
        InputFile::LeaveOpen(std::move(file));
    else if (start.size() == MostBytes && reader.AtEnd())
        throw RuntimeError(ErrorNumber::OutOfMemory); // the last value may go on behind it
    return refusal;
}
