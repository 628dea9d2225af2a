/// @file
/// The key F1 and the commands that send it: the help file goes to the desktop's viewer.
#include "shell/FrameBench.h"
#include "shell/HelpModule.h"
#include "support/DesktopViewer.h"

#include <QMenu>
#include <QWindow>

#include <functional>

namespace {

const QString FileName = QStringLiteral("Ostrakon Help_EN.chm");

/// The key as the window system delivers it to a window.
void PressHelpKey(const QWidget *window)
{
    QTest::keyClick(window->window()->windowHandle(), Qt::Key_F1);
}

/// One more help file after all that a test has done: what was opened before it and what was not can then be told.
QStringList OpenedUpTo(const DesktopViewer &desktop, const LoadedFrame &loaded)
{
    const BoxAnswers noBox;
    HelpFile = desktop.MakeHelpFile(QStringLiteral("last.chm"));
    PressHelpKey(&loaded.frame);
    QStringList opened;
    const auto lastCame = [&] {
        opened = desktop.Opened();
        return opened.contains(HelpFile);
    };
    if (!QTest::qWaitFor(lastCame, 20000))
        QTest::qFail("the help file does not open", __FILE__, __LINE__);
    opened.removeOne(HelpFile);
    return opened;
}

/// A place of the program where a user may press the key: brings it up, runs a routine on its window, and leaves it.
using Place = std::function<void(LoadedFrame &loaded, const std::function<void(QWidget *window)> &routine)>;

/// Brings up a modal window and closes it after the routine.
template <typename Show>
void InModal(const QString &name, const std::function<void(QWidget *window)> &routine, const Show &show)
{
    const WhenModal modal(name, [&](QWidget *dialog) {
        routine(dialog);
        qobject_cast<QDialog *>(dialog)->reject();
    });
    show();
}

void AddPlaces()
{
    using Routine = std::function<void(QWidget * window)>;
    QTest::addColumn<Place>("place");
    QTest::newRow("the frame") << Place([](LoadedFrame &loaded, const Routine &routine) { routine(&loaded.frame); });
    QTest::newRow("a text box of a project") << Place([](LoadedFrame &loaded, const Routine &routine) {
        ActiveProjectForm()->TxtSample->setFocus();
        routine(&loaded.frame);
    });
    QTest::newRow("a list of a project") << Place([](LoadedFrame &loaded, const Routine &routine) {
        ActiveProjectForm()->EditDataView->setFocus();
        routine(&loaded.frame);
    });
    QTest::newRow("an open menu") << Place([](LoadedFrame &loaded, const Routine &routine) {
        loaded.frame.mnuFile->popup(loaded.frame.pos());
        routine(loaded.frame.mnuFile);
        loaded.frame.mnuFile->close();
    });
    QTest::newRow("a dialogue") << Place([](LoadedFrame &loaded, const Routine &routine) {
        InModal(QStringLiteral("SensorPropertyFrm"), routine, [&] { loaded.frame.mnuFileNew->trigger(); });
    });
    QTest::newRow("a file dialogue") << Place([](LoadedFrame &loaded, const Routine &routine) {
        InModal(QStringLiteral("QFileDialog"), routine, [&] { loaded.frame.mnuFileOpen->trigger(); });
    });
    QTest::newRow("a message box") << Place([](LoadedFrame &loaded, const Routine &routine) {
        InModal(QStringLiteral("MessageBox"), routine, [&] { loaded.frame.mnuHelpAbout->trigger(); });
    });
}

} // namespace

Q_DECLARE_METATYPE(Place)

class HelpKeyTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void the_key_opens_the_help_file_once_wherever_it_is_pressed_data() { AddPlaces(); }
    void the_key_opens_the_help_file_once_wherever_it_is_pressed();
    void the_help_commands_send_the_key_data();
    void the_help_commands_send_the_key();
    void a_missing_file_is_told_wherever_the_key_is_pressed_data() { AddPlaces(); }
    void a_missing_file_is_told_wherever_the_key_is_pressed();
    void the_commands_tell_of_a_missing_file_data() { the_help_commands_send_the_key_data(); }
    void the_commands_tell_of_a_missing_file();
    void a_folder_of_the_name_is_no_file();
    void a_viewer_registered_by_the_old_name_will_do();
    void a_desktop_without_a_viewer_is_told();
    void a_machine_without_desktop_tools_is_told();

    void a_key_held_down_opens_no_further_file();
    void other_keys_open_nothing_data();
    void other_keys_open_nothing();
    void the_key_ends_with_the_frame();
    void each_language_has_its_file_data();
    void each_language_has_its_file();
};

