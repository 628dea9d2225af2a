/// @file
/// A new project: what New sets, which slot it takes, and where its node stands in the tree.
#include "project/LifecycleBench.h"

#include <QSignalSpy>

#include <functional>
#include <optional>

namespace {

QStringList ColumnTitles(const SensorProjFrm &form)
{
    QStringList titles;
    for (int column = 1; column <= 5; ++column)
        titles << form.EditDataView->ColumnTitle(column);
    return titles;
}

} // namespace

class TestLifecycleNew : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void newTakesTheFirstSlot();
    void newFillsTheSensor();
    void newGivesTheWindowItsDefaults();
    void newSetsTheColumnTitles_data();
    void newSetsTheColumnTitles();
    void newSetsTheButtonCaptions_data();
    void newSetsTheButtonCaptions();
    void newResetsTheWaves();
    void newClearsRowsAndCurve();
    void newForgetsTheFile();
    void newUsesTheWindowThatIsThere();
    void newReportsAPendingError();
    void newEnablesTheCommands();
    void newLeavesTheTimerOfAnotherWindowAlone();
    void windowIsConnectedWhileItIsStillHidden();
    void tenProjectsAreTheLimit_data();
    void tenProjectsAreTheLimit();
    void newTakesTheLowestFreeSlot();
    void nodesFollowEachOther();
    void nodeOfALowerSlotStandsLast();
    void firstProjectTakenAgainStandsLast();
    void treeShowsTheProjects();
    void hiddenTreeGetsNoNode();

private:
    using Look = std::function<void(const SensorProjFrm &)>;

    /// Makes a project and looks at its window while a box is up: behind what New itself writes, ahead of the language
    /// tables.
    void MakeProjectAndLook(const Look &look)
    {
        ProjectPanelVisible = true; // without a tree that could take the node: an error, which New tells in the box
        bool looked = false;
        QTimer poll;
        connect(&poll, &QTimer::timeout, &poll, [&] {
            if (looked || QApplication::activeModalWidget() == nullptr)
                return;
            looked = true;
            look(*ProjectForm[0]);
        });
        poll.start(0);
        const BoxAnswers answers({Ok});
        MakeProject();
        QVERIFY(looked);
    }

    std::optional<LifecycleBench> m_bench;
};

void TestLifecycleNew::newTakesTheFirstSlot()
{
    MakeProject();
    QVERIFY(ProjectOccupied[0]);
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(int(CurrentNewSlot), 0);
    QCOMPARE(int(ProjectNodeCount), 1);
    QCOMPARE(int(ProjectSlots[0].NodeIndex), 2);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    QVERIFY(!ProjectSlots[0].CurveApplied);
    QVERIFY(ProjectForm[0] != nullptr);
    QCOMPARE(ProjectForm[0]->Tag, QStringLiteral("0"));
    QCOMPARE(ActiveProjectForm(), ProjectForm[0]);
    QCOMPARE(ActiveSlot(), 0);
}

void TestLifecycleNew::newFillsTheSensor()
{
    MakeProject();
    const SensorProject &project = SensorProjects[0];
    QCOMPARE(project.SensorName, QStringLiteral("Probe"));
    QCOMPARE(project.MeasFunction, 0);
    QCOMPARE(project.InputUnit, QStringLiteral("mV"));
    QCOMPARE(project.OutputUnit, QStringLiteral("kPa"));
    QCOMPARE(project.InputUnitScale, 1000.0F);
    QVERIFY(!project.IsBuiltInSensor);
}

