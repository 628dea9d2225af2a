/// @file
/// The life of a project: what New sets, which slot and node it takes, and every way in which a window closes.
#include "controls/Guard.h"
#include "display/ProjectViewModule.h"
#include "project/LifecycleModule.h"
#include "project/SensorPropertyFrm.h"
#include "shell/ActiveProject.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"

#include <QSignalSpy>

#include <memory>

using Buttons = QList<QMessageBox::StandardButton>;

namespace {

constexpr auto Ok = QMessageBox::Ok;
constexpr auto Cancel = QMessageBox::Cancel;

void Show(ListCombo *list, const QString &text)
{
    list->ClearList();
    list->AddItem(text);
    list->SetListIndex(0);
}

/// A dialogue as it is left on Done, for a voltage in mV that stands for kPa.
void FillDialogue(SensorPropertyFrm &dialogue)
{
    dialogue.Txtname->setText(QStringLiteral("Probe"));
    Show(dialogue.Combtype, QStringLiteral("DCV"));
    Show(dialogue.CombInunit, QStringLiteral("mV"));
    Show(dialogue.CombOutunit, QStringLiteral("kPa"));
}

void MakeProject()
{
    SensorPropertyFrm dialogue;
    FillDialogue(dialogue);
    NewProject(dialogue);
}

void MakeProjects(int count)
{
    for (int i = 0; i < count; ++i)
        MakeProject();
}

/// Closes the window of a slot without a question.
void CloseSilently(int slot)
{
    ClosingAll = true;
    ProjectForm[slot]->close();
    ClosingAll = false;
}

QString RunQuestion()
{
    return CurrentLanguage == 0
               ? QStringLiteral("测量正在运行，当操作前会停止测量并移除此工程! ")
               : QStringLiteral("Measuring is running, the action will stop and remove this project! ");
}

QString RemoveQuestion()
{
    return CurrentLanguage == 0 ? QStringLiteral("当前操作会移除此工程! ")
                                : QStringLiteral("The action will remove this project!");
}

QString RemoveAllQuestion()
{
    return CurrentLanguage == 0 ? QStringLiteral("当前操作会移除所有工程! ")
                                : QStringLiteral("The action will remove all projects! ");
}

void AddLanguages()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}

} // namespace

class TestLifecycle : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

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
    void newDisablesTheTableOfABuiltInSensor();
    void newUsesTheWindowThatIsThere();
    void newReportsAPendingError();
    void newEnablesTheCommands();
    void windowIsConnectedWhileItIsStillHidden();
    void tenProjectsAreTheLimit_data();
    void tenProjectsAreTheLimit();
    void newTakesTheLowestFreeSlot();
    void nodesFollowEachOther();
    void nodeOfALowerSlotStandsLast();
    void firstProjectTakenAgainStandsLast();
    void treeShowsTheProjects();
    void hiddenTreeGetsNoNode();

    void closingAsks_data();
    void closingAsks();
    void closingDuringARunAsks_data();
    void closingDuringARunAsks();
    void closingDuringARunAsksWhileAllClose();
    void closingIsSilentWhileAllClose();
    void closedSlotKeepsItsOldContents();
    void closingReleasesTheDrawingSurfaces();
    void closingTheLastProjectDisablesTheCommands();
    void closedSlotIsTakenAnew();

    void closeAllAsksOnce_data();
    void closeAllAsksOnce();
    void closeAllCancelledKeepsAll();
    void closeAllWithoutProjectAsksNothing();
    void closeAllKeepsARefusedRun();

private:
    /// Shows the tree as the frame does when it loads.
    void ShowTree()
    {
        ProjectSheet = new ProjectSheetFrm(&m_frame->frame);
        LoadProjectSheet();
        ProjectPanelVisible = true;
    }

    std::unique_ptr<BareFrame> m_frame;
};

