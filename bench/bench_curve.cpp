/// @file
/// The curve library beside the GNU Scientific Library: evaluation of 500 points joined by lines, at random x, at
/// random x of a table over nine decades, and at ascending x as a picture's columns ask for them; and the build of a
/// "Least" stretch of 500 points, of a sensor and of a step, which has no peer.
#include "RatioReporter.h"
#include "curve/lintab/Lintab.h"

#include <benchmark/benchmark.h>
#include <gsl/gsl_interp.h>
#include <gsl/gsl_multifit.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int PointCount = 500;
constexpr std::size_t QueryCount = 1 << 14;
constexpr int PeerDegree = 5;
constexpr std::uint8_t Line = 0;
constexpr std::uint8_t Least = 1;

struct Table {
    std::vector<CurvePoint> Points;
    std::vector<CurveFlag> Flags;
    std::vector<double> X; ///< the same, as the peer takes it
    std::vector<double> Y;
};

enum class Spacing { Even, NineDecades };

/// Uneven steps, as of a table that was measured, and a value with a little noise.
Table SensorTable(std::uint8_t arithmetic, Spacing spacing = Spacing::Even)
{
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> step(0.2, 1.8);
    std::normal_distribution<double> noise(0, 1e-4);
    Table table;
    double place = -3;
    for (int i = 0; i < PointCount; ++i) {
        place += step(random) / PointCount;
        const double x = spacing == Spacing::Even ? place : std::pow(10, 9 * place);
        const double y = std::exp(0.4 * place) + 0.1 * std::sin(2 * place) + noise(random);
        table.Points.push_back({x, y});
        table.Flags.push_back({arithmetic, static_cast<std::uint8_t>(i == 0)});
        table.X.push_back(x);
        table.Y.push_back(y);
    }
    return table;
}

/// As many between any two points, in no order.
std::vector<double> Queries(const Table &table)
{
    std::mt19937_64 random(11);
    std::uniform_int_distribution<std::size_t> piece(0, table.X.size() - 2);
    std::uniform_real_distribution<double> share(0, 1);
    std::vector<double> queries(QueryCount);
    std::generate(queries.begin(), queries.end(), [&] {
        const std::size_t left = piece(random);
        return std::lerp(table.X[left], table.X[left + 1], share(random));
    });
    return queries;
}

std::vector<double> AscendingQueries(const Table &table)
{
    std::vector<double> queries = Queries(table);
    std::sort(queries.begin(), queries.end());
    return queries;
}

void Build(const Table &table)
{
    SEN_Free();
    if (SEN_NewBuild_Z(PointCount, table.Points.data(), table.Flags.data()) != 0)
        std::abort();
}

template <typename Evaluate>
void EvaluateAll(benchmark::State &state, const std::vector<double> &queries, const Evaluate &evaluate)
{
    for (auto _ : state) {
        for (const double x : queries)
            benchmark::DoNotOptimize(evaluate(x));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(queries.size()));
}

void EvaluateOurs(benchmark::State &state, const Table &table, bool ascending)
{
    Build(table);
    EvaluateAll(state, ascending ? AscendingQueries(table) : Queries(table), SEN_Meas_Z);
    SEN_Free();
}

void EvaluatePeer(benchmark::State &state, const Table &table, bool ascending)
{
    gsl_interp *interpolation = gsl_interp_alloc(gsl_interp_linear, PointCount);
    gsl_interp_accel *accelerator = gsl_interp_accel_alloc();
    gsl_interp_init(interpolation, table.X.data(), table.Y.data(), PointCount);
    EvaluateAll(state, ascending ? AscendingQueries(table) : Queries(table), [&](double x) {
        return gsl_interp_eval(interpolation, table.X.data(), table.Y.data(), x, accelerator);
    });
    gsl_interp_accel_free(accelerator);
    gsl_interp_free(interpolation);
}

/// Rising points whose fit falls: it is held.
Table StepTable()
{
    Table table = SensorTable(Least);
    for (CurvePoint &point : table.Points)
        point.Y = point.X < table.Points[PointCount * 2 / 5].X ? 0 : 1;
    return table;
}

void BuildOurs(benchmark::State &state, const Table &table)
{
    for (auto _ : state)
        Build(table);
    SEN_Free();
}

/// One fit of a fixed degree, its matrix of powers included.
void BuildPeer(benchmark::State &state)
{
    const Table table = SensorTable(Least);
    gsl_multifit_linear_workspace *workspace = gsl_multifit_linear_alloc(PointCount, PeerDegree + 1);
    gsl_matrix *powers = gsl_matrix_alloc(PointCount, PeerDegree + 1);
    gsl_matrix *covariance = gsl_matrix_alloc(PeerDegree + 1, PeerDegree + 1);
    gsl_vector *coefficients = gsl_vector_alloc(PeerDegree + 1);
    const gsl_vector_const_view y = gsl_vector_const_view_array(table.Y.data(), PointCount);
    for (auto _ : state) {
        for (int i = 0; i < PointCount; ++i) {
            double power = 1;
            for (int k = 0; k <= PeerDegree; ++k, power *= table.X[i])
                gsl_matrix_set(powers, i, k, power);
        }
        double chiSquare = 0;
        gsl_multifit_linear(powers, &y.vector, coefficients, covariance, &chiSquare, workspace);
        benchmark::DoNotOptimize(chiSquare);
    }
    gsl_vector_free(coefficients);
    gsl_matrix_free(covariance);
    gsl_matrix_free(powers);
    gsl_multifit_linear_free(workspace);
}

const std::vector<Comparison> comparisons = {
    {"curve_eval_random", "gsl", 5},
    {"curve_eval_decades", "gsl", 1},
    {"curve_eval_sequential", "gsl", 1},
    {"curve_build_500", "gsl", 2},
};

void Register()
{
    const auto add = [](const char *name, auto routine) {
        benchmark::RegisterBenchmark(name, routine)
            ->MinTime(RepetitionSeconds)
            ->Repetitions(Repetitions)
            ->ReportAggregatesOnly();
    };
    const auto addEvaluation = [&add](const std::string &name, Spacing spacing, bool ascending) {
        add((name + "/ostrakon").c_str(),
            [=](benchmark::State &state) { EvaluateOurs(state, SensorTable(Line, spacing), ascending); });
        add((name + "/gsl").c_str(),
            [=](benchmark::State &state) { EvaluatePeer(state, SensorTable(Line, spacing), ascending); });
        add((name + "/ostrakon_least").c_str(),
            [=](benchmark::State &state) { EvaluateOurs(state, SensorTable(Least, spacing), ascending); });
    };
    addEvaluation("curve_eval_random", Spacing::Even, false);
    addEvaluation("curve_eval_decades", Spacing::NineDecades, false);
    addEvaluation("curve_eval_sequential", Spacing::Even, true);
    add("curve_build_500/ostrakon", [](benchmark::State &state) { BuildOurs(state, SensorTable(Least)); });
    add("curve_build_step/ostrakon", [](benchmark::State &state) { BuildOurs(state, StepTable()); });
    add("curve_build_500/gsl", BuildPeer);
}

} // namespace

int main(int argumentCount, char **arguments)
{
    // What is compared takes turns, so that a busy machine slows down both; what the command line says holds.
    std::string takeTurns = "--benchmark_enable_random_interleaving=true";
    std::vector<char *> all(arguments, arguments + argumentCount);
    all.insert(all.begin() + 1, takeTurns.data());
    argumentCount = static_cast<int>(all.size());
    benchmark::Initialize(&argumentCount, all.data());
    Register();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.PrintRatios(comparisons) ? 0 : 1;
}
