/// @file
/// The life of the frame with all its subsystems: load, commands, resize, and leaving by the close box.
#include "curve/lintab/Lintab.h"
#include "link/DeviceChoiceFrm.h"
#include "link/USB_FuncBox.h"
#include "platform/SettingsStore.h"
#include "project/SensorPropertyFrm.h"
#include "shell/ActiveProject.h"
#include "shell/FrameModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/FakeVisa.h"

#include <QActionGroup>
#include <QDockWidget>
#include <QSettings>
#include <QTest>

namespace {

constexpr int IndicatorDistance = 20; // 300 twips in pixels

QSettings Store()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Ostrakon"));
}

void PutSetting(const QString &section, const QString &key, const QString &value)
{
    WriteSetting(QStringLiteral("Ostrakon"), section, key, value);
}

void PutLanguage(const QString &value)
{
    PutSetting(QStringLiteral("Language"), QStringLiteral("Currentlang"), value);
}

/// The frame as the entry point makes it.
class LoadedFrame {
public:
    LoadedFrame()
    {
        MainForm = &frame;
        LoadFrame();
        frame.show();
    }

    ~LoadedFrame()
    {
        for (QMdiSubWindow *window : frame.Children->subWindowList())
            delete window;
        ResetAllTables();
        ResetProjectTreeModule();
        MainForm = nullptr;
    }

    LoadedFrame(const LoadedFrame &) = delete;
    LoadedFrame &operator=(const LoadedFrame &) = delete;

    /// The user's way to a project: New, and Done in the dialogue as it comes up.
    SensorProjFrm &NewProjectByMenu()
    {
        LinkUp = true;
        const BoxAnswers noBox;
        const WhenModal done(QStringLiteral("SensorPropertyFrm"), [](QWidget *dialog) {
            auto &form = *qobject_cast<SensorPropertyFrm *>(dialog);
            form.Txtname->setText(QStringLiteral("Load"));
            form.Combtype->SetListIndex(1);
            form.ComdEnter->click();
            if (form.isVisible())
                form.reject();
        });
        frame.mnuFileNew->trigger();
        return *ActiveProjectForm();
    }

    /// What the closing of a project asks, answered with OK.
    void CloseProject(int slot)
    {
        const BoxAnswers answers({QMessageBox::Ok});
        FormOfSlot(slot).close();
    }

    MainFrm frame;
};

QStringList NodeTexts()
{
    QStringList texts;
    for (int index = 1; index <= ProjectSheet->NodeCount(); ++index)
        texts.append(ProjectSheet->NodeAt(index)->text(0));
    return texts;
}

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

/// A line through two points, held by the curve library.
void BuildCurve()
{
    const CurvePoint points[] = {{0, 5}, {1, 5}};
    const CurveFlag flags[] = {{0, 1}, {0, 0}};
    SEN_NewBuild_Z(2, points, flags);
}

} // namespace

class FrameTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void a_first_run_is_english_and_stores_nothing();
    void the_stored_language_is_read_data();
    void the_stored_language_is_read();
    void a_damaged_language_is_told_and_english_stands_data();
    void a_damaged_language_is_told_and_english_stands();
    void damaged_io_settings_are_told_and_the_load_goes_on();
    void each_damaged_setting_is_told_on_its_own();
    void the_load_puts_all_tables_in_place();
    void commands_without_handler_are_out_of_sight();

    void the_first_tick_shows_the_panel();
    void indicators_keep_their_distance_from_the_right_edge();
    void indicators_go_with_the_status_bar();
    void the_status_panel_is_emptied_once();

    void view_items_show_and_hide_their_bars();
    void the_panel_s_command_hides_and_rebuilds_it();
    void the_panel_s_close_box_is_followed();
    void a_language_chosen_while_the_panel_is_hidden_reaches_it_when_shown();
    void the_language_commands_switch_at_once_and_store();
    void about_tells_the_version();

    void new_needs_a_link_data();
    void new_needs_a_link();
    void new_makes_a_project_with_all_that_belongs_to_it();
    void a_slot_taken_again_stands_last_in_the_tree();
    void a_project_made_behind_a_hidden_panel_appears_with_it();
    void controls_without_command_are_out_of_sight();
    void connect_and_disconnect_reach_the_instrument_data();
    void connect_and_disconnect_reach_the_instrument();
    void a_lost_instrument_is_noticed_by_the_watch();

    void horizontal_tiles_lie_one_above_the_other();
    void vertical_tiles_stand_side_by_side();
    void cascaded_windows_overlap();
    void minimised_windows_stay_out_of_the_tiles();
    void the_window_menu_lists_the_projects();

    void close_all_asks_once();
    void the_close_box_leaves_silently_without_projects();
    void the_close_box_asks_in_the_language_data();
    void the_close_box_asks_in_the_language();
    void a_cancel_keeps_the_program();
    void ok_closes_all_projects_without_more_questions();
    void a_run_that_the_user_keeps_keeps_the_frame();
    void a_run_that_the_user_ends_lets_the_frame_go();
    void the_frame_frees_the_curve();
};

