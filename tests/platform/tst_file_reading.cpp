/// @file
/// Files read as a whole, and everything that may stand at a path and is no readable file.
#include "platform/SequentialFile.h"
#include "support/ChildProcess.h"
#include "support/ErrorOf.h"
#include "support/FileBytes.h"
#include "support/UserWithoutRights.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

class TestFileReading : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString Path(const QString &name = QStringLiteral("file.txt")) const { return m_folder->filePath(name); }
    QByteArray SystemPath(const QString &name) const { return QFile::encodeName(Path(name)); }
    static int ReadingError(const QString &path)
    {
        return ErrorOf([&path] { ReadFileBytes(path); });
    }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
    }
    void cleanup() { m_folder.reset(); }

    void allBytesAreRead_data();
    void allBytesAreRead();
    void aFileOfUnknownSizeIsReadToItsEnd();
    void aLinkLeadsToItsFile();
    void theLongestNameIsRead();
    void whatIsMissingIsNotFound_data();
    void whatIsMissingIsNotFound();
    void whatIsNoRegularFileIsRefusedAtOnce_data();
    void whatIsNoRegularFileIsRefusedAtOnce();
    void aFileTooLargeForAnyTableIsRefused();
    void aFileWithoutPermissionIsRefused();
    void aFolderWithoutPermissionIsRefused();
    void aFileThatAnotherProcessHoldsIsRefused();
    void aFileThatOthersReadIsRead();
    void systemCallsThatFailGiveTheirErrors_data();
    void systemCallsThatFailGiveTheirErrors();
};

void TestFileReading::allBytesAreRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one line") << QByteArray("True\r\n");
    QTest::newRow("every byte") << [] {
        QByteArray bytes;
        for (int value = 0; value < 256; ++value)
            bytes.append(static_cast<char>(value));
        return bytes;
    }();
    QTest::newRow("one reading step") << QByteArray(1 << 16, 'a');
    QTest::newRow("one byte more") << QByteArray((1 << 16) + 1, 'b');
    QTest::newRow("some megabytes") << QByteArray("0123456789").repeated(500'000);
}

void TestFileReading::allBytesAreRead()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(PutBytes(Path(), bytes));
    QVERIFY(ReadFileBytes(Path()) == bytes);
}

/// The kernel says that such a file has no bytes.
void TestFileReading::aFileOfUnknownSizeIsReadToItsEnd()
{
    QCOMPARE(QFileInfo(QStringLiteral("/proc/self/stat")).size(), 0);
    QVERIFY(ReadFileBytes(QStringLiteral("/proc/self/stat")).startsWith(QByteArray::number(getpid()) + " ("));
}

void TestFileReading::aLinkLeadsToItsFile()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    QVERIFY(QFile::link(QStringLiteral("file.txt"), Path(QStringLiteral("link"))));
    QVERIFY(QFile::link(QStringLiteral("link"), Path(QStringLiteral("link to it"))));
    QCOMPARE(ReadFileBytes(Path(QStringLiteral("link to it"))), QByteArray("bytes"));
}

void TestFileReading::theLongestNameIsRead()
{
    for (const QString &name : {QString(255, u'a'), QString(85, u'温')}) {
        QVERIFY(PutBytes(Path(name), "bytes"));
        QCOMPARE(ReadFileBytes(Path(name)), QByteArray("bytes"));
    }
}

void TestFileReading::whatIsMissingIsNotFound_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("error");
    QTest::newRow("no file") << QStringLiteral("none.spj") << 53;
    QTest::newRow("no folder") << QStringLiteral("none/file.spj") << 76;
    QTest::newRow("no folder, by its end") << QStringLiteral("none/") << 76;
    QTest::newRow("a file in the folder's place") << QStringLiteral("plain/file.spj") << 76;
    QTest::newRow("a link that leads nowhere") << QStringLiteral("lost") << 53;
    QTest::newRow("a link in a circle") << QStringLiteral("circle") << 76;
    QTest::newRow("a name of 256 bytes") << QString(256, u'a') << 76;
    QTest::newRow("a zero character in the name") << QString(QStringLiteral("plain") + QChar(0)) << 76;
}

void TestFileReading::whatIsMissingIsNotFound()
{
    QFETCH(QString, name);
    QVERIFY(PutBytes(Path(QStringLiteral("plain")), "bytes"));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), Path(QStringLiteral("lost"))));
    QVERIFY(QFile::link(QStringLiteral("circle"), Path(QStringLiteral("circle"))));
    QTEST(ReadingError(m_folder->path() + u'/' + name), "error");
}

