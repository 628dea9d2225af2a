/// @file
/// Text files: values one behind the other, written as lines and read by a delimited reader.
///
/// Text is written in the system's encoding, lines end with CR LF. It is read as UTF-8 when all bytes of the file are
/// valid UTF-8, else as GB18030, which older Chinese systems wrote. Numbers have a decimal point in every locale.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <concepts>

/// All bytes of a file, read under a shared lock.
/// @throws RuntimeError 53 when the file is missing, 76 when its folder is; 70 without permission, for what is no
/// regular file, and while another process holds it; 7 for a file above 64 MiB; 57 for errors of the device
QByteArray ReadFileBytes(const QString &path);

/// Takes values out of a text, from its start to its end. Blanks (and tabs) ahead of a value are skipped; a comma or
/// the line end (CR LF, a lone CR or a lone LF) ends it. A reading that throws has still taken its value.
class SequentialReader {
public:
    /// A UTF-8 byte order mark is no part of the text.
    explicit SequentialReader(const QByteArray &bytes);

    /// True when not even a blank is left.
    bool AtEnd() const { return m_position == m_text.size(); }

    /// The next value as text, blanks behind it included; empty for an empty line. A double quote at its start encloses
    /// it up to the next one, commas and line ends included, or to the end of the file when there is no other.
    /// @throws RuntimeError 62 past the end
    QString ReadText();

    /// The next value as a number in any general decimal form, which also ends at a blank. Of what stands behind it the
    /// blanks and one comma or line end are taken, no more: an empty line that follows is a value of its own.
    /// @throws RuntimeError 62 past the end, 13 when the value is no number or empty, 6 when it is beyond double
    double ReadNumber();

private:
    void SkipBlanks();
    void SkipToValue();
    void TakeDelimiter();
    QStringView TakeUntil(QStringView delimiters);

    QString m_text;
    qsizetype m_position = 0;
};

/// Composes lines.
class SequentialWriter {
public:
    /// General decimal form with up to 15 significant digits; one blank ahead of it when it is not negative, one
    /// behind.
    void WriteNumber(double value);

    /// The same with up to 7 significant digits.
    void WriteNumber(float value);

    void WriteNumber(std::integral auto value) { WriteNumber(static_cast<double>(value)); }

    /// "True" or "False".
    void WriteBoolean(bool value);

    /// The text as it stands, without quotes.
    void WriteText(QStringView text) { m_text += text; }

    /// Blanks up to the start of the next print zone of the line. Zones are 14 columns wide. What fills its zone to the
    /// last column already stands in the next one, so that the zone after that is taken.
    void NextZone();

    void EndLine();

    /// All that has been written, in the system's encoding.
    QByteArray Bytes() const { return m_text.toLocal8Bit(); }

private:
    QString m_text;
    qsizetype m_lineStart = 0;
};
