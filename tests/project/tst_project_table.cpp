/// @file
/// The project table: free slots, point counts, unit scales and their limits.
#include "project/ProjectTable.h"
#include "support/ErrorOf.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestProjectTable : public QObject {
    Q_OBJECT

private slots:
    void init() { ResetProjectTable(); }

    void holdsTenSlotsOfFiveHundredRows();
    void factorFollowsTheInputUnit_data();
    void factorFollowsTheInputUnit();
    void pointCountIsTheHighestUsedRow_data();
    void pointCountIsTheHighestUsedRow();
    void pointCountIsKeptPerSlot();
    void slotOutsideTheTableIsOutOfRange_data();
    void slotOutsideTheTableIsOutOfRange();
    void slotsOfTheTableAreValid();
    void lowestFreeSlotIsFound_data();
    void lowestFreeSlotIsFound();
    void fileExistsForFilesOnly();
    void resetEmptiesTheTable();
};

void TestProjectTable::holdsTenSlotsOfFiveHundredRows()
{
    QCOMPARE(ProjectOccupied.size(), std::size_t(10));
    QCOMPARE(ProjectForm.size(), std::size_t(10));
    QCOMPARE(ProjectSlots.size(), std::size_t(10));
    QCOMPARE(SensorProjects.size(), std::size_t(10));
    QCOMPARE(ReferenceTable.size(), std::size_t(10));
    QCOMPARE(ReferenceTable[0].size(), std::size_t(501));
    QCOMPARE(SensorProjects[0].SensorTypeChars.size(), std::size_t(20));
    QCOMPARE(SensorProjects[0].UnitChars.size(), std::size_t(16));
}

void TestProjectTable::factorFollowsTheInputUnit_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<float>("factor");
    const auto row = [](const char *unit, float factor) {
        QTest::newRow(*unit ? unit : "empty") << QString::fromLatin1(unit) << factor;
    };
    row("V", 1.0F);
    row("A", 1.0F);
    row("Hz", 1.0F);
    row("ohm", 1.0F);
    row("mV", 1000.0F);
    row("mA", 1000.0F);
    row("mHz", 1000.0F);
    row("kHz", 0.001F);
    row("kohm", 0.001F);
    row("MHz", 1e-06F);
    row("uA", 1000000.0F);
    row("C", 1.0F);
    row("F", 1.0F);
    row("K", 1.0F);
    row("None", 1.0F);
    row("", 1.0F);
    // Compared exactly.
    row("MV", 1.0F);
    row("mhz", 1.0F);
    row("khz", 1.0F);
    row("mV ", 1.0F);
    row(" uA", 1.0F);
}

void TestProjectTable::factorFollowsTheInputUnit()
{
    QFETCH(QString, unit);
    QFETCH(float, factor);
    QVERIFY(InputUnitScaleOf(unit) == factor);
}

void TestProjectTable::pointCountIsTheHighestUsedRow_data()
{
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<int>("count");
    QTest::newRow("no row") << QList<int>{} << 0;
    QTest::newRow("first row") << QList<int>{1} << 1;
    QTest::newRow("rows 1, 2 and 7") << QList<int>{1, 2, 7} << 7;
    QTest::newRow("last row alone") << QList<int>{500} << 500;
    QTest::newRow("row 0 never counts") << QList<int>{0} << 0;
}

void TestProjectTable::pointCountIsTheHighestUsedRow()
{
    QFETCH(QList<int>, rows);
    QFETCH(int, count);
    for (const int row : rows)
        ReferenceTable[4][row].Used = true;
    QCOMPARE(LastUsedRow(4), count);
}

void TestProjectTable::pointCountIsKeptPerSlot()
{
    ReferenceTable[9][3].Used = true;
    QCOMPARE(LastUsedRow(9), 3);
    QCOMPARE(LastUsedRow(8), 0);
}

void TestProjectTable::slotOutsideTheTableIsOutOfRange_data()
{
    QTest::addColumn<int>("slot");
    QTest::newRow("below") << -1;
    QTest::newRow("ten") << 10;
    QTest::newRow("far above") << 32767;
}

void TestProjectTable::slotOutsideTheTableIsOutOfRange()
{
    QFETCH(int, slot);
    QCOMPARE(ErrorOf([slot] { CheckedSlot(slot); }), 9);
    QCOMPARE(ErrorOf([slot] { LastUsedRow(slot); }), 9);
}

void TestProjectTable::slotsOfTheTableAreValid()
{
    for (int slot = 0; slot < 10; ++slot)
        QCOMPARE(CheckedSlot(slot), slot);
}

void TestProjectTable::lowestFreeSlotIsFound_data()
{
    QTest::addColumn<QList<int>>("occupied");
    QTest::addColumn<int>("slot");
    QTest::newRow("all free") << QList<int>{} << 0;
    QTest::newRow("first taken") << QList<int>{0} << 1;
    QTest::newRow("gap in the middle") << QList<int>{0, 1, 3} << 2;
    QTest::newRow("first free again") << QList<int>{1, 2} << 0;
    QTest::newRow("only the last free") << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8} << 9;
    QTest::newRow("none free counts as 0") << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9} << 0;
}

void TestProjectTable::lowestFreeSlotIsFound()
{
    QFETCH(QList<int>, occupied);
    QFETCH(int, slot);
    for (const int taken : occupied)
        ProjectOccupied[taken] = true;
    QCOMPARE(FindFreeSlot(), slot);
}

void TestProjectTable::fileExistsForFilesOnly()
{
    const QTemporaryDir folder;
    QVERIFY(folder.isValid());
    const QString path = folder.filePath(QStringLiteral("one.spj"));
    QVERIFY(!FileExists(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QVERIFY(FileExists(path));
    QVERIFY(!FileExists(folder.path()));
    QVERIFY(!FileExists(QString()));
    QVERIFY(!FileExists(folder.filePath(QStringLiteral("none/one.spj"))));
}

void TestProjectTable::resetEmptiesTheTable()
{
    ProjectOccupied[3] = true;
    ProjectSlots[3].ProjectName = QStringLiteral("Project-4");
    ProjectSlots[3].ChildCount = 3;
    SensorProjects[3].MeasFunction = 5;
    ReferenceTable[3][500].Used = true;
    ProjectCount = 1;
    CurrentNewSlot = 3;
    ProjectNodeCount = 1;
    ProjectPointCount = 500;
    ResetProjectTable();
    QVERIFY(!ProjectOccupied[3]);
    QVERIFY(ProjectForm[3] == nullptr);
    QVERIFY(ProjectSlots[3].ProjectName.isEmpty());
    QCOMPARE(int(ProjectSlots[3].ChildCount), 0);
    QCOMPARE(SensorProjects[3].MeasFunction, 0);
    QCOMPARE(LastUsedRow(3), 0);
    QCOMPARE(int(ProjectCount), 0);
    QCOMPARE(int(CurrentNewSlot), 0);
    QCOMPARE(int(ProjectNodeCount), 0);
    QCOMPARE(ProjectPointCount, 0);
}

QTEST_GUILESS_MAIN(TestProjectTable)
#include "tst_project_table.moc"
