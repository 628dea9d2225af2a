/// @file
/// The command Open: what it needs, the dialogue that it shows, and the project that stands there afterwards.
#include "project/ProjectCommandBench.h"

#include <QSignalSpy>

#include <memory>

namespace {

/// A thermistor for degrees Fahrenheit.
ProjectFileText ThermistorFile()
{
    return ProjectFileText()
        .Line(1, "Warm")
        .Line(2, " 4 ")
        .Line(4, "F")
        .Line(5, "F")
        .Line(7, " 1 ")
        .Line(8, "True")
        .Line(29, " 2 ")
        .Line(49, " 10000 ");
}

QStringList ColumnTitles(const SensorProjFrm &form)
{
    QStringList titles;
    for (int column = 1; column <= 5; ++column)
        titles << form.EditDataView->ColumnTitle(column);
    return titles;
}

} // namespace

class TestOpenProject : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ProjectCommandBench>();
        QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
    }
    void cleanup() { m_bench.reset(); }

    void openNeedsTheLink_data();
    void openNeedsTheLink();
    void openAsksForAProjectFile_data();
    void openAsksForAProjectFile();
    void cancelEndsTheCommand();
    void openedProjectHasItsFile();
    void openedProjectHasItsDefinitionAndRows();
    void openedProjectComesUpAsANewOne();
    void openedProjectSpeaksTheLanguage_data();
    void openedProjectSpeaksTheLanguage();
    void openForgetsTheCurveOfAnOlderProject();
    void fileNameGivesTheName_data();
    void fileNameGivesTheName();
    void pointsOfTheFolderDoNotCount();
    void gridOfATemperatureSensorStaysEnabled();
    void openAsksNothingAboutTheDevice();
    void openEnablesTheCommands();

private:
    std::unique_ptr<ProjectCommandBench> m_bench;
};

void TestOpenProject::openNeedsTheLink_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("entry");
    for (const char *entry : {"menu", "toolbar", "key"}) {
        QTest::addRow("%s, English", entry) << 1 << QString::fromLatin1(entry);
        QTest::addRow("%s, Chinese", entry) << 0 << QString::fromLatin1(entry);
    }
}

void TestOpenProject::openNeedsTheLink()
{
    QFETCH(int, language);
    QFETCH(QString, entry);
    CurrentLanguage = language;
    LinkUp = false;
    BoxAnswers answers({Ok});
    m_bench->Run(entry, m_bench->frame.mnuFileOpen, "Open");
    QCOMPARE(answers.Texts(), QStringList{notConnected.InCurrentLanguage()});
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
    QCOMPARE(int(ProjectCount), 0);
}

void TestOpenProject::openAsksForAProjectFile_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("title");
    QTest::newRow("English") << 1 << QStringLiteral("Open project");
    QTest::newRow("Chinese") << 0 << QStringLiteral("打开工程");
}

/// Whatever the dialogue was used for before.
void TestOpenProject::openAsksForAProjectFile()
{
    QFETCH(int, language);
    QFETCH(QString, title);
    CurrentLanguage = language;
    CommonDialog &dialog = *m_bench->frame.dlgCommonDialog;
    dialog.FileName = m_bench->Path(QStringLiteral("before.CSV"));
    dialog.Filter = QStringLiteral("CSV file(.CSV)|*.CSV|Text file(.txt)(T)|*.txt");
    dialog.FilterIndex = 2;
    dialog.InitDir = m_bench->folder.path();
    dialog.CancelError = false;
    const ShownFileDialog shown = AnswerFileDialog(m_bench->Open());
    QCOMPARE(shown.Title, title);
    QVERIFY(!shown.Save);
    QVERIFY(shown.Modal);
    QCOMPARE(shown.Folder, QFileInfo(QCoreApplication::applicationDirPath()).canonicalFilePath());
    QCOMPARE(shown.Filters, QStringList{QStringLiteral("Project file(.spj)(*.spj)")});
    QCOMPARE(shown.Filter, QStringLiteral("Project file(.spj)"));
    QCOMPARE(shown.Name, QString());
    QVERIFY(dialog.CancelError);
}

/// A name that an earlier dialogue left behind is not taken for this one's.
void TestOpenProject::cancelEndsTheCommand()
{
    m_bench->OpenNamed(QStringLiteral("first"));
    const QString left = m_bench->Path(QStringLiteral("left.spj"));
    QVERIFY(PutBytes(left, ProjectFileText().Bytes()));
    m_bench->frame.dlgCommonDialog->FileName = left;
    const BoxAnswers none;
    AnswerFileDialog(m_bench->Open());
    QCOMPARE(int(ProjectCount), 1);
    QVERIFY(!ProjectOccupied[1]);
    QVERIFY(ProjectForm[1] == nullptr);
    QCOMPARE(ProjectSlots[1].FilePath, QString());
    QCOMPARE(NodeTexts().size(), 5);
}

