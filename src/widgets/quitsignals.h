// The termination signals (SIGTERM, SIGINT, SIGHUP) as a Qt signal on the event loop, so that a
// program told to stop closes its windows as the player would, saving what they would save.
#pragma once

#include <QObject>

class QSocketNotifier;

namespace orrery {

class QuitSignals : public QObject {
    Q_OBJECT
public:
    // One at a time: the handlers are the process's. The old handlers come back when it goes.
    explicit QuitSignals(QObject *parent = nullptr);
    ~QuitSignals() override;

signals:
    // A termination signal arrived; the next one ends the program at once.
    void arrived();

private:
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace orrery
