#include "controls/NodeTree.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>

#include <utility>

NodeTree::NodeTree(QWidget *parent) : QTreeWidget(parent)
{
    setColumnCount(1);
    setHeaderHidden(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setExpandsOnDoubleClick(false);
    connect(this, &QTreeWidget::itemCollapsed, this, &NodeTree::SelectClosed);
}

void NodeTree::StartLabelEdit()
{
    QTreeWidgetItem *node = currentItem();
    if (node == nullptr)
        return;
    bool cancel = false;
    emit BeforeLabelEdit(cancel);
    if (cancel)
        return;
    node->setFlags(node->flags() | Qt::ItemIsEditable);
    editItem(node);
}

// The toolkit would select with every button.
void NodeTree::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        QTreeWidget::mousePressEvent(event);
    else if (event->button() == Qt::RightButton)
        emit MenuAsked(event->globalPosition().toPoint());
}

void NodeTree::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const Qt::KeyboardModifiers keys = event->modifiers();
    QTreeWidget::mouseReleaseEvent(event);
    emit LeftButtonUp(keys);
}

void NodeTree::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    const bool onArrow = OnArrow(event->position().toPoint());
    QTreeWidget::mouseDoubleClickEvent(event);
    if (!onArrow)
        emit DoubleClick();
}

// The press of the right button has asked already.
void NodeTree::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        AskForMenuByKey();
}

// Not every platform makes a context menu event of this key.
void NodeTree::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        AskForMenuByKey();
    else
        QTreeWidget::keyPressEvent(event);
}

// The toolkit would take the selection away from a node that is clicked with the control key.
QItemSelectionModel::SelectionFlags NodeTree::selectionCommand(const QModelIndex &index, const QEvent *event) const
{
    const QItemSelectionModel::SelectionFlags command = QTreeWidget::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate : command;
}

void NodeTree::commitData(QWidget *editor)
{
    QTreeWidget::commitData(editor);
    if (const auto *box = qobject_cast<QLineEdit *>(editor))
        m_label = box->text();
}

// Whoever hears of the label must find the editor gone, since a box that takes the keyboard would commit it again. The
// toolkit's hint would lead on to another node.
void NodeTree::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint)
{
    QTreeWidget::closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (QTreeWidgetItem *node = currentItem())
        node->setFlags(node->flags() & ~Qt::ItemIsEditable);
    if (const std::optional<QString> label = std::exchange(m_label, std::nullopt))
        emit AfterLabelEdit(*label);
}

void NodeTree::AskForMenuByKey()
{
    scrollToItem(currentItem());
    emit MenuAsked(viewport()->mapToGlobal(visualItemRect(currentItem()).bottomLeft()));
}

bool NodeTree::OnArrow(QPoint position) const
{
    const QTreeWidgetItem *node = itemAt(position);
    if (node == nullptr || node->childCount() == 0)
        return false;
    const int labelLeft = visualItemRect(node).left();
    return position.x() < labelLeft && position.x() >= labelLeft - indentation();
}

void NodeTree::SelectClosed(QTreeWidgetItem *node)
{
    for (const QTreeWidgetItem *above = currentItem(); above != nullptr; above = above->parent()) {
        if (above == node)
            setCurrentItem(node);
    }
}
