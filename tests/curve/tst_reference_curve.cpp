/// @file
/// The reference curve's record: how it is filled, built, ranged and reset.
#include "curve/ReferenceCurve.h"
#include "support/ErrorOf.h"
#include "support/PutRow.h"

#include <QTest>

namespace {

constexpr int Line = 0;
constexpr int Least = 1;

/// Rows 1 to count with inputs 1, 2, 3 ...; the first is a segment point.
void PutRows(int slot, int count, std::int16_t arithmetic)
{
    for (int row = 1; row <= count; ++row)
        PutRow(slot, row, row, 2.0 * row + 1, row == 1, arithmetic);
}

} // namespace

class ReferenceCurveTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void a_new_project_has_the_given_values();
    void a_new_project_keeps_its_surface();
    void elements_are_the_rows_from_1_on();
    void flags_take_the_low_byte_and_the_segment_mark();
    void filling_does_not_reallocate();
    void filling_checks_the_arrays_data();
    void filling_checks_the_arrays();
    void a_build_passes_all_rows_up_to_the_highest_used();
    void a_build_hands_the_rows_to_the_library();
    void a_build_publishes_nothing();
    void least_squares_needs_five_points_a_stretch_data();
    void least_squares_needs_five_points_a_stretch();
    void a_refused_build_leaves_no_curve();
    void a_build_replaces_the_curve_of_another_project();
    void editing_rows_leaves_the_curve();
    void falling_outputs_are_built();
    void extremes_of_the_outputs_data();
    void extremes_of_the_outputs();
    void extremes_need_at_least_one_point();
    void a_slot_that_is_not_there_is_out_of_range();
    void a_reset_empties_all_slots();
};

void ReferenceCurveTest::init()
{
    SEN_Free();
    ResetProjectTable();
    ResetReferenceCurveTable();
}

void ReferenceCurveTest::a_new_project_has_the_given_values()
{
    ReferenceCurves[3].Count = 7;
    ReferenceCurves[3].YMax = 4;
    ReferenceCurves[3].GridVisible = false;
    ReferenceCurves[3].Points = {{1, 2}};
    ResetReferenceCurve(3, 0x123456);
    const ReferenceCurve &curve = ReferenceCurves[3];
    QCOMPARE(curve.Points.size(), std::size_t{500});
    QCOMPARE(curve.Flags.size(), std::size_t{500});
    QCOMPARE(curve.Points[0].X, 0.0);
    QCOMPARE(curve.Count, 0);
    QVERIFY(curve.GridVisible);
    QCOMPARE(curve.GridColor, 0xFF0000);
    QCOMPARE(curve.LineDotColor, 0x400040);
    QCOMPARE(curve.LeastDotColor, 0x0000FF);
    QCOMPARE(curve.SegmentDotColor, 0x00FF00);
    QCOMPARE(curve.AbscissaColor, 0x000000);
    QCOMPARE(curve.OrdinateColor, 0xFF00FF);
    QCOMPARE(curve.BackColor, 0x123456);
    QCOMPARE(curve.YMax, 0.0);
    QCOMPARE(curve.YMin, 0.0);
    QCOMPARE(curve.XMin, 0.0);
    QCOMPARE(curve.XMax, 0.0);
    QCOMPARE(curve.MemoryDC, 0);
    QCOMPARE(curve.MemoryBitmap, 0);
}

void ReferenceCurveTest::a_new_project_keeps_its_surface()
{
    ReferenceCurves[0].MemoryDC = 41;
    ReferenceCurves[0].MemoryBitmap = 42;
    ResetReferenceCurve(0, 0);
    QCOMPARE(ReferenceCurves[0].MemoryDC, 41);
    QCOMPARE(ReferenceCurves[0].MemoryBitmap, 42);
}

void ReferenceCurveTest::elements_are_the_rows_from_1_on()
{
    ResetReferenceCurve(2, 0);
    PutRow(2, 1, -1.5, 30);
    PutRow(2, 2, 2.25, -40);
    ReferenceTable[2][0].Input = 99; // row 0 is never used
    FillCurveArrays(2, 2);
    const ReferenceCurve &curve = ReferenceCurves[2];
    QCOMPARE(curve.Points[0].X, -1.5);
    QCOMPARE(curve.Points[0].Y, 30.0);
    QCOMPARE(curve.Points[1].X, 2.25);
    QCOMPARE(curve.Points[1].Y, -40.0);
    QCOMPARE(curve.Points[2].X, 0.0);
}

