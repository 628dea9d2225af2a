/// @file
/// What a project window does of itself: it follows tabs, resizes and restores, and stays active while it measures.
#include "display/ProjectViewBench.h"
#include "support/ErrorOf.h"

namespace {

/// Clicks a tab where it lies in the frame, so that whatever covers it takes the click.
void ClickTab(int tab)
{
    QVERIFY(QTest::qWaitForWindowExposed(MainForm));
    const QPoint centre = Form().TabStrip->mapTo(MainForm, Form().TabStrip->TabCentre(tab));
    QTest::mouseClick(MainForm->windowHandle(), Qt::LeftButton, {}, centre);
}

} // namespace

class ProjectViewWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup()
    {
        m_bench.reset();
        QCOMPARE(LiveSurfaceObjects(), 0);
    }

    void a_page_is_shown_and_the_others_hidden();
    void a_page_that_is_not_there_changes_nothing();
    void a_slot_without_window_has_no_page();

    void a_minimised_window_keeps_its_layout();
    void a_window_without_tag_keeps_its_layout();
    void a_resize_lays_the_page_out();
    void a_tab_click_shows_and_draws_the_page();
    void a_click_on_the_selected_tab_redraws_it();

    void the_measured_project_stays_active_data();
    void the_measured_project_stays_active();
    void two_projects_that_hold_on_do_not_fight();
    void a_project_at_rest_lets_go();

private:
    std::optional<ProjectViewBench> m_bench;
};

void ProjectViewWindowTest::a_page_is_shown_and_the_others_hidden()
{
    for (int tab : {1, 2, 3, 1}) {
        SwitchProjectPage(0, tab);
        QCOMPARE(Form().SpecifyCurvePic->isVisible(), tab == 1);
        QCOMPARE(Form().EditDataPic->isVisible(), tab == 2);
        QCOMPARE(Form().MeasWavePic->isVisible(), tab == 3);
    }
}

void ProjectViewWindowTest::a_page_that_is_not_there_changes_nothing()
{
    for (int tab : {0, 4}) {
        SwitchProjectPage(0, tab);
        QVERIFY(Form().EditDataPic->isVisible());
    }
}

void ProjectViewWindowTest::a_slot_without_window_has_no_page()
{
    QCOMPARE(ErrorOf([] { SwitchProjectPage(3, 1); }), 91);
    QCOMPARE(ErrorOf([] { LayoutMeasurePage(3); }), 91);
}

void ProjectViewWindowTest::a_minimised_window_keeps_its_layout()
{
    ConnectProjectView(Form());
    Form().resize(800, 600);
    Select(2);
    ResizeProjectView(Form());
    const QRect strip = Form().TabStrip->geometry();
    const QRect page = Form().EditDataPic->geometry();
    Form().showMinimized();
    QVERIFY(Form().isMinimized());
    QCOMPARE(Form().TabStrip->geometry(), strip);
    QCOMPARE(Form().EditDataPic->geometry(), page);
    SetContent(QSize(300, 200));
    Form().EditDataView->setGeometry(1, 2, 3, 4);
    MainForm->sbrStatus->SetPanelText(1, Applied); // the page would empty it
    ResizeProjectView(Form());
    QCOMPARE(Form().TabStrip->geometry(), strip);
    QCOMPARE(Form().EditDataPic->geometry(), page);
    QCOMPARE(Form().EditDataView->geometry(), QRect(1, 2, 3, 4));
    QCOMPARE(Status(), Applied);
    Form().showNormal();
    QCOMPARE(Form().TabStrip->size(), Form().Client->size());
    QCOMPARE(Form().EditDataPic->width(), Form().Client->width());
    QCOMPARE(Form().EditDataView->width(), Form().Client->width());
    QCOMPARE(Status(), QString());
}

void ProjectViewWindowTest::a_window_without_tag_keeps_its_layout()
{
    Form().Tag.clear();
    const QRect strip = Form().TabStrip->geometry();
    SetContent(QSize(300, 200));
    ResizeProjectView(Form());
    QCOMPARE(Form().TabStrip->geometry(), strip);
    QCOMPARE(Status(), QStringLiteral("Status"));
}

