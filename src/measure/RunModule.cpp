#include "measure/RunModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "controls/KeyCodes.h"
#include "curve/CurveModule.h"
#include "curve/lintab/Lintab.h"
#include "display/SensorProjFrm.h"
#include "display/TimeCurveModule.h"
#include "display/WaveRecord.h"
#include "display/ZoomModule.h"
#include "link/CommunicateFunBox.h"
#include "link/LinkIndicator.h"
#include "link/LinkState.h"
#include "link/USB_FuncBox.h"
#include "measure/CommandModule.h"
#include "measure/RunState.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "platform/Sleep.h"
#include "shell/ActiveProject.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <QApplication>
#include <QClipboard>

#include <cmath>

namespace {

constexpr int InstrumentStopPause = 2000;        // ms
constexpr std::int16_t VendorRequestType = 0x40; // host to device, vendor, device
constexpr std::int16_t RequestSensorStop = 0x1F;
constexpr double OverloadFirstRange = 0.0001; // range of a run that begins with an overload
constexpr std::int32_t ShortestPeriod = 1000; // ms
constexpr std::int32_t LongestPeriod = 60000; // ms
constexpr std::int32_t PeriodStep = 100;      // ms
constexpr int PeriodTextLength = 4;           // characters

/// A refusal of StartMeasurement. @return false
bool Refuse(const QString &english, const QString &chinese)
{
    ExclamationBox(Wording(english, chinese));
    return false;
}

/// The checks ahead of a run, in their order. Makes the placeholder curve of a built-in sensor on its way.
bool RunMayStart(int slot)
{
    const SensorProject &project = SensorProjects[slot];
    if (!LinkUp)
        return Refuse(QStringLiteral("Please connect to the instrument! "), QStringLiteral("请和仪器连接! "));
    if (project.IsBuiltInSensor) {
        if (InstrumentKind != InstrumentKindKV7060)
            return Refuse(QStringLiteral("You must send the task to KV7060! "),
                          QStringLiteral("温度传感器任务只能发送到KV7060执行! "));
        ProjectSlots[slot].CurveApplied = true;
        ApplyPlaceholderCurve(slot);
    }
    if (project.MeasFunction == MeasFunctionCode::Diode && InstrumentKind != InstrumentKindKV7050)
        return Refuse(QStringLiteral("You must send current task to KV7050! "),
                      QStringLiteral("当前传感器任务只能发送到KV7050执行! "));
    if (!ProjectSlots[slot].CurveApplied)
        return Refuse(QStringLiteral("You must generate reference curve first! "),
                      QStringLiteral("尚未生成参考曲线! "));
    return MeasureWave[slot].Count <= 0 ||
           AskYesNo(Wording(QStringLiteral("Data exists, whether coverage? "), QStringLiteral("存在数据，是否覆盖? ")));
}

void ShowRunning(SensorProjFrm &form)
{
    form.TxtSample->setEnabled(false);
    form.exportCom->setEnabled(false);
    form.RecordLumoBtn->setEnabled(false);
    form.EndLumoBtn->setEnabled(true);
    for (LumoButton *button : {form.ReplayLumoBtn, form.PauseLumoBtn, form.StopLumoBtn, form.FastLumoBtn,
                               form.LowLumoBtn, form.ZoomInVLumoBtn, form.ZoomOutVLumoBtn})
        button->setEnabled(false);
    form.HScroll1->setEnabled(false);
    form.FlatScrollBar1->hide();
    form.FlatScrollBar2->hide();
    form.Recordpic->hide();
}

/// The view of a run that has no sample yet. Points, range and extremes stay until the first sample.
void EmptyRecord(WaveRecord &record)
{
    record.WindowSamples = StandardWindowSamples;
    record.LastIndex = -1;
    record.Count = 0;
}

/// Stops a sensor that measures in the instrument by itself. @return false when the request failed
bool StopInstrumentSensor()
{
    InformationBox(Wording(QStringLiteral("Stop instrument measurement and start software measurement! "),
                           QStringLiteral("停止仪器测量，开启软件测量! ")));
    InstrumentSensorOn = false;
    Sleep(InstrumentStopPause);
    LastUsbStatus = UsbControlOut(VendorRequestType, RequestSensorStop, 0, 0, 0, nullptr);
    if (LastUsbStatus >= 0)
        return true;
    // Required: English in both languages, and the run stays marked as active: only the end button clears it.
    ExclamationBox(QStringLiteral("Unable to connect to USB device! "), QStringLiteral("USB Send Message"));
    LinkLost();
    return false;
}

/// Moves the window of a record so that it holds the newest sample.
void MoveWindow(WaveRecord &record)
{
    if (record.LastIndex <= record.WindowSamples - 1)
        record.FirstVisible = 0;
    else
        ++record.FirstVisible;
    record.LastVisible = record.FirstVisible + record.WindowSamples - 1;
    record.XMin = record.FirstVisible * record.Step;
    record.XMax = record.LastVisible * record.Step;
}

/// Stores the newest sample of a record that has been counted already.
void StoreSample(WaveRecord &record, double value)
{
    record.Points.resize(static_cast<std::size_t>(record.Count));
    MoveWindow(record);
    record.Points[static_cast<std::size_t>(record.LastIndex)] = {static_cast<double>(record.LastIndex), value};
}

/// Widens view and extremes to a sample. An overload only gives a run that begins with it a range.
void WidenRange(WaveRecord &record, double &runMax, double &runMin, double value, bool overload)
{
    if (record.LastIndex == 0) {
        record.YMax = runMax = overload ? OverloadFirstRange : value;
        record.YMin = runMin = overload ? -OverloadFirstRange : value;
        return;
    }
    if (overload)
        return;
    if (runMax < value)
        record.YMax = runMax = value;
    if (runMin > value)
        record.YMin = runMin = value;
}

/// The reading that a reply tells, in the input unit. What tells none is 0, and so is one that the scale takes beyond
/// double.
double ReadingOf(const QString &reply, float inputUnitScale)
{
    const double reading = LeadingNumber(reply) * static_cast<double>(inputUnitScale);
    return std::isfinite(reading) ? reading : 0;
}

/// Asks once for each run of overloads whether to go on. @return false when the user ended the measurement
bool OverloadMayGoOn()
{
    if (OverloadAccepted)
        return true;
    if (!AskOkCancel(Wording(QStringLiteral("The Data is over load.Do you want to continue? "),
                             QStringLiteral("数据超量程，是否继续测量? ")))) {
        EndMeasurement();
        return false;
    }
    OverloadAccepted = true;
    return true;
}

void RecordReading(int slot, double reading, bool overload)
{
    WaveRecord &measured = MeasureWave[slot];
    StoreSample(measured, reading);
    WidenRange(measured, MeasureMax[slot], MeasureMin[slot], reading, overload);
    RedrawMeasureWave(slot);
}

void RecordValue(int slot, double reading, bool overload)
{
    WaveRecord &values = ValueWave[slot];
    values.Count = values.LastIndex + 1;
    const double value = overload ? reading : SEN_Meas_Z(reading);
    StoreSample(values, value);
    // Required: the instrument converts a built-in sensor by itself, so its values are kept but not shown.
    if (InstrumentKind == InstrumentKindKV7060 && SensorProjects[slot].IsBuiltInSensor)
        return;
    WidenRange(values, ValueMax[slot], ValueMin[slot], value, overload);
    RedrawValueWave(slot);
}

/// Shows the whole range of a run, with its bar.
void ShowWholeRange(FlatScrollBar &bar, WaveRecord &record, double runMax, double runMin)
{
    record.ZoomFactor = 1;
    SetUpVerticalBar(bar, record, runMin, runMax);
    record.YMax = record.YMin + (runMax - runMin) / record.ZoomFactor;
}

void ShowEnded(SensorProjFrm &form)
{
    form.Timer1->stop();
    form.TxtSample->setEnabled(true);
    for (LumoButton *button : {form.exportCom, form.RecordLumoBtn, form.ReplayLumoBtn})
        button->setEnabled(true);
    for (LumoButton *button : {form.EndLumoBtn, form.PauseLumoBtn, form.StopLumoBtn, form.FastLumoBtn, form.LowLumoBtn})
        button->setEnabled(false);
}

void OfferVerticalZoom(SensorProjFrm &form, int slot)
{
    form.ZoomInVLumoBtn->setEnabled(true);
    form.ZoomOutVLumoBtn->setEnabled(true);
    form.FlatScrollBar1->show();
    form.FlatScrollBar2->show();
    ShowWholeRange(*form.FlatScrollBar1, ValueWave[slot], ValueMax[slot], ValueMin[slot]);
    ShowWholeRange(*form.FlatScrollBar2, MeasureWave[slot], MeasureMax[slot], MeasureMin[slot]);
}

bool HasRange(const WaveRecord &record)
{
    return record.YMin != record.YMax;
}

/// The period that a text in seconds asks for, in ms, put right with a notice where it does not fit.
/// @throws RuntimeError 13 when the text is no number, 6 when it is too large
std::int32_t PeriodOfText(const QString &text)
{
    const std::int32_t ms = RoundToInt32(WholeNumber(text) * 1000);
    if (ms < ShortestPeriod) {
        InformationBox(
            Wording(QStringLiteral("The Minimum sampling cycle is 1 second! "), QStringLiteral("最小抽样周期是1秒! ")));
        return ShortestPeriod;
    }
    if (ms > LongestPeriod) {
        InformationBox(Wording(QStringLiteral("The maximum sampling cycle is 1 minute! "),
                               QStringLiteral("最大抽样周期是1分钟! ")));
        return LongestPeriod;
    }
    if (ms % PeriodStep != 0) {
        InformationBox(
            Wording(QStringLiteral("The sampling precision is 0.1 second! "), QStringLiteral("抽样精度到0.1秒! ")));
        return ms - ms % PeriodStep;
    }
    return ms;
}

void SetSamplePeriod(SensorProjFrm &form, std::int32_t ms)
{
    const int slot = SlotOf(form);
    const double seconds = ms / 1000.0;
    form.TxtSample->setText(FormatNumber(seconds, u"0.0"));
    form.Timer1->setInterval(ms);
    for (WaveRecord *record : {&ValueWave[slot], &MeasureWave[slot]}) {
        record->Step = seconds;
        record->XMax = record->XMin + (record->WindowSamples - 1) * record->Step;
    }
    RedrawValueWave(slot);
    RedrawMeasureWave(slot);
}

} // namespace

