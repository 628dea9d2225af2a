/// @file
/// From the controls of the sensor dialogue to the sensor definition.
#include "project/SensorPropertyFrm.h"
#include "project/SensorRecordModule.h"
#include "project/SensorTable.h"
#include "support/ErrorOf.h"

#include <QTest>

namespace {

/// Makes a text the only and chosen entry of a list.
void Show(ListCombo *list, const QString &text)
{
    list->ClearList();
    list->AddItem(text);
    list->SetListIndex(0);
}

/// Controls as the dialogue leaves them for a type.
void FillControls(SensorPropertyFrm &form, const QString &type, const QString &subType, const QString &inputUnit)
{
    form.Txtname->setText(QStringLiteral("Probe_7"));
    Show(form.Combtype, type);
    Show(form.CombInunit, inputUnit);
    Show(form.CombOutunit, QStringLiteral("kPa"));
    form.CombSubType->ClearList();
    if (!subType.isEmpty())
        Show(form.CombSubType, subType);
}

} // namespace

class TestSensorRecord : public QObject {
    Q_OBJECT

private slots:
    void typeDecidesFunctionAndConversion_data();
    void typeDecidesFunctionAndConversion();
    void plainSensorLeavesBuiltInFields();
    void subTypeGivesItsCode_data();
    void subTypeGivesItsCode();
    void curveStandardGivesItsCode_data();
    void curveStandardGivesItsCode();
    void resistanceIsTheLeadingNumber_data();
    void resistanceIsTheLeadingNumber();
    void resistanceBeyondSingleOverflows();
    void scaleFollowsTheInputUnit_data();
    void scaleFollowsTheInputUnit();
    void outputUnitFromTheList_data();
    void outputUnitFromTheList();
    void outputUnitFromTheUser();
    void outputUnitOfABuiltInSensorIsItsInputUnit();
    void builtInSensorKeepsTheMarkOfAUserUnit();
    void thermocoupleOption();
    void nameCodes_data();
    void nameCodes();
    void unitCodeIsOneByte();
};

void TestSensorRecord::typeDecidesFunctionAndConversion_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("subType");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("measFunction");
    QTest::addColumn<bool>("builtIn");
    QTest::addColumn<int>("builtInKind"); // 77 when it keeps its old content
    const auto row = [](const char *type, const char *subType, int kind, int function, bool builtIn, int builtInKind) {
        QTest::addRow("%s %s on kind %d", type, subType, kind)
            << QString::fromLatin1(type) << QString::fromLatin1(subType) << kind << function << builtIn << builtInKind;
    };
    for (int kind = 0; kind <= 2; ++kind) {
        row("DCV", "", kind, 0, false, 77);
        row("DCI", "", kind, 2, false, 77);
        row("2WR", "", kind, 4, false, 77);
        row("4WR", "", kind, 5, false, 77);
        row("Frequency", "", kind, 9, false, 77);
        row("RTD", "RTD-2WR", kind, 4, true, 1);
        row("RTD", "RTD-4WR", kind, 5, true, 1);
        row("THERM", "10K", kind, 4, true, 2);
    }
    row("TC", "K", 2, 0, true, 0);
    row("TC", "", 1, 10, false, 77);
    row("TC", "K", 0, 10, false, 77);
}

void TestSensorRecord::typeDecidesFunctionAndConversion()
{
    QFETCH(QString, type);
    QFETCH(QString, subType);
    QFETCH(int, kind);
    SensorPropertyFrm form;
    FillControls(form, type, subType, QStringLiteral("V"));
    SensorProject project = OldRecord();
    FillSensorProject(form, project, static_cast<std::int16_t>(kind));
    QCOMPARE(project.SensorName, QStringLiteral("Probe_7"));
    QTEST(project.MeasFunction, "measFunction");
    QTEST(project.IsBuiltInSensor, "builtIn");
    QTEST(int(project.BuiltInKind), "builtInKind");
    QCOMPARE(project.InputUnit, QStringLiteral("V"));
    QCOMPARE(project.InputUnitScale, 1.0F);
    QCOMPARE(int(project.IsThermocouple), 0);
    QCOMPARE(int(project.OutputUnitIsUser), 0);
}

void TestSensorRecord::plainSensorLeavesBuiltInFields()
{
    for (const char *type : {"DCV", "DCI", "2WR", "4WR", "Frequency", "TC"}) {
        SensorPropertyFrm form;
        FillControls(form, QString::fromLatin1(type), {}, QStringLiteral("mV"));
        SensorProject project = OldRecord();
        const SensorProject old = project;
        FillSensorProject(form, project, 1);
        QVERIFY2(!project.IsBuiltInSensor, type);
        QVERIFY2(project.SensorTypeChars == old.SensorTypeChars, type);
        QVERIFY2(project.UnitChars == old.UnitChars, type);
        QCOMPARE(project.RtdCode, old.RtdCode);
        QCOMPARE(project.ThermistorOhms, old.ThermistorOhms);
        QCOMPARE(project.RtdR0, old.RtdR0);
        QCOMPARE(project.TcLetterCode, old.TcLetterCode);
    }
}

