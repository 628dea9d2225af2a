#include "project/SensorPropertyModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "curve/ReferenceListModule.h"
#include "link/LinkState.h"
#include "platform/NumberText.h"
#include "project/LifecycleModule.h"
#include "project/ProjectTable.h"
#include "project/SensorPropertyFrm.h"
#include "shell/ActiveProject.h"
#include "shell/LanguageModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <QEvent>

#include <algorithm>

namespace {

constexpr int BackspaceKey = 8;
constexpr int EnterKey = 13;
constexpr int NameLimit = 9;      ///< characters of a name
constexpr int ListNameLimit = 20; ///< the same when the dialogue is finished by Enter in a list
constexpr int UnitLimit = 2;      ///< characters of a free output unit
constexpr double R0Least = 49;    // ohm
constexpr double R0Most = 2100;   // ohm

/// Positions in the list of types.
constexpr int NoType = 0;
constexpr int ThermocoupleType = 6;
constexpr int RtdType = 7;
constexpr int ThermistorType = 8;

const QString NoUnit = QStringLiteral("None");
const QString EnglishHint = QStringLiteral("<Input sensor name here>");
const QString ChineseHint = QStringLiteral("<输入传感器名称>");
// Required as they stand, the doubled p included; no letter is missing for it.
const QString NameKeys = QStringLiteral("1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnpopqrstuvwxyz_");
const QString UnitKeys = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnpopqrstuvwxyz");
const QStringList OutputUnits = {NoUnit,
                                 QStringLiteral("g"),
                                 QStringLiteral("kg"),
                                 QStringLiteral("m"),
                                 QStringLiteral("km"),
                                 QStringLiteral("N"),
                                 QStringLiteral("Pa"),
                                 QStringLiteral("kPa"),
                                 QStringLiteral("J"),
                                 QStringLiteral("kJ"),
                                 QStringLiteral("W"),
                                 QStringLiteral("kW"),
                                 QStringLiteral("lm"),
                                 QStringLiteral("lx"),
                                 QStringLiteral("cd"),
                                 QStringLiteral("Bq"),
                                 QStringLiteral("Gy")};
const QStringList CurveStandards = {QStringLiteral("Pt385"), QStringLiteral("Pt389"), QStringLiteral("Pt391"),
                                    QStringLiteral("Pt392")};

/// Whether text is selected in a box at the moment the keyboard leaves it: the toolkit drops the selection ahead of
/// LostFocus.
class SelectionAtLeaving : public QObject {
public:
    explicit SelectionAtLeaving(TextBox *box) : QObject(box), m_box(box) { box->installEventFilter(this); }

    bool Selected() const { return m_selected; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusOut)
            m_selected = m_box->hasSelectedText();
        return QObject::eventFilter(watched, event);
    }

private:
    TextBox *m_box;
    bool m_selected = false;
};

bool KeyPasses(int key, const QString &accepted)
{
    if (key == BackspaceKey || key == EnterKey)
        return true;
    return key > 0 && key <= 0x7F && accepted.contains(QLatin1Char(static_cast<char>(key)));
}

void FillList(ListCombo *list, const QStringList &entries)
{
    for (const QString &entry : entries)
        list->AddItem(entry);
}

QStringList OfferedTypes()
{
    QStringList types = {QStringLiteral("None"), QStringLiteral("DCV"), QStringLiteral("DCI"),
                         QStringLiteral("2WR"),  QStringLiteral("4WR"), QStringLiteral("Frequency")};
    if (InstrumentKind == InstrumentKindKV7050 || InstrumentKind == InstrumentKindKV7060)
        types << QStringLiteral("TC");
    if (InstrumentKind == InstrumentKindKV7060)
        types << QStringLiteral("RTD") << QStringLiteral("THERM");
    return types;
}

