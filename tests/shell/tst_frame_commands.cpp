/// @file
/// The frame's commands for projects and the instrument, by menu and toolbar.
#include "shell/FrameBench.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

/// Rows for a command that stands in a menu and in the toolbar.
void AddBothWays()
{
    QTest::addColumn<bool>("byToolBar");
    QTest::newRow("menu") << false;
    QTest::newRow("toolbar") << true;
}

/// Runs a command by its menu item, or by a click on its toolbar button.
void RunCommand(const MainFrm &frame, bool byToolBar, QAction *item, const char *key)
{
    if (byToolBar)
        QTest::mouseClick(frame.tbToolBar->widgetForAction(frame.ToolBarButton(QString::fromLatin1(key))),
                          Qt::LeftButton);
    else
        item->trigger();
}

/// Cancels the dialogue that comes up, and tells its title.
class CancelledDialogue {
public:
    QString Title;
    WhenModal cancel{[this](QWidget *dialog) {
        Title = dialog->windowTitle();
        qobject_cast<QDialog *>(dialog)->reject();
    }};
};

} // namespace

class FrameCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void new_and_open_need_a_link_data() { AddBothWays(); }
    void new_and_open_need_a_link();
    void new_makes_a_project_with_all_that_belongs_to_it();
    void a_slot_taken_again_stands_last_in_the_tree();
    void a_project_made_behind_a_hidden_panel_appears_with_it();

    void open_asks_for_a_file_beside_an_instrument_data() { AddBothWays(); }
    void open_asks_for_a_file_beside_an_instrument();
    void save_writes_the_active_project_data() { AddBothWays(); }
    void save_writes_the_active_project();
    void save_all_writes_every_project();
    void save_as_asks_for_a_file();
    void the_properties_are_kept_from_change_during_a_run_data() { AddBothWays(); }
    void the_properties_are_kept_from_change_during_a_run();
    void only_the_tools_menu_sets_the_grid_after_the_properties();
    void a_toolbar_key_that_is_none_does_nothing();
    void items_without_a_command_do_nothing_data();
    void items_without_a_command_do_nothing();

    void connect_and_disconnect_reach_the_instrument_data() { AddBothWays(); }
    void connect_and_disconnect_reach_the_instrument();
    void a_lost_instrument_is_noticed_by_the_watch();
};

void FrameCommandsTest::new_and_open_need_a_link()
{
    QFETCH(const bool, byToolBar);
    const LoadedFrame loaded;
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    RunCommand(loaded.frame, byToolBar, loaded.frame.mnuFileNew, "New");
    RunCommand(loaded.frame, byToolBar, loaded.frame.mnuFileOpen, "Open");
    QCOMPARE(answers.Texts(), QStringList(2, QStringLiteral("Please connect to the instrument! ")));
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

void FrameCommandsTest::open_asks_for_a_file_beside_an_instrument()
{
    QFETCH(const bool, byToolBar);
    const LoadedFrame loaded;
    LinkUp = true;
    CancelledDialogue dialogue;
    RunCommand(loaded.frame, byToolBar, loaded.frame.mnuFileOpen, "Open");
    QCOMPARE(dialogue.Title, QStringLiteral("Open project"));
    QCOMPARE(ProjectCount, std::int16_t{0});
}

void FrameCommandsTest::save_writes_the_active_project()
{
    QFETCH(const bool, byToolBar);
    LoadedFrame loaded;
    const QTemporaryDir folder;
    for (const char *name : {"one", "two"}) {
        loaded.NewProjectByMenu();
        ProjectSlots[ActiveSlot()].FilePath = folder.filePath(QString::fromLatin1(name) + QStringLiteral(".spj"));
    }
    loaded.frame.Children->setActiveSubWindow(ProjectForm[0]);
    const BoxAnswers noBox;
    RunCommand(loaded.frame, byToolBar, loaded.frame.mnuFileSave, "Save");
    QVERIFY(QFileInfo(ProjectSlots[0].FilePath).size() > 0);
    QVERIFY(!QFileInfo::exists(ProjectSlots[1].FilePath));
}

void FrameCommandsTest::save_all_writes_every_project()
{
    LoadedFrame loaded;
    const QTemporaryDir folder;
    for (const char *name : {"one", "two", "three"}) {
        loaded.NewProjectByMenu();
        ProjectSlots[ActiveSlot()].FilePath = folder.filePath(QString::fromLatin1(name) + QStringLiteral(".spj"));
    }
    const BoxAnswers noBox;
    loaded.frame.mnuFileSaveAllProject->trigger();
    for (const int slot : {0, 1, 2})
        QVERIFY(QFileInfo(ProjectSlots[slot].FilePath).size() > 0);
    QCOMPARE(ActiveSlot(), 2);
}

void FrameCommandsTest::save_as_asks_for_a_file()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    CancelledDialogue dialogue;
    loaded.frame.mnuFileSaveAs->trigger();
    QCOMPARE(dialogue.Title, QStringLiteral("Save project As..."));
}

