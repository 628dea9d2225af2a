#include "project/ProjectCommandModule.h"

#include "controls/Boxes.h"
#include "display/SensorProjFrm.h"
#include "link/LinkState.h"
#include "project/ProjectTable.h"
#include "project/SensorPropertyModule.h"
#include "shell/ActiveProject.h"
#include "shell/MainModule.h"

void BeginNewProject()
{
    NewProjectMode = true;
    EditProjectMode = false;
    if (!LinkUp) {
        ExclamationBox(Wording(QStringLiteral("Please connect to the instrument! "), QStringLiteral("请和仪器连接! ")));
        return;
    }
    ShowSensorProperty();
    if (ProjectCount < 1)
        return;
    const int slot = ActiveSlot();
    FormOfSlot(slot).EditDataView->setEnabled(!SensorProjects[slot].IsBuiltInSensor);
}
