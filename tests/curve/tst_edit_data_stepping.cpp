/// @file
/// From row to row within the dialogue of reference rows: arrows, scroll bar and row number.
#include "curve/EditDataBench.h"

namespace {

using Step = void (*)(const EditDataFrm &form);

void ScrollUp(const EditDataFrm &form)
{
    ClickArrow(form.HScroll1, true);
}

} // namespace

Q_DECLARE_METATYPE(Step)

class EditDataSteppingTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void up_saves_and_steps_to_the_next_row();
    void up_stops_at_an_empty_row();
    void up_stops_at_row_500();
    void down_stops_at_row_1();
    void stepping_stays_within_the_limits_of_the_row_number();
    void a_half_filled_row_is_dropped_on_the_way_data();
    void a_half_filled_row_is_dropped_on_the_way();
    void stepping_leaves_the_input_with_its_check_data();
    void stepping_leaves_the_input_with_its_check();
    void the_scroll_bar_saves_and_moves();
    void the_scroll_bar_stops_at_the_last_line_when_changing();
    void the_scroll_bar_passes_empty_rows_when_adding();
    void a_typed_row_number_is_kept_within_its_limits();
    void a_typed_row_number_receives_what_is_on_display();
    void the_row_number_swallows_other_keys();
    void an_empty_row_shows_no_segment_and_line();
    void the_segment_option_offers_the_arithmetic_and_keeps_the_choice();

    void stepping_warns_of_the_current_limit_and_goes_on();
};

void EditDataSteppingTest::up_saves_and_steps_to_the_next_row()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    Changing(bench, 1, [](EditDataFrm &form) {
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

void EditDataSteppingTest::up_stops_at_an_empty_row()
{
    EditDataBench bench;
    bench.PutRows({1, 2});
    Adding(bench, [](EditDataFrm &form) {
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

void EditDataSteppingTest::up_stops_at_row_500()
{
    EditDataBench bench;
    bench.PutFullTable();
    Changing(bench, 500, [](EditDataFrm &form) {
        QCOMPARE(form.HScroll1->value(), 500);
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("500"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("500.0"));
    });
}

void EditDataSteppingTest::down_stops_at_row_1()
{
    EditDataBench bench;
    bench.PutRows({1, 2});
    Changing(bench, 2, [](EditDataFrm &form) {
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("1.0"));
    });
}

void EditDataSteppingTest::stepping_stays_within_the_limits_of_the_row_number()
{
    EditDataBench bench;
    bench.PutRows({1, 2});
    Adding(bench, [](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("3"), QStringLiteral("30"));
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("4"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("3.0"));
    });
    Changing(bench, 2, [](EditDataFrm &form) {
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2.0"));
    });
}

void EditDataSteppingTest::a_half_filled_row_is_dropped_on_the_way_data()
{
    QTest::addColumn<bool>("inInput");
    QTest::addColumn<Step>("step");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("input");
    // The row left is not used any more, so that the step up stops there, with both boxes empty.
    QTest::newRow("no input, up") << true << Step(StepUp) << QStringLiteral("2") << QString();
    QTest::newRow("no output, up") << false << Step(StepUp) << QStringLiteral("2") << QString();
    QTest::newRow("no input, down") << true << Step(StepDown) << QStringLiteral("1") << QStringLiteral("1.0");
    QTest::newRow("no output, down") << false << Step(StepDown) << QStringLiteral("1") << QStringLiteral("1.0");
    QTest::newRow("no input, scroll bar") << true << Step(ScrollUp) << QStringLiteral("3") << QStringLiteral("3.0");
    QTest::newRow("no output, scroll bar") << false << Step(ScrollUp) << QStringLiteral("3") << QStringLiteral("3.0");
}

void EditDataSteppingTest::a_half_filled_row_is_dropped_on_the_way()
{
    QFETCH(const bool, inInput);
    QFETCH(const Step, step);
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    const BoxAnswers noBox;
    Changing(bench, 2, [&](EditDataFrm &form) {
        TypeOver(inInput ? form.VolTxt : form.TemperateTxt, QString());
        step(form);
        QTEST(form.NOTxt->text(), "row");
        QTEST(form.VolTxt->text(), "input");
        QCOMPARE(form.TemperateTxt->text().isEmpty(), form.VolTxt->text().isEmpty());
        QVERIFY(!form.WorkingTable[2].Used);
        QVERIFY(ReferenceTable[0][2].Used);
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3}));
    QCOMPARE(bench.List().LineCount(), 2);
}

void EditDataSteppingTest::stepping_leaves_the_input_with_its_check_data()
{
    QTest::addColumn<bool>("byArrow");
    QTest::addColumn<QStringList>("texts"); // of the input, from its last key on
    QTest::newRow("arrow") << true << QStringList{QStringLiteral("2"), QStringLiteral("2.0"), QString()};
    // The bar has moved, whatever has become of the row that it leaves.
    QTest::newRow("scroll bar") << false
                                << QStringList{QStringLiteral("2"), QStringLiteral("2.0"), QString(),
                                               QStringLiteral("2.0")};
}

void EditDataSteppingTest::stepping_leaves_the_input_with_its_check()
{
    QFETCH(const bool, byArrow);
    QFETCH(const QStringList, texts);
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    BoxAnswers answers({QMessageBox::Ok});
    Changing(bench, 1, [&](EditDataFrm &form) {
        TypeOver(form.VolTxt, QString());
        QStringList shown;
        QObject::connect(form.VolTxt, &TextBox::Change, &form, [&] { shown.append(form.VolTxt->text()); });
        QTest::keyClicks(form.VolTxt, QStringLiteral("2"));
        QVERIFY(form.VolTxt->hasFocus());
        if (byArrow)
            StepUp(form);
        else
            ClickArrow(form.HScroll1, true);
        QCOMPARE(shown, texts);
        QCOMPARE(form.NOTxt->text(), byArrow ? QStringLiteral("1") : QStringLiteral("2"));
        // The row left is half filled, so that it is dropped; the input that stands twice never gets into it.
        QVERIFY(!form.WorkingTable[1].Used);
        QCOMPARE(form.WorkingTable[1].Input, 1.0);
    });
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("One reference dot has two value! ")});
}