void StartMeasurement()
{
    const int slot = ActiveSlot();
    if (!RunMayStart(slot))
        return;
    SensorProjFrm &form = FormOfSlot(slot);
    OverloadAccepted = false;
    ShowRunning(form);
    EmptyRecord(MeasureWave[slot]);
    EmptyRecord(ValueWave[slot]);
    FunctionCommand = ComposeFunctionCommand(SensorProjects[slot].MeasFunction);
    MeasureCommand = ComposeMeasureCommand(SensorProjects[slot].MeasFunction);
    // Set ahead of the send, so that a failed one ends the run.
    Measuring = true;
    SendCommand(FunctionCommand);
    if (InstrumentSensorOn && !StopInstrumentSensor())
        return;
    if (Measuring)
        form.Timer1->start();
}

void SampleTick()
{
    const int slot = ActiveSlot();
    const double reading = ReadingOf(QueryCommand(MeasureCommand), SensorProjects[slot].InputUnitScale);
    // The query itself can have ended the run.
    if (!Measuring)
        return;
    // Required: the test follows the scaling, so that a unit other than the base unit lets the marks pass as numbers.
    const bool overload = IsOverload(reading);
    if (!overload)
        OverloadAccepted = false;
    else if (!OverloadMayGoOn())
        return;
    ++MeasureWave[slot].LastIndex;
    ++ValueWave[slot].LastIndex;
    MeasureWave[slot].Count = MeasureWave[slot].LastIndex + 1;
    if (MeasureWave[slot].Count > SampleLimit) {
        EndMeasurement();
        return;
    }
    RecordReading(slot, reading, overload);
    RecordValue(slot, reading, overload);
}

