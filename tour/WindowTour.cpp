#include "tour/WindowTour.h"

#include "display/SensorProjFrm.h"
#include "project/ProjectTable.h"
#include "project/SensorPropertyFrm.h"
#include "shell/MainModule.h"
#include "tour/TourHands.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

namespace {

QString FileToCopy()
{
    return QDir::home().filePath(QStringLiteral("Oven.spj"));
}

bool NameAccepted(const QString &path)
{
    const auto *dialogue = Modal<QFileDialog>();
    if (!dialogue || dialogue->findChild<QLineEdit *>()->text() != path)
        return false;
    const auto *buttons = dialogue->findChild<QDialogButtonBox *>();
    const bool save = dialogue->acceptMode() == QFileDialog::AcceptSave;
    return buttons->button(save ? QDialogButtonBox::Save : QDialogButtonBox::Open)->isEnabled();
}

/// Types a path into the file dialogue that is about to come up.
void AddFileName(TourScript &script, const QString &picture, const QString &path)
{
    script.Add(QStringLiteral("file name"), Modal<QFileDialog>, [path] { XHands::Type(path); });
    script.AddPicture(picture, [path] { return NameAccepted(path); });
    script.Add(QStringLiteral("file chosen"), Modal<QFileDialog>, [] { XHands::Key(QStringLiteral("Return")); });
}

bool ProjectOpen(int slot)
{
    return NoDialogue() && ProjectOccupied[slot] && ProjectForm[slot]->isVisible();
}

void AddOpenedProject(TourScript &script)
{
    AddMenuCommand(script, &MainFrm::mnuFile, &MainFrm::mnuFileSaveAs);
    AddFileName(script, QStringLiteral("save-as"), FileToCopy());
    script.Add(QStringLiteral("open"), NoDialogue, [] { ClickToolBar(QStringLiteral("Open")); });
    AddFileName(script, QStringLiteral("open"), FileToCopy());
    script.Add(
        QStringLiteral("opened"), [] { return ProjectOpen(1); },
        [] {
            const ReportList &list = *ProjectForm[1]->EditDataView;
            XHands::Click(list.mapToGlobal(QPoint(list.width() / 2, list.height() - 20)), 3);
        });
    script.Add(QStringLiteral("apply"), MenuOpen,
               [] { ClickItem(*MainForm->mnuPopEditData, MainForm->mnuPopEditDataApply); });
    script.Add(
        QStringLiteral("reference page"), [] { return NoDialogue() && ProjectSlots[1].CurveApplied; },
        [] { ClickTabOf(1, 1); });
}

void AddThirdProject(TourScript &script)
{
    script.Add(QStringLiteral("third project"), NoDialogue, [] { ClickToolBar(QStringLiteral("New")); });
    script.Add(QStringLiteral("name"), Modal<SensorPropertyFrm>, [] {
        XHands::Click(*Modal<SensorPropertyFrm>()->Txtname);
        XHands::Type(QStringLiteral("Load"));
    });
    AddChoice(script, QStringLiteral("type"), &SensorPropertyFrm::Combtype, 1);
    AddChoice(script, QStringLiteral("input unit"), &SensorPropertyFrm::CombInunit, 1);
    script.Add(
        QStringLiteral("done"), [] { return Modal<SensorPropertyFrm>() && !ListOpen(); },
        [] { XHands::Click(*Modal<SensorPropertyFrm>()->ComdEnter); });
    script.Add(
        QStringLiteral("made"), [] { return ProjectOpen(2); }, [] {});
}

} // namespace

void AddMoreProjects(TourScript &script)
{
    script.Add(QStringLiteral("measure page"), NoDialogue, [] { ClickTabOf(0, 3); });
    AddOpenedProject(script);
    AddThirdProject(script);
}

void AddArrangements(TourScript &script, const QString &language)
{
    const auto arrange = [&](const QString &key, const QString &picture) {
        script.Add(picture, NoDialogue, [key] { ClickToolBar(key); });
        script.AddPicture(picture + u'-' + language, NoDialogue);
    };
    arrange(QStringLiteral("CasadeWindows"), QStringLiteral("cascade"));
    arrange(QStringLiteral("TileHorizontal"), QStringLiteral("tile-horizontal"));
    arrange(QStringLiteral("TileVertical"), QStringLiteral("tile-vertical"));
}

void AddHiddenPanel(TourScript &script)
{
    AddMenuCommand(script, &MainFrm::mnuView, &MainFrm::mnuViewProjectWindow);
    script.Add(
        QStringLiteral("panel hidden"), [] { return NoDialogue() && !ProjectPanelVisible; },
        [] { ClickToolBar(QStringLiteral("TileVertical")); });
    script.AddPicture(QStringLiteral("panel-hidden"), NoDialogue);
    AddMenuCommand(script, &MainFrm::mnuView, &MainFrm::mnuViewProjectWindow);
    script.Add(
        QStringLiteral("panel shown"), [] { return NoDialogue() && ProjectPanelVisible; },
        [] { ClickToolBar(QStringLiteral("TileHorizontal")); });
}
