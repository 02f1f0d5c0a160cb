// What the GUI tests share: a copy of the built application folder to play in, waiting on the
// event loop, modal windows answered as they come, and screenshots.
#pragma once

#include "support/tempdir.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFocusEvent>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <string>

namespace orrery::test {

// The application folder of the build, copied without its saved profiles.
inline std::filesystem::path CopyAppFolder(const TempDir &dir) {
    namespace fs = std::filesystem;
    const fs::path root = dir.path() / "app";
    fs::copy(ORRERY_APP_DIR, root, fs::copy_options::recursive);
    fs::remove_all(root / "Saved");
    fs::create_directories(root / "Saved");
    return root;
}

// Runs the event loop until the condition holds or the time is up.
inline bool WaitFor(const std::function<bool()> &condition, int milliseconds = 5000) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > milliseconds) return false;
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

// Acts on the next modal window of type T once it is up; a modal window runs its own loop, so
// the action is set up before the click that opens it.
template <typename T> void WhenModal(std::function<void(T *)> action) {
    auto *poll = new QTimer;
    QObject::connect(poll, &QTimer::timeout, poll, [poll, action] {
        if (auto *window = qobject_cast<T *>(QApplication::activeModalWidget())) {
            poll->stop();
            poll->deleteLater();
            action(window);
        }
    });
    poll->start(20);
}

// Tells a field that the focus has left it, as a click elsewhere would; an offscreen window
// that is not active never loses the focus by itself.
inline void LeaveField(QWidget *field) {
    QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(field, &left);
}

// Saves what the widget shows as build/screens/<name>.
inline void Shot(QWidget *widget, const std::string &name) {
    QDir().mkpath(ORRERY_SCREENS_DIR);
    widget->grab().save(QString::fromStdString(std::string(ORRERY_SCREENS_DIR) + "/" + name));
}

} // namespace orrery::test
