/// @file
/// What becomes of the tree's nodes: projects closed from it, the selection after that, and the closed label editing.
#include "controls/NodeTree.h"
#include "shell/ProjectSheetBench.h"
#include "shell/ProjectSheetModule.h"

#include <QLineEdit>

namespace {

const QString CloseQuestion = QStringLiteral("The action will remove this project!");
const QString RootFixed = QStringLiteral("Name of Root Cann't Change! ");
const QString RootFixedChinese = QStringLiteral("根目录内容不能被修改! ");
const QString ItemFixed = QStringLiteral("Name of the Item Cann't Change! ");
const QString ItemFixedChinese = QStringLiteral("该项内容不能被修改! ");

/// The field in which a label is edited; nullptr while none is.
QLineEdit *LabelEditor()
{
    return ProjectTree->findChild<QLineEdit *>();
}

} // namespace

class ProjectSheetNodesTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void close_takes_the_project_of_the_selected_node_data();
    void close_takes_the_project_of_the_selected_node();
    void close_leaves_a_project_that_the_user_keeps();
    void close_on_the_root_does_nothing_data();
    void close_on_the_root_does_nothing();
    void close_finds_the_project_after_others_have_gone();

    void the_selection_moves_on_from_a_closed_project_data();
    void the_selection_moves_on_from_a_closed_project();
    void the_selection_stays_while_others_close();
    void a_tree_that_is_shown_again_has_no_selection();

    void no_label_can_be_edited_data();
    void no_label_can_be_edited();
    void an_edited_label_behind_the_barrier_data();
    void an_edited_label_behind_the_barrier();
    void a_project_follows_its_new_name();
    void a_rename_by_routine_data();
    void a_rename_by_routine();
};

void ProjectSheetNodesTest::close_takes_the_project_of_the_selected_node_data()
{
    QTest::addColumn<int>("node");
    QTest::addColumn<int>("slot");
    QTest::newRow("first project") << 2 << 0;
    QTest::newRow("its last page") << 5 << 0;
    QTest::newRow("second project") << 6 << 1;
    QTest::newRow("its first page") << 7 << 1;
    QTest::newRow("third project") << 10 << 2;
    QTest::newRow("very last page") << 13 << 2;
}

void ProjectSheetNodesTest::close_takes_the_project_of_the_selected_node()
{
    QFETCH(const int, node);
    QFETCH(const int, slot);
    const ProjectSheetBench bench(3);
    BoxAnswers answers({QMessageBox::Ok});
    ClickNode(node);
    RightPress(0);
    ClickItem(QStringLiteral("mnuCloseProject"));
    QCOMPARE(answers.Texts(), QStringList{CloseQuestion});
    for (const int other : {0, 1, 2})
        QCOMPARE(ProjectOccupied[other], other != slot);
    QCOMPARE(ProjectSheet->NodeCount(), 9);
    QVERIFY(!NodeTexts().contains(QStringLiteral("Project-%1").arg(slot + 1)));
}

void ProjectSheetNodesTest::close_leaves_a_project_that_the_user_keeps()
{
    const ProjectSheetBench bench(2);
    const BoxAnswers answers({QMessageBox::Cancel});
    Select(4);
    ProjectSheet->mnuCloseProject->trigger();
    QCOMPARE(answers.Texts(), QStringList{CloseQuestion});
    QCOMPARE(ProjectCount, std::int16_t{2});
    QCOMPARE(ProjectSheet->SelectedIndex(), 4);
}

void ProjectSheetNodesTest::close_on_the_root_does_nothing_data()
{
    QTest::addColumn<int>("node");
    QTest::newRow("the root") << 1;
    QTest::newRow("no node selected") << 0;
}

void ProjectSheetNodesTest::close_on_the_root_does_nothing()
{
    QFETCH(const int, node);
    const ProjectSheetBench bench(2);
    const BoxAnswers noBox;
    Select(node);
    ProjectSheet->mnuCloseProject->trigger();
    QCOMPARE(ProjectCount, std::int16_t{2});
}

