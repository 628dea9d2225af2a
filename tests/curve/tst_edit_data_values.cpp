/// @file
/// The value boxes of the dialogue of reference rows: what they refuse, and when.
#include "curve/EditDataBench.h"

namespace {

/// Each value box takes what is typed, but a further key empties it with a message.
void OneMoreKeyEmptiesEachBox(int language, const QString &typed, Qt::Key key, const QString &message,
                              QMessageBox::Icon icon)
{
    EditDataBench bench;
    CurrentLanguage = language;
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Adding(bench, [&](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            Click(box);
            QTest::keyClicks(box, typed);
            QCOMPARE(box->text(), typed);
            QTest::keyClick(box, key);
            QCOMPARE(box->text(), QString());
            QVERIFY(form.isVisible());
        }
    });
    QCOMPARE(answers.Texts(), (QStringList{message, message}));
    for (const ShownBox &box : answers.Shown()) {
        QCOMPARE(box.Icon, icon);
        QCOMPARE(box.Title, QStringLiteral("Ostrakon"));
    }
    QCOMPARE(LastUsedRow(0), 0);
}

} // namespace

class EditDataValuesTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void a_key_that_is_no_number_is_swallowed();
    void a_thirteenth_character_empties_the_box_data();
    void a_thirteenth_character_empties_the_box();
    void backspace_and_enter_pass_at_twelve_characters();
    void a_value_out_of_range_empties_the_box_at_the_next_key_data();
    void a_value_out_of_range_empties_the_box_at_the_next_key();
    void the_ends_of_the_range_pass_data();
    void the_ends_of_the_range_pass();
    void a_failed_conversion_has_its_own_warning_in_the_input_data();
    void a_failed_conversion_has_its_own_warning_in_the_input();
    void enter_acts_as_ok_data();
    void enter_acts_as_ok();
    void leaving_a_value_puts_it_into_the_format();
    void a_box_is_emptied_behind_a_warning_but_ahead_of_the_notice_of_its_length_data();
    void a_box_is_emptied_behind_a_warning_but_ahead_of_the_notice_of_its_length();
    void a_box_whose_number_fails_to_convert_is_emptied_behind_the_warning();
};

void EditDataValuesTest::a_key_that_is_no_number_is_swallowed()
{
    EditDataBench bench;
    const BoxAnswers noBox;
    Adding(bench, [](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            Click(box);
            QTest::keyClicks(box, QStringLiteral("a1E+b.2,. 3-"));
            QCOMPARE(box->text(), QStringLiteral("1.23-"));
        }
    });
}

void EditDataValuesTest::a_thirteenth_character_empties_the_box_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("digit") << Qt::Key_1;
    QTest::newRow("minus") << Qt::Key_Minus;
}

void EditDataValuesTest::a_thirteenth_character_empties_the_box()
{
    QFETCH(const Qt::Key, key);
    OneMoreKeyEmptiesEachBox(LanguageEnglish, QStringLiteral("-1234.567890"), key,
                             QStringLiteral("The character number of this form is limited not more than 12! "),
                             QMessageBox::Information);
    OneMoreKeyEmptiesEachBox(LanguageChinese, QStringLiteral("-1234.567890"), key,
                             QStringLiteral("您所填写的字符不能超过12个! "), QMessageBox::Information);
}

