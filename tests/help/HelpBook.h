/// @file
/// A compiled help file, taken apart with the tools of another library than the one that made it, and what is wrong
/// with it.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// An entry of the contents or the index.
struct HelpEntry {
    int Level = 0; ///< 0 for the outermost entries
    QString Title; ///< plain text
    QString Page;

    bool operator==(const HelpEntry &) const = default;
};

/// Shows an entry in a failed comparison.
char *toString(const QList<HelpEntry> &entries);

/// The plain text of a title as it stands in a page or in an attribute.
QString PlainTitle(const QString &html);

class HelpBook {
public:
    /// Takes a file apart. Lists and pages are in an encoding each; a text that is not in its encoding is a fault.
    HelpBook(const QString &path, const char *listEncoding, const char *pageEncoding);

    /// All files but the help system's own, in alphabetical order. Empty when the file is no help file.
    const QStringList &Files() const { return m_files; }
    QByteArray Bytes(const QString &file) const;
    /// A page as text.
    QString Page(const QString &file) const;

    QList<HelpEntry> Contents() const { return Entries(SystemText(0)); }
    QList<HelpEntry> Index() const { return Entries(SystemText(1)); }
    QString FirstPage() const { return SystemText(2); }
    QString Title() const { return SystemText(3); }
    /// The locale that viewers take the code page from.
    int Locale() const;

    /// What is wrong, one line each, in the order of the files: links that lead nowhere or out of the book, and files
    /// that neither the contents nor a page leads to.
    QStringList Faults() const;

private:
    QString SystemText(int record) const;
    QList<HelpEntry> Entries(const QString &file) const;
    QString Decoded(const QByteArray &bytes, const QByteArray &encoding) const;
    QString LinkFault(const QString &page, const QString &link, QSet<QString> &reached) const;

    QTemporaryDir m_folder;
    QByteArray m_listEncoding;
    QByteArray m_pageEncoding;
    QStringList m_files;
    QMap<int, QByteArray> m_system; ///< records of the help system by their number
};
