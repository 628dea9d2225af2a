/// @file
/// The reference picture without its curve: layout, grid and numbers, the grid box, and the surface that it is drawn
/// on.
#include "display/ReferencePictureBench.h"
#include "support/ErrorOf.h"
#include "support/WindowColour.h"

#include <optional>

class ReferencePicturePageTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup()
    {
        m_bench.reset();
        QCOMPARE(LiveSurfaceObjects(), 0);
    }

    void layout_data();
    void layout();
    void the_page_takes_the_windows_colour();
    void the_grid_follows_the_size_data();
    void the_grid_follows_the_size();
    void the_axes_carry_the_numbers_of_the_record();
    void the_surface_has_the_size_of_the_plot();
    void the_bitmap_field_keeps_the_previous_bitmap();
    void the_surface_has_the_colour_of_the_page();
    void no_bitmap_no_surface();
    void a_release_without_a_surface_does_nothing();
    void redraws_and_resizes_leave_no_object_behind();
    void the_grid_box_toggles_the_grid();
    void the_grid_box_redraws_the_curve_if_applied_data();
    void the_grid_box_redraws_the_curve_if_applied();
    void the_program_may_set_the_grid_box();
    void a_slot_without_a_window_has_no_picture();

private:
    std::optional<ReferencePictureBench> m_bench;
};

void ReferencePicturePageTest::layout_data()
{
    QTest::addColumn<QSize>("page");
    QTest::addColumn<QSize>("surround");
    QTest::addColumn<int>("side");
    QTest::newRow("large") << QSize(1000, 700) << QSize(907, 680) << 650; // 17 and 13 cells
    QTest::newRow("tall") << QSize(500, 900) << QSize(407, 880) << 350;   // 7 and 17
    QTest::newRow("just two cells") << QSize(223, 140) << QSize(130, 120) << 100;
    QTest::newRow("a pixel too narrow") << QSize(222, 140) << QSize(129, 120) << 50;
    QTest::newRow("a pixel too low") << QSize(223, 139) << QSize(130, 119) << 50;
    QTest::newRow("just one cell") << QSize(173, 90) << QSize(80, 70) << 50;
    QTest::newRow("no cell across") << QSize(172, 500) << QSize(79, 480) << 50;
    QTest::newRow("no cell down") << QSize(900, 60) << QSize(807, 40) << 50;
    QTest::newRow("narrower than the frames") << QSize(60, 300) << QSize(0, 280) << 50;
    QTest::newRow("nothing") << QSize(0, 0) << QSize(0, 0) << 50;
}

void ReferencePicturePageTest::layout()
{
    QFETCH(QSize, page);
    QFETCH(QSize, surround);
    QFETCH(int, side);
    Form().SpecifyCurvePic->resize(page);
    LayoutReferencePage(0);
    QCOMPARE(Form().PicRefBack->geometry(), QRect(QPoint(83, 10), surround));
    QCOMPARE(Form().PicRef->geometry(), QRect(30, 10, side, side));
}

void ReferencePicturePageTest::the_page_takes_the_windows_colour()
{
    SetWindowColour(Form(), QColor(10, 200, 30));
    // A colour of its own: the page inherits none any more.
    SetWindowColour(*Form().SpecifyCurvePic, QColor(200, 0, 0));
    Form().SpecifyCurvePic->setAutoFillBackground(false);
    Form().PicRefBack->BackColour = Rgb(200, 0, 0);
    PreparePlot(Form(), 0, 100);
    QCOMPARE(Form().SpecifyCurvePic->palette().color(QPalette::Window), QColor(10, 200, 30));
    QVERIFY(Form().SpecifyCurvePic->autoFillBackground());
    QCOMPARE(Form().PicRefBack->Image().pixelColor(129, 5), QColor(10, 200, 30));
    QCOMPARE(Form().PicRef->Image().pixelColor(97, 97), QColor(255, 255, 255));
}

void ReferencePicturePageTest::the_grid_follows_the_size_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<bool>("visible");
    for (int side : {50, 100, 200, 550}) {
        QTest::addRow("%d with dots", side) << side << true;
        QTest::addRow("%d without", side) << side << false;
    }
}

void ReferencePicturePageTest::the_grid_follows_the_size()
{
    QFETCH(int, side);
    QFETCH(bool, visible);
    ReferenceCurves[0].GridVisible = visible;
    PreparePlot(Form(), 0, side);
    ExpectedPlot expected(side);
    expected.Grid(visible);
    Compare(expected);
}

void ReferencePicturePageTest::the_axes_carry_the_numbers_of_the_record()
{
    Publish(0, {{0, -20, true}, {10, 80}});
    PreparePlot(Form(), 0, 200);
    const QStringList abscissa{"0.00", "1.00", "2.00", "3.00", "4.00", "5.00", "6.00", "7.00", "8.00", "9.00", "10.0"};
    const QStringList ordinate{"-20.0", "-10.0", "0.00", "10.0", "20.0", "30.0",
                               "40.0",  "50.0",  "60.0", "70.0", "80.0"};
    const QImage expected = ExpectedSurround(*Form().PicRefBack, *Form().PicRef, abscissa, ordinate);
    QCOMPARE(Difference(Form().PicRefBack->Image(), expected), QString());
}

void ReferencePicturePageTest::the_surface_has_the_size_of_the_plot()
{
    PreparePlot(Form(), 0, 150);
    const SurfaceHandle surface = ReferenceCurves[0].MemoryDC;
    QVERIFY(SetPixel(surface, 149, 149, Rgb(1, 1, 1)));
    QVERIFY(!SetPixel(surface, 150, 0, Rgb(1, 1, 1)));
    QVERIFY(!SetPixel(surface, 0, 150, Rgb(1, 1, 1)));
}

