/// @file
/// Text that comes into the boxes of the dialogue of reference rows by other ways than keys: nothing gets in that a key
/// filter refuses.
///
/// Ctrl+V and what else pastes is a key of its own (22). No filter of these boxes has it, so that it is swallowed
/// whole; Ctrl+X (24), Ctrl+Y (25) and Ctrl+Z (26) likewise. What is dropped or committed by an input method has no
/// such key, and each of its characters is judged as one. Once a character empties the box, what is left of the text is
/// dropped: it would stand there as another number.
#include "curve/EditDataBench.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QWindow>

namespace {

enum class Way { Dropped, Committed };

void Insert(TextBox &box, Way way, const QString &text)
{
    if (way == Way::Dropped)
        QVERIFY(DropText(box, text));
    else
        CommitText(box, text);
}

void AddWays()
{
    QTest::addColumn<Way>("way");
    QTest::newRow("dropped") << Way::Dropped;
    QTest::newRow("committed") << Way::Committed;
}

} // namespace

Q_DECLARE_METATYPE(Way)

class EditDataInsertedTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void a_paste_is_a_key_that_is_swallowed_data();
    void a_paste_is_a_key_that_is_swallowed();
    void cut_undo_and_redo_are_keys_that_are_swallowed_data();
    void cut_undo_and_redo_are_keys_that_are_swallowed();
    void no_box_has_a_context_menu();
    void a_right_press_in_a_value_box_empties_the_clipboard();
    void each_character_of_a_value_is_judged_as_a_key_data();
    void each_character_of_a_value_is_judged_as_a_key();
    void each_character_of_a_row_number_is_judged_as_a_key_data();
    void each_character_of_a_row_number_is_judged_as_a_key();
    void a_locked_row_number_takes_nothing_data();
    void a_locked_row_number_takes_nothing();
    void what_is_left_behind_a_character_that_empties_the_box_is_dropped_data();
    void what_is_left_behind_a_character_that_empties_the_box_is_dropped();
    void inserted_numbers_are_stored_data();
    void inserted_numbers_are_stored();
};

void EditDataInsertedTest::a_paste_is_a_key_that_is_swallowed_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Ctrl+V") << Qt::Key_V << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Shift+Insert") << Qt::Key_Insert << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("Ctrl+Shift+Insert") << Qt::Key_Insert << (Qt::ControlModifier | Qt::ShiftModifier);
}

void EditDataInsertedTest::a_paste_is_a_key_that_is_swallowed()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    const BoxAnswers noBox;
    Changing(bench, 1, [&](EditDataFrm &form) {
        for (TextBox *box : {form.NOTxt, form.VolTxt, form.TemperateTxt}) {
            Click(box);
            const QString before = box->text();
            for (const QString &text : {u"2"_qs, u"x"_qs, u"1234567890123456"_qs}) {
                QGuiApplication::clipboard()->setText(text);
                QTest::keyClick(box, key, modifiers);
                QCOMPARE(box->text(), before);
            }
        }
    });
}

void EditDataInsertedTest::cut_undo_and_redo_are_keys_that_are_swallowed_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("redo"); // rather than undo is what there is to do
    QTest::newRow("Ctrl+X") << Qt::Key_X << Qt::KeyboardModifiers(Qt::ControlModifier) << false;
    QTest::newRow("Shift+Delete") << Qt::Key_Delete << Qt::KeyboardModifiers(Qt::ShiftModifier) << false;
    QTest::newRow("Ctrl+Z") << Qt::Key_Z << Qt::KeyboardModifiers(Qt::ControlModifier) << false;
    QTest::newRow("Ctrl+Y") << Qt::Key_Y << Qt::KeyboardModifiers(Qt::ControlModifier) << true;
    QTest::newRow("Ctrl+Shift+Z") << Qt::Key_Z << (Qt::ControlModifier | Qt::ShiftModifier) << true;
}

void EditDataInsertedTest::cut_undo_and_redo_are_keys_that_are_swallowed()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const bool, redo);
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    const BoxAnswers noBox;
    Changing(bench, 1, [&](EditDataFrm &form) {
        for (TextBox *box : {form.NOTxt, form.VolTxt, form.TemperateTxt}) {
            Click(box);
            box->selectAll();
            QTest::keyClicks(box, QStringLiteral("2"));
            if (redo)
                box->undo();
            box->selectAll();
            QVERIFY(redo ? box->isRedoAvailable() : box->isUndoAvailable());
            const QString before = box->text();
            QCOMPARE(before == QStringLiteral("2"), !redo);
            QTest::keyClick(box, key, modifiers);
            QCOMPARE(box->text(), before);
        }
    });
}

void EditDataInsertedTest::no_box_has_a_context_menu()
{
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    Changing(bench, 1, [](EditDataFrm &form) {
        for (TextBox *box : {form.NOTxt, form.VolTxt, form.TemperateTxt}) {
            QGuiApplication::clipboard()->setText(QStringLiteral("2"));
            const QString before = box->text();
            const QPoint place = box->mapTo(&form, box->rect().center());
            // The window makes the request for the menu out of the press.
            QTest::mouseClick(form.windowHandle(), Qt::RightButton, {}, place);
            QCoreApplication::processEvents();
            QVERIFY(QApplication::activePopupWidget() == nullptr);
            const QPoint middle = box->rect().center();
            QContextMenuEvent byKey(QContextMenuEvent::Keyboard, middle, box->mapToGlobal(middle));
            QApplication::sendEvent(box, &byKey);
            QVERIFY(QApplication::activePopupWidget() == nullptr);
            QCOMPARE(box->text(), before);
        }
    });
}

