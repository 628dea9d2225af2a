/// @file
/// How the sensor dialogue opens for a new project and for one that is there, how Cancel leaves both, and the command
/// New.
#include "project/SensorPropertyBench.h"

#include "project/ProjectCommandModule.h"
#include "shell/ActiveProject.h"

#include <optional>

namespace {

SensorProject PlainProject(std::int32_t measFunction, const char *inputUnit, const char *outputUnit = "")
{
    SensorProject project;
    project.SensorName = QStringLiteral("Old_1");
    project.MeasFunction = measFunction;
    project.InputUnit = QString::fromLatin1(inputUnit);
    project.OutputUnit = QString::fromLatin1(outputUnit);
    return project;
}

SensorProject BuiltInProject(std::uint8_t kind, std::int32_t measFunction, const char *inputUnit)
{
    SensorProject project = PlainProject(measFunction, inputUnit, inputUnit);
    project.IsBuiltInSensor = true;
    project.BuiltInKind = kind;
    return project;
}

} // namespace

class TestSensorPropertyOpening : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void newStartsFromTheHint_data();
    void newStartsFromTheHint();
    void thermocoupleQuestionIsOutOfReach();
    void keysDoNotReachTheThermocoupleQuestion_data();
    void keysDoNotReachTheThermocoupleQuestion();

    void cancelKeepsProjectAndModes();
    void editOpensWithTheProject_data();
    void editOpensWithTheProject();
    void editRefusesWhatDoesNotFit_data();
    void editRefusesWhatDoesNotFit();
    void editOutputUnit_data();
    void editOutputUnit();
    void editInputUnit_data();
    void editInputUnit();
    void editShowsTheFirstEntryForUnknownCodes();
    void editOpensForAFunctionWithoutAType();
    void editResistanceThermometer();
    void editMakesNoProject();
    void editIsFinishedByEnterInAList_data();
    void editIsFinishedByEnterInAList();

    void newNeedsTheLink_data();
    void newNeedsTheLink();
    void newEnablesTheTableOfPlainSensors();
    void newAfterCancelWithoutProject();

private:
    void OpenEdit(const SensorProject &project, const FormRoutine &routine)
    {
        if (ProjectForm[0] == nullptr)
            m_bench->AddProject(0);
        SensorProjects[0] = project;
        NewProjectMode = false;
        EditProjectMode = true;
        WithDialogue(routine);
    }

    std::optional<SensorPropertyBench> m_bench;
};

void TestSensorPropertyOpening::newStartsFromTheHint_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("hint");
    QTest::addColumn<QString>("title");
    QTest::newRow("English") << 1 << QString::fromUtf8(nameHint.English) << QStringLiteral("Sensor Property");
    QTest::newRow("Chinese") << 0 << QString::fromUtf8(nameHint.Chinese) << QStringLiteral("传感器属性");
}

void TestSensorPropertyOpening::newStartsFromTheHint()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    OpenNew([](SensorPropertyFrm &form) {
        QTEST(form.Txtname->text(), "hint");
        QTEST(form.windowTitle(), "title");
        QVERIFY(form.Txtname->Locked());
        QVERIFY(form.isModal());
        QCOMPARE(form.Combtype->ListIndex(), 0);
        QCOMPARE(form.CombOutunit->ListIndex(), 0);
        QCOMPARE(Entries(form.CombInunit), Words("None"));
        QVERIFY(form.OptDefault->isChecked());
        QVERIFY(!form.OptUser->isChecked());
        QVERIFY(form.CombOutunit->isVisible());
        QVERIFY(!form.TxtUnit->isVisible());
        QVERIFY(form.OptNo->isChecked());
        QVERIFY(!form.OptYes->isChecked());
    });
}

void TestSensorPropertyOpening::thermocoupleQuestionIsOutOfReach()
{
    OpenNew([](SensorPropertyFrm &form) {
        QCOMPARE(form.height(), 3435 / 15);
        QCOMPARE(form.Frame2->y(), 6240 / 15);
        QCOMPARE(form.OptYes->parentWidget(), form.Frame2);
        QCOMPARE(form.OptNo->parentWidget(), form.Frame2);
        QVERIFY(form.LabelbThermocouple->y() >= form.height());
    });
}

