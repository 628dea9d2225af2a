/// @file
/// The end of a run: which controls come back, what they show, and what stays as it is.
#include "measure/RunBench.h"

namespace {

const QStringList VerticalZoomStates{QStringLiteral("ZoomInVLumoBtn on"), QStringLiteral("ZoomOutVLumoBtn on"),
                                     QStringLiteral("FlatScrollBar1 shown"), QStringLiteral("FlatScrollBar2 shown")};
const QStringList ScrollStates{QStringLiteral("Recordpic shown"), QStringLiteral("HScroll1 on")};

} // namespace

class RunEndTest : public QObject {
    Q_OBJECT

private slots:
    void endWithoutSamplesRestoresTheButtonsOnly_data();
    void endWithoutSamplesRestoresTheButtonsOnly();
    void endOffersZoomAndScroll();
    void endShowsTheWholeRange();
    void endOffersOnlyWhatTheRangesAllow_data();
    void endOffersOnlyWhatTheRangesAllow();
    void horizontalBarFollowsTheCount_data();
    void horizontalBarFollowsTheCount();
    void endWithLinkDownRestoresNothing();
    void endWithoutCurveRestoresNothing();
    void endWorksOnTheActiveProject();
    void endIsAskedForWhateverItsButtonsState();
    void endSendsNothing();
};

void RunEndTest::endWithoutSamplesRestoresTheButtonsOnly_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("all enabled and shown before") << true;
    QTest::newRow("all disabled and hidden before") << false;
}

void RunEndTest::endWithoutSamplesRestoresTheButtonsOnly()
{
    QFETCH(bool, on);
    RunBench bench;
    StartMeasurement();
    SetRunControls(bench.Form(), on);
    OverloadAccepted = true;
    const QStringList expected = Changed(ControlStates(bench.Form()), StoppedStates);
    EndMeasurement();
    QVERIFY(!Measuring);
    QVERIFY(!bench.Form().Timer1->isActive());
    QCOMPARE(ControlStates(bench.Form()), expected);
    QVERIFY(MainForm->CheckLinkTimer->isActive());
    QVERIFY(OverloadAccepted);
}

void RunEndTest::endOffersZoomAndScroll()
{
    RunBench bench;
    StartMeasurement();
    for (const char *reply : {"1", "-4", "6"})
        bench.Tick(reply);
    OverloadAccepted = true;
    const QStringList expected =
        Changed(ControlStates(bench.Form()), StoppedStates + VerticalZoomStates + ScrollStates);
    bench.Form().EndLumoBtn->click();
    QVERIFY(!Measuring);
    QVERIFY(!bench.Form().Timer1->isActive());
    QCOMPARE(ControlStates(bench.Form()), expected);
    QVERIFY(MainForm->CheckLinkTimer->isActive());
    QVERIFY(!OverloadAccepted);
    for (const FlatScrollBar *bar : {bench.Form().FlatScrollBar1, bench.Form().FlatScrollBar2}) {
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), 50);
        QCOMPARE(bar->singleStep(), 1);
        QCOMPARE(bar->pageStep(), 10);
        QCOMPARE(bar->value(), 50);
    }
    QCOMPARE(MeasureWave[0].YMin, -4.0);
    QCOMPARE(MeasureWave[0].YMax, 6.0);
    QCOMPARE(ValueWave[0].YMin, -8.0);
    QCOMPARE(ValueWave[0].YMax, 12.0);
    // The data stay.
    QCOMPARE(MeasureWave[0].Count, 3);
    QCOMPARE(ValueWave[0].Points[2].Y, 12.0);
}

void RunEndTest::endShowsTheWholeRange()
{
    RunBench bench;
    PutRun(0, 20, 0, 10);
    // The value curve stands elsewhere than the reading curve, and both are zoomed.
    ValueMin[0] = 100;
    ValueMax[0] = 300;
    ValueWave[0].YMin = 175;
    ValueWave[0].YMax = 200;
    ValueWave[0].ZoomFactor = 8;
    MeasureWave[0].YMin = 2.5;
    MeasureWave[0].YMax = 5;
    MeasureWave[0].ZoomFactor = 4;
    EndMeasurement();
    QCOMPARE(ValueWave[0].ZoomFactor, 1);
    QCOMPARE(ValueWave[0].YMin, 175.0);
    QCOMPARE(ValueWave[0].YMax, 375.0);
    QCOMPARE(bench.Form().FlatScrollBar1->maximum(), 50);
    QCOMPARE(bench.Form().FlatScrollBar1->value(), 31); // (1 - 75 / 200) * 50 = 31.25
    QCOMPARE(MeasureWave[0].ZoomFactor, 1);
    QCOMPARE(MeasureWave[0].YMin, 2.5);
    QCOMPARE(MeasureWave[0].YMax, 12.5);
    QCOMPARE(bench.Form().FlatScrollBar2->maximum(), 50);
    QCOMPARE(bench.Form().FlatScrollBar2->value(), 38); // (1 - 2.5 / 10) * 50 = 37.5, a tie
}

void RunEndTest::endOffersOnlyWhatTheRangesAllow_data()
{
    QTest::addColumn<std::int32_t>("count");
    QTest::addColumn<double>("measureHigh"); // the low ends are 0
    QTest::addColumn<double>("valueHigh");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<bool>("horizontal");
    QTest::newRow("both curves have a range") << 5 << 1.0 << 1.0 << true << true;
    QTest::newRow("constant curves") << 5 << 0.0 << 0.0 << false << false;
    QTest::newRow("constant readings") << 5 << 0.0 << 1.0 << false << false;
    QTest::newRow("constant values") << 5 << 1.0 << 0.0 << false << true;
    QTest::newRow("readings upside down") << 5 << -1.0 << 0.0 << false << false;
    QTest::newRow("ranges of an earlier run, no samples") << 0 << 1.0 << 1.0 << true << false;
    QTest::newRow("one sample") << 1 << 1.0 << 1.0 << true << true;
}

