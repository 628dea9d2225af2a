#include "display/ReferencePictureModule.h"
#include "platform/MemorySurface.h"
#include "platform/PixelDrawing.h"
#include "platform/RuntimeError.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"

#include <QPointer>

#include <cmath>
#include <functional>
#include <memory>

namespace {

constexpr int Line = 0;
constexpr int Least = 1;
constexpr QRgb White = qRgb(255, 255, 255);
constexpr QRgb GridPixel = qRgb(0, 0, 255);
constexpr QRgb LinePixel = qRgb(64, 0, 64);
constexpr QRgb LeastPixel = qRgb(255, 0, 0);
constexpr QRgb SegmentPixel = qRgb(0, 255, 0);

struct Row {
    double X = 0;
    double Y = 0;
    bool Segment = false;
    std::uint8_t Arithmetic = Line;
};

/// To the nearest, ties to even.
int Even(double value)
{
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest != 0.5)
        return static_cast<int>(rest < 0.5 ? below : below + 1);
    return static_cast<int>(std::fmod(below, 2) == 0 ? below : below + 1);
}

/// The picture as the rules tell it, drawn pixel by pixel.
class ExpectedPlot {
public:
    explicit ExpectedPlot(int side) : m_image(side, side, QImage::Format_RGB32), m_side(side) { m_image.fill(White); }

    const QImage &Image() const { return m_image; }

    void Set(int x, int y, QRgb colour)
    {
        if (m_image.valid(x, y))
            m_image.setPixel(x, y, colour);
    }

    void Grid(bool visible)
    {
        for (int i = 0; i < m_side; ++i) {
            Set(0, i, GridPixel);
            Set(i, m_side - 1, GridPixel);
        }
        const int cell = m_side / 50;
        for (int i = 1; i <= 49; ++i) {
            const int length = i % 5 == 0 ? cell / 2 : cell / 4;
            for (int t = 0; t <= length; ++t) {
                Set(i * cell, 1 + t, GridPixel);
                Set(i * cell, m_side - 2 - t, GridPixel);
                Set(1 + t, i * cell, GridPixel);
                Set(m_side - 2 - t, i * cell, GridPixel);
            }
        }
        for (int i = 1; visible && i <= 9; ++i) {
            for (int j = 1; j <= 49; ++j) {
                Set(i * 5 * cell, j * cell, GridPixel);
                Set(j * cell, i * 5 * cell, GridPixel);
            }
        }
    }

    /// The pixels from (column, from) on, without (column + 1, to).
    void Step(int column, int from, int to, QRgb colour)
    {
        const int length = std::max(std::abs(to - from), 1);
        const int direction = to < from ? -1 : 1;
        for (int k = 0; k < length; ++k) {
            const bool nearerToEnd = length > 1 && 2 * k >= length;
            Set(column + (nearerToEnd ? 1 : 0), from + (length > 1 ? direction * k : 0), colour);
        }
    }

    /// Joins the rows of neighbouring columns from one column to another.
    void Curve(int first, int last, const std::function<int(int)> &rowOf, QRgb colour)
    {
        for (int column = first; column < last; ++column)
            Step(column, rowOf(column), rowOf(column + 1), colour);
    }

    void Dot(int x, int y, QRgb colour)
    {
        for (int i = 0; i < 9; ++i)
            Set(x - 1 + i % 3, y - 1 + i / 3, colour);
    }

private:
    QImage m_image;
    int m_side;
};

/// The surround with eleven numbers along each axis.
QImage ExpectedSurround(const PictureBox &surround, const PictureBox &plot, const QStringList &abscissa,
                        const QStringList &ordinate)
{
    QImage image(surround.size(), QImage::Format_RGB32);
    image.fill(surround.palette().color(QPalette::Window));
    const int bottom = plot.y() + plot.height();
    const int step = plot.width() / 10;
    for (int i = 0; i <= 10; ++i) {
        const int x = Even(plot.x() + step * i - 2.5 * static_cast<int>(abscissa[i].size()));
        DrawPictureText(image, x, bottom + 2, abscissa[i], Rgb(0, 0, 0));
        DrawPictureText(image, 0, Even(bottom - step * i - 4.5), ordinate[i], Rgb(255, 0, 255));
    }
    return image;
}

