/// @file
/// Save where the file cannot be written: what is told and what is not, and what the project remembers of it.
#include "project/ProjectCommandBench.h"
#include "support/ChildProcess.h"
#include "support/UserWithoutRights.h"

#include <memory>

class TestSaveFailures : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ProjectCommandBench>();
        QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
        // For whoever the process acts as.
        QVERIFY(QFile::setPermissions(m_bench->folder.path(), QFile::Permissions(0x7777)));
    }
    void cleanup() { m_bench.reset(); }

    void lockedFileIsTold_data() { AddLanguages(); }
    void lockedFileIsTold();
    void readOnlyFileIsTold_data() { AddLanguages(); }
    void readOnlyFileIsTold();
    void readOnlyFolderIsTold();
    void failedFirstSaveKeepsItsPath();
    void flagIsNotTouched_data();
    void flagIsNotTouched();
    void fullDiskIsSilent();
    void missingFolderIsSilent();
    void saveAllGoesOnAfterAFailure();
    void saveAsIsSilent_data();
    void saveAsIsSilent();

private:
    QString Path(const char *name) const { return m_bench->Path(QString::fromUtf8(name)); }

    /// An open project whose definition differs from its file by now.
    QByteArray OpenAndChange()
    {
        m_bench->OpenNamed(QStringLiteral("scale"));
        SensorProjects[0].SensorName = QStringLiteral("Later");
        return BytesOf(Path("scale.spj"));
    }

    /// Save, which raises the box of a file that may not be written.
    void SaveRefused()
    {
        BoxAnswers answers({Ok});
        m_bench->frame.mnuFileSave->trigger();
        QCOMPARE(answers.Texts(), QStringList{heldByOther.InCurrentLanguage()});
        QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
        QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
        QCOMPARE(answers.Shown()[0].Buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    }

    /// Save, which says nothing.
    void SaveSilently()
    {
        const BoxAnswers none;
        m_bench->frame.mnuFileSave->trigger();
    }

    std::unique_ptr<ProjectCommandBench> m_bench;
};

void TestSaveFailures::lockedFileIsTold()
{
    QFETCH(int, language);
    const QByteArray old = OpenAndChange();
    CurrentLanguage = language;
    {
        const LockHolder other(Path("scale.spj"), LOCK_EX);
        QVERIFY(other.Holds());
        SaveRefused();
    }
    QCOMPARE(BytesOf(Path("scale.spj")), old);
    QCOMPARE(ProjectSlots[0].FilePath, Path("scale.spj"));
    QVERIFY(ProjectSlots[0].HasFile);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("scale"));
    SaveSilently(); // the other process has ended
    QVERIFY(BytesOf(Path("scale.spj")).startsWith("Later\r\n"));
}

void TestSaveFailures::readOnlyFileIsTold()
{
    QFETCH(int, language);
    const QByteArray old = OpenAndChange();
    CurrentLanguage = language;
    QVERIFY(QFile::setPermissions(Path("scale.spj"), QFile::Permissions(0x4444)));
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        SaveRefused();
    }
    QCOMPARE(BytesOf(Path("scale.spj")), old);
    QCOMPARE(ProjectSlots[0].FilePath, Path("scale.spj"));
    QVERIFY(ProjectSlots[0].HasFile);
}

/// Where no file can be made.
void TestSaveFailures::readOnlyFolderIsTold()
{
    OpenAndChange();
    QVERIFY(QFile::remove(Path("scale.spj")));
    QVERIFY(QFile::setPermissions(m_bench->folder.path(), QFile::Permissions(0x5555)));
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        SaveRefused();
    }
    QVERIFY(!QFile::exists(Path("scale.spj")));
    QVERIFY(QFile::setPermissions(m_bench->folder.path(), QFile::Permissions(0x7777)));
}

/// The path that was chosen for it stays, so that the next Save asks nothing.
void TestSaveFailures::failedFirstSaveKeepsItsPath()
{
    m_bench->NewProjectByMenu();
    const QString path = Path("scale.spj");
    QVERIFY(PutBytes(path, "old"));
    {
        const LockHolder other(path, LOCK_EX);
        QVERIFY(other.Holds());
        BoxAnswers answers({Ok, Ok});
        AnswerFileDialog(m_bench->Save(), path);
        QCOMPARE(answers.Texts(), (QStringList{replaceOnSave.InCurrentLanguage(), heldByOther.InCurrentLanguage()}));
    }
    QCOMPARE(BytesOf(path), QByteArray("old"));
    QCOMPARE(ProjectSlots[0].FilePath, path);
    QVERIFY(!ProjectSlots[0].HasFile);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    QCOMPARE(ProjectForm[0]->windowTitle(), QStringLiteral("Project-1"));
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("Project-1"));
    SaveSilently();
    QVERIFY(BytesOf(path).startsWith("Load\r\n"));
    QVERIFY(ProjectSlots[0].HasFile);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("scale"));
}

