/// @file
/// The two help files beside the program: every page, the contents, and every link.
#include "help/HelpBook.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

namespace {

const QString Sources = QStringLiteral(HELP_SOURCES);

QByteArray SourceBytes(const QString &name)
{
    QFile file(Sources + QLatin1Char('/') + name);
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail(qPrintable(name + QStringLiteral(" is not there")), __FILE__, __LINE__);
    return file.readAll();
}

QString SourceText(const QString &name)
{
    return QString::fromUtf8(SourceBytes(name));
}

QString TitleOf(const QString &page)
{
    static const QRegularExpression title(QStringLiteral("<title>(.*?)</title>"),
                                          QRegularExpression::DotMatchesEverythingOption);
    return PlainTitle(title.match(page).captured(1));
}

/// What the contents of a language shall read as.
QList<HelpEntry> ExpectedContents(const QString &language)
{
    QList<HelpEntry> entries;
    for (const QString &line : SourceText(QStringLiteral("contents.txt")).split(QLatin1Char('\n'))) {
        const QString page = line.trimmed();
        if (!page.isEmpty()) {
            entries.append({static_cast<int>(line.indexOf(page) / 2),
                            TitleOf(SourceText(language + QLatin1Char('/') + page)), page});
        }
    }
    return entries;
}

} // namespace

class HelpFilesTest : public QObject {
    Q_OBJECT

private slots:
    void every_page_is_in_the_file_as_it_was_written_data() { Languages(); }
    void every_page_is_in_the_file_as_it_was_written();
    void the_contents_list_every_title_in_order_data() { Languages(); }
    void the_contents_list_every_title_in_order();
    void the_index_lists_every_title_data() { Languages(); }
    void the_index_lists_every_title();
    void the_file_says_what_it_is_data() { Languages(); }
    void the_file_says_what_it_is();
    void every_link_leads_to_a_page_and_every_page_is_led_to_data() { Languages(); }
    void every_link_leads_to_a_page_and_every_page_is_led_to();
    void both_languages_have_the_same_pages();

private:
    static void Languages();
    static HelpBook Book();
};

void HelpFilesTest::Languages()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("lists");
    QTest::addColumn<QByteArray>("pages");
    QTest::addColumn<QString>("charset");
    QTest::addColumn<int>("locale");
    QTest::newRow("English") << QStringLiteral("en") << QStringLiteral("Ostrakon Help_EN.chm")
                             << QByteArray("windows-1252") << QByteArray("UTF-8") << QStringLiteral("charset=utf-8")
                             << 0x409;
    QTest::newRow("Chinese") << QStringLiteral("zh") << QStringLiteral("Ostrakon Help.chm") << QByteArray("GBK")
                             << QByteArray("GBK") << QStringLiteral("charset=gb2312") << 0x804;
}

HelpBook HelpFilesTest::Book()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, lists);
    QFETCH(const QByteArray, pages);
    return HelpBook(QStringLiteral(PROGRAM_FOLDER "/") + name, lists.constData(), pages.constData());
}

void HelpFilesTest::every_page_is_in_the_file_as_it_was_written()
{
    QFETCH(const QString, folder);
    QFETCH(const QString, charset);
    const HelpBook book = Book();
    const QStringList names = QDir(Sources + QLatin1Char('/') + folder).entryList(QDir::Files, QDir::Name);
    QVERIFY(names.size() > 2);
    QCOMPARE(book.Files(), names);
    for (const QString &name : names) {
        const QString source = folder + QLatin1Char('/') + name;
        if (!name.endsWith(QStringLiteral(".html"))) {
            QCOMPARE(book.Bytes(name), SourceBytes(source));
            continue;
        }
        QString text = SourceText(source);
        QCOMPARE(text.count(QStringLiteral("charset=utf-8")), 1);
        QCOMPARE(book.Page(name), text.replace(QStringLiteral("charset=utf-8"), charset));
    }
}

void HelpFilesTest::the_contents_list_every_title_in_order()
{
    QFETCH(const QString, folder);
    const QList<HelpEntry> expected = ExpectedContents(folder);
    QVERIFY(expected.size() > 2);
    for (const HelpEntry &entry : expected)
        QVERIFY2(!entry.Title.isEmpty(), qPrintable(entry.Page));
    QCOMPARE(Book().Contents(), expected);
}

void HelpFilesTest::the_index_lists_every_title()
{
    QFETCH(const QString, folder);
    QList<HelpEntry> expected = ExpectedContents(folder);
    for (HelpEntry &entry : expected)
        entry.Level = 0;
    QList<HelpEntry> index = Book().Index();
    const auto byPage = [](const HelpEntry &left, const HelpEntry &right) { return left.Page < right.Page; };
    std::sort(expected.begin(), expected.end(), byPage);
    std::sort(index.begin(), index.end(), byPage);
    QCOMPARE(index, expected);
}

void HelpFilesTest::the_file_says_what_it_is()
{
    QFETCH(const QString, folder);
    QFETCH(const int, locale);
    const HelpEntry first = ExpectedContents(folder).first();
    const HelpBook book = Book();
    QCOMPARE(book.FirstPage(), first.Page);
    QCOMPARE(book.Title(), first.Title);
    QCOMPARE(book.Locale(), locale);
}

void HelpFilesTest::every_link_leads_to_a_page_and_every_page_is_led_to()
{
    QCOMPARE(Book().Faults().join(QLatin1Char('\n')), QString());
}

void HelpFilesTest::both_languages_have_the_same_pages()
{
    QCOMPARE(QDir(Sources + QStringLiteral("/zh")).entryList(QDir::Files, QDir::Name),
             QDir(Sources + QStringLiteral("/en")).entryList(QDir::Files, QDir::Name));
}

QTEST_MAIN(HelpFilesTest)
#include "tst_help_files.moc"
