/// @file
/// The frame by keyboard: the keys of its commands, the dead keys of hidden ones, and every menu item by the arrow
/// keys.
#include "shell/FrameBench.h"
#include "shell/LanguageModule.h"
#include "shell/MenuTable.h"

#include <QClipboard>
#include <QFileInfo>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>

namespace {

/// Where the keyboard is, by name.
using Focus = std::function<QWidget *(MainFrm &)>;

QWidget *OnPage(int tab, QWidget *control)
{
    emit ProjectForm[0]->TabStrip->Click(tab);
    return control;
}

void AddFocusRows()
{
    QTest::addColumn<Focus>("focus");
    QTest::newRow("tree") << Focus([](MainFrm &) { return ProjectSheet->findChild<QTreeWidget *>(); });
    QTest::newRow("grid") << Focus([](MainFrm &) { return OnPage(2, ProjectForm[0]->EditDataView); });
    QTest::newRow("sample period") << Focus([](MainFrm &) { return OnPage(3, ProjectForm[0]->TxtSample); });
    QTest::newRow("image button") << Focus([](MainFrm &) { return OnPage(3, ProjectForm[0]->RecordLumoBtn); });
}

/// The frame with one project, in front, with the keyboard at a control.
class FrameAtKeyboard : public LoadedFrame {
public:
    explicit FrameAtKeyboard(const Focus &focus)
    {
        NewProjectByMenu();
        const bool shown = QTest::qWaitFor([this] { return frame.TabDock->PanelVisible(ProjectSheetPanel); });
        frame.activateWindow();
        control = focus(frame);
        control->setFocus();
        ready = shown && QTest::qWaitForWindowActive(&frame) && control->hasFocus();
    }

    QWidget *control;
    bool ready = false;
};

/// Goes from the frame to a menu item by Alt and the arrow keys, and presses Return.
void ChooseByKeys(MainFrm &frame, QMenu *menu, QAction *item)
{
    const auto press = [](Qt::Key key) {
        QWidget *popup = QApplication::activePopupWidget();
        QTest::keyClick(popup != nullptr ? popup : MainForm->menuBar(), key);
    };
    QTest::keyClick(&frame, Qt::Key_Alt);
    QTRY_VERIFY(frame.menuBar()->activeAction() != nullptr);
    const bool inside = menu == frame.mnuHelpLanguage;
    const QMenu *top = inside ? frame.mnuHelp : menu;
    for (int step = 0; step < 8 && frame.menuBar()->activeAction() != top->menuAction(); ++step)
        press(Qt::Key_Right);
    QCOMPARE(frame.menuBar()->activeAction(), top->menuAction());
    if (!top->isVisible())
        press(Qt::Key_Down);
    QTRY_VERIFY(top->isVisible());
    const auto goTo = [&](const QMenu *where, const QAction *entry) {
        for (int step = 0; step < 14 && where->activeAction() != entry; ++step)
            press(Qt::Key_Down);
        QCOMPARE(where->activeAction(), entry);
    };
    goTo(top, inside ? menu->menuAction() : item);
    if (inside) {
        press(Qt::Key_Right);
        QTRY_VERIFY(menu->isVisible());
        goTo(menu, item);
    }
    press(Qt::Key_Return);
}

} // namespace

class FrameKeysTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void the_keys_of_new_and_open_work_data();
    void the_keys_of_new_and_open_work();
    void the_key_of_save_writes_the_active_project_data();
    void the_key_of_save_writes_the_active_project();
    void the_key_of_save_is_dead_without_a_project();
    void keys_of_hidden_items_are_dead_data();
    void keys_of_hidden_items_are_dead();
    void a_text_box_keeps_the_keys_of_the_hidden_edit_menu();
    void every_shown_item_is_reached_by_keys_data();
    void every_shown_item_is_reached_by_keys();
};

void FrameKeysTest::the_keys_of_new_and_open_work_data()
{
    AddFocusRows();
}

void FrameKeysTest::the_keys_of_new_and_open_work()
{
    QFETCH(const Focus, focus);
    for (const Qt::Key key : {Qt::Key_N, Qt::Key_O}) {
        const FrameAtKeyboard loaded(focus);
        QVERIFY(loaded.ready);
        LinkUp = false;
        const BoxAnswers answers({QMessageBox::Ok});
        QTest::keyClick(loaded.control, key, Qt::ControlModifier);
        QCOMPARE(answers.Texts(), QStringList{QStringLiteral("Please connect to the instrument! ")});
    }
}

