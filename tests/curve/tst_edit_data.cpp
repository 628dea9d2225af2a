/// @file
/// The dialogue that adds and changes reference rows: its key filters, how it opens, and what it stores.
#include "curve/EditDataFrm.h"
#include "curve/EditDataModule.h"
#include "curve/ReferenceEditModule.h"
#include "curve/ReferenceListModule.h"
#include "platform/RuntimeError.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"

#include <QClipboard>
#include <QScreen>
#include <QToolButton>

namespace {

const QString Exceeded = QStringLiteral("The data is exceeded,please rewrite! ");
const QString ExceededChinese = QStringLiteral("输入数值超限,请重新填写! ");

using Steps = std::function<void(EditDataFrm &form)>;

/// A frame with one project in slot 0, whose units are mV and C, and its list.
class EditFixture : public BareFrame {
public:
    EditFixture() : project(AddProject(0))
    {
        SensorProjects[0].InputUnit = QStringLiteral("mV");
        SensorProjects[0].OutputUnit = QStringLiteral("C");
        project.EditDataView->SetColumnTitles(
            {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("5")});
        project.UndoLumoBtn->setEnabled(false);
        project.RedoLumoBtn->setEnabled(false);
        ConnectReferenceEdit(project);
    }

    /// Rows 1 and so on with the given inputs; each output is ten times its input.
    void PutRows(const QList<double> &inputs)
    {
        for (int i = 0; i < inputs.size(); ++i)
            PutRow(0, i + 1, inputs[i], 10 * inputs[i]);
        RefreshReferenceLists();
    }

    void PutFullTable()
    {
        for (int row = 1; row <= ReferenceRowLimit; ++row)
            PutRow(0, row, row, 2.0 * row);
        RefreshReferenceLists();
    }

    SensorProjFrm &project;
};

/// Opens the dialogue by a command, takes the steps in it, and cancels it unless a step has closed it.
void InDialogue(void (*command)(), const Steps &steps)
{
    WhenModal dialogue(QStringLiteral("EditDataFrm"), [&steps](QWidget *window) {
        auto *form = qobject_cast<EditDataFrm *>(window);
        QVERIFY(form != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(form));
        steps(*form);
        if (form->isVisible())
            QTest::mouseClick(form->CancelCmd, Qt::LeftButton);
    });
    command();
}

void Adding(const Steps &steps)
{
    InDialogue(mnuPopEditDataAdd_Click, steps);
}

void Changing(EditFixture &fixture, int line, const Steps &steps)
{
    ReportList &list = *fixture.project.EditDataView;
    list.clearSelection();
    list.setCurrentItem(list.topLevelItem(line - 1));
    QCOMPARE(list.CurrentLine(), line);
    InDialogue(mnuPopEditDataChange_Click, steps);
}

void ChangingLines(EditFixture &fixture, const QList<int> &lines, const Steps &steps)
{
    ReportList &list = *fixture.project.EditDataView;
    list.setCurrentItem(list.topLevelItem(lines.first() - 1));
    list.clearSelection();
    for (const int line : lines)
        list.SelectLine(line, true);
    InDialogue(mnuPopEditDataChange_Click, steps);
}

void Click(QWidget *control)
{
    QTest::mouseClick(control, Qt::LeftButton);
}

/// Types over what a box holds, as a user who has selected it all.
void TypeOver(TextBox *box, const QString &text)
{
    Click(box);
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, text);
}

void TypeRow(const EditDataFrm &form, const QString &input, const QString &output)
{
    TypeOver(form.VolTxt, input);
    TypeOver(form.TemperateTxt, output);
}

void StepUp(const EditDataFrm &form)
{
    Click(form.UpDown1->findChild<QToolButton *>(QStringLiteral("Up")));
}

void StepDown(const EditDataFrm &form)
{
    Click(form.UpDown1->findChild<QToolButton *>(QStringLiteral("Down")));
}

/// The arrow at the right or the left end of a scroll bar.
void ClickArrow(FlatScrollBar *bar, bool right)
{
    const int inside = bar->height() / 2;
    QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(right ? bar->width() - inside : inside, inside));
}

QList<double> UsedInputs(const ReferenceRows &rows)
{
    QList<double> inputs;
    for (const ReferencePoint &point : rows) {
        if (point.Used)
            inputs.append(point.Input);
    }
    return inputs;
}

