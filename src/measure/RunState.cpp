#include "measure/RunState.h"

bool Measuring = false;
bool OverloadAccepted = false;
bool InstrumentSensorOn = false;
QString FunctionCommand;
QString MeasureCommand;
std::array<double, SlotCount> MeasureMax{};
std::array<double, SlotCount> MeasureMin{};
std::array<double, SlotCount> ValueMax{};
std::array<double, SlotCount> ValueMin{};

void ResetRunState()
{
    Measuring = false;
    OverloadAccepted = false;
    InstrumentSensorOn = false;
    FunctionCommand.clear();
    MeasureCommand.clear();
    MeasureMax.fill(0);
    MeasureMin.fill(0);
    ValueMax.fill(0);
    ValueMin.fill(0);
}
