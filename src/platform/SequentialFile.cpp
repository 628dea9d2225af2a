#include "platform/SequentialFile.h"

#include "platform/FileAccess.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"

#include <QStringDecoder>

namespace {

constexpr qsizetype ZoneWidth = 14; ///< columns of a print zone

constexpr QStringView ValueEnds = u",\r\n";
constexpr QStringView NumberEnds = u",\r\n \t";

bool IsBlank(QChar character)
{
    return character == u' ' || character == u'\t';
}

/// The toolkit's own decoder where it has been built with one (with ICU, as Debian's is); elsewhere, as on Windows, the
/// system's code page, which is the one that such a file was written in.
QStringDecoder ChineseDecoder()
{
    QStringDecoder decoder("GB18030");
    return decoder.isValid() ? std::move(decoder) : QStringDecoder(QStringDecoder::System);
}

QString Decoded(const QByteArray &bytes)
{
    QStringDecoder unicode(QStringDecoder::Utf8);
    const QString text = unicode(bytes);
    // A character that breaks off at the end is none, either.
    const bool whole = !unicode.hasError() && QString(unicode(QByteArrayView("\n"))) == u"\n";
    return whole ? text : QString(ChineseDecoder()(bytes));
}

/// A sign or a blank ahead of a number, and a blank behind it.
QString Spaced(const QString &number)
{
    return (number.startsWith(u'-') ? QString() : QStringLiteral(" ")) + number + u' ';
}

} // namespace

QByteArray ReadFileBytes(const QString &path)
{
    return InputFile(path).ReadAll();
}

SequentialReader::SequentialReader(const QByteArray &bytes) : m_text(Decoded(bytes)) {}

QString SequentialReader::ReadText()
{
    SkipToValue();
    if (m_text[m_position] != u'"') {
        const QStringView value = TakeUntil(ValueEnds);
        TakeDelimiter();
        return value.toString();
    }
    ++m_position;
    const QStringView value = TakeUntil(u"\"");
    if (!AtEnd())
        ++m_position;
    TakeDelimiter();
    return value.toString();
}

double SequentialReader::ReadNumber()
{
    SkipToValue();
    const QStringView value = TakeUntil(NumberEnds);
    TakeDelimiter();
    return WholeNumber(value);
}

void SequentialReader::SkipBlanks()
{
    while (!AtEnd() && IsBlank(m_text[m_position]))
        ++m_position;
}

void SequentialReader::SkipToValue()
{
    SkipBlanks();
    if (AtEnd())
        throw RuntimeError(ErrorNumber::InputPastEnd);
}

/// Blanks, and one comma or line end; anything else begins the next value.
void SequentialReader::TakeDelimiter()
{
    SkipBlanks();
    if (AtEnd())
        return;
    if (m_text[m_position] == u'\r' && m_position + 1 < m_text.size() && m_text[m_position + 1] == u'\n')
        ++m_position;
    if (ValueEnds.contains(m_text[m_position]))
        ++m_position;
}

/// What stands ahead of the first of some characters, or of the end.
QStringView SequentialReader::TakeUntil(QStringView delimiters)
{
    const qsizetype start = m_position;
    while (!AtEnd() && !delimiters.contains(m_text[m_position]))
        ++m_position;
    return QStringView(m_text).sliced(start, m_position - start);
}

void SequentialWriter::WriteNumber(double value)
{
    m_text += Spaced(GeneralNumber(value));
}

void SequentialWriter::WriteNumber(float value)
{
    m_text += Spaced(GeneralNumber(value));
}

void SequentialWriter::WriteBoolean(bool value)
{
    m_text += value ? QStringView(u"True") : QStringView(u"False");
}

void SequentialWriter::NextZone()
{
    const qsizetype column = m_text.size() - m_lineStart;
    m_text += QString(ZoneWidth - column % ZoneWidth, u' ');
}

void SequentialWriter::EndLine()
{
    m_text += u"\r\n";
    m_lineStart = m_text.size();
}
