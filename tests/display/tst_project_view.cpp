#include "display/ProjectViewModule.h"
#include "display/ReferencePictureModule.h"
#include "display/TimeCurveModule.h"
#include "platform/MemorySurface.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/ErrorOf.h"

#include <QStyleOption>

#include <cmath>
#include <memory>

namespace {

const QString NotApplied = QStringLiteral("The data has not been apllied");
const QString Applied = QStringLiteral("The data has been apllied");

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

/// The control's name when its caption does not fit into the room that the
/// style leaves for it.
QString Clipped(const QWidget &control, const QString &caption, const QRect &room)
{
    const QFontMetrics metrics(control.font());
    const bool fits = metrics.horizontalAdvance(caption) <= room.width() &&
                      metrics.tightBoundingRect(caption).height() <= room.height() &&
                      control.geometry().right() <= control.parentWidget()->rect().right();
    return fits ? QString() : control.objectName();
}

QString ClippedButton(const QAbstractButton &button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    const QStyle::SubElement part =
        button.inherits("QRadioButton") ? QStyle::SE_RadioButtonContents : QStyle::SE_CheckBoxContents;
    return Clipped(button, button.text(), button.style()->subElementRect(part, &option, &button));
}

} // namespace

class ProjectViewTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void a_new_window_shows_edit_data();
    void controls_stand_where_they_are_designed_data();
    void controls_stand_where_they_are_designed();
    void captions_are_as_designed();
    void captions_are_shown_whole();
    void the_sample_field_shows_its_longest_text();
    void timers_are_as_designed();
    void pages_stand_above_the_strip();
    void a_page_is_shown_and_the_others_hidden();
    void a_page_that_is_not_there_changes_nothing();
    void a_slot_without_window_has_no_page();
    void loading_sets_the_tab_captions();
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
    void the_measure_page_has_its_colours();
    void the_measure_page_is_drawn_in_its_new_size();
    void a_tiny_window_is_laid_out_on_every_page();
    void a_minimised_window_keeps_its_layout();
    void a_window_without_tag_keeps_its_layout();
    void a_failing_step_does_not_stop_the_others();
    void a_resize_lays_the_page_out();
    void a_tab_click_shows_and_draws_the_page();
    void a_click_on_the_selected_tab_redraws_it();
    void resizes_leave_no_object_behind();
    void the_measured_project_stays_active_data();
    void the_measured_project_stays_active();
    void two_projects_that_hold_on_do_not_fight();
    void a_project_at_rest_lets_go();

private:
    SensorProjFrm &Form() { return *ProjectForm[0]; }
    QString Status() { return m_frame->frame.sbrStatus->PanelText(1); }
    void Select(int tab)
    {
        Form().TabStrip->SelectTab(tab);
        SwitchProjectPage(0, tab);
    }
    /// Gives the window's content a size.
    void SetContent(const QSize &size) { Form().Client->resize(size); }
    /// Height of a page in a window of the given content height: 200 twips, 13
    /// 1/3 pixels, above the tabs.
    int PageHeight(int content) { return std::max(content - Form().TabStrip->FixedTabHeight() - 13, 0); }
    std::unique_ptr<BareFrame> m_frame;
};

void ProjectViewTest::init()
{
    SEN_Free();
    m_frame = std::make_unique<BareFrame>();
    m_frame->frame.resize(1200, 900);
    m_frame->AddProject(0);
}

void ProjectViewTest::cleanup()
{
    Measuring = false;
    for (int slot = 0; slot < SlotCount; ++slot) {
        ReleaseReferenceBuffer(slot);
        ReleaseWaveBuffers(slot);
    }
    m_frame.reset();
    QCOMPARE(LiveSurfaceObjects(), 0);
}

void ProjectViewTest::a_new_window_shows_edit_data()
{
    QCOMPARE(Form().TabStrip->SelectedTab(), 2);
    QVERIFY(!Form().SpecifyCurvePic->isVisible());
    QVERIFY(Form().EditDataPic->isVisible());
    QVERIFY(!Form().MeasWavePic->isVisible());
    QCOMPARE(Form().EditDataView->columnCount(), 5);
}

