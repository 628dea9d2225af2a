/// @file
/// The window of a project as it is designed: where its controls stand, what they show, and how its timers run.
#include "display/ProjectViewBench.h"

#include <QStyleOption>

#include <cmath>

namespace {

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

class ProjectViewDesignTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup()
    {
        m_bench.reset();
        QCOMPARE(LiveSurfaceObjects(), 0);
    }

    void a_new_window_shows_edit_data();
    void controls_stand_where_they_are_designed_data();
    void controls_stand_where_they_are_designed();
    void controls_without_a_designed_place_stand_in_their_parents_data();
    void controls_without_a_designed_place_stand_in_their_parents();
    void captions_are_as_designed();
    void captions_are_shown_whole();
    void the_sample_field_shows_its_longest_text();
    void timers_are_as_designed();
    void pages_stand_above_the_strip();
    void loading_sets_the_tab_captions();

private:
    std::optional<ProjectViewBench> m_bench;
};

void ProjectViewDesignTest::a_new_window_shows_edit_data()
{
    QCOMPARE(Form().TabStrip->SelectedTab(), 2);
    QVERIFY(!Form().SpecifyCurvePic->isVisible());
    QVERIFY(Form().EditDataPic->isVisible());
    QVERIFY(!Form().MeasWavePic->isVisible());
    QCOMPARE(Form().EditDataView->columnCount(), 5);
}

void ProjectViewDesignTest::controls_stand_where_they_are_designed_data()
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
    row("ColorLumoBtn", "WavesetFrame", 60, 840, 240, 240);
    row("ZoomFrame", "DispSetFrame", 60, 2280, 1005, 885);
    row("ZoominHLumoBtn", "ZoomFrame", 60, 240, 240, 240);
    row("ZoomOutHLumoBtn", "ZoomFrame", 705, 240, 240, 240);
    row("ZoomInVLumoBtn", "ZoomFrame", 60, 540, 240, 240);
    row("ZoomOutVLumoBtn", "ZoomFrame", 705, 540, 240, 240);
    row("MeasureFrame", "MeasWavePic", 60, 3330, 1125, 1310);
    row("RecordLumoBtn", "MeasureFrame", 120, 960, 240, 240);
    row("EndLumoBtn", "MeasureFrame", 765, 960, 240, 240);
    row("ReplayFrame", "MeasWavePic", 60, 4680, 1125, 900);
    row("ReplayLumoBtn", "ReplayFrame", 120, 240, 240, 240);
    row("PauseLumoBtn", "ReplayFrame", 420, 240, 240, 240);
    row("StopLumoBtn", "ReplayFrame", 765, 240, 240, 240);
    row("LowLumoBtn", "ReplayFrame", 120, 540, 240, 240);
    row("FastLumoBtn", "ReplayFrame", 765, 540, 240, 240);
    row("DataFrame", "MeasWavePic", 60, 5625, 1125, 600);
    row("exportCom", "DataFrame", 120, 240, 885, 270);
    row("Recordpic", "MeasWavePic", 360, 8040, 4695, 330);
}

void ProjectViewDesignTest::controls_stand_where_they_are_designed()
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

void ProjectViewDesignTest::controls_without_a_designed_place_stand_in_their_parents_data()
{
    QTest::addColumn<QString>("parents");
    const auto row = [](const char *name, const char *parents) { QTest::newRow(name) << QString::fromLatin1(parents); };
    row("ChkGridRef", "DispRefFrame SpecifyCurvePic");
    row("LabColor2", "DispRefFrame SpecifyCurvePic");
    for (const char *name : {"ImportLumoBtn", "ExportLumoBtn", "PicSeprator", "UndoLumoBtn", "RedoLumoBtn"})
        row(name, "EditDataPic Client");
    for (const char *name : {"ChkGrid", "ChkLink", "LabColor"})
        row(name, "WavesetFrame DispSetFrame");
    row("SampleRateFrame", "MeasureFrame MeasWavePic");
    row("TxtSample", "SampleRateFrame MeasureFrame");
    row("Labperiodunit", "SampleRateFrame MeasureFrame");
    row("PicTime_Value_Background", "MeasWavePic Client");
    row("PicTime_Meas_Background", "MeasWavePic Client");
    row("PicTime_Value", "PicTime_Value_Background MeasWavePic");
    row("PicTime_Meas", "PicTime_Meas_Background MeasWavePic");
    row("FlatScrollBar1", "PicTime_Value_Background MeasWavePic");
    row("FlatScrollBar2", "PicTime_Meas_Background MeasWavePic");
    row("LabValX", "PicTime_Value PicTime_Value_Background");
    row("LabValY", "PicTime_Value PicTime_Value_Background");
    row("LabMeasX", "PicTime_Meas PicTime_Meas_Background");
    row("LabMeasY", "PicTime_Meas PicTime_Meas_Background");
    row("HScroll1", "Recordpic MeasWavePic");
}

void ProjectViewDesignTest::controls_without_a_designed_place_stand_in_their_parents()
{
    const SensorProjFrm form;
    const auto *control = form.findChild<QWidget *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(control);
    const QWidget *parent = control->parentWidget();
    QTEST(parent->objectName() + u' ' + parent->parentWidget()->objectName(), "parents");
}

void ProjectViewDesignTest::captions_are_as_designed()
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

void ProjectViewDesignTest::captions_are_shown_whole()
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

void ProjectViewDesignTest::the_sample_field_shows_its_longest_text()
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

void ProjectViewDesignTest::timers_are_as_designed()
{
    const SensorProjFrm form;
    QCOMPARE(form.Timer1->interval(), 500);
    QVERIFY(form.Timer1->isActive());
    QCOMPARE(form.Timer2->interval(), 1000);
    QVERIFY(!form.Timer2->isActive());
}

void ProjectViewDesignTest::pages_stand_above_the_strip()
{
    const QObjectList &order = Form().Client->children(); // from the lowest to the highest
    for (QWidget *page : {Form().SpecifyCurvePic, Form().EditDataPic, Form().MeasWavePic})
        QVERIFY(order.indexOf(page) > order.indexOf(Form().TabStrip));
}

void ProjectViewDesignTest::loading_sets_the_tab_captions()
{
    ConnectProjectView(Form());
    QCOMPARE(Form().TabStrip->Caption(1), QStringLiteral("Reference Curve"));
    QCOMPARE(Form().TabStrip->Caption(2), QStringLiteral("Edit Data"));
    QCOMPARE(Form().TabStrip->Caption(3), QStringLiteral("Measure Curve"));
    CurrentLanguage = LanguageChinese;
    SensorProjFrm &other = m_bench->AddProject(1);
    ConnectProjectView(other);
    QCOMPARE(other.TabStrip->Caption(1), QStringLiteral("传感器参考曲线"));
    QCOMPARE(other.TabStrip->Caption(2), QStringLiteral("传感器数据编辑"));
    QCOMPARE(other.TabStrip->Caption(3), QStringLiteral("传感器测量曲线"));
}

QTEST_MAIN(ProjectViewDesignTest)
#include "tst_project_view_design.moc"
