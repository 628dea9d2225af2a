/// @file
/// Everything that has captions, with two open projects, for the tests of the languages.
#pragma once

#include "controls/ToolkitTexts.h"
#include "curve/EditDataFrm.h"
#include "display/RefPicColorrizeFrm.h"
#include "display/Wave1picColorrizeFrm.h"
#include "display/Wave2picColorrizeFrm.h"
#include "link/DeviceChoiceFrm.h"
#include "measure/SendProjFrm.h"
#include "project/SensorPropertyFrm.h"
#include "shell/HelpModule.h"
#include "shell/LanguageModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "support/BareFrame.h"

#include <array>

inline constexpr std::array<int, 2> OpenSlots{3, 7};

/// The windows of the program; those of the dialogues are made, but not shown.
class LanguageBench {
public:
    LanguageBench()
    {
        ResetProjectTreeModule();
        ProjectSheet = new ProjectSheetFrm(&bare.frame);
        ProjectPanelVisible = true;
        LoadProjectSheet();
        bare.frame.TabDock->AddPanel(ProjectSheetPanel, ProjectSheet);
        DeviceChoiceForm = &device;
        OpenProject(OpenSlots[0], QStringLiteral("mV"), QStringLiteral("kPa"));
        OpenProject(OpenSlots[1], QStringLiteral("ohm"), QStringLiteral("C"));
    }

    ~LanguageBench()
    {
        SetToolkitTexts(false); // they outlive the windows
        DeviceChoiceForm = nullptr;
        ResetProjectTreeModule();
    }

    LanguageBench(const LanguageBench &) = delete;
    LanguageBench &operator=(const LanguageBench &) = delete;

    /// Switches what is open, and opens every dialogue anew.
    void Apply(std::int32_t language)
    {
        CurrentLanguage = language;
        LoadLanguage(language);
        LoadEditDataLanguage(editData);
        LoadSensorPropertyLanguage(sensorProperty);
        LoadRefColourLanguage(refColours);
        LoadWave1ColourLanguage(wave1Colours);
        LoadWave2ColourLanguage(wave2Colours);
        LoadSendProjectLanguage(sendProject);
    }

    static SensorProjFrm &Project(int number) { return *ProjectForm[OpenSlots[number]]; }

    BareFrame bare;
    DeviceChoiceFrm device;
    EditDataFrm editData;
    SensorPropertyFrm sensorProperty;
    RefPicColorrizeFrm refColours;
    Wave1picColorrizeFrm wave1Colours;
    Wave2picColorrizeFrm wave2Colours;
    SendProjFrm sendProject;

private:
    void OpenProject(int slot, const QString &inputUnit, const QString &outputUnit)
    {
        bare.AddProject(slot);
        SensorProjects[slot].InputUnit = inputUnit;
        SensorProjects[slot].OutputUnit = outputUnit;
        ProjectSlots[slot].NodeIndex = static_cast<std::int16_t>(2 + 4 * ProjectNodeCount);
        AddProjectNode(slot);
        ++ProjectNodeCount;
    }
};

/// The texts of the tree from top to bottom.
inline QStringList TreeTexts()
{
    QStringList texts;
    for (int index = 1; index <= ProjectSheet->NodeCount(); ++index)
        texts.append(ProjectSheet->NodeAt(index)->text(0));
    return texts;
}
