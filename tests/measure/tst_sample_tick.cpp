/// @file
/// The sampling tick: what it asks, reads, stores and draws, and how the link, the limit and the clock bear on it.
#include "measure/RunBench.h"

#include "shell/MainFrm.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <vector>

namespace {

constexpr double FirstOverloadRange = 0.0001;

/// One curve of a run as the rules make it from its samples alone.
struct ExpectedCurve {
    std::vector<double> Samples;
    std::vector<bool> Overloads;
    double Step = 1;

    int Last() const { return static_cast<int>(Samples.size()) - 1; }
    int FirstVisible() const { return std::max(0, Last() - 60); }

    /// Highest and lowest of the good samples; with an overload first, of the range it brings and the good samples.
    double High() const
    {
        return Extreme(FirstOverloadRange, [](double a, double b) { return a < b; });
    }
    double Low() const
    {
        return Extreme(-FirstOverloadRange, [](double a, double b) { return a > b; });
    }

private:
    template <typename Beyond>
    double Extreme(double overloadRange, Beyond beyond) const
    {
        double extreme = Overloads.front() ? overloadRange : Samples.front();
        for (std::size_t i = 1; i < Samples.size(); ++i) {
            if (!Overloads[i] && beyond(extreme, Samples[i]))
                extreme = Samples[i];
        }
        return extreme;
    }
};

void CompareCurve(const WaveRecord &record, double runMax, double runMin, const ExpectedCurve &expected)
{
    const int last = expected.Last();
    QCOMPARE(record.LastIndex, last);
    QCOMPARE(record.Count, last + 1);
    QCOMPARE(record.Points.size(), expected.Samples.size());
    for (int i = 0; i <= last; ++i) {
        const WavePoint &point = record.Points[static_cast<std::size_t>(i)];
        QCOMPARE(point.X, double(i));
        QCOMPARE(point.Y, expected.Samples[static_cast<std::size_t>(i)]);
    }
    QCOMPARE(record.FirstVisible, expected.FirstVisible());
    QCOMPARE(record.LastVisible, expected.FirstVisible() + 60);
    QCOMPARE(record.XMin, expected.FirstVisible() * expected.Step);
    QCOMPARE(record.XMax, (expected.FirstVisible() + 60) * expected.Step);
    QCOMPARE(record.YMax, expected.High());
    QCOMPARE(record.YMin, expected.Low());
    QCOMPARE(runMax, expected.High());
    QCOMPARE(runMin, expected.Low());
}

} // namespace

class SampleTickTest : public QObject {
    Q_OBJECT

private slots:
    void recordsFollowTheReadings_data();
    void recordsFollowTheReadings();
    void windowMovesWithSample62();
    void windowGoesOnFromWhereZoomLeftIt();
    void replyIsRead_data();
    void replyIsRead();
    void tooLongReplyIsToldAndStoresNothing();
    void scaleIsASingleWidened();
    void readingBeyondDoubleIsZero();
    void otherTransportsReadZero_data();
    void otherTransportsReadZero();
    void eachTickIsOneLineOutAndOneBack();
    void tickOutsideARunStoresNothing();
    void bothCurvesAreDrawnAnew();
    void builtInSensorOnKV7060KeepsValuesUnshown();
    void builtInSensorElsewhereShowsItsValues();
    void activeWindowDecidesTheRecords();
    void lostLinkEndsTheRun_data();
    void lostLinkEndsTheRun();
    void sampleLimitEndsTheRun();
    void lastSampleBelowTheLimitIsStored();
    void oneSampleComesEachPeriod();
    void clockDoesNotDriftWithTheWorkOfATick();
};

void SampleTickTest::recordsFollowTheReadings_data()
{
    QTest::addColumn<bool>("overloadFirst");
    QTest::addColumn<double>("step");
    QTest::newRow("good samples and overloads, 1 s") << false << 1.0;
    QTest::newRow("overload first, 2.5 s") << true << 2.5;
}

