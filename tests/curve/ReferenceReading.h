/// @file
/// What reading the bytes of a reference data file gives, in words.
#pragma once

#include "curve/ReferenceDataTable.h"
#include "support/ErrorOf.h"

/// What reading gives: the rows, a refusal by its name, or an error by its number.
struct Reading {
    QString Outcome;
    ReferenceRows Rows;
};

inline QString NameOf(ReferenceDataRefusal refusal)
{
    switch (refusal) {
    case ReferenceDataRefusal::RowCount:
        return QStringLiteral("no row count");
    case ReferenceDataRefusal::Segment:
        return QStringLiteral("no segment");
    case ReferenceDataRefusal::Arithmetic:
        return QStringLiteral("no arithmetic");
    case ReferenceDataRefusal::None:
        break;
    }
    return QStringLiteral("read");
}

/// Reads a file of the given bytes.
inline Reading Read(const QByteArray &bytes, ReferenceDataLayout layout)
{
    Reading reading;
    const int error = ErrorOf([&] { reading.Outcome = NameOf(ReadReferenceDataBytes(bytes, layout, reading.Rows)); });
    if (error != 0)
        reading.Outcome = QStringLiteral("error %1").arg(error);
    return reading;
}
