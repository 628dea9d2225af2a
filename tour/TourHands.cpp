#include "tour/TourHands.h"

#include "display/SensorProjFrm.h"
#include "project/ProjectTable.h"
#include "project/SensorPropertyFrm.h"
#include "shell/MainModule.h"

#include <QMenuBar>

bool NoDialogue()
{
    return !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
}

bool MenuOpen()
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

bool ListOpen()
{
    return QApplication::activePopupWidget() && !MenuOpen();
}

void ClickItem(const QMenu &menu, QAction *item)
{
    XHands::Click(menu.mapToGlobal(menu.actionGeometry(item).center()));
}

void ClickMenuTitle(const QMenu &menu)
{
    const QMenuBar &bar = *MainForm->menuBar();
    XHands::Click(bar.mapToGlobal(bar.actionGeometry(menu.menuAction()).center()));
}

void ClickToolBar(const QString &key)
{
    XHands::Click(*MainForm->tbToolBar->widgetForAction(MainForm->ToolBarButton(key)));
}

void ClickTabOf(int slot, int tab)
{
    const ::TabStrip &strip = *ProjectForm[slot]->TabStrip;
    XHands::Click(strip.mapToGlobal(strip.TabCentre(tab)));
}

void AddMenuCommand(TourScript &script, QMenu *MainFrm::*menu, QAction *MainFrm::*item)
{
    script.Add(QStringLiteral("menu"), NoDialogue, [menu] { ClickMenuTitle(*(MainForm->*menu)); });
    script.Add(
        QStringLiteral("menu item"), [menu] { return (MainForm->*menu)->isVisible(); },
        [menu, item] { ClickItem(*(MainForm->*menu), MainForm->*item); });
}

void AddChoice(TourScript &script, const QString &name, ListCombo *SensorPropertyFrm::*list, int index)
{
    script.Add(name, Modal<SensorPropertyFrm>, [list] { XHands::Click(*(Modal<SensorPropertyFrm>()->*list)); });
    script.Add(name, ListOpen, [index] {
        for (int step = 0; step < index; ++step)
            XHands::Key(QStringLiteral("Down"));
        XHands::Key(QStringLiteral("Return"));
    });
}

void AddLanguage(TourScript &script, QAction *MainFrm::*item, std::int32_t language)
{
    script.Add(QStringLiteral("help menu"), NoDialogue, [] { ClickMenuTitle(*MainForm->mnuHelp); });
    script.Add(
        QStringLiteral("language menu"), [] { return MainForm->mnuHelp->isVisible(); },
        [] { ClickItem(*MainForm->mnuHelp, MainForm->mnuHelpLanguage->menuAction()); });
    script.Add(
        QStringLiteral("language"), [] { return MainForm->mnuHelpLanguage->isVisible(); },
        [item] { ClickItem(*MainForm->mnuHelpLanguage, MainForm->*item); });
    script.Add(
        QStringLiteral("language switched"), [language] { return NoDialogue() && CurrentLanguage == language; }, [] {});
}
