#include "display/ProjectViewModule.h"

#include "controls/Guard.h"
#include "display/ReferencePictureModule.h"
#include "display/SensorProjFrm.h"
#include "display/TimeCurveModule.h"
#include "display/WaveRecord.h"
#include "measure/RunState.h"
#include "platform/Measures.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "shell/ActiveProject.h"
#include "shell/LanguageTables.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <array>

namespace {

constexpr int ReferencePage = 1;
constexpr int EditPage = 2;
constexpr int MeasurePage = 3;

// Twips.
constexpr int FrameWidth = 120;  ///< what the designed window has around its content, left and right together
constexpr int FrameHeight = 520; ///< the same above and below
constexpr int StripLeft = 7;
constexpr int StripTop = 7;
constexpr int PageGap = 200; ///< between a page and the tabs
constexpr int ListTop = 390;

// Pixels.
constexpr int SurroundLeft = 83;
constexpr int SurroundTop = 10;
constexpr int TimePictureLeft = 40;
constexpr int TimePictureTop = 10;
constexpr int TimePictureRoomAcross = 55; ///< what the surround keeps for numbers and bar
constexpr int TimePictureRoomDown = 20;
constexpr int TicksAcross = 60;
constexpr int TicksDown = 25;
constexpr int FrameLeft = 4;
constexpr int BarWidth = 15;

bool Reclaiming = false; ///< a window is just being made the active child again

/// Puts a control at a place in twips. A side below 0 counts as 0.
void PlaceInTwips(QWidget &control, int left, int top, int width, int height)
{
    control.setGeometry(PixelsFromTwips(left), PixelsFromTwips(top), std::max(PixelsFromTwips(width), 0),
                        std::max(PixelsFromTwips(height), 0));
}

int WidthInTwips(const QWidget &control)
{
    return control.width() * TwipsPerPixel;
}

int HeightInTwips(const QWidget &control)
{
    return control.height() * TwipsPerPixel;
}

void ShowStatus(const QString &text)
{
    if (!MainForm)
        throw RuntimeError(ErrorNumber::NoObject);
    MainForm->sbrStatus->SetPanelText(1, text);
}

void PlaceTabStrip(SensorProjFrm &form)
{
    const int outerWidth = WidthInTwips(*form.Client) + FrameWidth;
    const int outerHeight = HeightInTwips(*form.Client) + FrameHeight;
    PlaceInTwips(*form.TabStrip, StripLeft, StripTop, outerWidth - FrameWidth, outerHeight - FrameHeight);
}

/// Gives a page the strip's place above its tabs.
void PlacePage(SensorProjFrm &form, QWidget &page)
{
    const ::TabStrip &strip = *form.TabStrip;
    const int height = HeightInTwips(strip) - strip.FixedTabHeight() * TwipsPerPixel - PageGap;
    page.setGeometry(strip.x(), strip.y(), strip.width(), std::max(PixelsFromTwips(height), 0));
}

void ShowApplied(ErrorsSetAside &steps, int slot)
{
    const bool applied = ProjectSlots[CheckedSlot(slot)].CurveApplied;
    if (applied)
        steps.Run([&] { DrawReferenceCurve(slot, true); });
    steps.Run([&] {
        ShowStatus(applied ? QStringLiteral("The data has been apllied")
                           : QStringLiteral("The data has not been apllied"));
    });
}

void LayOutReferencePage(ErrorsSetAside &steps, SensorProjFrm &form, int slot)
{
    steps.Run([&] { PlacePage(form, *form.SpecifyCurvePic); });
    steps.Run([&] { LayoutReferencePage(slot); });
    steps.Run([&] { ReleaseReferenceBuffer(slot); });
    steps.Run([&] { CreateReferenceBuffer(slot); });
    steps.Run([&] { DrawReferenceAxisNumbers(slot); });
    steps.Run([&] { DrawReferencePlotGrid(slot); });
    steps.Run([&] { ProjectPointCount = LastUsedRow(slot); });
    ShowApplied(steps, slot);
}

void PlaceToolRow(SensorProjFrm &form)
{
    const auto moveTo = [](QWidget &control, int left, int top) {
        control.move(PixelsFromTwips(left), PixelsFromTwips(top));
    };
    moveTo(*form.ImportLumoBtn, 45, 60);
    moveTo(*form.ExportLumoBtn, 420, 60);
    PlaceInTwips(*form.PicSeprator, 795, 0, 90, 390);
    moveTo(*form.UndoLumoBtn, 990, 60);
    moveTo(*form.RedoLumoBtn, 1365, 60);
}

void SetColumnWidths(SensorProjFrm &form)
{
    constexpr std::array<int, 5> parts{6, 5, 5, 5, 7}; // of the page's width
    const double pageWidth = WidthInTwips(*form.EditDataPic);
    for (int column = 1; column <= static_cast<int>(parts.size()); ++column)
        form.EditDataView->SetColumnWidth(column, PixelsFromTwips(RoundToInt32(pageWidth / parts[column - 1])));
}

void LayOutEditPage(ErrorsSetAside &steps, SensorProjFrm &form)
{
    steps.Run([&] { PlacePage(form, *form.EditDataPic); });
    steps.Run([&] {
        PlaceInTwips(*form.EditDataView, 0, ListTop, WidthInTwips(*form.EditDataPic),
                     HeightInTwips(*form.EditDataPic) - ListTop);
    });
    steps.Run([&] { PlaceToolRow(form); });
    steps.Run([&] { SetColumnWidths(form); });
    steps.Run([&] { ShowStatus(QString()); });
}

void LayOutMeasurePage(ErrorsSetAside &steps, SensorProjFrm &form, int slot)
{
    steps.Run([&] { PlacePage(form, *form.MeasWavePic); });
    steps.Run([&] { LayoutMeasurePage(slot); });
    steps.Run([&] { ReleaseWaveBuffers(slot); });
    steps.Run([&] { CreateWaveBuffers(slot); });
    steps.Run([&] { RedrawValueWave(slot); });
    steps.Run([&] { RedrawMeasureWave(slot); });
    steps.Run([&] { ShowStatus(QString()); });
}

/// The two surrounds, one above the other.
void PlaceSurrounds(SensorProjFrm &form)
{
    const int width = std::max(form.MeasWavePic->width() - SurroundLeft, 0);
    const int height = std::max(RoundToInt32((form.MeasWavePic->height() - 40) / 2.0), 0);
    PictureBox &value = *form.PicTime_Value_Background;
    value.setGeometry(SurroundLeft, SurroundTop, width, height);
    form.PicTime_Meas_Background->setGeometry(SurroundLeft, value.y() + value.height(), width, height);
}

void PlaceTimePictures(SensorProjFrm &form, int slot)
{
    const PictureBox &surround = *form.PicTime_Value_Background;
    const int across = (surround.ScaleWidth() - TimePictureRoomAcross) / TicksAcross;
    const int down = (surround.ScaleHeight() - TimePictureRoomDown) / TicksDown;
    const int cell = std::max(std::min(across, down), 1);
    ValueWave[slot].TickCell = static_cast<std::int16_t>(cell);
    for (PictureBox *picture : {form.PicTime_Value, form.PicTime_Meas})
        picture->setGeometry(TimePictureLeft, TimePictureTop, TicksAcross * cell, TicksDown * cell);
}

void PlaceFrames(SensorProjFrm &form)
{
    form.DispSetFrame->move(FrameLeft, FrameLeft);
    for (QGroupBox *frame : {form.MeasureFrame, form.ReplayFrame, form.DataFrame})
        frame->move(FrameLeft, frame->y());
}

void PlaceBars(SensorProjFrm &form)
{
    form.Recordpic->setGeometry(SurroundLeft, form.MeasWavePic->height() - 27, form.PicTime_Meas_Background->width(),
                                24);
    form.HScroll1->setGeometry(0, 0, form.Recordpic->width(), form.Recordpic->height());
    const auto placeBeside = [](QWidget &bar, const QWidget &picture) {
        bar.setGeometry(picture.x() + picture.width() - 1, picture.y(), BarWidth, picture.height());
    };
    placeBeside(*form.FlatScrollBar1, *form.PicTime_Value);
    placeBeside(*form.FlatScrollBar2, *form.PicTime_Meas);
}

void ChooseTab(SensorProjFrm &form, int tab)
{
    SwitchProjectPage(SlotOf(form), tab);
    ResizeProjectView(form);
}

/// A project under measurement stays the active child.
void ReclaimActivation(SensorProjFrm &form)
{
    if (Reclaiming || !Measuring || form.RecordLumoBtn->isEnabled())
        return;
    const QScopedValueRollback<bool> reclaiming(Reclaiming, true);
    MainForm->Children->setActiveSubWindow(&form);
}

} // namespace