void TestSensorRecord::subTypeGivesItsCode_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("subType");
    QTest::addColumn<int>("letter"); // 77 when it keeps its old content
    QTest::addColumn<int>("ohms");   // the same
    const QString letters = QStringLiteral("BEJKNRST");
    for (int i = 0; i < 8; ++i)
        QTest::addRow("thermocouple %c", letters[i].toLatin1())
            << QStringLiteral("TC") << QString(letters[i]) << i << 77;
    const auto thermistor = [](const char *text, int ohms) {
        QTest::addRow("thermistor %s", text) << QStringLiteral("THERM") << QString::fromLatin1(text) << 77 << ohms;
    };
    thermistor("2.2K", 2200);
    thermistor("3K", 3000);
    thermistor("5K", 5000);
    thermistor("10K", 10000);
    thermistor("30K", 30000);
}

void TestSensorRecord::subTypeGivesItsCode()
{
    QFETCH(QString, type);
    QFETCH(QString, subType);
    SensorPropertyFrm form;
    FillControls(form, type, subType, QStringLiteral("C"));
    SensorProject project = OldRecord();
    FillSensorProject(form, project, 2);
    QTEST(int(project.TcLetterCode), "letter");
    QTEST(int(project.ThermistorOhms), "ohms");
    QCOMPARE(int(project.RtdCode), 77);
    QCOMPARE(project.RtdR0, 77.0F);
}

void TestSensorRecord::curveStandardGivesItsCode_data()
{
    QTest::addColumn<QString>("standard");
    QTest::addColumn<int>("code");
    QTest::newRow("Pt385") << QStringLiteral("Pt385") << 0;
    QTest::newRow("Pt389") << QStringLiteral("Pt389") << 1;
    QTest::newRow("Pt391") << QStringLiteral("Pt391") << 2;
    QTest::newRow("Pt392") << QStringLiteral("Pt392") << 3;
}

void TestSensorRecord::curveStandardGivesItsCode()
{
    QFETCH(QString, standard);
    SensorPropertyFrm form;
    FillControls(form, QStringLiteral("RTD"), QStringLiteral("RTD-4WR"), QStringLiteral("C"));
    Show(form.Comboa, standard);
    SensorProject project = OldRecord();
    FillSensorProject(form, project, 2);
    QTEST(int(project.RtdCode), "code");
    QCOMPARE(int(project.ThermistorOhms), 77);
    QCOMPARE(int(project.TcLetterCode), 77);
}

void TestSensorRecord::resistanceIsTheLeadingNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("ohms");
    QTest::newRow("default") << QStringLiteral("100") << 100.0F;
    QTest::newRow("fraction") << QStringLiteral("100.25") << 100.25F;
    QTest::newRow("with a unit") << QStringLiteral("500 ohm") << 500.0F;
    QTest::newRow("no number") << QStringLiteral("abc") << 0.0F;
    QTest::newRow("empty") << QString() << 0.0F;
}

void TestSensorRecord::resistanceIsTheLeadingNumber()
{
    QFETCH(QString, text);
    SensorPropertyFrm form;
    FillControls(form, QStringLiteral("RTD"), QStringLiteral("RTD-2WR"), QStringLiteral("C"));
    form.TextR0->setText(text);
    SensorProject project = OldRecord();
    FillSensorProject(form, project, 2);
    QTEST(project.RtdR0, "ohms");
}

void TestSensorRecord::resistanceBeyondSingleOverflows()
{
    SensorPropertyFrm form;
    FillControls(form, QStringLiteral("RTD"), QStringLiteral("RTD-2WR"), QStringLiteral("C"));
    form.TextR0->setText(QStringLiteral("1e300"));
    SensorProject project = OldRecord();
    QCOMPARE(ErrorOf([&] { FillSensorProject(form, project, 2); }), 6);
    QCOMPARE(project.RtdR0, 77.0F);
}

void TestSensorRecord::scaleFollowsTheInputUnit_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<float>("scale");
    QTest::newRow("V") << QStringLiteral("V") << 1.0F;
    QTest::newRow("mA") << QStringLiteral("mA") << 1000.0F;
    QTest::newRow("kohm") << QStringLiteral("kohm") << 0.001F;
    QTest::newRow("MHz") << QStringLiteral("MHz") << 1e-06F;
    QTest::newRow("uA") << QStringLiteral("uA") << 1000000.0F;
    QTest::newRow("C") << QStringLiteral("C") << 1.0F;
}

void TestSensorRecord::scaleFollowsTheInputUnit()
{
    QFETCH(QString, unit);
    SensorPropertyFrm form;
    FillControls(form, QStringLiteral("DCI"), {}, unit);
    SensorProject project = OldRecord();
    FillSensorProject(form, project, 2);
    QCOMPARE(project.InputUnit, unit);
    QTEST(project.InputUnitScale, "scale");
}

void TestSensorRecord::outputUnitFromTheList_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("unit");
    QTest::newRow("None is no unit") << QStringLiteral("None") << QString();
    QTest::newRow("a unit") << QStringLiteral("kPa") << QStringLiteral("kPa");
}

