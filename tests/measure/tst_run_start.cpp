/// @file
/// The start of a run: what refuses it, what it asks, sets and sends, and what a failure on the way leaves.
#include "measure/RunBench.h"

#include "curve/ReferenceCurve.h"

#include <QElapsedTimer>

#include <functional>

namespace {

using Set = std::function<void()>;

/// Both wordings of a text as rows of a data-driven test.
void AddWordings(const char *row, const QString &english, const QString &chinese)
{
    QTest::addRow("%s, English", row) << LanguageEnglish << english;
    QTest::addRow("%s, Chinese", row) << LanguageChinese << chinese;
}

} // namespace

class RunStartTest : public QObject {
    Q_OBJECT

private slots:
    void startIsRefused_data();
    void startIsRefused();
    void checksComeInTheirOrder();
    void linkIsAskedForAheadOfBuiltInSensor();
    void kv7060PassesBuiltInSensorToTheNextCheck();
    void diodeRunsOnKV7050();
    void builtInSensorOnKV7060GetsAPlaceholderCurve();
    void placeholderWithoutMeaningIsRefused();
    void replacingDataIsAsked_data();
    void replacingDataIsAsked();
    void noKeepsTheData();
    void startSetsEveryControl_data();
    void startSetsEveryControl();
    void startEmptiesTheRecordsButKeepsPointsAndRange();
    void startSendsTheFunction_data();
    void startSendsTheFunction();
    void eachRunComposesItsCommandsAnew();
    void eachRunTakesTheCommandsOfTheActiveProject();
    void functionIsSentWithTheRunMarkedAndTimerOff();
    void startForgetsAnAcceptedOverload();
    void failedSendEndsTheRun_data();
    void failedSendEndsTheRun();
    void startTakesNoSampleAndSwitchesTheTimerOfItsWindowOn();
    void instrumentSensorIsStopped();
    void failedStopLeavesTheRunMarked();
    void failedSendStillStopsTheInstrumentSensor();
};

void RunStartTest::startIsRefused_data()
{
    QTest::addColumn<std::int32_t>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Set>("set");
    const auto add = [](const char *row, const QString &english, const QString &chinese, const Set &set) {
        QTest::addRow("%s, English", row) << LanguageEnglish << english << set;
        QTest::addRow("%s, Chinese", row) << LanguageChinese << chinese << set;
    };
    const QString toKV7060 = QStringLiteral("You must send the task to KV7060! ");
    const QString toKV7060Chinese = QStringLiteral("温度传感器任务只能发送到KV7060执行! ");
    const QString toKV7050 = QStringLiteral("You must send current task to KV7050! ");
    const QString toKV7050Chinese = QStringLiteral("当前传感器任务只能发送到KV7050执行! ");
    add("link down", QStringLiteral("Please connect to the instrument! "), QStringLiteral("请和仪器连接! "),
        [] { LinkUp = false; });
    add("built-in sensor on KV7050", toKV7060, toKV7060Chinese, [] { SensorProjects[0].IsBuiltInSensor = true; });
    add("built-in sensor on another model", toKV7060, toKV7060Chinese, [] {
        SensorProjects[0].IsBuiltInSensor = true;
        InstrumentKind = InstrumentKindOther;
    });
    add("diode on KV7060", toKV7050, toKV7050Chinese, [] {
        SensorProjects[0].MeasFunction = 7;
        InstrumentKind = InstrumentKindKV7060;
    });
    add("diode on another model", toKV7050, toKV7050Chinese, [] {
        SensorProjects[0].MeasFunction = 7;
        InstrumentKind = InstrumentKindOther;
    });
    add("no curve", QStringLiteral("You must generate reference curve first! "), QStringLiteral("尚未生成参考曲线! "),
        [] { ProjectSlots[0].CurveApplied = false; });
}

