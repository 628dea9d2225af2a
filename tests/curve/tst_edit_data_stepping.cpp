/// @file
/// From row to row within the dialogue of reference rows: arrows, scroll bar and row number.
#include "curve/EditDataBench.h"

#include <QClipboard>

namespace {

/// The arrow at the right or the left end of a scroll bar.
void ClickArrow(FlatScrollBar *bar, bool right)
{
    const int inside = bar->height() / 2;
    QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(right ? bar->width() - inside : inside, inside));
}

} // namespace

class EditDataSteppingTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void up_saves_and_steps_to_the_next_row();
    void up_stops_at_an_empty_row();
    void up_stops_at_row_500();
    void down_stops_at_row_1();
    void stepping_stays_within_the_limits_of_the_row_number();
    void a_half_filled_row_is_dropped_on_the_way();
    void stepping_leaves_the_input_with_its_check_data();
    void stepping_leaves_the_input_with_its_check();
    void the_scroll_bar_saves_and_moves();
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
    Changing(bench, 2, [](EditDataFrm &form) {
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2.0"));
    });
}

void EditDataSteppingTest::a_half_filled_row_is_dropped_on_the_way()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    const BoxAnswers noBox;
    Changing(bench, 2, [](EditDataFrm &form) {
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

void EditDataSteppingTest::a_typed_row_number_is_kept_within_its_limits()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    Changing(bench, 1, [](EditDataFrm &form) {
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

void EditDataSteppingTest::a_typed_row_number_receives_what_is_on_display()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    Changing(bench, 1, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("9"));
        form.NOTxt->selectAll();
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
    QGuiApplication::clipboard()->setText(QStringLiteral("2"));
    Changing(bench, 3, [](EditDataFrm &form) {
        QTest::keyClicks(form.NOTxt, QStringLiteral("-. aE+"));
        QTest::keyClick(form.NOTxt, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(form.NOTxt, Qt::Key_Return);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
    });
}

void EditDataSteppingTest::an_empty_row_shows_no_segment_and_line()
{
    EditDataBench bench;
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

void EditDataSteppingTest::the_segment_option_offers_the_arithmetic_and_keeps_the_choice()
{
    EditDataBench bench;
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

void EditDataSteppingTest::stepping_warns_of_the_current_limit_and_goes_on()
{
    EditDataBench bench;
    InstrumentKind = InstrumentKindKV7060;
    SensorProjects[0].MeasFunction = MeasFunctionCode::DcCurrent;
    SensorProjects[0].InputUnit = QStringLiteral("A");
    bench.PutRows({0.1, 0.5, 0.6});
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
    Changing(bench, 1, [&](EditDataFrm &form) {
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

QTEST_MAIN(EditDataSteppingTest)
#include "tst_edit_data_stepping.moc"
