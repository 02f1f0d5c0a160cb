// The desk model's host on screen: the yield is a pass through Qt's event queue, the sleep
// blocks, the desktop's timers run from one Qt timer set to the next tick that falls due, and
// questions and messages are modal windows.
#pragma once

#include "actions/game.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <functional>

namespace orrery {

class AppPaths;
class PreferenceStore;

class QtHost : public QObject, public Host {
    Q_OBJECT
public:
    QtHost(const AppPaths &paths, PreferenceStore &preferences, QObject *parent = nullptr);

    void Bind(Game *game) override;
    void Yield() override;
    void Sleep(int milliseconds) override;
    std::string Ask(const std::string &question, const std::string &option1,
                    const std::string &option2) override;
    std::string Preference(const std::string &key, const std::string &fallback) override;
    void ShowMessageBox(const std::string &text) override;

    // The window that modal questions and messages stand over.
    void SetWindow(QWidget *window) { m_window = window; }
    // The project whose preferences a game reads.
    void SetProjectName(std::string name) { m_projectName = std::move(name); }
    // The game's clock now: the time the game had when it was bound, plus the time since.
    std::int64_t Clock() const;
    // Sets the timer to the next tick; call after anything that may have started a timer.
    void Schedule();
    // True while the engine runs: a game must not end under it.
    bool Busy() const { return m_busy > 0; }

    // Runs an engine entry for the view, then lets the view show what changed.
    void Run(const std::function<void()> &work);

signals:
    // The desk may have changed: the view brings itself up to date.
    void changed();

private:
    void Tick();

    const AppPaths &m_paths;
    PreferenceStore &m_preferences;
    std::string m_projectName;
    Game *m_game = nullptr;
    QPointer<QWidget> m_window;
    QTimer m_timer;
    QElapsedTimer m_elapsed;
    std::int64_t m_base = 0;
    int m_busy = 0;
    int m_yieldDepth = 0;
    QElapsedTimer m_lastShown; // a long sequence shows its progress now and then
};

} // namespace orrery
