/// @file
/// The frame before it is loaded: menus, toolbar and status bar stand as designed.
#include "shell/MainFrm.h"
#include "shell/MenuTable.h"
#include "support/ErrorOf.h"

#include <QMenuBar>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

namespace {

/// Separators that are never in sight, whose place within their menu is free.
const QStringList freeSeparators{QStringLiteral("mnuEditBar0"), QStringLiteral("mnuEditBar1"),
                                 QStringLiteral("mnuViewBar1"), QStringLiteral("mnuViewBar2")};

QStringList EntriesOf(const QWidget &menu)
{
    QStringList names;
    for (const QAction *entry : menu.actions())
        names.append(entry->menu() != nullptr ? entry->menu()->objectName() : entry->objectName());
    return names;
}

} // namespace

class FrameDesignTest : public QObject {
    Q_OBJECT

private slots:
    void menus_have_caption_and_sight_data();
    void menus_have_caption_and_sight();
    void the_menu_bar_stands_in_order();
    void the_items_of_a_menu_stand_in_order_data();
    void the_items_of_a_menu_stand_in_order();
    void every_item_stands_in_one_menu();
    void items_have_caption_key_and_sight_data();
    void items_have_caption_key_and_sight();
    void keys_of_what_is_out_of_sight_are_dead_data();
    void keys_of_what_is_out_of_sight_are_dead();
    void the_key_of_new_works();
    void view_items_start_with_a_check_mark();
    void toolbar_buttons_stand_in_order_with_key_and_tool_tip();
    void a_toolbar_button_tells_its_key();
    void the_frame_starts_as_designed();
    void the_frame_starts_within_the_screen();
};

void FrameDesignTest::menus_have_caption_and_sight_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("shown");
    for (const DesignedMenu &menu : DesignedMenus)
        QTest::newRow(menu.Name) << QString::fromLatin1(menu.Caption) << menu.Shown;
}

void FrameDesignTest::menus_have_caption_and_sight()
{
    QFETCH(const QString, caption);
    QFETCH(const bool, shown);
    const MainFrm frame;
    const auto *menu = frame.findChild<QMenu *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->title(), caption);
    // A pop-up menu of its own stands in no other.
    const QAction *entry = menu->menuAction();
    QCOMPARE(!entry->associatedObjects().isEmpty() && entry->isVisible(), shown);
}

void FrameDesignTest::the_menu_bar_stands_in_order()
{
    const MainFrm frame;
    QCOMPARE(EntriesOf(*frame.menuBar()).join(u' '),
             QStringLiteral("mnuFile mnuEdit mnuView mnuSettings mnuLibrary mnuTools mnuWindow mnuHelp"));
}

void FrameDesignTest::the_items_of_a_menu_stand_in_order_data()
{
    QTest::addColumn<QString>("entries");
    for (const DesignedMenu &menu : DesignedMenus)
        QTest::newRow(menu.Name) << QString::fromLatin1(menu.Entries);
}

void FrameDesignTest::the_items_of_a_menu_stand_in_order()
{
    const MainFrm frame;
    const auto *menu = frame.findChild<QMenu *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(menu != nullptr);
    QStringList entries = EntriesOf(*menu);
    for (const QString &separator : freeSeparators)
        entries.removeAll(separator);
    QTEST(entries.join(u' '), "entries");
}

void FrameDesignTest::every_item_stands_in_one_menu()
{
    const MainFrm frame;
    QStringList entries = EntriesOf(*frame.menuBar());
    for (const DesignedMenu &menu : DesignedMenus)
        entries += EntriesOf(*frame.findChild<QMenu *>(QString::fromLatin1(menu.Name)));
    for (const DesignedItem &item : DesignedItems)
        QVERIFY2(entries.count(QString::fromLatin1(item.Name)) == 1, item.Name);
    const QStringList edit = EntriesOf(*frame.mnuEdit);
    QVERIFY(edit.contains(freeSeparators[0]) && edit.contains(freeSeparators[1]));
    const QStringList view = EntriesOf(*frame.mnuView);
    QVERIFY(view.contains(freeSeparators[2]) && view.contains(freeSeparators[3]));
}

void FrameDesignTest::items_have_caption_key_and_sight_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("separator");
    QTest::addColumn<bool>("shown");
    for (const DesignedItem &item : DesignedItems) {
        const bool separator = item.Caption == nullptr;
        QTest::newRow(item.Name) << (separator ? QString() : QString::fromUtf8(item.Caption)) << QString(item.Key)
                                 << separator << item.Shown;
    }
}

void FrameDesignTest::items_have_caption_key_and_sight()
{
    QFETCH(const QString, caption);
    QFETCH(const QString, key);
    QFETCH(const bool, separator);
    QFETCH(const bool, shown);
    const MainFrm frame;
    const auto *item = frame.findChild<QAction *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(item != nullptr);
    QCOMPARE(item->isSeparator(), separator);
    QCOMPARE(item->text(), caption);
    QCOMPARE(item->shortcut().toString(QKeySequence::PortableText), key);
    QCOMPARE(item->isVisible(), shown);
}

void FrameDesignTest::keys_of_what_is_out_of_sight_are_dead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("key");
    QTest::newRow("print") << "mnuFilePrint" << int(Qt::Key_P);
    QTest::newRow("undo") << "mnuEditUndo" << int(Qt::Key_Z);
    QTest::newRow("redo") << "mnuEditRedo" << int(Qt::Key_Y);
    QTest::newRow("cut") << "mnuEditCut" << int(Qt::Key_X);
    QTest::newRow("copy") << "mnuEditCopy" << int(Qt::Key_C);
    QTest::newRow("paste") << "mnuEditPaste" << int(Qt::Key_V);
}

