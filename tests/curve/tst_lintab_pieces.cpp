/// @file
/// How the piece of a curve that holds an x is found: like a search would, at every spacing of the pieces, and whatever
/// piece was found before.
#include "curve/LintabTable.h"
#include "curve/lintab/CurveBuilder.h"
#include "curve/lintab/PieceGrid.h"

#include <QTest>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <random>
#include <utility>

using Lintab::PieceGrid;

namespace {

using Starts = std::vector<double>;

/// Ascending and different, made from 0, 1, ... by a function.
Starts StartsOf(int count, const std::function<double(int)> &function)
{
    Starts starts;
    for (int i = 0; i < count; ++i)
        starts.push_back(function(i));
    std::sort(starts.begin(), starts.end());
    starts.erase(std::unique(starts.begin(), starts.end()), starts.end());
    return starts;
}

/// Each start, its neighbours among the numbers, and places in between, as far as they lie in the span.
std::vector<double> InputsOf(const Starts &starts)
{
    std::mt19937_64 random(1);
    std::vector<double> inputs;
    for (std::size_t i = 0; i + 1 < starts.size(); ++i) {
        const double width = starts[i + 1] - starts[i];
        for (const double share : {0.25, 0.5, 0.75, static_cast<double>(random() >> 11) * 0x1p-53})
            inputs.push_back(starts[i] + share * width);
    }
    for (const double start : starts) {
        for (const double x : {std::nextafter(start, -Infinity), start, std::nextafter(start, Infinity)})
            inputs.push_back(x);
    }
    const double span = starts.back() - starts.front();
    for (int i = 0; i < 2000; ++i)
        inputs.push_back(starts.front() + span * (static_cast<double>(random() >> 11) * 0x1p-53));
    std::erase_if(inputs, [&starts](double x) { return x < starts.front() || x >= starts.back(); });
    return inputs;
}

} // namespace

class TestLintabPieces : public QObject {
    Q_OBJECT

private slots:
    void findsWhatASearchFinds_data();
    void findsWhatASearchFinds();
    void isInsideBetweenTheEndsOnly();
    void aSingleStartHasNoPiece();
    void theHintChangesNothing_data();
    void theHintChangesNothing();
};

void TestLintabPieces::findsWhatASearchFinds_data()
{
    QTest::addColumn<Starts>("starts");
    std::mt19937_64 random(5);
    const auto unit = [&random](int) { return static_cast<double>(random() >> 11) * 0x1p-53; };
    QTest::newRow("one piece") << Starts{-3, 8};
    QTest::newRow("one piece, one number wide") << Starts{1, 1 + 0x1p-52};
    QTest::newRow("even") << StartsOf(501, [](int i) { return i * 0.1; });
    QTest::newRow("even, around zero") << StartsOf(501, [](int i) { return (i - 250) / 3.0; });
    for (const int count : {2, 3, 7, 60, 500, 5000})
        QTest::addRow("random, %d", count) << StartsOf(count, unit);
    QTest::newRow("clustered at the start") << StartsOf(500, [](int i) { return i < 450 ? i * 1e-15 : i * 1.0; });
    QTest::newRow("clustered at the end") << StartsOf(500, [](int i) { return i < 50 ? i * 1.0 : 1e4 + i * 1e-11; });
    QTest::newRow("two clusters") << StartsOf(500, [](int i) { return i % 2 == 0 ? i * 1e-17 : 1 + i * 0x1p-52; });
    QTest::newRow("neighbouring numbers") << StartsOf(500, [](int i) { return 1 + i * 0x1p-52; });
    QTest::newRow("nine decades") << StartsOf(500, [](int i) { return std::pow(10, i * 9 / 499.0 - 9); });
    QTest::newRow("nine decades either side")
        << StartsOf(501, [](int i) { return (i < 250 ? -1 : 1) * std::pow(10, std::abs(i - 250) * 9 / 250.0 - 9); });
    QTest::newRow("nine decades down from 1") << StartsOf(500, [](int i) { return 1 - std::pow(10, -i * 9 / 499.0); });
    // So many cells per x are out of range: the two rows rely on the largest finite number that stands for them.
    QTest::newRow("denormal") << StartsOf(500, [](int i) { return i * Denormal; });
    QTest::newRow("denormal, one piece") << Starts{0, Denormal};
    QTest::newRow("denormal to huge") << StartsOf(500, [](int i) { return std::ldexp(1.0, i * 4 - 1074); });
    QTest::newRow("huge") << StartsOf(500, [](int i) { return (i - 250) * (Largest / 600); });
}

