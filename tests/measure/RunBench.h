/// @file
/// A project that is ready to be measured: its window with the rules of the run, an applied curve, and a link to an
/// instrument without a device.
#pragma once

#include "curve/lintab/Lintab.h"
#include "display/WaveRecord.h"
#include "link/LinkState.h"
#include "link/USB_FuncBox.h"
#include "measure/RunModule.h"
#include "measure/RunState.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/FakeVisa.h"

#include <QByteArray>
#include <QColor>
#include <QMetaObject>
#include <QStringList>
#include <QTimer>

#include <array>
#include <chrono>

class RunBench {
public:
    RunBench()
    {
        FakeVisa::Reset();
        Visa = &FakeVisa::Table();
        VisaSession = FakeVisa::OpenSession();
        LinkUp = true;
        InstrumentKind = InstrumentKindKV7050;
        BuildDoublingCurve();
        Add(0);
        ProjectSlots[0].CurveApplied = true;
    }

    ~RunBench() { SEN_Free(); }

    RunBench(const RunBench &) = delete;
    RunBench &operator=(const RunBench &) = delete;

    /// A further project window with the rules of the run, active from now on.
    SensorProjFrm &Add(int slot)
    {
        SensorProjFrm &added = bare.AddProject(slot);
        added.Timer1->setInterval(1000);
        for (PictureBox *picture : {added.PicTime_Value, added.PicTime_Meas})
            picture->resize(300, 125);
        ConnectRun(added);
        return added;
    }

    SensorProjFrm &Form(int slot = 0) { return *ProjectForm[slot]; }

    /// Lets the timer of a window tick once, the instrument replying with a line.
    void Tick(const QByteArray &reply, int slot = 0)
    {
        FakeVisa::State().Replies.append(reply + '\n');
        TickWithoutReply(slot);
    }

    /// The same with the replies as the test has scripted them. From then on a running timer does not tick by itself,
    /// however slow the machine.
    void TickWithoutReply(int slot = 0)
    {
        QTimer &timer = *Form(slot).Timer1;
        if (timer.isActive())
            timer.setInterval(std::chrono::hours(1));
        QMetaObject::invokeMethod(&timer, "timeout");
    }

    BareFrame bare;
    BoxAnswers boxes; ///< no box may come but those that a test adds an answer for

private:
    /// The value of a reading is its double.
    static void BuildDoublingCurve()
    {
        const std::array<CurvePoint, 2> points{{{0, 0}, {8, 16}}};
        const std::array<CurveFlag, 2> flags{{{0, 1}, {0, 0}}};
        QCOMPARE(SEN_NewBuild_Z(2, points.data(), flags.data()), std::uint8_t{0});
    }
};

/// "name on shown" for every named control of a window: enabled or not, hidden or not.
inline QStringList ControlStates(const SensorProjFrm &form)
{
    QStringList states;
    for (const QWidget *control : form.Client->findChildren<QWidget *>()) {
        if (control->objectName().isEmpty() || control->objectName().startsWith(QLatin1StringView("qt_")))
            continue;
        states.append(control->objectName() +
                      (control->isEnabledTo(control->parentWidget()) ? QStringLiteral(" on") : QStringLiteral(" off")) +
                      (control->isHidden() ? QStringLiteral(" hidden") : QStringLiteral(" shown")));
    }
    states.sort();
    return states;
}

/// Those states with some words changed, each given as "name off" or "name shown".
inline QStringList Changed(QStringList states, const QStringList &changes)
{
    for (const QString &change : changes) {
        const QString name = change.section(QLatin1Char(' '), 0, 0);
        const QString word = change.section(QLatin1Char(' '), 1, 1);
        const bool enablement = word == QLatin1StringView("on") || word == QLatin1StringView("off");
        bool found = false;
        for (QString &state : states) {
            QStringList words = state.split(QLatin1Char(' '));
            if (words[0] != name)
                continue;
            words[enablement ? 1 : 2] = word;
            state = words.join(QLatin1Char(' '));
            found = true;
        }
        QTest::qVerify(found, "the window has the control", qPrintable(name), __FILE__, __LINE__);
    }
    return states;
}

/// How the controls stand when a run has ended; those that depend on its data are not among them.
inline const QStringList StoppedStates{
    QStringLiteral("TxtSample on"),     QStringLiteral("exportCom on"),    QStringLiteral("RecordLumoBtn on"),
    QStringLiteral("ReplayLumoBtn on"), QStringLiteral("EndLumoBtn off"),  QStringLiteral("PauseLumoBtn off"),
    QStringLiteral("StopLumoBtn off"),  QStringLiteral("FastLumoBtn off"), QStringLiteral("LowLumoBtn off"),
};

/// Enables and shows all controls that a run touches, or disables and hides them.
inline void SetRunControls(const SensorProjFrm &form, bool on)
{
    for (LumoButton *button : {form.RecordLumoBtn, form.EndLumoBtn, form.ReplayLumoBtn, form.PauseLumoBtn,
                               form.StopLumoBtn, form.FastLumoBtn, form.LowLumoBtn, form.ZoominHLumoBtn,
                               form.ZoomOutHLumoBtn, form.ZoomInVLumoBtn, form.ZoomOutVLumoBtn, form.exportCom})
        button->setEnabled(on);
    form.TxtSample->setEnabled(on);
    form.HScroll1->setEnabled(on);
    form.FlatScrollBar1->setVisible(on);
    form.FlatScrollBar2->setVisible(on);
    form.Recordpic->setVisible(on);
}

/// A run's data by hand: range, extremes and number of samples of both curves.
inline void PutRun(int slot, std::int32_t count, double low, double high)
{
    for (WaveRecord *record : {&MeasureWave[slot], &ValueWave[slot]}) {
        record->Points.resize(static_cast<std::size_t>(count));
        record->Count = count;
        record->LastIndex = count - 1;
        record->YMin = low;
        record->YMax = high;
    }
    MeasureMin[slot] = ValueMin[slot] = low;
    MeasureMax[slot] = ValueMax[slot] = high;
}

/// The newest sample of a slot, as a reading and as a value.
inline double LastReading(int slot = 0)
{
    return MeasureWave[slot].Points.back().Y;
}
inline double LastValue(int slot = 0)
{
    return ValueWave[slot].Points.back().Y;
}

/// What the status bar says about the link.
inline QString LinkPanel()
{
    const StatusPanels &panels = *MainForm->sbrStatus;
    return panels.PanelText(panels.PanelOfKey(QStringLiteral("ConnectStatus")));
}

/// A spot of a picture that a redraw wipes out: between the grid's dots and far from frame, ticks and curve.
class RedrawMark {
public:
    explicit RedrawMark(PictureBox &picture) : m_picture(picture)
    {
        m_picture.ForeColour = Rgb(1, 2, 3);
        m_picture.Dot(Place, Place);
    }

    bool Redrawn() const { return m_picture.Image().pixelColor(Place, Place) != QColor(1, 2, 3); }

private:
    static constexpr int Place = 13;
    PictureBox &m_picture;
};
