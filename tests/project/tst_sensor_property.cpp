/// @file
/// The sensor dialogue: its lists, its checks and both ways of finishing it, with real keys and clicks, and the command
/// New that opens it.
#include "project/LifecycleModule.h"
#include "project/ProjectCommandModule.h"
#include "project/SensorPropertyFrm.h"
#include "project/SensorPropertyModule.h"
#include "shell/ActiveProject.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QScopeGuard>

#include <memory>

using Buttons = QList<QMessageBox::StandardButton>;

namespace {

constexpr auto Ok = QMessageBox::Ok;

/// A text in both languages.
struct Text {
    const char *English;
    const char *Chinese;

    QString InCurrentLanguage() const { return QString::fromUtf8(CurrentLanguage == 0 ? Chinese : English); }
};

constexpr Text nameHint{"<Input sensor name here>", "<输入传感器名称>"};
constexpr Text nameMissing{"Please input sensor name! ", "请输入传感器名称! "};
constexpr Text nameCutByDone{"The character number of Sensor name is limited not more than 9! ",
                             "传感器名称字符不超过9个! "};
constexpr Text nameCutOnLeaving{"The character number of Sensor name is limited not more than 9! ",
                                "传感器名称字符不能超过9个! "};
constexpr Text nameCutByList{"The character number of Sensor name is limited less than 20! ",
                             "传感器名称字符不超过20个! "};
constexpr Text typeMissing{"Please select right type and unit! ", "请选择合适的类型和单位! "};
constexpr Text unitMissing{"Please input unit! ", "请输入单位! "};
constexpr Text unitCut{"The character number of output unit is limited not more than 2! ", "输出单位字符不能超过2个! "};
constexpr Text typeUnsupported{"Don't support this sensor type at present! ", "目前不支持此类型传感器! "};
constexpr Text parameterMissing{"The parameter can not be empty! ", "参数值不能为空! "};
constexpr Text parameterWrong{"The parameter value must between 49 and 2100ohm! ",
                              "参数阻值范围必须在49-2100ohm之间! "};
constexpr Text deviceWrong{"Device can not match.Please create new project! ", "当前工程与设备不匹配，请建立新工程！ "};
constexpr Text notConnected{"Please connect to the instrument! ", "请和仪器连接! "};

const QString userType = QStringLiteral("Volume"); ///< a type that nobody knows

QStringList Entries(const ListCombo *list)
{
    QStringList entries;
    for (int i = 0; i < list->ListCount(); ++i)
        entries << list->itemText(i);
    return entries;
}

QStringList Words(const char *words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// Chooses an entry as a user does without the mouse.
void Choose(ListCombo *list, int index)
{
    QTest::keyClick(list, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(list, Qt::Key_Down);
}

void Choose(ListCombo *list, const QString &text)
{
    Choose(list, list->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

void Type(TextBox *box, const QString &text)
{
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, text);
}

void Click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

/// A form with a good name and a type from the list.
void FillGood(SensorPropertyFrm &form, const QString &type = QStringLiteral("DCV"))
{
    Type(form.Txtname, QStringLiteral("Probe"));
    Choose(form.Combtype, type);
}

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

class TestSensorProperty : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void nameKeys();
    void unitKeys();
    void hintOfEitherLanguageIsKnown();

    void typesDependOnTheInstrument_data();
    void typesDependOnTheInstrument();
    void typeDecidesWhatIsOffered_data();
    void typeDecidesWhatIsOffered();
    void typesOutsideTheListAreKnown_data();
    void typesOutsideTheListAreKnown();
    void outputUnitsAreFixed();
    void subTypeOfResistanceThermometerOffersStandards();
    void changeFromRtdToVoltageHidesItsFields();
    void optionsSwitchTheOutputUnit();
    void userUnitStaysThroughAChangeOfType();

    void newStartsFromTheHint_data();
    void newStartsFromTheHint();
    void thermocoupleQuestionIsOutOfReach();

    void firstKeyReplacesTheHint_data();
    void firstKeyReplacesTheHint();
    void otherKeysAreSwallowedInTheName();
    void otherKeysAreSwallowedInTheUnit();
    void mousePressEmptiesALockedNameOnly();
    void leavingANameWithSelection_data();
    void leavingANameWithSelection();
    void leavingAUnitWithSelection_data();
    void leavingAUnitWithSelection();

    void doneChecksInOrder_data();
    void doneChecksInOrder();
    void doneCutsTheUnitWithDefaultUnitsToo();
    void doneTestsTheResistance_data();
    void doneTestsTheResistance();
    void doneMakesTheProject_data();
    void doneMakesTheProject();
    void enterInTextsIsDone();
    void doneFillsTheLists();

    void listEnterChecksInOrder_data();
    void listEnterChecksInOrder();
    void listEnterRefusesNoOutputUnitWhereDoneAccepts();
    void longNameIsCutByDoneAndNotByAList();
    void listEnterCutsAtTwentyAndGoesOn_data();
    void listEnterCutsAtTwentyAndGoesOn();
    void listEnterLooksNeitherAtUnitNorAtResistance();
    void listEnterRefreshesNoList();
    void otherKeysInListsFinishNothing();

    void cancelKeepsProjectAndModes();
    void editOpensWithTheProject_data();
    void editOpensWithTheProject();
    void editRefusesWhatDoesNotFit_data();
    void editRefusesWhatDoesNotFit();
    void editOutputUnit_data();
    void editOutputUnit();
    void editInputUnit_data();
    void editInputUnit();
    void editResistanceThermometer();
    void editMakesNoProject();

    void newNeedsTheLink_data();
    void newNeedsTheLink();
    void newEnablesTheTableOfPlainSensors();
    void newAfterCancelWithoutProject();

private:
    /// Opens the dialogue, runs a routine on it and, where it is still open then, closes it.
    void WithDialogue(
        const std::function<void(SensorPropertyFrm &)> &routine,
        const std::function<void()> &open = [] { ShowSensorProperty(); })
    {
        const WhenModal answer(QStringLiteral("SensorPropertyFrm"), [&](QWidget *dialog) {
            auto &form = *qobject_cast<SensorPropertyFrm *>(dialog);
            const auto closed = qScopeGuard([&form] {
                if (form.isVisible())
                    form.reject();
            });
            routine(form);
        });
        open();
    }

    void OpenNew(const std::function<void(SensorPropertyFrm &)> &routine)
    {
        NewProjectMode = true;
        EditProjectMode = false;
        WithDialogue(routine);
    }

    void OpenEdit(const SensorProject &project, const std::function<void(SensorPropertyFrm &)> &routine)
    {
        if (ProjectForm[0] == nullptr)
            m_frame->AddProject(0);
        SensorProjects[0] = project;
        NewProjectMode = false;
        EditProjectMode = true;
        WithDialogue(routine);
    }

    std::unique_ptr<BareFrame> m_frame;
};

void TestSensorProperty::init()
{
    m_frame = std::make_unique<BareFrame>();
    connect(&m_frame->frame, &MainFrm::ProjectWindowMade, &m_frame->frame,
            [](SensorProjFrm *form) { ConnectLifecycle(*form); });
    InstrumentKind = 2;
    LinkUp = true;
}

void TestSensorProperty::cleanup()
{
    m_frame.reset();
}

void TestSensorProperty::nameKeys()
{
    const QString accepted = QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_");
    for (int key = 0; key < 0x250; ++key) {
        const bool expected = key == 8 || key == 13 || (key > 0 && accepted.contains(QChar(key)));
        QVERIFY2(SensorNameKeyPasses(key) == expected, qPrintable(QString::number(key)));
    }
    QVERIFY(!SensorNameKeyPasses(U'温'));
    QVERIFY(!SensorNameKeyPasses(0x10041)); // "A" in its low bits alone
}

void TestSensorProperty::unitKeys()
{
    const QString accepted = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    for (int key = 0; key < 0x250; ++key) {
        const bool expected = key == 8 || key == 13 || (key > 0 && accepted.contains(QChar(key)));
        QVERIFY2(OutputUnitKeyPasses(key) == expected, qPrintable(QString::number(key)));
    }
    QVERIFY(!OutputUnitKeyPasses(U'℃'));
}

void TestSensorProperty::hintOfEitherLanguageIsKnown()
{
    for (const std::int32_t language : {0, 1}) {
        CurrentLanguage = language;
        QVERIFY(IsSensorNameHint(QString::fromUtf8(nameHint.English)));
        QVERIFY(IsSensorNameHint(QString::fromUtf8(nameHint.Chinese)));
        QVERIFY(!IsSensorNameHint(QString()));
        QVERIFY(!IsSensorNameHint(QStringLiteral("<Input sensor name here> ")));
        QVERIFY(!IsSensorNameHint(QStringLiteral("Probe")));
    }
}

void TestSensorProperty::typesDependOnTheInstrument_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("types");
    QTest::newRow("unrecognised") << 0 << Words("None DCV DCI 2WR 4WR Frequency");
    QTest::newRow("KV7050") << 1 << Words("None DCV DCI 2WR 4WR Frequency TC");
    QTest::newRow("KV7060") << 2 << Words("None DCV DCI 2WR 4WR Frequency TC RTD THERM");
}

void TestSensorProperty::typesDependOnTheInstrument()
{
    QFETCH(int, kind);
    QFETCH(QStringList, types);
    InstrumentKind = static_cast<std::int16_t>(kind);
    OpenNew([&](SensorPropertyFrm &form) { QCOMPARE(Entries(form.Combtype), types); });
}

void TestSensorProperty::typeDecidesWhatIsOffered_data()
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

void TestSensorProperty::typeDecidesWhatIsOffered()
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

void TestSensorProperty::typesOutsideTheListAreKnown_data()
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

void TestSensorProperty::typesOutsideTheListAreKnown()
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

void TestSensorProperty::outputUnitsAreFixed()
{
    OpenNew([](SensorPropertyFrm &form) {
        QCOMPARE(Entries(form.CombOutunit), Words("None g kg m km N Pa kPa J kJ W kW lm lx cd Bq Gy"));
    });
}

void TestSensorProperty::subTypeOfResistanceThermometerOffersStandards()
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

void TestSensorProperty::changeFromRtdToVoltageHidesItsFields()
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

void TestSensorProperty::optionsSwitchTheOutputUnit()
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

void TestSensorProperty::userUnitStaysThroughAChangeOfType()
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

void TestSensorProperty::newStartsFromTheHint_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("hint");
    QTest::addColumn<QString>("title");
    QTest::newRow("English") << 1 << QString::fromUtf8(nameHint.English) << QStringLiteral("Sensor Property");
    QTest::newRow("Chinese") << 0 << QString::fromUtf8(nameHint.Chinese) << QStringLiteral("传感器属性");
}

void TestSensorProperty::newStartsFromTheHint()
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

void TestSensorProperty::thermocoupleQuestionIsOutOfReach()
{
    OpenNew([](SensorPropertyFrm &form) {
        QCOMPARE(form.height(), 3435 / 15);
        QCOMPARE(form.Frame2->y(), 6240 / 15);
        QCOMPARE(form.OptYes->parentWidget(), form.Frame2);
        QCOMPARE(form.OptNo->parentWidget(), form.Frame2);
        QVERIFY(form.LabelbThermocouple->y() >= form.height());
    });
}

void TestSensorProperty::firstKeyReplacesTheHint_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}