void TestSensorPropertyOpening::keysDoNotReachTheThermocoupleQuestion_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("userUnit");
    QTest::addColumn<QStringList>("reached"); // among others
    for (const int key : {int(Qt::Key_Tab), int(Qt::Key_Backtab)}) {
        const char *way = key == Qt::Key_Tab ? "forwards" : "backwards";
        const QString common = QStringLiteral("Txtname Combtype CombInunit ComdEnter ComdCancel ");
        const auto row = [&](const char *type, bool userUnit, const char *fields) {
            QTest::addRow("%s, %s%s", way, type, userUnit ? ", user unit" : "")
                << key << QString::fromLatin1(type) << userUnit
                << (common + QString::fromLatin1(fields)).split(QLatin1Char(' '));
        };
        row("None", false, "CombOutunit");
        row("DCV", true, "OptUser TxtUnit");
        row("TC", false, "CombSubType");
        row("RTD", false, "CombSubType Comboa TextR0");
    }
}

/// A walk through the whole dialogue, with all arrow keys in each control that has the keyboard.
void TestSensorPropertyOpening::keysDoNotReachTheThermocoupleQuestion()
{
    QFETCH(int, key);
    QFETCH(QString, type);
    QFETCH(bool, userUnit);
    QFETCH(QStringList, reached);
    const BoxAnswers none;
    OpenNew([&](SensorPropertyFrm &form) {
        QTRY_VERIFY(form.isActiveWindow());
        QStringList visited;
        const auto press = [&](int pressed) {
            QTest::keyClick(form.focusWidget(), Qt::Key(pressed));
            visited << form.focusWidget()->objectName();
            return form.OptNo->isChecked() && !form.OptYes->isChecked();
        };
        Choose(form.Combtype, type);
        if (userUnit)
            Click(form.OptUser);
        form.Txtname->setFocus();
        for (int step = 0; step < form.findChildren<QWidget *>().size(); ++step)
            QVERIFY(press(key));
        for (const QString &name : reached)
            QVERIFY2(visited.contains(name), qPrintable(name));
        for (QWidget *control : form.findChildren<QWidget *>()) {
            if (!visited.contains(control->objectName()))
                continue;
            for (const int arrow : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}) {
                control->setFocus();
                QVERIFY(press(arrow));
            }
        }
        for (const char *name : {"OptYes", "OptNo", "Frame2"})
            QVERIFY2(!visited.contains(QString::fromLatin1(name)), name);
    });
}

void TestSensorPropertyOpening::cancelKeepsProjectAndModes()
{
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Click(form.ComdCancel);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 0);
    QVERIFY(NewProjectMode);
    QVERIFY(!EditProjectMode);
    OpenEdit(PlainProject(2, "mA", "kg"), [](SensorPropertyFrm &form) {
        Retype(form.Txtname, QStringLiteral("New_2"));
        Choose(form.Combtype, QStringLiteral("4WR"));
        Click(form.ComdCancel);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(SensorProjects[0].SensorName, QStringLiteral("Old_1"));
    QCOMPARE(SensorProjects[0].MeasFunction, 2);
    QVERIFY(EditProjectMode);
    QVERIFY(!NewProjectMode);
}

void TestSensorPropertyOpening::editOpensWithTheProject_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("measFunction");
    QTest::addColumn<int>("builtInKind"); // -1 for a plain sensor
    QTest::addColumn<int>("code");        // letter or ohms
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("subType");
    for (int kind = 0; kind <= 2; ++kind) {
        QTest::addRow("DCV on kind %d", kind) << kind << 0 << -1 << 0 << QStringLiteral("DCV") << -1;
        QTest::addRow("DCI on kind %d", kind) << kind << 2 << -1 << 0 << QStringLiteral("DCI") << -1;
        QTest::addRow("2WR on kind %d", kind) << kind << 4 << -1 << 0 << QStringLiteral("2WR") << -1;
        QTest::addRow("4WR on kind %d", kind) << kind << 5 << -1 << 0 << QStringLiteral("4WR") << -1;
    }
    for (int letter = 0; letter < 8; ++letter)
        QTest::addRow("TC %d", letter) << 2 << 0 << 0 << letter << QStringLiteral("TC") << letter;
    QTest::newRow("RTD-2WR") << 2 << 4 << 1 << 0 << QStringLiteral("RTD") << 0;
    QTest::newRow("RTD-4WR") << 2 << 5 << 1 << 0 << QStringLiteral("RTD") << 1;
    const QList<int> ohms = {2200, 3000, 5000, 10000, 30000};
    for (int i = 0; i < ohms.size(); ++i)
        QTest::addRow("THERM %d", ohms[i]) << 2 << 4 << 2 << ohms[i] << QStringLiteral("THERM") << i;
}

