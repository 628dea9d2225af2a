/// @file
/// The frame's commands for projects, windows and the instrument, by menu and toolbar.
#include "shell/FrameBench.h"

#include <QActionGroup>

#include <algorithm>

namespace {

QList<int> Sorted(QList<int> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

/// The entries that the window menu lists, separators left out.
QStringList ListedWindows(QMenu &menu)
{
    emit menu.aboutToShow();
    QStringList texts;
    for (const QAction *entry : menu.actions().mid(4)) {
        if (!entry->isSeparator())
            texts.append((entry->isChecked() ? QStringLiteral("* ") : QString()) + entry->text());
    }
    return texts;
}

} // namespace

class FrameCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void new_needs_a_link_data();
    void new_needs_a_link();
    void new_makes_a_project_with_all_that_belongs_to_it();
    void a_slot_taken_again_stands_last_in_the_tree();
    void a_project_made_behind_a_hidden_panel_appears_with_it();

    void connect_and_disconnect_reach_the_instrument_data();
    void connect_and_disconnect_reach_the_instrument();
    void a_lost_instrument_is_noticed_by_the_watch();

    void horizontal_tiles_lie_one_above_the_other();
    void vertical_tiles_stand_side_by_side();
    void cascaded_windows_overlap();
    void minimised_windows_stay_out_of_the_tiles();
    void the_window_menu_lists_the_projects();
};

void FrameCommandsTest::new_needs_a_link_data()
{
    QTest::addColumn<bool>("byToolBar");
    QTest::newRow("menu") << false;
    QTest::newRow("toolbar") << true;
}

void FrameCommandsTest::new_needs_a_link()
{
    QFETCH(const bool, byToolBar);
    const LoadedFrame loaded;
    BoxAnswers answers({QMessageBox::Ok});
    if (byToolBar)
        loaded.frame.ToolBarButton(QStringLiteral("New"))->trigger();
    else
        loaded.frame.mnuFileNew->trigger();
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("Please connect to the instrument! ")});
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
    QCOMPARE(ProjectCount, std::int16_t{0});
}

void FrameCommandsTest::new_makes_a_project_with_all_that_belongs_to_it()
{
    LoadedFrame loaded;
    const SensorProjFrm &form = loaded.NewProjectByMenu();
    QCOMPARE(form.Tag, QStringLiteral("0"));
    QCOMPARE(form.windowTitle(), QStringLiteral("Project-1"));
    QCOMPARE(NodeTexts(), (QStringList{QStringLiteral("Project Group"), QStringLiteral("Project-1"),
                                       QStringLiteral("Reference Curve"), QStringLiteral("Edit Data"),
                                       QStringLiteral("Measure Curve")}));
    QCOMPARE(ProjectSlots[0].NodeIndex, std::int16_t{2});
    QVERIFY(loaded.frame.mnuFileCloseAllProjects->isEnabled());
    QVERIFY(loaded.frame.ToolBarButton(QStringLiteral("TileVertical"))->isEnabled());
    loaded.CloseProject(0);
    QVERIFY(!loaded.frame.mnuFileCloseAllProjects->isEnabled());
    QVERIFY(!loaded.frame.ToolBarButton(QStringLiteral("TileVertical"))->isEnabled());
    QCOMPARE(NodeTexts(), QStringList{QStringLiteral("Project Group")});
}

void FrameCommandsTest::a_slot_taken_again_stands_last_in_the_tree()
{
    LoadedFrame loaded;
    for (int project = 1; project <= 3; ++project)
        loaded.NewProjectByMenu();
    loaded.CloseProject(1);
    QCOMPARE(ProjectSlots[0].NodeIndex, std::int16_t{2});
    QCOMPARE(ProjectSlots[2].NodeIndex, std::int16_t{6});
    loaded.NewProjectByMenu();
    QCOMPARE(ActiveSlot(), 1);
    QCOMPARE(ProjectSlots[1].NodeIndex, std::int16_t{10});
    QCOMPARE(ProjectSheet->NodeAt(6)->text(0), QStringLiteral("Project-3"));
    QCOMPARE(ProjectSheet->NodeAt(10)->text(0), QStringLiteral("Project-2"));
}

void FrameCommandsTest::a_project_made_behind_a_hidden_panel_appears_with_it()
{
    LoadedFrame loaded;
    loaded.frame.mnuViewProjectWindow->trigger();
    loaded.NewProjectByMenu();
    QCOMPARE(ProjectSheet->NodeCount(), 0);
    loaded.frame.mnuViewProjectWindow->trigger();
    QCOMPARE(ProjectSheet->NodeCount(), 5);
    QCOMPARE(ProjectSheet->NodeAt(2)->text(0), QStringLiteral("Project-1"));
}

void FrameCommandsTest::connect_and_disconnect_reach_the_instrument_data()
{
    QTest::addColumn<bool>("byToolBar");
    QTest::newRow("menu") << false;
    QTest::newRow("toolbar") << true;
}

