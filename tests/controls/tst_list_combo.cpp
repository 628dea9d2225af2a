/// @file
/// The drop-down list: silent while it is filled, loud whenever an entry is chosen.
#include "controls/DefaultButtonDialogue.h"
#include "controls/ListCombo.h"
#include "support/ErrorOf.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QTest>

namespace {

void Fill(ListCombo &list)
{
    for (const char *text : {"mV", "V", "A"})
        list.AddItem(QString::fromLatin1(text));
}

int ErrorOfIndex(ListCombo &list, int index)
{
    return ErrorOf([&] { list.SetListIndex(index); });
}

void ClickEntry(ListCombo &list, int index)
{
    list.showPopup();
    QAbstractItemView *view = list.view();
    QTRY_VERIFY(view->isVisible());
    const QPoint entry = view->visualRect(view->model()->index(index, 0)).topLeft() + QPoint(5, 5);
    QTest::mouseMove(view->viewport(), entry);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, entry);
    QTRY_VERIFY(!view->isVisible());
}

} // namespace

class ListComboTest : public QObject {
    Q_OBJECT

private slots:
    void filling_is_silent_and_chooses_nothing();
    void adding_keeps_the_chosen_entry();
    void clearing_is_silent();
    void setting_the_index_always_runs_click();
    void the_index_has_to_exist();
    void a_user_s_choice_runs_click_once();
    void choosing_the_same_entry_runs_click();
    void an_arrow_key_runs_click_once();
    void enter_is_reported_and_goes_no_further();
    void other_keys_report_their_character_and_take_effect();
    void a_swallowed_key_has_no_effect();
    void the_text_cannot_be_edited();
};

void ListComboTest::filling_is_silent_and_chooses_nothing()
{
    ListCombo list;
    QSignalSpy click(&list, &ListCombo::Click);
    QSignalSpy changed(&list, &QComboBox::currentIndexChanged);
    Fill(list);
    QCOMPARE(list.ListCount(), 3);
    QCOMPARE(list.ListIndex(), -1);
    QCOMPARE(list.Text(), QString());
    QCOMPARE(click.count(), 0);
    QCOMPARE(changed.count(), 0);
}

void ListComboTest::adding_keeps_the_chosen_entry()
{
    ListCombo list;
    Fill(list);
    list.SetListIndex(2);
    list.AddItem(QStringLiteral("Hz"));
    QCOMPARE(list.ListIndex(), 2);
    QCOMPARE(list.Text(), QStringLiteral("A"));
}

void ListComboTest::clearing_is_silent()
{
    ListCombo list;
    Fill(list);
    list.SetListIndex(1);
    QSignalSpy click(&list, &ListCombo::Click);
    QSignalSpy changed(&list, &QComboBox::currentIndexChanged);
    list.ClearList();
    QCOMPARE(list.ListCount(), 0);
    QCOMPARE(list.ListIndex(), -1);
    QCOMPARE(click.count(), 0);
    QCOMPARE(changed.count(), 0);
    Fill(list);
    QCOMPARE(list.ListIndex(), -1);
}

void ListComboTest::setting_the_index_always_runs_click()
{
    ListCombo list;
    Fill(list);
    QList<int> seen;
    connect(&list, &ListCombo::Click, &list, [&] { seen.append(list.ListIndex()); });
    list.SetListIndex(1);
    list.SetListIndex(1);
    list.SetListIndex(0);
    list.SetListIndex(-1);
    QCOMPARE(seen, QList<int>({1, 1, 0, -1}));
}

void ListComboTest::the_index_has_to_exist()
{
    ListCombo list;
    QCOMPARE(ErrorOfIndex(list, 0), 5);
    Fill(list);
    list.SetListIndex(1);
    QSignalSpy click(&list, &ListCombo::Click);
    QCOMPARE(ErrorOfIndex(list, 3), 5);
    QCOMPARE(ErrorOfIndex(list, -2), 5);
    QCOMPARE(list.ListIndex(), 1);
    QCOMPARE(click.count(), 0);
}

void ListComboTest::a_user_s_choice_runs_click_once()
{
    ListCombo list;
    Fill(list);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QSignalSpy click(&list, &ListCombo::Click);
    ClickEntry(list, 2);
    QCOMPARE(list.ListIndex(), 2);
    QCOMPARE(click.count(), 1);
}

void ListComboTest::choosing_the_same_entry_runs_click()
{
    ListCombo list;
    Fill(list);
    list.SetListIndex(1);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QSignalSpy click(&list, &ListCombo::Click);
    ClickEntry(list, 1);
    QCOMPARE(click.count(), 1);
}

void ListComboTest::an_arrow_key_runs_click_once()
{
    ListCombo list;
    Fill(list);
    list.SetListIndex(1);
    QSignalSpy click(&list, &ListCombo::Click);
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(list.ListIndex(), 2);
    QCOMPARE(click.count(), 1);
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(click.count(), 1); // the last entry: nothing changed
    QTest::keyClick(&list, Qt::Key_Up);
    QCOMPARE(list.ListIndex(), 1);
    QCOMPARE(click.count(), 2);
}

void ListComboTest::enter_is_reported_and_goes_no_further()
{
    DefaultButtonDialogue dialogue;
    ListCombo list;
    Fill(list);
    list.SetListIndex(1);
    QVERIFY(dialogue.Show(list));
    QSignalSpy click(&list, &ListCombo::Click);
    QList<int> keys;
    connect(&list, &ListCombo::KeyPress, &list, [&keys](int &key) { keys.append(key); });
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(keys, QList<int>({13, 13}));
    QCOMPARE(dialogue.Clicks.count(), 0);
    QCOMPARE(click.count(), 0);
    QVERIFY(dialogue.Dialog.isVisible());
    dialogue.PressReturnElsewhere();
    QCOMPARE(dialogue.Clicks.count(), 1); // the dialogue does have a default button
}

void ListComboTest::other_keys_report_their_character_and_take_effect()
{
    ListCombo list;
    Fill(list);
    QList<int> keys;
    connect(&list, &ListCombo::KeyPress, &list, [&keys](int &key) { keys.append(key); });
    QSignalSpy click(&list, &ListCombo::Click);
    QTest::keyClick(&list, Qt::Key_A);
    QCOMPARE(keys, QList<int>{'a'});
    QCOMPARE(list.Text(), QStringLiteral("A")); // the toolkit looks the entry up
    QCOMPARE(click.count(), 1);
    QTest::keyClick(&list, Qt::Key_Up);
    QCOMPARE(keys, QList<int>{'a'}); // an arrow has no character
}

void ListComboTest::a_swallowed_key_has_no_effect()
{
    ListCombo list;
    Fill(list);
    connect(&list, &ListCombo::KeyPress, &list, [](int &key) { key = 0; });
    QSignalSpy click(&list, &ListCombo::Click);
    QTest::keyClick(&list, Qt::Key_A);
    QCOMPARE(list.ListIndex(), -1);
    QCOMPARE(click.count(), 0);
}

void ListComboTest::the_text_cannot_be_edited()
{
    ListCombo list;
    QVERIFY(!list.isEditable());
}

QTEST_MAIN(ListComboTest)
#include "tst_list_combo.moc"
