/// @file
/// The export of a reference table: its button, the dialogue, the question, and what stands in the file.
#include "curve/ReferenceFileBench.h"
#include "support/CommaLocale.h"
#include "support/UserWithoutRights.h"

#include <memory>

#include <sys/stat.h>

namespace {

constexpr Wordings noPoint{"No reference point! ", "没有参考点! "};
constexpr Wordings mayReplace{"The file has existed, whether replace it? ", "该文件已经存在，是否替换? "};
constexpr Wordings warning{"Warning", "警告"};

constexpr auto Ok = QMessageBox::Ok;
constexpr auto Cancel = QMessageBox::Cancel;

QByteArray ThreeRowsFile(ReferenceDataLayout layout)
{
    return DataBytes(layout == Csv ? QStringLiteral("reference_three_rows.CSV")
                                   : QStringLiteral("reference_three_rows.txt"));
}

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
    void the_dialogue_is_set_up_data();
    void the_dialogue_is_set_up();
    void the_dialogue_begins_in_the_programs_folder_for_it();
    void the_table_stands_in_the_file_data();
    void the_table_stands_in_the_file();
    void the_filter_decides_the_layout_and_the_name_data();
    void the_filter_decides_the_layout_and_the_name();
    void a_point_in_a_folder_cuts_the_path();
    void a_locale_with_a_comma_changes_nothing();
    void an_existing_file_is_replaced_after_a_question_data();
    void an_existing_file_is_replaced_after_a_question();
    void cancel_keeps_an_existing_file();
    void the_question_looks_at_the_path_that_is_written();
    void a_cancelled_dialogue_ends_the_export_data();
    void a_cancelled_dialogue_ends_the_export();
    void a_row_below_the_last_is_written_unused_or_not();
    void the_active_projects_table_is_written();
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

void ReferenceExportTest::the_dialogue_is_set_up_data()
{
    QTest::addColumn<bool>("save");
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("title");
    QTest::newRow("export, English") << true << 1 << QStringLiteral("Export reference datas");
    QTest::newRow("export, Chinese") << true << 0 << QStringLiteral("导出参考数据");
    QTest::newRow("import, English") << false << 1 << QStringLiteral("Import reference datas");
    QTest::newRow("import, Chinese") << false << 0 << QStringLiteral("导入参考数据");
}

void ReferenceExportTest::the_dialogue_is_set_up()
{
    QFETCH(bool, save);
    QFETCH(int, language);
    CurrentLanguage = language;
    SensorProjFrm &form = m_bench->project;
    const BoxAnswers none;
    const ShownFileDialog shown = ClickAndAnswer(save ? form.ExportLumoBtn : form.ImportLumoBtn, {});
    QTEST(shown.Title, "title");
    QCOMPARE(shown.Save, save);
    QCOMPARE(shown.Filters,
             (QStringList{QStringLiteral("CSV file(.CSV)(*.CSV)"), QStringLiteral("Text file(.txt)(T)(*.txt)")}));
    QCOMPARE(form.CommonDialog1->Filter, QStringLiteral("CSV file(.CSV)|*.CSV|Text file(.txt)(T)|*.txt"));
    QCOMPARE(form.CommonDialog1->CancelError, !save); // set by the import, left alone by the export
    QVERIFY(shown.Name.isEmpty());
}

/// It is never made; where it is missing the dialogue begins elsewhere.
void ReferenceExportTest::the_dialogue_begins_in_the_programs_folder_for_it()
{
    const SensorProjFrm &form = m_bench->project;
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/Temp");
    QVERIFY(!QFileInfo::exists(folder));
    const BoxAnswers none;
    for (LumoButton *button : {form.ExportLumoBtn, form.ImportLumoBtn}) {
        QVERIFY(ClickAndAnswer(button, {}).Folder != folder);
        QVERIFY(!QFileInfo::exists(folder));
        QVERIFY(QDir().mkdir(folder));
        const QString shown = ClickAndAnswer(button, {}).Folder;
        QVERIFY(QDir().rmdir(folder));
        QCOMPARE(shown,
                 QFileInfo(QCoreApplication::applicationDirPath()).canonicalFilePath() + QStringLiteral("/Temp"));
    }
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

void ReferenceExportTest::the_filter_decides_the_layout_and_the_name_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::addColumn<QString>("written");
    const auto row = [](const char *typed, ReferenceDataLayout layout, const char *written) {
        QTest::addRow("%s as %s", typed, layout == Csv ? "CSV" : "text") << layout << QString::fromUtf8(written);
    };
    row("data.CSV", Csv, "data.CSV");
    row("data.CSV", Text, "data.txt");
    row("data.csv", Csv, "data.CSV");
    row("data.txt", Csv, "data.CSV");
    row("data.txt", Text, "data.txt");
    row("a.b", Csv, "a.CSV");
    row("a.b", Text, "a.txt");
    row("a.b.c.txt", Text, "a.txt");
    row("data.", Csv, "data.CSV");
    row("data", Csv, "data"); // nothing is added to a path without any point
    row("data", Text, "data");
    row("温度 1.csv", Csv, "温度 1.CSV");
    row("C:\\v1.2\\x", Csv, "C:\\v1.CSV"); // backslashes belong to a name here, and the rule is the same
    row("C:\\v1.2\\x", Text, "C:\\v1.txt");
}

void ReferenceExportTest::the_filter_decides_the_layout_and_the_name()
{
    QFETCH(ReferenceDataLayout, layout);
    QFETCH(QString, written);
    const QString typed = QString::fromUtf8(QTest::currentDataTag()).section(QStringLiteral(" as "), 0, 0);
    const BoxAnswers none;
    Export(typed, layout);
    QCOMPARE(NamesIn(m_bench->Folder()), QStringList{written});
    QCOMPARE(BytesOf(m_bench->Path(written)), ThreeRowsFile(layout));
}

void ReferenceExportTest::a_point_in_a_folder_cuts_the_path()
{
    QVERIFY(QDir().mkdir(Path("v1.2")));
    const BoxAnswers none;
    Export(QStringLiteral("v1.2/x.CSV"));
    Export(QStringLiteral("v1.2/x"), Text);
    QCOMPARE(NamesIn(m_bench->Folder()),
             (QStringList{QStringLiteral("v1.2"), QStringLiteral("v1.CSV"), QStringLiteral("v1.txt")}));
    QCOMPARE(BytesOf(Path("v1.CSV")), ThreeRowsFile(Csv));
    QCOMPARE(BytesOf(Path("v1.txt")), ThreeRowsFile(Text));
    QVERIFY(NamesIn(Path("v1.2")).isEmpty());
}

void ReferenceExportTest::a_locale_with_a_comma_changes_nothing()
{
    const CommaLocale locale;
    QVERIFY(locale.IsInForce());
    const BoxAnswers none;
    Export(QStringLiteral("data.CSV"));
    QCOMPARE(BytesOf(Path("data.CSV")), ThreeRowsFile(Csv));
}

void ReferenceExportTest::an_existing_file_is_replaced_after_a_question_data()
{
    AddLanguages();
}

void ReferenceExportTest::an_existing_file_is_replaced_after_a_question()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    QVERIFY(PutBytes(Path("data.CSV"), QByteArray(10'000, 'x')));
    BoxAnswers answers({Ok});
    Export(QStringLiteral("data.CSV"));
    QCOMPARE(answers.Texts(), QStringList{mayReplace.InCurrentLanguage()});
    const ShownBox &box = answers.Shown().front();
    QCOMPARE(box.Title, warning.InCurrentLanguage());
    QVERIFY(box.Buttons == (Ok | Cancel));
    QCOMPARE(box.Icon, QMessageBox::Warning);
    QCOMPARE(BytesOf(Path("data.CSV")), ThreeRowsFile(Csv));
}

void ReferenceExportTest::cancel_keeps_an_existing_file()
{
    QVERIFY(PutBytes(Path("data.txt"), "old"));
    BoxAnswers answers({Cancel});
    Export(QStringLiteral("data.txt"), Text);
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(BytesOf(Path("data.txt")), QByteArray("old"));
}

void ReferenceExportTest::the_question_looks_at_the_path_that_is_written()
{
    QVERIFY(PutBytes(Path("data.csv"), "old")); // differs in case
    QVERIFY(PutBytes(Path("data.txt"), "old"));
    {
        const BoxAnswers none;
        Export(QStringLiteral("data.csv"));
        QCOMPARE(BytesOf(Path("data.CSV")), ThreeRowsFile(Csv));
        QCOMPARE(BytesOf(Path("data.csv")), QByteArray("old"));
    }
    BoxAnswers answers({Ok});
    Export(QStringLiteral("data.CSV"), Text);
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(BytesOf(Path("data.txt")), ThreeRowsFile(Text));
}

void ReferenceExportTest::a_cancelled_dialogue_ends_the_export_data()
{
    QTest::addColumn<bool>("error");
    QTest::newRow("without the cancel error") << false;
    QTest::newRow("with it, since an import") << true;
}

/// The name of an earlier export is not used again.
void ReferenceExportTest::a_cancelled_dialogue_ends_the_export()
{
    QFETCH(bool, error);
    const BoxAnswers none;
    Export(QStringLiteral("data.CSV"));
    QVERIFY(PutBytes(Path("data.CSV"), "old"));
    m_bench->project.CommonDialog1->CancelError = error;
    QVERIFY(ClickAndAnswer(m_bench->project.ExportLumoBtn, {}).Name.isEmpty());
    QCOMPARE(BytesOf(Path("data.CSV")), QByteArray("old"));
    QCOMPARE(NamesIn(m_bench->Folder()).size(), 1);
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
