// Benchmarks beside their floors: a console report that keeps each benchmark's time, and the
// ratio lines printed after the run.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orrery {

// Keeps each benchmark's real time per iteration in seconds, under "name" or "name/arg";
// with repetitions the median stands for the benchmark.
class TimeKeepingReporter : public benchmark::ConsoleReporter {
public:
    using benchmark::ConsoleReporter::ConsoleReporter;
    void ReportRuns(const std::vector<Run> &runs) override;
    std::optional<double> Seconds(const std::string &name) const;

private:
    std::map<std::string, double> m_seconds;
    std::set<std::string> m_fromMedian;
};

// Prints "what = ratio (measured / floor)" and, with an aim above 0, whether it was met. A
// missed aim is reported, never a failure.
void PrintRatio(const TimeKeepingReporter &times, const char *what, const char *measured,
                const char *floor, double aim);

// Reads the benchmark flags of the command line and returns the console options it asks
// for (tabular counters, colour on a terminal); nullopt, after saying so, when an argument is
// unknown.
std::optional<benchmark::ConsoleReporter::OutputOptions> InitializeBenchmarks(int &argc, char **argv);

// The whole of a plain benchmark program: reads the flags, runs what they select and hands
// the times to `report`, which prints the ratios. Returns the program's exit status.
int RunBenchmarks(int argc, char **argv,
                  const std::function<void(const TimeKeepingReporter &)> &report);

} // namespace orrery
