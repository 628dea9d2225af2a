/// @file
/// The import of a reference table: what a whole file makes of the table, the list and the two buttons of undo.
#include "curve/ReferenceFileBench.h"
#include "measure/RunState.h"
#include "support/CommaLocale.h"

#include <memory>

class ReferenceImportTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ReferenceFileBench>();
        QVERIFY(m_bench->FolderIsFit());
    }
    void cleanup() { m_bench.reset(); }

    void a_file_replaces_the_whole_table_data();
    void a_file_replaces_the_whole_table();
    void the_list_shows_the_rows();
    void the_units_of_the_rows_stay_empty();
    void a_count_beyond_the_table_loads_500_rows_data();
    void a_count_beyond_the_table_loads_500_rows();
    void files_of_other_programs_are_read_data();
    void files_of_other_programs_are_read();
    void undo_brings_the_old_table_back_and_redo_the_new_one_data();
    void undo_brings_the_old_table_back_and_redo_the_new_one();
    void undo_brings_a_full_table_back();
    void an_import_ends_an_older_undo();
    void rows_are_sorted_and_equal_ones_stay();
    void limits_of_the_dialogue_do_not_hold();
    void any_arithmetic_of_a_csv_file_is_shown_as_least();
    void marks_stay_with_their_row_numbers();
    void the_curve_stays_applied_or_not_data();
    void the_curve_stays_applied_or_not();
    void a_running_measurement_does_not_keep_from_it();
    void a_built_in_sensor_takes_a_table();
    void the_active_project_takes_the_table();

    void a_locale_with_a_comma_changes_nothing();
    void a_file_closes_when_it_is_read_data();
    void a_file_closes_when_it_is_read();

private:
    /// Puts the file that was made by hand into the folder.
    void PutFile(const QString &name, ReferenceDataLayout layout = Csv)
    {
        QVERIFY(PutBytes(m_bench->Path(name), ThreeRowsFile(layout)));
    }

    std::unique_ptr<ReferenceFileBench> m_bench;
};

void ReferenceImportTest::a_file_replaces_the_whole_table_data()
{
    AddLayouts();
}

void ReferenceImportTest::a_file_replaces_the_whole_table()
{
    QFETCH(ReferenceDataLayout, layout);
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        PutRow(0, row, row, row);
    PutFile(QStringLiteral("data.x"), layout);
    QVERIFY(QFile::rename(m_bench->Path(QStringLiteral("data.x")),
                          m_bench->Path(layout == Csv ? QStringLiteral("data.CSV") : QStringLiteral("data.txt"))));
    m_bench->Import(QStringLiteral("data.x"), layout); // asks nothing
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    QVERIFY(m_bench->project.UndoLumoBtn->isEnabled());
    QVERIFY(!m_bench->project.RedoLumoBtn->isEnabled());
}

