/// @file
/// Tests of the curve library through its three operations, and of its fits against numbers computed elsewhere.
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Lintab.h"
#include "curve/lintab/Polynomial.h"

#include <QFile>
#include <QMap>
#include <QProcess>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <random>
#include <vector>

namespace {

std::atomic<bool> watchingAllocations = false;
std::atomic<int> allocationsSeen = 0;
std::atomic<int> allocationsGranted = std::numeric_limits<int>::max(); ///< the next one after these fails

void *CountedAllocation(std::size_t size)
{
    if (watchingAllocations && allocationsSeen++ >= allocationsGranted)
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}

/// While it lives, allocations are counted, and fail once `granted` of them were made.
struct AllocationWatch {
    explicit AllocationWatch(int granted = std::numeric_limits<int>::max())
    {
        allocationsSeen = 0;
        allocationsGranted = granted;
        watchingAllocations = true;
    }
    ~AllocationWatch() { watchingAllocations = false; }
    Q_DISABLE_COPY_MOVE(AllocationWatch)
};

} // namespace

// The library's allocations come here too: a program's own operators stand before those of the standard library.
void *operator new(std::size_t size)
{
    if (void *memory = CountedAllocation(size))
        return memory;
    throw std::bad_alloc();
}
void *operator new[](std::size_t size)
{
    return operator new(size);
}
void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    return CountedAllocation(size);
}
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept
{
    return CountedAllocation(size);
}
void operator delete(void *memory) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory) noexcept
{
    std::free(memory);
}
void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete(void *memory, const std::nothrow_t &) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory, const std::nothrow_t &) noexcept
{
    std::free(memory);
}

namespace {

constexpr std::uint8_t Line = 0;
constexpr std::uint8_t Least = 1;
constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Denormal = std::numeric_limits<double>::denorm_min();

struct Table {
    std::vector<CurvePoint> Points;
    std::vector<CurveFlag> Flags;

    void Add(double x, double y) { AddRow(x, y, Line, 0); }
    void Open(double x, double y, std::uint8_t arithmetic) { AddRow(x, y, arithmetic, 1); }
    std::uint8_t Build() const
    {
        return SEN_NewBuild_Z(static_cast<std::int32_t>(Points.size()), Points.data(), Flags.data());
    }

private:
    void AddRow(double x, double y, std::uint8_t arithmetic, std::uint8_t isSegment)
    {
        Points.push_back({x, y});
        Flags.push_back({arithmetic, isSegment});
    }
};

/// One stretch over all points.
Table OneStretch(const std::vector<CurvePoint> &points, std::uint8_t arithmetic)
{
    Table table;
    for (const CurvePoint &point : points) {
        if (table.Points.empty()) {
            table.Open(point.X, point.Y, arithmetic);
        } else {
            table.Add(point.X, point.Y);
        }
    }
    return table;
}

std::vector<CurvePoint> PointsOn(double (*function)(double), double from, double step, int count)
{
    std::vector<CurvePoint> points;
    for (int i = 0; i < count; ++i)
        points.push_back({from + i * step, function(from + i * step)});
    return points;
}

/// Both ends and what lies between them in even steps.
std::vector<double> Steps(double from, double to, double step)
{
    const auto count = static_cast<std::size_t>(std::floor((to - from) / step)) + 1;
    std::vector<double> steps(count);
    for (std::size_t i = 0; i < count; ++i)
        steps[i] = from + static_cast<double>(i) * step;
    return steps;
}

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

std::uint64_t BitsOf(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

/// Inputs that ought to be no trouble anywhere.
std::vector<double> AwkwardInputs()
{
    return {0.0,    -0.0, 1.0,     -1.0,     Denormal, -Denormal, 1e-300,    1e300,
            -1e300, 1e15, Largest, -Largest, Infinity, -Infinity, NotANumber};
}

} // namespace

class TestLintab : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    // The interface
    void exportsNothingButItsThreeOperations();
    void needsNoAllocatorButThatOfTheLanguage();
    void freeIsHarmlessWhenNoneIsHeld();
    void holdsNoCurveAfterFree();
    void holdsNoCurveOfNoPoints();
    void copiesWhatItNeeds();
    void aNewBuildReplacesTheCurve();
    void measuringAllocatesNothing();
    void failedAllocationGivesOutOfMemory_data();
    void failedAllocationGivesOutOfMemory();

