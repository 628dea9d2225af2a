#include "display/ZoomModule.h"

#include "controls/Guard.h"
#include "display/SensorProjFrm.h"
#include "display/TimeCurveModule.h"
#include "measure/RunState.h"
#include "platform/NumberText.h"
#include "shell/ActiveProject.h"

#include <cmath>
#include <cstdint>
#include <optional>

namespace {

constexpr std::int32_t BarSmallChange = 1;
constexpr std::int32_t BarLargeChange = 10;
constexpr std::int32_t BarStepsPerZoom = 50;       ///< maximum of a vertical bar at zoom factor 1
constexpr std::int32_t HorizontalBarSteps = 32768; ///< positions that a bar of 16 bits can have
constexpr double ZoomLimit = 32768;                ///< a hundred times the zoom factor ends above it
constexpr double ZoomLimitFactor = 100;
constexpr std::int32_t WidestSpanToDouble = 2400; ///< samples; at this span and above zooming out ends

// The ladder of spans: 1 to 6 by single samples, 15, and from there by doubling.
constexpr std::int32_t SingleStepSpan = 6;
constexpr std::int32_t DoublingSpan = 15;

/// One curve of a slot with what zooming it takes.
struct WaveView {
    int Slot = 0;
    WaveRecord &Record;
    FlatScrollBar &Bar;
    double RangeMin = 0; ///< extremes of the whole run
    double RangeMax = 0;
    void (*Redraw)(int) = nullptr;
};

WaveView ValueView(const SensorProjFrm &form, int slot)
{
    return {slot, ValueWave[slot], *form.FlatScrollBar1, ValueMin[slot], ValueMax[slot], RedrawValueWave};
}

WaveView MeasureView(const SensorProjFrm &form, int slot)
{
    return {slot, MeasureWave[slot], *form.FlatScrollBar2, MeasureMin[slot], MeasureMax[slot], RedrawMeasureWave};
}

/// The curve that the option buttons choose, none when neither is on.
std::optional<WaveView> ChosenView(const SensorProjFrm &form)
{
    const int slot = ActiveSlot();
    if (form.OptWave1->isChecked())
        return ValueView(form, slot);
    if (form.OptWave2->isChecked())
        return MeasureView(form, slot);
    return std::nullopt;
}

/// The span after zooming in, none when it cannot get smaller. Spans between 6 and 15 stay.
std::optional<std::int32_t> NarrowerSpan(std::int32_t span)
{
    if (span > DoublingSpan)
        return RoundToInt32(span / 2.0);
    if (span == DoublingSpan)
        return SingleStepSpan;
    if (span > SingleStepSpan)
        return span;
    if (span > 1)
        return span - 1;
    return std::nullopt;
}

/// The span after zooming out, none when it is wide enough. Required: the limit is tested before the doubling, so that
/// 3840 is reached.
std::optional<std::int32_t> WiderSpan(std::int32_t span)
{
    if (span >= WidestSpanToDouble)
        return std::nullopt;
    if (span >= DoublingSpan)
        return span * 2;
    if (span == SingleStepSpan)
        return DoublingSpan;
    return span < SingleStepSpan ? span + 1 : span;
}

using SpanRule = std::optional<std::int32_t> (*)(std::int32_t);

void ZoomHorizontally(const SensorProjFrm &form, SpanRule rule)
{
    const std::optional<WaveView> view = ChosenView(form);
    if (!view)
        return;
    WaveRecord &record = view->Record;
    const std::optional<std::int32_t> span = rule(record.WindowSamples - 1);
    if (!span)
        return;
    record.WindowSamples = *span + 1;
    record.LastVisible = record.FirstVisible + record.WindowSamples - 1;
    record.XMax = *span * record.Step + record.XMin;
    view->Redraw(view->Slot);
}

void SetTopOfView(const WaveView &view)
{
    view.Record.YMax = Quotient(view.RangeMax - view.RangeMin, view.Record.ZoomFactor) + view.Record.YMin;
    view.Redraw(view.Slot);
}

void ZoomInVertically(const SensorProjFrm &form)
{
    const std::optional<WaveView> view = ChosenView(form);
    if (!view || view->Record.ZoomFactor * ZoomLimitFactor > ZoomLimit)
        return;
    view->Record.ZoomFactor *= 2;
    SetUpVerticalBar(view->Bar, view->Record, view->RangeMin, view->RangeMax);
    SetTopOfView(*view);
}

void ZoomOutVertically(const SensorProjFrm &form)
{
    const std::optional<WaveView> view = ChosenView(form);
    if (!view || view->Record.ZoomFactor < 2)
        return;
    view->Record.ZoomFactor = RoundToInt32(view->Record.ZoomFactor / 2.0);
    SetUpVerticalBar(view->Bar, view->Record, view->RangeMin, view->RangeMax);
    SetTopOfView(*view);
}

void ScrollVertically(const WaveView &view)
{
    const double fromTop = Quotient(view.Bar.value(), view.Bar.maximum());
    view.Record.YMin = (1 - fromTop) * (view.RangeMax - view.RangeMin) + view.RangeMin;
    SetTopOfView(view);
}

/// Samples per position of the horizontal bar for a number of samples beyond what 16 bits count.
std::int32_t SamplesPerPosition(std::int32_t count)
{
    return count / HorizontalBarSteps + 1;
}

/// The sample that the horizontal bar stands at.
/// @throws RuntimeError 6 beyond 16 bits: required, though it keeps the end of a long run from being scrolled to
std::int32_t ScrolledSample(const FlatScrollBar &bar, int slot)
{
    if (ValueWave[slot].Count <= HorizontalBarSteps)
        return bar.value();
    return RoundToInt16(static_cast<double>(bar.value()) * SamplesPerPosition(MeasureWave[slot].Count));
}

void ScrollHorizontally(const SensorProjFrm &form)
{
    const int slot = ActiveSlot();
    const std::int32_t first = ScrolledSample(*form.HScroll1, slot);
    for (WaveRecord *record : {&MeasureWave[slot], &ValueWave[slot]}) {
        record->FirstVisible = first;
        record->LastVisible = first + record->WindowSamples - 1;
        record->XMin = record->FirstVisible * record->Step;
        record->XMax = record->LastVisible * record->Step;
    }
    RedrawValueWave(slot);
    RedrawMeasureWave(slot);
}

void SetUpRange(FlatScrollBar &bar, std::int32_t maximum)
{
    bar.SetRange(0, maximum);
    bar.setSingleStep(BarSmallChange);
    bar.setPageStep(BarLargeChange);
}

} // namespace

