/// @file
/// The tree of open projects: positions of its nodes, adding, removing, and the rebuild when the panel is shown again.
#include "shell/ActiveProject.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "support/BareFrame.h"
#include "support/ErrorOf.h"

#include <QTest>

namespace {

/// A frame with the panel, in English.
class Panel {
public:
    Panel()
    {
        ResetProjectTreeModule();
        ProjectSheet = new ProjectSheetFrm(&bare.frame);
        ProjectRootText = QStringLiteral("Project Group");
        bare.frame.TabDock->AddPanel(ProjectSheetPanel, ProjectSheet);
        ProjectPanelVisible = true;
        LoadProjectSheet();
        bare.frame.TabDock->ShowPanel(ProjectSheetPanel);
    }

    ~Panel() { ResetProjectTreeModule(); }

    Panel(const Panel &) = delete;
    Panel &operator=(const Panel &) = delete;

    /// Opens a project with a node at a position.
    void Open(int slot, std::int16_t nodeIndex)
    {
        SensorProjFrm &form = bare.AddProject(slot);
        form.TabStrip->SetCaption(1, QStringLiteral("Reference Curve"));
        form.TabStrip->SetCaption(2, QStringLiteral("Edit Data"));
        form.TabStrip->SetCaption(3, QStringLiteral("Measure Curve"));
        ProjectSlots[slot].NodeIndex = nodeIndex;
        if (ProjectPanelVisible)
            AddProjectNode(slot);
        ++ProjectNodeCount;
    }

    /// What the closing of a window does to table and tree.
    void Close(int slot)
    {
        ProjectSlots[slot].ProjectName.clear();
        RemoveProjectNode(slot);
        ProjectOccupied[slot] = false;
        --ProjectCount;
        delete ProjectForm[slot];
        ProjectForm[slot] = nullptr;
    }

    BareFrame bare;
};

/// All node texts in flat order, a project's pages as their count.
QStringList Outline()
{
    QStringList texts;
    for (int index = 1; index <= ProjectSheet->NodeCount(); ++index) {
        const QTreeWidgetItem *node = ProjectSheet->NodeAt(index);
        if (node->parent() == RootNode || node->parent() == nullptr)
            texts.append(node->text(0) + u'/' + QString::number(node->childCount()));
    }
    return texts;
}

QList<int> NodeIndices(const QList<int> &slotNumbers)
{
    QList<int> indices;
    for (const int slot : slotNumbers)
        indices.append(ProjectSlots[slot].NodeIndex);
    return indices;
}

const QString Group = QStringLiteral("Project Group/");

} // namespace

class ProjectTreeTest : public QObject {
    Q_OBJECT

private slots:
    void the_first_fill_is_the_root_alone();
    void a_project_takes_its_position_and_the_next_three();
    void nodes_have_pictures();
    void no_label_can_be_edited();
    void projects_stand_in_the_order_of_their_adding();
    void the_node_is_kept_at_the_count_of_nodes();
    void closing_the_middle_project_moves_the_later_ones_up();
    void a_project_in_a_slot_taken_again_stands_last();
    void closing_counts_occupied_slots_only();
    void a_hidden_panel_has_no_nodes();
    void closing_while_the_panel_is_hidden_still_counts();
    void adding_without_a_root_is_refused();
    void showing_the_panel_again_rebuilds_the_tree();
    void a_project_made_behind_a_hidden_panel_appears_with_it();
    void the_rebuild_takes_the_lowest_slots();
    void the_last_project_takes_all_nodes_along();
    void a_panel_shown_twice_keeps_its_nodes();
    void nothing_is_loaded_while_all_is_closed();
    void the_tree_fills_the_panel();
    void the_active_slot_comes_from_the_tag();
    void a_bad_tag_is_an_error_data();
    void a_bad_tag_is_an_error();
    void the_active_child_stays_while_another_window_is_in_front();
};

