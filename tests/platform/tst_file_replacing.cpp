/// @file
/// Saving a file: what stands at its path afterwards, and what is refused.
#include "platform/FileReplacing.h"
#include "support/ChildProcess.h"
#include "support/ErrorOf.h"
#include "support/FileBytes.h"
#include "support/UserWithoutRights.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <sys/stat.h>

namespace {

struct stat StatusOf(const QString &path)
{
    struct stat status {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        qFatal("nothing at %s", qPrintable(path));
    return status;
}

mode_t ModeOf(const QString &path)
{
    return StatusOf(path).st_mode & 07777U;
}

void SetMode(const QString &path, mode_t mode)
{
    if (chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("no mode for %s", qPrintable(path));
}

} // namespace

class TestFileReplacing : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString Path(const QString &name = QStringLiteral("file.spj")) const { return m_folder->filePath(name); }
    static int SavingError(const QString &path, const QByteArray &bytes = "new")
    {
        return ErrorOf([&] { ReplaceWholeFile(path, bytes); });
    }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        SetMode(m_folder->path(), 0755);
    }
    void cleanup()
    {
        SetMode(m_folder->path(), 0700);
        m_folder.reset();
    }

    void theBytesAndNothingElseStand_data();
    void theBytesAndNothingElseStand();
    void aNewFileHasTheModeOfAnyOther();
    void anOldFileKeepsItsMode_data();
    void anOldFileKeepsItsMode();
    void anOldFileKeepsItsOwner();
    void whoReadsTheOldFileKeepsIt();
    void anyNameIsTaken_data();
    void anyNameIsTaken();
    void aPathMayBeRelative();
    void aLinkStaysALink_data();
    void aLinkStaysALink();
    void aReadOnlyFileIsRefusedThoughItsFolderIsOpen();
    void aFileThatCanOnlyBeWrittenIsReplaced();
    void aFileIsOverwrittenWhereItsFolderIsReadOnly_data();
    void aFileIsOverwrittenWhereItsFolderIsReadOnly();
    void aFileOfAnotherUserIsOverwrittenInASharedFolder();
    void aReadOnlyFolderTakesNoNewFile();
    void whatCannotBeReplacedIsRefused_data();
    void whatCannotBeReplacedIsRefused();
    void aFileThatAnotherProcessHoldsIsRefused_data();
    void aFileThatAnotherProcessHoldsIsRefused();
};

void TestFileReplacing::theBytesAndNothingElseStand_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray large = QByteArray("0123456789\r\n").repeated(100'000);
    QTest::newRow("no old file") << QByteArray() << QByteArray("new\r\n");
    QTest::newRow("longer") << QByteArray("old") << QByteArray("much longer");
    QTest::newRow("shorter") << QByteArray("much longer") << QByteArray("new");
    QTest::newRow("the same") << QByteArray("old") << QByteArray("old");
    QTest::newRow("empty") << QByteArray("old") << QByteArray();
    QTest::newRow("zero bytes") << QByteArray("old") << QByteArray(100, '\0');
    QTest::newRow("a megabyte") << QByteArray("old") << large;
    QTest::newRow("after a megabyte") << large << QByteArray("new");
}

void TestFileReplacing::theBytesAndNothingElseStand()
{
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, bytes);
    if (!old.isEmpty())
        QVERIFY(PutBytes(Path(), old));
    ReplaceWholeFile(Path(), bytes);
    QVERIFY(BytesOf(Path()) == bytes);
    QCOMPARE(NamesIn(m_folder->path()), QStringList(QStringLiteral("file.spj")));
}

void TestFileReplacing::aNewFileHasTheModeOfAnyOther()
{
    for (const mode_t mask : {0022U, 0077U, 0002U}) {
        const mode_t before = umask(mask);
        QFile::remove(Path());
        ReplaceWholeFile(Path(), "new");
        umask(before);
        QCOMPARE(ModeOf(Path()), 0666U & ~mask);
    }
}

void TestFileReplacing::anOldFileKeepsItsMode_data()
{
    QTest::addColumn<uint>("mode");
    for (const uint mode : {0600U, 0644U, 0666U, 0640U, 0755U, 0777U, 0200U})
        QTest::addRow("%o", mode) << mode;
}

void TestFileReplacing::anOldFileKeepsItsMode()
{
    QFETCH(uint, mode);
    QVERIFY(PutBytes(Path(), "old"));
    SetMode(Path(), mode);
    ReplaceWholeFile(Path(), "new");
    QCOMPARE(ModeOf(Path()), mode);
    SetMode(Path(), 0600);
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
}

