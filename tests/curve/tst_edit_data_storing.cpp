/// @file
/// How the dialogue of reference rows opens, and what it stores at its end.
#include "curve/EditDataBench.h"

#include <QScreen>

namespace {

QList<int> SelectedLines(const EditDataBench &bench)
{
    QList<int> lines;
    for (int line = 1; line <= bench.project.EditDataView->LineCount(); ++line) {
        if (bench.project.EditDataView->LineSelected(line))
            lines.append(line);
    }
    return lines;
}

QColor BaseColour(const TextBox *box)
{
    return box->palette().color(QPalette::Active, QPalette::Base);
}

} // namespace

class EditDataStoringTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void it_opens_in_both_languages_data();
    void it_opens_in_both_languages();
    void it_opens_to_add_behind_the_last_row();
    void it_opens_to_change_the_current_row();
    void it_opens_to_change_a_segment_row();
    void it_opens_on_line_1_when_no_line_has_the_focus();
    void it_opens_for_several_rows_with_numbers_disabled();
    void opening_marks_the_selected_lines_only();
    void it_stands_in_the_middle_of_the_screen();
    void enter_has_no_default_button();

    void adding_sorts_the_row_in_and_selects_it();
    void a_row_added_in_the_middle_is_the_next_to_change();
    void a_stored_row_holds_all_its_fields();
    void one_opening_adds_many_rows();
    void typed_numbers_are_stored_as_typed();
    void a_minus_alone_is_stored_as_zero();
    void changing_moves_a_row_past_its_neighbour_and_keeps_it_selected();
    void an_emptied_output_removes_the_row();
    void several_rows_take_segment_and_arithmetic_only();
    void a_half_filled_new_row_is_dropped();
    void cancel_discards_all_rows();
    void escape_discards_all_rows();
    void an_edit_takes_a_backup_and_offers_undo();
    void an_edit_touches_neither_the_applied_curve_nor_the_dirty_flag();
    void a_row_beyond_a_full_table_is_refused();
};

void EditDataStoringTest::it_opens_in_both_languages_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("addTitle");
    QTest::addColumn<QString>("changeTitle");
    QTest::addColumn<QStringList>("captions");
    QTest::newRow("English") << 1 << QStringLiteral("EditData - Add Data") << QStringLiteral("EditData - Modify Data")
                             << QStringList{QStringLiteral("NO."),        QStringLiteral("Input"),
                                            QStringLiteral("Output"),     QStringLiteral("Segment dot? "),
                                            QStringLiteral("Arithmetic"), QStringLiteral("Yes"),
                                            QStringLiteral("No"),         QStringLiteral("Line"),
                                            QStringLiteral("Least"),      QStringLiteral("OK"),
                                            QStringLiteral("Cancel")};
    QTest::newRow("Chinese") << 0 << QStringLiteral("数据编辑－添加数据") << QStringLiteral("数据编辑－修改数据")
                             << QStringList{
                                    QStringLiteral("数据序号"), QStringLiteral("输入参考"), QStringLiteral("输出参考"),
                                    QStringLiteral("分段点? "), QStringLiteral("拟合算法"), QStringLiteral("是"),
                                    QStringLiteral("否"),       QStringLiteral("线性插值"), QStringLiteral("曲线拟合"),
                                    QStringLiteral("确定"),     QStringLiteral("取消")};
}

void EditDataStoringTest::it_opens_in_both_languages()
{
    QFETCH(int, language);
    QFETCH(QString, addTitle);
    QFETCH(QString, changeTitle);
    QFETCH(QStringList, captions);
    EditDataBench bench;
    CurrentLanguage = language;
    bench.PutRows({1});
    Adding([&](EditDataFrm &form) {
        QCOMPARE(form.windowTitle(), addTitle);
        QCOMPARE(
            (QStringList{form.NOLal->text(), form.VolLab->text(), form.TemperatureLab->text(), form.SegmentLab->text(),
                         form.MathLab->text(), form.SegmentOpt[0]->text(), form.SegmentOpt[1]->text(),
                         form.MathOpt[0]->text(), form.MathOpt[1]->text(), form.OkCmd->text(), form.CancelCmd->text()}),
            captions);
        QCOMPARE(form.VUnitLab->text(), QStringLiteral("mV"));
        QCOMPARE(form.TUnitLab->text(), QStringLiteral("C"));
    });
    Changing(bench, 1, [&](EditDataFrm &form) { QCOMPARE(form.windowTitle(), changeTitle); });
}

