/// @file
/// See DegreeEvidence.h.
#include "DegreeEvidence.h"

#include "EvidenceShapes.h"
#include "curve/LintabTable.h"
#include "curve/lintab/LeastSquares.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

using Lintab::LeastSquares;
using Lintab::Polynomial;

namespace {

using Function = std::function<double(double)>;

struct DegreeRule {
    std::string Name;
    std::function<int(const LeastSquares &)> Choose;
    std::vector<double> Excesses; ///< error, as a multiple of that of the degree that comes nearest to the truth
    double Degrees = 0;
};

int DegreeByPress(const LeastSquares &fits, double tolerance)
{
    double least = Infinity;
    for (int degree = 0; degree <= fits.HighestDegree(); ++degree)
        least = std::min(least, std::pow(fits.LeaveOneOutError(degree), 2));
    int best = 0;
    while (std::pow(fits.LeaveOneOutError(best), 2) > tolerance * least)
        ++best;
    return best;
}

std::vector<DegreeRule> DegreeRules()
{
    std::vector<DegreeRule> rules;
    for (const double tolerance : {1.0, 1.02, 1.05, 1.1, 1.2, 1.5, 2.0}) {
        char name[40];
        std::snprintf(name, sizeof name, "PRESS, %.2f of the least", tolerance);
        const auto choose = [tolerance](const LeastSquares &fits) { return DegreeByPress(fits, tolerance); };
        rules.push_back({.Name = name, .Choose = choose, .Excesses = {}});
    }
    for (const int degree : {2, 3, 5, 8}) {
        const auto choose = [degree](const LeastSquares &fits) { return std::min(degree, fits.HighestDegree()); };
        rules.push_back({.Name = "always " + std::to_string(degree), .Choose = choose, .Excesses = {}});
    }
    return rules;
}

/// Largest difference of a curve from a shape.
double LargestDifference(const Shape &shape, const Function &curve)
{
    double largest = 0;
    for (int i = 0; i <= 2000; ++i)
        largest = std::max(largest, std::abs(curve(i / 2000.0) - shape.At(i / 2000.0)));
    return largest;
}

double RootMeanSquareError(const Polynomial &fit, const Shape &shape)
{
    double sum = 0;
    for (int i = 0; i <= 500; ++i)
        sum += std::pow(ValueAt(fit, i / 500.0) - shape.At(i / 500.0), 2);
    return std::sqrt(sum / 501);
}

/// The nearest rank of a share of the numbers.
double QuantileOf(std::vector<double> numbers, double share)
{
    std::sort(numbers.begin(), numbers.end());
    return numbers[static_cast<std::size_t>(share * static_cast<double>(numbers.size() - 1))];
}

/// The farthest that a rising curve falls back.
double BackslideOf(const Function &curve)
{
    double top = curve(0);
    double farthest = 0;
    for (int i = 1; i <= 2000; ++i) {
        const double value = curve(i / 2000.0);
        top = std::max(top, value);
        farthest = std::max(farthest, top - value);
    }
    return farthest;
}

Polynomial LoweredUntil(const LeastSquares &fits, const std::function<bool(const Polynomial &, int)> &accepted)
{
    for (int degree = fits.BestDegree(); degree > 0; --degree) {
        if (accepted(fits.OfDegree(degree), degree))
            return fits.OfDegree(degree);
    }
    return fits.OfDegree(0);
}

struct MonotoneRule {
    const char *Name;
    std::function<Polynomial(const LeastSquares &)> Choose;
};

const std::vector<MonotoneRule> MonotoneRules = {
    {"fit as it is", [](const LeastSquares &fits) { return fits.OfDegree(fits.BestDegree()); }},
    {"lower degree",
     [](const LeastSquares &fits) {
         return LoweredUntil(fits, [](const Polynomial &fit, int) { return IsMonotone(fit, 1); });
     }},
    {"backslide up to the leave-one-out error",
     [](const LeastSquares &fits) {
         return LoweredUntil(fits, [&fits](const Polynomial &fit, int degree) {
             return BackslideOf([&fit](double x) { return ValueAt(fit, x); }) <= fits.LeaveOneOutError(degree);
         });
     }},
    {"nearest monotone", [](const LeastSquares &fits) { return fits.Best(); }},
};

bool Rises(const std::vector<CurvePoint> &points)
{
    const auto falls = [](const CurvePoint &left, const CurvePoint &right) { return right.Y < left.Y; };
    return std::adjacent_find(points.begin(), points.end(), falls) == points.end();
}

/// Up to 100 tables of a shape whose points rise in spite of the noise.
std::vector<std::vector<CurvePoint>> RisingTables(const Shape &shape, double noise)
{
    ShapeSampler sampler;
    std::vector<std::vector<CurvePoint>> tables;
    for (int tried = 0; tried < 4000 && tables.size() < 100; ++tried) {
        const std::vector<CurvePoint> points = sampler.Points(shape, sampler.Count(), noise);
        if (Rises(points))
            tables.push_back(points);
    }
    return tables;
}

struct MonotoneOutcome {
    std::vector<double> Errors; ///< largest error of each table
    double Backslide = 0;       ///< largest of all tables
    int Lines = 0;              ///< tables that end as a straight line, or a level one
};

MonotoneOutcome OutcomeOf(const MonotoneRule &rule, const std::vector<LeastSquares> &tables, const Shape &shape)
{
    MonotoneOutcome outcome;
    for (const LeastSquares &fits : tables) {
        const Polynomial fit = rule.Choose(fits);
        outcome.Errors.push_back(LargestDifference(shape, [&fit](double x) { return ValueAt(fit, x); }));
        outcome.Backslide = std::max(outcome.Backslide, BackslideOf([&fit](double x) { return ValueAt(fit, x); }));
        outcome.Lines += fit.Degree < 2 ? 1 : 0;
    }
    return outcome;
}

void PrintMonotone(const Shape &shape, double noise)
{
    std::vector<LeastSquares> tables;
    for (const std::vector<CurvePoint> &points : RisingTables(shape, noise))
        tables.emplace_back(points);
    if (tables.size() < 20)
        return;
    const auto falls = [](const LeastSquares &fits) { return !IsMonotone(fits.OfDegree(fits.BestDegree()), 1); };
    const auto falling = static_cast<std::size_t>(std::count_if(tables.begin(), tables.end(), falls));
    std::printf("| %s | %g %% | %zu %% |", shape.Name, 100 * noise, 100 * falling / tables.size());
    for (const MonotoneRule &rule : MonotoneRules) {
        const MonotoneOutcome outcome = OutcomeOf(rule, tables, shape);
        std::printf(" %.2g, %.2g; %.2g; %zu %% |", 100 * QuantileOf(outcome.Errors, 0.5),
                    100 * QuantileOf(outcome.Errors, 1), 100 * outcome.Backslide,
                    100 * static_cast<std::size_t>(outcome.Lines) / tables.size());
    }
    std::printf("\n");
}

/// How points are cut into stretches of about as many points each.
struct Cut {
    const char *Name;
    std::vector<std::uint8_t> Arithmetic; ///< of each stretch
};

const std::vector<Cut> Cuts = {{"1 fit", {Least}},
                               {"2 fits", {Least, Least}},
                               {"4 fits", {Least, Least, Least, Least}},
                               {"a fit, then lines", {Least, Line}}};

/// The curve through points, which is then held. False, with none held, when a stretch has too few.
bool BuildCut(const std::vector<CurvePoint> &points, const Cut &cut)
{
    const std::size_t stretches = cut.Arithmetic.size();
    Table table;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::size_t stretch = i * stretches / points.size();
        const bool opens = i == 0 || stretch > (i - 1) * stretches / points.size();
        opens ? table.Open(points[i].X, points[i].Y, cut.Arithmetic[stretch]) : table.Add(points[i].X, points[i].Y);
    }
    return table.Build() == 0;
}

