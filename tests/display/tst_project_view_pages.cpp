/// @file
/// The layout of each page of a project window in every size, when it is drawn, and what the status bar tells of it.
#include "display/ProjectViewBench.h"
#include "support/BoxAnswer.h"
#include "support/ErrorOf.h"
#include "support/WindowColour.h"

namespace {

/// Builds and publishes a project's curve, as Apply does.
void ApplyRows(int slot, std::initializer_list<CurvePoint> points)
{
    int row = 0;
    for (const CurvePoint &point : points) {
        ++row;
        PutRow(slot, row, point.X, point.Y, row == 1);
    }
    BuildReferenceCurve(slot);
    ReferenceCurve &curve = ReferenceCurves[slot];
    curve.Count = row;
    curve.XMin = curve.Points.front().X;
    curve.XMax = curve.Points.back().X;
    curve.YMax = MaxCurveOutput(curve.Points, row);
    curve.YMin = MinCurveOutput(curve.Points, row);
    for (ProjectSlot &other : ProjectSlots)
        other.CurveApplied = false;
    ProjectSlots[slot].CurveApplied = true;
}

} // namespace

class ProjectViewPagesTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup()
    {
        m_bench.reset();
        QCOMPARE(LiveSurfaceObjects(), 0);
    }

    void the_strip_fills_the_window_data();
    void the_strip_fills_the_window();

    void the_reference_page_is_laid_out_and_drawn();
    void the_reference_page_tells_whether_data_are_applied();
    void the_point_count_is_refreshed();
    void only_the_project_applied_last_reads_applied();
    void editing_rows_leaves_the_applied_text();

    void the_edit_page_is_laid_out_data();
    void the_edit_page_is_laid_out();
    void the_edit_page_empties_the_status();

    void the_measure_page_is_laid_out_data();
    void the_measure_page_is_laid_out();
    void the_measure_pictures_keep_their_proportion();
    void the_measure_page_takes_the_windows_colour();
    void the_surrounds_of_the_time_curves_are_black();
    void the_measure_page_is_drawn_in_its_new_size();

    void a_tiny_window_is_laid_out_on_every_page();
    void a_failing_step_does_not_stop_the_others();
    void a_failing_draw_still_sets_the_status_text();
    void data_that_cannot_be_drawn_still_set_the_status_text();
    void resizes_leave_no_object_behind();

private:
    std::optional<ProjectViewBench> m_bench;
};

void ProjectViewPagesTest::the_strip_fills_the_window_data()
{
    QTest::addColumn<QSize>("content");
    QTest::addColumn<int>("tab");
    for (int tab : {1, 2, 3}) {
        QTest::addRow("large, tab %d", tab) << QSize(980, 640) << tab;
        QTest::addRow("small, tab %d", tab) << QSize(201, 111) << tab;
    }
}

void ProjectViewPagesTest::the_strip_fills_the_window()
{
    QFETCH(QSize, content);
    QFETCH(int, tab);
    Select(tab);
    SetContent(content);
    ResizeProjectView(Form());
    // 7 twips are less than half a pixel.
    QCOMPARE(Form().TabStrip->geometry(), QRect(QPoint(0, 0), content));
    QWidget *const pages[] = {Form().SpecifyCurvePic, Form().EditDataPic, Form().MeasWavePic};
    QCOMPARE(pages[tab - 1]->geometry(), QRect(0, 0, content.width(), PageHeight(content.height())));
    // The tabs are not covered.
    QVERIFY(pages[tab - 1]->height() <= Form().TabStrip->TabCentre(1).y());
}

void ProjectViewPagesTest::the_reference_page_is_laid_out_and_drawn()
{
    Select(1);
    const int tabs = Form().TabStrip->FixedTabHeight();
    SetContent(QSize(83 + 10 + 130, 20 + 120 + 13 + tabs)); // just two cells
    ApplyRows(0, {{0, 0}, {100, 100}});
    ResizeProjectView(Form());
    QCOMPARE(Form().PicRefBack->geometry(), QRect(83, 10, 130, 120));
    QCOMPARE(Form().PicRef->geometry(), QRect(30, 10, 100, 100));
    const QImage &plot = Form().PicRef->Image();
    QCOMPARE(plot.pixel(0, 50), qRgb(0, 0, 255));  // axis
    QCOMPARE(plot.pixel(60, 38), qRgb(0, 0, 255)); // grid
    QCOMPARE(plot.pixel(33, 67), qRgb(64, 0, 64)); // curve
    QCOMPARE(plot.pixel(1, 98), qRgb(0, 255, 0));  // dot
    QVERIFY(ReferenceCurves[0].MemoryDC != 0);
    QVERIFY(SetPixel(ReferenceCurves[0].MemoryDC, 99, 99, 0));
    QVERIFY(!SetPixel(ReferenceCurves[0].MemoryDC, 100, 99, 0));
}

