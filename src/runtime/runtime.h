// The run-time from start to end: the splash, the menu, the profile screen and the small
// windows round a game, and the desktop while a game is played. It owns the one project and
// the session, and puts each window on screen in turn.
#pragma once

#include "foundation/paths.h"
#include "foundation/preferences.h"
#include "foundation/random.h"
#include "runtime/desktopwindow.h"
#include "runtime/menuwindow.h"
#include "runtime/qthost.h"
#include "runtime/splash.h"
#include "session/playsession.h"

#include <QObject>
#include <QPointer>
#include <QSize>
#include <QWidget>
#include <memory>

namespace orrery {

class Runtime : public QObject {
    Q_OBJECT
public:
    // root: the application folder, with Data/pname.dat naming the game.
    Runtime(AppPaths paths, PreferenceStore preferences, QObject *parent = nullptr);
    ~Runtime() override;

    // Shows the splash; the menu follows it.
    void start();
    // Ends the program as a player would: a game in play is left with its profile saved, then
    // the menu closes. For the window manager's close and the termination signals.
    void quit();
    // The application folder of a run-time at program: its own folder when a Data/pname.dat
    // stands beside it, else the folder above (the build keeps it as Data/runner).
    static std::filesystem::path FindRoot(const std::filesystem::path &program);

    SplashWindow *splash() const { return m_splash; }
    MenuWindow *menu() const { return m_menu; }
    DesktopWindow *desktop() const { return m_desktop; }
    PlaySession &session() { return m_session; }
    QtHost &host() { return m_host; }
    // Asked nothing at a narrow screen: tests run on one.
    void setQuiet(bool quiet) { m_quiet = quiet; }
    // Windows of this size instead of the full screen: a window on a desktop, or a test.
    void setWindowSize(const QSize &size) { m_windowSize = size; }
    // Plays this project rather than the one Data/pname.dat names: the editor's simulation of
    // the project open in it. Empty: pname.dat's.
    void setGameName(std::string name) { m_gameName = std::move(name); }

signals:
    // The menu has gone: the program ends.
    void finished();

private:
    std::string m_gameName;
    // The game's name, as Data/pname.dat gives it.
    std::string gameName() const;
    void showMenu();
    void openProfiles(bool loadMode);
    void openDesktop();
    void leaveDesktop();
    void openOptions();
    void openScores();
    void openCredits();
    void openWebsite();
    void exit();

    AppPaths m_paths;
    PreferenceStore m_preferences;
    QtHost m_host;
    PlaySession m_session;
    QPointer<SplashWindow> m_splash;
    QPointer<MenuWindow> m_menu;
    QPointer<DesktopWindow> m_desktop;
    bool m_quiet = false;
    bool m_quitting = false;
    QSize m_windowSize;
    void present(QWidget *window);
};

} // namespace orrery