/// Where two images differ first, empty when they are equal.
QString Difference(const QImage &got, const QImage &expected)
{
    if (got.size() != expected.size())
        return QStringLiteral("%1 x %2 pixels").arg(got.width()).arg(got.height());
    for (int y = 0; y < got.height(); ++y) {
        for (int x = 0; x < got.width(); ++x) {
            if ((got.pixel(x, y) & RGB_MASK) != (expected.pixel(x, y) & RGB_MASK)) {
                return QStringLiteral("(%1, %2) is %3, not %4")
                    .arg(x)
                    .arg(y)
                    .arg(got.pixel(x, y), 0, 16)
                    .arg(expected.pixel(x, y), 0, 16);
            }
        }
    }
    return QString();
}

/// Has the library hold the straight line through two points.
void HoldLine(double x1, double y1, double x2, double y2)
{
    const CurvePoint points[] = {{x1, y1}, {x2, y2}};
    const CurveFlag flags[] = {{Line, 1}, {Line, 0}};
    SEN_NewBuild_Z(2, points, flags);
}

/// Publishes points as Apply does, without a build.
void Publish(int slot, const std::vector<Row> &rows)
{
    ReferenceCurve &curve = ReferenceCurves[slot];
    for (std::size_t i = 0; i < rows.size(); ++i) {
        curve.Points[i] = {rows[i].X, rows[i].Y};
        curve.Flags[i] = {rows[i].Arithmetic, static_cast<std::uint8_t>(rows[i].Segment ? 1 : 0)};
    }
    curve.Count = static_cast<std::int32_t>(rows.size());
    curve.XMin = rows.front().X;
    curve.XMax = rows.back().X;
    curve.YMax = MaxCurveOutput(curve.Points, curve.Count);
    curve.YMin = MinCurveOutput(curve.Points, curve.Count);
}

/// A page that leaves room for a plot of the given side, laid out and with its axes.
void PreparePlot(SensorProjFrm &form, int slot, int side)
{
    form.SpecifyCurvePic->resize(83 + 10 + 30 + side, 20 + 20 + side);
    LayoutReferencePage(slot);
    ReleaseReferenceBuffer(slot);
    CreateReferenceBuffer(slot);
    DrawReferenceAxes(slot);
}

} // namespace

class ReferencePictureTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void layout_data();
    void layout();
    void the_page_takes_the_windows_colour();
    void the_grid_follows_the_size_data();
    void the_grid_follows_the_size();
    void the_axes_carry_the_numbers_of_the_record();
    void a_straight_curve();
    void a_steep_curve();
    void rows_round_to_even();
    void stretches_have_the_pen_of_their_segment_point();
    void shifted_stretches_keep_their_shift();
    void a_boundary_before_the_first_column_ends_in_the_failure();
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
    void the_surface_has_the_size_of_the_plot();
    void the_bitmap_field_keeps_the_previous_bitmap();
    void the_surface_has_the_colour_of_the_page();
    void no_bitmap_no_surface();
    void a_release_without_a_surface_does_nothing();
    void redraws_and_resizes_leave_no_object_behind();
    void a_failure_leaves_no_object_behind();
    void the_grid_box_toggles_the_grid();
    void the_grid_box_redraws_the_curve_if_applied_data();
    void the_grid_box_redraws_the_curve_if_applied();
    void the_program_may_set_the_grid_box();
    void unusable_data_close_the_project_data();
    void unusable_data_close_the_project();
    void the_failure_speaks_chinese();
    void the_failure_closes_the_active_project();
    void a_project_may_refuse_to_close();
    void a_failure_while_all_close_keeps_the_mark();
    void a_failure_under_the_box_is_silent();
    void a_slot_without_a_window_has_no_picture();

