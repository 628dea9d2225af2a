/// @file
/// The text box reports keys before the text changes, presses, and where the keyboard is.
#include "controls/Boxes.h"
#include "controls/DefaultButtonDialogue.h"
#include "controls/KeyLog.h"
#include "controls/TextBox.h"
#include "support/BoxAnswer.h"

#include <QClipboard>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

class TextBoxTest : public QObject {
    Q_OBJECT

private slots:
    void a_key_is_reported_before_the_text_changes();
    void keys_have_their_codes_data();
    void keys_have_their_codes();
    void keys_without_a_code_are_not_reported();
    void a_swallowed_key_has_no_effect();
    void cut_undo_and_redo_are_keys_with_a_code_data();
    void cut_undo_and_redo_are_keys_with_a_code();
    void cut_undo_and_redo_take_effect_when_they_pass();
    void delete_works_without_a_report();
    void enter_does_not_reach_the_default_button();
    void a_locked_box_reports_but_takes_no_change();
    void a_key_that_unlocks_takes_effect();
    void a_press_reports_its_button();
    void a_press_may_unlock_and_empty_the_box();
    void change_comes_for_program_and_user();
    void focus_is_reported_between_controls_only();
};

void TextBoxTest::a_key_is_reported_before_the_text_changes()
{
    TextBox box;
    KeyLog log(box);
    QTest::keyClicks(&box, QStringLiteral("aB7"));
    QCOMPARE(box.text(), QStringLiteral("aB7"));
    QCOMPARE(log.Keys, QList<int>({97, 66, 55}));
    QCOMPARE(log.Texts, QStringList({QString(), QStringLiteral("a"), QStringLiteral("aB")}));
}

void TextBoxTest::keys_have_their_codes_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QList<int>>("codes");
    const Qt::KeyboardModifiers none;
    QTest::newRow("Backspace") << Qt::Key_Backspace << none << QList<int>{8};
    QTest::newRow("Return") << Qt::Key_Return << none << QList<int>{13};
    QTest::newRow("Enter of the number pad")
        << Qt::Key_Enter << Qt::KeyboardModifiers(Qt::KeypadModifier) << QList<int>{13};
    QTest::newRow("Ctrl+V, clipboard empty")
        << Qt::Key_V << Qt::KeyboardModifiers(Qt::ControlModifier) << QList<int>{22};
    QTest::newRow("minus") << Qt::Key_Minus << none << QList<int>{45};
    QTest::newRow("space") << Qt::Key_Space << none << QList<int>{32};
}

void TextBoxTest::keys_have_their_codes()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const QList<int>, codes);
    QApplication::clipboard()->clear();
    TextBox box;
    KeyLog log(box);
    QTest::keyClick(&box, key, modifiers);
    QCOMPARE(log.Keys, codes);
}

void TextBoxTest::keys_without_a_code_are_not_reported()
{
    TextBox box;
    box.setText(QStringLiteral("12"));
    KeyLog log(box);
    QTest::keyClick(&box, Qt::Key_Left);
    QTest::keyClick(&box, Qt::Key_Home);
    QTest::keyClick(&box, Qt::Key_F5);
    QTest::keyClick(&box, Qt::Key_Shift);
    QCOMPARE(log.Keys, QList<int>());
    QCOMPARE(box.cursorPosition(), 0);
}

void TextBoxTest::a_swallowed_key_has_no_effect()
{
    TextBox box;
    box.setText(QStringLiteral("12"));
    KeyLog log(box);
    log.Swallow = NoDigit;
    QTest::keyClicks(&box, QStringLiteral("a3-"));
    QTest::keyClick(&box, Qt::Key_Backspace);
    QCOMPARE(box.text(), QStringLiteral("123"));
    QCOMPARE(log.Keys, QList<int>({97, 51, 45, 8}));
}

void TextBoxTest::cut_undo_and_redo_are_keys_with_a_code_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<int>("code");
    const Qt::KeyboardModifiers control = Qt::ControlModifier;
    QTest::newRow("Ctrl+X") << Qt::Key_X << control << 24;
    QTest::newRow("Shift+Delete") << Qt::Key_Delete << Qt::KeyboardModifiers(Qt::ShiftModifier) << 24;
    QTest::newRow("Ctrl+Y") << Qt::Key_Y << control << 25;
    QTest::newRow("Ctrl+Shift+Z") << Qt::Key_Z << (control | Qt::ShiftModifier) << 25;
    QTest::newRow("Ctrl+Z") << Qt::Key_Z << control << 26;
}

void TextBoxTest::cut_undo_and_redo_are_keys_with_a_code()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const int, code);
    QApplication::clipboard()->setText(QStringLiteral("kept"));
    for (const bool locked : {false, true}) {
        TextBox box;
        box.setText(QStringLiteral("12"));
        QTest::keyClicks(&box, QStringLiteral("34"));
        // One step back, so that there are steps both ways, and something to cut.
        QTest::keyClick(&box, Qt::Key_Backspace);
        box.undo();
        box.selectAll();
        const QString before = box.text();
        QVERIFY(box.isUndoAvailable() && box.isRedoAvailable());
        KeyLog log(box);
        log.Swallow = [](int) { return true; };
        box.SetLocked(locked);
        QTest::keyClick(&box, key, modifiers);
        QCOMPARE(log.Keys, QList<int>{code});
        QCOMPARE(box.text(), before);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("kept"));
    }
}

