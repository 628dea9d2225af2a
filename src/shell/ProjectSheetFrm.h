/// @file
/// The docked panel with the tree of open projects, and the tree's two pop-up menus.
#pragma once

#include "controls/ImageList.h"
#include "controls/NodeTree.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

class ProjectSheetFrm : public QWidget {
    Q_OBJECT

public:
    explicit ProjectSheetFrm(QWidget *parent = nullptr);

    NodeTree *ProjectSheetTree; ///< fills the panel
    ImageList *imlTree;         ///< its pictures: 1 the group, 2 a project, 6 a page; the others stand at no node

    QMenu *pop_mnu1; ///< of a project and its pages
    QMenu *pop_mnu2; ///< of the root
    QAction *mnuNewProject, *mnuOpenProject, *mnuPopBar0, *mnuSaveProject, *mnuSaveProjectAs, *mnuSaveAllProjects,
        *mnuPopBar1, *mnuRename, *mnuPopBar3, *mnuCloseProject, *mnuCloseAllProjects;
    QAction *mnuPop2NewProject, *mnuPop2OpenProject, *mnuPop2Bar0, *mnuPop2SaveAllProjects, *mnuPop2Bar1,
        *mnuPop2CloseAllProjects;

    /// A node by its index in the flat collection of all nodes, from 1 (the root); nullptr when there is none.
    QTreeWidgetItem *NodeAt(int index) const;
    int NodeCount() const;
    /// The index of the selected node, 0 when none is selected.
    int SelectedIndex() const;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void MakePictures();
    void MakeMenus();
};
