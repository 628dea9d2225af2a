/// @file
/// The table of the ten sensor projects: which slots are taken, how each sensor is defined, and its reference rows.
#pragma once

#include <QString>

#include <array>
#include <cstdint>

class QTreeWidgetItem;
class SensorProjFrm;

inline constexpr int SlotCount = 10;           ///< projects that can be open at once
inline constexpr int ReferenceRowLimit = 500;  ///< rows of a reference table, numbered from 1
inline constexpr int SensorTypeCharCount = 20; ///< characters of a built-in sensor's name that the instrument gets
inline constexpr int UnitCharCount = 16;
inline constexpr std::int16_t ProjectChildCount = 3; ///< pages of a project window, each a node under the project's

/// The multimeter function that a project reads.
namespace MeasFunctionCode {
inline constexpr std::int32_t DcVoltage = 0;
inline constexpr std::int32_t DcCurrent = 2;
inline constexpr std::int32_t TwoWireResistance = 4;
inline constexpr std::int32_t FourWireResistance = 5;
inline constexpr std::int32_t Diode = 7;
inline constexpr std::int32_t Frequency = 9;
inline constexpr std::int32_t Thermocouple = 10;
} // namespace MeasFunctionCode

/// Kinds of sensors that the instrument converts by itself.
namespace BuiltInKindCode {
inline constexpr std::uint8_t Thermocouple = 0;
inline constexpr std::uint8_t Rtd = 1;
inline constexpr std::uint8_t Thermistor = 2;
} // namespace BuiltInKindCode

/// One sensor definition. The project file's lines have an order of their own.
struct SensorProject {
    QString SensorName;                ///< at most 9 characters by the dialogue's rule
    std::int32_t MeasFunction = 0;     ///< see MeasFunctionCode
    std::uint8_t IsThermocouple = 0;   ///< the dialogue's thermocouple option, out of the user's reach: 0 in practice
    QString InputUnit;                 ///< unit of the instrument-side values
    QString OutputUnit;                ///< unit of the sensor-side values; empty for none
    std::uint8_t OutputUnitIsUser = 0; ///< 0 from the list of units, 1 free text
    float InputUnitScale = 1;          ///< factor from the instrument's base unit into InputUnit
    bool IsBuiltInSensor = false;      ///< the instrument's own curve applies, no reference rows
    std::array<std::uint8_t, SensorTypeCharCount> SensorTypeChars{}; ///< character codes of SensorName, built-in only
    std::array<std::uint8_t, UnitCharCount> UnitChars{}; ///< element 0: first character of InputUnit, built-in only
    std::uint8_t BuiltInKind = 0;                        ///< see BuiltInKindCode
    std::uint8_t RtdCode = 0;                            ///< 0 Pt385, 1 Pt389, 2 Pt391, 3 Pt392
    std::int16_t ThermistorOhms = 0;                     ///< resistance at 25 °C: 2200, 3000, 5000, 10000 or 30000 ohm
    float RtdR0 = 0;                                     ///< resistance at 0 °C, 49 to 2100 ohm
    std::uint8_t TcLetterCode = 0;                       ///< 0 B, 1 E, 2 J, 3 K, 4 N, 5 R, 6 S, 7 T
};

/// Bookkeeping of one slot. A closed slot keeps its old contents, name and flag apart, until it is taken again.
struct ProjectSlot {
    std::int16_t NodeIndex = 0;             ///< position in the flat node collection of the tree, from 1
    QTreeWidgetItem *ProjectNode = nullptr; ///< a tree node; written at the index ProjectNodeCount, not at the slot's
    std::int16_t ChildCount = 0;            ///< nodes under the project's; 3 from the frame's load on
    bool HasFile = false;                   ///< written to or read from a file
    bool Dirty = false;                     ///< carries no state: only ever set to false, read by nobody
    QString FilePath;                       ///< empty until a file is chosen
    QString LoadedPath;                     ///< the path that was opened
    QString ProjectName;                    ///< what tree and window title show; empty in a free slot
    bool CurveApplied = false;              ///< the curve library holds this project's curve; on one slot at most
};

/// One row of a reference table.
struct ReferencePoint {
    bool Used = false;
    double Input = 0;            ///< instrument-side value, in InputUnit
    QString InputText;           ///< unit shown in the dialogue when the row was stored
    double Output = 0;           ///< sensor-side value, in OutputUnit
    QString OutputText;          ///< the same for the output side
    bool Segment = false;        ///< the point begins a segment of the curve
    std::int16_t Arithmetic = 0; ///< 0 line, 1 least squares: the method of the segment that the point begins
};

/// Rows of a table, indexed by row number; row 0 is never used.
using ReferenceRows = std::array<ReferencePoint, ReferenceRowLimit + 1>;

/// All indexed by slot, 0 to 9, and alive for the whole run. ProjectOccupied, ProjectCount and the tree change
/// together; written by LifecycleModule.
extern std::array<bool, SlotCount> ProjectOccupied;
/// The slot's window; nullptr while there is none. Cleared when the window is gone.
extern std::array<SensorProjFrm *, SlotCount> ProjectForm;
extern std::array<ProjectSlot, SlotCount> ProjectSlots;
extern std::array<SensorProject, SlotCount> SensorProjects;
/// Written by the reference editing and by New and Open.
extern std::array<ReferenceRows, SlotCount> ReferenceTable;

extern std::int16_t ProjectCount;      ///< occupied slots, 0 to 10
extern std::int16_t CurrentNewSlot;    ///< the slot that New is filling
extern std::int16_t ProjectNodeCount;  ///< project nodes of the tree; the index at which ProjectNode is written
extern std::int32_t ProjectPointCount; ///< points of the project last drawn, saved or loaded

/// The slot itself. @throws RuntimeError 9 when it is not 0 to 9
int CheckedSlot(int slot);

/// The lowest free slot, 0 when none is free.
int FindFreeSlot();

/// Number of the highest used row of a slot, 1 to 500, or 0 when no row is used. Rows below it may be unused.
/// @throws RuntimeError 9 when the slot is not 0 to 9
std::int32_t LastUsedRow(int slot);

/// True when a file stands at the path. Errors count as not found.
bool FileExists(const QString &path);

/// Factor from the instrument's base unit into a unit; 1 for a unit that is not known.
float InputUnitScaleOf(const QString &inputUnit);

/// Empties the whole table; ChildCount becomes 0 until the frame loads.
void ResetProjectTable();
