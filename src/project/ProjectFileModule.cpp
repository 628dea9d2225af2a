#include "project/ProjectFileModule.h"

#include "platform/FileReplacing.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "platform/SequentialFile.h"
#include "project/ProjectTable.h"

#include <QDir>

#include <algorithm>
#include <concepts>
#include <optional>
#include <utility>

namespace {

const QString TrueWord = QStringLiteral("True");
const QString FalseWord = QStringLiteral("False");

/// The definition's lines in file order, for both directions: hands each field to a visitor.
template <typename Project, typename Visitor>
void VisitLines(Project &project, const Visitor &visit)
{
    visit(project.SensorName);
    visit(project.MeasFunction);
    visit(project.IsThermocouple);
    visit(project.InputUnit);
    visit(project.OutputUnit);
    visit(project.OutputUnitIsUser);
    visit(project.InputUnitScale);
    visit(project.IsBuiltInSensor);
    std::ranges::for_each(project.SensorTypeChars, visit);
    visit(project.BuiltInKind);
    std::ranges::for_each(project.UnitChars, visit);
    visit(project.TcLetterCode);
    visit(project.RtdR0);
    visit(project.RtdCode);
    visit(project.ThermistorOhms);
}

void WriteLine(SequentialWriter &writer, const QString &text)
{
    writer.WriteText(text);
    writer.EndLine();
}

void WriteLine(SequentialWriter &writer, std::same_as<bool> auto value)
{
    writer.WriteBoolean(value);
    writer.EndLine();
}

void WriteLine(SequentialWriter &writer, auto number)
{
    writer.WriteNumber(number);
    writer.EndLine();
}

void WriteRow(SequentialWriter &writer, const ReferencePoint &row)
{
    writer.WriteNumber(row.Input);
    WriteLine(writer, row.Output);
    WriteLine(writer, row.Segment);
    WriteLine(writer, row.Arithmetic);
    WriteLine(writer, row.Used);
}

void Read(SequentialReader &reader, QString &field)
{
    field = reader.ReadText();
}

void Read(SequentialReader &reader, bool &field)
{
    field = reader.ReadText() == TrueWord;
}

void Read(SequentialReader &reader, std::uint8_t &field)
{
    field = RoundToUInt8(reader.ReadNumber());
}

void Read(SequentialReader &reader, std::int16_t &field)
{
    field = RoundToInt16(reader.ReadNumber());
}

void Read(SequentialReader &reader, std::int32_t &field)
{
    field = RoundToInt32(reader.ReadNumber());
}

void Read(SequentialReader &reader, float &field)
{
    field = RoundToSingle(reader.ReadNumber());
}

void Read(SequentialReader &reader, double &field)
{
    field = reader.ReadNumber();
}

/// Required: unlike a definition's boolean, a row's keeps its old value when the text is neither word.
void ReadWord(SequentialReader &reader, bool &field)
{
    const QString word = reader.ReadText();
    if (word == TrueWord) {
        field = true;
    } else if (word == FalseWord) {
        field = false;
    }
}

void ReadRow(SequentialReader &reader, ReferencePoint &row, ErrorsSetAside &steps)
{
    steps.Run([&] { Read(reader, row.Input); });
    steps.Run([&] { Read(reader, row.Output); });
    steps.Run([&] { ReadWord(reader, row.Segment); });
    steps.Run([&] { Read(reader, row.Arithmetic); });
    steps.Run([&] { ReadWord(reader, row.Used); });
}

void MarkRowsUnused(ReferenceRows &rows)
{
    std::for_each(rows.begin() + 1, rows.end(), [](ReferencePoint &row) { row.Used = false; });
}

/// Required: no count is refused. Rows up to the table's end are read, and one behind it fails as out of range; so
/// would each further one.
void ReadRows(SequentialReader &reader, ReferenceRows &rows, ErrorsSetAside &steps)
{
    const std::int32_t last = std::min(ProjectPointCount, ReferenceRowLimit + 1);
    for (std::int32_t row = 1; row <= last; ++row) {
        if (reader.AtEnd())
            row = last; // nor does one row differ from another behind the end
        if (row <= ReferenceRowLimit) {
            ReadRow(reader, rows[row], steps);
        } else {
            steps.Run([] { throw RuntimeError(ErrorNumber::OutOfRange); });
        }
    }
}

} // namespace

QString ProjectNameOfPath(const QString &path)
{
    const QString plain = QDir::fromNativeSeparators(path);
    const QString file = plain.mid(plain.lastIndexOf(u'/') + 1);
    return file.section(u'.', 0, 0);
}

QByteArray ProjectFileBytes(int slot)
{
    ProjectPointCount = LastUsedRow(slot);
    SequentialWriter writer;
    VisitLines(std::as_const(SensorProjects[slot]), [&writer](const auto &field) { WriteLine(writer, field); });
    WriteLine(writer, ProjectPointCount);
    for (std::int32_t row = 1; row <= ProjectPointCount; ++row)
        WriteRow(writer, ReferenceTable[slot][row]);
    return writer.Bytes();
}

void WriteProjectFile(int slot, const QString &path)
{
    ReplaceWholeFile(path, ProjectFileBytes(slot));
}

void ReadProjectBytes(int slot, const QByteArray &bytes, ErrorsSetAside &steps)
{
    SensorProject &project = SensorProjects[CheckedSlot(slot)];
    ReferenceRows &rows = ReferenceTable[slot];
    SequentialReader reader(bytes);
    VisitLines(project, [&](auto &field) { steps.Run([&] { Read(reader, field); }); });
    steps.Run([&] { Read(reader, ProjectPointCount); });
    MarkRowsUnused(rows);
    ReadRows(reader, rows, steps);
}

void ReadProjectFile(int slot, const QString &path, ErrorsSetAside &steps)
{
    MarkRowsUnused(ReferenceTable[CheckedSlot(slot)]);
    std::optional<QByteArray> bytes;
    steps.Run([&] { bytes = ReadFileBytes(path); });
    if (bytes)
        ReadProjectBytes(slot, *bytes, steps);
}