void SampleTickTest::recordsFollowTheReadings()
{
    QFETCH(bool, overloadFirst);
    QFETCH(double, step);
    RunBench bench;
    // What an earlier run has left behind.
    MeasureMax[0] = ValueMax[0] = MeasureWave[0].YMax = ValueWave[0].YMax = 1e6;
    MeasureMin[0] = ValueMin[0] = MeasureWave[0].YMin = ValueWave[0].YMin = -1e6;
    MeasureWave[0].Step = ValueWave[0].Step = step;
    StartMeasurement();

    ExpectedCurve readings;
    ExpectedCurve values;
    readings.Step = values.Step = step;
    for (int i = 0; i < 70; ++i) {
        const bool overload = overloadFirst ? i == 0 || i == 40 || i == 41 : i == 5 || i == 65;
        const double reading = overload ? -7777 : ((i * 37) % 64 - 30) * 0.125; // exact in binary
        const bool asked = overload && !(overloadFirst && i == 41);
        if (asked)
            bench.boxes.Add(QMessageBox::Ok);
        bench.Tick(QByteArray::number(reading, 'g', 17));
        readings.Samples.push_back(reading);
        readings.Overloads.push_back(overload);
        values.Samples.push_back(overload ? reading : 2 * reading);
        values.Overloads.push_back(overload);
        CompareCurve(MeasureWave[0], MeasureMax[0], MeasureMin[0], readings);
        CompareCurve(ValueWave[0], ValueMax[0], ValueMin[0], values);
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(Measuring);
}

void SampleTickTest::windowMovesWithSample62()
{
    RunBench bench;
    StartMeasurement();
    for (int sample = 1; sample <= 61; ++sample)
        bench.Tick("1");
    for (const WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        QCOMPARE(record->LastIndex, 60);
        QCOMPARE(record->FirstVisible, 0);
        QCOMPARE(record->LastVisible, 60);
    }
    bench.Tick("1");
    for (const WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        QCOMPARE(record->LastIndex, 61);
        QCOMPARE(record->FirstVisible, 1);
        QCOMPARE(record->LastVisible, 61);
    }
}

void SampleTickTest::windowGoesOnFromWhereZoomLeftIt()
{
    RunBench bench;
    StartMeasurement();
    for (int sample = 1; sample <= 40; ++sample)
        bench.Tick("1");
    // One curve zoomed in during the run: each has its own window.
    ValueWave[0].WindowSamples = 31;
    ValueWave[0].Step = 2;
    bench.Tick("1");
    QCOMPARE(ValueWave[0].FirstVisible, 1);
    QCOMPARE(ValueWave[0].LastVisible, 31);
    QCOMPARE(ValueWave[0].XMin, 2.0);
    QCOMPARE(ValueWave[0].XMax, 62.0);
    QCOMPARE(MeasureWave[0].FirstVisible, 0);
    QCOMPARE(MeasureWave[0].LastVisible, 60);
    QCOMPARE(MeasureWave[0].XMax, 60.0);
}

void SampleTickTest::replyIsRead_data()
{
    QTest::addColumn<QByteArray>("reply"); // null for none
    QTest::addColumn<double>("reading");
    QTest::newRow("plain") << QByteArray("1.5\n") << 1.5;
    QTest::newRow("exponent, CR LF") << QByteArray("+1.25E-03\r\n") << 0.00125;
    QTest::newRow("blanks ahead") << QByteArray("  -7\n") << -7.0;
    QTest::newRow("unit behind") << QByteArray("7.5 V\n") << 7.5;
    QTest::newRow("second number") << QByteArray("3,4\n") << 3.0;
    QTest::newRow("two points") << QByteArray("1.2.3\n") << 1.2;
    QTest::newRow("point ahead") << QByteArray("-.5\n") << -0.5;
    QTest::newRow("exponent without digits") << QByteArray("2E\n") << 2.0;
    QTest::newRow("overrange of the instrument") << QByteArray("+9.9E+37\n") << 9.9e37;
    QTest::newRow("no line feed") << QByteArray("4") << 4.0;
    QTest::newRow("255 characters") << QByteArray("6") + QByteArray(253, ' ') + '\n' << 6.0;
    QTest::newRow("time-out") << QByteArray() << 0.0;
    QTest::newRow("empty") << QByteArray("") << 0.0;
    QTest::newRow("line feed alone") << QByteArray("\n") << 0.0;
    QTest::newRow("word") << QByteArray("OVLD\n") << 0.0;
    QTest::newRow("nan") << QByteArray("nan\n") << 0.0;
    QTest::newRow("NAN with sign") << QByteArray("-NAN\n") << 0.0;
    QTest::newRow("inf") << QByteArray("inf\n") << 0.0;
    QTest::newRow("infinity with sign") << QByteArray("-Infinity\n") << 0.0;
    QTest::newRow("hexadecimal") << QByteArray("0x1F\n") << 0.0;
    QTest::newRow("hexadecimal, other form") << QByteArray("&H1F\n") << 0.0;
    QTest::newRow("beyond double") << QByteArray("1E999\n") << 0.0;
    QTest::newRow("beyond double, negative") << QByteArray("-1E999\n") << 0.0;
    QTest::newRow("far beyond double") << QByteArray("1E99999999999999999999\n") << 0.0;
    QTest::newRow("below double") << QByteArray("1E-999\n") << 0.0;
    QTest::newRow("unit first") << QByteArray("V7\n") << 0.0;
}

void SampleTickTest::replyIsRead()
{
    QFETCH(QByteArray, reply);
    QFETCH(double, reading);
    RunBench bench;
    StartMeasurement();
    FakeVisa::State().Replies.append(reply);
    bench.TickWithoutReply();
    QVERIFY(Measuring);
    QCOMPARE(MeasureWave[0].Count, 1);
    QCOMPARE(LastReading(), reading);
    QCOMPARE(LastValue(), 2 * reading);
}

void SampleTickTest::tooLongReplyIsToldAndStoresNothing()
{
    RunBench bench;
    StartMeasurement();
    bench.boxes.Add(QMessageBox::Ok);
    bench.Tick(QByteArray(255, '1'));
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().front().Title, QStringLiteral("Ostrakon"));
    QCOMPARE(bench.boxes.Shown().front().Icon, QMessageBox::Warning);
    QCOMPARE(MeasureWave[0].Count, 0);
    QCOMPARE(ValueWave[0].LastIndex, -1);
    QVERIFY(Measuring);
    bench.Tick("1");
    QCOMPARE(MeasureWave[0].Count, 1);
}

