/// @file
/// The sampling tick at an overload: which readings are one, the question, and what is stored and shown of it.
#include "measure/RunBench.h"

#include <QTest>

namespace {

void AddMarks()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<double>("mark");
    QTest::newRow("-8888") << QByteArray("-8888") << -8888.0;
    QTest::newRow("-7777") << QByteArray("-7.777E3") << -7777.0;
    QTest::newRow("9e15") << QByteArray("9000000000000000") << 9e15;
    QTest::newRow("-9e15") << QByteArray("-9.0E+15") << -9e15;
}

constexpr const char *OverloadEnglish = "The Data is over load.Do you want to continue? ";
constexpr const char *OverloadChinese = "数据超量程，是否继续测量? ";

} // namespace

class SampleOverloadTest : public QObject {
    Q_OBJECT

private slots:
    void overloadIsAskedFor_data();
    void overloadIsAskedFor();
    void overloadMayComeFirst_data();
    void overloadMayComeFirst();
    void laterOverloadLeavesTheRange();
    void neighboursOfTheMarksAreGood_data();
    void neighboursOfTheMarksAreGood();
    void overloadIsAskedOnceUntilAGoodSample();
    void cancelEndsTheRunWithoutTheSample();
    void scaledMarksPassAsNumbers();
    void scaledNumberCanBeAMark();
    void noTickComesUnderAQuestion();
};

void SampleOverloadTest::overloadIsAskedFor_data()
{
    AddMarks();
}

void SampleOverloadTest::overloadIsAskedFor()
{
    QFETCH(QByteArray, reply);
    QFETCH(double, mark);
    for (const std::int32_t language : {LanguageEnglish, LanguageChinese}) {
        RunBench bench;
        CurrentLanguage = language;
        StartMeasurement();
        bench.Tick("1");
        bench.boxes.Add(QMessageBox::Ok);
        bench.Tick(reply);
        QCOMPARE(bench.boxes.Texts(),
                 QStringList{QString::fromUtf8(language == LanguageEnglish ? OverloadEnglish : OverloadChinese)});
        QCOMPARE(bench.boxes.Shown().front().Buttons, QMessageBox::Ok | QMessageBox::Cancel);
        QVERIFY(OverloadAccepted);
        QVERIFY(Measuring);
        QCOMPARE(MeasureWave[0].Count, 2);
        QCOMPARE(LastReading(), mark);
        QCOMPARE(LastValue(), mark); // not converted
    }
}

void SampleOverloadTest::overloadMayComeFirst_data()
{
    AddMarks();
}

void SampleOverloadTest::overloadMayComeFirst()
{
    QFETCH(QByteArray, reply);
    QFETCH(double, mark);
    RunBench bench;
    StartMeasurement();
    bench.boxes.Add(QMessageBox::Ok);
    bench.Tick(reply);
    for (const WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        QCOMPARE(record->YMax, 0.0001);
        QCOMPARE(record->YMin, -0.0001);
        QCOMPARE(record->Points.front().Y, mark);
    }
    QCOMPARE(MeasureMax[0], 0.0001);
    QCOMPARE(MeasureMin[0], -0.0001);
    QCOMPARE(ValueMax[0], 0.0001);
    QCOMPARE(ValueMin[0], -0.0001);
    // The range stays in the run: a good sample only widens it.
    bench.Tick("5");
    QCOMPARE(MeasureWave[0].YMax, 5.0);
    QCOMPARE(MeasureWave[0].YMin, -0.0001);
    QCOMPARE(ValueMax[0], 10.0);
    QCOMPARE(ValueMin[0], -0.0001);
}

void SampleOverloadTest::laterOverloadLeavesTheRange()
{
    RunBench bench;
    StartMeasurement();
    bench.Tick("1");
    bench.Tick("2");
    bench.boxes.Add(QMessageBox::Ok);
    bench.Tick("9000000000000000");
    QCOMPARE(MeasureWave[0].YMax, 2.0);
    QCOMPARE(MeasureWave[0].YMin, 1.0);
    QCOMPARE(ValueMax[0], 4.0);
    QCOMPARE(ValueMin[0], 2.0);
}

