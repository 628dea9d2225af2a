/// @file
/// Prints, as tables in Markdown, what the choices of the curve library rest on: how exact its fits are, how near its
/// curves come to sensors, and how its rules for the degree compare with others.
#include "DegreeEvidence.h"
#include "VarianceEvidence.h"
#include "curve/CurveData.h"
#include "curve/LintabTable.h"
#include "curve/Thermocouple.h"
#include "curve/lintab/LeastSquares.h"

#include <gsl/gsl_multifit.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

using Lintab::LeastSquares;
using Lintab::Polynomial;

namespace {

constexpr std::size_t FinePoints = 20000;

using Function = std::function<double(double)>;

/// The same fit as it is mostly made: powers of x as it stands.
std::vector<double> PowersFit(const std::vector<CurvePoint> &points, int degree)
{
    const std::size_t terms = static_cast<std::size_t>(degree) + 1;
    gsl_multifit_linear_workspace *workspace = gsl_multifit_linear_alloc(points.size(), terms);
    gsl_matrix *powers = gsl_matrix_alloc(points.size(), terms);
    gsl_matrix *covariance = gsl_matrix_alloc(terms, terms);
    gsl_vector *y = gsl_vector_alloc(points.size());
    gsl_vector *fitted = gsl_vector_alloc(terms);
    for (std::size_t i = 0; i < points.size(); ++i) {
        gsl_vector_set(y, i, points[i].Y);
        for (std::size_t k = 0; k < terms; ++k)
            gsl_matrix_set(powers, i, k, std::pow(points[i].X, static_cast<double>(k)));
    }
    double chiSquare = 0;
    gsl_multifit_linear(powers, y, fitted, covariance, &chiSquare, workspace);
    std::vector<double> coefficients(terms);
    for (std::size_t k = 0; k < terms; ++k)
        coefficients[k] = gsl_vector_get(fitted, k);
    gsl_vector_free(fitted);
    gsl_vector_free(y);
    gsl_matrix_free(covariance);
    gsl_matrix_free(powers);
    gsl_multifit_linear_free(workspace);
    return coefficients;
}

double LargestError(const Function &function, const std::vector<CurvePoint> &expected)
{
    double largest = 0;
    for (const CurvePoint &point : expected)
        largest = std::max(largest, std::abs(function(point.X) - point.Y));
    return largest;
}

/// Largest errors, as shares of the largest value that there is.
struct Errors {
    double Values = 0;       ///< of the library's fit
    double PowersValues = 0; ///< of the one over powers
    double Slopes = 0;
    double Press = 0; ///< of its root
};

void AddValueErrors(Errors &errors, const std::vector<CurvePoint> &points, int degree,
                    const std::vector<CurvePoint> &expected)
{
    const Polynomial fit = LeastSquares(points).OfDegree(degree);
    const std::vector<double> powers = PowersFit(points, degree);
    const auto horner = [&powers](double x) {
        double y = 0;
        for (std::size_t k = powers.size(); k-- > 0;)
            y = y * x + powers[k];
        return y;
    };
    const double unit = LargestOutput(points);
    const auto value = [&fit](double x) { return ValueAt(fit, x); };
    errors.Values = std::max(errors.Values, LargestError(value, expected) / unit);
    errors.PowersValues = std::max(errors.PowersValues, LargestError(horner, expected) / unit);
}

/// Points on (1 - 2 w + 3 w^2 - ...), w the share of the span, and the largest error of the curve beside them.
double ErrorOfExactPoints(int degree, int count)
{
    const auto exact = [degree](double w) {
        double sum = 0;
        for (int k = degree; k >= 0; --k)
            sum = sum * w + (k % 2 == 0 ? 1 : -1) * (1 + k);
        return sum;
    };
    Table table;
    std::vector<CurvePoint> fine;
    for (int i = 0; i < count; ++i) {
        const double x = std::ldexp(i, -9);
        i == 0 ? table.Open(x, exact(x), Least) : table.Add(x, exact(x));
    }
    for (int i = 0; i < 4 * (count - 1); ++i)
        fine.push_back({std::ldexp(i, -11), exact(std::ldexp(i, -11))});
    table.Build();
    return LargestError(SEN_Meas_Z, fine) / LargestOutput(table.Points);
}

void PrintExactPolynomials()
{
    std::printf("\n## Points on a polynomial\n\n| degree | 25 points | 500 points |\n|---|---|---|\n");
    for (int degree = 0; degree <= Lintab::HighestPolynomialDegree; ++degree)
        std::printf("| %d | %.1e | %.1e |\n", degree, ErrorOfExactPoints(degree, 25), ErrorOfExactPoints(degree, 500));
}

void PrintCertified()
{
    std::printf("\n## Certified fits\n\n| data | degree | values | values, powers of x |\n|---|---|---|---|\n");
    for (const auto &[name, degree] : {std::pair("Norris", 1), std::pair("Wampler1", 5), std::pair("Wampler5", 5)}) {
        Errors errors;
        AddValueErrors(errors, PointsOfFile(std::string(name) + ".csv", 1, 0), degree,
                       PointsOfFile(std::string(name) + "_golden_fit.csv", 0, 1));
        std::printf("| %s | %d | %.1e | %.1e |\n", name, degree, errors.Values, errors.PowersValues);
    }
}

Errors GoldenErrors(const std::string &name, int highest)
{
    const std::vector<CurvePoint> points = GoldenPoints(name);
    const LeastSquares fits(points);
    Errors errors;
    for (int degree = 1; degree <= highest; ++degree) {
        const GoldenFit golden = GoldenFitOf(name, degree);
        AddValueErrors(errors, points, degree, golden.Values);
        const Polynomial fit = fits.OfDegree(degree);
        const auto slope = [&fit](double x) { return SlopeAt(fit, x) * fit.Frame.Scale; };
        errors.Slopes = std::max(errors.Slopes, LargestError(slope, golden.Slopes) / LargestOutput(golden.Slopes));
        const double press = fits.LeaveOneOutError(degree) * std::sqrt(static_cast<double>(points.size()));
        errors.Press = std::max(errors.Press, std::abs(press - std::sqrt(golden.Press)) / LargestOutput(points));
    }
    return errors;
}

void PrintGolden()
{
    std::printf("\n## Exact least squares\n\n| data | degrees | values | values, powers of x | end slopes | root of "
                "PRESS |\n|---|---|---|---|---|---|\n");
    for (const auto &[name, highest] : {std::pair("K_25pts_mV_to_C", 8), std::pair("S_6pts", 3),
                                        std::pair("alldup_but_6", 3), std::pair("tiny_x_1e-9_30pts", 8)}) {
        const Errors errors = GoldenErrors(name, highest);
        std::printf("| `%s` | 1 to %d | %.1e | %.1e | %.1e | %.1e |\n", name, highest, errors.Values,
                    errors.PowersValues, errors.Slopes, errors.Press);
    }
}

/// Cuts points into as many stretches of about the same number of points.
Table InStretches(const std::vector<CurvePoint> &points, std::size_t stretches, std::uint8_t arithmetic)
{
    Table table;
    std::size_t opened = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (opened < stretches && i == opened * (points.size() - 1) / stretches) {
            table.Open(points[i].X, points[i].Y, arithmetic);
            ++opened;
        } else {
            table.Add(points[i].X, points[i].Y);
        }
    }
    return table;
}

