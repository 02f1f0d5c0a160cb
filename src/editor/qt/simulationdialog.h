// The simulation's first half: the world template generated afresh for the project, with
// its progress shown line by line, then the project saved. The frame then starts the game.
#pragma once

#include <QDialog>
#include <memory>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace orrery {

class EditorSession;

class SimulationDialog : public QDialog {
    Q_OBJECT
public:
    explicit SimulationDialog(EditorSession &session, QWidget *parent = nullptr);
    ~SimulationDialog() override;

    // The click of "Start Simulation", which the dialog makes itself once it is shown. The
    // dialog is accepted when the world and the project are written; a failure stays on it.
    void Start();
    // lSay: a line at the end of the progress list, which scrolls with the work.
    void Say(const QString &line);

protected:
    void showEvent(QShowEvent *event) override;
    void reject() override;

private:
    void Generated(bool done, const QString &error);

    struct Work;
    EditorSession &m_session;
    QListWidget *m_list;
    QProgressBar *m_progress;
    QPushButton *m_start;
    QPushButton *m_close;
    std::shared_ptr<Work> m_work;
    bool m_started = false;
};

} // namespace orrery
