/// @file
/// The loaded frame with its project tree in sight, and what a user's hands do in the tree.
#pragma once

#include "shell/FrameBench.h"

#include <QMenu>

/// The frame with projects in the lowest slots, all made by the menu and each on its page for editing. The last one is
/// the active child, no node is selected.
class ProjectSheetBench : public LoadedFrame {
public:
    explicit ProjectSheetBench(int projects)
    {
        for (int project = 1; project <= projects; ++project)
            NewProjectByMenu();
        QTRY_VERIFY(ProjectSheet->isVisible());
        QTRY_VERIFY(ProjectTree->viewport()->height() > 300);
    }

    ~ProjectSheetBench()
    {
        ProjectSheet->pop_mnu1->hide();
        ProjectSheet->pop_mnu2->hide();
    }
};

/// The selection without an event; 0 for none.
inline void Select(int node)
{
    ProjectTree->setCurrentItem(node == 0 ? nullptr : ProjectSheet->NodeAt(node));
}

/// Text of the selected node; empty when none is selected.
inline QString SelectedText()
{
    const QTreeWidgetItem *node = ProjectTree->currentItem();
    return node != nullptr ? node->text(0) : QString();
}

/// A place in the tree's viewport: the middle of a node's label, or, for 0, the empty part.
inline QPoint PlaceOf(int node)
{
    if (node != 0)
        return ProjectTree->visualItemRect(ProjectSheet->NodeAt(node)).center();
    return QPoint(ProjectTree->viewport()->width() / 2, ProjectTree->viewport()->height() - 5);
}

inline void ClickNode(int node, Qt::KeyboardModifiers keys = {})
{
    QTest::mouseClick(ProjectTree->viewport(), Qt::LeftButton, keys, PlaceOf(node));
}

inline void DoubleClickNode(int node)
{
    ClickNode(node);
    QTest::mouseDClick(ProjectTree->viewport(), Qt::LeftButton, {}, PlaceOf(node));
    QTest::mouseRelease(ProjectTree->viewport(), Qt::LeftButton, {}, PlaceOf(node));
}

inline void RightPress(int node)
{
    QTest::mousePress(ProjectTree->viewport(), Qt::RightButton, {}, PlaceOf(node));
}

/// The menu of the tree that is open; nullptr when none is.
inline QMenu *OpenMenu()
{
    for (QMenu *menu : {ProjectSheet->pop_mnu1, ProjectSheet->pop_mnu2}) {
        if (menu->isVisible())
            return menu;
    }
    return nullptr;
}

/// Clicks an item of the menu that is open.
inline void ClickItem(const QString &name)
{
    QMenu *menu = OpenMenu();
    QVERIFY(menu != nullptr);
    QAction *item = menu->findChild<QAction *>(name, Qt::FindDirectChildrenOnly);
    QVERIFY2(item != nullptr && item->isVisible(), qPrintable(name));
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
}

/// The tab that a window shows, by its page.
inline int ShownPage(const SensorProjFrm &form)
{
    const QWidget *pages[] = {form.SpecifyCurvePic, form.EditDataPic, form.MeasWavePic};
    int shown = 0;
    for (int page = 1; page <= 3; ++page) {
        if (pages[page - 1]->isVisibleTo(&form))
            shown = shown * 10 + page; // two pages at once are none
    }
    return shown;
}