void FrameTest::init()
{
    QSettings store = Store();
    store.clear();
    store.sync();
    FakeVisa::Reset();
    FakeVisa::State().Standing[QByteArray("*IDN?")] = QByteArray("ZEMRA Technologies,KV7050,0,1.0\n");
    Visa = &FakeVisa::Table();
}

void FrameTest::a_first_run_is_english_and_stores_nothing()
{
    {
        const LoadedFrame loaded;
        QCOMPARE(CurrentLanguage, 1);
        QCOMPARE(loaded.frame.mnuFileNew->text(), QStringLiteral("&New Project..."));
        QVERIFY(loaded.frame.mnuHelpLang_English->isChecked());
        QVERIFY(!loaded.frame.mnuHelpLang_Chinese->isChecked());
    }
    QCOMPARE(Store().allKeys(), QStringList());
}

void FrameTest::the_stored_language_is_read_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("newCaption");
    QTest::addColumn<bool>("chinese");
    QTest::newRow("Chinese") << "0" << 0 << "新建工程..." << true;
    QTest::newRow("English") << "1" << 1 << "&New Project..." << false;
    QTest::newRow("neither") << "2" << 2 << "&New Project..." << false;
}

void FrameTest::the_stored_language_is_read()
{
    QFETCH(const QString, stored);
    QFETCH(const int, language);
    QFETCH(const QString, newCaption);
    QFETCH(const bool, chinese);
    PutLanguage(stored);
    const LoadedFrame loaded;
    QCOMPARE(CurrentLanguage, language);
    QCOMPARE(loaded.frame.mnuFileNew->text(), newCaption);
    QCOMPARE(ProjectRootText, chinese ? QStringLiteral("工程组") : QStringLiteral("Project Group"));
    QCOMPARE(loaded.frame.mnuHelpLang_Chinese->isChecked(), chinese);
    QCOMPARE(loaded.frame.mnuHelpLang_English->isChecked(), !chinese);
}

void FrameTest::a_damaged_language_is_told_and_english_stands_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("told");
    QTest::newRow("no number") << "English"
                               << "Type mismatch";
    QTest::newRow("empty") << ""
                           << "Type mismatch";
    QTest::newRow("beyond 32 bits") << "4294967296"
                                    << "Overflow";
}

void FrameTest::a_damaged_language_is_told_and_english_stands()
{
    QFETCH(const QString, stored);
    QFETCH(const QString, told);
    PutLanguage(stored);
    BoxAnswers answers({QMessageBox::Ok});
    const LoadedFrame loaded;
    QCOMPARE(answers.Texts(), QStringList{told});
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
    QCOMPARE(CurrentLanguage, 1);
    QCOMPARE(loaded.frame.mnuFileNew->text(), QStringLiteral("&New Project..."));
    QVERIFY(DeviceChoiceForm != nullptr);
    QVERIFY(loaded.frame.TimeOutTimer->isActive());
}

void FrameTest::damaged_io_settings_are_told_and_the_load_goes_on()
{
    PutSetting(QStringLiteral("IOSetting"), QStringLiteral("IOType"), QStringLiteral("USB"));
    BoxAnswers answers({QMessageBox::Ok});
    const LoadedFrame loaded;
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("Type mismatch")});
    QCOMPARE(IOType, IOTypeUsb);
    // The commands behind it are connected.
    loaded.frame.mnuHelpLang_Chinese->trigger();
    QCOMPARE(loaded.frame.mnuFileNew->text(), QStringLiteral("新建工程..."));
}

