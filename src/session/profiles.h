// Player profiles: the profile file, the run-time variables of a new game, and its load.
#pragma once

#include "foundation/paths.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orrery {

struct Game;

// The quicklist's room on the desktop. A load fills at most this many entries (more when the
// desk already has more), so a hand-made file can't grow the list without end.
inline constexpr int kQuicklistRows = 6;

// The outcome of a save or a load.
struct ProfileResult {
    bool ok = true;
    std::string error; // for a person, naming the file
};

// Saved/<trimmed name>.vbz, the one spelling a profile is written under; nullopt for a name
// that makes no safe file name.
std::optional<std::filesystem::path> ProfileFile(const AppPaths &paths, std::string_view player);

// Empties all run-time variable slots.
void ClearRuntimeVariables(Game &game);
// The first run-time slot whose name is blank; the last slot when every one is taken.
int NextFreeRuntimeVariable(const Game &game);
// The run-time variables from the project's defaults, with $randomname, $randomshortname and
// $randomplayername filled in.
void ResetPlayerVariables(Game &game);

// The whole profile file: its lines scrambled one by one, each ending in CRLF.
std::string ProfileText(Game &game);
// Writes the profile, replacing the old file atomically: a failure leaves it whole.
ProfileResult SaveProfile(Game &game, const std::filesystem::path &file);
// The save of the autosave and of leaving the desktop: Saved/<player name>.vbz.
ProfileResult SaveCurrentProfile(Game &game);
// Clears the run-time variables and applies the file. An empty path does nothing: a new game
// keeps what ResetPlayerVariables gave it. A file that can't be read changes nothing.
ProfileResult LoadProfile(Game &game, const std::filesystem::path &file);
// The same for the bytes of a profile file already read.
void ApplyProfileText(Game &game, std::string_view bytes);
// The player's world, fresh variables and the first save, in that order; stops at the first
// step that fails. A name that NameProblem refuses makes nothing, and a world made for a game
// whose first save fails is removed again.
ProfileResult NewGameSetup(Game &game, const std::filesystem::path &file);

} // namespace orrery