    // Points needed
    void pointsOfALeastStretch_data();
    void pointsOfALeastStretch();
    void twoLineRowsApply();
    void shortLeastStretchBehindALineFails();
    void lastRowAloneAsLeastFails();
    void lastRowAloneAsLineApplies();
    void closingSegmentPointIsFitted();
    void firstRowOpensAStretchWithoutItsFlag();
    void arithmeticInsideAStretchDecidesNothing();

    // Values
    void linePassesThroughItsPoints();
    void lineIsStraightBetweenNeighbours();
    void fallingOutputsApply();
    void equalOutputsGiveThatOutput();
    void lastOfEqualInputsHolds();
    void leastOverOneInputIsTheMean();
    void goesOnStraightOutsideTheSpan();
    void leastGoesOnStraightOutsideTheSpan();
    void notANumberGivesTheFirstPoint();
    void saturatesFarOutside();
    void twoFitsMeetAtTheirMean();
    void fitBesideALineGoesToThePoint();
    void doesNotDependOnEarlierCalls();
    void takesWhatIsNoTableAsWellAsItGoes();
    void finiteForEveryInput_data();
    void finiteForEveryInput();
    void randomTablesKeepThePromises();

    // Fits
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

    // A sensor
    void thermocoupleByLines();
    void thermocoupleByLeastSquares();
};

void TestLintab::exportsNothingButItsThreeOperations()
{
    QProcess nm;
    nm.start(QStringLiteral(NM_PROGRAM), {QStringLiteral("-D"), QStringLiteral("--defined-only"),
                                          QStringLiteral("--format=posix"), QStringLiteral(LINTAB_FILE)});
    QVERIFY(nm.waitForFinished());
    QCOMPARE(nm.exitCode(), 0);
    QList<QByteArray> names;
    for (const QByteArray &line : nm.readAllStandardOutput().trimmed().split('\n'))
        names.append(line.split(' ').first());
    std::sort(names.begin(), names.end());
    QCOMPARE(names, QList<QByteArray>({"SEN_Free", "SEN_Meas_Z", "SEN_NewBuild_Z"}));
}

// What measuringAllocatesNothing counts is all there is: the library calls no C allocator itself.
void TestLintab::needsNoAllocatorButThatOfTheLanguage()
{
    QProcess nm;
    nm.start(QStringLiteral(NM_PROGRAM), {QStringLiteral("-D"), QStringLiteral("--undefined-only"),
                                          QStringLiteral("--format=posix"), QStringLiteral(LINTAB_FILE)});
    QVERIFY(nm.waitForFinished());
    QCOMPARE(nm.exitCode(), 0);
    bool languageAllocatorSeen = false;
    for (const QByteArray &line : nm.readAllStandardOutput().trimmed().split('\n')) {
        const QByteArray name = line.split(' ').first().split('@').first();
        languageAllocatorSeen = languageAllocatorSeen || name.startsWith("_Zn");
        for (const char *other : {"malloc", "calloc", "realloc", "aligned_alloc", "posix_memalign"})
            QVERIFY2(name != other, name.constData());
    }
    QVERIFY(languageAllocatorSeen);
}

void TestLintab::freeIsHarmlessWhenNoneIsHeld()
{
    SEN_Free();
    SEN_Free();
    for (const double x : AwkwardInputs())
        QCOMPARE(SEN_Meas_Z(x), 0.0);
}

