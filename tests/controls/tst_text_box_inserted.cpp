/// @file
/// Text that comes into a text box by other ways than keys is reported too, character by character, before the text
/// changes.
#include "controls/KeyLog.h"
#include "support/Hands.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QTest>

Q_DECLARE_METATYPE(std::function<void(TextBox &, const QString &)>)

class TextBoxInsertedTest : public QObject {
    Q_OBJECT

private slots:
    void paste_goes_key_by_key();
    void a_swallowed_paste_inserts_nothing();
    void shift_insert_pastes_through_the_filter();
    void line_breaks_of_pasted_text_are_left_out();
    void an_input_method_commits_through_the_filter();
    void a_composition_in_progress_is_no_text();
    void an_input_method_replaces_text();
    void a_character_beyond_the_basic_plane_is_one_key();
    void dropped_text_goes_through_the_filter();
    void a_refusal_that_empties_the_box_ends_the_insertion_data();
    void a_refusal_that_empties_the_box_ends_the_insertion();
    void a_refusal_in_an_empty_box_lets_the_rest_in();
    void the_middle_button_gets_nothing_past_the_filter();
    void there_is_no_context_menu();
};

void TextBoxInsertedTest::paste_goes_key_by_key()
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

void TextBoxInsertedTest::a_swallowed_paste_inserts_nothing()
{
    TextBox box;
    KeyLog log(box);
    log.Swallow = [](int key) { return key == 22; };
    QApplication::clipboard()->setText(QStringLiteral("12"));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(log.Keys, QList<int>{22});
    QCOMPARE(box.text(), QString());
}

void TextBoxInsertedTest::shift_insert_pastes_through_the_filter()
{
    TextBox box;
    KeyLog log(box);
    log.Swallow = [](int key) { return key == 'x'; };
    QApplication::clipboard()->setText(QStringLiteral("1x"));
    QTest::keyClick(&box, Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(log.Keys, QList<int>({22, '1', 'x'}));
    QCOMPARE(box.text(), QStringLiteral("1"));
}

void TextBoxInsertedTest::line_breaks_of_pasted_text_are_left_out()
{
    TextBox box;
    KeyLog log(box);
    QApplication::clipboard()->setText(QStringLiteral("1\r\n2\t\n"));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(log.Keys, QList<int>({22, '1', '2'}));
    QCOMPARE(box.text(), QStringLiteral("12"));
}

void TextBoxInsertedTest::an_input_method_commits_through_the_filter()
{
    TextBox box;
    KeyLog log(box);
    log.Swallow = NoDigit;
    CommitText(box, QStringLiteral("4数5"));
    QCOMPARE(log.Keys, QList<int>({'4', 0x6570, '5'}));
    QCOMPARE(box.text(), QStringLiteral("45"));
}

void TextBoxInsertedTest::a_composition_in_progress_is_no_text()
{
    TextBox box;
    KeyLog log(box);
    QInputMethodEvent begin(QStringLiteral("shu"), {});
    QApplication::sendEvent(&box, &begin);
    QCOMPARE(box.text(), QString());
    QCOMPARE(box.displayText(), QString());
    QCOMPARE(log.Keys, QList<int>());
    CommitText(box, QStringLiteral("数"));
    QCOMPARE(box.text(), QStringLiteral("数"));
    QCOMPARE(log.Keys, QList<int>{0x6570});
}

void TextBoxInsertedTest::an_input_method_replaces_text()
{
    TextBox box;
    box.setText(QStringLiteral("abc"));
    CommitText(box, QStringLiteral("d"), -2, 2);
    QCOMPARE(box.text(), QStringLiteral("ad"));
}

void TextBoxInsertedTest::a_character_beyond_the_basic_plane_is_one_key()
{
    TextBox box;
    KeyLog log(box);
    const char32_t character = 0x20000;
    CommitText(box, QString::fromUcs4(&character, 1));
    QCOMPARE(log.Keys, QList<int>{0x20000});
    QCOMPARE(box.text(), QString::fromUcs4(&character, 1));
}

void TextBoxInsertedTest::dropped_text_goes_through_the_filter()
{
    TextBox box;
    KeyLog log(box);
    log.Swallow = NoDigit;
    QVERIFY(DropText(box, QStringLiteral("6y7")));
    QCOMPARE(log.Keys, QList<int>({'6', 'y', '7'}));
    QCOMPARE(box.text(), QStringLiteral("67"));
    box.SetLocked(true);
    QVERIFY(!DropText(box, QStringLiteral("8")));
    QCOMPARE(box.text(), QStringLiteral("67"));
}

void TextBoxInsertedTest::a_refusal_that_empties_the_box_ends_the_insertion_data()
{
    using Insert = std::function<void(TextBox & box, const QString &text)>;
    QTest::addColumn<Insert>("insert");
    QTest::newRow("pasted") << Insert([](TextBox &box, const QString &text) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    });
    QTest::newRow("dropped") << Insert([](TextBox &box, const QString &text) { DropText(box, text); });
    QTest::newRow("committed") << Insert([](TextBox &box, const QString &text) { CommitText(box, text); });
}

void TextBoxInsertedTest::a_refusal_that_empties_the_box_ends_the_insertion()
{
    QFETCH(const std::function<void(TextBox &, const QString &)>, insert);
    TextBox box;
    KeyLog log(box);
    log.Swallow = [&box](int key) {
        if (key == 'x')
            box.clear();
        return key == 'x';
    };
    insert(box, QStringLiteral("12x34"));
    log.Keys.removeAll(22);
    QCOMPARE(log.Keys, QList<int>({'1', '2', 'x'}));
    QCOMPARE(box.text(), QString());
    // The next key is one of its own.
    QTest::keyClicks(&box, QStringLiteral("5"));
    QCOMPARE(box.text(), QStringLiteral("5"));
}

void TextBoxInsertedTest::a_refusal_in_an_empty_box_lets_the_rest_in()
{
    TextBox box;
    KeyLog log(box);
    log.Swallow = [&box](int key) {
        if (key == 'x')
            box.clear();
        return key == 'x';
    };
    DropText(box, QStringLiteral("x34"));
    QCOMPARE(box.text(), QStringLiteral("34"));
}

void TextBoxInsertedTest::the_middle_button_gets_nothing_past_the_filter()
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

void TextBoxInsertedTest::there_is_no_context_menu()
{
    TextBox box;
    box.show();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), box.mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&box, &event);
    QVERIFY(event.isAccepted());
    QVERIFY(QApplication::activePopupWidget() == nullptr);
}

QTEST_MAIN(TextBoxInsertedTest)
#include "tst_text_box_inserted.moc"
