// The timers of the desktop as data: the four "every" events, the gun, the autosave, and the
// counters and flashers that statements load. A host drives them from its clock.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orrery {

struct Game;

enum class TimerKind { Every1, Every2, Every10, Every60, Gun, Autosave, Clock, Qlob, Misc };

struct Timer {
    TimerKind kind = TimerKind::Misc;
    std::int64_t interval = 0; // milliseconds; 0 never ticks
    bool enabled = false;
    std::string tag;       // a counter's or a flasher's state
    std::int64_t due = 0;  // the virtual time of the next tick
    int number = 0;        // a counter's or a flasher's, from 1
};

inline Timer MakeTimer(TimerKind kind, std::int64_t interval) {
    Timer timer;
    timer.kind = kind;
    timer.interval = interval;
    return timer;
}

// Every timer of the desktop. Counters (tmrQlob) and flashers (tmrMisc) are numbered from 1,
// and a number is never given twice within a game; the lists hold only those that still run,
// in the order of their numbers, so a tick costs the running timers and no ended one.
struct Timers {
    std::vector<Timer> fixed; // the desktop's own
    std::vector<Timer> qlob;  // running counters
    std::vector<Timer> misc;  // loaded flashers
    int qlobCount = 0;        // counters loaded so far
    int miscCount = 0;        // grows on every load attempt
    // The tags of ended counters, in name form, each once: a kill that names one still
    // resumes the music, as it did while the counter stayed loaded.
    std::set<std::string> endedCounterTags;
};

// Loads the desktop's own timers, due one interval from now.
void StartDesktopTimers(Game &game);
// Starts a timer: enabled, due one interval from now.
void StartTimer(Game &game, Timer &timer);
// The time the first running timer falls due; none when no timer runs.
std::optional<std::int64_t> NextDue(const Game &game);
// Runs every timer that falls due up to the time given, in order of time, moving the clock to
// each tick. A tick that was due while the program slept comes once, not once per interval.
void RunDueTimers(Game &game, std::int64_t until);

} // namespace orrery