void TestSensorProperty::firstKeyReplacesTheHint()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    OpenNew([](SensorPropertyFrm &form) {
        QTest::keyClick(form.Txtname, 'P');
        QCOMPARE(form.Txtname->text(), QStringLiteral("P"));
        QVERIFY(!form.Txtname->Locked());
        QTest::keyClicks(form.Txtname, QStringLiteral("t_1"));
        QCOMPARE(form.Txtname->text(), QStringLiteral("Pt_1"));
        QTest::keyClick(form.Txtname, Qt::Key_Backspace);
        QCOMPARE(form.Txtname->text(), QStringLiteral("Pt_"));
    });
}

void TestSensorProperty::otherKeysAreSwallowedInTheName()
{
    OpenNew([](SensorPropertyFrm &form) {
        QTest::keyClicks(form.Txtname, QStringLiteral("a b-c.d/e\"f;"));
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdef"));
        QInputMethodEvent event;
        event.setCommitString(QStringLiteral("温g"));
        QApplication::sendEvent(form.Txtname, &event);
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdefg"));
        QApplication::clipboard()->setText(QStringLiteral("pasted"));
        QTest::keyClick(form.Txtname, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdefg"));
    });
}

void TestSensorProperty::otherKeysAreSwallowedInTheUnit()
{
    OpenNew([](SensorPropertyFrm &form) {
        Click(form.OptUser);
        QTest::keyClicks(form.TxtUnit, QStringLiteral("1m_ /%"));
        QCOMPARE(form.TxtUnit->text(), QStringLiteral("m"));
        QTest::keyClick(form.TxtUnit, Qt::Key_Backspace);
        QCOMPARE(form.TxtUnit->text(), QString());
    });
}

void TestSensorProperty::mousePressEmptiesALockedNameOnly()
{
    OpenNew([](SensorPropertyFrm &form) {
        QTest::mouseClick(form.Txtname, Qt::LeftButton);
        QCOMPARE(form.Txtname->text(), QString());
        QVERIFY(!form.Txtname->Locked());
        QTest::keyClicks(form.Txtname, QStringLiteral("Pt"));
        QTest::mouseClick(form.Txtname, Qt::LeftButton);
        QCOMPARE(form.Txtname->text(), QStringLiteral("Pt"));
    });
}

void TestSensorProperty::leavingANameWithSelection_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<QString>("left");
    QTest::addColumn<bool>("box");
    for (const int language : {0, 1}) {
        const char *tongue = language == 0 ? "Chinese" : "English";
        const QString hint = QString::fromUtf8(language == 0 ? nameHint.Chinese : nameHint.English);
        const QString otherHint = QString::fromUtf8(language == 0 ? nameHint.English : nameHint.Chinese);
        QTest::addRow("%s, hint", tongue) << language << hint << true << QString() << false;
        QTest::addRow("%s, hint of the other language", tongue) << language << otherHint << true << QString() << false;
        QTest::addRow("%s, hint not selected", tongue) << language << hint << false << hint << false;
        QTest::addRow("%s, nine", tongue)
            << language << QStringLiteral("abcdefghi") << true << QStringLiteral("abcdefghi") << false;
        QTest::addRow("%s, ten", tongue) << language << QStringLiteral("abcdefghij") << true
                                         << QStringLiteral("abcdefghi") << true;
        QTest::addRow("%s, ten not selected", tongue)
            << language << QStringLiteral("abcdefghij") << false << QStringLiteral("abcdefghij") << false;
    }
}