void SampleTickTest::scaleIsASingleWidened()
{
    RunBench bench;
    SensorProjects[0].InputUnitScale = 0.001F;
    StartMeasurement();
    bench.Tick("3");
    // 0.001 in IEEE 754 single precision, written out.
    constexpr double thousandth = 0.001000000047497451305389404296875;
    QVERIFY(LastReading() == 3 * thousandth);
    QVERIFY(LastReading() != 0.003);
}

void SampleTickTest::readingBeyondDoubleIsZero()
{
    RunBench bench;
    SensorProjects[0].InputUnitScale = 1000000;
    StartMeasurement();
    bench.Tick("1E305");
    bench.Tick("-1E305");
    QCOMPARE(MeasureWave[0].Count, 2);
    for (const WavePoint &point : MeasureWave[0].Points)
        QCOMPARE(point.Y, 0.0);
    QCOMPARE(ValueWave[0].Count, 2);
}

void SampleTickTest::otherTransportsReadZero_data()
{
    QTest::addColumn<int>("ioType");
    QTest::newRow("GPIB") << 1;
    QTest::newRow("RS232") << 2;
}

void SampleTickTest::otherTransportsReadZero()
{
    QFETCH(int, ioType);
    RunBench bench;
    IOType = static_cast<std::uint8_t>(ioType);
    StartMeasurement();
    bench.Tick("5");
    QCOMPARE(MeasureWave[0].Count, 1);
    QCOMPARE(LastReading(), 0.0);
    QCOMPARE(FakeVisa::WriteCount(), 0);
    QCOMPARE(FakeVisa::ReadCount(), 0);
}