void EditDataStoringTest::it_opens_to_add_behind_the_last_row()
{
    EditDataBench bench;
    bench.PutRows({1, 3, 7});
    Adding([](EditDataFrm &form) {
        QVERIFY(form.isModal());
        QCOMPARE(form.NOTxt->text(), QStringLiteral("4"));
        QVERIFY(form.NOTxt->Locked());
        QCOMPARE(BaseColour(form.NOTxt), QColor(220, 220, 220));
        QVERIFY(form.SegmentOpt[1]->isChecked());
        QVERIFY(!ArithmeticOffered(form));
        QVERIFY(form.VolTxt->text().isEmpty());
        QVERIFY(form.TemperateTxt->text().isEmpty());
        QCOMPARE(form.FirstRow, 4);
        QCOMPARE(form.LastRow, 500);
        QCOMPARE(form.HScroll1->value(), 4);
        QCOMPARE(form.HScroll1->minimum(), 4);
        QCOMPARE(form.HScroll1->maximum(), 500);
        QCOMPARE(form.UpDown1->Minimum(), 4);
        QCOMPARE(form.UpDown1->Maximum(), 500);
        QTest::keyClicks(form.NOTxt, QStringLiteral("2"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("4"));
    });
    QCOMPARE(ReferenceRowCount, 3);
    QCOMPARE(EditRowNumber, 4);
    QCOMPARE(EditDataMode, EditDataModeAdd);
}

void EditDataStoringTest::it_opens_to_change_the_current_row()
{
    EditDataBench bench;
    bench.PutRows({1, 3.25, 7});
    Changing(bench, 2, [](EditDataFrm &form) {
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QVERIFY(!form.NOTxt->Locked());
        QCOMPARE(BaseColour(form.NOTxt), QColor(255, 255, 255));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("3.25"));
        QCOMPARE(form.TemperateTxt->text(), QStringLiteral("32.5"));
        QVERIFY(form.SegmentOpt[1]->isChecked());
        QVERIFY(form.MathOpt[0]->isChecked());
        QVERIFY(!ArithmeticOffered(form));
        QVERIFY(!form.MultiSelect);
        QCOMPARE(form.FirstRow, 1);
        QCOMPARE(form.LastRow, 3);
        QCOMPARE(form.HScroll1->value(), 2);
        QCOMPARE(form.HScroll1->minimum(), 1);
        QCOMPARE(form.HScroll1->maximum(), 500);
        QCOMPARE(form.UpDown1->Minimum(), 1);
        QCOMPARE(form.UpDown1->Maximum(), 500);
        for (const QWidget *control :
             std::initializer_list<QWidget *>{form.NOTxt, form.VolTxt, form.TemperateTxt, form.HScroll1, form.UpDown1})
            QVERIFY(control->isEnabled());
        QCOMPARE(form.WorkingTable[2].InputText, QStringLiteral("mV"));
        QCOMPARE(form.WorkingTable[2].OutputText, QStringLiteral("C"));
    });
    QCOMPARE(EditRowNumber, 2);
    QCOMPARE(EditDataMode, EditDataModeChange);
}

void EditDataStoringTest::it_opens_to_change_a_segment_row()
{
    EditDataBench bench;
    PutRow(0, 1, 1, 1, true, 1);
    PutRow(0, 2, 2, 2, true, 0);
    RefreshReferenceLists();
    Changing(bench, 1, [](EditDataFrm &form) {
        QVERIFY(form.SegmentOpt[0]->isChecked());
        QVERIFY(form.MathOpt[1]->isChecked());
        QVERIFY(ArithmeticOffered(form));
    });
    Changing(bench, 2, [](EditDataFrm &form) {
        QVERIFY(form.SegmentOpt[0]->isChecked());
        QVERIFY(form.MathOpt[0]->isChecked());
        QVERIFY(ArithmeticOffered(form));
    });
}

void EditDataStoringTest::it_opens_on_line_1_when_no_line_has_the_focus()
{
    EditDataBench bench;
    bench.PutRows({4, 5});
    bench.project.EditDataView->setCurrentItem(nullptr);
    InDialogue(mnuPopEditDataChange_Click, [](EditDataFrm &form) {
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("4.0"));
    });
}

void EditDataStoringTest::it_opens_for_several_rows_with_numbers_disabled()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3, 4});
    ChangingLines(bench, {2, 4}, [](EditDataFrm &form) {
        QVERIFY(form.MultiSelect);
        for (const QWidget *control :
             std::initializer_list<QWidget *>{form.NOTxt, form.VolTxt, form.TemperateTxt, form.HScroll1, form.UpDown1})
            QVERIFY(!control->isEnabled());
        QVERIFY(form.NOTxt->Locked());
        QVERIFY(form.NOTxt->text().isEmpty());
        QVERIFY(form.VolTxt->text().isEmpty());
        QVERIFY(form.TemperateTxt->text().isEmpty());
        QVERIFY(form.SegmentOpt[0]->isEnabled());
        QVERIFY(form.SegmentOpt[1]->isEnabled());
        QCOMPARE(form.HScroll1->maximum(), 500);
    });
}

void EditDataStoringTest::opening_marks_the_selected_lines_only()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    RowMarks[1] = true;
    RowMarks[500] = true;
    ChangingLines(bench, {2, 3}, [](EditDataFrm &) {
        QVERIFY(!RowMarks[1]);
        QVERIFY(RowMarks[2]);
        QVERIFY(RowMarks[3]);
        QVERIFY(!RowMarks[500]);
    });
    Adding([](EditDataFrm &) { QVERIFY(std::ranges::none_of(RowMarks, [](bool mark) { return mark; })); });
}

