/// @file
/// The value boxes of the dialogue of reference rows: what they refuse, and when.
#include "curve/EditDataBench.h"

#include <QClipboard>

namespace {

/// Each value box takes what is typed, but a further key empties it with a message.
void OneMoreKeyEmptiesEachBox(int language, const QString &typed, const QString &message, QMessageBox::Icon icon)
{
    EditDataBench bench;
    CurrentLanguage = language;
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Adding([&typed](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            Click(box);
            QTest::keyClicks(box, typed);
            QCOMPARE(box->text(), typed);
            QTest::keyClicks(box, QStringLiteral("1"));
            QCOMPARE(box->text(), QString());
        }
    });
    QCOMPARE(answers.Texts(), (QStringList{message, message}));
    for (const ShownBox &box : answers.Shown())
        QCOMPARE(box.Icon, icon);
}

} // namespace

class EditDataValuesTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

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
};

void EditDataValuesTest::a_key_that_is_no_number_is_swallowed()
{
    EditDataBench bench;
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

void EditDataValuesTest::a_thirteenth_character_empties_the_box_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << QStringLiteral("The character number of this form is limited not more than 12! ");
    QTest::newRow("Chinese") << 0 << QStringLiteral("您所填写的字符不能超过12个! ");
}

void EditDataValuesTest::a_thirteenth_character_empties_the_box()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    OneMoreKeyEmptiesEachBox(language, QStringLiteral("-1234.567890"), text, QMessageBox::Information);
}

void EditDataValuesTest::a_value_out_of_range_empties_the_box_at_the_next_key_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << Exceeded;
    QTest::newRow("Chinese") << 0 << ExceededChinese;
}

void EditDataValuesTest::a_value_out_of_range_empties_the_box_at_the_next_key()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    OneMoreKeyEmptiesEachBox(language, QStringLiteral("123456789"), text, QMessageBox::Warning);
}

void EditDataValuesTest::a_failed_conversion_has_its_own_warning_in_the_input_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("inputText");
    QTest::addColumn<QString>("outputText");
    QTest::newRow("English") << 1 << QStringLiteral("Error data! ") << Exceeded;
    QTest::newRow("Chinese") << 0 << QStringLiteral("数据填写有误! ") << ExceededChinese;
}

void EditDataValuesTest::a_failed_conversion_has_its_own_warning_in_the_input()
{
    QFETCH(int, language);
    QFETCH(QString, inputText);
    QFETCH(QString, outputText);
    EditDataBench bench;
    CurrentLanguage = language;
    PutRow(0, 1, 1e100, 1e200); // more than single precision holds, as a file can bring it in
    RefreshReferenceLists();
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Changing(bench, 1, [](EditDataFrm &form) {
        QTest::keyClick(form.VolTxt, Qt::Key_Backspace);
        QCOMPARE(form.VolTxt->text(), QString());
        QTest::keyClick(form.TemperateTxt, Qt::Key_Backspace);
        QCOMPARE(form.TemperateTxt->text(), QString());
    });
    QCOMPARE(answers.Texts(), (QStringList{inputText, outputText}));
    for (const ShownBox &box : answers.Shown())
        QCOMPARE(box.Icon, QMessageBox::Warning);
}

void EditDataValuesTest::enter_acts_as_ok_data()
{
    QTest::addColumn<bool>("inInput");
    QTest::newRow("input") << true;
    QTest::newRow("output") << false;
}

void EditDataValuesTest::enter_acts_as_ok()
{
    QFETCH(bool, inInput);
    EditDataBench bench;
    bench.PutRows({1});
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

void EditDataValuesTest::a_right_press_empties_the_clipboard()
{
    EditDataBench bench;
    Adding([](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            QGuiApplication::clipboard()->setText(QStringLiteral("7"));
            Click(box);
            QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("7"));
            QTest::mouseClick(box, Qt::RightButton);
            QCOMPARE(QGuiApplication::clipboard()->text(), QString());
        }
    });
}

void EditDataValuesTest::leaving_a_value_puts_it_into_the_format()
{
    EditDataBench bench;
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

void EditDataValuesTest::an_input_that_stands_twice_is_refused_once_for_each_row_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << QStringLiteral("One reference dot has two value! ");
    QTest::newRow("Chinese") << 0 << QStringLiteral("同一个点存在两个数值! ");
}

void EditDataValuesTest::an_input_that_stands_twice_is_refused_once_for_each_row()
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

void EditDataValuesTest::the_own_row_does_not_count_as_twice()
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

void EditDataValuesTest::a_current_beyond_the_limit_keeps_the_dialogue_open_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << Exceeded;
    QTest::newRow("Chinese") << 0 << ExceededChinese;
}

void EditDataValuesTest::a_current_beyond_the_limit_keeps_the_dialogue_open()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    EditDataBench bench;
    CurrentLanguage = language;
    InstrumentKind = InstrumentKindKV7060;
    SensorProjects[0].MeasFunction = MeasFunctionCode::DcCurrent;
    SensorProjects[0].InputUnit = QStringLiteral("mA");
    bench.PutRows({1});
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

QTEST_MAIN(EditDataValuesTest)
#include "tst_edit_data_values.moc"