void SampleTickTest::eachTickIsOneLineOutAndOneBack()
{
    RunBench bench;
    SensorProjects[0].MeasFunction = 4;
    StartMeasurement();
    FakeVisa::ClearRecords();
    bench.Tick("1");
    bench.Tick("2");
    QCOMPARE(FakeVisa::Lines(), (QByteArrayList{":MEASure:RESIstance?", ":MEASure:RESIstance?"}));
    QCOMPARE(FakeVisa::ReadCount(), 2);
    QCOMPARE(FakeVisa::State().Transfers.size(), 0);
}

void SampleTickTest::tickOutsideARunStoresNothing()
{
    RunBench bench;
    StartMeasurement();
    bench.Tick("1");
    Measuring = false;
    bench.Tick("-8888"); // asked for, not looked at
    QCOMPARE(FakeVisa::ReadCount(), 2);
    QCOMPARE(MeasureWave[0].Count, 1);
    QCOMPARE(MeasureWave[0].LastIndex, 0);
    QCOMPARE(ValueWave[0].LastIndex, 0);
}

void SampleTickTest::bothCurvesAreDrawnAnew()
{
    RunBench bench;
    StartMeasurement();
    for (const char *reply : {"1", "2"}) {
        const RedrawMark values(*bench.Form().PicTime_Value);
        const RedrawMark readings(*bench.Form().PicTime_Meas);
        QVERIFY(!values.Redrawn());
        QVERIFY(!readings.Redrawn());
        bench.Tick(reply);
        QVERIFY(values.Redrawn());
        QVERIFY(readings.Redrawn());
    }
}

void SampleTickTest::builtInSensorOnKV7060KeepsValuesUnshown()
{
    RunBench bench;
    SensorProjects[0].IsBuiltInSensor = true;
    InstrumentKind = InstrumentKindKV7060;
    StartMeasurement();
    ValueWave[0].YMax = 11;
    ValueWave[0].YMin = 9;
    ValueMax[0] = 12;
    ValueMin[0] = 8;
    const RedrawMark values(*bench.Form().PicTime_Value);
    const RedrawMark readings(*bench.Form().PicTime_Meas);
    bench.Tick("3");
    bench.Tick("4");
    QCOMPARE(MeasureMax[0], 4.0);
    QVERIFY(readings.Redrawn());
    QCOMPARE(ValueWave[0].Count, 2);
    QCOMPARE(ValueWave[0].LastIndex, 1);
    QCOMPARE(ValueWave[0].Points[0].Y, 6.0);
    QCOMPARE(ValueWave[0].Points[1].X, 1.0);
    QCOMPARE(ValueWave[0].Points[1].Y, 8.0);
    QCOMPARE(ValueWave[0].XMax, 60.0);
    QCOMPARE(ValueWave[0].LastVisible, 60);
    QCOMPARE(ValueWave[0].YMax, 11.0);
    QCOMPARE(ValueWave[0].YMin, 9.0);
    QCOMPARE(ValueMax[0], 12.0);
    QCOMPARE(ValueMin[0], 8.0);
    QVERIFY(!values.Redrawn());
}

void SampleTickTest::builtInSensorElsewhereShowsItsValues()
{
    RunBench bench;
    StartMeasurement();
    SensorProjects[0].IsBuiltInSensor = true; // the instrument is a KV7050
    const RedrawMark values(*bench.Form().PicTime_Value);
    bench.Tick("3");
    QCOMPARE(ValueMax[0], 6.0);
    QVERIFY(values.Redrawn());
}

