#include "shell/ProjectSheetModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "display/SensorProjFrm.h"
#include "measure/RunState.h"
#include "project/ProjectTable.h"
#include "shell/ActiveProject.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"

#include <algorithm>

namespace {

constexpr int RootIndex = 1;
constexpr int NoSlot = -1;

bool SlotHoldsNode(int slot, int node)
{
    const ProjectSlot &project = ProjectSlots[slot];
    return project.NodeIndex <= node && node < project.NodeIndex + project.ChildCount + 1;
}

/// The occupied slot that a node belongs to. NoSlot for one that a rebuilt tree shows in the place of a closed project;
/// there two slots can claim one node, and it shows the lower.
int SlotOfNode(int node)
{
    for (int slot = 0; slot < SlotCount; ++slot) {
        if (ProjectOccupied[slot] && SlotHoldsNode(slot, node))
            return slot;
    }
    return NoSlot;
}

void ShowRootMenu(const QPoint &place)
{
    const bool anyProject = ProjectSheet->NodeCount() >= 2;
    ProjectSheet->mnuPop2SaveAllProjects->setEnabled(anyProject);
    ProjectSheet->mnuPop2CloseAllProjects->setEnabled(anyProject);
    ProjectSheet->pop_mnu2->popup(place);
}

/// A node that belongs to no slot counts as a project without a name.
void SetRenameItem(int slot, bool isProject)
{
    QString caption = Wording(QStringLiteral("Re&name"), QStringLiteral("重命名"));
    if (isProject)
        caption += u'(' + (slot == NoSlot ? QString() : ProjectSlots[slot].ProjectName) + u')';
    ProjectSheet->mnuRename->setText(caption);
    ProjectSheet->mnuRename->setEnabled(isProject);
}

void BringUp(SensorProjFrm &form)
{
    MainForm->Children->setActiveSubWindow(&form);
    if (form.isMinimized())
        form.showNormal();
}

/// The page of a node that belongs to a project; a project's own node stands for the first.
void ShowPageOfNode(int node)
{
    const int slot = SlotOfNode(node);
    if (slot == NoSlot)
        return;
    SensorProjFrm &form = FormOfSlot(slot);
    form.Tag = QString::number(slot);
    BringUp(form);
    const int tab = std::max(node - ProjectSlots[slot].NodeIndex, 1);
    form.TabStrip->SelectTab(tab);
    emit form.TabStrip->Click(tab); // what a click of the user leads to
}

void RenameProject(int slot, const QString &name)
{
    SensorProjFrm &form = FormOfSlot(slot);
    ProjectSlots[slot].ProjectName = name;
    form.setWindowTitle(name);
    form.Tag = QString::number(slot);
}

void PutRootTextBack()
{
    RootNode->setText(0, ProjectRootText);
    ExclamationBox(Wording(QStringLiteral("Name of Root Cann't Change! "), QStringLiteral("根目录内容不能被修改! ")));
}

void PutPageTextBack(int slot, int node)
{
    const int tab = node - ProjectSlots[slot].NodeIndex;
    ProjectSheet->NodeAt(node)->setText(0, FormOfSlot(slot).TabStrip->Caption(tab));
    ExclamationBox(Wording(QStringLiteral("Name of the Item Cann't Change! "), QStringLiteral("该项内容不能被修改! ")));
}

/// Required: no menu leads to it.
void ShowVersion(Qt::KeyboardModifiers keys)
{
    if (keys.testFlag(Qt::ShiftModifier))
        InformationBox(QStringLiteral("Version 00.04.00.00.02"), QStringLiteral("Version"));
}

} // namespace

void ShowProjectMenu(const QPoint &place)
{
    const int node = ProjectSheet->SelectedIndex();
    if (node <= RootIndex) {
        ShowRootMenu(place);
        return;
    }
    const int slot = SlotOfNode(node);
    SetRenameItem(slot, slot == NoSlot || node == ProjectSlots[slot].NodeIndex);
    ProjectSheet->pop_mnu1->popup(place);
}

void ActivateNode()
{
    const int node = ProjectSheet->SelectedIndex();
    if (node <= RootIndex)
        return;
    const int active = ActiveSlot();
    if (!Measuring) {
        ShowPageOfNode(node);
        return;
    }
    // Required: within the active project too no page is switched.
    if (!SlotHoldsNode(active, node))
        ExclamationBox(
            Wording(QStringLiteral("Current project is running! "), QStringLiteral("工程运行期间不允许切换! ")));
}

void CloseSelectedProject()
{
    const int node = ProjectSheet->SelectedIndex();
    const int slot = node <= RootIndex ? NoSlot : SlotOfNode(node);
    if (slot != NoSlot)
        FormOfSlot(slot).close();
}

void CommitNodeRename(const QString &text)
{
    const int node = ProjectSheet->SelectedIndex();
    if (node == RootIndex) {
        PutRootTextBack();
        return;
    }
    const int slot = SlotOfNode(node);
    if (slot == NoSlot)
        return;
    if (node == ProjectSlots[slot].NodeIndex)
        RenameProject(slot, text);
    else
        PutPageTextBack(slot, node);
}

void ConnectProjectSheet()
{
    const NodeTree *tree = ProjectSheet->ProjectSheetTree;
    ConnectGuarded(tree, &NodeTree::MenuAsked, ProjectSheet, ShowProjectMenu);
    ConnectGuarded(tree, &NodeTree::DoubleClick, ProjectSheet, ActivateNode);
    ConnectGuarded(tree, &NodeTree::LeftButtonUp, ProjectSheet, ShowVersion);
    // Required: the barrier ahead of every label edit, so that nobody should let one through.
    ConnectGuarded(tree, &NodeTree::BeforeLabelEdit, ProjectSheet, [](bool &cancel) { cancel = true; });
    ConnectGuarded(tree, &NodeTree::AfterLabelEdit, ProjectSheet, CommitNodeRename);
}