void TestLintabPieces::findsWhatASearchFinds()
{
    QFETCH(Starts, starts);
    const PieceGrid grid(starts);
    QCOMPARE(grid.PieceCount(), starts.size() - 1);
    const std::vector<double> inputs = InputsOf(starts);
    QVERIFY(!inputs.empty());
    for (const double x : inputs) {
        const auto next = std::upper_bound(starts.begin(), starts.end(), x);
        const auto piece = static_cast<std::size_t>(next - starts.begin()) - 1;
        QCOMPARE(grid.Find(x), piece);
        QCOMPARE(grid.StartOf(piece), starts[piece]);
        QCOMPARE(grid.IsInside(x, piece), x > starts[piece]);
        QVERIFY(!grid.IsInside(x, piece + 1));
        QVERIFY(!grid.IsInside(x, piece - 1));
    }
}

void TestLintabPieces::isInsideBetweenTheEndsOnly()
{
    const PieceGrid grid({1, 2, 4});
    QVERIFY(grid.IsInside(1.5, 0));
    QVERIFY(grid.IsInside(std::nextafter(2, 0), 0));
    QVERIFY(grid.IsInside(3, 1));
    for (const double x : {-Infinity, 0.0, 1.0, 2.0, 4.0, 5.0, Infinity, NotANumber}) {
        QVERIFY(!grid.IsInside(x, 0));
        QVERIFY(!grid.IsInside(x, 1));
    }
    for (const std::size_t none : {std::size_t(2), std::size_t(3), ~std::size_t(0)})
        QVERIFY(!grid.IsInside(3, none));
    // What is left in memory behind the end is no start.
    Starts longer = {1, 2, 4, 8};
    longer.pop_back();
    QVERIFY(!PieceGrid(std::move(longer)).IsInside(5, 2));
}

void TestLintabPieces::aSingleStartHasNoPiece()
{
    const PieceGrid grid({7});
    QCOMPARE(grid.PieceCount(), std::size_t(0));
    QVERIFY(!grid.IsInside(7, 0));
    QVERIFY(!grid.IsInside(6, 0));
}

void TestLintabPieces::theHintChangesNothing_data()
{
    QTest::addColumn<int>("arithmetic");
    QTest::newRow("Line") << int(Line);
    QTest::newRow("Least") << int(Least);
}

void TestLintabPieces::theHintChangesNothing()
{
    QFETCH(int, arithmetic);
    Table table;
    for (int row = 0; row < 30; ++row) {
        if (row % 6 == 0) {
            table.Open(std::pow(10, row / 10.0), row * row % 17, static_cast<std::uint8_t>(arithmetic));
        } else {
            table.Add(std::pow(10, row / 10.0), row * row % 17);
        }
    }
    const auto curve = Lintab::BuildCurve(table.Points, table.Flags);
    QVERIFY(curve != nullptr);
    std::vector<double> inputs = AwkwardInputs();
    for (const CurvePoint &point : table.Points) {
        for (const double x : {std::nextafter(point.X, -Infinity), point.X, std::nextafter(point.X, Infinity)})
            inputs.push_back(x);
    }
    for (const double x : inputs) {
        std::size_t right = 0;
        const std::uint64_t expected = BitsOf(curve->ValueAt(x, right));
        for (const std::size_t hint : {std::size_t(0), std::size_t(1), std::size_t(4), std::size_t(5), std::size_t(28),
                                       std::size_t(29), std::size_t(30), std::size_t(1000), ~std::size_t(0), right}) {
            std::size_t piece = hint;
            QCOMPARE(BitsOf(curve->ValueAt(x, piece)), expected);
        }
    }
}

QTEST_GUILESS_MAIN(TestLintabPieces)
#include "tst_lintab_pieces.moc"
