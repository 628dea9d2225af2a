#include "project/SensorTypeModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "link/LinkState.h"
#include "platform/NumberText.h"
#include "project/ProjectTable.h"
#include "project/SensorPropertyFrm.h"
#include "shell/ActiveProject.h"
#include "shell/MainModule.h"

#include <algorithm>
#include <initializer_list>

namespace {

/// Positions in the list of types.
constexpr int ThermocoupleType = 6;
constexpr int RtdType = 7;
constexpr int ThermistorType = 8;

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

void FillList(ListCombo *list, const QStringList &entries)
{
    for (const QString &entry : entries)
        list->AddItem(entry);
}

/// Chooses an entry, or the first one when this model, or a damaged project, has no such entry. A function that no type
/// stands for leaves the list of units empty.
void Choose(ListCombo *list, int index)
{
    if (list->ListCount() > 0)
        list->SetListIndex(index < list->ListCount() ? index : 0);
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
    Choose(form.Comboa, project.RtdCode);
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
        Choose(form.CombSubType, project.TcLetterCode);
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
    Choose(form.CombInunit, InputUnitIndex(project.InputUnit));
}

} // namespace

void LoadSensorProperty(SensorPropertyFrm &form)
{
    FillList(form.Combtype, OfferedTypes());
    FillList(form.CombOutunit, OutputUnits);
    if (NewProjectMode)
        PresetNew(form);
    else if (EditProjectMode)
        PresetFromProject(form, SensorProjects[ActiveSlot()]);
}

void ConnectSensorTypes(SensorPropertyFrm &form)
{
    ConnectGuarded(form.Combtype, &ListCombo::Click, &form, [&form] { Combtype_Click(form); });
    ConnectGuarded(form.CombSubType, &ListCombo::Click, &form, [&form] { CombSubType_Click(form); });
    ConnectGuarded(form.OptDefault, &QRadioButton::clicked, &form, [&form] { OptDefault_Click(form); });
    ConnectGuarded(form.OptUser, &QRadioButton::clicked, &form, [&form] { OptUser_Click(form); });
}