void ProjectTreeTest::the_first_fill_is_the_root_alone()
{
    const Panel panel;
    QCOMPARE(Outline(), QStringList{Group + u'0'});
    QCOMPARE(ProjectSheet->NodeAt(1), RootNode);
    QCOMPARE(ProjectTree, ProjectSheet->ProjectSheetTree);
    QCOMPARE(ProjectSheet->NodeAt(0), nullptr);
    QCOMPARE(ProjectSheet->NodeAt(2), nullptr);
}

void ProjectTreeTest::a_project_takes_its_position_and_the_next_three()
{
    Panel panel;
    panel.Open(0, 2);
    QCOMPARE(ProjectSheet->NodeCount(), 5);
    QCOMPARE(ProjectSheet->NodeAt(2)->text(0), QStringLiteral("Project-1"));
    QCOMPARE(ProjectSheet->NodeAt(3)->text(0), QStringLiteral("Reference Curve"));
    QCOMPARE(ProjectSheet->NodeAt(4)->text(0), QStringLiteral("Edit Data"));
    QCOMPARE(ProjectSheet->NodeAt(5)->text(0), QStringLiteral("Measure Curve"));
    for (int index = 3; index <= 5; ++index)
        QCOMPARE(ProjectSheet->NodeAt(index)->parent(), ProjectSheet->NodeAt(2));
    QVERIFY(ProjectSheet->NodeAt(2)->isExpanded());
    QVERIFY(RootNode->isExpanded());
}

void ProjectTreeTest::nodes_have_pictures()
{
    Panel panel;
    panel.Open(0, 2);
    for (int index = 1; index <= 5; ++index)
        QVERIFY(!ProjectSheet->NodeAt(index)->icon(0).pixmap(16).isNull());
}

void ProjectTreeTest::no_label_can_be_edited()
{
    const Panel panel;
    QCOMPARE(ProjectTree->editTriggers(), QAbstractItemView::EditTriggers(QAbstractItemView::NoEditTriggers));
    QVERIFY(!(RootNode->flags() & Qt::ItemIsEditable));
}

void ProjectTreeTest::projects_stand_in_the_order_of_their_adding()
{
    Panel panel;
    panel.Open(4, 2);
    panel.Open(1, 6);
    panel.Open(9, 10);
    QCOMPARE(Outline(), (QStringList{Group + u'3', QStringLiteral("Project-5/3"), QStringLiteral("Project-2/3"),
                                     QStringLiteral("Project-10/3")}));
    for (const int slot : {4, 1, 9})
        QCOMPARE(ProjectSheet->NodeAt(ProjectSlots[slot].NodeIndex)->text(0), ProjectSlots[slot].ProjectName);
}

void ProjectTreeTest::the_node_is_kept_at_the_count_of_nodes()
{
    Panel panel;
    panel.Open(4, 2);
    QCOMPARE(ProjectSlots[0].ProjectNode, ProjectSheet->NodeAt(2));
    QCOMPARE(ProjectSlots[4].ProjectNode, nullptr);
    panel.Open(0, 6);
    QCOMPARE(ProjectSlots[1].ProjectNode, ProjectSheet->NodeAt(6));
}

void ProjectTreeTest::closing_the_middle_project_moves_the_later_ones_up()
{
    Panel panel;
    panel.Open(0, 2);
    panel.Open(1, 6);
    panel.Open(2, 10);
    panel.Close(1);
    QCOMPARE(NodeIndices({0, 2}), (QList<int>{2, 6}));
    QCOMPARE(ProjectNodeCount, std::int16_t{2});
    QCOMPARE(Outline(), (QStringList{Group + u'2', QStringLiteral("Project-1/3"), QStringLiteral("Project-3/3")}));
    QCOMPARE(ProjectSheet->NodeAt(6)->text(0), QStringLiteral("Project-3"));
}

void ProjectTreeTest::a_project_in_a_slot_taken_again_stands_last()
{
    Panel panel;
    panel.Open(0, 2);
    panel.Open(1, 6);
    panel.Open(2, 10);
    panel.Close(1);
    panel.Open(1, 10); // the largest position, 6, and the four nodes there
    QCOMPARE(Outline(), (QStringList{Group + u'3', QStringLiteral("Project-1/3"), QStringLiteral("Project-3/3"),
                                     QStringLiteral("Project-2/3")}));
    QCOMPARE(ProjectSheet->NodeAt(10)->text(0), QStringLiteral("Project-2"));
    panel.Close(0);
    QCOMPARE(NodeIndices({1, 2}), (QList<int>{6, 2}));
    QCOMPARE(ProjectSheet->NodeAt(6)->text(0), QStringLiteral("Project-2"));
    QCOMPARE(ProjectSheet->NodeAt(2)->text(0), QStringLiteral("Project-3"));
}