void FrameKeysTest::the_key_of_save_writes_the_active_project_data()
{
    AddFocusRows();
}

void FrameKeysTest::the_key_of_save_writes_the_active_project()
{
    QFETCH(const Focus, focus);
    const FrameAtKeyboard loaded(focus);
    QVERIFY(loaded.ready);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Oven.spj"));
    ProjectSlots[0].FilePath = path;
    const BoxAnswers noBox;
    QTest::keyClick(loaded.control, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(QFileInfo(path).size() > 0);
    QCOMPARE(ProjectForm[0]->windowTitle(), QStringLiteral("Oven"));
}

void FrameKeysTest::the_key_of_save_is_dead_without_a_project()
{
    LoadedFrame loaded;
    QVERIFY(QTest::qWaitForWindowActive(&loaded.frame));
    const QSignalSpy triggered(loaded.frame.mnuFileSave, &QAction::triggered);
    const BoxAnswers noBox;
    QTest::keyClick(MainForm, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(triggered.count(), 0);
}

void FrameKeysTest::keys_of_hidden_items_are_dead_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Ctrl+P") << "mnuFilePrint" << Qt::Key_P;
    QTest::newRow("Ctrl+Z") << "mnuEditUndo" << Qt::Key_Z;
    QTest::newRow("Ctrl+Y") << "mnuEditRedo" << Qt::Key_Y;
    QTest::newRow("Ctrl+X") << "mnuEditCut" << Qt::Key_X;
    QTest::newRow("Ctrl+C") << "mnuEditCopy" << Qt::Key_C;
    QTest::newRow("Ctrl+V") << "mnuEditPaste" << Qt::Key_V;
}

void FrameKeysTest::keys_of_hidden_items_are_dead()
{
    QFETCH(const QString, item);
    QFETCH(const Qt::Key, key);
    FrameAtKeyboard loaded([](MainFrm &) { return OnPage(2, ProjectForm[0]->EditDataView); });
    QVERIFY(loaded.ready);
    loaded.frame.mnuHelpLang_Chinese->trigger();
    loaded.frame.mnuHelpLang_English->trigger();
    auto *action = loaded.frame.findChild<QAction *>(item);
    QVERIFY(!action->shortcut().isEmpty());
    const QSignalSpy triggered(action, &QAction::triggered);
    const BoxAnswers noBox;
    QTest::keyClick(&loaded.frame, key, Qt::ControlModifier);
    QTest::keyClick(loaded.control, key, Qt::ControlModifier);
    QCOMPARE(triggered.count(), 0);
}

void FrameKeysTest::a_text_box_keeps_the_keys_of_the_hidden_edit_menu()
{
    const FrameAtKeyboard loaded([](MainFrm &) { return OnPage(3, ProjectForm[0]->TxtSample); });
    QVERIFY(loaded.ready);
    QApplication::clipboard()->setText(QStringLiteral("before"));
    ProjectForm[0]->TxtSample->selectAll();
    QTest::keyClick(loaded.control, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), ProjectForm[0]->TxtSample->text());
}

void FrameKeysTest::every_shown_item_is_reached_by_keys_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("item");
    for (const DesignedMenu &menu : DesignedMenus) {
        for (const DesignedItem &item : DesignedItems) {
            const QString name = QString::fromLatin1(item.Name);
            if (menu.Shown && item.Shown && item.Caption != nullptr &&
                QString::fromLatin1(menu.Entries).split(u' ').contains(name))
                QTest::newRow(item.Name) << QString::fromLatin1(menu.Name) << name;
        }
    }
}

/// No routine is connected here, so that only the way to the item is tried.
void FrameKeysTest::every_shown_item_is_reached_by_keys()
{
    QFETCH(const QString, menu);
    QFETCH(const QString, item);
    BareFrame bare;
    QVERIFY(QTest::qWaitForWindowActive(&bare.frame));
    auto *action = bare.frame.findChild<QAction *>(item);
    QSignalSpy triggered(action, &QAction::triggered);
    for (const int language : {LanguageChinese, LanguageEnglish}) {
        LoadLanguage(language);
        ChooseByKeys(bare.frame, bare.frame.findChild<QMenu *>(menu), action);
        QTRY_COMPARE(triggered.count(), 1);
        triggered.clear();
        QTRY_COMPARE(QApplication::activePopupWidget(), nullptr);
    }
}

QTEST_MAIN(FrameKeysTest)
#include "tst_frame_keys.moc"
