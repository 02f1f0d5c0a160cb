// The profile screen's logic: the saved profiles, the checks on a new name, and the start of a
// new or a saved game. The shell draws the screen and does what these answers say.
#pragma once

#include "foundation/paths.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

struct Game;

enum class ProfileOption { New, Load };

// What a confirm asks of the screen.
struct ProfileClick {
    enum class Next {
        Nothing,     // stay, change nothing
        ShowMessage, // put text in the name box, selected so that typing replaces it, and stay
        ShowStatus,  // say text on the status line and stay
        StartNew,    // show "Loading...", then GameNew(text)
        StartLoad,   // show "Loading...", then GameLoad(text)
    };
    Next next = Next::Nothing;
    std::string text; // the message, or the profile's name
};

// How a start went. On success the shell stops the menu music and opens the desktop, whose
// first activation loads loadPath; an empty loadPath (a new game) loads nothing.
struct GameStart {
    bool ok = false;
    std::string error; // for a person, when the game can't start
    std::filesystem::path loadPath;
};

// The profiles in Saved: the names of the files ending in .vbz, .Vbz or .VBZ without that
// ending, in Windows-1252, each once, in alphabetical order regardless of case.
std::vector<std::string> LoadGamesList(const AppPaths &paths);

// The checks of a confirm. typed is the name box's text, selected the chosen list item.
ProfileClick ClickIt(const AppPaths &paths, ProfileOption option, std::string_view typed,
                     std::string_view selected);

// A new game under the name: player name set, file table emptied, NewGameSetup run.
GameStart GameNew(Game &game, std::string_view name);
// A saved game under the name: player name set, file table emptied, the profile file to load
// found. The world folder is taken as it is.
GameStart GameLoad(Game &game, std::string_view name);

} // namespace orrery
