/// @file
/// Minimised project windows, the row of them, and the list of windows in the menu.
#include "shell/ManyProjects.h"

#include <QActionGroup>

namespace {

/// Drags a window by a point of it.
void Drag(QWidget &window, QPoint grip, QPoint way)
{
    QTest::mousePress(&window, Qt::LeftButton, {}, grip);
    QTest::mouseMove(&window, grip + way);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, grip);
}

/// The entries that the window menu lists, separators left out.
QList<QAction *> ListedEntries(QMenu &menu)
{
    emit menu.aboutToShow();
    QList<QAction *> entries = menu.actions().mid(4);
    entries.removeIf([](const QAction *entry) { return entry->isSeparator(); });
    return entries;
}

QStringList ListedWindows(QMenu &menu)
{
    QStringList texts;
    for (const QAction *entry : ListedEntries(menu))
        texts.append((entry->isChecked() ? QStringLiteral("* ") : QString()) + entry->text());
    return texts;
}

} // namespace

class FrameWindowListTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void a_minimised_project_is_a_title_bar_that_can_be_dragged();
    void a_dragged_title_bar_stays_in_the_area();
    void the_buttons_of_a_title_bar_are_no_grip();
    void a_double_click_restores_a_minimised_project();
    void icons_stand_in_rows_along_the_lower_edge();
    void icons_leave_other_windows_alone();

    void the_window_menu_lists_the_projects();
    void ten_windows_have_ten_keys();
    void an_ampersand_in_a_name_is_no_key();
    void choosing_a_minimised_window_restores_it();
    void choosing_another_window_under_a_maximised_one_shows_it();
    void a_measured_project_stays_active_whatever_is_chosen();
};

void FrameWindowListTest::a_minimised_project_is_a_title_bar_that_can_be_dragged()
{
    ManyProjects loaded(2);
    loaded.Minimise({0, 1});
    SensorProjFrm &form = *ProjectForm[0];
    QVERIFY(form.Client->visibleRegion().isEmpty());
    QCOMPARE(form.height(), form.style()->pixelMetric(QStyle::PM_TitleBarHeight));
    const QPoint before = form.pos();
    const QPoint title(form.width() / 3, form.height() / 2);
    Drag(form, title, QPoint(200, -300));
    QCOMPARE(form.pos(), before + QPoint(200, -300));
    QVERIFY(form.isMinimized());
    loaded.frame.mnuWindowArrangeIcons->trigger();
    QCOMPARE(form.pos(), before);
}

void FrameWindowListTest::a_dragged_title_bar_stays_in_the_area()
{
    ManyProjects loaded(1);
    loaded.Minimise({0});
    SensorProjFrm &form = *ProjectForm[0];
    const QPoint title(form.width() / 3, form.height() / 2);
    Drag(form, title, QPoint(-5000, -5000));
    QCOMPARE(form.pos(), QPoint(0, 0));
    Drag(form, title, QPoint(5000, 5000));
    QCOMPARE(form.geometry().bottomRight(), QRect(QPoint(0, 0), loaded.Area()).bottomRight());
}

void FrameWindowListTest::the_buttons_of_a_title_bar_are_no_grip()
{
    ManyProjects loaded(1);
    loaded.Minimise({0});
    SensorProjFrm &form = *ProjectForm[0];
    const QPoint before = form.pos();
    for (const int fromRight : {12, 30, 50})
        Drag(form, QPoint(form.width() - fromRight, form.height() / 2), QPoint(100, -100));
    QCOMPARE(form.pos(), before);
}

void FrameWindowListTest::a_double_click_restores_a_minimised_project()
{
    ManyProjects loaded(1);
    ProjectForm[0]->showNormal();
    const QRect place = ProjectForm[0]->geometry();
    loaded.Minimise({0});
    QTest::mouseDClick(ProjectForm[0], Qt::LeftButton, {}, QPoint(60, 12));
    QVERIFY(!ProjectForm[0]->isMinimized());
    QCOMPARE(ProjectForm[0]->geometry(), place);
}

void FrameWindowListTest::icons_stand_in_rows_along_the_lower_edge()
{
    ManyProjects loaded(SlotCount);
    QList<int> all;
    for (int slot = 0; slot < SlotCount; ++slot)
        all.append(slot);
    loaded.Minimise(all);
    for (int slot = 0; slot < SlotCount; ++slot)
        ProjectForm[slot]->move(30 * slot, 20 * slot);
    loaded.frame.mnuWindowArrangeIcons->trigger();
    const QSize icon = ProjectForm[0]->size();
    const int inRow = loaded.Area().width() / icon.width();
    QVERIFY2(inRow > 1 && inRow < SlotCount, qPrintable(QDebug::toString(icon))); // so that there is a second row
    for (int slot = 0; slot < SlotCount; ++slot) {
        QVERIFY(ProjectForm[slot]->isMinimized());
        QCOMPARE(ProjectForm[slot]->x(), slot % inRow * icon.width());
        QCOMPARE(ProjectForm[slot]->y(), loaded.Area().height() - (slot / inRow + 1) * icon.height());
    }
}

