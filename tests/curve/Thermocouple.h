/// @file
/// The reference functions of the eight letter types of thermocouples (ITS-90), and tables of points made from them.
#pragma once

#include "curve/CurveData.h"

#include <cstddef>

/// One letter type.
class Thermocouple {
public:
    explicit Thermocouple(char letter) : m_letter(letter)
    {
        for (const DataRow &row : RowsOf("its90_coefficients.csv")) {
            if (row.at(0) == std::string(1, letter))
                Take(row);
        }
    }

    double Lowest() const { return m_ranges.front().Low; } ///< start of the reference function, in degrees Celsius
    double High() const { return m_ranges.back().High; }   ///< its end

    /// Start of the published inverse function, in degrees Celsius: further down the signal hardly changes any more.
    double Low() const
    {
        if (m_letter == 'B')
            return 250;
        return Lowest() == -270 ? -200 : Lowest();
    }

    /// Signal in mV at a temperature, the reference junction at 0 degrees Celsius.
    double Signal(double celsius) const
    {
        std::size_t i = 0;
        while (i + 1 < m_ranges.size() && celsius > m_ranges[i].High)
            ++i;
        const Range &range = m_ranges[i];
        double signal = 0;
        for (std::size_t power = range.Powers.size(); power-- > 0;)
            signal = signal * celsius + range.Powers[power];
        const double distance = celsius - range.BumpCentre;
        return signal + range.BumpHeight * std::exp(range.BumpWidth * distance * distance);
    }

    /// From the signal to the temperature: `count` points even in temperature from `low` to the end of the range.
    std::vector<CurvePoint> Points(int count, double low) const
    {
        std::vector<CurvePoint> points;
        for (int i = 0; i < count; ++i) {
            const double celsius = low + (High() - low) * i / (count - 1);
            points.push_back({Signal(celsius), celsius});
        }
        return points;
    }

private:
    struct Range {
        double Low;
        double High;
        std::vector<double> Powers; ///< coefficients in mV, by the power of the temperature
        double BumpHeight = 0;      ///< type K above 0 only: a bell curve on top
        double BumpWidth = 0;
        double BumpCentre = 0;
    };

    /// Columns: type, range_lo_C, range_hi_C, power, coef_mV.
    void Take(const DataRow &row)
    {
        const double low = NumberOf(row.at(1));
        if (m_ranges.empty() || m_ranges.back().Low != low)
            m_ranges.push_back({.Low = low, .High = NumberOf(row.at(2)), .Powers = {}});
        Range &range = m_ranges.back();
        const std::string &power = row.at(3);
        const double coefficient = NumberOf(row.at(4));
        if (power == "exp_a0") {
            range.BumpHeight = coefficient;
        } else if (power == "exp_a1") {
            range.BumpWidth = coefficient;
        } else if (power == "exp_a2") {
            range.BumpCentre = coefficient;
        } else {
            range.Powers.push_back(coefficient);
        }
    }

    char m_letter;
    std::vector<Range> m_ranges; ///< ascending
};
