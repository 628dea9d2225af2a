/// @file
/// The rows of project files made by hand: words, shifts and counts that no program writes.
#include "project/ProjectFileBench.h"

#include <QtTest>

namespace {

constexpr int Slot = 4;

} // namespace

class TestProjectFileRows : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ResetProjectTable();
        PutOldContents(Slot);
    }
    void cleanup() { QVERIFY(SurroundingsAreOld(Slot)); }

    void aWordThatIsNeitherLeavesItsFieldAsItWas_data();
    void aWordThatIsNeitherLeavesItsFieldAsItWas();
    void aMissingSegmentLineShiftsTheRow();
    void theCountIsTakenAsItIs_data();
    void theCountIsTakenAsItIs();
    void aCountThatCannotBeReadLeavesTheOneBefore_data();
    void aCountThatCannotBeReadLeavesTheOneBefore();
    void aValueThatCannotBeReadStaysAsItWas_data();
    void aValueThatCannotBeReadStaysAsItWas();
};

void TestProjectFileRows::aWordThatIsNeitherLeavesItsFieldAsItWas_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<QString>("segment"); // empty when it keeps its old value
    const auto row = [](const char *word, const char *segment) {
        QTest::addRow("'%s'", word) << QByteArray(word) << QString::fromLatin1(segment);
    };
    row("True", "true");
    row("  True", "true");
    row("False", "false");
    for (const char *word : {"", "true", "false", "True ", "FALSE", "1", "0", "Truth"})
        row(word, "");
}

void TestProjectFileRows::aWordThatIsNeitherLeavesItsFieldAsItWas()
{
    QFETCH(QByteArray, word);
    QFETCH(QString, segment);
    for (const bool before : {true, false}) {
        ReferenceTable[Slot][1].Segment = before;
        QByteArrayList lines = DistinctLines(" 1 ");
        lines.append({" 1  2 ", word, " 1 ", word});
        QCOMPARE(ReadingError(Slot, FileOf(lines)), 0);
        QCOMPARE(ReferenceTable[Slot][1].Segment, segment.isEmpty() ? before : segment == QStringLiteral("true"));
        // All marks have been cleared ahead of the rows.
        QCOMPARE(ReferenceTable[Slot][1].Used, segment == QStringLiteral("true"));
        QCOMPARE(int(ReferenceTable[Slot][1].Arithmetic), 1);
    }
}

void TestProjectFileRows::aMissingSegmentLineShiftsTheRow()
{
    QByteArrayList lines = DistinctLines(" 2 ");
    lines.append({" 1  10 ", " 1 ", "True"});
    lines.append({" 2  20 ", "False", " 0 ", "True"});
    QCOMPARE(ReadingError(Slot, FileOf(lines)), 62);
    ReferencePoint first = OldRow();
    first.Input = 1;
    first.Output = 10;
    first.Used = false; // met " 2  20 "; Segment met " 1 ", Arithmetic met "True"
    QCOMPARE(TextOf(ReferenceTable[Slot][1]), TextOf(first));
    ReferencePoint second = OldRow();
    second.Output = 0; // Input met "False"
    second.Used = false;
    QVERIFY(second.Segment); // met "True"; behind it the file ends
    QCOMPARE(TextOf(ReferenceTable[Slot][2]), TextOf(second));
}

void TestProjectFileRows::theCountIsTakenAsItIs_data()
{
    QTest::addColumn<QByteArray>("count");
    QTest::addColumn<int>("rowsInFile");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("pointCount");
    QTest::addColumn<int>("error");
    const auto row = [](const char *count, int rowsInFile, int rows, int pointCount, int error) {
        QTest::addRow("%s of %d", count, rowsInFile) << QByteArray(count) << rowsInFile << rows << pointCount << error;
    };
    row("0", 3, 0, 0, 0);
    row("2", 3, 2, 2, 0);
    row("3", 3, 3, 3, 0);
    row("4", 3, 3, 4, 62);
    row("500", 500, 500, 500, 0);
    row("500", 3, 3, 500, 62);
    row("501", 500, 500, 501, 9);
    row("501", 501, 500, 501, 9);
    row("600", 600, 500, 600, 9);
    row("501", 3, 3, 501, 9);
    row("2147483647", 600, 500, 2147483647, 9);
    row("2147483647", 2, 2, 2147483647, 9);
    row("-1", 3, 0, -1, 0);
    row("-2147483648", 3, 0, -2147483647 - 1, 0);
    row("2.5", 3, 2, 2, 0); // ties to even
    row("1.5", 3, 2, 2, 0);
    row("3E0", 3, 3, 3, 0);
}

