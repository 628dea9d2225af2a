/// @file
/// A frame that makes and closes projects as the program does, linked to a KV7060, and dialogues to make them from.
#pragma once

#include "controls/Guard.h"
#include "display/ProjectViewModule.h"
#include "project/LifecycleModule.h"
#include "project/SensorPropertyFrm.h"
#include "shell/ActiveProject.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"

inline constexpr auto Ok = QMessageBox::Ok;
inline constexpr auto Cancel = QMessageBox::Cancel;

class LifecycleBench : public BareFrame {
public:
    LifecycleBench()
    {
        ResetProjectTreeModule();
        QObject::connect(&frame, &MainFrm::ProjectWindowMade, &frame, [](SensorProjFrm *form) {
            ConnectLifecycle(*form);
            ConnectProjectView(*form);
        });
        InstrumentKind = InstrumentKindKV7060;
    }

    ~LifecycleBench() { ResetProjectTreeModule(); }

    /// Shows the tree as the frame does when it loads.
    void ShowTree()
    {
        ProjectSheet = new ProjectSheetFrm(&frame);
        LoadProjectSheet();
        frame.TabDock->AddPanel(ProjectSheetPanel, ProjectSheet);
        ProjectPanelVisible = true;
    }
};

inline void Show(ListCombo *list, const QString &text)
{
    list->ClearList();
    list->AddItem(text);
    list->SetListIndex(0);
}

/// A dialogue as it is left on Done, for a voltage in mV that stands for kPa.
inline void FillDialogue(SensorPropertyFrm &dialogue)
{
    dialogue.Txtname->setText(QStringLiteral("Probe"));
    Show(dialogue.Combtype, QStringLiteral("DCV"));
    Show(dialogue.CombInunit, QStringLiteral("mV"));
    Show(dialogue.CombOutunit, QStringLiteral("kPa"));
}

inline void MakeProject()
{
    SensorPropertyFrm dialogue;
    FillDialogue(dialogue);
    NewProject(dialogue);
}

inline void MakeProjects(int count)
{
    for (int i = 0; i < count; ++i)
        MakeProject();
}

/// Closes the window of a slot without a question.
inline void CloseSilently(int slot)
{
    ClosingAll = true;
    ProjectForm[slot]->close();
    ClosingAll = false;
}

inline void AddLanguages()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}
