/// @file
/// The sensor dialogue from end to end: every sensor that it can define, on each instrument, for a new project and for
/// one that is there, finished by Done and by Enter in each list, and the definition that comes of it.
#include "project/SensorPropertyBench.h"

#include "project/ProjectCommandModule.h"
#include "project/SensorTable.h"

#include <memory>

namespace {

/// A way to finish the dialogue.
struct Finish {
    const char *Name;
    const char *List; ///< whose Enter finishes; none for Done
    const char *Unit; ///< output unit, empty for "None"
    bool UserUnit;
};

constexpr Finish finishes[] = {
    {"Done", "", "kg", false},
    {"Done without an output unit", "", "", false},
    {"Done with a unit of the user", "", "xy", true},
    {"Enter in Combtype", "Combtype", "kg", false},
    {"Enter in Combtype with a unit of the user", "Combtype", "xy", true},
    {"Enter in CombInunit", "CombInunit", "kg", false},
    {"Enter in CombOutunit", "CombOutunit", "kg", false},
};

/// What a user does in the dialogue, from its top to its end. The output unit comes first: a built-in sensor hides it.
void Define(SensorPropertyFrm &form, const ChosenSensor &sensor, const Finish &finish)
{
    Retype(form.Txtname, QStringLiteral("Probe_7"));
    if (finish.UserUnit) {
        Click(form.OptUser);
        Retype(form.TxtUnit, QString::fromLatin1(finish.Unit));
    } else {
        Click(form.OptDefault);
        Choose(form.CombOutunit, *finish.Unit == '\0' ? QStringLiteral("None") : QString::fromLatin1(finish.Unit));
    }
    Choose(form.Combtype, QString::fromLatin1(sensor.Type));
    Choose(form.CombInunit, QString::fromLatin1(sensor.InputUnit));
    if (*sensor.SubType != '\0')
        Choose(form.CombSubType, QString::fromLatin1(sensor.SubType));
    if (*sensor.Standard != '\0') {
        Choose(form.Comboa, QString::fromLatin1(sensor.Standard));
        Retype(form.TextR0, QString::fromLatin1(sensor.Ohms));
    }
    if (*finish.List == '\0') {
        Click(form.ComdEnter);
        return;
    }
    auto *list = form.findChild<ListCombo *>(QString::fromLatin1(finish.List));
    QVERIFY(list->isVisible());
    QTest::keyClick(list, Qt::Key_Return);
}

/// A built-in sensor hides the list of output units.
bool Offered(const ChosenSensor &sensor, const Finish &finish)
{
    return !sensor.BuiltIn() || qstrcmp(finish.List, "CombOutunit") != 0;
}

} // namespace

class TestSensorPropertyRecords : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench = std::make_unique<SensorPropertyBench>(); }
    void cleanup() { m_bench.reset(); }

    void newProjectGetsTheDefinition_data() { AddSensors(); }
    void newProjectGetsTheDefinition();
    void changedProjectGetsTheDefinition_data() { AddSensors(); }
    void changedProjectGetsTheDefinition();
    void doneWithoutAChangeKeepsTheDefinition_data() { AddSensors(); }
    void doneWithoutAChangeKeepsTheDefinition();

private:
    static void AddSensors();

    /// Opens the dialogue by a command and runs a routine that shall finish it, without a box.
    static void Finished(const std::function<void()> &command, const FormRoutine &routine);

    std::unique_ptr<SensorPropertyBench> m_bench;
};

void TestSensorPropertyRecords::AddSensors()
{
    QTest::addColumn<ChosenSensor>("sensor");
    for (const ChosenSensor &sensor : AllSensors())
        QTest::newRow(NameOf(sensor).constData()) << sensor;
}

void TestSensorPropertyRecords::Finished(const std::function<void()> &command, const FormRoutine &routine)
{
    const BoxAnswers none;
    WithDialogue(
        [&routine](SensorPropertyFrm &form) {
            routine(form);
            QVERIFY(!form.isVisible());
        },
        command);
    QVERIFY(!NewProjectMode && !EditProjectMode);
}

/// In a slot that held another project before.
void TestSensorPropertyRecords::newProjectGetsTheDefinition()
{
    QFETCH(ChosenSensor, sensor);
    InstrumentKind = static_cast<std::int16_t>(sensor.Kind);
    int slot = 0;
    for (const Finish &finish : finishes) {
        if (!Offered(sensor, finish))
            continue;
        SensorProjects[slot] = OldRecord();
        Finished(BeginNewProject, [&](SensorPropertyFrm &form) { Define(form, sensor, finish); });
        QCOMPARE(int(ProjectCount), slot + 1);
        const SensorProject expected = RecordOf(sensor, OldRecord(), "Probe_7", finish.Unit, finish.UserUnit);
        if (FieldsOf(SensorProjects[slot]) != FieldsOf(expected))
            qInfo("%s", finish.Name);
        QCOMPARE(FieldsOf(SensorProjects[slot]), FieldsOf(expected));
        ++slot;
    }
}

void TestSensorPropertyRecords::changedProjectGetsTheDefinition()
{
    QFETCH(ChosenSensor, sensor);
    InstrumentKind = static_cast<std::int16_t>(sensor.Kind);
    m_bench->AddProject(0).EndLumoBtn->setEnabled(false);
    for (const Finish &finish : finishes) {
        if (!Offered(sensor, finish))
            continue;
        SensorProject old = OldRecord();
        old.MeasFunction = 5; // fits every instrument
        old.OutputUnitIsUser = 0;
        SensorProjects[0] = old;
        Finished(EditActiveProject, [&](SensorPropertyFrm &form) { Define(form, sensor, finish); });
        const SensorProject expected = RecordOf(sensor, old, "Probe_7", finish.Unit, finish.UserUnit);
        if (FieldsOf(SensorProjects[0]) != FieldsOf(expected))
            qInfo("%s", finish.Name);
        QCOMPARE(FieldsOf(SensorProjects[0]), FieldsOf(expected));
        QCOMPARE(int(ProjectCount), 1);
    }
}

/// What the dialogue shows of a project is what it makes of it. A project that fits no instrument is not shown.
void TestSensorPropertyRecords::doneWithoutAChangeKeepsTheDefinition()
{
    QFETCH(ChosenSensor, sensor);
    InstrumentKind = static_cast<std::int16_t>(sensor.Kind);
    m_bench->AddProject(0).EndLumoBtn->setEnabled(false);
    for (const Finish &finish : finishes) {
        const SensorProject project = RecordOf(sensor, OldRecord(), "Probe_7", finish.Unit, finish.UserUnit);
        SensorProjects[0] = project;
        BoxAnswers answers(sensor.FitsOnceItIsAProject() ? Buttons{} : Buttons{Ok, Ok});
        WithDialogue([](SensorPropertyFrm &form) { Click(form.ComdEnter); }, EditActiveProject);
        SensorProject expected = project;
        if (sensor.FitsOnceItIsAProject() && sensor.BuiltIn())
            expected.OutputUnitIsUser = 0; // the options are not shown, and come up anew
        QCOMPARE(FieldsOf(SensorProjects[0]), FieldsOf(expected));
        QCOMPARE(answers.Texts(), sensor.FitsOnceItIsAProject() ? QStringList()
                                                                : QStringList({deviceWrong.InCurrentLanguage(),
                                                                               typeMissing.InCurrentLanguage()}));
    }
}

QTEST_MAIN(TestSensorPropertyRecords)
#include "tst_sensor_property_records.moc"
