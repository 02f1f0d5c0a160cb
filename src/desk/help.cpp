// The help panel's topics and the clock's text.
#include "desk/help.h"

#include "actions/game.h"
#include "desk/desktop.h"
#include "foundation/convert.h"
#include "foundation/text.h"

#include <algorithm>
#include <ctime>

namespace orrery {

namespace {

// The run of blanks that keeps a topic's text out of sight behind its title.
constexpr std::string_view kHiddenGap = "        ";
constexpr int kMenuFields = 100; // the top menu reads no further

// A sub-entry whose action word is "help".
bool IsHelpEntry(std::string_view field) {
    const std::size_t equals = field.find('=');
    return field.starts_with('-') && equals != std::string_view::npos &&
           NormText(field.substr(equals + 1)) == "help";
}

} // namespace

void LoadHelper(Game &game) {
    HelpPanel &help = game.desk.help;
    help.visible = game.project.settings.helpon;
    help.title = kHelpTitle;
    help.items.clear();
    for (const std::string &slot : game.project.HelpTable) {
        if (IsBlank(slot)) continue;
        const std::size_t colon = slot.find(':');
        const std::string text = colon == std::string::npos ? "" : slot.substr(colon + 1);
        help.items.push_back(FieldAt(slot, 1) + std::string(kHiddenGap) + text);
    }
    HelpListClick(game, 0);
}

std::string MenuWithHelpEntry(std::string_view topMenu) {
    const std::string fields = ReplaceAll(topMenu, "//", ":");
    std::size_t titleEnd = std::string::npos;
    std::size_t from = 0;
    for (int i = 1; i <= kMenuFields && from <= fields.size(); ++i) {
        const std::size_t end = std::min(fields.find(':', from), fields.size());
        const std::string_view field = TrimView(std::string_view(fields).substr(from, end - from));
        if (IsHelpEntry(field)) return std::string(topMenu);
        if (titleEnd == std::string::npos && !field.empty() && !field.starts_with('-'))
            titleEnd = end;
        from = end + 1;
    }
    if (titleEnd == std::string::npos) return std::string(topMenu);
    const std::string tail = titleEnd < fields.size() ? fields.substr(titleEnd + 1) : "";
    return fields.substr(0, titleEnd) + ":" + std::string(kHelpMenuEntry) + tail;
}

std::string HelpItemText(std::string_view item) {
    const std::size_t gap = item.find(kHiddenGap);
    if (gap == std::string_view::npos) return {};
    return Trim(ReplaceAll(item.substr(gap), "//", "\r\n"));
}

void HelpListClick(Game &game, int index) {
    HelpPanel &help = game.desk.help;
    if (index < 0 || index >= static_cast<int>(help.items.size())) return;
    help.selected = index;
    help.text = ReplaceVars(HelpItemText(help.items[static_cast<std::size_t>(index)]),
                            game.project.settings.myprojectname);
}

void ToggleHelp(Desk &desk) {
    desk.help.visible = !desk.help.visible;
}

void ShowHelp(Desk &desk) {
    desk.help.visible = true;
}

std::string ClockText(std::chrono::minutes timeOfDay) {
    const auto minutes = static_cast<int>(((timeOfDay.count() % 1440) + 1440) % 1440);
    const int hour = minutes / 60;
    const int hour12 = hour % 12 == 0 ? 12 : hour % 12;
    const std::string mm = (minutes % 60 < 10 ? "0" : "") + IntText(minutes % 60);
    return IntText(hour12) + ":" + mm + (hour < 12 ? " AM" : " PM");
}

std::chrono::minutes LocalTimeOfDay() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return std::chrono::hours(local.tm_hour) + std::chrono::minutes(local.tm_min);
}

void LoadClock(Desk &desk, std::chrono::minutes timeOfDay) {
    desk.clock.visible = true;
    desk.clock.ticking = true;
    SetTime(desk, timeOfDay);
}

void SetTime(Desk &desk, std::chrono::minutes timeOfDay) {
    desk.clock.text = ClockText(timeOfDay);
}

void ClockTick(Game &game, std::chrono::minutes timeOfDay) {
    if (game.desk.clock.ticking && game.project.settings.myclock) SetTime(game.desk, timeOfDay);
}

void ToggleClock(Desk &desk) {
    desk.clock.visible = !desk.clock.visible;
}

} // namespace orrery