/// A sensor that the instrument converts by itself, as far as the dialogue goes. This excludes the KV7050 alone, while
/// the record of a thermocouple asks for the KV7060; both are required, and a model of neither kind offers no
/// thermocouple.
bool OffersSubTypes(const QString &type)
{
    if (type == QLatin1StringView("TC"))
        return InstrumentKind != InstrumentKindKV7050;
    return type == QLatin1StringView("RTD") || type == QLatin1StringView("THERM");
}

QStringList CurrentUnits(bool microamperes)
{
    QStringList units = {QStringLiteral("A"), QStringLiteral("mA")};
    if (microamperes)
        units << QStringLiteral("uA");
    return units;
}

/// Also knows five types that are never offered: required, for a list that may offer them later.
QStringList InputUnitsOf(const QString &type)
{
    const bool kv7050 = InstrumentKind == InstrumentKindKV7050;
    const bool kv7060 = InstrumentKind == InstrumentKindKV7060;
    if (OffersSubTypes(type))
        return {QStringLiteral("C"), QStringLiteral("F"), QStringLiteral("K")};
    if (type == QLatin1StringView("DCV") || type == QLatin1StringView("TC") || type == QLatin1StringView("ACV") ||
        type == QLatin1StringView("Diode"))
        return {QStringLiteral("V"), QStringLiteral("mV")};
    if (type == QLatin1StringView("DCI"))
        return CurrentUnits(kv7050 || kv7060);
    if (type == QLatin1StringView("ACI"))
        return CurrentUnits(kv7060);
    if (type == QLatin1StringView("2WR") || type == QLatin1StringView("4WR"))
        return {QStringLiteral("ohm"), QStringLiteral("kohm")};
    if (type == QLatin1StringView("Frequency"))
        return {QStringLiteral("Hz"), QStringLiteral("mHz"), QStringLiteral("kHz"), QStringLiteral("MHz")};
    if (type == QLatin1StringView("Cont"))
        return {QStringLiteral("ohm")};
    if (type == QLatin1StringView("Ratio"))
        return {QStringLiteral(" ")};
    return {NoUnit};
}

QStringList SubTypesOf(const QString &type)
{
    if (type == QLatin1StringView("RTD"))
        return {QStringLiteral("RTD-2WR"), QStringLiteral("RTD-4WR")};
    if (type == QLatin1StringView("THERM"))
        return {QStringLiteral("2.2K"), QStringLiteral("3K"), QStringLiteral("5K"), QStringLiteral("10K"),
                QStringLiteral("30K")};
    return {QStringLiteral("B"), QStringLiteral("E"), QStringLiteral("J"), QStringLiteral("K"),
            QStringLiteral("N"), QStringLiteral("R"), QStringLiteral("S"), QStringLiteral("T")};
}

void ShowRtdFields(SensorPropertyFrm &form, bool shown)
{
    for (QWidget *field : std::initializer_list<QWidget *>{form.LabelParameter, form.Labela, form.Comboa, form.TextR0})
        field->setVisible(shown);
}

void OptDefault_Click(SensorPropertyFrm &form)
{
    form.CombOutunit->show();
    form.TxtUnit->hide();
}

void OptUser_Click(SensorPropertyFrm &form)
{
    form.CombOutunit->hide();
    form.TxtUnit->show();
}

void HideOutputUnit(SensorPropertyFrm &form)
{
    for (QWidget *field :
         std::initializer_list<QWidget *>{form.OptDefault, form.OptUser, form.CombOutunit, form.TxtUnit})
        field->hide();
}

void CombSubType_Click(SensorPropertyFrm &form)
{
    ShowRtdFields(form, false);
    form.Comboa->ClearList();
    const QString subType = form.CombSubType->Text();
    if (subType != QLatin1StringView("RTD-2WR") && subType != QLatin1StringView("RTD-4WR"))
        return;
    ShowRtdFields(form, true);
    form.Comboa->setEnabled(true);
    FillList(form.Comboa, CurveStandards);
    form.Comboa->SetListIndex(0);
}

