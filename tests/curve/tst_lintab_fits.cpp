/// @file
/// The fits of the curve library against numbers computed elsewhere, and how it chooses among them.
#include "curve/LintabTable.h"
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Polynomial.h"

#include <QFile>
#include <QMap>
#include <QTest>

#include <algorithm>
#include <random>

namespace {

double LargestOutput(const std::vector<CurvePoint> &points)
{
    double largest = 0;
    for (const CurvePoint &point : points)
        largest = std::max(largest, std::abs(point.Y));
    return largest;
}

/// Rows of a comma-separated file below its heading.
QList<QList<QByteArray>> RowsOf(const QString &name)
{
    QFile file(QStringLiteral(OSTRAKON_TEST_DATA "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", qPrintable(file.fileName()));
    file.readLine();
    QList<QList<QByteArray>> rows;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        if (!line.isEmpty())
            rows.append(line.split(','));
    }
    return rows;
}

std::vector<CurvePoint> PointsOfFile(const QString &name, int xColumn, int yColumn)
{
    std::vector<CurvePoint> points;
    for (const QList<QByteArray> &row : RowsOf(name))
        points.push_back({row.at(xColumn).toDouble(), row.at(yColumn).toDouble()});
    std::stable_sort(points.begin(), points.end(), [](const CurvePoint &a, const CurvePoint &b) { return a.X < b.X; });
    return points;
}

std::vector<CurvePoint> GoldenPoints(const QByteArray &name)
{
    std::vector<CurvePoint> points;
    for (const QList<QByteArray> &row : RowsOf(QStringLiteral("golden_points.csv"))) {
        if (row.at(0) == name)
            points.push_back({row.at(1).toDouble(), row.at(2).toDouble()});
    }
    return points;
}

} // namespace

class TestLintabFits : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void fitsPolynomialsExactly_data();
    void fitsPolynomialsExactly();
    void agreesWithCertifiedFits_data();
    void agreesWithCertifiedFits();
    void agreesWithExactLeastSquares_data();
    void agreesWithExactLeastSquares();
    void candidateDegrees_data();
    void candidateDegrees();
    void choosesTheSmallestGoodDegree();
    void choosesByLeavingPointsOut();
    void roundingAddsNoDegree();
    void inputsEqualButForRoundingAddNoDegree();
    void monotonePointsGetAMonotoneFit();
    void monotoneMeansEverywhere();
    void scaleOfTheTableDoesNotMatter();

    void thermocoupleByLines();
    void thermocoupleByLeastSquares();
};

void TestLintabFits::fitsPolynomialsExactly_data()
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
void TestLintabFits::fitsPolynomialsExactly()
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
    const double bound = 1e-12 * LargestOutput(points);
    for (int i = 0; i <= 400; ++i) {
        const double x = points.front().X + (points.back().X - points.front().X) * i / 400;
        QVERIFY(std::abs(SEN_Meas_Z(x) - exact(x)) <= bound);
    }
}

void TestLintabFits::agreesWithCertifiedFits_data()
{
    QTest::addColumn<int>("degree");
    QTest::newRow("Norris") << 1;
    QTest::newRow("Wampler1") << 5;
    QTest::newRow("Wampler5") << 5;
}

void TestLintabFits::agreesWithCertifiedFits()
{
    QFETCH(int, degree);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const std::vector<CurvePoint> points = PointsOfFile(name + QStringLiteral(".csv"), 1, 0);
    const std::vector<CurvePoint> fit = PointsOfFile(name + QStringLiteral("_golden_fit.csv"), 0, 1);
    QVERIFY(points.size() > 20 && fit.size() > 40);
    const Lintab::Polynomial polynomial = Lintab::LeastSquares(points).OfDegree(degree);
    const double bound = 1e-12 * LargestOutput(points);
    for (const CurvePoint &point : fit)
        QVERIFY(std::abs(Lintab::ValueAt(polynomial, point.X) - point.Y) <= bound);
}

void TestLintabFits::agreesWithExactLeastSquares_data()
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