void TestSensorRecord::outputUnitFromTheList()
{
    QFETCH(QString, shown);
    SensorPropertyFrm form;
    FillControls(form, QStringLiteral("DCV"), {}, QStringLiteral("V"));
    Show(form.CombOutunit, shown);
    form.OptDefault->setChecked(true);
    form.TxtUnit->setText(QStringLiteral("xy"));
    SensorProject project = OldRecord();
    FillSensorProject(form, project, 2);
    QTEST(project.OutputUnit, "unit");
    QCOMPARE(int(project.OutputUnitIsUser), 0);
}

void TestSensorRecord::outputUnitFromTheUser()
{
    SensorPropertyFrm form;
    FillControls(form, QStringLiteral("DCV"), {}, QStringLiteral("V"));
    form.OptUser->setChecked(true);
    form.TxtUnit->setText(QStringLiteral("xy"));
    SensorProject project = OldRecord();
    FillSensorProject(form, project, 2);
    QCOMPARE(project.OutputUnit, QStringLiteral("xy"));
    QCOMPARE(int(project.OutputUnitIsUser), 1);
}

void TestSensorRecord::outputUnitOfABuiltInSensorIsItsInputUnit()
{
    for (const char *type : {"TC", "RTD", "THERM"}) {
        SensorPropertyFrm form;
        FillControls(form, QString::fromLatin1(type), {}, QStringLiteral("F"));
        SensorProject project = OldRecord();
        FillSensorProject(form, project, 2);
        QCOMPARE(project.InputUnit, QStringLiteral("F"));
        QCOMPARE(project.OutputUnit, QStringLiteral("F"));
    }
}

/// The mark follows the option, though the options are hidden then and the unit is not the user's.
void TestSensorRecord::builtInSensorKeepsTheMarkOfAUserUnit()
{
    for (const char *type : {"TC", "RTD", "THERM"}) {
        SensorPropertyFrm form;
        FillControls(form, QString::fromLatin1(type), {}, QStringLiteral("F"));
        form.OptUser->setChecked(true);
        form.TxtUnit->setText(QStringLiteral("xy"));
        SensorProject project = OldRecord();
        FillSensorProject(form, project, 2);
        QCOMPARE(project.OutputUnit, QStringLiteral("F"));
        QCOMPARE(int(project.OutputUnitIsUser), 1);
        form.OptDefault->setChecked(true);
        FillSensorProject(form, project, 2);
        QCOMPARE(int(project.OutputUnitIsUser), 0);
    }
}

void TestSensorRecord::thermocoupleOption()
{
    SensorPropertyFrm form;
    FillControls(form, QStringLiteral("DCV"), {}, QStringLiteral("V"));
    form.OptYes->setChecked(true);
    SensorProject project = OldRecord();
    FillSensorProject(form, project, 2);
    QCOMPARE(int(project.IsThermocouple), 1);
    form.OptNo->setChecked(true);
    FillSensorProject(form, project, 2);
    QCOMPARE(int(project.IsThermocouple), 0);
}

void TestSensorRecord::nameCodes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("codes");
    QTest::newRow("short") << QStringLiteral("Pt_1") << QByteArray("Pt_1");
    QTest::newRow("twenty") << QStringLiteral("abcdefghijklmnopqrst") << QByteArray("abcdefghijklmnopqrst");
    QTest::newRow("longer stops at 20") << QStringLiteral("abcdefghijklmnopqrstuvwxy")
                                        << QByteArray("abcdefghijklmnopqrst");
    QTest::newRow("low bytes") << QStringLiteral("é温") << QByteArray("\xE9\x29"); // U+00E9, U+6E29
}

void TestSensorRecord::nameCodes()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, codes);
    for (const char *type : {"TC", "RTD", "THERM"}) {
        SensorPropertyFrm form;
        FillControls(form, QString::fromLatin1(type), {}, QStringLiteral("C"));
        form.Txtname->setText(name);
        SensorProject project = OldRecord();
        FillSensorProject(form, project, 2);
        QCOMPARE(project.SensorName, name);
        QByteArray expected = codes;
        expected.append(20 - codes.size(), '\0');
        const QByteArray got(reinterpret_cast<const char *>(project.SensorTypeChars.data()), 20);
        QCOMPARE(got, expected);
    }
}

void TestSensorRecord::unitCodeIsOneByte()
{
    SensorPropertyFrm form;
    FillControls(form, QStringLiteral("THERM"), QStringLiteral("5K"), QStringLiteral("kohm"));
    SensorProject project = OldRecord();
    FillSensorProject(form, project, 2);
    QCOMPARE(project.UnitChars.size(), std::size_t(16));
    QCOMPARE(int(project.UnitChars[0]), int('k'));
    for (std::size_t i = 1; i < 16; ++i)
        QCOMPARE(int(project.UnitChars[i]), 0xDD);
}

QTEST_MAIN(TestSensorRecord)
#include "tst_sensor_record.moc"
