/// @file
/// A project file, line by line, as a text editor would make it.
#pragma once

#include <QByteArrayList>

/// Lines count from 1. Begins as a sensor for voltages in mV that stand for kPa, without rows.
class ProjectFileText {
public:
    ProjectFileText()
    {
        m_lines = {"Probe", " 0 ", " 0 ", "mV", "kPa", " 0 ", " 1000 ", "False"};
        m_lines.append(QByteArrayList(20 + 1 + 16 + 5, " 0 "));
    }

    /// Replaces a line.
    ProjectFileText &Line(int number, const QByteArray &text)
    {
        m_lines[number - 1] = text;
        return *this;
    }

    /// Adds a row: its two numbers as one line, and three words.
    ProjectFileText &Row(const QByteArray &numbers, const QByteArray &segment = "False",
                         const QByteArray &arithmetic = " 0 ", const QByteArray &used = "True")
    {
        m_lines.append({numbers, segment, arithmetic, used});
        return Line(50, ' ' + QByteArray::number((m_lines.size() - 50) / 4) + ' ');
    }

    QByteArray Bytes() const { return m_lines.join("\r\n") + "\r\n"; }

private:
    QByteArrayList m_lines;
};
