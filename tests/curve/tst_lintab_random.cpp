/// @file
/// What the curve library promises for every table, tried on random ones.
#include "curve/LintabTable.h"

#include <QTest>

#include <cstddef>
#include <random>

namespace {

/// Random tables: of 1 to 60 rows, in stretches of either kind, with steps that differ from table to table by twelve
/// decades, one input in ten equal to the one before it.
class Tables {
public:
    Table Next()
    {
        Table table;
        const int rows = 1 + UpTo(60);
        const double width = std::pow(10.0, UpTo(13) - 6);
        double x = (Unit() - 0.5) * 100 * width;
        for (int row = 0; row < rows; ++row) {
            const double y = (Unit() - 0.5) * 200;
            if (row == 0 || UpTo(12) == 0) {
                table.Open(x, y, UpTo(2) == 0 ? Line : Least);
            } else {
                table.Add(x, y);
                table.Flags.back().Arithmetic = static_cast<std::uint8_t>(UpTo(2));
            }
            x += UpTo(10) == 0 ? 0.0 : (0.05 + Unit()) * width;
        }
        return table;
    }

    /// The same, but one that builds.
    Table NextThatBuilds()
    {
        Table table = Next();
        while (table.Build() != 0)
            table = Next();
        return table;
    }

    int UpTo(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    double Unit() { return static_cast<double>(m_random() >> 11) * 0x1p-53; }

private:
    std::mt19937_64 m_random{20240229};
};

/// Rows of the stretch that a row opens.
int RowsFrom(const Table &table, std::size_t opening)
{
    std::size_t end = opening + 1;
    while (end < table.Flags.size() && table.Flags[end].IsSegment == 0)
        ++end;
    return static_cast<int>(end - opening);
}

std::size_t OpeningOf(const Table &table, std::size_t row)
{
    while (table.Flags[row].IsSegment == 0)
        --row;
    return row;
}

bool LiesOnALine(const Table &table, std::size_t row)
{
    const auto isLine = [&table](std::size_t at) { return table.Flags[OpeningOf(table, at)].Arithmetic == Line; };
    return isLine(row) || (row > 0 && table.Flags[row].IsSegment == 1 && isLine(row - 1));
}

bool IsLastOfItsInput(const Table &table, std::size_t row)
{
    return row + 1 == table.Points.size() || table.Points[row + 1].X > table.Points[row].X;
}

bool IsOnlyOfItsInput(const Table &table, std::size_t row)
{
    return IsLastOfItsInput(table, row) && (row == 0 || table.Points[row - 1].X < table.Points[row].X);
}

/// Over the span and as far again on either side, and the points themselves.
std::vector<double> InputsOf(const Table &table)
{
    std::vector<double> inputs = AwkwardInputs();
    const double first = table.Points.front().X;
    const double span = table.Points.back().X - first;
    for (int i = -50; i <= 150; ++i)
        inputs.push_back(first + span * i / 50);
    for (const CurvePoint &point : table.Points)
        inputs.push_back(point.X);
    return inputs;
}

std::vector<std::uint64_t> BitsAt(const std::vector<double> &inputs)
{
    std::vector<std::uint64_t> bits;
    bits.reserve(inputs.size());
    for (const double x : inputs)
        bits.push_back(BitsOf(SEN_Meas_Z(x)));
    return bits;
}

} // namespace

class TestLintabRandom : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void buildsUnlessALeastStretchIsTooShort();
    void isFiniteEverywhere();
    void isFiniteForTablesOfAnyNumbers();
    void linesAreExactAtTheirPoints();
    void linesStayBetweenNeighbours();
    void hasNoJumpWhereInputsDiffer();
    void dependsOnItsTableOnly();
    void orderOfEvaluationDoesNotMatter();
};

void TestLintabRandom::buildsUnlessALeastStretchIsTooShort()
{
    Tables tables;
    int built = 0;
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        const Table table = tables.Next();
        bool tooFew = false;
        for (std::size_t row = 0; row < table.Flags.size(); ++row) {
            if (table.Flags[row].IsSegment == 1 && table.Flags[row].Arithmetic == Least && RowsFrom(table, row) < 5)
                tooFew = true;
        }
        QCOMPARE(int(table.Build()), tooFew ? 2 : 0);
        ++(tooFew ? refused : built);
    }
    QVERIFY(built > 500);
    QVERIFY(refused > 500);
}

void TestLintabRandom::isFiniteEverywhere()
{
    Tables tables;
    for (int round = 0; round < 1000; ++round) {
        const Table table = tables.NextThatBuilds();
        for (const double x : InputsOf(table))
            QVERIFY(std::isfinite(SEN_Meas_Z(x)));
    }
}