void RunEndTest::endOffersOnlyWhatTheRangesAllow()
{
    QFETCH(std::int32_t, count);
    QFETCH(double, measureHigh);
    QFETCH(double, valueHigh);
    QFETCH(bool, vertical);
    QFETCH(bool, horizontal);
    RunBench bench;
    PutRun(0, count, 0, 1);
    MeasureWave[0].YMax = MeasureMax[0] = measureHigh;
    ValueWave[0].YMax = ValueMax[0] = valueHigh;
    SetRunControls(bench.Form(), false);
    OverloadAccepted = true;
    const QStringList expected =
        Changed(ControlStates(bench.Form()), StoppedStates + (vertical ? VerticalZoomStates : QStringList()) +
                                                 (horizontal ? ScrollStates : QStringList()));
    EndMeasurement();
    QCOMPARE(ControlStates(bench.Form()), expected);
    QVERIFY(MainForm->CheckLinkTimer->isActive());
    QCOMPARE(OverloadAccepted, !horizontal);
}

void RunEndTest::horizontalBarFollowsTheCount_data()
{
    QTest::addColumn<std::int32_t>("count");
    QTest::addColumn<std::int32_t>("first");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::newRow("1") << 1 << 0 << 0 << 0;
    QTest::newRow("62") << 62 << 1 << 61 << 1;
    QTest::newRow("32768") << 32768 << 32707 << 32767 << 32707;
    QTest::newRow("32769, by two") << 32769 << 32708 << 16384 << 16354;
    QTest::newRow("32770, cut") << 32770 << 32709 << 16384 << 16354;
    QTest::newRow("65535, by two") << 65535 << 65474 << 32767 << 32737;
    QTest::newRow("65536, by three") << 65536 << 65475 << 21845 << 21825;
    QTest::newRow("524288, by seventeen") << 524288 << 524227 << 30840 << 30836;
}

void RunEndTest::horizontalBarFollowsTheCount()
{
    QFETCH(std::int32_t, count);
    QFETCH(std::int32_t, first);
    QFETCH(int, maximum);
    QFETCH(int, value);
    RunBench bench;
    PutRun(0, count, 0, 1);
    MeasureWave[0].FirstVisible = first;
    EndMeasurement();
    const FlatScrollBar &bar = *bench.Form().HScroll1;
    QCOMPARE(bar.minimum(), 0);
    QCOMPARE(bar.maximum(), maximum);
    QCOMPARE(bar.singleStep(), 1);
    QCOMPARE(bar.pageStep(), 10);
    QCOMPARE(bar.value(), value);
}

void RunEndTest::endWithLinkDownRestoresNothing()
{
    RunBench bench;
    StartMeasurement();
    bench.Tick("1");
    bench.Tick("2");
    LinkUp = false;
    OverloadAccepted = true;
    const QStringList before = ControlStates(bench.Form());
    bench.Form().EndLumoBtn->click();
    QVERIFY(!Measuring);
    QVERIFY(!OverloadAccepted);
    QCOMPARE(ControlStates(bench.Form()), before);
    QVERIFY(bench.Form().Timer1->isActive());
    QVERIFY(!MainForm->CheckLinkTimer->isActive());
}

void RunEndTest::endWithoutCurveRestoresNothing()
{
    RunBench bench;
    StartMeasurement();
    bench.Tick("1");
    bench.Tick("2");
    ProjectSlots[0].CurveApplied = false;
    OverloadAccepted = true;
    const QStringList before = ControlStates(bench.Form());
    bench.Form().EndLumoBtn->click();
    QVERIFY(!Measuring);
    QVERIFY(!OverloadAccepted);
    QCOMPARE(ControlStates(bench.Form()), before);
    QVERIFY(bench.Form().Timer1->isActive());
    QVERIFY(MainForm->CheckLinkTimer->isActive());
}

void RunEndTest::endWorksOnTheActiveProject()
{
    RunBench bench;
    StartMeasurement();
    SensorProjFrm &second = bench.Add(1);
    ProjectSlots[1].CurveApplied = true;
    SetRunControls(second, false);
    const QStringList first = ControlStates(bench.Form(0));
    const QStringList expected = Changed(ControlStates(second), StoppedStates);
    bench.Form(0).EndLumoBtn->click();
    QVERIFY(!Measuring);
    QCOMPARE(ControlStates(bench.Form(0)), first);
    QVERIFY(bench.Form(0).Timer1->isActive());
    QCOMPARE(ControlStates(second), expected);
}

void RunEndTest::endIsAskedForWhateverItsButtonsState()
{
    RunBench bench;
    StartMeasurement();
    bench.Form().EndLumoBtn->setEnabled(false);
    bench.Form().EndLumoBtn->click();
    QVERIFY(Measuring);
    bench.Form().EndLumoBtn_MouseClick();
    QVERIFY(!Measuring);
}

void RunEndTest::endSendsNothing()
{
    RunBench bench;
    StartMeasurement();
    bench.Tick("1");
    FakeVisa::ClearRecords();
    bench.Form().EndLumoBtn->click();
    QCOMPARE(FakeVisa::WriteCount(), 0);
    QCOMPARE(FakeVisa::ReadCount(), 0);
    QCOMPARE(FakeVisa::State().Transfers.size(), 0);
}

QTEST_MAIN(RunEndTest)
#include "tst_run_end.moc"
