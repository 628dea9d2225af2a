/// @file
/// Reference tables and the files that they stand in, for the tests of both directions.
#pragma once

#include "curve/ReferenceDataFile.h"
#include "support/FileBytes.h"

#include <QMetaType>
#include <QStringList>

#include <initializer_list>

Q_DECLARE_METATYPE(ReferenceDataLayout)
Q_DECLARE_METATYPE(ReferenceDataRefusal)

inline constexpr ReferenceDataLayout Csv = ReferenceDataLayout::Csv;
inline constexpr ReferenceDataLayout Text = ReferenceDataLayout::Text;

struct DataRow {
    double Input;
    double Output;
    bool Segment;
    std::int16_t Arithmetic;
};

/// A table of used rows from row 1 on.
inline ReferenceRows TableOf(std::initializer_list<DataRow> rows)
{
    ReferenceRows table;
    int number = 0;
    for (const DataRow &row : rows) {
        ReferencePoint &point = table[++number];
        point.Used = true;
        point.Input = row.Input;
        point.Output = row.Output;
        point.Segment = row.Segment;
        point.Arithmetic = row.Arithmetic;
    }
    return table;
}

/// What the files reference_three_rows hold.
inline ReferenceRows ThreeRows()
{
    return TableOf({{-2.5, 0.00001, false, 1}, {1.5, 20, true, 0}, {3e6, -0.125, false, 0}});
}

/// What the files reference_wide_items hold.
inline ReferenceRows WideItems()
{
    return TableOf({{-1.23456789012345e100, 12345.678901, false, 1},
                    {-12345.678901, 0, true, 0},
                    {1234.567891, -1234.5678901, true, 1},
                    {123456.789012, 1e15, false, 0}});
}

/// The bytes of a file that was made by hand.
inline QByteArray DataBytes(const QString &name)
{
    return BytesOf(QStringLiteral(OSTRAKON_TEST_DATA "/") + name);
}

/// The bytes of the file reference_three_rows of a layout.
inline QByteArray ThreeRowsFile(ReferenceDataLayout layout)
{
    return DataBytes(layout == Csv ? QStringLiteral("reference_three_rows.CSV")
                                   : QStringLiteral("reference_three_rows.txt"));
}

/// A row as "-2.5 1e-05 False 1", its numbers with all digits that a double has.
inline QString RowText(const ReferencePoint &row)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(QString::number(row.Input, 'g', 17), QString::number(row.Output, 'g', 17),
             row.Segment ? QStringLiteral("True") : QStringLiteral("False"))
        .arg(row.Arithmetic);
}

/// The used rows of a table, each with its number in front.
inline QStringList UsedRows(const ReferenceRows &table)
{
    QStringList texts;
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        if (table[row].Used)
            texts.append(QString::number(row) + QStringLiteral(": ") + RowText(table[row]));
    }
    return texts;
}