void RunStartTest::startIsRefused()
{
    QFETCH(std::int32_t, language);
    QFETCH(QString, text);
    QFETCH(Set, set);
    RunBench bench;
    PutRun(0, 5, -1, 1);
    CurrentLanguage = language;
    OverloadAccepted = true;
    InstrumentSensorOn = true;
    set();
    const bool applied = ProjectSlots[0].CurveApplied;
    SetRunControls(bench.Form(), true);
    const QStringList before = ControlStates(bench.Form());
    bench.boxes.Add(QMessageBox::Ok);
    bench.Form().RecordLumoBtn->click();

    QCOMPARE(bench.boxes.Texts(), QStringList{text});
    QCOMPARE(bench.boxes.Shown().front().Icon, QMessageBox::Warning);
    QCOMPARE(bench.boxes.Shown().front().Title, QStringLiteral("Ostrakon"));
    QCOMPARE(ControlStates(bench.Form()), before);
    QVERIFY(!Measuring);
    QVERIFY(OverloadAccepted);
    QVERIFY(InstrumentSensorOn);
    QCOMPARE(ProjectSlots[0].CurveApplied, applied);
    QCOMPARE(MeasureWave[0].Count, 5);
    QCOMPARE(ValueWave[0].LastIndex, 4);
    QVERIFY(FunctionCommand.isEmpty());
    QVERIFY(!bench.Form().Timer1->isActive());
    QCOMPARE(FakeVisa::WriteCount(), 0);
}

void RunStartTest::checksComeInTheirOrder()
{
    RunBench bench;
    PutRun(0, 5, -1, 1);
    LinkUp = false;
    SensorProjects[0].MeasFunction = 7;
    InstrumentKind = InstrumentKindKV7060;
    ProjectSlots[0].CurveApplied = false;
    const auto refusedWith = [&bench](const char *text) {
        bench.boxes.Add(QMessageBox::Ok);
        StartMeasurement();
        QCOMPARE(bench.boxes.Shown().last().Text, QString::fromLatin1(text));
        QVERIFY(!Measuring);
    };
    refusedWith("Please connect to the instrument! ");
    LinkUp = true;
    refusedWith("You must send current task to KV7050! ");
    InstrumentKind = InstrumentKindKV7050;
    refusedWith("You must generate reference curve first! ");
    ProjectSlots[0].CurveApplied = true;
    bench.boxes.Add(QMessageBox::Yes);
    StartMeasurement();
    QCOMPARE(bench.boxes.Shown().last().Text, QStringLiteral("Data exists, whether coverage? "));
    QVERIFY(Measuring);
}

void RunStartTest::linkIsAskedForAheadOfBuiltInSensor()
{
    RunBench bench;
    LinkUp = false;
    SensorProjects[0].IsBuiltInSensor = true;
    SensorProjects[0].MeasFunction = 7;
    InstrumentKind = InstrumentKindOther;
    bench.boxes.Add(QMessageBox::Ok);
    StartMeasurement();
    QCOMPARE(bench.boxes.Texts(), QStringList{QStringLiteral("Please connect to the instrument! ")});
    LinkUp = true;
    bench.boxes.Add(QMessageBox::Ok);
    StartMeasurement();
    QCOMPARE(bench.boxes.Shown().last().Text, QStringLiteral("You must send the task to KV7060! "));
}

void RunStartTest::kv7060PassesBuiltInSensorToTheNextCheck()
{
    RunBench bench;
    SensorProjects[0].IsBuiltInSensor = true;
    SensorProjects[0].MeasFunction = 7;
    InstrumentKind = InstrumentKindKV7060;
    ProjectSlots[0].CurveApplied = false;
    bench.boxes.Add(QMessageBox::Ok);
    StartMeasurement();
    QCOMPARE(bench.boxes.Texts(), QStringList{QStringLiteral("You must send current task to KV7050! ")});
    QVERIFY(ProjectSlots[0].CurveApplied);
    QCOMPARE(ReferenceCurves[0].Count, 2);
}

void RunStartTest::diodeRunsOnKV7050()
{
    RunBench bench;
    SensorProjects[0].MeasFunction = 7;
    StartMeasurement();
    QVERIFY(Measuring);
    QCOMPARE(FakeVisa::Lines(), QByteArrayList{":FUNCtion:DIODe"});
}