void SwitchProjectPage(int slot, int tabIndex)
{
    const SensorProjFrm &form = FormOfSlot(slot);
    if (tabIndex < ReferencePage || tabIndex > MeasurePage)
        return;
    form.SpecifyCurvePic->setVisible(tabIndex == ReferencePage);
    form.EditDataPic->setVisible(tabIndex == EditPage);
    form.MeasWavePic->setVisible(tabIndex == MeasurePage);
}

void ResizeProjectView(SensorProjFrm &form)
{
    if (form.isMinimized() || form.Tag.isEmpty())
        return;
    ErrorsSetAside steps;
    int slot = -1; // every step that needs the slot fails without one
    steps.Run([&] { slot = SlotOf(form); });
    steps.Run([&] { PlaceTabStrip(form); });
    switch (form.TabStrip->SelectedTab()) {
    case ReferencePage:
        LayOutReferencePage(steps, form, slot);
        break;
    case EditPage:
        LayOutEditPage(steps, form);
        break;
    default:
        LayOutMeasurePage(steps, form, slot);
    }
}

void LayoutMeasurePage(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    form.MeasWavePic->setPalette(form.palette());
    form.MeasWavePic->setAutoFillBackground(true);
    for (PictureBox *surround : {form.PicTime_Value_Background, form.PicTime_Meas_Background})
        surround->BackColour = Rgb(0, 0, 0);
    PlaceSurrounds(form);
    PlaceTimePictures(form, slot);
    PlaceFrames(form);
    PlaceBars(form);
}

void ConnectProjectView(SensorProjFrm &form)
{
    for (int tab = ReferencePage; tab <= MeasurePage; ++tab) {
        const CaptionRow &caption = TabCaptions[tab - 1];
        form.TabStrip->SetCaption(tab, Wording(QString::fromUtf8(caption.English), QString::fromUtf8(caption.Chinese)));
    }
    ConnectGuarded(&form, &SensorProjFrm::Resized, &form, [&form] { ResizeProjectView(form); });
    ConnectGuarded(&form, &SensorProjFrm::TabChosen, &form, [&form](int tab) { ChooseTab(form, tab); });
    ConnectGuarded(&form, &SensorProjFrm::Deactivated, &form, [&form] { ReclaimActivation(form); });
}