void ProjectViewWindowTest::a_resize_lays_the_page_out()
{
    ConnectProjectView(Form());
    for (const QSize &size : {QSize(700, 500), QSize(900, 650)}) {
        Form().resize(size);
        QCOMPARE(Form().TabStrip->size(), Form().Client->size());
        QCOMPARE(Form().EditDataPic->width(), Form().Client->width());
    }
    Form().showMaximized();
    QCOMPARE(Form().EditDataPic->width(), Form().Client->width());
    QVERIFY(Form().Client->width() > 900);
}

void ProjectViewWindowTest::a_tab_click_shows_and_draws_the_page()
{
    ConnectProjectView(Form());
    ResizeProjectView(Form());
    ClickTab(1);
    QVERIFY(Form().SpecifyCurvePic->isVisible());
    QCOMPARE(Form().SpecifyCurvePic->width(), Form().Client->width());
    QCOMPARE(Status(), NotApplied);
    ClickTab(3);
    QVERIFY(Form().MeasWavePic->isVisible());
    QVERIFY(!Form().SpecifyCurvePic->isVisible());
    QCOMPARE(Form().MeasWavePic->width(), Form().Client->width());
    QCOMPARE(Form().PicTime_Value->Image().pixel(5, 0), qRgb(0, 255, 0));
    ClickTab(2);
    QVERIFY(Form().EditDataPic->isVisible());
    QVERIFY(!Form().MeasWavePic->isVisible());
    QCOMPARE(Status(), QString());
}

void ProjectViewWindowTest::a_click_on_the_selected_tab_redraws_it()
{
    ConnectProjectView(Form());
    Select(1);
    ResizeProjectView(Form());
    const QImage drawn = Form().PicRef->Image().copy();
    Form().PicRef->Clear();
    QVERIFY(Form().PicRef->Image() != drawn);
    ClickTab(1);
    QCOMPARE(Form().TabStrip->SelectedTab(), 1);
    QCOMPARE(Form().PicRef->Image(), drawn);
}

void ProjectViewWindowTest::the_measured_project_stays_active_data()
{
    QTest::addColumn<bool>("maximised");
    QTest::newRow("normal") << false;
    QTest::newRow("maximised") << true;
}

void ProjectViewWindowTest::the_measured_project_stays_active()
{
    QFETCH(bool, maximised);
    SensorProjFrm &other = m_bench->AddProject(1);
    ConnectProjectView(Form());
    ConnectProjectView(other);
    QMdiArea &area = *m_bench->frame.Children;
    area.setActiveSubWindow(&Form());
    if (maximised)
        Form().showMaximized();
    Measuring = true;
    Form().RecordLumoBtn->setEnabled(false);
    area.setActiveSubWindow(&other);
    QCOMPARE(area.activeSubWindow(), &Form());
    QCOMPARE(Form().isMaximized(), maximised);
    SensorProjFrm &made = m_bench->AddProject(2); // a new window asks for the activation too
    ConnectProjectView(made);
    QCOMPARE(area.activeSubWindow(), &Form());
    area.activateNextSubWindow();
    QCOMPARE(area.activeSubWindow(), &Form());
    Measuring = false;
    area.setActiveSubWindow(&other);
    QCOMPARE(area.activeSubWindow(), &other);
}

void ProjectViewWindowTest::two_projects_that_hold_on_do_not_fight()
{
    SensorProjFrm &other = m_bench->AddProject(1);
    ConnectProjectView(Form());
    ConnectProjectView(other);
    m_bench->frame.Children->setActiveSubWindow(&Form());
    Measuring = true;
    Form().RecordLumoBtn->setEnabled(false);
    other.RecordLumoBtn->setEnabled(false);
    m_bench->frame.Children->setActiveSubWindow(&other);
    QCOMPARE(m_bench->frame.Children->activeSubWindow(), &Form());
}

void ProjectViewWindowTest::a_project_at_rest_lets_go()
{
    SensorProjFrm &other = m_bench->AddProject(1);
    ConnectProjectView(Form());
    ConnectProjectView(other);
    QMdiArea &area = *m_bench->frame.Children;
    area.setActiveSubWindow(&Form());
    Form().RecordLumoBtn->setEnabled(false); // without a run
    area.setActiveSubWindow(&other);
    QCOMPARE(area.activeSubWindow(), &other);
    Form().RecordLumoBtn->setEnabled(true);
    area.setActiveSubWindow(&Form());
    Measuring = true; // the run of another project
    area.setActiveSubWindow(&other);
    QCOMPARE(area.activeSubWindow(), &other);
}

QTEST_MAIN(ProjectViewWindowTest)
#include "tst_project_view_window.moc"