void ReferenceCurveTest::flags_take_the_low_byte_and_the_segment_mark()
{
    ResetReferenceCurve(0, 0);
    PutRow(0, 1, 1, 1, true, Line);
    PutRow(0, 2, 2, 1, false, Least);
    PutRow(0, 3, 3, 1, true, 0x0102);
    PutRow(0, 4, 4, 1, false, -1);
    FillCurveArrays(0, 4);
    const std::vector<CurveFlag> &flags = ReferenceCurves[0].Flags;
    const int arithmetic[] = {0, 1, 2, 255};
    const int segment[] = {1, 0, 1, 0};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(int{flags[i].Arithmetic}, arithmetic[i]);
        QCOMPARE(int{flags[i].IsSegment}, segment[i]);
    }
}

void ReferenceCurveTest::filling_does_not_reallocate()
{
    ResetReferenceCurve(0, 0);
    PutRows(0, 3, Line);
    const CurvePoint *points = ReferenceCurves[0].Points.data();
    const CurveFlag *flags = ReferenceCurves[0].Flags.data();
    FillCurveArrays(0, 3);
    QCOMPARE(ReferenceCurves[0].Points.data(), points);
    QCOMPARE(ReferenceCurves[0].Flags.data(), flags);
    QCOMPARE(ReferenceCurves[0].Points.size(), std::size_t{500});
}

void ReferenceCurveTest::filling_checks_the_arrays_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("error");
    QTest::newRow("all fit") << 3 << 3 << 3 << 0;
    QTest::newRow("none") << 0 << 0 << 0 << 0;
    QTest::newRow("too few points") << 2 << 3 << 3 << 9;
    QTest::newRow("too few flags") << 3 << 2 << 3 << 9;
    QTest::newRow("a negative count") << 3 << 3 << -1 << 9;
    QTest::newRow("the last row") << 500 << 500 << 500 << 0;
    QTest::newRow("beyond the last row") << 600 << 600 << 501 << 9;
}

void ReferenceCurveTest::filling_checks_the_arrays()
{
    QFETCH(int, points);
    QFETCH(int, flags);
    QFETCH(int, count);
    ReferenceCurves[0].Points.resize(points);
    ReferenceCurves[0].Flags.resize(flags);
    QTEST(ErrorOf([count] { FillCurveArrays(0, count); }), "error");
}

void ReferenceCurveTest::a_build_passes_all_rows_up_to_the_highest_used()
{
    ResetReferenceCurve(1, 0);
    PutRows(1, 6, Line);
    ReferenceTable[1][4].Used = false;
    QCOMPARE(int{BuildReferenceCurve(1)}, 0);
    QCOMPARE(ReferenceRowsPassed, 6);
    QCOMPARE(ReferenceCurves[1].Points.size(), std::size_t{6});
    QCOMPARE(ReferenceCurves[1].Flags.size(), std::size_t{6});
    QCOMPARE(ReferenceCurves[1].Points[3].X, 4.0);
    QCOMPARE(ReferenceCurves[1].Points[5].Y, 13.0);
}

void ReferenceCurveTest::a_build_hands_the_rows_to_the_library()
{
    PutRow(0, 1, 0, 0, true);
    PutRow(0, 2, 10, 5);
    PutRow(0, 3, 20, -5);
    QCOMPARE(int{BuildReferenceCurve(0)}, 0);
    QCOMPARE(SEN_Meas_Z(4), 2.0);
    QCOMPARE(SEN_Meas_Z(10), 5.0);
    QCOMPARE(SEN_Meas_Z(15), 0.0);
}

void ReferenceCurveTest::a_build_publishes_nothing()
{
    PutRows(0, 3, Line);
    BuildReferenceCurve(0);
    QCOMPARE(ReferenceCurves[0].Count, 0);
    QCOMPARE(ReferenceCurves[0].XMax, 0.0);
    QCOMPARE(ReferenceCurves[0].YMax, 0.0);
    QVERIFY(!ProjectSlots[0].CurveApplied);
}

void ReferenceCurveTest::least_squares_needs_five_points_a_stretch_data()
{
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("result");
    QTest::newRow("five") << 5 << 0 << 0;
    QTest::newRow("four") << 4 << 0 << 2;
    QTest::newRow("four of nine") << 4 << 5 << 2;
    QTest::newRow("two straight ones") << 0 << 2 << 0;
}

void ReferenceCurveTest::least_squares_needs_five_points_a_stretch()
{
    QFETCH(int, least);
    QFETCH(int, line);
    for (int row = 1; row <= least + line; ++row) {
        const bool isLeast = row <= least;
        PutRow(0, row, row, row, row == 1 || row == least + 1, isLeast ? Least : Line);
    }
    QTEST(int{BuildReferenceCurve(0)}, "result");
}

