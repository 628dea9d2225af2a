/// @file
/// The tree with one selected node: what the mouse selects and tells, and the editing of a label.
#include "controls/NodeTree.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace {

/// A tree in sight: a root that is open, two nodes below it, of which the first is open and has one node.
class Tree : public NodeTree {
public:
    Tree()
    {
        root = new QTreeWidgetItem(this, {QStringLiteral("root")});
        first = new QTreeWidgetItem(root, {QStringLiteral("first")});
        page = new QTreeWidgetItem(first, {QStringLiteral("page")});
        second = new QTreeWidgetItem(root, {QStringLiteral("second")});
        root->setExpanded(true);
        first->setExpanded(true);
        resize(300, 300);
        show();
    }

    QPoint Label(const QTreeWidgetItem *node) const { return visualItemRect(node).center(); }
    /// The arrow ahead of a node's label.
    QPoint Arrow(const QTreeWidgetItem *node) const
    {
        return {visualItemRect(node).left() - indentation() / 2, Label(node).y()};
    }
    QLineEdit *Editor() const { return findChild<QLineEdit *>(); }

    QTreeWidgetItem *root, *first, *page, *second;
};

const QPoint EmptyPart(150, 280);

} // namespace

class NodeTreeTest : public QObject {
    Q_OBJECT

private slots:
    void only_the_left_button_selects_data();
    void only_the_left_button_selects();
    void the_selection_cannot_be_taken_away_data();
    void the_selection_cannot_be_taken_away();
    void a_node_that_closes_takes_the_selection_of_those_below_it();
    void a_node_that_closes_leaves_any_other_selection();
    void the_right_button_asks_for_the_menu_where_it_goes_down();
    void the_left_button_tells_its_keys_when_it_is_let_go();
    void a_double_click_is_told_but_opens_and_closes_nothing_data();
    void a_double_click_is_told_but_opens_and_closes_nothing();
    void a_double_click_on_an_arrow_is_none();
    void no_key_and_no_click_begins_a_label_edit();
    void an_edited_label_is_told_once_it_is_there_data();
    void an_edited_label_is_told_once_it_is_there();
    void a_label_edit_can_be_refused();
    void a_label_edit_that_is_given_up_is_not_told();
    void a_label_edit_without_a_node_does_not_begin();
};

void NodeTreeTest::only_the_left_button_selects_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("selects");
    QTest::newRow("left") << Qt::LeftButton << true;
    QTest::newRow("right") << Qt::RightButton << false;
    QTest::newRow("middle") << Qt::MiddleButton << false;
}

void NodeTreeTest::only_the_left_button_selects()
{
    QFETCH(const Qt::MouseButton, button);
    QFETCH(const bool, selects);
    Tree tree;
    tree.setCurrentItem(tree.first);
    QTest::mouseClick(tree.viewport(), button, {}, EmptyPart);
    QCOMPARE(tree.currentItem(), tree.first);
    QTest::mouseClick(tree.viewport(), button, {}, tree.Label(tree.second));
    QTest::mouseDClick(tree.viewport(), button, {}, tree.Label(tree.second));
    QCOMPARE(tree.currentItem(), selects ? tree.second : tree.first);
    QCOMPARE(tree.selectedItems(), QList{tree.currentItem()});
}

void NodeTreeTest::the_selection_cannot_be_taken_away_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("keys");
    QTest::newRow("control") << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("shift") << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void NodeTreeTest::the_selection_cannot_be_taken_away()
{
    QFETCH(const Qt::KeyboardModifiers, keys);
    Tree tree;
    for (QTreeWidgetItem *node : {tree.page, tree.page, tree.root, tree.root}) {
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, keys, tree.Label(node));
        QCOMPARE(tree.currentItem(), node);
        QCOMPARE(tree.selectedItems(), QList{node});
    }
}

