/// @file
/// The complete redraw of the time curves, their memory surfaces, and the display choices of the page.
#include "display/TimeCurveModule.h"

#include "PixelCanvas.h"
#include "platform/MemorySurface.h"
#include "platform/PixelDrawing.h"
#include "platform/RuntimeError.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"

#include <QTest>

#include <functional>
#include <memory>

namespace {

constexpr ColourRef Black = Rgb(0, 0, 0);
constexpr ColourRef Green = Rgb(0, 255, 0);
constexpr ColourRef Yellow = Rgb(255, 255, 0);
constexpr ColourRef Mark = Rgb(1, 2, 3);
constexpr ColourRef Cyan = Rgb(0, 255, 255);
constexpr ColourRef Magenta = Rgb(255, 0, 255);
constexpr ColourRef White = Rgb(255, 255, 255);
constexpr QPoint MarkAt(15, 13); ///< no grid dot and no tick stands there

/// The surround of 320 by 130 pixels with what stands around the plot of 240 by 100 pixels at (40, 10): twelve numbers
/// and a unit below it, five numbers and a unit at its left.
QImage ExpectedSurround(const QStringList &abscissa, const QStringList &ordinate, ColourRef ordinateColour)
{
    QImage image = PixelCanvas(320, 130, Black).Image;
    for (int i = 0; i <= 12; ++i)
        DrawPictureText(image, Nearest(40 + 20 * i - 2.5 * static_cast<int>(abscissa[i].size())), 112, abscissa[i],
                        Cyan);
    for (int i = 0; i <= 5; ++i)
        DrawPictureText(image, 0, Nearest(110 - 20 * i - 4.5), ordinate[i], ordinateColour);
    return image;
}

/// Counts how often a widget is painted.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    int Count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        Count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

class TestTimeCurve : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        frame = std::make_unique<BareFrame>();
        SensorProjects[slot].OutputUnit = QStringLiteral("℃");
        SensorProjects[slot].InputUnit = QStringLiteral("mV");
        form = &frame->AddProject(slot);
        Place(*form->PicTime_Value_Background, *form->PicTime_Value, 0);
        Place(*form->PicTime_Meas_Background, *form->PicTime_Meas, 130);
        form->MeasWavePic->setGeometry(0, 0, 400, 300);
        form->MeasWavePic->raise();
        form->MeasWavePic->show();
        objects = LiveSurfaceObjects();
        CreateWaveBuffers(slot);
        ConnectTimeCurve(*form);
    }

    void cleanup()
    {
        ReleaseWaveBuffers(slot);
        frame.reset();
    }

    void ARedrawIsTheWholePicture_data() { Waves(); }

    void ARedrawIsTheWholePicture()
    {
        QFETCH(bool, value);
        WaveRecord &record = value ? ValueWave[slot] : MeasureWave[slot];
        FillRecord(record);
        PictureBox &plot = value ? *form->PicTime_Value : *form->PicTime_Meas;
        const PictureBox &background = value ? *form->PicTime_Value_Background : *form->PicTime_Meas_Background;
        PutMark(plot);
        Redraw(value);

        PixelCanvas expected(240, 100, Black);
        expected.WaveGraticule(true, Green);
        expected.LineUpTo(0, 20, 120, 79, Yellow); // 119.5 pixels a sample
        expected.LineUpTo(120, 79, 239, 50, Yellow);
        QCOMPARE(Difference(plot.Image(), expected.Image), QString());
        QCOMPARE(Difference(background.Image(), SurroundOfFilledRecord(value)), QString());
    }

    void ARedrawTouchesOneCurveOnly_data() { Waves(); }

    void ARedrawTouchesOneCurveOnly()
    {
        QFETCH(bool, value);
        PutMark(*form->PicTime_Value);
        PutMark(*form->PicTime_Meas);
        Redraw(value);
        QCOMPARE(Marked(*form->PicTime_Value), !value);
        QCOMPARE(Marked(*form->PicTime_Meas), value);
    }

    void ARedrawIsShown_data() { Waves(); }

    void ARedrawIsShown()
    {
        QFETCH(bool, value);
        PaintCounter plot(value ? form->PicTime_Value : form->PicTime_Meas);
        PaintCounter background(value ? form->PicTime_Value_Background : form->PicTime_Meas_Background);
        QTRY_VERIFY(form->PicTime_Meas->isVisible());
        QCoreApplication::processEvents();
        plot.Count = background.Count = 0;
        Redraw(value);
        QTRY_VERIFY(plot.Count > 0);
        QTRY_VERIFY(background.Count > 0);
    }

    void ASingleSampleHasGraticuleAndAxesOnly_data()
    {
        QTest::addColumn<bool>("value");
        QTest::addColumn<bool>("link");
        for (const bool value : {true, false}) {
            for (const bool link : {true, false})
                QTest::addRow("%s, %s", value ? "ValueWave" : "MeasureWave", link ? "lines" : "dots") << value << link;
        }
    }

    void ASingleSampleHasGraticuleAndAxesOnly()
    {
        QFETCH(bool, value);
        QFETCH(bool, link);
        WaveRecord &record = value ? ValueWave[slot] : MeasureWave[slot];
        FillRecord(record); // ranges that a curve would be drawn in
        record.Link = link;
        record.LastIndex = 0;
        Redraw(value);
        PixelCanvas expected(240, 100, Black);
        expected.WaveGraticule(true, Green);
        QCOMPARE(Difference((value ? form->PicTime_Value : form->PicTime_Meas)->Image(), expected.Image), QString());
        const PictureBox &background = value ? *form->PicTime_Value_Background : *form->PicTime_Meas_Background;
        QCOMPARE(Difference(background.Image(), SurroundOfFilledRecord(value)), QString());
    }

    void ANewProjectHasGraticuleAndAxesOnly()
    {
        RedrawValueWave(slot);
        PixelCanvas expected(240, 100, Black);
        expected.WaveGraticule(true, Green);
        QCOMPARE(Difference(form->PicTime_Value->Image(), expected.Image), QString());
        const QStringList zeros(5, QStringLiteral("0.000"));
        QCOMPARE(Difference(form->PicTime_Value_Background->Image(),
                            ExpectedSurround(Minute(), zeros + QStringList{QStringLiteral("℃")}, Magenta)),
                 QString());
    }

    void ASlotWithoutWindowIsPassedOver()
    {
        RedrawValueWave(slot + 1);
        RedrawMeasureWave(slot + 1);
        for (void (*redraw)(int) : {RedrawValueWave, RedrawMeasureWave, ReleaseWaveBuffers})
            QVERIFY_THROWS_EXCEPTION(RuntimeError, redraw(SlotCount));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, CreateWaveBuffers(slot + 1));
    }

    void TheSurfacesHaveThePicturesSize()
    {
        QCOMPARE(LiveSurfaceObjects(), objects + 8);
        for (const WaveRecord *record : {&ValueWave[slot], &MeasureWave[slot]}) {
            for (const SurfaceHandle surface : {record->MemoryDcA, record->MemoryDcB}) {
                QVERIFY(SetPixel(surface, 239, 99, Green));
                QVERIFY(!SetPixel(surface, 240, 99, Green));
                QVERIFY(!SetPixel(surface, 239, 100, Green));
                QCOMPARE(SetBkColor(surface, Green), Black);
            }
            QVERIFY(record->MemoryBitmapA != 0 && record->MemoryBitmapB != 0);
        }
    }

    void ReleasedSurfacesAreGone()
    {
        ReleaseWaveBuffers(slot);
        QCOMPARE(LiveSurfaceObjects(), objects);
        for (const WaveRecord *record : {&ValueWave[slot], &MeasureWave[slot]}) {
            QCOMPARE(record->MemoryDcA, 0);
            QCOMPARE(record->MemoryBitmapA, 0);
            QCOMPARE(record->MemoryDcB, 0);
            QCOMPARE(record->MemoryBitmapB, 0);
        }
        ReleaseWaveBuffers(slot);
        QCOMPARE(LiveSurfaceObjects(), objects);
    }

    void ManyRedrawsAndResizesLeaveNothingBehind()
    {
        FillRecord(ValueWave[slot]);
        FillRecord(MeasureWave[slot]);
        for (int i = 0; i < 100; ++i) {
            ValueWave[slot].Link = i % 2 == 0;
            RedrawValueWave(slot);
            RedrawMeasureWave(slot);
        }
        QCOMPARE(LiveSurfaceObjects(), objects + 8);
        for (int i = 0; i < 20; ++i) {
            form->PicTime_Value->resize(60 + i, 25 + i);
            ReleaseWaveBuffers(slot);
            CreateWaveBuffers(slot);
        }
        QCOMPARE(LiveSurfaceObjects(), objects + 8);
        QVERIFY(SetPixel(ValueWave[slot].MemoryDcB, 78, 43, Green));
        QVERIFY(!SetPixel(ValueWave[slot].MemoryDcB, 79, 43, Green));
    }

    void APictureWithoutAreaHasNoSurface()
    {
        ReleaseWaveBuffers(slot);
        form->PicTime_Value->setGeometry(0, 0, 0, 0);
        CreateWaveBuffers(slot);
        QCOMPARE(ValueWave[slot].MemoryDcB, 0);
        QCOMPARE(ValueWave[slot].MemoryBitmapB, 0);
        QVERIFY(MeasureWave[slot].MemoryDcB != 0);
        QCOMPARE(LiveSurfaceObjects(), objects + 4);
    }

    void AClickOnABoxGoesIntoTheChosenRecord_data()
    {
        QTest::addColumn<bool>("value");
        QTest::addColumn<bool>("grid");
        for (const bool value : {true, false}) {
            for (const bool grid : {true, false})
                QTest::addRow("%s of %s", grid ? "Grid" : "Link", value ? "ValueWave" : "MeasureWave") << value << grid;
        }
    }

    void AClickOnABoxGoesIntoTheChosenRecord()
    {
        QFETCH(bool, value);
        QFETCH(bool, grid);
        Choose(value);
        QCheckBox &box = grid ? *form->ChkGrid : *form->ChkLink;
        const PictureBox &plot = value ? *form->PicTime_Value : *form->PicTime_Meas;
        for (const bool on : {false, true, false}) {
            box.setChecked(!on);
            PutMark(*form->PicTime_Value);
            PutMark(*form->PicTime_Meas);
            box.click();
            QCOMPARE(box.isChecked(), on);
            const WaveRecord &chosen = value ? ValueWave[slot] : MeasureWave[slot];
            const WaveRecord &other = value ? MeasureWave[slot] : ValueWave[slot];
            QCOMPARE(chosen.Grid, grid ? on : true);
            QCOMPARE(chosen.Link, grid ? true : on);
            QVERIFY(other.Grid && other.Link);
            QCOMPARE(Marked(*form->PicTime_Value), !value);
            QCOMPARE(Marked(*form->PicTime_Meas), value);
            PixelCanvas expected(240, 100, Black);
            expected.WaveGraticule(chosen.Grid, Green);
            QCOMPARE(Difference(plot.Image(), expected.Image), QString());
        }
    }

    void WithoutAChosenCurveABoxDoesNothing()
    {
        QVERIFY(!form->OptWave1->isChecked() && !form->OptWave2->isChecked());
        PutMark(*form->PicTime_Value);
        PutMark(*form->PicTime_Meas);
        form->ChkGrid->setChecked(true);
        form->ChkGrid->click();
        form->ChkLink->setChecked(true);
        form->ChkLink->click();
        QVERIFY(ValueWave[slot].Grid && ValueWave[slot].Link && MeasureWave[slot].Grid && MeasureWave[slot].Link);
        QVERIFY(Marked(*form->PicTime_Value) && Marked(*form->PicTime_Meas));
    }

    void AThirdStateOnlyRedraws_data()
    {
        QTest::addColumn<bool>("value");
        QTest::addColumn<bool>("grid");
        QTest::addColumn<bool>("before");
        for (const bool value : {true, false}) {
            for (const bool grid : {true, false}) {
                for (const bool before : {true, false})
                    QTest::addRow("%s of %s, %s", grid ? "Grid" : "Link", value ? "ValueWave" : "MeasureWave",
                                  before ? "on" : "off")
                        << value << grid << before;
            }
        }
    }

    void AThirdStateOnlyRedraws()
    {
        QFETCH(bool, value);
        QFETCH(bool, grid);
        QFETCH(bool, before);
        Choose(value);
        WaveRecord &chosen = value ? ValueWave[slot] : MeasureWave[slot];
        const WaveRecord &other = value ? MeasureWave[slot] : ValueWave[slot];
        (grid ? chosen.Grid : chosen.Link) = before;
        PutMark(*form->PicTime_Value);
        PutMark(*form->PicTime_Meas);
        QCheckBox &box = grid ? *form->ChkGrid : *form->ChkLink;
        box.setTristate(true);
        box.setCheckState(Qt::Unchecked);
        box.click();
        QCOMPARE(box.checkState(), Qt::PartiallyChecked);
        QCOMPARE(chosen.Grid, grid ? before : true);
        QCOMPARE(chosen.Link, grid ? true : before);
        QVERIFY(other.Grid && other.Link);
        QCOMPARE(Marked(*form->PicTime_Value), !value);
        QCOMPARE(Marked(*form->PicTime_Meas), value);
    }

    void ChoosingACurveLoadsItsBoxes_data()
    {
        QTest::addColumn<bool>("value");
        QTest::addColumn<bool>("grid");
        QTest::addColumn<bool>("link");
        for (const bool value : {true, false}) {
            for (const bool grid : {true, false}) {
                for (const bool link : {true, false})
                    QTest::addRow("%d %d %d", value, grid, link) << value << grid << link;
            }
        }
    }

    void ChoosingACurveLoadsItsBoxes()
    {
        QFETCH(bool, value);
        QFETCH(bool, grid);
        QFETCH(bool, link);
        WaveRecord &chosen = value ? ValueWave[slot] : MeasureWave[slot];
        WaveRecord &other = value ? MeasureWave[slot] : ValueWave[slot];
        chosen.Grid = grid;
        chosen.Link = link;
        other.Grid = !grid;
        other.Link = !link;
        form->ChkGrid->setChecked(!grid);
        form->ChkLink->setChecked(!link);
        PutMark(*form->PicTime_Value);
        PutMark(*form->PicTime_Meas);
        (value ? form->OptWave1 : form->OptWave2)->click();
        QCOMPARE(form->ChkGrid->isChecked(), grid);
        QCOMPARE(form->ChkLink->isChecked(), link);
        // Silently: neither record nor picture is touched.
        QVERIFY(chosen.Grid == grid && chosen.Link == link && other.Grid == !grid && other.Link == !link);
        QVERIFY(Marked(*form->PicTime_Value) && Marked(*form->PicTime_Meas));
    }

    void WhatTheProgramSetsRunsNoRoutine()
    {
        ValueWave[slot].Link = false;
        PutMark(*form->PicTime_Value);
        form->ChkLink->setChecked(true);
        form->OptWave1->setChecked(true);
        QVERIFY(form->ChkLink->isChecked());
        form->ChkGrid->setChecked(true);
        form->ChkGrid->setChecked(false);
        QVERIFY(ValueWave[slot].Grid);
        QVERIFY(Marked(*form->PicTime_Value));
    }

    void AnErrorOfARedrawIsShown()
    {
        Choose(true);
        FillRecord(ValueWave[slot]);
        ValueWave[slot].LastIndex = ValueWave[slot].LastVisible = 5; // three samples are there
        form->ChkGrid->setChecked(true);
        BoxAnswers answers({QMessageBox::Ok});
        form->ChkGrid->click();
        QCOMPARE(answers.Texts(), QStringList{ErrorDescription(ErrorNumber::OutOfRange)});
        QVERIFY(!ValueWave[slot].Grid);
    }

