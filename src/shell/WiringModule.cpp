#include "shell/WiringModule.h"

#include "curve/ReferenceEditModule.h"
#include "curve/ReferenceFileModule.h"
#include "display/ProjectViewModule.h"
#include "display/ReferencePictureModule.h"
#include "display/SensorProjFrm.h"
#include "display/TimeCurveModule.h"
#include "display/ZoomModule.h"
#include "measure/RunModule.h"
#include "project/LifecycleModule.h"

namespace {

/// Controls whose commands are not there yet: they stand under their names, and come into sight together with their
/// commands.
void HideControlsWithoutCommand(const SensorProjFrm &form)
{
    for (QWidget *control :
         std::initializer_list<QWidget *>{form.ReplayFrame, form.DataFrame, form.PictureFrame, form.ColorRfLumoBtn,
                                          form.LabColor2, form.ColorLumoBtn, form.LabColor})
        control->hide();
}

} // namespace

void ConnectProjectWindow(SensorProjFrm &form)
{
    HideControlsWithoutCommand(form);
    ConnectLifecycle(form);
    ConnectProjectView(form);
    ConnectReferencePicture(form);
    ConnectTimeCurve(form);
    ConnectZoom(form);
    ConnectReferenceEdit(form);
    ConnectReferenceFile(form);
    ConnectRun(form);
}