void OfferSubTypes(SensorPropertyFrm &form, const QString &type)
{
    FillList(form.CombSubType, SubTypesOf(type));
    form.CombSubType->SetListIndex(0);
    form.CombSubType->show();
    form.LabelSubType->show();
    HideOutputUnit(form);
    if (type == QLatin1StringView("RTD"))
        form.Comboa->show();
}

void Combtype_Click(SensorPropertyFrm &form)
{
    ShowRtdFields(form, false);
    form.CombSubType->hide();
    form.LabelSubType->hide();
    form.CombInunit->ClearList();
    form.CombSubType->ClearList();
    form.OptDefault->show();
    form.OptUser->show();
    if (form.OptDefault->isChecked())
        OptDefault_Click(form);
    else if (form.OptUser->isChecked())
        OptUser_Click(form);
    const QString type = form.Combtype->Text();
    FillList(form.CombInunit, InputUnitsOf(type));
    form.CombInunit->SetListIndex(0);
    if (OffersSubTypes(type))
        OfferSubTypes(form, type);
}

/// What a new project starts from, and what is left of a project that does not fit the instrument.
void PresetNew(SensorPropertyFrm &form)
{
    form.Combtype->SetListIndex(NoType);
    form.CombOutunit->SetListIndex(0);
    form.OptDefault->setChecked(true);
    form.CombOutunit->show();
    form.OptUser->setChecked(false);
    form.TxtUnit->hide();
    form.OptNo->setChecked(true);
    form.OptYes->setChecked(false);
    form.Txtname->SetLocked(true);
}

void RefuseProject(SensorPropertyFrm &form)
{
    InformationBox(Wording(QStringLiteral("Device can not match.Please create new project! "),
                           QStringLiteral("当前工程与设备不匹配，请建立新工程！ ")));
    PresetNew(form);
}

void PresetType(SensorPropertyFrm &form, std::int32_t measFunction)
{
    using namespace MeasFunctionCode;
    switch (measFunction) {
    case DcVoltage:
        form.Combtype->SetListIndex(1);
        break;
    case DcCurrent:
        form.Combtype->SetListIndex(2);
        break;
    case TwoWireResistance:
        form.Combtype->SetListIndex(3);
        break;
    case FourWireResistance:
        form.Combtype->SetListIndex(4);
        break;
    case Frequency:
        form.Combtype->SetListIndex(5);
        break;
    case Thermocouple:
        form.Combtype->SetListIndex(ThermocoupleType);
        break;
    default:
        break;
    }
}

void PresetRtd(SensorPropertyFrm &form, const SensorProject &project)
{
    ShowRtdFields(form, true);
    form.Combtype->SetListIndex(RtdType);
    form.CombSubType->SetListIndex(project.MeasFunction == MeasFunctionCode::TwoWireResistance ? 0 : 1);
    form.TextR0->setText(GeneralNumber(project.RtdR0));
    form.Comboa->SetListIndex(project.RtdCode);
}

void PresetThermistor(SensorPropertyFrm &form, const SensorProject &project)
{
    form.Combtype->SetListIndex(ThermistorType);
    switch (project.ThermistorOhms) {
    case 2200:
        form.CombSubType->SetListIndex(0);
        break;
    case 3000:
        form.CombSubType->SetListIndex(1);
        break;
    case 5000:
        form.CombSubType->SetListIndex(2);
        break;
    case 10000:
        form.CombSubType->SetListIndex(3);
        break;
    case 30000:
        form.CombSubType->SetListIndex(4);
        break;
    default:
        break;
    }
}

void PresetBuiltIn(SensorPropertyFrm &form, const SensorProject &project)
{
    form.CombSubType->show();
    if (project.BuiltInKind == BuiltInKindCode::Thermocouple) {
        form.Combtype->SetListIndex(ThermocoupleType);
        form.CombSubType->SetListIndex(project.TcLetterCode);
    } else if (project.BuiltInKind == BuiltInKindCode::Rtd) {
        PresetRtd(form, project);
    } else if (project.BuiltInKind == BuiltInKindCode::Thermistor) {
        PresetThermistor(form, project);
    }
}

