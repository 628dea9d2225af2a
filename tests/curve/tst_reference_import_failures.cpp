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
    void a_missing_file_ends_the_import_silently();
    void a_file_without_permission_is_reported_data();
    void a_file_without_permission_is_reported();
    void a_file_that_another_process_holds_alone_is_reported();
    void a_file_that_others_read_is_imported();
    void a_folder_in_the_files_place_is_reported();
    void a_huge_file_ends_the_import_silently();

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

    QString DataPath() const { return m_bench->Path(QStringLiteral("data.CSV")); }

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
    row("count 0", Csv, "0,,,\r\n1,2,True,0\r\n", End::NoCount);
    row("count -1", Csv, "-1,,,\r\n1,2,True,0\r\n", End::NoCount);
    row("count of words", Csv, "Input,Output\r\n1,2,True,0\r\n", End::NoCount);
    row("count 0 as text", Text, " 0 \r\n", End::NoCount);
    row("count -1 as text", Text, "-1 \r\n 1  2  True  0 \r\n", End::NoCount);
    row("count beyond 32 bits", Csv, "4294967297,,,\r\n1,2,True,0\r\n", End::Silent);
    row("count rounded up to 4", Csv, "3.7,,,\r\n1,2,T,0\r\n2,2,T,0\r\n3,2,T,0\r\n", End::Silent);
    row("count larger than the rows", Csv, "2,,,\r\n1,2,True,0\r\n", End::Silent);
    row("count larger than the rows of text", Text, " 2 \r\n 1  2  True  0 \r\n", End::Silent);
    row("row cut short", Csv, "1,,,\r\n1,2,Tr", End::Silent);
    row("row of text cut short", Text, "1\r\n1 2 Tr", End::Arithmetic);
    row("segment of another letter", Csv, "1,,,\r\n1,2,Yes,0\r\n", End::Segment);
    row("segment of another letter in text", Text, "1\r\n1 2 Yes 0\r\n", End::Segment);
    row("last of many rows", Csv, "3,,,\r\n1,2,True,0\r\n2,2,True,0\r\n3,2,,0\r\n", End::Segment);
    row("comma as decimal sign", Csv, "1,,,\r\n1,5,2,5,True,0\r\n", End::Segment);
    row("comma as decimal sign in text", Text, "1\r\n1,5 2,5 True 0\r\n", End::Segment);
    row("arithmetic 2 in text", Text, "1\r\n1 2 True 2\r\n", End::Arithmetic);
    row("no arithmetic in text", Text, "1\r\n1 2 True\r\n", End::Arithmetic);
    row("arithmetic beyond 16 bits", Csv, "1,,,\r\n1,2,True,32768\r\n", End::Silent);
    row("word for a number", Csv, "1,,,\r\nx,2,True,0\r\n", End::Silent);
    row("number beyond double", Csv, "1,,,\r\n1e999,2,True,0\r\n", End::Silent);
    row("the other layout", Csv, " 1 \r\n 1.5           20           True           0 \r\n", End::Silent);
    row("the other layout in text", Text, " 1 ,,,\r\n 1.5 , 20 ,True, 0 \r\n", End::Silent);
    row("zero bytes", Csv, QByteArray(100, '\0'), End::NoCount);
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

void ReferenceImportFailuresTest::a_missing_file_ends_the_import_silently()
{
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    m_bench->Import(QStringLiteral("none/data.CSV"), Csv);
    CompareUntouched();
}

void ReferenceImportFailuresTest::a_file_without_permission_is_reported_data()
{
    AddLanguages();
}

void ReferenceImportFailuresTest::a_file_without_permission_is_reported()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    QVERIFY(PutBytes(DataPath(), DataBytes(QStringLiteral("reference_three_rows.CSV"))));
    QCOMPARE(chmod(QFile::encodeName(m_bench->Folder()).constData(), 0755), 0);
    QCOMPARE(chmod(QFile::encodeName(DataPath()).constData(), 0200), 0);
    BoxAnswers answers({QMessageBox::Ok});
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        ClickAndAnswer(m_bench->project.ImportLumoBtn, DataPath());
    }
    CompareWarning(answers.Shown(), heldByOther);
    CompareUntouched();
}

void ReferenceImportFailuresTest::a_file_that_another_process_holds_alone_is_reported()
{
    QVERIFY(PutBytes(DataPath(), DataBytes(QStringLiteral("reference_three_rows.CSV"))));
    const LockHolder other(DataPath(), LOCK_EX);
    QVERIFY(other.Holds());
    BoxAnswers answers({QMessageBox::Ok});
    ClickAndAnswer(m_bench->project.ImportLumoBtn, DataPath());
    CompareWarning(answers.Shown(), heldByOther);
    CompareUntouched();
}

void ReferenceImportFailuresTest::a_file_that_others_read_is_imported()
{
    QVERIFY(PutBytes(DataPath(), DataBytes(QStringLiteral("reference_three_rows.CSV"))));
    const LockHolder other(DataPath(), LOCK_SH);
    QVERIFY(other.Holds());
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
}

void ReferenceImportFailuresTest::a_folder_in_the_files_place_is_reported()
{
    QVERIFY(QDir().mkdir(DataPath()));
    BoxAnswers answers({QMessageBox::Ok});
    ClickAndAnswer(m_bench->project.ImportLumoBtn, m_bench->Path(QStringLiteral("data.x")));
    CompareWarning(answers.Shown(), heldByOther);
    CompareUntouched();
}

/// 100 MB of one line.
void ReferenceImportFailuresTest::a_huge_file_ends_the_import_silently()
{
    QVERIFY(m_bench->ImportBytes(QByteArray(100'000'000, '1'), Csv, 0).isEmpty());
    CompareUntouched();
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
