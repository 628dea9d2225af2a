/// @file
/// Zoom and scroll: the ladder of spans, the zoom factors, and what each bar counts.
#include "display/ZoomModule.h"

#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/ErrorOf.h"

#include <QTest>

#include <memory>
#include <vector>

namespace {

constexpr ColourRef Mark = Rgb(1, 2, 3);
constexpr QPoint MarkAt(15, 13); ///< neither grid nor ticks come there
constexpr int Step = 10;         ///< a bar's large change
using Spans = std::vector<std::int32_t>;

int ErrorOfBar(FlatScrollBar &bar, const WaveRecord &record, double rangeMin, double rangeMax)
{
    return ErrorOf([&] { SetUpVerticalBar(bar, record, rangeMin, rangeMax); });
}

} // namespace

class TestZoom : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        frame = std::make_unique<BareFrame>();
        form = &frame->AddProject(slot);
        ConnectZoom(*form);
        form->PicTime_Value->resize(240, 100);
        form->PicTime_Meas->resize(240, 100);
        MeasureMin[slot] = 100;
        MeasureMax[slot] = 900;
        ValueMin[slot] = -20;
        ValueMax[slot] = 44;
        for (WaveRecord *record : {&ValueWave[slot], &MeasureWave[slot]}) {
            record->FirstVisible = 5;
            record->LastVisible = 65;
            record->Step = 2.5;
            record->XMin = 12.5;
            record->XMax = 162.5;
        }
        SetView(ValueWave[slot], ValueMin[slot], ValueMax[slot]);
        SetView(MeasureWave[slot], MeasureMin[slot], MeasureMax[slot]);
        PutMarks();
    }

    void cleanup() { frame.reset(); }

    void HorizontalZoomSteps_data()
    {
        QTest::addColumn<bool>("zoomIn");
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("after");
        const auto in = [](int before, int after) { QTest::addRow("in from %d", before) << true << before << after; };
        in(3840, 1920);
        in(60, 30);
        in(30, 15);
        in(17, 8); // 8.5, ties to even
        in(19, 10);
        in(16, 8);
        in(15, 6);
        for (int span = 7; span <= 14; ++span)
            in(span, span);
        for (int span = 2; span <= 6; ++span)
            in(span, span - 1);
        const auto out = [](int before, int after) {
            QTest::addRow("out from %d", before) << false << before << after;
        };
        out(2399, 4798);
        out(1920, 3840);
        out(60, 120);
        out(16, 32);
        out(15, 30);
        out(6, 15);
        for (int span = 7; span <= 14; ++span)
            out(span, span);
        for (int span = 1; span <= 5; ++span)
            out(span, span + 1);
    }

    void HorizontalZoomSteps()
    {
        QFETCH(bool, zoomIn);
        QFETCH(int, before);
        QFETCH(int, after);
        for (const bool value : {true, false}) {
            Choose(value);
            PutMarks();
            WaveRecord &record = value ? ValueWave[slot] : MeasureWave[slot];
            const WaveRecord &other = value ? MeasureWave[slot] : ValueWave[slot];
            record.WindowSamples = before + 1;
            const std::int32_t otherSamples = other.WindowSamples;
            (zoomIn ? form->ZoominHLumoBtn : form->ZoomOutHLumoBtn)->click();
            QCOMPARE(record.WindowSamples, after + 1);
            QCOMPARE(record.FirstVisible, 5);
            QCOMPARE(record.LastVisible, 5 + after);
            QCOMPARE(record.XMin, 12.5);
            QCOMPARE(record.XMax, 12.5 + 2.5 * after);
            QCOMPARE(other.WindowSamples, otherSamples);
            QCOMPARE(Redrawn(value), true);
            QCOMPARE(Redrawn(!value), false);
        }
    }

    void HorizontalZoomEnds_data()
    {
        QTest::addColumn<bool>("zoomIn");
        QTest::addColumn<int>("span");
        QTest::newRow("in at 1") << true << 1;
        QTest::newRow("out at 2400") << false << 2400;
        QTest::newRow("out at 3840") << false << 3840;
    }

    void HorizontalZoomEnds()
    {
        QFETCH(bool, zoomIn);
        QFETCH(int, span);
        Choose(true);
        ValueWave[slot].WindowSamples = span + 1;
        (zoomIn ? form->ZoominHLumoBtn : form->ZoomOutHLumoBtn)->click();
        QCOMPARE(ValueWave[slot].WindowSamples, span + 1);
        QCOMPARE(ValueWave[slot].LastVisible, 65);
        QCOMPARE(ValueWave[slot].XMax, 162.5);
        QVERIFY(!Redrawn(true) && !Redrawn(false));
    }

    void TheWholeLadder()
    {
        Choose(false);
        Spans in;
        for (int click = 0; click < 9; ++click) {
            form->ZoominHLumoBtn->click();
            in.push_back(MeasureWave[slot].WindowSamples - 1);
        }
        QCOMPARE(in, (Spans{30, 15, 6, 5, 4, 3, 2, 1, 1}));
        Spans out;
        for (int click = 0; click < 15; ++click) {
            form->ZoomOutHLumoBtn->click();
            out.push_back(MeasureWave[slot].WindowSamples - 1);
        }
        QCOMPARE(out, (Spans{2, 3, 4, 5, 6, 15, 30, 60, 120, 240, 480, 960, 1920, 3840, 3840}));
    }

    void WithoutAChosenCurveNothingHappens()
    {
        QVERIFY(!form->OptWave1->isChecked() && !form->OptWave2->isChecked());
        const BoxAnswers none;
        for (LumoButton *button :
             {form->ZoominHLumoBtn, form->ZoomOutHLumoBtn, form->ZoomInVLumoBtn, form->ZoomOutVLumoBtn})
            button->click();
        for (const WaveRecord *record : {&ValueWave[slot], &MeasureWave[slot]}) {
            QCOMPARE(record->WindowSamples, 61);
            QCOMPARE(record->ZoomFactor, 1);
        }
        QVERIFY(!Redrawn(true) && !Redrawn(false));
    }

    void TheButtonsActOnTheActiveProject()
    {
        const BoxAnswers none;
        frame->AddProject(slot + 1);
        Choose(true);
        form->ZoominHLumoBtn->click(); // of the window that is not active
        QCOMPARE(ValueWave[slot].WindowSamples, 61);
        QCOMPARE(ValueWave[slot + 1].WindowSamples, 31);
    }

    void VerticalZoomInSetsBarAndTop()
    {
        for (const bool value : {true, false}) {
            Choose(value);
            PutMarks();
            WaveRecord &record = value ? ValueWave[slot] : MeasureWave[slot];
            const FlatScrollBar &bar = value ? *form->FlatScrollBar1 : *form->FlatScrollBar2;
            record.YMin = value ? -4 : 300; // a quarter up the range
            form->ZoomInVLumoBtn->click();
            QCOMPARE(record.ZoomFactor, 2);
            QCOMPARE(record.YMin, value ? -4.0 : 300.0);
            QCOMPARE(record.YMax, value ? 28.0 : 700.0);
            QCOMPARE(bar.minimum(), 0);
            QCOMPARE(bar.maximum(), 100);
            QCOMPARE(bar.singleStep(), 1);
            QCOMPARE(bar.pageStep(), Step);
            QCOMPARE(bar.value(), 75);
            QVERIFY(Redrawn(value) && !Redrawn(!value));
        }
    }

    void TheLargestZoomFactorIs512()
    {
        Choose(true);
        Spans factors;
        for (int click = 0; click < 10; ++click) {
            form->ZoomInVLumoBtn->click();
            factors.push_back(ValueWave[slot].ZoomFactor);
        }
        QCOMPARE(factors, (Spans{2, 4, 8, 16, 32, 64, 128, 256, 512, 512}));
        QCOMPARE(form->FlatScrollBar1->maximum(), 25600);
        QCOMPARE(form->FlatScrollBar1->value(), 25600);
        QCOMPARE(ValueWave[slot].YMax, -20 + 64.0 / 512);
        PutMarks();
        form->ZoomInVLumoBtn->click();
        QVERIFY(!Redrawn(true));
    }

    void TheLimitIsAHundredTimesTheFactor_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("after");
        QTest::newRow("32700") << 327 << 654;
        QTest::newRow("32800") << 328 << 328;
    }

    void TheLimitIsAHundredTimesTheFactor()
    {
        QFETCH(int, before);
        QFETCH(int, after);
        Choose(true);
        ValueWave[slot].ZoomFactor = before;
        form->ZoomInVLumoBtn->click();
        QCOMPARE(ValueWave[slot].ZoomFactor, after);
    }

    void VerticalZoomOut_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("after");
        QTest::newRow("512") << 512 << 256;
        QTest::newRow("2") << 2 << 1;
        QTest::newRow("3, ties to even") << 3 << 2;
        QTest::newRow("5, ties to even") << 5 << 2;
    }

    void VerticalZoomOut()
    {
        QFETCH(int, before);
        QFETCH(int, after);
        Choose(false);
        MeasureWave[slot].ZoomFactor = before;
        MeasureWave[slot].YMin = 300;
        form->ZoomOutVLumoBtn->click();
        QCOMPARE(MeasureWave[slot].ZoomFactor, after);
        QCOMPARE(MeasureWave[slot].YMax, 300 + 800.0 / after);
        QCOMPARE(form->FlatScrollBar2->maximum(), after * 50);
        QVERIFY(Redrawn(false) && !Redrawn(true));
    }

    void VerticalZoomOutEndsAtOne()
    {
        Choose(true);
        form->FlatScrollBar1->SetRange(0, 7);
        form->ZoomOutVLumoBtn->click();
        QCOMPARE(ValueWave[slot].ZoomFactor, 1);
        QCOMPARE(form->FlatScrollBar1->maximum(), 7);
        QVERIFY(!Redrawn(true));
    }

    void AnEmptyRangeDividesByZero()
    {
        Choose(true);
        ValueMax[slot] = ValueMin[slot];
        const double top = ValueWave[slot].YMax;
        BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
        form->ZoomInVLumoBtn->click();
        // What came before the division stays.
        QCOMPARE(ValueWave[slot].ZoomFactor, 2);
        QCOMPARE(form->FlatScrollBar1->maximum(), 100);
        QCOMPARE(form->FlatScrollBar1->pageStep(), Step);
        QCOMPARE(ValueWave[slot].YMax, top);
        form->ZoomOutVLumoBtn->click();
        QCOMPARE(ValueWave[slot].ZoomFactor, 1);
        const QString text = ErrorDescription(ErrorNumber::DivisionByZero);
        QCOMPARE(answers.Texts(), (QStringList{text, text}));
        QVERIFY(!Redrawn(true));
    }

    void AVerticalBarCountsFromTheTop_data()
    {
        QTest::addColumn<double>("yMin");
        QTest::addColumn<int>("factor");
        QTest::addColumn<int>("value");
        QTest::newRow("bottom") << 100.0 << 1 << 50;
        QTest::newRow("top") << 900.0 << 1 << 0;
        QTest::newRow("middle") << 500.0 << 4 << 100;
        QTest::newRow("tie to even") << 508.0 << 1 << 24;   // 24.5
        QTest::newRow("tie to even 2") << 524.0 << 1 << 24; // 23.5
        QTest::newRow("cut at the bottom") << 0.0 << 1 << 50;
        QTest::newRow("cut at the top") << 1000.0 << 1 << 0;
    }

    void AVerticalBarCountsFromTheTop()
    {
        QFETCH(double, yMin);
        QFETCH(int, factor);
        WaveRecord record;
        record.YMin = yMin;
        record.ZoomFactor = factor;
        FlatScrollBar bar(Qt::Vertical);
        SetUpVerticalBar(bar, record, 100, 900);
        QCOMPARE(bar.minimum(), 0);
        QCOMPARE(bar.maximum(), 50 * factor);
        QCOMPARE(bar.singleStep(), 1);
        QCOMPARE(bar.pageStep(), Step);
        QTEST(bar.value(), "value");
    }

    void AVerticalBarHas16Bits()
    {
        FlatScrollBar bar(Qt::Vertical);
        WaveRecord record;
        record.ZoomFactor = 655;
        QCOMPARE(ErrorOfBar(bar, record, 0, 1), 0);
        QCOMPARE(bar.maximum(), 32750);
        record.ZoomFactor = 656;
        QCOMPARE(ErrorOfBar(bar, record, 0, 1), ErrorNumber::Overflow);
        QCOMPARE(bar.maximum(), 32750); // the range comes first
        record.ZoomFactor = 100000000;  // beyond 32 bits when multiplied
        QCOMPARE(ErrorOfBar(bar, record, 0, 1), ErrorNumber::Overflow);
        record.ZoomFactor = 2;
        record.YMin = -1000; // 100100
        QCOMPARE(ErrorOfBar(bar, record, 0, 1), ErrorNumber::Overflow);
        QCOMPARE(bar.maximum(), 100);
        QCOMPARE(ErrorOfBar(bar, record, 3, 3), ErrorNumber::DivisionByZero);
    }

    void AMovedVerticalBarSetsTheView_data()
    {
        QTest::addColumn<bool>("value");
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("factor");
        QTest::addColumn<double>("yMin");
        QTest::addColumn<double>("yMax");
        QTest::newRow("value, top") << true << 0 << 1 << 44.0 << 108.0;
        QTest::newRow("value, middle") << true << 50 << 2 << 12.0 << 44.0;
        QTest::newRow("value, bottom") << true << 200 << 4 << -20.0 << -4.0;
        QTest::newRow("measure, top") << false << 0 << 1 << 900.0 << 1700.0;
        QTest::newRow("measure, a quarter down") << false << 25 << 2 << 700.0 << 1100.0;
        QTest::newRow("measure, bottom") << false << 50 << 1 << 100.0 << 900.0;
    }

    void AMovedVerticalBarSetsTheView()
    {
        QFETCH(bool, value);
        QFETCH(int, position);
        QFETCH(int, factor);
        // The bars act on their own curves whatever is chosen.
        Choose(!value);
        WaveRecord &record = value ? ValueWave[slot] : MeasureWave[slot];
        const WaveRecord &other = value ? MeasureWave[slot] : ValueWave[slot];
        const double otherMin = other.YMin;
        FlatScrollBar &bar = value ? *form->FlatScrollBar1 : *form->FlatScrollBar2;
        record.ZoomFactor = factor;
        bar.SetUp(0, 50 * factor, 1, Step, position == 0 ? 7 : 0);
        bar.setSliderPosition(position);
        QTEST(record.YMin, "yMin");
        QTEST(record.YMax, "yMax");
        QCOMPARE(other.YMin, otherMin);
        QVERIFY(Redrawn(value) && !Redrawn(!value));
    }

    void ADraggedThumbScrollsAtOnce()
    {
        form->FlatScrollBar1->SetUp(0, 50, 1, Step, 50);
        form->FlatScrollBar1->setSliderDown(true);
        form->FlatScrollBar1->setSliderPosition(25);
        QVERIFY(form->FlatScrollBar1->isSliderDown());
        QCOMPARE(ValueWave[slot].YMin, 12.0);
        form->HScroll1->SetUp(0, 99, 1, Step, 0);
        form->HScroll1->setSliderDown(true);
        form->HScroll1->setSliderPosition(33);
        QCOMPARE(MeasureWave[slot].FirstVisible, 33);
    }

    void ASetBarScrollsNothing()
    {
        form->FlatScrollBar1->SetUp(0, 50, 1, Step, 30);
        form->FlatScrollBar2->SetUp(0, 50, 1, Step, 30);
        form->HScroll1->SetUp(0, 99, 1, Step, 30);
        QVERIFY(!Redrawn(true) && !Redrawn(false));
        QCOMPARE(ValueWave[slot].FirstVisible, 5);
    }

    void TheHorizontalBarMovesBothCurves()
    {
        ValueWave[slot].WindowSamples = 31;
        MeasureWave[slot].WindowSamples = 7;
        MeasureWave[slot].Step = 1;
        form->HScroll1->SetUp(0, 999, 1, Step, 0);
        form->HScroll1->triggerAction(QAbstractSlider::SliderPageStepAdd);
        QCOMPARE(ValueWave[slot].FirstVisible, 10);
        QCOMPARE(ValueWave[slot].LastVisible, 40);
        QCOMPARE(ValueWave[slot].XMin, 25.0);
        QCOMPARE(ValueWave[slot].XMax, 100.0);
        QCOMPARE(ValueWave[slot].WindowSamples, 31);
        QCOMPARE(MeasureWave[slot].FirstVisible, 10);
        QCOMPARE(MeasureWave[slot].LastVisible, 16);
        QCOMPARE(MeasureWave[slot].XMin, 10.0);
        QCOMPARE(MeasureWave[slot].XMax, 16.0);
        QCOMPARE(MeasureWave[slot].WindowSamples, 7);
        QVERIFY(Redrawn(true) && Redrawn(false));
    }

    void TheHorizontalBarCountsInSteps_data()
    {
        QTest::addColumn<int>("valueCount");
        QTest::addColumn<int>("measureCount");
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("first");
        QTest::newRow("32768 samples") << 32768 << 32768 << 32767 << 32767;
        QTest::newRow("32769 samples") << 32769 << 32769 << 100 << 200;
        QTest::newRow("the last that fits") << 32769 << 32769 << 16383 << 32766;
        QTest::newRow("65536 samples") << 65536 << 65536 << 100 << 300;
        QTest::newRow("524288 samples") << 524288 << 524288 << 1000 << 17000;
        // The values decide whether there are steps, the readings how large they are.
        QTest::newRow("fewer values") << 32768 << 65536 << 100 << 100;
        QTest::newRow("fewer readings") << 65536 << 100 << 100 << 100;
    }

    void TheHorizontalBarCountsInSteps()
    {
        QFETCH(int, valueCount);
        QFETCH(int, measureCount);
        QFETCH(int, position);
        QFETCH(int, first);
        ValueWave[slot].Count = valueCount;
        MeasureWave[slot].Count = measureCount;
        form->HScroll1->SetUp(0, 32767, 1, Step, 0);
        form->HScroll1->setSliderPosition(position);
        QCOMPARE(ValueWave[slot].FirstVisible, first);
        QCOMPARE(ValueWave[slot].LastVisible, first + 60);
        QCOMPARE(MeasureWave[slot].FirstVisible, first);
        QCOMPARE(MeasureWave[slot].XMin, first * 2.5);
        QCOMPARE(MeasureWave[slot].XMax, (first + 60) * 2.5);
    }

    void AScrollBeyond16BitsOverflows()
    {
        ValueWave[slot].Count = MeasureWave[slot].Count = 32769;
        form->HScroll1->SetUp(0, 16384, 1, Step, 0);
        BoxAnswers answers({QMessageBox::Ok});
        form->HScroll1->setSliderPosition(16384);
        QCOMPARE(answers.Texts(), QStringList{ErrorDescription(ErrorNumber::Overflow)});
        QCOMPARE(ValueWave[slot].FirstVisible, 5);
        QCOMPARE(MeasureWave[slot].LastVisible, 65);
        QVERIFY(!Redrawn(true) && !Redrawn(false));
    }

    void SettingUpTheHorizontalBar_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("value");
        QTest::newRow("one sample") << 1 << 0 << 0 << 0;
        QTest::newRow("100 samples") << 100 << 39 << 99 << 39;
        QTest::newRow("32768 samples") << 32768 << 32707 << 32767 << 32707;
        QTest::newRow("32769 samples") << 32769 << 32707 << 16384 << 16353;
        QTest::newRow("65535 samples") << 65535 << 5 << 32767 << 2;
        QTest::newRow("65536 samples") << 65536 << 5 << 21845 << 1;
        QTest::newRow("524288 samples") << 524288 << 524227 << 30840 << 30836;
    }

    void SettingUpTheHorizontalBar()
    {
        QFETCH(int, count);
        QFETCH(int, first);
        WaveRecord record;
        record.Count = count;
        record.FirstVisible = first;
        FlatScrollBar bar(Qt::Horizontal);
        SetUpHorizontalBar(bar, record);
        QCOMPARE(bar.minimum(), 0);
        QTEST(bar.maximum(), "maximum");
        QTEST(bar.value(), "value");
        QCOMPARE(bar.singleStep(), 1);
        QCOMPARE(bar.pageStep(), Step);
    }

    void AHorizontalBarHas16Bits()
    {
        WaveRecord record;
        record.Count = 100;
        record.FirstVisible = 32768;
        FlatScrollBar bar(Qt::Horizontal);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, SetUpHorizontalBar(bar, record));
    }

private:
    static constexpr int slot = 2;
    std::unique_ptr<BareFrame> frame;
    SensorProjFrm *form = nullptr;

    /// The view at the end of a run: the whole range.
    static void SetView(WaveRecord &record, double low, double high)
    {
        record.YMin = low;
        record.YMax = high;
    }

    void Choose(bool value) { (value ? form->OptWave1 : form->OptWave2)->setChecked(true); }

    void PutMarks()
    {
        for (PictureBox *plot : {form->PicTime_Value, form->PicTime_Meas}) {
            plot->ForeColour = Mark;
            plot->Dot(MarkAt.x(), MarkAt.y());
        }
    }

    /// Whether a curve has been drawn anew since PutMarks.
    bool Redrawn(bool value) const
    {
        const PictureBox &plot = value ? *form->PicTime_Value : *form->PicTime_Meas;
        return RefFromColour(plot.Image().pixelColor(MarkAt)) != Mark;
    }
};

QTEST_MAIN(TestZoom)
#include "tst_zoom.moc"
