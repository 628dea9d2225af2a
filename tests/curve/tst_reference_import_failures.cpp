/// @file
/// Imports that are refused, or fail: what is said, and that the table stays as it was.
#include "curve/ReferenceFileBench.h"
#include "support/UserWithoutRights.h"

#include <memory>

#include <sys/stat.h>

namespace {

/// What an import ends with, in the tables of this test.
enum class End { NoCount, Segment, Arithmetic, Silent };

} // namespace

Q_DECLARE_METATYPE(End)

class ReferenceImportFailuresTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ReferenceFileBench>();
        QVERIFY(m_bench->FolderIsFit());
        m_bench->PutTable(OldTable());
        ReferenceBackup[0] = WideItems();
        m_bench->project.RedoLumoBtn->setEnabled(true);
    }
    void cleanup() { m_bench.reset(); }

    void bad_bytes_leave_the_table_data();
    void bad_bytes_leave_the_table();
    void a_refusal_speaks_both_languages_data();
    void a_refusal_speaks_both_languages();
    void a_cancelled_dialogue_ends_the_import_silently();
    void a_missing_file_ends_the_import_silently_data();
    void a_missing_file_ends_the_import_silently();
    void a_file_without_permission_is_reported_data();
    void a_file_without_permission_is_reported();
    void a_file_that_another_process_holds_alone_is_reported_data();
    void a_file_that_another_process_holds_alone_is_reported();
    void a_file_that_others_read_is_imported();
    void a_folder_in_the_files_place_is_reported_data();
    void a_folder_in_the_files_place_is_reported();
    void a_huge_file_leaves_the_table_data();
    void a_huge_file_leaves_the_table();

    void a_refused_file_stays_open_data();
    void a_refused_file_stays_open();
    void a_file_that_fails_otherwise_closes();
    void a_refused_file_can_be_mended_and_imported();
    void a_refused_file_takes_no_export();

private:
    static ReferenceRows OldTable() { return TableOf({{1, 2, true, 1}, {3, 4, false, 0}}); }

    /// The table, its backup, its list and the buttons are as init left them.
    void CompareUntouched()
    {
        QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(OldTable()));
        QCOMPARE(UsedRows(ReferenceBackup[0]), UsedRows(WideItems()));
        QCOMPARE(m_bench->project.EditDataView->LineCount(), 2);
        QVERIFY(!m_bench->project.UndoLumoBtn->isEnabled());
        QVERIFY(m_bench->project.RedoLumoBtn->isEnabled());
    }

    QString DataPath(ReferenceDataLayout layout = Csv) const
    {
        return m_bench->Path(layout == Csv ? QStringLiteral("data.CSV") : QStringLiteral("data.txt"));
    }

    /// Puts the file that was made by hand where DataPath says. @return its path
    QString PutFile(ReferenceDataLayout layout = Csv)
    {
        const QString name =
            QStringLiteral("reference_three_rows") + (layout == Csv ? QStringLiteral(".CSV") : QStringLiteral(".txt"));
        if (!PutBytes(DataPath(layout), DataBytes(name)))
            qFatal("no file");
        return DataPath(layout);
    }

    std::unique_ptr<ReferenceFileBench> m_bench;
};