QList<int> SelectedLines(const EditFixture &fixture)
{
    QList<int> lines;
    for (int line = 1; line <= fixture.project.EditDataView->LineCount(); ++line) {
        if (fixture.project.EditDataView->LineSelected(line))
            lines.append(line);
    }
    return lines;
}

bool ArithmeticOffered(const EditDataFrm &form)
{
    const bool offered = form.Frame1->isEnabled();
    for (const QWidget *control : {static_cast<QWidget *>(form.MathLab), static_cast<QWidget *>(form.MathOpt[0]),
                                   static_cast<QWidget *>(form.MathOpt[1])}) {
        if (control->isEnabled() != offered)
            QTest::qFail("the arithmetic is enabled as a whole", __FILE__, __LINE__);
    }
    return offered;
}

QColor BaseColour(const TextBox *box)
{
    return box->palette().color(QPalette::Active, QPalette::Base);
}

} // namespace

Q_DECLARE_METATYPE(ValueKeyVerdict)

class EditDataTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void value_keys_are_tested_in_order_data();
    void value_keys_are_tested_in_order();
    void a_number_beyond_single_fails_to_convert();
    void the_row_number_takes_digits_backspace_and_enter();
    void the_current_limit_depends_on_unit_function_and_model_data();
    void the_current_limit_depends_on_unit_function_and_model();

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

    void up_saves_and_steps_to_the_next_row();
    void up_stops_at_an_empty_row();
    void up_stops_at_row_500();
    void down_stops_at_row_1();
    void stepping_stays_within_the_limits_of_the_row_number();
    void a_half_filled_row_is_dropped_on_the_way();
    void the_scroll_bar_saves_and_moves();
    void a_typed_row_number_is_kept_within_its_limits();
    void a_typed_row_number_receives_what_is_on_display();
    void the_row_number_swallows_other_keys();
    void an_empty_row_shows_no_segment_and_line();
    void the_segment_option_offers_the_arithmetic_and_keeps_the_choice();

    void a_key_that_is_no_number_is_swallowed();
    void a_thirteenth_character_empties_the_box_data();
    void a_thirteenth_character_empties_the_box();
    void a_value_out_of_range_empties_the_box_at_the_next_key_data();
    void a_value_out_of_range_empties_the_box_at_the_next_key();
    void a_failed_conversion_has_its_own_warning_in_the_input_data();
    void a_failed_conversion_has_its_own_warning_in_the_input();
    void enter_acts_as_ok_data();
    void enter_acts_as_ok();
    void a_right_press_empties_the_clipboard();
    void leaving_a_value_puts_it_into_the_format();
    void an_input_that_stands_twice_is_refused_once_for_each_row_data();
    void an_input_that_stands_twice_is_refused_once_for_each_row();
    void the_own_row_does_not_count_as_twice();

    void a_current_beyond_the_limit_keeps_the_dialogue_open_data();
    void a_current_beyond_the_limit_keeps_the_dialogue_open();
    void stepping_warns_of_the_current_limit_and_goes_on();
};

void EditDataTest::value_keys_are_tested_in_order_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<ValueKeyVerdict>("verdict");
    using enum ValueKeyVerdict;
    const auto row = [](const char *name, int key, const char *text, ValueKeyVerdict verdict) {
        QTest::newRow(name) << key << QString::fromLatin1(text) << verdict;
    };
    row("digit 0", '0', "", Accepted);
    row("digit 9", '9', "", Accepted);
    row("minus first", '-', "", Accepted);
    row("minus anywhere", '-', "12", Accepted);
    row("minus twice", '-', "-", Accepted);
    row("first point", '.', "12", Accepted);
    row("second point", '.', "1.2", Swallowed);
    row("digit behind a point", '3', "1.2", Accepted);
    row("backspace", 8, "1.2", Accepted);
    row("enter", 13, "1.2", Accepted);
    row("letter", 'a', "", Swallowed);
    row("exponent", 'E', "1", Swallowed);
    row("plus", '+', "", Swallowed);
    row("comma", ',', "", Swallowed);
    row("blank", ' ', "", Swallowed);
    row("paste", 22, "", Swallowed);
    row("delete character", 127, "", Swallowed);
    row("full-width digit", 0xFF11, "", Swallowed);
    row("character whose low half is a digit", 0x10031, "", Swallowed);
    row("a bad key is swallowed whatever the text", 'x', "999999999", Swallowed);
    row("a second point is swallowed at 12 characters", '.', "1.2345678901", Swallowed);
    row("12th character", '1', "12345678.12", Accepted);
    row("13th character", '1', "12345678.123", TooLong);
    row("13th character, a point", '.', "123456789012", TooLong);
    row("13th character, a minus", '-', "123456789012", TooLong);
    row("backspace at 12", 8, "12345678.123", Accepted);
    row("enter at 12", 13, "12345678.123", Accepted);
    row("the length comes ahead of the value", '1', "999999999999", TooLong);
    row("backspace on a value too large", 8, "999999999999", OutOfRange);
    row("largest value", '0', "120000000", Accepted);
    row("equal to the largest in single precision", '0', "120000003", Accepted);
    row("above the largest", '0', "120000008", OutOfRange);
    row("negative above the largest", '0', "-120000008", OutOfRange);
    row("backspace above the largest", 8, "120000008", OutOfRange);
    row("enter above the largest", 13, "123456789", OutOfRange);
    row("typed up to 123456789", '9', "12345678", Accepted);
    row("key behind 123456789", '0', "123456789", OutOfRange);
    row("a bad value may get a point", '.', "123456789", OutOfRange);
    row("smallest value", '0', "0.000000001", Accepted);
    row("negative smallest value", '0', "-.000000001", Accepted);
    row("below the smallest", 13, "0.0000000009", OutOfRange);
    row("zero", '1', "0.000000000", Accepted);
    row("empty text", 13, "", Accepted);
    row("point alone", '5', ".", Accepted);
    row("minus alone", '5', "-", Accepted);
}

