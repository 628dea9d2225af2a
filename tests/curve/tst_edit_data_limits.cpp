/// @file
/// What the dialogue of reference rows refuses as a whole: currents beyond the instrument's ranges, and a row behind a
/// full table.
#include "curve/EditDataBench.h"

#include <algorithm>

namespace {

bool SamePoint(const ReferencePoint &one, const ReferencePoint &other)
{
    return one.Used == other.Used && one.Input == other.Input && one.InputText == other.InputText &&
           one.Output == other.Output && one.OutputText == other.OutputText && one.Segment == other.Segment &&
           one.Arithmetic == other.Arithmetic;
}

bool SameRows(const ReferenceRows &one, const ReferenceRows &other)
{
    return std::equal(one.begin() + 1, one.end(), other.begin() + 1, SamePoint);
}

/// Double-clicks below the last of 500 lines, in a list that is high enough for that.
void DoubleClickBelowFullList(ReportList &list)
{
    list.resize(list.width(), list.LineHeight() * 503);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                       list.viewport()->mapFrom(&list, QPoint(20, list.LineHeight() * 501 + 1)));
}

} // namespace

class EditDataLimitsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void a_current_beyond_the_limit_keeps_the_dialogue_open_data();
    void a_current_beyond_the_limit_keeps_the_dialogue_open();
    void the_limit_follows_unit_function_and_model_data();
    void the_limit_follows_unit_function_and_model();
    void several_rows_are_set_without_the_limit();
    void below_a_full_table_the_dialogue_opens_behind_its_last_row();
    void behind_a_full_table_ok_is_out_of_range_data();
    void behind_a_full_table_ok_is_out_of_range();
    void behind_a_full_table_no_step_leads_anywhere();
};

void EditDataLimitsTest::a_current_beyond_the_limit_keeps_the_dialogue_open_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << Exceeded;
    QTest::newRow("Chinese") << 0 << ExceededChinese;
}

