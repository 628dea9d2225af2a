/// @file
/// The frame's commands that arrange its project windows: cascade and the two tilings.
#include "shell/ManyProjects.h"

namespace {

/// How much of an area so many rectangles cover, which do not overlap.
int Covered(const QList<QRect> &places)
{
    QRegion region;
    int sum = 0;
    for (const QRect &place : places) {
        region += place;
        sum += place.width() * place.height();
    }
    int covered = 0;
    for (const QRect &part : region)
        covered += part.width() * part.height();
    return covered == sum ? covered : -1;
}

} // namespace

class FrameWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void a_new_project_has_a_usable_normal_size();

    void cascaded_windows_step_down_from_the_corner_data();
    void cascaded_windows_step_down_from_the_corner();
    void the_active_window_lies_on_top_of_the_cascade();
    void a_cascade_comes_out_the_same_each_time();

    void horizontal_tiles_lie_one_above_the_other();
    void vertical_tiles_stand_side_by_side();
    void tiles_fill_the_area_data();
    void tiles_fill_the_area();
    void many_tiles_stay_usable_data();
    void many_tiles_stay_usable();

    void an_arrangement_brings_windows_to_normal_size_data();
    void an_arrangement_brings_windows_to_normal_size();
    void an_arrangement_keeps_the_active_project_data();
    void an_arrangement_keeps_the_active_project();
    void an_arrangement_leaves_minimised_windows_and_their_room_data();
    void an_arrangement_leaves_minimised_windows_and_their_room();
    void an_arrangement_lays_the_pages_out_data();
    void an_arrangement_lays_the_pages_out();
    void an_arrangement_takes_any_size_of_the_frame_data();
    void an_arrangement_takes_any_size_of_the_frame();
    void an_arrangement_of_nothing_does_nothing_data();
    void an_arrangement_of_nothing_does_nothing();
};

void FrameWindowsTest::a_new_project_has_a_usable_normal_size()
{
    const ManyProjects loaded(2);
    ProjectForm[1]->showNormal();
    for (const int slot : {0, 1}) {
        // As designed, and not more than there is room for.
        QCOMPARE(ProjectForm[slot]->size(), QSize(833, 686).boundedTo(loaded.Area()));
        QVERIFY(QRect(QPoint(0, 0), loaded.Area()).intersects(ProjectForm[slot]->geometry()));
    }
}

void FrameWindowsTest::cascaded_windows_step_down_from_the_corner_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 2, 3, 10})
        QTest::addRow("%d windows", count) << count;
}

void FrameWindowsTest::cascaded_windows_step_down_from_the_corner()
{
    QFETCH(const int, count);
    ManyProjects loaded(count);
    loaded.frame.mnuWindowCascade->trigger();
    const QList<QRect> places = loaded.Places();
    const QPoint titleBar = ProjectForm[0]->Client->pos();
    QCOMPARE(places[0].topLeft(), QPoint(0, 0));
    for (int place = 0; place < count; ++place) {
        QVERIFY(QRect(QPoint(0, 0), loaded.Area()).contains(places[place]));
        QCOMPARE(places[place].size(), places[0].size());
        QVERIFY(places[place].width() > loaded.Area().width() / 2);
        QVERIFY(places[place].height() > loaded.Area().height() / 2);
        if (place == 0)
            continue;
        const QPoint step = places[place].topLeft() - places[place - 1].topLeft();
        QVERIFY(step.y() >= titleBar.y()); // the title of the window below is in sight
        QCOMPARE(step, places[1].topLeft());
    }
}

void FrameWindowsTest::the_active_window_lies_on_top_of_the_cascade()
{
    ManyProjects loaded(3);
    loaded.frame.Children->setActiveSubWindow(ProjectForm[0]);
    loaded.frame.mnuWindowCascade->trigger();
    QCOMPARE(ActiveSlot(), 0);
    QCOMPARE(loaded.frame.Children->subWindowList(QMdiArea::StackingOrder).last(), ProjectForm[0]);
    QVERIFY(ProjectForm[1]->y() < ProjectForm[2]->y());
    QVERIFY(ProjectForm[2]->y() < ProjectForm[0]->y());
}

