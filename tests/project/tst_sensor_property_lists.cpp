/// @file
/// The sensor dialogue: what its lists offer, and which of its fields a type shows.
#include "project/SensorPropertyBench.h"

#include <optional>

namespace {

/// Compares what is shown of the fields that the type decides on.
struct Shown {
    bool SubType;
    bool Rtd;
    bool OutputUnit;
};

Shown ShownOf(const SensorPropertyFrm &form)
{
    return {form.CombSubType->isVisible(), form.TextR0->isVisible(), form.OptDefault->isVisible()};
}

} // namespace

class TestSensorPropertyLists : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void typesDependOnTheInstrument_data();
    void typesDependOnTheInstrument();
    void typeDecidesWhatIsOffered_data();
    void typeDecidesWhatIsOffered();
    void typesOutsideTheListAreKnown_data();
    void typesOutsideTheListAreKnown();
    void outputUnitsAreFixed();
    void subTypeOfResistanceThermometerOffersStandards();
    void standardsAreCaptionedAlikeInBothLanguages();
    void changeFromRtdToVoltageHidesItsFields();
    void optionsSwitchTheOutputUnit();
    void userUnitStaysThroughAChangeOfType();

private:
    std::optional<SensorPropertyBench> m_bench;
};

void TestSensorPropertyLists::typesDependOnTheInstrument_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("types");
    QTest::newRow("unrecognised") << 0 << Words("None DCV DCI 2WR 4WR Frequency");
    QTest::newRow("KV7050") << 1 << Words("None DCV DCI 2WR 4WR Frequency TC");
    QTest::newRow("KV7060") << 2 << Words("None DCV DCI 2WR 4WR Frequency TC RTD THERM");
}

void TestSensorPropertyLists::typesDependOnTheInstrument()
{
    QFETCH(int, kind);
    QFETCH(QStringList, types);
    InstrumentKind = static_cast<std::int16_t>(kind);
    OpenNew([&](SensorPropertyFrm &form) { QCOMPARE(Entries(form.Combtype), types); });
}

void TestSensorPropertyLists::typeDecidesWhatIsOffered_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("inputUnits");
    QTest::addColumn<QStringList>("subTypes"); // none: the list is hidden, and the output unit is shown
    const auto row = [](int kind, const char *type, const char *inputUnits, const char *subTypes = "") {
        QTest::addRow("%s on kind %d", type, kind)
            << kind << QString::fromLatin1(type) << Words(inputUnits) << Words(subTypes);
    };
    for (int kind = 0; kind <= 2; ++kind) {
        row(kind, "None", "None");
        row(kind, "DCV", "V mV");
        row(kind, "DCI", kind == 0 ? "A mA" : "A mA uA");
        row(kind, "2WR", "ohm kohm");
        row(kind, "4WR", "ohm kohm");
        row(kind, "Frequency", "Hz mHz kHz MHz");
    }
    row(1, "TC", "V mV");
    row(2, "TC", "C F K", "B E J K N R S T");
    row(2, "RTD", "C F K", "RTD-2WR RTD-4WR");
    row(2, "THERM", "C F K", "2.2K 3K 5K 10K 30K");
}

void TestSensorPropertyLists::typeDecidesWhatIsOffered()
{
    QFETCH(int, kind);
    QFETCH(QString, type);
    QFETCH(QStringList, inputUnits);
    QFETCH(QStringList, subTypes);
    InstrumentKind = static_cast<std::int16_t>(kind);
    OpenNew([&](SensorPropertyFrm &form) {
        // From elsewhere, so that the routine runs also for the first entry.
        Choose(form.Combtype, QStringLiteral("4WR"));
        Choose(form.Combtype, type);
        QCOMPARE(form.Combtype->Text(), type);
        QCOMPARE(Entries(form.CombInunit), inputUnits);
        QCOMPARE(form.CombInunit->ListIndex(), 0);
        QCOMPARE(Entries(form.CombSubType), subTypes);
        const bool builtIn = !subTypes.isEmpty();
        const bool rtd = type == QStringLiteral("RTD");
        if (builtIn)
            QCOMPARE(form.CombSubType->ListIndex(), 0);
        QCOMPARE(form.CombSubType->isVisible(), builtIn);
        QCOMPARE(form.LabelSubType->isVisible(), builtIn);
        QCOMPARE(form.OptDefault->isVisible(), !builtIn);
        QCOMPARE(form.OptUser->isVisible(), !builtIn);
        QCOMPARE(form.CombOutunit->isVisible(), !builtIn);
        QVERIFY(!form.TxtUnit->isVisible());
        QCOMPARE(form.Comboa->isVisible(), rtd);
        QCOMPARE(form.Labela->isVisible(), rtd);
        QCOMPARE(form.TextR0->isVisible(), rtd);
        QCOMPARE(form.LabelParameter->isVisible(), rtd);
    });
}

