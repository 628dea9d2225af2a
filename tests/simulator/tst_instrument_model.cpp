/// @file
/// The virtual multimeter's own behaviour: what it understands, what it measures, and the faults that tests ask for.

#include "simulator/InstrumentModel.h"
#include "simulator/ScpiHeader.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

using Bytes = std::string;

/// A model whose clock stands at a number of seconds.
InstrumentModel ModelAt(double seconds, std::uint64_t seed = 1)
{
    return MakeInstrumentModel(MakeSignalSource([seconds] { return seconds; }, seed));
}

Bytes Reply(InstrumentModel &model, const char *line)
{
    return ExecuteLine(model, line).value_or("(silent)");
}

double ReplyNumber(InstrumentModel &model, const char *line)
{
    return QByteArray::fromStdString(Reply(model, line)).trimmed().toDouble();
}

struct FunctionRow {
    const char *Name;
    const char *Select;
    const char *SelectShort;
    const char *Measure;
    const char *MeasureShort;
    double Lowest; ///< plausible range of the living signal, from the standards named at the signals
    double Highest;
};

// DC volts: NIST Monograph 175 type K at 60 and 240 degrees, 2.436 and 9.747 mV. Resistance: IEC 60751 at the same two,
// 123.24 and 190.47 ohms, and 0.4 ohms of leads. Mains: EN 50160, 230 V within 10 %. Current loop: 4 to 20 mA.
constexpr std::array<FunctionRow, MeasureFunctionCount> Rows = {{
    {"DCV", ":FUNCtion:VOLTage:DC", "FUNC:VOLT:DC", ":MEASure:VOLTage:DC?", "MEAS:VOLT:DC?", 2.42e-3, 9.76e-3},
    {"ACV", ":FUNCtion:VOLTage:AC", "FUNC:VOLT:AC", ":MEASure:VOLTage:AC?", "MEAS:VOLT:AC?", 207, 253},
    {"DCI", ":FUNCtion:CURRent:DC", "FUNC:CURR:DC", ":MEASure:CURRent:DC?", "MEAS:CURR:DC?", 4e-3, 20e-3},
    {"ACI", ":FUNCtion:CURRent:AC", "FUNC:CURR:AC", ":MEASure:CURRent:AC?", "MEAS:CURR:AC?", 0.3, 0.6},
    {"2WR", ":FUNCtion:RESIstance", "FUNC:RESI", ":MEASure:RESIstance?", "MEAS:RESI?", 123.6, 190.9},
    {"4WR", ":FUNCtion:FRESistance", "FUNC:FRES", ":MEASure:FRESistance?", "MEAS:FRES?", 123.2, 190.5},
    {"Cont", ":FUNCtion:CONTinuity", "FUNC:CONT", ":MEASure:CONTinuity?", "MEAS:CONT?", 0, 1},
    {"Diode", ":FUNCtion:DIODe", "FUNC:DIOD", ":MEASure:DIODe?", "MEAS:DIOD?", 0.5, 0.7},
    {"Ratio", ":FUNCtion:VOLTage:DC:RATIo", "FUNC:VOLT:DC:RATI", ":MEASure:VOLTage:DC:RATIo?", "MEAS:VOLT:DC:RATI?",
     0.4, 0.6},
    {"Frequency", ":FUNCtion:FREQuency", "FUNC:FREQ", ":MEASure:FREQuency?", "MEAS:FREQ?", 990, 1010},
}};

std::vector<double> Noise(MeasureFunction function, int count)
{
    SignalSource source = MakeSignalSource([] { return 17.0; }, 4);
    std::vector<double> noise(count);
    std::ranges::generate(noise, [&] { return SampleSignal(source, function) - IdealSignal(function, 17.0); });
    return noise;
}

} // namespace

class tst_instrument_model : public QObject {
    Q_OBJECT

private slots:
    void identificationNamesMakerModelSerialAndFirmware()
    {
        InstrumentModel model = ModelAt(0);
        const QList<QByteArray> fields = QByteArray::fromStdString(Reply(model, "*IDN?\n")).split(',');
        QCOMPARE(fields.size(), 4);
        QCOMPARE(fields[0], "ZEMRA Technologies");
        QCOMPARE(fields[1], "KV7060");
        QVERIFY(!fields[2].isEmpty());
        QVERIFY(fields[3].endsWith('\n'));
        QCOMPARE(fields[3].count('\n'), 1);
    }

