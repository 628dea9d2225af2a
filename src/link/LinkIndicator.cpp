#include "link/LinkIndicator.h"

#include "link/LinkState.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

namespace {

void ShowLinkText(const QString &text)
{
    StatusPanels &panels = *MainForm->sbrStatus;
    panels.SetPanelText(panels.PanelOfKey(QStringLiteral("ConnectStatus")), text);
}

} // namespace

void ShowIndicatorOff()
{
    MainForm->picLED_ON->hide();
    MainForm->picLED_OFF->show();
}

void ShowLinkUp()
{
    ShowLinkText(QStringLiteral("Connect"));
    MainForm->picLED_ON->show();
    MainForm->picLED_OFF->hide();
}

void ShowLinkDown()
{
    ShowLinkText(QStringLiteral("Unconnected"));
    ShowIndicatorOff();
    MainForm->mnuToolsConnect->setChecked(false);
}

void LinkLost()
{
    if (!LinkUp)
        return;
    LinkUp = false;
    ShowLinkDown();
}