void ProjectViewTest::controls_stand_where_they_are_designed_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QRect>("twips");
    const auto row = [](const char *name, const char *parent, int left, int top, int width, int height) {
        QTest::newRow(name) << QString::fromLatin1(parent) << QRect(left, top, width, height);
    };
    row("TabStrip", "Client", 60, -1080, 12315, 10845);
    row("SpecifyCurvePic", "Client", 120, 5040, 5295, 4335);
    row("DispRefFrame", "SpecifyCurvePic", 60, 45, 1125, 915);
    row("ColorRfLumoBtn", "DispRefFrame", 120, 540, 240, 240);
    row("InfoFrame", "SpecifyCurvePic", 60, 1005, 1125, 915);
    row("LabXUnit", "InfoFrame", 120, 240, 885, 255);
    row("LabYUnit", "InfoFrame", 120, 540, 885, 255);
    row("PictureFrame", "SpecifyCurvePic", 60, 1965, 1125, 600);
    row("ExportPicLumoBtn", "PictureFrame", 120, 240, 885, 270);
    row("PicRefBack", "SpecifyCurvePic", 1800, 360, 3195, 2895);
    row("PicRef", "PicRefBack", 600, 480, 2055, 1935);
    row("EditDataPic", "Client", 120, 180, 6195, 4035);
    row("EditDataView", "EditDataPic", 120, 600, 5655, 3135);
    row("MeasWavePic", "Client", 6840, 120, 5295, 8895);
    row("DispSetFrame", "MeasWavePic", 60, 15, 1125, 3270);
    row("Frame1", "DispSetFrame", 60, 240, 1005, 855);
    row("OptWave1", "Frame1", 60, 240, 855, 195);
    row("OptWave2", "Frame1", 60, 540, 855, 195);
    row("WavesetFrame", "DispSetFrame", 60, 1080, 1005, 1200);
    row("ZoomFrame", "DispSetFrame", 60, 2280, 1005, 885);
    row("ZoominHLumoBtn", "ZoomFrame", 60, 240, 240, 240);
    row("ZoomOutHLumoBtn", "ZoomFrame", 705, 240, 240, 240);
    row("ZoomInVLumoBtn", "ZoomFrame", 60, 540, 240, 240);
    row("ZoomOutVLumoBtn", "ZoomFrame", 705, 540, 240, 240);
    row("MeasureFrame", "MeasWavePic", 60, 3330, 1125, 1310);
    row("ReplayFrame", "MeasWavePic", 60, 4680, 1125, 900);
    row("DataFrame", "MeasWavePic", 60, 5625, 1125, 600);
    row("exportCom", "DataFrame", 120, 240, 885, 270);
    row("Recordpic", "MeasWavePic", 360, 8040, 4695, 330);
}

void ProjectViewTest::controls_stand_where_they_are_designed()
{
    QFETCH(QString, parent);
    QFETCH(QRect, twips);
    const SensorProjFrm form;
    const auto *control = form.findChild<QWidget *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(control);
    QCOMPARE(control->parentWidget()->objectName(), parent);
    const auto pixels = [](int value) { return static_cast<int>(std::lround(value / 15.0)); };
    QCOMPARE(control->pos(), QPoint(pixels(twips.x()), pixels(twips.y())));
    QCOMPARE(control->size(), QSize(pixels(twips.width()), pixels(twips.height())));
}

void ProjectViewTest::captions_are_as_designed()
{
    const SensorProjFrm form;
    const std::pair<const char *, const char *> frames[] = {
        {"DispRefFrame", "Display"}, {"InfoFrame", "Info"}, {"PictureFrame", "Picture"}, {"DispSetFrame", "Display"},
        {"Frame1", "Wave"},          {"ZoomFrame", "Zoom"}, {"MeasureFrame", "Measure"}, {"SampleRateFrame", "Sample"},
        {"ReplayFrame", "Replay"},   {"DataFrame", "Data"}, {"WavesetFrame", ""}};
    for (const auto &[name, caption] : frames)
        QCOMPARE(form.findChild<QGroupBox *>(QString::fromLatin1(name))->title(), QString::fromLatin1(caption));
    QCOMPARE(form.ChkGridRef->text(), QStringLiteral("   Grid"));
    QCOMPARE(form.ChkGrid->text(), QStringLiteral("   Grid"));
    QCOMPARE(form.ChkLink->text(), QStringLiteral("   Link"));
    QCOMPARE(form.LabColor->text(), QStringLiteral("Color"));
    QCOMPARE(form.LabColor2->text(), QStringLiteral("Color"));
    QCOMPARE(form.LabXUnit->text(), QStringLiteral("X:"));
    QCOMPARE(form.LabYUnit->text(), QStringLiteral("Y:"));
    QCOMPARE(form.OptWave1->text(), QStringLiteral("Wave1"));
    QCOMPARE(form.OptWave2->text(), QStringLiteral("Wave2"));
}

