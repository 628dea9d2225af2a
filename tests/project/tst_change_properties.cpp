/// @file
/// What a change of its properties makes of a project, and what stays.
#include "project/EditProjectBench.h"

class TestChangeProperties : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<EditProjectBench>();
        QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
    }
    void cleanup() { m_bench.reset(); }

    void changeTakesTheDialogueOver();
    void changeMarksTheProject();
    void nextSaveReplacesTheFile();
    void saveOfANewProjectStillAsks();
    void changeSetsTheColumnTitles_data();
    void changeSetsTheColumnTitles();
    void changeResetsTheWaves();
    void changeKeepsTheSamplePeriod();
    void changeStopsTheTimer();
    void rowsStay();
    void rowsOfAnOpenedProjectStay();
    void otherProjectsStay();
    void appliedCurveLeavesThePicture();
    void hiddenTreeIsLeftAlone();
    void changeUpdatesTheCommands();

private:
    QString Path(const char *name) const { return m_bench->Path(QString::fromUtf8(name)); }

    std::unique_ptr<EditProjectBench> m_bench;
};

void TestChangeProperties::changeTakesTheDialogueOver()
{
    m_bench->NewProjectByMenu();
    m_bench->Change();
    const SensorProject &project = SensorProjects[0];
    QCOMPARE(project.SensorName, QStringLiteral("Scale"));
    QCOMPARE(project.MeasFunction, 0);
    QCOMPARE(project.InputUnit, QStringLiteral("mV"));
    QCOMPARE(project.OutputUnit, QStringLiteral("kg"));
    QCOMPARE(project.InputUnitScale, 1000.0F);
    QCOMPARE(ProjectForm[0]->LabXUnit->text(), QStringLiteral("X:  mV"));
    QCOMPARE(ProjectForm[0]->LabYUnit->text(), QStringLiteral("Y:  kg"));
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(NodeTexts().size(), 5);
}

void TestChangeProperties::changeMarksTheProject()
{
    m_bench->OpenNamed(QStringLiteral("stored"));
    ProjectSlot &slot = ProjectSlots[0];
    slot.Dirty = true;
    slot.CurveApplied = true;
    ProjectForm[0]->setWindowTitle(QStringLiteral("else"));
    ProjectSheet->NodeAt(2)->setText(0, QStringLiteral("else"));
    m_bench->Change();
    QVERIFY(!slot.HasFile);
    QVERIFY(!slot.Dirty);
    QVERIFY(!slot.CurveApplied);
    QCOMPARE(slot.LoadedPath, QString());
    QCOMPARE(slot.FilePath, Path("stored.spj"));
    QCOMPARE(slot.ProjectName, QStringLiteral("stored"));
    QCOMPARE(ProjectForm[0]->windowTitle(), QStringLiteral("stored"));
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("stored"));
}

void TestChangeProperties::nextSaveReplacesTheFile()
{
    m_bench->OpenNamed(QStringLiteral("stored"));
    m_bench->Change();
    QVERIFY(BytesOf(Path("stored.spj")).startsWith("Probe\r\n"));
    const BoxAnswers none;
    m_bench->frame.mnuFileSave->trigger(); // no dialogue either
    QVERIFY(BytesOf(Path("stored.spj")).startsWith("Scale\r\n"));
    QVERIFY(ProjectSlots[0].HasFile);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("stored"));
}

void TestChangeProperties::saveOfANewProjectStillAsks()
{
    m_bench->NewProjectByMenu();
    m_bench->Change();
    QCOMPARE(ProjectSlots[0].FilePath, QString());
    QCOMPARE(AnswerFileDialog(m_bench->Save()).Title, QStringLiteral("Save project as..."));
}

void TestChangeProperties::changeSetsTheColumnTitles_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("English") << 1
                             << QStringList{QStringLiteral("NO."), QStringLiteral("Unit: mV"),
                                            QStringLiteral("Unit: kg"), QStringLiteral("Arithmetic"),
                                            QStringLiteral("Segment dot? ")};
    QTest::newRow("Chinese") << 0
                             << QStringList{QStringLiteral("数据序号"), QStringLiteral("单位： mV"),
                                            QStringLiteral("单位： kg"), QStringLiteral("算法"),
                                            QStringLiteral("是否分段点? ")};
}

void TestChangeProperties::changeSetsTheColumnTitles()
{
    QFETCH(int, language);
    QFETCH(QStringList, titles);
    m_bench->NewProjectByMenu();
    CurrentLanguage = language;
    m_bench->Change();
    QCOMPARE(ColumnTitles(*ProjectForm[0]), titles);
}

void TestChangeProperties::changeResetsTheWaves()
{
    m_bench->NewProjectByMenu();
    for (WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
        record->Points.resize(7);
        record->Count = 7;
        record->LastIndex = 6;
        record->Grid = false;
        record->YMax = 3;
        record->XMax = 150;
        record->Step = 2.5;
        record->ZoomFactor = 8;
        record->TraceColour = 1;
    }
    m_bench->Change();
    for (const WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
        QCOMPARE(record->Count, 0);
        QCOMPARE(record->LastIndex, 0);
        QVERIFY(record->Grid);
        QCOMPARE(record->YMax, 0.0);
        QCOMPARE(record->XMax, 60.0);
        QCOMPARE(record->Step, 1.0);
        QCOMPARE(record->ZoomFactor, 1);
        QCOMPARE(record->TraceColour, 0x00FFFF);
    }
    QCOMPARE(ValueWave[0].YUnitText, QStringLiteral("kg"));
    QCOMPARE(MeasureWave[0].YUnitText, QStringLiteral("mV"));
}