void TestSensorProperty::leavingANameWithSelection()
{
    QFETCH(int, language);
    QFETCH(QString, name);
    QFETCH(bool, selected);
    QFETCH(QString, left);
    QFETCH(bool, box);
    CurrentLanguage = language;
    OpenNew([&](SensorPropertyFrm &form) {
        QTRY_VERIFY(form.isActiveWindow());
        form.Txtname->setFocus();
        QTRY_VERIFY(form.Txtname->hasFocus());
        form.Txtname->setText(name);
        if (selected)
            form.Txtname->setSelection(0, 3);
        else
            form.Txtname->deselect();
        BoxAnswers answers(box ? Buttons{Ok} : Buttons{});
        QTest::keyClick(form.Txtname, Qt::Key_Tab);
        QCOMPARE(form.Txtname->text(), left);
        if (!box) {
            QVERIFY(!form.Txtname->hasFocus());
            return;
        }
        QCOMPARE(answers.Texts(), QStringList{nameCutOnLeaving.InCurrentLanguage()});
        QCOMPARE(answers.Shown().front().Icon, QMessageBox::Information);
        // The keyboard comes back with the window, which nobody but a window manager brings back to the front.
        QCOMPARE(form.focusWidget(), form.Txtname);
        form.activateWindow();
        QTRY_VERIFY(form.Txtname->hasFocus());
        QCOMPARE(form.Txtname->cursorPosition(), 9);
        QVERIFY(!form.Txtname->hasSelectedText());
    });
}