void EditDataTest::value_keys_are_tested_in_order()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    QTEST(TestValueKey(key, text), "verdict");
}

void EditDataTest::a_number_beyond_single_fails_to_convert()
{
    int error = 0;
    try {
        TestValueKey(8, QStringLiteral("1") + QString(39, u'0'));
    } catch (const RuntimeError &thrown) {
        error = thrown.Number();
    }
    QCOMPARE(error, ErrorNumber::Overflow);
    QCOMPARE(TestValueKey(8, QStringLiteral("1") + QString(38, u'0')), ValueKeyVerdict::OutOfRange);
}

void EditDataTest::the_row_number_takes_digits_backspace_and_enter()
{
    QString passing;
    for (int key = 1; key < 0x300; ++key) {
        if (RowNumberKeyPasses(key))
            passing += QChar(static_cast<char16_t>(key));
    }
    QCOMPARE(passing, QStringLiteral("\x08\x0d"
                                     "0123456789"));
    QVERIFY(!RowNumberKeyPasses(0xFF11));
    QVERIFY(!RowNumberKeyPasses(0x10031));
}

void EditDataTest::the_current_limit_depends_on_unit_function_and_model_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("function");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("exceeded");
    const auto row = [](const char *name, int kind, int function, const char *unit, double value, bool exceeded) {
        QTest::newRow(name) << kind << function << QString::fromLatin1(unit) << value << exceeded;
    };
    row("A at the limit", 2, 2, "A", 0.22, false);
    row("A above", 2, 2, "A", 0.2200001, true);
    row("A below zero", 2, 2, "A", -0.23, true);
    row("A below zero at the limit", 2, 2, "A", -0.22, false);
    row("mA at the limit", 2, 2, "mA", 220, false);
    row("mA above", 2, 2, "mA", 220.001, true);
    row("mA below zero", 2, 2, "mA", -220.001, true);
    row("uA at the limit", 2, 2, "uA", 220000, false);
    row("uA above", 2, 2, "uA", 220000.5, true);
    row("uA below zero", 2, 2, "uA", -220001, true);
    row("another unit", 2, 2, "V", 1e6, false);
    row("the unit is compared exactly", 2, 2, "ma", 1e6, false);
    row("voltage", 2, 0, "A", 1, false);
    row("another function", 2, 4, "A", 1, false);
    row("KV7050", 1, 2, "A", 1, false);
    row("another model", 0, 2, "A", 1, false);
}

void EditDataTest::the_current_limit_depends_on_unit_function_and_model()
{
    QFETCH(int, kind);
    QFETCH(int, function);
    QFETCH(QString, unit);
    QFETCH(double, value);
    ResetAllTables();
    InstrumentKind = static_cast<std::int16_t>(kind);
    SensorProjects[3].MeasFunction = function;
    SensorProjects[3].InputUnit = unit;
    QTEST(CurrentLimitExceeded(3, value), "exceeded");
}

void EditDataTest::it_opens_in_both_languages_data()
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