void TestLifecycleNew::newGivesTheWindowItsDefaults()
{
    MakeProject();
    const SensorProjFrm &form = *ProjectForm[0];
    QVERIFY(form.isVisible());
    QVERIFY(form.isMaximized());
    QCOMPARE(form.windowTitle(), QStringLiteral("Project-1"));
    QCOMPARE(form.TabStrip->SelectedTab(), 2);
    QVERIFY(form.EditDataPic->isVisible());
    QVERIFY(!form.SpecifyCurvePic->isVisible());
    QVERIFY(!form.MeasWavePic->isVisible());
    QVERIFY(!form.Timer1->isActive());
    QCOMPARE(form.Timer1->interval(), 1000);
    QCOMPARE(form.TxtSample->text(), QStringLiteral("1.0"));
    QVERIFY(form.OptWave1->isChecked());
    QVERIFY(!form.OptWave2->isChecked());
    for (const QCheckBox *box : {form.ChkGrid, form.ChkLink, form.ChkGridRef})
        QVERIFY2(box->isChecked(), qPrintable(box->objectName()));
    for (const QWidget *control :
         std::initializer_list<QWidget *>{form.RecordLumoBtn, form.ReplayLumoBtn, form.exportCom, form.ZoominHLumoBtn,
                                          form.ZoomOutHLumoBtn, form.TxtSample, form.EditDataView})
        QVERIFY2(control->isEnabled(), qPrintable(control->objectName()));
    for (const LumoButton *button :
         {form.EndLumoBtn, form.PauseLumoBtn, form.StopLumoBtn, form.LowLumoBtn, form.FastLumoBtn, form.ZoomInVLumoBtn,
          form.ZoomOutVLumoBtn, form.UndoLumoBtn, form.RedoLumoBtn})
        QVERIFY2(!button->isEnabled(), qPrintable(button->objectName()));
    for (const QWidget *control :
         std::initializer_list<QWidget *>{form.FlatScrollBar1, form.FlatScrollBar2, form.Recordpic})
        QVERIFY2(control->isHidden(), qPrintable(control->objectName()));
    // The end of a run shows the carrier alone, and the bar has to come with it.
    QVERIFY(!form.HScroll1->isVisibleTo(&form));
    QVERIFY(form.HScroll1->isVisibleTo(form.Recordpic));
    QCOMPARE(form.LabXUnit->text(), QStringLiteral("X:  mV"));
    QCOMPARE(form.LabYUnit->text(), QStringLiteral("Y:  kPa"));
}

void TestLifecycleNew::newSetsTheColumnTitles_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("English") << 1
                             << QStringList{QStringLiteral("NO."), QStringLiteral("Unit: mV"),
                                            QStringLiteral("Unit: kPa"), QStringLiteral("Arithmetic"),
                                            QStringLiteral("Segment dot? ")};
    QTest::newRow("Chinese") << 0
                             << QStringList{QStringLiteral("数据序号"), QStringLiteral("单位： mV"),
                                            QStringLiteral("单位： kPa"), QStringLiteral("算法"),
                                            QStringLiteral("是否分段点? ")};
}

/// By itself, ahead of the window's own table, which writes them once more.
void TestLifecycleNew::newSetsTheColumnTitles()
{
    QFETCH(int, language);
    QFETCH(QStringList, titles);
    CurrentLanguage = language;
    QStringList under;
    MakeProjectAndLook([&under](const SensorProjFrm &form) { under = ColumnTitles(form); });
    QCOMPARE(under, titles);
    QCOMPARE(ColumnTitles(*ProjectForm[0]), titles);
}

void TestLifecycleNew::newSetsTheButtonCaptions_data()
{
    AddLanguages();
}

/// The captions that New sets by itself are replaced by the window's own table at its end, which runs last.
void TestLifecycleNew::newSetsTheButtonCaptions()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    const bool chinese = language == 0;
    QStringList captions;
    MakeProjectAndLook([&captions](const SensorProjFrm &form) {
        for (const LumoButton *button :
             {form.RecordLumoBtn, form.EndLumoBtn, form.ReplayLumoBtn, form.PauseLumoBtn, form.StopLumoBtn,
              form.LowLumoBtn, form.FastLumoBtn, form.ColorLumoBtn, form.ZoominHLumoBtn, form.ZoomInVLumoBtn,
              form.ZoomOutHLumoBtn, form.ZoomOutVLumoBtn})
            captions << button->Caption();
    });
    const QStringList english = {QStringLiteral("Start"),  QStringLiteral("End"),           QStringLiteral("Replay"),
                                 QStringLiteral("Pause"),  QStringLiteral("Stop"),          QStringLiteral("/ 2"),
                                 QStringLiteral("× 2"),    QStringLiteral("Color Setting"), QStringLiteral("Zoomin"),
                                 QStringLiteral("Zoomin"), QStringLiteral("Zoomout"),       QStringLiteral("Zoomout")};
    const QStringList other = {QStringLiteral("开始测量"), QStringLiteral("结束测量"), QStringLiteral("回放"),
                               QStringLiteral("暂停"),     QStringLiteral("结束"),     QStringLiteral("/ 2"),
                               QStringLiteral("× 2"),      QStringLiteral("颜色设置"), QStringLiteral("放大"),
                               QStringLiteral("放大"),     QStringLiteral("缩小"),     QStringLiteral("缩小")};
    QCOMPARE(captions, chinese ? other : english);
    QCOMPARE(ProjectForm[0]->ZoominHLumoBtn->Caption(),
             chinese ? QStringLiteral("水平放大") : QStringLiteral("Horizontal Zoomin"));
    QCOMPARE(ProjectForm[0]->RecordLumoBtn->Caption(), chinese ? QStringLiteral("开始测量") : QStringLiteral("Start"));
}