void FrameWindowsTest::a_cascade_comes_out_the_same_each_time()
{
    ManyProjects loaded(3);
    loaded.frame.mnuWindowCascade->trigger();
    const QList<QRect> first = loaded.Places();
    ProjectForm[1]->setGeometry(300, 200, 400, 300);
    loaded.frame.mnuWindowCascade->trigger();
    QCOMPARE(loaded.Places(), first);
    loaded.frame.mnuWindowTileVertical->trigger();
    QVERIFY(loaded.Places() != first);
    loaded.frame.ToolBarButton(QStringLiteral("CasadeWindows"))->trigger();
    QCOMPARE(loaded.Places(), first);
}

void FrameWindowsTest::horizontal_tiles_lie_one_above_the_other()
{
    ManyProjects loaded(3);
    loaded.frame.ToolBarButton(QStringLiteral("TileHorizontal"))->trigger();
    const QSize area = loaded.Area();
    const int second = area.height() / 3;
    const int third = area.height() * 2 / 3;
    const QList<QRect> places{QRect(0, 0, area.width(), second), QRect(0, second, area.width(), third - second),
                              QRect(0, third, area.width(), area.height() - third)};
    QCOMPARE(loaded.Places(), places);
    loaded.frame.mnuWindowCascade->trigger();
    loaded.frame.mnuWindowTileHorizontal->trigger();
    QCOMPARE(loaded.Places(), places);
}

void FrameWindowsTest::vertical_tiles_stand_side_by_side()
{
    ManyProjects loaded(3);
    loaded.frame.ToolBarButton(QStringLiteral("TileVertical"))->trigger();
    const QSize area = loaded.Area();
    const int second = area.width() / 3;
    const int third = area.width() * 2 / 3;
    const QList<QRect> places{QRect(0, 0, second, area.height()), QRect(second, 0, third - second, area.height()),
                              QRect(third, 0, area.width() - third, area.height())};
    QCOMPARE(loaded.Places(), places);
    loaded.frame.mnuWindowCascade->trigger();
    loaded.frame.mnuWindowTileVertical->trigger();
    QCOMPARE(loaded.Places(), places);
}

void FrameWindowsTest::tiles_fill_the_area_data()
{
    QTest::addColumn<int>("count");
    for (int count = 1; count <= SlotCount; ++count)
        QTest::addRow("%d windows", count) << count;
}

void FrameWindowsTest::tiles_fill_the_area()
{
    QFETCH(const int, count);
    ManyProjects loaded(count);
    const QSize area = loaded.Area();
    loaded.frame.mnuWindowTileHorizontal->trigger();
    const QList<QRect> horizontal = loaded.Places();
    QCOMPARE(Covered(horizontal), area.width() * area.height());
    loaded.frame.mnuWindowTileVertical->trigger();
    const QList<QRect> vertical = loaded.Places();
    QCOMPARE(Covered(vertical), area.width() * area.height());
    QCOMPARE(horizontal == vertical, count == 1);
}

void FrameWindowsTest::many_tiles_stay_usable_data()
{
    QTest::addColumn<Arrangement>("command");
    QTest::newRow("horizontally") << Arrangement(Horizontally);
    QTest::newRow("vertically") << Arrangement(Vertically);
}

void FrameWindowsTest::many_tiles_stay_usable()
{
    QFETCH(const Arrangement, command);
    ManyProjects loaded(SlotCount);
    command(loaded.frame)->trigger();
    for (const QRect &place : loaded.Places()) {
        QVERIFY(place.width() >= 200);
        QVERIFY(place.height() >= 150);
    }
}