void PresetOutputUnit(SensorPropertyFrm &form, const SensorProject &project)
{
    if (project.IsBuiltInSensor) {
        HideOutputUnit(form);
    } else if (project.OutputUnitIsUser == 0) {
        form.OptDefault->setChecked(true);
        form.CombOutunit->show();
        form.TxtUnit->hide();
        const int index = form.CombOutunit->findText(project.OutputUnit, Qt::MatchExactly | Qt::MatchCaseSensitive);
        form.CombOutunit->SetListIndex(std::max(index, 0));
    } else if (project.OutputUnitIsUser == 1) {
        form.OptUser->setChecked(true);
        form.CombOutunit->hide();
        form.CombOutunit->SetListIndex(0);
        form.TxtUnit->show();
        form.TxtUnit->setText(project.OutputUnit);
    }
}

/// By the unit's text alone, whatever list it belongs to.
int InputUnitIndex(const QString &unit)
{
    static const QStringList second = {QStringLiteral("mV"), QStringLiteral("mA"), QStringLiteral("kohm"),
                                       QStringLiteral("mHz"), QStringLiteral("F")};
    static const QStringList third = {QStringLiteral("uA"), QStringLiteral("kHz"), QStringLiteral("K")};
    if (second.contains(unit))
        return 1;
    if (third.contains(unit))
        return 2;
    return unit == QLatin1StringView("MHz") ? 3 : 0;
}

void PresetFromProject(SensorPropertyFrm &form, const SensorProject &project)
{
    form.Txtname->setText(project.SensorName);
    // Required: a list position against a function code. Frequency (9) and thermocouple (10) lie beyond every list, so
    // that these projects are refused on any instrument.
    if (form.Combtype->ListCount() - 1 < project.MeasFunction) {
        RefuseProject(form);
        return;
    }
    PresetType(form, project.MeasFunction);
    if (project.IsBuiltInSensor) {
        if (form.Combtype->ListCount() <= ThermistorType) {
            RefuseProject(form);
            return;
        }
        PresetBuiltIn(form, project);
    }
    PresetOutputUnit(form, project);
    form.CombInunit->SetListIndex(InputUnitIndex(project.InputUnit));
}

void LoadDialogue(SensorPropertyFrm &form)
{
    FillList(form.Combtype, OfferedTypes());
    FillList(form.CombOutunit, OutputUnits);
    if (NewProjectMode)
        PresetNew(form);
    else if (EditProjectMode)
        PresetFromProject(form, SensorProjects[ActiveSlot()]);
}

/// Cuts a text that is too long. True when there was something to cut.
bool CutText(TextBox *box, int limit)
{
    if (box->text().size() <= limit)
        return false;
    box->setText(box->text().left(limit));
    return true;
}

void ReturnTo(TextBox *box)
{
    box->setFocus();
    box->end(false);
}

QString UnitLimitText()
{
    return Wording(QStringLiteral("The character number of output unit is limited not more than 2! "),
                   QStringLiteral("输出单位字符不能超过2个! "));
}

void Txtname_LostFocus(SensorPropertyFrm &form)
{
    if (IsSensorNameHint(form.Txtname->text()))
        form.Txtname->clear();
    if (!CutText(form.Txtname, NameLimit))
        return;
    // Required: the Chinese wording has one character more than that of Done.
    InformationBox(Wording(QStringLiteral("The character number of Sensor name is limited not more than 9! "),
                           QStringLiteral("传感器名称字符不能超过9个! ")));
    ReturnTo(form.Txtname);
}

void TxtUnit_LostFocus(SensorPropertyFrm &form)
{
    if (!CutText(form.TxtUnit, UnitLimit))
        return;
    InformationBox(UnitLimitText());
    ReturnTo(form.TxtUnit);
}

void Txtname_KeyPress(SensorPropertyFrm &form, int &key)
{
    form.Txtname->SetLocked(false);
    if (IsSensorNameHint(form.Txtname->text()))
        form.Txtname->clear();
    if (key == EnterKey)
        form.ComdEnter->click();
    else if (!SensorNameKeyPasses(key))
        key = 0;
}