void FrameDesignTest::keys_of_what_is_out_of_sight_are_dead()
{
    QFETCH(const QString, name);
    QFETCH(const int, key);
    MainFrm frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    const QSignalSpy triggered(frame.findChild<QAction *>(name), &QAction::triggered);
    QTest::keyClick(&frame, static_cast<Qt::Key>(key), Qt::ControlModifier);
    QCOMPARE(triggered.count(), 0);
}

void FrameDesignTest::the_key_of_new_works()
{
    MainFrm frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    const QSignalSpy triggered(frame.mnuFileNew, &QAction::triggered);
    QTest::keyClick(&frame, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(triggered.count(), 1);
}

void FrameDesignTest::view_items_start_with_a_check_mark()
{
    const MainFrm frame;
    for (const QAction *item : {frame.mnuViewToolbar, frame.mnuViewStatusBar, frame.mnuViewProjectWindow})
        QVERIFY2(item->isCheckable() && item->isChecked(), qPrintable(item->objectName()));
}

void FrameDesignTest::toolbar_buttons_stand_in_order_with_key_and_tool_tip()
{
    struct Button {
        const char *Key;
        const char *ToolTip;
    };
    constexpr Button separator{"", ""};
    constexpr Button buttons[] = {{"New", "New"},
                                  {"Open", "Open"},
                                  {"Save", "Save"},
                                  separator,
                                  {"Connect", "Connect"},
                                  {"DisConnect", "DisConnect"},
                                  separator,
                                  {"Options", "Sensor property"},
                                  separator,
                                  {"TileHorizontal", "Tile Horizontal"},
                                  {"TileVertical", "Tile Vertical"},
                                  {"CasadeWindows", "Casade windows"},
                                  separator,
                                  {"Help", "Help"}};
    const MainFrm frame;
    const QList<QAction *> actions = frame.tbToolBar->actions();
    QCOMPARE(actions.size(), 14);
    for (qsizetype index = 0; index < actions.size(); ++index) {
        const Button &expected = buttons[index];
        QCOMPARE(actions[index]->objectName(), QString(expected.Key));
        QCOMPARE(actions[index]->isSeparator(), *expected.Key == '\0');
        if (actions[index]->isSeparator())
            continue;
        QCOMPARE(actions[index]->toolTip(), QString(expected.ToolTip));
        QCOMPARE(frame.ToolBarButton(QString(expected.Key)), actions[index]);
        QVERIFY2(!actions[index]->icon().pixmap(24).isNull(), expected.Key);
        QCOMPARE(actions[index]->icon().cacheKey(), frame.imlToolbarIcons->Image(QString(expected.Key)).cacheKey());
    }
}

void FrameDesignTest::a_toolbar_button_tells_its_key()
{
    MainFrm frame;
    const QSignalSpy keys(&frame, &MainFrm::ToolBarButtonClick);
    frame.ToolBarButton(QStringLiteral("CasadeWindows"))->trigger();
    QCOMPARE(keys.count(), 1);
    QCOMPARE(keys[0][0].toString(), QStringLiteral("CasadeWindows"));
    QCOMPARE(frame.ToolBarButton(QStringLiteral("Close")), nullptr);
}

void FrameDesignTest::the_frame_starts_as_designed()
{
    const MainFrm frame;
    QCOMPARE(frame.windowTitle(), QStringLiteral("Ostrakon For KV7000 Series"));
    QCOMPARE(frame.sbrStatus->PanelText(1), QStringLiteral("Status"));
    QCOMPARE(frame.sbrStatus->PanelOfKey(QStringLiteral("Status")), 1);
    QCOMPARE(frame.sbrStatus->PanelText(2), QStringLiteral("Unconnected"));
    QCOMPARE(frame.sbrStatus->PanelOfKey(QStringLiteral("ConnectStatus")), 2);
    QVERIFY(QDate::fromString(frame.sbrStatus->PanelText(3), Qt::ISODate).isValid());
    QVERIFY(QTime::fromString(frame.sbrStatus->PanelText(4), QStringLiteral("hh:mm")).isValid());
    QCOMPARE(ErrorOf([&frame] { frame.sbrStatus->PanelText(5); }), 9);
    QCOMPARE(frame.picLED_ON->toolTip(), QStringLiteral("Connection Status-[Connected]"));
    QCOMPARE(frame.picLED_OFF->toolTip(), QStringLiteral("Connection Status-[Disconnected]"));
    QCOMPARE(frame.CheckLinkTimer->interval(), 1000);
    QVERIFY(!frame.CheckLinkTimer->isActive());
    QCOMPARE(frame.CommTimer->interval(), 2000);
    QVERIFY(frame.CommTimer->isActive());
    QCOMPARE(frame.TimeOutTimer->interval(), 100);
    QCOMPARE(frame.TimerInit->interval(), 1);
    QVERIFY(!frame.TimerInit->isActive());
}

void FrameDesignTest::the_frame_starts_within_the_screen()
{
    const MainFrm frame;
    const QSize screen = frame.screen()->availableGeometry().size();
    // The designed size would not fit here, so that the test says something.
    QVERIFY(screen.width() < 1280 && screen.height() < 900);
    // With a title bar of 32 pixels and the thin borders that window managers draw.
    QVERIFY(frame.width() + 8 <= screen.width());
    QVERIFY(frame.height() + 40 <= screen.height());
    QVERIFY(frame.width() >= screen.width() - 40);
    QVERIFY(frame.height() >= screen.height() - 100);
}

QTEST_MAIN(FrameDesignTest)
#include "tst_frame_design.moc"