void TestSensorPropertyOpening::editOpensWithTheProject()
{
    QFETCH(int, kind);
    QFETCH(int, measFunction);
    QFETCH(int, builtInKind);
    QFETCH(int, code);
    InstrumentKind = static_cast<std::int16_t>(kind);
    const bool builtIn = builtInKind >= 0;
    SensorProject project = builtIn ? BuiltInProject(static_cast<std::uint8_t>(builtInKind), measFunction, "F")
                                    : PlainProject(measFunction, "V");
    project.TcLetterCode = static_cast<std::uint8_t>(code & 0xFF);
    project.ThermistorOhms = static_cast<std::int16_t>(code);
    const BoxAnswers none;
    OpenEdit(project, [&](SensorPropertyFrm &form) {
        QCOMPARE(form.Txtname->text(), QStringLiteral("Old_1"));
        QVERIFY(!form.Txtname->Locked());
        QTEST(form.Combtype->Text(), "type");
        QTEST(form.CombSubType->ListIndex(), "subType");
        QCOMPARE(form.CombSubType->isVisible(), builtIn);
        QCOMPARE(form.TextR0->isVisible(), builtInKind == 1);
        QCOMPARE(form.OptDefault->isVisible(), !builtIn);
        QCOMPARE(form.OptUser->isVisible(), !builtIn);
        QCOMPARE(form.CombOutunit->isVisible(), !builtIn);
        QVERIFY(!form.TxtUnit->isVisible());
        QCOMPARE(form.CombInunit->ListIndex(), builtIn ? 1 : 0);
    });
}

void TestSensorPropertyOpening::editRefusesWhatDoesNotFit_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("measFunction");
    QTest::addColumn<int>("builtInKind"); // -1 for a plain sensor
    const auto row = [](int kind, const char *name, int measFunction, int builtInKind) {
        for (const int language : {0, 1})
            QTest::addRow("%s on kind %d, %s", name, kind, language == 0 ? "Chinese" : "English")
                << language << kind << measFunction << builtInKind;
    };
    for (int kind = 0; kind <= 2; ++kind) {
        row(kind, "frequency", 9, -1);
        row(kind, "thermocouple input", 10, -1);
    }
    for (int kind = 0; kind <= 1; ++kind) {
        row(kind, "built-in TC", 0, 0);
        row(kind, "built-in RTD-2WR", 4, 1);
        row(kind, "built-in RTD-4WR", 5, 1);
        row(kind, "built-in THERM", 4, 2);
    }
}

void TestSensorPropertyOpening::editRefusesWhatDoesNotFit()
{
    QFETCH(int, language);
    QFETCH(int, kind);
    QFETCH(int, measFunction);
    QFETCH(int, builtInKind);
    CurrentLanguage = language;
    InstrumentKind = static_cast<std::int16_t>(kind);
    const SensorProject project = builtInKind >= 0
                                      ? BuiltInProject(static_cast<std::uint8_t>(builtInKind), measFunction, "C")
                                      : PlainProject(measFunction, "Hz");
    BoxAnswers answers({Ok});
    OpenEdit(project, [](SensorPropertyFrm &form) {
        QCOMPARE(form.Combtype->ListIndex(), 0);
        QCOMPARE(form.Combtype->Text(), QStringLiteral("None"));
        QCOMPARE(form.CombOutunit->ListIndex(), 0);
        QCOMPARE(form.Txtname->text(), QStringLiteral("Old_1"));
        QVERIFY(form.Txtname->Locked());
        QVERIFY(form.OptDefault->isChecked());
        QVERIFY(form.CombOutunit->isVisible());
        QVERIFY(!form.TxtUnit->isVisible());
        QVERIFY(!form.CombSubType->isVisible());
        QVERIFY(form.OptNo->isChecked());
    });
    QCOMPARE(answers.Texts(), QStringList{deviceWrong.InCurrentLanguage()});
    QCOMPARE(answers.Shown().front().Icon, QMessageBox::Information);
}

void TestSensorPropertyOpening::editOutputUnit_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("isUser");
    QTest::addColumn<int>("index");
    QTest::newRow("none") << QString() << 0 << 0;
    QTest::newRow("kPa") << QStringLiteral("kPa") << 0 << 7;
    QTest::newRow("Gy") << QStringLiteral("Gy") << 0 << 16;
    QTest::newRow("not in the list") << QStringLiteral("KPA") << 0 << 0;
    QTest::newRow("user unit") << QStringLiteral("xy") << 1 << 0;
    QTest::newRow("user unit that is in the list") << QStringLiteral("kg") << 1 << 0;
}