void TestLifecycle::init()
{
    m_frame = std::make_unique<BareFrame>();
    ResetProjectTreeModule();
    connect(&m_frame->frame, &MainFrm::ProjectWindowMade, &m_frame->frame, [](SensorProjFrm *form) {
        ConnectLifecycle(*form);
        ConnectProjectView(*form);
    });
    InstrumentKind = 2;
}

void TestLifecycle::cleanup()
{
    m_frame.reset();
    ResetProjectTreeModule();
}

void TestLifecycle::newTakesTheFirstSlot()
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

void TestLifecycle::newFillsTheSensor()
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

void TestLifecycle::newGivesTheWindowItsDefaults()
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

void TestLifecycle::newSetsTheColumnTitles_data()
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

void TestLifecycle::newSetsTheColumnTitles()
{
    QFETCH(int, language);
    QFETCH(QStringList, titles);
    CurrentLanguage = language;
    MakeProject();
    QStringList shown;
    for (int column = 1; column <= 5; ++column)
        shown << ProjectForm[0]->EditDataView->ColumnTitle(column);
    QCOMPARE(shown, titles);
}

void TestLifecycle::newSetsTheButtonCaptions_data()
{
    AddLanguages();
}

/// The captions that New sets by itself are replaced by the window's own table at its end, which runs last.
void TestLifecycle::newSetsTheButtonCaptions()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    const bool chinese = language == 0;
    SensorPropertyFrm dialogue;
    FillDialogue(dialogue);
    // An error raises a box in the midst of it, while New's own captions are still shown.
    Show(dialogue.Combtype, QStringLiteral("RTD"));
    dialogue.TextR0->setText(QStringLiteral("1e300"));
    QStringList captions;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&captions] {
        if (!captions.isEmpty() || QApplication::activeModalWidget() == nullptr)
            return;
        const SensorProjFrm &form = *ProjectForm[0];
        for (const LumoButton *button :
             {form.RecordLumoBtn, form.EndLumoBtn, form.ReplayLumoBtn, form.PauseLumoBtn, form.StopLumoBtn,
              form.LowLumoBtn, form.FastLumoBtn, form.ColorLumoBtn, form.ZoominHLumoBtn, form.ZoomInVLumoBtn,
              form.ZoomOutHLumoBtn, form.ZoomOutVLumoBtn})
            captions << button->Caption();
    });
    poll.start(0);
    const BoxAnswers answers({Ok});
    NewProject(dialogue);
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

void TestLifecycle::newResetsTheWaves()
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

void TestLifecycle::newClearsRowsAndCurve()
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

void TestLifecycle::newForgetsTheFile()
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

void TestLifecycle::newDisablesTheTableOfABuiltInSensor()
{
    SensorPropertyFrm dialogue;
    FillDialogue(dialogue);
    Show(dialogue.Combtype, QStringLiteral("THERM"));
    NewProject(dialogue);
    QVERIFY(SensorProjects[0].IsBuiltInSensor);
    QVERIFY(!ProjectForm[0]->EditDataView->isEnabled());
}

void TestLifecycle::newUsesTheWindowThatIsThere()
{
    auto *form = new SensorProjFrm;
    m_frame->frame.Children->addSubWindow(form);
    ProjectForm[0] = form;
    QSignalSpy made(&m_frame->frame, &MainFrm::ProjectWindowMade);
    MakeProject();
    QCOMPARE(ProjectForm[0], form);
    QCOMPARE(form->Tag, QStringLiteral("0"));
    QCOMPARE(made.count(), 0);
    QVERIFY(!form->Timer1->isActive());
}

void TestLifecycle::newReportsAPendingError()
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
    QVERIFY(m_frame->frame.mnuFileSave->isEnabled());
}

