/// @file
/// Segment and arithmetic in the dialogue of reference rows, for one row and for several.
#include "curve/EditDataBench.h"

class EditDataOptionsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void several_rows_may_begin_with_the_first();
    void several_rows_set_back_to_no_take_the_arithmetic_too_data();
    void several_rows_set_back_to_no_take_the_arithmetic_too();
    void several_rows_keep_their_numbers_and_units();
    void any_arithmetic_but_0_shows_as_least_data();
    void any_arithmetic_but_0_shows_as_least();
    void a_row_that_is_no_segment_keeps_its_arithmetic();
    void a_step_up_that_stays_keeps_the_options();
};

void EditDataOptionsTest::several_rows_may_begin_with_the_first()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    ChangingLines(bench, {1, 3}, [](EditDataFrm &form) {
        QVERIFY(form.MultiSelect);
        QVERIFY(RowMarks[1]);
        Click(form.SegmentOpt[0]);
        Click(form.MathOpt[1]);
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    for (const int row : {1, 2, 3}) {
        QCOMPARE(ReferenceTable[0][row].Segment, row != 2);
        QCOMPARE(ReferenceTable[0][row].Arithmetic, static_cast<std::int16_t>(row != 2 ? 1 : 0));
    }
    QVERIFY(RowMarks[1] && RowMarks[3]);
    QCOMPARE(SelectedLines(bench.List()), QList<int>{3}); // line 1 loses its mark, as in any list of several lines
}

void EditDataOptionsTest::several_rows_set_back_to_no_take_the_arithmetic_too_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("choice");
    QTest::newRow("line") << 1 << 0;
    QTest::newRow("least") << 0 << 1;
}

void EditDataOptionsTest::several_rows_set_back_to_no_take_the_arithmetic_too()
{
    QFETCH(const int, before);
    QFETCH(const int, choice);
    EditDataBench bench;
    for (const int row : {1, 2, 3})
        PutRow(0, row, row, row, true, static_cast<std::int16_t>(before));
    RefreshReferenceLists();
    ChangingLines(bench, {2, 3}, [choice](EditDataFrm &form) {
        Click(form.SegmentOpt[0]);
        Click(form.MathOpt[choice]);
        Click(form.SegmentOpt[1]);
        QVERIFY(!ArithmeticOffered(form));
        Click(form.OkCmd);
    });
    for (const int row : {2, 3}) {
        QVERIFY(!ReferenceTable[0][row].Segment);
        QCOMPARE(ReferenceTable[0][row].Arithmetic, static_cast<std::int16_t>(choice));
    }
    QVERIFY(ReferenceTable[0][1].Segment);
    QCOMPARE(ReferenceTable[0][1].Arithmetic, static_cast<std::int16_t>(before));
}

void EditDataOptionsTest::several_rows_keep_their_numbers_and_units()
{
    EditDataBench bench;
    const double third = 1.0 / 3;
    for (const int row : {1, 2, 3}) {
        PutRow(0, row, row + third, row - third);
        ReferenceTable[0][row].InputText = QStringLiteral("V");
        ReferenceTable[0][row].OutputText = QStringLiteral("kPa");
    }
    RefreshReferenceLists();
    ChangingLines(bench, {2, 3}, [](EditDataFrm &form) {
        Click(form.SegmentOpt[0]);
        Click(form.OkCmd);
    });
    for (const int row : {1, 2, 3}) {
        const ReferencePoint &point = ReferenceTable[0][row];
        QCOMPARE(point.Segment, row != 1);
        QVERIFY(point.Input == row + third);
        QVERIFY(point.Output == row - third);
        QCOMPARE(point.InputText, QStringLiteral("V"));
        QCOMPARE(point.OutputText, QStringLiteral("kPa"));
    }
}

void EditDataOptionsTest::any_arithmetic_but_0_shows_as_least_data()
{
    QTest::addColumn<int>("arithmetic"); // as an imported file can bring it in
    QTest::newRow("2") << 2;
    QTest::newRow("below zero") << -1;
}

void EditDataOptionsTest::any_arithmetic_but_0_shows_as_least()
{
    QFETCH(const int, arithmetic);
    EditDataBench bench;
    PutRow(0, 1, 1, 1, true, static_cast<std::int16_t>(arithmetic));
    PutRow(0, 2, 2, 2, true, 0);
    RefreshReferenceLists();
    Changing(bench, 2, [](EditDataFrm &form) {
        QVERIFY(form.MathOpt[0]->isChecked());
        StepDown(form);
        QVERIFY(form.MathOpt[1]->isChecked());
        Click(form.OkCmd);
    });
    QCOMPARE(ReferenceTable[0][1].Arithmetic, std::int16_t{1});
    QCOMPARE(ReferenceTable[0][2].Arithmetic, std::int16_t{0});
}

void EditDataOptionsTest::a_row_that_is_no_segment_keeps_its_arithmetic()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    ReferenceTable[0][2].Arithmetic = 1;
    ReferenceTable[0][3].Arithmetic = 1;
    Changing(bench, 2, [](EditDataFrm &form) {
        QVERIFY(form.SegmentOpt[1]->isChecked());
        QVERIFY(form.MathOpt[1]->isChecked());
        QVERIFY(!ArithmeticOffered(form));
        StepDown(form);
        QVERIFY(form.MathOpt[0]->isChecked());
        StepUp(form);
        QVERIFY(form.MathOpt[1]->isChecked());
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        Click(form.OkCmd);
    });
    for (const int row : {1, 2, 3}) {
        QVERIFY(!ReferenceTable[0][row].Segment);
        QCOMPARE(ReferenceTable[0][row].Arithmetic, static_cast<std::int16_t>(row == 1 ? 0 : 1));
    }
}

void EditDataOptionsTest::a_step_up_that_stays_keeps_the_options()
{
    EditDataBench bench;
    bench.PutRows({1});
    Adding(bench, [](EditDataFrm &form) {
        Click(form.SegmentOpt[0]);
        Click(form.MathOpt[1]);
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("2"));
        QVERIFY(form.SegmentOpt[0]->isChecked());
        QVERIFY(form.MathOpt[1]->isChecked());
        QVERIFY(ArithmeticOffered(form));
    });
}

QTEST_MAIN(EditDataOptionsTest)
#include "tst_edit_data_options.moc"
