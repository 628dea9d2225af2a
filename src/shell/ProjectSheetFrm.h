/// @file
/// The docked panel with the tree of open projects.
#pragma once

#include <QTreeWidget>
#include <QWidget>

class ProjectSheetFrm : public QWidget {
    Q_OBJECT

public:
    explicit ProjectSheetFrm(QWidget *parent = nullptr);

    QTreeWidget *ProjectSheetTree; ///< fills the panel

    /// A node by its index in the flat collection of all nodes, from 1 (the root); nullptr when there is none.
    QTreeWidgetItem *NodeAt(int index) const;
    int NodeCount() const;

protected:
    void resizeEvent(QResizeEvent *event) override;
};