void TestSensorProperty::leavingAUnitWithSelection_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<QString>("left");
    QTest::addColumn<bool>("box");
    for (const int language : {0, 1}) {
        const char *tongue = language == 0 ? "Chinese" : "English";
        QTest::addRow("%s, two", tongue) << language << QStringLiteral("ab") << true << QStringLiteral("ab") << false;
        QTest::addRow("%s, three", tongue) << language << QStringLiteral("abc") << true << QStringLiteral("ab") << true;
        QTest::addRow("%s, three not selected", tongue)
            << language << QStringLiteral("abc") << false << QStringLiteral("abc") << false;
    }
}

void TestSensorProperty::leavingAUnitWithSelection()
{
    QFETCH(int, language);
    QFETCH(QString, unit);
    QFETCH(bool, selected);
    QFETCH(QString, left);
    QFETCH(bool, box);
    CurrentLanguage = language;
    OpenNew([&](SensorPropertyFrm &form) {
        QTRY_VERIFY(form.isActiveWindow());
        Click(form.OptUser);
        form.TxtUnit->setFocus();
        QTRY_VERIFY(form.TxtUnit->hasFocus());
        form.TxtUnit->setText(unit);
        if (selected)
            form.TxtUnit->selectAll();
        BoxAnswers answers(box ? Buttons{Ok} : Buttons{});
        QTest::keyClick(form.TxtUnit, Qt::Key_Tab);
        QCOMPARE(form.TxtUnit->text(), left);
        if (!box) {
            QVERIFY(!form.TxtUnit->hasFocus());
            return;
        }
        QCOMPARE(answers.Texts(), QStringList{unitCut.InCurrentLanguage()});
        QCOMPARE(answers.Shown().front().Icon, QMessageBox::Information);
        // The keyboard comes back with the window, which nobody but a window manager brings back to the front.
        QCOMPARE(form.focusWidget(), form.TxtUnit);
        form.activateWindow();
        QTRY_VERIFY(form.TxtUnit->hasFocus());
        QCOMPARE(form.TxtUnit->cursorPosition(), 2);
        QVERIFY(!form.TxtUnit->hasSelectedText());
    });
}

