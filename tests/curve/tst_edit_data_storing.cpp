/// @file
/// What the dialogue of reference rows stores at its end.
#include "curve/EditDataBench.h"

class EditDataStoringTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void adding_sorts_the_row_in_and_selects_it();
    void a_row_added_in_the_middle_is_the_next_to_change();
    void a_stored_row_holds_all_its_fields();
    void one_opening_adds_many_rows();
    void typed_numbers_are_stored_as_typed();
    void a_minus_alone_is_stored_as_zero();
    void changing_moves_a_row_past_its_neighbour_and_keeps_it_selected();
    void an_emptied_box_removes_the_row_data();
    void an_emptied_box_removes_the_row();
    void several_rows_take_segment_and_arithmetic_only();
    void a_half_filled_new_row_is_dropped_data();
    void a_half_filled_new_row_is_dropped();
    void cancel_discards_all_rows();
    void escape_discards_all_rows();
    void an_edit_takes_a_backup_and_offers_undo();
    void an_edit_rebuilds_the_lists_of_the_slots_below_the_count();
    void a_running_measurement_does_not_lock_the_table();
    void an_edit_touches_neither_the_applied_curve_nor_the_dirty_flag();
};

void EditDataStoringTest::adding_sorts_the_row_in_and_selects_it()
{
    EditDataBench bench;
    bench.PutRows({1, 3, 7});
    RowMarks[2] = true;
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("12.5"));
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3, 5, 7}));
    QCOMPARE(ReferenceTable[0][3].Output, 12.5);
    QCOMPARE(ColumnTexts(bench.List(), 2), (QStringList{u"1.0"_qs, u"3.0"_qs, u"5.0"_qs, u"7.0"_qs}));
    QCOMPARE(SelectedLines(bench.List()), QList<int>{3});
}

void EditDataStoringTest::a_row_added_in_the_middle_is_the_next_to_change()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 4, 5});
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("3"), QStringLiteral("33"));
        Click(form.OkCmd);
    });
    QCOMPARE(SelectedLines(bench.List()), QList<int>{3});
    InDialogue([&] { bench.RunFromPopup(bench.List(), bench.frame.mnuPopEditDataChange); },
               [](EditDataFrm &form) {
                   QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
                   QCOMPARE(form.VolTxt->text(), QStringLiteral("3.0"));
                   QCOMPARE(form.TemperateTxt->text(), QStringLiteral("33.0"));
               });
}

void EditDataStoringTest::a_stored_row_holds_all_its_fields()
{
    EditDataBench bench;
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("-1.25"), QStringLiteral(".5"));
        Click(form.SegmentOpt[0]);
        Click(form.MathOpt[1]);
        Click(form.OkCmd);
    });
    const ReferencePoint &point = ReferenceTable[0][1];
    QVERIFY(point.Used);
    QCOMPARE(point.Input, -1.25);
    QCOMPARE(point.InputText, QStringLiteral("mV"));
    QCOMPARE(point.Output, 0.5);
    QCOMPARE(point.OutputText, QStringLiteral("C"));
    QVERIFY(point.Segment);
    QCOMPARE(point.Arithmetic, std::int16_t{1});
}

void EditDataStoringTest::one_opening_adds_many_rows()
{
    EditDataBench bench;
    bench.PutRows({5});
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("9"), QStringLiteral("1"));
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        QVERIFY(form.VolTxt->text().isEmpty());
        TypeRow(form, QStringLiteral("2"), QStringLiteral("3"));
        StepUp(form);
        TypeRow(form, QStringLiteral("7"), QStringLiteral("4"));
        QCOMPARE(LastUsedRow(0), 1); // what is typed stays in the dialogue until OK
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 5, 7, 9}));
    // The last one typed is the one that is marked.
    QCOMPARE(SelectedLines(bench.List()), QList<int>{3});
}

