/// @file
/// The frame with all its subsystems, loaded as the entry point does it, for the tests of its life.
#pragma once

#include "link/USB_FuncBox.h"
#include "project/SensorPropertyFrm.h"
#include "shell/ActiveProject.h"
#include "shell/FrameModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/FakeVisa.h"

#include <QSettings>

/// The settings that the program stores.
inline QSettings Store()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Ostrakon"));
}

/// No settings, and one instrument that says it is a KV7050.
inline void StartAfresh()
{
    QSettings store = Store();
    store.clear();
    store.sync();
    FakeVisa::Reset();
    FakeVisa::State().Standing[QByteArray("*IDN?")] = QByteArray("ZEMRA Technologies,KV7050,0,1.0\n");
    Visa = &FakeVisa::Table();
}

/// The frame as the entry point makes it, in its designed size, whatever the screen has room for.
class LoadedFrame {
public:
    LoadedFrame()
    {
        MainForm = &frame;
        frame.resize(1280, 900);
        LoadFrame();
        frame.show();
    }

    ~LoadedFrame()
    {
        for (QMdiSubWindow *window : frame.Children->subWindowList())
            delete window;
        ResetAllTables();
        ResetProjectTreeModule();
        MainForm = nullptr;
    }

    LoadedFrame(const LoadedFrame &) = delete;
    LoadedFrame &operator=(const LoadedFrame &) = delete;

    /// The user's way to a project: New, and Done in the dialogue as it comes up.
    SensorProjFrm &NewProjectByMenu()
    {
        LinkUp = true;
        const BoxAnswers noBox;
        const WhenModal done(QStringLiteral("SensorPropertyFrm"), [](QWidget *dialog) {
            auto &form = *qobject_cast<SensorPropertyFrm *>(dialog);
            form.Txtname->setText(QStringLiteral("Load"));
            form.Combtype->SetListIndex(1);
            form.ComdEnter->click();
            if (form.isVisible())
                form.reject();
        });
        frame.mnuFileNew->trigger();
        return *ActiveProjectForm();
    }

    /// What the closing of a project asks, answered with OK.
    void CloseProject(int slot)
    {
        const BoxAnswers answers({QMessageBox::Ok});
        FormOfSlot(slot).close();
    }

    MainFrm frame;
};

/// The texts of the project tree from top to bottom.
inline QStringList NodeTexts()
{
    QStringList texts;
    for (int index = 1; index <= ProjectSheet->NodeCount(); ++index)
        texts.append(ProjectSheet->NodeAt(index)->text(0));
    return texts;
}
