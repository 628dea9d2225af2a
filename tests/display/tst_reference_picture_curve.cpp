/// @file
/// The curve and the dots of the reference picture, pixel by pixel.
#include "display/ReferencePictureBench.h"

#include <optional>

class ReferencePictureCurveTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup()
    {
        m_bench.reset();
        QCOMPARE(LiveSurfaceObjects(), 0);
    }

    void a_straight_curve();
    void a_steep_curve();
    void rows_round_to_even();
    void stretches_have_the_pen_of_their_segment_point();
    void shifted_stretches_keep_their_shift();
    void without_the_curve_only_the_dots_appear();
    void dots_in_corners_stay_inside();
    void dots_have_the_colour_of_their_flag();
    void only_dots_in_view_are_drawn();
    void an_overshoot_widens_the_range();
    void an_overshoot_at_one_side_widens_that_side_data();
    void an_overshoot_at_one_side_widens_that_side();
    void a_curve_within_the_range_leaves_the_numbers();
    void a_least_squares_curve_stays_inside();
    void a_redraw_goes_back_to_the_records_range();
    void nothing_in_view_leaves_the_picture();
    void without_a_surface_the_picture_stays();

private:
    std::optional<ReferencePictureBench> m_bench;
};

void ReferencePictureCurveTest::a_straight_curve()
{
    // One unit a pixel in both directions, so that the rows can be told in the head.
    Publish(0, {{0, 0, true}, {100, 100}});
    HoldLine(0, 0, 100, 100);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    for (int column = 1; column < 100; ++column)
        expected.Set(column, 100 - column, LineColour);
    expected.Dot(1, 98, SegmentColour);
    expected.Dot(98, 1, LineColour);
    Compare(expected);
}

void ReferencePictureCurveTest::a_steep_curve()
{
    // 20 units down, then 80 up on one third of the width: 2.4 pixels a column.
    Publish(0, {{0, 20, true}, {40, 0}, {60, 100}, {100, 40.25}});
    const ReferenceCurve &curve = ReferenceCurves[0];
    SEN_NewBuild_Z(4, curve.Points.data(), curve.Flags.data());
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    const auto rowOf = [](int x) {
        const double y = x <= 40 ? 20 - 0.5 * x : x <= 60 ? 5.0 * (x - 40) : 100 - 59.75 * (x - 60) / 40;
        return Nearest(100 - y);
    };
    expected.Curve(0, 100, rowOf, LineColour);
    expected.Dot(1, 80, SegmentColour);
    expected.Dot(40, 98, LineColour);
    expected.Dot(60, 1, LineColour);
    expected.Dot(98, 60, LineColour);
    Compare(expected);
}

void ReferencePictureCurveTest::rows_round_to_even()
{
    Publish(0, {{0, 0, true}, {100, 100}});
    HoldLine(0, 20, 100, 70);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    // Half a row a column: 80, 79.5, 79, 78.5 ... and each half goes to the even row.
    const int rows[] = {80, 80, 79, 78, 78, 78, 77, 76, 76, 76};
    for (int column = 0; column < 10; ++column)
        QCOMPARE(Nearest(80 - column / 2.0), rows[column]);
    expected.Curve(
        0, 100, [](int column) { return Nearest(80 - column / 2.0); }, LineColour);
    expected.Dot(1, 98, SegmentColour);
    expected.Dot(98, 1, LineColour);
    Compare(expected);
}

void ReferencePictureCurveTest::stretches_have_the_pen_of_their_segment_point()
{
    Publish(0, {{0, 0, true, Line}, {30, 15, true, Least}, {40, 20, false, Line}, {70, 35, true, Line}, {100, 100}});
    HoldLine(0, 0.25, 100, 50.25);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    const auto rowOf = [](int column) { return Nearest(99.75 - column / 2.0); };
    expected.Curve(0, 30, rowOf, LineColour);
    expected.Curve(30, 70, rowOf, LeastColour);
    expected.Curve(70, 100, rowOf, LineColour);
    expected.Dot(1, 98, SegmentColour);
    expected.Dot(30, 85, SegmentColour);
    expected.Dot(40, 80, LineColour);
    expected.Dot(70, 65, SegmentColour);
    expected.Dot(98, 1, LineColour);
    Compare(expected);
}

void ReferencePictureCurveTest::shifted_stretches_keep_their_shift()
{
    Publish(0, {{0, 0, true, Line}, {40, 20, true, Least}, {90, 100}});
    ReferenceCurves[0].XMin = -10;
    HoldLine(0, 0.25, 100, 50.25);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    const auto rowOf = [](int column) { return Nearest(99.75 - (column - 10) / 2.0); };
    expected.Curve(10, 40, rowOf, LineColour); // the segment point itself stands at column 50
    expected.Curve(40, 100, rowOf, LeastColour);
    expected.Dot(10, 98, SegmentColour);
    expected.Dot(50, 80, SegmentColour);
    expected.Dot(98, 1, LineColour);
    Compare(expected);
}

