#include "help/HelpBook.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTest>
#include <QTextDocumentFragment>
#include <QUrl>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr int LocaleRecord = 4;

QString OutputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        QTest::qFail(qPrintable(program + QStringLiteral(" fails")), __FILE__, __LINE__);
    return QString::fromLocal8Bit(process.readAllStandardOutput());
}

/// The text of the first matching group that took part.
QString Taken(const QRegularExpressionMatch &match)
{
    return match.captured(match.lastCapturedIndex());
}

QStringList AttributeValues(QString page, const QString &names)
{
    static const QRegularExpression comment(QStringLiteral("<!--.*?-->"),
                                            QRegularExpression::DotMatchesEverythingOption);
    page.remove(comment);
    const QRegularExpression attribute(
        QStringLiteral("\\s(?:%1)\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)'|([^\\s>]+))").arg(names),
        QRegularExpression::CaseInsensitiveOption);
    QStringList values;
    for (const QRegularExpressionMatch &match : attribute.globalMatch(page))
        values.append(Taken(match));
    return values;
}

bool IsPage(const QString &file)
{
    return file.endsWith(QStringLiteral(".html"));
}

} // namespace

char *toString(const QList<HelpEntry> &entries)
{
    QString text;
    for (const HelpEntry &entry : entries)
        text += QStringLiteral("%1 %2 (%3); ").arg(entry.Level).arg(entry.Title, entry.Page);
    return qstrdup(qPrintable(text));
}

QString PlainTitle(const QString &html)
{
    return QTextDocumentFragment::fromHtml(html).toPlainText();
}

HelpBook::HelpBook(const QString &path, const char *listEncoding, const char *pageEncoding)
    : m_listEncoding(listEncoding), m_pageEncoding(pageEncoding)
{
    // One line a file: space, start, length, kind in two words, name.
    static const QRegularExpression line(QStringLiteral("^\\s*\\d+\\s+\\d+\\s+\\d+\\s+normal file\\s+/(\\S+)$"),
                                         QRegularExpression::MultilineOption);
    const QString list = OutputOf(QStringLiteral("enum_chmLib"), {path});
    OutputOf(QStringLiteral("extract_chmLib"), {path, m_folder.path()});
    const QStringList own{QStringLiteral("_#_README_#_"), QStringLiteral("book.hhc"), QStringLiteral("book.hhk")};
    for (const QRegularExpressionMatch &match : line.globalMatch(list)) {
        if (!own.contains(match.captured(1)))
            m_files.append(match.captured(1));
    }
    m_files.sort();

    // A version of four bytes, then records: number and length in two bytes each, low byte first, and the content.
    const QByteArray system = Bytes(QStringLiteral("#SYSTEM"));
    for (qsizetype at = 4; at + 4 <= system.size();) {
        const auto number = qFromLittleEndian<quint16>(system.constData() + at);
        const auto length = qFromLittleEndian<quint16>(system.constData() + at + 2);
        m_system[number] = system.mid(at + 4, length);
        at += 4 + length;
    }
}

QByteArray HelpBook::Bytes(const QString &file) const
{
    QFile extracted(m_folder.filePath(file));
    if (!extracted.open(QIODevice::ReadOnly)) {
        QTest::qFail(qPrintable(file + QStringLiteral(" is not in the help file")), __FILE__, __LINE__);
        return {};
    }
    return extracted.readAll();
}

QString HelpBook::Decoded(const QByteArray &bytes, const QByteArray &encoding) const
{
    QStringDecoder decoder(encoding.constData(), QStringConverter::Flag::Stateless);
    QString text = decoder(bytes);
    if (!decoder.isValid() || decoder.hasError() || text.contains(QChar::ReplacementCharacter)) {
        QTest::qFail(qPrintable(QStringLiteral("not in %1: %2").arg(QString::fromLatin1(encoding), text)), __FILE__,
                     __LINE__);
    }
    return text;
}

QString HelpBook::Page(const QString &file) const
{
    return Decoded(Bytes(file), m_pageEncoding);
}

QString HelpBook::SystemText(int record) const
{
    return Decoded(m_system.value(record).constData(), m_listEncoding);
}

int HelpBook::Locale() const
{
    const QByteArray record = m_system.value(LocaleRecord);
    return record.size() < 4 ? 0 : qFromLittleEndian<qint32>(record.constData());
}

QList<HelpEntry> HelpBook::Entries(const QString &file) const
{
    static const QRegularExpression token(
        QStringLiteral("<ul>|</ul>|<param name=\"Name\" value=\"([^\"]*)\"><param name=\"Local\" value=\"([^\"]*)\">"));
    QList<HelpEntry> entries;
    int level = -1;
    for (const QRegularExpressionMatch &match : token.globalMatch(Decoded(Bytes(file), m_listEncoding))) {
        if (match.captured() == QStringLiteral("<ul>")) {
            ++level;
        } else if (match.captured() == QStringLiteral("</ul>")) {
            --level;
        } else {
            entries.append({level, PlainTitle(match.captured(1)), match.captured(2)});
        }
    }
    return entries;
}

QString HelpBook::LinkFault(const QString &page, const QString &link, QSet<QString> &reached) const
{
    const QUrl url(link);
    if (!url.isRelative() || link.startsWith(QLatin1Char('/')))
        return QStringLiteral("leads out of the book");
    const QString folder = page.left(page.lastIndexOf(QLatin1Char('/')) + 1);
    const QString target = url.path().isEmpty() ? page : QDir::cleanPath(folder + url.path());
    if (!m_files.contains(target))
        return QStringLiteral("leads nowhere");
    if (target != page)
        reached.insert(target);
    if (url.hasFragment() && !AttributeValues(Page(target), QStringLiteral("id|name")).contains(url.fragment()))
        return QStringLiteral("leads to no place of its page");
    return {};
}

QStringList HelpBook::Faults() const
{
    QStringList faults;
    QSet<QString> reached;
    for (const HelpEntry &entry : Contents() + Index()) {
        reached.insert(entry.Page);
        if (!m_files.contains(entry.Page))
            faults.append(QStringLiteral("contents: %1 leads nowhere").arg(entry.Page));
    }
    for (const QString &page : m_files) {
        if (!IsPage(page))
            continue;
        for (const QString &link : AttributeValues(Page(page), QStringLiteral("href|src"))) {
            if (const QString fault = LinkFault(page, link, reached); !fault.isEmpty())
                faults.append(QStringLiteral("%1: %2 %3").arg(page, link, fault));
        }
    }
    for (const QString &file : m_files) {
        if (!reached.contains(file))
            faults.append(QStringLiteral("%1: nothing leads here").arg(file));
    }
    return faults;
}