void NodeTreeTest::a_node_that_closes_takes_the_selection_of_those_below_it()
{
    Tree tree;
    tree.setCurrentItem(tree.page);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.Arrow(tree.first));
    QVERIFY(!tree.first->isExpanded());
    QCOMPARE(tree.currentItem(), tree.first);
    QCOMPARE(tree.selectedItems(), QList{tree.first});
    tree.root->setExpanded(false);
    QCOMPARE(tree.currentItem(), tree.root);
}

void NodeTreeTest::a_node_that_closes_leaves_any_other_selection()
{
    Tree tree;
    for (QTreeWidgetItem *node : {tree.second, tree.root, tree.first}) {
        tree.first->setExpanded(true);
        tree.setCurrentItem(node);
        tree.first->setExpanded(false);
        QCOMPARE(tree.currentItem(), node);
    }
}

void NodeTreeTest::the_right_button_asks_for_the_menu_where_it_goes_down()
{
    Tree tree;
    const QSignalSpy asked(&tree, &NodeTree::MenuAsked);
    const QList<QPoint> places{tree.Label(tree.page), EmptyPart};
    for (const QPoint &place : places) {
        const qsizetype before = asked.count();
        QTest::mousePress(tree.viewport(), Qt::RightButton, {}, place);
        QCOMPARE(asked.count(), before + 1);
        QCOMPARE(asked.last()[0].toPoint(), tree.viewport()->mapToGlobal(place));
        QTest::mouseRelease(tree.viewport(), Qt::RightButton, {}, place);
        QCOMPARE(asked.count(), before + 1);
    }
    QTest::mouseDClick(tree.viewport(), Qt::RightButton, {}, EmptyPart);
    QCOMPARE(asked.count(), 3);
    QTest::mouseClick(tree.viewport(), Qt::MiddleButton, {}, EmptyPart);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, EmptyPart);
    QCOMPARE(asked.count(), 3);
}

void NodeTreeTest::the_left_button_tells_its_keys_when_it_is_let_go()
{
    Tree tree;
    const QSignalSpy up(&tree, &NodeTree::LeftButtonUp);
    const Qt::KeyboardModifiers keys = Qt::ShiftModifier | Qt::ControlModifier;
    QTest::mousePress(tree.viewport(), Qt::LeftButton, keys, tree.Label(tree.first));
    QCOMPARE(up.count(), 0);
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, keys, tree.Label(tree.first));
    QCOMPARE(up.count(), 1);
    QCOMPARE(up[0][0].value<Qt::KeyboardModifiers>(), keys);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, EmptyPart);
    QCOMPARE(up.count(), 2);
    QCOMPARE(up[1][0].value<Qt::KeyboardModifiers>(), Qt::KeyboardModifiers());
    QTest::mouseClick(tree.viewport(), Qt::RightButton, keys, tree.Label(tree.first));
    QTest::mouseClick(tree.viewport(), Qt::MiddleButton, keys, tree.Label(tree.first));
    QCOMPARE(up.count(), 2);
}

void NodeTreeTest::a_double_click_is_told_but_opens_and_closes_nothing_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("onNode");
    QTest::addColumn<int>("told");
    QTest::newRow("left, on a node") << Qt::LeftButton << true << 1;
    QTest::newRow("left, in the empty part") << Qt::LeftButton << false << 1;
    QTest::newRow("right, on a node") << Qt::RightButton << true << 0;
    QTest::newRow("middle, on a node") << Qt::MiddleButton << true << 0;
}

void NodeTreeTest::a_double_click_is_told_but_opens_and_closes_nothing()
{
    QFETCH(const Qt::MouseButton, button);
    QFETCH(const bool, onNode);
    Tree tree;
    const QPoint place = onNode ? tree.Label(tree.first) : EmptyPart;
    const QSignalSpy told(&tree, &NodeTree::DoubleClick);
    QTest::mouseClick(tree.viewport(), button, {}, place);
    QCOMPARE(told.count(), 0);
    QTest::mouseDClick(tree.viewport(), button, {}, place);
    QTEST(int(told.count()), "told");
    QVERIFY(tree.first->isExpanded());
}

