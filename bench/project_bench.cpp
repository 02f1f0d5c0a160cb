// The project file's reading and writing at its largest, each measured against a floor taken
// in the same run: the raw read of the same bytes for a load, the raw durable write of the
// same bytes for a save. The ratios are printed at the end.
#include "foundation/paths.h"
#include "foundation/random.h"
#include "foundation/scramble.h"
#include "foundation/textfile.h"
#include "project/loader.h"
#include "project/saver.h"

#include <benchmark/benchmark.h>

#include "largest_project.h"
#include "ratios.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {
namespace {

constexpr std::string_view kProjectName = "Bench Game";
constexpr std::string_view kScrambledName = "Bench Game Scrambled";

// The application folder of the run, its project file and everything the benchmarks share.
struct Setup {
    std::filesystem::path root;
    std::optional<AppPaths> paths;
    std::filesystem::path file;
    std::filesystem::path scrambledFile;
    std::string bytes;          // the project file
    std::string scrambledBytes; // the same, scrambled line by line
    std::size_t lines = 0;
    std::size_t scrambledLines = 0;
    ProjectModel model; // as loaded from the file: what the save benchmark writes
};

Setup *g_setup = nullptr;

bool Prepare(Setup &s) {
    // A save of the made model, loaded as a session would: the loaded model saves the very
    // bytes it was read from.
    s.root = MakeLargestProjectFolder(kProjectName);
    if (s.root.empty()) return false;
    s.paths.emplace(s.root);
    s.file = *s.paths->ProjectFile(kProjectName);
    if (!LoadProject(s.model, *s.paths, kProjectName).found) return false;
    if (SaveProject(s.model, *s.paths, "", 1).status != SaveStatus::Saved) return false;
    s.bytes = ReadFileBytes(s.file).value_or("");
    s.lines = SplitLines(s.bytes).size();
    if (BuildProjectText(s.model) + "\r\n" != s.bytes) {
        std::fprintf(stderr, "orrery_bench: the loaded model doesn't save its own bytes\n");
        return false;
    }

    Random random(20);
    s.scrambledBytes = "[revise]\r\n";
    for (std::string_view line : SplitLines(s.bytes))
        s.scrambledBytes += ScrambleText(line, random) + "\r\n";
    s.scrambledLines = SplitLines(s.scrambledBytes).size();
    if (!s.paths->MakeProjectDir(kScrambledName)) return false;
    s.scrambledFile = *s.paths->ProjectFile(kScrambledName);
    return ReplaceFileAtomically(s.scrambledFile, s.scrambledBytes);
}

void ReadAndSplit(benchmark::State &state, const std::filesystem::path &file, std::size_t lines) {
    for (auto _ : state) {
        const std::optional<std::string> bytes = ReadFileBytes(file);
        const std::vector<std::string_view> split =
            SplitLines(bytes ? std::string_view(*bytes) : std::string_view());
        benchmark::DoNotOptimize(split.data());
        if (split.size() != lines) state.SkipWithError("the file changed");
    }
    state.SetBytesProcessed(state.iterations() *
                            static_cast<std::int64_t>(std::filesystem::file_size(file)));
}

void Load(benchmark::State &state, std::string_view name, std::size_t lines) {
    MeasureLoad(state, *g_setup->paths, name, lines);
}

void BM_RawReadAndSplit(benchmark::State &state) {
    ReadAndSplit(state, g_setup->file, g_setup->lines);
}

void BM_LoadProject(benchmark::State &state) {
    Load(state, kProjectName, g_setup->lines);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(g_setup->bytes.size()));
}

void BM_RawReadAndSplitScrambled(benchmark::State &state) {
    ReadAndSplit(state, g_setup->scrambledFile, g_setup->scrambledLines);
}

void BM_LoadScrambled(benchmark::State &state) {
    Load(state, kScrambledName, g_setup->scrambledLines);
    state.SetBytesProcessed(state.iterations() *
                            static_cast<std::int64_t>(g_setup->scrambledBytes.size()));
}

void BM_RawWrite(benchmark::State &state) {
    const Setup &s = *g_setup;
    for (auto _ : state)
        if (!ReplaceFileAtomically(s.file, s.bytes)) state.SkipWithError("cannot write");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.bytes.size()));
}

void BM_SaveProject(benchmark::State &state) {
    Setup &s = *g_setup;
    for (auto _ : state)
        if (SaveProject(s.model, *s.paths, "", 1).status != SaveStatus::Saved)
            state.SkipWithError("cannot save");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.bytes.size()));
}

void BM_CopyBytes(benchmark::State &state) {
    const Setup &s = *g_setup;
    for (auto _ : state) {
        std::string copy = s.bytes;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.bytes.size()));
}

void BM_BuildProjectText(benchmark::State &state) {
    Setup &s = *g_setup;
    for (auto _ : state) {
        std::string text = BuildProjectText(s.model);
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.bytes.size()));
}

BENCHMARK(BM_RawReadAndSplit)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_LoadProject)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_RawReadAndSplitScrambled)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_LoadScrambled)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_RawWrite)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_SaveProject)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_CopyBytes)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_BuildProjectText)->Unit(benchmark::kMillisecond)->MinTime(0.5);

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    const auto options = InitializeBenchmarks(argc, argv);
    if (!options) return 1;

    Setup setup;
    g_setup = &setup;
    const bool ready = Prepare(setup);
    int status = 0;
    if (ready) {
        std::printf("project file: %zu bytes, %zu lines; scrambled: %zu bytes\n",
                    setup.bytes.size(), setup.lines, setup.scrambledBytes.size());
        TimeKeepingReporter reporter(*options);
        benchmark::RunSpecifiedBenchmarks(&reporter);
        std::printf("\n");
        PrintRatio(reporter, "load / (raw read + split lines)", "BM_LoadProject",
                   "BM_RawReadAndSplit", 3);
        PrintRatio(reporter, "save / raw durable write", "BM_SaveProject", "BM_RawWrite", 2);
        PrintRatio(reporter, "scrambled load / (raw read + split lines)", "BM_LoadScrambled",
                   "BM_RawReadAndSplitScrambled", 0);
        PrintRatio(reporter, "build text / copy of the bytes", "BM_BuildProjectText",
                   "BM_CopyBytes", 0);
    } else {
        std::fprintf(stderr, "orrery_bench: cannot prepare the project file in %s\n",
                     setup.root.c_str());
        status = 1;
    }
    std::error_code ignored;
    if (!setup.root.empty()) std::filesystem::remove_all(setup.root, ignored);
    g_setup = nullptr;
    benchmark::Shutdown();
    return status;
}
