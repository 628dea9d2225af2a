/// @file
/// Where a fit meets its neighbour: two fits at the mean of both, a fit beside straight lines at the point, and each
/// fit is moved there by a straight line.
#include "curve/LintabTable.h"
#include "curve/lintab/LeastSquares.h"
#include "curve/lintab/Polynomial.h"

#include <QTest>

#include <algorithm>
#include <cstddef>

using Lintab::LeastSquares;
using Lintab::Polynomial;

namespace {

/// The fit to some rows of a table, alone in the world.
Polynomial FreeFit(const Table &table, std::size_t first, std::size_t last)
{
    const auto begin = table.Points.begin();
    return LeastSquares(
               std::vector(begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(last) + 1))
        .Best();
}

/// How far the curve held lies above a fit.
double Moved(const Polynomial &fit, double x)
{
    return SEN_Meas_Z(x) - Lintab::ValueAt(fit, x);
}

/// Checks that the curve over a fit is the fit plus a straight line from one end to the other.
void CheckMovedByALine(const Polynomial &fit, double start, double end)
{
    const double atStart = Moved(fit, start);
    const double atEnd = Moved(fit, end);
    for (const double share : {0.1, 0.3, 0.5, 0.7, 0.9}) {
        const double x = start + share * (end - start);
        QVERIFY(std::abs(Moved(fit, x) - (atStart + share * (atEnd - atStart))) < 1e-12);
    }
}

/// Three stretches of ten rows on a zigzag, the middle one "Least", and a last row.
Table ThreeStretches(std::uint8_t outer)
{
    Table table;
    for (int row = 0; row <= 30; ++row) {
        const double y = std::sqrt(row) + row * row % 7 * 0.3;
        if (row % 10 == 0 && row < 30) {
            table.Open(row, y, row == 10 ? Least : outer);
        } else {
            table.Add(row, y);
        }
    }
    return table;
}

} // namespace

class TestLintabJoints : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SEN_Free(); }

    void twoFitsMeetAtTheirMean();
    void fitsAreMovedByAStraightLine();
    void aNeighbourFarAboveMovesByAStraightLineToo();
    void fitBesideALineGoesToThePoint();
    void fitBetweenLinesIsMovedByAStraightLine();
};

void TestLintabJoints::twoFitsMeetAtTheirMean()
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
    const double leftFit = Lintab::ValueAt(FreeFit(table, 0, 8), 8);
    const double rightFit = Lintab::ValueAt(FreeFit(table, 8, 30), 8);
    QVERIFY(std::abs(leftFit - rightFit) > 1e-3);
    QVERIFY(std::abs(SEN_Meas_Z(8) - (leftFit + rightFit) / 2) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(8, 0)) - SEN_Meas_Z(8)) < 1e-12);
    QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(8, 9)) - SEN_Meas_Z(8)) < 1e-12);
}

void TestLintabJoints::fitsAreMovedByAStraightLine()
{
    const Table table = ThreeStretches(Least);
    QCOMPARE(table.Build(), 0);
    const Polynomial left = FreeFit(table, 0, 10);
    const Polynomial middle = FreeFit(table, 10, 20);
    const Polynomial right = FreeFit(table, 20, 30);
    CheckMovedByALine(left, 0, 10);
    CheckMovedByALine(middle, 10, 20);
    CheckMovedByALine(right, 20, 30);
    // The free ends stay where they are, the others go as far as their neighbour comes towards them.
    QVERIFY(std::abs(Moved(left, 0)) < 1e-12);
    QVERIFY(std::abs(Moved(right, 30)) < 1e-12);
    QVERIFY(std::abs(Moved(left, 10)) > 0.01);
    QVERIFY(std::abs(Moved(left, 10) + Moved(middle, 10)) < 1e-12);
    QVERIFY(std::abs(Moved(right, 20)) > 0.01);
    QVERIFY(std::abs(Moved(right, 20) + Moved(middle, 20)) < 1e-12);
}

// The fit is counted in a unit of its own, which the joint takes it out of.
void TestLintabJoints::aNeighbourFarAboveMovesByAStraightLineToo()
{
    Table table;
    for (int row = 0; row <= 20; ++row) {
        const double y = row <= 10 ? std::sin(0.3 * row) : 1e5 + row;
        if (row % 10 == 0 && row < 20) {
            table.Open(row, y, Least);
        } else {
            table.Add(row, y);
        }
    }
    QCOMPARE(table.Build(), 0);
    const Polynomial left = FreeFit(table, 0, 10);
    QVERIFY(left.Degree > 2);
    QVERIFY(Moved(left, 10) > 1e3);
    QVERIFY(std::abs(Moved(left, 0)) < 1e-10);
    for (const double share : {0.1, 0.3, 0.5, 0.7, 0.9})
        QVERIFY(std::abs(Moved(left, 10 * share) - share * Moved(left, 10)) < 1e-10);
}

void TestLintabJoints::fitBesideALineGoesToThePoint()
{
    Table table = OneStretch({{0, 3}, {1, 0}}, Line);
    table.Open(2, 5, Least);
    for (int x = 3; x < 10; ++x)
        table.Add(x, x % 2 == 0 ? x + 1.0 : x - 1.0);
    table.Open(10, 2, Line);
    table.Add(12, 0);
    QCOMPARE(table.Build(), 0);
    QCOMPARE(MeasuredBits(2), BitsOf(5.0));
    QCOMPARE(MeasuredBits(10), BitsOf(2.0));
    for (const double x : {2.0, 10.0}) {
        QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(x, -1)) - SEN_Meas_Z(x)) < 1e-12);
        QVERIFY(std::abs(SEN_Meas_Z(std::nextafter(x, 99)) - SEN_Meas_Z(x)) < 1e-12);
    }
    QCOMPARE(MeasuredBits(1.5), BitsOf(2.5));
    QCOMPARE(MeasuredBits(11), BitsOf(1.0));
}

void TestLintabJoints::fitBetweenLinesIsMovedByAStraightLine()
{
    const Table table = ThreeStretches(Line);
    QCOMPARE(table.Build(), 0);
    const Polynomial fit = FreeFit(table, 10, 20);
    CheckMovedByALine(fit, 10, 20);
    QVERIFY(std::abs(Moved(fit, 10)) > 0.01);
    QVERIFY(std::abs(Moved(fit, 20)) > 0.01);
}

QTEST_GUILESS_MAIN(TestLintabJoints)
#include "tst_lintab_joints.moc"
