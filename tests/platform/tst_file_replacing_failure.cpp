/// @file
/// Saving that breaks off: at every byte, at every system call, by an error or by the end of the process. The old or
/// the new file stands whole, never a mixture.
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

const QByteArray OldBytes = QByteArray("the old file\r\n").repeated(12); // 168 bytes
const QByteArray NewBytes = QByteArray("THE NEW ONE\r\n").repeated(17);  // 221 bytes
const QByteArray Shorter = QByteArray("LESS\r\n").repeated(20);          // 120 bytes

} // namespace

class TestFileReplacingFailure : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString Path() const { return m_folder->filePath(QStringLiteral("file.spj")); }

    void SetFolderMode(mode_t mode) const { QCOMPARE(chmod(QFile::encodeName(m_folder->path()).constData(), mode), 0); }

    /// The folder takes no new file, so that the old one is overwritten in place.
    void PutOldFileIntoAReadOnlyFolder() const
    {
        QVERIFY(PutBytes(Path(), OldBytes));
        QCOMPARE(chmod(QFile::encodeName(Path()).constData(), 0666), 0);
        SetFolderMode(0555);
    }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
    }
    void cleanup()
    {
        SetFolderMode(0700);
        m_folder.reset();
    }

    void roomThatEndsAtAnyByteLeavesTheOldFile();
    void roomThatEndsAtAnyByteLeavesNoNewFile();
    void aProcessKilledAtAnyByteLeavesTheOldFile();
    void aProcessKilledAtAnyByteLeavesNoNewFile();
    void aSystemCallThatFails_data();
    void aSystemCallThatFails();
    void roomThatEndsWhileOverwritingGivesTheOldBytesBack_data();
    void roomThatEndsWhileOverwritingGivesTheOldBytesBack();
    void aSystemCallThatFailsWhileOverwriting_data();
    void aSystemCallThatFailsWhileOverwriting();
    void aFileThatCannotBeReadIsNotOverwritten();
};

void TestFileReplacingFailure::roomThatEndsAtAnyByteLeavesTheOldFile()
{
    QVERIFY(PutBytes(Path(), OldBytes));
    for (qsizetype room = 0; room <= NewBytes.size(); ++room) {
        const int error = [room, this] {
            const FileSizeLimit limit(static_cast<rlim_t>(room));
            return ErrorOf([this] { ReplaceWholeFile(Path(), NewBytes); });
        }();
        QCOMPARE(error, room < NewBytes.size() ? 61 : 0);
        QCOMPARE(BytesOf(Path()), room < NewBytes.size() ? OldBytes : NewBytes);
        QCOMPARE(NamesIn(m_folder->path()).size(), 1);
    }
}

void TestFileReplacingFailure::roomThatEndsAtAnyByteLeavesNoNewFile()
{
    for (qsizetype room = 0; room < NewBytes.size(); ++room) {
        const FileSizeLimit limit(static_cast<rlim_t>(room));
        QCOMPARE(ErrorOf([this] { ReplaceWholeFile(Path(), NewBytes); }), 61);
        QCOMPARE(NamesIn(m_folder->path()), QStringList());
    }
}

void TestFileReplacingFailure::aProcessKilledAtAnyByteLeavesTheOldFile()
{
    QVERIFY(PutBytes(Path(), OldBytes));
    for (qsizetype room = 0; room < NewBytes.size(); ++room) {
        const ChildEnd end = RunInChild([room, this] {
            const FileSizeLimit limit(static_cast<rlim_t>(room), true);
            ReplaceWholeFile(Path(), NewBytes);
        });
        QCOMPARE(end.Signal, SIGXFSZ);
        QCOMPARE(BytesOf(Path()), OldBytes);
    }
    ReplaceWholeFile(Path(), NewBytes); // what such a process left behind is in nobody's way
    QCOMPARE(BytesOf(Path()), NewBytes);
}

void TestFileReplacingFailure::aProcessKilledAtAnyByteLeavesNoNewFile()
{
    for (qsizetype room = 0; room < NewBytes.size(); room += 20) {
        const ChildEnd end = RunInChild([room, this] {
            const FileSizeLimit limit(static_cast<rlim_t>(room), true);
            ReplaceWholeFile(Path(), NewBytes);
        });
        QCOMPARE(end.Signal, SIGXFSZ);
        QVERIFY(!QFile::exists(Path()));
    }
}

