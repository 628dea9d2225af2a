/// @file
/// Curves of sensors as they exist: thermocouples, resistance thermometers, a pressure transducer.
#include "curve/CurveData.h"
#include "curve/LintabTable.h"
#include "curve/Thermocouple.h"
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Polynomial.h"

#include <QTest>

#include <algorithm>
#include <cstddef>

namespace {

/// Every n-th point, the first included.
std::vector<CurvePoint> EachOf(const std::vector<CurvePoint> &points, std::size_t step)
{
    std::vector<CurvePoint> some;
    for (std::size_t i = 0; i < points.size(); i += step)
        some.push_back(points[i]);
    return some;
}

/// Checks lines through every `step`th point of a table whose points are the truth: a chord is off by at most h^2 / 8
/// times the largest second derivative under it, which second differences of the table give.
void CheckChords(const std::vector<CurvePoint> &table, std::size_t step)
{
    QCOMPARE(OneStretch(EachOf(table, step), Line).Build(), 0);
    double worst = 0;
    for (std::size_t start = 0; start + step < table.size(); start += step) {
        double bend = 0;
        for (std::size_t i = start + 1; i < start + step; ++i) {
            const double left = (table[i].Y - table[i - 1].Y) / (table[i].X - table[i - 1].X);
            const double right = (table[i + 1].Y - table[i].Y) / (table[i + 1].X - table[i].X);
            bend = std::max(bend, std::abs(2 * (right - left) / (table[i + 1].X - table[i - 1].X)));
        }
        const double width = table[start + step].X - table[start].X;
        for (std::size_t i = start; i <= start + step; ++i) {
            const double error = std::abs(SEN_Meas_Z(table[i].X) - table[i].Y);
            // Second differences sample the derivative, so its largest value may lie a little above them.
            QVERIFY(error <= 1.1 * bend * width * width / 8 + 1e-9);
            worst = std::max(worst, error);
        }
    }
    QVERIFY(worst > 1e-3);
}

/// Opens a "Least" stretch at every `rows`th row, but not at the last one.
Table FittedEach(const std::vector<CurvePoint> &points, std::size_t rows)
{
    Table table;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i % rows == 0 && i + 1 < points.size()) {
            table.Open(points[i].X, points[i].Y, Least);
        } else {
            table.Add(points[i].X, points[i].Y);
        }
    }
    return table;
}

double LargestError(const std::vector<CurvePoint> &truth)
{
    double largest = 0;
    for (const CurvePoint &point : truth)
        largest = std::max(largest, std::abs(SEN_Meas_Z(point.X) - point.Y));
    return largest;
}

} // namespace

class TestLintabSensors : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void theReferenceFunctionOfTypeKIsItsTable();
    void thermocouplesByFourFits_data();
    void thermocouplesByFourFits();
    void thermocoupleByLines();
    void thermocoupleByOneFit();
    void platinumByLines();
    void platinumByOneFit();
    void thermistorByLines();
    void thermistorByEightFits();
    void noisyTransducer();
};

void TestLintabSensors::theReferenceFunctionOfTypeKIsItsTable()
{
    const Thermocouple typeK('K');
    for (const CurvePoint &entry : PointsOfFile("type_K_1C.csv", 0, 2))
        QVERIFY(std::abs(typeK.Signal(entry.X) - entry.Y) < 1e-9);
}

void TestLintabSensors::thermocouplesByFourFits_data()
{
    QTest::addColumn<double>("bound");
    // What such a fit is expected to reach, in degrees Celsius.
    QTest::newRow("B") << 0.012;
    QTest::newRow("E") << 0.063;
    QTest::newRow("J") << 0.24;
    QTest::newRow("K") << 0.22;
    QTest::newRow("N") << 0.43;
    QTest::newRow("R") << 0.22;
    QTest::newRow("S") << 0.14;
    QTest::newRow("T") << 0.005;
}

void TestLintabSensors::thermocouplesByFourFits()
{
    QFETCH(double, bound);
    const Thermocouple thermocouple(QTest::currentDataTag()[0]);
    const std::vector<CurvePoint> points = thermocouple.Points(97, thermocouple.Low());
    QCOMPARE(FittedEach(points, 24).Build(), 0);
    QVERIFY(LargestError(thermocouple.Points(20001, thermocouple.Low())) <= 1.5 * bound);
    for (const std::size_t joint : {24, 48, 72}) {
        const double x = points[joint].X;
        for (const double side : {-Infinity, Infinity})
            QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(x, side)) - SEN_Meas_Z(x)) <= 1e-11);
    }
}

