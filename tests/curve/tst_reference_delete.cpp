/// @file
/// Deleting reference rows through the pop-up menu.
#include "curve/EditDataBench.h"
#include "curve/ReferenceEditBench.h"

class ReferenceDeleteTest : public QObject {
    Q_OBJECT

private slots:
    void selected_rows_are_deleted_after_a_question_data();
    void selected_rows_are_deleted_after_a_question();
    void cancel_keeps_the_selected_rows();
    void deleting_in_an_empty_list_asks_nothing();
    void all_rows_are_deleted_after_a_question_data();
    void all_rows_are_deleted_after_a_question();
    void deleting_all_rows_leaves_the_marks();
    void deleting_all_rows_leaves_the_lists_of_other_projects();
    void deleting_rows_leaves_the_marks_to_their_rows();
    void cancel_keeps_all_rows();
    void the_commands_work_on_the_active_project();
    void edits_keep_the_applied_curve();
};

void ReferenceDeleteTest::selected_rows_are_deleted_after_a_question_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << QStringLiteral("Warning")
                             << QStringLiteral("This action will delete data selected");
    QTest::newRow("Chinese") << 0 << QStringLiteral("警告") << QStringLiteral("此动作将删除选中的数据");
}

void ReferenceDeleteTest::selected_rows_are_deleted_after_a_question()
{
    QFETCH(int, language);
    QFETCH(QString, title);
    QFETCH(QString, text);
    ReferenceEditBench bench;
    CurrentLanguage = language;
    bench.PutRows(5);
    bench.project.RedoLumoBtn->setEnabled(true);
    ReferenceEditBench::ClickLines(bench.List(), {2, 4});
    const BoxAnswers answers({QMessageBox::Ok});
    // A right press on a selected line keeps the selection.
    bench.RunFromPopup(bench.List(), bench.frame.mnuPopEditDataDelete, 4);
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown().first().Title, title);
    QCOMPARE(answers.Shown().first().Buttons, QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3, 5}));
    QVERIFY(ReferenceTable[0][3].Used); // the rows below have moved up
    QCOMPARE(ColumnTexts(bench.List(), 2), (QStringList{u"1.0"_qs, u"3.0"_qs, u"5.0"_qs}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), (QList<double>{1, 2, 3, 4, 5}));
    QVERIFY(bench.project.UndoLumoBtn->isEnabled());
    QVERIFY(!bench.project.RedoLumoBtn->isEnabled());
}

void ReferenceDeleteTest::cancel_keeps_the_selected_rows()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    bench.DeleteLines({2}, QMessageBox::Cancel);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2, 3}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), QList<double>());
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
}

void ReferenceDeleteTest::deleting_in_an_empty_list_asks_nothing()
{
    ReferenceEditBench bench;
    const BoxAnswers noBox;
    mnuPopEditDataDelete_Click(); // no way leads there: the command is disabled
    QVERIFY(noBox.Shown().isEmpty());
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
}

void ReferenceDeleteTest::all_rows_are_deleted_after_a_question_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << QStringLiteral("Warning")
                             << QStringLiteral("This action will delete all of the data");
    QTest::newRow("Chinese") << 0 << QStringLiteral("警告") << QStringLiteral("此动作将删除所有数据");
}

void ReferenceDeleteTest::all_rows_are_deleted_after_a_question()
{
    QFETCH(int, language);
    QFETCH(QString, title);
    QFETCH(QString, text);
    ReferenceEditBench bench;
    CurrentLanguage = language;
    bench.PutRows(500);
    bench.project.RedoLumoBtn->setEnabled(true);
    const BoxAnswers answers({QMessageBox::Ok});
    bench.RunFromPopup(bench.List(), bench.frame.mnuPopEditDataDeleteAll, 1);
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown().first().Title, title);
    QCOMPARE(answers.Shown().first().Buttons, QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(LastUsedRow(0), 0);
    QCOMPARE(ReferenceTable[0][500].Input, 500.0); // only the use is taken off
    QCOMPARE(bench.List().LineCount(), 0);
    QCOMPARE(UsedInputs(ReferenceBackup[0]).size(), 500);
    QVERIFY(bench.project.UndoLumoBtn->isEnabled());
    QVERIFY(!bench.project.RedoLumoBtn->isEnabled());
}