void NodeTreeTest::a_double_click_on_an_arrow_is_none()
{
    Tree tree;
    const QSignalSpy told(&tree, &NodeTree::DoubleClick);
    const QPoint place = tree.Arrow(tree.first);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
    QVERIFY(!tree.first->isExpanded());
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(told.count(), 0);
    // Ahead of a node that has no arrow, the click is on the node's line.
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, tree.Arrow(tree.second));
    QCOMPARE(told.count(), 1);
}

void NodeTreeTest::no_key_and_no_click_begins_a_label_edit()
{
    Tree tree;
    QVERIFY(QTest::qWaitForWindowActive(&tree));
    const QSignalSpy before(&tree, &NodeTree::BeforeLabelEdit);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.Label(tree.first));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.Label(tree.first));
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, tree.Label(tree.first));
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Space, Qt::Key_F})
        QTest::keyClick(&tree, key);
    QCOMPARE(before.count(), 0);
    QCOMPARE(tree.Editor(), nullptr);
}

void NodeTreeTest::an_edited_label_is_told_once_it_is_there_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Tab, which leads to no other node") << Qt::Key_Tab;
}

void NodeTreeTest::an_edited_label_is_told_once_it_is_there()
{
    QFETCH(const Qt::Key, key);
    Tree tree;
    QVERIFY(QTest::qWaitForWindowActive(&tree));
    QStringList told;
    connect(&tree, &NodeTree::AfterLabelEdit, &tree, [&](const QString &text) {
        QCOMPARE(tree.first->text(0), text);
        QCOMPARE(tree.currentItem(), tree.first);
        tree.viewport()->setFocus(); // as a box would take the keyboard
        told.append(text);
    });
    tree.setCurrentItem(tree.first);
    tree.StartLabelEdit();
    QVERIFY(tree.Editor() != nullptr);
    tree.Editor()->selectAll();
    QTest::keyClicks(tree.Editor(), QStringLiteral("new"));
    QTest::keyClick(tree.Editor(), key);
    QTRY_COMPARE(tree.Editor(), nullptr);
    QCOMPARE(told, QStringList{QStringLiteral("new")});
    QVERIFY(!tree.first->flags().testFlag(Qt::ItemIsEditable));
}

void NodeTreeTest::a_label_edit_can_be_refused()
{
    Tree tree;
    int asked = 0;
    connect(&tree, &NodeTree::BeforeLabelEdit, &tree, [&asked](bool &cancel) {
        ++asked;
        cancel = true;
    });
    tree.setCurrentItem(tree.first);
    tree.StartLabelEdit();
    QCOMPARE(asked, 1);
    QCOMPARE(tree.Editor(), nullptr);
}

void NodeTreeTest::a_label_edit_that_is_given_up_is_not_told()
{
    Tree tree;
    QVERIFY(QTest::qWaitForWindowActive(&tree));
    const QSignalSpy told(&tree, &NodeTree::AfterLabelEdit);
    tree.setCurrentItem(tree.first);
    tree.StartLabelEdit();
    QTest::keyClicks(tree.Editor(), QStringLiteral("new"));
    QTest::keyClick(tree.Editor(), Qt::Key_Escape);
    QTRY_COMPARE(tree.Editor(), nullptr);
    QCOMPARE(told.count(), 0);
    QCOMPARE(tree.first->text(0), QStringLiteral("first"));
}

void NodeTreeTest::a_label_edit_without_a_node_does_not_begin()
{
    Tree tree;
    const QSignalSpy before(&tree, &NodeTree::BeforeLabelEdit);
    tree.setCurrentItem(nullptr);
    tree.StartLabelEdit();
    QCOMPARE(before.count(), 0);
    QCOMPARE(tree.Editor(), nullptr);
}

QTEST_MAIN(NodeTreeTest)
#include "tst_node_tree.moc"
