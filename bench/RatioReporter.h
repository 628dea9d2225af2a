/// @file
/// Prints, behind the table of times, how many times longer the peer takes than this program: the ratio of the medians
/// of one run, since the machines differ and are shared.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

inline constexpr int Repetitions = 25; ///< of each benchmark; their median counts
inline constexpr double RepetitionSeconds = 0.05;

/// One comparison: benchmarks "<Name>/ostrakon" and "<Name>/<peer>".
struct Comparison {
    const char *Name;
    const char *Peer;
    double Least; ///< ratio that is aimed at
};

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (run.aggregate_name == "median")
                m_medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
        }
    }

    /// @return false when a ratio is below its aim, or was not measured
    bool PrintRatios(const std::vector<Comparison> &comparisons) const
    {
        bool reached = true;
        for (const Comparison &comparison : comparisons) {
            const std::string name = comparison.Name;
            const auto ours = m_medians.find(name + "/ostrakon");
            const auto peer = m_medians.find(name + "/" + comparison.Peer);
            const bool measured = ours != m_medians.end() && peer != m_medians.end();
            const double ratio = measured ? peer->second / ours->second : 0;
            std::printf("%-24s %s takes %6.2f times as long; aim: at least %g\n", comparison.Name, comparison.Peer,
                        ratio, comparison.Least);
            reached = reached && ratio >= comparison.Least;
        }
        return reached;
    }

private:
    std::map<std::string, double> m_medians;
};
