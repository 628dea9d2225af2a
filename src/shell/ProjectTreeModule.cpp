#include "shell/ProjectTreeModule.h"

#include "display/SensorProjFrm.h"
#include "platform/RuntimeError.h"
#include "project/ProjectTable.h"
#include "shell/LanguageTables.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/SystemStatus.h"

ProjectSheetFrm *ProjectSheet = nullptr;
QTreeWidget *ProjectTree = nullptr;
QTreeWidgetItem *RootNode = nullptr;
QString ProjectRootText;
bool ProjectTreeFirstFill = true;

namespace {

constexpr int FirstProjectIndex = 2; // the root stands ahead of all projects

// Places in the tree's image list.
constexpr int GroupPicture = 1;
constexpr int ProjectPicture = 2;
constexpr int PagePicture = 6;

void SetPicture(QTreeWidgetItem &node, int picture)
{
    node.setIcon(0, ProjectSheet->imlTree->Image(picture));
}

QString PageCaption(int slot, int tab)
{
    if (const SensorProjFrm *form = ProjectForm[slot])
        return form->TabStrip->Caption(tab);
    // A slot without a window, which the rebuild can meet: the caption that its window would come with.
    const CaptionRow &row = TabCaptions[tab - 1];
    return Wording(QString::fromUtf8(row.English), QString::fromUtf8(row.Chinese));
}

/// The project's node and, behind it in the flat order, one node a page.
QTreeWidgetItem *NewProjectNode(int slot)
{
    if (RootNode == nullptr)
        throw RuntimeError(ErrorNumber::NoObject);
    auto *project = new QTreeWidgetItem(RootNode, {ProjectSlots[slot].ProjectName});
    SetPicture(*project, ProjectPicture);
    for (int tab = 1; tab <= ProjectSlots[slot].ChildCount; ++tab) {
        auto *page = new QTreeWidgetItem(project, {PageCaption(slot, tab)});
        SetPicture(*page, PagePicture);
    }
    project->setExpanded(true);
    RootNode->setExpanded(true);
    return project;
}

/// Nothing may hold a node that is gone.
void ForgetNode(const QTreeWidgetItem *node)
{
    for (ProjectSlot &slot : ProjectSlots) {
        if (slot.ProjectNode == node)
            slot.ProjectNode = nullptr;
    }
}

/// The selection leaves a node that is about to go, or one below it, for a neighbour: the next project, else the one
/// ahead, else the root. The toolkit would lose it with a page.
void SelectNeighbour(QTreeWidgetItem *node)
{
    const QTreeWidgetItem *selected = ProjectTree->currentItem();
    while (selected != nullptr && selected != node)
        selected = selected->parent();
    QTreeWidgetItem *above = node->parent();
    if (selected == nullptr || above == nullptr)
        return;
    const int place = above->indexOfChild(node);
    QTreeWidgetItem *next = above->child(place + 1);
    QTreeWidgetItem *ahead = above->child(place - 1);
    ProjectTree->setCurrentItem(next != nullptr ? next : ahead != nullptr ? ahead : above);
}

void RemoveNode(int index)
{
    QTreeWidgetItem *node = ProjectSheet != nullptr ? ProjectSheet->NodeAt(index) : nullptr;
    if (node == nullptr)
        throw RuntimeError(ErrorNumber::OutOfRange);
    ForgetNode(node);
    SelectNeighbour(node);
    delete node; // takes its children along
}

/// What a rebuild showed in the place of a project that was closed already goes with the last project.
void RemoveLeftNodes()
{
    while (RootNode != nullptr && RootNode->childCount() > 0)
        delete RootNode->child(0);
}

void ClearNodes()
{
    for (ProjectSlot &slot : ProjectSlots)
        slot.ProjectNode = nullptr;
    RootNode = nullptr;
    ProjectTree->clear();
}

/// Takes the slots from 0 on in a row. Required: after a project in a lower slot was closed its place shows an empty
/// name and the project in the highest slot is left out, until the projects are closed. Nobody should repair it.
void RebuildProjectNodes()
{
    for (int slot = 0; slot < ProjectNodeCount; ++slot) {
        ProjectSlot &project = ProjectSlots.at(slot);
        project.NodeIndex = static_cast<std::int16_t>((project.ChildCount + 1) * slot + FirstProjectIndex);
        project.ProjectNode = NewProjectNode(slot);
    }
}

} // namespace

void LoadProjectSheet()
{
    if (ClosingAll)
        return;
    ProjectTree = ProjectSheet->ProjectSheetTree;
    ClearNodes();
    ProjectTree->setUniformRowHeights(true);
    ProjectTree->setRootIsDecorated(true);
    RootNode = new QTreeWidgetItem(ProjectTree, {ProjectRootText});
    SetPicture(*RootNode, GroupPicture);
    RootNode->setExpanded(true);
    if (!ProjectTreeFirstFill)
        RebuildProjectNodes();
}

void UnloadProjectSheet()
{
    ClearNodes();
    ProjectPanelVisible = false;
    ProjectTreeFirstFill = false;
    UpdateMenuState();
}

void AddProjectNode(int slot)
{
    QTreeWidgetItem *node = NewProjectNode(CheckedSlot(slot));
    // At the count of nodes, not at the slot: the two differ when a lower slot is taken again.
    ProjectSlots[CheckedSlot(ProjectNodeCount)].ProjectNode = node;
}

void RemoveProjectNode(int slot)
{
    const ProjectSlot &closing = ProjectSlots[CheckedSlot(slot)];
    const auto nodes = static_cast<std::int16_t>(closing.ChildCount + 1);
    for (int other = 0; other < SlotCount; ++other) {
        std::int16_t &index = ProjectSlots[other].NodeIndex;
        if (ProjectOccupied[other] && index > closing.NodeIndex)
            index = static_cast<std::int16_t>(index - nodes);
    }
    ErrorsSetAside hidden;
    hidden.Run([&] { RemoveNode(closing.NodeIndex); });
    --ProjectNodeCount;
    if (ProjectNodeCount == 0)
        RemoveLeftNodes();
}

void ShowNodeName(int slot)
{
    const ProjectSlot &project = ProjectSlots[CheckedSlot(slot)];
    if (QTreeWidgetItem *node = ProjectSheet != nullptr ? ProjectSheet->NodeAt(project.NodeIndex) : nullptr)
        node->setText(0, project.ProjectName);
}

void ShowProjectPanel()
{
    if (RootNode == nullptr)
        LoadProjectSheet();
    MainForm->TabDock->ShowPanel(ProjectSheetPanel);
}

void HideProjectPanel()
{
    MainForm->TabDock->HidePanel(ProjectSheetPanel);
    UnloadProjectSheet();
}

void ResetProjectTreeModule()
{
    ProjectSheet = nullptr;
    ProjectTree = nullptr;
    RootNode = nullptr;
    ProjectRootText.clear();
    ProjectTreeFirstFill = true;
}