private:
    SensorProjFrm &Form() { return *ProjectForm[0]; }
    const QImage &Plot() { return Form().PicRef->Image(); }
    void Compare(const ExpectedPlot &expected) { QCOMPARE(Difference(Plot(), expected.Image()), QString()); }
    std::unique_ptr<BareFrame> m_frame;
};

void ReferencePictureTest::init()
{
    SEN_Free();
    m_frame = std::make_unique<BareFrame>();
    m_frame->AddProject(0);
}

void ReferencePictureTest::cleanup()
{
    for (int slot = 0; slot < SlotCount; ++slot)
        ReleaseReferenceBuffer(slot);
    m_frame.reset();
    QCOMPARE(LiveSurfaceObjects(), 0);
}

void ReferencePictureTest::layout_data()
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

void ReferencePictureTest::layout()
{
    QFETCH(QSize, page);
    QFETCH(QSize, surround);
    QFETCH(int, side);
    Form().SpecifyCurvePic->resize(page);
    LayoutReferencePage(0);
    QCOMPARE(Form().PicRefBack->geometry(), QRect(QPoint(83, 10), surround));
    QCOMPARE(Form().PicRef->geometry(), QRect(30, 10, side, side));
}

void ReferencePictureTest::the_page_takes_the_windows_colour()
{
    QPalette palette = Form().palette();
    palette.setColor(QPalette::Window, QColor(10, 200, 30));
    Form().setPalette(palette);
    PreparePlot(Form(), 0, 100);
    QCOMPARE(Form().SpecifyCurvePic->palette().color(QPalette::Window), QColor(10, 200, 30));
    QVERIFY(Form().SpecifyCurvePic->autoFillBackground());
    QCOMPARE(Form().PicRefBack->Image().pixelColor(129, 5), QColor(10, 200, 30));
    QCOMPARE(Form().PicRef->Image().pixelColor(97, 97), QColor(255, 255, 255));
}

void ReferencePictureTest::the_grid_follows_the_size_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<bool>("visible");
    for (int side : {50, 100, 200, 550}) {
        QTest::addRow("%d with dots", side) << side << true;
        QTest::addRow("%d without", side) << side << false;
    }
}

void ReferencePictureTest::the_grid_follows_the_size()
{
    QFETCH(int, side);
    QFETCH(bool, visible);
    ReferenceCurves[0].GridVisible = visible;
    PreparePlot(Form(), 0, side);
    ExpectedPlot expected(side);
    expected.Grid(visible);
    Compare(expected);
}

void ReferencePictureTest::the_axes_carry_the_numbers_of_the_record()
{
    Publish(0, {{0, -20, true}, {10, 80}});
    PreparePlot(Form(), 0, 200);
    const QStringList abscissa{"0.00", "1.00", "2.00", "3.00", "4.00", "5.00", "6.00", "7.00", "8.00", "9.00", "10.0"};
    const QStringList ordinate{"-20.0", "-10.0", "0.00", "10.0", "20.0", "30.0",
                               "40.0",  "50.0",  "60.0", "70.0", "80.0"};
    const QImage expected = ExpectedSurround(*Form().PicRefBack, *Form().PicRef, abscissa, ordinate);
    QCOMPARE(Difference(Form().PicRefBack->Image(), expected), QString());
}

void ReferencePictureTest::a_straight_curve()
{
    // One unit a pixel in both directions, so that the rows can be told in the head.
    Publish(0, {{0, 0, true}, {100, 100}});
    HoldLine(0, 0, 100, 100);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    for (int column = 1; column < 100; ++column)
        expected.Set(column, 100 - column, LinePixel);
    expected.Dot(1, 98, SegmentPixel);
    expected.Dot(98, 1, LinePixel);
    Compare(expected);
}

void ReferencePictureTest::a_steep_curve()
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
        return Even(100 - y);
    };
    expected.Curve(0, 100, rowOf, LinePixel);
    expected.Dot(1, 80, SegmentPixel);
    expected.Dot(40, 98, LinePixel);
    expected.Dot(60, 1, LinePixel);
    expected.Dot(98, 60, LinePixel);
    Compare(expected);
}

