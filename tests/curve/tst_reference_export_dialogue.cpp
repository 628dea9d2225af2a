/// @file
/// The export of a reference table: its file dialogue, the path that this settles, and the question.
#include "curve/ReferenceFileBench.h"

#include <memory>

namespace {

constexpr Wordings mayReplace{"The file has existed, whether replace it? ", "该文件已经存在，是否替换? "};
constexpr Wordings warning{"Warning", "警告"};

constexpr auto Ok = QMessageBox::Ok;
constexpr auto Cancel = QMessageBox::Cancel;

} // namespace

class ReferenceExportDialogueTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ReferenceFileBench>();
        QVERIFY(m_bench->FolderIsFit());
        m_bench->PutTable(ThreeRows());
    }
    void cleanup() { m_bench.reset(); }

    void the_dialogue_is_set_up_data();
    void the_dialogue_is_set_up();
    void the_dialogue_begins_in_the_programs_folder_for_it();
    void the_filter_decides_the_layout_and_the_name_data();
    void the_filter_decides_the_layout_and_the_name();
    void a_point_in_a_folder_cuts_the_path();
    void a_step_to_another_folder_does_not_cut_the_path_data();
    void a_step_to_another_folder_does_not_cut_the_path();
    void an_existing_file_is_replaced_after_a_question_data();
    void an_existing_file_is_replaced_after_a_question();
    void cancel_keeps_an_existing_file();
    void a_file_without_a_point_is_asked_about_data();
    void a_file_without_a_point_is_asked_about();
    void the_question_looks_at_the_path_that_is_written();
    void a_cancelled_dialogue_ends_the_export_data();
    void a_cancelled_dialogue_ends_the_export();
    void an_export_leaves_the_cancel_error_as_it_is();

private:
    ShownFileDialog Export(const QString &name, ReferenceDataLayout layout = Csv)
    {
        return ClickAndAnswer(m_bench->project.ExportLumoBtn, m_bench->Path(name), layout);
    }
    QString Path(const char *name) const { return m_bench->Path(QString::fromUtf8(name)); }

    std::unique_ptr<ReferenceFileBench> m_bench;
};

void ReferenceExportDialogueTest::the_dialogue_is_set_up_data()
{
    QTest::addColumn<bool>("save");
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("title");
    QTest::newRow("export, English") << true << 1 << QStringLiteral("Export reference datas");
    QTest::newRow("export, Chinese") << true << 0 << QStringLiteral("导出参考数据");
    QTest::newRow("import, English") << false << 1 << QStringLiteral("Import reference datas");
    QTest::newRow("import, Chinese") << false << 0 << QStringLiteral("导入参考数据");
}

void ReferenceExportDialogueTest::the_dialogue_is_set_up()
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
void ReferenceExportDialogueTest::the_dialogue_begins_in_the_programs_folder_for_it()
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

void ReferenceExportDialogueTest::the_filter_decides_the_layout_and_the_name_data()
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

void ReferenceExportDialogueTest::the_filter_decides_the_layout_and_the_name()
{
    QFETCH(ReferenceDataLayout, layout);
    QFETCH(QString, written);
    const QString typed = QString::fromUtf8(QTest::currentDataTag()).section(QStringLiteral(" as "), 0, 0);
    const BoxAnswers none;
    Export(typed, layout);
    QCOMPARE(NamesIn(m_bench->Folder()), QStringList{written});
    QCOMPARE(BytesOf(m_bench->Path(written)), ThreeRowsFile(layout));
}

void ReferenceExportDialogueTest::a_point_in_a_folder_cuts_the_path()
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

void ReferenceExportDialogueTest::a_step_to_another_folder_does_not_cut_the_path_data()
{
    QTest::addColumn<QString>("written");
    QTest::newRow("../new.CSV") << QStringLiteral("new.CSV");
    QTest::newRow("./new.CSV") << QStringLiteral("inner/new.CSV");
    QTest::newRow("../new") << QStringLiteral("new"); // a path without any point
}

