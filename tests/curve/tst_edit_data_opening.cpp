/// @file
/// How the dialogue of reference rows opens.
#include "curve/EditDataBench.h"

#include <QScreen>

#include <algorithm>

namespace {

QColor BaseColour(const TextBox *box)
{
    return box->palette().color(QPalette::Active, QPalette::Base);
}

} // namespace

class EditDataOpeningTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void it_opens_in_both_languages_data();
    void it_opens_in_both_languages();
    void it_opens_to_add_behind_the_last_row();
    void it_opens_to_change_the_current_row();
    void it_opens_to_change_a_segment_row();
    void it_opens_on_line_1_when_no_line_was_chosen();
    void it_opens_for_several_rows_with_numbers_disabled();
    void opening_marks_the_selected_lines_only();
    void it_stands_in_the_middle_of_the_screen();
    void enter_has_no_default_button();
    void the_keyboard_begins_in_the_first_box_that_can_be_filled_in();
    void tab_goes_from_top_to_bottom_data();
    void tab_goes_from_top_to_bottom();
};

void EditDataOpeningTest::it_opens_in_both_languages_data()
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

void EditDataOpeningTest::it_opens_in_both_languages()
{
    QFETCH(int, language);
    QFETCH(QString, addTitle);
    QFETCH(QString, changeTitle);
    QFETCH(QStringList, captions);
    EditDataBench bench;
    CurrentLanguage = language;
    bench.PutRows({1});
    Adding(bench, [&](EditDataFrm &form) {
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

void EditDataOpeningTest::it_opens_to_add_behind_the_last_row()
{
    EditDataBench bench;
    bench.PutRows({1, 3, 7});
    Adding(bench, [](EditDataFrm &form) {
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

void EditDataOpeningTest::it_opens_to_change_the_current_row()
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

void EditDataOpeningTest::it_opens_to_change_a_segment_row()
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

void EditDataOpeningTest::it_opens_on_line_1_when_no_line_was_chosen()
{
    EditDataBench bench;
    bench.PutRows({4, 5});
    QCOMPARE(SelectedLines(bench.List()), QList<int>());
    InDialogue([&] { bench.RunFromPopup(bench.List(), bench.frame.mnuPopEditDataChange); },
               [](EditDataFrm &form) {
                   QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
                   QCOMPARE(form.VolTxt->text(), QStringLiteral("4.0"));
               });
}

void EditDataOpeningTest::it_opens_for_several_rows_with_numbers_disabled()
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
        QVERIFY(ArithmeticOffered(form));
        QCOMPARE(form.HScroll1->maximum(), 500);
    });
}

void EditDataOpeningTest::opening_marks_the_selected_lines_only()
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
    Adding(bench, [](EditDataFrm &) { QVERIFY(std::ranges::none_of(RowMarks, [](bool mark) { return mark; })); });
}

void EditDataOpeningTest::it_stands_in_the_middle_of_the_screen()
{
    EditDataBench bench;
    Adding(bench, [](EditDataFrm &form) {
        const QRect screen = form.screen()->geometry();
        QVERIFY(std::abs(2 * (form.x() - screen.x()) + form.width() - screen.width()) <= 1);
        QVERIFY(std::abs(2 * (form.y() - screen.y()) + form.height() - screen.height()) <= 1);
    });
}

void EditDataOpeningTest::enter_has_no_default_button()
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

void EditDataOpeningTest::the_keyboard_begins_in_the_first_box_that_can_be_filled_in()
{
    EditDataBench bench;
    bench.PutRows({1});
    Adding(bench, [](EditDataFrm &form) {
        QCOMPARE(QApplication::focusWidget(), form.VolTxt);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("2"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2"));
    });
    Changing(bench, 1, [](EditDataFrm &form) { QCOMPARE(QApplication::focusWidget(), form.NOTxt); });
}

void EditDataOpeningTest::tab_goes_from_top_to_bottom_data()
{
    QTest::addColumn<bool>("segment");
    QTest::addColumn<QString>("controls");
    // Tab stops once at a pair of options; a row that is no segment point has no arithmetic to choose.
    QTest::newRow("segment") << true
                             << QStringLiteral("NOTxt VolTxt TemperateTxt SegmentOpt MathOpt OkCmd CancelCmd NOTxt");
    QTest::newRow("no segment") << false
                                << QStringLiteral("NOTxt VolTxt TemperateTxt SegmentOpt OkCmd CancelCmd NOTxt");
}

void EditDataOpeningTest::tab_goes_from_top_to_bottom()
{
    QFETCH(const bool, segment);
    QFETCH(const QString, controls);
    EditDataBench bench;
    PutRow(0, 1, 1, 1, segment, 1);
    RefreshReferenceLists();
    Changing(bench, 1, [&](EditDataFrm &form) {
        form.NOTxt->setFocus();
        QStringList names{QApplication::focusWidget()->objectName()};
        while (names.size() <= controls.count(u' ')) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            names.append(QApplication::focusWidget()->objectName().section(u'(', 0, 0));
        }
        QCOMPARE(names.join(u' '), controls);
    });
}

QTEST_MAIN(EditDataOpeningTest)
#include "tst_edit_data_opening.moc"
