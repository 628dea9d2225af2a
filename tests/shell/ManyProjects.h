/// @file
/// The frame with several projects, and its commands that arrange their windows.
#pragma once

#include "shell/FrameBench.h"

#include <functional>

/// A command of the menu that arranges windows.
using Arrangement = std::function<QAction *(MainFrm &)>;

inline QAction *Cascade(MainFrm &frame)
{
    return frame.mnuWindowCascade;
}

inline QAction *Horizontally(MainFrm &frame)
{
    return frame.mnuWindowTileHorizontal;
}

inline QAction *Vertically(MainFrm &frame)
{
    return frame.mnuWindowTileVertical;
}

inline QAction *Icons(MainFrm &frame)
{
    return frame.mnuWindowArrangeIcons;
}

/// The frame with some projects; the last one is active and maximised, as New leaves it.
class ManyProjects : public LoadedFrame {
public:
    explicit ManyProjects(int count)
    {
        for (int project = 1; project <= count; ++project)
            NewProjectByMenu();
    }

    QSize Area() const { return frame.Children->viewport()->size(); }

    QList<QRect> Places() const
    {
        QList<QRect> places;
        for (const QMdiSubWindow *window : frame.Children->subWindowList())
            places.append(window->geometry());
        return places;
    }

    /// Below a maximised window there is none to minimise: the user sees that one only.
    void Minimise(const QList<int> &chosen) const
    {
        frame.Children->currentSubWindow()->showNormal();
        for (const int slot : chosen)
            ProjectForm[slot]->showMinimized();
    }
};

/// A row for each arrangement of the windows.
inline void AddArrangements()
{
    QTest::addColumn<Arrangement>("command");
    QTest::newRow("cascade") << Arrangement(Cascade);
    QTest::newRow("tile horizontally") << Arrangement(Horizontally);
    QTest::newRow("tile vertically") << Arrangement(Vertically);
}
