/// @file
/// The tour: a session with the real windows and a virtual multimeter, driven by real clicks and keys, from Connect to
/// End, and with several projects side by side. Leaves a picture of each step in the folder that its one argument
/// names.

#include "curve/EditDataFrm.h"
#include "display/SensorProjFrm.h"
#include "display/WaveRecord.h"
#include "link/LinkState.h"
#include "link/USB_FuncBox.h"
#include "measure/RunState.h"
#include "project/SensorPropertyFrm.h"
#include "shell/FrameModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "tour/TourHands.h"
#include "tour/WindowTour.h"
#include "visa/VisaLoader.h"

#include <QApplication>

#include <array>
#include <cstdio>

namespace {

constexpr std::int32_t SamplesToSee = 12;

struct ThermocouplePoint {
    const char *Millivolts;
    const char *Celsius;
};

/// Type K thermocouple, cold junction at 0 °C: NIST Monograph 175, table of the reference function.
constexpr std::array<ThermocouplePoint, 9> TypeK{{{"0", "0"},
                                                  {"1.612", "40"},
                                                  {"3.267", "80"},
                                                  {"4.92", "120"},
                                                  {"6.54", "160"},
                                                  {"8.138", "200"},
                                                  {"9.747", "240"},
                                                  {"11.382", "280"},
                                                  {"12.209", "300"}}};

SensorProjFrm &Project()
{
    return *ProjectForm[0];
}

void ClickTab(int tab)
{
    ClickTabOf(0, tab);
}

/// The empty part of the list of reference points, below its lines.
QPoint BelowLines()
{
    const ReportList &list = *Project().EditDataView;
    return list.mapToGlobal(QPoint(list.width() / 2, list.height() - 20));
}

void AddConnect(TourScript &script)
{
    script.AddPicture(QStringLiteral("frame"), [] { return MainForm->isActiveWindow(); });
    script.Add(QStringLiteral("connect"), NoDialogue, [] { ClickToolBar(QStringLiteral("Connect")); });
    script.AddPicture(QStringLiteral("connected"), [] { return LinkUp; });
}

void AddSensor(TourScript &script)
{
    script.Add(QStringLiteral("new project"), NoDialogue, [] { ClickToolBar(QStringLiteral("New")); });
    script.AddPicture(QStringLiteral("new-sensor"), Modal<SensorPropertyFrm>);
    script.Add(QStringLiteral("name"), Modal<SensorPropertyFrm>, [] {
        XHands::Click(*Modal<SensorPropertyFrm>()->Txtname);
        XHands::Type(QStringLiteral("TypeK"));
    });
    AddChoice(script, QStringLiteral("type"), &SensorPropertyFrm::Combtype, 1);
    AddChoice(script, QStringLiteral("input unit"), &SensorPropertyFrm::CombInunit, 1);
    script.Add(
        QStringLiteral("own unit"), [] { return Modal<SensorPropertyFrm>() && !ListOpen(); },
        [] { XHands::Click(Modal<SensorPropertyFrm>()->OptUser->mapToGlobal(QPoint(10, 10))); });
    script.Add(
        QStringLiteral("unit text"), [] { return Modal<SensorPropertyFrm>()->TxtUnit->isVisible(); },
        [] {
            XHands::Click(*Modal<SensorPropertyFrm>()->TxtUnit);
            XHands::Type(QStringLiteral("C"));
        });
    script.AddPicture(QStringLiteral("sensor-defined"),
                      [] { return Modal<SensorPropertyFrm>()->TxtUnit->text() == QStringLiteral("C"); });
    script.Add(QStringLiteral("done"), Modal<SensorPropertyFrm>,
               [] { XHands::Click(*Modal<SensorPropertyFrm>()->ComdEnter); });
    script.AddPicture(QStringLiteral("empty-table"), [] { return NoDialogue() && ProjectOccupied[0]; });
}

void AddPoint(TourScript &script, std::size_t index)
{
    const ThermocouplePoint &point = TypeK[index];
    const QString row = QString::number(index + 1);
    script.Add(
        QStringLiteral("values of row ") + row,
        [row] { return Modal<EditDataFrm>() && Modal<EditDataFrm>()->NOTxt->text() == row; },
        [point] {
            XHands::Click(*Modal<EditDataFrm>()->VolTxt);
            XHands::Type(QString::fromLatin1(point.Millivolts));
            XHands::Click(*Modal<EditDataFrm>()->TemperateTxt);
            XHands::Type(QString::fromLatin1(point.Celsius));
        });
    // A field that is left shows its number in the table's format.
    const auto typed = [point] {
        return Modal<EditDataFrm>()->TemperateTxt->text().toDouble() == QByteArray(point.Celsius).toDouble() &&
               !Modal<EditDataFrm>()->TemperateTxt->text().isEmpty();
    };
    if (index == 0) {
        script.Add(QStringLiteral("segment point"), typed,
                   [] { XHands::Click(Modal<EditDataFrm>()->SegmentOpt[0]->mapToGlobal(QPoint(10, 10))); });
        script.AddPicture(QStringLiteral("first-point"), [] { return Modal<EditDataFrm>()->MathOpt[0]->isEnabled(); });
    }
    if (index + 1 < TypeK.size()) {
        script.Add(QStringLiteral("next row"), typed, [] {
            const UpDown &upDown = *Modal<EditDataFrm>()->UpDown1;
            XHands::Click(upDown.mapToGlobal(QPoint(upDown.width() / 2, upDown.height() / 4)));
        });
        return;
    }
    script.Add(QStringLiteral("points entered"), typed, [] { XHands::Click(*Modal<EditDataFrm>()->OkCmd); });
}

void AddPoints(TourScript &script)
{
    script.Add(QStringLiteral("add points"), NoDialogue, [] { XHands::Click(BelowLines(), 1, 2); });
    for (std::size_t index = 0; index < TypeK.size(); ++index)
        AddPoint(script, index);
    script.AddPicture(QStringLiteral("table"), [] {
        return NoDialogue() && Project().EditDataView->LineCount() == static_cast<int>(TypeK.size());
    });
    script.Add(QStringLiteral("pop-up menu"), NoDialogue, [] { XHands::Click(BelowLines(), 3); });
    script.AddPicture(QStringLiteral("popup-menu"), MenuOpen);
    script.Add(QStringLiteral("apply"), MenuOpen,
               [] { ClickItem(*MainForm->mnuPopEditData, MainForm->mnuPopEditDataApply); });
}

void AddRun(TourScript &script)
{
    script.Add(
        QStringLiteral("reference page"), [] { return NoDialogue() && ProjectSlots[0].CurveApplied; },
        [] { ClickTab(1); });
    script.AddPicture(QStringLiteral("reference-curve"), [] { return Project().SpecifyCurvePic->isVisible(); });
    script.Add(QStringLiteral("measure page"), NoDialogue, [] { ClickTab(3); });
    script.Add(
        QStringLiteral("start"), [] { return Project().MeasWavePic->isVisible(); },
        [] { XHands::Click(*Project().RecordLumoBtn); });
    script.AddPicture(QStringLiteral("measuring"), [] { return Measuring && ValueWave[0].Count >= SamplesToSee / 2; });
    script.Add(
        QStringLiteral("end"), [] { return ValueWave[0].Count >= SamplesToSee; },
        [] { XHands::Click(*Project().EndLumoBtn); });
    script.AddPicture(QStringLiteral("measured"), [] { return !Measuring; });
}

void AddPages(TourScript &script, const QString &language)
{
    script.Add(QStringLiteral("reference page"), NoDialogue, [] { ClickTab(1); });
    script.AddPicture(QStringLiteral("reference-curve-") + language,
                      [] { return Project().SpecifyCurvePic->isVisible(); });
    script.Add(QStringLiteral("measure page"), NoDialogue, [] { ClickTab(3); });
    script.AddPicture(QStringLiteral("measure-curve-") + language, [] { return Project().MeasWavePic->isVisible(); });
    script.Add(QStringLiteral("edit page"), NoDialogue, [] { ClickTab(2); });
    script.AddPicture(QStringLiteral("edit-data-") + language, [] { return Project().EditDataPic->isVisible(); });
}

void AddDialogues(TourScript &script, const QString &language)
{
    script.Add(QStringLiteral("point dialogue"), NoDialogue, [] { XHands::Click(BelowLines(), 1, 2); });
    script.AddPicture(QStringLiteral("add-point-") + language, Modal<EditDataFrm>);
    script.Add(QStringLiteral("cancel point"), Modal<EditDataFrm>,
               [] { XHands::Click(*Modal<EditDataFrm>()->CancelCmd); });
    script.Add(QStringLiteral("sensor dialogue"), NoDialogue, [] { ClickToolBar(QStringLiteral("New")); });
    script.AddPicture(QStringLiteral("sensor-") + language, Modal<SensorPropertyFrm>);
    script.Add(QStringLiteral("cancel sensor"), Modal<SensorPropertyFrm>,
               [] { XHands::Click(*Modal<SensorPropertyFrm>()->ComdCancel); });
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (application.arguments().size() != 2) {
        std::fprintf(stderr, "usage: ostrakon_tour DIR\n");
        return 2;
    }
    const QString folder = application.arguments().at(1);
    Visa = &LoadVisa();
    MainFrm frame;
    MainForm = &frame;
    LoadFrame();
    frame.showMaximized();

    TourScript script(folder);
    AddConnect(script);
    AddSensor(script);
    AddPoints(script);
    AddRun(script);
    AddLanguage(script, &MainFrm::mnuHelpLang_Chinese, LanguageChinese);
    AddPages(script, QStringLiteral("chinese"));
    AddDialogues(script, QStringLiteral("chinese"));
    AddLanguage(script, &MainFrm::mnuHelpLang_English, LanguageEnglish);
    AddPages(script, QStringLiteral("english"));
    AddDialogues(script, QStringLiteral("english"));
    AddMoreProjects(script);
    AddArrangements(script, QStringLiteral("english"));
    AddLanguage(script, &MainFrm::mnuHelpLang_Chinese, LanguageChinese);
    AddArrangements(script, QStringLiteral("chinese"));
    AddHiddenPanel(script);
    AddLanguage(script, &MainFrm::mnuHelpLang_English, LanguageEnglish);
    script.AddPicture(QStringLiteral("last"), NoDialogue);
    script.Start();
    const int result = QApplication::exec();
    std::printf("tour: %d pictures in %s\n", script.Pictures(), qPrintable(folder));
    return result;
}