void ReferenceImportFailuresTest::bad_bytes_leave_the_table_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<End>("end");
    const auto row = [](const char *name, ReferenceDataLayout layout, const QByteArray &bytes, End end) {
        QTest::newRow(name) << layout << bytes << end;
    };
    row("empty", Csv, "", End::Silent);
    row("empty text", Text, "", End::Silent);
    row("blanks", Csv, "  \t ", End::Silent);
    row("blanks in text", Text, "  \t ", End::Silent);
    row("empty lines", Csv, "\r\n\r\n", End::NoCount);
    row("empty lines in text", Text, "\r\n\r\n", End::NoCount);
    row("count 0", Csv, "0,,,\r\n1,2,True,0\r\n", End::NoCount);
    row("count -1", Csv, "-1,,,\r\n1,2,True,0\r\n", End::NoCount);
    row("count of words", Csv, "Input,Output\r\n1,2,True,0\r\n", End::NoCount);
    row("count of words in text", Text, "Input Output\r\n1 2 True 0\r\n", End::NoCount);
    row("count 0 as text", Text, " 0 \r\n", End::NoCount);
    row("count -1 as text", Text, "-1 \r\n 1  2  True  0 \r\n", End::NoCount);
    row("count beyond 32 bits", Csv, "4294967297,,,\r\n1,2,True,0\r\n", End::Silent); // 1 in 32 bits
    row("count beyond 32 bits in text", Text, "4294967297\r\n1 2 True 0\r\n", End::Silent);
    row("count below 32 bits", Csv, "-4294967295,,,\r\n1,2,True,0\r\n", End::NoCount); // 1 in 32 bits
    row("count beyond double", Csv, "1e400,,,\r\n1,2,True,0\r\n", End::Silent);
    row("count 501 with fewer rows", Csv, "501,,,\r\n1,2,True,0\r\n", End::Silent);
    row("count 501 with fewer rows of text", Text, "501\r\n1 2 True 0\r\n", End::Silent);
    row("count 1e9 with fewer rows", Csv, "1e9,,,\r\n1,2,True,0\r\n", End::Silent);
    row("count 1e9 with fewer rows of text", Text, "1e9\r\n1 2 True 0\r\n", End::Silent);
    row("count rounded up to 4", Csv, "3.7,,,\r\n1,2,T,0\r\n2,2,T,0\r\n3,2,T,0\r\n", End::Silent);
    row("count rounded up to 4 in text", Text, "3.7\r\n1 2 T 0\r\n2 2 T 0\r\n3 2 T 0\r\n", End::Silent);
    row("count larger than the rows", Csv, "2,,,\r\n1,2,True,0\r\n", End::Silent);
    row("count larger than the rows of text", Text, " 2 \r\n 1  2  True  0 \r\n", End::Silent);
    row("no row behind the count", Csv, "1,,,", End::Silent);
    row("no row of text behind the count", Text, "1", End::Silent);
    row("row without an output", Csv, "1,,,\r\n1\r\n", End::Silent);
    row("row of text without an output", Text, "1\r\n1\r\n", End::Silent);
    row("row without a segment", Csv, "1,,,\r\n1,2\r\n", End::Silent);
    row("row of text without a segment", Text, "1\r\n1 2\r\n", End::Silent);
    row("row without an arithmetic", Csv, "1,,,\r\n1,2,True\r\n", End::Silent);
    row("row cut in a word", Csv, "1,,,\r\n1,2,Tr", End::Silent);
    row("row of text cut in a word", Text, "1\r\n1 2 Tr", End::Arithmetic);
    row("first of two rows without a segment", Csv, "2,,,\r\n1,2\r\n3,4,True,0\r\n", End::Segment);
    row("first of two rows of text without a segment", Text, "2\r\n1 2\r\n3 4 True 0\r\n", End::Segment);
    row("segment of another letter", Csv, "1,,,\r\n1,2,Yes,0\r\n", End::Segment);
    row("segment of another letter in text", Text, "1\r\n1 2 Yes 0\r\n", End::Segment);
    row("last of many rows", Csv, "3,,,\r\n1,2,True,0\r\n2,2,True,0\r\n3,2,,0\r\n", End::Segment);
    row("last of many rows of text", Text, "3\r\n1 2 True 0\r\n2 2 True 0\r\n3 2 True 2\r\n", End::Arithmetic);
    row("comma as decimal sign", Csv, "1,,,\r\n1,5,2,5,True,0\r\n", End::Segment);
    row("comma as decimal sign in text", Text, "1\r\n1,5 2,5 True 0\r\n", End::Segment);
    row("arithmetic 2 in text", Text, "1\r\n1 2 True 2\r\n", End::Arithmetic);
    row("no arithmetic in text", Text, "1\r\n1 2 True\r\n", End::Arithmetic);
    row("arithmetic beyond 16 bits", Csv, "1,,,\r\n1,2,True,32768\r\n", End::Silent);
    row("word for a number", Csv, "1,,,\r\nx,2,True,0\r\n", End::Silent);
    row("word for a number in text", Text, "1\r\n1 x True 0\r\n", End::Silent);
    row("number beyond double", Csv, "1,,,\r\n1e999,2,True,0\r\n", End::Silent);
    row("number beyond double in text", Text, "1\r\n1 1e999 True 0\r\n", End::Silent);
    row("the other layout", Csv, " 1 \r\n 1.5           20           True           0 \r\n", End::Silent);
    row("the other layout in text", Text, " 1 ,,,\r\n 1.5 , 20 ,True, 0 \r\n", End::Silent);
    row("zero bytes", Csv, QByteArray(100, '\0'), End::NoCount);
    row("a line of 10 MB of letters", Csv, QByteArray(10'000'000, 'x'), End::NoCount);
    row("a line of 10 MB of letters in text", Text, QByteArray(10'000'000, 'x'), End::NoCount);
}