void SampleTickTest::activeWindowDecidesTheRecords()
{
    RunBench bench;
    SensorProjects[0].MeasFunction = 9;
    StartMeasurement();
    bench.Tick("1");
    bench.Add(1);
    SensorProjects[1].MeasFunction = 4;
    SensorProjects[1].InputUnitScale = 1000;
    MeasureWave[1].LastIndex = ValueWave[1].LastIndex = -1;
    FakeVisa::ClearRecords();
    bench.Tick("2", 0); // the timer of the first window
    QCOMPARE(FakeVisa::Lines(), QByteArrayList{":MEASure:FREQuency?"});
    QCOMPARE(MeasureWave[0].Count, 1);
    QCOMPARE(MeasureWave[1].Count, 1);
    QCOMPARE(LastReading(1), 2000.0);
    QCOMPARE(LastValue(1), 4000.0);
    QCOMPARE(MeasureMax[1], 2000.0);
    QCOMPARE(MeasureMax[0], 1.0);
    bench.bare.frame.Children->setActiveSubWindow(&bench.Form(0));
    bench.Tick("3", 0);
    QCOMPARE(MeasureWave[0].Count, 2);
    QCOMPARE(MeasureWave[1].Count, 1);
    QCOMPARE(LastReading(0), 3.0);
}

void SampleTickTest::lostLinkEndsTheRun_data()
{
    QTest::addColumn<std::int32_t>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << LanguageEnglish
                             << QStringLiteral("Unable to connect to USB device, Measurement has been stopped! ");
    QTest::newRow("Chinese") << LanguageChinese << QStringLiteral("通信中断，测量已经结束! ");
}

void SampleTickTest::lostLinkEndsTheRun()
{
    QFETCH(std::int32_t, language);
    QFETCH(QString, text);
    RunBench bench;
    CurrentLanguage = language;
    StartMeasurement();
    bench.Tick("1");
    bench.Tick("2");
    MainForm->CheckLinkTimer->stop();

    // The order: box, end of the run while the link still counts as up, mark of the lost link.
    int boxesAtEnd = -1;
    bool linkUpAtEnd = false;
    QString panelAtEnd;
    QObject::connect(&bench.Form(), &SensorProjFrm::EndRunAsked, this, [&] {
        boxesAtEnd = static_cast<int>(bench.boxes.Shown().size());
        linkUpAtEnd = LinkUp;
        panelAtEnd = LinkPanel();
    });
    const QString panelBefore = LinkPanel();
    FakeVisa::Unplug();
    FakeVisa::State().Silent = true;
    bench.boxes.Add(QMessageBox::Ok);
    bench.TickWithoutReply();

    QCOMPARE(bench.boxes.Texts(), QStringList{text});
    QCOMPARE(bench.boxes.Shown().front().Icon, QMessageBox::Warning);
    QCOMPARE(boxesAtEnd, 1);
    QVERIFY(linkUpAtEnd);
    QCOMPARE(panelAtEnd, panelBefore);
    QVERIFY(!Measuring);
    QVERIFY(!LinkUp);
    QCOMPARE(LinkPanel(), QStringLiteral("Unconnected"));
    QVERIFY(!bench.Form().Timer1->isActive());
    QVERIFY(bench.Form().RecordLumoBtn->isEnabled());
    QVERIFY(!bench.Form().EndLumoBtn->isEnabled());
    QVERIFY(!bench.Form().Recordpic->isHidden());
    QVERIFY(MainForm->CheckLinkTimer->isActive());
    QCOMPARE(MeasureWave[0].Count, 2);
    QCOMPARE(ValueWave[0].LastIndex, 1);
}