/// A superuser who saves another user's file does not take it away from him.
void TestFileReplacing::anOldFileKeepsItsOwner()
{
    QVERIFY(PutBytes(Path(), "old"));
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    const gid_t group = geteuid() == 0 ? 65534 : getegid();
    QCOMPARE(chown(QFile::encodeName(Path()).constData(), owner, group), 0);
    ReplaceWholeFile(Path(), "new");
    QCOMPARE(StatusOf(Path()).st_uid, owner);
    QCOMPARE(StatusOf(Path()).st_gid, group);
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
}

void TestFileReplacing::whoReadsTheOldFileKeepsIt()
{
    QVERIFY(PutBytes(Path(), "old"));
    QFile reader(Path());
    QVERIFY(reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    ReplaceWholeFile(Path(), "new");
    QCOMPARE(reader.readAll(), QByteArray("old"));
}

void TestFileReplacing::anyNameIsTaken_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("several points") << QStringLiteral("a.b.c.spj");
    QTest::newRow("no point") << QStringLiteral("project");
    QTest::newRow("point ahead") << QStringLiteral(".spj");
    QTest::newRow("blanks") << QStringLiteral(" a  b ");
    QTest::newRow("quotes and stars") << QStringLiteral("\"*?\\'");
    QTest::newRow("Chinese") << QStringLiteral("温度传感器.spj");
    QTest::newRow("255 bytes") << QString(QString(251, u'a') + QStringLiteral(".spj"));
    QTest::newRow("255 bytes of Chinese") << QString(85, u'温');
}

void TestFileReplacing::anyNameIsTaken()
{
    QFETCH(QString, name);
    for (const char *bytes : {"first", "second"}) {
        ReplaceWholeFile(Path(name), bytes);
        QCOMPARE(BytesOf(Path(name)), QByteArray(bytes));
        QCOMPARE(NamesIn(m_folder->path()), QStringList(name));
    }
}

void TestFileReplacing::aPathMayBeRelative()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    const int first = SavingError(QStringLiteral("file.spj"), "first");
    const int second = SavingError(QStringLiteral("file.spj"), "second");
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(first, 0);
    QCOMPARE(second, 0);
    QCOMPARE(BytesOf(Path()), QByteArray("second"));
}

void TestFileReplacing::aLinkStaysALink_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("leadsTo");
    QTest::addColumn<QString>("file"); // what is written in the end
    QTest::newRow("to a file") << QStringLiteral("link") << QStringLiteral("file.spj") << QStringLiteral("file.spj");
    QTest::newRow("to a link") << QStringLiteral("link") << QStringLiteral("other") << QStringLiteral("file.spj");
    QTest::newRow("into a folder") << QStringLiteral("link") << QStringLiteral("folder/inner.spj")
                                   << QStringLiteral("folder/inner.spj");
    QTest::newRow("through a folder's link")
        << QStringLiteral("away/link") << QStringLiteral("../file.spj") << QStringLiteral("file.spj");
    QTest::newRow("to a file that is still to be made")
        << QStringLiteral("link") << QStringLiteral("fresh.spj") << QStringLiteral("fresh.spj");
}

void TestFileReplacing::aLinkStaysALink()
{
    QFETCH(QString, link);
    QFETCH(QString, leadsTo);
    QFETCH(QString, file);
    QVERIFY(QDir().mkdir(Path(QStringLiteral("folder"))));
    QVERIFY(PutBytes(Path(QStringLiteral("folder/inner.spj")), "old"));
    QVERIFY(PutBytes(Path(), "old"));
    QVERIFY(QFile::link(QStringLiteral("file.spj"), Path(QStringLiteral("other"))));
    QVERIFY(QFile::link(QStringLiteral("folder"), Path(QStringLiteral("away"))));
    QVERIFY(QFile::link(leadsTo, Path(link)));
    ReplaceWholeFile(Path(link), "new");
    QVERIFY(QFileInfo(Path(link)).isSymLink());
    QCOMPARE(QFile::symLinkTarget(Path(QStringLiteral("other"))), Path());
    QVERIFY(!QFileInfo(Path(file)).isSymLink());
    QCOMPARE(BytesOf(Path(file)), QByteArray("new"));
    QCOMPARE(BytesOf(Path(link)), QByteArray("new"));
}

void TestFileReplacing::aReadOnlyFileIsRefusedThoughItsFolderIsOpen()
{
    QVERIFY(PutBytes(Path(), "old"));
    SetMode(Path(), 0444);
    SetMode(m_folder->path(), 0777);
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    QCOMPARE(SavingError(Path()), 70);
    QCOMPARE(BytesOf(Path()), QByteArray("old"));
    QCOMPARE(NamesIn(m_folder->path()), QStringList(QStringLiteral("file.spj")));
}

void TestFileReplacing::aFileThatCanOnlyBeWrittenIsReplaced()
{
    QVERIFY(PutBytes(Path(), "old"));
    SetMode(Path(), 0222);
    SetMode(m_folder->path(), 0777);
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        QCOMPARE(SavingError(Path()), 0);
    }
    SetMode(Path(), 0600);
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
}

