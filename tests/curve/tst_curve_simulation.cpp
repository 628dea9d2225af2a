/// @file
/// The simulated curve: which columns and points are in view, what is sampled, and where stretches begin.
#include "curve/CurveSimulation.h"
#include "support/ErrorOf.h"

#include <QTest>

#include <limits>
#include <utility>

namespace {

constexpr int Width = 100;

struct Row {
    double X = 0;
    double Y = 0;
    std::uint8_t Segment = 0;
    std::uint8_t Arithmetic = 0;
};

/// A table with the arrays that a view looks at.
class Table {
public:
    explicit Table(const std::vector<Row> &rows)
    {
        for (const Row &row : rows) {
            m_points.push_back({row.X, row.Y});
            m_flags.push_back({row.Arithmetic, row.Segment});
        }
    }

    CurveView View(double xMin, double xMax) const
    {
        return {m_points, m_flags, static_cast<std::int32_t>(m_points.size()), xMin, xMax};
    }

    std::uint8_t Build() const
    {
        return SEN_NewBuild_Z(static_cast<std::int32_t>(m_points.size()), m_points.data(), m_flags.data());
    }

private:
    std::vector<CurvePoint> m_points;
    std::vector<CurveFlag> m_flags;
};

/// Stretches as pairs of column and arithmetic.
using Stretches = QList<std::pair<int, int>>;

Stretches StretchesOf(const CurveSimulation &simulation)
{
    Stretches found;
    for (const CurveStretch &stretch : simulation.Stretches)
        found.append({stretch.Column, stretch.Arithmetic});
    return found;
}

} // namespace

Q_DECLARE_METATYPE(Row)

class CurveSimulationTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void points_in_view_data();
    void points_in_view();
    void a_count_beyond_the_arrays_is_out_of_range();
    void columns_data();
    void columns();
    void points_follow_the_curve_of_the_library();
    void points_follow_the_columns_of_a_shifted_view();
    void without_a_curve_all_points_are_zero();
    void a_least_squares_curve_overshoots_its_points();
    void unusable_numbers_raise_errors_data();
    void unusable_numbers_raise_errors();
    void a_short_list_of_flags_is_out_of_range();
    void stretches_begin_at_the_segment_columns_data();
    void stretches_begin_at_the_segment_columns();
};

void CurveSimulationTest::init()
{
    SEN_Free();
}

void CurveSimulationTest::points_in_view_data()
{
    QTest::addColumn<QList<double>>("inputs");
    QTest::addColumn<double>("xMin");
    QTest::addColumn<double>("xMax");
    QTest::addColumn<bool>("any");
    QTest::addColumn<int>("first"); // -1 for an error
    QTest::addColumn<int>("last");
    const QList<double> four{0, 10, 20, 30};
    QTest::newRow("the whole table") << four << 0.0 << 30.0 << true << 0 << 3;
    QTest::newRow("wider than the table") << four << -5.0 << 35.0 << true << 0 << 3;
    QTest::newRow("the middle") << four << 5.0 << 25.0 << true << 1 << 2;
    QTest::newRow("limits on points") << four << 10.0 << 20.0 << true << 1 << 2;
    QTest::newRow("between two points") << four << 11.0 << 19.0 << true << 2 << 1;
    QTest::newRow("table above the view") << four << -20.0 << -1.0 << false << -1 << -1;
    QTest::newRow("table below the view") << four << 31.0 << 40.0 << false << -1 << -1;
    QTest::newRow("the first point on the right edge") << four << -20.0 << 0.0 << true << 0 << 0;
    QTest::newRow("the last point on the left edge") << four << 30.0 << 40.0 << true << 3 << 3;
    QTest::newRow("equal inputs") << QList<double>{0, 10, 10, 20} << 10.0 << 10.0 << true << 1 << 2;
    QTest::newRow("one point") << QList<double>{7} << 7.0 << 7.0 << true << 0 << 0;
    QTest::newRow("a higher one ends the search") << QList<double>{0, 50, 10} << 0.0 << 20.0 << true << 0 << 0;
}