void EditDataTest::it_opens_in_both_languages()
{
    QFETCH(int, language);
    QFETCH(QString, addTitle);
    QFETCH(QString, changeTitle);
    QFETCH(QStringList, captions);
    EditFixture fixture;
    CurrentLanguage = language;
    fixture.PutRows({1});
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
    Changing(fixture, 1, [&](EditDataFrm &form) { QCOMPARE(form.windowTitle(), changeTitle); });
}

void EditDataTest::it_opens_to_add_behind_the_last_row()
{
    EditFixture fixture;
    fixture.PutRows({1, 3, 7});
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

void EditDataTest::it_opens_to_change_the_current_row()
{
    EditFixture fixture;
    fixture.PutRows({1, 3.25, 7});
    Changing(fixture, 2, [](EditDataFrm &form) {
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

void EditDataTest::it_opens_to_change_a_segment_row()
{
    EditFixture fixture;
    PutRow(0, 1, 1, 1, true, 1);
    PutRow(0, 2, 2, 2, true, 0);
    RefreshReferenceLists();
    Changing(fixture, 1, [](EditDataFrm &form) {
        QVERIFY(form.SegmentOpt[0]->isChecked());
        QVERIFY(form.MathOpt[1]->isChecked());
        QVERIFY(ArithmeticOffered(form));
    });
    Changing(fixture, 2, [](EditDataFrm &form) {
        QVERIFY(form.SegmentOpt[0]->isChecked());
        QVERIFY(form.MathOpt[0]->isChecked());
        QVERIFY(ArithmeticOffered(form));
    });
}

void EditDataTest::it_opens_on_line_1_when_no_line_has_the_focus()
{
    EditFixture fixture;
    fixture.PutRows({4, 5});
    fixture.project.EditDataView->setCurrentItem(nullptr);
    InDialogue(mnuPopEditDataChange_Click, [](EditDataFrm &form) {
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("4.0"));
    });
}

void EditDataTest::it_opens_for_several_rows_with_numbers_disabled()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3, 4});
    ChangingLines(fixture, {2, 4}, [](EditDataFrm &form) {
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

void EditDataTest::opening_marks_the_selected_lines_only()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3});
    RowMarks[1] = true;
    RowMarks[500] = true;
    ChangingLines(fixture, {2, 3}, [](EditDataFrm &) {
        QVERIFY(!RowMarks[1]);
        QVERIFY(RowMarks[2]);
        QVERIFY(RowMarks[3]);
        QVERIFY(!RowMarks[500]);
    });
    Adding([](EditDataFrm &) { QVERIFY(std::ranges::none_of(RowMarks, [](bool mark) { return mark; })); });
}

void EditDataTest::it_stands_in_the_middle_of_the_screen()
{
    EditFixture fixture;
    Adding([](EditDataFrm &form) {
        const QRect screen = form.screen()->geometry();
        QVERIFY(std::abs(2 * (form.x() - screen.x()) + form.width() - screen.width()) <= 1);
        QVERIFY(std::abs(2 * (form.y() - screen.y()) + form.height() - screen.height()) <= 1);
    });
}

void EditDataTest::enter_has_no_default_button()
{
    EditFixture fixture;
    fixture.PutRows({1});
    Changing(fixture, 1, [](EditDataFrm &form) {
        QTest::keyClick(form.NOTxt, Qt::Key_Return);
        QTest::keyClick(form.SegmentOpt[0], Qt::Key_Return);
        QVERIFY(form.isVisible());
    });
    QVERIFY(!fixture.project.UndoLumoBtn->isEnabled());
}

void EditDataTest::adding_sorts_the_row_in_and_selects_it()
{
    EditFixture fixture;
    fixture.PutRows({1, 3, 7});
    RowMarks[2] = true;
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("12.5"));
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3, 5, 7}));
    QCOMPARE(ReferenceTable[0][3].Output, 12.5);
    QCOMPARE(fixture.project.EditDataView->LineCount(), 4);
    QCOMPARE(fixture.project.EditDataView->LineText(3, 2), QStringLiteral("5.0"));
    QCOMPARE(SelectedLines(fixture), QList<int>{3});
}