/// 12 points even from 0 to 1 that rise from 0 to 1 by steps of very different height.
std::vector<CurvePoint> UnevenSteps(std::mt19937_64 &random)
{
    std::uniform_real_distribution<double> unit;
    std::vector<CurvePoint> points;
    double y = 0;
    for (int i = 0; i < 12; ++i) {
        points.push_back({i / 11.0, y});
        y += std::pow(unit(random), 3);
    }
    for (CurvePoint &point : points)
        point.Y /= points.back().Y;
    return points;
}

void PrintUnevenJoints()
{
    constexpr int Tables = 5000;
    std::printf(
        "\n## %d tables of uneven steps, in stretches: tables that fall back by more than a millionth of the span; "
        "largest backslide in %% of it\n\n| 1 fit | 2 fits | a fit, then lines |\n|---|---|---|\n|",
        Tables);
    for (const Cut &cut : {Cuts[0], Cuts[1], Cuts[3]}) {
        std::mt19937_64 random(1);
        int falling = 0;
        double largest = 0;
        for (int table = 0; table < Tables; ++table) {
            BuildCut(UnevenSteps(random), cut);
            const double backslide = BackslideOf(SEN_Meas_Z);
            falling += backslide > 1e-6 ? 1 : 0;
            largest = std::max(largest, backslide);
        }
        std::printf(" %.1f %%; %.2g |", 100.0 * falling / Tables, 100 * largest);
    }
    std::printf("\n");
}