void TestLifecycleNew::newResetsTheWaves()
{
    for (WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
        record->Points.resize(7);
        record->Count = 7;
        record->LastIndex = 6;
        record->Grid = false;
        record->Link = false;
        record->YMax = 3;
        record->YMin = 1;
        record->Step = 5;
        record->ZoomFactor = 8;
        record->FirstVisible = 2;
        record->LastVisible = 5;
        record->WindowSamples = 11;
        record->TraceColour = 1;
    }
    MakeProject();
    for (const WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
        QCOMPARE(record->Count, 0);
        QCOMPARE(record->LastIndex, 0);
        QVERIFY(record->Grid);
        QVERIFY(record->Link);
        QCOMPARE(record->GridColour, 0x00FF00);
        QCOMPARE(record->TraceColour, 0x00FFFF);
        QCOMPARE(record->XTextColour, 0xFFFF00);
        QCOMPARE(record->YMax, 0.0);
        QCOMPARE(record->YMin, 0.0);
        QCOMPARE(record->XMin, 0.0);
        QCOMPARE(record->XMax, 60.0);
        QCOMPARE(record->XUnitText, QStringLiteral("S"));
        QCOMPARE(record->Step, 1.0);
        QCOMPARE(record->WindowSamples, 61);
        QCOMPARE(record->FirstVisible, 0);
        QCOMPARE(record->LastVisible, 0);
        QCOMPARE(int(record->TickCell), 1);
        QCOMPARE(record->ZoomFactor, 1);
    }
    QCOMPARE(ValueWave[0].YTextColour, 0xFF00FF);
    QCOMPARE(MeasureWave[0].YTextColour, 0xFFFFFF);
    QCOMPARE(ValueWave[0].YUnitText, QStringLiteral("kPa"));
    QCOMPARE(MeasureWave[0].YUnitText, QStringLiteral("mV"));
}

void TestLifecycleNew::newClearsRowsAndCurve()
{
    PutRow(0, 1, 1.5, 2.5, true, 1);
    PutRow(0, 500, 3.5, 4.5);
    ReferenceCurves[0].Count = 2;
    ReferenceCurves[0].YMax = 9;
    ReferenceCurves[0].GridVisible = false;
    MakeProject();
    QCOMPARE(LastUsedRow(0), 0);
    QCOMPARE(ReferenceTable[0][1].Input, 1.5); // the other fields stay
    const ReferenceCurve &curve = ReferenceCurves[0];
    QCOMPARE(curve.Points.size(), std::size_t(500));
    QCOMPARE(curve.Flags.size(), std::size_t(500));
    QCOMPARE(curve.Count, 0);
    QVERIFY(curve.GridVisible);
    QCOMPARE(curve.YMax, 0.0);
    QCOMPARE(curve.BackColor, ProjectForm[0]->PicRef->BackColour);
}

