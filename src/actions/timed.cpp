// WAIT, counters, flashers and MOVE.
#include "actions/timed.h"

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

void KillCounters(Game &game, const std::string &name, const std::string &then) {
    auto &counters = game.timers.qlob;
    if (counters.size() < 2) return;
    const std::string wanted = NormText(name);
    for (std::size_t n = 1; n < counters.size(); ++n) {
        if (!InStr(NormText(counters[n].tag), wanted)) continue;
        counters[n].enabled = false;
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
    StartTimer(game, counter);
    game.timers.qlob.push_back(counter);
    CounterAudio(game, Arg(st, 5));
    return {};
}

std::string QlobCounterKill(Game &game, Statement &st) {
    KillCounters(game, Arg(st, 1), Arg(st, 2));
    return {};
}

void QlobCounterTick(Game &game, int n) {
    auto &counters = game.timers.qlob;
    if (n < 1 || n >= static_cast<int>(counters.size())) return;
    const std::string tag = counters[static_cast<std::size_t>(n)].tag;
    std::string variable = FieldAt(tag, 2);
    Statement countDown{variable, variable + "-1"};
    ReturnComplex(game, countDown);
    RunStatement(game, "QLOB [" + FieldAt(tag, 3) + "]");
    const double left = Val(LookupValue(game, variable));
    if (RoundToInt32(left).value_or(left < 0 ? -1 : 1) >= 1) return;
    game.timers.qlob[static_cast<std::size_t>(n)].enabled = false;
    game.host.ResumeMusic();
    RunStatement(game, "QLOB [" + FieldAt(tag, 1) + "]");
}

void LoadATimer(Game &game, int index, std::string_view kind, std::int64_t interval) {
    auto &misc = game.timers.misc;
    const int n = ++game.timers.miscCount;
    const std::string tag = std::string(kind) + ":" + IntText(index);
    for (const Timer &timer : misc)
        if (timer.loaded && timer.tag == tag) return;
    misc.resize(static_cast<std::size_t>(n) + 1, UnloadedTimer());
    Timer &timer = misc[static_cast<std::size_t>(n)];
    timer = MakeTimer(TimerKind::Misc, interval);
    timer.tag = tag;
    StartTimer(game, timer);
}

void StopATimer(Game &game, std::string_view tag) {
    for (Timer &timer : game.timers.misc) {
        if (!timer.loaded || timer.tag != tag) continue;
        if (NormText(FieldAt(tag, 1)) == "flash")
            if (ElementControl *control = game.desk.TLinkControl(Number32(FieldAt(tag, 2))))
                control->visible = true; // a flashing element always ends visible
        timer = UnloadedTimer();
    }
}

void MiscTimerTick(Game &game, int n) {
    const std::string tag = game.timers.misc.at(static_cast<std::size_t>(n)).tag;
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