void EditDataTest::a_stored_row_holds_all_its_fields()
{
    EditFixture fixture;
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

void EditDataTest::one_opening_adds_many_rows()
{
    EditFixture fixture;
    fixture.PutRows({5});
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
    QCOMPARE(SelectedLines(fixture), QList<int>{3});
}

void EditDataTest::typed_numbers_are_stored_as_typed()
{
    EditFixture fixture;
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("1.23456789"), QStringLiteral("0.987654321"));
        // The output has not been left, so that only the input went through the format.
        QTest::keyClick(form.TemperateTxt, Qt::Key_Return);
    });
    QCOMPARE(ReferenceTable[0][1].Input, 1.234568);
    QCOMPARE(ReferenceTable[0][1].Output, 0.987654321);
}

void EditDataTest::a_minus_alone_is_stored_as_zero()
{
    EditFixture fixture;
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

void EditDataTest::changing_moves_a_row_past_its_neighbour_and_keeps_it_selected()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3, 4});
    ChangingLines(fixture, {2}, [](EditDataFrm &form) {
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        TypeOver(form.VolTxt, QStringLiteral("3.5"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3, 3.5, 4}));
    QCOMPARE(fixture.project.EditDataView->LineText(3, 2), QStringLiteral("3.5"));
    QCOMPARE(fixture.project.EditDataView->LineText(3, 3), QStringLiteral("20.0"));
    QCOMPARE(SelectedLines(fixture), QList<int>{3});
}

void EditDataTest::an_emptied_output_removes_the_row()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3});
    Changing(fixture, 2, [](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QString());
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3}));
    QVERIFY(ReferenceTable[0][2].Used);
    QVERIFY(!ReferenceTable[0][3].Used);
    QCOMPARE(fixture.project.EditDataView->LineCount(), 2);
}

void EditDataTest::several_rows_take_segment_and_arithmetic_only()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3, 4});
    ReferenceTable[0][3].Segment = true;
    ChangingLines(fixture, {2, 4}, [](EditDataFrm &form) {
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
    QCOMPARE(SelectedLines(fixture), (QList<int>{2, 4}));
    QVERIFY(!ReferenceBackup[0][2].Segment);
    QVERIFY(fixture.project.UndoLumoBtn->isEnabled());
}

void EditDataTest::a_half_filled_new_row_is_dropped()
{
    EditFixture fixture;
    fixture.PutRows({1});
    const BoxAnswers noBox;
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QString());
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), QList<double>{1});
    QCOMPARE(SelectedLines(fixture), QList<int>());
}

void EditDataTest::cancel_discards_all_rows()
{
    EditFixture fixture;
    fixture.PutRows({1, 2});
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("5"));
        StepUp(form);
        TypeRow(form, QStringLiteral("6"), QStringLiteral("6"));
        Click(form.CancelCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), QList<double>());
    QVERIFY(!fixture.project.UndoLumoBtn->isEnabled());
}

void EditDataTest::escape_discards_all_rows()
{
    EditFixture fixture;
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("5"));
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(LastUsedRow(0), 0);
}

void EditDataTest::an_edit_takes_a_backup_and_offers_undo()
{
    EditFixture fixture;
    fixture.PutRows({1, 2});
    fixture.project.RedoLumoBtn->setEnabled(true);
    Changing(fixture, 1, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("8"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 8}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), (QList<double>{1, 2}));
    QVERIFY(fixture.project.UndoLumoBtn->isEnabled());
    QVERIFY(!fixture.project.RedoLumoBtn->isEnabled());
}

void EditDataTest::an_edit_touches_neither_the_applied_curve_nor_the_dirty_flag()
{
    EditFixture fixture;
    ProjectSlots[0].CurveApplied = true;
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("5"));
        Click(form.OkCmd);
    });
    QCOMPARE(LastUsedRow(0), 1);
    QVERIFY(ProjectSlots[0].CurveApplied);
    QVERIFY(!ProjectSlots[0].Dirty);
}

void EditDataTest::a_row_beyond_a_full_table_is_refused()
{
    EditFixture fixture;
    fixture.PutFullTable();
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
    QVERIFY(!fixture.project.UndoLumoBtn->isEnabled());
}

void EditDataTest::up_saves_and_steps_to_the_next_row()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3});
    Changing(fixture, 1, [](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QStringLiteral("77"));
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2.0"));
        QCOMPARE(form.TemperateTxt->text(), QStringLiteral("20.0"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        QCOMPARE(form.TemperateTxt->text(), QStringLiteral("77.0"));
        Click(form.OkCmd);
    });
    QCOMPARE(ReferenceTable[0][1].Output, 77.0);
    QCOMPARE(ReferenceTable[0][2].Output, 20.0);
}

