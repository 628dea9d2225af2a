/// @file
/// Reads the reference numbers of the curve library: comma-separated files below tests/curve/data.
#pragma once

#include "curve/lintab/Lintab.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

using DataRow = std::vector<std::string>;

/// Rows of a file below its heading. A file that is not there ends the program.
inline std::vector<DataRow> RowsOf(const std::string &name)
{
    std::ifstream file(OSTRAKON_TEST_DATA "/" + name);
    if (!file) {
        std::fprintf(stderr, "%s cannot be read\n", name.c_str());
        std::abort();
    }
    std::vector<DataRow> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream cells(line);
        DataRow &row = rows.emplace_back();
        for (std::string cell; std::getline(cells, cell, ',');)
            row.push_back(cell);
    }
    return rows;
}

/// The number of a cell, whatever the locale. A cell that is none ends the program.
inline double NumberOf(const std::string &cell)
{
    double number = 0;
    if (std::from_chars(cell.data(), cell.data() + cell.size(), number).ec != std::errc()) {
        std::fprintf(stderr, "\"%s\" is no number\n", cell.c_str());
        std::abort();
    }
    return number;
}

/// Two columns of a file as points, ascending in X.
inline std::vector<CurvePoint> PointsOfFile(const std::string &name, int xColumn, int yColumn)
{
    std::vector<CurvePoint> points;
    for (const DataRow &row : RowsOf(name))
        points.push_back({NumberOf(row.at(xColumn)), NumberOf(row.at(yColumn))});
    std::stable_sort(points.begin(), points.end(), [](const CurvePoint &a, const CurvePoint &b) { return a.X < b.X; });
    return points;
}

/// The points of one of the tables of a file.
inline std::vector<CurvePoint> PointsOfTable(const std::string &file, const std::string &name)
{
    std::vector<CurvePoint> points;
    for (const DataRow &row : RowsOf(file)) {
        if (row.at(0) == name)
            points.push_back({NumberOf(row.at(1)), NumberOf(row.at(2))});
    }
    return points;
}

/// The points of one of the tables whose exact fits are known.
inline std::vector<CurvePoint> GoldenPoints(const std::string &name)
{
    return PointsOfTable("golden_points.csv", name);
}

/// What is known of the exact fit of one degree to one of those tables.
struct GoldenFit {
    std::vector<CurvePoint> Values; ///< at query points
    std::vector<CurvePoint> Slopes; ///< at both ends
    double Press = 0;               ///< sum of the squares of the leave-one-out residuals
};

inline GoldenFit GoldenFitOf(const std::string &name, int degree)
{
    GoldenFit fit;
    for (const DataRow &row : RowsOf("golden_least_squares.csv")) {
        if (row.at(0) != name || NumberOf(row.at(3)) != degree)
            continue;
        if (row.at(4) == "y")
            fit.Values.push_back({NumberOf(row.at(5)), NumberOf(row.at(6))});
        if (row.at(4) == "slope")
            fit.Slopes.push_back({NumberOf(row.at(5)), NumberOf(row.at(6))});
        if (row.at(4) == "press_loo")
            fit.Press = NumberOf(row.at(6));
    }
    return fit;
}

inline double LargestOutput(const std::vector<CurvePoint> &points)
{
    double largest = 0;
    for (const CurvePoint &point : points)
        largest = std::max(largest, std::abs(point.Y));
    return largest;
}