void TestOpenProject::openedProjectHasItsFile()
{
    const QString path = m_bench->Path(QStringLiteral("scale.spj"));
    QVERIFY(PutBytes(path, ProjectFileText().Bytes()));
    ProjectSlots[0].Dirty = true;
    m_bench->OpenFile(path);
    const ProjectSlot &slot = ProjectSlots[0];
    QVERIFY(ProjectOccupied[0]);
    QCOMPARE(slot.ProjectName, QStringLiteral("scale"));
    QCOMPARE(slot.FilePath, path);
    QCOMPARE(slot.LoadedPath, path);
    QVERIFY(slot.HasFile);
    QVERIFY(!slot.Dirty);
    QVERIFY(!slot.CurveApplied);
    QCOMPARE(int(slot.NodeIndex), 2);
    QCOMPARE(int(ProjectNodeCount), 1);
    QCOMPARE(NodeTexts(),
             (QStringList{QStringLiteral("Project Group"), QStringLiteral("scale"), QStringLiteral("Reference Curve"),
                          QStringLiteral("Edit Data"), QStringLiteral("Measure Curve")}));
    QCOMPARE(slot.ProjectNode, ProjectSheet->NodeAt(2));
}

void TestOpenProject::openedProjectHasItsDefinitionAndRows()
{
    const QString path = m_bench->Path(QStringLiteral("scale.spj"));
    const ProjectFileText text =
        ProjectFileText().Row(" 1.5  20 ", "True", " 1 ").Row(" 2  25.25 ").Row(" 7  8 ", "False", " 0 ", "False");
    QVERIFY(PutBytes(path, text.Bytes()));
    PutRow(0, 400, 1, 1); // of an older project
    m_bench->OpenFile(path);
    const SensorProject &project = SensorProjects[0];
    QCOMPARE(project.SensorName, QStringLiteral("Probe"));
    QCOMPARE(project.MeasFunction, 0);
    QCOMPARE(project.InputUnit, QStringLiteral("mV"));
    QCOMPARE(project.OutputUnit, QStringLiteral("kPa"));
    QCOMPARE(project.InputUnitScale, 1000.0F);
    QVERIFY(!project.IsBuiltInSensor);
    QCOMPARE(LastUsedRow(0), 2);
    QCOMPARE(ReferenceTable[0][1].Input, 1.5);
    QCOMPARE(ReferenceTable[0][2].Output, 25.25);
    const ReportList &list = *ProjectForm[0]->EditDataView;
    QCOMPARE(list.LineCount(), 2);
    QCOMPARE(list.LineText(1, 2), QStringLiteral("1.5"));
    QCOMPARE(list.LineText(1, 4), QStringLiteral("Least"));
    QCOMPARE(list.LineText(2, 3), QStringLiteral("25.25"));
}

void TestOpenProject::openedProjectComesUpAsANewOne()
{
    QSignalSpy made(&m_bench->frame, &MainFrm::ProjectWindowMade);
    m_bench->OpenNamed(QStringLiteral("scale"));
    QCOMPARE(made.count(), 1);
    const SensorProjFrm &form = *ProjectForm[0];
    QCOMPARE(form.Tag, QStringLiteral("0"));
    QCOMPARE(form.windowTitle(), QStringLiteral("scale"));
    QCOMPARE(ActiveSlot(), 0);
    QVERIFY(form.isVisible() && form.isMaximized());
    QCOMPARE(form.TabStrip->SelectedTab(), 2);
    QVERIFY(form.EditDataPic->isVisible());
    QVERIFY(!form.Timer1->isActive());
    QCOMPARE(form.Timer1->interval(), 1000);
    QCOMPARE(form.TxtSample->text(), QStringLiteral("1.0"));
    QVERIFY(!form.UndoLumoBtn->isEnabled() && !form.RedoLumoBtn->isEnabled());
    QVERIFY(form.RecordLumoBtn->isEnabled() && !form.EndLumoBtn->isEnabled());
    QCOMPARE(form.LabXUnit->text(), QStringLiteral("X:  mV"));
    QCOMPARE(form.LabYUnit->text(), QStringLiteral("Y:  kPa"));
    QCOMPARE(MeasureWave[0].YUnitText, QStringLiteral("mV"));
    QCOMPARE(ValueWave[0].YUnitText, QStringLiteral("kPa"));
    for (const WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
        QCOMPARE(record->Step, 1.0);
        QCOMPARE(record->XMax, 60.0);
        QCOMPARE(record->Count, 0);
    }
    QCOMPARE(ReferenceCurves[0].Points.size(), std::size_t(500));
    QCOMPARE(ReferenceCurves[0].Flags.size(), std::size_t(500));
    QCOMPARE(ReferenceCurves[0].Count, 0);
}

void TestOpenProject::openedProjectSpeaksTheLanguage_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QString>("zoom");
    QTest::addColumn<QString>("page");
    QTest::newRow("English") << 1
                             << QStringList{QStringLiteral("NO."), QStringLiteral("Unit: mV"),
                                            QStringLiteral("Unit: kPa"), QStringLiteral("Arithmetic"),
                                            QStringLiteral("Segment dot? ")}
                             << QStringLiteral("Horizontal Zoomin") << QStringLiteral("Edit Data");
    QTest::newRow("Chinese") << 0
                             << QStringList{QStringLiteral("数据序号"), QStringLiteral("单位： mV"),
                                            QStringLiteral("单位： kPa"), QStringLiteral("算法"),
                                            QStringLiteral("是否分段点? ")}
                             << QStringLiteral("水平放大") << QStringLiteral("传感器数据编辑");
}

