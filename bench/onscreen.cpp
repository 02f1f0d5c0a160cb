// The shared parts of the benchmarks on screen.
#include "onscreen.h"

#include "foundation/text.h"
#include "foundation/textfile.h"
#include "runtime/desktopwindow.h"
#include "runtime/qthost.h"
#include "session/playsession.h"
#include "widgets/look.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace orrery {

namespace fs = std::filesystem;

namespace {

// A folder in memory when the system has one: a new game writes its profile and world durably,
// and the disk's flushes would make the setup of each run far longer than the run.
fs::path ScratchFolder() {
    std::error_code error;
    const fs::path shm = "/dev/shm";
    if (fs::is_directory(shm, error) && ::access(shm.c_str(), W_OK) == 0) return shm;
    return fs::temp_directory_path();
}

} // namespace

AppFolder::AppFolder(const std::string &tag)
    : m_dir(ScratchFolder() / ("orrery-" + tag + "-" + std::to_string(::getpid()))),
      m_root(m_dir / "app") {
    const fs::path from = ORRERY_APP_DIR;
    for (auto it = fs::recursive_directory_iterator(from); it != fs::recursive_directory_iterator();
         ++it) {
        const fs::path to = m_root / fs::relative(it->path(), from);
        if (it->is_directory())
            fs::create_directories(to);
        else if ((it->status().permissions() & fs::perms::owner_exec) == fs::perms::none)
            fs::copy_file(it->path(), to, fs::copy_options::overwrite_existing);
    }
    fs::remove_all(m_root / "Saved");
    fs::create_directories(m_root / "Saved");
}

AppFolder::~AppFolder() {
    std::error_code ignored;
    fs::remove_all(m_dir, ignored);
}

std::string ProjectName(const AppPaths &paths) {
    return Trim(ReplaceAll(ReadTextFile(paths.ProjectNameFile()), "\r\n", ""));
}

void Settle() {
    QCoreApplication::sendPostedEvents();
    QApplication::processEvents();
}

PaintCounter::PaintCounter() {
    qApp->installEventFilter(this);
}

PaintCounter::~PaintCounter() {
    qApp->removeEventFilter(this);
}

bool PaintCounter::eventFilter(QObject *watched, QEvent *event) {
    if (m_on && event->type() == QEvent::Paint) ++m_paints;
    return QObject::eventFilter(watched, event);
}

HostScreen WindowScreen() {
    HostScreen screen;
    screen.widthTwips = Twips(kWindowSize.width());
    screen.heightTwips = Twips(kWindowSize.height());
    return screen;
}

DesktopWindow &EnterOnScreen(std::unique_ptr<DesktopWindow> &desktop, PlaySession &play,
                             QtHost &host) {
    desktop.reset();
    if (!play.NewGame("Bench").ok) {
        std::fprintf(stderr, "bench: cannot start a game on screen\n");
        std::exit(1);
    }
    desktop = std::make_unique<DesktopWindow>(play, host);
    desktop->resize(kWindowSize);
    desktop->show();
    desktop->enter();
    Settle();
    return *desktop;
}

void LeaveScreen(std::unique_ptr<DesktopWindow> &desktop, PlaySession &play) {
    desktop.reset();
    if (play.Playing()) play.Exit();
}

} // namespace orrery