void ReferencePictureCurveTest::without_the_curve_only_the_dots_appear()
{
    Publish(0, {{0, 0, true}, {50, 25}, {100, 100}});
    HoldLine(0, -500, 100, 500); // would widen the range
    PreparePlot(Form(), 0, 100);
    const QImage surround = Form().PicRefBack->Image().copy();
    DrawReferenceCurve(0, false);
    ExpectedPlot expected(100);
    expected.Grid(true);
    expected.Dot(1, 98, SegmentColour);
    expected.Dot(50, 75, LineColour);
    expected.Dot(98, 1, LineColour);
    Compare(expected);
    QCOMPARE(Difference(Form().PicRefBack->Image(), surround), QString());
}

void ReferencePictureCurveTest::dots_in_corners_stay_inside()
{
    // Equal inputs put a dot into each corner.
    Publish(0, {{0, 0, true}, {0, 100, true}, {100, 0, true}, {100, 100, true}});
    PreparePlot(Form(), 0, 50);
    DrawReferenceCurve(0, false);
    ExpectedPlot expected(50);
    expected.Grid(true);
    for (int x : {1, 48}) {
        for (int y : {1, 48})
            expected.Dot(x, y, SegmentColour);
    }
    Compare(expected);
    int pixels = 0;
    for (int i = 0; i < 50 * 50; ++i)
        pixels += Plot().pixelColor(i % 50, i / 50) == ColourFromRef(SegmentColour) ? 1 : 0;
    QCOMPARE(pixels, 4 * 9);
}

void ReferencePictureCurveTest::dots_have_the_colour_of_their_flag()
{
    Publish(0, {{0, 0, true, Least}, {20, 50, false, Line}, {40, 50, false, Least}, {60, 50, true, Line}, {100, 100}});
    ReferenceCurves[0].LineDotColor = Rgb(1, 2, 3);
    ReferenceCurves[0].LeastDotColor = Rgb(4, 5, 6);
    ReferenceCurves[0].SegmentDotColor = Rgb(7, 8, 9);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, false);
    QCOMPARE(Plot().pixel(1, 98), qRgb(7, 8, 9));
    QCOMPARE(Plot().pixel(20, 50), qRgb(1, 2, 3));
    QCOMPARE(Plot().pixel(40, 50), qRgb(4, 5, 6));
    QCOMPARE(Plot().pixel(60, 50), qRgb(7, 8, 9));
    QCOMPARE(Plot().pixel(98, 1), qRgb(1, 2, 3));
}

void ReferencePictureCurveTest::only_dots_in_view_are_drawn()
{
    Publish(0, {{0, 0, true}, {25, 50}, {75, 50}, {100, 100}});
    ReferenceCurves[0].XMin = 20;
    ReferenceCurves[0].XMax = 70;
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, false);
    ExpectedPlot expected(100);
    expected.Grid(true);
    expected.Dot(10, 50, LineColour);
    Compare(expected);
}

void ReferencePictureCurveTest::an_overshoot_widens_the_range()
{
    Publish(0, {{0, 0, true}, {100, 10}});
    HoldLine(0, -5, 100, 15);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    expected.Curve(
        0, 100, [](int column) { return 100 - column; }, LineColour); // 20 units on 100 pixels
    expected.Dot(1, 75, SegmentColour);                               // 0 of -5 to 15
    expected.Dot(98, 25, LineColour);                                 // 10
    Compare(expected);
    const QStringList abscissa{"0.00", "10.0", "20.0", "30.0", "40.0", "50.0", "60.0", "70.0", "80.0", "90.0", "100"};
    const QStringList ordinate{"-5.00", "-3.00", "-1.00", "1.00", "3.00", "5.00",
                               "7.00",  "9.00",  "11.0",  "13.0", "15.0"};
    const QImage surround = ExpectedSurround(*Form().PicRefBack, *Form().PicRef, abscissa, ordinate);
    QCOMPARE(Difference(Form().PicRefBack->Image(), surround), QString());
    QCOMPARE(ReferenceCurves[0].YMax, 10.0);
    QCOMPARE(ReferenceCurves[0].YMin, 0.0);
}

void ReferencePictureCurveTest::an_overshoot_at_one_side_widens_that_side_data()
{
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::addColumn<int>("lowRow");  // of the dot at 0
    QTest::addColumn<int>("highRow"); // of the dot at 10
    QTest::newRow("above") << 5.0 << 20.0 << 98 << 50;
    QTest::newRow("below") << -10.0 << 5.0 << 50 << 1;
    QTest::newRow("both") << -10.0 << 20.0 << 67 << 33;
    QTest::newRow("none") << 0.0 << 10.0 << 98 << 1;
}