void EditDataInsertedTest::a_right_press_in_a_value_box_empties_the_clipboard()
{
    EditDataBench bench;
    Adding(bench, [](EditDataFrm &form) {
        for (TextBox *box : {form.NOTxt, form.VolTxt, form.TemperateTxt}) {
            QGuiApplication::clipboard()->setText(QStringLiteral("7"));
            Click(box);
            QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("7"));
            QTest::mousePress(box, Qt::RightButton);
            QCOMPARE(QGuiApplication::clipboard()->text(), box == form.NOTxt ? QStringLiteral("7") : QString());
            QTest::mouseRelease(box, Qt::RightButton);
        }
    });
}

void EditDataInsertedTest::each_character_of_a_value_is_judged_as_a_key_data()
{
    AddWays();
}

void EditDataInsertedTest::each_character_of_a_value_is_judged_as_a_key()
{
    QFETCH(const Way, way);
    EditDataBench bench;
    const BoxAnswers noBox;
    Adding(bench, [way](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            Click(box);
            Insert(*box, way, QStringLiteral("a1E+b.2,. 3-\r\n4\x08\uFF11数"));
            QCOMPARE(box->text(), QStringLiteral("1.23-4"));
        }
    });
}

void EditDataInsertedTest::each_character_of_a_row_number_is_judged_as_a_key_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    // A drop goes to the place of the pointer, ahead of the 1; a commit behind it.
    QTest::newRow("dropped") << Way::Dropped << QStringLiteral("-2.x\r") << QStringLiteral("21");
    QTest::newRow("committed") << Way::Committed << QStringLiteral("-2.x\uFF12") << QStringLiteral("12");
    // The limit acts at each character: 19, 199 becomes 30, 309 becomes 30.
    QTest::newRow("beyond the last row") << Way::Committed << QStringLiteral("999") << QStringLiteral("30");
}

void EditDataInsertedTest::each_character_of_a_row_number_is_judged_as_a_key()
{
    QFETCH(const Way, way);
    QFETCH(const QString, text);
    EditDataBench bench;
    for (int row = 1; row <= 30; ++row)
        PutRow(0, row, row, row);
    RefreshReferenceLists();
    const BoxAnswers noBox;
    Changing(bench, 1, [&](EditDataFrm &form) {
        Click(form.NOTxt);
        Insert(*form.NOTxt, way, text);
        QTEST(form.NOTxt->text(), "shown");
    });
}

void EditDataInsertedTest::a_locked_row_number_takes_nothing_data()
{
    AddWays();
}

void EditDataInsertedTest::a_locked_row_number_takes_nothing()
{
    QFETCH(const Way, way);
    EditDataBench bench;
    bench.PutRows({1, 2});
    Adding(bench, [way](EditDataFrm &form) {
        Click(form.NOTxt);
        if (way == Way::Dropped)
            QVERIFY(!DropText(*form.NOTxt, QStringLiteral("4")));
        else
            CommitText(*form.NOTxt, QStringLiteral("4"));
        QCOMPARE(form.NOTxt->text(), QStringLiteral("3"));
    });
}

void EditDataInsertedTest::what_is_left_behind_a_character_that_empties_the_box_is_dropped_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    const QString tooLong = QStringLiteral("The character number of this form is limited not more than 12! ");
    for (const Way way : {Way::Dropped, Way::Committed}) {
        const char *name = way == Way::Dropped ? "dropped" : "committed";
        QTest::addRow("%s, 13th character", name) << way << QStringLiteral("-1234.56789012345") << tooLong;
        QTest::addRow("%s, out of range", name) << way << QStringLiteral("123456789012345") << Exceeded;
    }
}

void EditDataInsertedTest::what_is_left_behind_a_character_that_empties_the_box_is_dropped()
{
    QFETCH(const Way, way);
    QFETCH(const QString, text);
    QFETCH(const QString, message);
    EditDataBench bench;
    const BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Adding(bench, [&](EditDataFrm &form) {
        for (TextBox *box : {form.VolTxt, form.TemperateTxt}) {
            Click(box);
            Insert(*box, way, text);
            QCOMPARE(box->text(), QString());
            QTest::keyClicks(box, QStringLiteral("8"));
            QCOMPARE(box->text(), QStringLiteral("8"));
        }
    });
    QCOMPARE(answers.Texts(), (QStringList{message, message}));
}

void EditDataInsertedTest::inserted_numbers_are_stored_data()
{
    AddWays();
}

void EditDataInsertedTest::inserted_numbers_are_stored()
{
    QFETCH(const Way, way);
    EditDataBench bench;
    const BoxAnswers noBox;
    Adding(bench, [way](EditDataFrm &form) {
        Click(form.VolTxt);
        Insert(*form.VolTxt, way, QStringLiteral("2.5 mV"));
        Click(form.TemperateTxt);
        Insert(*form.TemperateTxt, way, QStringLiteral("-7"));
        Click(form.OkCmd);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(UsedInputs(ReferenceTable[0]), QList<double>{2.5});
    QCOMPARE(ReferenceTable[0][1].Output, -7.0);
}

QTEST_MAIN(EditDataInsertedTest)
#include "tst_edit_data_inserted.moc"