void ApplySamplePeriod(SensorProjFrm &form)
{
    ErrorsSetAside trap;
    trap.Run([&form] { SetSamplePeriod(form, PeriodOfText(form.TxtSample->text())); });
    if (!trap.Last())
        return;
    form.TxtSample->setFocus();
    form.TxtSample->setText(QStringLiteral("1.0"));
    // Required: there is no English text of its own.
    InformationBox(Wording(QStringLiteral("The Minimum sampling cycle is 1 second! "),
                           QStringLiteral("抽样周期时间填写有误，请重新填写! ")));
}

void EndMeasurement()
{
    Measuring = false;
    const int slot = ActiveSlot();
    SensorProjFrm &form = FormOfSlot(slot);
    if (LinkUp && ProjectSlots[slot].CurveApplied) {
        ShowEnded(form);
        if (HasRange(MeasureWave[slot]) && HasRange(ValueWave[slot]))
            OfferVerticalZoom(form, slot);
        if (MeasureWave[slot].Count == 0 || !(MeasureWave[slot].YMin < MeasureWave[slot].YMax)) {
            // Required: OverloadAccepted keeps its value on this way out.
            MainForm->CheckLinkTimer->start();
            return;
        }
        form.Recordpic->show();
        form.HScroll1->setEnabled(true);
        SetUpHorizontalBar(*form.HScroll1, MeasureWave[slot]);
    }
    if (LinkUp)
        MainForm->CheckLinkTimer->start();
    OverloadAccepted = false;
}

bool SamplePeriodKeyPasses(int key, int textLength)
{
    if (key == BackspaceKey || key == EnterKey)
        return true;
    return textLength < PeriodTextLength && (key == '.' || (key >= '0' && key <= '9'));
}

void ConnectRun(SensorProjFrm &form)
{
    ConnectGuarded(form.RecordLumoBtn, &LumoButton::MouseClick, &form, [] { StartMeasurement(); });
    ConnectGuarded(&form, &SensorProjFrm::EndRunAsked, &form, [] { EndMeasurement(); });
    QObject::connect(form.Timer1, &QTimer::timeout, &form, [] { RunGuarded([] { SampleTick(); }); });
    ConnectGuarded(form.TxtSample, &TextBox::KeyPress, &form, [&form](int &key) {
        if (!SamplePeriodKeyPasses(key, static_cast<int>(form.TxtSample->text().size())))
            key = 0;
    });
    ConnectGuarded(form.TxtSample, &TextBox::LostFocus, &form, [&form] { ApplySamplePeriod(form); });
    ConnectGuarded(form.TxtSample, &TextBox::MouseDown, &form, [](Qt::MouseButton button) {
        if (button == Qt::RightButton)
            QApplication::clipboard()->clear();
    });
}