/// The field on the page goes on showing the period that was set.
void TestChangeProperties::changeKeepsTheSamplePeriod()
{
    m_bench->NewProjectByMenu();
    ProjectForm[0]->Timer1->setInterval(2500);
    m_bench->Change();
    for (const WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
        QCOMPARE(record->Step, 2.5);
        QCOMPARE(record->XMax, 150.0);
    }
}

void TestChangeProperties::changeStopsTheTimer()
{
    m_bench->NewProjectByMenu();
    QTimer &timer = *ProjectForm[0]->Timer1;
    timer.start(54000);
    m_bench->Change();
    QVERIFY(!timer.isActive());
}

/// Done fills the list anew, in the new units; Enter in a list of the dialogue does not.
void TestChangeProperties::rowsStay()
{
    m_bench->NewProjectByMenu();
    PutRow(0, 1, 1.5, 2.5, true, 1);
    PutRow(0, 500, 3.5, 4.5);
    const ReportList &list = *ProjectForm[0]->EditDataView;
    {
        const BoxAnswers none;
        m_bench->Edit([](SensorPropertyFrm &form) {
            FillVoltage(form);
            QTest::keyClick(form.Combtype, Qt::Key_Return);
        });
    }
    QCOMPARE(SensorProjects[0].InputUnit, QStringLiteral("mV"));
    QCOMPARE(list.LineCount(), 0);
    m_bench->Change();
    QCOMPARE(list.LineCount(), 2);
    const ReferencePoint &first = ReferenceTable[0][1];
    QVERIFY(first.Used && first.Segment);
    QCOMPARE(first.Input, 1.5);
    QCOMPARE(first.Output, 2.5);
    QCOMPARE(int(first.Arithmetic), 1);
    QCOMPARE(LastUsedRow(0), 500);
}

void TestChangeProperties::rowsOfAnOpenedProjectStay()
{
    QVERIFY(PutBytes(Path("stored.spj"), ProjectFileText().Row(" 1  2 ", "True").Row(" 3  4 ").Bytes()));
    m_bench->OpenFile(Path("stored.spj"));
    m_bench->Change(FillThermistor);
    QCOMPARE(LastUsedRow(0), 2);
    QCOMPARE(ProjectForm[0]->EditDataView->LineCount(), 0); // a temperature sensor shows none
    m_bench->Change();
    QCOMPARE(ProjectForm[0]->EditDataView->LineCount(), 2);
}

void TestChangeProperties::otherProjectsStay()
{
    m_bench->MakeProjects(3);
    m_bench->Activate(1);
    for (const int slot : {0, 2}) {
        ProjectSlots[slot].CurveApplied = slot == 0;
        ProjectSlots[slot].HasFile = true;
        ProjectSlots[slot].LoadedPath = QStringLiteral("/loaded");
        ProjectForm[slot]->Timer1->start(54000);
        MeasureWave[slot].Count = 7;
    }
    m_bench->Change();
    for (const int slot : {0, 2}) {
        QCOMPARE(SensorProjects[slot].SensorName, QStringLiteral("Load"));
        QCOMPARE(ProjectSlots[slot].CurveApplied, slot == 0);
        QVERIFY(ProjectSlots[slot].HasFile);
        QCOMPARE(ProjectSlots[slot].LoadedPath, QStringLiteral("/loaded"));
        QVERIFY(ProjectForm[slot]->Timer1->isActive());
        QCOMPARE(MeasureWave[slot].Count, 7);
    }
    QCOMPARE(ActiveSlot(), 1);
}

/// The page of the curve shows at once that it must be applied again.
void TestChangeProperties::appliedCurveLeavesThePicture()
{
    m_bench->NewProjectByMenu();
    PutRow(0, 1, 1, 1, true);
    PutRow(0, 2, 2, 3);
    m_bench->frame.mnuPopEditDataApply->trigger();
    m_bench->ClickTab(1);
    const StatusPanels &status = *m_bench->frame.sbrStatus;
    QCOMPARE(status.PanelText(1), QStringLiteral("The data has been apllied"));
    const QImage applied = ProjectForm[0]->PicRef->grab().toImage();
    m_bench->Change();
    QCOMPARE(ProjectForm[0]->TabStrip->SelectedTab(), 1);
    QCOMPARE(status.PanelText(1), QStringLiteral("The data has not been apllied"));
    QVERIFY(ProjectForm[0]->PicRef->grab().toImage() != applied);
}

void TestChangeProperties::hiddenTreeIsLeftAlone()
{
    m_bench->NewProjectByMenu();
    m_bench->frame.mnuViewProjectWindow->trigger();
    m_bench->Change();
    QCOMPARE(ProjectSheet->NodeCount(), 0);
    QCOMPARE(ProjectForm[0]->windowTitle(), QStringLiteral("Project-1"));
}

void TestChangeProperties::changeUpdatesTheCommands()
{
    m_bench->NewProjectByMenu();
    m_bench->frame.mnuFileSave->setEnabled(false);
    m_bench->frame.ToolBarButton(QStringLiteral("Save"))->setEnabled(false);
    m_bench->Change();
    QVERIFY(m_bench->frame.mnuFileSave->isEnabled());
    QVERIFY(m_bench->frame.ToolBarButton(QStringLiteral("Save"))->isEnabled());
}

QTEST_MAIN(TestChangeProperties)
#include "tst_change_properties.moc"