void RunStartTest::builtInSensorOnKV7060GetsAPlaceholderCurve()
{
    RunBench bench;
    SensorProjects[0].IsBuiltInSensor = true;
    SensorProjects[0].MeasFunction = 5;
    InstrumentKind = InstrumentKindKV7060;
    ProjectSlots[0].CurveApplied = false;
    ReferenceCurve &curve = ReferenceCurves[0];
    curve.Points[0] = {0.25, 0.75};
    curve.Flags[0] = {1, 1};
    StartMeasurement();

    QVERIFY(Measuring);
    QVERIFY(ProjectSlots[0].CurveApplied);
    QCOMPARE(curve.Count, 2);
    QCOMPARE(curve.Points[0].X, 0.25);
    QCOMPARE(curve.Points[0].Y, 0.75);
    QCOMPARE(curve.Flags[0].Arithmetic, std::uint8_t{1});
    for (int i = 1; i <= 2; ++i) {
        QCOMPARE(curve.Points[static_cast<std::size_t>(i)].X, double(i));
        QCOMPARE(curve.Points[static_cast<std::size_t>(i)].Y, double(i));
        QCOMPARE(curve.Flags[static_cast<std::size_t>(i)].IsSegment, std::uint8_t(i == 1));
        QCOMPARE(curve.Flags[static_cast<std::size_t>(i)].Arithmetic, std::uint8_t{0});
    }
    // The range of elements 0 and 1, the two that count.
    QCOMPARE(curve.XMin, 0.25);
    QCOMPARE(curve.XMax, 1.0);
    QCOMPARE(curve.YMin, 0.75);
    QCOMPARE(curve.YMax, 1.0);
    // The library keeps the curve that it held.
    QCOMPARE(SEN_Meas_Z(3), 6.0);
}

void RunStartTest::placeholderWithoutMeaningIsRefused()
{
    RunBench bench;
    SensorProjects[0].IsBuiltInSensor = true;
    InstrumentKind = InstrumentKindKV7060;
    ReferenceCurves[0].Points[0] = {0, 1};
    bench.boxes.Add(QMessageBox::Ok);
    bench.boxes.Add(QMessageBox::Ok);
    StartMeasurement();
    const QStringList told{QStringLiteral("Simulation data is not meaningful, non-implementation of this software "
                                          "application! "),
                           QStringLiteral("You must generate reference curve first! ")};
    QCOMPARE(bench.boxes.Texts(), told);
    QVERIFY(!Measuring);
}

void RunStartTest::replacingDataIsAsked_data()
{
    QTest::addColumn<std::int32_t>("language");
    QTest::addColumn<QString>("text");
    AddWordings("question", QStringLiteral("Data exists, whether coverage? "), QStringLiteral("存在数据，是否覆盖? "));
}

void RunStartTest::replacingDataIsAsked()
{
    QFETCH(std::int32_t, language);
    QFETCH(QString, text);
    RunBench bench;
    CurrentLanguage = language;
    PutRun(0, 1, -1, 1);
    bench.boxes.Add(QMessageBox::Yes);
    bench.Form().RecordLumoBtn->click();
    QCOMPARE(bench.boxes.Texts(), QStringList{text});
    QCOMPARE(bench.boxes.Shown().front().Buttons, QMessageBox::Yes | QMessageBox::No);
    QVERIFY(Measuring);
    QCOMPARE(MeasureWave[0].Count, 0);
}

void RunStartTest::noKeepsTheData()
{
    RunBench bench;
    PutRun(0, 3, -1, 1);
    SetRunControls(bench.Form(), true);
    const QStringList before = ControlStates(bench.Form());
    bench.boxes.Add(QMessageBox::No);
    bench.Form().RecordLumoBtn->click();
    QVERIFY(!Measuring);
    QCOMPARE(ControlStates(bench.Form()), before);
    QCOMPARE(MeasureWave[0].Count, 3);
    QCOMPARE(ValueWave[0].LastIndex, 2);
    QCOMPARE(FakeVisa::WriteCount(), 0);
    // Only the readings count: values alone are replaced without a question.
    MeasureWave[0].Count = 0;
    bench.Form().RecordLumoBtn->click();
    QVERIFY(Measuring);
}

void RunStartTest::startSetsEveryControl_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("all enabled and shown before") << true;
    QTest::newRow("all disabled and hidden before") << false;
}

void RunStartTest::startSetsEveryControl()
{
    QFETCH(bool, on);
    RunBench bench;
    SetRunControls(bench.Form(), on);
    QStringList changes{QStringLiteral("EndLumoBtn on")};
    for (const char *name : {"TxtSample", "exportCom", "RecordLumoBtn", "ReplayLumoBtn", "PauseLumoBtn", "StopLumoBtn",
                             "FastLumoBtn", "LowLumoBtn", "ZoomInVLumoBtn", "ZoomOutVLumoBtn", "HScroll1"})
        changes.append(QString::fromLatin1(name) + QStringLiteral(" off"));
    for (const char *name : {"FlatScrollBar1", "FlatScrollBar2", "Recordpic"})
        changes.append(QString::fromLatin1(name) + QStringLiteral(" hidden"));
    const QStringList expected = Changed(ControlStates(bench.Form()), changes);
    StartMeasurement();
    QCOMPARE(ControlStates(bench.Form()), expected);
}