void FrameWindowListTest::icons_leave_other_windows_alone()
{
    ManyProjects loaded(3);
    loaded.Minimise({0});
    const QList<QRect> before = loaded.Places();
    ProjectForm[0]->move(100, 100);
    loaded.frame.mnuWindowArrangeIcons->trigger();
    QCOMPARE(loaded.Places(), before);
    ProjectForm[2]->showMaximized();
    loaded.frame.mnuWindowArrangeIcons->trigger();
    QVERIFY(ProjectForm[2]->isMaximized());
}

void FrameWindowListTest::the_window_menu_lists_the_projects()
{
    ManyProjects loaded(0);
    QMenu &menu = *loaded.frame.mnuWindow;
    QCOMPARE(ListedWindows(menu), QStringList());
    loaded.NewProjectByMenu();
    loaded.NewProjectByMenu();
    QCOMPARE(ListedWindows(menu), (QStringList{QStringLiteral("&1 Project-1"), QStringLiteral("* &2 Project-2")}));
    QVERIFY(!ListedEntries(menu)[0]->actionGroup()->isExclusive()); // that would show a bullet for the mark
    ListedEntries(menu)[0]->trigger();
    QCOMPARE(ActiveSlot(), 0);
    QCOMPARE(ListedWindows(menu), (QStringList{QStringLiteral("* &1 Project-1"), QStringLiteral("&2 Project-2")}));
    loaded.CloseProject(0);
    QCOMPARE(ListedWindows(menu), QStringList{QStringLiteral("* &1 Project-2")});
    loaded.CloseProject(1);
    QCOMPARE(ListedWindows(menu), QStringList());
    QCOMPARE(menu.actions().size(), 4);
}

void FrameWindowListTest::ten_windows_have_ten_keys()
{
    ManyProjects loaded(SlotCount);
    QStringList keys;
    for (const QAction *entry : ListedEntries(*loaded.frame.mnuWindow))
        keys.append(QKeySequence::mnemonic(entry->text()).toString());
    QCOMPARE(keys.join(u' '), QStringLiteral("Alt+1 Alt+2 Alt+3 Alt+4 Alt+5 Alt+6 Alt+7 Alt+8 Alt+9 Alt+0"));
    QCOMPARE(ListedWindows(*loaded.frame.mnuWindow).last(), QStringLiteral("* 1&0 Project-10"));
}

void FrameWindowListTest::an_ampersand_in_a_name_is_no_key()
{
    ManyProjects loaded(1);
    ProjectForm[0]->setWindowTitle(QStringLiteral("Salt & Co"));
    QCOMPARE(ListedWindows(*loaded.frame.mnuWindow), QStringList{QStringLiteral("* &1 Salt && Co")});
}

void FrameWindowListTest::choosing_a_minimised_window_restores_it()
{
    ManyProjects loaded(3);
    loaded.frame.mnuWindowTileVertical->trigger();
    const QRect place = ProjectForm[1]->geometry();
    loaded.Minimise({1, 2});
    for (const int slot : {1, 2, 1}) {
        ListedEntries(*loaded.frame.mnuWindow)[slot]->trigger();
        QCOMPARE(ActiveSlot(), slot);
        QVERIFY(!ProjectForm[slot]->isMinimized());
        QVERIFY(ProjectForm[slot]->Client->isVisible());
    }
    QCOMPARE(ProjectForm[1]->geometry(), place);
}

void FrameWindowListTest::choosing_another_window_under_a_maximised_one_shows_it()
{
    ManyProjects loaded(3);
    loaded.Minimise({0});
    loaded.frame.Children->setActiveSubWindow(ProjectForm[2]);
    ProjectForm[2]->showMaximized();
    for (const int slot : {0, 1, 0}) {
        ListedEntries(*loaded.frame.mnuWindow)[slot]->trigger();
        QCOMPARE(ActiveSlot(), slot);
        QVERIFY(!ProjectForm[slot]->isMinimized());
    }
}

void FrameWindowListTest::a_measured_project_stays_active_whatever_is_chosen()
{
    ManyProjects loaded(2);
    loaded.frame.mnuWindowCascade->trigger();
    loaded.Minimise({0});
    loaded.frame.Children->setActiveSubWindow(ProjectForm[1]);
    Measuring = true;
    ProjectForm[1]->RecordLumoBtn->setEnabled(false);
    ListedEntries(*loaded.frame.mnuWindow)[0]->trigger();
    QCOMPARE(ActiveSlot(), 1);
    QVERIFY(ProjectForm[0]->isMinimized());
    for (const Arrangement &command : {Arrangement(Cascade), Arrangement(Horizontally), Arrangement(Vertically)}) {
        command(loaded.frame)->trigger();
        QCOMPARE(ActiveSlot(), 1);
    }
    Measuring = false;
}

QTEST_MAIN(FrameWindowListTest)
#include "tst_frame_window_list.moc"
