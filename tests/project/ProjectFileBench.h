/// @file
/// Project files by their lines, and slots with contents that stand out.
#pragma once

#include "platform/RuntimeError.h"
#include "project/ProjectFileModule.h"
#include "project/ProjectTable.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <algorithm>
#include <array>
#include <cstdio>
#include <initializer_list>

/// Numbers of lines, from 1.
inline constexpr int BuiltInLine = 8;
inline constexpr int PointCountLine = 50;

inline QByteArray FileOf(const QByteArrayList &lines)
{
    return lines.join("\r\n") + "\r\n";
}

/// The lines of a definition in which each field has a value of its own, up to the point count.
inline QByteArrayList DistinctLines(const QByteArray &pointCount)
{
    QByteArrayList lines{"Name_1", " 2 ", " 3 ", "mA", "kPa", " 6 ", " 7.5 ", "True"};
    for (int line = 9; line <= 49; ++line)
        lines.append(" " + QByteArray::number(line) + " ");
    lines.append(pointCount);
    return lines;
}

/// The four lines of a row, as many as `count` times.
inline QByteArrayList RowLines(int row, const QByteArray &used = "True")
{
    const QByteArray number = QByteArray::number(row);
    return {" " + number + " -" + number + ".5 ", row % 2 == 0 ? "True" : "False", row % 3 == 0 ? " 1 " : " 0 ", used};
}

/// DistinctLines with rows, all used.
inline QByteArrayList LinesWithRows(const QByteArray &pointCount, int rows)
{
    QByteArrayList lines = DistinctLines(pointCount);
    for (int row = 1; row <= rows; ++row)
        lines.append(RowLines(row));
    return lines;
}

/// The definition that DistinctLines holds.
inline SensorProject DistinctProject()
{
    SensorProject project;
    project.SensorName = QStringLiteral("Name_1");
    project.MeasFunction = 2;
    project.IsThermocouple = 3;
    project.InputUnit = QStringLiteral("mA");
    project.OutputUnit = QStringLiteral("kPa");
    project.OutputUnitIsUser = 6;
    project.InputUnitScale = 7.5F;
    project.IsBuiltInSensor = true;
    for (std::uint8_t i = 0; i < 20; ++i)
        project.SensorTypeChars[i] = 9 + i;
    project.BuiltInKind = 29;
    for (std::uint8_t i = 0; i < 16; ++i)
        project.UnitChars[i] = 30 + i;
    project.TcLetterCode = 46;
    project.RtdR0 = 47;
    project.RtdCode = 48;
    project.ThermistorOhms = 49;
    return project;
}

/// What an earlier project has left in a slot.
inline SensorProject OldProject()
{
    SensorProject project;
    project.SensorName = QStringLiteral("old name");
    project.MeasFunction = 177;
    project.IsThermocouple = 177;
    project.InputUnit = QStringLiteral("old in");
    project.OutputUnit = QStringLiteral("old out");
    project.OutputUnitIsUser = 177;
    project.InputUnitScale = 177;
    project.IsBuiltInSensor = true;
    project.SensorTypeChars.fill(177);
    project.UnitChars.fill(177);
    project.BuiltInKind = 177;
    project.RtdCode = 177;
    project.ThermistorOhms = 177;
    project.RtdR0 = 177;
    project.TcLetterCode = 177;
    return project;
}

inline ReferencePoint OldRow()
{
    return {true, 177, QStringLiteral("old"), 177, QStringLiteral("old"), true, 177};
}

/// Puts such contents into a slot, row 0 included, and into its neighbours.
inline void PutOldContents(int slot)
{
    for (int each : {slot - 1, slot, slot + 1}) {
        SensorProjects.at(each) = OldProject();
        ReferenceTable.at(each).fill(OldRow());
    }
}

/// A number's leading digits, by the C library.
inline QString DigitsOf(double number, int digits)
{
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.*g", digits, number == 0 ? 0 : number); // the file knows no -0
    return QString::fromLatin1(text.data());
}

/// All fields as text, to compare and to show.
inline QString TextOf(const SensorProject &project)
{
    QStringList fields{project.SensorName,
                       QString::number(project.MeasFunction),
                       QString::number(project.IsThermocouple),
                       project.InputUnit,
                       project.OutputUnit,
                       QString::number(project.OutputUnitIsUser),
                       DigitsOf(project.InputUnitScale, 7),
                       project.IsBuiltInSensor ? QStringLiteral("built-in") : QStringLiteral("plain")};
    for (const std::uint8_t code : project.SensorTypeChars)
        fields.append(QString::number(code));
    fields.append(QString::number(project.BuiltInKind));
    for (const std::uint8_t code : project.UnitChars)
        fields.append(QString::number(code));
    fields.append({QString::number(project.TcLetterCode), DigitsOf(project.RtdR0, 7), QString::number(project.RtdCode),
                   QString::number(project.ThermistorOhms)});
    return fields.join(u'|');
}

inline QString TextOf(const ReferencePoint &row)
{
    return QStringList{row.Used ? QStringLiteral("used") : QStringLiteral("unused"),
                       DigitsOf(row.Input, 15),
                       row.InputText,
                       DigitsOf(row.Output, 15),
                       row.OutputText,
                       row.Segment ? QStringLiteral("segment") : QStringLiteral("inside"),
                       QString::number(row.Arithmetic)}
        .join(u'|');
}

inline int UsedRows(int slot)
{
    const ReferenceRows &rows = ReferenceTable[slot];
    return static_cast<int>(
        std::count_if(rows.begin() + 1, rows.end(), [](const ReferencePoint &row) { return row.Used; }));
}

/// Whether PutOldContents still stands around a slot: in its neighbours, and in row 0.
inline bool SurroundingsAreOld(int slot)
{
    const QString project = TextOf(OldProject());
    const QString row = TextOf(OldRow());
    for (const int each : {slot - 1, slot + 1}) {
        if (TextOf(SensorProjects[each]) != project)
            return false;
        for (const ReferencePoint &point : ReferenceTable[each]) {
            if (TextOf(point) != row)
                return false;
        }
    }
    return TextOf(ReferenceTable[slot][0]) == row;
}

/// Reads bytes into a slot. @return number of the last error set aside, 0 when there was none
inline int ReadingError(int slot, const QByteArray &bytes)
{
    ErrorsSetAside steps;
    ReadProjectBytes(slot, bytes, steps);
    return steps.Last() ? steps.Last()->Number() : 0;
}

/// The same with a file.
inline int FileReadingError(int slot, const QString &path)
{
    ErrorsSetAside steps;
    ReadProjectFile(slot, path, steps);
    return steps.Last() ? steps.Last()->Number() : 0;
}
