/// @file
/// The command Save As: it makes a copy, and the project goes on with its own file.
#include "project/ProjectCommandBench.h"

#include <memory>

class TestSaveCopy : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ProjectCommandBench>();
        QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
    }
    void cleanup() { m_bench.reset(); }

    void copyHoldsWhatSaveWrites();
    void copyLeavesTheProject_data();
    void copyLeavesTheProject();
    void saveGoesOnToTheOldFile();
    void saveOfANewProjectStillAsks();
    void copyOfTheActiveProject();
    void nextCopyAsksAgain();
    void copyOverTheOwnFileIsRefused();

private:
    QString Path(const char *name) const { return m_bench->Path(QString::fromUtf8(name)); }

    void CopyTo(const char *name)
    {
        const BoxAnswers none;
        AnswerFileDialog(m_bench->SaveAs(), Path(name));
    }

    std::unique_ptr<ProjectCommandBench> m_bench;
};

void TestSaveCopy::copyHoldsWhatSaveWrites()
{
    m_bench->NewProjectByMenu();
    for (const int row : {1, 2, 5})
        PutRow(0, row, row / 7.0, row * 1e20, row == 1, 1);
    m_bench->SaveTo(Path("scale.spj"));
    CopyTo("copy.spj");
    QCOMPARE(BytesOf(Path("copy.spj")).count("\r\n"), 50 + 4 * 5);
    QCOMPARE(BytesOf(Path("copy.spj")), BytesOf(Path("scale.spj")));
}

void TestSaveCopy::copyLeavesTheProject_data()
{
    QTest::addColumn<QString>("state");
    for (const char *state : {"new", "opened", "saved", "saved, then changed"})
        QTest::newRow(state) << QString::fromLatin1(state);
}

void TestSaveCopy::copyLeavesTheProject()
{
    QFETCH(QString, state);
    if (state == QStringLiteral("opened")) {
        m_bench->OpenNamed(QStringLiteral("scale"));
    } else {
        m_bench->NewProjectByMenu();
        if (state != QStringLiteral("new"))
            m_bench->SaveTo(Path("scale.spj"));
        if (state.contains(QStringLiteral("changed")))
            ProjectSlots[0].HasFile = false;
    }
    const ProjectSlot before = ProjectSlots[0];
    const QStringList nodes = NodeTexts();
    const QByteArray file = before.FilePath.isEmpty() ? QByteArray() : BytesOf(before.FilePath);
    CopyTo("copy.spj");
    QVERIFY(QFile::exists(Path("copy.spj")));
    const ProjectSlot &after = ProjectSlots[0];
    QCOMPARE(after.FilePath, before.FilePath);
    QCOMPARE(after.LoadedPath, before.LoadedPath);
    QCOMPARE(after.HasFile, before.HasFile);
    QCOMPARE(after.ProjectName, before.ProjectName);
    QCOMPARE(after.NodeIndex, before.NodeIndex);
    QCOMPARE(ProjectForm[0]->windowTitle(), before.ProjectName);
    QCOMPARE(NodeTexts(), nodes);
    if (!before.FilePath.isEmpty())
        QCOMPARE(BytesOf(before.FilePath), file);
    QCOMPARE(int(ProjectCount), 1);
}

void TestSaveCopy::saveGoesOnToTheOldFile()
{
    m_bench->OpenNamed(QStringLiteral("scale"));
    CopyTo("copy.spj");
    const QByteArray copy = BytesOf(Path("copy.spj"));
    SensorProjects[0].SensorName = QStringLiteral("Later");
    const BoxAnswers none;
    m_bench->frame.mnuFileSave->trigger();
    QVERIFY(BytesOf(Path("scale.spj")).startsWith("Later\r\n"));
    QCOMPARE(BytesOf(Path("copy.spj")), copy);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("scale"));
}

void TestSaveCopy::saveOfANewProjectStillAsks()
{
    m_bench->NewProjectByMenu();
    CopyTo("copy.spj");
    m_bench->SaveTo(Path("scale.spj"));
    QCOMPARE(ProjectSlots[0].FilePath, Path("scale.spj"));
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("scale"));
}

/// Whatever node of the tree is selected.
void TestSaveCopy::copyOfTheActiveProject()
{
    m_bench->MakeProjects(3);
    for (int slot = 0; slot < 3; ++slot)
        SensorProjects[slot].SensorName = QStringLiteral("Slot%1").arg(slot);
    m_bench->Activate(1);
    ProjectTree->setCurrentItem(ProjectSheet->NodeAt(ProjectSlots[2].NodeIndex));
    CopyTo("copy.spj");
    QVERIFY(BytesOf(Path("copy.spj")).startsWith("Slot1\r\n"));
}

/// The path is not kept, and a copy has a name that no project has.
void TestSaveCopy::nextCopyAsksAgain()
{
    m_bench->NewProjectByMenu();
    CopyTo("copy.spj");
    SensorProjects[0].SensorName = QStringLiteral("Later");
    BoxAnswers answers({Ok});
    const ShownFileDialog shown = AnswerFileDialog(m_bench->SaveAs(), Path("copy.spj"));
    QCOMPARE(shown.Title, QStringLiteral("Save project As..."));
    QCOMPARE(shown.Name, QString());
    QCOMPARE(answers.Texts(), QStringList{replaceOnSaveAs.InCurrentLanguage()});
    QVERIFY(BytesOf(Path("copy.spj")).startsWith("Later\r\n"));
}

void TestSaveCopy::copyOverTheOwnFileIsRefused()
{
    m_bench->OpenNamed(QStringLiteral("scale"));
    SensorProjects[0].SensorName = QStringLiteral("Later");
    BoxAnswers answers({Ok});
    AnswerFileDialog(m_bench->SaveAs(), Path("scale.spj"));
    QCOMPARE(answers.Texts(), QStringList{sameProjectOnSave.InCurrentLanguage()});
    QVERIFY(BytesOf(Path("scale.spj")).startsWith("Probe\r\n"));
    QCOMPARE(ProjectSlots[0].FilePath, Path("scale.spj"));
    QVERIFY(ProjectSlots[0].HasFile);
}

QTEST_MAIN(TestSaveCopy)
#include "tst_save_copy.moc"
