/// @file
/// Every sensor that the dialogue can define, as the user chooses it, and the definition that it stands for.
#pragma once

#include "link/LinkState.h"
#include "project/ProjectTable.h"

#include <QList>
#include <QTest>

#include <optional>

/// A sensor as the user chooses it on an instrument. Fields without a value keep what they held.
struct ChosenSensor {
    int Kind = 0; ///< InstrumentKind
    const char *Type = "";
    const char *SubType = ""; ///< none for a type without
    const char *InputUnit = "";
    const char *Standard = ""; ///< of a resistance thermometer
    const char *Ohms = "";     ///< its R0

    std::int32_t MeasFunction = 0;
    float InputUnitScale = 1;
    std::optional<std::uint8_t> BuiltInKind; ///< none for a sensor with reference points
    std::optional<std::uint8_t> RtdCode;
    std::optional<float> RtdR0;
    std::optional<std::int16_t> ThermistorOhms;
    std::optional<std::uint8_t> TcLetterCode;

    bool BuiltIn() const { return BuiltInKind.has_value(); }
    /// The dialogue opens with such a project. It compares a list position with the function code, so that frequency
    /// (9) and thermocouple input (10) never fit.
    bool FitsOnceItIsAProject() const { return MeasFunction < 9; }
};

inline QList<ChosenSensor> PlainSensors(int kind)
{
    QList<ChosenSensor> sensors;
    const auto add = [&](const char *type, std::int32_t function, const char *unit, float scale) {
        ChosenSensor sensor;
        sensor.Kind = kind;
        sensor.Type = type;
        sensor.InputUnit = unit;
        sensor.MeasFunction = function;
        sensor.InputUnitScale = scale;
        sensors << sensor;
    };
    add("DCV", 0, "V", 1);
    add("DCV", 0, "mV", 1000);
    add("DCI", 2, "A", 1);
    add("DCI", 2, "mA", 1000);
    if (kind != 0)
        add("DCI", 2, "uA", 1000000);
    for (const auto &[type, function] : {std::pair{"2WR", 4}, std::pair{"4WR", 5}}) {
        add(type, function, "ohm", 1);
        add(type, function, "kohm", 0.001F);
    }
    add("Frequency", 9, "Hz", 1);
    add("Frequency", 9, "mHz", 1000);
    add("Frequency", 9, "kHz", 0.001F);
    add("Frequency", 9, "MHz", 1e-06F);
    if (kind == 1) {
        add("TC", 10, "V", 1);
        add("TC", 10, "mV", 1000);
    }
    return sensors;
}

/// Of a KV7060 alone. The units go round: they change nothing else.
inline QList<ChosenSensor> BuiltInSensors()
{
    QList<ChosenSensor> sensors;
    const auto add = [&](const char *type, const char *subType, std::int32_t function, std::uint8_t builtInKind) {
        constexpr const char *units[] = {"C", "F", "K"};
        ChosenSensor sensor;
        sensor.Kind = 2;
        sensor.Type = type;
        sensor.SubType = subType;
        sensor.InputUnit = units[sensors.size() % 3];
        sensor.MeasFunction = function;
        sensor.BuiltInKind = builtInKind;
        sensors << sensor;
    };
    std::uint8_t code = 0;
    for (const char *letter : {"B", "E", "J", "K", "N", "R", "S", "T"}) {
        add("TC", letter, 0, 0);
        sensors.back().TcLetterCode = code++;
    }
    for (const auto &[subType, function] : {std::pair{"RTD-2WR", 4}, std::pair{"RTD-4WR", 5}}) {
        code = 0;
        for (const auto &[standard, text, ohms] :
             {std::tuple{"Pt385", "100", 100.0F}, std::tuple{"Pt389", "49", 49.0F},
              std::tuple{"Pt391", "2100", 2100.0F}, std::tuple{"Pt392", "1000.5", 1000.5F}}) {
            add("RTD", subType, function, 1);
            sensors.back().Standard = standard;
            sensors.back().RtdCode = code++;
            sensors.back().Ohms = text;
            sensors.back().RtdR0 = ohms;
        }
    }
    for (const auto &[text, ohms] : {std::pair{"2.2K", 2200}, std::pair{"3K", 3000}, std::pair{"5K", 5000},
                                     std::pair{"10K", 10000}, std::pair{"30K", 30000}}) {
        add("THERM", text, 4, 2);
        sensors.back().ThermistorOhms = static_cast<std::int16_t>(ohms);
    }
    return sensors;
}