void FrameCommandsTest::the_properties_are_kept_from_change_during_a_run()
{
    QFETCH(const bool, byToolBar);
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    ProjectForm[0]->EndLumoBtn->setEnabled(true);
    BoxAnswers answers({QMessageBox::Ok});
    RunCommand(loaded.frame, byToolBar, loaded.frame.mnuToolsSensorOption, "Options");
    answers.Add(QMessageBox::Ok);
    loaded.frame.mnuSettingsSensorOption->trigger();
    QCOMPARE(answers.Texts(), QStringList(2, QStringLiteral("Measuring is running, the project can not be edit! ")));
    ProjectForm[0]->EndLumoBtn->setEnabled(false);
}

void FrameCommandsTest::only_the_tools_menu_sets_the_grid_after_the_properties()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    ProjectForm[0]->EditDataView->setEnabled(false);
    {
        const CancelledDialogue dialogue;
        loaded.frame.mnuSettingsSensorOption->trigger();
    }
    QVERIFY(!ProjectForm[0]->EditDataView->isEnabled());
    {
        const CancelledDialogue dialogue;
        loaded.frame.mnuToolsSensorOption->trigger();
    }
    QVERIFY(ProjectForm[0]->EditDataView->isEnabled()); // this sensor has reference points
}

void FrameCommandsTest::a_toolbar_key_that_is_none_does_nothing()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    const BoxAnswers noBox;
    for (const char *key : {"Close", "new", "Disconnect", "CascadeWindows", "TileHorizontal ", ""})
        emit loaded.frame.ToolBarButtonClick(QString::fromLatin1(key));
    QVERIFY(ProjectForm[0]->isMaximized());
    QVERIFY(FakeVisa::Lines().isEmpty());
}

void FrameCommandsTest::items_without_a_command_do_nothing_data()
{
    QTest::addColumn<QAction * MainFrm::*>("item");
    using M = MainFrm;
    for (QAction *M::*item : {&M::mnuFilePrint,          &M::mnuFilePrintPreview,
                              &M::mnuFilePageSetup,      &M::mnuEditUndo,
                              &M::mnuEditRedo,           &M::mnuEditCut,
                              &M::mnuEditCopy,           &M::mnuEditPaste,
                              &M::mnuEditDelete,         &M::mnuViewGrid,
                              &M::mnuViewZoomIn,         &M::mnuViewZoomOut,
                              &M::mnuViewZoomNot,        &M::mnuSettingsArithmeticSetting,
                              &M::mnuSettingsUserDefine, &M::mnuSettingsIO,
                              &M::mnuSettingsCommand,    &M::mnuLibrary,
                              &M::mnuToolsRun,           &M::mnuToolsStop,
                              &M::mnuToolsDisableSensor, &M::mnuPopEditDataExport})
        QTest::newRow(qPrintable((MainFrm().*item)->objectName())) << item;
}

void FrameCommandsTest::items_without_a_command_do_nothing()
{
    QFETCH(QAction * MainFrm::*const, item);
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    const QImage before = loaded.frame.Children->grab().toImage();
    QAction *action = loaded.frame.*item;
    action->setEnabled(true); // nothing keeps it from its command but that there is none
    const BoxAnswers noBox;
    const QSignalSpy triggered(action, &QAction::triggered);
    action->trigger();
    QCOMPARE(triggered.count(), 1);
    QVERIFY(LinkUp);
    QCOMPARE(ProjectCount, std::int16_t{1});
    QVERIFY(FakeVisa::Lines().isEmpty());
    QCOMPARE(loaded.frame.Children->grab().toImage(), before);
}

void FrameCommandsTest::connect_and_disconnect_reach_the_instrument()
{
    QFETCH(const bool, byToolBar);
    const LoadedFrame loaded;
    RunCommand(loaded.frame, byToolBar, loaded.frame.mnuToolsConnect, "Connect");
    QVERIFY(LinkUp);
    QCOMPARE(InstrumentKind, InstrumentKindKV7050);
    QCOMPARE(loaded.frame.sbrStatus->PanelText(2), QStringLiteral("Connect"));
    QVERIFY(loaded.frame.picLED_ON->isVisible());
    QVERIFY(loaded.frame.mnuToolsConnect->isEnabled());
    RunCommand(loaded.frame, byToolBar, loaded.frame.mnuToolsDisconnect, "DisConnect");
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

QTEST_MAIN(FrameCommandsTest)
#include "tst_frame_commands.moc"