void TestLifecycleNew::newForgetsTheFile()
{
    ProjectSlots[0].HasFile = true;
    ProjectSlots[0].Dirty = true;
    ProjectSlots[0].FilePath = QStringLiteral("/old/file.spj");
    ProjectSlots[0].LoadedPath = QStringLiteral("/old/loaded.spj");
    ProjectSlots[0].CurveApplied = true;
    MakeProject();
    QVERIFY(!ProjectSlots[0].HasFile);
    QVERIFY(!ProjectSlots[0].Dirty);
    QCOMPARE(ProjectSlots[0].FilePath, QString());
    QCOMPARE(ProjectSlots[0].LoadedPath, QString());
    QVERIFY(!ProjectSlots[0].CurveApplied);
}

void TestLifecycleNew::newUsesTheWindowThatIsThere()
{
    auto *form = new SensorProjFrm;
    m_bench->frame.Children->addSubWindow(form);
    ProjectForm[0] = form;
    QSignalSpy made(&m_bench->frame, &MainFrm::ProjectWindowMade);
    MakeProject();
    QCOMPARE(ProjectForm[0], form);
    QCOMPARE(form->Tag, QStringLiteral("0"));
    QCOMPARE(made.count(), 0);
    QVERIFY(!form->Timer1->isActive());
}

void TestLifecycleNew::newReportsAPendingError()
{
    SensorPropertyFrm dialogue;
    FillDialogue(dialogue);
    Show(dialogue.Combtype, QStringLiteral("RTD"));
    dialogue.TextR0->setText(QStringLiteral("1e300"));
    BoxAnswers answers({Ok});
    NewProject(dialogue);
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("Overflow")});
    QCOMPARE(answers.Shown().front().Icon, QMessageBox::Warning);
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(int(ProjectNodeCount), 1);
    QVERIFY(ProjectForm[0]->isVisible());
    QVERIFY(m_bench->frame.mnuFileSave->isEnabled());
}

void TestLifecycleNew::newEnablesTheCommands()
{
    const MainFrm &frame = m_bench->frame;
    frame.mnuFileCloseAllProjects->setEnabled(false);
    frame.ToolBarButton(QStringLiteral("TileVertical"))->setEnabled(false);
    MakeProject();
    QVERIFY(frame.mnuFileCloseAllProjects->isEnabled());
    QVERIFY(frame.ToolBarButton(QStringLiteral("TileVertical"))->isEnabled());
}

/// Another project may be measured meanwhile.
void TestLifecycleNew::newLeavesTheTimerOfAnotherWindowAlone()
{
    MakeProject();
    QTimer &timer = *ProjectForm[0]->Timer1;
    timer.setInterval(2500);
    timer.start();
    const int id = timer.timerId();
    MakeProject();
    QVERIFY(timer.isActive());
    QCOMPARE(timer.timerId(), id); // not even restarted
    QCOMPARE(timer.interval(), 2500);
    QVERIFY(!ProjectForm[1]->Timer1->isActive());
}

void TestLifecycleNew::windowIsConnectedWhileItIsStillHidden()
{
    int made = 0;
    connect(&m_bench->frame, &MainFrm::ProjectWindowMade, this, [&made](const SensorProjFrm *form) {
        ++made;
        QVERIFY(!form->isVisible());
        QCOMPARE(form->Tag, QStringLiteral("0"));
        QCOMPARE(ProjectForm[0], form);
        QVERIFY(!ProjectOccupied[0]);
    });
    MakeProject();
    QCOMPARE(made, 1);
}

void TestLifecycleNew::tenProjectsAreTheLimit_data()
{
    AddLanguages();
}

void TestLifecycleNew::tenProjectsAreTheLimit()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    {
        const BoxAnswers none;
        MakeProjects(10);
    }
    QCOMPARE(int(ProjectCount), 10);
    QCOMPARE(ProjectSlots[9].ProjectName, QStringLiteral("Project-10"));
    SensorPropertyFrm dialogue;
    FillDialogue(dialogue);
    dialogue.Txtname->setText(QStringLiteral("Eleventh"));
    BoxAnswers answers({Ok});
    NewProject(dialogue);
    QCOMPARE(answers.Texts(),
             QStringList{language == 0 ? QStringLiteral("工程数目达到上限! ")
                                       : QStringLiteral("You can create only 10 projects as maximum limit! ")});
    QCOMPARE(answers.Shown().front().Icon, QMessageBox::Information);
    QCOMPARE(int(ProjectCount), 10);
    QCOMPARE(int(ProjectNodeCount), 10);
    QCOMPARE(int(CurrentNewSlot), 9);
    for (const SensorProject &project : SensorProjects)
        QCOMPARE(project.SensorName, QStringLiteral("Probe"));
    QCOMPARE(int(m_bench->frame.Children->subWindowList().size()), 10);
}

