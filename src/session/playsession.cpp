// A game from profile to exit.
#include "session/playsession.h"

#include "desk/desktop.h"
#include "desk/mainmenu.h"
#include "desk/timers.h"

namespace orrery {

PlaySession::PlaySession(AppPaths paths, Host &host, Random &random)
    : m_paths(std::move(paths)), m_host(host), m_random(random) {}

PlaySession::~PlaySession() { m_host.Bind(nullptr); }

LoadReport PlaySession::OpenProject(std::string_view name, const HostScreen &screen) {
    m_screen = screen;
    m_projectName = name;
    LoadReport report = LoadProject(m_project, m_paths, name, screen);
    RepairMenuSettings(m_project.settings);
    return report;
}

void PlaySession::FreshGame() {
    m_host.Bind(nullptr);
    m_world = std::make_unique<ServerDirectory>();
    m_game = std::make_unique<Game>(m_project, *m_world, m_words, m_random, m_host);
    m_game->paths = &m_paths;
    m_game->desk.formWidth = m_screen.widthTwips;
    m_game->desk.formHeight = m_screen.heightTwips;
    m_game->onAutosave = [this] { SaveCurrentProfile(*m_game); };
}

GameStart PlaySession::NewGame(std::string_view player) {
    FreshGame();
    GameStart start = orrery::GameNew(*m_game, player);
    m_loadPath.clear();
    if (!start.ok) m_game.reset();
    return start;
}

GameStart PlaySession::LoadGame(std::string_view player) {
    FreshGame();
    GameStart start = orrery::GameLoad(*m_game, player);
    m_loadPath = start.loadPath;
    if (!start.ok) m_game.reset();
    return start;
}

ProfileResult PlaySession::EnterDesktop() {
    if (!m_game) return {false, "no game has been started"};
    m_host.Bind(m_game.get());
    LoadDesktop(*m_game);
    ProfileResult loaded;
    FirstActivate(*m_game, [&] {
        if (!m_loadPath.empty()) loaded = LoadProfile(*m_game, m_loadPath);
    });
    // A profile that couldn't be read must not be overwritten by the next autosave.
    if (!loaded.ok) m_game->onAutosave = nullptr;
    return loaded;
}

void PlaySession::Advance(std::int64_t milliseconds) {
    if (m_game) RunDueTimers(*m_game, m_game->now + milliseconds);
}

bool PlaySession::EndIfAsked(ProfileResult &saved) {
    if (!m_game) return false;
    if (m_game->desk.exitRequested) {
        saved = Exit();
        return true;
    }
    if (!m_game->desk.closeRequested) return false;
    m_host.Bind(nullptr);
    m_game.reset();
    return true;
}

ProfileResult PlaySession::Exit() {
    if (!m_game) return {};
    ProfileResult saved;
    ExitMe(*m_game, [&] {
        if (m_game->onAutosave) saved = SaveCurrentProfile(*m_game);
    });
    m_host.Bind(nullptr);
    m_game.reset();
    return saved;
}

} // namespace orrery
