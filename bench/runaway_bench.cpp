// Runs that would once have held the game for seconds, on the demo game, each beside a floor
// measured in the same run: a text that doubles until its run's work is spent, beside one
// statement on the longest text; a qlob that calls itself twice, beside one call of a qlob of
// two statements; ten seconds of a desktop whose tool fires that qlob every second, beside ten
// seconds with an ordinary qlob fired; a counter's tick after ten thousand restarts and kills,
// beside a tick with one counter loaded.
#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "desk/desktop.h"
#include "desk/timers.h"
#include "desk/tools.h"
#include "foundation/paths.h"
#include "foundation/random.h"
#include "foundation/textfile.h"
#include "network/directory.h"
#include "network/generator.h"
#include "network/profileworld.h"
#include "platform/headless.h"
#include "project/loader.h"
#include "ratios.h"
#include "session/profiles.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <unistd.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

const fs::path kData = fs::path(ORRERY_SOURCE_ROOT) / "content" / "app" / "Data";

// The demo's project, words and world, loaded once; every game starts from them.
struct Demo {
    ProjectModel project;
    ServerDirectory world;
    WordBank words;
    bool ok = false;

    Demo() {
        const auto bytes = ReadFileBytes(kData / "night shift" / "settings.dat");
        if (!bytes || !words.LoadNames(kData / "names.dat") ||
            !words.LoadWords(kData / "words.dat"))
            return;
        LoadProjectText(project, "Night Shift", *bytes);
        const fs::path root =
            fs::temp_directory_path() / ("orrery-runaway-" + std::to_string(::getpid()));
        if (!CreateProfileWorld(AppPaths(root), "Ann", project)) return;
        const fs::path folder = *ProfileFolder(AppPaths(root), "Ann");
        world.LoadDns(folder);
        world.LoadServerRecords(folder);
        std::error_code ignored;
        fs::remove_all(root, ignored);
        // The qlobs the runs call, in free slots of the demo's table.
        project.QlobTable[190] = "twice QLOB [twice]`QLOB [twice]";
        project.QlobTable[191] = "pair $note = RETURN_COMPLEX [a]`$note = RETURN_COMPLEX [b]";
        project.QlobTable[192] = "count $note = RETURN_COMPLEX [$note]";
        ok = world.DnsCount() > 0;
    }
};

Demo &Shared() {
    static Demo demo;
    return demo;
}

// A new game of the demo at its desktop, the Connector open, its timers running.
struct Play {
    Random random{3};
    HeadlessHost host;
    Game game{Shared().project, Shared().world, Shared().words, random, host};

    Play() {
        host.Bind(&game);
        game.PlayerName = "Ann";
        ResetPlayerVariables(game);
        LoadDesktop(game);
        OpenT(game, "Connector");
        StartDesktopTimers(game);
    }
    ~Play() { host.Bind(nullptr); }
};

// Runs the work on a new game each iteration; making the game is not timed.
template <typename Work> void OnNewGames(benchmark::State &state, Work work) {
    if (!Shared().ok) return state.SkipWithError("can't load the demo game");
    for (auto _ : state) {
        state.PauseTiming();
        auto play = std::make_unique<Play>();
        state.ResumeTiming();
        work(play->game);
        state.PauseTiming();
        play.reset();
        state.ResumeTiming();
    }
}

void BM_DoublingRun(benchmark::State &state) {
    OnNewGames(state, [](Game &game) {
        RunSequence(
            game, "$note = RETURN_COMPLEX [x]`~top`$note = RETURN_COMPLEX [$note$note]`_GOTO [top]",
            0, 0);
    });
}
BENCHMARK(BM_DoublingRun)->Unit(benchmark::kMillisecond);

