/// @file
/// The two menus of the project tree: what stands in them, which one comes up, and the commands behind their items.
#include "shell/ProjectSheetBench.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

/// An item as it is designed: caption nullptr for a separator.
struct Item {
    const char *Menu;
    const char *Name;
    const char *Caption;
    bool Shown;
};

constexpr Item items[] = {
    {"pop_mnu1", "mnuNewProject", "&New Project", true},
    {"pop_mnu1", "mnuOpenProject", "&Open Project...", true},
    {"pop_mnu1", "mnuPopBar0", nullptr, true},
    {"pop_mnu1", "mnuSaveProject", "&Save Project", true},
    {"pop_mnu1", "mnuSaveProjectAs", "Sa&ve Project As...", true},
    {"pop_mnu1", "mnuSaveAllProjects", "Save &All Projects", true},
    {"pop_mnu1", "mnuPopBar1", nullptr, false},
    {"pop_mnu1", "mnuRename", "&Rename", false},
    {"pop_mnu1", "mnuPopBar3", nullptr, true},
    {"pop_mnu1", "mnuCloseProject", "&Close Project", true},
    {"pop_mnu1", "mnuCloseAllProjects", "Close All &Projects", true},
    {"pop_mnu2", "mnuPop2NewProject", "&New Project", true},
    {"pop_mnu2", "mnuPop2OpenProject", "&Open Project...", true},
    {"pop_mnu2", "mnuPop2Bar0", nullptr, true},
    {"pop_mnu2", "mnuPop2SaveAllProjects", "Save &All Projects", true},
    {"pop_mnu2", "mnuPop2Bar1", nullptr, true},
    {"pop_mnu2", "mnuPop2CloseAllProjects", "Close All &Projects", true},
};

/// Every box and dialogue that comes up while it lives, in order: the text of a box, the title of a dialogue. Each is
/// closed by Escape, the way of a user who thinks better of it.
class Refusals {
public:
    Refusals()
    {
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] { Look(); });
        m_poll.start(ModalPollInterval);
    }

    const QStringList &Seen() const { return m_seen; }

private:
    void Look()
    {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal == nullptr || !modal->isVisible())
            return;
        const auto *box = qobject_cast<QMessageBox *>(modal);
        m_seen.append(box != nullptr ? box->text() : modal->windowTitle());
        QTest::keyClick(modal, Qt::Key_Escape);
    }

    QStringList m_seen;
    QTimer m_poll;
};

const QString ConnectFirst = QStringLiteral("Please connect to the instrument! ");
const QString ConnectFirstChinese = QStringLiteral("请和仪器连接! ");
const QString SensorTitle = QStringLiteral("Sensor Property");
const QString OpenTitle = QStringLiteral("Open project");
const QString SaveTitle = QStringLiteral("Save project as...");
const QString CopyTitle = QStringLiteral("Save project As...");
const QString CloseQuestion = QStringLiteral("The action will remove this project!");
const QString CloseAllQuestion = QStringLiteral("The action will remove all projects! ");

} // namespace

class ProjectSheetMenusTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void items_are_as_designed_data();
    void items_are_as_designed();
    void items_stand_in_order();
    void the_image_list_has_six_places();

    void the_menu_follows_the_selected_node_data();
    void the_menu_follows_the_selected_node();
    void the_menu_comes_up_at_the_pointer();
    void the_keyboard_asks_for_the_menu_too_data();
    void the_keyboard_asks_for_the_menu_too();
    void the_release_of_the_right_button_asks_for_nothing();
    void the_root_menu_wants_a_project();
    void the_rename_item_names_the_project_data();
    void the_rename_item_names_the_project();
    void a_place_without_a_project_has_no_name();

    void every_item_runs_its_command_data();
    void every_item_runs_its_command();
    void save_writes_the_active_project_whatever_node_is_selected();
};

void ProjectSheetMenusTest::items_are_as_designed_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("separator");
    QTest::addColumn<bool>("shown");
    for (const Item &item : items) {
        const bool separator = item.Caption == nullptr;
        QTest::newRow(item.Name) << QString(item.Menu) << (separator ? QString() : QString(item.Caption)) << separator
                                 << item.Shown;
    }
}