void TestLifecycle::newEnablesTheCommands()
{
    const MainFrm &frame = m_frame->frame;
    frame.mnuFileCloseAllProjects->setEnabled(false);
    frame.ToolBarButton(QStringLiteral("TileVertical"))->setEnabled(false);
    MakeProject();
    QVERIFY(frame.mnuFileCloseAllProjects->isEnabled());
    QVERIFY(frame.ToolBarButton(QStringLiteral("TileVertical"))->isEnabled());
}

void TestLifecycle::windowIsConnectedWhileItIsStillHidden()
{
    int made = 0;
    connect(&m_frame->frame, &MainFrm::ProjectWindowMade, this, [&made](const SensorProjFrm *form) {
        ++made;
        QVERIFY(!form->isVisible());
        QCOMPARE(form->Tag, QStringLiteral("0"));
        QCOMPARE(ProjectForm[0], form);
        QVERIFY(!ProjectOccupied[0]);
    });
    MakeProject();
    QCOMPARE(made, 1);
}

void TestLifecycle::tenProjectsAreTheLimit_data()
{
    AddLanguages();
}

void TestLifecycle::tenProjectsAreTheLimit()
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
    QCOMPARE(int(m_frame->frame.Children->subWindowList().size()), 10);
}

void TestLifecycle::newTakesTheLowestFreeSlot()
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

void TestLifecycle::nodesFollowEachOther()
{
    MakeProjects(10);
    for (int slot = 0; slot < 10; ++slot)
        QCOMPARE(int(ProjectSlots[slot].NodeIndex), 2 + 4 * slot);
}

/// Three projects, the middle one closed, and New.
void TestLifecycle::nodeOfALowerSlotStandsLast()
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
void TestLifecycle::firstProjectTakenAgainStandsLast()
{
    ShowTree();
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

void TestLifecycle::treeShowsTheProjects()
{
    ShowTree();
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

void TestLifecycle::hiddenTreeGetsNoNode()
{
    ShowTree();
    ProjectPanelVisible = false;
    MakeProject();
    QCOMPARE(ProjectSheet->NodeCount(), 1);
    QCOMPARE(int(ProjectNodeCount), 1);
    QCOMPARE(int(ProjectSlots[0].NodeIndex), 2);
}

void TestLifecycle::closingAsks_data()
{
    AddLanguages();
}

void TestLifecycle::closingAsks()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    MakeProject();
    const QPointer<SensorProjFrm> form = ProjectForm[0];
    QSignalSpy ended(form, &SensorProjFrm::EndRunAsked);
    {
        BoxAnswers answers({Cancel});
        QVERIFY(!form->close());
        QCOMPARE(answers.Texts(), QStringList{RemoveQuestion()});
        QCOMPARE(answers.Shown().front().Title, QStringLiteral("Ostrakon"));
        QCOMPARE(answers.Shown().front().Buttons, QMessageBox::Ok | QMessageBox::Cancel);
    }
    QVERIFY(form->isVisible());
    QCOMPARE(ProjectForm[0], form.data());
    QCOMPARE(int(ProjectCount), 1);
    QVERIFY(ProjectOccupied[0]);
    {
        BoxAnswers answers({Ok});
        QVERIFY(form->close());
        QCOMPARE(answers.Texts(), QStringList{RemoveQuestion()});
    }
    QCOMPARE(ended.count(), 0);
    QVERIFY(ProjectForm[0] == nullptr);
    QVERIFY(!ProjectOccupied[0]);
    QCOMPARE(int(ProjectCount), 0);
    QCOMPARE(int(ProjectNodeCount), 0);
    QTRY_VERIFY(form.isNull());
    QVERIFY(m_frame->frame.Children->subWindowList().isEmpty());
}

void TestLifecycle::closingDuringARunAsks_data()
{
    AddLanguages();
}

void TestLifecycle::closingDuringARunAsks()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    MakeProject();
    SensorProjFrm *form = ProjectForm[0];
    form->EndLumoBtn->setEnabled(true);
    PutRow(0, 1, 1.0, 2.0);
    int ended = 0;
    connect(form, &SensorProjFrm::EndRunAsked, form, [&ended] {
        ++ended;
        QVERIFY(ProjectOccupied[0]); // ahead of anything that is taken down
        QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    });
    {
        BoxAnswers answers({Cancel});
        QVERIFY(!form->close());
        QCOMPARE(answers.Texts(), QStringList{RunQuestion()});
        QCOMPARE(answers.Shown().front().Title, QStringLiteral("Warning"));
        QCOMPARE(answers.Shown().front().Buttons, QMessageBox::Ok | QMessageBox::Cancel);
    }
    QCOMPARE(ended, 0);
    QVERIFY(form->isVisible());
    QVERIFY(form->EndLumoBtn->isEnabled());
    QVERIFY(ReferenceTable[0][1].Used);
    QCOMPARE(int(ProjectCount), 1);
    {
        BoxAnswers answers({Ok});
        QVERIFY(form->close());
        QCOMPARE(answers.Texts(), QStringList{RunQuestion()});
    }
    QCOMPARE(ended, 1);
    QCOMPARE(int(ProjectCount), 0);
}