private:
    static constexpr int slot = 3;
    std::unique_ptr<BareFrame> frame;
    SensorProjFrm *form = nullptr;
    int objects = 0;

    static void Waves()
    {
        QTest::addColumn<bool>("value");
        QTest::newRow("ValueWave") << true;
        QTest::newRow("MeasureWave") << false;
    }

    static void Place(PictureBox &background, PictureBox &plot, int top)
    {
        background.setGeometry(83, top, 320, 130);
        plot.setGeometry(40, 10, 240, 100);
    }

    /// Three samples; one unit is one pixel, 0 at row 20.
    static void FillRecord(WaveRecord &record)
    {
        record.Points = {{0, 0}, {1, -59.4}, {2, -30}};
        record.Count = 3;
        record.LastIndex = record.LastVisible = 2;
        record.YMin = -59.4;
        record.YMax = 0;
    }

    /// 60 seconds in twelve divisions, and their unit.
    static QStringList Minute() { return QStringLiteral("0 5 10 15 20 25 30 35 40 45 50 55 S").split(u' '); }

    /// A third of the record's range, 19.8, is a division; the lowest number stands one division below the range.
    static QImage SurroundOfFilledRecord(bool value)
    {
        const QString unit = value ? QStringLiteral("℃") : QStringLiteral("mV");
        return ExpectedSurround(Minute(),
                                QStringLiteral("-79.20 -59.40 -39.60 -19.80 0.000").split(u' ') + QStringList{unit},
                                value ? Magenta : White);
    }

    static void Redraw(bool value)
    {
        if (value)
            RedrawValueWave(slot);
        else
            RedrawMeasureWave(slot);
    }

    void Choose(bool value) { (value ? form->OptWave1 : form->OptWave2)->setChecked(true); }

    static void PutMark(PictureBox &plot)
    {
        plot.ForeColour = Mark;
        plot.Dot(MarkAt.x(), MarkAt.y());
    }

    /// Whether the picture has not been drawn anew since PutMark.
    static bool Marked(const PictureBox &plot) { return RefFromColour(plot.Image().pixelColor(MarkAt)) == Mark; }
};

QTEST_MAIN(TestTimeCurve)
#include "tst_time_curve.moc"