void RunStartTest::startEmptiesTheRecordsButKeepsPointsAndRange()
{
    RunBench bench;
    PutRun(0, 4, -3, 5);
    for (WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        record->WindowSamples = 7;
        record->FirstVisible = 2;
        record->LastVisible = 8;
        record->XMin = 2;
        record->XMax = 8;
        record->ZoomFactor = 4;
        record->Points[3] = {3, 1.5};
    }
    bench.boxes.Add(QMessageBox::Yes);
    StartMeasurement();
    for (const WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        QCOMPARE(record->WindowSamples, 61);
        QCOMPARE(record->LastIndex, -1);
        QCOMPARE(record->Count, 0);
        QCOMPARE(record->Points.size(), std::size_t{4});
        QCOMPARE(record->Points[3].Y, 1.5);
        QCOMPARE(record->YMin, -3.0);
        QCOMPARE(record->YMax, 5.0);
        QCOMPARE(record->FirstVisible, 2);
        QCOMPARE(record->LastVisible, 8);
        QCOMPARE(record->XMin, 2.0);
        QCOMPARE(record->XMax, 8.0);
        QCOMPARE(record->ZoomFactor, 4);
    }
    QCOMPARE(MeasureMin[0], -3.0);
    QCOMPARE(MeasureMax[0], 5.0);
    QCOMPARE(ValueMin[0], -3.0);
    QCOMPARE(ValueMax[0], 5.0);
    bench.Tick("2");
    QCOMPARE(MeasureWave[0].Points.size(), std::size_t{1});
    QCOMPARE(ValueWave[0].Points.size(), std::size_t{1});
}

void RunStartTest::startSendsTheFunction_data()
{
    QTest::addColumn<std::int32_t>("measFunction");
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<QByteArray>("measure");
    QTest::newRow("DC voltage") << 0 << QByteArray(":FUNCtion:VOLTage:DC") << QByteArray(":MEASure:VOLTage:DC?");
    QTest::newRow("4-wire") << 5 << QByteArray(":FUNCtion:FRESistance") << QByteArray(":MEASure:FRESistance?");
    QTest::newRow("ratio") << 8 << QByteArray(":FUNCtion:VOLTage:DC:RATIo") << QByteArray(":MEASure:VOLTage:DC:RATIo?");
    QTest::newRow("thermocouple") << 10 << QByteArray(":FUNCtion:VOLTage:DC") << QByteArray(":MEASure:VOLTage:DC?");
}

void RunStartTest::startSendsTheFunction()
{
    QFETCH(std::int32_t, measFunction);
    QFETCH(QByteArray, function);
    QFETCH(QByteArray, measure);
    RunBench bench;
    SensorProjects[0].MeasFunction = measFunction;
    bench.Form().RecordLumoBtn->click();
    QCOMPARE(FakeVisa::Lines(), QByteArrayList{function});
    QCOMPARE(FakeVisa::ReadCount(), 0);
    QCOMPARE(MeasureCommand, QString::fromLatin1(measure));
    bench.Tick("1");
    QCOMPARE(FakeVisa::Lines(), (QByteArrayList{function, measure}));
    QCOMPARE(FakeVisa::ReadCount(), 1);
}

void RunStartTest::eachRunComposesItsCommandsAnew()
{
    RunBench bench;
    bench.Form().RecordLumoBtn->click();
    bench.Form().EndLumoBtn->click();
    SensorProjects[0].MeasFunction = 9;
    QCOMPARE(FunctionCommand, QStringLiteral(":FUNCtion:VOLTage:DC"));
    QCOMPARE(MeasureCommand, QStringLiteral(":MEASure:VOLTage:DC?"));
    bench.Form().RecordLumoBtn->click();
    QCOMPARE(FunctionCommand, QStringLiteral(":FUNCtion:FREQuency"));
    QCOMPARE(MeasureCommand, QStringLiteral(":MEASure:FREQuency?"));
    QCOMPARE(FakeVisa::Lines(), (QByteArrayList{":FUNCtion:VOLTage:DC", ":FUNCtion:FREQuency"}));
}

