// Benchmarks of the simulated network: generating the largest world beside the raw write of
// its bytes, and each lookup on 10,000 directory rows beside the same lookup on 100.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <random>

#include <unistd.h>

#include "ratios.h"
#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/textfile.h"
#include "network/directory.h"
#include "network/generator.h"
#include "project/model.h"

namespace orrery {
namespace {

namespace fs = std::filesystem;

// An application folder with word sources and a project asking for the largest world.
struct NetworkSetup {
    fs::path root = fs::temp_directory_path() / ("orrery-network-bench-" + std::to_string(::getpid()));
    AppPaths paths{root};
    ProjectModel model;
    WordBank words;

    NetworkSetup() {
        paths.MakeProjectFolders("Bench");
        std::string names, wordList;
        for (int i = 0; i < kNameRows; ++i) names += "Name" + IntText(i) + "\r\n";
        for (int i = 0; i < kWordRows; ++i) wordList += std::string(3 + i % 12, char('a' + i % 26)) + "\r\n";
        WriteTextFile(paths.DataPath() / "names.dat", names);
        WriteTextFile(paths.DataPath() / "words.dat", wordList);
        model.settings.myprojectname = "Bench";
        model.settings.myserversrandom = "10000";
        model.ServerFieldTable[1] = "OS (RANDOM:WORD)*";
        model.ServerFieldTable[2] = "PORTS (RANDOM:1-10)*";
        model.ServerFieldTable[3] = "OWNER (RANDOM:NAME)*";
    }
    ~NetworkSetup() {
        std::error_code ignored;
        fs::remove_all(root, ignored);
    }
};

NetworkSetup &Setup() {
    static NetworkSetup setup;
    return setup;
}

void BM_GenerateWorld(benchmark::State &state) {
    NetworkSetup &s = Setup();
    Random random(1);
    for (auto _ : state) {
        const GenerateResult result = GenerateWorld(s.paths, s.model, s.words, random);
        if (!result.done) state.SkipWithError(result.error.c_str());
    }
}
BENCHMARK(BM_GenerateWorld)->Unit(benchmark::kMillisecond)->MinTime(1);

// The floor: the same files written with the same bytes, as they stand after a generation.
void BM_RawWriteWorld(benchmark::State &state) {
    NetworkSetup &s = Setup();
    Random random(1);
    GenerateWorld(s.paths, s.model, s.words, random);
    std::vector<std::pair<fs::path, std::string>> files;
    for (const auto &entry : fs::directory_iterator(s.paths.WorldPath()))
        files.emplace_back(entry.path(), *ReadFileBytes(entry.path()));
    for (auto _ : state)
        for (const auto &[path, bytes] : files) WriteTextFile(path, bytes);
}
BENCHMARK(BM_RawWriteWorld)->Unit(benchmark::kMillisecond)->MinTime(1);

// A loaded world of about `rows` directory rows, and hosts to ask for.
struct World {
    ServerDirectory directory;
    std::vector<std::string> hosts;
    std::vector<std::string> ips;
};

// A loaded world of the largest size (9,945 servers), or one cut down to its first 100
// directory rows and their server files.
std::unique_ptr<World> MakeWorld(bool large) {
    NetworkSetup &s = Setup();
    ProjectModel model = s.model;
    model.settings.myserversrandom = large ? "10000" : "500";
    Random random(2);
    GenerateWorld(s.paths, model, s.words, random);
    const fs::path folder = s.paths.WorldPath();
    if (!large) {
        std::string dns;
        int rows = 0;
        for (std::string_view line : SplitLines(*ReadFileBytes(folder / "dns.dat")))
            if (!line.empty() && rows < 100) dns += std::string(line) + "\r\n", ++rows;
        WriteTextFile(folder / "dns.dat", dns);
        for (int octet = 101; octet <= kOctets; ++octet) fs::remove(folder / ("_" + IntText(octet) + "_.dat"));
    }
    auto world = std::make_unique<World>();
    world->directory.LoadDns(folder);
    world->directory.LoadServerRecords(folder);
    for (int row = 1; row <= std::min(world->directory.DnsCount(), kDnsRows); ++row) {
        world->hosts.push_back(world->directory.Dns(row).hostname);
        world->ips.push_back(world->directory.Dns(row).ip);
    }
    return world;
}

World &WorldOf(int rows) {
    static std::unique_ptr<World> small = MakeWorld(false);
    static std::unique_ptr<World> large = MakeWorld(true);
    return rows <= 100 ? *small : *large;
}

template <typename Lookup> void RunLookup(benchmark::State &state, Lookup lookup) {
    World &world = WorldOf(static_cast<int>(state.range(0)));
    std::size_t i = 0;
    for (auto _ : state) {
        std::string host = world.hosts[i++ % world.hosts.size()];
        benchmark::DoNotOptimize(lookup(world, host));
    }
    state.counters["rows"] = world.directory.DnsCount();
}

void BM_ResolveIp(benchmark::State &state) {
    RunLookup(state, [](World &w, std::string &h) { return w.directory.ResolveIp(h); });
}
void BM_ResolveHostname(benchmark::State &state) {
    RunLookup(state, [](World &w, std::string &h) { return w.directory.ResolveHostname(h); });
}
void BM_ServerExists(benchmark::State &state) {
    RunLookup(state, [](World &w, std::string &h) { return w.directory.ServerExists(h); });
}
void BM_GetServerProperty(benchmark::State &state) {
    RunLookup(state, [](World &w, std::string &h) {
        std::string property = "ports";
        return w.directory.GetServerProperty(h, property);
    });
}
void BM_RandomExistingIp(benchmark::State &state) {
    World &world = WorldOf(static_cast<int>(state.range(0)));
    Random random(3);
    for (auto _ : state) benchmark::DoNotOptimize(world.directory.RandomExistingIp(random));
}
BENCHMARK(BM_ResolveIp)->Arg(100)->Arg(10000);
BENCHMARK(BM_ResolveHostname)->Arg(100)->Arg(10000);
BENCHMARK(BM_ServerExists)->Arg(100)->Arg(10000);
BENCHMARK(BM_GetServerProperty)->Arg(100)->Arg(10000);
BENCHMARK(BM_RandomExistingIp)->Arg(100)->Arg(10000);

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    return RunBenchmarks(argc, argv, [](const TimeKeepingReporter &times) {
        PrintRatio(times, "generate world (10000) / raw write of its files", "BM_GenerateWorld",
                   "BM_RawWriteWorld", 3);
        for (const char *lookup : {"BM_ResolveIp", "BM_ResolveHostname", "BM_ServerExists",
                                   "BM_GetServerProperty", "BM_RandomExistingIp"}) {
            const std::string what = std::string(lookup + 3) + " on 10,000 rows / on 100";
            PrintRatio(times, what.c_str(), (std::string(lookup) + "/10000").c_str(),
                       (std::string(lookup) + "/100").c_str(), 2);
        }
    });
}