void ProjectViewTest::captions_are_shown_whole()
{
    QCOMPARE(Form().OptWave1->font().pixelSize(), 11);
    Form().LabXUnit->setText(QStringLiteral("X:  kohm"));
    QStringList clipped;
    for (int tab : {1, 3}) {
        Select(tab);
        ResizeProjectView(Form());
        for (const QCheckBox *box : Form().Client->findChildren<QCheckBox *>())
            clipped += ClippedButton(*box);
        for (const QRadioButton *option : Form().Client->findChildren<QRadioButton *>())
            clipped += ClippedButton(*option);
        for (const QLabel *label : Form().Client->findChildren<QLabel *>())
            clipped += label->isVisible() ? Clipped(*label, label->text(), label->contentsRect()) : QString();
        for (const QGroupBox *frame : Form().Client->findChildren<QGroupBox *>())
            clipped += Clipped(*frame, frame->title(), frame->rect().adjusted(8, 0, -8, 0)); // ends of the upper edge
    }
    clipped.removeAll(QString());
    QCOMPARE(clipped.join(u' '), QString());
}

void ProjectViewTest::the_sample_field_shows_its_longest_text()
{
    // An emptied margin at both ends tells that the text fits: the field scrolls
    // when it does not.
    Select(3);
    ResizeProjectView(Form());
    TextBox &field = *Form().TxtSample;
    field.setText(QStringLiteral("60.0"));
    field.clearFocus();
    const int text = field.fontMetrics().horizontalAdvance(QStringLiteral("60.0"));
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &field);
    const QRect inside = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field);
    QVERIFY2(text + 2 * 2 <= inside.width(), qPrintable(QStringLiteral("%1 in %2").arg(text).arg(inside.width())));
    QVERIFY(field.fontMetrics().height() <= inside.height());
}

void ProjectViewTest::timers_are_as_designed()
{
    const SensorProjFrm form;
    QCOMPARE(form.Timer1->interval(), 500);
    QVERIFY(form.Timer1->isActive());
    QCOMPARE(form.Timer2->interval(), 1000);
    QVERIFY(!form.Timer2->isActive());
}

void ProjectViewTest::pages_stand_above_the_strip()
{
    const QObjectList &order = Form().Client->children(); // from the lowest to the highest
    for (QWidget *page : {Form().SpecifyCurvePic, Form().EditDataPic, Form().MeasWavePic})
        QVERIFY(order.indexOf(page) > order.indexOf(Form().TabStrip));
}

void ProjectViewTest::a_page_is_shown_and_the_others_hidden()
{
    for (int tab : {1, 2, 3, 1}) {
        SwitchProjectPage(0, tab);
        QCOMPARE(Form().SpecifyCurvePic->isVisible(), tab == 1);
        QCOMPARE(Form().EditDataPic->isVisible(), tab == 2);
        QCOMPARE(Form().MeasWavePic->isVisible(), tab == 3);
    }
}

void ProjectViewTest::a_page_that_is_not_there_changes_nothing()
{
    for (int tab : {0, 4}) {
        SwitchProjectPage(0, tab);
        QVERIFY(Form().EditDataPic->isVisible());
    }
}

void ProjectViewTest::a_slot_without_window_has_no_page()
{
    QCOMPARE(ErrorOf([] { SwitchProjectPage(3, 1); }), 91);
    QCOMPARE(ErrorOf([] { LayoutMeasurePage(3); }), 91);
}

void ProjectViewTest::loading_sets_the_tab_captions()
{
    ConnectProjectView(Form());
    QCOMPARE(Form().TabStrip->Caption(1), QStringLiteral("Reference Curve"));
    QCOMPARE(Form().TabStrip->Caption(2), QStringLiteral("Edit Data"));
    QCOMPARE(Form().TabStrip->Caption(3), QStringLiteral("Measure Curve"));
    CurrentLanguage = LanguageChinese;
    SensorProjFrm &other = m_frame->AddProject(1);
    ConnectProjectView(other);
    QCOMPARE(other.TabStrip->Caption(1), QStringLiteral("传感器参考曲线"));
    QCOMPARE(other.TabStrip->Caption(2), QStringLiteral("传感器数据编辑"));
    QCOMPARE(other.TabStrip->Caption(3), QStringLiteral("传感器测量曲线"));
}