void TxtUnit_KeyPress(SensorPropertyFrm &form, int &key)
{
    if (key == EnterKey)
        form.ComdEnter->click();
    else if (!OutputUnitKeyPasses(key))
        key = 0;
}

void Txtname_MouseDown(SensorPropertyFrm &form)
{
    if (form.Txtname->Locked())
        form.Txtname->clear();
    form.Txtname->SetLocked(false);
}

// The checks of both finishing paths. Each tells the user when it refuses.

bool NameGiven(const SensorPropertyFrm &form)
{
    const QString name = form.Txtname->text();
    if (!name.isEmpty() && !IsSensorNameHint(name))
        return true;
    ExclamationBox(Wording(QStringLiteral("Please input sensor name! "), QStringLiteral("请输入传感器名称! ")));
    return false;
}

bool NameFits(SensorPropertyFrm &form)
{
    if (!CutText(form.Txtname, NameLimit))
        return true;
    InformationBox(Wording(QStringLiteral("The character number of Sensor name is limited not more than 9! "),
                           QStringLiteral("传感器名称字符不超过9个! ")));
    return false;
}

bool TellTypeMissing()
{
    ExclamationBox(
        Wording(QStringLiteral("Please select right type and unit! "), QStringLiteral("请选择合适的类型和单位! ")));
    return false;
}

bool TypeChosen(const SensorPropertyFrm &form)
{
    return form.Combtype->ListIndex() != NoType || TellTypeMissing();
}

/// Required: refuses an output unit of "None", which Done accepts, also where the list is hidden.
bool TypeAndUnitChosen(const SensorPropertyFrm &form)
{
    const bool noOutputUnit = form.OptDefault->isChecked() && form.CombOutunit->ListIndex() == 0;
    return (form.Combtype->ListIndex() != NoType && !noOutputUnit) || TellTypeMissing();
}

bool UserUnitGiven(const SensorPropertyFrm &form)
{
    if (!form.OptUser->isChecked() || !form.TxtUnit->text().isEmpty())
        return true;
    ExclamationBox(Wording(QStringLiteral("Please input unit! "), QStringLiteral("请输入单位! ")));
    return false;
}

/// Required: looks at the free unit also when the default units are chosen.
bool UserUnitFits(SensorPropertyFrm &form)
{
    if (!CutText(form.TxtUnit, UnitLimit))
        return true;
    InformationBox(UnitLimitText());
    return false;
}

bool TypeSupported(const SensorPropertyFrm &form)
{
    if (form.CombInunit->Text() != NoUnit)
        return true;
    ExclamationBox(Wording(QStringLiteral("Don't support this sensor type at present! "),
                           QStringLiteral("目前不支持此类型传感器! ")));
    return false;
}

bool ParameterFits(const SensorPropertyFrm &form)
{
    if (!form.TextR0->isVisibleTo(&form))
        return true;
    if (form.TextR0->text().isEmpty()) {
        ExclamationBox(Wording(QStringLiteral("The parameter can not be empty! "), QStringLiteral("参数值不能为空! ")));
        return false;
    }
    const double ohms = LeadingNumber(form.TextR0->text());
    if (ohms >= R0Least && ohms <= R0Most)
        return true;
    ExclamationBox(Wording(QStringLiteral("The parameter value must between 49 and 2100ohm! "),
                           QStringLiteral("参数阻值范围必须在49-2100ohm之间! ")));
    return false;
}

void ClearModes()
{
    NewProjectMode = false;
    EditProjectMode = false;
}

void ComdEnter_Click(SensorPropertyFrm &form)
{
    if (!NameGiven(form) || !NameFits(form) || !TypeChosen(form) || !UserUnitGiven(form) || !UserUnitFits(form) ||
        !TypeSupported(form) || !ParameterFits(form))
        return;
    form.hide();
    if (NewProjectMode)
        NewProject(form);
    RefreshReferenceLists();
    ClearModes();
    form.accept();
}

