/// @file
/// Every command that makes, stores or removes projects, by each of its ways: menu, toolbar and key.
#include "project/ProjectCommandBench.h"

#include <memory>

class TestProjectEntries : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ProjectCommandBench>();
        QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
    }
    void cleanup() { m_bench.reset(); }

    void newMakesAProject_data() { AddEntryPoints(); }
    void newMakesAProject();
    void openReadsAFile_data() { AddEntryPoints(); }
    void openReadsAFile();
    void saveWritesTheFile_data() { AddEntryPoints(); }
    void saveWritesTheFile();
    void saveNeedsNoLink();
    void newThatIsCancelledMakesNothing();
    void windowsCloseBoxClosesItsProject();
    void closeAllClosesAll();
    void nothingAsksAboutUnsavedWork();

private:
    QString Path() const { return m_bench->Path(QStringLiteral("scale.spj")); }

    std::unique_ptr<ProjectCommandBench> m_bench;
};

void TestProjectEntries::newMakesAProject()
{
    QFETCH(QString, entry);
    const BoxAnswers none;
    const WhenModal done(QStringLiteral("SensorPropertyFrm"), [](QWidget *dialog) {
        auto &form = *qobject_cast<SensorPropertyFrm *>(dialog);
        QVERIFY(NewProjectMode && !EditProjectMode);
        form.Txtname->setText(QStringLiteral("Scale"));
        form.Combtype->SetListIndex(1);
        form.ComdEnter->click();
    });
    m_bench->Run(entry, m_bench->frame.mnuFileNew, "New");
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    QVERIFY(!ProjectSlots[0].HasFile);
    QCOMPARE(ProjectSlots[0].FilePath, QString());
    QVERIFY(!NewProjectMode && !EditProjectMode);
}

void TestProjectEntries::openReadsAFile()
{
    QFETCH(QString, entry);
    QVERIFY(PutBytes(Path(), ProjectFileText().Bytes()));
    const BoxAnswers none;
    AnswerFileDialog([&] { m_bench->Run(entry, m_bench->frame.mnuFileOpen, "Open"); }, Path());
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("scale"));
}

void TestProjectEntries::saveWritesTheFile()
{
    QFETCH(QString, entry);
    m_bench->NewProjectByMenu();
    const BoxAnswers none;
    AnswerFileDialog([&] { m_bench->Run(entry, m_bench->frame.mnuFileSave, "Save"); }, Path());
    QVERIFY(BytesOf(Path()).startsWith("Load\r\n"));
}

/// Only New and Open do.
void TestProjectEntries::saveNeedsNoLink()
{
    m_bench->NewProjectByMenu();
    LinkUp = false;
    m_bench->SaveTo(Path());
    QVERIFY(QFile::exists(Path()));
}

void TestProjectEntries::newThatIsCancelledMakesNothing()
{
    const BoxAnswers none;
    const WhenModal cancelled(QStringLiteral("SensorPropertyFrm"),
                              [](QWidget *dialog) { qobject_cast<SensorPropertyFrm *>(dialog)->ComdCancel->click(); });
    m_bench->frame.mnuFileNew->trigger();
    QCOMPARE(int(ProjectCount), 0);
    QVERIFY(ProjectForm[0] == nullptr);
    QVERIFY(NewProjectMode); // stays until the next use
}

void TestProjectEntries::windowsCloseBoxClosesItsProject()
{
    m_bench->MakeProjects(2);
    BoxAnswers answers({Cancel, Ok});
    QVERIFY(!ProjectForm[0]->close());
    QVERIFY(ProjectForm[0]->close());
    QCOMPARE(answers.Texts(), QStringList(2, QStringLiteral("The action will remove this project!")));
    QVERIFY(!ProjectOccupied[0]);
    QVERIFY(ProjectOccupied[1]);
}

void TestProjectEntries::closeAllClosesAll()
{
    m_bench->MakeProjects(2);
    BoxAnswers answers({Ok});
    m_bench->frame.mnuFileCloseAllProjects->trigger();
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("The action will remove all projects! ")});
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Warning"));
    QCOMPARE(int(ProjectCount), 0);
    QCOMPARE(NodeTexts().size(), 1);
}

/// A project that was changed after it was saved is closed like any other, and its changes are lost.
void TestProjectEntries::nothingAsksAboutUnsavedWork()
{
    m_bench->OpenNamed(QStringLiteral("scale"));
    const QByteArray stored = BytesOf(Path());
    PutRow(0, 1, 1, 1);
    SensorProjects[0].SensorName = QStringLiteral("Later");
    QVERIFY(!ProjectSlots[0].Dirty);
    BoxAnswers answers({Ok});
    QVERIFY(ProjectForm[0]->close());
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("The action will remove this project!")});
    QCOMPARE(BytesOf(Path()), stored);
}

QTEST_MAIN(TestProjectEntries)
#include "tst_project_entries.moc"