void HelpKeyTest::the_key_opens_the_help_file_once_wherever_it_is_pressed()
{
    QFETCH(const Place, place);
    const DesktopViewer desktop;
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    const QString path = desktop.MakeHelpFile(FileName);
    HelpFile = path;
    int visits = 0;
    place(loaded, [&](QWidget *window) {
        ++visits;
        PressHelpKey(window);
        QTRY_COMPARE_WITH_TIMEOUT(desktop.Opened(), QStringList{path}, 20000);
    });
    QCOMPARE(visits, 1);
    QCOMPARE(OpenedUpTo(desktop, loaded), QStringList{path});
}

void HelpKeyTest::the_help_commands_send_the_key_data()
{
    QTest::addColumn<bool>("byToolBar");
    QTest::addColumn<bool>("fromTextBox");
    QTest::newRow("menu") << false << false;
    QTest::newRow("menu, from a text box") << false << true;
    QTest::newRow("toolbar") << true << false;
    QTest::newRow("toolbar, from a text box") << true << true;
}

void HelpKeyTest::the_help_commands_send_the_key()
{
    QFETCH(const bool, byToolBar);
    QFETCH(const bool, fromTextBox);
    const DesktopViewer desktop;
    LoadedFrame loaded;
    if (fromTextBox)
        loaded.NewProjectByMenu().TxtSample->setFocus();
    const QString path = desktop.MakeHelpFile(FileName);
    HelpFile = path;
    QAction *command = byToolBar ? loaded.frame.ToolBarButton(QStringLiteral("Help")) : loaded.frame.mnuHelpContents;
    QVERIFY(command->isVisible() && command->isEnabled());
    const BoxAnswers noBox;
    command->trigger();
    // Two viewers at a time could overtake each other.
    QTRY_COMPARE_WITH_TIMEOUT(desktop.Opened(), QStringList{path}, 20000);
    QCOMPARE(OpenedUpTo(desktop, loaded), QStringList{path});
}

void HelpKeyTest::a_missing_file_is_told_wherever_the_key_is_pressed()
{
    QFETCH(const Place, place);
    const DesktopViewer desktop;
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    HelpFile = desktop.MakeHelpFile(FileName) + QStringLiteral(".gone");
    place(loaded, [](QWidget *window) {
        BoxAnswers answers({QMessageBox::Ok});
        PressHelpKey(window);
        QCOMPARE(answers.Texts(), QStringList{QStringLiteral("File not found")});
        QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
        QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
    });
    QCOMPARE(OpenedUpTo(desktop, loaded), QStringList());
}

void HelpKeyTest::the_commands_tell_of_a_missing_file()
{
    QFETCH(const bool, byToolBar);
    QFETCH(const bool, fromTextBox);
    const DesktopViewer desktop;
    LoadedFrame loaded;
    if (fromTextBox)
        loaded.NewProjectByMenu().TxtSample->setFocus();
    HelpFile = QStringLiteral("/nowhere/") + FileName;
    BoxAnswers answers({QMessageBox::Ok});
    (byToolBar ? loaded.frame.ToolBarButton(QStringLiteral("Help")) : loaded.frame.mnuHelpContents)->trigger();
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("File not found")});
}

void HelpKeyTest::a_folder_of_the_name_is_no_file()
{
    const LoadedFrame loaded;
    const QTemporaryDir folder;
    HelpFile = folder.path();
    BoxAnswers answers({QMessageBox::Ok});
    PressHelpKey(&loaded.frame);
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("File not found")});
}