void TestSaveFailures::flagIsNotTouched_data()
{
    QTest::addColumn<bool>("hasFile");
    QTest::newRow("stored") << true;
    QTest::newRow("stored, then changed") << false;
}

void TestSaveFailures::flagIsNotTouched()
{
    QFETCH(bool, hasFile);
    OpenAndChange();
    ProjectSlots[0].HasFile = hasFile;
    const LockHolder other(Path("scale.spj"), LOCK_EX);
    QVERIFY(other.Holds());
    SaveRefused();
    QCOMPARE(ProjectSlots[0].HasFile, hasFile);
}

void TestSaveFailures::fullDiskIsSilent()
{
    const QByteArray old = OpenAndChange();
    ProjectSlots[0].HasFile = false;
    {
        const FileSizeLimit full(10);
        SaveSilently();
    }
    QCOMPARE(BytesOf(Path("scale.spj")), old);
    QCOMPARE(NamesIn(m_bench->folder.path()), QStringList{QStringLiteral("scale.spj")});
    QCOMPARE(ProjectSlots[0].FilePath, Path("scale.spj"));
    QVERIFY(!ProjectSlots[0].HasFile);
}

void TestSaveFailures::missingFolderIsSilent()
{
    QVERIFY(QDir(m_bench->folder.path()).mkpath(QStringLiteral("gone")));
    m_bench->NewProjectByMenu();
    m_bench->SaveTo(Path("gone/scale.spj"));
    QVERIFY(QDir(Path("gone")).removeRecursively());
    ProjectSlots[0].HasFile = false;
    ProjectSlots[0].ProjectName = QStringLiteral("else");
    SaveSilently();
    QVERIFY(!QFile::exists(Path("gone")));
    QCOMPARE(ProjectSlots[0].FilePath, Path("gone/scale.spj"));
    QVERIFY(!ProjectSlots[0].HasFile);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("else")); // taken from the path after writing only
}

void TestSaveFailures::saveAllGoesOnAfterAFailure()
{
    for (const char *name : {"a", "b", "c"})
        m_bench->OpenNamed(QString::fromLatin1(name));
    for (int slot = 0; slot < 3; ++slot)
        SensorProjects[slot].SensorName = QStringLiteral("Later");
    const LockHolder other(Path("b.spj"), LOCK_EX);
    QVERIFY(other.Holds());
    BoxAnswers answers({Ok});
    m_bench->frame.mnuFileSaveAllProject->trigger();
    QCOMPARE(answers.Texts(), QStringList{heldByOther.InCurrentLanguage()});
    QVERIFY(BytesOf(Path("a.spj")).startsWith("Later\r\n"));
    QVERIFY(BytesOf(Path("b.spj")).startsWith("Probe\r\n"));
    QVERIFY(BytesOf(Path("c.spj")).startsWith("Later\r\n"));
}

void TestSaveFailures::saveAsIsSilent_data()
{
    QTest::addColumn<QString>("obstacle");
    for (const char *obstacle : {"lock", "mode", "room"})
        QTest::newRow(obstacle) << QString::fromLatin1(obstacle);
}

/// Other than Save, about everything.
void TestSaveFailures::saveAsIsSilent()
{
    QFETCH(QString, obstacle);
    OpenAndChange();
    const QString path = Path("copy.spj");
    QVERIFY(PutBytes(path, "old"));
    std::unique_ptr<LockHolder> other;
    std::unique_ptr<UserWithoutRights> user;
    std::unique_ptr<FileSizeLimit> full;
    if (obstacle == QStringLiteral("lock")) {
        other = std::make_unique<LockHolder>(path, LOCK_EX);
        QVERIFY(other->Holds());
    } else if (obstacle == QStringLiteral("mode")) {
        QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x4444)));
        user = std::make_unique<UserWithoutRights>();
        QVERIFY(user->IsBound());
    } else {
        full = std::make_unique<FileSizeLimit>(10);
    }
    BoxAnswers answers({Ok});
    AnswerFileDialog(m_bench->SaveAs(), path);
    QCOMPARE(answers.Texts(), QStringList{replaceOnSaveAs.InCurrentLanguage()});
    QCOMPARE(BytesOf(path), QByteArray("old"));
    QCOMPARE(ProjectSlots[0].FilePath, Path("scale.spj"));
    QVERIFY(ProjectSlots[0].HasFile);
}

QTEST_MAIN(TestSaveFailures)
#include "tst_save_failures.moc"
