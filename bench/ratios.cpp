// The ratio report of the benchmarks.
#include "ratios.h"

#include <unistd.h>

#include <cstdio>
#include <string_view>

namespace orrery {

void TimeKeepingReporter::ReportRuns(const std::vector<Run> &runs) {
    benchmark::ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs) {
        if (run.error_occurred) continue;
        std::string name = run.run_name.function_name;
        if (!run.run_name.args.empty()) name += "/" + run.run_name.args;
        const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
        if (run.run_type != Run::RT_Iteration && !median) continue;
        if (!median && m_fromMedian.count(name)) continue;
        if (median) m_fromMedian.insert(name);
        m_seconds[name] = run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
    }
}

std::optional<double> TimeKeepingReporter::Seconds(const std::string &name) const {
    const auto found = m_seconds.find(name);
    if (found == m_seconds.end()) return std::nullopt;
    return found->second;
}

void PrintRatio(const TimeKeepingReporter &times, const char *what, const char *measured,
                const char *floor, double aim) {
    const auto a = times.Seconds(measured);
    const auto b = times.Seconds(floor);
    if (!a || !b || *b <= 0) {
        std::printf("%-52s not measured in this run\n", what);
        return;
    }
    const double ratio = *a / *b;
    const bool small = *a < 1e-3 && *b < 1e-3;
    const double scale = small ? 1e6 : 1e3;
    const char *unit = small ? "us" : "ms";
    std::printf("%-52s = %6.2fx  (%.3f %s / %.3f %s)", what, ratio, *a * scale, unit, *b * scale, unit);
    if (aim > 0) std::printf("  aim: within %.0fx: %s", aim, ratio <= aim ? "met" : "MISSED");
    std::printf("\n");
}

std::optional<benchmark::ConsoleReporter::OutputOptions> InitializeBenchmarks(int &argc, char **argv) {
    int options = benchmark::ConsoleReporter::OO_None;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (arg == "--benchmark_counters_tabular" || arg == "--benchmark_counters_tabular=true")
            options |= benchmark::ConsoleReporter::OO_Tabular;
    }
    if (::isatty(STDOUT_FILENO)) options |= benchmark::ConsoleReporter::OO_Color;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return std::nullopt;
    return static_cast<benchmark::ConsoleReporter::OutputOptions>(options);
}

int RunBenchmarks(int argc, char **argv,
                  const std::function<void(const TimeKeepingReporter &)> &report) {
    const auto options = InitializeBenchmarks(argc, argv);
    if (!options) return 1;
    TimeKeepingReporter reporter(*options);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\n");
    report(reporter);
    benchmark::Shutdown();
    return 0;
}

} // namespace orrery