void TextBoxTest::cut_undo_and_redo_take_effect_when_they_pass()
{
    TextBox box;
    KeyLog log(box);
    box.setText(QStringLiteral("23"));
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(box.text(), QString());
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("23"));
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(box.text(), QStringLiteral("23"));
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(box.text(), QString());
    QCOMPARE(log.Keys, QList<int>({24, 26, 25}));
    QCOMPARE(log.Texts, QStringList({QStringLiteral("23"), QString(), QStringLiteral("23")}));
}

void TextBoxTest::delete_works_without_a_report()
{
    TextBox box;
    KeyLog log(box);
    box.setText(QStringLiteral("123"));
    box.setCursorPosition(0);
    QTest::keyClick(&box, Qt::Key_Delete);
    QCOMPARE(box.text(), QStringLiteral("23"));
    QCOMPARE(log.Keys, QList<int>());
}

void TextBoxTest::enter_does_not_reach_the_default_button()
{
    DefaultButtonDialogue dialogue;
    TextBox box;
    QVERIFY(dialogue.Show(box));
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Enter);
    QCOMPARE(dialogue.Clicks.count(), 0);
    dialogue.PressReturnElsewhere();
    QCOMPARE(dialogue.Clicks.count(), 1); // the dialogue does have a default button
}

void TextBoxTest::a_locked_box_reports_but_takes_no_change()
{
    TextBox box;
    box.setText(QStringLiteral("12"));
    box.SetLocked(true);
    KeyLog log(box);
    QApplication::clipboard()->setText(QStringLiteral("9"));
    QTest::keyClick(&box, Qt::Key_A);
    QTest::keyClick(&box, Qt::Key_Backspace);
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    QCOMPARE(box.text(), QStringLiteral("12"));
    QCOMPARE(log.Keys, QList<int>({'a', 8, 22, '9'}));
}

void TextBoxTest::a_key_that_unlocks_takes_effect()
{
    TextBox box;
    box.setText(QStringLiteral("name"));
    box.SetLocked(true);
    connect(&box, &TextBox::KeyPress, &box, [&box](int &) {
        if (box.Locked())
            box.clear();
        box.SetLocked(false);
    });
    QTest::keyClick(&box, Qt::Key_B);
    QVERIFY(!box.Locked());
    QCOMPARE(box.text(), QStringLiteral("b"));
}

void TextBoxTest::a_press_reports_its_button()
{
    TextBox box;
    QList<Qt::MouseButton> buttons;
    connect(&box, &TextBox::MouseDown, &box, [&buttons](Qt::MouseButton button) { buttons.append(button); });
    box.SetLocked(true);
    QTest::mouseClick(&box, Qt::LeftButton);
    QTest::mouseClick(&box, Qt::RightButton);
    QCOMPARE(buttons, QList<Qt::MouseButton>({Qt::LeftButton, Qt::RightButton}));
}

void TextBoxTest::a_press_may_unlock_and_empty_the_box()
{
    TextBox box;
    box.setText(QStringLiteral("Please enter a name"));
    box.SetLocked(true);
    connect(&box, &TextBox::MouseDown, &box, [&box](Qt::MouseButton) {
        if (box.Locked())
            box.clear();
        box.SetLocked(false);
    });
    QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(40, 5));
    QCOMPARE(box.cursorPosition(), 0);
    QTest::keyClicks(&box, QStringLiteral("cd"));
    QCOMPARE(box.text(), QStringLiteral("cd"));
}

void TextBoxTest::change_comes_for_program_and_user()
{
    TextBox box;
    QSignalSpy change(&box, &TextBox::Change);
    box.setText(QStringLiteral("1"));
    QCOMPARE(change.count(), 1);
    QTest::keyClick(&box, Qt::Key_2);
    QCOMPARE(change.count(), 2);
    box.setText(QStringLiteral("12"));
    QCOMPARE(change.count(), 2);
}

void TextBoxTest::focus_is_reported_between_controls_only()
{
    QWidget window;
    QVBoxLayout column(&window);
    TextBox first;
    TextBox second;
    column.addWidget(&first);
    column.addWidget(&second);
    QSignalSpy got(&first, &TextBox::GotFocus);
    QSignalSpy lost(&first, &TextBox::LostFocus);
    first.setFocus();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTRY_VERIFY(first.hasFocus());
    QCOMPARE(got.count(), 1);

    BoxAnswers answers({QMessageBox::Ok});
    InformationBox(QStringLiteral("in between"));
    window.activateWindow();
    QTRY_VERIFY(first.hasFocus());
    QCOMPARE(got.count(), 1);
    QCOMPARE(lost.count(), 0);

    QTest::keyClick(&first, Qt::Key_Tab);
    QVERIFY(second.hasFocus());
    QCOMPARE(lost.count(), 1);
    first.setFocus();
    QCOMPARE(got.count(), 2);
}

QTEST_MAIN(TextBoxTest)
#include "tst_text_box.moc"
