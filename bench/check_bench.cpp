// The checker on the largest project, measured against loading the same project in the same
// run: a check should cost a small multiple of the load it follows.
#include "check/check.h"
#include "foundation/paths.h"
#include "foundation/textfile.h"
#include "largest_project.h"
#include "project/loader.h"
#include "ratios.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

namespace orrery {
namespace {

constexpr std::string_view kProjectName = "Bench Game";

struct Setup {
    std::filesystem::path root;
    std::optional<AppPaths> paths;
    std::string bytes;
    ProjectModel model; // as loaded from the file
    std::size_t findings = 0;
};

Setup *g_setup = nullptr;

// The application folder with the largest project and a Res tree holding some of its media.
bool Prepare(Setup &s) {
    s.root = MakeLargestProjectFolder(kProjectName);
    if (s.root.empty()) return false;
    s.paths.emplace(s.root);
    for (const char *folder : {"uimages", "mp3", "toolstyle"})
        std::filesystem::create_directories(s.paths->ResPath() / folder);
    for (int i = 1; i <= 50; i += 2)
        std::ofstream(s.paths->ResPath() / "uimages" / ("menu" + std::to_string(i) + ".bmp"))
            .put('\n');
    s.bytes = ReadFileBytes(*s.paths->ProjectFile(kProjectName)).value_or("");
    if (!LoadProject(s.model, *s.paths, kProjectName).found) return false;
    s.findings = CheckProject(s.model, s.bytes, *s.paths).size();
    return !s.bytes.empty();
}

void BM_LoadProject(benchmark::State &state) {
    MeasureLoad(state, *g_setup->paths, kProjectName);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(g_setup->bytes.size()));
}

void BM_CheckProject(benchmark::State &state) {
    const Setup &s = *g_setup;
    for (auto _ : state) {
        const std::vector<Finding> findings = CheckProject(s.model, s.bytes, *s.paths);
        benchmark::DoNotOptimize(findings.data());
        if (findings.size() != s.findings) state.SkipWithError("the findings changed");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.bytes.size()));
}

BENCHMARK(BM_LoadProject)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_CheckProject)->Unit(benchmark::kMillisecond)->MinTime(0.5);

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    Setup setup;
    g_setup = &setup;
    int status = 1;
    if (Prepare(setup)) {
        std::printf("project file: %zu bytes; %zu findings\n", setup.bytes.size(), setup.findings);
        status = RunBenchmarks(argc, argv, [](const TimeKeepingReporter &times) {
            // A check reads the file's lines again besides the model, and the made project
            // holds some 5,000 mistakes, each a finding with its words.
            PrintRatio(times, "check / load", "BM_CheckProject", "BM_LoadProject", 4);
        });
    } else {
        std::fprintf(stderr, "check_bench: cannot prepare the project in %s\n", setup.root.c_str());
    }
    std::error_code ignored;
    if (!setup.root.empty()) std::filesystem::remove_all(setup.root, ignored);
    g_setup = nullptr;
    return status;
}