void SampleOverloadTest::neighboursOfTheMarksAreGood_data()
{
    QTest::addColumn<QByteArray>("reply");
    for (const char *reply : {"8888", "-8888.000001", "-7776.999999", "7777", "9000000000000001", "8999999999999999",
                              "-9000000000000002", "9E37", "0"})
        QTest::newRow(reply) << QByteArray(reply);
}

void SampleOverloadTest::neighboursOfTheMarksAreGood()
{
    QFETCH(QByteArray, reply);
    RunBench bench;
    StartMeasurement();
    bench.Tick(reply);
    QCOMPARE(LastReading(), reply.toDouble());
    QCOMPARE(LastValue(), 2 * reply.toDouble());
    QCOMPARE(MeasureWave[0].YMax, reply.toDouble());
}

void SampleOverloadTest::overloadIsAskedOnceUntilAGoodSample()
{
    RunBench bench;
    StartMeasurement();
    bench.boxes.Add(QMessageBox::Ok);
    for (const char *reply : {"-8888", "-7777", "9E15", "-9E15"})
        bench.Tick(reply);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(MeasureWave[0].Count, 4);
    bench.Tick("1");
    QVERIFY(!OverloadAccepted);
    bench.boxes.Add(QMessageBox::Ok);
    bench.Tick("-8888");
    bench.Tick("-8888");
    QCOMPARE(bench.boxes.Shown().size(), 2);
    QCOMPARE(MeasureWave[0].Count, 7);
}

void SampleOverloadTest::cancelEndsTheRunWithoutTheSample()
{
    RunBench bench;
    StartMeasurement();
    bench.Tick("1");
    bench.Tick("2");
    bench.boxes.Add(QMessageBox::Cancel);
    bench.Tick("-8888");
    QVERIFY(!Measuring);
    QVERIFY(!OverloadAccepted);
    QVERIFY(!bench.Form().Timer1->isActive());
    QVERIFY(bench.Form().RecordLumoBtn->isEnabled());
    QVERIFY(!bench.Form().Recordpic->isHidden());
    QVERIFY(LinkUp);
    for (const WaveRecord *record : {&MeasureWave[0], &ValueWave[0]}) {
        QCOMPARE(record->Count, 2);
        QCOMPARE(record->LastIndex, 1);
        QCOMPARE(record->Points.size(), std::size_t{2});
    }
}

void SampleOverloadTest::scaledMarksPassAsNumbers()
{
    RunBench bench;
    SensorProjects[0].InputUnitScale = 1000;
    StartMeasurement();
    bench.Tick("-7777");
    bench.Tick("-8888");
    bench.Tick("9E15");
    bench.Tick("-9E15");
    QCOMPARE(MeasureWave[0].Count, 4);
    QCOMPARE(MeasureWave[0].Points[0].Y, -7777000.0);
    QCOMPARE(ValueWave[0].Points[0].Y, -15554000.0);
    QCOMPARE(MeasureWave[0].Points[1].Y, -8888000.0);
    QCOMPARE(MeasureMax[0], 9e18);
    QCOMPARE(MeasureMin[0], -9e18);
}

void SampleOverloadTest::scaledNumberCanBeAMark()
{
    RunBench bench;
    SensorProjects[0].InputUnitScale = 1000;
    StartMeasurement();
    bench.boxes.Add(QMessageBox::Ok);
    bench.Tick("-8.888");
    QVERIFY(OverloadAccepted);
    QVERIFY(LastValue() == -8888.0);
}

void SampleOverloadTest::noTickComesUnderAQuestion()
{
    RunBench bench;
    bench.Form().Timer1->setInterval(1); // many ticks would fit into the time that the answer takes
    FakeVisa::State().Standing.insert(":MEASure:VOLTage:DC?", "-8888\n");
    bench.boxes.Add(QMessageBox::Cancel);
    StartMeasurement();
    QTRY_VERIFY(!Measuring);
    QCOMPARE(FakeVisa::ReadCount(), 1);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(MeasureWave[0].Count, 0);
}

QTEST_MAIN(SampleOverloadTest)
#include "tst_sample_overload.moc"