void ProjectSheetMenusTest::items_are_as_designed()
{
    QFETCH(const QString, menu);
    QFETCH(const QString, caption);
    QFETCH(const bool, separator);
    QFETCH(const bool, shown);
    const ProjectSheetFrm sheet;
    const auto *item = sheet.findChild<QMenu *>(menu)->findChild<QAction *>(QTest::currentDataTag());
    QVERIFY(item != nullptr);
    QCOMPARE(item->text(), caption);
    QCOMPARE(item->isSeparator(), separator);
    QCOMPARE(item->isVisible(), shown);
    QCOMPARE(item->isEnabled(), shown); // the toolkit disables what is hidden
    QVERIFY(item->shortcut().isEmpty());
}

void ProjectSheetMenusTest::items_stand_in_order()
{
    const ProjectSheetFrm sheet;
    QStringList designed;
    for (const Item &item : items)
        designed.append(item.Name);
    QStringList found;
    for (const QMenu *menu : {sheet.pop_mnu1, sheet.pop_mnu2}) {
        for (const QAction *item : menu->actions())
            found.append(item->objectName());
    }
    QCOMPARE(found, designed);
    QCOMPARE(sheet.pop_mnu1->title(), QStringLiteral("popmenu"));
    QCOMPARE(sheet.pop_mnu2->title(), QStringLiteral("popmenu2"));
    QCOMPARE(sheet.mnuRename->objectName(), QStringLiteral("mnuRename"));
    QCOMPARE(sheet.mnuPop2CloseAllProjects->objectName(), QStringLiteral("mnuPop2CloseAllProjects"));
}

void ProjectSheetMenusTest::the_image_list_has_six_places()
{
    const ProjectSheetBench bench(1);
    QCOMPARE(ProjectSheet->imlTree->Count(), 6);
    const auto picture = [](const QIcon &icon) { return icon.pixmap(16).toImage(); };
    const auto stored = [&picture](int index) { return picture(ProjectSheet->imlTree->Image(index)); };
    QCOMPARE(picture(RootNode->icon(0)), stored(1));
    QCOMPARE(picture(ProjectSheet->NodeAt(2)->icon(0)), stored(2));
    for (const int page : {3, 4, 5})
        QCOMPARE(picture(ProjectSheet->NodeAt(page)->icon(0)), stored(6));
    QVERIFY(!stored(1).isNull() && !stored(2).isNull() && !stored(6).isNull());
    QVERIFY(stored(1) != stored(2) && stored(2) != stored(6) && stored(1) != stored(6));
}

void ProjectSheetMenusTest::the_menu_follows_the_selected_node_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<int>("pressed"); // 0: the empty part
    QTest::addColumn<QString>("menu");
    const QString project = QStringLiteral("pop_mnu1");
    const QString root = QStringLiteral("pop_mnu2");
    QTest::newRow("nothing, in the empty part") << 0 << 0 << root;
    QTest::newRow("nothing, on a project") << 0 << 2 << root;
    QTest::newRow("the root, in the empty part") << 1 << 0 << root;
    QTest::newRow("the root, on itself") << 1 << 1 << root;
    QTest::newRow("the root, on a page") << 1 << 4 << root;
    QTest::newRow("a project, in the empty part") << 2 << 0 << project;
    QTest::newRow("a project, on itself") << 2 << 2 << project;
    QTest::newRow("a project, on the root") << 6 << 1 << project;
    QTest::newRow("a page, in the empty part") << 9 << 0 << project;
    QTest::newRow("a page, on another project") << 3 << 6 << project;
}

void ProjectSheetMenusTest::the_menu_follows_the_selected_node()
{
    QFETCH(const int, selected);
    QFETCH(const int, pressed);
    QFETCH(const QString, menu);
    const ProjectSheetBench bench(2);
    Select(selected);
    RightPress(pressed);
    QVERIFY(OpenMenu() != nullptr);
    QCOMPARE(OpenMenu()->objectName(), menu);
    QCOMPARE(ProjectSheet->SelectedIndex(), selected);
    QCOMPARE(ProjectTree->selectedItems().size(), selected == 0 ? 0 : 1);
}

void ProjectSheetMenusTest::the_menu_comes_up_at_the_pointer()
{
    const ProjectSheetBench bench(2);
    RightPress(3);
    QCOMPARE(OpenMenu()->pos(), ProjectTree->viewport()->mapToGlobal(PlaceOf(3)));
}

