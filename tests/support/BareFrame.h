/// @file
/// A frame without commands for the tests of modules: all tables as at a fresh start, project windows put in by hand.
#pragma once

#include "curve/ReferenceCurve.h"
#include "curve/ReferenceRows.h"
#include "display/SensorProjFrm.h"
#include "display/WaveRecord.h"
#include "link/LinkState.h"
#include "measure/RunState.h"
#include "project/ProjectTable.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "support/PutRow.h"

#include <QTest>

/// Puts every table of the program back to a fresh start.
inline void ResetAllTables()
{
    ResetMainModule();
    ResetProjectTable();
    ResetReferenceCurveTable();
    ResetReferenceRows();
    ResetLinkState();
    ResetRunState();
    ResetWaveTable();
    for (ProjectSlot &slot : ProjectSlots)
        slot.ChildCount = ProjectChildCount;
}

class BareFrame {
public:
    BareFrame()
    {
        ResetAllTables();
        MainForm = &frame;
        frame.show();
    }

    ~BareFrame()
    {
        // Windows go without their closing routine; the tables are emptied by the next fixture.
        for (QMdiSubWindow *window : frame.Children->subWindowList())
            delete window;
        ProjectForm.fill(nullptr);
        MainForm = nullptr;
    }

    BareFrame(const BareFrame &) = delete;
    BareFrame &operator=(const BareFrame &) = delete;

    /// Puts a project window into a slot and makes it the active child, with Timer1 off and no rule connected.
    SensorProjFrm &AddProject(int slot, int width = 1000, int height = 700)
    {
        auto *form = new SensorProjFrm;
        form->Tag = QString::number(slot);
        form->Timer1->stop();
        frame.Children->addSubWindow(form);
        form->resize(width, height);
        form->show();
        frame.Children->setActiveSubWindow(form);
        ProjectForm[slot] = form;
        ProjectOccupied[slot] = true;
        ProjectSlots[slot].ProjectName = QStringLiteral("Project-%1").arg(slot + 1);
        ++ProjectCount;
        ResetReferenceCurve(slot, Rgb(255, 255, 255));
        ResetWaveRecords(slot, 1.0);
        return *form;
    }

    MainFrm frame;
};
