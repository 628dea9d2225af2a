/// @file
/// Project files on the disk: whatever interrupts a saving, the old or the new project can be read; and files that may
/// not be read or written.
#include "project/ProjectFileBench.h"
#include "support/ChildProcess.h"
#include "support/ErrorOf.h"
#include "support/FileBytes.h"
#include "support/UserWithoutRights.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <sys/stat.h>

namespace {

constexpr int Slot = 4;
const QByteArray OldFile = FileOf(LinesWithRows(" 2 ", 2));
const QByteArray NewFile = FileOf(LinesWithRows(" 5 ", 5));

} // namespace

class TestProjectFileDisk : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString Path(const QString &name = QStringLiteral("project.spj")) const { return m_folder->filePath(name); }

    void SetMode(const QString &path, mode_t mode) const
    {
        QCOMPARE(chmod(QFile::encodeName(path).constData(), mode), 0);
    }

    int SavingError() const
    {
        return ErrorOf([this] { WriteProjectFile(Slot, Path()); });
    }

    /// The old project on the disk, the new one in the slot.
    void PutOldFile() const { QVERIFY(PutBytes(Path(), OldFile)); }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        SetMode(m_folder->path(), 0755);
        ResetProjectTable();
        QCOMPARE(ReadingError(Slot, NewFile), 0);
    }
    void cleanup()
    {
        SetMode(m_folder->path(), 0700);
        m_folder.reset();
    }

    void aProjectIsSavedUnderAnyName_data();
    void aProjectIsSavedUnderAnyName();
    void aSavingInterruptedAtAnyByteLeavesTheOldProject();
    void aProcessKilledAtAnyByteLeavesTheOldProject();
    void aDiskThatFailsLeavesTheOldProject();
    void aFolderWithoutPermissionStillLetsAProjectBeSaved();
    void whatMayNotBeWrittenIsRefused();
    void whatMayNotBeReadLeavesTheSlot();
    void aFileThatAnotherProcessHoldsIsRefused();
    void aMissingFolderIsNotFound();
    void theSlotIsNotTouchedBySaving();
};

void TestProjectFileDisk::aProjectIsSavedUnderAnyName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("project.spj");
    QTest::newRow("several points") << QStringLiteral("a.b.spj");
    QTest::newRow("no point") << QStringLiteral("project");
    QTest::newRow("folder with points") << QStringLiteral("v1.2.3/project");
    QTest::newRow("Chinese") << QStringLiteral("温度/传感器.spj");
    QTest::newRow("255 bytes") << QString(QString(251, u'a') + QStringLiteral(".spj"));
    QTest::newRow("255 bytes of Chinese") << QString(85, u'温');
}

void TestProjectFileDisk::aProjectIsSavedUnderAnyName()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkpath(QFileInfo(Path(name)).path()));
    WriteProjectFile(Slot, Path(name));
    QCOMPARE(BytesOf(Path(name)), NewFile);
    QCOMPARE(FileReadingError(1, Path(name)), 0);
    QCOMPARE(ProjectFileBytes(1), NewFile);
}

void TestProjectFileDisk::aSavingInterruptedAtAnyByteLeavesTheOldProject()
{
    PutOldFile();
    for (qsizetype room = 0; room <= NewFile.size(); ++room) {
        const int error = [room, this] {
            const FileSizeLimit limit(static_cast<rlim_t>(room));
            return SavingError();
        }();
        QCOMPARE(error, room < NewFile.size() ? 61 : 0);
        QCOMPARE(BytesOf(Path()), room < NewFile.size() ? OldFile : NewFile);
        QCOMPARE(NamesIn(m_folder->path()), QStringList(QStringLiteral("project.spj")));
    }
}

void TestProjectFileDisk::aProcessKilledAtAnyByteLeavesTheOldProject()
{
    PutOldFile();
    for (qsizetype room = 0; room < NewFile.size(); ++room) {
        const ChildEnd end = RunInChild([room, this] {
            const FileSizeLimit limit(static_cast<rlim_t>(room), true);
            WriteProjectFile(Slot, Path());
        });
        QCOMPARE(end.Signal, SIGXFSZ);
        QCOMPARE(BytesOf(Path()), OldFile);
    }
}

void TestProjectFileDisk::aDiskThatFailsLeavesTheOldProject()
{
    PutOldFile();
    for (const auto &[call, code, error] :
         {std::tuple(SYS_pwrite64, ENOSPC, 61), std::tuple(SYS_pwrite64, EIO, 57), std::tuple(SYS_fsync, ENOSPC, 61),
          std::tuple(SYS_fsync, EIO, 57), std::tuple(SYS_openat, EROFS, 70)}) {
        const ChildEnd end = RunInChild([&, failing = call, with = code] {
            FailSystemCalls({static_cast<unsigned>(failing)}, static_cast<unsigned>(with));
            WriteProjectFile(Slot, Path());
        });
        QCOMPARE(end.Error, error);
        QCOMPARE(BytesOf(Path()), OldFile);
    }
}

void TestProjectFileDisk::aFolderWithoutPermissionStillLetsAProjectBeSaved()
{
    PutOldFile();
    SetMode(Path(), 0666);
    SetMode(m_folder->path(), 0555);
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    QCOMPARE(SavingError(), 0);
    QCOMPARE(BytesOf(Path()), NewFile);
}

void TestProjectFileDisk::whatMayNotBeWrittenIsRefused()
{
    PutOldFile();
    SetMode(Path(), 0444);
    SetMode(m_folder->path(), 0777);
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    QCOMPARE(SavingError(), 70);
    QCOMPARE(BytesOf(Path()), OldFile);
}

void TestProjectFileDisk::whatMayNotBeReadLeavesTheSlot()
{
    PutOldFile();
    SetMode(Path(), 0);
    PutOldContents(Slot);
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    QCOMPARE(FileReadingError(Slot, Path()), 70);
    QCOMPARE(TextOf(SensorProjects[Slot]), TextOf(OldProject()));
    QCOMPARE(LastUsedRow(Slot), 0);
}

void TestProjectFileDisk::aFileThatAnotherProcessHoldsIsRefused()
{
    PutOldFile();
    const LockHolder other(Path(), LOCK_EX);
    QVERIFY(other.Holds());
    QCOMPARE(SavingError(), 70);
    QCOMPARE(FileReadingError(1, Path()), 70);
    QCOMPARE(BytesOf(Path()), OldFile);
    QVERIFY(SensorProjects[1].SensorName.isEmpty());
}

void TestProjectFileDisk::aMissingFolderIsNotFound()
{
    QCOMPARE(ErrorOf([this] { WriteProjectFile(Slot, Path(QStringLiteral("none/project.spj"))); }), 76);
    QVERIFY(NamesIn(m_folder->path()).isEmpty());
}

void TestProjectFileDisk::theSlotIsNotTouchedBySaving()
{
    PutOldContents(Slot);
    ProjectSlots[Slot].FilePath = QStringLiteral("path");
    WriteProjectFile(Slot, Path());
    QCOMPARE(TextOf(SensorProjects[Slot]), TextOf(OldProject()));
    QCOMPARE(TextOf(ReferenceTable[Slot][500]), TextOf(OldRow()));
    QCOMPARE(ProjectPointCount, 500);
    QCOMPARE(ProjectSlots[Slot].FilePath, QStringLiteral("path"));
    QVERIFY(!ProjectSlots[Slot].HasFile);
    QVERIFY(SurroundingsAreOld(Slot));
}

QTEST_GUILESS_MAIN(TestProjectFileDisk)
#include "tst_project_file_disk.moc"
