/// @file
/// The contract of the curve library: what it exports and allocates, when it holds a curve, and which points it needs.
#include "curve/LintabTable.h"
#include "support/Allocations.h"

#include <QProcess>
#include <QTest>

#include <algorithm>
#include <atomic>

namespace {

std::atomic<int> allocationsSeen = 0;
std::atomic<int> allocationsGranted = std::numeric_limits<int>::max(); ///< the next one after these fails

bool CountAllocation(const void *)
{
    return allocationsSeen++ >= allocationsGranted;
}

/// While it lives, allocations are counted, and fail once `granted` of them were made.
struct AllocationWatch {
    explicit AllocationWatch(int granted = std::numeric_limits<int>::max())
    {
        allocationsSeen = 0;
        allocationsGranted = granted;
        AllocationFails = CountAllocation;
    }
    ~AllocationWatch() { AllocationFails = nullptr; }
    Q_DISABLE_COPY_MOVE(AllocationWatch)
};

/// Names in the library's table of symbols, ascending: what `which` asks the tool for. Empty when there is no answer.
QList<QByteArray> SymbolsOf(const QString &which)
{
    QProcess nm;
    nm.start(QStringLiteral(NM_PROGRAM),
             {QStringLiteral("-D"), which, QStringLiteral("--format=posix"), QStringLiteral(LINTAB_FILE)});
    if (!nm.waitForFinished() || nm.exitCode() != 0)
        return {};
    QList<QByteArray> names;
    for (const QByteArray &line : nm.readAllStandardOutput().trimmed().split('\n'))
        names.append(line.split(' ').first().split('@').first());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

class TestLintabContract : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void exportsNothingButItsThreeOperations();
    void needsNoAllocatorButThatOfTheLanguage();
    void needsNoFunctionThatMachinesRoundDifferently();
    void freeIsHarmlessWhenNoneIsHeld();
    void holdsNoCurveAfterFree();
    void holdsNoCurveOfNoPoints();
    void copiesWhatItNeeds();
    void aNewBuildReplacesTheCurve();
    void measuringAllocatesNothing();
    void failedAllocationGivesOutOfMemory_data();
    void failedAllocationGivesOutOfMemory();

    void pointsOfALeastStretch_data();
    void pointsOfALeastStretch();
    void twoLineRowsApply();
    void shortLeastStretchBehindALineFails();
    void lastRowAloneAsLeastFails();
    void lastRowAloneAsLineApplies();
    void closingSegmentPointIsFitted();
    void firstRowOpensAStretchWithoutItsFlag();
    void arithmeticInsideAStretchDecidesNothing();
    void anySegmentFlagButZeroOpensAStretch();
    void anyArithmeticButOneIsLine();
};

void TestLintabContract::exportsNothingButItsThreeOperations()
{
    QCOMPARE(SymbolsOf(QStringLiteral("--defined-only")),
             QList<QByteArray>({"SEN_Free", "SEN_Meas_Z", "SEN_NewBuild_Z"}));
}

// What measuringAllocatesNothing counts is all there is: the library calls no C allocator itself.
void TestLintabContract::needsNoAllocatorButThatOfTheLanguage()
{
    bool languageAllocatorSeen = false;
    for (const QByteArray &name : SymbolsOf(QStringLiteral("--undefined-only"))) {
        languageAllocatorSeen = languageAllocatorSeen || name.startsWith("_Zn");
        for (const char *other : {"malloc", "calloc", "realloc", "aligned_alloc", "posix_memalign"})
            QVERIFY2(name != other, name.constData());
    }
    QVERIFY(languageAllocatorSeen);
}

// The last bits of these differ between processors and libraries, and a table's curve must not.
void TestLintabContract::needsNoFunctionThatMachinesRoundDifferently()
{
    const QList<QByteArray> names = SymbolsOf(QStringLiteral("--undefined-only"));
    QVERIFY(names.contains("ldexp"));
    for (const char *other : {"sin", "cos", "sincos", "tan", "acos", "asin", "atan", "atan2", "cosh", "exp", "exp2",
                              "expm1", "log", "log2", "log10", "pow", "cbrt", "hypot"})
        QVERIFY2(!names.contains(other), other);
}

void TestLintabContract::freeIsHarmlessWhenNoneIsHeld()
{
    SEN_Free();
    SEN_Free();
    for (const double x : AwkwardInputs())
        QCOMPARE(SEN_Meas_Z(x), 0.0);
}

void TestLintabContract::holdsNoCurveAfterFree()
{
    QCOMPARE(OneStretch({{1, 10}, {2, 20}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), 10.0);
    SEN_Free();
    QCOMPARE(SEN_Meas_Z(1), 0.0);
}

void TestLintabContract::holdsNoCurveOfNoPoints()
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

void TestLintabContract::copiesWhatItNeeds()
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

void TestLintabContract::aNewBuildReplacesTheCurve()
{
    QCOMPARE(OneStretch({{1, 10}, {2, 20}}, Line).Build(), 0);
    QCOMPARE(OneStretch({{1, -5}, {2, -6}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(1), -5.0);
    QCOMPARE(OneStretch({{1, -5}, {2, -6}}, Least).Build(), 2);
    QCOMPARE(SEN_Meas_Z(1), 0.0);
}

void TestLintabContract::measuringAllocatesNothing()
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

void TestLintabContract::failedAllocationGivesOutOfMemory_data()
{
    QTest::addColumn<int>("arithmetic");
    QTest::newRow("Line") << int(Line);
    QTest::newRow("Least") << int(Least);
}

// Every single allocation of a build fails once.
void TestLintabContract::failedAllocationGivesOutOfMemory()
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

void TestLintabContract::pointsOfALeastStretch_data()
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

void TestLintabContract::pointsOfALeastStretch()
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

void TestLintabContract::twoLineRowsApply()
{
    Table table;
    table.Open(1, 4, Line);
    table.Open(3, 8, Line);
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(2), 6.0);
    QCOMPARE(OneStretch({{1, 4}, {3, 8}}, Line).Build(), 0);
    QCOMPARE(SEN_Meas_Z(2), 6.0);
}

void TestLintabContract::shortLeastStretchBehindALineFails()
{
    Table table = OneStretch({{1, 1}, {2, 2}, {3, 3}}, Line);
    table.Open(4, 4, Least);
    for (int x = 5; x <= 7; ++x)
        table.Add(x, x);
    QCOMPARE(table.Build(), 2);
    table.Add(8, 8);
    QCOMPARE(table.Build(), 0);
}

void TestLintabContract::lastRowAloneAsLeastFails()
{
    Table table = OneStretch({{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}}, Least);
    table.Open(7, 7, Least);
    QCOMPARE(table.Build(), 2);
    QCOMPARE(SEN_Meas_Z(3), 0.0);
}

void TestLintabContract::lastRowAloneAsLineApplies()
{
    Table table = OneStretch({{1, 1}, {2, 2}}, Line);
    table.Open(3, 5, Line);
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(2.5), 3.5);
    QCOMPARE(SEN_Meas_Z(3), 5.0);
    QCOMPARE(SEN_Meas_Z(4), 8.0);
}

void TestLintabContract::closingSegmentPointIsFitted()
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

void TestLintabContract::firstRowOpensAStretchWithoutItsFlag()
{
    Table table = OneStretch({{1, 1}, {2, 2}, {3, 3}, {4, 4}}, Least);
    table.Flags[0].IsSegment = 0;
    QCOMPARE(table.Build(), 2);
    table.Flags[0].Arithmetic = Line;
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(1.5), 1.5);
}

void TestLintabContract::arithmeticInsideAStretchDecidesNothing()
{
    Table table = OneStretch({{1, 1}, {2, 3}, {3, 2}}, Line);
    table.Flags[1].Arithmetic = Least;
    table.Flags[2].Arithmetic = Least;
    QCOMPARE(table.Build(), 0);
    QCOMPARE(SEN_Meas_Z(2), 3.0);
    QCOMPARE(SEN_Meas_Z(2.5), 2.5);
}

void TestLintabContract::anySegmentFlagButZeroOpensAStretch()
{
    for (const int value : {1, 2, 128, 255}) {
        const auto flag = static_cast<std::uint8_t>(value);
        // Five "Least" points of the constant 1, then a line that rises.
        Table table = OneStretch({{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {6, 3}}, Least);
        table.Flags[5] = {Line, flag};
        QCOMPARE(table.Build(), 0);
        QVERIFY(std::abs(SEN_Meas_Z(2.5) - 1) < 1e-14);
        QCOMPARE(SEN_Meas_Z(5.5), 2.0);
        // A stretch that opens a row earlier has too few points before it.
        table.Flags[4] = {Line, flag};
        QCOMPARE(table.Build(), 2);
    }
}

void TestLintabContract::anyArithmeticButOneIsLine()
{
    for (const int arithmetic : {0, 2, 3, 128, 255}) {
        // Too few for "Least", and through every point.
        QCOMPARE(OneStretch({{0, 1}, {1, 4}, {2, 2}}, static_cast<std::uint8_t>(arithmetic)).Build(), 0);
        QCOMPARE(SEN_Meas_Z(1), 4.0);
        QCOMPARE(SEN_Meas_Z(1.5), 3.0);
    }
}

QTEST_GUILESS_MAIN(TestLintabContract)
#include "tst_lintab_contract.moc"
