// Running the desktop's timers from a clock.
#include "desk/timers.h"

#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/timed.h"
#include "desk/help.h"
#include "desk/tools.h"

#include <limits>
#include <optional>

namespace orrery {

namespace {

struct Due {
    std::vector<Timer> *list = nullptr;
    std::size_t index = 0;
};

bool Ticks(const Timer &timer) { return timer.enabled && timer.interval > 0; }

// The timer that falls due first, up to a time; the lowest number wins a tie.
Due Earliest(Game &game, std::int64_t until) {
    Due due;
    std::int64_t best = std::numeric_limits<std::int64_t>::max();
    for (std::vector<Timer> *list : {&game.timers.fixed, &game.timers.qlob, &game.timers.misc})
        for (std::size_t i = 0; i < list->size(); ++i) {
            const Timer &timer = (*list)[i];
            if (Ticks(timer) && timer.due <= until && timer.due < best) {
                best = timer.due;
                due = {list, i};
            }
        }
    return due;
}

void Fire(Game &game, TimerKind kind, int number) {
    switch (kind) {
    case TimerKind::Every1: return ActivateToolSub(game, kAllThatAreVisible, "every1second");
    case TimerKind::Every2: return ActivateToolSub(game, kAllThatAreVisible, "every2seconds");
    case TimerKind::Every10: return ActivateToolSub(game, kAllThatAreVisible, "every10seconds");
    case TimerKind::Every60: return ActivateToolSub(game, kAllThatAreVisible, "every60seconds");
    case TimerKind::Gun: return GunTick(game);
    case TimerKind::Autosave:
        if (game.onAutosave) game.onAutosave();
        return;
    case TimerKind::Clock: return ClockTick(game, LocalTimeOfDay());
    case TimerKind::Qlob: return QlobCounterTick(game, number);
    case TimerKind::Misc: return MiscTimerTick(game, number);
    }
}

} // namespace

std::optional<std::int64_t> NextDue(const Game &game) {
    std::optional<std::int64_t> next;
    for (const std::vector<Timer> *list : {&game.timers.fixed, &game.timers.qlob, &game.timers.misc})
        for (const Timer &timer : *list)
            if (Ticks(timer) && (!next || timer.due < *next)) next = timer.due;
    return next;
}

void StartTimer(Game &game, Timer &timer) {
    timer.enabled = true;
    timer.due = game.now + timer.interval;
}

void StartDesktopTimers(Game &game) {
    static constexpr std::pair<TimerKind, int> kDesktop[] = {
        {TimerKind::Every1, 1000}, {TimerKind::Every2, 2000}, {TimerKind::Every10, 10000},
        {TimerKind::Every60, 60000}, {TimerKind::Gun, 200}, {TimerKind::Autosave, 60000},
        {TimerKind::Clock, 5000},
    };
    game.timers.fixed.clear();
    for (const auto &[kind, interval] : kDesktop) {
        Timer timer = MakeTimer(kind, interval);
        StartTimer(game, timer);
        game.timers.fixed.push_back(timer);
    }
}

void RunDueTimers(Game &game, std::int64_t until) {
    for (Due due = Earliest(game, until); due.list; due = Earliest(game, until)) {
        Timer &timer = (*due.list)[due.index];
        game.now = std::max(game.now, timer.due);
        timer.due = game.now + timer.interval; // before the tick: a tick may load more timers
        Fire(game, timer.kind, timer.number);
    }
    game.now = std::max(game.now, until);
}

} // namespace orrery