void ProjectSheetMenusTest::the_keyboard_asks_for_the_menu_too_data()
{
    QTest::addColumn<bool>("byMenuKey");
    QTest::newRow("menu key") << true;
    QTest::newRow("Shift and F10") << false;
}

void ProjectSheetMenusTest::the_keyboard_asks_for_the_menu_too()
{
    QFETCH(const bool, byMenuKey);
    const ProjectSheetBench bench(2);
    Select(8);
    QContextMenuEvent byPlatform(QContextMenuEvent::Keyboard, QPoint(), QPoint(), {}); // what the menu key comes as
    if (byMenuKey)
        QApplication::sendEvent(ProjectTree, &byPlatform);
    else
        QTest::keyClick(ProjectTree, Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(OpenMenu(), ProjectSheet->pop_mnu1);
    const QRect node = ProjectTree->visualItemRect(ProjectSheet->NodeAt(8));
    QCOMPARE(OpenMenu()->pos(), ProjectTree->viewport()->mapToGlobal(node.bottomLeft()));
    QCOMPARE(ProjectSheet->SelectedIndex(), 8);
}

void ProjectSheetMenusTest::the_release_of_the_right_button_asks_for_nothing()
{
    const ProjectSheetBench bench(1);
    Select(2);
    QTest::mouseRelease(ProjectTree->viewport(), Qt::RightButton, {}, PlaceOf(3));
    QCOMPARE(OpenMenu(), nullptr);
    QCOMPARE(ProjectSheet->SelectedIndex(), 2);
}

void ProjectSheetMenusTest::the_root_menu_wants_a_project()
{
    ProjectSheetBench bench(0);
    const auto enabled = [] {
        RightPress(0);
        QStringList names;
        for (const QAction *item : ProjectSheet->pop_mnu2->actions()) {
            if (item->isEnabled() && !item->isSeparator())
                names.append(item->objectName());
        }
        ProjectSheet->pop_mnu2->hide();
        return names;
    };
    const QStringList always{QStringLiteral("mnuPop2NewProject"), QStringLiteral("mnuPop2OpenProject")};
    QCOMPARE(enabled(), always);
    bench.NewProjectByMenu();
    QCOMPARE(enabled(), always + QStringList({QStringLiteral("mnuPop2SaveAllProjects"),
                                              QStringLiteral("mnuPop2CloseAllProjects")}));
    bench.CloseProject(0);
    QCOMPARE(enabled(), always);
}

void ProjectSheetMenusTest::the_rename_item_names_the_project_data()
{
    QTest::addColumn<int>("node");
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("first project") << 2 << LanguageEnglish << QStringLiteral("Re&name(Project-1)") << true;
    QTest::newRow("second project") << 6 << LanguageEnglish << QStringLiteral("Re&name(Project-2)") << true;
    QTest::newRow("first page") << 3 << LanguageEnglish << QStringLiteral("Re&name") << false;
    QTest::newRow("last page") << 9 << LanguageEnglish << QStringLiteral("Re&name") << false;
    QTest::newRow("project, Chinese") << 6 << LanguageChinese << QStringLiteral("重命名(Project-2)") << true;
    QTest::newRow("page, Chinese") << 5 << LanguageChinese << QStringLiteral("重命名") << false;
}

void ProjectSheetMenusTest::the_rename_item_names_the_project()
{
    QFETCH(const int, node);
    QFETCH(const int, language);
    const ProjectSheetBench bench(2);
    CurrentLanguage = language;
    Select(node);
    RightPress(0);
    QTEST(ProjectSheet->mnuRename->text(), "caption");
    QVERIFY(!ProjectSheet->mnuRename->isVisible());
    ProjectSheet->mnuRename->setVisible(true); // hidden, it is disabled in any case
    QTEST(ProjectSheet->mnuRename->isEnabled(), "enabled");
}

void ProjectSheetMenusTest::a_place_without_a_project_has_no_name()
{
    ProjectSheetBench bench(3);
    bench.CloseProject(0);
    bench.frame.mnuViewProjectWindow->trigger();
    bench.frame.mnuViewProjectWindow->trigger();
    const BoxAnswers noBox;
    for (const int node : {2, 5}) {
        QCOMPARE(ProjectSheet->NodeAt(2)->text(0), QString());
        Select(node);
        RightPress(0);
        QCOMPARE(OpenMenu(), ProjectSheet->pop_mnu1);
        QCOMPARE(ProjectSheet->mnuRename->text(), QStringLiteral("Re&name()"));
        ClickItem(QStringLiteral("mnuCloseProject"));
        QCOMPARE(ProjectCount, std::int16_t{2});
    }
}

void ProjectSheetMenusTest::every_item_runs_its_command_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("selected");
    QTest::addColumn<bool>("linked");
    QTest::addColumn<int>("language");
    QTest::addColumn<QStringList>("seen");
    const auto row = [](const char *item, int selected, bool linked, const QStringList &seen,
                        int language = LanguageEnglish) {
        QTest::addRow("%s, %s%s", item, linked ? "linked" : "no link", language == LanguageChinese ? ", Chinese" : "")
            << QString(item) << selected << linked << language << seen;
    };
    row("mnuNewProject", 2, false, {ConnectFirst});
    row("mnuNewProject", 2, false, {ConnectFirstChinese}, LanguageChinese);
    row("mnuNewProject", 2, true, {SensorTitle});
    row("mnuOpenProject", 2, false, {ConnectFirst});
    row("mnuOpenProject", 2, false, {ConnectFirstChinese}, LanguageChinese);
    row("mnuOpenProject", 2, true, {OpenTitle});
    row("mnuOpenProject", 2, true, {QStringLiteral("打开工程")}, LanguageChinese);
    row("mnuSaveProject", 2, false, {SaveTitle});
    row("mnuSaveProject", 2, false, {QStringLiteral("保存为...")}, LanguageChinese);
    row("mnuSaveProjectAs", 2, false, {CopyTitle});
    row("mnuSaveProjectAs", 2, false, {QStringLiteral("另存为...")}, LanguageChinese);
    row("mnuSaveAllProjects", 2, false, {SaveTitle, SaveTitle});
    row("mnuCloseProject", 2, false, {CloseQuestion});
    row("mnuCloseProject", 2, false, {QStringLiteral("当前操作会移除此工程! ")}, LanguageChinese);
    row("mnuCloseAllProjects", 2, false, {CloseAllQuestion});
    row("mnuCloseAllProjects", 2, false, {QStringLiteral("当前操作会移除所有工程! ")}, LanguageChinese);
    row("mnuPop2NewProject", 1, false, {ConnectFirst});
    row("mnuPop2NewProject", 1, true, {SensorTitle});
    row("mnuPop2OpenProject", 1, false, {ConnectFirst});
    row("mnuPop2OpenProject", 1, true, {OpenTitle});
    row("mnuPop2SaveAllProjects", 1, false, {SaveTitle, SaveTitle});
    row("mnuPop2CloseAllProjects", 1, false, {CloseAllQuestion});
}