void ReferencePictureTest::rows_round_to_even()
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
        QCOMPARE(Even(80 - column / 2.0), rows[column]);
    expected.Curve(
        0, 100, [](int column) { return Even(80 - column / 2.0); }, LinePixel);
    expected.Dot(1, 98, SegmentPixel);
    expected.Dot(98, 1, LinePixel);
    Compare(expected);
}

void ReferencePictureTest::stretches_have_the_pen_of_their_segment_point()
{
    Publish(0, {{0, 0, true, Line}, {30, 15, true, Least}, {40, 20, false, Line}, {70, 35, true, Line}, {100, 100}});
    HoldLine(0, 0.25, 100, 50.25);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    const auto rowOf = [](int column) { return Even(99.75 - column / 2.0); };
    expected.Curve(0, 30, rowOf, LinePixel);
    expected.Curve(30, 70, rowOf, LeastPixel);
    expected.Curve(70, 100, rowOf, LinePixel);
    expected.Dot(1, 98, SegmentPixel);
    expected.Dot(30, 85, SegmentPixel);
    expected.Dot(40, 80, LinePixel);
    expected.Dot(70, 65, SegmentPixel);
    expected.Dot(98, 1, LinePixel);
    Compare(expected);
}

void ReferencePictureTest::shifted_stretches_keep_their_shift()
{
    Publish(0, {{0, 0, true, Line}, {40, 20, true, Least}, {90, 100}});
    ReferenceCurves[0].XMin = -10;
    HoldLine(0, 0.25, 100, 50.25);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    const auto rowOf = [](int column) { return Even(99.75 - (column - 10) / 2.0); };
    expected.Curve(10, 40, rowOf, LinePixel); // the segment point itself stands at column 50
    expected.Curve(40, 100, rowOf, LeastPixel);
    expected.Dot(10, 98, SegmentPixel);
    expected.Dot(50, 80, SegmentPixel);
    expected.Dot(98, 1, LinePixel);
    Compare(expected);
}

void ReferencePictureTest::a_boundary_before_the_first_column_ends_in_the_failure()
{
    Publish(0, {{0, 0, true, Line}, {5, 20, true, Least}, {90, 100}});
    ReferenceCurves[0].XMin = -10;
    HoldLine(0, 0, 100, 50);
    PreparePlot(Form(), 0, 100);
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QCOMPARE(answers.Shown().size(), 1);
}

void ReferencePictureTest::without_the_curve_only_the_dots_appear()
{
    Publish(0, {{0, 0, true}, {50, 25}, {100, 100}});
    HoldLine(0, -500, 100, 500); // would widen the range
    PreparePlot(Form(), 0, 100);
    const QImage surround = Form().PicRefBack->Image().copy();
    DrawReferenceCurve(0, false);
    ExpectedPlot expected(100);
    expected.Grid(true);
    expected.Dot(1, 98, SegmentPixel);
    expected.Dot(50, 75, LinePixel);
    expected.Dot(98, 1, LinePixel);
    Compare(expected);
    QCOMPARE(Difference(Form().PicRefBack->Image(), surround), QString());
}

void ReferencePictureTest::dots_in_corners_stay_inside()
{
    // Equal inputs put a dot into each corner.
    Publish(0, {{0, 0, true}, {0, 100, true}, {100, 0, true}, {100, 100, true}});
    PreparePlot(Form(), 0, 50);
    DrawReferenceCurve(0, false);
    ExpectedPlot expected(50);
    expected.Grid(true);
    for (int x : {1, 48}) {
        for (int y : {1, 48})
            expected.Dot(x, y, SegmentPixel);
    }
    Compare(expected);
    int pixels = 0;
    for (int i = 0; i < 50 * 50; ++i)
        pixels += Plot().pixel(i % 50, i / 50) == SegmentPixel ? 1 : 0;
    QCOMPARE(pixels, 4 * 9);
}