void ReferencePicturePageTest::the_bitmap_field_keeps_the_previous_bitmap()
{
    PreparePlot(Form(), 0, 100);
    QCOMPARE(LiveSurfaceObjects(), 2); // the context and its bitmap
    const ReferenceCurve &curve = ReferenceCurves[0];
    QVERIFY(curve.MemoryBitmap != 0);
    // What the context came with has one pixel.
    const SurfaceHandle made = SelectObject(curve.MemoryDC, curve.MemoryBitmap);
    QVERIFY(made != 0);
    QVERIFY(made != curve.MemoryBitmap);
    QVERIFY(!SetPixel(curve.MemoryDC, 1, 0, 0));
    SelectObject(curve.MemoryDC, made);
    ReleaseReferenceBuffer(0);
    QCOMPARE(curve.MemoryDC, 0);
    QCOMPARE(curve.MemoryBitmap, 0);
    QCOMPARE(LiveSurfaceObjects(), 0);
}

void ReferencePicturePageTest::the_surface_has_the_colour_of_the_page()
{
    PreparePlot(Form(), 0, 100);
    const ColourRef page = RefFromColour(Form().SpecifyCurvePic->palette().color(QPalette::Window));
    QVERIFY(page != Rgb(255, 255, 255)); // what a fresh context has
    QCOMPARE(SetBkColor(ReferenceCurves[0].MemoryDC, 0), page);
}

void ReferencePicturePageTest::no_bitmap_no_surface()
{
    Form().PicRef->resize(0, 0);
    CreateReferenceBuffer(0);
    QCOMPARE(ReferenceCurves[0].MemoryDC, 0);
    QCOMPARE(ReferenceCurves[0].MemoryBitmap, 0);
    QCOMPARE(LiveSurfaceObjects(), 0);
}

void ReferencePicturePageTest::a_release_without_a_surface_does_nothing()
{
    ReleaseReferenceBuffer(0);
    ReleaseReferenceBuffer(7); // a slot without a window
    QCOMPARE(ReferenceCurves[0].MemoryDC, 0);
    QCOMPARE(LiveSurfaceObjects(), 0);
}

void ReferencePicturePageTest::redraws_and_resizes_leave_no_object_behind()
{
    Publish(0, {{0, 0, true}, {30, 40, true, Least}, {100, 100}});
    HoldLine(0, 0, 100, 100);
    for (int i = 0; i < 40; ++i) {
        PreparePlot(Form(), 0, 50 + 50 * (i % 4));
        DrawReferenceCurve(0, true);
        DrawReferenceCurve(0, false);
        QCOMPARE(LiveSurfaceObjects(), 2);
    }
}

void ReferencePicturePageTest::the_grid_box_toggles_the_grid()
{
    ConnectReferencePicture(Form());
    Form().ChkGridRef->setChecked(true);
    PreparePlot(Form(), 0, 100);
    for (bool visible : {false, true}) {
        Form().ChkGridRef->click();
        QCOMPARE(ReferenceCurves[0].GridVisible, visible);
        ExpectedPlot expected(100);
        expected.Grid(visible);
        Compare(expected);
    }
}

void ReferencePicturePageTest::the_grid_box_redraws_the_curve_if_applied_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("applied");
    QTest::addColumn<bool>("curve");
    QTest::newRow("applied") << 2 << true << true;
    QTest::newRow("not applied") << 2 << false << false;
    QTest::newRow("one row") << 1 << true << false;
    QTest::newRow("no row") << 0 << true << false;
}

void ReferencePicturePageTest::the_grid_box_redraws_the_curve_if_applied()
{
    QFETCH(int, rows);
    QFETCH(bool, applied);
    QFETCH(bool, curve);
    ConnectReferencePicture(Form());
    Form().ChkGridRef->setChecked(true);
    for (int row = 1; row <= rows; ++row)
        PutRow(0, row, row, row);
    ProjectSlots[0].CurveApplied = applied;
    Publish(0, {{0, 0, true}, {100, 100}});
    HoldLine(0, 0, 100, 100);
    PreparePlot(Form(), 0, 100);
    Form().ChkGridRef->click();
    ExpectedPlot expected(100);
    expected.Grid(false);
    if (curve) {
        expected.Curve(
            0, 100, [](int column) { return 100 - column; }, LineColour);
        expected.Dot(1, 98, SegmentColour);
        expected.Dot(98, 1, LineColour);
    }
    Compare(expected);
}

void ReferencePicturePageTest::the_program_may_set_the_grid_box()
{
    ConnectReferencePicture(Form());
    Form().ChkGridRef->setChecked(true);
    Form().ChkGridRef->setChecked(false);
    QVERIFY(ReferenceCurves[0].GridVisible);
}

void ReferencePicturePageTest::a_slot_without_a_window_has_no_picture()
{
    QCOMPARE(ErrorOf([] { LayoutReferencePage(4); }), 91);
    QCOMPARE(ErrorOf([] { CreateReferenceBuffer(4); }), 91);
    QCOMPARE(ErrorOf([] { DrawReferenceAxes(4); }), 91);
    QCOMPARE(ErrorOf([] { DrawReferenceCurve(4, true); }), 91);
    QCOMPARE(ErrorOf([] { ReleaseReferenceBuffer(10); }), 9);
}

QTEST_MAIN(ReferencePicturePageTest)
#include "tst_reference_picture_page.moc"
