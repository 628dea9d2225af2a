/// @file
/// The check of the dialogue of reference rows for an input that another row has already.
#include "curve/EditDataBench.h"

namespace {

const QString Twice = QStringLiteral("One reference dot has two value! ");

} // namespace

class EditDataTwiceTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void an_input_that_stands_twice_is_refused_once_for_each_row_data();
    void an_input_that_stands_twice_is_refused_once_for_each_row();
    void the_own_row_does_not_count_as_twice();
    void an_input_typed_in_the_same_opening_counts();
    void an_input_taken_away_in_the_same_opening_does_not_count();
    void the_own_row_is_the_one_on_display();
    void the_value_in_the_format_is_what_is_compared();
    void the_input_is_emptied_behind_the_warning();
};

void EditDataTwiceTest::an_input_that_stands_twice_is_refused_once_for_each_row_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << QStringLiteral("One reference dot has two value! ");
    QTest::newRow("Chinese") << 0 << QStringLiteral("同一个点存在两个数值! ");
}

void EditDataTwiceTest::an_input_that_stands_twice_is_refused_once_for_each_row()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    EditDataBench bench;
    CurrentLanguage = language;
    bench.PutRows({1, 2.5, 2.5, 4});
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Changing(bench, 4, [](EditDataFrm &form) {
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

void EditDataTwiceTest::the_own_row_does_not_count_as_twice()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    ReferenceTable[0][9].Input = 2; // not used
    const BoxAnswers noBox;
    Changing(bench, 2, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("2"));
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2.0"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2, 3}));
}

void EditDataTwiceTest::an_input_typed_in_the_same_opening_counts()
{
    EditDataBench bench;
    bench.PutRows({1});
    const BoxAnswers answers({QMessageBox::Ok});
    Adding(bench, [&](EditDataFrm &form) {
        TypeRow(form, QStringLiteral("5"), QStringLiteral("50"));
        StepUp(form);
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
        QCOMPARE(answers.Texts(), QStringList());
        TypeOver(form.VolTxt, QStringLiteral("5"));
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QString());
    });
    QCOMPARE(answers.Texts(), QStringList{Twice});
}

void EditDataTwiceTest::an_input_taken_away_in_the_same_opening_does_not_count()
{
    EditDataBench bench;
    bench.PutRows({1, 2});
    const BoxAnswers noBox;
    Changing(bench, 1, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("7"));
        StepUp(form);
        TypeOver(form.VolTxt, QStringLiteral("1"));
        Click(form.OkCmd);
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 7}));
}

void EditDataTwiceTest::the_own_row_is_the_one_on_display()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    const BoxAnswers answers({QMessageBox::Ok});
    Changing(bench, 1, [&](EditDataFrm &form) {
        StepUp(form);
        TypeOver(form.VolTxt, QStringLiteral("2"));
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QStringLiteral("2.0"));
        QCOMPARE(answers.Texts(), QStringList());
        // The row that the dialogue was opened for is another one now.
        TypeOver(form.VolTxt, QStringLiteral("1"));
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QString());
    });
    QCOMPARE(answers.Texts(), QStringList{Twice});
}

void EditDataTwiceTest::the_value_in_the_format_is_what_is_compared()
{
    EditDataBench bench;
    bench.PutRows({0.123457, 2, 0.98765432});
    const BoxAnswers answers({QMessageBox::Ok});
    Changing(bench, 2, [&](EditDataFrm &form) {
        // What row 3 has is not what the format makes of it.
        TypeOver(form.VolTxt, QStringLiteral("0.98765432"));
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QStringLiteral("0.987654"));
        QCOMPARE(answers.Texts(), QStringList());
        TypeOver(form.VolTxt, QStringLiteral("0.12345678"));
        Click(form.TemperateTxt);
        QCOMPARE(form.VolTxt->text(), QString());
    });
    QCOMPARE(answers.Texts(), QStringList{Twice});
}

void EditDataTwiceTest::the_input_is_emptied_behind_the_warning()
{
    EditDataBench bench;
    bench.PutRows({1, 2});
    Changing(bench, 1, [](EditDataFrm &form) {
        TypeOver(form.VolTxt, QStringLiteral("2"));
        QCOMPARE(TextBehindMessage(form.VolTxt, [&form] { Click(form.TemperateTxt); }), QStringLiteral("2.0"));
        QCOMPARE(form.VolTxt->text(), QString());
    });
}

QTEST_MAIN(EditDataTwiceTest)
#include "tst_edit_data_twice.moc"