void FrameCommandsTest::connect_and_disconnect_reach_the_instrument()
{
    QFETCH(const bool, byToolBar);
    const LoadedFrame loaded;
    const auto run = [&](QAction *item, const char *key) {
        (byToolBar ? loaded.frame.ToolBarButton(QString(key)) : item)->trigger();
    };
    run(loaded.frame.mnuToolsConnect, "Connect");
    QVERIFY(LinkUp);
    QCOMPARE(InstrumentKind, InstrumentKindKV7050);
    QCOMPARE(loaded.frame.sbrStatus->PanelText(2), QStringLiteral("Connect"));
    QVERIFY(loaded.frame.picLED_ON->isVisible());
    QVERIFY(loaded.frame.mnuToolsConnect->isEnabled());
    run(loaded.frame.mnuToolsDisconnect, "DisConnect");
    QVERIFY(!LinkUp);
    QCOMPARE(loaded.frame.sbrStatus->PanelText(2), QStringLiteral("Unconnected"));
    QVERIFY(loaded.frame.picLED_OFF->isVisible());
}

void FrameCommandsTest::a_lost_instrument_is_noticed_by_the_watch()
{
    const LoadedFrame loaded;
    loaded.frame.mnuToolsConnect->trigger();
    QVERIFY(loaded.frame.CheckLinkTimer->isActive());
    FakeVisa::Unplug();
    BoxAnswers answers({QMessageBox::Ok});
    loaded.frame.CheckLinkTimer->start(1);
    QTRY_VERIFY(!LinkUp);
    QTRY_VERIFY(!loaded.frame.CheckLinkTimer->isActive());
    QCOMPARE(answers.Left(), 0);
}

void FrameCommandsTest::horizontal_tiles_lie_one_above_the_other()
{
    LoadedFrame loaded;
    for (int project = 1; project <= 3; ++project)
        loaded.NewProjectByMenu();
    loaded.frame.ToolBarButton(QStringLiteral("TileHorizontal"))->trigger();
    const QSize area = loaded.frame.Children->viewport()->size();
    QList<int> tops;
    int heights = 0;
    for (const QMdiSubWindow *window : loaded.frame.Children->subWindowList()) {
        QVERIFY(!window->isMaximized());
        QCOMPARE(window->x(), 0);
        QCOMPARE(window->width(), area.width());
        tops.append(window->y());
        heights += window->height();
    }
    QCOMPARE(Sorted(tops), (QList<int>{0, area.height() / 3, area.height() * 2 / 3}));
    QCOMPARE(heights, area.height());
}

void FrameCommandsTest::vertical_tiles_stand_side_by_side()
{
    LoadedFrame loaded;
    for (int project = 1; project <= 2; ++project)
        loaded.NewProjectByMenu();
    loaded.frame.mnuWindowTileVertical->trigger();
    const QSize area = loaded.frame.Children->viewport()->size();
    QList<int> lefts;
    int widths = 0;
    for (const QMdiSubWindow *window : loaded.frame.Children->subWindowList()) {
        QCOMPARE(window->y(), 0);
        QCOMPARE(window->height(), area.height());
        lefts.append(window->x());
        widths += window->width();
    }
    QCOMPARE(Sorted(lefts), (QList<int>{0, area.width() / 2}));
    QCOMPARE(widths, area.width());
}

void FrameCommandsTest::cascaded_windows_overlap()
{
    LoadedFrame loaded;
    for (int project = 1; project <= 2; ++project)
        loaded.NewProjectByMenu();
    loaded.frame.ToolBarButton(QStringLiteral("CasadeWindows"))->trigger();
    const QList<QMdiSubWindow *> windows = loaded.frame.Children->subWindowList();
    QVERIFY(!windows[0]->isMaximized() && !windows[1]->isMaximized());
    QVERIFY(windows[0]->pos() != windows[1]->pos());
    QVERIFY(windows[0]->geometry().intersects(windows[1]->geometry()));
}

void FrameCommandsTest::minimised_windows_stay_out_of_the_tiles()
{
    LoadedFrame loaded;
    for (int project = 1; project <= 2; ++project)
        loaded.NewProjectByMenu();
    ProjectForm[1]->showMinimized();
    loaded.frame.mnuWindowTileHorizontal->trigger();
    QVERIFY(ProjectForm[1]->isMinimized());
    QCOMPARE(ProjectForm[0]->geometry(), QRect(QPoint(0, 0), loaded.frame.Children->viewport()->size()));
}

void FrameCommandsTest::the_window_menu_lists_the_projects()
{
    LoadedFrame loaded;
    QCOMPARE(ListedWindows(*loaded.frame.mnuWindow), QStringList());
    loaded.NewProjectByMenu();
    loaded.NewProjectByMenu();
    QCOMPARE(ListedWindows(*loaded.frame.mnuWindow),
             (QStringList{QStringLiteral("&1 Project-1"), QStringLiteral("* &2 Project-2")}));
    auto *list = loaded.frame.mnuWindow->findChild<QActionGroup *>();
    list->actions()[1]->trigger(); // behind the separator
    QCOMPARE(ActiveSlot(), 0);
    loaded.CloseProject(0);
    QCOMPARE(ListedWindows(*loaded.frame.mnuWindow), QStringList{QStringLiteral("* &1 Project-2")});
}

QTEST_MAIN(FrameCommandsTest)
#include "tst_frame_commands.moc"