void CurveSimulationTest::points_in_view()
{
    QFETCH(QList<double>, inputs);
    QFETCH(double, xMin);
    QFETCH(double, xMax);
    QFETCH(int, first);
    QFETCH(int, last);
    std::vector<Row> rows;
    for (double input : inputs)
        rows.push_back({input, 0});
    const Table table(rows);
    QTEST(AnyPointInView(table.View(xMin, xMax)), "any");
    if (first < 0) {
        QCOMPARE(ErrorOf([&] { FindPointsInView(table.View(xMin, xMax)); }), 9);
        return;
    }
    const PointsInView range = FindPointsInView(table.View(xMin, xMax));
    QCOMPARE(range.First, first);
    QCOMPARE(range.Last, last);
}

void CurveSimulationTest::a_count_beyond_the_arrays_is_out_of_range()
{
    const Table table({{0, 0, 1}, {10, 10}});
    for (int count : {-1, 0, 3, std::numeric_limits<int>::max()}) {
        CurveView view = table.View(0, 10);
        view.Count = count;
        QCOMPARE(ErrorOf([&] { AnyPointInView(view); }), 9);
        QCOMPARE(ErrorOf([&] { FindPointsInView(view); }), 9);
        QCOMPARE(ErrorOf([&] { SimulateCurve(view, Width); }), 9);
    }
}

void CurveSimulationTest::columns_data()
{
    QTest::addColumn<double>("xMin");
    QTest::addColumn<double>("xMax");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    // Points at 0, 5 and 10; the picture is 100 pixels wide.
    QTest::newRow("the range of the points") << 0.0 << 10.0 << 0 << 100;
    QTest::newRow("room at the left") << -10.0 << 10.0 << 50 << 100;
    QTest::newRow("room at the right") << 0.0 << 20.0 << 0 << 50;
    QTest::newRow("room at both sides") << -10.0 << 30.0 << 25 << 50;
    QTest::newRow("the first point cut off") << 1.0 << 10.0 << 0 << 100;
    QTest::newRow("the last point cut off") << 0.0 << 9.0 << 0 << 99;
    QTest::newRow("both cut off") << 2.0 << 8.0 << 0 << 99;
    QTest::newRow("cut off at the left, room at the right") << 5.0 << 15.0 << 0 << 50;
    QTest::newRow("a half goes down to the even column") << -0.3125 << 12.1875 << 2 << 82; // 2.5 and 82.5
    QTest::newRow("a half goes up to the even column") << -0.4375 << 12.0625 << 4 << 84;   // 3.5 and 83.5
}

void CurveSimulationTest::columns()
{
    QFETCH(double, xMin);
    QFETCH(double, xMax);
    QFETCH(int, first);
    QFETCH(int, last);
    const Table table({{0, 0, 1}, {5, 5}, {10, 10}});
    const CurveSimulation simulation = SimulateCurve(table.View(xMin, xMax), Width);
    QCOMPARE(simulation.FirstColumn, first);
    QCOMPARE(simulation.LastColumn, last);
    QCOMPARE(static_cast<int>(simulation.Simulated.size()), last - first + 1);
}

void CurveSimulationTest::points_follow_the_curve_of_the_library()
{
    const Table table({{0, 1, 1}, {50, 101}}); // y = 2 x + 1
    QCOMPARE(int{table.Build()}, 0);
    const CurveSimulation simulation = SimulateCurve(table.View(0, 50), Width);
    QCOMPARE(simulation.Simulated.size(), std::size_t{101});
    for (int i = 0; i <= 100; ++i) {
        QCOMPARE(simulation.Simulated[i].X, i * 0.5);
        QCOMPARE(simulation.Simulated[i].Y, i + 1.0);
    }
}