void EditDataValuesTest::backspace_and_enter_pass_at_twelve_characters()
{
    EditDataBench bench;
    const BoxAnswers noBox;
    Adding(bench, [](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QStringLiteral("-1234.567895"));
        QTest::keyClick(form.TemperateTxt, Qt::Key_Backspace);
        QCOMPARE(form.TemperateTxt->text(), QStringLiteral("-1234.56789"));
        TypeOver(form.VolTxt, QStringLiteral("-1234.567890"));
        QTest::keyClick(form.VolTxt, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(ReferenceTable[0][1].Input, -1234.56789);
    QCOMPARE(ReferenceTable[0][1].Output, -1234.56789);
}

void EditDataValuesTest::a_value_out_of_range_empties_the_box_at_the_next_key_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<Qt::Key>("key");
    const auto row = [](const char *name, const char *typed, Qt::Key key) {
        QTest::newRow(name) << QString::fromLatin1(typed) << key;
    };
    row("too large, digit", "123456789", Qt::Key_0);
    row("too large, minus", "123456789", Qt::Key_Minus);
    row("too large, Backspace", "123456789", Qt::Key_Backspace);
    row("too large, Enter", "123456789", Qt::Key_Return);
    row("just too large", "120000008", Qt::Key_1);
    row("negative, too large", "-123456789", Qt::Key_1);
    row("too small", ".0000000009", Qt::Key_1);
    row("too small, Enter", ".0000000009", Qt::Key_Return);
    row("negative, too small", "-.0000000009", Qt::Key_Backspace);
}

void EditDataValuesTest::a_value_out_of_range_empties_the_box_at_the_next_key()
{
    QFETCH(const QString, typed);
    QFETCH(const Qt::Key, key);
    OneMoreKeyEmptiesEachBox(LanguageEnglish, typed, key, Exceeded, QMessageBox::Warning);
    OneMoreKeyEmptiesEachBox(LanguageChinese, typed, key, ExceededChinese, QMessageBox::Warning);
}

void EditDataValuesTest::the_ends_of_the_range_pass_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("stored");
    QTest::newRow("zero") << QStringLiteral("0") << 0.0;
    QTest::newRow("largest") << QStringLiteral("120000000") << 1.2e8;
    QTest::newRow("largest, negative") << QStringLiteral("-120000000") << -1.2e8;
    // In single precision it is the largest value itself.
    QTest::newRow("largest in single precision") << QStringLiteral("120000003") << 120000003.0;
    QTest::newRow("smallest") << QStringLiteral(".000000001") << 1e-9;
    QTest::newRow("smallest, negative") << QStringLiteral("-.000000001") << -1e-9;
}

void EditDataValuesTest::the_ends_of_the_range_pass()
{
    QFETCH(const QString, typed);
    EditDataBench bench;
    const BoxAnswers noBox;
    Adding(bench, [&](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QStringLiteral("5"));
        TypeOver(form.VolTxt, typed);
        QTest::keyClick(form.VolTxt, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(LastUsedRow(0), 1);
    QTEST(ReferenceTable[0][1].Input, "stored");
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
    Adding(bench, [inInput](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QStringLiteral("5"));
        TypeOver(form.VolTxt, inInput ? QStringLiteral("1") : QStringLiteral("2"));
        TextBox *box = inInput ? form.VolTxt : form.TemperateTxt;
        Click(box);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, inInput ? 1.0 : 2.0}));
}

void EditDataValuesTest::leaving_a_value_puts_it_into_the_format()
{
    EditDataBench bench;
    Adding(bench, [](EditDataFrm &form) {
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

void EditDataValuesTest::a_box_is_emptied_behind_a_warning_but_ahead_of_the_notice_of_its_length_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown"); // while the message is up
    QTest::newRow("out of range") << QStringLiteral("123456789") << QStringLiteral("123456789");
    QTest::newRow("too small") << QStringLiteral(".0000000009") << QStringLiteral(".0000000009");
    QTest::newRow("13th character") << QStringLiteral("-1234.567890") << QString();
}

void EditDataValuesTest::a_box_is_emptied_behind_a_warning_but_ahead_of_the_notice_of_its_length()
{
    QFETCH(const QString, typed);
    EditDataBench bench;
    Adding(bench, [&](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            Click(box);
            QTest::keyClicks(box, typed);
            const QString shown = TextBehindMessage(box, [box] { QTest::keyClick(box, Qt::Key_1); });
            QTEST(shown, "shown");
            QCOMPARE(box->text(), QString());
        }
    });
}

void EditDataValuesTest::a_box_whose_number_fails_to_convert_is_emptied_behind_the_warning()
{
    EditDataBench bench;
    PutRow(0, 1, 1e100, 1e100);
    RefreshReferenceLists();
    const QString number = QStringLiteral("1") + QString(100, u'0') + QStringLiteral(".0");
    Changing(bench, 1, [&](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            QCOMPARE(TextBehindMessage(box, [box] { QTest::keyClick(box, Qt::Key_Backspace); }), number);
            QCOMPARE(box->text(), QString());
        }
    });
}

QTEST_MAIN(EditDataValuesTest)
#include "tst_edit_data_values.moc"