void TestSensorPropertyLists::typesOutsideTheListAreKnown_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("inputUnits");
    for (int kind = 0; kind <= 2; ++kind) {
        const auto row = [kind](const char *type, const QStringList &units) {
            QTest::addRow("%s on kind %d", type, kind) << kind << QString::fromLatin1(type) << units;
        };
        row("ACV", Words("V mV"));
        row("Diode", Words("V mV"));
        row("ACI", kind == 2 ? Words("A mA uA") : Words("A mA"));
        row("Cont", Words("ohm"));
        row("Ratio", {QStringLiteral(" ")});
        row("Volume", Words("None"));
    }
}

void TestSensorPropertyLists::typesOutsideTheListAreKnown()
{
    QFETCH(int, kind);
    QFETCH(QString, type);
    InstrumentKind = static_cast<std::int16_t>(kind);
    OpenNew([&](SensorPropertyFrm &form) {
        form.Combtype->AddItem(type);
        Choose(form.Combtype, type);
        QTEST(Entries(form.CombInunit), "inputUnits");
        QVERIFY(!form.CombSubType->isVisible());
        QVERIFY(form.CombOutunit->isVisible());
    });
}

void TestSensorPropertyLists::outputUnitsAreFixed()
{
    OpenNew([](SensorPropertyFrm &form) {
        QCOMPARE(Entries(form.CombOutunit), Words("None g kg m km N Pa kPa J kJ W kW lm lx cd Bq Gy"));
    });
}

void TestSensorPropertyLists::subTypeOfResistanceThermometerOffersStandards()
{
    OpenNew([](SensorPropertyFrm &form) {
        Choose(form.Combtype, QStringLiteral("RTD"));
        for (const int subType : {0, 1}) {
            Choose(form.CombSubType, subType);
            QCOMPARE(Entries(form.Comboa), Words("Pt385 Pt389 Pt391 Pt392"));
            QCOMPARE(form.Comboa->ListIndex(), 0);
            QVERIFY(form.Comboa->isEnabled());
            QVERIFY(form.Comboa->isVisible());
            QVERIFY(form.TextR0->isVisible());
            Choose(form.Comboa, 3);
        }
        QCOMPARE(form.TextR0->text(), QStringLiteral("100"));
        Choose(form.Combtype, QStringLiteral("THERM"));
        QVERIFY(Entries(form.Comboa).isEmpty());
        QVERIFY(!form.Comboa->isVisible());
    });
}

void TestSensorPropertyLists::standardsAreCaptionedAlikeInBothLanguages()
{
    for (const std::int32_t language : {LanguageEnglish, LanguageChinese}) {
        CurrentLanguage = language;
        OpenNew([](SensorPropertyFrm &form) {
            Choose(form.Combtype, QStringLiteral("RTD"));
            QVERIFY(form.Labela->isVisible());
            QCOMPARE(form.Labela->text(), QStringLiteral("ALPHA"));
        });
    }
}

void TestSensorPropertyLists::changeFromRtdToVoltageHidesItsFields()
{
    OpenNew([](SensorPropertyFrm &form) {
        Choose(form.Combtype, QStringLiteral("RTD"));
        const Shown rtd = ShownOf(form);
        QVERIFY(rtd.SubType && rtd.Rtd && !rtd.OutputUnit);
        Choose(form.Combtype, QStringLiteral("DCV"));
        const Shown voltage = ShownOf(form);
        QVERIFY(!voltage.SubType && !voltage.Rtd && voltage.OutputUnit);
        QVERIFY(!form.Comboa->isVisible());
        QVERIFY(form.OptUser->isVisible());
        QVERIFY(form.CombOutunit->isVisible());
        QVERIFY(Entries(form.CombSubType).isEmpty());
    });
}

void TestSensorPropertyLists::optionsSwitchTheOutputUnit()
{
    OpenNew([](SensorPropertyFrm &form) {
        Click(form.OptUser);
        QVERIFY(form.OptUser->isChecked());
        QVERIFY(!form.OptDefault->isChecked());
        QVERIFY(form.TxtUnit->isVisible());
        QVERIFY(!form.CombOutunit->isVisible());
        Click(form.OptDefault);
        QVERIFY(!form.OptUser->isChecked());
        QVERIFY(!form.TxtUnit->isVisible());
        QVERIFY(form.CombOutunit->isVisible());
    });
}

void TestSensorPropertyLists::userUnitStaysThroughAChangeOfType()
{
    OpenNew([](SensorPropertyFrm &form) {
        Click(form.OptUser);
        Choose(form.Combtype, QStringLiteral("THERM"));
        QVERIFY(!form.TxtUnit->isVisible());
        Choose(form.Combtype, QStringLiteral("2WR"));
        QVERIFY(form.TxtUnit->isVisible());
        QVERIFY(!form.CombOutunit->isVisible());
    });
}

QTEST_MAIN(TestSensorPropertyLists)
#include "tst_sensor_property_lists.moc"
