/// @file
/// The text box reports every way in which a user changes its text, before the text changes.
#include "controls/Boxes.h"
#include "controls/DefaultButtonDialogue.h"
#include "controls/TextBox.h"
#include "support/BoxAnswer.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// Notes the keys of a box, and the text that stood there when each was reported.
struct KeyLog {
    explicit KeyLog(TextBox &box)
    {
        QObject::connect(&box, &TextBox::KeyPress, &box, [this, &box](int &key) {
            Keys.append(key);
            Texts.append(box.text());
            if (Swallow(key))
                key = 0;
        });
    }

    QList<int> Keys;
    QStringList Texts;
    std::function<bool(int)> Swallow = [](int) { return false; };
};

void CommitByInputMethod(TextBox &box, const QString &text, int replaceFrom = 0, int replaced = 0)
{
    QInputMethodEvent event;
    event.setCommitString(text, replaceFrom, replaced);
    QApplication::sendEvent(&box, &event);
}

/// Drags a text over the box and drops it there. Returns whether the box took the drag.
bool Drop(TextBox &box, const QString &text)
{
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&box, &enter);
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&box, &drop);
    return enter.isAccepted();
}

bool NoDigit(int key)
{
    return key < '0' || key > '9';
}

} // namespace

class TextBoxTest : public QObject {
    Q_OBJECT

private slots:
    void a_key_is_reported_before_the_text_changes();
    void keys_have_their_codes_data();
    void keys_have_their_codes();
    void keys_without_a_code_are_not_reported();
    void a_swallowed_key_has_no_effect();
    void cut_undo_and_delete_work_as_ever();
    void enter_does_not_reach_the_default_button();
    void paste_goes_key_by_key();
    void a_swallowed_paste_inserts_nothing();
    void shift_insert_pastes_through_the_filter();
    void line_breaks_of_pasted_text_are_left_out();
    void an_input_method_commits_through_the_filter();
    void a_composition_in_progress_is_no_text();
    void an_input_method_replaces_text();
    void a_character_beyond_the_basic_plane_is_one_key();
    void dropped_text_goes_through_the_filter();
    void the_middle_button_gets_nothing_past_the_filter();
    void there_is_no_context_menu();
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

void TextBoxTest::cut_undo_and_delete_work_as_ever()
{
    TextBox box;
    KeyLog log(box);
    box.setText(QStringLiteral("123"));
    box.setCursorPosition(0);
    QTest::keyClick(&box, Qt::Key_Delete);
    QCOMPARE(box.text(), QStringLiteral("23"));
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(box.text(), QString());
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
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

void TextBoxTest::paste_goes_key_by_key()
{
    TextBox box;
    box.setText(QStringLiteral("0"));
    KeyLog log(box);
    log.Swallow = [](int key) { return key != 22 && NoDigit(key); };
    QApplication::clipboard()->setText(QStringLiteral("1x2"));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(log.Keys, QList<int>({22, '1', 'x', '2'}));
    QCOMPARE(log.Texts.last(), QStringLiteral("01"));
    QCOMPARE(box.text(), QStringLiteral("012"));
}

void TextBoxTest::a_swallowed_paste_inserts_nothing()
{
    TextBox box;
    KeyLog log(box);
    log.Swallow = [](int key) { return key == 22; };
    QApplication::clipboard()->setText(QStringLiteral("12"));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(log.Keys, QList<int>{22});
    QCOMPARE(box.text(), QString());
}

void TextBoxTest::shift_insert_pastes_through_the_filter()
{
    TextBox box;
    KeyLog log(box);
    log.Swallow = [](int key) { return key == 'x'; };
    QApplication::clipboard()->setText(QStringLiteral("1x"));
    QTest::keyClick(&box, Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(log.Keys, QList<int>({22, '1', 'x'}));
    QCOMPARE(box.text(), QStringLiteral("1"));
}

void TextBoxTest::line_breaks_of_pasted_text_are_left_out()
{
    TextBox box;
    KeyLog log(box);
    QApplication::clipboard()->setText(QStringLiteral("1\r\n2\t\n"));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(log.Keys, QList<int>({22, '1', '2'}));
    QCOMPARE(box.text(), QStringLiteral("12"));
}

void TextBoxTest::an_input_method_commits_through_the_filter()
{
    TextBox box;
    KeyLog log(box);
    log.Swallow = NoDigit;
    CommitByInputMethod(box, QStringLiteral("4数5"));
    QCOMPARE(log.Keys, QList<int>({'4', 0x6570, '5'}));
    QCOMPARE(box.text(), QStringLiteral("45"));
}

void TextBoxTest::a_composition_in_progress_is_no_text()
{
    TextBox box;
    KeyLog log(box);
    QInputMethodEvent begin(QStringLiteral("shu"), {});
    QApplication::sendEvent(&box, &begin);
    QCOMPARE(box.text(), QString());
    QCOMPARE(box.displayText(), QString());
    QCOMPARE(log.Keys, QList<int>());
    CommitByInputMethod(box, QStringLiteral("数"));
    QCOMPARE(box.text(), QStringLiteral("数"));
    QCOMPARE(log.Keys, QList<int>{0x6570});
}

void TextBoxTest::an_input_method_replaces_text()
{
    TextBox box;
    box.setText(QStringLiteral("abc"));
    CommitByInputMethod(box, QStringLiteral("d"), -2, 2);
    QCOMPARE(box.text(), QStringLiteral("ad"));
}

void TextBoxTest::a_character_beyond_the_basic_plane_is_one_key()
{
    TextBox box;
    KeyLog log(box);
    const char32_t character = 0x20000;
    CommitByInputMethod(box, QString::fromUcs4(&character, 1));
    QCOMPARE(log.Keys, QList<int>{0x20000});
    QCOMPARE(box.text(), QString::fromUcs4(&character, 1));
}

void TextBoxTest::dropped_text_goes_through_the_filter()
{
    TextBox box;
    KeyLog log(box);
    log.Swallow = NoDigit;
    QVERIFY(Drop(box, QStringLiteral("6y7")));
    QCOMPARE(log.Keys, QList<int>({'6', 'y', '7'}));
    QCOMPARE(box.text(), QStringLiteral("67"));
    box.SetLocked(true);
    QVERIFY(!Drop(box, QStringLiteral("8")));
    QCOMPARE(box.text(), QStringLiteral("67"));
}

void TextBoxTest::the_middle_button_gets_nothing_past_the_filter()
{
    QClipboard &clipboard = *QApplication::clipboard();
    clipboard.setText(QStringLiteral("12"), QClipboard::Clipboard);
    if (clipboard.supportsSelection())
        clipboard.setText(QStringLiteral("12"), QClipboard::Selection);
    TextBox box;
    KeyLog log(box);
    log.Swallow = [](int) { return true; };
    QTest::mouseClick(&box, Qt::MiddleButton);
    QCOMPARE(box.text(), QString());
    QCOMPARE(log.Keys, clipboard.supportsSelection() ? QList<int>{22} : QList<int>());
}

void TextBoxTest::there_is_no_context_menu()
{
    TextBox box;
    box.show();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), box.mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&box, &event);
    QVERIFY(event.isAccepted());
    QVERIFY(QApplication::activePopupWidget() == nullptr);
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