void ReferenceExportDialogueTest::a_step_to_another_folder_does_not_cut_the_path()
{
    QFETCH(QString, written);
    QVERIFY(QDir().mkdir(Path("inner")));
    const BoxAnswers none;
    const WhenModal answer(QStringLiteral("CommonDialog"), [&](QWidget *dialog) {
        TypeFileName(dialog, Path("inner")); // goes there
        TypeFileName(dialog, QString::fromLatin1(QTest::currentDataTag()));
    });
    Click(m_bench->project.ExportLumoBtn);
    QCOMPARE(BytesOf(m_bench->Path(written)), ThreeRowsFile(Csv));
    QCOMPARE(NamesIn(m_bench->Folder()).size() + NamesIn(Path("inner")).size(), 2); // the folder and the file
}

void ReferenceExportDialogueTest::an_existing_file_is_replaced_after_a_question_data()
{
    AddLanguages();
}

void ReferenceExportDialogueTest::an_existing_file_is_replaced_after_a_question()
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

void ReferenceExportDialogueTest::cancel_keeps_an_existing_file()
{
    QVERIFY(PutBytes(Path("data.txt"), "old"));
    BoxAnswers answers({Cancel});
    Export(QStringLiteral("data.txt"), Text);
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(BytesOf(Path("data.txt")), QByteArray("old"));
}

void ReferenceExportDialogueTest::a_file_without_a_point_is_asked_about_data()
{
    AddLayouts();
}

void ReferenceExportDialogueTest::a_file_without_a_point_is_asked_about()
{
    QFETCH(ReferenceDataLayout, layout);
    QVERIFY(PutBytes(Path("data"), "old"));
    BoxAnswers answers({Cancel, Ok});
    Export(QStringLiteral("data"), layout);
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(BytesOf(Path("data")), QByteArray("old"));
    Export(QStringLiteral("data"), layout);
    QCOMPARE(answers.Texts(), QStringList(2, mayReplace.InCurrentLanguage()));
    QCOMPARE(BytesOf(Path("data")), ThreeRowsFile(layout));
    QCOMPARE(NamesIn(m_bench->Folder()), QStringList{QStringLiteral("data")});
}

void ReferenceExportDialogueTest::the_question_looks_at_the_path_that_is_written()
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

void ReferenceExportDialogueTest::a_cancelled_dialogue_ends_the_export_data()
{
    QTest::addColumn<bool>("imported");
    QTest::newRow("without the cancel error") << false;
    QTest::newRow("with it, since an import") << true;
}

/// Silently, and the name of an earlier export is not used again.
void ReferenceExportDialogueTest::a_cancelled_dialogue_ends_the_export()
{
    QFETCH(bool, imported);
    const BoxAnswers none;
    Export(QStringLiteral("data.CSV"));
    if (imported)
        m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QVERIFY(PutBytes(Path("data.CSV"), "old"));
    QVERIFY(ClickAndAnswer(m_bench->project.ExportLumoBtn, {}).Name.isEmpty());
    QCOMPARE(BytesOf(Path("data.CSV")), QByteArray("old"));
    QCOMPARE(NamesIn(m_bench->Folder()).size(), 1);
}

/// Only an import sets it, and sets it for good.
void ReferenceExportDialogueTest::an_export_leaves_the_cancel_error_as_it_is()
{
    const bool &cancelError = m_bench->project.CommonDialog1->CancelError;
    const BoxAnswers none;
    Export(QStringLiteral("data.CSV"));
    QVERIFY(!cancelError);
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QVERIFY(cancelError);
    Export(QStringLiteral("other.CSV"));
    QVERIFY(cancelError);
    ClickAndAnswer(m_bench->project.ExportLumoBtn, {});
    QVERIFY(cancelError);
}

QTEST_MAIN(ReferenceExportDialogueTest)
#include "tst_reference_export_dialogue.moc"
