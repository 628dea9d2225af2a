/// @file
/// Random rows of reference tables, and what a file keeps of their numbers.
#pragma once

#include "curve/ReferenceDataTable.h"

#include <QRandomGenerator>

#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

/// The greatest number of 15 digits that is a double. A file holds those beyond it rounded up, as no double.
inline constexpr double MostKept = 1.79769313486231E+308;

/// At both ends of what a double can be.
inline constexpr std::array ExtremeNumbers{
    MostKept, std::numeric_limits<double>::min(), std::numeric_limits<double>::denorm_min(),
    std::numeric_limits<double>::min() - std::numeric_limits<double>::denorm_min(), // the greatest denormal one
};

/// Any bits that are a finite number.
inline double NumberOfRandomBits(QRandomGenerator &random)
{
    for (;;) {
        const auto number = std::bit_cast<double>(random.generate64());
        if (std::abs(number) <= MostKept)
            return number;
    }
}

/// Any sign and size: 0, the extremes, any bits, numbers as a sensor has them, and numbers of 1 to 17 digits.
inline double RandomNumber(QRandomGenerator &random)
{
    const quint32 kind = random.bounded(20U);
    const double sign = random.bounded(2) == 0 ? 1 : -1;
    if (kind == 0)
        return 0;
    if (kind == 1)
        return sign * ExtremeNumbers[random.bounded(quint32(ExtremeNumbers.size()))];
    if (kind < 6)
        return NumberOfRandomBits(random);
    if (kind < 12)
        return sign * std::round(random.generateDouble() * 1e7) / 1e4;
    const double decade = std::pow(10.0, random.bounded(17));
    return sign * std::round(random.generateDouble() * decade) / decade * std::pow(10.0, random.bounded(600) - 300);
}

/// The number that 15 of its digits stand for, by the C library's arithmetic. A 0 has no sign.
inline double Kept(double number)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.15g", number);
    return std::strtod(text.data(), nullptr) + 0.0;
}

inline DataRow RandomRow(QRandomGenerator &random, ReferenceDataLayout layout)
{
    const int arithmetic = layout == Text ? random.bounded(2) : random.bounded(65536) - 32768;
    return {RandomNumber(random), RandomNumber(random), random.bounded(2) == 0, static_cast<std::int16_t>(arithmetic)};
}

inline DataRow KeptRow(const DataRow &row)
{
    return {Kept(row.Input), Kept(row.Output), row.Segment, row.Arithmetic};
}