void TestProjectFileRows::theCountIsTakenAsItIs()
{
    QFETCH(QByteArray, count);
    QFETCH(int, rowsInFile);
    QFETCH(int, rows);
    QFETCH(int, error);
    QCOMPARE(ReadingError(Slot, FileOf(LinesWithRows(count, rowsInFile))), error);
    QTEST(ProjectPointCount, "pointCount");
    QCOMPARE(UsedRows(Slot), rows);
    QCOMPARE(LastUsedRow(Slot), rows);
    if (rows > 0)
        QCOMPARE(ReferenceTable[Slot][rows].Output, -rows - 0.5);
}

void TestProjectFileRows::aCountThatCannotBeReadLeavesTheOneBefore_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("error"); // the last one: of the count, or of the rows
    QTest::newRow("text") << QByteArray("abc") << 2 << 2 << 13;
    QTest::newRow("too large for 32 bits") << QByteArray("2147483648") << 2 << 2 << 6;
    QTest::newRow("none before") << QByteArray("abc") << 0 << 0 << 13;
    QTest::newRow("more than the file holds") << QByteArray("abc") << 9 << 3 << 62;
    QTest::newRow("more than the table holds") << QByteArray("abc") << 2000000000 << 3 << 9;
    QTest::newRow("negative") << QByteArray("abc") << -7 << 0 << 13;
}

void TestProjectFileRows::aCountThatCannotBeReadLeavesTheOneBefore()
{
    QFETCH(QByteArray, text);
    QFETCH(int, before);
    ProjectPointCount = before;
    QTEST(ReadingError(Slot, FileOf(LinesWithRows(text, 3))), "error");
    QCOMPARE(ProjectPointCount, before);
    QTEST(UsedRows(Slot), "rows");
}

void TestProjectFileRows::aValueThatCannotBeReadStaysAsItWas_data()
{
    QTest::addColumn<QByteArray>("numbers");
    QTest::addColumn<QByteArray>("arithmetic");
    QTest::addColumn<double>("input");
    QTest::addColumn<double>("output");
    QTest::addColumn<int>("method");
    QTest::addColumn<int>("error");
    const auto row = [](const char *numbers, const char *arithmetic, double input, double output, int method,
                        int error) {
        QTest::addRow("%s %s", numbers, arithmetic)
            << QByteArray(numbers) << QByteArray(arithmetic) << input << output << method << error;
    };
    row(" 1  2 ", " 1 ", 1, 2, 1, 0);
    row("1,2", "1", 1, 2, 1, 0);
    row("x 2", "1", 177, 2, 1, 13);
    row("1 x", "1", 1, 177, 1, 13);
    row("1e400 2", "1", 177, 2, 1, 6);
    row("1 -1e400", "1", 1, 177, 1, 6);
    row("1 2", "x", 1, 2, 177, 13);
    row("1 2", "", 1, 2, 177, 13);
    row("1 2", "32768", 1, 2, 177, 6);
    row("1 2", "-32769", 1, 2, 177, 6);
    row("1 2", "-32768", 1, 2, -32768, 0);
    row("1 2", "0.5", 1, 2, 0, 0);
    row("1 2", "1.5", 1, 2, 2, 0);
}

void TestProjectFileRows::aValueThatCannotBeReadStaysAsItWas()
{
    QFETCH(QByteArray, numbers);
    QFETCH(QByteArray, arithmetic);
    QByteArrayList lines = DistinctLines(" 1 ");
    lines.append({numbers, "True", arithmetic, "True"});
    QTEST(ReadingError(Slot, FileOf(lines)), "error");
    QTEST(ReferenceTable[Slot][1].Input, "input");
    QTEST(ReferenceTable[Slot][1].Output, "output");
    QTEST(int(ReferenceTable[Slot][1].Arithmetic), "method");
    QVERIFY(ReferenceTable[Slot][1].Used);
    QCOMPARE(ReferenceTable[Slot][1].InputText, QStringLiteral("old"));
}

QTEST_GUILESS_MAIN(TestProjectFileRows)
#include "tst_project_file_rows.moc"