/// Root mean square error, over even x, of the fit of a degree to a logarithm over three decades.
double LogarithmError(const LeastSquares &fits, int degree)
{
    const Polynomial fit = fits.OfDegree(degree);
    double sum = 0;
    for (int i = 0; i <= 1000; ++i) {
        const double x = std::lerp(1, 1000, i / 1000.0);
        sum += std::pow(ValueAt(fit, x) - std::log10(x), 2);
    }
    return std::sqrt(sum / 1001);
}

} // namespace

void PrintDegreeChoice()
{
    std::vector<DegreeRule> rules = DegreeRules();
    ShapeSampler sampler;
    for (const Shape &shape : SmoothShapes) {
        for (const double noise : {1e-4, 1e-3, 1e-2, 5e-2}) {
            for (int round = 0; round < 100; ++round) {
                const LeastSquares fits(sampler.Points(shape, sampler.Count(), noise));
                std::vector<double> errors;
                for (int degree = 0; degree <= fits.HighestDegree(); ++degree)
                    errors.push_back(RootMeanSquareError(fits.OfDegree(degree), shape));
                const double least = *std::min_element(errors.begin(), errors.end());
                for (DegreeRule &rule : rules) {
                    const int degree = rule.Choose(fits);
                    rule.Excesses.push_back(errors[static_cast<std::size_t>(degree)] / least);
                    rule.Degrees += degree;
                }
            }
        }
    }
    std::printf("\n## Degree, %zu tables with noise: error as a multiple of that of the best degree\n\n| rule | mean "
                "degree | median | 90 %% | 99 %% | largest |\n|---|---|---|---|---|---|\n",
                rules[0].Excesses.size());
    for (const DegreeRule &rule : rules) {
        std::printf("| %s | %.2f | %.2f | %.2f | %.1f | %.0f |\n", rule.Name.c_str(),
                    rule.Degrees / static_cast<double>(rule.Excesses.size()), QuantileOf(rule.Excesses, 0.5),
                    QuantileOf(rule.Excesses, 0.9), QuantileOf(rule.Excesses, 0.99), QuantileOf(rule.Excesses, 1));
    }
}

void PrintMonotoneRules()
{
    std::printf("\n## Monotone points: median and largest error in %% of the span; largest backslide, likewise; tables "
                "that end as a line\n\n| shape | noise | fits that fall |");
    for (const MonotoneRule &rule : MonotoneRules)
        std::printf(" %s |", rule.Name);
    std::printf("\n|---|---|---|---|---|---|---|\n");
    std::vector<Shape> shapes = SmoothShapes;
    shapes.push_back(Knee);
    for (const Shape &shape : shapes) {
        for (const double noise : {0.0, 1e-3})
            PrintMonotone(shape, noise);
    }
}

void PrintJoints()
{
    constexpr double Noise = 1e-3;
    std::printf(
        "\n## Rising points with noise, in stretches: largest backslide and error in units of the noise\n\n| shape |");
    for (const Cut &cut : Cuts)
        std::printf(" %s |", cut.Name);
    std::printf("\n|---|---|---|---|---|\n");
    for (const Shape &shape : SmoothShapes) {
        const std::vector<std::vector<CurvePoint>> tables = RisingTables(shape, Noise);
        std::printf("| %s |", shape.Name);
        for (const Cut &cut : Cuts) {
            double backslide = 0;
            double error = 0;
            for (const std::vector<CurvePoint> &points : tables) {
                if (!BuildCut(points, cut))
                    continue;
                backslide = std::max(backslide, BackslideOf(SEN_Meas_Z));
                error = std::max(error, LargestDifference(shape, SEN_Meas_Z));
            }
            std::printf(" %.2g, %.2g |", backslide / Noise, error / Noise);
        }
        std::printf("\n");
    }
    PrintUnevenJoints();
}

void PrintLevelCurves()
{
    std::printf(
        "\n## A logarithm over three decades: leave-one-out error and true error of the mean and of the line, in "
        "%% of the span\n\n| points | mean | line |\n|---|---|---|\n");
    for (const int count : {5, 7, 9, 13}) {
        std::vector<CurvePoint> points;
        for (int i = 0; i < count; ++i)
            points.push_back({std::pow(10, 3.0 * i / (count - 1)), 3.0 * i / (count - 1)});
        const LeastSquares fits(points);
        std::printf("| %d |", count);
        for (const int degree : {0, 1})
            std::printf(" %.0f, %.0f |", 100 * fits.LeaveOneOutError(degree) / 3,
                        100 * LogarithmError(fits, degree) / 3);
        std::printf("\n");
    }
}
