#include "shell/ActiveProject.h"

#include "display/SensorProjFrm.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "project/ProjectTable.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

SensorProjFrm *ActiveProjectForm()
{
    if (MainForm == nullptr)
        return nullptr;
    // The current child, not the area's active one: that is none while a box or another program is in front.
    return qobject_cast<SensorProjFrm *>(MainForm->Children->currentSubWindow());
}

int ActiveSlot()
{
    const SensorProjFrm *form = ActiveProjectForm();
    if (form == nullptr)
        throw RuntimeError(ErrorNumber::NoObject);
    return SlotOf(*form);
}

int SlotOf(const SensorProjFrm &form)
{
    return CheckedSlot(RoundToInt32(WholeNumber(form.Tag)));
}

SensorProjFrm &FormOfSlot(int slot)
{
    SensorProjFrm *form = ProjectForm[CheckedSlot(slot)];
    if (form == nullptr)
        throw RuntimeError(ErrorNumber::NoObject);
    return *form;
}