void FrameTest::each_damaged_setting_is_told_on_its_own()
{
    PutLanguage(QStringLiteral("?"));
    PutSetting(QStringLiteral("RS232"), QStringLiteral("BaudRate"), QStringLiteral("fast"));
    PutSetting(QStringLiteral("IOSetting"), QStringLiteral("IOType"), QStringLiteral("2"));
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    const LoadedFrame loaded;
    QCOMPARE(answers.Shown().size(), 2);
    QCOMPARE(IOType, IOTypeRs232);
    QCOMPARE(CurrentLanguage, 1);
}

void FrameTest::the_load_puts_all_tables_in_place()
{
    ProjectOccupied.fill(true);
    Measuring = true;
    InstrumentSensorOn = true;
    OverloadAccepted = true;
    ClosingAll = true;
    WaveBackColour = 7;
    const LoadedFrame loaded;
    for (int slot = 0; slot < SlotCount; ++slot) {
        QVERIFY(!ProjectOccupied[slot]);
        QCOMPARE(ProjectSlots[slot].ChildCount, std::int16_t{3});
    }
    QVERIFY(!Measuring && !InstrumentSensorOn && !OverloadAccepted && !ClosingAll && !LinkUp);
    QCOMPARE(WaveBackColour, 0);
    QVERIFY(ProjectPanelVisible);
    QVERIFY(ProjectTreeFirstFill);
    QVERIFY(loaded.frame.picLED_OFF->isVisible());
    QVERIFY(!loaded.frame.picLED_ON->isVisible());
    QVERIFY(!loaded.frame.mnuFileCloseAllProjects->isEnabled());
    QCOMPARE(NodeTexts(), QStringList{QStringLiteral("Project Group")});
}

void FrameTest::commands_without_handler_are_out_of_sight()
{
    const LoadedFrame loaded;
    for (const char *name :
         {"mnuFileOpen", "mnuFileSave", "mnuFileSaveAs", "mnuFileSaveAllProject", "mnuToolsSensorOption",
          "mnuToolsEnableSensor", "mnuHelpContents", "mnuWindowArrangeIcons"})
        QVERIFY2(!loaded.frame.findChild<QAction *>(QString(name))->isVisible(), name);
    for (const char *key : {"Open", "Save", "Options", "Help"})
        QVERIFY2(!loaded.frame.ToolBarButton(QString(key))->isVisible(), key);
    for (const char *key : {"New", "Connect", "DisConnect", "TileHorizontal", "TileVertical", "CasadeWindows"})
        QVERIFY2(loaded.frame.ToolBarButton(QString(key))->isVisible(), key);
}

void FrameTest::the_first_tick_shows_the_panel()
{
    const LoadedFrame loaded;
    QVERIFY(!loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    QVERIFY(loaded.frame.TimerInit->isActive());
    QTRY_VERIFY(loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    QVERIFY(!loaded.frame.TimerInit->isActive());
    QTRY_COMPARE(ProjectSheet->width(), 200);
}

void FrameTest::indicators_keep_their_distance_from_the_right_edge()
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

void FrameTest::indicators_go_with_the_status_bar()
{
    const LoadedFrame loaded;
    loaded.frame.mnuViewStatusBar->trigger();
    QVERIFY(!loaded.frame.picLED_OFF->isVisible());
    loaded.frame.mnuViewStatusBar->trigger();
    QVERIFY(loaded.frame.picLED_OFF->isVisible());
}

void FrameTest::the_status_panel_is_emptied_once()
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

void FrameTest::view_items_show_and_hide_their_bars()
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

void FrameTest::the_panel_s_command_hides_and_rebuilds_it()
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

void FrameTest::the_panel_s_close_box_is_followed()
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

void FrameTest::a_language_chosen_while_the_panel_is_hidden_reaches_it_when_shown()
{
    const LoadedFrame loaded;
    loaded.frame.mnuViewProjectWindow->trigger();
    loaded.frame.mnuHelpLang_Chinese->trigger();
    QCOMPARE(ProjectRootText, QStringLiteral("Project Group"));
    loaded.frame.mnuViewProjectWindow->trigger();
    QCOMPARE(NodeTexts(), QStringList{QStringLiteral("工程组")});
    QCOMPARE(ProjectSheet->windowTitle(), QStringLiteral("工程"));
}

void FrameTest::the_language_commands_switch_at_once_and_store()
{
    LoadedFrame loaded;
    const SensorProjFrm &form = loaded.NewProjectByMenu();
    QCOMPARE(Store().allKeys(), QStringList());
    loaded.frame.mnuHelpLang_Chinese->trigger();
    QCOMPARE(CurrentLanguage, 0);
    QVERIFY(loaded.frame.mnuHelpLang_Chinese->isChecked());
    QVERIFY(!loaded.frame.mnuHelpLang_English->isChecked());
    QCOMPARE(Store().value(QStringLiteral("Language/Currentlang")).toString(), QStringLiteral("0"));
    QCOMPARE(form.RecordLumoBtn->Caption(), QStringLiteral("开始测量"));
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

void FrameTest::about_tells_the_version()
{
    const LoadedFrame loaded;
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    loaded.frame.mnuHelpAbout->trigger();
    CurrentLanguage = LanguageChinese;
    loaded.frame.mnuHelpAbout->trigger();
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("About Ostrakon For KV7000 Series"));
    QCOMPARE(answers.Shown()[1].Title, QStringLiteral("关于 Ostrakon For KV7000 Series"));
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::NoIcon);
    const QStringList lines = answers.Texts()[0].split(QStringLiteral("\r\n"));
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines[0], QStringLiteral("Version:00.04.00.00"));
    QVERIFY(!lines[2].isEmpty());
}

