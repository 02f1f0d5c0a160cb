// The help panel, whose list shows the project's help topics, and the clock of the desktop.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace orrery {

struct Game;
class Desk;

inline constexpr std::string_view kHelpTitle = "Help";
// The top menu's help entry with a divider behind it, as sub-entries of a menu.
inline constexpr std::string_view kHelpMenuEntry = "-Show Help=help:-:";

// Fills the topic list from HelpTable and shows the first topic. The panel is shown when
// helpon is on; F1 opens it either way.
void LoadHelper(Game &game);
// The top-menu text with the help entry first in its first menu, its "//" read as ":". The
// text as it stands when it has a help entry already, or no menu to put it in. The top menu
// is to be built from this text.
std::string MenuWithHelpEntry(std::string_view topMenu);
// The text a list item hides: from its first run of eight blanks on, each "//" a line break,
// trimmed.
std::string HelpItemText(std::string_view item);
// A click on topic i (from 0): its text, the project's name in place of "$myprojectname".
void HelpListClick(Game &game, int index);
// F1.
void ToggleHelp(Desk &desk);
// The top menu's "help" word.
void ShowHelp(Desk &desk);

// The time of day as the clock shows it: "h:mm AM/PM".
std::string ClockText(std::chrono::minutes timeOfDay);
// The wall clock's local time of day, for the clock's callers.
std::chrono::minutes LocalTimeOfDay();
// Shows the clock with the time at once and starts its five-second refresh.
void LoadClock(Desk &desk, std::chrono::minutes timeOfDay);
void SetTime(Desk &desk, std::chrono::minutes timeOfDay);
// A tick of the refresh timer: the time is set while myclock is on.
void ClockTick(Game &game, std::chrono::minutes timeOfDay);
// F11.
void ToggleClock(Desk &desk);

} // namespace orrery