void EditDataStoringTest::it_stands_in_the_middle_of_the_screen()
{
    EditDataBench bench;
    Adding([](EditDataFrm &form) {
        const QRect screen = form.screen()->geometry();
        QVERIFY(std::abs(2 * (form.x() - screen.x()) + form.width() - screen.width()) <= 1);
        QVERIFY(std::abs(2 * (form.y() - screen.y()) + form.height() - screen.height()) <= 1);
    });
}

void EditDataStoringTest::enter_has_no_default_button()
{
    EditDataBench bench;
    bench.PutRows({1});
    Changing(bench, 1, [](EditDataFrm &form) {
        QTest::keyClick(form.NOTxt, Qt::Key_Return);
        QTest::keyClick(form.SegmentOpt[0], Qt::Key_Return);
        QVERIFY(form.isVisible());
    });
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
}

void EditDataStoringTest::adding_sorts_the_row_in_and_selects_it()
{
    EditDataBench bench;
    bench.PutRows({1, 3, 7});
    RowMarks[2] = true;
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("12.5"));
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3, 5, 7}));
    QCOMPARE(ReferenceTable[0][3].Output, 12.5);
    QCOMPARE(bench.project.EditDataView->LineCount(), 4);
    QCOMPARE(bench.project.EditDataView->LineText(3, 2), QStringLiteral("5.0"));
    QCOMPARE(SelectedLines(bench), QList<int>{3});
}

void EditDataStoringTest::a_row_added_in_the_middle_is_the_next_to_change()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 4, 5});
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("3"), QStringLiteral("33"));
        Click(form.OkCmd);
    });
    QCOMPARE(SelectedLines(bench), QList<int>{3});
    InDialogue(mnuPopEditDataChange_Click, [](EditDataFrm &form) {
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("3.0"));
        QCOMPARE(form.TemperateTxt->text(), QStringLiteral("33.0"));
    });
}

void EditDataStoringTest::a_stored_row_holds_all_its_fields()
{
    EditDataBench bench;
    Adding([](EditDataFrm &form) {
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
    Adding([](EditDataFrm &form) {
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
    QCOMPARE(SelectedLines(bench), QList<int>{3});
}

void EditDataStoringTest::typed_numbers_are_stored_as_typed()
{
    EditDataBench bench;
    Adding([](EditDataFrm &form) {
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
    Adding([](EditDataFrm &form) {
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
    QCOMPARE(bench.project.EditDataView->LineText(3, 2), QStringLiteral("3.5"));
    QCOMPARE(bench.project.EditDataView->LineText(3, 3), QStringLiteral("20.0"));
    QCOMPARE(SelectedLines(bench), QList<int>{3});
}

void EditDataStoringTest::an_emptied_output_removes_the_row()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    Changing(bench, 2, [](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QString());
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3}));
    QVERIFY(ReferenceTable[0][2].Used);
    QVERIFY(!ReferenceTable[0][3].Used);
    QCOMPARE(bench.project.EditDataView->LineCount(), 2);
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
    QCOMPARE(SelectedLines(bench), (QList<int>{2, 4}));
    QVERIFY(!ReferenceBackup[0][2].Segment);
    QVERIFY(bench.project.UndoLumoBtn->isEnabled());
}

void EditDataStoringTest::a_half_filled_new_row_is_dropped()
{
    EditDataBench bench;
    bench.PutRows({1});
    const BoxAnswers noBox;
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QString());
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), QList<double>{1});
    QCOMPARE(SelectedLines(bench), QList<int>());
}

void EditDataStoringTest::cancel_discards_all_rows()
{
    EditDataBench bench;
    bench.PutRows({1, 2});
    Adding([](EditDataFrm &form) {
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
    Adding([](EditDataFrm &form) {
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
}

void EditDataStoringTest::an_edit_touches_neither_the_applied_curve_nor_the_dirty_flag()
{
    EditDataBench bench;
    ProjectSlots[0].CurveApplied = true;
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("5"));
        Click(form.OkCmd);
    });
    QCOMPARE(LastUsedRow(0), 1);
    QVERIFY(ProjectSlots[0].CurveApplied);
    QVERIFY(!ProjectSlots[0].Dirty);
}

void EditDataStoringTest::a_row_beyond_a_full_table_is_refused()
{
    EditDataBench bench;
    bench.PutFullTable();
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Adding([&](EditDataFrm &form) {
        QCOMPARE(form.NOTxt->text(), QStringLiteral("501"));
        TypeRow(form, QStringLiteral("600"), QStringLiteral("5"));
        Click(form.OkCmd);
        QVERIFY(form.isVisible());
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("501"));
    });
    QCOMPARE(answers.Texts(), (QStringList{QStringLiteral("Out of range"), QStringLiteral("Out of range")}));
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        QCOMPARE(ReferenceTable[0][row].Input, static_cast<double>(row));
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
}

QTEST_MAIN(EditDataStoringTest)
#include "tst_edit_data_storing.moc"