/// Largest error of the curve held against points that it need not have been built from.
double CurveError(const std::vector<CurvePoint> &points)
{
    return LargestError(SEN_Meas_Z, points);
}

/// One row: by lines, and by least squares with several numbers of stretches.
void PrintStretches(const std::vector<CurvePoint> &points, const std::vector<CurvePoint> &fine)
{
    InStretches(points, 1, Line).Build();
    std::printf(" %.2g |", CurveError(fine));
    for (const std::size_t stretches : {1, 2, 4, 8}) {
        if (InStretches(points, stretches, Least).Build() == 0) {
            std::printf(" %.2g |", CurveError(fine));
        } else {
            std::printf(" |");
        }
    }
    std::printf("\n");
}

void PrintThermocouple(char letter, double low)
{
    const Thermocouple thermocouple(letter);
    std::printf("| %c | %g to %g |", letter, low, thermocouple.High());
    PrintStretches(thermocouple.Points(97, low), thermocouple.Points(FinePoints, low));
}

void PrintThermocouples()
{
    std::printf(
        "\n## Thermocouples, 97 points, largest error in degrees\n\n| type | range | lines | 1 fit | 2 fits | 4 "
        "fits | 8 fits |\n|---|---|---|---|---|---|---|\n");
    for (const char letter : std::string("BEJKNRST"))
        PrintThermocouple(letter, Thermocouple(letter).Low());
    for (const char letter : std::string("EKNT"))
        PrintThermocouple(letter, Thermocouple(letter).Lowest());
}

std::vector<CurvePoint> EachOf(const std::vector<CurvePoint> &points, std::size_t step)
{
    std::vector<CurvePoint> some;
    for (std::size_t i = 0; i < points.size(); i += step)
        some.push_back(points[i]);
    return some;
}

void PrintResistances()
{
    std::printf("\n## Resistance thermometers, from the resistance to the temperature, largest error in degrees\n\n"
                "| sensor | points | lines | 1 fit | 2 fits | 4 fits | 8 fits |\n|---|---|---|---|---|---|---|\n");
    const std::vector<CurvePoint> platinum = PointsOfFile("pt100_iec60751_1C.csv", 1, 0);
    const std::vector<CurvePoint> thermistor = PointsOfFile("ntc10k_steinhart_hart_1C.csv", 1, 0);
    for (const std::size_t step : {50, 25, 10}) {
        const std::vector<CurvePoint> points = EachOf(platinum, step);
        std::printf("| Pt100, -200 to 850 | %zu |", points.size());
        PrintStretches(points, platinum);
    }
    for (const std::size_t step : {10, 5, 2}) {
        const std::vector<CurvePoint> points = EachOf(thermistor, step);
        std::printf("| thermistor, -40 to 150 | %zu |", points.size());
        PrintStretches(points, thermistor);
    }
}

} // namespace

int main()
{
    PrintExactPolynomials();
    PrintCertified();
    PrintGolden();
    PrintThermocouples();
    PrintResistances();
    PrintDegreeChoice();
    PrintLevelCurves();
    PrintVariances();
    PrintRepeatedReadings();
    PrintMonotoneRules();
    PrintJoints();
    return 0;
}