void TestOpenProject::openedProjectSpeaksTheLanguage()
{
    QFETCH(int, language);
    (language == 0 ? m_bench->frame.mnuHelpLang_Chinese : m_bench->frame.mnuHelpLang_English)->trigger();
    m_bench->OpenNamed(QStringLiteral("scale"));
    const SensorProjFrm &form = *ProjectForm[0];
    QTEST(ColumnTitles(form), "titles");
    QTEST(form.ZoominHLumoBtn->Caption(), "zoom"); // by the language table, behind what the command itself writes
    QTEST(form.TabStrip->Caption(2), "page");
    QTEST(NodeTexts()[3], "page");
}

void TestOpenProject::openForgetsTheCurveOfAnOlderProject()
{
    ProjectSlots[0].CurveApplied = true;
    ReferenceCurves[0].Count = 2;
    ReferenceCurves[0].YMax = 9;
    m_bench->OpenNamed(QStringLiteral("scale"));
    QVERIFY(!ProjectSlots[0].CurveApplied);
    QCOMPARE(ReferenceCurves[0].Count, 0);
    QCOMPARE(ReferenceCurves[0].YMax, 0.0);
}

void TestOpenProject::fileNameGivesTheName_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::newRow("one point") << QStringLiteral("scale.spj") << QStringLiteral("scale");
    QTest::newRow("two points") << QStringLiteral("a.b.spj") << QStringLiteral("a");
    QTest::newRow("no point") << QStringLiteral("scale") << QStringLiteral("scale");
    QTest::newRow("another extension") << QStringLiteral("scale.txt") << QStringLiteral("scale");
    QTest::newRow("blanks") << QStringLiteral("my scale .spj") << QStringLiteral("my scale ");
    QTest::newRow("Chinese") << QStringLiteral("压力传感器.spj") << QStringLiteral("压力传感器");
}

void TestOpenProject::fileNameGivesTheName()
{
    QFETCH(QString, file);
    QFETCH(QString, name);
    const QString path = m_bench->Path(file);
    QVERIFY(PutBytes(path, ProjectFileText().Bytes()));
    m_bench->OpenFile(path);
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(ProjectSlots[0].FilePath, path);
    QCOMPARE(ProjectSlots[0].ProjectName, name);
    QCOMPARE(ProjectForm[0]->windowTitle(), name);
    QCOMPARE(m_bench->NodeText(0), name);
    QCOMPARE(SensorProjects[0].SensorName, QStringLiteral("Probe"));
}

void TestOpenProject::pointsOfTheFolderDoNotCount()
{
    QVERIFY(QDir(m_bench->folder.path()).mkpath(QStringLiteral("v1.2/b.c")));
    const QString path = m_bench->Path(QStringLiteral("v1.2/b.c/scale"));
    QVERIFY(PutBytes(path, ProjectFileText().Bytes()));
    m_bench->OpenFile(path);
    QCOMPARE(ProjectSlots[0].FilePath, path);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("scale"));
}

/// Its notice answers a press.
void TestOpenProject::gridOfATemperatureSensorStaysEnabled()
{
    const QString path = m_bench->Path(QStringLiteral("warm.spj"));
    QVERIFY(PutBytes(path, ThermistorFile().Bytes()));
    m_bench->OpenFile(path);
    QVERIFY(SensorProjects[0].IsBuiltInSensor);
    const ReportList &grid = *ProjectForm[0]->EditDataView;
    QVERIFY(grid.isEnabled());
    BoxAnswers answers({Ok});
    QTest::mousePress(grid.viewport(), Qt::RightButton);
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("Temperature sensor task does not need a reference points!")});
}

void TestOpenProject::openAsksNothingAboutTheDevice()
{
    InstrumentKind = InstrumentKindKV7050;
    const QString path = m_bench->Path(QStringLiteral("warm.spj"));
    QVERIFY(PutBytes(path, ThermistorFile().Bytes()));
    m_bench->OpenFile(path); // allows no box
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(int(SensorProjects[0].ThermistorOhms), 10000);
}

void TestOpenProject::openEnablesTheCommands()
{
    const MainFrm &frame = m_bench->frame;
    const auto enabled = [&frame] {
        return QList<bool>{frame.mnuFileSave->isEnabled(), frame.mnuFileSaveAs->isEnabled(),
                           frame.mnuToolsSensorOption->isEnabled(), frame.ToolBarButton("Save")->isEnabled(),
                           frame.ToolBarButton("Options")->isEnabled()};
    };
    QVERIFY(!enabled().contains(true));
    m_bench->OpenNamed(QStringLiteral("scale"));
    QVERIFY(!enabled().contains(false));
}

QTEST_MAIN(TestOpenProject)
#include "tst_open_project.moc"
