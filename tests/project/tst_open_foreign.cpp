/// @file
/// The command Open on files that are gone or are no project: they open all the same, and what is wrong shows later.
#include "project/ProjectCommandBench.h"

#include <memory>

namespace {

constexpr Text illegalFile{"You have loaded illegal project file,the current project will be closed! ",
                           "您载入的是非法工程文件，当前工程即将被关闭! "};

/// Two points one above the other: a table that can be applied, and a curve that cannot be drawn.
ProjectFileText Upright()
{
    return ProjectFileText().Row(" 1  1 ", "True").Row(" 1  2 ");
}

} // namespace

class TestOpenForeign : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ProjectCommandBench>();
        QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
    }
    void cleanup() { m_bench.reset(); }

    void missingFileOpensWithAnError_data();
    void missingFileOpensWithAnError();
    void missingFileLeavesTheDefinitionOfTheSlot();
    void errorIsShownWhenTheProjectStands();
    void emptyFileOpensWithAnError();
    void foreignFileOpensUnnoticed();
    void curveThatCannotBeDrawnClosesItsProject_data();
    void curveThatCannotBeDrawnClosesItsProject();
    void illegalProjectIsToldAtItsDrawingOnly();

private:
    /// Opens a file whose reading fails.
    QList<ShownBox> OpenFaulty(const QString &path)
    {
        BoxAnswers answers({Ok});
        AnswerFileDialog(m_bench->Open(), path);
        return answers.Shown();
    }

    std::unique_ptr<ProjectCommandBench> m_bench;
};

void TestOpenForeign::missingFileOpensWithAnError_data()
{
    AddLanguages();
}

/// Errors of reading are shown as they are, in one language.
void TestOpenForeign::missingFileOpensWithAnError()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    const QString path = m_bench->Path(QStringLiteral("gone.spj"));
    const QList<ShownBox> shown = OpenFaulty(path);
    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown[0].Text, QStringLiteral("File not found"));
    QCOMPARE(shown[0].Title, QStringLiteral("Ostrakon"));
    QCOMPARE(shown[0].Icon, QMessageBox::Warning);
    QVERIFY(!QFile::exists(path));
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(int(ProjectNodeCount), 1);
    QVERIFY(ProjectOccupied[0]);
    const ProjectSlot &slot = ProjectSlots[0];
    QCOMPARE(slot.ProjectName, QStringLiteral("gone"));
    QCOMPARE(slot.FilePath, path);
    QCOMPARE(slot.LoadedPath, path);
    QVERIFY(slot.HasFile);
    QVERIFY(ProjectForm[0]->isVisible());
    QCOMPARE(ProjectForm[0]->windowTitle(), QStringLiteral("gone"));
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("gone"));
    QVERIFY(m_bench->frame.mnuFileSave->isEnabled());
}

void TestOpenForeign::missingFileLeavesTheDefinitionOfTheSlot()
{
    SensorProjects[0].SensorName = QStringLiteral("Before");
    SensorProjects[0].MeasFunction = 5;
    PutRow(0, 3, 1.5, 2.5);
    OpenFaulty(m_bench->Path(QStringLiteral("gone.spj")));
    QCOMPARE(SensorProjects[0].SensorName, QStringLiteral("Before"));
    QCOMPARE(SensorProjects[0].MeasFunction, 5);
    QCOMPARE(LastUsedRow(0), 0);
    QCOMPARE(ProjectForm[0]->EditDataView->LineCount(), 0);
}

/// At its end the command still counts the node.
void TestOpenForeign::errorIsShownWhenTheProjectStands()
{
    bool looked = false;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (looked || qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) == nullptr)
            return;
        looked = true;
        QVERIFY(ProjectOccupied[0]);
        QCOMPARE(int(ProjectCount), 1);
        QVERIFY(ProjectForm[0]->isVisible());
        QCOMPARE(m_bench->NodeText(0), QStringLiteral("gone"));
        QCOMPARE(int(ProjectNodeCount), 0);
        QVERIFY(!m_bench->frame.mnuFileSave->isEnabled());
    });
    poll.start(0);
    OpenFaulty(m_bench->Path(QStringLiteral("gone.spj")));
    QVERIFY(looked);
    QCOMPARE(int(ProjectNodeCount), 1);
}

void TestOpenForeign::emptyFileOpensWithAnError()
{
    const QString path = m_bench->Path(QStringLiteral("empty.spj"));
    QVERIFY(PutBytes(path, {}));
    const QList<ShownBox> shown = OpenFaulty(path);
    QCOMPARE(shown[0].Text, QStringLiteral("Input past end of file"));
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("empty"));
}

/// Neither its reading nor its empty picture tells.
void TestOpenForeign::foreignFileOpensUnnoticed()
{
    const QString path = m_bench->Path(QStringLiteral("list.txt"));
    const QByteArrayList ones(49, "1");
    QVERIFY(PutBytes(path, ones.join("\n") + "\n0\nand some more\n"));
    m_bench->OpenFile(path); // allows no box
    QCOMPARE(int(ProjectCount), 1);
    const BoxAnswers none;
    m_bench->ClickTab(1);
    QVERIFY(ProjectForm[0]->SpecifyCurvePic->isVisible());
    QCOMPARE(m_bench->frame.sbrStatus->PanelText(1), QStringLiteral("The data has not been apllied"));
}

void TestOpenForeign::curveThatCannotBeDrawnClosesItsProject_data()
{
    AddLanguages();
}

void TestOpenForeign::curveThatCannotBeDrawnClosesItsProject()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    m_bench->OpenNamed(QStringLiteral("good"));
    const QString path = m_bench->Path(QStringLiteral("upright.spj"));
    const QByteArray bytes = Upright().Bytes();
    QVERIFY(PutBytes(path, bytes));
    m_bench->OpenFile(path);
    QCOMPARE(ActiveSlot(), 1);
    const QPointer<SensorProjFrm> form = ProjectForm[1];
    BoxAnswers answers({Ok});
    m_bench->frame.mnuPopEditDataApply->trigger();
    QCOMPARE(answers.Texts(), QStringList{illegalFile.InCurrentLanguage()});
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
    QVERIFY(!ProjectOccupied[1]);
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(ProjectSlots[1].ProjectName, QString());
    QVERIFY(!ProjectSlots[1].CurveApplied);
    QTRY_VERIFY(form.isNull());
    QVERIFY(!ClosingAll);
    QCOMPARE(BytesOf(path), bytes);
    QVERIFY(ProjectOccupied[0]);
    QCOMPARE(NodeTexts().size(), 5);
}

/// Opening and looking at it tells nothing.
void TestOpenForeign::illegalProjectIsToldAtItsDrawingOnly()
{
    const QString path = m_bench->Path(QStringLiteral("upright.spj"));
    QVERIFY(PutBytes(path, Upright().Bytes()));
    m_bench->OpenFile(path);
    const BoxAnswers none;
    for (const int tab : {1, 3, 2})
        m_bench->ClickTab(tab);
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(ProjectForm[0]->EditDataView->LineCount(), 2);
}

QTEST_MAIN(TestOpenForeign)
#include "tst_open_foreign.moc"
