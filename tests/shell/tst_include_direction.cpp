/// @file
/// The floors of the house: what a source file may include, no circles inside a library, and unique file names.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace {

/// The toolkit's headers, gathered for the compiler's sake. They belong to no library, and no file includes them.
const QStringList precompiledFiles{QStringLiteral("platform/PrecompiledCore.h"),
                                   QStringLiteral("platform/PrecompiledHeaders.cpp")};

QString Root(const QString &path)
{
    return QDir(QStringLiteral(OSTRAKON_ROOT)).filePath(path);
}

QStringList FilesBelow(const QString &folder, const QStringList &patterns = {})
{
    QStringList files;
    QDirIterator found(Root(folder), patterns, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext())
        files.append(QDir(Root(folder)).relativeFilePath(found.next()));
    files.sort();
    return files;
}

QString TextOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

/// The files that a source file includes by quotes.
QStringList IncludesOf(const QString &text)
{
    static const QRegularExpression directive(QStringLiteral("^[ \\t]*#[ \\t]*include[ \\t]*\"([^\"]+)\""),
                                              QRegularExpression::MultilineOption);
    QStringList includes;
    for (const QRegularExpressionMatch &match : directive.globalMatch(text))
        includes.append(match.captured(1));
    return includes;
}

/// Header and source of one name are one module. Apart from that stands the interface of the curve library: its header
/// holds the records that the insides work on, its source is the door to them.
QString ModuleOf(const QString &file)
{
    if (file == QStringLiteral("curve/lintab/Lintab.h"))
        return file;
    return file.left(file.lastIndexOf(u'.'));
}

} // namespace

class IncludeDirectionTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void every_source_file_belongs_to_one_target();
    void includes_go_downwards_only_data();
    void includes_go_downwards_only();
    void every_library_is_free_of_circles_data();
    void every_library_is_free_of_circles();
    void floors_have_no_circle();
    void a_file_name_stands_once_in_the_tree();

private:
    /// The target itself and all that it links, directly or not.
    QSet<QString> Closure(const QString &target) const;
    bool ReachesItself(const QString &module) const;

    QMap<QString, QStringList> m_libraries;     ///< by target, as far as they are of this house
    QMap<QString, QStringList> m_targetsOfFile; ///< by file, from src on
    QMap<QString, QStringList> m_includes;      ///< by file
    QMap<QString, QSet<QString>> m_modules;     ///< by module, what it includes of its own target
};

void IncludeDirectionTest::initTestCase()
{
    const QDir sources(Root(QStringLiteral("src")));
    const QStringList lines = TextOf(QStringLiteral(OSTRAKON_FLOORS)).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList fields = line.split(u'|');
        QCOMPARE(fields.size(), 3);
        m_libraries[fields[0]] = fields[2].split(u';', Qt::SkipEmptyParts);
        for (const QString &file : fields[1].split(u';', Qt::SkipEmptyParts)) {
            const QString path = QDir::cleanPath(file);
            if (path.startsWith(sources.path() + u'/'))
                m_targetsOfFile[sources.relativeFilePath(path)].append(fields[0]);
        }
    }
    const QStringList targets = m_libraries.keys();
    for (QStringList &libraries : m_libraries)
        libraries.removeIf([&](const QString &library) { return !targets.contains(library); });
    for (const QString &file : FilesBelow(QStringLiteral("src"), {QStringLiteral("*.h"), QStringLiteral("*.cpp")}))
        m_includes[file] = IncludesOf(TextOf(sources.filePath(file)));
    for (auto file = m_includes.cbegin(); file != m_includes.cend(); ++file) {
        for (const QString &included : file.value()) {
            if (m_targetsOfFile.value(included) == m_targetsOfFile.value(file.key()))
                m_modules[ModuleOf(file.key())].insert(ModuleOf(included));
        }
    }
    // What is read is the house, not an empty yard.
    QVERIFY(m_libraries.size() > 10);
    QVERIFY(m_includes.size() > 50);
    QVERIFY(Closure(QStringLiteral("ostrakon")).contains(QStringLiteral("lintab")));
}

