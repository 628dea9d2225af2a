/// @file
/// How the build makes a help file from pages, what it refuses, and that a look into the file finds each kind of fault.
#include "help/HelpBook.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

namespace {

/// A little book in Chinese that the build's own script compiles.
class LittleBook {
public:
    /// A page of a title and a body.
    void AddPage(const QString &name, const QString &title, const QString &body = {})
    {
        AddFile(name, QStringLiteral("<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; "
                                     "charset=utf-8\"><title>%1</title></head><body>%2</body></html>")
                          .arg(title, body));
    }

    /// A file of the pages' folder; one of the same name is replaced.
    void AddFile(const QString &name, const QString &text)
    {
        Write(QStringLiteral("pages/") + name, text);
        m_names.removeOne(name);
        m_names.append(name);
    }

    void SetContents(const QString &lines) { Write(QStringLiteral("contents.txt"), lines); }

    /// @return what the script says when it refuses the book, else nothing
    QString Compile(const char *compiler = CHMCMD_PROGRAM) const
    {
        QProcess script;
        script.setProcessChannelMode(QProcess::MergedChannels);
        const auto set = [](const char *name, const QString &value) {
            return QStringList{QStringLiteral("-D"), QLatin1String(name) + QLatin1Char('=') + value};
        };
        script.start(QStringLiteral(CMAKE_PROGRAM),
                     set("SOURCE", Path(QStringLiteral("pages"))) + set("FILES", m_names.join(QLatin1Char(';'))) +
                         set("CONTENTS", Path(QStringLiteral("contents.txt"))) +
                         set("LOCALE", QStringLiteral("0x804")) + set("LISTS", QStringLiteral("GBK")) +
                         set("PAGES", QStringLiteral("GBK")) + set("CHARSET", QStringLiteral("gb2312")) +
                         set("WORK", Path(QStringLiteral("work folder"))) + set("OUTPUT", Output()) +
                         set("CHMCMD", QString::fromUtf8(compiler)) + set("ICONV", QStringLiteral(ICONV_PROGRAM)) +
                         QStringList{QStringLiteral("-P"), QStringLiteral(COMPILE_SCRIPT)});
        if (!script.waitForFinished())
            QTest::qFail("the script does not end", __FILE__, __LINE__);
        return script.exitCode() == 0 ? QString() : QString::fromUtf8(script.readAll()).simplified();
    }

    QString Output() const { return Path(QStringLiteral("Little Book.chm")); }
    HelpBook Open() const { return HelpBook(Output(), "GBK", "GBK"); }

private:
    QString Path(const QString &name) const { return m_folder.filePath(name); }