void ReferencePictureTest::dots_have_the_colour_of_their_flag()
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

void ReferencePictureTest::only_dots_in_view_are_drawn()
{
    Publish(0, {{0, 0, true}, {25, 50}, {75, 50}, {100, 100}});
    ReferenceCurves[0].XMin = 20;
    ReferenceCurves[0].XMax = 70;
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, false);
    ExpectedPlot expected(100);
    expected.Grid(true);
    expected.Dot(10, 50, LinePixel);
    Compare(expected);
}

void ReferencePictureTest::an_overshoot_widens_the_range()
{
    Publish(0, {{0, 0, true}, {100, 10}});
    HoldLine(0, -5, 100, 15);
    PreparePlot(Form(), 0, 100);
    DrawReferenceCurve(0, true);
    ExpectedPlot expected(100);
    expected.Grid(true);
    expected.Curve(
        0, 100, [](int column) { return 100 - column; }, LinePixel); // 20 units on 100 pixels
    expected.Dot(1, 75, SegmentPixel);                               // 0 of -5 to 15
    expected.Dot(98, 25, LinePixel);                                 // 10
    Compare(expected);
    const QStringList abscissa{"0.00", "10.0", "20.0", "30.0", "40.0", "50.0", "60.0", "70.0", "80.0", "90.0", "100"};
    const QStringList ordinate{"-5.00", "-3.00", "-1.00", "1.00", "3.00", "5.00",
                               "7.00",  "9.00",  "11.0",  "13.0", "15.0"};
    const QImage surround = ExpectedSurround(*Form().PicRefBack, *Form().PicRef, abscissa, ordinate);
    QCOMPARE(Difference(Form().PicRefBack->Image(), surround), QString());
    QCOMPARE(ReferenceCurves[0].YMax, 10.0);
    QCOMPARE(ReferenceCurves[0].YMin, 0.0);
}

void ReferencePictureTest::an_overshoot_at_one_side_widens_that_side_data()
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

void ReferencePictureTest::an_overshoot_at_one_side_widens_that_side()
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
            QCOMPARE(Plot().pixel(20 + across, lowRow + down), SegmentPixel);
            QCOMPARE(Plot().pixel(80 + across, highRow + down), SegmentPixel);
        }
    }
}

void ReferencePictureTest::a_curve_within_the_range_leaves_the_numbers()
{
    Publish(0, {{0, 0, true}, {100, 10}});
    HoldLine(0, 0, 100, 10);
    PreparePlot(Form(), 0, 100);
    Form().PicRefBack->Dot(0, 0); // a mark that a redraw of the numbers would take away
    const QImage before = Form().PicRefBack->Image().copy();
    DrawReferenceCurve(0, true);
    QCOMPARE(Difference(Form().PicRefBack->Image(), before), QString());
}

void ReferencePictureTest::a_least_squares_curve_stays_inside()
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
    const auto rowOf = [=](double y) { return Even((top - y) * (200 / (top - low))); };
    expected.Curve(
        0, 200, [&](int column) { return rowOf(SEN_Meas_Z(column * 0.5)); }, LeastPixel);
    const auto inside = [](int position) { return position == 0 ? 1 : position == 200 ? 198 : position; };
    for (std::size_t i = 0; i < rows.size(); ++i)
        expected.Dot(inside(static_cast<int>(i) * 40), inside(rowOf(rows[i].Y)), i == 0 ? SegmentPixel : LeastPixel);
    Compare(expected);
}

void ReferencePictureTest::a_redraw_goes_back_to_the_records_range()
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

void ReferencePictureTest::nothing_in_view_leaves_the_picture()
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

void ReferencePictureTest::without_a_surface_the_picture_stays()
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