void SetUpVerticalBar(FlatScrollBar &bar, const WaveRecord &record, double rangeMin, double rangeMax)
{
    // The range is set before the value is worked out, and stays when that fails.
    const std::int32_t maximum = RoundToInt16(static_cast<double>(record.ZoomFactor) * BarStepsPerZoom);
    SetUpRange(bar, maximum);
    const double fromTop = 1 - Quotient(record.YMin - rangeMin, rangeMax - rangeMin);
    bar.SetValue(RoundToInt16(fromTop * maximum));
}

void SetUpHorizontalBar(FlatScrollBar &bar, const WaveRecord &record)
{
    const std::int32_t perPosition = record.Count <= HorizontalBarSteps ? 1 : SamplesPerPosition(record.Count);
    SetUpRange(bar, (record.Count - 1) / perPosition);
    bar.SetValue(RoundToInt16(std::floor(static_cast<double>(record.FirstVisible) / perPosition)));
}

void ConnectZoom(SensorProjFrm &form)
{
    ConnectGuarded(form.ZoominHLumoBtn, &LumoButton::MouseClick, &form,
                   [&form] { ZoomHorizontally(form, NarrowerSpan); });
    ConnectGuarded(form.ZoomOutHLumoBtn, &LumoButton::MouseClick, &form,
                   [&form] { ZoomHorizontally(form, WiderSpan); });
    ConnectGuarded(form.ZoomInVLumoBtn, &LumoButton::MouseClick, &form, [&form] { ZoomInVertically(form); });
    ConnectGuarded(form.ZoomOutVLumoBtn, &LumoButton::MouseClick, &form, [&form] { ZoomOutVertically(form); });
    ConnectGuarded(form.FlatScrollBar1, &FlatScrollBar::Moved, &form,
                   [&form] { ScrollVertically(ValueView(form, ActiveSlot())); });
    ConnectGuarded(form.FlatScrollBar2, &FlatScrollBar::Moved, &form,
                   [&form] { ScrollVertically(MeasureView(form, ActiveSlot())); });
    ConnectGuarded(form.HScroll1, &FlatScrollBar::Moved, &form, [&form] { ScrollHorizontally(form); });
}