void EditDataTest::up_stops_at_an_empty_row()
{
    EditFixture fixture;
    fixture.PutRows({1, 2});
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("0.5"), QStringLiteral("5"));
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("4"));
        QVERIFY(form.VolTxt->text().isEmpty());
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("4"));
        // The row can be filled where the step has led.
        TypeRow(form, QStringLiteral("0.25"), QStringLiteral("2"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{0.25, 0.5, 1, 2}));
}

void EditDataTest::up_stops_at_row_500()
{
    EditFixture fixture;
    fixture.PutFullTable();
    Changing(fixture, 500, [](EditDataFrm &form) {
        QCOMPARE(form.HScroll1->value(), 500);
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("500"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("500.0"));
    });
}

void EditDataTest::down_stops_at_row_1()
{
    EditFixture fixture;
    fixture.PutRows({1, 2});
    Changing(fixture, 2, [](EditDataFrm &form) {
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("1.0"));
    });
}

void EditDataTest::stepping_stays_within_the_limits_of_the_row_number()
{
    EditFixture fixture;
    fixture.PutRows({1, 2});
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("3"), QStringLiteral("30"));
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("4"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("3.0"));
    });
    Changing(fixture, 2, [](EditDataFrm &form) {
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2.0"));
    });
}

void EditDataTest::a_half_filled_row_is_dropped_on_the_way()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3});
    const BoxAnswers noBox;
    Changing(fixture, 2, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QString());
        StepUp(form);
        // The row left is not used any more, so that the step stops there, with both boxes empty.
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QVERIFY(form.VolTxt->text().isEmpty());
        QVERIFY(form.TemperateTxt->text().isEmpty());
        QVERIFY(!form.WorkingTable[2].Used);
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3}));
}

void EditDataTest::the_scroll_bar_saves_and_moves()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3});
    Changing(fixture, 1, [](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QStringLiteral("55"));
        ClickArrow(form.HScroll1, true);
        QCOMPARE(form.HScroll1->value(), 2);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2.0"));
        QCOMPARE(form.WorkingTable[1].Output, 55.0);
        ClickArrow(form.HScroll1, false);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        QCOMPARE(form.TemperateTxt->text(), QStringLiteral("55.0"));
        Click(form.OkCmd);
    });
    QCOMPARE(ReferenceTable[0][1].Output, 55.0);
}

void EditDataTest::a_typed_row_number_is_kept_within_its_limits()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3});
    Changing(fixture, 1, [](EditDataFrm &form) {
        form.NOTxt->selectAll();
        QTest::keyClicks(form.NOTxt, QStringLiteral("4"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        form.NOTxt->selectAll();
        QTest::keyClicks(form.NOTxt, QStringLiteral("2"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QTest::keyClicks(form.NOTxt, QStringLiteral("99999999999999"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        form.NOTxt->selectAll();
        QTest::keyClicks(form.NOTxt, QStringLiteral("0"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        QTest::keyClick(form.NOTxt, Qt::Key_Backspace);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        // Nothing is loaded by typing.
        QCOMPARE(form.VolTxt->text(), QStringLiteral("1.0"));
    });
}

void EditDataTest::a_typed_row_number_receives_what_is_on_display()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3});
    Changing(fixture, 1, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("9"));
        form.NOTxt->selectAll();
        QTest::keyClicks(form.NOTxt, QStringLiteral("2"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3, 9}));
    QCOMPARE(ReferenceTable[0][3].Output, 10.0);
}

void EditDataTest::the_row_number_swallows_other_keys()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3});
    QGuiApplication::clipboard()->setText(QStringLiteral("2"));
    Changing(fixture, 3, [](EditDataFrm &form) {
        QTest::keyClicks(form.NOTxt, QStringLiteral("-. aE+"));
        QTest::keyClick(form.NOTxt, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(form.NOTxt, Qt::Key_Return);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
    });
}

void EditDataTest::an_empty_row_shows_no_segment_and_line()
{
    EditFixture fixture;
    Adding([](EditDataFrm &form) {
        Click(form.SegmentOpt[0]);
        Click(form.MathOpt[1]);
        TypeRow(form, QStringLiteral("1"), QStringLiteral("1"));
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QVERIFY(form.SegmentOpt[1]->isChecked());
        QVERIFY(form.MathOpt[0]->isChecked());
        StepDown(form);
        QVERIFY(form.SegmentOpt[0]->isChecked());
        QVERIFY(form.MathOpt[1]->isChecked());
        QVERIFY(ArithmeticOffered(form));
    });
}

void EditDataTest::the_segment_option_offers_the_arithmetic_and_keeps_the_choice()
{
    EditFixture fixture;
    Adding([](EditDataFrm &form) {
        Click(form.SegmentOpt[0]);
        QVERIFY(ArithmeticOffered(form));
        Click(form.MathOpt[1]);
        Click(form.SegmentOpt[1]);
        QVERIFY(!ArithmeticOffered(form));
        QVERIFY(form.MathOpt[1]->isChecked());
        TypeRow(form, QStringLiteral("1"), QStringLiteral("1"));
        Click(form.OkCmd);
    });
    QVERIFY(!ReferenceTable[0][1].Segment);
    QCOMPARE(ReferenceTable[0][1].Arithmetic, std::int16_t{1});
}

void EditDataTest::a_key_that_is_no_number_is_swallowed()
{
    EditFixture fixture;
    const BoxAnswers noBox;
    QGuiApplication::clipboard()->setText(QStringLiteral("42"));
    Adding([](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            Click(box);
            QTest::keyClicks(box, QStringLiteral("a1E+b.2,. 3-"));
            QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(box->text(), QStringLiteral("1.23-"));
        }
    });
}