void TestLintab::holdsNoCurveAfterFree()
{
    QCOMPARE(OneStretch({{1, 10}, {2, 20}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), 10.0);
    SEN_Free();
    QCOMPARE(SEN_Meas_Z(1), 0.0);
}

void TestLintab::holdsNoCurveOfNoPoints()
{
    const CurvePoint point = {1, 10};
    const CurveFlag flag = {Line, 1};
    const Table held = OneStretch({{1, 10}, {2, 20}}, Line);
    for (const std::int32_t count : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        QCOMPARE(held.Build(), 0);
        QCOMPARE(SEN_NewBuild_Z(count, &point, &flag), 0);
        QCOMPARE(SEN_Meas_Z(1), 0.0);
    }
    QCOMPARE(SEN_NewBuild_Z(1, nullptr, &flag), 0);
    QCOMPARE(SEN_Meas_Z(1), 0.0);
    QCOMPARE(SEN_NewBuild_Z(1, &point, nullptr), 0);
    QCOMPARE(SEN_Meas_Z(1), 0.0);
}

void TestLintab::copiesWhatItNeeds()
{
    Table table = OneStretch(PointsOn([](double x) { return std::sqrt(x); }, 1, 0.25, 12), Least);
    table.Open(5, 7, Line);
    table.Add(6, 3);
    QCOMPARE(table.Build(), 0);
    std::vector<double> before;
    for (const double x : Steps(-1, 9, 0.125))
        before.push_back(SEN_Meas_Z(x));
    std::fill(table.Points.begin(), table.Points.end(), CurvePoint{-99, 99});
    std::fill(table.Flags.begin(), table.Flags.end(), CurveFlag{Least, 1});
    table = Table();
    std::vector<double> after;
    for (const double x : Steps(-1, 9, 0.125))
        after.push_back(SEN_Meas_Z(x));
    QCOMPARE(after, before);
}

void TestLintab::aNewBuildReplacesTheCurve()
{
    QCOMPARE(OneStretch({{1, 10}, {2, 20}}, Line).Build(), 0);
    QCOMPARE(OneStretch({{1, -5}, {2, -6}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), -5.0);
    QCOMPARE(OneStretch({{1, -5}, {2, -6}}, Least).Build(), 2);
    QCOMPARE(SEN_Meas_Z(1), 0.0);
}

void TestLintab::measuringAllocatesNothing()
{
    Table table = OneStretch(PointsOn([](double x) { return std::exp(x); }, 0, 0.5, 9), Least);
    table.Open(4.5, 10, Line);
    table.Add(5, 12);
    QCOMPARE(table.Build(), 0);
    const std::vector<double> inputs = Steps(-3, 9, 0.01);
    double sum = 0;
    int seen = 0;
    {
        const AllocationWatch watch;
        for (const double x : inputs)
            sum += SEN_Meas_Z(x);
        for (const double x : {Infinity, -Infinity, NotANumber, Largest})
            sum += SEN_Meas_Z(x) / 1e10;
        seen = allocationsSeen;
    }
    QVERIFY(std::isfinite(sum));
    QCOMPARE(seen, 0);
}

void TestLintab::failedAllocationGivesOutOfMemory_data()
{
    QTest::addColumn<int>("arithmetic");
    QTest::newRow("Line") << int(Line);
    QTest::newRow("Least") << int(Least);
}

// Every single allocation of a build fails once.
void TestLintab::failedAllocationGivesOutOfMemory()
{
    QFETCH(int, arithmetic);
    const Table table =
        OneStretch(PointsOn([](double x) { return x * x; }, 0, 1, 40), static_cast<std::uint8_t>(arithmetic));
    int failures = 0;
    std::uint8_t result = 1;
    while (result == 1) {
        {
            const AllocationWatch watch(failures);
            result = table.Build();
        }
        if (result == 1) {
            ++failures;
            QCOMPARE(SEN_Meas_Z(3), 0.0);
        }
        QVERIFY(failures < 1000);
    }
    QCOMPARE(result, 0);
    QVERIFY(failures >= 2);
    QVERIFY(std::abs(SEN_Meas_Z(3) - 9) < 1e-9);
}

void TestLintab::pointsOfALeastStretch_data()
{
    QTest::addColumn<int>("leastRows");
    QTest::addColumn<int>("lineRowsBehind");
    QTest::addColumn<int>("result");
    QTest::newRow("five Least points apply") << 5 << 0 << 0;
    QTest::newRow("four give 2") << 4 << 0 << 2;
    QTest::newRow("rows 1 to 4 Least and 5 to 9 Line give 2") << 4 << 5 << 2;
    QTest::newRow("rows 1 to 5 Least and row 6 Line apply") << 5 << 1 << 0;
    QTest::newRow("one gives 2") << 1 << 0 << 2;
    QTest::newRow("500 apply") << 500 << 0 << 0;
}

void TestLintab::pointsOfALeastStretch()
{
    QFETCH(int, leastRows);
    QFETCH(int, lineRowsBehind);
    Table table;
    for (int row = 0; row < leastRows + lineRowsBehind; ++row) {
        if (row == 0 || row == leastRows) {
            table.Open(row, 2.0 * row + 1, row == 0 ? Least : Line);
        } else {
            table.Add(row, 2.0 * row + 1);
        }
    }
    QTEST(int(table.Build()), "result");
    if (leastRows < 5) {
        QCOMPARE(SEN_Meas_Z(2), 0.0);
    } else {
        QVERIFY(std::abs(SEN_Meas_Z(2.5) - 6) < 1e-11);
    }
}

void TestLintab::twoLineRowsApply()
{
    Table table;
    table.Open(1, 4, Line);
    table.Open(3, 8, Line);
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(2), 6.0);
    QCOMPARE(OneStretch({{1, 4}, {3, 8}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(2), 6.0);
}

void TestLintab::shortLeastStretchBehindALineFails()
{
    Table table = OneStretch({{1, 1}, {2, 2}, {3, 3}}, Line);
    table.Open(4, 4, Least);
    for (int x = 5; x <= 7; ++x)
        table.Add(x, x);
    QCOMPARE(table.Build(), 2);
    table.Add(8, 8);
    QCOMPARE(table.Build(), 0);
}

void TestLintab::lastRowAloneAsLeastFails()
{
    Table table = OneStretch({{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}}, Least);
    table.Open(7, 7, Least);
    QCOMPARE(table.Build(), 2);
    QCOMPARE(SEN_Meas_Z(3), 0.0);
}

void TestLintab::lastRowAloneAsLineApplies()
{
    Table table = OneStretch({{1, 1}, {2, 2}}, Line);
    table.Open(3, 5, Line);
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(2.5), 3.5);
    QCOMPARE(SEN_Meas_Z(3), 5.0);
    QCOMPARE(SEN_Meas_Z(4), 8.0);
}

void TestLintab::closingSegmentPointIsFitted()
{
    // Both stretches are fitted at x = 5, and the left one would be the constant 1 without the point there.
    Table table = OneStretch({{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}}, Least);
    table.Open(5, 1, Least);
    for (int x = 6; x < 10; ++x)
        table.Add(x, 1);
    QCOMPARE(table.Build(), 0);
    QVERIFY(std::abs(SEN_Meas_Z(0) - 1) < 1e-12);
    table.Points[5].Y = 7;
    QCOMPARE(table.Build(), 0);
    // The joint moves the fit at its own end only, so what moved at the free end is the fit itself.
    QVERIFY(std::abs(SEN_Meas_Z(0) - 1) > 0.01);
}

void TestLintab::firstRowOpensAStretchWithoutItsFlag()
{
    Table table = OneStretch({{1, 1}, {2, 2}, {3, 3}, {4, 4}}, Least);
    table.Flags[0].IsSegment = 0;
    QCOMPARE(table.Build(), 2);
    table.Flags[0].Arithmetic = Line;
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(1.5), 1.5);
}

void TestLintab::arithmeticInsideAStretchDecidesNothing()
{
    Table table = OneStretch({{1, 1}, {2, 3}, {3, 2}}, Line);
    table.Flags[1].Arithmetic = Least;
    table.Flags[2].Arithmetic = Least;
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(2), 3.0);
    QCOMPARE(SEN_Meas_Z(2.5), 2.5);
}