void ProjectTreeTest::closing_counts_occupied_slots_only()
{
    Panel panel;
    panel.Open(0, 2);
    panel.Open(1, 6);
    ProjectSlots[7].NodeIndex = 30; // left over from a project that is closed
    panel.Close(0);
    QCOMPARE(NodeIndices({1, 7}), (QList<int>{2, 30}));
}

void ProjectTreeTest::a_hidden_panel_has_no_nodes()
{
    Panel panel;
    panel.Open(0, 2);
    HideProjectPanel();
    QVERIFY(!ProjectPanelVisible);
    QVERIFY(!ProjectTreeFirstFill);
    QVERIFY(!panel.bare.frame.TabDock->PanelVisible(ProjectSheetPanel));
    QCOMPARE(ProjectSheet->NodeCount(), 0);
    QCOMPARE(RootNode, nullptr);
    QCOMPARE(ProjectNodeCount, std::int16_t{1});
}

void ProjectTreeTest::closing_while_the_panel_is_hidden_still_counts()
{
    Panel panel;
    panel.Open(0, 2);
    panel.Open(1, 6);
    HideProjectPanel();
    panel.Close(0);
    QCOMPARE(NodeIndices({1}), QList<int>{2});
    QCOMPARE(ProjectNodeCount, std::int16_t{1});
}

void ProjectTreeTest::adding_without_a_root_is_refused()
{
    Panel panel;
    HideProjectPanel();
    panel.bare.AddProject(0);
    QCOMPARE(ErrorOf([] { AddProjectNode(0); }), ErrorNumber::NoObject);
    QCOMPARE(ErrorOf([] { AddProjectNode(10); }), ErrorNumber::OutOfRange);
    QCOMPARE(ErrorOf([] { RemoveProjectNode(-1); }), ErrorNumber::OutOfRange);
}

void ProjectTreeTest::showing_the_panel_again_rebuilds_the_tree()
{
    Panel panel;
    panel.Open(0, 2);
    panel.Open(1, 6);
    const QStringList before = Outline();
    HideProjectPanel();
    ProjectPanelVisible = true;
    ShowProjectPanel();
    QVERIFY(panel.bare.frame.TabDock->PanelVisible(ProjectSheetPanel));
    QCOMPARE(Outline(), before);
    QCOMPARE(NodeIndices({0, 1}), (QList<int>{2, 6}));
    QCOMPARE(ProjectSheet->NodeAt(8)->text(0), QStringLiteral("Edit Data"));
    QCOMPARE(ProjectSlots[1].ProjectNode, ProjectSheet->NodeAt(6));
}

void ProjectTreeTest::a_project_made_behind_a_hidden_panel_appears_with_it()
{
    Panel panel;
    HideProjectPanel();
    panel.Open(0, 2);
    QCOMPARE(ProjectSheet->NodeCount(), 0);
    ProjectPanelVisible = true;
    ShowProjectPanel();
    QCOMPARE(Outline(), (QStringList{Group + u'1', QStringLiteral("Project-1/3")}));
}

void ProjectTreeTest::the_rebuild_takes_the_lowest_slots()
{
    Panel panel;
    panel.Open(0, 2);
    panel.Open(1, 6);
    panel.Open(2, 10);
    panel.Close(0);
    HideProjectPanel();
    ProjectPanelVisible = true;
    ShowProjectPanel();
    // The place of the closed project is empty, the highest one is left out.
    QCOMPARE(Outline(), (QStringList{Group + u'2', QStringLiteral("/3"), QStringLiteral("Project-2/3")}));
    QCOMPARE(NodeIndices({0, 1}), (QList<int>{2, 6}));
    QCOMPARE(ProjectSheet->NodeAt(3)->text(0), QStringLiteral("Reference Curve"));
}

