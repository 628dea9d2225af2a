/// @file
/// Bars, project panel and indicators of the frame, and its commands for sight and language.
#include "curve/ReferenceListModule.h"
#include "link/DeviceChoiceFrm.h"
#include "shell/FrameBench.h"
#include "support/PutRow.h"

#include <QDockWidget>
#include <QMenuBar>

#include <functional>

namespace {

constexpr int IndicatorDistance = 20; // 300 twips in pixels

/// Counts the context menus that any widget is asked for.
class ContextMenuCounter : public QObject {
public:
    explicit ContextMenuCounter(int &count) : m_count(count) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_count += watched->isWidgetType() && event->type() == QEvent::ContextMenu ? 1 : 0;
        return false;
    }

private:
    int &m_count;
};

} // namespace

class FrameViewTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void the_first_tick_shows_the_panel();
    void the_first_tick_leaves_a_hidden_panel_hidden();
    void the_frame_has_no_context_menu_data();
    void the_frame_has_no_context_menu();
    void indicators_keep_their_distance_from_the_right_edge();
    void indicators_go_with_the_status_bar();
    void the_status_panel_is_emptied_once();

    void view_items_show_and_hide_their_bars();
    void the_panel_s_command_hides_and_rebuilds_it();
    void the_panel_s_close_box_is_followed();
    void a_language_chosen_while_the_panel_is_hidden_reaches_it_when_shown();
    void the_language_commands_switch_at_once_and_store();
    void about_tells_the_version();
};