void ProjectViewTest::the_strip_fills_the_window_data()
{
    QTest::addColumn<QSize>("content");
    QTest::addColumn<int>("tab");
    for (int tab : {1, 2, 3}) {
        QTest::addRow("large, tab %d", tab) << QSize(980, 640) << tab;
        QTest::addRow("small, tab %d", tab) << QSize(201, 111) << tab;
    }
}

void ProjectViewTest::the_strip_fills_the_window()
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

void ProjectViewTest::the_reference_page_is_laid_out_and_drawn()
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

void ProjectViewTest::the_reference_page_tells_whether_data_are_applied()
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

void ProjectViewTest::the_point_count_is_refreshed()
{
    PutRow(0, 17, 1, 1);
    ProjectPointCount = 3;
    ResizeProjectView(Form()); // the edit page leaves it
    QCOMPARE(ProjectPointCount, 3);
    Select(1);
    ResizeProjectView(Form());
    QCOMPARE(ProjectPointCount, 17);
}

void ProjectViewTest::only_the_project_applied_last_reads_applied()
{
    SensorProjFrm &other = m_frame->AddProject(1);
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

void ProjectViewTest::editing_rows_leaves_the_applied_text()
{
    Select(1);
    ApplyRows(0, {{0, 0}, {100, 100}});
    PutRow(0, 3, 200, 50);
    ResizeProjectView(Form());
    QCOMPARE(Status(), Applied);
    QCOMPARE(SEN_Meas_Z(50), 50.0);
}

void ProjectViewTest::the_edit_page_is_laid_out_data()
{
    QTest::addColumn<QSize>("content");
    QTest::addColumn<QList<int>>("columns");
    QTest::newRow("large") << QSize(980, 640) << QList<int>{163, 196, 196, 196, 140};
    QTest::newRow("odd") << QSize(701, 300) << QList<int>{117, 140, 140, 140, 100};
    QTest::newRow("tiny") << QSize(210, 20) << QList<int>{35, 42, 42, 42, 30};
}

void ProjectViewTest::the_edit_page_is_laid_out()
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

void ProjectViewTest::the_edit_page_empties_the_status()
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

void ProjectViewTest::the_measure_page_is_laid_out_data()
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

void ProjectViewTest::the_measure_page_is_laid_out()
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

void ProjectViewTest::the_measure_pictures_keep_their_proportion()
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

void ProjectViewTest::the_measure_page_has_its_colours()
{
    QPalette palette = Form().palette();
    palette.setColor(QPalette::Window, QColor(10, 200, 30));
    Form().setPalette(palette);
    LayoutMeasurePage(0);
    QCOMPARE(Form().MeasWavePic->palette().color(QPalette::Window), QColor(10, 200, 30));
    QVERIFY(Form().MeasWavePic->autoFillBackground());
    QCOMPARE(Form().PicTime_Value_Background->BackColour, 0);
    QCOMPARE(Form().PicTime_Meas_Background->BackColour, 0);
}

void ProjectViewTest::the_measure_page_is_drawn_in_its_new_size()
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

void ProjectViewTest::a_tiny_window_is_laid_out_on_every_page()
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

void ProjectViewTest::a_minimised_window_keeps_its_layout()
{
    ConnectProjectView(Form());
    Form().resize(800, 600);
    Select(1);
    ResizeProjectView(Form());
    Form().showMinimized();
    const QRect strip = Form().TabStrip->geometry();
    const QRect page = Form().EditDataPic->geometry();
    Select(2);
    Form().EditDataView->setGeometry(1, 2, 3, 4);
    ResizeProjectView(Form());
    QCOMPARE(Form().TabStrip->geometry(), strip);
    QCOMPARE(Form().EditDataPic->geometry(), page);
    QCOMPARE(Form().EditDataView->geometry(), QRect(1, 2, 3, 4));
    Form().showNormal();
    QCOMPARE(Form().EditDataPic->width(), Form().Client->width());
    QCOMPARE(Form().EditDataView->width(), Form().Client->width());
    QCOMPARE(Status(), QString());
}

void ProjectViewTest::a_window_without_tag_keeps_its_layout()
{
    Form().Tag.clear();
    const QRect strip = Form().TabStrip->geometry();
    SetContent(QSize(300, 200));
    ResizeProjectView(Form());
    QCOMPARE(Form().TabStrip->geometry(), strip);
    QCOMPARE(Status(), QStringLiteral("Status"));
}

void ProjectViewTest::a_failing_step_does_not_stop_the_others()
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

void ProjectViewTest::a_resize_lays_the_page_out()
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

void ProjectViewTest::a_tab_click_shows_and_draws_the_page()
{
    ConnectProjectView(Form());
    ResizeProjectView(Form());
    const auto click = [this](int tab) {
        const QPoint at = Form().TabStrip->TabCentre(tab);
        QWidget *target = Form().TabStrip->childAt(at);
        QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(Form().TabStrip, at));
    };
    click(1);
    QVERIFY(Form().SpecifyCurvePic->isVisible());
    QCOMPARE(Form().SpecifyCurvePic->width(), Form().Client->width());
    QCOMPARE(Status(), NotApplied);
    click(3);
    QVERIFY(Form().MeasWavePic->isVisible());
    QVERIFY(!Form().SpecifyCurvePic->isVisible());
    QCOMPARE(Form().MeasWavePic->width(), Form().Client->width());
    QCOMPARE(Form().PicTime_Value->Image().pixel(5, 0), qRgb(0, 255, 0));
    click(2);
    QVERIFY(Form().EditDataPic->isVisible());
    QVERIFY(!Form().MeasWavePic->isVisible());
    QCOMPARE(Status(), QString());
}