void TestFileReading::whatIsNoRegularFileIsRefusedAtOnce_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("folder") << QStringLiteral("folder");
    QTest::newRow("pipe without another end") << QStringLiteral("pipe");
    QTest::newRow("link to a pipe") << QStringLiteral("link");
    QTest::newRow("socket") << QStringLiteral("socket");
    for (const char *device : {"/dev/null", "/dev/zero", "/dev/full", "/dev/tty", "/"})
        QTest::newRow(device) << QString::fromLatin1(device);
}

void TestFileReading::whatIsNoRegularFileIsRefusedAtOnce()
{
    QFETCH(QString, path);
    QVERIFY(QDir().mkdir(Path(QStringLiteral("folder"))));
    QCOMPARE(mkfifo(SystemPath(QStringLiteral("pipe")).constData(), 0600), 0);
    QVERIFY(QFile::link(QStringLiteral("pipe"), Path(QStringLiteral("link"))));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, SystemPath(QStringLiteral("socket")).constData(), sizeof address.sun_path);
    const int socketNumber = socket(AF_UNIX, SOCK_STREAM, 0);
    QCOMPARE(bind(socketNumber, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    close(socketNumber);
    QCOMPARE(ReadingError(path.startsWith(u'/') ? path : Path(path)), 70);
}

void TestFileReading::aFileTooLargeForAnyTableIsRefused()
{
    QFile file(Path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(qint64(8) << 30)); // a hole: it takes no room
    QCOMPARE(ReadingError(Path()), 7);
}

void TestFileReading::aFileWithoutPermissionIsRefused()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    QVERIFY(chmod(QFile::encodeName(m_folder->path()).constData(), 0755) == 0);
    QVERIFY(QFile::setPermissions(Path(), {}));
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    QCOMPARE(ReadingError(Path()), 70);
}

void TestFileReading::aFolderWithoutPermissionIsRefused()
{
    const QString folder = Path(QStringLiteral("folder"));
    QVERIFY(QDir().mkdir(folder));
    QVERIFY(PutBytes(folder + QStringLiteral("/file.txt"), "bytes"));
    QVERIFY(chmod(QFile::encodeName(m_folder->path()).constData(), 0755) == 0);
    QVERIFY(QFile::setPermissions(folder, {}));
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        QCOMPARE(ReadingError(folder + QStringLiteral("/file.txt")), 70);
    }
    QVERIFY(chmod(QFile::encodeName(folder).constData(), 0700) == 0); // for it to be removed
}

void TestFileReading::aFileThatAnotherProcessHoldsIsRefused()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    {
        const LockHolder other(Path(), LOCK_EX);
        QVERIFY(other.Holds());
        QCOMPARE(ReadingError(Path()), 70);
    }
    QCOMPARE(ReadFileBytes(Path()), QByteArray("bytes"));
}

void TestFileReading::aFileThatOthersReadIsRead()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    const LockHolder other(Path(), LOCK_SH);
    QVERIFY(other.Holds());
    QCOMPARE(ReadFileBytes(Path()), QByteArray("bytes"));
}

void TestFileReading::systemCallsThatFailGiveTheirErrors_data()
{
    QTest::addColumn<uint>("call");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("error");
    QTest::newRow("reading: device") << uint(SYS_pread64) << EIO << 57;
    QTest::newRow("reading: memory") << uint(SYS_pread64) << ENOMEM << 7;
    QTest::newRow("opening: too many files") << uint(SYS_openat) << EMFILE << 7;
    QTest::newRow("opening: held by a lease") << uint(SYS_openat) << EAGAIN << 70;
    QTest::newRow("opening: not permitted") << uint(SYS_openat) << EPERM << 70;
    QTest::newRow("opening: read-only disk") << uint(SYS_openat) << EROFS << 70;
    QTest::newRow("opening: gone in between") << uint(SYS_openat) << ENOENT << 53;
    QTest::newRow("opening: stale handle") << uint(SYS_openat) << ESTALE << 57;
    QTest::newRow("locking: no locks on this disk") << uint(SYS_flock) << ENOLCK << 0;
    QTest::newRow("locking: unknown to the system") << uint(SYS_flock) << ENOSYS << 0;
}

void TestFileReading::systemCallsThatFailGiveTheirErrors()
{
    QFETCH(uint, call);
    QFETCH(int, code);
    QVERIFY(PutBytes(Path(), "bytes"));
    const ChildEnd end = RunInChild([&] {
        FailSystemCalls({call}, static_cast<unsigned>(code));
        ReadFileBytes(Path());
    });
    QTEST(end.Error, "error");
}

QTEST_GUILESS_MAIN(TestFileReading)
#include "tst_file_reading.moc"