void CurveSimulationTest::points_follow_the_columns_of_a_shifted_view()
{
    const Table table({{0, 1, 1}, {50, 101}});
    table.Build();
    const CurveSimulation simulation = SimulateCurve(table.View(-50, 150), Width); // 2 units a column
    QCOMPARE(simulation.FirstColumn, 25);
    QCOMPARE(simulation.LastColumn, 50);
    for (int i = 0; i <= 25; ++i) {
        QCOMPARE(simulation.Simulated[i].X, i * 2.0);
        QCOMPARE(simulation.Simulated[i].Y, i * 4.0 + 1);
    }
}

void CurveSimulationTest::without_a_curve_all_points_are_zero()
{
    const Table table({{0, 1, 1}, {50, 101}});
    for (const CurvePoint &point : SimulateCurve(table.View(0, 50), Width).Simulated)
        QCOMPARE(point.Y, 0.0);
}

void CurveSimulationTest::a_least_squares_curve_overshoots_its_points()
{
    const Table table(
        {{0, 0.5, 1, 1}, {10, 1.9, 0, 1}, {20, 4, 0, 1}, {30, 6, 0, 1}, {40, 8.1, 0, 1}, {50, 9.5, 0, 1}});
    QCOMPARE(int{table.Build()}, 0);
    const CurveSimulation simulation = SimulateCurve(table.View(0, 50), Width);
    for (int i = 0; i <= 100; ++i)
        QCOMPARE(simulation.Simulated[i].Y, SEN_Meas_Z(i * 0.5));
    const double top = MaxCurveOutput(simulation.Simulated, 101);
    const double low = MinCurveOutput(simulation.Simulated, 101);
    QVERIFY2(top > 9.5 || low < 0.5, qPrintable(QStringLiteral("%1 to %2").arg(low).arg(top)));
}

void CurveSimulationTest::unusable_numbers_raise_errors_data()
{
    QTest::addColumn<QList<double>>("inputs");
    QTest::addColumn<double>("xMin");
    QTest::addColumn<double>("xMax");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("error");
    constexpr double huge = 1.7e308;
    QTest::newRow("no horizontal range") << QList<double>{5, 5} << 5.0 << 5.0 << Width << 11;
    QTest::newRow("a picture without width") << QList<double>{0, 10} << 0.0 << 10.0 << 0 << 11;
    QTest::newRow("a range beyond double") << QList<double>{-huge, huge} << -huge << huge << Width << 6;
    QTest::newRow("a scale beyond double") << QList<double>{0, 1e-320} << 0.0 << 1e-320 << Width << 6;
    QTest::newRow("no point in view") << QList<double>{0, 10} << 20.0 << 30.0 << Width << 9;
    QTest::newRow("inputs that fall") << QList<double>{5, 3, 1} << 1.0 << 5.0 << Width << 9;
    QTest::newRow("a segment column beyond 32 bits") << QList<double>{0, 1e12, 1} << 0.0 << 1.0 << Width << 6;
}

void CurveSimulationTest::unusable_numbers_raise_errors()
{
    QFETCH(QList<double>, inputs);
    QFETCH(double, xMin);
    QFETCH(double, xMax);
    QFETCH(int, width);
    std::vector<Row> rows;
    for (double input : inputs)
        rows.push_back({input, 0, 1});
    const Table table(rows);
    QTEST(ErrorOf([&] { SimulateCurve(table.View(xMin, xMax), width); }), "error");
}

void CurveSimulationTest::a_short_list_of_flags_is_out_of_range()
{
    const Table table({{0, 0, 1}, {10, 10}});
    CurveView view = table.View(0, 10);
    view.Flags = view.Flags.first(1);
    QCOMPARE(ErrorOf([&] { SimulateCurve(view, Width); }), 9);
}