void EditDataStoringTest::typed_numbers_are_stored_as_typed()
{
    EditDataBench bench;
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("1.23456789"), QStringLiteral("0.987654321"));
        // The output has not been left, so that only the input went through the format.
        QTest::keyClick(form.TemperateTxt, Qt::Key_Return);
    });
    QCOMPARE(ReferenceTable[0][1].Input, 1.234568);
    QCOMPARE(ReferenceTable[0][1].Output, 0.987654321);
}

void EditDataStoringTest::a_minus_alone_is_stored_as_zero()
{
    EditDataBench bench;
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("-"), QStringLiteral("-"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("0.0"));
        QCOMPARE(form.TemperateTxt->text(), QStringLiteral("-"));
        Click(form.OkCmd);
    });
    QVERIFY(ReferenceTable[0][1].Used);
    QCOMPARE(ReferenceTable[0][1].Input, 0.0);
    QCOMPARE(ReferenceTable[0][1].Output, 0.0);
}

void EditDataStoringTest::changing_moves_a_row_past_its_neighbour_and_keeps_it_selected()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3, 4});
    ChangingLines(bench, {2}, [](EditDataFrm &form) {
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        TypeOver(form.VolTxt, QStringLiteral("3.5"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3, 3.5, 4}));
    QCOMPARE(ColumnTexts(bench.List(), 2), (QStringList{u"1.0"_qs, u"3.0"_qs, u"3.5"_qs, u"4.0"_qs}));
    QCOMPARE(ColumnTexts(bench.List(), 3), (QStringList{u"10.0"_qs, u"30.0"_qs, u"20.0"_qs, u"40.0"_qs}));
    QCOMPARE(SelectedLines(bench.List()), QList<int>{3});
}

void EditDataStoringTest::an_emptied_box_removes_the_row_data()
{
    QTest::addColumn<bool>("inInput");
    QTest::newRow("input") << true;
    QTest::newRow("output") << false;
}

void EditDataStoringTest::an_emptied_box_removes_the_row()
{
    QFETCH(const bool, inInput);
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    const BoxAnswers noBox;
    Changing(bench, 2, [inInput](EditDataFrm &form) {
        TypeOver(inInput ? form.VolTxt : form.TemperateTxt, QString());
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3}));
    QVERIFY(ReferenceTable[0][2].Used); // the rows below have moved up
    QVERIFY(!ReferenceTable[0][3].Used);
    QCOMPARE(ColumnTexts(bench.List(), 1), (QStringList{u"1"_qs, u"2"_qs}));
    QCOMPARE(ColumnTexts(bench.List(), 3), (QStringList{u"10.0"_qs, u"30.0"_qs}));
}

void EditDataStoringTest::several_rows_take_segment_and_arithmetic_only()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3, 4});
    ReferenceTable[0][3].Segment = true;
    ChangingLines(bench, {2, 4}, [](EditDataFrm &form) {
        Click(form.SegmentOpt[0]);
        Click(form.MathOpt[1]);
        QVERIFY(form.NOTxt->text().isEmpty());
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    const bool segments[] = {false, true, true, true};
    const std::int16_t arithmetics[] = {0, 1, 0, 1};
    for (int row = 1; row <= 4; ++row) {
        QCOMPARE(ReferenceTable[0][row].Segment, segments[row - 1]);
        QCOMPARE(ReferenceTable[0][row].Arithmetic, arithmetics[row - 1]);
        QCOMPARE(ReferenceTable[0][row].Input, static_cast<double>(row));
        QCOMPARE(ReferenceTable[0][row].Output, 10.0 * row);
    }
    QCOMPARE(SelectedLines(bench.List()), (QList<int>{2, 4}));
    QVERIFY(!ReferenceBackup[0][2].Segment);
    QVERIFY(bench.project.UndoLumoBtn->isEnabled());
}

void EditDataStoringTest::a_half_filled_new_row_is_dropped_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("output");
    QTest::newRow("no output") << QStringLiteral("5") << QString();
    QTest::newRow("no input") << QString() << QStringLiteral("5");
    QTest::newRow("neither") << QString() << QString();
}