void TestLintabFits::agreesWithExactLeastSquares()
{
    QFETCH(QByteArray, name);
    QFETCH(int, degree);
    const std::vector<CurvePoint> points = GoldenPoints(name);
    const Lintab::LeastSquares fits(points);
    QVERIFY(fits.HighestDegree() >= degree);
    const Lintab::Polynomial polynomial = fits.OfDegree(degree);
    const double bound = 1e-12 * LargestOutput(points);
    int compared = 0;
    for (const QList<QByteArray> &row : RowsOf(QStringLiteral("golden_least_squares.csv"))) {
        if (row.at(0) != name || row.at(3).toInt() != degree)
            continue;
        const double x = row.at(5).toDouble();
        const double expected = row.at(6).toDouble();
        ++compared;
        if (row.at(4) == "y") {
            QVERIFY(std::abs(Lintab::ValueAt(polynomial, x) - expected) <= bound);
        } else if (row.at(4) == "slope") {
            // The slope at an end is at most degree^2 / half width times the values (A. A. Markov).
            const double slope = Lintab::SlopeAt(polynomial, x) * polynomial.Scale;
            QVERIFY(std::abs(slope - expected) <= bound * degree * degree / polynomial.HalfWidth);
        } else if (row.at(4) == "press_loo") {
            const double press = std::pow(fits.LeaveOneOutError(degree), 2) * static_cast<double>(points.size());
            QVERIFY(std::abs(press - expected) <= 1e-6 * expected);
        } else {
            --compared;
        }
    }
    QCOMPARE(compared, 14);
}

void TestLintabFits::candidateDegrees_data()
{
    QTest::addColumn<int>("differentX");
    QTest::addColumn<int>("highest");
    // max(0, min(8, floor(2 sqrt(m)) - 1, m - 2)), worked out by hand
    QTest::newRow("1") << 1 << 0;
    QTest::newRow("2") << 2 << 0;
    QTest::newRow("3") << 3 << 1;
    QTest::newRow("4") << 4 << 2;
    QTest::newRow("5") << 5 << 3;
    QTest::newRow("6") << 6 << 3;
    QTest::newRow("7") << 7 << 4;
    QTest::newRow("9") << 9 << 5;
    QTest::newRow("20") << 20 << 7;
    QTest::newRow("21") << 21 << 8;
    QTest::newRow("500") << 500 << 8;
}

void TestLintabFits::candidateDegrees()
{
    QFETCH(int, differentX);
    std::vector<CurvePoint> points;
    for (int i = 0; i < differentX; ++i) {
        points.push_back({i * 0.7, i % 5 * 1.0});
        points.push_back({i * 0.7, i % 3 * 1.0});
    }
    QTEST(Lintab::LeastSquares(points).HighestDegree(), "highest");
}

// The leave-one-out sums come from the exact table; the choice among them is made here by its rule.
void TestLintabFits::choosesTheSmallestGoodDegree()
{
    const QList<QList<QByteArray>> rows = RowsOf(QStringLiteral("golden_least_squares.csv"));
    for (const char *name : {"K_25pts_mV_to_C", "S_6pts", "tiny_x_1e-9_30pts"}) {
        const std::vector<CurvePoint> points = GoldenPoints(name);
        const Lintab::LeastSquares fits(points);
        double least = Infinity;
        QMap<int, double> press;
        for (const QList<QByteArray> &row : rows) {
            if (row.at(0) == name && row.at(4) == "press_loo" && row.at(3).toInt() <= fits.HighestDegree()) {
                press[row.at(3).toInt()] = row.at(6).toDouble();
                least = std::min(least, row.at(6).toDouble());
            }
        }
        int expected = 0;
        for (auto degree = press.cbegin(); expected == 0; ++degree)
            expected = degree.value() <= 1.05 * least ? degree.key() : 0;
        QCOMPARE(fits.BestDegree(), expected);
    }
}