void CurveSimulationTest::stretches_begin_at_the_segment_columns_data()
{
    QTest::addColumn<QList<Row>>("rows");
    QTest::addColumn<double>("xMin");
    QTest::addColumn<double>("xMax");
    QTest::addColumn<Stretches>("stretches");
    // One unit a column in the range 0 to 100.
    QTest::newRow("one straight stretch")
        << QList<Row>{{0, 0, 1, 0}, {50, 0, 0, 1}, {100, 0, 0, 1}} << 0.0 << 100.0 << Stretches{{0, 0}};
    QTest::newRow("one least squares stretch")
        << QList<Row>{{0, 0, 1, 1}, {100, 0, 0, 0}} << 0.0 << 100.0 << Stretches{{0, 1}};
    QTest::newRow("three") << QList<Row>{{0, 0, 1, 0}, {30, 0, 1, 1}, {60, 0, 1, 0}, {100, 0, 0, 0}} << 0.0 << 100.0
                           << Stretches{{0, 0}, {30, 1}, {60, 0}};
    QTest::newRow("the last segment point of column 0 opens")
        << QList<Row>{{0, 0, 1, 0}, {0.25, 0, 1, 1}, {100, 0, 0, 0}} << 0.0 << 100.0 << Stretches{{0, 1}};
    QTest::newRow("two segment points in one column, in order")
        << QList<Row>{{0, 0, 1, 0}, {40, 0, 1, 1}, {40.25, 0, 1, 0}, {100, 0, 0, 0}} << 0.0 << 100.0
        << Stretches{{0, 0}, {40, 1}, {40, 0}};
    QTest::newRow("a half column goes to the even one")
        << QList<Row>{{0, 0, 1, 0}, {12.5, 0, 1, 1}, {13.5, 0, 1, 0}, {100, 0, 0, 0}} << 0.0 << 100.0
        << Stretches{{0, 0}, {12, 1}, {14, 0}};
    QTest::newRow("column 1 opens") << QList<Row>{{0, 0, 1, 0}, {1, 0, 1, 1}, {100, 0, 0, 0}} << 0.0 << 100.0
                                    << Stretches{{0, 0}, {1, 1}};
    QTest::newRow("the last but one column opens")
        << QList<Row>{{0, 0, 1, 0}, {99, 0, 1, 1}, {100, 0, 0, 0}} << 0.0 << 100.0 << Stretches{{0, 0}, {99, 1}};
    QTest::newRow("the last column opens none")
        << QList<Row>{{0, 0, 1, 0}, {100, 0, 1, 1}} << 0.0 << 100.0 << Stretches{{0, 0}};
    QTest::newRow("nor does it when the table goes on")
        << QList<Row>{{0, 0, 1, 0}, {98, 0, 1, 1}, {99, 0, 1, 0}, {200, 0, 0, 0}} << 0.0 << 100.0
        << Stretches{{0, 0}, {98, 1}};
    QTest::newRow("a segment point left of the view opens")
        << QList<Row>{{-50, 0, 1, 0}, {-20, 0, 1, 1}, {50, 0, 1, 0}, {100, 0, 0, 0}} << 0.0 << 100.0
        << Stretches{{0, 1}, {50, 0}};
    QTest::newRow("with a first column of 10 the boundaries shift left by it")
        << QList<Row>{{0, 0, 1, 1}, {30, 0, 1, 0}, {90, 0, 0, 0}} << -10.0 << 90.0 << Stretches{{10, 1}, {30, 0}};
    QTest::newRow("no segment point") << QList<Row>{{0, 0, 0, 1}, {100, 0, 0, 1}} << 0.0 << 100.0 << Stretches{{0, 0}};
    QTest::newRow("rows out of order go by their columns")
        << QList<Row>{{0, 0, 1, 0}, {60, 0, 1, 1}, {20, 0, 1, 0}, {100, 0, 0, 0}} << 0.0 << 100.0
        << Stretches{{0, 0}, {20, 0}, {60, 1}};
}

void CurveSimulationTest::stretches_begin_at_the_segment_columns()
{
    QFETCH(QList<Row>, rows);
    QFETCH(double, xMin);
    QFETCH(double, xMax);
    QFETCH(Stretches, stretches);
    const Table table(std::vector<Row>(rows.begin(), rows.end()));
    QCOMPARE(StretchesOf(SimulateCurve(table.View(xMin, xMax), Width)), stretches);
}

QTEST_GUILESS_MAIN(CurveSimulationTest)
#include "tst_curve_simulation.moc"
