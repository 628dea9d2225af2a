/// @file
/// Which commands are enabled with and without an open project, and where the check marks stand.
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "shell/SystemStatus.h"
#include "support/BareFrame.h"

#include <QTest>

namespace {

/// Whether a command is enabled as it was set. The toolkit disables whatever is out of sight, so it is brought into
/// sight for the look.
bool EnabledAsSet(QAction &command)
{
    const bool shown = command.isVisible();
    command.setVisible(true);
    const bool enabled = command.isEnabled();
    command.setVisible(shown);
    return enabled;
}

void UpdateBoth()
{
    UpdateToolbarState();
    UpdateMenuState();
}

} // namespace

class SystemStatusTest : public QObject {
    Q_OBJECT

private slots:
    void commands_follow_the_number_of_projects_data();
    void commands_follow_the_number_of_projects();
    void other_commands_are_always_enabled_data();
    void other_commands_are_always_enabled();
    void link_and_run_change_nothing();
    void check_marks_follow_panel_and_language_data();
    void check_marks_follow_panel_and_language();
    void closing_the_last_project_counts_whatever_window_is_active();
    void the_panel_s_own_close_box_puts_the_check_mark_out();
};

void SystemStatusTest::commands_follow_the_number_of_projects_data()
{
    QTest::addColumn<bool>("inToolBar");
    QTest::addColumn<bool>("some");
    for (const char *button : {"Save", "Options", "TileHorizontal", "TileVertical", "CasadeWindows"})
        QTest::newRow(button) << true << true;
    for (const char *item :
         {"mnuFileSave", "mnuFileSaveAs", "mnuFileSaveAllProject", "mnuFileCloseAllProjects", "mnuSettingsSensorOption",
          "mnuToolsEnableSensor", "mnuToolsSensorOption", "mnuWindowTileHorizontal", "mnuWindowTileVertical",
          "mnuWindowArrangeIcons", "mnuWindowCascade"})
        QTest::newRow(item) << false << true;
    for (const char *item :
         {"mnuSettingsArithmeticSetting", "mnuSettingsUserDefine", "mnuSettingsCommand", "mnuSettingsIO"})
        QTest::newRow(item) << false << false;
}

void SystemStatusTest::commands_follow_the_number_of_projects()
{
    QFETCH(const bool, inToolBar);
    QFETCH(const bool, some);
    BareFrame bare;
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QAction *command = inToolBar ? bare.frame.ToolBarButton(name) : bare.frame.findChild<QAction *>(name);
    QVERIFY(command != nullptr);
    UpdateBoth();
    QCOMPARE(EnabledAsSet(*command), false);
    for (const std::int16_t count : {std::int16_t{1}, std::int16_t{10}}) {
        ProjectCount = count;
        UpdateBoth();
        QCOMPARE(EnabledAsSet(*command), some);
    }
    ProjectCount = 0;
    UpdateBoth();
    QCOMPARE(EnabledAsSet(*command), false);
}

void SystemStatusTest::other_commands_are_always_enabled_data()
{
    QTest::addColumn<bool>("inToolBar");
    for (const char *button : {"New", "Open", "Connect", "DisConnect", "Help"})
        QTest::newRow(button) << true;
    for (const char *item : {"mnuFileNew", "mnuFileOpen", "mnuToolsConnect", "mnuToolsDisconnect"})
        QTest::newRow(item) << false;
}

void SystemStatusTest::other_commands_are_always_enabled()
{
    QFETCH(const bool, inToolBar);
    BareFrame bare;
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QAction *command = inToolBar ? bare.frame.ToolBarButton(name) : bare.frame.findChild<QAction *>(name);
    QVERIFY(command != nullptr);
    for (const bool link : {false, true}) {
        LinkUp = link;
        for (const std::int16_t count : {std::int16_t{0}, std::int16_t{1}}) {
            ProjectCount = count;
            UpdateBoth();
            QVERIFY(command->isEnabled());
        }
    }
}

void SystemStatusTest::link_and_run_change_nothing()
{
    BareFrame bare;
    ProjectCount = 1;
    LinkUp = true;
    Measuring = true;
    UpdateBoth();
    QVERIFY(bare.frame.mnuFileSave->isEnabled());
    QVERIFY(bare.frame.mnuToolsEnableSensor->isEnabled());
    LinkUp = false;
    Measuring = false;
    UpdateBoth();
    QVERIFY(bare.frame.mnuToolsEnableSensor->isEnabled());
}

void SystemStatusTest::check_marks_follow_panel_and_language_data()
{
    QTest::addColumn<bool>("panel");
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("count");
    for (const bool panel : {false, true}) {
        for (const int language : {0, 1, 2, -1}) {
            for (const int count : {0, 1})
                QTest::addRow("panel %d, language %d, %d projects", panel, language, count)
                    << panel << language << count;
        }
    }
}

void SystemStatusTest::check_marks_follow_panel_and_language()
{
    QFETCH(const bool, panel);
    QFETCH(const int, language);
    QFETCH(const int, count);
    BareFrame bare;
    ProjectPanelVisible = panel;
    CurrentLanguage = language;
    ProjectCount = static_cast<std::int16_t>(count);
    UpdateMenuState();
    QCOMPARE(bare.frame.mnuViewProjectWindow->isChecked(), panel);
    QCOMPARE(bare.frame.mnuHelpLang_Chinese->isChecked(), language == 0);
    QCOMPARE(bare.frame.mnuHelpLang_English->isChecked(), language != 0);
}

void SystemStatusTest::closing_the_last_project_counts_whatever_window_is_active()
{
    BareFrame bare;
    bare.AddProject(0);
    UpdateBoth();
    QVERIFY(bare.frame.mnuFileSave->isEnabled());
    // The window still stands, only the table counts.
    ProjectCount = 0;
    UpdateBoth();
    QVERIFY(!bare.frame.mnuFileSave->isEnabled());
    QVERIFY(!bare.frame.mnuWindowCascade->isEnabled());
    // No window is active, and yet a project is open.
    bare.frame.Children->setActiveSubWindow(nullptr);
    ProjectCount = 1;
    UpdateBoth();
    QVERIFY(bare.frame.mnuFileSave->isEnabled());
}

void SystemStatusTest::the_panel_s_own_close_box_puts_the_check_mark_out()
{
    BareFrame bare;
    ResetProjectTreeModule();
    ProjectSheet = new ProjectSheetFrm(&bare.frame);
    LoadProjectSheet();
    ProjectPanelVisible = true;
    UpdateMenuState();
    QVERIFY(bare.frame.mnuViewProjectWindow->isChecked());
    UnloadProjectSheet();
    QVERIFY(!ProjectPanelVisible);
    QVERIFY(!bare.frame.mnuViewProjectWindow->isChecked());
    ResetProjectTreeModule();
}

QTEST_MAIN(SystemStatusTest)
#include "tst_system_status.moc"