void ReferenceCurveTest::a_refused_build_leaves_no_curve()
{
    PutRows(0, 2, Line);
    QCOMPARE(int{BuildReferenceCurve(0)}, 0);
    QCOMPARE(SEN_Meas_Z(1), 3.0);
    PutRows(1, 4, Least);
    QCOMPARE(BuildReferenceCurve(1), BuildTooFewLeastPoints);
    QCOMPARE(SEN_Meas_Z(1), 0.0);
    QCOMPARE(ReferenceRowsPassed, 4);
    QCOMPARE(ReferenceCurves[1].Points.size(), std::size_t{4}); // holds the new points all the same
}

void ReferenceCurveTest::a_build_replaces_the_curve_of_another_project()
{
    PutRows(0, 2, Line);
    BuildReferenceCurve(0);
    PutRow(5, 1, 0, 100, true);
    PutRow(5, 2, 1, 300);
    QCOMPARE(int{BuildReferenceCurve(5)}, 0);
    QCOMPARE(SEN_Meas_Z(0.5), 200.0);
}

void ReferenceCurveTest::editing_rows_leaves_the_curve()
{
    PutRow(0, 1, 0, 0, true);
    PutRow(0, 2, 10, 20);
    BuildReferenceCurve(0);
    ReferenceTable[0][2].Output = 500;
    ReferenceCurves[0].Points[1].Y = 500;
    QCOMPARE(SEN_Meas_Z(5), 10.0);
}

void ReferenceCurveTest::falling_outputs_are_built()
{
    PutRow(0, 1, 0, 20, true);
    PutRow(0, 2, 10, -20);
    QCOMPARE(int{BuildReferenceCurve(0)}, 0);
    QCOMPARE(SEN_Meas_Z(2.5), 10.0);
}

void ReferenceCurveTest::extremes_of_the_outputs_data()
{
    QTest::addColumn<QList<double>>("outputs");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("largest");
    QTest::addColumn<double>("smallest");
    QTest::newRow("one") << QList<double>{-3} << 1 << -3.0 << -3.0;
    QTest::newRow("rising") << QList<double>{1, 2, 3} << 3 << 3.0 << 1.0;
    QTest::newRow("falling") << QList<double>{3, 2, 1} << 3 << 3.0 << 1.0;
    QTest::newRow("inside") << QList<double>{0, 9, -9, 1} << 4 << 9.0 << -9.0;
    QTest::newRow("beyond the count") << QList<double>{0, 1, 50, -50} << 2 << 1.0 << 0.0;
    QTest::newRow("all negative") << QList<double>{-5, -2, -8} << 3 << -2.0 << -8.0;
}

void ReferenceCurveTest::extremes_of_the_outputs()
{
    QFETCH(QList<double>, outputs);
    QFETCH(int, count);
    std::vector<CurvePoint> points;
    for (double output : outputs)
        points.push_back({0, output});
    QTEST(MaxCurveOutput(points, count), "largest");
    QTEST(MinCurveOutput(points, count), "smallest");
}

void ReferenceCurveTest::extremes_need_at_least_one_point()
{
    const std::vector<CurvePoint> points{{0, 1}, {0, 2}};
    for (int count : {0, -1, 3}) {
        QCOMPARE(ErrorOf([&] { MaxCurveOutput(points, count); }), 9);
        QCOMPARE(ErrorOf([&] { MinCurveOutput(points, count); }), 9);
    }
}

void ReferenceCurveTest::a_slot_that_is_not_there_is_out_of_range()
{
    for (int slot : {-1, 10}) {
        QCOMPARE(ErrorOf([slot] { ResetReferenceCurve(slot, 0); }), 9);
        QCOMPARE(ErrorOf([slot] { FillCurveArrays(slot, 0); }), 9);
        QCOMPARE(ErrorOf([slot] { BuildReferenceCurve(slot); }), 9);
    }
}

void ReferenceCurveTest::a_reset_empties_all_slots()
{
    ResetReferenceCurve(9, 7);
    PutRows(9, 2, Line);
    BuildReferenceCurve(9);
    ResetReferenceCurveTable();
    QVERIFY(ReferenceCurves[9].Points.empty());
    QCOMPARE(ReferenceCurves[9].BackColor, 0xFFFFFF);
    QCOMPARE(ReferenceRowsPassed, 0);
}

QTEST_GUILESS_MAIN(ReferenceCurveTest)
#include "tst_reference_curve.moc"