// The leave-one-out sums come from as many fits, each really without one of the points.
void TestLintabFits::choosesByLeavingPointsOut()
{
    std::mt19937_64 random(5);
    int nearMisses = 0;
    for (int round = 0; round < 60; ++round) {
        std::vector<CurvePoint> points;
        for (int i = 0; i < 30; ++i) {
            const double noise = static_cast<double>(random() >> 11) * 0x1p-53;
            points.push_back({i * 0.1, std::sin(i * 0.1 * (1 + round % 3)) + noise});
        }
        std::vector<double> press(Lintab::HighestPolynomialDegree + 1);
        for (std::size_t left = 0; left < points.size(); ++left) {
            std::vector<CurvePoint> others = points;
            others.erase(others.begin() + static_cast<std::ptrdiff_t>(left));
            const Lintab::LeastSquares fits(others);
            QCOMPARE(fits.HighestDegree(), Lintab::HighestPolynomialDegree);
            for (int degree = 0; degree <= fits.HighestDegree(); ++degree) {
                const double fitted = Lintab::ValueAt(fits.OfDegree(degree), points[left].X);
                press[degree] += std::pow(points[left].Y - fitted, 2);
            }
        }
        const double least = *std::min_element(press.begin(), press.end());
        int expected = 0;
        while (press[expected] > 1.05 * least)
            ++expected;
        const Lintab::LeastSquares fits(points);
        QCOMPARE(fits.BestDegree(), expected);
        for (int degree = 0; degree <= Lintab::HighestPolynomialDegree; ++degree) {
            const double reported = std::pow(fits.LeaveOneOutError(degree), 2) * 30;
            QVERIFY(std::abs(reported - press[degree]) < 1e-9 * press[degree]);
        }
        nearMisses += press[expected] > least ? 1 : 0;
        nearMisses += expected > 0 && press[expected - 1] < 1.2 * least ? 1 : 0;
    }
    QVERIFY(nearMisses > 10);
}

void TestLintabFits::roundingAddsNoDegree()
{
    // Exact data of a low degree, where only rounding tells the higher degrees apart.
    for (int degree = 0; degree <= 4; ++degree) {
        std::vector<CurvePoint> points;
        for (int i = 0; i < 40; ++i)
            points.push_back({0.1 * i, std::pow(0.1 * i, degree) / 3});
        QCOMPARE(Lintab::LeastSquares(points).BestDegree(), degree);
    }
}

void TestLintabFits::inputsEqualButForRoundingAddNoDegree()
{
    const std::vector<CurvePoint> points = {{0, 0}, {0, 1}, {0, 2}, {1, 7}, {1 + 0x1p-52, 8}, {1 + 0x1p-51, 9}};
    QCOMPARE(Lintab::LeastSquares(points).HighestDegree(), 1);
    QCOMPARE(OneStretch(points, Least).Build(), 0);
    // The line through the means of both ends.
    QVERIFY(std::abs(SEN_Meas_Z(0) - 1) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(0.5) - 4.5) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(1) - 8) < 1e-12);
}

void TestLintabFits::monotonePointsGetAMonotoneFit()
{
    // A step and a knee, which polynomials overshoot.
    const auto step = [](double x) { return x < 0 ? 0.0 : 1.0; };
    const auto knee = [](double x) { return x < 0 ? 0.0 : 50 * x; };
    const auto level = [](double x) { return -std::atan(8 * x); };
    int lowered = 0;
    for (double (*function)(double) : {+step, +knee, +level}) {
        const std::vector<CurvePoint> points = PointsOn(function, -1, 0.05, 41);
        const double direction = points.back().Y > points.front().Y ? 1 : -1;
        const Lintab::LeastSquares fits(points);
        lowered += fits.Best().Degree < fits.BestDegree() ? 1 : 0;
        QCOMPARE(OneStretch(points, Least).Build(), 0);
        double previous = SEN_Meas_Z(-1);
        for (int i = 1; i <= 4000; ++i) {
            const double value = SEN_Meas_Z(-1 + i / 2000.0);
            QVERIFY(direction * (value - previous) >= -1e-9 * LargestOutput(points));
            previous = value;
        }
    }
    QVERIFY(lowered > 0);
    // Points that turn round keep the degree that they ask for.
    const Lintab::LeastSquares parabola(PointsOn([](double x) { return x * x; }, -2, 0.25, 17));
    QCOMPARE(parabola.Best().Degree, 2);
}

void TestLintabFits::monotoneMeansEverywhere()
{
    // u^3/3 - a u has the slope u^2 - a; as a Chebyshev series, u^3 = (3 T1 + T3) / 4.
    const auto cubic = [](double a) {
        Lintab::Polynomial polynomial;
        polynomial.HalfWidth = 1;
        polynomial.Degree = 3;
        polynomial.Coefficients = {0, 0.25 - a, 0, 1.0 / 12};
        return polynomial;
    };
    QVERIFY(Lintab::IsMonotone(cubic(-0.1), 1));
    QVERIFY(Lintab::IsMonotone(cubic(0), 1));
    QVERIFY(!Lintab::IsMonotone(cubic(1e-6), 1));
    QVERIFY(!Lintab::IsMonotone(cubic(0), -1));
    QVERIFY(Lintab::IsMonotone(cubic(1), -1));
    QVERIFY(!Lintab::IsMonotone(cubic(0.999), -1));
}

