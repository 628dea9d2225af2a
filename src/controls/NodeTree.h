/// @file
/// A tree of which one node is selected: its context menu follows the selection, and the editing of a label can be
/// refused before it begins.
#pragma once

#include <QTreeWidget>

#include <optional>

/// Only the left button and the keyboard select. The current node is the selected one, and never out of sight in a node
/// that is closed.
class NodeTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit NodeTree(QWidget *parent = nullptr);

    /// Begins the editing of the current node's label, unless BeforeLabelEdit refuses it. No key and no click of the
    /// user does.
    void StartLabelEdit();

signals:
    /// The right button went down anywhere in the tree, or the keyboard asks for the context menu.
    /// @param place on the screen: at the pointer, or below the current node
    void MenuAsked(QPoint place);
    /// Twice the left button, anywhere but on the arrow that opens and closes a node. It opens and closes none.
    void DoubleClick();
    /// The left button was let go, with these keys held.
    void LeftButtonUp(Qt::KeyboardModifiers keys);
    /// The editing of a label is about to begin; cancel set to true leaves the label as it is.
    void BeforeLabelEdit(bool &cancel);
    /// The label of the current node has been edited and shows this text.
    void AfterLabelEdit(const QString &text);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;
    void commitData(QWidget *editor) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void AskForMenuByKey();
    bool OnArrow(QPoint position) const;
    void SelectClosed(QTreeWidgetItem *node);
    std::optional<QString> m_label; // what the editing of a label has left, until its editor is gone
};