void RunStartTest::eachRunTakesTheCommandsOfTheActiveProject()
{
    RunBench bench;
    bench.Add(1);
    ProjectSlots[1].CurveApplied = true;
    SensorProjects[0].MeasFunction = 2;
    SensorProjects[1].MeasFunction = 4;
    const QStringList functions{QStringLiteral(":FUNCtion:CURRent:DC"), QStringLiteral(":FUNCtion:RESIstance")};
    const QStringList measures{QStringLiteral(":MEASure:CURRent:DC?"), QStringLiteral(":MEASure:RESIstance?")};
    QByteArrayList sent;
    for (const int slot : {1, 0, 1}) {
        bench.bare.frame.Children->setActiveSubWindow(&bench.Form(slot));
        if (MeasureWave[slot].Count > 0)
            bench.boxes.Add(QMessageBox::Yes); // its data are replaced
        bench.Form(slot).RecordLumoBtn->click();
        QCOMPARE(FunctionCommand, functions[slot]);
        QCOMPARE(MeasureCommand, measures[slot]);
        bench.Tick("1", slot);
        bench.Form(slot).EndLumoBtn->click();
        QVERIFY(!Measuring);
        // Another project in front changes nothing yet.
        bench.bare.frame.Children->setActiveSubWindow(&bench.Form(1 - slot));
        QCOMPARE(FunctionCommand, functions[slot]);
        QCOMPARE(MeasureCommand, measures[slot]);
        sent << functions[slot].toLatin1() << measures[slot].toLatin1();
    }
    QCOMPARE(FakeVisa::Lines(), sent);
}

void RunStartTest::functionIsSentWithTheRunMarkedAndTimerOff()
{
    RunBench bench;
    bool marked = false;
    bool ticking = true;
    FakeVisa::State().OnWrite = [&](const QByteArray &) {
        marked = Measuring;
        ticking = bench.Form().Timer1->isActive();
    };
    StartMeasurement();
    QVERIFY(marked);
    QVERIFY(!ticking);
    QVERIFY(bench.Form().Timer1->isActive());
}

void RunStartTest::startForgetsAnAcceptedOverload()
{
    RunBench bench;
    OverloadAccepted = true;
    StartMeasurement();
    QVERIFY(!OverloadAccepted);
}

void RunStartTest::failedSendEndsTheRun_data()
{
    QTest::addColumn<std::int32_t>("language");
    QTest::addColumn<QString>("text");
    AddWordings("lost", QStringLiteral("Unable to connect to USB device, Measurement has been stopped! "),
                QStringLiteral("通信中断，测量已经结束! "));
}

void RunStartTest::failedSendEndsTheRun()
{
    QFETCH(std::int32_t, language);
    QFETCH(QString, text);
    RunBench bench;
    CurrentLanguage = language;
    SetRunControls(bench.Form(), true);
    QStringList changes = StoppedStates;
    // What the start has switched off and an end without samples leaves.
    for (const char *change : {"ZoomInVLumoBtn off", "ZoomOutVLumoBtn off", "HScroll1 off", "FlatScrollBar1 hidden",
                               "FlatScrollBar2 hidden", "Recordpic hidden"})
        changes.append(QString::fromLatin1(change));
    const QStringList expected = Changed(ControlStates(bench.Form()), changes);
    FakeVisa::FailNextWrite();
    bench.boxes.Add(QMessageBox::Ok);
    bench.Form().RecordLumoBtn->click();

    QCOMPARE(bench.boxes.Texts(), QStringList{text});
    QCOMPARE(bench.boxes.Shown().front().Icon, QMessageBox::Warning);
    QVERIFY(!Measuring);
    QVERIFY(!LinkUp);
    QCOMPARE(LinkPanel(), QStringLiteral("Unconnected"));
    QVERIFY(!bench.Form().Timer1->isActive());
    QCOMPARE(ControlStates(bench.Form()), expected);
    QCOMPARE(FakeVisa::Lines(), QByteArrayList());
}

void RunStartTest::startTakesNoSampleAndSwitchesTheTimerOfItsWindowOn()
{
    RunBench bench;
    SensorProjFrm &second = bench.Add(1);
    ProjectSlots[1].CurveApplied = true;
    second.Timer1->setInterval(2500);
    second.RecordLumoBtn->click();
    QVERIFY(second.Timer1->isActive());
    QCOMPARE(second.Timer1->interval(), 2500);
    QVERIFY(!second.Timer1->isSingleShot());
    QVERIFY(!bench.Form(0).Timer1->isActive());
    QCOMPARE(MeasureWave[1].Count, 0);
    QCOMPARE(FakeVisa::ReadCount(), 0);
}