void ProjectViewPagesTest::the_reference_page_tells_whether_data_are_applied()
{
    Select(1);
    ResizeProjectView(Form());
    QCOMPARE(Status(), NotApplied);
    ApplyRows(0, {{0, 0}, {100, 100}});
    ProjectSlots[0].CurveApplied = false;
    ResizeProjectView(Form());
    QCOMPARE(Status(), NotApplied);
    // No dot where the first point would stand, only grid and back colour.
    const int side = Form().PicRef->width();
    QVERIFY(Form().PicRef->Image().pixel(2, side - 3) != qRgb(0, 255, 0));
    ProjectSlots[0].CurveApplied = true;
    ResizeProjectView(Form());
    QCOMPARE(Status(), Applied);
    QCOMPARE(Form().PicRef->Image().pixel(2, side - 3), qRgb(0, 255, 0));
    CurrentLanguage = LanguageChinese;
    ResizeProjectView(Form());
    QCOMPARE(Status(), Applied);
}

void ProjectViewPagesTest::the_point_count_is_refreshed()
{
    PutRow(0, 17, 1, 1);
    ProjectPointCount = 3;
    ResizeProjectView(Form()); // the edit page leaves it
    QCOMPARE(ProjectPointCount, 3);
    Select(1);
    ResizeProjectView(Form());
    QCOMPARE(ProjectPointCount, 17);
}

void ProjectViewPagesTest::only_the_project_applied_last_reads_applied()
{
    SensorProjFrm &other = m_bench->AddProject(1);
    Select(1);
    other.TabStrip->SelectTab(1);
    SwitchProjectPage(1, 1);
    ApplyRows(0, {{0, 0}, {1, 1}});
    ResizeProjectView(Form());
    QCOMPARE(Status(), Applied);
    ApplyRows(1, {{0, 0}, {1, 1}});
    ResizeProjectView(other);
    QCOMPARE(Status(), Applied);
    ResizeProjectView(Form());
    QCOMPARE(Status(), NotApplied);
}

void ProjectViewPagesTest::editing_rows_leaves_the_applied_text()
{
    Select(1);
    ApplyRows(0, {{0, 0}, {100, 100}});
    PutRow(0, 3, 200, 50);
    ResizeProjectView(Form());
    QCOMPARE(Status(), Applied);
    QCOMPARE(SEN_Meas_Z(50), 50.0);
}

void ProjectViewPagesTest::the_edit_page_is_laid_out_data()
{
    QTest::addColumn<QSize>("content");
    QTest::addColumn<QList<int>>("columns");
    QTest::newRow("large") << QSize(980, 640) << QList<int>{163, 196, 196, 196, 140};
    QTest::newRow("odd") << QSize(701, 300) << QList<int>{117, 140, 140, 140, 100};
    QTest::newRow("tiny") << QSize(210, 20) << QList<int>{35, 42, 42, 42, 30};
}

void ProjectViewPagesTest::the_edit_page_is_laid_out()
{
    QFETCH(QSize, content);
    QFETCH(QList<int>, columns);
    SetContent(content);
    ResizeProjectView(Form());
    const int page = PageHeight(content.height());
    QCOMPARE(Form().EditDataPic->geometry(), QRect(0, 0, content.width(), page));
    QCOMPARE(Form().EditDataView->geometry(), QRect(0, 26, content.width(), std::max(page - 26, 0)));
    QCOMPARE(Form().ImportLumoBtn->geometry(), QRect(3, 4, 18, 18));
    QCOMPARE(Form().ExportLumoBtn->geometry(), QRect(28, 4, 18, 18));
    QCOMPARE(Form().PicSeprator->geometry(), QRect(53, 0, 6, 26));
    QCOMPARE(Form().UndoLumoBtn->geometry(), QRect(66, 4, 18, 18));
    QCOMPARE(Form().RedoLumoBtn->geometry(), QRect(91, 4, 18, 18));
    for (int column = 0; column < 5; ++column)
        QCOMPARE(Form().EditDataView->columnWidth(column), columns[column]);
}

void ProjectViewPagesTest::the_edit_page_empties_the_status()
{
    for (int tab : {2, 3}) {
        Select(1);
        ResizeProjectView(Form());
        QCOMPARE(Status(), NotApplied);
        Select(tab);
        ResizeProjectView(Form());
        QCOMPARE(Status(), QString());
    }
}