    void Write(const QString &name, const QString &text) const
    {
        QVERIFY(QDir(m_folder.path()).mkpath(QFileInfo(name).path()));
        QFile file(Path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

    QTemporaryDir m_folder;
    QStringList m_names;
};

/// Two pages that lead to one another, the second below the first.
void FillSoundBook(LittleBook &book)
{
    book.AddPage(QStringLiteral("index.html"), QStringLiteral("开始 &lt;1&gt; &amp; &quot;&quot;"),
                 QStringLiteral("<a href='more/second.html#end'>二</a> <a href=\"#top\">上</a> <i id=top></i>"));
    book.AddPage(
        QStringLiteral("more/second.html"), QStringLiteral("第二 &lt;2&gt; &amp; \"[丂; 镕\""),
        QStringLiteral("<link rel='stylesheet' href='../style.css'><A HREF=../index.html>一</A> <i id='end'>"));
    book.AddFile(QStringLiteral("style.css"), QStringLiteral("p { margin: 0 }"));
    book.SetContents(QStringLiteral("index.html\n  more/second.html\n"));
}

} // namespace

class HelpCompilerTest : public QObject {
    Q_OBJECT

private slots:
    void a_sound_book_has_no_faults();
    void contents_of_several_levels_keep_their_shape();
    void each_fault_of_a_book_is_found_data();
    void each_fault_of_a_book_is_found();
    void a_book_that_cannot_be_made_is_refused_data();
    void a_book_that_cannot_be_made_is_refused();
    void a_compiler_that_fails_is_told();
};

void HelpCompilerTest::a_sound_book_has_no_faults()
{
    LittleBook little;
    FillSoundBook(little);
    QCOMPARE(little.Compile(), QString());
    const HelpBook book = little.Open();
    const QString second = QStringLiteral("more/second.html");
    const QString first = QStringLiteral("开始 <1> & \"\"");
    const QString title = QStringLiteral("第二 <2> & \"[丂; 镕\"");
    QCOMPARE(book.Files(), (QStringList{QStringLiteral("index.html"), second, QStringLiteral("style.css")}));
    QCOMPARE(book.Contents(), (QList<HelpEntry>{{0, first, QStringLiteral("index.html")}, {1, title, second}}));
    QCOMPARE(book.Index(), (QList<HelpEntry>{{0, first, QStringLiteral("index.html")}, {0, title, second}}));
    QCOMPARE(book.Title(), first);
    QVERIFY(book.Page(second).contains(QStringLiteral("charset=gb2312")));
    QCOMPARE(book.Faults().join(QLatin1Char('\n')), QString());
}

void HelpCompilerTest::contents_of_several_levels_keep_their_shape()
{
    LittleBook little;
    for (const char *name : {"a", "b", "c", "d", "e"})
        little.AddPage(QLatin1String(name) + QStringLiteral(".html"), QString(QLatin1String(name)).toUpper());
    little.AddPage(QStringLiteral("d.html"), QStringLiteral("D ["));
    little.SetContents(QStringLiteral("d.html\n  c.html\n    b.html\ne.html\n  a.html\n"));
    QCOMPARE(little.Compile(), QString());
    const HelpBook book = little.Open();
    QCOMPARE(book.Contents(), (QList<HelpEntry>{{0, QStringLiteral("D ["), QStringLiteral("d.html")},
                                                {1, QStringLiteral("C"), QStringLiteral("c.html")},
                                                {2, QStringLiteral("B"), QStringLiteral("b.html")},
                                                {0, QStringLiteral("E"), QStringLiteral("e.html")},
                                                {1, QStringLiteral("A"), QStringLiteral("a.html")}}));
    QStringList byTitle;
    for (const HelpEntry &entry : book.Index())
        byTitle.append(entry.Title);
    QCOMPARE(byTitle.join(QString()), QStringLiteral("ABCD [E"));
}

void HelpCompilerTest::each_fault_of_a_book_is_found_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault");
    const auto link = [](const char *row, const char *target, const char *fault) {
        QTest::newRow(row) << QStringLiteral("more/second.html")
                           << QStringLiteral("<a href='../index.html'></a><link href='../style.css'><i id='end'></i>") +
                                  QLatin1String(target)
                           << QString(QLatin1String(fault));
    };
    link("a page that is not there", "<a href='gone.html'>", "more/second.html: gone.html leads nowhere");
    link("a page in the wrong folder", "<a href='style.css'>", "more/second.html: style.css leads nowhere");
    link("another case", "<a href='../Index.html'>", "more/second.html: ../Index.html leads nowhere");
    link("a picture that is not there", "<img src=\"gone.png\">", "more/second.html: gone.png leads nowhere");
    link("a frame without quotes", "<IFRAME SRC=gone.html>", "more/second.html: gone.html leads nowhere");
    link("a place that is not there", "<a href='../index.html#gone'>",
         "more/second.html: ../index.html#gone leads to no place of its page");
    link("a place of the page itself", "<a href='#gone'>", "more/second.html: #gone leads to no place of its page");
    link("the network", "<a href='http://example.org/'>",
         "more/second.html: http://example.org/ leads out of the book");
    link("a path from the root", "<a href='/index.html'>", "more/second.html: /index.html leads out of the book");
    QTest::newRow("a page that nothing leads to")
        << QStringLiteral("alone.html") << QStringLiteral("<a href='alone.html'>me</a>")
        << QStringLiteral("alone.html: nothing leads here");
    QTest::newRow("a file that no page uses")
        << QStringLiteral("picture.png") << QString() << QStringLiteral("picture.png: nothing leads here");
}

void HelpCompilerTest::each_fault_of_a_book_is_found()
{
    QFETCH(const QString, name);
    QFETCH(const QString, text);
    QFETCH(const QString, fault);
    LittleBook little;
    FillSoundBook(little);
    if (name.endsWith(QStringLiteral(".html")))
        little.AddPage(name, QStringLiteral("页"), text);
    else
        little.AddFile(name, text);
    QCOMPARE(little.Compile(), QString());
    QCOMPARE(little.Open().Faults().join(QLatin1Char('\n')), fault);
}

void HelpCompilerTest::a_book_that_cannot_be_made_is_refused_data()
{
    QTest::addColumn<QString>("contents");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("complaint");
    const QString sound = QStringLiteral("页");
    QTest::newRow("a page of the contents is missing")
        << QStringLiteral("index.html\ngone.html\n") << sound << QStringLiteral("gone.html");
    QTest::newRow("half a level") << QStringLiteral("index.html\n more/second.html\n") << sound
                                  << QStringLiteral("\" more/second.html\" is no page with two blanks a level");
    QTest::newRow("two levels at once") << QStringLiteral("index.html\n    more/second.html\n") << sound
                                        << QStringLiteral("stands deeper");
    QTest::newRow("a first page below none")
        << QStringLiteral("  index.html\n") << sound << QStringLiteral("stands deeper");
    QTest::newRow("a page without a title")
        << QStringLiteral("index.html\nlast.html\n") << QString() << QStringLiteral("last.html has no title");
    QTest::newRow("a character that the encoding lacks")
        << QStringLiteral("index.html\nlast.html\n") << QStringLiteral("m²") << QStringLiteral("GBK lacks");
}

void HelpCompilerTest::a_book_that_cannot_be_made_is_refused()
{
    QFETCH(const QString, contents);
    QFETCH(const QString, title);
    QFETCH(const QString, complaint);
    LittleBook little;
    FillSoundBook(little);
    little.AddPage(QStringLiteral("last.html"), title);
    little.SetContents(contents);
    const QString refusal = little.Compile();
    QVERIFY2(refusal.contains(complaint), qPrintable(refusal));
    QVERIFY(!QFile::exists(little.Output()));
}

void HelpCompilerTest::a_compiler_that_fails_is_told()
{
    LittleBook little;
    FillSoundBook(little);
    // Any program that refuses a project of pages.
    const QString refusal = little.Compile(CMAKE_PROGRAM);
    QVERIFY2(refusal.contains(QStringLiteral(CMAKE_PROGRAM " fails")), qPrintable(refusal));
    QVERIFY(!QFile::exists(little.Output()));
}

QTEST_MAIN(HelpCompilerTest)
#include "tst_help_compiler.moc"