// Any bits at all: infinities, NaN, denormal and huge numbers, in no order.
void TestLintabRandom::isFiniteForTablesOfAnyNumbers()
{
    std::mt19937_64 random(41);
    int built = 0;
    for (int round = 0; round < 5000; ++round) {
        Table table;
        for (std::uint64_t rows = 1 + random() % 30; rows > 0; --rows) {
            // One x in three is that of the row before.
            const bool repeats = !table.Points.empty() && random() % 3 == 0;
            const double x = repeats ? table.Points.back().X : std::bit_cast<double>(random());
            const double y = std::bit_cast<double>(random());
            if (random() % 8 == 0) {
                table.Open(x, y, random() % 2 == 0 ? Line : Least);
            } else {
                table.Add(x, y);
            }
        }
        built += table.Build() == 0 ? 1 : 0;
        for (const CurvePoint &point : table.Points) {
            for (const double x : {point.X, point.X / 2, std::nextafter(point.X, 0), point.Y})
                QVERIFY(std::isfinite(SEN_Meas_Z(x)));
        }
        for (const double x : AwkwardInputs())
            QVERIFY(std::isfinite(SEN_Meas_Z(x)));
    }
    QVERIFY(built > 1000);
}

void TestLintabRandom::linesAreExactAtTheirPoints()
{
    Tables tables;
    int points = 0;
    for (int round = 0; round < 1000; ++round) {
        const Table table = tables.NextThatBuilds();
        for (std::size_t row = 0; row < table.Points.size(); ++row) {
            if (!LiesOnALine(table, row) || !IsLastOfItsInput(table, row))
                continue;
            QCOMPARE(BitsOf(SEN_Meas_Z(table.Points[row].X)), BitsOf(table.Points[row].Y));
            ++points;
        }
    }
    QVERIFY(points > 5000);
}

void TestLintabRandom::linesStayBetweenNeighbours()
{
    Tables tables;
    int lines = 0;
    for (int round = 0; round < 1000; ++round) {
        const Table table = tables.NextThatBuilds();
        for (std::size_t row = 0; row + 1 < table.Points.size(); ++row) {
            const CurvePoint &left = table.Points[row];
            const CurvePoint &right = table.Points[row + 1];
            if (table.Flags[OpeningOf(table, row)].Arithmetic != Line || left.X == right.X)
                continue;
            ++lines;
            // Straight up to the next point, and not beyond it by any rounding.
            const auto [low, high] = std::minmax(left.Y, right.Y);
            for (const double x : {std::nextafter(left.X, Infinity), left.X + (right.X - left.X) * tables.Unit(),
                                   std::nextafter(right.X, -Infinity)}) {
                const double value = SEN_Meas_Z(x);
                QVERIFY(x >= right.X || (value >= low && value <= high));
                const double share = (x - left.X) / (right.X - left.X);
                QVERIFY(std::abs(value - (left.Y + share * (right.Y - left.Y))) <= 1e-12);
            }
        }
    }
    QVERIFY(lines > 5000);
}

void TestLintabRandom::hasNoJumpWhereInputsDiffer()
{
    Tables tables;
    int joints = 0;
    for (int round = 0; round < 1000; ++round) {
        const Table table = tables.NextThatBuilds();
        for (std::size_t row = 0; row < table.Points.size(); ++row) {
            if (!IsOnlyOfItsInput(table, row))
                continue;
            joints += row > 0 && table.Flags[row].IsSegment == 1 ? 1 : 0;
            const double value = SEN_Meas_Z(table.Points[row].X);
            for (const double side : {-Infinity, Infinity}) {
                const double beside = SEN_Meas_Z(std::nextafter(table.Points[row].X, side));
                QVERIFY(std::abs(beside - value) <= 1e-9 * (200 + std::abs(value)));
            }
        }
    }
    QVERIFY(joints > 500);
}

void TestLintabRandom::dependsOnItsTableOnly()
{
    Tables tables;
    for (int round = 0; round < 300; ++round) {
        Table table = tables.NextThatBuilds();
        const std::vector<double> inputs = InputsOf(table);
        const std::vector<std::uint64_t> bits = BitsAt(inputs);
        // Another curve before it, evaluated or not, and no curve before it.
        const Table other = tables.NextThatBuilds();
        if (round % 2 == 0)
            BitsAt(InputsOf(other));
        QCOMPARE(table.Build(), 0);
        QCOMPARE(BitsAt(inputs), bits);
        SEN_Free();
        QCOMPARE(table.Build(), 0);
        for (std::size_t row = 0; row < table.Points.size(); ++row) {
            table.Points[row] = {NotANumber, tables.Unit()};
            table.Flags[row] = {2, 2};
        }
        QCOMPARE(BitsAt(inputs), bits);
    }
}

void TestLintabRandom::orderOfEvaluationDoesNotMatter()
{
    Tables tables;
    for (int round = 0; round < 300; ++round) {
        const std::vector<double> inputs = InputsOf(tables.NextThatBuilds());
        const std::vector<std::uint64_t> bits = BitsAt(inputs);
        for (int evaluation = 0; evaluation < 1000; ++evaluation) {
            const auto i = static_cast<std::size_t>(tables.UpTo(static_cast<int>(inputs.size())));
            QCOMPARE(BitsOf(SEN_Meas_Z(inputs[i])), bits[i]);
        }
    }
}

QTEST_GUILESS_MAIN(TestLintabRandom)
#include "tst_lintab_random.moc"
