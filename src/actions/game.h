// The state of one running game: the project, the world, the desk and the engine's own
// globals, passed to every engine function. Nothing of it is hidden in a global.
#pragma once

#include "actions/substitution.h"
#include "desk/desk.h"
#include "desk/timers.h"
#include "foundation/paths.h"
#include "network/randomfiles.h"
#include "project/model.h"

#include <cstdint>
#include <functional>
#include <string>

namespace orrery {

class Random;
class ServerDirectory;
class WordBank;
struct Game;

inline constexpr int kGunSlots = 89;
// Steps (fields visited) that one run of a sequence may take, with every walk inside it.
inline constexpr std::int64_t kMaxWalkSteps = 1000000;
// The work that one run of a sequence may do, with every walk inside it, in bytes of text
// handled: each walk's sequence, each step's line, and each text the substitutions build. A
// step counts kStepWork besides, for what any statement costs whatever its text (the yield,
// the dispatch, the draws of the special names). A run of ordinary statements stays far
// below; a loop that grows a text, or calls qlobs by the hundred thousand, ends here.
inline constexpr std::int64_t kStepWork = 4096;
inline constexpr std::int64_t kMaxWalkWork = std::int64_t{128} << 20;
// A random letter drawn counts as many bytes as take the same time to handle.
inline constexpr std::size_t kDrawWork = 64;

// What the engine asks of the platform. The Qt shell runs its event queue; a headless host
// keeps a virtual clock.
class Host {
public:
    virtual ~Host() = default;
    // The game the host serves from now on, or nullptr when it ends.
    virtual void Bind(Game *game) { (void)game; }
    // Runs pending input and timer events to their end: a click or a tick that is waiting
    // runs inside the statement that yields.
    virtual void Yield() = 0;
    // Blocks the program; no event runs meanwhile.
    virtual void Sleep(int milliseconds) = 0;
    // The modal question of RETURN_ASK; returns the answer.
    virtual std::string Ask(const std::string &question, const std::string &option1,
                            const std::string &option2) = 0;
    // The stored preference "Music" or "Sound": "0" is off.
    virtual std::string Preference(const std::string &key, const std::string &fallback) {
        (void)key;
        return fallback;
    }
    // Plays a sound effect file.
    virtual void PlaySound(const std::string &file) { (void)file; }
    // A counter's audio pauses the music and plays; resuming ends it and brings the music back.
    virtual void PlayCounterAudio(const std::string &file) { (void)file; }
    virtual void ResumeMusic() {}
    // A system message box that the player closes.
    virtual void ShowMessageBox(const std::string &text) { (void)text; }
};

struct Game {
    Game(ProjectModel &projectModel, ServerDirectory &directory, WordBank &wordBank, Random &source,
         Host &platform)
        : project(projectModel), world(directory), words(wordBank), random(source), host(platform) {}

    ProjectModel &project;
    ServerDirectory &world;
    WordBank &words;
    Random &random;
    Host &host;
    Desk desk;
    const AppPaths *paths = nullptr; // where pictures are found; none in a bare test game

    // The run-time user variables; a new game fills them from the project's defaults.
    RuntimeVariables VariableTable;
    // The tags of TLink as the element pass of ExpandSpecials looks for them, and the desk's
    // TLink stamp they were read at.
    NameIndex loadedTags;
    std::uint64_t loadedTagsStamp = 0;
    FileTable files;
    SlotTable<std::string, kGunSlots> GunQueue;
    std::string PlayerName;
    std::string CurrentArrayIndex;
    int RunningSequences = 0;

    Timers timers;
    std::int64_t now = 0;              // the game's clock, in milliseconds
    std::function<void()> onAutosave;  // the autosave timer's work, given by the session

    // Walks nested inside one another right now; past a limit a further walk doesn't start,
    // so a qlob that calls itself ends instead of exhausting the stack.
    int walkDepth = 0;
    // Steps taken since the outermost walk began, every walk inside it counted; past the limit
    // every walk ends, so a loop that runs statements without end ends too. A caller may set a
    // lower limit: the fuzzer does, to keep each input short.
    std::int64_t walkSteps = 0;
    std::int64_t walkStepLimit = kMaxWalkSteps;
    // Work done since the outermost walk began, counted as the steps are; past the limit
    // every walk ends the same way.
    std::int64_t walkWork = 0;
    std::int64_t walkWorkLimit = kMaxWalkWork;

    void CountWork(std::size_t bytes) { walkWork += static_cast<std::int64_t>(bytes); }
    bool WorkSpent() const { return walkWork > walkWorkLimit; }

    RandomSources Sources() { return {world, words, random}; }
};

} // namespace orrery