void ReferenceImportFailuresTest::bad_bytes_leave_the_table()
{
    QFETCH(ReferenceDataLayout, layout);
    QFETCH(QByteArray, bytes);
    QFETCH(End, end);
    const QList<ShownBox> boxes = m_bench->ImportBytes(bytes, layout, end == End::Silent ? 0 : 1);
    if (end == End::Silent)
        QVERIFY(boxes.isEmpty());
    else
        CompareWarning(boxes, end == End::NoCount ? noCount : end == End::Segment ? wrongSegment : wrongArithmetic);
    CompareUntouched();
}

void ReferenceImportFailuresTest::a_refusal_speaks_both_languages_data()
{
    AddLanguages();
}

void ReferenceImportFailuresTest::a_refusal_speaks_both_languages()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    CompareWarning(m_bench->ImportBytes("0\r\n", Csv, 1), noCount);
    CompareWarning(m_bench->ImportBytes("1,,,\r\n1,2,x,0\r\n", Csv, 1), wrongSegment);
    CompareWarning(m_bench->ImportBytes("1\r\n1 2 x 0\r\n", Text, 1), wrongSegment);
    CompareWarning(m_bench->ImportBytes("1\r\n1 2 True x\r\n", Text, 1), wrongArithmetic);
}

void ReferenceImportFailuresTest::a_cancelled_dialogue_ends_the_import_silently()
{
    const BoxAnswers none;
    ClickAndAnswer(m_bench->project.ImportLumoBtn, {});
    CompareUntouched();
}

void ReferenceImportFailuresTest::a_missing_file_ends_the_import_silently_data()
{
    AddLayouts();
}

void ReferenceImportFailuresTest::a_missing_file_ends_the_import_silently()
{
    QFETCH(ReferenceDataLayout, layout);
    m_bench->Import(QStringLiteral("data.x"), layout);
    m_bench->Import(QStringLiteral("none/data.x"), layout);
    CompareUntouched();
}

void ReferenceImportFailuresTest::a_file_without_permission_is_reported_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::newRow("English, CSV") << 1 << Csv;
    QTest::newRow("English, text") << 1 << Text;
    QTest::newRow("Chinese, CSV") << 0 << Csv;
    QTest::newRow("Chinese, text") << 0 << Text;
}

void ReferenceImportFailuresTest::a_file_without_permission_is_reported()
{
    QFETCH(int, language);
    QFETCH(ReferenceDataLayout, layout);
    CurrentLanguage = language;
    const QString path = PutFile(layout);
    QCOMPARE(chmod(QFile::encodeName(m_bench->Folder()).constData(), 0755), 0);
    QCOMPARE(chmod(QFile::encodeName(path).constData(), 0200), 0);
    BoxAnswers answers({QMessageBox::Ok});
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        ClickAndAnswer(m_bench->project.ImportLumoBtn, path, layout);
    }
    CompareWarning(answers.Shown(), heldByOther);
    CompareUntouched();
}

void ReferenceImportFailuresTest::a_file_that_another_process_holds_alone_is_reported_data()
{
    AddLayouts();
}

void ReferenceImportFailuresTest::a_file_that_another_process_holds_alone_is_reported()
{
    QFETCH(ReferenceDataLayout, layout);
    const QString path = PutFile(layout);
    const LockHolder other(path, LOCK_EX);
    QVERIFY(other.Holds());
    BoxAnswers answers({QMessageBox::Ok});
    ClickAndAnswer(m_bench->project.ImportLumoBtn, path, layout);
    CompareWarning(answers.Shown(), heldByOther);
    CompareUntouched();
}

void ReferenceImportFailuresTest::a_file_that_others_read_is_imported()
{
    const LockHolder other(PutFile(), LOCK_SH);
    QVERIFY(other.Holds());
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
}

void ReferenceImportFailuresTest::a_folder_in_the_files_place_is_reported_data()
{
    AddLayouts();
}

