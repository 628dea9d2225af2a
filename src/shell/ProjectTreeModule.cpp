#include "shell/ProjectTreeModule.h"

#include "display/SensorProjFrm.h"
#include "platform/RuntimeError.h"
#include "project/ProjectTable.h"
#include "shell/LanguageTables.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/SystemStatus.h"

#include <QIcon>

ProjectSheetFrm *ProjectSheet = nullptr;
QTreeWidget *ProjectTree = nullptr;
QTreeWidgetItem *RootNode = nullptr;
QString ProjectRootText;
bool ProjectTreeFirstFill = true;

namespace {

constexpr int FirstProjectIndex = 2; // the root stands ahead of all projects

QIcon Picture(const char *name)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(name)));
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
    project->setIcon(0, Picture("project"));
    for (int tab = 1; tab <= ProjectSlots[slot].ChildCount; ++tab) {
        auto *page = new QTreeWidgetItem(project, {PageCaption(slot, tab)});
        page->setIcon(0, Picture("project-page"));
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

void RemoveNode(int index)
{
    QTreeWidgetItem *node = ProjectSheet != nullptr ? ProjectSheet->NodeAt(index) : nullptr;
    if (node == nullptr)
        throw RuntimeError(ErrorNumber::OutOfRange);
    ForgetNode(node);
    delete node; // takes its children along
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
    RootNode->setIcon(0, Picture("project-group"));
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