// Powers of two as units of x and y leave every bit of the curve as it is.
void TestLintabFits::scaleOfTheTableDoesNotMatter()
{
    const std::vector<CurvePoint> points = PointsOn([](double x) { return std::exp(-x); }, 0.5, 0.5, 12);
    QCOMPARE(OneStretch(points, Least).Build(), 0);
    std::vector<double> plain;
    for (const double x : Steps(-1, 9, 0.25))
        plain.push_back(SEN_Meas_Z(x));
    for (const int power : {-900, -300, 300, 900}) {
        for (const int powerY : {-900, 900}) {
            std::vector<CurvePoint> scaled = points;
            for (CurvePoint &point : scaled)
                point = {std::ldexp(point.X, power), std::ldexp(point.Y, powerY)};
            QCOMPARE(OneStretch(scaled, Least).Build(), 0);
            std::size_t i = 0;
            for (const double x : Steps(-1, 9, 0.25))
                QCOMPARE(SEN_Meas_Z(std::ldexp(x, power)), std::ldexp(plain[i++], powerY));
        }
    }
}

// 25 points each 20 degrees: a chord is off by at most h^2 / 8 times the largest second derivative over it, which
// second differences of the table each degree give.
void TestLintabFits::thermocoupleByLines()
{
    const std::vector<CurvePoint> table = PointsOfFile(QStringLiteral("type_K_1C.csv"), 0, 2);
    const auto at = [&table](int degrees) { return table[degrees + 270]; };
    QCOMPARE(at(0).X, 0.0);
    std::vector<CurvePoint> points;
    for (int t = 0; t <= 480; t += 20)
        points.push_back({at(t).Y, at(t).X});
    QCOMPARE(points.size(), std::size_t(25));
    QCOMPARE(OneStretch(points, Line).Build(), 0);
    double worst = 0;
    for (int start = 0; start < 480; start += 20) {
        double bend = 0;
        for (int t = start + 1; t < start + 20; ++t) {
            const double left = 1 / (at(t).Y - at(t - 1).Y);
            const double right = 1 / (at(t + 1).Y - at(t).Y);
            bend = std::max(bend, std::abs(2 * (right - left) / (at(t + 1).Y - at(t - 1).Y)));
        }
        const double width = at(start + 20).Y - at(start).Y;
        for (int t = start; t <= start + 20; ++t) {
            const double error = std::abs(SEN_Meas_Z(at(t).Y) - t);
            // The second differences sample the derivative, so its largest value may lie a little above them.
            QVERIFY(error <= 1.1 * bend * width * width / 8 + 1e-9);
            worst = std::max(worst, error);
        }
    }
    QVERIFY(worst > 1e-3);
}

void TestLintabFits::thermocoupleByLeastSquares()
{
    const QByteArray name = "K_25pts_mV_to_C";
    const std::vector<CurvePoint> points = GoldenPoints(name);
    QCOMPARE(OneStretch(points, Least).Build(), 0);
    double least = Infinity;
    QByteArray best;
    for (const QList<QByteArray> &row : RowsOf(QStringLiteral("golden_least_squares.csv"))) {
        if (row.at(0) == name && row.at(4) == "press_loo" && row.at(6).toDouble() < least) {
            least = row.at(6).toDouble();
            best = row.at(3);
        }
    }
    for (const QList<QByteArray> &row : RowsOf(QStringLiteral("golden_least_squares.csv"))) {
        if (row.at(0) == name && row.at(3) == best && row.at(4) == "y")
            QVERIFY(std::abs(SEN_Meas_Z(row.at(5).toDouble()) - row.at(6).toDouble()) <= 1e-12 * 500);
    }
    // Between the points the curve stays within three times what leaving points out says about the fit.
    const double spread = std::sqrt(least / static_cast<double>(points.size()));
    for (const CurvePoint &entry : PointsOfFile(QStringLiteral("type_K_1C.csv"), 0, 2)) {
        if (entry.X >= 0 && entry.X <= 500)
            QVERIFY(std::abs(SEN_Meas_Z(entry.Y) - entry.X) <= 3 * spread);
    }
}

QTEST_GUILESS_MAIN(TestLintabFits)
#include "tst_lintab_fits.moc"
