/// @file
/// Undo and redo of reference rows by their buttons.
#include "curve/ReferenceEditBench.h"
#include "support/ErrorOf.h"

class ReferenceUndoTest : public QObject {
    Q_OBJECT

private slots:
    void undo_and_redo_exchange_the_table_with_its_backup();
    void undo_directly_after_undo_goes_no_further_back();
    void redo_directly_after_redo_goes_no_further();
    void a_new_edit_ends_redo();
    void undo_after_delete_all_brings_all_rows_back_in_order();
    void undo_and_redo_keep_all_fields_of_a_row();
    void undo_and_redo_leave_the_marks_to_their_rows();
    void undo_works_on_the_active_project();
    void undo_of_a_slot_that_is_none_is_out_of_range();
};

void ReferenceUndoTest::undo_and_redo_exchange_the_table_with_its_backup()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    bench.DeleteLines({1});
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));

    Click(bench.project.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2, 3}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), (QList<double>{2, 3}));
    QCOMPARE(ColumnTexts(bench.List(), 2), (QStringList{u"1.0"_qs, u"2.0"_qs, u"3.0"_qs}));
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
    QVERIFY(bench.project.RedoLumoBtn->isEnabled());

    Click(bench.project.RedoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));
    QCOMPARE(ColumnTexts(bench.List(), 2), (QStringList{u"2.0"_qs, u"3.0"_qs}));
    QVERIFY(bench.project.UndoLumoBtn->isEnabled());
    QVERIFY(!bench.project.RedoLumoBtn->isEnabled());
}

void ReferenceUndoTest::undo_directly_after_undo_goes_no_further_back()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    bench.DeleteLines({1});
    bench.DeleteLines({1});
    QCOMPARE(UsedInputs(ReferenceTable[0]), QList<double>{3});
    Click(bench.project.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
    Click(bench.project.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), QList<double>{3});
}

void ReferenceUndoTest::redo_directly_after_redo_goes_no_further()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    bench.DeleteLines({1});
    Click(bench.project.UndoLumoBtn);
    Click(bench.project.RedoLumoBtn);
    QVERIFY(!bench.project.RedoLumoBtn->isEnabled());
    Click(bench.project.RedoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));
}

void ReferenceUndoTest::a_new_edit_ends_redo()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    bench.DeleteLines({1});
    Click(bench.project.UndoLumoBtn);
    QVERIFY(bench.project.RedoLumoBtn->isEnabled());
    bench.DeleteLines({3});
    QVERIFY(!bench.project.RedoLumoBtn->isEnabled());
    Click(bench.project.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2, 3}));
}

void ReferenceUndoTest::undo_after_delete_all_brings_all_rows_back_in_order()
{
    ReferenceEditBench bench;
    bench.PutRows(500);
    bench.DeleteAll();
    QCOMPARE(LastUsedRow(0), 0);
    Click(bench.project.UndoLumoBtn);
    QCOMPARE(bench.List().LineCount(), 500);
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        QVERIFY(ReferenceTable[0][row].Used);
        QCOMPARE(ReferenceTable[0][row].Input, static_cast<double>(row));
        QCOMPARE(ReferenceTable[0][row].Output, 10.0 * row);
        QCOMPARE(bench.List().LineText(row, 1), QString::number(row));
    }
}

void ReferenceUndoTest::undo_and_redo_keep_all_fields_of_a_row()
{
    ReferenceEditBench bench;
    bench.PutRows(2);
    ReferencePoint &kept = ReferenceTable[0][2];
    kept = {true, -3.5, u"mV"_qs, 4.25, u"C"_qs, true, 1};
    bench.DeleteAll();
    const auto compareRow = [] {
        // The row below zero comes first, as after any sort.
        const ReferencePoint &point = ReferenceTable[0][1];
        QVERIFY(point.Used);
        QCOMPARE(point.Input, -3.5);
        QCOMPARE(point.InputText, u"mV"_qs);
        QCOMPARE(point.Output, 4.25);
        QCOMPARE(point.OutputText, u"C"_qs);
        QVERIFY(point.Segment);
        QCOMPARE(point.Arithmetic, std::int16_t{1});
    };
    Click(bench.project.UndoLumoBtn);
    compareRow();
    Click(bench.project.RedoLumoBtn);
    QCOMPARE(LastUsedRow(0), 0);
    Click(bench.project.UndoLumoBtn);
    compareRow();
}

void ReferenceUndoTest::undo_and_redo_leave_the_marks_to_their_rows()
{
    ReferenceEditBench bench;
    PutRow(0, 1, 9, 90); // not in order, as a file can bring them in
    PutRow(0, 2, 5, 50);
    PutRow(0, 3, 7, 70);
    RefreshReferenceLists();
    RowMarks[1] = true;
    bench.DeleteLines({3});
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{5, 9}));
    QCOMPARE(SelectedLines(bench.List()), QList<int>{2});
    // The mark is now that of row 2, where the backup has the 5.
    Click(bench.project.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{5, 7, 9}));
    QCOMPARE(SelectedLines(bench.List()), QList<int>()); // row 1, whose mark no list of several lines shows
    QVERIFY(RowMarks[1] && !RowMarks[2]);
    Click(bench.project.RedoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{5, 9}));
    QVERIFY(RowMarks[1] && !RowMarks[2]);
}

void ReferenceUndoTest::undo_works_on_the_active_project()
{
    ReferenceEditBench bench;
    bench.PutRows(2);
    const SensorProjFrm &second = bench.AddListProject(1);
    PutRow(1, 1, 5, 5);
    PutRow(1, 2, 6, 6);
    RefreshReferenceLists();
    const BoxAnswers answers({QMessageBox::Ok});
    bench.RunFromPopup(*second.EditDataView, bench.frame.mnuPopEditDataDeleteAll);
    QCOMPARE(LastUsedRow(0), 2);
    QCOMPARE(LastUsedRow(1), 0);
    QVERIFY(second.UndoLumoBtn->isEnabled());
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
    Click(second.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[1]), (QList<double>{5, 6}));
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2}));
}

void ReferenceUndoTest::undo_of_a_slot_that_is_none_is_out_of_range()
{
    ReferenceEditBench bench;
    for (const std::int16_t slot : {std::int16_t{-1}, std::int16_t{10}}) {
        QCOMPARE(ErrorOf([&] { UndoReferenceEdit(slot); }), ErrorNumber::OutOfRange);
        QCOMPARE(ErrorOf([&] { RedoReferenceEdit(slot); }), ErrorNumber::OutOfRange);
    }
}

QTEST_MAIN(ReferenceUndoTest)
#include "tst_reference_undo.moc"
