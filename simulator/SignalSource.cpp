#include "simulator/SignalSource.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

// Type K, 0 to 1372 degrees Celsius, millivolts: NIST Monograph 175 (SRD 60), powers 0 to 9, and the exponential term
// a0 exp(a1 (t - a2)^2).
constexpr std::array<double, 10> TypeK = {-0.017600413686,  0.038921204975,    1.8558770032e-05, -9.9457592874e-08,
                                          3.1840945719e-10, -5.6072844889e-13, 5.6075059059e-16, -3.2020720003e-19,
                                          9.7151147152e-23, -1.2104721275e-26};
constexpr double TypeKExponential0 = 0.1185976;
constexpr double TypeKExponential1 = -0.0001183432;
constexpr double TypeKExponential2 = 126.9686;
constexpr double TypeKHighest = 1372.0;

// IEC 60751.
constexpr double PlatinumA = 3.9083e-3;
constexpr double PlatinumB = -5.775e-7;
constexpr double PlatinumHighest = 850.0;

// The oven: a slow cycle and, as a two-point regulator leaves it, a quick ripple. Swing and ripple together stay one
// degree inside the bounds.
constexpr double OvenMiddle = (OvenLowest + OvenHighest) / 2;
constexpr double OvenRipple = 1.5;
constexpr double OvenRipplePeriod = 7.0;
constexpr double OvenSwing = (OvenHighest - OvenLowest) / 2 - OvenRipple - 1.0;

// A transmitter of 4 to 20 mA (IEC 60381-1) over 0 to 400 degrees Celsius.
constexpr double LoopZero = 4e-3;
constexpr double LoopSpan = 16e-3;
constexpr double LoopRange = 400.0;

// The mains of 230 V (IEC 60038), drifting by one per cent, well inside the ten that EN 50160 allows.
constexpr double MainsVolts = 230.0;
constexpr double MainsDrift = 2.3;

/// Standard deviations in the order of MeasureFunction. That of DC volts is asked of the model: 2 microvolts.
constexpr std::array<double, MeasureFunctionCount> Deviations = {2e-6, 2e-2, 2e-7, 2e-4, 2e-3,
                                                                 5e-4, 5e-3, 2e-5, 2e-6, 1e-3};

double Wave(double seconds, double period)
{
    return std::sin(2 * std::numbers::pi * seconds / period);
}

int IndexOf(MeasureFunction function)
{
    return static_cast<int>(function);
}

/// Uniform from 0 to below 1 with 53 bits. The standard's distributions differ from library to library; this does not.
double Uniform(std::mt19937_64 &generator)
{
    return std::ldexp(static_cast<double>(generator() >> 11), -53);
}

/// Nearly normal with deviation 1: the sum of twelve uniform numbers, which never leaves -6 to 6.
double BoundedNormal(std::mt19937_64 &generator)
{
    double sum = -NoiseBoundInDeviations;
    for (int term = 0; term < 12; ++term)
        sum += Uniform(generator);
    return sum;
}

} // namespace

SignalSource MakeSignalSource(SecondsClock clock, std::uint64_t seed)
{
    SignalSource source;
    source.Clock = std::move(clock);
    for (int function = 0; function < MeasureFunctionCount; ++function)
        source.Generators[function].seed(seed * MeasureFunctionCount + static_cast<std::uint64_t>(function));
    return source;
}

SecondsClock SteadySeconds()
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    return [start] { return std::chrono::duration<double>(Clock::now() - start).count(); };
}

double OvenTemperature(double seconds)
{
    // A quarter of a period back: the oven is cold at time 0 and warms first.
    return OvenMiddle + OvenSwing * Wave(seconds - OvenPeriod / 4, OvenPeriod) +
           OvenRipple * Wave(seconds, OvenRipplePeriod);
}

double ThermocoupleKVolts(double celsius)
{
    const double t = std::clamp(celsius, 0.0, TypeKHighest);
    double millivolts = 0;
    for (auto coefficient = TypeK.rbegin(); coefficient != TypeK.rend(); ++coefficient)
        millivolts = millivolts * t + *coefficient;
    const double distance = t - TypeKExponential2;
    millivolts += TypeKExponential0 * std::exp(TypeKExponential1 * distance * distance);
    return millivolts * 1e-3;
}

double Pt100Ohms(double celsius)
{
    const double t = std::clamp(celsius, 0.0, PlatinumHighest);
    return 100.0 * (1 + PlatinumA * t + PlatinumB * t * t);
}

double IdealSignal(MeasureFunction function, double seconds)
{
    switch (function) {
    case MeasureFunction::DcVolts:
        return ThermocoupleKVolts(OvenTemperature(seconds));
    case MeasureFunction::AcVolts:
        return MainsVolts + MainsDrift * Wave(seconds, 300);
    case MeasureFunction::DcCurrent:
        return LoopZero + LoopSpan * OvenTemperature(seconds) / LoopRange;
    case MeasureFunction::AcCurrent: // a heater of about 100 W on that mains
        return 0.435 + 0.01 * Wave(seconds, 45);
    case MeasureFunction::Resistance2Wire:
        return Pt100Ohms(OvenTemperature(seconds)) + LeadResistance;
    case MeasureFunction::Resistance4Wire:
        return Pt100Ohms(OvenTemperature(seconds));
    case MeasureFunction::Continuity: // leads and a closed contact
        return LeadResistance + 0.1 + 0.02 * Wave(seconds, 30);
    case MeasureFunction::Diode: // silicon at about 1 mA; a room within 3 degrees, -2 mV a degree
        return 0.600 - 0.002 * 3 * Wave(seconds, 600);
    case MeasureFunction::DcRatio: // a half bridge near its balance
        return 0.5 + 0.01 * Wave(seconds, 60);
    case MeasureFunction::Frequency: // a free-running oscillator
        return 1000.0 + 0.5 * Wave(seconds, 90);
    }
    return 0;
}

double NoiseDeviation(MeasureFunction function)
{
    return Deviations.at(IndexOf(function));
}

double SampleSignal(SignalSource &source, MeasureFunction function)
{
    std::mt19937_64 &generator = source.Generators.at(IndexOf(function));
    return IdealSignal(function, source.Clock()) + NoiseDeviation(function) * BoundedNormal(generator);
}