// The loop's statement once on the longest text it holds: its result is too long to deliver.
void BM_LongestStatement(benchmark::State &state) {
    if (!Shared().ok) return state.SkipWithError("can't load the demo game");
    Play play;
    SetVariable(play.game, "$note", std::string(32768, 'x'));
    for (auto _ : state) RunSequence(play.game, "$note = RETURN_COMPLEX [$note$note]", 0, 0);
}
BENCHMARK(BM_LongestStatement)->Unit(benchmark::kMicrosecond);

void BM_SelfCallingQlobRun(benchmark::State &state) {
    OnNewGames(state, [](Game &game) { RunSequence(game, "QLOB [twice]", 0, 0); });
}
BENCHMARK(BM_SelfCallingQlobRun)->Unit(benchmark::kMillisecond);

void BM_QlobOnce(benchmark::State &state) {
    if (!Shared().ok) return state.SkipWithError("can't load the demo game");
    Play play;
    for (auto _ : state) RunSequence(play.game, "QLOB [pair]", 0, 0);
}
BENCHMARK(BM_QlobOnce)->Unit(benchmark::kMicrosecond);

// Ten seconds of game time with the Connector's every-second event calling a qlob.
void TenSecondsFiring(benchmark::State &state, const std::string &qlob) {
    OnNewGames(state, [&qlob](Game &game) {
        game.project.ToolSubTable[299] = {"connector:every1second", "QLOB [" + qlob + "]"};
        RunDueTimers(game, game.now + 10000);
        game.project.ToolSubTable[299] = {};
    });
}
void BM_TenSecondsFiringTheRunaway(benchmark::State &state) {
    TenSecondsFiring(state, "twice");
}
void BM_TenSecondsFiringAPair(benchmark::State &state) {
    TenSecondsFiring(state, "pair");
}
BENCHMARK(BM_TenSecondsFiringTheRunaway)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TenSecondsFiringAPair)->Unit(benchmark::kMillisecond);

// One tick of a counter that never ends, after `restarts` restarts of it and as many kills of
// a second one.
void BM_CounterTick(benchmark::State &state) {
    if (!Shared().ok) return state.SkipWithError("can't load the demo game");
    Play play;
    Game &game = play.game;
    game.timers.fixed.clear(); // the counter's ticks alone
    RunStatement(game, "CREATE_VARIABLE [$left] [1000000000]");
    for (std::int64_t turn = 0; turn < state.range(0); ++turn)
        RunSequence(game,
                    "QLOB_COUNTER [gone] [count] [$left] [100]`QLOB_COUNTER_KILL [gone]`"
                    "QLOB_COUNTER [beep] [count] [$left] [100]",
                    0, 0);
    RunStatement(game, "QLOB_COUNTER [beep] [count] [$left] [100]");
    for (auto _ : state) RunDueTimers(game, game.now + 1000);
    state.counters["counters"] = static_cast<double>(game.timers.qlob.size());
}
BENCHMARK(BM_CounterTick)->Arg(0)->Arg(10000);

} // namespace
} // namespace orrery

int main(int argc, char **argv) {
    using namespace orrery;
    return RunBenchmarks(argc, argv, [](const TimeKeepingReporter &times) {
        PrintRatio(times, "doubling run / its longest statement", "BM_DoublingRun",
                   "BM_LongestStatement", 0);
        PrintRatio(times, "self-calling qlob run / a qlob of two, once", "BM_SelfCallingQlobRun",
                   "BM_QlobOnce", 0);
        PrintRatio(times, "10 s firing it each second / firing a pair",
                   "BM_TenSecondsFiringTheRunaway", "BM_TenSecondsFiringAPair", 0);
        PrintRatio(times, "counter tick, after 10000 restarts / alone", "BM_CounterTick/10000",
                   "BM_CounterTick/0", 2);
        for (const char *run :
             {"BM_DoublingRun", "BM_SelfCallingQlobRun", "BM_TenSecondsFiringTheRunaway"})
            if (const auto seconds = times.Seconds(run))
                std::printf("%s: %.0f ms\n", run, *seconds * 1e3);
    });
}
