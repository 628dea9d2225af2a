/// @file
/// A frame with one project window for the tests of its view, and what those tests do with it.
#pragma once

#include "display/ProjectViewModule.h"
#include "display/ReferencePictureModule.h"
#include "display/TimeCurveModule.h"
#include "platform/MemorySurface.h"
#include "support/BareFrame.h"

#include <algorithm>
#include <optional>

inline const QString NotApplied = QStringLiteral("The data has not been apllied");
inline const QString Applied = QStringLiteral("The data has been apllied");

/// A frame with one project in slot 0, without any curve; it gives back all surfaces.
class ProjectViewBench : public BareFrame {
public:
    ProjectViewBench()
    {
        SEN_Free();
        frame.resize(1200, 900);
        AddProject(0);
    }
    ~ProjectViewBench()
    {
        Measuring = false;
        for (int slot = 0; slot < SlotCount; ++slot) {
            ReleaseReferenceBuffer(slot);
            ReleaseWaveBuffers(slot);
        }
    }
    Q_DISABLE_COPY_MOVE(ProjectViewBench)
};

inline SensorProjFrm &Form()
{
    return *ProjectForm[0];
}

/// Panel 1 of the status bar.
inline QString Status()
{
    return MainForm->sbrStatus->PanelText(1);
}

inline void Select(int tab)
{
    Form().TabStrip->SelectTab(tab);
    SwitchProjectPage(0, tab);
}

/// Gives the window's content a size.
inline void SetContent(const QSize &size)
{
    Form().Client->resize(size);
}

/// Height of a page in a window of the given content height: 200 twips, 13 1/3 pixels, above the tabs.
inline int PageHeight(int content)
{
    return std::max(content - Form().TabStrip->FixedTabHeight() - 13, 0);
}