void FrameTest::new_needs_a_link_data()
{
    QTest::addColumn<bool>("byToolBar");
    QTest::newRow("menu") << false;
    QTest::newRow("toolbar") << true;
}

void FrameTest::new_needs_a_link()
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

void FrameTest::new_makes_a_project_with_all_that_belongs_to_it()
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

void FrameTest::a_slot_taken_again_stands_last_in_the_tree()
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

void FrameTest::a_project_made_behind_a_hidden_panel_appears_with_it()
{
    LoadedFrame loaded;
    loaded.frame.mnuViewProjectWindow->trigger();
    loaded.NewProjectByMenu();
    QCOMPARE(ProjectSheet->NodeCount(), 0);
    loaded.frame.mnuViewProjectWindow->trigger();
    QCOMPARE(ProjectSheet->NodeCount(), 5);
    QCOMPARE(ProjectSheet->NodeAt(2)->text(0), QStringLiteral("Project-1"));
}

void FrameTest::controls_without_command_are_out_of_sight()
{
    LoadedFrame loaded;
    const SensorProjFrm &form = loaded.NewProjectByMenu();
    for (const QWidget *control : std::initializer_list<const QWidget *>{
             form.ReplayFrame, form.DataFrame, form.PictureFrame, form.ColorRfLumoBtn, form.LabColor2,
             form.ColorLumoBtn, form.LabColor, form.ImportLumoBtn, form.ExportLumoBtn})
        QVERIFY2(control->isHidden(), qPrintable(control->objectName()));
    for (const QWidget *control :
         std::initializer_list<const QWidget *>{form.MeasureFrame, form.ZoomFrame, form.UndoLumoBtn})
        QVERIFY2(!control->isHidden(), qPrintable(control->objectName()));
}

void FrameTest::connect_and_disconnect_reach_the_instrument_data()
{
    QTest::addColumn<bool>("byToolBar");
    QTest::newRow("menu") << false;
    QTest::newRow("toolbar") << true;
}

void FrameTest::connect_and_disconnect_reach_the_instrument()
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

void FrameTest::a_lost_instrument_is_noticed_by_the_watch()
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

void FrameTest::horizontal_tiles_lie_one_above_the_other()
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

void FrameTest::vertical_tiles_stand_side_by_side()
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

void FrameTest::cascaded_windows_overlap()
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

void FrameTest::minimised_windows_stay_out_of_the_tiles()
{
    LoadedFrame loaded;
    for (int project = 1; project <= 2; ++project)
        loaded.NewProjectByMenu();
    ProjectForm[1]->showMinimized();
    loaded.frame.mnuWindowTileHorizontal->trigger();
    QVERIFY(ProjectForm[1]->isMinimized());
    QCOMPARE(ProjectForm[0]->geometry(), QRect(QPoint(0, 0), loaded.frame.Children->viewport()->size()));
}

