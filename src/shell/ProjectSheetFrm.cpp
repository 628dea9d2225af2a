#include "shell/ProjectSheetFrm.h"

#include "controls/MenuDesign.h"

#include <QTreeWidgetItemIterator>

namespace {

using MenuItem = MenuItemOf<ProjectSheetFrm>;
using P = ProjectSheetFrm;

constexpr MenuItem projectItems[] = {
    {&P::mnuNewProject, "mnuNewProject", "&New Project"},
    {&P::mnuOpenProject, "mnuOpenProject", "&Open Project..."},
    {&P::mnuPopBar0, "mnuPopBar0", nullptr},
    {&P::mnuSaveProject, "mnuSaveProject", "&Save Project"},
    {&P::mnuSaveProjectAs, "mnuSaveProjectAs", "Sa&ve Project As..."},
    {&P::mnuSaveAllProjects, "mnuSaveAllProjects", "Save &All Projects"},
    {&P::mnuPopBar1, "mnuPopBar1", nullptr, "", false},
    {&P::mnuRename, "mnuRename", "&Rename", "", false},
    {&P::mnuPopBar3, "mnuPopBar3", nullptr},
    {&P::mnuCloseProject, "mnuCloseProject", "&Close Project"},
    {&P::mnuCloseAllProjects, "mnuCloseAllProjects", "Close All &Projects"},
};

constexpr MenuItem rootItems[] = {
    {&P::mnuPop2NewProject, "mnuPop2NewProject", "&New Project"},
    {&P::mnuPop2OpenProject, "mnuPop2OpenProject", "&Open Project..."},
    {&P::mnuPop2Bar0, "mnuPop2Bar0", nullptr},
    {&P::mnuPop2SaveAllProjects, "mnuPop2SaveAllProjects", "Save &All Projects"},
    {&P::mnuPop2Bar1, "mnuPop2Bar1", nullptr},
    {&P::mnuPop2CloseAllProjects, "mnuPop2CloseAllProjects", "Close All &Projects"},
};

QMenu *NewMenu(QWidget *parent, const char *name, const char *caption)
{
    auto *menu = new QMenu(QString::fromLatin1(caption), parent);
    menu->setObjectName(QString::fromLatin1(name));
    return menu;
}

} // namespace

ProjectSheetFrm::ProjectSheetFrm(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("ProjectSheetFrm"));
    ProjectSheetTree = new NodeTree(this);
    ProjectSheetTree->setObjectName(QStringLiteral("ProjectSheetTree"));
    MakePictures();
    MakeMenus();
}

void ProjectSheetFrm::MakePictures()
{
    imlTree = new ImageList(this);
    imlTree->setObjectName(QStringLiteral("imlTree"));
    for (const char *name : {"project-group", "project", "", "", "", "project-page"}) {
        const QString picture = QString::fromLatin1(name);
        const QIcon icon = *name ? QIcon(QStringLiteral(":/icons/%1.svg").arg(picture)) : QIcon();
        imlTree->Add(imlTree->Count() + 1, picture, icon);
    }
}

void ProjectSheetFrm::MakeMenus()
{
    pop_mnu1 = NewMenu(this, "pop_mnu1", "popmenu");
    FillMenu(*this, pop_mnu1, projectItems);
    pop_mnu2 = NewMenu(this, "pop_mnu2", "popmenu2");
    FillMenu(*this, pop_mnu2, rootItems);
}

QTreeWidgetItem *ProjectSheetFrm::NodeAt(int index) const
{
    QTreeWidgetItemIterator node(ProjectSheetTree);
    for (int position = 1; *node; ++node, ++position) {
        if (position == index)
            return *node;
    }
    return nullptr;
}

int ProjectSheetFrm::NodeCount() const
{
    int count = 0;
    for (QTreeWidgetItemIterator node(ProjectSheetTree); *node; ++node)
        ++count;
    return count;
}

int ProjectSheetFrm::SelectedIndex() const
{
    const QTreeWidgetItem *selected = ProjectSheetTree->currentItem();
    QTreeWidgetItemIterator node(ProjectSheetTree);
    for (int position = 1; *node; ++node, ++position) {
        if (*node == selected)
            return position;
    }
    return 0;
}

void ProjectSheetFrm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    ProjectSheetTree->setGeometry(rect());
}
