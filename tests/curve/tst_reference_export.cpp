/// @file
/// The export of a reference table: its button, what stands in the file, and what cannot be written.
#include "curve/ReferenceFileBench.h"
#include "support/CommaLocale.h"
#include "support/UserWithoutRights.h"

#include <memory>

#include <sys/stat.h>

namespace {

constexpr Wordings noPoint{"No reference point! ", "没有参考点! "};

constexpr auto Ok = QMessageBox::Ok;

void SetMode(const QString &path, mode_t mode)
{
    if (chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("no mode for %s", qPrintable(path));
}

} // namespace

class ReferenceExportTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ReferenceFileBench>();
        QVERIFY(m_bench->FolderIsFit());
        m_bench->PutTable(ThreeRows());
    }
    void cleanup() { m_bench.reset(); }

    void a_table_without_rows_makes_no_file_data();
    void a_table_without_rows_makes_no_file();
    void the_table_stands_in_the_file_data();
    void the_table_stands_in_the_file();
    void a_locale_with_a_comma_changes_nothing();
    void a_row_below_the_last_is_written_unused_or_not();
    void the_active_projects_table_is_written();
    void a_built_in_sensors_table_is_written();
    void an_export_changes_nothing_in_the_program();

    void what_may_not_be_written_is_reported_data();
    void what_may_not_be_written_is_reported();
    void a_file_that_another_process_holds_is_reported_data();
    void a_file_that_another_process_holds_is_reported();
    void a_folder_in_the_files_place_is_reported();
    void a_full_disk_ends_the_export_silently_with_what_fits();
    void a_missing_folder_ends_the_export_silently();

private:
    ShownFileDialog Export(const QString &name, ReferenceDataLayout layout = Csv)
    {
        return ClickAndAnswer(m_bench->project.ExportLumoBtn, m_bench->Path(name), layout);
    }
    QString Path(const char *name) const { return m_bench->Path(QString::fromUtf8(name)); }

    std::unique_ptr<ReferenceFileBench> m_bench;
};

void ReferenceExportTest::a_table_without_rows_makes_no_file_data()
{
    AddLanguages();
}

void ReferenceExportTest::a_table_without_rows_makes_no_file()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    m_bench->PutTable({});
    BoxAnswers answers({Ok});
    Click(m_bench->project.ExportLumoBtn); // a dialogue would not be answered
    CompareWarning(answers.Shown(), noPoint);
    QCOMPARE(ReferenceRowCount, 0);
}

void ReferenceExportTest::the_table_stands_in_the_file_data()
{
    AddLayouts();
}

void ReferenceExportTest::the_table_stands_in_the_file()
{
    QFETCH(ReferenceDataLayout, layout);
    const BoxAnswers none;
    Export(QStringLiteral("data.x"), layout);
    const QString path = Path(layout == Csv ? "data.CSV" : "data.txt");
    QCOMPARE(BytesOf(path), ThreeRowsFile(layout));
    QCOMPARE(NamesIn(m_bench->Folder()).size(), 1);
    QVERIFY(LockHolder(path, LOCK_EX).Holds()); // it is closed
}

void ReferenceExportTest::a_locale_with_a_comma_changes_nothing()
{
    const CommaLocale locale;
    QVERIFY(locale.IsInForce());
    const BoxAnswers none;
    Export(QStringLiteral("data.CSV"));
    QCOMPARE(BytesOf(Path("data.CSV")), ThreeRowsFile(Csv));
}

void ReferenceExportTest::a_row_below_the_last_is_written_unused_or_not()
{
    ReferenceTable[0][2].Used = false;
    const BoxAnswers none;
    Export(QStringLiteral("data.CSV"));
    QCOMPARE(BytesOf(Path("data.CSV")), ThreeRowsFile(Csv));
    QCOMPARE(ReferenceRowCount, 3);
}

void ReferenceExportTest::the_active_projects_table_is_written()
{
    const SensorProjFrm &other = m_bench->AddFileProject(1);
    ReferenceTable[1] = WideItems();
    const BoxAnswers none;
    ClickAndAnswer(other.ExportLumoBtn, Path("data.CSV"));
    QCOMPARE(BytesOf(Path("data.CSV")), DataBytes(QStringLiteral("reference_wide_items.CSV")));
}