void TestFileReplacing::aFileIsOverwrittenWhereItsFolderIsReadOnly_data()
{
    theBytesAndNothingElseStand_data();
}

void TestFileReplacing::aFileIsOverwrittenWhereItsFolderIsReadOnly()
{
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, bytes);
    QVERIFY(PutBytes(Path(), old));
    SetMode(Path(), 0666);
    SetMode(m_folder->path(), 0555);
    const ino_t before = StatusOf(Path()).st_ino;
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        QCOMPARE(SavingError(Path(), bytes), 0);
    }
    QVERIFY(BytesOf(Path()) == bytes);
    QCOMPARE(StatusOf(Path()).st_ino, before);
    QCOMPARE(ModeOf(Path()), 0666U);
    QCOMPARE(NamesIn(m_folder->path()), QStringList(QStringLiteral("file.spj")));
}

/// There a file can be made beside it, but not be put in its place.
void TestFileReplacing::aFileOfAnotherUserIsOverwrittenInASharedFolder()
{
    QVERIFY(PutBytes(Path(), "the old one"));
    SetMode(Path(), 0666);
    const ino_t before = StatusOf(Path()).st_ino;
    const ChildEnd end = RunInChild([this] {
        FailSystemCalls(RenameCalls, EPERM);
        ReplaceWholeFile(Path(), "new");
    });
    QCOMPARE(end.Error, 0);
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
    QCOMPARE(StatusOf(Path()).st_ino, before);
    QCOMPARE(NamesIn(m_folder->path()), QStringList(QStringLiteral("file.spj")));
}

void TestFileReplacing::aReadOnlyFolderTakesNoNewFile()
{
    SetMode(m_folder->path(), 0555);
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    QCOMPARE(SavingError(Path()), 70);
    QCOMPARE(NamesIn(m_folder->path()), QStringList());
}

void TestFileReplacing::whatCannotBeReplacedIsRefused_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("error");
    QTest::newRow("missing folder") << QStringLiteral("none/file.spj") << 76;
    QTest::newRow("a file in the folder's place") << QStringLiteral("plain/file.spj") << 76;
    QTest::newRow("a link into a missing folder") << QStringLiteral("lost") << 76;
    QTest::newRow("a link in a circle") << QStringLiteral("circle") << 76;
    QTest::newRow("a name of 256 bytes") << QString(256, u'a') << 76;
    QTest::newRow("a zero character in the name") << QString(QStringLiteral("plain") + QChar(0)) << 76;
    QTest::newRow("a folder") << QStringLiteral("folder") << 70;
    QTest::newRow("a pipe") << QStringLiteral("pipe") << 70;
    QTest::newRow("a device") << QStringLiteral("/dev/full") << 70;
    QTest::newRow("another device") << QStringLiteral("/dev/null") << 70;
}

void TestFileReplacing::whatCannotBeReplacedIsRefused()
{
    QFETCH(QString, path);
    QVERIFY(PutBytes(Path(QStringLiteral("plain")), "old"));
    QVERIFY(QDir().mkdir(Path(QStringLiteral("folder"))));
    QVERIFY(QFile::link(QStringLiteral("none/file.spj"), Path(QStringLiteral("lost"))));
    QVERIFY(QFile::link(QStringLiteral("circle"), Path(QStringLiteral("circle"))));
    QCOMPARE(mkfifo(QFile::encodeName(Path(QStringLiteral("pipe"))).constData(), 0600), 0);
    const QStringList before = NamesIn(m_folder->path());
    QTEST(SavingError(path.startsWith(u'/') ? path : m_folder->path() + u'/' + path), "error");
    QCOMPARE(NamesIn(m_folder->path()), before);
    QCOMPARE(BytesOf(Path(QStringLiteral("plain"))), QByteArray("old"));
}

void TestFileReplacing::aFileThatAnotherProcessHoldsIsRefused_data()
{
    QTest::addColumn<int>("lock");
    QTest::newRow("for writing") << LOCK_EX;
    QTest::newRow("for reading") << LOCK_SH;
}

void TestFileReplacing::aFileThatAnotherProcessHoldsIsRefused()
{
    QFETCH(int, lock);
    QVERIFY(PutBytes(Path(), "old"));
    {
        const LockHolder other(Path(), lock);
        QVERIFY(other.Holds());
        QCOMPARE(SavingError(Path()), 70);
        QCOMPARE(BytesOf(Path()), QByteArray("old"));
    }
    QCOMPARE(SavingError(Path()), 0);
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
}

QTEST_GUILESS_MAIN(TestFileReplacing)
#include "tst_file_replacing.moc"
