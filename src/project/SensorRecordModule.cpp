#include "project/SensorRecordModule.h"

#include "link/LinkState.h"
#include "platform/NumberText.h"
#include "project/SensorPropertyFrm.h"

#include <algorithm>
#include <optional>

namespace {

template <typename Code>
struct TextCode {
    QLatin1StringView Text;
    Code Value;
};

constexpr std::array<TextCode<std::uint8_t>, 4> rtdCodes{{
    {QLatin1StringView("Pt385"), 0},
    {QLatin1StringView("Pt389"), 1},
    {QLatin1StringView("Pt391"), 2},
    {QLatin1StringView("Pt392"), 3},
}};

constexpr std::array<TextCode<std::int16_t>, 5> thermistorOhms{{
    {QLatin1StringView("2.2K"), 2200},
    {QLatin1StringView("3K"), 3000},
    {QLatin1StringView("5K"), 5000},
    {QLatin1StringView("10K"), 10000},
    {QLatin1StringView("30K"), 30000},
}};

constexpr std::array<TextCode<std::uint8_t>, 8> tcLetterCodes{{
    {QLatin1StringView("B"), 0},
    {QLatin1StringView("E"), 1},
    {QLatin1StringView("J"), 2},
    {QLatin1StringView("K"), 3},
    {QLatin1StringView("N"), 4},
    {QLatin1StringView("R"), 5},
    {QLatin1StringView("S"), 6},
    {QLatin1StringView("T"), 7},
}};

/// Puts the code of a text into a field; a text without a code leaves it.
template <typename Code, std::size_t Count>
void PutCode(const std::array<TextCode<Code>, Count> &codes, const QString &text, Code &field)
{
    const auto found = std::ranges::find_if(codes, [&text](const auto &entry) { return text == entry.Text; });
    if (found != codes.end())
        field = found->Value;
}

/// How a chosen type is read. Only a thermocouple depends on the model: a KV7060 converts it by itself.
struct TypeReading {
    std::int32_t MeasFunction;
    std::optional<std::uint8_t> BuiltInKind; ///< none for a sensor with a reference table
};

std::optional<TypeReading> ReadingOf(const QString &type, const QString &subType, std::int16_t instrumentKind)
{
    using namespace MeasFunctionCode;
    if (type == QLatin1StringView("DCV"))
        return TypeReading{DcVoltage, {}};
    if (type == QLatin1StringView("DCI"))
        return TypeReading{DcCurrent, {}};
    if (type == QLatin1StringView("2WR"))
        return TypeReading{TwoWireResistance, {}};
    if (type == QLatin1StringView("4WR"))
        return TypeReading{FourWireResistance, {}};
    if (type == QLatin1StringView("Frequency"))
        return TypeReading{Frequency, {}};
    if (type == QLatin1StringView("TC") && instrumentKind == InstrumentKindKV7060)
        return TypeReading{DcVoltage, BuiltInKindCode::Thermocouple};
    if (type == QLatin1StringView("TC"))
        return TypeReading{Thermocouple, {}};
    if (type == QLatin1StringView("RTD")) {
        const bool twoWires = subType == QLatin1StringView("RTD-2WR");
        return TypeReading{twoWires ? TwoWireResistance : FourWireResistance, BuiltInKindCode::Rtd};
    }
    if (type == QLatin1StringView("THERM"))
        return TypeReading{TwoWireResistance, BuiltInKindCode::Thermistor};
    return {};
}

QString OutputUnitOf(const SensorPropertyFrm &form, bool builtIn)
{
    if (builtIn)
        return form.CombInunit->Text();
    if (form.OptUser->isChecked())
        return form.TxtUnit->text();
    const QString unit = form.CombOutunit->Text();
    return unit == QLatin1StringView("None") ? QString() : unit;
}

std::uint8_t LowByte(QChar character)
{
    return static_cast<std::uint8_t>(character.unicode() & 0xFF);
}

void FillCharacters(SensorProject &project)
{
    project.SensorTypeChars.fill(0);
    const auto count = std::min<std::size_t>(static_cast<std::size_t>(project.SensorName.size()), SensorTypeCharCount);
    for (std::size_t i = 0; i < count; ++i)
        project.SensorTypeChars[i] = LowByte(project.SensorName[static_cast<qsizetype>(i)]);
    // Required: one byte only, however long the unit is; the other bytes stay as they were.
    if (!project.InputUnit.isEmpty())
        project.UnitChars[0] = LowByte(project.InputUnit.front());
}

void FillBuiltIn(const SensorPropertyFrm &form, SensorProject &project, std::uint8_t builtInKind)
{
    FillCharacters(project);
    project.BuiltInKind = builtInKind;
    const QString subType = form.CombSubType->Text();
    if (builtInKind == BuiltInKindCode::Rtd) {
        PutCode(rtdCodes, form.Comboa->Text(), project.RtdCode);
        project.RtdR0 = RoundToSingle(LeadingNumber(form.TextR0->text()));
    } else if (builtInKind == BuiltInKindCode::Thermistor) {
        PutCode(thermistorOhms, subType, project.ThermistorOhms);
    } else {
        PutCode(tcLetterCodes, subType, project.TcLetterCode);
    }
}

} // namespace

void FillSensorProject(const SensorPropertyFrm &form, SensorProject &project, std::int16_t instrumentKind)
{
    const std::optional<TypeReading> reading =
        ReadingOf(form.Combtype->Text(), form.CombSubType->Text(), instrumentKind);
    const bool builtIn = reading && reading->BuiltInKind;
    project.SensorName = form.Txtname->text();
    if (reading)
        project.MeasFunction = reading->MeasFunction;
    project.IsThermocouple = form.OptYes->isChecked() ? 1 : 0;
    project.InputUnit = form.CombInunit->Text();
    project.OutputUnit = OutputUnitOf(form, builtIn);
    project.OutputUnitIsUser = form.OptUser->isChecked() ? 1 : 0;
    project.InputUnitScale = InputUnitScaleOf(project.InputUnit);
    project.IsBuiltInSensor = builtIn;
    if (builtIn)
        FillBuiltIn(form, project, *reading->BuiltInKind);
}