void ProjectSheetNodesTest::close_finds_the_project_after_others_have_gone()
{
    ProjectSheetBench bench(3);
    bench.CloseProject(1);
    bench.NewProjectByMenu(); // slot 1 again, behind the other two
    const BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    Select(10);
    ProjectSheet->mnuCloseProject->trigger();
    QVERIFY(!ProjectOccupied[1]);
    Select(6);
    ProjectSheet->mnuCloseProject->trigger();
    QVERIFY(!ProjectOccupied[2]);
    QVERIFY(ProjectOccupied[0]);
}

void ProjectSheetNodesTest::the_selection_moves_on_from_a_closed_project_data()
{
    QTest::addColumn<int>("projects");
    QTest::addColumn<int>("node");
    QTest::addColumn<QString>("selected");
    QTest::newRow("to the next one") << 3 << 6 << QStringLiteral("Project-3");
    QTest::newRow("to the next one, from a page") << 3 << 8 << QStringLiteral("Project-3");
    QTest::newRow("from the first") << 3 << 3 << QStringLiteral("Project-2");
    QTest::newRow("to the one ahead") << 3 << 10 << QStringLiteral("Project-2");
    QTest::newRow("to the one ahead, from a page") << 3 << 13 << QStringLiteral("Project-2");
    QTest::newRow("to the root") << 1 << 2 << QStringLiteral("Project Group");
    QTest::newRow("to the root, from a page") << 1 << 5 << QStringLiteral("Project Group");
}

void ProjectSheetNodesTest::the_selection_moves_on_from_a_closed_project()
{
    QFETCH(const int, projects);
    QFETCH(const int, node);
    const ProjectSheetBench bench(projects);
    const BoxAnswers answers({QMessageBox::Ok});
    Select(node);
    ProjectSheet->mnuCloseProject->trigger();
    QTEST(SelectedText(), "selected");
    QCOMPARE(ProjectTree->selectedItems(), QList{ProjectTree->currentItem()});
}

void ProjectSheetNodesTest::the_selection_stays_while_others_close()
{
    ProjectSheetBench bench(3);
    const QTreeWidgetItem *page = ProjectSheet->NodeAt(8);
    Select(8);
    bench.CloseProject(0);
    QCOMPARE(ProjectTree->currentItem(), page);
    QCOMPARE(ProjectSheet->SelectedIndex(), 4);
    bench.CloseProject(2);
    QCOMPARE(ProjectTree->currentItem(), page);
    QVERIFY(page->isSelected());
}

void ProjectSheetNodesTest::a_tree_that_is_shown_again_has_no_selection()
{
    const ProjectSheetBench bench(2);
    Select(6);
    bench.frame.mnuViewProjectWindow->trigger();
    bench.frame.mnuViewProjectWindow->trigger();
    QCOMPARE(ProjectSheet->NodeCount(), 9);
    QCOMPARE(ProjectSheet->SelectedIndex(), 0);
    RightPress(2);
    QCOMPARE(OpenMenu(), ProjectSheet->pop_mnu2);
}

void ProjectSheetNodesTest::no_label_can_be_edited_data()
{
    QTest::addColumn<int>("node");
    QTest::newRow("the root") << 1;
    QTest::newRow("a project") << 2;
    QTest::newRow("a page") << 4;
}

void ProjectSheetNodesTest::no_label_can_be_edited()
{
    QFETCH(const int, node);
    const ProjectSheetBench bench(1);
    const BoxAnswers noBox;
    const QStringList before = NodeTexts();
    ClickNode(node);
    ClickNode(node);
    QCOMPARE(LabelEditor(), nullptr);
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A}) {
        QTest::keyClick(ProjectTree, key);
        QCOMPARE(LabelEditor(), nullptr);
    }
    Select(node);
    DoubleClickNode(node);
    QCOMPARE(LabelEditor(), nullptr);
    ProjectSheet->mnuRename->trigger();
    QCOMPARE(LabelEditor(), nullptr);
    QCOMPARE(ProjectSheet->SelectedIndex(), node);
    QCOMPARE(NodeTexts(), before);
}