void EditDataStoringTest::a_half_filled_new_row_is_dropped()
{
    QFETCH(const QString, input);
    QFETCH(const QString, output);
    EditDataBench bench;
    bench.PutRows({1});
    const BoxAnswers noBox;
    Adding(bench, [&](EditDataFrm &form) {
        TypeRow(form, input, output);
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), QList<double>{1});
    QCOMPARE(SelectedLines(bench.List()), QList<int>());
}

void EditDataStoringTest::cancel_discards_all_rows()
{
    EditDataBench bench;
    bench.PutRows({1, 2});
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("5"));
        StepUp(form);
        TypeRow(form, QStringLiteral("6"), QStringLiteral("6"));
        Click(form.CancelCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), QList<double>());
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
}

void EditDataStoringTest::escape_discards_all_rows()
{
    EditDataBench bench;
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("5"));
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(LastUsedRow(0), 0);
}

void EditDataStoringTest::an_edit_takes_a_backup_and_offers_undo()
{
    EditDataBench bench;
    bench.PutRows({1, 2});
    bench.project.RedoLumoBtn->setEnabled(true);
    Changing(bench, 1, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("8"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 8}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), (QList<double>{1, 2}));
    QVERIFY(bench.project.UndoLumoBtn->isEnabled());
    QVERIFY(!bench.project.RedoLumoBtn->isEnabled());

    Click(bench.project.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2}));
    Click(bench.project.RedoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 8}));
}

void EditDataStoringTest::an_edit_rebuilds_the_lists_of_the_slots_below_the_count()
{
    EditDataBench bench;
    bench.PutRows({1});
    delete &bench.AddListProject(1); // a free slot between two taken ones
    ProjectForm[1] = nullptr;
    ProjectOccupied[1] = false;
    const SensorProjFrm &third = bench.AddListProject(2);
    PutRow(2, 1, 5, 50);
    RefreshReferenceLists();
    QCOMPARE(ProjectCount, std::int16_t{3});
    ProjectCount = 2;

    PutRow(0, 2, 2, 20);
    ReportList &list = *third.EditDataView;
    InDialogue([&] { bench.RunFromPopup(list, bench.frame.mnuPopEditDataAdd); },
               [](EditDataFrm &form) {
                   TypeRow(form, QStringLiteral("4"), QStringLiteral("40"));
                   Click(form.OkCmd);
               });
    QCOMPARE(UsedInputs(ReferenceTable[2]), (QList<double>{4, 5}));
    QCOMPARE(ColumnTexts(bench.List(), 2), (QStringList{u"1.0"_qs, u"2.0"_qs}));
    // Its own slot lies behind those that the count reaches.
    QCOMPARE(ColumnTexts(list, 2), QStringList{u"5.0"_qs});

    ProjectCount = 3;
    Click(third.UndoLumoBtn);
    Click(third.RedoLumoBtn);
    QCOMPARE(ColumnTexts(list, 2), (QStringList{u"4.0"_qs, u"5.0"_qs}));
}

void EditDataStoringTest::a_running_measurement_does_not_lock_the_table()
{
    EditDataBench bench;
    Measuring = true;
    const BoxAnswers noBox;
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("5"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), QList<double>{5});
}

void EditDataStoringTest::an_edit_touches_neither_the_applied_curve_nor_the_dirty_flag()
{
    EditDataBench bench;
    ProjectSlots[0].CurveApplied = true;
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("5"));
        Click(form.OkCmd);
    });
    QCOMPARE(LastUsedRow(0), 1);
    QVERIFY(ProjectSlots[0].CurveApplied);
    QVERIFY(!ProjectSlots[0].Dirty);
}

QTEST_MAIN(EditDataStoringTest)
#include "tst_edit_data_storing.moc"
