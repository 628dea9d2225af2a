/// @file
/// Which commands are enabled with and without an open project, and where the check marks stand.
#include "shell/EnablementTable.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "shell/SystemStatus.h"
#include "support/BareFrame.h"

#include <QTest>

namespace {

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
    void the_two_routines_keep_to_their_own_commands();
    void link_and_run_change_nothing_data();
    void link_and_run_change_nothing();
    void check_marks_follow_panel_and_language_data();
    void check_marks_follow_panel_and_language();
    void closing_the_last_project_counts_whatever_window_is_active();
    void the_panel_s_own_close_box_puts_the_check_mark_out();
};

void SystemStatusTest::commands_follow_the_number_of_projects_data()
{
    QTest::addColumn<bool>("inToolBar");
    QTest::addColumn<bool>("none");
    QTest::addColumn<bool>("some");
    for (const CommandState &command : CommandStates)
        QTest::newRow(command.Name) << command.InToolBar << command.None << command.Some;
}

void SystemStatusTest::commands_follow_the_number_of_projects()
{
    QFETCH(const bool, inToolBar);
    QFETCH(const bool, none);
    QFETCH(const bool, some);
    BareFrame bare;
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QAction *command = inToolBar ? bare.frame.ToolBarButton(name) : bare.frame.findChild<QAction *>(name);
    QVERIFY(command != nullptr);
    UpdateBoth();
    QCOMPARE(EnabledAsSet(*command), none);
    for (const std::int16_t count : {std::int16_t{1}, std::int16_t{10}}) {
        ProjectCount = count;
        UpdateBoth();
        QCOMPARE(EnabledAsSet(*command), some);
    }
    ProjectCount = 0;
    UpdateBoth();
    QCOMPARE(EnabledAsSet(*command), none);
}

void SystemStatusTest::the_two_routines_keep_to_their_own_commands()
{
    BareFrame bare;
    QAction *button = bare.frame.ToolBarButton(QStringLiteral("Save"));
    UpdateBoth();
    ProjectCount = 1;
    UpdateToolbarState();
    QVERIFY(button->isEnabled());
    QVERIFY(!bare.frame.mnuFileSave->isEnabled());
    UpdateMenuState();
    QVERIFY(bare.frame.mnuFileSave->isEnabled());
    ProjectCount = 0;
    UpdateMenuState();
    QVERIFY(button->isEnabled());
    QVERIFY(!bare.frame.mnuFileSave->isEnabled());
}

void SystemStatusTest::link_and_run_change_nothing_data()
{
    QTest::addColumn<bool>("link");
    QTest::addColumn<bool>("run");
    QTest::newRow("link") << true << false;
    QTest::newRow("run") << false << true;
    QTest::newRow("link and run") << true << true;
}

void SystemStatusTest::link_and_run_change_nothing()
{
    QFETCH(const bool, link);
    QFETCH(const bool, run);
    BareFrame bare;
    for (const std::int16_t count : {std::int16_t{0}, std::int16_t{1}}) {
        ProjectCount = count;
        LinkUp = link;
        Measuring = run;
        UpdateBoth();
        for (const CommandState &state : CommandStates) {
            const QString name = QString::fromLatin1(state.Name);
            QAction *command = state.InToolBar ? bare.frame.ToolBarButton(name) : bare.frame.findChild<QAction *>(name);
            QVERIFY2(EnabledAsSet(*command) == (count > 0 ? state.Some : state.None), state.Name);
        }
        QVERIFY(!bare.frame.mnuToolsConnect->isChecked());
    }
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