void ProjectViewPagesTest::the_measure_page_is_laid_out_data()
{
    QTest::addColumn<QSize>("page");
    QTest::addColumn<QSize>("surround");
    QTest::addColumn<int>("cell");
    QTest::newRow("large") << QSize(1000, 700) << QSize(917, 330) << 12; // 14 across, 12 down
    QTest::newRow("low") << QSize(1000, 300) << QSize(917, 130) << 4;    // 14 and 4
    QTest::newRow("narrow") << QSize(330, 700) << QSize(247, 330) << 3;  // 3 and 12
    QTest::newRow("just two cells") << QSize(258, 180) << QSize(175, 70) << 2;
    QTest::newRow("a pixel too narrow") << QSize(257, 180) << QSize(174, 70) << 1;
    QTest::newRow("too low") << QSize(258, 178) << QSize(175, 69) << 1;
    QTest::newRow("a half goes to the even pixel") << QSize(258, 177) << QSize(175, 68) << 1;
    QTest::newRow("no cell across") << QSize(197, 400) << QSize(114, 180) << 1;
    QTest::newRow("no cell down") << QSize(600, 128) << QSize(517, 44) << 1;
    QTest::newRow("narrower than the frames") << QSize(60, 400) << QSize(0, 180) << 1;
    QTest::newRow("lower than the margins") << QSize(600, 30) << QSize(517, 0) << 1;
    QTest::newRow("nothing") << QSize(0, 0) << QSize(0, 0) << 1;
}

void ProjectViewPagesTest::the_measure_page_is_laid_out()
{
    QFETCH(QSize, page);
    QFETCH(QSize, surround);
    QFETCH(int, cell);
    MeasureWave[0].TickCell = 77;
    Form().MeasWavePic->resize(page);
    LayoutMeasurePage(0);
    QCOMPARE(Form().PicTime_Value_Background->geometry(), QRect(QPoint(83, 10), surround));
    QCOMPARE(Form().PicTime_Meas_Background->geometry(), QRect(QPoint(83, 10 + surround.height()), surround));
    QCOMPARE(Form().PicTime_Value->geometry(), QRect(40, 10, 60 * cell, 25 * cell));
    QCOMPARE(Form().PicTime_Meas->geometry(), QRect(40, 10, 60 * cell, 25 * cell));
    QCOMPARE(int{ValueWave[0].TickCell}, cell);
    QCOMPARE(int{MeasureWave[0].TickCell}, 77); // not stored there
    QCOMPARE(Form().DispSetFrame->pos(), QPoint(4, 4));
    QCOMPARE(Form().MeasureFrame->pos(), QPoint(4, 222));
    QCOMPARE(Form().ReplayFrame->pos(), QPoint(4, 312));
    QCOMPARE(Form().DataFrame->pos(), QPoint(4, 375));
    QCOMPARE(Form().Recordpic->geometry(), QRect(83, page.height() - 27, surround.width(), 24));
    QCOMPARE(Form().HScroll1->geometry(), QRect(0, 0, surround.width(), 24));
    QCOMPARE(Form().FlatScrollBar1->geometry(), QRect(39 + 60 * cell, 10, 15, 25 * cell));
    QCOMPARE(Form().FlatScrollBar2->geometry(), QRect(39 + 60 * cell, 10, 15, 25 * cell));
}

void ProjectViewPagesTest::the_measure_pictures_keep_their_proportion()
{
    for (int width = 0; width <= 1400; width += 93) {
        for (int height = 0; height <= 900; height += 71) {
            Form().MeasWavePic->resize(width, height);
            LayoutMeasurePage(0);
            const QSize picture = Form().PicTime_Value->size();
            QCOMPARE(picture.width() % 60, 0);
            QCOMPARE(picture.height() * 60, picture.width() * 25);
        }
    }
}

void ProjectViewPagesTest::the_measure_page_takes_the_windows_colour()
{
    SetWindowColour(Form(), QColor(10, 200, 30));
    // A colour of its own: the page inherits none any more.
    SetWindowColour(*Form().MeasWavePic, QColor(200, 0, 0));
    Form().MeasWavePic->setAutoFillBackground(false);
    LayoutMeasurePage(0);
    QCOMPARE(Form().MeasWavePic->palette().color(QPalette::Window), QColor(10, 200, 30));
    QVERIFY(Form().MeasWavePic->autoFillBackground());
}

void ProjectViewPagesTest::the_surrounds_of_the_time_curves_are_black()
{
    PictureBox *const surrounds[] = {Form().PicTime_Value_Background, Form().PicTime_Meas_Background};
    for (PictureBox *surround : surrounds)
        surround->BackColour = Rgb(200, 100, 50);
    Form().MeasWavePic->resize(900, 600);
    LayoutMeasurePage(0);
    for (const PictureBox *surround : surrounds) {
        QCOMPARE(surround->BackColour, Rgb(0, 0, 0));
        QCOMPARE(surround->Image().pixelColor(surround->rect().bottomRight()), QColor(0, 0, 0));
    }
}