    void identificationFollowsTheIdentitySet()
    {
        InstrumentModel model = ModelAt(0);
        model.Identity = {"Somebody", "KV7099", "77", "2.5"};
        QCOMPARE(Reply(model, "*idn?"), Bytes("Somebody,KV7099,77,2.5\n"));
    }

    void handshakesAreTakenInSilence()
    {
        InstrumentModel model = ModelAt(0);
        QVERIFY(!ExecuteLine(model, "IDNSET ZEMRA\n"));
        QVERIFY(!ExecuteLine(model, "CMDSET ZEMRA\n"));
        QCOMPARE(model.Lines, (std::vector<std::string>{"IDNSET ZEMRA", "CMDSET ZEMRA"}));
    }

    void eachFunctionIsSelectedAndMeasured_data()
    {
        QTest::addColumn<int>("index");
        for (int index = 0; index < MeasureFunctionCount; ++index)
            QTest::newRow(Rows[index].Name) << index;
    }

    void eachFunctionIsSelectedAndMeasured()
    {
        QFETCH(int, index);
        const FunctionRow &row = Rows.at(index);
        const auto function = static_cast<MeasureFunction>(index);
        const auto another = static_cast<MeasureFunction>((index + 1) % MeasureFunctionCount);
        for (const char *select : {row.Select, row.SelectShort}) {
            InstrumentModel model = ModelAt(30);
            model.Function = another;
            QVERIFY(!ExecuteLine(model, select));
            QVERIFY(model.Function == function);
        }
        for (const char *measure : {row.Measure, row.MeasureShort}) {
            InstrumentModel model = ModelAt(30);
            model.Function = another;
            SignalSource twin = MakeSignalSource([] { return 30.0; }, 1);
            QCOMPARE(Reply(model, measure), ReadingText(SampleSignal(twin, function)) + '\n');
            QVERIFY(model.Function == function);
        }
    }

    void livingSignalsStayPlausible_data() { eachFunctionIsSelectedAndMeasured_data(); }

    void livingSignalsStayPlausible()
    {
        QFETCH(int, index);
        const FunctionRow &row = Rows.at(index);
        double now = 0;
        InstrumentModel model = MakeInstrumentModel(MakeSignalSource([&now] { return now; }, 1));
        const Bytes first = Reply(model, row.Measure);
        bool moved = false;
        for (; now < 700; now += 0.7) {
            const double value = ReplyNumber(model, row.Measure);
            QVERIFY2(value >= row.Lowest && value <= row.Highest, qPrintable(QString::number(value, 'g', 9)));
            moved = moved || Reply(model, row.Measure) != first;
        }
        QVERIFY(moved);
    }

    void headersAreKnownInLongAndShortFormAndAnyCase_data()
    {
        QTest::addColumn<QByteArray>("line");
        for (const char *line :
             {":MEASure:VOLTage:DC?", "MEASure:VOLTage:DC?", ":MEAS:VOLT:DC?", "MEAS:VOLT:DC?", "meas:volt:dc?",
              ":measure:voltage:dc?", "MEASURE:VOLTAGE:DC?", "mEaS:VoLtAgE:dC?", ":MEAS:VOLTage:DC?", "MEAS:VOLT:DC?  ",
              "  MEAS:VOLT:DC?", "MEAS:VOLT:DC?\n", "MEAS:VOLT:DC?\r\n", "MEAS:VOLT:DC? \t\r\n"})
            QTest::newRow(line) << QByteArray(line);
    }

    void headersAreKnownInLongAndShortFormAndAnyCase()
    {
        QFETCH(QByteArray, line);
        InstrumentModel model = ModelAt(0);
        model.Faults.Reading = 1.5;
        QCOMPARE(Reply(model, line.constData()), Bytes("+1.500000E+00\n"));
    }