void FrameTest::the_window_menu_lists_the_projects()
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

void FrameTest::close_all_asks_once()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    loaded.NewProjectByMenu();
    BoxAnswers answers({QMessageBox::Cancel, QMessageBox::Ok});
    loaded.frame.mnuFileCloseAllProjects->trigger();
    QCOMPARE(ProjectCount, std::int16_t{2});
    loaded.frame.mnuFileCloseAllProjects->trigger();
    QCOMPARE(ProjectCount, std::int16_t{0});
    QVERIFY(!ClosingAll);
    QVERIFY(loaded.frame.isVisible());
}

void FrameTest::the_close_box_leaves_silently_without_projects()
{
    LoadedFrame loaded;
    const BoxAnswers noBox;
    QVERIFY(loaded.frame.close());
    QVERIFY(!loaded.frame.isVisible());
    QCOMPARE(DeviceChoiceForm, nullptr);
    QVERIFY(!ClosingAll);
}

void FrameTest::the_close_box_asks_in_the_language_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    QTest::newRow("Chinese") << 0 << "当前操作会移除所有工程! "
                             << "警告";
    QTest::newRow("English") << 1 << "The action will remove all projects! "
                             << "Warning";
}

void FrameTest::the_close_box_asks_in_the_language()
{
    QFETCH(const int, language);
    QFETCH(const QString, text);
    QFETCH(const QString, title);
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    CurrentLanguage = language;
    BoxAnswers answers({QMessageBox::Cancel});
    QVERIFY(!loaded.frame.close());
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown()[0].Title, title);
    QCOMPARE(answers.Shown()[0].Buttons, QMessageBox::StandardButtons(QMessageBox::Ok | QMessageBox::Cancel));
}

void FrameTest::a_cancel_keeps_the_program()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    const BoxAnswers answers({QMessageBox::Cancel});
    QVERIFY(!loaded.frame.close());
    QVERIFY(loaded.frame.isVisible());
    QCOMPARE(ProjectCount, std::int16_t{1});
    QVERIFY(DeviceChoiceForm != nullptr);
    QVERIFY(!ClosingAll);
}

void FrameTest::ok_closes_all_projects_without_more_questions()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    loaded.NewProjectByMenu();
    const BoxAnswers answers({QMessageBox::Ok});
    QVERIFY(loaded.frame.close());
    QCOMPARE(ProjectCount, std::int16_t{0});
    QCOMPARE(DeviceChoiceForm, nullptr);
    QTRY_COMPARE(loaded.frame.Children->subWindowList().size(), 0);
    QVERIFY(!ClosingAll);
}

void FrameTest::a_run_that_the_user_keeps_keeps_the_frame()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    loaded.NewProjectByMenu();
    Measuring = true;
    ProjectForm[1]->EndLumoBtn->setEnabled(true);
    BoxAnswers answers({QMessageBox::Cancel});
    QVERIFY(!loaded.frame.close());
    QCOMPARE(answers.Texts(),
             QStringList{QStringLiteral("Measuring is running, the action will stop and remove this project! ")});
    QVERIFY(loaded.frame.isVisible());
    QCOMPARE(ProjectCount, std::int16_t{2});
    QVERIFY(Measuring);
    QVERIFY(!ClosingAll);
    // The next connect finds its dialogue, in the language of the program.
    QVERIFY(DeviceChoiceForm != nullptr);
    QCOMPARE(DeviceChoiceForm->BtOk->text(), QStringLiteral("OK"));
}

void FrameTest::a_run_that_the_user_ends_lets_the_frame_go()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    Measuring = true;
    ProjectForm[0]->EndLumoBtn->setEnabled(true);
    const BoxAnswers answers({QMessageBox::Ok});
    QVERIFY(loaded.frame.close());
    QVERIFY(!Measuring);
    QCOMPARE(ProjectCount, std::int16_t{0});
}

void FrameTest::the_frame_frees_the_curve()
{
    LoadedFrame loaded;
    BuildCurve();
    QCOMPARE(SEN_Meas_Z(0.5), 5.0);
    QVERIFY(loaded.frame.close());
    QCOMPARE(SEN_Meas_Z(0.5), 0.0); // no curve held
}

QTEST_MAIN(FrameTest)
#include "tst_frame.moc"
