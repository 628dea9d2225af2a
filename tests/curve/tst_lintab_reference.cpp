/// @file
/// The fits of the curve library against numbers computed elsewhere.
#include "curve/CurveData.h"
#include "curve/LintabTable.h"
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Polynomial.h"

#include <QTest>

#include <algorithm>
#include <cstddef>

class TestLintabReference : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void fitsPolynomialsExactly_data();
    void fitsPolynomialsExactly();
    void fitsManyEqualOutputsToTheLastPlace();
    void agreesWithCertifiedFits_data();
    void agreesWithCertifiedFits();
    void agreesWithExactLeastSquares_data();
    void agreesWithExactLeastSquares();
    void scaleOfTheTableDoesNotMatter();
};

void TestLintabReference::fitsPolynomialsExactly_data()
{
    QTest::addColumn<int>("degree");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("width");
    for (int degree = 0; degree <= Lintab::HighestPolynomialDegree; ++degree) {
        for (const int count : {5, 10, 25, 500}) {
            const int highest =
                std::max(0, std::min({8, int(std::floor(2 * std::sqrt(double(count)))) - 1, count - 2}));
            if (degree > highest)
                continue;
            QTest::addRow("degree %d, %d points at 0", degree, count) << degree << count << 0.0 << 20.0;
            QTest::addRow("degree %d, %d points at 1e4", degree, count) << degree << count << 1e4 << 0x1p-3 * count;
        }
    }
}

// Polynomials in w = (x - from) / width with alternating coefficients; the x are exact in the second kind of row.
void TestLintabReference::fitsPolynomialsExactly()
{
    QFETCH(int, degree);
    QFETCH(int, count);
    QFETCH(double, from);
    QFETCH(double, width);
    const auto exact = [=](double x) {
        const long double w = (static_cast<long double>(x) - from) / width;
        long double sum = 0;
        for (int k = degree; k >= 0; --k)
            sum = sum * w + (k % 2 == 0 ? 1 : -1) * (1 + k);
        return static_cast<double>(sum);
    };
    std::vector<CurvePoint> points;
    for (int i = 0; i < count; ++i) {
        const double x = from + width * i / count;
        points.push_back({x, exact(x)});
    }
    QCOMPARE(OneStretch(points, Least).Build(), 0);
    const double bound = 1e-14 * LargestOutput(points);
    for (int i = 0; i <= 400; ++i) {
        const double x = points.front().X + (points.back().X - points.front().X) * i / 400;
        QVERIFY(std::abs(SEN_Meas_Z(x) - exact(x)) <= bound);
    }
}

// Sums over many points round further away; the bound is about two units of the last place.
void TestLintabReference::fitsManyEqualOutputsToTheLastPlace()
{
    for (const double output : {0.1, 1.0 / 3, 0.7, 1e5 / 3}) {
        for (const int count : {100, 500}) {
            std::vector<CurvePoint> points;
            for (int i = 0; i < count; ++i)
                points.push_back({0.1 * i, output});
            QCOMPARE(OneStretch(points, Least).Build(), 0);
            for (const double x : Steps(0, 0.1 * count, 0.05))
                QVERIFY(std::abs(SEN_Meas_Z(x) - output) <= 5e-16 * output);
        }
    }
}

void TestLintabReference::agreesWithCertifiedFits_data()
{
    QTest::addColumn<int>("degree");
    QTest::newRow("Norris") << 1;
    QTest::newRow("Wampler1") << 5;
    QTest::newRow("Wampler5") << 5;
}

void TestLintabReference::agreesWithCertifiedFits()
{
    QFETCH(int, degree);
    const std::string name = QTest::currentDataTag();
    const std::vector<CurvePoint> points = PointsOfFile(name + ".csv", 1, 0);
    const std::vector<CurvePoint> fit = PointsOfFile(name + "_golden_fit.csv", 0, 1);
    QVERIFY(points.size() > 20 && fit.size() > 40);
    const Lintab::Polynomial polynomial = Lintab::LeastSquares(points).OfDegree(degree);
    const double bound = 1e-14 * LargestOutput(points);
    for (const CurvePoint &point : fit)
        QVERIFY(std::abs(Lintab::ValueAt(polynomial, point.X) - point.Y) <= bound);
}

void TestLintabReference::agreesWithExactLeastSquares_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("degree");
    const auto add = [](const char *name, int highest) {
        for (int degree = 1; degree <= highest; ++degree)
            QTest::addRow("%s, degree %d", name, degree) << QByteArray(name) << degree;
    };
    add("K_25pts_mV_to_C", 8);
    add("S_6pts", 3);
    add("alldup_but_6", 3);
    add("tiny_x_1e-9_30pts", 8);
}

void TestLintabReference::agreesWithExactLeastSquares()
{
    QFETCH(QByteArray, name);
    QFETCH(int, degree);
    const std::vector<CurvePoint> points = GoldenPoints(name.toStdString());
    const GoldenFit golden = GoldenFitOf(name.toStdString(), degree);
    QVERIFY(golden.Values.size() == 11 && golden.Slopes.size() == 2 && golden.Press > 0);
    const Lintab::LeastSquares fits(points);
    QVERIFY(fits.HighestDegree() >= degree);
    const Lintab::Polynomial polynomial = fits.OfDegree(degree);

    const double bound = 1e-14 * LargestOutput(points);
    for (const CurvePoint &value : golden.Values)
        QVERIFY(std::abs(Lintab::ValueAt(polynomial, value.X) - value.Y) <= bound);
    for (const CurvePoint &slope : golden.Slopes) {
        const double found = Lintab::SlopeAt(polynomial, slope.X) * polynomial.Frame.Scale;
        QVERIFY(std::abs(found - slope.Y) <= 1e-10 * LargestOutput(golden.Slopes));
    }
    const double press = fits.LeaveOneOutError(degree) * std::sqrt(static_cast<double>(points.size()));
    QVERIFY(std::abs(press - std::sqrt(golden.Press)) <= bound);
}

// Powers of two as units of x and y leave every bit of the curve as it is.
void TestLintabReference::scaleOfTheTableDoesNotMatter()
{
    const std::vector<CurvePoint> points = PointsOn([](double x) { return std::exp(-x); }, 0.5, 0.5, 12);
    Table fitThenLine = OneStretch(points, Least);
    fitThenLine.Flags[7] = {Line, 1};
    // Here only rounding would tell the degrees apart.
    const Table straight = OneStretch(PointsOn([](double x) { return x / 3; }, 0.5, 0.3, 20), Least);
    const std::vector<double> inputs = Steps(-1, 9, 0.25);
    for (const Table &table : {OneStretch(points, Line), OneStretch(points, Least), fitThenLine, straight}) {
        QCOMPARE(table.Build(), 0);
        std::vector<double> plain;
        for (const double x : inputs)
            plain.push_back(SEN_Meas_Z(x));
        for (const int power : {-901, -300, -1, 1, 301, 900}) {
            for (const int powerY : {-900, -101, -1, 1, 100, 901}) {
                Table scaled = table;
                for (CurvePoint &point : scaled.Points)
                    point = {std::ldexp(point.X, power), std::ldexp(point.Y, powerY)};
                QCOMPARE(scaled.Build(), 0);
                for (std::size_t i = 0; i < inputs.size(); ++i)
                    QCOMPARE(MeasuredBits(std::ldexp(inputs[i], power)), BitsOf(std::ldexp(plain[i], powerY)));
            }
        }
    }
}

QTEST_GUILESS_MAIN(TestLintabReference)
#include "tst_lintab_reference.moc"
