// What the benchmarks on screen share: a scratch copy of the built application folder, the
// window's size, a game entered on a desktop window and left, a settle of the event loop, and
// a count of the paint events delivered.
#pragma once

#include "foundation/paths.h"
#include "project/defaults.h"

#include <QObject>
#include <QSize>
#include <filesystem>
#include <memory>
#include <string>

namespace orrery {

class DesktopWindow;
class PlaySession;
class QtHost;

// The size of every window the benchmarks show, and the screen a project is opened for.
inline const QSize kWindowSize(1280, 800);
HostScreen WindowScreen();

// A new game of the session on a new desktop window, shown and painted after its first
// activation; the window held before goes first. Ends the program when no game starts.
DesktopWindow &EnterOnScreen(std::unique_ptr<DesktopWindow> &desktop, PlaySession &play,
                             QtHost &host);
// Ends the game on screen: the window goes and its host stops ticking.
void LeaveScreen(std::unique_ptr<DesktopWindow> &desktop, PlaySession &play);

// A copy of the built application folder without its programs, in memory when the system
// has a folder there, with an empty Saved; removed at the end.
class AppFolder {
public:
    explicit AppFolder(const std::string &tag);
    ~AppFolder();
    AppFolder(const AppFolder &) = delete;
    AppFolder &operator=(const AppFolder &) = delete;

    const std::filesystem::path &root() const { return m_root; }
    std::filesystem::path preferences() const { return m_dir / "prefs"; }

private:
    std::filesystem::path m_dir;
    std::filesystem::path m_root;
};

// The name of the project the run-time plays, from Data/pname.dat.
std::string ProjectName(const AppPaths &paths);

// Delivers what is posted and runs the events that are waiting.
void Settle();

// Counts the paint events delivered while it is on.
class PaintCounter : public QObject {
public:
    PaintCounter();
    ~PaintCounter() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void Start() { m_on = true; }
    void Stop() { m_on = false; }
    long long paints() const { return m_paints; }

private:
    bool m_on = false;
    long long m_paints = 0;
};

} // namespace orrery
