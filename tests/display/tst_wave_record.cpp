/// @file
/// The values that the two time curves of a new project have, and the samples that stand for an overload.
#include "display/WaveRecord.h"

#include "platform/RuntimeError.h"

#include <QTest>

#include <cmath>
#include <functional>
#include <limits>

class TestWaveRecord : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ResetProjectTable();
        ResetWaveTable();
        SensorProjects[slot].OutputUnit = QStringLiteral("℃");
        SensorProjects[slot].InputUnit = QStringLiteral("mV");
        for (WaveRecord *record : {&ValueWave[slot], &MeasureWave[slot]})
            Fill(*record);
        ResetWaveRecords(slot, 1.0);
    }

    void NewProjectsHaveTheseValues_data()
    {
        using Read = std::function<QVariant(const WaveRecord &)>;
        QTest::addColumn<Read>("read");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("measure");
        const auto add = [](const char *name, Read read, QVariant value, QVariant measure) {
            QTest::newRow(name) << std::move(read) << std::move(value) << std::move(measure);
        };
        const auto both = [&add](const char *name, Read read, QVariant value) {
            add(name, std::move(read), value, value);
        };
        both(
            "Points", [](const WaveRecord &r) { return QVariant(static_cast<int>(r.Points.size())); }, 0);
        both(
            "Count", [](const WaveRecord &r) { return QVariant(r.Count); }, 0);
        both(
            "LastIndex", [](const WaveRecord &r) { return QVariant(r.LastIndex); }, 0);
        both(
            "Grid", [](const WaveRecord &r) { return QVariant(r.Grid); }, true);
        both(
            "GridColour", [](const WaveRecord &r) { return QVariant(r.GridColour); }, 0x00FF00);
        both(
            "Link", [](const WaveRecord &r) { return QVariant(r.Link); }, true);
        both(
            "TraceColour", [](const WaveRecord &r) { return QVariant(r.TraceColour); }, 0x00FFFF);
        both(
            "XTextColour", [](const WaveRecord &r) { return QVariant(r.XTextColour); }, 0xFFFF00);
        add(
            "YTextColour", [](const WaveRecord &r) { return QVariant(r.YTextColour); }, 0xFF00FF, 0xFFFFFF);
        both(
            "YMax", [](const WaveRecord &r) { return QVariant(r.YMax); }, 0.0);
        both(
            "YMin", [](const WaveRecord &r) { return QVariant(r.YMin); }, 0.0);
        both(
            "XMin", [](const WaveRecord &r) { return QVariant(r.XMin); }, 0.0);
        both(
            "XMax", [](const WaveRecord &r) { return QVariant(r.XMax); }, 60.0);
        both(
            "XUnitText", [](const WaveRecord &r) { return QVariant(r.XUnitText); }, QStringLiteral("S"));
        add(
            "YUnitText", [](const WaveRecord &r) { return QVariant(r.YUnitText); }, QStringLiteral("℃"),
            QStringLiteral("mV"));
        both(
            "Step", [](const WaveRecord &r) { return QVariant(r.Step); }, 1.0);
        both(
            "WindowSamples", [](const WaveRecord &r) { return QVariant(r.WindowSamples); }, 61);
        both(
            "FirstVisible", [](const WaveRecord &r) { return QVariant(r.FirstVisible); }, 0);
        both(
            "LastVisible", [](const WaveRecord &r) { return QVariant(r.LastVisible); }, 0);
        both(
            "TickCell", [](const WaveRecord &r) { return QVariant(static_cast<int>(r.TickCell)); }, 1);
        both(
            "ZoomFactor", [](const WaveRecord &r) { return QVariant(r.ZoomFactor); }, 1);
    }

    void NewProjectsHaveTheseValues()
    {
        QFETCH(std::function<QVariant(const WaveRecord &)>, read);
        QTEST(read(ValueWave[slot]), "value");
        QTEST(read(MeasureWave[slot]), "measure");
    }

    void TheSurfacesStay()
    {
        for (const WaveRecord *record : {&ValueWave[slot], &MeasureWave[slot]}) {
            QCOMPARE(record->MemoryDcA, 91);
            QCOMPARE(record->MemoryBitmapA, 92);
            QCOMPARE(record->MemoryDcB, 93);
            QCOMPARE(record->MemoryBitmapB, 94);
        }
    }

    void OtherSlotsStay()
    {
        Fill(ValueWave[slot + 1]);
        ResetWaveRecords(slot, 1.0);
        QCOMPARE(ValueWave[slot + 1].Count, 7);
        QCOMPARE(ValueWave[slot + 1].YUnitText, QStringLiteral("old"));
    }

    void TheRightEdgeFollowsTheSamplePeriod()
    {
        ResetWaveRecords(slot, 2.5);
        QCOMPARE(ValueWave[slot].Step, 2.5);
        QCOMPARE(ValueWave[slot].XMax, 150.0);
        QCOMPARE(MeasureWave[slot].XMax, 150.0);
    }

    void ASlotOutsideTheTableIsRefused()
    {
        for (const int wrong : {-1, SlotCount})
            QVERIFY_THROWS_EXCEPTION(RuntimeError, ResetWaveRecords(wrong, 1.0));
    }

    void EmptyingForgetsEverything()
    {
        WaveBackColour = 5;
        ResetWaveTable();
        QCOMPARE(ValueWave[slot].MemoryDcB, 0);
        QCOMPARE(MeasureWave[slot].XMax, 0.0);
        QCOMPARE(WaveBackColour, 0);
    }

    void OverloadsAreComparedExactly_data()
    {
        QTest::addColumn<double>("sample");
        QTest::addColumn<bool>("overload");
        QTest::newRow("-8888") << -8888.0 << true;
        QTest::newRow("-7777") << -7777.0 << true;
        QTest::newRow("9e15") << 9000000000000000.0 << true;
        QTest::newRow("-9e15") << -9000000000000000.0 << true;
        QTest::newRow("8888") << 8888.0 << false;
        QTest::newRow("7777") << 7777.0 << false;
        QTest::newRow("0") << 0.0 << false;
        QTest::newRow("-8888 and a bit") << std::nextafter(-8888.0, 0.0) << false;
        QTest::newRow("9e15 and one") << 9000000000000001.0 << false;
        QTest::newRow("-9e15 and one") << -8999999999999999.0 << false;
        QTest::newRow("-7777000") << -7777000.0 << false;
    }

    void OverloadsAreComparedExactly()
    {
        QFETCH(double, sample);
        QTEST(IsOverload(sample), "overload");
    }

private:
    static constexpr int slot = 4;

    /// Every field away from its first value.
    static void Fill(WaveRecord &record)
    {
        record.Points = {{0, 1}, {1, 2}};
        record.Count = record.LastIndex = 7;
        record.Grid = record.Link = false;
        record.GridColour = record.TraceColour = record.XTextColour = record.YTextColour = 0x123456;
        record.YMax = record.YMin = record.XMin = record.XMax = record.Step = 8.5;
        record.XUnitText = record.YUnitText = QStringLiteral("old");
        record.WindowSamples = record.FirstVisible = record.LastVisible = record.ZoomFactor = 16;
        record.TickCell = 9;
        record.MemoryDcA = 91;
        record.MemoryBitmapA = 92;
        record.MemoryDcB = 93;
        record.MemoryBitmapB = 94;
    }
};

QTEST_GUILESS_MAIN(TestWaveRecord)
#include "tst_wave_record.moc"
