/// @file
/// The commands Save and Save All: which project goes into which file, and what becomes of its name.
#include "project/ProjectCommandBench.h"

#include <memory>

class TestSaveProject : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ProjectCommandBench>();
        QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
    }
    void cleanup() { m_bench.reset(); }

    void firstSaveGivesFileAndName();
    void savedFileHoldsDefinitionAndRows();
    void nextSaveAsksNothing();
    void openedProjectIsSavedToItsFile();
    void fileNameGivesTheName_data();
    void fileNameGivesTheName();
    void pointsOfTheFolderDoNotCount();
    void everySaveTakesTheNameAgain();
    void hiddenTreeIsLeftAlone();
    void saveActsOnTheActiveWindow();
    void closedProjectKeepsItsPathAndANewOneDoesNot();
    void saveAllGoesFromSlotToSlot();
    void saveAllGoesOnAfterACancel();
    void saveDuringARun();

private:
    QString Path(const char *name) const { return m_bench->Path(QString::fromUtf8(name)); }

    std::unique_ptr<ProjectCommandBench> m_bench;
};

void TestSaveProject::firstSaveGivesFileAndName()
{
    m_bench->NewProjectByMenu();
    ProjectSlots[0].Dirty = true;
    ProjectSlots[0].CurveApplied = true;
    const QString path = Path("scale.spj");
    m_bench->SaveTo(path);
    const ProjectSlot &slot = ProjectSlots[0];
    QCOMPARE(slot.FilePath, path);
    QVERIFY(slot.HasFile);
    QVERIFY(!slot.Dirty);
    QCOMPARE(slot.ProjectName, QStringLiteral("scale"));
    QCOMPARE(ProjectForm[0]->windowTitle(), QStringLiteral("scale"));
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("scale"));
    QCOMPARE(slot.LoadedPath, QString());
    QVERIFY(slot.CurveApplied);
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(NodeTexts().size(), 5);
}

void TestSaveProject::savedFileHoldsDefinitionAndRows()
{
    m_bench->NewProjectByMenu();
    for (const int row : {1, 2, 7})
        PutRow(0, row, row, row * 10);
    m_bench->SaveTo(Path("scale.spj"));
    const QByteArrayList lines = BytesOf(Path("scale.spj")).split('\n');
    QCOMPARE(lines.size(), 50 + 4 * 7 + 1); // nothing behind the last line end
    QCOMPARE(lines[0], QByteArray("Load\r"));
    QCOMPARE(lines[3], QByteArray("V\r"));
    QCOMPARE(lines[49], QByteArray(" 7 \r"));
    QCOMPARE(lines[50 + 4 * 6], QByteArray(" 7  70 \r"));
    QCOMPARE(ProjectPointCount, 7);
}

void TestSaveProject::nextSaveAsksNothing()
{
    m_bench->NewProjectByMenu();
    m_bench->SaveTo(Path("scale.spj"));
    SensorProjects[0].SensorName = QStringLiteral("Later");
    const BoxAnswers none;
    m_bench->frame.mnuFileSave->trigger(); // a dialogue would wait for ever
    QVERIFY(BytesOf(Path("scale.spj")).startsWith("Later\r\n"));
    QVERIFY(ProjectSlots[0].HasFile);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("scale"));
}

void TestSaveProject::openedProjectIsSavedToItsFile()
{
    m_bench->OpenNamed(QStringLiteral("scale"));
    SensorProjects[0].SensorName = QStringLiteral("Later");
    ProjectSlots[0].HasFile = false;
    const BoxAnswers none;
    m_bench->frame.mnuFileSave->trigger();
    QVERIFY(BytesOf(Path("scale.spj")).startsWith("Later\r\n"));
    QVERIFY(ProjectSlots[0].HasFile);
    QCOMPARE(ProjectSlots[0].LoadedPath, Path("scale.spj"));
}

