// The packager on the demo game, of its own 5,000 random servers and of 10,000, each beside a
// floor measured in the same run: the world generated alone into a folder, plus a raw copy of
// the rest of the bytes the package holds.
#include "foundation/paths.h"
#include "foundation/random.h"
#include "network/generator.h"
#include "packaging/distribution.h"
#include "project/loader.h"
#include "ratios.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

struct Setup {
    fs::path root; // a copy of the application folder
    fs::path scratch;
};
Setup *g_setup = nullptr;

bool Prepare(Setup &s) {
    std::string pattern = (fs::temp_directory_path() / "orrery-package-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) return false;
    s.root = fs::path(pattern) / "app";
    s.scratch = fs::path(pattern) / "scratch";
    std::error_code error;
    fs::copy(ORRERY_APP_DIR, s.root, fs::copy_options::recursive, error);
    return !error;
}

ProjectModel Demo(int servers) {
    ProjectModel model;
    LoadProject(model, AppPaths(g_setup->root), "Night Shift");
    model.settings.myserversrandom = std::to_string(servers);
    return model;
}

void BM_Package(benchmark::State &state) {
    const ProjectModel model = Demo(static_cast<int>(state.range(0)));
    const AppPaths app(g_setup->root);
    Random random(1);
    DistributionOptions options;
    options.out = g_setup->scratch / "package";
    options.random = &random;
    std::uint64_t size = 0;
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove_all(options.out);
        state.ResumeTiming();
        const DistributionResult built = BuildDistribution(model, app, options);
        if (!built.done) state.SkipWithError(built.error.c_str());
        size = built.folderSize;
    }
    state.counters["MB"] = static_cast<double>(size) / 1048576.0;
}

// The world alone, then the package's other files copied as raw bytes.
void BM_GenerateAndCopy(benchmark::State &state) {
    const ProjectModel model = Demo(static_cast<int>(state.range(0)));
    const fs::path package = g_setup->scratch / "package";
    const fs::path floor = g_setup->scratch / "floor";
    Random random(1);
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove_all(floor);
        fs::create_directories(floor / "Data" / "S");
        state.ResumeTiming();
        WordBank words;
        if (!GenerateWorldInto(g_setup->root / "Data", floor / "Data" / "S", model, words, random).done)
            state.SkipWithError("no world");
        for (const auto &entry : fs::recursive_directory_iterator(package)) {
            const fs::path relative = fs::relative(entry.path(), package);
            if (*relative.begin() == "Data" && relative.string().starts_with("Data/S")) continue;
            if (entry.is_directory())
                fs::create_directories(floor / relative);
            else
                fs::copy_file(entry.path(), floor / relative, fs::copy_options::overwrite_existing);
        }
    }
}

// Each floor after its package, whose files it copies.
BENCHMARK(BM_Package)->Arg(5000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_GenerateAndCopy)->Arg(5000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Package)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_GenerateAndCopy)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(3);

// The package also writes every library of the run-time a second time with its run path
// (patchelf) and has the loader check the result (ldd): within three times the floor is the
// aim, not yet met.
void Report(const TimeKeepingReporter &times) {
    PrintRatio(times, "package of the demo / generation + raw copy", "BM_Package/5000",
               "BM_GenerateAndCopy/5000", 3);
    PrintRatio(times, "package of 10,000 servers / generation + raw copy", "BM_Package/10000",
               "BM_GenerateAndCopy/10000", 3);
}

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    Setup setup;
    g_setup = &setup;
    int status = 1;
    if (Prepare(setup))
        status = RunBenchmarks(argc, argv, Report);
    else
        std::fprintf(stderr, "package_bench: cannot copy the application folder\n");
    std::error_code ignored;
    if (!setup.root.empty()) fs::remove_all(setup.root.parent_path(), ignored);
    return status;
}