void TestLifecycle::closingDuringARunAsksWhileAllClose()
{
    MakeProject();
    ProjectForm[0]->EndLumoBtn->setEnabled(true);
    ClosingAll = true;
    BoxAnswers answers({Cancel});
    QVERIFY(!ProjectForm[0]->close());
    QCOMPARE(answers.Texts(), QStringList{RunQuestion()});
    QCOMPARE(int(ProjectCount), 1);
}

void TestLifecycle::closingIsSilentWhileAllClose()
{
    MakeProject();
    const BoxAnswers none;
    ClosingAll = true;
    QVERIFY(ProjectForm[0]->close());
    QCOMPARE(int(ProjectCount), 0);
}

void TestLifecycle::closedSlotKeepsItsOldContents()
{
    MakeProject();
    ProjectSlots[0].FilePath = QStringLiteral("/some/file.spj");
    ProjectSlots[0].HasFile = true;
    ProjectSlots[0].CurveApplied = true;
    PutRow(0, 1, 1.5, 2.5, true, 1);
    PutRow(0, 500, 3.5, 4.5);
    CloseSilently(0);
    QCOMPARE(ProjectSlots[0].ProjectName, QString());
    QVERIFY(!ProjectSlots[0].CurveApplied);
    QCOMPARE(LastUsedRow(0), 0);
    QCOMPARE(ProjectSlots[0].FilePath, QStringLiteral("/some/file.spj"));
    QVERIFY(ProjectSlots[0].HasFile);
    QCOMPARE(int(ProjectSlots[0].ChildCount), 3);
    QCOMPARE(SensorProjects[0].SensorName, QStringLiteral("Probe"));
    QCOMPARE(SensorProjects[0].InputUnit, QStringLiteral("mV"));
    QCOMPARE(ReferenceTable[0][1].Input, 1.5);
    QCOMPARE(ReferenceTable[0][1].Output, 2.5);
    QVERIFY(ReferenceTable[0][1].Segment);
    QCOMPARE(int(ReferenceTable[0][1].Arithmetic), 1);
}

void TestLifecycle::closingReleasesTheDrawingSurfaces()
{
    const int before = LiveSurfaceObjects();
    MakeProject();
    SensorProjFrm &form = *ProjectForm[0];
    for (const int page : {1, 3}) {
        form.TabStrip->SelectTab(page);
        SwitchProjectPage(0, page);
        ResizeProjectView(form);
    }
    QVERIFY(ReferenceCurves[0].MemoryDC != 0);
    QVERIFY(ValueWave[0].MemoryDcB != 0);
    QVERIFY(MeasureWave[0].MemoryDcA != 0);
    CloseSilently(0);
    QCOMPARE(ReferenceCurves[0].MemoryDC, 0);
    QCOMPARE(ReferenceCurves[0].MemoryBitmap, 0);
    for (const WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
        QCOMPARE(record->MemoryDcA, 0);
        QCOMPARE(record->MemoryBitmapA, 0);
        QCOMPARE(record->MemoryDcB, 0);
        QCOMPARE(record->MemoryBitmapB, 0);
    }
    QCOMPARE(LiveSurfaceObjects(), before);
}