void ReferencePictureTest::the_surface_has_the_size_of_the_plot()
{
    PreparePlot(Form(), 0, 150);
    const SurfaceHandle surface = ReferenceCurves[0].MemoryDC;
    QVERIFY(SetPixel(surface, 149, 149, Rgb(1, 1, 1)));
    QVERIFY(!SetPixel(surface, 150, 0, Rgb(1, 1, 1)));
    QVERIFY(!SetPixel(surface, 0, 150, Rgb(1, 1, 1)));
}

void ReferencePictureTest::the_bitmap_field_keeps_the_previous_bitmap()
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

void ReferencePictureTest::the_surface_has_the_colour_of_the_page()
{
    PreparePlot(Form(), 0, 100);
    const ColourRef page = RefFromColour(Form().SpecifyCurvePic->palette().color(QPalette::Window));
    QVERIFY(page != Rgb(255, 255, 255)); // what a fresh context has
    QCOMPARE(SetBkColor(ReferenceCurves[0].MemoryDC, 0), page);
}

void ReferencePictureTest::no_bitmap_no_surface()
{
    Form().PicRef->resize(0, 0);
    CreateReferenceBuffer(0);
    QCOMPARE(ReferenceCurves[0].MemoryDC, 0);
    QCOMPARE(ReferenceCurves[0].MemoryBitmap, 0);
    QCOMPARE(LiveSurfaceObjects(), 0);
}

void ReferencePictureTest::a_release_without_a_surface_does_nothing()
{
    ReleaseReferenceBuffer(0);
    ReleaseReferenceBuffer(7); // a slot without a window
    QCOMPARE(ReferenceCurves[0].MemoryDC, 0);
    QCOMPARE(LiveSurfaceObjects(), 0);
}

void ReferencePictureTest::redraws_and_resizes_leave_no_object_behind()
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

void ReferencePictureTest::a_failure_leaves_no_object_behind()
{
    // The second boundary fails while a pen is in the surface.
    Publish(0, {{0, 0, true, Line}, {5, 20, true, Least}, {90, 100}});
    ReferenceCurves[0].XMin = -10;
    HoldLine(0, 0, 100, 50);
    PreparePlot(Form(), 0, 100);
    QObject::connect(&Form(), &SensorProjFrm::CloseAsked, this, [](bool &cancel) { cancel = true; });
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
    for (int i = 0; i < 3; ++i)
        DrawReferenceCurve(0, true);
    QCOMPARE(answers.Left(), 0);
    QCOMPARE(LiveSurfaceObjects(), 2);
}

void ReferencePictureTest::the_grid_box_toggles_the_grid()
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

void ReferencePictureTest::the_grid_box_redraws_the_curve_if_applied_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("applied");
    QTest::addColumn<bool>("curve");
    QTest::newRow("applied") << 2 << true << true;
    QTest::newRow("not applied") << 2 << false << false;
    QTest::newRow("one row") << 1 << true << false;
    QTest::newRow("no row") << 0 << true << false;
}

void ReferencePictureTest::the_grid_box_redraws_the_curve_if_applied()
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
            0, 100, [](int column) { return 100 - column; }, LinePixel);
        expected.Dot(1, 98, SegmentPixel);
        expected.Dot(98, 1, LinePixel);
    }
    Compare(expected);
}

void ReferencePictureTest::the_program_may_set_the_grid_box()
{
    ConnectReferencePicture(Form());
    Form().ChkGridRef->setChecked(true);
    Form().ChkGridRef->setChecked(false);
    QVERIFY(ReferenceCurves[0].GridVisible);
}

void ReferencePictureTest::unusable_data_close_the_project_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<bool>("drawCurve");
    for (const char *what : {"no height", "no width", "no points", "count beyond the arrays", "dot beyond 32 bits",
                             "height beyond double", "width beyond double"})
        QTest::newRow(what) << QString::fromLatin1(what) << false;
    QTest::newRow("segment beyond 32 bits") << QStringLiteral("segment beyond 32 bits") << true;
}