void ProjectTreeTest::the_last_project_takes_all_nodes_along()
{
    Panel panel;
    panel.Open(0, 2);
    panel.Open(1, 6);
    panel.Open(2, 10);
    panel.Close(0);
    HideProjectPanel();
    ProjectPanelVisible = true;
    ShowProjectPanel();
    // Two projects claim one node now, and one node stands for none.
    panel.Close(1);
    QCOMPARE(Outline(), (QStringList{Group + u'1', QStringLiteral("/3")}));
    panel.Close(2);
    QCOMPARE(Outline(), QStringList{Group + u'0'});
    QCOMPARE(ProjectNodeCount, 0);
}

void ProjectTreeTest::a_panel_shown_twice_keeps_its_nodes()
{
    Panel panel;
    panel.Open(0, 2);
    const QTreeWidgetItem *node = ProjectSheet->NodeAt(2);
    ShowProjectPanel();
    QCOMPARE(ProjectSheet->NodeAt(2), node);
}

void ProjectTreeTest::nothing_is_loaded_while_all_is_closed()
{
    Panel panel;
    panel.Open(0, 2);
    HideProjectPanel();
    ClosingAll = true;
    LoadProjectSheet();
    QCOMPARE(ProjectSheet->NodeCount(), 0);
    ClosingAll = false;
    LoadProjectSheet();
    QCOMPARE(ProjectSheet->NodeCount(), 5);
}

void ProjectTreeTest::the_tree_fills_the_panel()
{
    ProjectSheetFrm sheet;
    sheet.resize(311, 457);
    sheet.show();
    QCOMPARE(sheet.ProjectSheetTree->geometry(), QRect(0, 0, 311, 457));
}

void ProjectTreeTest::the_active_slot_comes_from_the_tag()
{
    Panel panel;
    QCOMPARE(ActiveProjectForm(), nullptr);
    QCOMPARE(ErrorOf([] { ActiveSlot(); }), ErrorNumber::NoObject);
    panel.Open(0, 2);
    panel.Open(7, 6);
    QCOMPARE(ActiveSlot(), 7);
    panel.bare.frame.Children->setActiveSubWindow(ProjectForm[0]);
    QCOMPARE(ActiveProjectForm(), ProjectForm[0]);
    QCOMPARE(ActiveSlot(), 0);
    QCOMPARE(&FormOfSlot(7), ProjectForm[7]);
    QCOMPARE(ErrorOf([] { FormOfSlot(3); }), ErrorNumber::NoObject);
    QCOMPARE(ErrorOf([] { FormOfSlot(10); }), ErrorNumber::OutOfRange);
}

void ProjectTreeTest::a_bad_tag_is_an_error_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("error");
    QTest::newRow("empty") << QString() << ErrorNumber::TypeMismatch;
    QTest::newRow("no number") << QStringLiteral("Project-1") << ErrorNumber::TypeMismatch;
    QTest::newRow("below") << QStringLiteral("-1") << ErrorNumber::OutOfRange;
    QTest::newRow("above") << QStringLiteral("10") << ErrorNumber::OutOfRange;
    QTest::newRow("lowest") << QStringLiteral("0") << 0;
    QTest::newRow("highest") << QStringLiteral("9") << 0;
}

void ProjectTreeTest::a_bad_tag_is_an_error()
{
    QFETCH(const QString, tag);
    QFETCH(const int, error);
    SensorProjFrm form;
    form.Tag = tag;
    QCOMPARE(ErrorOf([&] { SlotOf(form); }), error);
}

void ProjectTreeTest::the_active_child_stays_while_another_window_is_in_front()
{
    Panel panel;
    panel.Open(0, 2);
    panel.Open(1, 6);
    QVERIFY(QTest::qWaitForWindowActive(&panel.bare.frame));
    QWidget box;
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QCOMPARE(ActiveSlot(), 1);
}

QTEST_MAIN(ProjectTreeTest)
#include "tst_project_tree.moc"