void TestLintab::linePassesThroughItsPoints()
{
    const std::vector<CurvePoint> points = {{-7.3, 0.1}, {1e-7, 1e17}, {0.3, -1.0 / 3}, {1e6, Denormal}, {3e9, -0.7}};
    QCOMPARE(OneStretch(points, Line).Build(), 0);
    for (const CurvePoint &point : points)
        QCOMPARE(BitsOf(SEN_Meas_Z(point.X)), BitsOf(point.Y));
}

void TestLintab::lineIsStraightBetweenNeighbours()
{
    QCOMPARE(OneStretch({{0, 0}, {4, 8}, {8, -8}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), 2.0);
    QCOMPARE(SEN_Meas_Z(3.5), 7.0);
    QCOMPARE(SEN_Meas_Z(5), 4.0);
    QCOMPARE(SEN_Meas_Z(7.5), -6.0);
}

void TestLintab::fallingOutputsApply()
{
    QCOMPARE(OneStretch({{1, 30}, {2, 20}, {3, 10}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1.5), 25.0);
    QCOMPARE(OneStretch({{1, 50}, {2, 40}, {3, 30}, {4, 20}, {5, 10}}, Least).Build(), 0);
    for (const double x : Steps(0, 7, 0.25))
        QVERIFY(std::abs(SEN_Meas_Z(x) - (60 - 10 * x)) < 1e-12);
}

void TestLintab::equalOutputsGiveThatOutput()
{
    QCOMPARE(OneStretch({{1, 5.1}, {2, 5.1}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1.7), 5.1);
    QCOMPARE(SEN_Meas_Z(-1e300), 5.1);
    QCOMPARE(OneStretch({{1, 5.1}, {2, 5.1}, {3, 5.1}, {4, 5.1}, {5, 5.1}}, Least).Build(), 0);
    for (const double x : Steps(-3, 9, 0.5))
        QVERIFY(std::abs(SEN_Meas_Z(x) - 5.1) < 1e-14);
}

void TestLintab::lastOfEqualInputsHolds()
{
    QCOMPARE(OneStretch({{0, 0}, {1, 1}, {1, 9}, {1, 5}, {2, 6}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), 5.0);
    QCOMPARE(SEN_Meas_Z(0.5), 0.5);
    QCOMPARE(SEN_Meas_Z(1.5), 5.5);
    QCOMPARE(OneStretch({{3, 1}, {3, 2}, {3, 4}}, Line).Build(), 0);
    for (const double x : {-8.0, 3.0, 9.0})
        QCOMPARE(SEN_Meas_Z(x), 4.0);
    // Equal inputs at both ends: the lines beyond start from the value that holds, with the slope next to it.
    QCOMPARE(OneStretch({{0, 9}, {0, 1}, {1, 3}, {1, 7}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(-1), -1.0);
    QCOMPARE(SEN_Meas_Z(1), 7.0);
    QCOMPARE(SEN_Meas_Z(2), 9.0);
}

void TestLintab::leastOverOneInputIsTheMean()
{
    QCOMPARE(OneStretch({{3, 1}, {3, 2}, {3, 3}, {3, 4}, {3, 10}}, Least).Build(), 0);
    for (const double x : {-8.0, 3.0, 9.0})
        QVERIFY(std::abs(SEN_Meas_Z(x) - 4) < 1e-14);
}

void TestLintab::goesOnStraightOutsideTheSpan()
{
    QCOMPARE(OneStretch({{0, 0}, {1, 2}, {2, 3}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(-10), -20.0);
    QCOMPARE(SEN_Meas_Z(12), 13.0);
}

void TestLintab::leastGoesOnStraightOutsideTheSpan()
{
    // y = x^2 has the slopes 2 and 20 at the ends.
    QCOMPARE(OneStretch(PointsOn([](double x) { return x * x; }, 1, 1, 10), Least).Build(), 0);
    QVERIFY(std::abs(SEN_Meas_Z(-4) - (1 - 2 * 5)) < 1e-10);
    QVERIFY(std::abs(SEN_Meas_Z(110) - (100 + 20 * 100)) < 1e-9);
}

void TestLintab::notANumberGivesTheFirstPoint()
{
    QCOMPARE(OneStretch({{-2, 7}, {1, 2}, {2, 3}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(NotANumber), 7.0);
    QCOMPARE(OneStretch(PointsOn([](double x) { return x * x; }, 1, 1, 10), Least).Build(), 0);
    QCOMPARE(SEN_Meas_Z(NotANumber), SEN_Meas_Z(1));
}

void TestLintab::saturatesFarOutside()
{
    QCOMPARE(OneStretch({{0, 0}, {1, 2}, {2, 1}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(Infinity), -Largest);
    QCOMPARE(SEN_Meas_Z(-Infinity), -Largest);
    QCOMPARE(SEN_Meas_Z(Largest), -Largest);
    QCOMPARE(OneStretch({{0, 0}, {1, 2}, {2, 1}, {3, 9}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(Infinity), Largest);
    QCOMPARE(OneStretch({{0, 0}, {1, 3}, {2, 3}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(Infinity), 3.0);
}

void TestLintab::twoFitsMeetAtTheirMean()
{
    Table table;
    table.Open(0, 1, Least);
    for (int x = 1; x < 8; ++x)
        table.Add(x, 1 + x);
    table.Open(8, 9, Least);
    for (int x = 9; x <= 30; ++x)
        table.Add(x, 25 - 2 * x);
    // Both fits pass through (8, 9), and so does the curve: 1 + x to its left, 25 - 2 x to its right.
    QCOMPARE(table.Build(), 0);
    for (const double x : Steps(0, 30, 0.25))
        QVERIFY(std::abs(SEN_Meas_Z(x) - (x < 8 ? 1 + x : 25 - 2 * x)) < 1e-12);

    // Raised by 9, the shared point pulls the fits apart.
    table.Points[8].Y = 18;
    QCOMPARE(table.Build(), 0);
    const std::vector<CurvePoint> left(table.Points.begin(), table.Points.begin() + 9);
    const std::vector<CurvePoint> right(table.Points.begin() + 8, table.Points.end());
    const double leftFit = Lintab::ValueAt(Lintab::LeastSquares(left).Best(), 8);
    const double rightFit = Lintab::ValueAt(Lintab::LeastSquares(right).Best(), 8);
    QVERIFY(std::abs(leftFit - rightFit) > 1e-3);
    QVERIFY(std::abs(SEN_Meas_Z(8) - (leftFit + rightFit) / 2) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(8, 0)) - SEN_Meas_Z(8)) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(8, 9)) - SEN_Meas_Z(8)) < 1e-12);
    // The correction is a straight line that leaves the free end alone.
    QVERIFY(std::abs(SEN_Meas_Z(0) - Lintab::ValueAt(Lintab::LeastSquares(left).Best(), 0)) < 1e-12);
}

void TestLintab::fitBesideALineGoesToThePoint()
{
    Table table = OneStretch({{0, 3}, {1, 0}}, Line);
    table.Open(2, 5, Least);
    for (int x = 3; x < 10; ++x)
        table.Add(x, x % 2 == 0 ? x + 1.0 : x - 1.0);
    table.Open(10, 2, Line);
    table.Add(12, 0);
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(2), 5.0);
    QCOMPARE(SEN_Meas_Z(10), 2.0);
    for (const double x : {2.0, 10.0}) {
        QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(x, -1)) - SEN_Meas_Z(x)) < 1e-12);
        QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(x, 99)) - SEN_Meas_Z(x)) < 1e-12);
    }
    QCOMPARE(SEN_Meas_Z(1.5), 2.5);
    QCOMPARE(SEN_Meas_Z(11), 1.0);
}

void TestLintab::doesNotDependOnEarlierCalls()
{
    Table table = OneStretch(PointsOn([](double x) { return std::sin(x); }, 0, 0.5, 20), Least);
    table.Open(10, 0, Line);
    for (int x = 11; x < 30; ++x)
        table.Add(x, x % 3);
    QCOMPARE(table.Build(), 0);
    const std::vector<double> inputs = Steps(-5, 35, 0.0625);
    std::vector<double> rising;
    for (const double x : inputs)
        rising.push_back(SEN_Meas_Z(x));
    for (std::size_t i = inputs.size(); i-- > 0;)
        QCOMPARE(BitsOf(SEN_Meas_Z(inputs[i])), BitsOf(rising[i]));
    std::mt19937_64 random(7);
    for (int i = 0; i < 5000; ++i) {
        const std::size_t index = random() % inputs.size();
        QCOMPARE(BitsOf(SEN_Meas_Z(inputs[index])), BitsOf(rising[index]));
    }
}

void TestLintab::takesWhatIsNoTableAsWellAsItGoes()
{
    // An input below the one before it counts as equal to it.
    QCOMPARE(OneStretch({{0, 0}, {2, 4}, {1, 9}, {3, 5}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), 2.0);
    QCOMPARE(SEN_Meas_Z(2), 9.0);
    QCOMPARE(SEN_Meas_Z(2.5), 7.0);
    // A number that is none repeats the one before it, or the first that there is.
    QCOMPARE(OneStretch({{-5, NotANumber}, {-3, 4}, {NotANumber, 6}, {-1, NotANumber}, {1, 8}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(-5), 4.0);
    QCOMPARE(SEN_Meas_Z(-3), 6.0);
    QCOMPARE(SEN_Meas_Z(-1), 6.0);
    QCOMPARE(SEN_Meas_Z(0), 7.0);
    // An infinity is the largest number.
    QCOMPARE(OneStretch({{0, 1}, {1, Infinity}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), Largest);
    QCOMPARE(SEN_Meas_Z(0.5), Largest / 2);
}

void TestLintab::finiteForEveryInput_data()
{
    QTest::addColumn<QList<double>>("xs");
    QTest::addColumn<QList<double>>("ys");
    const QList<double> plain = {1, 2, 3, 4, 5, 6};
    QTest::newRow("plain") << plain << plain;
    QTest::newRow("one point") << QList<double>{3} << QList<double>{4};
    QTest::newRow("huge inputs") << QList<double>{-Largest, -1e308, 0, 1, 1e308, Largest} << plain;
    QTest::newRow("huge outputs") << plain << QList<double>{-Largest, Largest, -Largest, Largest, -Largest, Largest};
    QTest::newRow("huge both") << QList<double>{-Largest, -1e308, -1e307, 1e307, 1e308, Largest}
                               << QList<double>{Largest, -Largest, Largest, -Largest, 1e308, -1e308};
    QTest::newRow("denormal inputs") << QList<double>{0, Denormal, 2 * Denormal, 3 * Denormal, 9 * Denormal, 1e-310}
                                     << plain;
    QTest::newRow("denormal outputs") << plain << QList<double>{0, Denormal, 0, Denormal, 3 * Denormal, 1e-310};
    QTest::newRow("denormal inputs, huge outputs")
        << QList<double>{0, Denormal, 2 * Denormal, 3 * Denormal, 9 * Denormal, 1e-310}
        << QList<double>{Largest, -Largest, Largest, -Largest, Largest, -Largest};
    QTest::newRow("denormal and huge inputs")
        << QList<double>{0, Denormal, 2 * Denormal, 3 * Denormal, 1, Largest} << plain;
    QTest::newRow("neighbouring inputs") << QList<double>{1,           1 + 0x1p-52, 1 + 0x2p-52,
                                                          1 + 0x3p-52, 1 + 0x4p-52, 1 + 0x5p-52}
                                         << QList<double>{1, 2, 1, 2, 1, 1e9};
    QTest::newRow("a cluster and one far off")
        << QList<double>{0, 1e-15, 2e-15, 3e-15, 4e-15, 1e9} << QList<double>{1, 2, 1, 3, 1, -4};
    QTest::newRow("all points equal") << QList<double>(6, 2.5) << QList<double>(6, -1.5);
    QTest::newRow("all zero") << QList<double>(6, 0.0) << QList<double>(6, 0.0);
    QTest::newRow("equal inputs") << QList<double>(6, 2.5) << plain;
    QTest::newRow("not ascending") << QList<double>{5, 1, 9, -3, 9, 2} << plain;
    QTest::newRow("NaN inputs") << QList<double>{NotANumber, 1, NotANumber, 4, 5, NotANumber} << plain;
    QTest::newRow("NaN outputs") << plain << QList<double>{NotANumber, 1, NotANumber, 4, 5, NotANumber};
    QTest::newRow("only NaN") << QList<double>(6, NotANumber) << QList<double>(6, NotANumber);
    QTest::newRow("infinite inputs") << QList<double>{-Infinity, -1, 0, 1, 2, Infinity} << plain;
    QTest::newRow("infinite outputs") << plain << QList<double>{Infinity, 1, 2, 3, 4, -Infinity};
    QTest::newRow("infinite throughout") << QList<double>(6, Infinity) << QList<double>(6, -Infinity);
}

void TestLintab::finiteForEveryInput()
{
    QFETCH(QList<double>, xs);
    QFETCH(QList<double>, ys);
    // As one stretch of either kind, each kind before the other, and two fits side by side.
    for (int arrangement = 0; arrangement < 5; ++arrangement) {
        const int copies = arrangement < 2 ? 1 : 2;
        Table table;
        for (int copy = 0; copy < copies; ++copy) {
            const bool least = arrangement == 4 || (arrangement + copy) % 2 == 1;
            for (qsizetype i = 0; i < xs.size(); ++i) {
                const double x = xs[i] + copy * (xs.last() - xs.first());
                if (i == 0) {
                    table.Open(x, ys[i], least ? Least : Line);
                } else {
                    table.Add(x, ys[i]);
                }
            }
        }
        const bool tooFew = xs.size() < 5 && arrangement != 0;
        QCOMPARE(int(table.Build()), tooFew ? 2 : 0);
        std::vector<double> inputs = AwkwardInputs();
        for (const CurvePoint &point : table.Points) {
            for (const double x : {point.X, std::nextafter(point.X, -Infinity), std::nextafter(point.X, Infinity),
                                   point.X / 2, point.X * 2, point.X * 1.1})
                inputs.push_back(x);
        }
        for (const double x : inputs)
            QVERIFY2(std::isfinite(SEN_Meas_Z(x)), qPrintable(QString::number(x, 'g', 17)));
    }
}

void TestLintab::randomTablesKeepThePromises()
{
    std::mt19937_64 random(20240229);
    const auto upTo = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto unit = [&random] { return static_cast<double>(random() >> 11) * 0x1p-53; };
    int built = 0;
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        Table table;
        const int rows = 1 + upTo(60);
        const double width = std::pow(10.0, upTo(13) - 6);
        double x = (unit() - 0.5) * 100 * width;
        std::vector<int> openings;
        for (int row = 0; row < rows; ++row) {
            const double y = (unit() - 0.5) * 200;
            if (row == 0 || upTo(12) == 0) {
                openings.push_back(row);
                table.Open(x, y, upTo(2) == 0 ? Line : Least);
            } else {
                table.Add(x, y);
                table.Flags.back().Arithmetic = static_cast<std::uint8_t>(upTo(2));
            }
            x += upTo(10) == 0 ? 0.0 : (0.05 + unit()) * width;
        }
        openings.push_back(rows);
        bool tooFew = false;
        for (std::size_t i = 0; i + 1 < openings.size(); ++i) {
            if (table.Flags[openings[i]].Arithmetic == Least && openings[i + 1] - openings[i] < 5)
                tooFew = true;
        }
        QCOMPARE(int(table.Build()), tooFew ? 2 : 0);
        ++(tooFew ? refused : built);
        if (tooFew)
            continue;

        const double first = table.Points.front().X;
        const double last = table.Points.back().X;
        for (int i = -50; i <= 150; ++i)
            QVERIFY(std::isfinite(SEN_Meas_Z(first + (last - first) * i / 100)));
        for (const double input : AwkwardInputs())
            QVERIFY(std::isfinite(SEN_Meas_Z(input)));
        for (int row = 0; row < rows; ++row) {
            const CurvePoint &point = table.Points[row];
            if (row + 1 < rows && table.Points[row + 1].X == point.X)
                continue;
            std::size_t stretch = 0;
            while (openings[stretch + 1] <= row)
                ++stretch;
            const bool onLine = table.Flags[openings[stretch]].Arithmetic == Line;
            const bool closesLine =
                row == openings[stretch] && stretch > 0 && table.Flags[openings[stretch - 1]].Arithmetic == Line;
            if (onLine || closesLine)
                QCOMPARE(BitsOf(SEN_Meas_Z(point.X)), BitsOf(point.Y));
            if (row == 0 || table.Points[row - 1].X == point.X)
                continue;
            const double value = SEN_Meas_Z(point.X);
            for (const double side : {-Infinity, Infinity}) {
                const double beside = SEN_Meas_Z(std::nextafter(point.X, side));
                QVERIFY2(std::abs(beside - value) <= 1e-6 * (200 + std::abs(value)),
                         qPrintable(QStringLiteral("round %1 row %2").arg(round).arg(row)));
            }
        }
    }
    QVERIFY(built > 500);
    QVERIFY(refused > 500);
}

void TestLintab::fitsPolynomialsExactly_data()
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
void TestLintab::fitsPolynomialsExactly()
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

void TestLintab::agreesWithCertifiedFits_data()
{
    QTest::addColumn<int>("degree");
    QTest::newRow("Norris") << 1;
    QTest::newRow("Wampler1") << 5;
    QTest::newRow("Wampler5") << 5;
}

void TestLintab::agreesWithCertifiedFits()
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

void TestLintab::agreesWithExactLeastSquares_data()
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

void TestLintab::agreesWithExactLeastSquares()
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

void TestLintab::candidateDegrees_data()
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

void TestLintab::candidateDegrees()
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
void TestLintab::choosesTheSmallestGoodDegree()
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
void TestLintab::choosesByLeavingPointsOut()
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

void TestLintab::inputsEqualButForRoundingAddNoDegree()
{
    const std::vector<CurvePoint> points = {{0, 0}, {0, 1}, {0, 2}, {1, 7}, {1 + 0x1p-52, 8}, {1 + 0x1p-51, 9}};
    QCOMPARE(Lintab::LeastSquares(points).HighestDegree(), 1);
    QCOMPARE(OneStretch(points, Least).Build(), 0);
    // The line through the means of both ends.
    QVERIFY(std::abs(SEN_Meas_Z(0) - 1) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(0.5) - 4.5) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(1) - 8) < 1e-12);
}

void TestLintab::roundingAddsNoDegree()
{
    // Exact data of a low degree, where only rounding tells the higher degrees apart.
    for (int degree = 0; degree <= 4; ++degree) {
        std::vector<CurvePoint> points;
        for (int i = 0; i < 40; ++i)
            points.push_back({0.1 * i, std::pow(0.1 * i, degree) / 3});
        QCOMPARE(Lintab::LeastSquares(points).BestDegree(), degree);
    }
}

void TestLintab::monotonePointsGetAMonotoneFit()
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

void TestLintab::monotoneMeansEverywhere()
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
void TestLintab::scaleOfTheTableDoesNotMatter()
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
void TestLintab::thermocoupleByLines()
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

void TestLintab::thermocoupleByLeastSquares()
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

QTEST_GUILESS_MAIN(TestLintab)

#include "tst_lintab.moc"