void TestSaveProject::fileNameGivesTheName_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    const QString own = QStringLiteral("Project-1");
    QTest::newRow("one point") << QStringLiteral("scale.spj") << QStringLiteral("scale");
    QTest::newRow("two points") << QStringLiteral("a.b.spj") << QStringLiteral("a");
    QTest::newRow("no point leaves the name") << QStringLiteral("scale") << own;
    QTest::newRow("point at the end") << QStringLiteral("scale.") << QStringLiteral("scale");
    QTest::newRow("another extension") << QStringLiteral("scale.txt") << QStringLiteral("scale");
    QTest::newRow("Chinese") << QStringLiteral("压力传感器.spj") << QStringLiteral("压力传感器");
    QTest::newRow("Chinese without a point") << QStringLiteral("压力传感器") << own;
}

/// No extension is added, whatever the filter says.
void TestSaveProject::fileNameGivesTheName()
{
    QFETCH(QString, file);
    QFETCH(QString, name);
    m_bench->NewProjectByMenu();
    m_bench->SaveTo(m_bench->Path(file));
    QCOMPARE(NamesIn(m_bench->folder.path()), QStringList{file});
    QCOMPARE(ProjectSlots[0].FilePath, m_bench->Path(file));
    QVERIFY(ProjectSlots[0].HasFile);
    QCOMPARE(ProjectSlots[0].ProjectName, name);
    QCOMPARE(ProjectForm[0]->windowTitle(), name);
    QCOMPARE(m_bench->NodeText(0), name);
}

void TestSaveProject::pointsOfTheFolderDoNotCount()
{
    QVERIFY(QDir(m_bench->folder.path()).mkpath(QStringLiteral("v1.2")));
    m_bench->MakeProjects(2);
    m_bench->SaveTo(Path("v1.2/scale"));
    QCOMPARE(ProjectSlots[1].ProjectName, QStringLiteral("Project-2"));
    QCOMPARE(ProjectForm[1]->windowTitle(), QStringLiteral("Project-2"));
    QVERIFY(ProjectSlots[1].HasFile);
    m_bench->Activate(0);
    m_bench->SaveTo(Path("v1.2/other.spj"));
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("other"));
}

void TestSaveProject::everySaveTakesTheNameAgain()
{
    m_bench->NewProjectByMenu();
    m_bench->SaveTo(Path("scale.spj"));
    ProjectSlots[0].ProjectName = QStringLiteral("else");
    ProjectForm[0]->setWindowTitle(QStringLiteral("else"));
    ProjectSheet->NodeAt(2)->setText(0, QStringLiteral("else"));
    const BoxAnswers none;
    m_bench->frame.mnuFileSave->trigger();
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("scale"));
    QCOMPARE(ProjectForm[0]->windowTitle(), QStringLiteral("scale"));
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("scale"));
}

void TestSaveProject::hiddenTreeIsLeftAlone()
{
    m_bench->NewProjectByMenu();
    m_bench->frame.mnuViewProjectWindow->trigger();
    m_bench->SaveTo(Path("scale.spj"));
    QCOMPARE(ProjectForm[0]->windowTitle(), QStringLiteral("scale"));
    QCOMPARE(ProjectSheet->NodeCount(), 0);
    m_bench->frame.mnuViewProjectWindow->trigger();
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("scale"));
}

/// Whatever node of the tree is selected.
void TestSaveProject::saveActsOnTheActiveWindow()
{
    m_bench->MakeProjects(3);
    m_bench->Activate(1);
    ProjectTree->setCurrentItem(ProjectSheet->NodeAt(ProjectSlots[2].NodeIndex));
    m_bench->SaveTo(Path("scale.spj"));
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    QCOMPARE(ProjectSlots[1].ProjectName, QStringLiteral("scale"));
    QCOMPARE(ProjectSlots[2].ProjectName, QStringLiteral("Project-3"));
    QCOMPARE(m_bench->NodeText(1), QStringLiteral("scale"));
    QCOMPARE(m_bench->NodeText(2), QStringLiteral("Project-3"));
}

