#include "project/ProjectCommandModule.h"

#include "controls/Boxes.h"
#include "display/SensorProjFrm.h"
#include "link/LinkState.h"
#include "platform/RuntimeError.h"
#include "project/LifecycleModule.h"
#include "project/ProjectFileModule.h"
#include "project/ProjectTable.h"
#include "project/ProjectWindowModule.h"
#include "project/SensorPropertyModule.h"
#include "shell/ActiveProject.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <QCoreApplication>

namespace {

/// Projects are made and opened beside an instrument only: the sensor types on offer depend on its model.
bool Connected()
{
    if (LinkUp)
        return true;
    ExclamationBox(Wording(QStringLiteral("Please connect to the instrument! "), QStringLiteral("请和仪器连接! ")));
    return false;
}

/// The file to open, empty when the user gives none.
QString AskProjectFile()
{
    CommonDialog &dialog = *MainForm->dlgCommonDialog;
    dialog.DialogTitle = Wording(QStringLiteral("Open project"), QStringLiteral("打开工程"));
    dialog.InitDir = QCoreApplication::applicationDirPath();
    dialog.CancelError = true;
    dialog.FileName.clear();
    dialog.Filter = ProjectFileFilter;
    dialog.FilterIndex = 1;
    try {
        dialog.ShowOpen();
    } catch (const RuntimeError &error) {
        if (error.Number() != ErrorNumber::Cancelled)
            throw;
    }
    return dialog.FileName;
}

/// @return false when the dialogue was not shown, since a run is going
bool EditProject()
{
    if (FormOfSlot(ActiveSlot()).EndLumoBtn->isEnabled()) {
        ExclamationBox(Wording(QStringLiteral("Measuring is running, the project can not be edit! "),
                               QStringLiteral("测量正在运行，工程不能被编辑! ")),
                       QStringLiteral("Warning")); // Required: in both languages.
        return false;
    }
    NewProjectMode = false;
    EditProjectMode = true;
    ShowSensorProperty();
    return true;
}

} // namespace

void BeginNewProject()
{
    NewProjectMode = true;
    EditProjectMode = false;
    if (!Connected())
        return;
    ShowSensorProperty();
    if (ProjectCount >= 1)
        EnableGrid(ActiveSlot());
}

void OpenProject()
{
    if (!Connected() || !RoomForProject())
        return;
    const QString path = AskProjectFile();
    if (!path.isEmpty())
        OpenProjectFile(path);
}

void BeginEditProject()
{
    EditProject();
}

void EditActiveProject()
{
    if (EditProject())
        EnableGrid(ActiveSlot());
}