void ReferenceDeleteTest::deleting_all_rows_leaves_the_marks()
{
    ReferenceEditBench bench;
    bench.PutRows(4);
    RowMarks[3] = true;
    bench.DeleteAll();
    QCOMPARE(bench.List().LineCount(), 0);
    QVERIFY(RowMarks[3]); // a sort would have taken it off with the rows
    Click(bench.project.UndoLumoBtn);
    QCOMPARE(SelectedLines(bench.List()), QList<int>{3});
}

void ReferenceDeleteTest::deleting_all_rows_leaves_the_lists_of_other_projects()
{
    ReferenceEditBench bench;
    const SensorProjFrm &second = bench.AddListProject(1);
    bench.PutRows(3);
    PutRow(1, 1, 5, 50);
    PutRow(1, 2, 6, 60);
    RefreshReferenceLists();
    PutRow(1, 2, 7, 70); // a list that is filled anew would show it
    second.EditDataView->SelectLine(1, true);
    bench.frame.Children->setActiveSubWindow(&bench.project);
    bench.DeleteAll();
    QCOMPARE(bench.List().LineCount(), 0);
    QCOMPARE(ColumnTexts(*second.EditDataView, 2), (QStringList{u"5.0"_qs, u"6.0"_qs}));
    QCOMPARE(SelectedLines(*second.EditDataView), QList<int>{1});
}

void ReferenceDeleteTest::deleting_rows_leaves_the_marks_to_their_rows()
{
    ReferenceEditBench bench;
    bench.PutRows(2);
    InDialogue([&] { bench.RunFromPopup(bench.List(), bench.frame.mnuPopEditDataAdd); },
               [](EditDataFrm &form) {
                   TypeRow(form, QStringLiteral("3"), QStringLiteral("30"));
                   Click(form.OkCmd);
               });
    QCOMPARE(SelectedLines(bench.List()), QList<int>{3});
    bench.DeleteLines({1});
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));
    QCOMPARE(SelectedLines(bench.List()), QList<int>{2});
}

void ReferenceDeleteTest::cancel_keeps_all_rows()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    bench.DeleteAll(QMessageBox::Cancel);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2, 3}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), QList<double>());
    QCOMPARE(bench.List().LineCount(), 3);
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
}

void ReferenceDeleteTest::the_commands_work_on_the_active_project()
{
    ReferenceEditBench bench;
    bench.PutRows(2);
    const SensorProjFrm &second = bench.AddListProject(1);
    PutRow(1, 1, 5, 5);
    PutRow(1, 2, 6, 6);
    RefreshReferenceLists();
    bench.frame.Children->setActiveSubWindow(&bench.project);
    second.EditDataView->SelectLine(1, true);
    bench.DeleteLines({2});
    QCOMPARE(UsedInputs(ReferenceTable[0]), QList<double>{1});
    QCOMPARE(UsedInputs(ReferenceTable[1]), (QList<double>{5, 6}));
}

void ReferenceDeleteTest::edits_keep_the_applied_curve()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    QCOMPARE(BuildReferenceCurve(0), std::uint8_t{0});
    ProjectSlots[0].CurveApplied = true;
    QCOMPARE(SEN_Meas_Z(2.5), 25.0);
    bench.DeleteLines({2});
    Click(bench.project.UndoLumoBtn);
    Click(bench.project.RedoLumoBtn);
    bench.DeleteAll();
    QCOMPARE(LastUsedRow(0), 0);
    QVERIFY(ProjectSlots[0].CurveApplied);
    QVERIFY(!ProjectSlots[0].Dirty);
    QCOMPARE(SEN_Meas_Z(2.5), 25.0);
    SEN_Free();
}

QTEST_MAIN(ReferenceDeleteTest)
#include "tst_reference_delete.moc"