void ProjectSheetMenusTest::every_item_runs_its_command()
{
    QFETCH(const QString, item);
    QFETCH(const int, selected);
    QFETCH(const bool, linked);
    QFETCH(const int, language);
    QFETCH(const QStringList, seen);
    const ProjectSheetBench bench(2);
    LinkUp = linked;
    CurrentLanguage = language;
    Select(selected);
    RightPress(0);
    const Refusals refusals;
    ClickItem(item);
    QCOMPARE(refusals.Seen(), seen);
    QCOMPARE(OpenMenu(), nullptr);
    QCOMPARE(ProjectCount, std::int16_t{2});
}

void ProjectSheetMenusTest::save_writes_the_active_project_whatever_node_is_selected()
{
    const ProjectSheetBench bench(2);
    const BoxAnswers noBox;
    const QTemporaryDir folder;
    ProjectSlots[0].FilePath = folder.filePath(QStringLiteral("first.spj"));
    ProjectSlots[1].FilePath = folder.filePath(QStringLiteral("second.spj"));
    QCOMPARE(ActiveSlot(), 1);
    Select(2);
    RightPress(2);
    ClickItem(QStringLiteral("mnuSaveProject"));
    QVERIFY(QFileInfo::exists(ProjectSlots[1].FilePath));
    QVERIFY(!QFileInfo::exists(ProjectSlots[0].FilePath));
    RightPress(2);
    ClickItem(QStringLiteral("mnuSaveAllProjects"));
    QVERIFY(QFileInfo::exists(ProjectSlots[0].FilePath));
}

QTEST_MAIN(ProjectSheetMenusTest)
#include "tst_project_sheet_menus.moc"