void TestSensorPropertyOpening::editOutputUnit()
{
    QFETCH(QString, unit);
    QFETCH(int, isUser);
    SensorProject project = PlainProject(0, "V");
    project.OutputUnit = unit;
    project.OutputUnitIsUser = static_cast<std::uint8_t>(isUser);
    OpenEdit(project, [&](SensorPropertyFrm &form) {
        QCOMPARE(form.OptUser->isChecked(), isUser == 1);
        QCOMPARE(form.OptDefault->isChecked(), isUser == 0);
        QCOMPARE(form.CombOutunit->isVisible(), isUser == 0);
        QCOMPARE(form.TxtUnit->isVisible(), isUser == 1);
        QTEST(form.CombOutunit->ListIndex(), "index");
        QCOMPARE(form.TxtUnit->text(), isUser == 1 ? unit : QString());
    });
}

void TestSensorPropertyOpening::editInputUnit_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<SensorProject>("project");
    QTest::addColumn<int>("index");
    const auto plain = [](int kind, int measFunction, const char *unit, int index) {
        QTest::addRow("%s of function %d on kind %d", unit, measFunction, kind)
            << kind << PlainProject(measFunction, unit) << index;
    };
    plain(2, 0, "V", 0);
    plain(2, 0, "mV", 1);
    plain(2, 2, "A", 0);
    plain(2, 2, "mA", 1);
    plain(1, 2, "uA", 2);
    plain(2, 2, "uA", 2);
    plain(2, 4, "ohm", 0);
    plain(2, 5, "kohm", 1);
    plain(2, 0, "unknown", 0);
    // By the unit's text alone. A project of frequencies is refused, so its units come with other functions only.
    plain(2, 2, "Hz", 0);
    plain(2, 2, "mHz", 1);
    plain(2, 2, "kHz", 2);
    // The list ends ahead of the unit's place.
    plain(0, 2, "uA", 0);
    plain(2, 0, "kHz", 0);
    plain(2, 2, "MHz", 0);
    const auto builtIn = [](std::uint8_t kind, const char *unit, int index) {
        QTest::addRow("%s of built-in kind %d", unit, kind) << 2 << BuiltInProject(kind, 4, unit) << index;
    };
    for (const std::uint8_t kind : {BuiltInKindCode::Thermocouple, BuiltInKindCode::Rtd, BuiltInKindCode::Thermistor}) {
        builtIn(kind, "C", 0);
        builtIn(kind, "F", 1);
        builtIn(kind, "K", 2);
    }
}

void TestSensorPropertyOpening::editInputUnit()
{
    QFETCH(int, kind);
    QFETCH(SensorProject, project);
    QFETCH(int, index);
    InstrumentKind = static_cast<std::int16_t>(kind);
    const BoxAnswers none;
    OpenEdit(project, [index](SensorPropertyFrm &form) { QCOMPARE(form.CombInunit->ListIndex(), index); });
}

/// As a damaged project can have them.
void TestSensorPropertyOpening::editShowsTheFirstEntryForUnknownCodes()
{
    const BoxAnswers none;
    SensorProject rtd = BuiltInProject(BuiltInKindCode::Rtd, 4, "C");
    rtd.RtdCode = 9;
    OpenEdit(rtd, [](SensorPropertyFrm &form) {
        QCOMPARE(form.Combtype->Text(), QStringLiteral("RTD"));
        QCOMPARE(form.Comboa->ListIndex(), 0);
        QCOMPARE(form.Comboa->Text(), QStringLiteral("Pt385"));
    });
    SensorProject thermocouple = BuiltInProject(BuiltInKindCode::Thermocouple, 0, "C");
    thermocouple.TcLetterCode = 9;
    OpenEdit(thermocouple, [](SensorPropertyFrm &form) {
        QCOMPARE(form.Combtype->Text(), QStringLiteral("TC"));
        QCOMPARE(form.CombSubType->ListIndex(), 0);
        QCOMPARE(form.CombSubType->Text(), QStringLiteral("B"));
    });
    SensorProject thermistor = BuiltInProject(BuiltInKindCode::Thermistor, 4, "C");
    thermistor.ThermistorOhms = 9;
    OpenEdit(thermistor, [](SensorPropertyFrm &form) {
        QCOMPARE(form.Combtype->Text(), QStringLiteral("THERM"));
        QCOMPARE(form.CombSubType->ListIndex(), 0);
        QCOMPARE(form.CombSubType->Text(), QStringLiteral("2.2K"));
    });
}