void SampleTickTest::sampleLimitEndsTheRun()
{
    RunBench bench;
    StartMeasurement();
    for (WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        record->Points.resize(524288);
        record->Points.back() = {524287, 1.25};
        record->Count = 524288;
        record->LastIndex = 524287;
        record->YMin = 0;
        record->YMax = 2;
        record->FirstVisible = 524227;
    }
    MeasureMin[0] = ValueMin[0] = 0;
    MeasureMax[0] = ValueMax[0] = 2;
    bench.Tick("7");

    QVERIFY(!Measuring);
    QVERIFY(!bench.Form().Timer1->isActive());
    QVERIFY(bench.Form().RecordLumoBtn->isEnabled());
    // The sample that is one too many counts in the readings, and is stored nowhere.
    QCOMPARE(MeasureWave[0].Count, 524289);
    QCOMPARE(MeasureWave[0].LastIndex, 524288);
    QCOMPARE(ValueWave[0].Count, 524288);
    QCOMPARE(ValueWave[0].LastIndex, 524288);
    for (const WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        QCOMPARE(record->Points.size(), std::size_t{524288});
        QCOMPARE(record->Points.back().Y, 1.25);
        QCOMPARE(record->FirstVisible, 524227);
    }
    QCOMPARE(MeasureMax[0], 2.0);
    QCOMPARE(bench.Form().HScroll1->maximum(), 30840); // 524288 / 17
    QCOMPARE(bench.Form().HScroll1->value(), 30836);   // 524227 / 17, cut
}

void SampleTickTest::lastSampleBelowTheLimitIsStored()
{
    RunBench bench;
    StartMeasurement();
    for (WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        record->Points.resize(524287);
        record->Count = 524287;
        record->LastIndex = 524286;
        record->FirstVisible = 524226;
    }
    bench.Tick("7");
    QVERIFY(Measuring);
    for (const WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        QCOMPARE(record->Count, 524288);
        QCOMPARE(record->Points.size(), std::size_t{524288});
        QCOMPARE(record->Points.back().X, 524287.0);
        QCOMPARE(record->FirstVisible, 524227);
        QCOMPARE(record->LastVisible, 524287);
    }
    QCOMPARE(LastValue(), 14.0);
}

void SampleTickTest::oneSampleComesEachPeriod()
{
    RunBench bench;
    FakeVisa::State().Standing.insert(":MEASure:VOLTage:DC?", "1.5\n");
    QElapsedTimer clock;
    std::vector<qint64> times;
    FakeVisa::State().OnRead = [&] { times.push_back(clock.elapsed()); };
    clock.start();
    StartMeasurement();
    QTRY_COMPARE(MeasureWave[0].Count, 2);
    QCOMPARE(times.size(), std::size_t{2});
    // Never early; a busy machine may be late.
    QVERIFY(times[0] >= 990);
    QVERIFY(times[1] >= 1990);
    QCOMPARE(LastReading(), 1.5);
}

void SampleTickTest::clockDoesNotDriftWithTheWorkOfATick()
{
    constexpr int period = 400;    // ms
    constexpr int slowReply = 150; // ms
    RunBench bench;
    QTimer &timer = *bench.Form().Timer1;
    QCOMPARE(timer.timerType(), Qt::PreciseTimer);
    timer.setInterval(period);
    FakeVisa::State().Standing.insert(":MEASure:VOLTage:DC?", "1\n");
    FakeVisa::State().OnRead = [] {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < slowReply) {
        }
    };
    StartMeasurement();
    const int id = timer.timerId();
    // Behind the tick's own routine: what is left of the period counts from its beginning, not from here.
    std::vector<int> left;
    QObject::connect(&timer, &QTimer::timeout, this, [&] { left.push_back(timer.remainingTime()); });
    QTRY_COMPARE(MeasureWave[0].Count, 3);
    QCOMPARE(left.size(), std::size_t{3});
    for (const int milliseconds : left)
        QVERIFY2(milliseconds <= period - slowReply + 1, qPrintable(QString::number(milliseconds)));
    QCOMPARE(timer.timerId(), id);
    QCOMPARE(timer.interval(), period);
}

QTEST_MAIN(SampleTickTest)
#include "tst_sample_tick.moc"