void TestFileReplacingFailure::aSystemCallThatFails_data()
{
    QTest::addColumn<QList<uint>>("calls");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("error"); // 0 when the file is saved all the same
    const QList<uint> write{SYS_pwrite64};
    const QList<uint> sync{SYS_fsync};
    const QList<uint> rename(RenameCalls.begin(), RenameCalls.end());
    QTest::newRow("writing: disk full") << write << ENOSPC << 61;
    QTest::newRow("writing: quota used up") << write << EDQUOT << 61;
    QTest::newRow("writing: device") << write << EIO << 57;
    QTest::newRow("syncing: device") << sync << EIO << 57;
    QTest::newRow("syncing: disk full") << sync << ENOSPC << 61;
    QTest::newRow("syncing: unknown to the disk") << sync << EINVAL << 0;
    QTest::newRow("renaming: disk full") << rename << ENOSPC << 61;
    QTest::newRow("renaming: device") << rename << EIO << 57;
    QTest::newRow("renaming: folder gone") << rename << ENOENT << 53;
    QTest::newRow("renaming: refused, so overwritten") << rename << EACCES << 0;
    QTest::newRow("renaming: busy, so overwritten") << rename << EBUSY << 0;
    QTest::newRow("locking: unknown to the disk") << QList<uint>{SYS_flock} << ENOLCK << 0;
    QTest::newRow("owner refused") << QList<uint>{SYS_fchown} << EPERM << 0;
    QTest::newRow("mode refused") << QList<uint>{SYS_fchmod} << EPERM << 0;
    QTest::newRow("no file can be opened") << QList<uint>{SYS_openat} << EMFILE << 7;
}

void TestFileReplacingFailure::aSystemCallThatFails()
{
    QFETCH(QList<uint>, calls);
    QFETCH(int, code);
    QFETCH(int, error);
    QVERIFY(PutBytes(Path(), OldBytes));
    const ChildEnd end = RunInChild([&] {
        for (const uint call : calls)
            FailSystemCalls({call}, static_cast<unsigned>(code));
        ReplaceWholeFile(Path(), NewBytes);
    });
    QCOMPARE(end.Error, error);
    QCOMPARE(BytesOf(Path()), error == 0 ? NewBytes : OldBytes);
    QCOMPARE(NamesIn(m_folder->path()), QStringList(QStringLiteral("file.spj")));
}

void TestFileReplacingFailure::roomThatEndsWhileOverwritingGivesTheOldBytesBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("longer file") << NewBytes;
    QTest::newRow("shorter file") << Shorter;
}

void TestFileReplacingFailure::roomThatEndsWhileOverwritingGivesTheOldBytesBack()
{
    QFETCH(QByteArray, bytes);
    PutOldFileIntoAReadOnlyFolder();
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    for (qsizetype room = 0; room <= bytes.size(); ++room) {
        const int error = [&] {
            const FileSizeLimit limit(static_cast<rlim_t>(room));
            return ErrorOf([&] { ReplaceWholeFile(Path(), bytes); });
        }();
        QCOMPARE(error, room < bytes.size() ? 61 : 0);
        QCOMPARE(BytesOf(Path()), room < bytes.size() ? OldBytes : bytes);
    }
}

void TestFileReplacingFailure::aSystemCallThatFailsWhileOverwriting_data()
{
    QTest::addColumn<uint>("call");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("error");
    QTest::newRow("reading: device") << uint(SYS_pread64) << EIO << 57;
    QTest::newRow("writing: device") << uint(SYS_pwrite64) << EIO << 57;
    QTest::newRow("cutting off: device") << uint(SYS_ftruncate) << EIO << 57;
    QTest::newRow("syncing: device") << uint(SYS_fsync) << EIO << 57;
    QTest::newRow("syncing: disk full") << uint(SYS_fsync) << ENOSPC << 61;
}

void TestFileReplacingFailure::aSystemCallThatFailsWhileOverwriting()
{
    QFETCH(uint, call);
    QFETCH(int, code);
    PutOldFileIntoAReadOnlyFolder();
    const ChildEnd end = RunInChild([&] {
        const UserWithoutRights user;
        FailSystemCalls({call}, static_cast<unsigned>(code));
        ReplaceWholeFile(Path(), Shorter);
    });
    QTEST(end.Error, "error");
    QCOMPARE(BytesOf(Path()), OldBytes);
}

/// Its old bytes could not be put back.
void TestFileReplacingFailure::aFileThatCannotBeReadIsNotOverwritten()
{
    PutOldFileIntoAReadOnlyFolder();
    QCOMPARE(chmod(QFile::encodeName(Path()).constData(), 0222), 0);
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        QCOMPARE(ErrorOf([this] { ReplaceWholeFile(Path(), NewBytes); }), 70);
    }
    QCOMPARE(chmod(QFile::encodeName(Path()).constData(), 0600), 0);
    QCOMPARE(BytesOf(Path()), OldBytes);
}

QTEST_GUILESS_MAIN(TestFileReplacingFailure)
#include "tst_file_replacing_failure.moc"