void EditDataLimitsTest::a_current_beyond_the_limit_keeps_the_dialogue_open()
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
    Adding(bench, [](EditDataFrm &form) {
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

void EditDataLimitsTest::the_limit_follows_unit_function_and_model_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("function");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("exceeded");
    const auto row = [](const char *name, int kind, int function, const char *unit, const char *typed, bool exceeded) {
        QTest::newRow(name) << kind << function << QString::fromLatin1(unit) << QString::fromLatin1(typed) << exceeded;
    };
    row("A at the limit", 2, 2, "A", "0.22", false);
    row("A above", 2, 2, "A", "0.220001", true);
    row("A at the negative limit", 2, 2, "A", "-0.22", false);
    row("A below", 2, 2, "A", "-0.220001", true);
    row("mA at the limit", 2, 2, "mA", "220", false);
    row("mA above", 2, 2, "mA", "220.000001", true);
    row("mA at the negative limit", 2, 2, "mA", "-220", false);
    row("mA below", 2, 2, "mA", "-220.000001", true);
    row("uA at the limit", 2, 2, "uA", "220000", false);
    row("uA above", 2, 2, "uA", "220000.0001", true);
    row("uA at the negative limit", 2, 2, "uA", "-220000", false);
    row("uA below", 2, 2, "uA", "-220000.01", true);
    row("voltage", 2, 0, "A", "1", false);
    row("KV7050", 1, 2, "A", "1", false);
    row("another model", 0, 2, "A", "1", false);
}

void EditDataLimitsTest::the_limit_follows_unit_function_and_model()
{
    QFETCH(const int, kind);
    QFETCH(const int, function);
    QFETCH(const QString, unit);
    QFETCH(const QString, typed);
    QFETCH(const bool, exceeded);
    EditDataBench bench;
    InstrumentKind = static_cast<std::int16_t>(kind);
    SensorProjects[0].MeasFunction = function;
    SensorProjects[0].InputUnit = unit;
    BoxAnswers answers(exceeded ? QList{QMessageBox::Ok} : QList<QMessageBox::StandardButton>());
    Adding(bench, [&](EditDataFrm &form) {
        TypeRow(form, typed, QStringLiteral("1"));
        Click(form.OkCmd);
        QCOMPARE(form.isVisible(), exceeded);
    });
    QCOMPARE(answers.Texts(), exceeded ? QStringList{Exceeded} : QStringList());
    QCOMPARE(UsedInputs(ReferenceTable[0]), exceeded ? QList<double>() : QList{typed.toDouble()});
    QCOMPARE(bench.project.UndoLumoBtn->isEnabled(), !exceeded);
}

void EditDataLimitsTest::several_rows_are_set_without_the_limit()
{
    EditDataBench bench;
    InstrumentKind = InstrumentKindKV7060;
    SensorProjects[0].MeasFunction = MeasFunctionCode::DcCurrent;
    SensorProjects[0].InputUnit = QStringLiteral("A");
    bench.PutRows({0.1, 5, 6});
    const BoxAnswers noBox;
    // The empty input has the value 0, whatever the rows hold.
    ChangingLines(bench, {2, 3}, [](EditDataFrm &form) {
        Click(form.SegmentOpt[0]);
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QVERIFY(ReferenceTable[0][2].Segment);
}

void EditDataLimitsTest::below_a_full_table_the_dialogue_opens_behind_its_last_row()
{
    EditDataBench bench;
    bench.PutFullTable();
    const BoxAnswers noBox;
    InDialogue([&] { DoubleClickBelowFullList(bench.List()); },
               [](EditDataFrm &form) {
                   QCOMPARE(form.windowTitle(), QStringLiteral("EditData - Add Data"));
                   QCOMPARE(form.FirstRow, 501);
                   QCOMPARE(form.LastRow, 500);
                   // Above LastRow the number becomes 500, and below FirstRow 501 again: each is tested once.
                   QCOMPARE(form.NOTxt->text(), QStringLiteral("501"));
                   QVERIFY(form.NOTxt->Locked());
                   QVERIFY(form.VolTxt->text().isEmpty());
                   QVERIFY(form.TemperateTxt->text().isEmpty());
               });
    QCOMPARE(ReferenceRowCount, 500);
    QCOMPARE(EditRowNumber, 501);
    QCOMPARE(EditDataMode, EditDataModeAdd);
}

void EditDataLimitsTest::behind_a_full_table_ok_is_out_of_range_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("output");
    QTest::addColumn<bool>("byEnter");
    QTest::newRow("a new row") << QStringLiteral("600") << QStringLiteral("5") << false;
    QTest::newRow("a new row, by Enter") << QStringLiteral("600") << QStringLiteral("5") << true;
    QTest::newRow("a half-filled row") << QStringLiteral("600") << QString() << false;
    QTest::newRow("nothing") << QString() << QString() << false;
}

void EditDataLimitsTest::behind_a_full_table_ok_is_out_of_range()
{
    QFETCH(const QString, input);
    QFETCH(const QString, output);
    QFETCH(const bool, byEnter);
    EditDataBench bench;
    bench.PutFullTable();
    bench.project.RedoLumoBtn->setEnabled(true);
    const ReferenceRows before = ReferenceTable[0];
    const BoxAnswers answers({QMessageBox::Ok});
    InDialogue([&] { DoubleClickBelowFullList(bench.List()); },
               [&](EditDataFrm &form) {
                   TypeOver(form.VolTxt, input);
                   TypeOver(form.TemperateTxt, output);
                   if (byEnter)
                       QTest::keyClick(form.TemperateTxt, Qt::Key_Return);
                   else
                       Click(form.OkCmd);
                   // The routine has ended at the row; the dialogue stays with what was typed.
                   QVERIFY(form.isVisible());
                   QCOMPARE(form.NOTxt->text(), QStringLiteral("501"));
                   QCOMPARE(form.VolTxt->text().isEmpty(), input.isEmpty());
               });
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("Out of range")});
    QCOMPARE(answers.Shown().first().Icon, QMessageBox::Warning);
    QVERIFY(SameRows(ReferenceTable[0], before));
    QCOMPARE(bench.List().LineCount(), 500);
    // The backup is taken ahead of that, but nothing else of an edit is done.
    QVERIFY(SameRows(ReferenceBackup[0], before));
    QVERIFY(!bench.project.UndoLumoBtn->isEnabled());
    QVERIFY(bench.project.RedoLumoBtn->isEnabled());
}

void EditDataLimitsTest::behind_a_full_table_no_step_leads_anywhere()
{
    EditDataBench bench;
    bench.PutFullTable();
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    InDialogue([&] { DoubleClickBelowFullList(bench.List()); },
               [&](EditDataFrm &form) {
                   StepUp(form);
                   QCOMPARE(form.NOTxt->text(), QStringLiteral("501"));
                   StepDown(form);
                   QCOMPARE(form.NOTxt->text(), QStringLiteral("501"));
                   QCOMPARE(answers.Left(), 0);
                   ClickArrow(form.HScroll1, false);
                   ClickArrow(form.HScroll1, true);
                   QCOMPARE(form.NOTxt->text(), QStringLiteral("501"));
               });
    QCOMPARE(answers.Texts(), (QStringList{QStringLiteral("Out of range"), QStringLiteral("Out of range")}));
}

QTEST_MAIN(EditDataLimitsTest)
#include "tst_edit_data_limits.moc"