void ReferenceImportTest::the_list_shows_the_rows()
{
    PutFile(QStringLiteral("data.CSV"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    const ReportList &list = *m_bench->project.EditDataView;
    QCOMPARE(list.LineCount(), 3);
    QCOMPARE(list.LineText(1, 2), QStringLiteral("-2.5"));
    QCOMPARE(list.LineText(2, 3), QStringLiteral("20.0"));
    QCOMPARE(list.LineText(2, 4), QStringLiteral("Line"));
    QCOMPARE(list.LineText(3, 5), QStringLiteral("No"));
}

void ReferenceImportTest::the_units_of_the_rows_stay_empty()
{
    for (int row = 1; row <= 3; ++row) {
        PutRow(0, row, row, row);
        ReferenceTable[0][row].InputText = QStringLiteral("mV");
        ReferenceTable[0][row].OutputText = QStringLiteral("C");
    }
    PutFile(QStringLiteral("data.CSV"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    for (int row = 1; row <= 3; ++row) {
        QVERIFY(ReferenceTable[0][row].InputText.isEmpty() && ReferenceTable[0][row].OutputText.isEmpty());
        QCOMPARE(ReferenceBackup[0][row].InputText, QStringLiteral("mV"));
    }
}

void ReferenceImportTest::a_count_beyond_the_table_loads_500_rows_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    for (const char *count : {"501", "1e9", "4294967297"}) { // the last one would be 1 in 32 bits
        QTest::addRow("%s in CSV", count) << Csv;
        QTest::addRow("%s in text", count) << Text;
    }
}

/// The rest is ignored, whatever it is.
void ReferenceImportTest::a_count_beyond_the_table_loads_500_rows()
{
    QFETCH(ReferenceDataLayout, layout);
    QByteArray bytes = QByteArray(QTest::currentDataTag()).split(' ').front() + (layout == Csv ? ",,,\r\n" : "\r\n");
    for (int row = 1; row <= 500; ++row)
        bytes += QByteArray::number(row) + (layout == Csv ? ",0,False,0\r\n" : " 0 False 0\r\n");
    bytes += layout == Csv ? "501,0,Nonsense,99999\r\n" : "501 0 Nonsense 2\r\n";
    QVERIFY(m_bench->ImportBytes(bytes, layout, 0).isEmpty());
    QCOMPARE(UsedRows(ReferenceTable[0]).size(), 500);
    QCOMPARE(ReferenceTable[0][1].Input, 1.0);
    QCOMPARE(ReferenceTable[0][500].Input, 500.0);
    QVERIFY(!ReferenceTable[0][0].Used);
    QCOMPARE(m_bench->project.EditDataView->LineCount(), 500);
}

void ReferenceImportTest::files_of_other_programs_are_read_data()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("rows");
    const QByteArray csv = DataBytes(QStringLiteral("reference_three_rows.CSV"));
    const QByteArray text = DataBytes(QStringLiteral("reference_three_rows.txt"));
    const auto row = [](const char *name, ReferenceDataLayout layout, const QByteArray &bytes) {
        QTest::newRow(name) << layout << bytes << UsedRows(ThreeRows());
    };
    const auto ended = [](QByteArray bytes, const char *lineEnd) { return bytes.replace("\r\n", lineEnd); };
    row("byte order mark, CSV", Csv, "\xEF\xBB\xBF" + csv);
    row("byte order mark, text", Text, "\xEF\xBB\xBF" + text);
    row("LF, CSV", Csv, ended(csv, "\n"));
    row("LF, text", Text, ended(text, "\n"));
    row("CR, CSV", Csv, ended(csv, "\r"));
    row("CR, text", Text, ended(text, "\r"));
    row("no last line end, CSV", Csv, csv.chopped(2));
    row("no last line end, text", Text, text.chopped(2));
    row("no blanks, CSV", Csv, QByteArray(csv).replace(" ", ""));
    row("one blank, text", Text, text.simplified().replace("False 1 ", "False 1\n").replace("True 0 ", "True 0\n"));
    row("lower case, CSV", Csv, csv.toLower());
    row("lower case, text", Text, text.toLower());
    row("more lines, CSV", Csv, csv + "total,,,\r\n");
    row("more lines, text", Text, text + "total\r\n");
    row("a line of 100 MB behind them, CSV", Csv, csv + QByteArray(100'000'000, 'x'));
    row("a line of 100 MB behind them, text", Text, text + QByteArray(100'000'000, 'x'));
    QTest::newRow("count of 3.7, CSV") << Csv << QByteArray("3.7,,,\r\n1,2,T,0\r\n2,2,T,0\r\n3,2,T,0\r\n4,2,T,0\r\n")
                                       << UsedRows(TableOf(
                                              {{1, 2, true, 0}, {2, 2, true, 0}, {3, 2, true, 0}, {4, 2, true, 0}}));
    QTest::newRow("count of 1.2, text") << Text << QByteArray("1.2\r\n1 2 T 0\r\n2 2 T 0\r\n")
                                        << UsedRows(TableOf({{1, 2, true, 0}}));
}

void ReferenceImportTest::files_of_other_programs_are_read()
{
    QFETCH(ReferenceDataLayout, layout);
    QFETCH(QByteArray, bytes);
    m_bench->PutTable(WideItems());
    QVERIFY(m_bench->ImportBytes(bytes, layout, 0).isEmpty());
    QTEST(UsedRows(ReferenceTable[0]), "rows");
    QCOMPARE(UsedRows(ReferenceBackup[0]), UsedRows(WideItems()));
}

void ReferenceImportTest::undo_brings_the_old_table_back_and_redo_the_new_one_data()
{
    AddLayouts();
}

void ReferenceImportTest::undo_brings_the_old_table_back_and_redo_the_new_one()
{
    QFETCH(ReferenceDataLayout, layout);
    ReferenceRows old = TableOf({{1, 2, true, 1}, {3, 4, false, 0}});
    old[1].InputText = QStringLiteral("mV");
    m_bench->PutTable(old);
    const QString name = layout == Csv ? QStringLiteral("data.CSV") : QStringLiteral("data.txt");
    PutFile(name, layout);
    m_bench->Import(name, layout);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    const SensorProjFrm &form = m_bench->project;
    QVERIFY(form.UndoLumoBtn->isEnabled() && !form.RedoLumoBtn->isEnabled());
    Click(form.UndoLumoBtn);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(old));
    QCOMPARE(ReferenceTable[0][1].InputText, QStringLiteral("mV"));
    QCOMPARE(form.EditDataView->LineCount(), 2);
    QVERIFY(!form.UndoLumoBtn->isEnabled() && form.RedoLumoBtn->isEnabled());
    Click(form.RedoLumoBtn);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    QVERIFY(form.UndoLumoBtn->isEnabled() && !form.RedoLumoBtn->isEnabled());
}

/// The backup takes the whole old table, not as many rows as the file has.
void ReferenceImportTest::undo_brings_a_full_table_back()
{
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        PutRow(0, row, row, -row);
        ReferenceTable[0][row].InputText = QString::number(row);
    }
    const QStringList old = UsedRows(ReferenceTable[0]);
    QCOMPARE(old.size(), 500);
    PutFile(QStringLiteral("data.CSV"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    Click(m_bench->project.UndoLumoBtn);
    QCOMPARE(UsedRows(ReferenceTable[0]), old);
    QCOMPARE(m_bench->project.EditDataView->LineCount(), 500);
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        QCOMPARE(ReferenceTable[0][row].InputText, QString::number(row));
}

void ReferenceImportTest::an_import_ends_an_older_undo()
{
    PutFile(QStringLiteral("data.CSV"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    Click(m_bench->project.UndoLumoBtn);
    QVERIFY(m_bench->project.RedoLumoBtn->isEnabled());
    QVERIFY(PutBytes(m_bench->Path(QStringLiteral("other.CSV")), "1,,,\r\n7,8,True,1\r\n"));
    m_bench->Import(QStringLiteral("other.CSV"), Csv);
    QVERIFY(!m_bench->project.RedoLumoBtn->isEnabled());
    Click(m_bench->project.UndoLumoBtn);
    QVERIFY(UsedRows(ReferenceTable[0]).isEmpty()); // ahead of this import, not of the one before
}

void ReferenceImportTest::rows_are_sorted_and_equal_ones_stay()
{
    QVERIFY(PutBytes(m_bench->Path(QStringLiteral("data.CSV")),
                     "4,,,\r\n9,1,True,0\r\n5,2,False,0\r\n5,3,False,1\r\n-1,4,True,1\r\n"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{-1, 5, 5, 9}));
    QCOMPARE(ReferenceTable[0][1].Output, 4.0);
    QCOMPARE(ReferenceTable[0][4].Output, 1.0);
    QCOMPARE(ReferenceTable[0][2].Output + ReferenceTable[0][3].Output, 5.0);
}

void ReferenceImportTest::limits_of_the_dialogue_do_not_hold()
{
    QVERIFY(PutBytes(m_bench->Path(QStringLiteral("data.CSV")), "2,,,\r\n1E-30,-1E+200,False,0\r\n1E+9,0,False,0\r\n"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(TableOf({{1e-30, -1e200, false, 0}, {1e9, 0, false, 0}})));
}

void ReferenceImportTest::any_arithmetic_of_a_csv_file_is_shown_as_least()
{
    QVERIFY(
        PutBytes(m_bench->Path(QStringLiteral("data.CSV")), "3,,,\r\n1,1,True,0\r\n2,1,True,7\r\n3,1,True,-32768\r\n"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(int(ReferenceTable[0][2].Arithmetic), 7);
    QCOMPARE(int(ReferenceTable[0][3].Arithmetic), -32768);
    const ReportList &list = *m_bench->project.EditDataView;
    QCOMPARE(list.LineText(1, 4), QStringLiteral("Line"));
    QCOMPARE(list.LineText(2, 4), QStringLiteral("Least"));
    QCOMPARE(list.LineText(3, 4), QStringLiteral("Least"));
}

/// The sort carries them on.
void ReferenceImportTest::marks_stay_with_their_row_numbers()
{
    m_bench->PutTable(TableOf({{1, 1, false, 0}, {2, 2, false, 0}, {3, 3, false, 0}}));
    RowMarks[2] = true;
    QVERIFY(PutBytes(m_bench->Path(QStringLiteral("data.CSV")),
                     "3,,,\r\n10,0,False,0\r\n30,0,False,0\r\n20,0,False,0\r\n"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QVERIFY(!RowMarks[1] && !RowMarks[2] && RowMarks[3]);
    QVERIFY(m_bench->project.EditDataView->LineSelected(3));
}

void ReferenceImportTest::the_curve_stays_applied_or_not_data()
{
    QTest::addColumn<bool>("applied");
    QTest::newRow("applied") << true;
    QTest::newRow("not applied") << false;
}

void ReferenceImportTest::the_curve_stays_applied_or_not()
{
    QFETCH(bool, applied);
    PutFile(QStringLiteral("data.CSV"));
    ProjectSlots[0].CurveApplied = applied;
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    QCOMPARE(ProjectSlots[0].CurveApplied, applied);
    QVERIFY(!ProjectSlots[0].Dirty);
}

void ReferenceImportTest::a_running_measurement_does_not_keep_from_it()
{
    PutFile(QStringLiteral("data.CSV"));
    Measuring = true;
    m_bench->project.RecordLumoBtn->setEnabled(false);
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    QVERIFY(Measuring);
}

void ReferenceImportTest::a_built_in_sensor_takes_a_table()
{
    SensorProjects[0].IsBuiltInSensor = true;
    PutFile(QStringLiteral("data.CSV"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    QCOMPARE(m_bench->project.EditDataView->LineCount(), 0);
    QVERIFY(m_bench->project.UndoLumoBtn->isEnabled());
}

void ReferenceImportTest::the_active_project_takes_the_table()
{
    const SensorProjFrm &other = m_bench->AddFileProject(1);
    PutFile(QStringLiteral("data.CSV"));
    const BoxAnswers none;
    ClickAndAnswer(other.ImportLumoBtn, m_bench->Path(QStringLiteral("data.CSV")));
    QCOMPARE(UsedRows(ReferenceTable[1]), UsedRows(ThreeRows()));
    QVERIFY(UsedRows(ReferenceTable[0]).isEmpty());
    QVERIFY(other.UndoLumoBtn->isEnabled());
    QVERIFY(!m_bench->project.UndoLumoBtn->isEnabled());
}

void ReferenceImportTest::a_locale_with_a_comma_changes_nothing()
{
    const CommaLocale locale;
    QVERIFY(locale.IsInForce());
    PutFile(QStringLiteral("data.CSV"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
}

void ReferenceImportTest::a_file_closes_when_it_is_read_data()
{
    AddLayouts();
}

void ReferenceImportTest::a_file_closes_when_it_is_read()
{
    QFETCH(ReferenceDataLayout, layout);
    const QString name = layout == Csv ? QStringLiteral("data.CSV") : QStringLiteral("data.txt");
    PutFile(name, layout);
    m_bench->Import(name, layout);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    QVERIFY(LockHolder(m_bench->Path(name), LOCK_EX).Holds());
}

QTEST_MAIN(ReferenceImportTest)
#include "tst_reference_import.moc"