    void whatIsUnknownIsIgnoredInSilence_data()
    {
        QTest::addColumn<QByteArray>("line");
        for (const char *line : {"",
                                 "\n",
                                 "   ",
                                 "*RST",
                                 "*IDN",
                                 "IDN?",
                                 "*IDN?x",
                                 ":MEASure:PERIod?",
                                 "MEAS:VOL:DC?",
                                 "MEASU:VOLT:DC?",
                                 "MEAS:VOLTag:DC?",
                                 "MEAS:VOLT:DC",
                                 "MEAS:VOLT:DC??",
                                 "MEAS:VOLT?",
                                 "::MEAS:VOLT:DC?",
                                 "MEAS:VOLT:DC?:",
                                 ":FUNC:VOLT:DC?",
                                 ":FUNC",
                                 "MEAS VOLT DC?",
                                 "MEAS:RES?",
                                 "MEAS:VOLT:AC:RATI?",
                                 "MEAS:VOLT:DC?;*IDN?"})
            QTest::newRow(line) << QByteArray(line);
    }

    void whatIsUnknownIsIgnoredInSilence()
    {
        QFETCH(QByteArray, line);
        InstrumentModel model = ModelAt(0);
        model.Function = MeasureFunction::Diode;
        QVERIFY(!ExecuteLine(model, line.constData()));
        QVERIFY(model.Function == MeasureFunction::Diode);
        QCOMPARE(model.Lines.size(), std::size_t{1});
    }

