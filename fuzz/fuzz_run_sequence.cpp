// Any text as a sequence, played on the demo game's desk: walked, run as one statement, and
// queued on the gun while the clock moves on. Nothing may crash, misuse memory or run without
// end: every input has to finish well inside a second.
//
// The engine ends a run of a sequence after a million steps or 128 MiB of work (the sequence
// tests hold it to that), which under the sanitizers can take seconds to minutes. So each run
// here gets a thousand steps and 8 MiB, and the host ends the whole input after a thousand
// statements, however they came (the gun, counters, ticks): what is left to find is work that
// takes no step or statement, and any one statement that is slow by itself.
//
// Inputs run to kMaxInput bytes; fuzz_run_sequence.options tells the fuzzer so, and to try
// long ones from the start rather than after hours of short ones.
#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/statement.h"
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
#include "session/profiles.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace orrery;

const fs::path kData = fs::path(ORRERY_SOURCE_ROOT) / "content" / "app" / "Data";

// Longer texts only make each input slower: a sequence reads 500 fields at most.
constexpr std::size_t kMaxInput = 4096;
// The gun's queue is drained by hand, then the clock moves on in steps of the gun's interval.
constexpr int kClockSteps = 25;
constexpr std::int64_t kClockStep = 200;

// Steps and work of each run of a sequence, and statements (with the few other yields) of
// one input.
constexpr std::int64_t kWalkSteps = 1000;
constexpr std::int64_t kWalkWork = std::int64_t{8} << 20;
constexpr int kYieldBudget = 1000;

// Thrown by the host when an input has used its budget; the game is dropped with it.
struct Spent {};

class BudgetHost : public HeadlessHost {
public:
    void Yield() override {
        if (++m_yields > kYieldBudget) throw Spent{};
        HeadlessHost::Yield();
    }

private:
    int m_yields = 0;
};

// What every input shares, loaded once. A game writes nothing to the project but each
// element's own row number, the same every time.
struct Shared {
    ProjectModel project;
    ServerDirectory world;
    WordBank words;
    decltype(Game::VariableTable) variables; // as a new game starts them
};

[[noreturn]] void Fail(const std::string &why) {
    std::fprintf(stderr, "fuzz_run_sequence: %s\n", why.c_str());
    std::abort();
}

// The demo's custom servers as a player's world, written to a scratch folder and read back.
void LoadWorld(Shared &shared) {
    const fs::path root = fs::temp_directory_path() / ("orrery-fuzz-" + std::to_string(::getpid()));
    const AppPaths paths(root);
    if (!CreateProfileWorld(paths, "Ann", shared.project)) Fail("no world in " + root.string());
    const fs::path folder = *ProfileFolder(paths, "Ann");
    shared.world.LoadDns(folder);
    shared.world.LoadServerRecords(folder);
    std::error_code ignored;
    fs::remove_all(root, ignored);
    if (shared.world.DnsCount() == 0) Fail("the demo's world has no servers");
}

Shared &Load() {
    static const std::unique_ptr<Shared> shared = [] {
        auto made = std::make_unique<Shared>();
        const auto bytes = ReadFileBytes(kData / "night shift" / "settings.dat");
        if (!bytes) Fail("can't read the demo project below " + kData.string());
        LoadProjectText(made->project, "Night Shift", *bytes);
        if (!made->words.LoadNames(kData / "names.dat") || !made->words.LoadWords(kData / "words.dat"))
            Fail("can't read the name and word lists below " + kData.string());
        LoadWorld(*made);
        Random random(7);
        HeadlessHost host;
        Game game(made->project, made->world, made->words, random, host);
        game.PlayerName = "Ann";
        ResetPlayerVariables(game);
        made->variables = game.VariableTable;
        return made;
    }();
    return *shared;
}

void Play(const std::string &text) {
    Shared &shared = Load();
    Random random(7);
    BudgetHost host;
    Game game(shared.project, shared.world, shared.words, random, host);
    game.walkStepLimit = kWalkSteps;
    game.walkWorkLimit = kWalkWork;
    game.PlayerName = "Ann";
    game.VariableTable = shared.variables;
    host.Bind(&game);
    try {
        // The desk with three tools open. The demo's start (its first activation) would open
        // the mail, whose qlob would then be most of the cost of an input: a seed does that.
        LoadDesktop(game);
        for (const char *tool : {"Connector", "Console", "Cracker"}) OpenT(game, tool);

        RunSequence(game, text, 1, 0); // as the event of the demo's first element
        RunStatement(game, text);
        RunSequence(game, text, 0, 1);
        for (int tick = 0; tick < kGunSlots; ++tick) GunTick(game);
        for (int step = 0; step < kClockSteps; ++step) RunDueTimers(game, game.now + kClockStep);
    } catch (const Spent &) {
        // The input ran its statements; everything it did was checked as it went.
    }
    host.Bind(nullptr);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size > kMaxInput) return -1;
    Play(std::string(reinterpret_cast<const char *>(data), size));
    return 0;
}