void FrameWindowsTest::an_arrangement_brings_windows_to_normal_size_data()
{
    AddArrangements();
}

void FrameWindowsTest::an_arrangement_brings_windows_to_normal_size()
{
    QFETCH(const Arrangement, command);
    ManyProjects loaded(2);
    QVERIFY(ProjectForm[1]->isMaximized());
    command(loaded.frame)->trigger();
    for (const int slot : {0, 1})
        QCOMPARE(ProjectForm[slot]->windowState() & (Qt::WindowMaximized | Qt::WindowMinimized), Qt::WindowStates());
    QCOMPARE(loaded.frame.windowTitle(), QStringLiteral("Ostrakon For KV7000 Series"));
}

void FrameWindowsTest::an_arrangement_keeps_the_active_project_data()
{
    QTest::addColumn<Arrangement>("command");
    QTest::addColumn<int>("slot");
    QTest::addColumn<QList<int>>("minimised");
    const std::pair<const char *, Arrangement> commands[] = {
        {"cascade", Cascade}, {"horizontally", Horizontally}, {"vertically", Vertically}, {"icons", Icons}};
    for (const auto &[name, command] : commands) {
        for (const int slot : {0, 1, 2}) {
            QTest::addRow("%s, project %d", name, slot + 1) << command << slot << QList<int>();
            QTest::addRow("%s, project %d, another minimised", name, slot + 1)
                << command << slot << QList<int>{(slot + 1) % 3};
            QTest::addRow("%s, project %d, minimised itself", name, slot + 1) << command << slot << QList<int>{slot};
        }
    }
}

void FrameWindowsTest::an_arrangement_keeps_the_active_project()
{
    QFETCH(const Arrangement, command);
    QFETCH(const int, slot);
    QFETCH(const QList<int>, minimised);
    ManyProjects loaded(3);
    if (!minimised.isEmpty())
        loaded.Minimise(minimised);
    loaded.frame.Children->setActiveSubWindow(ProjectForm[slot]);
    QCOMPARE(ActiveSlot(), slot);
    for (int other = 0; other < 3; ++other)
        QCOMPARE(ProjectForm[other]->isMinimized(), minimised.contains(other));
    int changes = 0;
    connect(loaded.frame.Children, &QMdiArea::subWindowActivated, this,
            [&](const QMdiSubWindow *window) { changes += window != nullptr && window != ProjectForm[slot] ? 1 : 0; });
    command(loaded.frame)->trigger();
    QCOMPARE(ActiveSlot(), slot);
    QCOMPARE(changes, 0);
}

void FrameWindowsTest::an_arrangement_leaves_minimised_windows_and_their_room_data()
{
    QTest::addColumn<Arrangement>("command");
    QTest::addColumn<QList<int>>("minimised");
    const std::pair<const char *, Arrangement> commands[] = {
        {"cascade", Cascade}, {"horizontally", Horizontally}, {"vertically", Vertically}};
    for (const auto &[name, command] : commands) {
        QTest::addRow("%s, one", name) << command << QList<int>{1};
        QTest::addRow("%s, all but one", name) << command << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8};
    }
}

void FrameWindowsTest::an_arrangement_leaves_minimised_windows_and_their_room()
{
    QFETCH(const Arrangement, command);
    QFETCH(const QList<int>, minimised);
    ManyProjects loaded(SlotCount);
    loaded.Minimise(minimised);
    const QList<QRect> before = loaded.Places();
    command(loaded.frame)->trigger();
    const QList<QRect> after = loaded.Places();
    for (int slot = 0; slot < SlotCount; ++slot) {
        QCOMPARE(ProjectForm[slot]->isMinimized(), minimised.contains(slot));
        if (!minimised.contains(slot))
            continue;
        QCOMPARE(after[slot], before[slot]);
        for (int other = 0; other < SlotCount; ++other)
            QVERIFY(other == slot || !after[slot].intersects(after[other]));
    }
}