void EditDataTest::a_thirteenth_character_empties_the_box_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << QStringLiteral("The character number of this form is limited not more than 12! ");
    QTest::newRow("Chinese") << 0 << QStringLiteral("您所填写的字符不能超过12个! ");
}

void EditDataTest::a_thirteenth_character_empties_the_box()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    EditFixture fixture;
    CurrentLanguage = language;
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Adding([](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            Click(box);
            QTest::keyClicks(box, QStringLiteral("-1234.567890"));
            QCOMPARE(box->text(), QStringLiteral("-1234.567890"));
            QTest::keyClicks(box, QStringLiteral("1"));
            QCOMPARE(box->text(), QString());
        }
    });
    QCOMPARE(answers.Texts(), (QStringList{text, text}));
    for (const ShownBox &box : answers.Shown())
        QCOMPARE(box.Icon, QMessageBox::Information);
}

void EditDataTest::a_value_out_of_range_empties_the_box_at_the_next_key_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << Exceeded;
    QTest::newRow("Chinese") << 0 << ExceededChinese;
}

void EditDataTest::a_value_out_of_range_empties_the_box_at_the_next_key()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    EditFixture fixture;
    CurrentLanguage = language;
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Adding([](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            Click(box);
            QTest::keyClicks(box, QStringLiteral("123456789"));
            QCOMPARE(box->text(), QStringLiteral("123456789"));
            QTest::keyClicks(box, QStringLiteral("1"));
            QCOMPARE(box->text(), QString());
        }
    });
    QCOMPARE(answers.Texts(), (QStringList{text, text}));
    for (const ShownBox &box : answers.Shown())
        QCOMPARE(box.Icon, QMessageBox::Warning);
}

void EditDataTest::a_failed_conversion_has_its_own_warning_in_the_input_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("inputText");
    QTest::addColumn<QString>("outputText");
    QTest::newRow("English") << 1 << QStringLiteral("Error data! ") << Exceeded;
    QTest::newRow("Chinese") << 0 << QStringLiteral("数据填写有误! ") << ExceededChinese;
}

void EditDataTest::a_failed_conversion_has_its_own_warning_in_the_input()
{
    QFETCH(int, language);
    QFETCH(QString, inputText);
    QFETCH(QString, outputText);
    EditFixture fixture;
    CurrentLanguage = language;
    PutRow(0, 1, 1e100, 1e200); // more than single precision holds, as a file can bring it in
    RefreshReferenceLists();
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Changing(fixture, 1, [](EditDataFrm &form) {
        QTest::keyClick(form.VolTxt, Qt::Key_Backspace);
        QCOMPARE(form.VolTxt->text(), QString());
        QTest::keyClick(form.TemperateTxt, Qt::Key_Backspace);
        QCOMPARE(form.TemperateTxt->text(), QString());
    });
    QCOMPARE(answers.Texts(), (QStringList{inputText, outputText}));
    for (const ShownBox &box : answers.Shown())
        QCOMPARE(box.Icon, QMessageBox::Warning);
}

void EditDataTest::enter_acts_as_ok_data()
{
    QTest::addColumn<bool>("inInput");
    QTest::newRow("input") << true;
    QTest::newRow("output") << false;
}