void ProjectViewTest::a_click_on_the_selected_tab_redraws_it()
{
    ConnectProjectView(Form());
    Select(1);
    ResizeProjectView(Form());
    const QImage drawn = Form().PicRef->Image().copy();
    Form().PicRef->Clear();
    QVERIFY(Form().PicRef->Image() != drawn);
    emit Form().TabStrip->Click(1);
    QCOMPARE(Form().PicRef->Image(), drawn);
}

void ProjectViewTest::resizes_leave_no_object_behind()
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

void ProjectViewTest::the_measured_project_stays_active_data()
{
    QTest::addColumn<bool>("maximised");
    QTest::newRow("normal") << false;
    QTest::newRow("maximised") << true;
}

void ProjectViewTest::the_measured_project_stays_active()
{
    QFETCH(bool, maximised);
    SensorProjFrm &other = m_frame->AddProject(1);
    ConnectProjectView(Form());
    ConnectProjectView(other);
    QMdiArea &area = *m_frame->frame.Children;
    area.setActiveSubWindow(&Form());
    if (maximised)
        Form().showMaximized();
    Measuring = true;
    Form().RecordLumoBtn->setEnabled(false);
    area.setActiveSubWindow(&other);
    QCOMPARE(area.activeSubWindow(), &Form());
    QCOMPARE(Form().isMaximized(), maximised);
    SensorProjFrm &made = m_frame->AddProject(2); // a new window asks for the activation too
    ConnectProjectView(made);
    QCOMPARE(area.activeSubWindow(), &Form());
    area.activateNextSubWindow();
    QCOMPARE(area.activeSubWindow(), &Form());
    Measuring = false;
    area.setActiveSubWindow(&other);
    QCOMPARE(area.activeSubWindow(), &other);
}

void ProjectViewTest::two_projects_that_hold_on_do_not_fight()
{
    SensorProjFrm &other = m_frame->AddProject(1);
    ConnectProjectView(Form());
    ConnectProjectView(other);
    m_frame->frame.Children->setActiveSubWindow(&Form());
    Measuring = true;
    Form().RecordLumoBtn->setEnabled(false);
    other.RecordLumoBtn->setEnabled(false);
    m_frame->frame.Children->setActiveSubWindow(&other);
    QCOMPARE(m_frame->frame.Children->activeSubWindow(), &Form());
}

void ProjectViewTest::a_project_at_rest_lets_go()
{
    SensorProjFrm &other = m_frame->AddProject(1);
    ConnectProjectView(Form());
    ConnectProjectView(other);
    QMdiArea &area = *m_frame->frame.Children;
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

QTEST_MAIN(ProjectViewTest)
#include "tst_project_view.moc"