void ReferencePictureCurveTest::an_overshoot_at_one_side_widens_that_side()
{
    QFETCH(double, left);
    QFETCH(double, right);
    QFETCH(int, lowRow);
    QFETCH(int, highRow);
    Publish(0, {{0, 0, true}, {20, 0, true}, {80, 10, true}, {100, 10}});
    HoldLine(0, left, 100, right);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    for (int across = -1; across <= 1; ++across) {
        for (int down = -1; down <= 1; ++down) {
            QCOMPARE(Plot().pixelColor(20 + across, lowRow + down), ColourFromRef(SegmentColour));
            QCOMPARE(Plot().pixelColor(80 + across, highRow + down), ColourFromRef(SegmentColour));
        }
    }
}

void ReferencePictureCurveTest::a_curve_within_the_range_leaves_the_numbers()
{
    Publish(0, {{0, 0, true}, {100, 10}});
    HoldLine(0, 0, 100, 10);
    PreparePlot(Form(), 0, 100);
    Form().PicRefBack->Dot(0, 0); // a mark that a redraw of the numbers would take away
    const QImage before = Form().PicRefBack->Image().copy();
    DrawReferenceCurve(0, true);
    QCOMPARE(Difference(Form().PicRefBack->Image(), before), QString());
}

void ReferencePictureCurveTest::a_least_squares_curve_stays_inside()
{
    const std::vector<Row> rows{{0, 0.5, true, Least}, {20, 1.9, false, Least}, {40, 4, false, Least},
                                {60, 6, false, Least}, {80, 8.1, false, Least}, {100, 9.5, false, Least}};
    Publish(0, rows);
    const ReferenceCurve &curve = ReferenceCurves[0];
    QCOMPARE(int{SEN_NewBuild_Z(6, curve.Points.data(), curve.Flags.data())}, 0);
    PreparePlot(Form(), 0, 200);
    DrawReferenceCurve(0, true);
    double top = 9.5;
    double low = 0.5;
    for (int column = 0; column <= 200; ++column) {
        top = std::max(top, SEN_Meas_Z(column * 0.5));
        low = std::min(low, SEN_Meas_Z(column * 0.5));
    }
    QVERIFY(top > 9.5 || low < 0.5); // the fit overshoots
    ExpectedPlot expected(200);
    expected.Grid(true);
    const auto rowOf = [=](double y) { return Nearest((top - y) * (200 / (top - low))); };
    expected.Curve(
        0, 200, [&](int column) { return rowOf(SEN_Meas_Z(column * 0.5)); }, LeastColour);
    const auto inside = [](int position) { return position == 0 ? 1 : position == 200 ? 198 : position; };
    for (std::size_t i = 0; i < rows.size(); ++i)
        expected.Dot(inside(static_cast<int>(i) * 40), inside(rowOf(rows[i].Y)), i == 0 ? SegmentColour : LeastColour);
    Compare(expected);
}

void ReferencePictureCurveTest::a_redraw_goes_back_to_the_records_range()
{
    Publish(0, {{0, 0, true}, {100, 10}});
    PreparePlot(Form(), 0, 100);
    const QImage numbers = Form().PicRefBack->Image().copy();
    HoldLine(0, -5, 100, 15);
    DrawReferenceCurve(0, true);
    QVERIFY(!Difference(Form().PicRefBack->Image(), numbers).isEmpty());
    DrawReferenceAxes(0);
    QCOMPARE(Difference(Form().PicRefBack->Image(), numbers), QString());
}

void ReferencePictureCurveTest::nothing_in_view_leaves_the_picture()
{
    for (const auto &[low, high] : {std::pair{-50.0, -1.0}, std::pair{101.0, 200.0}}) {
        Publish(0, {{0, 0, true}, {100, 100}});
        ReferenceCurves[0].XMin = low;
        ReferenceCurves[0].XMax = high;
        HoldLine(0, 0, 100, 100);
        PreparePlot(Form(), 0, 100);
        const BoxAnswers none;
        DrawReferenceCurve(0, true);
        ExpectedPlot expected(100);
        expected.Grid(true);
        Compare(expected);
        QVERIFY(none.Shown().isEmpty());
    }
}

void ReferencePictureCurveTest::without_a_surface_the_picture_stays()
{
    Publish(0, {{0, 0, true}, {100, 100}});
    HoldLine(0, 0, 100, 100);
    PreparePlot(Form(), 0, 100);
    ReleaseReferenceBuffer(0);
    const BoxAnswers none;
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    Compare(expected);
    QVERIFY(none.Shown().isEmpty());
}

QTEST_MAIN(ReferencePictureCurveTest)
#include "tst_reference_picture_curve.moc"
