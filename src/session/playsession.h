// One player's way through a game, the same with a display or without: a project opened once,
// a profile started or loaded, the desktop entered, time passing, and the exit that saves.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

#include "actions/game.h"
#include "foundation/paths.h"
#include "network/directory.h"
#include "network/generator.h"
#include "project/loader.h"
#include "session/profiles.h"
#include "session/profilescreen.h"

namespace orrery {

class PlaySession {
public:
    PlaySession(AppPaths paths, Host &host, Random &random);
    ~PlaySession();

    // Loads the project the run-time plays; once per process.
    LoadReport OpenProject(std::string_view name, const HostScreen &screen = {});
    // A new game or a saved one under the player's name, on a fresh desktop and world.
    GameStart NewGame(std::string_view player);
    GameStart LoadGame(std::string_view player);
    // The desktop's load and first activation; a saved game's profile is loaded then.
    ProfileResult EnterDesktop();
    // Lets time pass on the game's clock: timers, the gun and counters run in order.
    void Advance(std::int64_t milliseconds);
    // Leaves the desktop, saving the profile.
    ProfileResult Exit();
    // Ends the game the desktop asked to close: with a save after ExitMe, without one after
    // EXIT_GAME. True when it ended.
    bool EndIfAsked(ProfileResult &saved);

    bool Playing() const { return m_game != nullptr; }
    Game &game() { return *m_game; }
    ProjectModel &project() { return m_project; }
    // The name the project was opened by, as Data/pname.dat gives it.
    const std::string &projectName() const { return m_projectName; }
    const AppPaths &paths() const { return m_paths; }

private:
    void FreshGame();

    AppPaths m_paths;
    std::string m_projectName;
    Host &m_host;
    Random &m_random;
    ProjectModel m_project;
    WordBank m_words;
    std::unique_ptr<ServerDirectory> m_world;
    std::unique_ptr<Game> m_game;
    std::filesystem::path m_loadPath;
    HostScreen m_screen;
    ProfileResult m_loaded;
};

} // namespace orrery