void TestLifecycleNew::newTakesTheLowestFreeSlot()
{
    MakeProjects(4);
    CloseSilently(2);
    CloseSilently(1);
    QCOMPARE(int(ProjectCount), 2);
    MakeProject();
    QCOMPARE(int(CurrentNewSlot), 1);
    QCOMPARE(ProjectSlots[1].ProjectName, QStringLiteral("Project-2"));
    MakeProject();
    QCOMPARE(int(CurrentNewSlot), 2);
    MakeProject();
    QCOMPARE(int(CurrentNewSlot), 4);
    QCOMPARE(ProjectForm[4]->Tag, QStringLiteral("4"));
    QCOMPARE(int(ProjectCount), 5);
}

void TestLifecycleNew::nodesFollowEachOther()
{
    MakeProjects(10);
    for (int slot = 0; slot < 10; ++slot)
        QCOMPARE(int(ProjectSlots[slot].NodeIndex), 2 + 4 * slot);
}

/// Three projects, the middle one closed, and New.
void TestLifecycleNew::nodeOfALowerSlotStandsLast()
{
    MakeProjects(3);
    CloseSilently(1);
    QCOMPARE(int(ProjectSlots[0].NodeIndex), 2);
    QCOMPARE(int(ProjectSlots[2].NodeIndex), 6);
    QCOMPARE(int(ProjectNodeCount), 2);
    MakeProject();
    QCOMPARE(int(CurrentNewSlot), 1);
    QCOMPARE(int(ProjectSlots[1].NodeIndex), 10);
}

/// Project-1 and Project-2, Project-1 closed, and New.
void TestLifecycleNew::firstProjectTakenAgainStandsLast()
{
    m_bench->ShowTree();
    MakeProjects(2);
    CloseSilently(0);
    QCOMPARE(int(ProjectSlots[1].NodeIndex), 2);
    MakeProject();
    QCOMPARE(int(CurrentNewSlot), 0);
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    QCOMPARE(int(ProjectSlots[0].NodeIndex), 6);
    QCOMPARE(ProjectSheet->NodeAt(2)->text(0), QStringLiteral("Project-2"));
    QCOMPARE(ProjectSheet->NodeAt(6)->text(0), QStringLiteral("Project-1"));
}

void TestLifecycleNew::treeShowsTheProjects()
{
    m_bench->ShowTree();
    MakeProjects(2);
    QCOMPARE(ProjectSheet->NodeCount(), 9);
    const QStringList pages = {QStringLiteral("Reference Curve"), QStringLiteral("Edit Data"),
                               QStringLiteral("Measure Curve")};
    for (int slot = 0; slot < 2; ++slot) {
        QTreeWidgetItem *node = ProjectSheet->NodeAt(ProjectSlots[slot].NodeIndex);
        QCOMPARE(node->text(0), ProjectSlots[slot].ProjectName);
        QCOMPARE(ProjectSlots[slot].ProjectNode, node);
        for (int page = 0; page < 3; ++page)
            QCOMPARE(ProjectSheet->NodeAt(ProjectSlots[slot].NodeIndex + page + 1)->text(0), pages[page]);
    }
    CloseSilently(0);
    QCOMPARE(ProjectSheet->NodeCount(), 5);
    QCOMPARE(ProjectSheet->NodeAt(2)->text(0), QStringLiteral("Project-2"));
}

void TestLifecycleNew::hiddenTreeGetsNoNode()
{
    m_bench->ShowTree();
    ProjectPanelVisible = false;
    MakeProject();
    QCOMPARE(ProjectSheet->NodeCount(), 1);
    QCOMPARE(int(ProjectNodeCount), 1);
    QCOMPARE(int(ProjectSlots[0].NodeIndex), 2);
}

QTEST_MAIN(TestLifecycleNew)
#include "tst_lifecycle_new.moc"