void HelpKeyTest::a_viewer_registered_by_the_old_name_will_do()
{
    const DesktopViewer desktop(DesktopViewer::Kind::KnownByOldName);
    const LoadedFrame loaded;
    const QString path = desktop.MakeHelpFile(FileName);
    HelpFile = path;
    const BoxAnswers noBox;
    PressHelpKey(&loaded.frame);
    QTRY_COMPARE_WITH_TIMEOUT(desktop.Opened(), QStringList{path}, 20000);
}

void HelpKeyTest::a_desktop_without_a_viewer_is_told()
{
    const DesktopViewer desktop(DesktopViewer::Kind::Unknown);
    const LoadedFrame loaded;
    HelpFile = desktop.MakeHelpFile(FileName);
    BoxAnswers answers({QMessageBox::Ok});
    PressHelpKey(&loaded.frame);
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("No program opens this kind of file")});
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
}

void HelpKeyTest::a_machine_without_desktop_tools_is_told()
{
    const DesktopViewer desktop;
    const LoadedFrame loaded;
    HelpFile = desktop.MakeHelpFile(FileName);
    const QByteArray programs = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    BoxAnswers answers({QMessageBox::Ok});
    PressHelpKey(&loaded.frame);
    qputenv("PATH", programs);
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("No program opens this kind of file")});
    QCOMPARE(OpenedUpTo(desktop, loaded), QStringList());
}

void HelpKeyTest::a_key_held_down_opens_no_further_file()
{
    const DesktopViewer desktop;
    LoadedFrame loaded;
    const QString path = desktop.MakeHelpFile(FileName);
    HelpFile = path;
    const BoxAnswers noBox;
    PressHelpKey(&loaded.frame);
    for (int repeat = 0; repeat < 3; ++repeat) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(loaded.frame.windowHandle(), &held);
    }
    QTRY_COMPARE_WITH_TIMEOUT(desktop.Opened(), QStringList{path}, 20000);
    QCOMPARE(OpenedUpTo(desktop, loaded), QStringList{path});
}

void HelpKeyTest::other_keys_open_nothing_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("F2") << Qt::Key_F2 << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("Help") << Qt::Key_Help << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("Shift+F1") << Qt::Key_F1 << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("Ctrl+F1") << Qt::Key_F1 << Qt::KeyboardModifiers(Qt::ControlModifier);
}

void HelpKeyTest::other_keys_open_nothing()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    const DesktopViewer desktop;
    const LoadedFrame loaded;
    HelpFile = desktop.MakeHelpFile(FileName);
    QTest::keyClick(loaded.frame.windowHandle(), key, modifiers);
    QCOMPARE(OpenedUpTo(desktop, loaded), QStringList());
}

void HelpKeyTest::the_key_ends_with_the_frame()
{
    const DesktopViewer desktop;
    {
        const LoadedFrame loaded;
    }
    HelpFile = desktop.MakeHelpFile(FileName);
    QWidget window;
    window.show();
    PressHelpKey(&window);
    const LoadedFrame loaded;
    QCOMPARE(OpenedUpTo(desktop, loaded), QStringList());
}

void HelpKeyTest::each_language_has_its_file_data()
{
    QTest::addColumn<bool>("chinese");
    QTest::addColumn<QString>("name");
    QTest::newRow("English") << false << QStringLiteral("Ostrakon Help_EN.chm");
    QTest::newRow("Chinese") << true << QStringLiteral("Ostrakon Help.chm");
}

/// The folder of the program is the test's own here.
void HelpKeyTest::each_language_has_its_file()
{
    QFETCH(const bool, chinese);
    QFETCH(const QString, name);
    const DesktopViewer desktop;
    const LoadedFrame loaded;
    const QString path = QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
    DesktopViewer::WriteHelpFile(path);
    (chinese ? loaded.frame.mnuHelpLang_Chinese : loaded.frame.mnuHelpLang_English)->trigger();
    const BoxAnswers noBox;
    PressHelpKey(&loaded.frame);
    QTRY_COMPARE_WITH_TIMEOUT(desktop.Opened(), QStringList{path}, 20000);
    QVERIFY(QFile::remove(path));
}

QTEST_MAIN(HelpKeyTest)
#include "tst_help_key.moc"