inline QList<ChosenSensor> AllSensors()
{
    return PlainSensors(0) + PlainSensors(1) + PlainSensors(2) + BuiltInSensors();
}

Q_DECLARE_METATYPE(ChosenSensor)

inline QByteArray NameOf(const ChosenSensor &sensor)
{
    QByteArray name = "kind " + QByteArray::number(sensor.Kind) + ", " + sensor.Type;
    for (const char *choice : {sensor.SubType, sensor.Standard, sensor.InputUnit}) {
        if (*choice != '\0')
            name += QByteArray(" ") + choice;
    }
    return name;
}

/// A definition whose every field has a content that no sensor gives it.
inline SensorProject OldRecord()
{
    SensorProject old;
    old.SensorName = QStringLiteral("old");
    old.MeasFunction = -1;
    old.IsThermocouple = 77;
    old.InputUnit = QStringLiteral("old in");
    old.OutputUnit = QStringLiteral("old out");
    old.OutputUnitIsUser = 77;
    old.InputUnitScale = 77;
    old.SensorTypeChars.fill(0xEE);
    old.UnitChars.fill(0xDD);
    old.BuiltInKind = 77;
    old.RtdCode = 77;
    old.ThermistorOhms = 77;
    old.RtdR0 = 77;
    old.TcLetterCode = 77;
    return old;
}

/// What a sensor makes of a definition, with the name and output unit of the dialogue.
/// @param outputUnit empty for none
inline SensorProject RecordOf(const ChosenSensor &sensor, SensorProject project, const QByteArray &name,
                              const char *outputUnit, bool userUnit)
{
    project.SensorName = QString::fromLatin1(name);
    project.MeasFunction = sensor.MeasFunction;
    project.IsThermocouple = 0;
    project.InputUnit = QString::fromLatin1(sensor.InputUnit);
    project.OutputUnit = QString::fromLatin1(sensor.BuiltIn() ? sensor.InputUnit : outputUnit);
    project.OutputUnitIsUser = userUnit ? 1 : 0;
    project.InputUnitScale = sensor.InputUnitScale;
    project.IsBuiltInSensor = sensor.BuiltIn();
    if (!sensor.BuiltIn())
        return project;
    project.SensorTypeChars.fill(0);
    for (int i = 0; i < std::min<int>(static_cast<int>(name.size()), 20); ++i)
        project.SensorTypeChars[i] = static_cast<std::uint8_t>(name[i]);
    project.UnitChars[0] = static_cast<std::uint8_t>(sensor.InputUnit[0]);
    project.BuiltInKind = *sensor.BuiltInKind;
    project.RtdCode = sensor.RtdCode.value_or(project.RtdCode);
    project.RtdR0 = sensor.RtdR0.value_or(project.RtdR0);
    project.ThermistorOhms = sensor.ThermistorOhms.value_or(project.ThermistorOhms);
    project.TcLetterCode = sensor.TcLetterCode.value_or(project.TcLetterCode);
    return project;
}

/// A definition as text, field by field in the record's order, to compare and to print.
inline QStringList FieldsOf(const SensorProject &project)
{
    const auto bytes = [](const auto &array) {
        return QString::fromLatin1(
            QByteArray(reinterpret_cast<const char *>(array.data()), static_cast<qsizetype>(array.size())).toHex());
    };
    const auto field = [](const char *name, const auto &value) {
        return QStringLiteral("%1: %2").arg(QString::fromLatin1(name)).arg(value);
    };
    return {field("SensorName", project.SensorName),
            field("MeasFunction", project.MeasFunction),
            field("IsThermocouple", int(project.IsThermocouple)),
            field("InputUnit", project.InputUnit),
            field("OutputUnit", project.OutputUnit),
            field("OutputUnitIsUser", int(project.OutputUnitIsUser)),
            field("InputUnitScale", project.InputUnitScale),
            field("IsBuiltInSensor", int(project.IsBuiltInSensor)),
            field("SensorTypeChars", bytes(project.SensorTypeChars)),
            field("UnitChars", bytes(project.UnitChars)),
            field("BuiltInKind", int(project.BuiltInKind)),
            field("RtdCode", int(project.RtdCode)),
            field("ThermistorOhms", project.ThermistorOhms),
            field("RtdR0", project.RtdR0),
            field("TcLetterCode", int(project.TcLetterCode))};
}