void TestSaveProject::closedProjectKeepsItsPathAndANewOneDoesNot()
{
    m_bench->NewProjectByMenu();
    m_bench->SaveTo(Path("scale.spj"));
    const QByteArray saved = BytesOf(Path("scale.spj"));
    SensorProjects[0].SensorName = QStringLiteral("Later"); // nothing asks whether this shall be saved
    m_bench->CloseProject(0);
    QCOMPARE(BytesOf(Path("scale.spj")), saved);
    QCOMPARE(ProjectSlots[0].FilePath, Path("scale.spj"));
    m_bench->NewProjectByMenu();
    QCOMPARE(ProjectSlots[0].FilePath, QString());
    const BoxAnswers none;
    AnswerFileDialog(m_bench->Save()); // asks, and is cancelled
    QCOMPARE(BytesOf(Path("scale.spj")), saved);
}

/// Projects that have a file need no dialogue; slots that are free are left out.
void TestSaveProject::saveAllGoesFromSlotToSlot()
{
    m_bench->MakeProjects(2);
    m_bench->OpenNamed(QStringLiteral("opened"));
    m_bench->NewProjectByMenu();
    m_bench->CloseProject(1);
    m_bench->Activate(2);
    for (int slot = 0; slot < 4; ++slot)
        SensorProjects[slot].SensorName = QStringLiteral("Slot%1").arg(slot);
    const BoxAnswers none;
    const FileDialogAnswers answers({Path("first.spj"), Path("second.spj")});
    m_bench->frame.mnuFileSaveAllProject->trigger();
    QCOMPARE(answers.Shown().size(), 2);
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Save project as..."));
    QCOMPARE(NamesIn(m_bench->folder.path()), (QStringList{"first.spj", "opened.spj", "second.spj"}));
    QVERIFY(BytesOf(Path("first.spj")).startsWith("Slot0\r\n"));
    QVERIFY(BytesOf(Path("opened.spj")).startsWith("Slot2\r\n"));
    QVERIFY(BytesOf(Path("second.spj")).startsWith("Slot3\r\n"));
    QCOMPARE(ProjectSlots[1].FilePath, QString());
    for (const int slot : {0, 2, 3}) {
        QVERIFY(ProjectSlots[slot].HasFile);
        QCOMPARE(m_bench->NodeText(slot), ProjectSlots[slot].ProjectName);
    }
    QCOMPARE(ProjectSlots[3].ProjectName, QStringLiteral("second"));
    QCOMPARE(ActiveSlot(), 2);
}

/// Each project is a Save of its own.
void TestSaveProject::saveAllGoesOnAfterACancel()
{
    m_bench->MakeProjects(3);
    const QString old = Path("old.spj");
    QVERIFY(PutBytes(old, "old"));
    BoxAnswers boxes({Cancel});
    const FileDialogAnswers answers({QString(), old, Path("third.spj")});
    m_bench->frame.mnuFileSaveAllProject->trigger();
    QCOMPARE(answers.Shown().size(), 3);
    QCOMPARE(boxes.Texts(), QStringList{replaceOnSave.InCurrentLanguage()});
    QCOMPARE(BytesOf(old), QByteArray("old"));
    QVERIFY(!ProjectSlots[0].HasFile);
    QVERIFY(!ProjectSlots[1].HasFile);
    QVERIFY(ProjectSlots[2].HasFile);
    QCOMPARE(ProjectSlots[2].ProjectName, QStringLiteral("third"));
    // What one dialogue was answered with is not in the next one.
    for (const ShownFileDialog &shown : answers.Shown())
        QCOMPARE(shown.Name, QString());
}

void TestSaveProject::saveDuringARun()
{
    m_bench->NewProjectByMenu();
    const QTimer &tick = m_bench->StartRun(0);
    const int id = tick.timerId();
    m_bench->SaveTo(Path("scale.spj"));
    QVERIFY(ProjectSlots[0].HasFile);
    QVERIFY(Measuring);
    QCOMPARE(tick.timerId(), id);
}

QTEST_MAIN(TestSaveProject)
#include "tst_save_project.moc"