void ProjectSheetNodesTest::an_edited_label_behind_the_barrier_data()
{
    QTest::addColumn<int>("node");
    QTest::addColumn<QStringList>("boxes");
    QTest::addColumn<QString>("text");
    QTest::newRow("the root") << 1 << QStringList{RootFixed} << QStringLiteral("Project Group");
    QTest::newRow("a project") << 2 << QStringList() << QStringLiteral("Boiler");
    QTest::newRow("first page") << 3 << QStringList{ItemFixed} << QStringLiteral("Reference Curve");
    QTest::newRow("last page") << 5 << QStringList{ItemFixed} << QStringLiteral("Measure Curve");
}

void ProjectSheetNodesTest::an_edited_label_behind_the_barrier()
{
    QFETCH(const int, node);
    QFETCH(const QStringList, boxes);
    ProjectSheetBench bench(1);
    bench.frame.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&bench.frame));
    QVERIFY(QObject::disconnect(ProjectSheet->ProjectSheetTree, &NodeTree::BeforeLabelEdit, ProjectSheet, nullptr));
    const BoxAnswers answers(QList<QMessageBox::StandardButton>(boxes.size(), QMessageBox::Ok));
    Select(node);
    ProjectSheet->mnuRename->trigger();
    QVERIFY(LabelEditor() != nullptr);
    LabelEditor()->selectAll();
    QTest::keyClicks(LabelEditor(), QStringLiteral("Boiler"));
    QTest::keyClick(LabelEditor(), Qt::Key_Return);
    QTRY_COMPARE(LabelEditor(), nullptr);
    QTRY_COMPARE(answers.Texts(), boxes);
    QTEST(ProjectSheet->NodeAt(node)->text(0), "text");
    QCOMPARE(ProjectSlots[0].ProjectName, node == 2 ? QStringLiteral("Boiler") : QStringLiteral("Project-1"));
}

void ProjectSheetNodesTest::a_project_follows_its_new_name()
{
    const ProjectSheetBench bench(2);
    const BoxAnswers noBox;
    FormOfSlot(0).Tag.clear();
    Select(2);
    CommitNodeRename(QStringLiteral("Boiler"));
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Boiler"));
    QCOMPARE(FormOfSlot(0).windowTitle(), QStringLiteral("Boiler"));
    QCOMPARE(FormOfSlot(0).Tag, QStringLiteral("0"));
    QCOMPARE(ProjectSlots[1].ProjectName, QStringLiteral("Project-2"));
}

void ProjectSheetNodesTest::a_rename_by_routine_data()
{
    QTest::addColumn<int>("node");
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("box");
    QTest::newRow("the root") << 1 << LanguageEnglish << RootFixed;
    QTest::newRow("the root, Chinese") << 1 << LanguageChinese << RootFixedChinese;
    QTest::newRow("a page") << 7 << LanguageEnglish << ItemFixed;
    QTest::newRow("a page, Chinese") << 7 << LanguageChinese << ItemFixedChinese;
}

void ProjectSheetNodesTest::a_rename_by_routine()
{
    QFETCH(const int, node);
    QFETCH(const int, language);
    QFETCH(const QString, box);
    const ProjectSheetBench bench(2);
    (language == LanguageChinese ? bench.frame.mnuHelpLang_Chinese : bench.frame.mnuHelpLang_English)->trigger();
    const QStringList before = NodeTexts();
    const BoxAnswers answers({QMessageBox::Ok});
    Select(node);
    ProjectSheet->NodeAt(node)->setText(0, QStringLiteral("Boiler"));
    CommitNodeRename(QStringLiteral("Boiler"));
    QCOMPARE(answers.Texts(), QStringList{box});
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
    QCOMPARE(NodeTexts(), before);
}

QTEST_MAIN(ProjectSheetNodesTest)
#include "tst_project_sheet_nodes.moc"