void ProjectViewPagesTest::the_measure_page_is_drawn_in_its_new_size()
{
    Select(3);
    for (const QSize &size : {QSize(600, 500), QSize(900, 600)}) {
        SetContent(size);
        ResizeProjectView(Form());
        QCOMPARE(Form().MeasWavePic->size(), QSize(size.width(), PageHeight(size.height())));
        for (const PictureBox *picture : {Form().PicTime_Value, Form().PicTime_Meas}) {
            QCOMPARE(picture->Image().size(), picture->size());
            QCOMPARE(picture->Image().pixel(picture->width() / 2, 0), qRgb(0, 255, 0)); // frame
        }
        const QSize picture = Form().PicTime_Value->size();
        QVERIFY(SetPixel(ValueWave[0].MemoryDcB, picture.width() - 1, picture.height() - 1, 0));
        QVERIFY(!SetPixel(MeasureWave[0].MemoryDcB, picture.width(), 0, 0));
    }
}

void ProjectViewPagesTest::a_tiny_window_is_laid_out_on_every_page()
{
    ApplyRows(0, {{0, 0}, {100, 100}});
    const BoxAnswers none;
    for (const QSize &size : {QSize(0, 0), QSize(1, 1), QSize(40, 30), QSize(82, 39)}) {
        for (int tab : {1, 2, 3}) {
            Select(tab);
            SetContent(size);
            ResizeProjectView(Form());
        }
        QCOMPARE(Form().PicRef->size(), QSize(50, 50));
        QCOMPARE(Form().PicTime_Value->size(), QSize(60, 25));
        QCOMPARE(Form().PicTime_Meas->size(), QSize(60, 25));
    }
    QVERIFY(none.Shown().isEmpty());
}

void ProjectViewPagesTest::a_failing_step_does_not_stop_the_others()
{
    // The slot has lost its window: what needs it fails, the rest goes on.
    SensorProjFrm &form = Form();
    Select(1);
    ProjectForm[0] = nullptr;
    PutRow(0, 9, 1, 1);
    form.Client->resize(500, 400);
    ResizeProjectView(form);
    QCOMPARE(form.SpecifyCurvePic->width(), 500);
    QCOMPARE(ProjectPointCount, 9);
    QCOMPARE(Status(), NotApplied);
    form.TabStrip->SelectTab(3);
    ResizeProjectView(form);
    QCOMPARE(form.MeasWavePic->width(), 500);
    QCOMPARE(Status(), QString());
    form.Tag = QStringLiteral("none");
    form.TabStrip->SelectTab(2);
    form.Client->resize(600, 400);
    ResizeProjectView(form);
    QCOMPARE(form.EditDataView->width(), 600);
    ProjectForm[0] = &form;
}

void ProjectViewPagesTest::a_failing_draw_still_sets_the_status_text()
{
    // The slot has lost its window, so that its applied curve cannot be drawn.
    SensorProjFrm &form = Form();
    Select(1);
    ApplyRows(0, {{0, 0}, {100, 100}});
    ProjectForm[0] = nullptr;
    QCOMPARE(ErrorOf([] { DrawReferenceCurve(0, true); }), ErrorNumber::NoObject);
    ResizeProjectView(form);
    QCOMPARE(Status(), Applied);
}

void ProjectViewPagesTest::data_that_cannot_be_drawn_still_set_the_status_text()
{
    Select(1);
    ApplyRows(0, {{0, 0}, {100, 100}});
    ReferenceCurves[0].YMin = ReferenceCurves[0].YMax;
    const BoxAnswers illegal({QMessageBox::Ok});
    ResizeProjectView(Form());
    QCOMPARE(illegal.Left(), 0);
    QCOMPARE(Status(), Applied);
}

void ProjectViewPagesTest::resizes_leave_no_object_behind()
{
    ApplyRows(0, {{0, 0}, {50, 70}, {100, 100}});
    for (int i = 0; i < 30; ++i) {
        Select(1 + i % 3);
        SetContent(QSize(300 + 10 * i, 500 - 7 * i));
        ResizeProjectView(Form());
    }
    // A context and a bitmap for the reference picture, and two pairs for each
    // time curve.
    QCOMPARE(LiveSurfaceObjects(), 2 + 8);
}

QTEST_MAIN(ProjectViewPagesTest)
#include "tst_project_view_pages.moc"