void RunStartTest::instrumentSensorIsStopped()
{
    RunBench bench;
    InstrumentSensorOn = true;
    LastUsbStatus = -1;
    bench.boxes.Add(QMessageBox::Ok);
    QElapsedTimer clock;
    clock.start();
    bench.Form().RecordLumoBtn->click();

    QVERIFY(clock.elapsed() >= 2000);
    QCOMPARE(bench.boxes.Texts(),
             QStringList{QStringLiteral("Stop instrument measurement and start software measurement! ")});
    QCOMPARE(bench.boxes.Shown().front().Icon, QMessageBox::Information);
    QVERIFY(!InstrumentSensorOn);
    QCOMPARE(FakeVisa::State().Transfers.size(), 1);
    const FakeVisa::ControlTransfer &stop = FakeVisa::State().Transfers.front();
    QCOMPARE(stop.Session, VisaSession);
    QCOMPARE(stop.RequestType, 0x40);
    QCOMPARE(stop.Request, 0x1F);
    QCOMPARE(stop.Value, 0);
    QCOMPARE(stop.Index, 0);
    QCOMPARE(stop.Length, 0);
    QCOMPARE(LastUsbStatus, 0);
    QVERIFY(Measuring);
    QVERIFY(LinkUp);
    QVERIFY(bench.Form().Timer1->isActive());
    QCOMPARE(FakeVisa::Lines(), QByteArrayList{":FUNCtion:VOLTage:DC"});

    // Stopped once: the next run finds nothing to stop.
    bench.Form().EndLumoBtn->click();
    bench.Form().RecordLumoBtn->click();
    QVERIFY(Measuring);
    QCOMPARE(FakeVisa::State().Transfers.size(), 1);
}

void RunStartTest::failedStopLeavesTheRunMarked()
{
    RunBench bench;
    CurrentLanguage = LanguageChinese;
    InstrumentSensorOn = true;
    FakeVisa::State().ControlStatusOf[0x1F] = VI_ERROR_CONN_LOST;
    SetRunControls(bench.Form(), true);
    bench.boxes.Add(QMessageBox::Ok);
    bench.boxes.Add(QMessageBox::Ok);
    bench.Form().RecordLumoBtn->click();

    const QStringList texts{QStringLiteral("停止仪器测量，开启软件测量! "),
                            QStringLiteral("Unable to connect to USB device! ")};
    QCOMPARE(bench.boxes.Texts(), texts);
    QCOMPARE(bench.boxes.Shown().last().Title, QStringLiteral("USB Send Message"));
    QCOMPARE(bench.boxes.Shown().last().Icon, QMessageBox::Warning);
    QCOMPARE(LastUsbStatus, std::int32_t(VI_ERROR_CONN_LOST));
    QVERIFY(!InstrumentSensorOn);
    QVERIFY(!LinkUp);
    QCOMPARE(LinkPanel(), QStringLiteral("Unconnected"));
    QVERIFY(Measuring);
    QVERIFY(!bench.Form().Timer1->isActive());
    QVERIFY(bench.Form().EndLumoBtn->isEnabled());
    QVERIFY(!bench.Form().RecordLumoBtn->isEnabled());

    // The end button only takes the mark away.
    const QStringList running = ControlStates(bench.Form());
    bench.Form().EndLumoBtn->click();
    QVERIFY(!Measuring);
    QCOMPARE(ControlStates(bench.Form()), running);
    QVERIFY(!MainForm->CheckLinkTimer->isActive());
}

void RunStartTest::failedSendStillStopsTheInstrumentSensor()
{
    RunBench bench;
    InstrumentSensorOn = true;
    FakeVisa::FailNextWrite();
    bench.boxes.Add(QMessageBox::Ok);
    bench.boxes.Add(QMessageBox::Ok);
    bench.Form().RecordLumoBtn->click();
    const QStringList texts{QStringLiteral("Unable to connect to USB device, Measurement has been stopped! "),
                            QStringLiteral("Stop instrument measurement and start software measurement! ")};
    QCOMPARE(bench.boxes.Texts(), texts);
    QVERIFY(!InstrumentSensorOn);
    QCOMPARE(FakeVisa::State().Transfers.size(), 1);
    QVERIFY(!Measuring);
    QVERIFY(!bench.Form().Timer1->isActive());
}

QTEST_MAIN(RunStartTest)
#include "tst_run_start.moc"