/// Required: cuts at 20 where Done cuts at 9, and goes on.
void CutListName(SensorPropertyFrm &form)
{
    if (CutText(form.Txtname, ListNameLimit))
        InformationBox(Wording(QStringLiteral("The character number of Sensor name is limited less than 20! "),
                               QStringLiteral("传感器名称字符不超过20个! ")));
}

/// Enter in one of the lists. Required: neither the free unit's length nor R0 is looked at, and no list is refreshed.
void FinishFromList(SensorPropertyFrm &form, bool unitFirst)
{
    if (unitFirst && !TypeSupported(form))
        return;
    if (!TypeAndUnitChosen(form) || !UserUnitGiven(form))
        return;
    if (!unitFirst && !TypeSupported(form))
        return;
    if (!NameGiven(form))
        return;
    CutListName(form);
    form.hide();
    if (NewProjectMode)
        NewProject(form);
    ClearModes();
    form.accept();
}

void ConnectLists(SensorPropertyFrm &form)
{
    ConnectGuarded(form.Combtype, &ListCombo::Click, &form, [&form] { Combtype_Click(form); });
    ConnectGuarded(form.CombSubType, &ListCombo::Click, &form, [&form] { CombSubType_Click(form); });
    for (ListCombo *list : {form.Combtype, form.CombInunit, form.CombOutunit}) {
        ConnectGuarded(list, &ListCombo::KeyPress, &form, [&form, unitFirst = list == form.CombInunit](int &key) {
            if (key == EnterKey)
                FinishFromList(form, unitFirst);
        });
    }
}

void ConnectText(SensorPropertyFrm &form)
{
    ConnectGuarded(form.Txtname, &TextBox::KeyPress, &form, [&form](int &key) { Txtname_KeyPress(form, key); });
    ConnectGuarded(form.Txtname, &TextBox::MouseDown, &form, [&form] { Txtname_MouseDown(form); });
    ConnectGuarded(form.TxtUnit, &TextBox::KeyPress, &form, [&form](int &key) { TxtUnit_KeyPress(form, key); });
    const auto *name = new SelectionAtLeaving(form.Txtname);
    ConnectGuarded(form.Txtname, &TextBox::LostFocus, &form, [&form, name] {
        if (name->Selected())
            Txtname_LostFocus(form);
    });
    const auto *unit = new SelectionAtLeaving(form.TxtUnit);
    ConnectGuarded(form.TxtUnit, &TextBox::LostFocus, &form, [&form, unit] {
        if (unit->Selected())
            TxtUnit_LostFocus(form);
    });
}

void ConnectButtons(SensorPropertyFrm &form)
{
    ConnectGuarded(form.OptDefault, &QRadioButton::clicked, &form, [&form] { OptDefault_Click(form); });
    ConnectGuarded(form.OptUser, &QRadioButton::clicked, &form, [&form] { OptUser_Click(form); });
    ConnectGuarded(form.ComdEnter, &QPushButton::clicked, &form, [&form] { ComdEnter_Click(form); });
    // Required: the modes stay as they are.
    ConnectGuarded(form.ComdCancel, &QPushButton::clicked, &form, [&form] { form.reject(); });
}

} // namespace

bool SensorNameKeyPasses(int key)
{
    return KeyPasses(key, NameKeys);
}

bool OutputUnitKeyPasses(int key)
{
    return KeyPasses(key, UnitKeys);
}

bool IsSensorNameHint(const QString &text)
{
    return text == EnglishHint || text == ChineseHint;
}

void ShowSensorProperty()
{
    SensorPropertyFrm form(MainForm);
    LoadSensorPropertyLanguage(form);
    // Ahead of the filling: choosing a type there runs the same routine as the user's choice.
    ConnectLists(form);
    ConnectText(form);
    ConnectButtons(form);
    LoadDialogue(form);
    form.exec();
}