void ReferenceImportFailuresTest::a_folder_in_the_files_place_is_reported()
{
    QFETCH(ReferenceDataLayout, layout);
    QVERIFY(QDir().mkdir(DataPath(layout)));
    BoxAnswers answers({QMessageBox::Ok});
    ClickAndAnswer(m_bench->project.ImportLumoBtn, m_bench->Path(QStringLiteral("data.x")), layout);
    CompareWarning(answers.Shown(), heldByOther);
    CompareUntouched();
}

void ReferenceImportFailuresTest::a_huge_file_leaves_the_table_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<End>("end");
    constexpr qsizetype huge = 100'000'000;
    QTest::newRow("a line of digits") << Csv << QByteArray(huge, '1') << End::Silent; // no double
    QTest::newRow("a line of letters") << Csv << QByteArray(huge, 'x') << End::NoCount;
    QTest::newRow("a line of letters, text") << Text << QByteArray(huge, 'x') << End::NoCount;
    QTest::newRow("a line of blanks, text") << Text << QByteArray(huge, ' ') << End::Silent;
    QTest::newRow("a segment of letters") << Csv << "1,,,\r\n1,2," + QByteArray(huge, 'x') << End::Segment;
    // What would be read as 1 if the file ended behind 16 MiB.
    const QByteArray row = "1,,,\r\n1,2,True,";
    QTest::newRow("a number at the end of what is read")
        << Csv << row + QByteArray((16 << 20) - 1 - row.size(), ' ') + "10\r\n"
        << End::Silent;
}

/// 100 MB, where nothing else is said.
void ReferenceImportFailuresTest::a_huge_file_leaves_the_table()
{
    bad_bytes_leave_the_table();
}

void ReferenceImportFailuresTest::a_refused_file_stays_open_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("count") << Csv << QByteArray("0\r\n");
    QTest::newRow("segment") << Csv << QByteArray("1,,,\r\n1,2,x,0\r\n");
    QTest::newRow("segment in text") << Text << QByteArray("1\r\n1 2 x 0\r\n");
    QTest::newRow("arithmetic") << Text << QByteArray("1\r\n1 2 True x\r\n");
}

void ReferenceImportFailuresTest::a_refused_file_stays_open()
{
    QFETCH(ReferenceDataLayout, layout);
    QFETCH(QByteArray, bytes);
    QCOMPARE(m_bench->ImportBytes(bytes, layout, 1).size(), 1);
    const QString path = layout == Csv ? DataPath() : m_bench->Path(QStringLiteral("data.txt"));
    QVERIFY(!LockHolder(path, LOCK_EX).Holds());
    QVERIFY(LockHolder(path, LOCK_SH).Holds());
}

void ReferenceImportFailuresTest::a_file_that_fails_otherwise_closes()
{
    m_bench->ImportBytes("2,,,\r\n1,2,True,0\r\n", Csv, 0);
    QVERIFY(LockHolder(DataPath(), LOCK_EX).Holds());
}

void ReferenceImportFailuresTest::a_refused_file_can_be_mended_and_imported()
{
    QCOMPARE(m_bench->ImportBytes("x\r\n", Csv, 1).size(), 1);
    QCOMPARE(m_bench->ImportBytes("x\r\n", Csv, 1).size(), 1);
    QVERIFY(m_bench->ImportBytes(DataBytes(QStringLiteral("reference_three_rows.CSV")), Csv, 0).isEmpty());
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    QVERIFY(!LockHolder(DataPath(), LOCK_EX).Holds());
}

/// The program has it open itself: the question comes, then nothing.
void ReferenceImportFailuresTest::a_refused_file_takes_no_export()
{
    const QByteArray bytes = "0\r\n";
    QCOMPARE(m_bench->ImportBytes(bytes, Csv, 1).size(), 1);
    {
        BoxAnswers answers({QMessageBox::Ok});
        ClickAndAnswer(m_bench->project.ExportLumoBtn, DataPath());
        QCOMPARE(answers.Shown().size(), 1);
        QCOMPARE(BytesOf(DataPath()), bytes);
    }
    const BoxAnswers none;
    ClickAndAnswer(m_bench->project.ExportLumoBtn, m_bench->Path(QStringLiteral("other.CSV")));
    QVERIFY(BytesOf(m_bench->Path(QStringLiteral("other.CSV"))).startsWith(" 2 ,,,\r\n"));
}

QTEST_MAIN(ReferenceImportFailuresTest)
#include "tst_reference_import_failures.moc"
