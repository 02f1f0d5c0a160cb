// The Qt host of the desk model.
#include "runtime/qthost.h"

#include "desk/timers.h"
#include "foundation/paths.h"
#include "foundation/preferences.h"
#include "foundation/text.h"
#include "session/qt/askerdialog.h"
#include "widgets/look.h"

#include <QApplication>
#include <QMessageBox>
#include <QThread>
#include <algorithm>

namespace orrery {

namespace {
// Yields nested deeper than this run no events: each level is a statement waiting on the
// stack, and a player's clicks could otherwise pile them up without end.
constexpr int kMaxYieldDepth = 40;
// However far off the next tick, the timer looks again this often.
constexpr std::int64_t kLongestWait = 250;
// A running sequence shows the desk this often.
constexpr int kShowEvery = 30;
} // namespace

QtHost::QtHost(const AppPaths &paths, PreferenceStore &preferences, QObject *parent)
    : QObject(parent), m_paths(paths), m_preferences(preferences) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &QtHost::Tick);
    m_lastShown.start();
}

void QtHost::Bind(Game *game) {
    m_game = game;
    if (!game) {
        m_timer.stop();
        return;
    }
    m_base = game->now;
    m_elapsed.start();
    Schedule();
}

std::int64_t QtHost::Clock() const { return m_base + (m_elapsed.isValid() ? m_elapsed.elapsed() : 0); }

void QtHost::Schedule() {
    if (!m_game) return;
    const auto next = NextDue(*m_game);
    std::int64_t wait = next ? std::clamp<std::int64_t>(*next - Clock(), 0, kLongestWait) : kLongestWait;
    m_timer.start(static_cast<int>(wait));
}

void QtHost::Tick() {
    if (!m_game) return;
    Run([this] { RunDueTimers(*m_game, Clock()); });
}

void QtHost::Run(const std::function<void()> &work) {
    ++m_busy;
    work();
    --m_busy;
    emit changed();
    m_lastShown.restart();
    Schedule();
}

void QtHost::Yield() {
    if (m_yieldDepth >= kMaxYieldDepth) return;
    ++m_yieldDepth;
    if (m_lastShown.elapsed() >= kShowEvery) {
        m_lastShown.restart();
        emit changed();
    }
    QApplication::processEvents(QEventLoop::AllEvents);
    --m_yieldDepth;
}

void QtHost::Sleep(int milliseconds) {
    emit changed();
    QThread::msleep(static_cast<unsigned long>(std::clamp(milliseconds, 0, 60000)));
}

std::string QtHost::Ask(const std::string &question, const std::string &option1,
                        const std::string &option2) {
    if (!m_game) return "";
    emit changed();
    return AskerDialog::Ask(m_window, m_game->project, m_paths, question, option1, option2);
}

std::string QtHost::Preference(const std::string &key, const std::string &fallback) {
    if (!m_game) return fallback;
    return m_preferences.GetPref(m_projectName, key, fallback);
}

void QtHost::ShowMessageBox(const std::string &text) {
    emit changed();
    QMessageBox::information(m_window, ToQString(Trim(m_projectName)),
                             ToQString(text));
}

} // namespace orrery
