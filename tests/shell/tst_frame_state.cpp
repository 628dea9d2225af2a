/// @file
/// Which commands of the frame are in sight and which are enabled, from its load through the life of projects.
#include "shell/EnablementTable.h"
#include "shell/FrameBench.h"
#include "shell/MenuTable.h"

namespace {

/// The hand-over to the instrument comes into sight with its handler.
const QStringList withoutHandler{QStringLiteral("mnuToolsBar1"), QStringLiteral("mnuToolsEnableSensor")};

/// The names of all items and menus whose sight is not the designed one.
QStringList OutOfDesign(const MainFrm &frame)
{
    QStringList names;
    const auto check = [&](const QString &name, bool visible, bool designed) {
        if (visible != (designed && !withoutHandler.contains(name)))
            names.append(name);
    };
    for (const DesignedItem &item : DesignedItems) {
        const QString name = QString::fromLatin1(item.Name);
        check(name, frame.findChild<QAction *>(name)->isVisible(), item.Shown);
    }
    for (const DesignedMenu &menu : DesignedMenus) {
        const QString name = QString::fromLatin1(menu.Name);
        if (const QAction *entry = frame.findChild<QMenu *>(name)->menuAction(); !entry->associatedObjects().isEmpty())
            check(name, entry->isVisible(), menu.Shown);
    }
    for (const QAction *button : frame.tbToolBar->actions())
        check(QStringLiteral("toolbar ") + button->objectName(), button->isVisible(), true);
    return names;
}

/// The names of all commands whose enablement is not that of the table.
QStringList WronglyEnabled(MainFrm &frame, bool anyProject)
{
    QStringList names;
    for (const CommandState &state : CommandStates) {
        const QString name = QString::fromLatin1(state.Name);
        QAction *command = state.InToolBar ? frame.ToolBarButton(name) : frame.findChild<QAction *>(name);
        if (EnabledAsSet(*command) != (anyProject ? state.Some : state.None))
            names.append(name);
    }
    return names;
}

} // namespace

class FrameStateTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void commands_stay_in_and_out_of_sight();
    void commands_are_enabled_with_the_first_project_and_until_the_last();
    void close_all_disables_them_too();
    void a_change_of_properties_enables_them_anew();
    void the_connect_commands_stay_enabled_while_connected();
};

void FrameStateTest::commands_stay_in_and_out_of_sight()
{
    LoadedFrame loaded;
    QCOMPARE(OutOfDesign(loaded.frame), QStringList());
    loaded.frame.mnuHelpLang_Chinese->trigger();
    QCOMPARE(OutOfDesign(loaded.frame), QStringList());
    loaded.NewProjectByMenu();
    QCOMPARE(OutOfDesign(loaded.frame), QStringList());
    loaded.frame.mnuViewProjectWindow->trigger();
    loaded.frame.mnuViewProjectWindow->trigger();
    QCOMPARE(OutOfDesign(loaded.frame), QStringList());
    loaded.frame.mnuHelpLang_English->trigger();
    QCOMPARE(OutOfDesign(loaded.frame), QStringList());
    loaded.CloseProject(0);
    QCOMPARE(OutOfDesign(loaded.frame), QStringList());
}

void FrameStateTest::commands_are_enabled_with_the_first_project_and_until_the_last()
{
    LoadedFrame loaded;
    QCOMPARE(WronglyEnabled(loaded.frame, false), QStringList());
    loaded.NewProjectByMenu();
    QCOMPARE(WronglyEnabled(loaded.frame, true), QStringList());
    loaded.NewProjectByMenu();
    QCOMPARE(WronglyEnabled(loaded.frame, true), QStringList());
    loaded.CloseProject(0);
    QCOMPARE(WronglyEnabled(loaded.frame, true), QStringList());
    loaded.CloseProject(1);
    QCOMPARE(WronglyEnabled(loaded.frame, false), QStringList());
}

void FrameStateTest::close_all_disables_them_too()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    loaded.NewProjectByMenu();
    const BoxAnswers answers({QMessageBox::Ok});
    loaded.frame.mnuFileCloseAllProjects->trigger();
    QCOMPARE(WronglyEnabled(loaded.frame, false), QStringList());
}

void FrameStateTest::a_change_of_properties_enables_them_anew()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    // As if nobody had enabled them: the change does it by itself.
    for (const char *key : {"Save", "TileVertical"})
        loaded.frame.ToolBarButton(QString::fromLatin1(key))->setEnabled(false);
    loaded.frame.mnuFileSaveAs->setEnabled(false);
    const WhenModal done(QStringLiteral("SensorPropertyFrm"),
                         [](QWidget *dialog) { qobject_cast<SensorPropertyFrm *>(dialog)->ComdEnter->click(); });
    loaded.frame.mnuToolsSensorOption->trigger();
    QCOMPARE(WronglyEnabled(loaded.frame, true), QStringList());
}

void FrameStateTest::the_connect_commands_stay_enabled_while_connected()
{
    LoadedFrame loaded;
    loaded.frame.mnuToolsConnect->trigger();
    QVERIFY(LinkUp);
    QCOMPARE(WronglyEnabled(loaded.frame, false), QStringList());
    loaded.frame.mnuToolsDisconnect->trigger();
    QCOMPARE(WronglyEnabled(loaded.frame, false), QStringList());
}

QTEST_MAIN(FrameStateTest)
#include "tst_frame_state.moc"
