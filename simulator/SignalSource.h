/// @file
/// The living signals at the virtual multimeter's terminals: a sensor of each kind, driven by one clock, with noise of
/// its own for every function.
///
/// The plant is an oven that warms and cools. In it sit a type K thermocouple (DC volts), a Pt100 (2-wire and 4-wire
/// resistance) and a transmitter of 4 to 20 mA (DC current); the other functions have plausible signals of their own.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <random>

/// The ten functions of the multimeter; the values are the function codes that its companion program uses.
enum class MeasureFunction : int {
    DcVolts = 0,
    AcVolts = 1,
    DcCurrent = 2,
    AcCurrent = 3,
    Resistance2Wire = 4,
    Resistance4Wire = 5,
    Continuity = 6,
    Diode = 7,
    DcRatio = 8,
    Frequency = 9,
};

inline constexpr int MeasureFunctionCount = 10;

// Bounds of the oven, in degrees Celsius, and its period, in seconds. Chosen so that two minutes show a whole cycle.
inline constexpr double OvenLowest = 60.0;
inline constexpr double OvenHighest = 240.0;
inline constexpr double OvenPeriod = 120.0;

/// Resistance of the two leads together, in ohms, that a 2-wire measurement sees on top of the Pt100; chosen as about
/// two metres of 0.2 mm2 copper.
inline constexpr double LeadResistance = 0.4;

/// A reading of noise is at most this many standard deviations from the signal.
inline constexpr double NoiseBoundInDeviations = 6.0;

/// Tells the time in seconds; its zero is anywhere.
using SecondsClock = std::function<double()>;

/// Signals over a clock. Two sources with one seed give the same readings at the same times.
struct SignalSource {
    SecondsClock Clock;                                           ///< time of the oven and of every other signal
    std::array<std::mt19937_64, MeasureFunctionCount> Generators; ///< noise, one generator a function
};

/// A source over a clock, with noise generators seeded from seed.
SignalSource MakeSignalSource(SecondsClock clock, std::uint64_t seed);

/// A clock in real seconds that begins at 0 now and never steps back.
SecondsClock SteadySeconds();

/// Temperature of the oven in degrees Celsius at a time in seconds, always between OvenLowest and OvenHighest.
double OvenTemperature(double seconds);

/// Thermoelectric voltage of type K in volts, cold junction at 0 degrees Celsius. The ITS-90 reference function above
/// 0 degrees with its exponential term, coefficients of NIST Monograph 175. Meant for 0 to 1372 degrees Celsius;
/// a temperature outside gives the voltage of the nearer end.
double ThermocoupleKVolts(double celsius);

/// Resistance of a Pt100 in ohms by IEC 60751, R = 100 (1 + A t + B t^2) at and above 0 degrees Celsius. Meant for 0 to
/// 850 degrees Celsius; a temperature outside gives the resistance of the nearer end.
double Pt100Ohms(double celsius);

/// The signal of a function without noise at a time in seconds: volts, amperes, ohms, hertz, or a pure number (ratio).
double IdealSignal(MeasureFunction function, double seconds);

/// Standard deviation of the noise of a function, in its unit.
double NoiseDeviation(MeasureFunction function);

/// One reading: the signal now, with noise. Advances that function's generator.
double SampleSignal(SignalSource &source, MeasureFunction function);
