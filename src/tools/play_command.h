// orrery play: a whole game without a display, driven by a script of player actions.
#pragma once

#include <iosfwd>
#include <string>

namespace orrery {

struct PlayOptions {
    std::string appDir;
    std::string project;
    std::string player;
    bool newGame = false;
    std::string script; // a file, or "" / "-" for standard input
};

// Plays the game from its profile through the desktop's first activation, then runs the
// script one command a line. Returns 0, or 1 with "<script>:<line>: <message>" on err.
int PlayCommand(const PlayOptions &options, std::istream &in, std::ostream &out, std::ostream &err);

} // namespace orrery
