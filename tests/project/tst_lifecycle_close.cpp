/// @file
/// Every way in which a project window closes, what is asked ahead of it, and what is left of the project.
#include "project/LifecycleBench.h"

#include <QSignalSpy>

#include <optional>

namespace {

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

} // namespace

class TestLifecycleClose : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

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
    void closingLeavesTheTimerOfAnotherWindowAlone();
    void closeAllAsksOnce_data();
    void closeAllAsksOnce();
    void closeAllGoesFromSlotToSlot();
    void closeAllCancelledKeepsAll();
    void closeAllWithoutProjectAsksNothing();
    void closeAllKeepsARefusedRun();

private:
    std::optional<LifecycleBench> m_bench;
};

void TestLifecycleClose::closingAsks_data()
{
    AddLanguages();
}

void TestLifecycleClose::closingAsks()
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
    QVERIFY(m_bench->frame.Children->subWindowList().isEmpty());
}

void TestLifecycleClose::closingDuringARunAsks_data()
{
    AddLanguages();
}

void TestLifecycleClose::closingDuringARunAsks()
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

void TestLifecycleClose::closingDuringARunAsksWhileAllClose()
{
    MakeProject();
    ProjectForm[0]->EndLumoBtn->setEnabled(true);
    ClosingAll = true;
    BoxAnswers answers({Cancel});
    QVERIFY(!ProjectForm[0]->close());
    QCOMPARE(answers.Texts(), QStringList{RunQuestion()});
    QCOMPARE(int(ProjectCount), 1);
}

void TestLifecycleClose::closingIsSilentWhileAllClose()
{
    MakeProject();
    const BoxAnswers none;
    ClosingAll = true;
    QVERIFY(ProjectForm[0]->close());
    QCOMPARE(int(ProjectCount), 0);
}

void TestLifecycleClose::closedSlotKeepsItsOldContents()
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

void TestLifecycleClose::closingReleasesTheDrawingSurfaces()
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

void TestLifecycleClose::closingTheLastProjectDisablesTheCommands()
{
    const MainFrm &frame = m_bench->frame;
    MakeProjects(2);
    CloseSilently(1);
    QVERIFY(frame.mnuFileCloseAllProjects->isEnabled());
    QVERIFY(frame.ToolBarButton(QStringLiteral("CasadeWindows"))->isEnabled());
    CloseSilently(0);
    QVERIFY(!frame.mnuFileCloseAllProjects->isEnabled());
    QVERIFY(!frame.ToolBarButton(QStringLiteral("CasadeWindows"))->isEnabled());
}

void TestLifecycleClose::closedSlotIsTakenAnew()
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
    QCOMPARE(int(m_bench->frame.Children->subWindowList().size()), 1);
}

void TestLifecycleClose::closingLeavesTheTimerOfAnotherWindowAlone()
{
    MakeProjects(3);
    QTimer &timer = *ProjectForm[1]->Timer1;
    timer.setInterval(2500);
    timer.start();
    const int id = timer.timerId();
    {
        BoxAnswers answers({Ok});
        QVERIFY(ProjectForm[2]->close());
    }
    CloseSilently(0);
    QVERIFY(timer.isActive());
    QCOMPARE(timer.timerId(), id); // not even restarted
    QCOMPARE(timer.interval(), 2500);
}

void TestLifecycleClose::closeAllAsksOnce_data()
{
    AddLanguages();
}

void TestLifecycleClose::closeAllAsksOnce()
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

void TestLifecycleClose::closeAllGoesFromSlotToSlot()
{
    MakeProjects(4);
    // The windows of slots 2 and 0 are now younger than the others.
    for (const int slot : {2, 0})
        CloseSilently(slot);
    MakeProjects(2);
    for (const int slot : {0, 3, 1})
        m_bench->frame.Children->setActiveSubWindow(ProjectForm[slot]);
    QList<int> closed;
    for (int slot = 0; slot < 4; ++slot)
        connect(ProjectForm[slot], &SensorProjFrm::CloseAsked, this, [&closed, slot] { closed << slot; });
    BoxAnswers answers({Ok});
    CloseAllProjects();
    QCOMPARE(closed, (QList<int>{0, 1, 2, 3}));
}

void TestLifecycleClose::closeAllCancelledKeepsAll()
{
    MakeProjects(2);
    BoxAnswers answers({Cancel});
    CloseAllProjects();
    QCOMPARE(answers.Texts(), QStringList{RemoveAllQuestion()});
    QCOMPARE(int(ProjectCount), 2);
    QVERIFY(!ClosingAll);
}

void TestLifecycleClose::closeAllWithoutProjectAsksNothing()
{
    const BoxAnswers none;
    CloseAllProjects();
    QVERIFY(!ClosingAll);
}

void TestLifecycleClose::closeAllKeepsARefusedRun()
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

QTEST_MAIN(TestLifecycleClose)
#include "tst_lifecycle_close.moc"