void TestSensorPropertyOpening::editOpensForAFunctionWithoutAType()
{
    const BoxAnswers none;
    SensorProject damaged;
    damaged.SensorName = QStringLiteral("Odd");
    damaged.MeasFunction = 3;
    damaged.InputUnit = QStringLiteral("mV");
    OpenEdit(damaged, [](SensorPropertyFrm &form) {
        QCOMPARE(form.Txtname->text(), QStringLiteral("Odd"));
        QCOMPARE(form.CombInunit->ListCount(), 0);
    });
}

void TestSensorPropertyOpening::editResistanceThermometer()
{
    for (int standard = 0; standard < 4; ++standard) {
        SensorProject project = BuiltInProject(1, 5, "K");
        project.RtdCode = static_cast<std::uint8_t>(standard);
        project.RtdR0 = 1000.5F;
        OpenEdit(project, [standard](SensorPropertyFrm &form) {
            QCOMPARE(form.CombSubType->Text(), QStringLiteral("RTD-4WR"));
            QCOMPARE(form.TextR0->text(), QStringLiteral("1000.5"));
            QCOMPARE(form.Comboa->ListIndex(), standard);
            QVERIFY(form.Comboa->isVisible());
            QVERIFY(form.Labela->isVisible());
            QVERIFY(form.LabelParameter->isVisible());
            QCOMPARE(form.CombInunit->Text(), QStringLiteral("K"));
        });
    }
}

void TestSensorPropertyOpening::editMakesNoProject()
{
    PutRow(0, 1, 1.0, 2.0);
    OpenEdit(PlainProject(4, "kohm", "kg"), [](SensorPropertyFrm &form) {
        Click(form.ComdEnter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QVERIFY(!ProjectOccupied[1]);
    QVERIFY(!EditProjectMode);
    QVERIFY(!NewProjectMode);
    QCOMPARE(ProjectForm[0]->EditDataView->LineCount(), 1);
    QVERIFY(ReferenceTable[0][1].Used);
}

void TestSensorPropertyOpening::editIsFinishedByEnterInAList_data()
{
    QTest::addColumn<QString>("list");
    for (const char *list : {"Combtype", "CombInunit", "CombOutunit"})
        QTest::newRow(list) << QString::fromLatin1(list);
}

void TestSensorPropertyOpening::editIsFinishedByEnterInAList()
{
    QFETCH(QString, list);
    const BoxAnswers none;
    OpenEdit(PlainProject(4, "kohm", "kg"), [&list](SensorPropertyFrm &form) {
        QTest::keyClick(form.findChild<ListCombo *>(list), Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QVERIFY(!EditProjectMode);
    QVERIFY(!NewProjectMode);
    QCOMPARE(int(ProjectCount), 1);
}

void TestSensorPropertyOpening::newNeedsTheLink_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}

void TestSensorPropertyOpening::newNeedsTheLink()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    LinkUp = false;
    EditProjectMode = true;
    BoxAnswers answers({Ok});
    BeginNewProject();
    QCOMPARE(answers.Texts(), QStringList{notConnected.InCurrentLanguage()});
    QCOMPARE(answers.Shown().front().Icon, QMessageBox::Warning);
    QVERIFY(NewProjectMode);
    QVERIFY(!EditProjectMode);
    QCOMPARE(int(ProjectCount), 0);
}

void TestSensorPropertyOpening::newEnablesTheTableOfPlainSensors()
{
    for (const bool builtIn : {false, true}) {
        WithDialogue(
            [builtIn](SensorPropertyFrm &form) {
                FillGood(form, builtIn ? QStringLiteral("TC") : QStringLiteral("DCV"));
                Click(form.ComdEnter);
            },
            [] { BeginNewProject(); });
        QCOMPARE(SensorProjects[ActiveSlot()].IsBuiltInSensor, builtIn);
        QCOMPARE(ActiveProjectForm()->EditDataView->isEnabled(), !builtIn);
    }
    QCOMPARE(int(ProjectCount), 2);
    // A cancelled New looks after the active project as well.
    ActiveProjectForm()->EditDataView->setEnabled(true);
    WithDialogue([](SensorPropertyFrm &form) { Click(form.ComdCancel); }, [] { BeginNewProject(); });
    QVERIFY(!ActiveProjectForm()->EditDataView->isEnabled());
    QVERIFY(NewProjectMode);
}

void TestSensorPropertyOpening::newAfterCancelWithoutProject()
{
    WithDialogue([](SensorPropertyFrm &form) { Click(form.ComdCancel); }, [] { BeginNewProject(); });
    QCOMPARE(int(ProjectCount), 0);
    QVERIFY(ActiveProjectForm() == nullptr);
}

QTEST_MAIN(TestSensorPropertyOpening)
#include "tst_sensor_property_opening.moc"