void ReferencePictureTest::unusable_data_close_the_project()
{
    QFETCH(QString, what);
    QFETCH(bool, drawCurve);
    Publish(0, {{0, 0, true}, {100, 100}});
    HoldLine(0, 0, 100, 100);
    ReferenceCurve &curve = ReferenceCurves[0];
    if (what == u"no height")
        curve.YMin = curve.YMax;
    else if (what == u"no width")
        curve.XMax = curve.XMin;
    else if (what == u"no points")
        curve.Count = 0;
    else if (what == u"count beyond the arrays")
        curve.Count = 501;
    else if (what == u"dot beyond 32 bits")
        curve.Points[1].Y = 1e300;
    else if (what == u"height beyond double")
        curve.YMax = 1.7e308, curve.YMin = -1.7e308;
    else if (what == u"width beyond double")
        curve.XMax = 1.7e308, curve.XMin = -1.7e308;
    else
        Publish(0, {{0, 0, true}, {1e300, 50, true}, {100, 100}}); // its column does not fit
    PreparePlot(Form(), 0, 100);
    int asked = 0;
    bool silently = false;
    connect(&Form(), &SensorProjFrm::CloseAsked, this, [&] {
        ++asked;
        silently = ClosingAll;
    });
    const QPointer<SensorProjFrm> form(&Form());
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, drawCurve);
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(answers.Shown()[0].Text,
             QStringLiteral("You have loaded illegal project file,the current project will be closed! "));
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
    QCOMPARE(answers.Shown()[0].Buttons, QMessageBox::Ok);
    QCOMPARE(asked, 1);
    QVERIFY(silently);
    QVERIFY(!ClosingAll);
    QTRY_VERIFY(form.isNull());
}

void ReferencePictureTest::the_failure_speaks_chinese()
{
    CurrentLanguage = LanguageChinese;
    PreparePlot(Form(), 0, 100);
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("您载入的是非法工程文件，当前工程即将被关闭! ")});
}

void ReferencePictureTest::the_failure_closes_the_active_project()
{
    SensorProjFrm &other = m_frame->AddProject(1);
    QCOMPARE(m_frame->frame.Children->activeSubWindow(), &other);
    const QPointer<SensorProjFrm> drawn(&Form());
    const QPointer<SensorProjFrm> active(&other);
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QTRY_VERIFY(active.isNull());
    QVERIFY(!drawn.isNull());
    QVERIFY(drawn->isVisible());
}

void ReferencePictureTest::a_project_may_refuse_to_close()
{
    connect(&Form(), &SensorProjFrm::CloseAsked, this, [](bool &cancel) { cancel = true; });
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QVERIFY(Form().isVisible());
    QVERIFY(!ClosingAll);
}

void ReferencePictureTest::a_failure_while_all_close_keeps_the_mark()
{
    ClosingAll = true;
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QVERIFY(ClosingAll);
}

void ReferencePictureTest::a_failure_under_the_box_is_silent()
{
    m_frame->AddProject(1);
    int asked = 0;
    for (int slot : {0, 1})
        connect(ProjectForm[slot], &SensorProjFrm::CloseAsked, this, [&] { ++asked; });
    bool redrawn = false;
    QTimer::singleShot(0, this, [&] {
        DrawReferenceCurve(0, true); // as a resize does while the box is up
        redrawn = true;
    });
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QVERIFY(redrawn);
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(asked, 1);
}

void ReferencePictureTest::a_slot_without_a_window_has_no_picture()
{
    const auto numberOf = [](const std::function<void()> &step) {
        try {
            step();
        } catch (const RuntimeError &error) {
            return error.Number();
        }
        return 0;
    };
    QCOMPARE(numberOf([] { LayoutReferencePage(4); }), 91);
    QCOMPARE(numberOf([] { CreateReferenceBuffer(4); }), 91);
    QCOMPARE(numberOf([] { DrawReferenceAxes(4); }), 91);
    QCOMPARE(numberOf([] { DrawReferenceCurve(4, true); }), 91);
    QCOMPARE(numberOf([] { ReleaseReferenceBuffer(10); }), 9);
}

QTEST_MAIN(ReferencePictureTest)
#include "tst_reference_picture.moc"