QSet<QString> IncludeDirectionTest::Closure(const QString &target) const
{
    QSet<QString> closure;
    QStringList open{target};
    while (!open.isEmpty()) {
        const QString next = open.takeLast();
        if (closure.contains(next))
            continue;
        closure.insert(next);
        open += m_libraries.value(next);
    }
    return closure;
}

bool IncludeDirectionTest::ReachesItself(const QString &module) const
{
    QSet<QString> reached;
    QStringList open;
    // A source file includes the header of its own module.
    const auto step = [&](const QString &from) {
        for (const QString &to : m_modules.value(from)) {
            if (to != from)
                open.append(to);
        }
    };
    step(module);
    while (!open.isEmpty()) {
        const QString next = open.takeLast();
        if (next == module)
            return true;
        if (reached.contains(next))
            continue;
        reached.insert(next);
        step(next);
    }
    return false;
}

void IncludeDirectionTest::every_source_file_belongs_to_one_target()
{
    for (const QString &file : m_includes.keys()) {
        if (!precompiledFiles.contains(file))
            QVERIFY2(m_targetsOfFile.value(file).size() == 1, qPrintable(file));
    }
}

void IncludeDirectionTest::includes_go_downwards_only_data()
{
    QTest::addColumn<QString>("file");
    for (const QString &file : m_includes.keys()) {
        if (!precompiledFiles.contains(file))
            QTest::newRow(qPrintable(file)) << file;
    }
}

void IncludeDirectionTest::includes_go_downwards_only()
{
    QFETCH(const QString, file);
    const QSet<QString> allowed = Closure(m_targetsOfFile.value(file).value(0));
    for (const QString &included : m_includes.value(file)) {
        if (included == QFileInfo(file).completeBaseName() + QStringLiteral(".moc"))
            continue;
        const QStringList owner = m_targetsOfFile.value(included);
        QVERIFY2(owner.size() == 1, qPrintable(included + QStringLiteral(" is no file of a target")));
        QVERIFY2(allowed.contains(owner[0]), qPrintable(included + QStringLiteral(" belongs to ") + owner[0]));
    }
}

void IncludeDirectionTest::every_library_is_free_of_circles_data()
{
    QTest::addColumn<QString>("target");
    for (const QString &target : m_libraries.keys())
        QTest::newRow(qPrintable(target)) << target;
}

void IncludeDirectionTest::every_library_is_free_of_circles()
{
    QFETCH(const QString, target);
    QStringList circular;
    for (auto file = m_targetsOfFile.cbegin(); file != m_targetsOfFile.cend(); ++file) {
        if (file.value().contains(target) && ReachesItself(ModuleOf(file.key())))
            circular.append(file.key());
    }
    QCOMPARE(circular, QStringList());
}

void IncludeDirectionTest::floors_have_no_circle()
{
    for (const QString &target : m_libraries.keys()) {
        for (const QString &library : m_libraries[target])
            QVERIFY2(!Closure(library).contains(target), qPrintable(library));
    }
}

void IncludeDirectionTest::a_file_name_stands_once_in_the_tree()
{
    // Each folder has its own list of files and may have its own notes.
    const QStringList perFolder{QStringLiteral("CMakeLists.txt"), QStringLiteral("README.md")};
    QMap<QString, QStringList> folders;
    for (const QString &tree : {QStringLiteral("src"), QStringLiteral("simulator"), QStringLiteral("tests")}) {
        for (const QString &file : FilesBelow(tree))
            folders[QFileInfo(file).fileName()].append(tree + u'/' + file);
    }
    for (auto file = folders.cbegin(); file != folders.cend(); ++file) {
        if (!perFolder.contains(file.key()))
            QVERIFY2(file.value().size() == 1, qPrintable(file.value().join(u' ')));
    }
}

QTEST_GUILESS_MAIN(IncludeDirectionTest)
#include "tst_include_direction.moc"