void TestLifecycle::closingTheLastProjectDisablesTheCommands()
{
    const MainFrm &frame = m_frame->frame;
    MakeProjects(2);
    CloseSilently(1);
    QVERIFY(frame.mnuFileCloseAllProjects->isEnabled());
    QVERIFY(frame.ToolBarButton(QStringLiteral("CasadeWindows"))->isEnabled());
    CloseSilently(0);
    QVERIFY(!frame.mnuFileCloseAllProjects->isEnabled());
    QVERIFY(!frame.ToolBarButton(QStringLiteral("CasadeWindows"))->isEnabled());
}

void TestLifecycle::closedSlotIsTakenAnew()
{
    MakeProject();
    const QPointer<SensorProjFrm> old = ProjectForm[0];
    ProjectSlots[0].FilePath = QStringLiteral("/some/file.spj");
    CloseSilently(0);
    MakeProject();
    QVERIFY(ProjectForm[0] != old.data());
    QCOMPARE(ProjectSlots[0].FilePath, QString());
    QTRY_VERIFY(old.isNull());
    QVERIFY(ProjectForm[0] != nullptr);
    QVERIFY(ProjectForm[0]->isVisible());
    QCOMPARE(ActiveSlot(), 0);
    QCOMPARE(int(m_frame->frame.Children->subWindowList().size()), 1);
}

void TestLifecycle::closeAllAsksOnce_data()
{
    AddLanguages();
}

void TestLifecycle::closeAllAsksOnce()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    MakeProjects(4);
    CloseSilently(1);
    BoxAnswers answers({Ok});
    CloseAllProjects();
    QCOMPARE(answers.Texts(), QStringList{RemoveAllQuestion()});
    QCOMPARE(answers.Shown().front().Title, QStringLiteral("Warning"));
    QCOMPARE(answers.Shown().front().Buttons, QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(int(ProjectCount), 0);
    QCOMPARE(int(ProjectNodeCount), 0);
    for (int slot = 0; slot < 10; ++slot) {
        QVERIFY(!ProjectOccupied[slot]);
        QVERIFY(ProjectForm[slot] == nullptr);
    }
    QVERIFY(!ClosingAll);
}

void TestLifecycle::closeAllCancelledKeepsAll()
{
    MakeProjects(2);
    BoxAnswers answers({Cancel});
    CloseAllProjects();
    QCOMPARE(answers.Texts(), QStringList{RemoveAllQuestion()});
    QCOMPARE(int(ProjectCount), 2);
    QVERIFY(!ClosingAll);
}

void TestLifecycle::closeAllWithoutProjectAsksNothing()
{
    const BoxAnswers none;
    CloseAllProjects();
    QVERIFY(!ClosingAll);
}

void TestLifecycle::closeAllKeepsARefusedRun()
{
    MakeProjects(3);
    ProjectForm[1]->EndLumoBtn->setEnabled(true);
    BoxAnswers answers({Ok, Cancel});
    CloseAllProjects();
    const QStringList asked = {RemoveAllQuestion(), RunQuestion()};
    QCOMPARE(answers.Texts(), asked);
    QVERIFY(!ClosingAll);
    QCOMPARE(int(ProjectCount), 1);
    QVERIFY(ProjectOccupied[1]);
    QCOMPARE(ProjectSlots[1].ProjectName, QStringLiteral("Project-2"));
    QVERIFY(ProjectForm[1]->isVisible());
    QVERIFY(ProjectForm[1]->EndLumoBtn->isEnabled());
}

QTEST_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"