void EditDataSteppingTest::the_scroll_bar_saves_and_moves()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    Changing(bench, 1, [](EditDataFrm &form) {
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

void EditDataSteppingTest::the_scroll_bar_stops_at_the_last_line_when_changing()
{
    EditDataBench bench;
    bench.PutRows({1, 2});
    Changing(bench, 2, [](EditDataFrm &form) {
        ClickArrow(form.HScroll1, true);
        // The bar itself reaches row 500; the number does not follow it.
        QCOMPARE(form.HScroll1->value(), 3);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2.0"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2}));
}

void EditDataSteppingTest::the_scroll_bar_passes_empty_rows_when_adding()
{
    EditDataBench bench;
    bench.PutRows({1});
    Adding(bench, [](EditDataFrm &form) {
        ClickArrow(form.HScroll1, true);
        ClickArrow(form.HScroll1, true);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("4"));
        TypeRow(form, QStringLiteral("7"), QStringLiteral("70"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 7}));
    QVERIFY(ReferenceTable[0][2].Used); // the gap is closed
    QCOMPARE(SelectedLines(bench.List()), QList<int>{2});
}

void EditDataSteppingTest::a_typed_row_number_is_kept_within_its_limits()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    Changing(bench, 1, [](EditDataFrm &form) {
        QTest::keyClick(form.NOTxt, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(form.NOTxt, QStringLiteral("4"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        QTest::keyClick(form.NOTxt, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(form.NOTxt, QStringLiteral("2"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QTest::keyClicks(form.NOTxt, QStringLiteral("99999999999999"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        QTest::keyClick(form.NOTxt, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(form.NOTxt, QStringLiteral("0"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        QTest::keyClick(form.NOTxt, Qt::Key_Backspace);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        // Nothing is loaded by typing.
        QCOMPARE(form.VolTxt->text(), QStringLiteral("1.0"));
    });
}

void EditDataSteppingTest::a_typed_row_number_receives_what_is_on_display()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    Changing(bench, 1, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("9"));
        QTest::keyClick(form.NOTxt, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(form.NOTxt, QStringLiteral("2"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3, 9}));
    QCOMPARE(ReferenceTable[0][3].Output, 10.0);
}

void EditDataSteppingTest::the_row_number_swallows_other_keys()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    Changing(bench, 3, [](EditDataFrm &form) {
        QTest::keyClicks(form.NOTxt, QStringLiteral("-. aE+"));
        QTest::keyClick(form.NOTxt, Qt::Key_Return);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
    });
}

void EditDataSteppingTest::an_empty_row_shows_no_segment_and_line()
{
    EditDataBench bench;
    Adding(bench, [](EditDataFrm &form) {
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

void EditDataSteppingTest::the_segment_option_offers_the_arithmetic_and_keeps_the_choice()
{
    EditDataBench bench;
    Adding(bench, [](EditDataFrm &form) {
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

void EditDataSteppingTest::stepping_warns_of_the_current_limit_and_goes_on()
{
    EditDataBench bench;
    InstrumentKind = InstrumentKindKV7060;
    SensorProjects[0].MeasFunction = MeasFunctionCode::DcCurrent;
    SensorProjects[0].InputUnit = QStringLiteral("A");
    bench.PutRows({0.1, 0.2, 0.6});
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Changing(bench, 1, [&](EditDataFrm &form) {
        // What counts is the number that the step leaves, typed or not; that of the row loaded is not looked at.
        TypeOver(form.VolTxt, QStringLiteral("0.3"));
        StepUp(form);
        QCOMPARE(answers.Texts().size(), 1);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("0.2"));
        StepUp(form);
        QCOMPARE(answers.Texts().size(), 1);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        StepDown(form);
        QCOMPARE(answers.Texts().size(), 2);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        StepDown(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("0.3"));
    });
    QCOMPARE(answers.Texts(), (QStringList{Exceeded, Exceeded}));
}

QTEST_MAIN(EditDataSteppingTest)
#include "tst_edit_data_stepping.moc"