void TestSensorProperty::doneChecksInOrder_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}

/// Every failure is put right in turn, while the later ones still stand.
void TestSensorProperty::doneChecksInOrder()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    OpenNew([](SensorPropertyFrm &form) {
        const auto refused = [&form](const Text &text, QMessageBox::Icon icon) {
            BoxAnswers answers({Ok});
            Click(form.ComdEnter);
            const bool open = form.isVisible() && ProjectCount == 0 && NewProjectMode;
            return open && answers.Texts() == QStringList{text.InCurrentLanguage()} &&
                   answers.Shown().front().Icon == icon && answers.Shown().front().Title == QStringLiteral("Ostrakon");
        };
        form.Combtype->AddItem(userType);
        Click(form.OptUser);
        QVERIFY(refused(nameMissing, QMessageBox::Warning));
        form.Txtname->setText(QString::fromUtf8(CurrentLanguage == 0 ? nameHint.English : nameHint.Chinese));
        QVERIFY(refused(nameMissing, QMessageBox::Warning));
        form.Txtname->clear();
        QVERIFY(refused(nameMissing, QMessageBox::Warning));
        Type(form.Txtname, QStringLiteral("abcdefghij"));
        QVERIFY(refused(nameCutByDone, QMessageBox::Information));
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdefghi"));
        QVERIFY(refused(typeMissing, QMessageBox::Warning));
        Choose(form.Combtype, userType);
        QVERIFY(refused(unitMissing, QMessageBox::Warning));
        Type(form.TxtUnit, QStringLiteral("abc"));
        QVERIFY(refused(unitCut, QMessageBox::Information));
        QCOMPARE(form.TxtUnit->text(), QStringLiteral("ab"));
        QVERIFY(refused(typeUnsupported, QMessageBox::Warning));
        Choose(form.Combtype, QStringLiteral("RTD"));
        Type(form.TextR0, QString());
        QVERIFY(refused(parameterMissing, QMessageBox::Warning));
        Type(form.TextR0, QStringLiteral("2101"));
        QVERIFY(refused(parameterWrong, QMessageBox::Warning));
        Type(form.TextR0, QStringLiteral("500"));
        const BoxAnswers none;
        Click(form.ComdEnter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(SensorProjects[0].RtdR0, 500.0F);
    QVERIFY(!NewProjectMode);
}

void TestSensorProperty::doneCutsTheUnitWithDefaultUnitsToo()
{
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Click(form.OptUser);
        Type(form.TxtUnit, QStringLiteral("abcd"));
        Click(form.OptDefault);
        BoxAnswers answers({Ok});
        Click(form.ComdEnter);
        QCOMPARE(answers.Texts(), QStringList{unitCut.InCurrentLanguage()});
        QCOMPARE(form.TxtUnit->text(), QStringLiteral("ab"));
        QVERIFY(form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 0);
}

void TestSensorProperty::doneTestsTheResistance_data()
{
    QTest::addColumn<QString>("ohms");
    QTest::addColumn<bool>("passes");
    QTest::newRow("48.9") << QStringLiteral("48.9") << false;
    QTest::newRow("49") << QStringLiteral("49") << true;
    QTest::newRow("2100") << QStringLiteral("2100") << true;
    QTest::newRow("2100.5") << QStringLiteral("2100.5") << false;
    QTest::newRow("no number") << QStringLiteral("abc") << false;
    QTest::newRow("negative") << QStringLiteral("-100") << false;
}

void TestSensorProperty::doneTestsTheResistance()
{
    QFETCH(QString, ohms);
    QFETCH(bool, passes);
    for (const int subType : {0, 1}) {
        const int before = ProjectCount;
        OpenNew([&](SensorPropertyFrm &form) {
            FillGood(form, QStringLiteral("RTD"));
            Choose(form.CombSubType, subType);
            Type(form.TextR0, ohms);
            BoxAnswers answers(passes ? Buttons{} : Buttons{Ok});
            Click(form.ComdEnter);
            QCOMPARE(answers.Texts(), passes ? QStringList{} : QStringList{parameterWrong.InCurrentLanguage()});
            QCOMPARE(form.isVisible(), !passes);
        });
        QCOMPARE(ProjectCount - before, passes ? 1 : 0);
    }
}

void TestSensorProperty::doneMakesTheProject_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("measFunction");
    QTest::addColumn<bool>("builtIn");
    QTest::newRow("DCV") << QStringLiteral("DCV") << 0 << false;
    QTest::newRow("Frequency") << QStringLiteral("Frequency") << 9 << false;
    QTest::newRow("TC") << QStringLiteral("TC") << 0 << true;
    QTest::newRow("RTD") << QStringLiteral("RTD") << 4 << true;
    QTest::newRow("THERM") << QStringLiteral("THERM") << 4 << true;
}

/// The default output unit stands on "None" all along.
void TestSensorProperty::doneMakesTheProject()
{
    QFETCH(QString, type);
    OpenNew([&](SensorPropertyFrm &form) {
        FillGood(form, type);
        QCOMPARE(form.CombOutunit->ListIndex(), 0);
        const BoxAnswers none;
        Click(form.ComdEnter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QVERIFY(ProjectOccupied[0]);
    QCOMPARE(SensorProjects[0].SensorName, QStringLiteral("Probe"));
    QTEST(SensorProjects[0].MeasFunction, "measFunction");
    QTEST(SensorProjects[0].IsBuiltInSensor, "builtIn");
    QVERIFY(!NewProjectMode);
    QVERIFY(!EditProjectMode);
}

void TestSensorProperty::enterInTextsIsDone()
{
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        QTest::keyClick(form.Txtname, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Click(form.OptUser);
        QTest::keyClicks(form.TxtUnit, QStringLiteral("xy"));
        QTest::keyClick(form.TxtUnit, Qt::Key_Enter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(SensorProjects[1].OutputUnit, QStringLiteral("xy"));
    OpenNew([](SensorPropertyFrm &form) {
        BoxAnswers answers({Ok});
        QTest::keyClick(form.Txtname, Qt::Key_Return);
        QCOMPARE(answers.Texts(), QStringList{nameMissing.InCurrentLanguage()});
        QVERIFY(form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
}

void TestSensorProperty::doneFillsTheLists()
{
    const SensorProjFrm &other = m_frame->AddProject(0);
    PutRow(0, 1, 1.0, 2.0);
    QCOMPARE(other.EditDataView->LineCount(), 0);
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Click(form.ComdEnter);
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(other.EditDataView->LineCount(), 1);
}

void TestSensorProperty::listEnterChecksInOrder_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("list");
    for (const int language : {0, 1}) {
        for (const char *list : {"Combtype", "CombInunit", "CombOutunit"})
            QTest::addRow("%s %s", list, language == 0 ? "Chinese" : "English")
                << language << QString::fromLatin1(list);
    }
}

/// Every failure is put right in turn, while the later ones still stand.
void TestSensorProperty::listEnterChecksInOrder()
{
    QFETCH(int, language);
    QFETCH(QString, list);
    CurrentLanguage = language;
    OpenNew([&list](SensorPropertyFrm &form) {
        auto *combo = form.findChild<ListCombo *>(list);
        const auto refused = [&form, combo](const Text &text) {
            BoxAnswers answers({Ok});
            QTest::keyClick(combo, Qt::Key_Return);
            const bool open = form.isVisible() && ProjectCount == 0 && NewProjectMode;
            return open && answers.Texts() == QStringList{text.InCurrentLanguage()} &&
                   answers.Shown().front().Icon == QMessageBox::Warning &&
                   answers.Shown().front().Title == QStringLiteral("Ostrakon");
        };
        form.Combtype->AddItem(userType);
        if (list == QStringLiteral("CombInunit")) {
            QVERIFY(refused(typeUnsupported)); // ahead of the missing type
            Choose(form.Combtype, userType);
            QVERIFY(refused(typeUnsupported));
            Choose(form.Combtype, QStringLiteral("DCV"));
            QVERIFY(refused(typeMissing)); // no output unit
            Click(form.OptUser);
            QVERIFY(refused(unitMissing));
            Type(form.TxtUnit, QStringLiteral("m"));
        } else {
            QVERIFY(refused(typeMissing));
            Choose(form.Combtype, userType);
            QVERIFY(refused(typeMissing)); // no output unit
            Click(form.OptUser);
            QVERIFY(refused(unitMissing));
            Type(form.TxtUnit, QStringLiteral("m"));
            QVERIFY(refused(typeUnsupported));
            Choose(form.Combtype, QStringLiteral("DCV"));
        }
        QVERIFY(refused(nameMissing));
        form.Txtname->setText(QString::fromUtf8(CurrentLanguage == 0 ? nameHint.English : nameHint.Chinese));
        QVERIFY(refused(nameMissing));
        form.Txtname->clear();
        QVERIFY(refused(nameMissing));
        Type(form.Txtname, QStringLiteral("Probe"));
        const BoxAnswers none;
        QTest::keyClick(combo, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(SensorProjects[0].OutputUnit, QStringLiteral("m"));
    QVERIFY(!NewProjectMode);
}

void TestSensorProperty::listEnterRefusesNoOutputUnitWhereDoneAccepts()
{
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        {
            BoxAnswers answers({Ok});
            QTest::keyClick(form.Combtype, Qt::Key_Return);
            QCOMPARE(answers.Texts(), QStringList{typeMissing.InCurrentLanguage()});
        }
        // A built-in sensor has no output unit to choose, and is refused all the same.
        Choose(form.Combtype, QStringLiteral("THERM"));
        {
            BoxAnswers answers({Ok});
            QTest::keyClick(form.Combtype, Qt::Key_Return);
            QCOMPARE(answers.Texts(), QStringList{typeMissing.InCurrentLanguage()});
        }
        Choose(form.Combtype, QStringLiteral("DCV"));
        QCOMPARE(int(ProjectCount), 0);
        Click(form.ComdEnter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(SensorProjects[0].OutputUnit, QString());
}

void TestSensorProperty::longNameIsCutByDoneAndNotByAList()
{
    const QString name = QStringLiteral("abcdefghijklmno");
    OpenNew([&name](SensorPropertyFrm &form) {
        FillGood(form);
        Choose(form.CombOutunit, QStringLiteral("kg"));
        Type(form.Txtname, name);
        QTest::keyClick(form.CombOutunit, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(SensorProjects[0].SensorName, name);
    OpenNew([&name](SensorPropertyFrm &form) {
        FillGood(form);
        Type(form.Txtname, name);
        BoxAnswers answers({Ok});
        Click(form.ComdEnter);
        QCOMPARE(answers.Texts(), QStringList{nameCutByDone.InCurrentLanguage()});
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdefghi"));
        QVERIFY(form.isVisible());
        Click(form.ComdEnter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(SensorProjects[1].SensorName, QStringLiteral("abcdefghi"));
}

void TestSensorProperty::listEnterCutsAtTwentyAndGoesOn_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("length");
    QTest::newRow("20") << 1 << 20;
    QTest::newRow("21") << 1 << 21;
    QTest::newRow("25 Chinese") << 0 << 25;
}

void TestSensorProperty::listEnterCutsAtTwentyAndGoesOn()
{
    QFETCH(int, language);
    QFETCH(int, length);
    CurrentLanguage = language;
    const bool cut = length > 20;
    OpenNew([&](SensorPropertyFrm &form) {
        FillGood(form);
        Choose(form.CombOutunit, QStringLiteral("kg"));
        Type(form.Txtname, QString(length, QLatin1Char('n')));
        BoxAnswers answers(cut ? Buttons{Ok} : Buttons{});
        QTest::keyClick(form.Combtype, Qt::Key_Return);
        QCOMPARE(answers.Texts(), cut ? QStringList{nameCutByList.InCurrentLanguage()} : QStringList{});
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(SensorProjects[0].SensorName, QString(20, QLatin1Char('n')));
}

void TestSensorProperty::listEnterLooksNeitherAtUnitNorAtResistance()
{
    const BoxAnswers none;
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form, QStringLiteral("DCV"));
        Click(form.OptUser);
        Type(form.TxtUnit, QStringLiteral("abcde"));
        QTest::keyClick(form.CombInunit, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(SensorProjects[0].OutputUnit, QStringLiteral("abcde"));
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Choose(form.CombOutunit, QStringLiteral("kg"));
        Choose(form.Combtype, QStringLiteral("RTD"));
        Type(form.TextR0, QStringLiteral("5"));
        QTest::keyClick(form.Combtype, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(SensorProjects[1].RtdR0, 5.0F);
}

void TestSensorProperty::listEnterRefreshesNoList()
{
    const SensorProjFrm &other = m_frame->AddProject(0);
    PutRow(0, 1, 1.0, 2.0);
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Choose(form.CombOutunit, QStringLiteral("kg"));
        QTest::keyClick(form.Combtype, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(other.EditDataView->LineCount(), 0);
}

void TestSensorProperty::otherKeysInListsFinishNothing()
{
    const BoxAnswers none;
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form, QStringLiteral("RTD"));
        QTest::keyClick(form.Combtype, Qt::Key_R);
        // Enter in the two other lists does nothing either.
        QTest::keyClick(form.CombSubType, Qt::Key_Return);
        QTest::keyClick(form.Comboa, Qt::Key_Return);
        QTest::keyClick(form.TextR0, Qt::Key_Return);
        QVERIFY(form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 0);
}

void TestSensorProperty::cancelKeepsProjectAndModes()
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
        Type(form.Txtname, QStringLiteral("New_2"));
        Choose(form.Combtype, QStringLiteral("4WR"));
        Click(form.ComdCancel);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(SensorProjects[0].SensorName, QStringLiteral("Old_1"));
    QCOMPARE(SensorProjects[0].MeasFunction, 2);
    QVERIFY(EditProjectMode);
    QVERIFY(!NewProjectMode);
}

void TestSensorProperty::editOpensWithTheProject_data()
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

void TestSensorProperty::editOpensWithTheProject()
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

void TestSensorProperty::editRefusesWhatDoesNotFit_data()
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

void TestSensorProperty::editRefusesWhatDoesNotFit()
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

void TestSensorProperty::editOutputUnit_data()
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

void TestSensorProperty::editOutputUnit()
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

void TestSensorProperty::editInputUnit_data()
{
    QTest::addColumn<int>("measFunction");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("index");
    const auto row = [](int measFunction, const char *unit, int index) {
        QTest::addRow("%s", unit) << measFunction << QString::fromLatin1(unit) << index;
    };
    row(0, "V", 0);
    row(0, "mV", 1);
    row(2, "A", 0);
    row(2, "mA", 1);
    row(2, "uA", 2);
    row(4, "ohm", 0);
    row(5, "kohm", 1);
    row(0, "unknown", 0);
}

void TestSensorProperty::editInputUnit()
{
    QFETCH(int, measFunction);
    QFETCH(QString, unit);
    OpenEdit(PlainProject(measFunction, qPrintable(unit)),
             [](SensorPropertyFrm &form) { QTEST(form.CombInunit->ListIndex(), "index"); });
}

void TestSensorProperty::editResistanceThermometer()
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

void TestSensorProperty::editMakesNoProject()
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

void TestSensorProperty::newNeedsTheLink_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}

void TestSensorProperty::newNeedsTheLink()
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

void TestSensorProperty::newEnablesTheTableOfPlainSensors()
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

void TestSensorProperty::newAfterCancelWithoutProject()
{
    WithDialogue([](SensorPropertyFrm &form) { Click(form.ComdCancel); }, [] { BeginNewProject(); });
    QCOMPARE(int(ProjectCount), 0);
    QVERIFY(ActiveProjectForm() == nullptr);
}

QTEST_MAIN(TestSensorProperty)
#include "tst_sensor_property.moc"
