// The editor's frame: the menus, the wizard, the hub and the help viewer in its area, the undo
// stack over the session's steps, and the save timer.
#pragma once

#include "editor/change.h"

#include <QMainWindow>
#include <QPointer>
#include <string>

class QAction;
class QProcess;
class QDockWidget;
class QMdiArea;
class QMdiSubWindow;
class QTimer;
class QUndoStack;

namespace orrery {

class EditorSession;
class EditorHub;
class HelpViewer;
class ProjectWizard;
class ServerEditor;
class ProblemsPanel;
struct FindingPlace;
class ToolEditor;

class EditorFrame : public QMainWindow {
    Q_OBJECT
public:
    explicit EditorFrame(EditorSession &session, QWidget *parent = nullptr);
    ~EditorFrame() override;

    // Opens the named project straight at the hub, or, without a name or when it can't be
    // opened, shows the wizard.
    void Start(const std::string &name = {});
    // A step an operation has made: its refusal in a message box, or the step kept for undo
    // and saved, then its notes. False when it was refused.
    bool Apply(Outcome outcome);

    // File's Show Menu: the hub when a project is open, else the wizard.
    void ShowMenu();
    void ShowHelp();
    void ShowSettings();
    // The hub's Tools and Menus: the tool editor, over the whole frame.
    void ShowTools();
    // The hub's Target Servers: the server editor.
    void ShowServers();
    // Checks the open project again and shows the findings in the Problems panel; after every
    // step, undo and redo the frame does it once the event loop is free.
    void CheckProject();
    // Opens what a finding is about, in the editor that edits it.
    void OpenProblem(const FindingPlace &place);
    // File's Run Simulation: the world generated and the project saved in the simulation
    // dialog, then the game played by the run-time in a process of its own; the editor waits,
    // saying so, and is back when the game ends.
    void RunSimulation();
    bool gameRunning() const;
    // File's Create Distribution Files: the game folder of the open project.
    void CreateDistribution();
    // The run-time the simulation starts: Data/runner beside the editor's program.
    void setRunnerProgram(const QString &program) { m_runner = program; }
    // The menu's and the hub's Exit: a backup, the plain save, and the frame closes.
    void ExitEditor();

    QUndoStack *undoStack() const { return m_undo; }
    ProjectWizard *wizard() const;
    EditorHub *hub() const;
    HelpViewer *help() const;
    ToolEditor *tools() const;
    ServerEditor *servers() const;
    ProblemsPanel *problems() const { return m_problems; }

signals:
    // A game of the simulation has ended.
    void gameEnded(int exitCode);
    // The model has changed by a step, its undo or its redo.
    void projectChanged();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void MakeMenus();
    QMdiSubWindow *Present(QWidget *form);
    void Place(QMdiSubWindow *window);
    void ShowWizard();
    void ShowHub();
    void ProjectOpened();
    void Refresh();

    EditorSession &m_session;
    QMdiArea *m_area;
    QUndoStack *m_undo;
    QTimer *m_save;
    QTimer *m_check;
    ProblemsPanel *m_problems;
    QDockWidget *m_problemsDock;
    QPointer<QMdiSubWindow> m_wizard;
    QPointer<QMdiSubWindow> m_hub;
    QPointer<QMdiSubWindow> m_help;
    QPointer<QMdiSubWindow> m_settings;
    QPointer<QMdiSubWindow> m_tools;
    QPointer<QMdiSubWindow> m_servers;
    bool m_exited = false;
    QString m_runner;
    QProcess *m_game = nullptr;
    QAction *m_runSimulation = nullptr;
    QAction *m_distribute = nullptr;
    QAction *m_undoAction = nullptr;
    QAction *m_redoAction = nullptr;
};

} // namespace orrery