void TestLintabSensors::thermocoupleByLines()
{
    std::vector<CurvePoint> table;
    for (const CurvePoint &entry : PointsOfFile("type_K_1C.csv", 0, 2)) {
        if (entry.X >= 0 && entry.X <= 480)
            table.push_back({entry.Y, entry.X});
    }
    QCOMPARE(table.size(), std::size_t(481));
    CheckChords(table, 20);
}

void TestLintabSensors::thermocoupleByOneFit()
{
    const std::string name = "K_25pts_mV_to_C";
    const std::vector<CurvePoint> points = GoldenPoints(name);
    QCOMPARE(OneStretch(points, Least).Build(), 0);
    GoldenFit best;
    best.Press = Infinity;
    for (int degree = 1; degree <= Lintab::HighestPolynomialDegree; ++degree) {
        const GoldenFit fit = GoldenFitOf(name, degree);
        best = fit.Press < best.Press ? fit : best;
    }
    QVERIFY(LargestError(best.Values) <= 1e-12 * 500);
    // Between the points the curve stays within three times what leaving points out says about the fit.
    const double spread = std::sqrt(best.Press / static_cast<double>(points.size()));
    for (const CurvePoint &entry : PointsOfFile("type_K_1C.csv", 0, 2)) {
        if (entry.X >= 0 && entry.X <= 500)
            QVERIFY(std::abs(SEN_Meas_Z(entry.Y) - entry.X) <= 3 * spread);
    }
}

void TestLintabSensors::platinumByLines()
{
    CheckChords(PointsOfFile("pt100_iec60751_1C.csv", 1, 0), 50);
}

void TestLintabSensors::platinumByOneFit()
{
    const std::vector<CurvePoint> table = PointsOfFile("pt100_iec60751_1C.csv", 1, 0);
    // 22 points 50 degrees apart. The best sensors of IEC 60751, class AA, may be off by 0.1 degrees at 0.
    QCOMPARE(OneStretch(EachOf(table, 50), Least).Build(), 0);
    QVERIFY(LargestError(table) <= 0.1);
    // In two stretches they meet at a segment point, and a quarter of it is left.
    QCOMPARE(FittedEach(EachOf(table, 25), 21).Build(), 0);
    QVERIFY(LargestError(table) <= 0.025);
}

void TestLintabSensors::thermistorByLines()
{
    CheckChords(PointsOfFile("ntc10k_steinhart_hart_1C.csv", 1, 0), 5);
}

void TestLintabSensors::thermistorByEightFits()
{
    // From 0.2 to 336 kilohms: one polynomial does not span that.
    const std::vector<CurvePoint> table = PointsOfFile("ntc10k_steinhart_hart_1C.csv", 1, 0);
    QCOMPARE(FittedEach(EachOf(table, 2), 12).Build(), 0);
    QVERIFY(LargestError(table) <= 0.05);
    for (std::size_t i = 1; i < table.size(); ++i)
        QVERIFY(SEN_Meas_Z(table[i].X) < SEN_Meas_Z(table[i - 1].X));
}

// 16 points of a real calibration.
void TestLintabSensors::noisyTransducer()
{
    const std::vector<CurvePoint> points = PointsOfFile("pressure_transducer_manometer.csv", 0, 1);
    QCOMPARE(points.size(), std::size_t(16));
    QCOMPARE(OneStretch(points, Least).Build(), 0);
    const Lintab::LeastSquares fits(points);
    const double noise = fits.LeaveOneOutError(fits.BestDegree());
    QVERIFY(fits.BestDegree() <= 3 && noise < 0.03);
    QVERIFY(LargestError(points) <= 3 * noise);
    double previous = -Infinity;
    const double width = points.back().X - points.front().X;
    for (const double share : Steps(-1, 2, 1e-3)) {
        const double value = SEN_Meas_Z(points.front().X + share * width);
        QVERIFY(value > previous);
        previous = value;
    }
}

QTEST_GUILESS_MAIN(TestLintabSensors)
#include "tst_lintab_sensors.moc"