void FrameViewTest::the_first_tick_shows_the_panel()
{
    LoadedFrame loaded;
    QVERIFY(!loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    QVERIFY(loaded.frame.TimerInit->isActive());
    QTRY_VERIFY(loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    QVERIFY(!loaded.frame.TimerInit->isActive());
    QTRY_COMPARE(ProjectSheet->width(), 200);
    auto *dock = loaded.frame.findChild<QDockWidget *>(QStringLiteral("ProjectSheet"));
    QVERIFY(dock != nullptr);
    QCOMPARE(dock->widget(), ProjectSheet);
    QCOMPARE(loaded.frame.dockWidgetArea(dock), Qt::LeftDockWidgetArea);
}

void FrameViewTest::the_first_tick_leaves_a_hidden_panel_hidden()
{
    const LoadedFrame loaded;
    QVERIFY(loaded.frame.TimerInit->isActive());
    ProjectPanelVisible = false;
    QTRY_VERIFY(!loaded.frame.TimerInit->isActive());
    QVERIFY(!loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
}

void FrameViewTest::the_frame_has_no_context_menu_data()
{
    QTest::addColumn<std::function<QPoint(const MainFrm &)>>("place");
    using Place = std::function<QPoint(const MainFrm &)>;
    const auto end = [](const QWidget *bar, const MainFrm &frame) {
        return bar->mapTo(&frame, QPoint(bar->width() - 30, bar->height() / 2));
    };
    QTest::newRow("menu bar") << Place([end](const MainFrm &frame) { return end(frame.menuBar(), frame); });
    QTest::newRow("toolbar") << Place([end](const MainFrm &frame) { return end(frame.tbToolBar, frame); });
    QTest::newRow("toolbar button") << Place([](const MainFrm &frame) {
        const QRect button = frame.tbToolBar->actionGeometry(frame.ToolBarButton(QStringLiteral("New")));
        return frame.tbToolBar->mapTo(&frame, button.center());
    });
    QTest::newRow("title of the panel") << Place([](const MainFrm &frame) {
        return frame.findChild<QDockWidget *>(ProjectSheetPanel)->mapTo(&frame, QPoint(20, 8));
    });
    QTest::newRow("status bar") << Place([end](const MainFrm &frame) { return end(frame.sbrStatus, frame); });
}

void FrameViewTest::the_frame_has_no_context_menu()
{
    QFETCH(const std::function<QPoint(const MainFrm &)>, place);
    LoadedFrame loaded;
    QTRY_VERIFY(loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    QVERIFY(QTest::qWaitForWindowActive(&loaded.frame));
    int asked = 0;
    const ContextMenuCounter counter(asked);
    QTest::mouseClick(loaded.frame.windowHandle(), Qt::RightButton, Qt::NoModifier, place(loaded.frame));
    QVERIFY(asked > 0); // the click is one that can bring up a menu
    QCOMPARE(QApplication::activePopupWidget(), nullptr);
    QCOMPARE(loaded.frame.createPopupMenu(), nullptr);
}

void FrameViewTest::indicators_keep_their_distance_from_the_right_edge()
{
    LoadedFrame loaded;
    const auto distance = [&](const QWidget *indicator) {
        return loaded.frame.width() - indicator->mapTo(&loaded.frame, QPoint(0, 0)).x();
    };
    QTRY_VERIFY(!loaded.frame.TimerInit->isActive());
    QCOMPARE(distance(loaded.frame.picLED_OFF), IndicatorDistance);
    QCOMPARE(distance(loaded.frame.picLED_ON), IndicatorDistance);
    loaded.frame.resize(1401, 800);
    QTRY_COMPARE(loaded.frame.width(), 1401);
    QTRY_COMPARE(distance(loaded.frame.picLED_OFF), IndicatorDistance);
    loaded.frame.mnuViewProjectWindow->trigger();
    QVERIFY(!ProjectPanelVisible);
    loaded.frame.resize(1203, 800);
    QTRY_COMPARE(loaded.frame.width(), 1203);
    QTRY_COMPARE(distance(loaded.frame.picLED_OFF), IndicatorDistance);
    QCOMPARE(distance(loaded.frame.picLED_ON), IndicatorDistance);
    // Over the status bar, not beside it.
    const QPoint middle = loaded.frame.picLED_OFF->mapTo(&loaded.frame, loaded.frame.picLED_OFF->rect().center());
    QVERIFY(loaded.frame.sbrStatus->geometry().contains(middle));
}

void FrameViewTest::indicators_go_with_the_status_bar()
{
    const LoadedFrame loaded;
    loaded.frame.mnuViewStatusBar->trigger();
    QVERIFY(!loaded.frame.picLED_OFF->isVisible());
    loaded.frame.mnuViewStatusBar->trigger();
    QVERIFY(loaded.frame.picLED_OFF->isVisible());
}

void FrameViewTest::the_status_panel_is_emptied_once()
{
    const LoadedFrame loaded;
    QCOMPARE(loaded.frame.sbrStatus->PanelText(1), QStringLiteral("Status"));
    QVERIFY(loaded.frame.CommTimer->isActive());
    QCOMPARE(loaded.frame.CommTimer->interval(), 2000);
    loaded.frame.CommTimer->start(1);
    QTRY_COMPARE(loaded.frame.sbrStatus->PanelText(1), QString());
    QVERIFY(!loaded.frame.CommTimer->isActive());
    QCOMPARE(loaded.frame.sbrStatus->PanelText(2), QStringLiteral("Unconnected"));
}

void FrameViewTest::view_items_show_and_hide_their_bars()
{
    const LoadedFrame loaded;
    loaded.frame.mnuViewToolbar->trigger();
    QVERIFY(!loaded.frame.mnuViewToolbar->isChecked());
    QVERIFY(!loaded.frame.tbToolBar->isVisible());
    loaded.frame.mnuViewToolbar->trigger();
    QVERIFY(loaded.frame.mnuViewToolbar->isChecked());
    QVERIFY(loaded.frame.tbToolBar->isVisible());
    loaded.frame.mnuViewStatusBar->trigger();
    QVERIFY(!loaded.frame.mnuViewStatusBar->isChecked());
    QVERIFY(!loaded.frame.sbrStatus->isVisible());
    loaded.frame.mnuViewStatusBar->trigger();
    QVERIFY(loaded.frame.sbrStatus->isVisible());
}

void FrameViewTest::the_panel_s_command_hides_and_rebuilds_it()
{
    LoadedFrame loaded;
    QTRY_VERIFY(loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    loaded.NewProjectByMenu();
    const QStringList before = NodeTexts();
    QCOMPARE(before.size(), 5);
    loaded.frame.mnuViewProjectWindow->trigger();
    QVERIFY(!ProjectPanelVisible);
    QVERIFY(!loaded.frame.mnuViewProjectWindow->isChecked());
    QVERIFY(!loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    loaded.frame.mnuViewProjectWindow->trigger();
    QVERIFY(ProjectPanelVisible);
    QVERIFY(loaded.frame.mnuViewProjectWindow->isChecked());
    QVERIFY(loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    QCOMPARE(NodeTexts(), before);
}

void FrameViewTest::the_panel_s_close_box_is_followed()
{
    const LoadedFrame loaded;
    QTRY_VERIFY(loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    auto *dock = loaded.frame.findChild<QDockWidget *>(ProjectSheetPanel);
    auto *box = dock->findChild<QAbstractButton *>(QStringLiteral("qt_dockwidget_closebutton"));
    QTRY_VERIFY(box->isVisible());
    QTest::mouseClick(box, Qt::LeftButton);
    QVERIFY(!ProjectPanelVisible);
    QVERIFY(!loaded.frame.mnuViewProjectWindow->isChecked());
    QCOMPARE(ProjectSheet->NodeCount(), 0);
    loaded.frame.mnuViewProjectWindow->trigger();
    QVERIFY(ProjectPanelVisible);
    QVERIFY(loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    QCOMPARE(NodeTexts(), QStringList{QStringLiteral("Project Group")});
}

void FrameViewTest::a_language_chosen_while_the_panel_is_hidden_reaches_it_when_shown()
{
    const LoadedFrame loaded;
    loaded.frame.mnuViewProjectWindow->trigger();
    loaded.frame.mnuHelpLang_Chinese->trigger();
    QCOMPARE(ProjectRootText, QStringLiteral("Project Group"));
    loaded.frame.mnuViewProjectWindow->trigger();
    QCOMPARE(NodeTexts(), QStringList{QStringLiteral("工程组")});
    QCOMPARE(ProjectSheet->windowTitle(), QStringLiteral("工程"));
}

void FrameViewTest::the_language_commands_switch_at_once_and_store()
{
    LoadedFrame loaded;
    const SensorProjFrm &form = loaded.NewProjectByMenu();
    PutRow(0, 1, 1, 1, true);
    RefreshReferenceLists();
    QCOMPARE(Store().allKeys(), QStringList());
    loaded.frame.mnuHelpLang_Chinese->trigger();
    QCOMPARE(CurrentLanguage, 0);
    QVERIFY(loaded.frame.mnuHelpLang_Chinese->isChecked());
    QVERIFY(!loaded.frame.mnuHelpLang_English->isChecked());
    QCOMPARE(Store().value(QStringLiteral("Language/Currentlang")).toString(), QStringLiteral("0"));
    QCOMPARE(form.RecordLumoBtn->Caption(), QStringLiteral("开始测量"));
    QCOMPARE(form.EditDataView->LineText(1, 4), QStringLiteral("线性插值"));
    QCOMPARE(ProjectSheet->NodeAt(4)->text(0), QStringLiteral("传感器数据编辑"));
    QCOMPARE(DeviceChoiceForm->LabelInfo->text(), QStringLiteral("请选择设备。"));
    loaded.frame.mnuHelpLang_English->trigger();
    QCOMPARE(CurrentLanguage, 1);
    QVERIFY(!loaded.frame.mnuHelpLang_Chinese->isChecked());
    QVERIFY(loaded.frame.mnuHelpLang_English->isChecked());
    QCOMPARE(Store().value(QStringLiteral("Language/Currentlang")).toString(), QStringLiteral("1"));
    QCOMPARE(form.RecordLumoBtn->Caption(), QStringLiteral("Start"));
    // The item of the language in force keeps its mark.
    loaded.frame.mnuHelpLang_English->trigger();
    QVERIFY(loaded.frame.mnuHelpLang_English->isChecked());
}

void FrameViewTest::about_tells_the_version()
{
    const LoadedFrame loaded;
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    loaded.frame.mnuHelpAbout->trigger();
    CurrentLanguage = LanguageChinese;
    loaded.frame.mnuHelpAbout->trigger();
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("About Ostrakon For KV7000 Series"));
    QCOMPARE(answers.Shown()[1].Title, QStringLiteral("关于 Ostrakon For KV7000 Series"));
    QCOMPARE(answers.Texts()[1], answers.Texts()[0]);
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::NoIcon);
    const QStringList lines = answers.Texts()[0].split(QStringLiteral("\r\n"));
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines[0], QStringLiteral("Version:00.04.00.00"));
    QVERIFY(!lines[2].isEmpty());
}

QTEST_MAIN(FrameViewTest)
#include "tst_frame_view.moc"