void EditDataTest::enter_acts_as_ok()
{
    QFETCH(bool, inInput);
    EditFixture fixture;
    fixture.PutRows({1});
    // The input is not left by the key, so that its check for a second value is not made either.
    const BoxAnswers noBox;
    Adding([inInput](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QStringLiteral("5"));
        TypeOver(form.VolTxt, inInput ? QStringLiteral("1") : QStringLiteral("2"));
        TextBox *box = inInput ? form.VolTxt : form.TemperateTxt;
        Click(box);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, inInput ? 1.0 : 2.0}));
}

void EditDataTest::a_right_press_empties_the_clipboard()
{
    EditFixture fixture;
    Adding([](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            QGuiApplication::clipboard()->setText(QStringLiteral("7"));
            QTest::mouseClick(box, Qt::LeftButton);
            QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("7"));
            QTest::mouseClick(box, Qt::RightButton);
            QCOMPARE(QGuiApplication::clipboard()->text(), QString());
        }
    });
}

void EditDataTest::leaving_a_value_puts_it_into_the_format()
{
    EditFixture fixture;
    Adding([](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("0.12345678"));
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QStringLiteral("0.123457"));
        TypeOver(form.TemperateTxt, QStringLiteral("12"));
        Click(form.VolTxt);
        QCOMPARE(form.TemperateTxt->text(), QStringLiteral("12.0"));
        TypeOver(form.VolTxt, QString());
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QString());
        TypeOver(form.TemperateTxt, QString());
        Click(form.VolTxt);
        QCOMPARE(form.TemperateTxt->text(), QString());
    });
}

void EditDataTest::an_input_that_stands_twice_is_refused_once_for_each_row_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << QStringLiteral("One reference dot has two value! ");
    QTest::newRow("Chinese") << 0 << QStringLiteral("同一个点存在两个数值! ");
}

void EditDataTest::an_input_that_stands_twice_is_refused_once_for_each_row()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    EditFixture fixture;
    CurrentLanguage = language;
    fixture.PutRows({1, 2.5, 2.5, 4});
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Changing(fixture, 4, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("2.50"));
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QString());
        QVERIFY(form.WorkingTable[4].Used);
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(answers.Texts(), (QStringList{text, text}));
    for (const ShownBox &box : answers.Shown())
        QCOMPARE(box.Icon, QMessageBox::Warning);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2.5, 2.5}));
}

void EditDataTest::the_own_row_does_not_count_as_twice()
{
    EditFixture fixture;
    fixture.PutRows({1, 2, 3});
    ReferenceTable[0][9].Input = 2; // not used
    const BoxAnswers noBox;
    Changing(fixture, 2, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("2"));
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2.0"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2, 3}));
}

void EditDataTest::a_current_beyond_the_limit_keeps_the_dialogue_open_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << Exceeded;
    QTest::newRow("Chinese") << 0 << ExceededChinese;
}

void EditDataTest::a_current_beyond_the_limit_keeps_the_dialogue_open()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    EditFixture fixture;
    CurrentLanguage = language;
    InstrumentKind = InstrumentKindKV7060;
    SensorProjects[0].MeasFunction = MeasFunctionCode::DcCurrent;
    SensorProjects[0].InputUnit = QStringLiteral("mA");
    fixture.PutRows({1});
    BoxAnswers answers({QMessageBox::Ok});
    Adding([](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("-220.5"), QStringLiteral("1"));
        Click(form.OkCmd);
        QVERIFY(form.isVisible());
        QCOMPARE(UsedInputs(ReferenceTable[0]), QList<double>{1});
        QCOMPARE(UsedInputs(ReferenceBackup[0]), QList<double>());
        TypeOver(form.VolTxt, QStringLiteral("-220"));
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown().first().Icon, QMessageBox::Warning);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{-220, 1}));
}

void EditDataTest::stepping_warns_of_the_current_limit_and_goes_on()
{
    EditFixture fixture;
    InstrumentKind = InstrumentKindKV7060;
    SensorProjects[0].MeasFunction = MeasFunctionCode::DcCurrent;
    SensorProjects[0].InputUnit = QStringLiteral("A");
    fixture.PutRows({0.1, 0.5, 0.6});
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
    Changing(fixture, 1, [&](EditDataFrm &form) {
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QCOMPARE(answers.Texts().size(), 1);
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
    });
    QCOMPARE(answers.Texts(), (QStringList{Exceeded, Exceeded, Exceeded}));
}

QTEST_MAIN(EditDataTest)
#include "tst_edit_data.moc"