    void readingsAreWrittenInExponentForm_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("type K at 100 degrees") << 0.00409623021872 << QByteArray("+4.096230E-03");
        QTest::newRow("zero") << 0.0 << QByteArray("+0.000000E+00");
        QTest::newRow("negative") << -1.5 << QByteArray("-1.500000E+00");
        QTest::newRow("large") << 9e15 << QByteArray("+9.000000E+15");
        QTest::newRow("rounded up") << 9.9999996 << QByteArray("+1.000000E+01");
        QTest::newRow("three digits of exponent") << 1e100 << QByteArray("+1.000000E+100");
    }

    void readingsAreWrittenInExponentForm()
    {
        QFETCH(double, value);
        QFETCH(QByteArray, text);
        QCOMPARE(ReadingText(value), text.toStdString());
    }

    void overloadsReadAsTheirValues_data()
    {
        QTest::addColumn<int>("overload");
        QTest::addColumn<double>("value");
        QTest::newRow("-8888") << static_cast<int>(Overload::Minus8888) << -8888.0;
        QTest::newRow("-7777") << static_cast<int>(Overload::Minus7777) << -7777.0;
        QTest::newRow("9e15") << static_cast<int>(Overload::Plus9E15) << 9000000000000000.0;
        QTest::newRow("-9e15") << static_cast<int>(Overload::Minus9E15) << -9000000000000000.0;
    }

    void overloadsReadAsTheirValues()
    {
        QFETCH(int, overload);
        QFETCH(double, value);
        InstrumentModel model = ModelAt(0);
        model.Faults.OverloadReply = static_cast<Overload>(overload);
        const Bytes reply = Reply(model, "MEAS:FRES?");
        QVERIFY(reply.ends_with('\n'));
        bool number = false;
        QVERIFY(QByteArray::fromStdString(reply).trimmed().toDouble(&number) == value); // exactly equal
        QVERIFY(number);
        QVERIFY(Reply(model, "*IDN?").starts_with("ZEMRA"));
    }

    void aRawReplyIsGivenAsItStands()
    {
        InstrumentModel model = ModelAt(0);
        model.Faults.RawReply = Bytes(1000, '7');
        model.Faults.Reading = 1;
        QCOMPARE(Reply(model, "MEAS:VOLT:DC?"), Bytes(1000, '7'));
    }

    void silenceSwallowsRepliesButRecordsLines()
    {
        InstrumentModel model = ModelAt(0);
        model.Faults.SilentReplies = 2;
        QVERIFY(!ExecuteLine(model, "*IDN?"));
        QVERIFY(!ExecuteLine(model, "IDNSET ZEMRA")); // has no reply to swallow
        QVERIFY(!ExecuteLine(model, "*IDN?"));
        QVERIFY(ExecuteLine(model, "*IDN?"));
        model.Faults.SilentReplies = -1;
        for (int query = 0; query < 5; ++query)
            QVERIFY(!ExecuteLine(model, "MEAS:VOLT:DC?"));
        QCOMPARE(model.Lines.size(), std::size_t{9});
    }

    void vendorRequestsAreRecorded()
    {
        InstrumentModel model = ModelAt(0);
        const std::array<std::uint8_t, 3> data = {1, 0, 255};
        for (int request = FirstVendorRequest; request <= LastVendorRequest; ++request)
            QCOMPARE(ReceiveVendorRequest(model, request, 0x1234, request - 1, data).value(), 0);
        QCOMPARE(model.VendorRequests.size(), std::size_t{5});
        const VendorRequest &last = model.VendorRequests.back();
        QCOMPARE(last.Request, 0x1F);
        QCOMPARE(last.Value, 0x1234);
        QCOMPARE(last.Index, 0x1E);
        QCOMPARE(last.Data, (std::vector<std::uint8_t>{1, 0, 255}));
        QCOMPARE(last.Status, 0);
    }

    void aRefusedVendorRequestIsRecordedWithItsStatus()
    {
        InstrumentModel model = ModelAt(0);
        model.Faults.VendorStatus[1] = -5;
        QCOMPARE(ReceiveVendorRequest(model, 0x1B, 0, 0, {}).value(), 0);
        QCOMPARE(ReceiveVendorRequest(model, 0x1C, 0, 0, {}).value(), -5);
        QCOMPARE(model.VendorRequests.at(1).Status, -5);
    }

    void otherVendorRequestsAreStalled()
    {
        InstrumentModel model = ModelAt(0);
        for (const int request : {-1, 0, 0x1A, 0x20, 255})
            QVERIFY(!ReceiveVendorRequest(model, request, 0, 0, {}));
        QVERIFY(model.VendorRequests.empty());
    }

    /// NIST Monograph 175 (SRD 60): the printed table in millivolts, and the reference function to eleven digits.
    void thermocoupleFollowsTheReferenceFunction_data()
    {
        QTest::addColumn<double>("celsius");
        QTest::addColumn<double>("table");
        QTest::addColumn<double>("function");
        // At 0 the constant and the exponential term as published leave 2e-9 mV (worked out to 40 digits), not 0.
        QTest::newRow("0") << 0.0 << 0.000 << 1.97408e-9;
        QTest::newRow("25") << 25.0 << 1.000 << 1.00024235457;
        QTest::newRow("60") << 60.0 << 2.436 << 2.4364716269;
        QTest::newRow("100") << 100.0 << 4.096 << 4.09623021872;
        QTest::newRow("127") << 127.0 << 5.206 << 5.2060930022;
        QTest::newRow("150") << 150.0 << 6.138 << 6.13834392715;
        QTest::newRow("200") << 200.0 << 8.138 << 8.13847332649;
        QTest::newRow("240") << 240.0 << 9.747 << 9.74715164298;
        QTest::newRow("500") << 500.0 << 20.644 << 20.64428639;
        QTest::newRow("1000") << 1000.0 << 41.276 << 41.2756064563;
        QTest::newRow("1372") << 1372.0 << 54.886 << 54.8863640253;
        QTest::newRow("below the range") << -10.0 << 0.000 << 1.97408e-9;
        QTest::newRow("above the range") << 2000.0 << 54.886 << 54.8863640253;
    }

    void thermocoupleFollowsTheReferenceFunction()
    {
        QFETCH(double, celsius);
        QFETCH(double, table);
        QFETCH(double, function);
        const double millivolts = ThermocoupleKVolts(celsius) * 1e3;
        QVERIFY(std::abs(millivolts - table) <= 0.0005);
        QVERIFY2(std::abs(millivolts - function) <= 1e-10, qPrintable(QString::number(millivolts, 'g', 13)));
    }

    /// IEC 60751 with A = 3.9083e-3 and B = -5.775e-7.
    void platinumFollowsTheStandard_data()
    {
        QTest::addColumn<double>("celsius");
        QTest::addColumn<double>("ohms");
        QTest::newRow("0") << 0.0 << 100.0;
        QTest::newRow("25") << 25.0 << 109.73465625;
        QTest::newRow("60") << 60.0 << 123.2419;
        QTest::newRow("100") << 100.0 << 138.5055;
        QTest::newRow("240") << 240.0 << 190.4728;
        QTest::newRow("500") << 500.0 << 280.9775;
        QTest::newRow("850") << 850.0 << 390.481125;
    }

    void platinumFollowsTheStandard()
    {
        QFETCH(double, celsius);
        QFETCH(double, ohms);
        QVERIFY(std::abs(Pt100Ohms(celsius) - ohms) <= 1e-9);
    }

    void theOvenStaysInItsBoundsAndUsesThem()
    {
        double lowest = 1e9;
        double highest = -1e9;
        for (int step = 0; step < 20000; ++step) {
            const double celsius = OvenTemperature(step * 0.1);
            lowest = std::min(lowest, celsius);
            highest = std::max(highest, celsius);
            QVERIFY(std::abs(OvenTemperature(step * 0.1 + 0.01) - celsius) < 0.1); // no jumps
        }
        QVERIFY(lowest >= 60.0 && lowest < 65.0);
        QVERIFY(highest <= 240.0 && highest > 235.0);
    }

    void theOvenWarmsForAMinuteAndCoolsForAMinute()
    {
        for (int time = 5; time < 55; time += 10) {
            QVERIFY(OvenTemperature(time + 7) > OvenTemperature(time)); // seven seconds apart: the ripple drops out
            QVERIFY(OvenTemperature(60 + time + 7 - 5) < OvenTemperature(60 + time - 5));
        }
    }

    void twoWiresSeeTheLeadsAndFourDoNot()
    {
        for (const double time : {0.0, 33.0, 60.0}) {
            const double four = IdealSignal(MeasureFunction::Resistance4Wire, time);
            QCOMPARE(four, Pt100Ohms(OvenTemperature(time)));
            QCOMPARE(IdealSignal(MeasureFunction::Resistance2Wire, time) - four, LeadResistance);
        }
    }

    void thermocoupleAndPlatinumSitInOneOven()
    {
        // 100 degrees on the way up, found by halving; both references agree on it.
        double early = 0;
        double late = 60;
        for (int halving = 0; halving < 60; ++halving) {
            const double middle = (early + late) / 2;
            (OvenTemperature(middle) < 100 ? early : late) = middle;
        }
        QVERIFY(std::abs(IdealSignal(MeasureFunction::DcVolts, early) - 4.09623021872e-3) < 1e-9);
        QVERIFY(std::abs(IdealSignal(MeasureFunction::Resistance4Wire, early) - 138.5055) < 1e-6);
    }

    void noiseIsBoundedAndOfItsDeviation_data() { eachFunctionIsSelectedAndMeasured_data(); }

    void noiseIsBoundedAndOfItsDeviation()
    {
        QFETCH(int, index);
        const auto function = static_cast<MeasureFunction>(index);
        constexpr int count = 20000;
        const std::vector<double> noise = Noise(function, count);
        const double deviation = NoiseDeviation(function);
        const double mean = std::accumulate(noise.begin(), noise.end(), 0.0) / count;
        const double squares = std::inner_product(noise.begin(), noise.end(), noise.begin(), 0.0);
        QVERIFY(std::ranges::all_of(noise, [&](double part) { return std::abs(part) <= 6.001 * deviation; }));
        QVERIFY(std::abs(mean) < 5 * deviation / std::sqrt(count));
        QVERIFY(std::abs(std::sqrt(squares / count) / deviation - 1) < 0.05);
    }

    void dcVoltsHaveTwoMicrovoltsOfNoise() { QCOMPARE(NoiseDeviation(MeasureFunction::DcVolts), 2e-6); }

    void oneSeedGivesTheSameReadingsWhateverElseIsMeasured()
    {
        InstrumentModel plain = ModelAt(12, 5);
        InstrumentModel mixed = ModelAt(12, 5);
        InstrumentModel other = ModelAt(12, 6);
        bool differs = false;
        for (int reading = 0; reading < 10; ++reading) {
            Reply(mixed, "MEAS:FREQ?");
            const Bytes text = Reply(plain, "MEAS:VOLT:DC?");
            QCOMPARE(Reply(mixed, "MEAS:VOLT:DC?"), text);
            differs = differs || Reply(other, "MEAS:VOLT:DC?") != text;
        }
        QVERIFY(differs);
    }

    void theSteadyClockBeginsAtZeroAndNeverStepsBack()
    {
        const SecondsClock clock = SteadySeconds();
        const double first = clock();
        QVERIFY(first >= 0 && first < 10);
        QTRY_VERIFY(clock() > first);
    }
};

QTEST_GUILESS_MAIN(tst_instrument_model)
#include "tst_instrument_model.moc"