/// Its list shows none of the rows; they are there all the same.
void ReferenceExportTest::a_built_in_sensors_table_is_written()
{
    SensorProjects[0].IsBuiltInSensor = true;
    RefreshReferenceLists();
    const BoxAnswers none;
    Export(QStringLiteral("data.CSV"));
    QCOMPARE(BytesOf(Path("data.CSV")), ThreeRowsFile(Csv));
}

void ReferenceExportTest::an_export_changes_nothing_in_the_program()
{
    const QStringList rows = UsedRows(ReferenceTable[0]);
    ReferenceBackup[0] = WideItems();
    ProjectSlots[0].CurveApplied = true;
    m_bench->project.UndoLumoBtn->setEnabled(false);
    m_bench->project.RedoLumoBtn->setEnabled(true);
    const BoxAnswers none;
    Export(QStringLiteral("data.CSV"));
    QCOMPARE(UsedRows(ReferenceTable[0]), rows);
    QCOMPARE(UsedRows(ReferenceBackup[0]), UsedRows(WideItems()));
    QVERIFY(ProjectSlots[0].CurveApplied);
    QVERIFY(!m_bench->project.UndoLumoBtn->isEnabled() && m_bench->project.RedoLumoBtn->isEnabled());
    QVERIFY(!ProjectSlots[0].HasFile && ProjectSlots[0].FilePath.isEmpty());
}

void ReferenceExportTest::what_may_not_be_written_is_reported_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<bool>("old"); // there is a file already, which may only be read
    QTest::newRow("read-only file, English") << 1 << true;
    QTest::newRow("read-only file, Chinese") << 0 << true;
    QTest::newRow("read-only folder, English") << 1 << false;
    QTest::newRow("read-only folder, Chinese") << 0 << false;
}

void ReferenceExportTest::what_may_not_be_written_is_reported()
{
    QFETCH(int, language);
    QFETCH(bool, old);
    CurrentLanguage = language;
    if (old) {
        QVERIFY(PutBytes(Path("data.CSV"), "old"));
        SetMode(Path("data.CSV"), 0444);
    }
    SetMode(m_bench->Folder(), old ? 0777 : 0555);
    BoxAnswers answers(old ? QList{Ok, Ok} : QList{Ok});
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        Export(QStringLiteral("data.CSV"));
    }
    SetMode(m_bench->Folder(), 0700);
    CompareWarning(answers.Shown().last(1), heldByOther);
    QCOMPARE(BytesOf(Path("data.CSV")), QByteArray(old ? "old" : "no file"));
}

void ReferenceExportTest::a_file_that_another_process_holds_is_reported_data()
{
    QTest::addColumn<int>("lock");
    QTest::newRow("it reads") << LOCK_SH;
    QTest::newRow("it writes") << LOCK_EX;
}

void ReferenceExportTest::a_file_that_another_process_holds_is_reported()
{
    QFETCH(int, lock);
    QVERIFY(PutBytes(Path("data.CSV"), "old"));
    const LockHolder other(Path("data.CSV"), lock);
    QVERIFY(other.Holds());
    BoxAnswers answers({Ok, Ok});
    Export(QStringLiteral("data.CSV"));
    CompareWarning(answers.Shown().last(1), heldByOther);
    QCOMPARE(BytesOf(Path("data.CSV")), QByteArray("old"));
}

/// It is no existing file, so nothing is asked.
void ReferenceExportTest::a_folder_in_the_files_place_is_reported()
{
    QVERIFY(QDir().mkdir(Path("data.CSV")));
    BoxAnswers answers({Ok});
    Export(QStringLiteral("data.csv"));
    CompareWarning(answers.Shown(), heldByOther);
}

void ReferenceExportTest::a_full_disk_ends_the_export_silently_with_what_fits()
{
    QVERIFY(PutBytes(Path("data.CSV"), QByteArray(10'000, 'x')));
    BoxAnswers answers({Ok}); // for the question; nothing else comes
    {
        const FileSizeLimit limit(40);
        Export(QStringLiteral("data.CSV"));
    }
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(BytesOf(Path("data.CSV")), ThreeRowsFile(Csv).first(40));
}

void ReferenceExportTest::a_missing_folder_ends_the_export_silently()
{
    const BoxAnswers none;
    Export(QStringLiteral("none/data.CSV"));
    QVERIFY(NamesIn(m_bench->Folder()).isEmpty());
}

QTEST_MAIN(ReferenceExportTest)
#include "tst_reference_export.moc"
