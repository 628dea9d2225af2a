#include "shell/ProjectSheetFrm.h"

#include <QTreeWidgetItemIterator>

ProjectSheetFrm::ProjectSheetFrm(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("ProjectSheetFrm"));
    ProjectSheetTree = new QTreeWidget(this);
    ProjectSheetTree->setObjectName(QStringLiteral("ProjectSheetTree"));
    ProjectSheetTree->setHeaderHidden(true);
    ProjectSheetTree->setColumnCount(1);
    ProjectSheetTree->setEditTriggers(QAbstractItemView::NoEditTriggers);
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

void ProjectSheetFrm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    ProjectSheetTree->setGeometry(rect());
}
