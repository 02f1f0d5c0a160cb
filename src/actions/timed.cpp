// WAIT, counters, flashers and MOVE.
#include "actions/timed.h"

#include <algorithm>
#include <cmath>

#include "actions/game.h"
#include "actions/statement.h"
#include "actions/values.h"
#include "actions/variables.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "foundation/textfile.h"

namespace orrery {

namespace {

std::string Arg(const Statement &st, int index) { return BracketArg(st.rest, index); }

std::int32_t Number32(std::string_view text) { return RoundToInt32(Val(text)).value_or(0); }

// The running timer of that number in a list kept in the order of numbers; null when it has
// ended.
Timer *Numbered(std::vector<Timer> &list, int number) {
    const auto found = std::lower_bound(list.begin(), list.end(), number,
                                        [](const Timer &timer, int n) { return timer.number < n; });
    return found != list.end() && found->number == number ? &*found : nullptr;
}

// A counter that is disabled never runs again: it leaves the list, and its tag is kept for the
// kills that may still name it.
void EndCounter(Game &game, int number) {
    auto &counters = game.timers.qlob;
    if (Timer *counter = Numbered(counters, number)) {
        game.timers.endedCounterTags.insert(NormText(counter->tag));
        counters.erase(counters.begin() + (counter - counters.data()));
    }
}

// Every counter whose tag, ended or running, holds the name resumes the music; the running
// ones end. Reading the tags is the kill's work.
void KillCounters(Game &game, const std::string &name, const std::string &then) {
    if (game.timers.qlobCount == 0) return; // no counter was ever loaded
    const std::string wanted = NormText(name);
    for (const std::string &tag : game.timers.endedCounterTags) {
        game.CountWork(tag.size());
        if (InStr(tag, wanted)) game.host.ResumeMusic();
    }
    std::vector<int> ending;
    for (const Timer &counter : game.timers.qlob) {
        game.CountWork(counter.tag.size());
        if (InStr(NormText(counter.tag), wanted)) ending.push_back(counter.number);
    }
    for (const int number : ending) {
        EndCounter(game, number);
        game.host.ResumeMusic();
    }
    if (!Trim(then).empty()) RunStatement(game, "QLOB [" + then + "]");
}

void CounterAudio(Game &game, const std::string &audio) {
    const auto file = SafeComponent(NormText(ExpandSpecials(game, audio)));
    if (!file || !game.paths || game.host.Preference("Music", "1") == "0") return;
    const auto path = game.paths->ResPath() / "uimages" / *file;
    if (FileExists(path)) game.host.PlayCounterAudio(path.string());
}

} // namespace

std::string Wait(Game &game, Statement &st) {
    std::string text = Arg(st, 1);
    const std::int32_t milliseconds = std::max(0, Number32(LookupValue(game, text)));
    // A plain sleep: the clock passes and no timer ticks meanwhile.
    game.host.Sleep(milliseconds);
    game.now += milliseconds;
    return {};
}

std::string QlobCounter(Game &game, Statement &st) {
    const std::string finale = Arg(st, 1), interval = Arg(st, 2), variable = Arg(st, 3);
    KillCounters(game, finale, "");
    game.host.Yield();
    const auto speed = RoundToInt32(Val(Arg(st, 4)) * 10);
    if (!speed) {
        game.host.ShowMessageBox("Qlob_Counter ERROR in \r\n\r\n" + finale + "\r\n" + interval);
        return {};
    }
    Timer counter = MakeTimer(TimerKind::Qlob, *speed);
    counter.tag = finale + ":" + variable + ":" + interval;
    counter.number = ++game.timers.qlobCount;
    StartTimer(game, counter);
    game.timers.qlob.push_back(counter);
    CounterAudio(game, Arg(st, 5));
    return {};
}

std::string QlobCounterKill(Game &game, Statement &st) {
    KillCounters(game, Arg(st, 1), Arg(st, 2));
    return {};
}

void QlobCounterTick(Game &game, int number) {
    const Timer *counter = Numbered(game.timers.qlob, number);
    if (!counter) return;
    const std::string tag = counter->tag;
    std::string variable = FieldAt(tag, 2);
    Statement countDown{variable, variable + "-1"};
    ReturnComplex(game, countDown);
    RunStatement(game, "QLOB [" + FieldAt(tag, 3) + "]");
    const double left = Val(LookupValue(game, variable));
    if (RoundToInt32(left).value_or(left < 0 ? -1 : 1) >= 1) return;
    EndCounter(game, number);
    game.host.ResumeMusic();
    RunStatement(game, "QLOB [" + FieldAt(tag, 1) + "]");
}

void LoadATimer(Game &game, int index, std::string_view kind, std::int64_t interval) {
    auto &misc = game.timers.misc;
    const int n = ++game.timers.miscCount;
    const std::string tag = std::string(kind) + ":" + IntText(index);
    for (const Timer &timer : misc)
        if (timer.tag == tag) return;
    Timer timer = MakeTimer(TimerKind::Misc, interval);
    timer.tag = tag;
    timer.number = n;
    StartTimer(game, timer);
    misc.push_back(timer);
}

void StopATimer(Game &game, std::string_view tag) {
    auto &misc = game.timers.misc;
    for (auto timer = misc.begin(); timer != misc.end();) {
        if (timer->tag != tag) {
            ++timer;
            continue;
        }
        if (NormText(FieldAt(tag, 1)) == "flash")
            if (ElementControl *control = game.desk.TLinkControl(Number32(FieldAt(tag, 2))))
                control->visible = true; // a flashing element always ends visible
        timer = misc.erase(timer);
    }
}

void MiscTimerTick(Game &game, int number) {
    const Timer *timer = Numbered(game.timers.misc, number);
    if (!timer) return;
    const std::string tag = timer->tag;
    if (NormText(FieldAt(tag, 1)) != "flash") return;
    if (ElementControl *control = game.desk.TLinkControl(Number32(FieldAt(tag, 2))))
        control->visible = !control->visible;
}

std::string FlashOn(Game &game, Statement &st) {
    std::string tool = Arg(st, 1);
    ResolveToolRef(game, tool);
    const int index = game.desk.ElIndex(NormText(Arg(st, 2)));
    if (index) LoadATimer(game, index, "flash", Number32(Arg(st, 3)));
    return {};
}

std::string FlashOff(Game &game, Statement &st) {
    const int index = game.desk.ElIndex(NormText(Arg(st, 2)));
    if (index) StopATimer(game, "flash:" + IntText(index));
    return {};
}

std::string Move(Game &game, Statement &st) {
    const auto box = [&]() -> ToolBox * {
        std::string tool = Arg(st, 1);
        const int n = ResolveToolRef(game, tool);
        return n >= 1 && n <= kToolboxes ? &game.desk.Box(n) : nullptr;
    };
    const std::int32_t left = Number32(Arg(st, 2)), top = Number32(Arg(st, 3));
    if (ToolBox *b = box())
        b->left = NormText(Arg(st, 4)) == "true" ? game.desk.formWidth - left - b->width : left;
    if (ToolBox *b = box())
        b->top = NormText(Arg(st, 5)) == "true" ? game.desk.formHeight - top - b->height : top;
    game.desk.toolerVisible = false;
    return {};
}

} // namespace orrery
