// The game desktop's life as a model: what its load sets up, the first activation that starts
// a game, its keys, and the way back to the menu.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orrery {

struct Game;

// Key codes the desktop and its consoles know.
namespace Key {
inline constexpr int Backspace = 8;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Delete = 46;
inline constexpr int F1 = 112;
inline constexpr int F9 = 120;
inline constexpr int F10 = 121;
inline constexpr int F11 = 122;
inline constexpr int F12 = 123;
} // namespace Key

// The desktop's load: the menus, the background, the name table, the timers.
void LoadDesktop(Game &game);

// The first activation, once: the world from the player's folder, the start-up sequence, the
// profile (loadProfile), then each "every" event once for the visible tools.
void FirstActivate(Game &game, const std::function<void()> &loadProfile);

// A key on the desktop. Any key closes an open message panel and does nothing else; Escape
// closes an open drop-down of the top menu, else leaves the game; F1, F9, F10 and F11 toggle panels; other keys go to the focused console.
void DesktopKey(Game &game, int keyCode, bool shift);

// A character that no key of the desk's table gives (é, ö, €), typed on a keyboard of another
// language: it closes an open message panel, or goes to the focused console.
void DesktopChar(Game &game, char c);

// A move of the mouse over the desktop or a tool takes the keys away from the console.
void DesktopMouseMove(Game &game);
// The hidden debug panel: its button counts clicks; its label, after exactly three, adds
// 12000 to $score.
void DebugButtonClick(Game &game);
void DebugLabelClick(Game &game);

// Leaving the game: the profile is saved (saveProfile) and the desktop ends.
void ExitMe(Game &game, const std::function<void()> &saveProfile);

// Replaces "$projectname" and "$myprojectname" by the project's name, nothing else.
std::string ReplaceVars(std::string_view text, std::string_view projectName);

} // namespace orrery