void FrameWindowsTest::an_arrangement_lays_the_pages_out_data()
{
    AddArrangements();
}

void FrameWindowsTest::an_arrangement_lays_the_pages_out()
{
    QFETCH(const Arrangement, command);
    ManyProjects loaded(3);
    for (const int slot : {0, 1, 2}) {
        // Page 1 in the first window, 2 in the second, 3 in the third.
        loaded.frame.Children->setActiveSubWindow(ProjectForm[slot]);
        const ::TabStrip &strip = *ProjectForm[slot]->TabStrip;
        QTest::mouseClick(loaded.frame.windowHandle(), Qt::LeftButton, {},
                          strip.mapTo(&loaded.frame, strip.TabCentre(slot + 1)));
        QCOMPARE(strip.SelectedTab(), slot + 1);
    }
    command(loaded.frame)->trigger();
    const QList<QWidget *> pages{ProjectForm[0]->SpecifyCurvePic, ProjectForm[1]->EditDataPic,
                                 ProjectForm[2]->MeasWavePic};
    for (const int slot : {0, 1, 2}) {
        const SensorProjFrm &form = *ProjectForm[slot];
        QCOMPARE(form.TabStrip->size(), form.Client->size());
        QVERIFY(pages[slot]->isVisible());
        QCOMPARE(pages[slot]->width(), form.Client->width());
    }
    QCOMPARE(ProjectForm[1]->EditDataView->width(), ProjectForm[1]->Client->width());
    const PictureBox &curve = *ProjectForm[2]->PicTime_Value;
    QCOMPARE(curve.width() * 25, curve.height() * 60);
    QCOMPARE(curve.Image().size(), curve.size());
    QCOMPARE(curve.Image().pixel(curve.width() / 2, 0), qRgb(0, 255, 0)); // the graticule is drawn
}

void FrameWindowsTest::an_arrangement_takes_any_size_of_the_frame_data()
{
    AddArrangements();
}

void FrameWindowsTest::an_arrangement_takes_any_size_of_the_frame()
{
    QFETCH(const Arrangement, command);
    ManyProjects loaded(SlotCount);
    for (int tab = 1; tab <= 3; ++tab) {
        for (int slot = 0; slot < SlotCount; ++slot) {
            emit ProjectForm[slot]->TabStrip->Click(tab);
        }
        for (const QSize &size : {QSize(1280, 900), QSize(600, 400), QSize(400, 250), QSize(1, 1), QSize(1900, 1200)}) {
            loaded.frame.resize(size);
            QCoreApplication::processEvents();
            command(loaded.frame)->trigger();
            for (const SensorProjFrm *form : ProjectForm) {
                QCOMPARE(form->isMinimized() || form->isMaximized(), false);
                QCOMPARE(form->TabStrip->size(), form->Client->size());
            }
        }
    }
    QCOMPARE(Covered(loaded.Places()) > 0, command(loaded.frame) != loaded.frame.mnuWindowCascade);
}

void FrameWindowsTest::an_arrangement_of_nothing_does_nothing_data()
{
    AddArrangements();
    QTest::newRow("icons") << Arrangement(Icons);
}

void FrameWindowsTest::an_arrangement_of_nothing_does_nothing()
{
    QFETCH(const Arrangement, command);
    ManyProjects loaded(1);
    QAction *item = command(loaded.frame);
    loaded.Minimise({0});
    const QList<QRect> before = loaded.Places();
    if (item != loaded.frame.mnuWindowArrangeIcons)
        item->trigger(); // all windows are minimised
    QCOMPARE(loaded.Places(), before);
    loaded.CloseProject(0);
    const BoxAnswers noBox;
    item->setEnabled(true); // the enablement keeps it from being chosen
    item->trigger();
    QCOMPARE(loaded.Places(), QList<QRect>());
}

QTEST_MAIN(FrameWindowsTest)
#include "tst_frame_windows.moc"
