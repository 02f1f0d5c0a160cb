// The editor's frame and the way its forms come and go.
#include "editor/qt/editorframe.h"

#include "check/check.h"
#include "editor/qt/changecommand.h"
#include "editor/qt/distributiondialog.h"
#include "editor/qt/helpviewer.h"
#include "editor/qt/hub.h"
#include "editor/qt/problemspanel.h"
#include "editor/qt/servereditor.h"
#include "editor/qt/shellparts.h"
#include "editor/qt/simulationdialog.h"
#include "editor/qt/tooleditor.h"
#include "editor/qt/wizard.h"
#include "editor/session.h"
#include "foundation/textfile.h"
#include "packaging/distribution.h"
#include "widgets/look.h"

#include <QAction>
#include <QCloseEvent>
#include <algorithm>
#include <QDockWidget>
#include <QProcess>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>
#include <QUndoStack>

namespace orrery {

namespace {

constexpr int kSaveInterval = 45000; // ms
constexpr const char *kPlacedAt = "placedAt"; // where the frame last put a form

QMenu *Menu(QMenuBar *bar, const QString &caption, const char *name) {
    QMenu *menu = bar->addMenu(caption);
    menu->setObjectName(name);
    return menu;
}

QAction *Entry(QMenu *menu, const QString &caption, const char *name) {
    QAction *action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

template <typename Form> Form *FormOf(const QPointer<QMdiSubWindow> &window) {
    return window ? qobject_cast<Form *>(window->widget()) : nullptr;
}

} // namespace

EditorFrame::EditorFrame(EditorSession &session, QWidget *parent)
    : QMainWindow(parent), m_session(session), m_area(new QMdiArea), m_undo(new QUndoStack(this)),
      m_save(new QTimer(this)), m_check(new QTimer(this)), m_problems(new ProblemsPanel),
      m_problemsDock(new QDockWidget(tr("Problems"), this)) {
    setObjectName("frmMain");
    m_area->setObjectName("Picture1");
    setCentralWidget(m_area);
    m_runner = QString::fromStdString(RunTimeProgram(m_session.paths()).string());
    m_area->installEventFilter(this);
    statusBar()->setObjectName("stat");
    m_problemsDock->setObjectName("dockProblems");
    m_problemsDock->setWidget(m_problems);
    m_problemsDock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    addDockWidget(Qt::BottomDockWidgetArea, m_problemsDock);
    m_problemsDock->hide();
    resizeDocks({m_problemsDock}, {170}, Qt::Vertical);
    connect(m_problems, &ProblemsPanel::openRequested, this, &EditorFrame::OpenProblem);
    // Steps come in bursts (a drag's end, an undo of several): one check after them.
    m_check->setSingleShot(true);
    m_check->setInterval(0);
    connect(m_check, &QTimer::timeout, this, &EditorFrame::CheckProject);
    MakeMenus();
    // The whole project is written every 45 seconds whether it changed or not.
    m_save->setObjectName("tmrSave");
    m_save->setInterval(kSaveInterval);
    connect(m_save, &QTimer::timeout, this, [this] {
        m_session.Autosave();
        Refresh();
    });
    m_save->start();
    connect(m_undo, &QUndoStack::indexChanged, this, [this] {
        Refresh();
        m_check->start();
        emit projectChanged();
    });
    Refresh();
    resize(1024, 720);
}

// The undo stack empties itself as it goes, and the frame it would tell is half gone by then.
EditorFrame::~EditorFrame() {
    m_undo->disconnect(this);
}

void EditorFrame::MakeMenus() {
    QMenu *file = Menu(menuBar(), tr("&File"), "mnufile");
    file->setToolTipsVisible(true);
    connect(Entry(file, tr("&Show Menu"), "mnushowmenu"), &QAction::triggered, this,
            &EditorFrame::ShowMenu);
    m_runSimulation = Entry(file, tr("Run Simulation..."), "mnurunsim");
    m_runSimulation->setShortcut(QKeySequence(Qt::Key_F5));
    connect(m_runSimulation, &QAction::triggered, this, &EditorFrame::RunSimulation);
    m_distribute = Entry(file, tr("&Create Distribution Files..."), "mnucreatedistro");
    connect(m_distribute, &QAction::triggered, this, &EditorFrame::CreateDistribution);
    file->addSeparator();
    connect(Entry(file, tr("&Exit Orrery Kit"), "mnuexit"), &QAction::triggered, this,
            &EditorFrame::ExitEditor);

    QMenu *edit = Menu(menuBar(), tr("&Edit"), "mnuedit");
    QAction *undo = m_undo->createUndoAction(this, tr("Undo"));
    m_undoAction = undo;
    undo->setObjectName("mnuundo");
    undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    QAction *redo = m_undo->createRedoAction(this, tr("Redo"));
    m_redoAction = redo;
    redo->setObjectName("mnuredo");
    redo->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    edit->addAction(undo);
    edit->addAction(redo);

    QMenu *view = Menu(menuBar(), tr("&View"), "mnuview");
    QAction *problems = m_problemsDock->toggleViewAction();
    problems->setObjectName("mnuproblems");
    problems->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_M));
    view->addAction(problems);

    QMenu *help = Menu(menuBar(), tr("&Help"), "mnuhelp");
    connect(Entry(help, tr("&Contents"), "mnucontents"), &QAction::triggered, this,
            &EditorFrame::ShowHelp);
}

void EditorFrame::Start(const std::string &name) {
    if (!name.empty()) {
        if (const auto refusal = m_session.Open(name)) {
            statusBar()->showMessage(ToQString(refusal->text));
        } else {
            return ProjectOpened();
        }
    }
    ShowWizard();
}

bool EditorFrame::Apply(Outcome outcome) {
    if (outcome.refused()) {
        ShowMessage(this, *outcome.refusal);
        return false;
    }
    if (m_session.Apply(outcome)) m_undo->push(new ChangeCommand(m_session, std::move(outcome.change)));
    Refresh();
    for (const Message &note : outcome.notes) ShowMessage(this, note);
    return true;
}

void EditorFrame::ShowMenu() {
    m_session.IsOpen() ? ShowHub() : ShowWizard();
}

void EditorFrame::ShowWizard() {
    if (m_wizard) return m_area->setActiveSubWindow(m_wizard);
    auto *wizard = new ProjectWizard(m_session, ProjectWizard::Mode::Start);
    connect(wizard, &ProjectWizard::projectOpened, this, &EditorFrame::ProjectOpened);
    m_wizard = Present(wizard);
}

void EditorFrame::ShowHub() {
    if (m_hub) return m_area->setActiveSubWindow(m_hub);
    auto *hub = new EditorHub;
    connect(hub, &EditorHub::settingsRequested, this, &EditorFrame::ShowSettings);
    connect(hub, &EditorHub::toolsRequested, this, &EditorFrame::ShowTools);
    connect(hub, &EditorHub::serversRequested, this, &EditorFrame::ShowServers);
    connect(hub, &EditorHub::exitRequested, this, &EditorFrame::ExitEditor);
    m_hub = Present(hub);
}

void EditorFrame::ShowHelp() {
    if (m_help) return m_area->setActiveSubWindow(m_help);
    m_help = Present(new HelpViewer);
}

void EditorFrame::ShowSettings() {
    if (!m_session.IsOpen()) return;
    if (m_settings) return m_area->setActiveSubWindow(m_settings);
    auto *page = new ProjectWizard(m_session, ProjectWizard::Mode::Settings);
    connect(page, &ProjectWizard::settingsSubmitted, this, [this](const NewProjectInfo &info) {
        // Written back, the page has done its work; a refusal leaves it open to be put right.
        if (Apply(SetProjectInfo(m_session.model(), info)) && m_settings) m_settings->close();
    });
    // An undo while the page is open shows on it.
    connect(this, &EditorFrame::projectChanged, page, &ProjectWizard::ShowNew);
    m_settings = Present(page);
}

void EditorFrame::ShowTools() {
    if (!m_session.IsOpen()) return;
    if (m_tools) return m_area->setActiveSubWindow(m_tools);
    auto *editor = new ToolEditor({&m_session, [this](Outcome outcome) { return Apply(std::move(outcome)); }});
    connect(this, &EditorFrame::projectChanged, editor, &ToolEditor::Reload);
    m_tools = Present(editor);
    // The workshop takes the whole area; the author may make it smaller.
    m_tools->setGeometry(QRect(QPoint(0, 0), m_area->size()));
    m_tools->setProperty(kPlacedAt, QPoint(-1, -1));
}

void EditorFrame::ShowServers() {
    if (!m_session.IsOpen()) return;
    if (m_servers) return m_area->setActiveSubWindow(m_servers);
    auto *editor = new ServerEditor({&m_session, [this](Outcome outcome) { return Apply(std::move(outcome)); }});
    connect(this, &EditorFrame::projectChanged, editor, &ServerEditor::Reload);
    // Every change is saved as it is made; closing saves once more, as the form always did.
    connect(editor, &ServerEditor::closeRequested, this, [this] {
        m_session.Autosave();
        if (m_servers) m_servers->close();
    });
    m_servers = Present(editor);
}

void EditorFrame::ExitEditor() {
    m_session.Exit();
    m_exited = true;
    close();
}

void EditorFrame::RunSimulation() {
    if (!m_session.IsOpen() || gameRunning()) return;
    SimulationDialog simulation(m_session, this);
    if (simulation.exec() != QDialog::Accepted) return;
    m_game = new QProcess(this);
    m_game->setObjectName("game");
    m_game->setProcessChannelMode(QProcess::ForwardedChannels);
    // However the game ends, the editor is back as it was, and says how it ended.
    const auto over = [this](int exitCode, const QString &why) {
        m_game->deleteLater();
        m_game = nullptr;
        centralWidget()->setEnabled(true);
        Refresh();
        if (!why.isEmpty()) statusBar()->showMessage(why);
        emit gameEnded(exitCode);
    };
    connect(m_game, &QProcess::finished, this, [over](int code, QProcess::ExitStatus status) {
        const int exitCode = status == QProcess::NormalExit ? code : -1;
        over(exitCode, exitCode == 0 ? QString()
                                     : tr("The game ended with an error (exit status %1).").arg(exitCode));
    });
    connect(m_game, &QProcess::errorOccurred, this, [this, over](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            over(-1, tr("The game could not be started: %1").arg(m_game->errorString()));
    });
    centralWidget()->setEnabled(false);
    Refresh();
    m_game->start(m_runner, {"--root", QString::fromStdString(m_session.paths().Root().string()),
                             "--project", ToQString(m_session.model().settings.myprojectname)});
}

void EditorFrame::CreateDistribution() {
    if (!m_session.IsOpen()) return;
    DistributionDialog builder({&m_session, [this](Outcome outcome) { return Apply(std::move(outcome)); }},
                               m_runner, this);
    builder.exec();
}

bool EditorFrame::gameRunning() const {
    return m_game != nullptr;
}

void EditorFrame::closeEvent(QCloseEvent *event) {
    // A game still running is left as a player leaves it, with its profile saved.
    if (m_game) {
        m_game->disconnect(this);
        m_game->terminate();
        if (!m_game->waitForFinished(5000)) m_game->kill();
    }
    // Leaving without Exit still writes the project, but puts no backup aside.
    if (!m_exited) m_session.Close();
    m_save->stop();
    event->accept();
}

ProjectWizard *EditorFrame::wizard() const {
    return FormOf<ProjectWizard>(m_wizard);
}

EditorHub *EditorFrame::hub() const {
    return FormOf<EditorHub>(m_hub);
}

ToolEditor *EditorFrame::tools() const {
    return FormOf<ToolEditor>(m_tools);
}

ServerEditor *EditorFrame::servers() const {
    return FormOf<ServerEditor>(m_servers);
}

HelpViewer *EditorFrame::help() const {
    return FormOf<HelpViewer>(m_help);
}

QMdiSubWindow *EditorFrame::Present(QWidget *form) {
    QMdiSubWindow *window = m_area->addSubWindow(form, Qt::SubWindow | Qt::CustomizeWindowHint |
                                                           Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->adjustSize();
    Place(window);
    window->show();
    m_area->setActiveSubWindow(window);
    return window;
}

void EditorFrame::Place(QMdiSubWindow *window) {
    const QPoint at = CenterChild(m_area->size(), window->size());
    window->move(at);
    window->setProperty(kPlacedAt, at);
}

bool EditorFrame::eventFilter(QObject *watched, QEvent *event) {
    // The frame may take its size after a form is placed (a window manager maximizes it late):
    // forms the author hasn't moved are placed again.
    if (watched == m_area && event->type() == QEvent::Resize)
        for (QMdiSubWindow *window : m_area->subWindowList()) {
            if (window->pos() == window->property(kPlacedAt).toPoint()) Place(window);
            // A form taller or wider than the area (the Problems panel has come up under it)
            // shrinks to fit, so that its buttons stay in reach.
            const QSize area = m_area->size();
            if (window->width() > area.width() || window->height() > area.height())
                window->resize(std::min(window->width(), area.width()),
                               std::min(window->height(), area.height()));
            if (window->geometry().bottom() >= area.height() || window->geometry().right() >= area.width())
                window->move(std::max(0, std::min(window->x(), area.width() - window->width())),
                             std::max(0, std::min(window->y(), area.height() - window->height())));
        }
    return QMainWindow::eventFilter(watched, event);
}

void EditorFrame::ProjectOpened() {
    // The wizard goes once a project is open; it goes when its click has ended.
    if (m_wizard) m_wizard->close();
    m_wizard = nullptr;
    m_undo->clear();
    // The previews use the fonts the game will have: the tree's own and the usual stand-ins.
    InstallFonts(m_session.paths().FontsPath());
    Refresh();
    CheckProject();
    // The panel comes up when there is something to see; the author may close it.
    if (!m_problems->findings().empty()) m_problemsDock->show();
    ShowHub();
}

void EditorFrame::Refresh() {
    setWindowTitle(ToQString(m_session.Title()));
    // While a game plays the project, nothing changes it.
    const bool free = m_session.IsOpen() && !gameRunning();
    m_runSimulation->setEnabled(free);
    m_distribute->setEnabled(free);
    m_undoAction->setEnabled(!gameRunning() && m_undo->canUndo());
    m_redoAction->setEnabled(!gameRunning() && m_undo->canRedo());
    m_problems->setEnabled(!gameRunning());
    if (!m_session.Status().empty())
        statusBar()->showMessage(ToQString(m_session.Status()));
    else if (gameRunning())
        statusBar()->showMessage(tr("A game is running: the editor is back when it ends."));
    else
        statusBar()->clearMessage();
}

void EditorFrame::CheckProject() {
    m_check->stop();
    if (!m_session.IsOpen()) return m_problems->ShowFindings({});
    // The lines are those of the file as saved after the step; when the save failed, those
    // the save would have written.
    const ProjectModel &model = m_session.model();
    std::optional<std::string> text = ReadFileBytes(m_session.File());
    if (!text || !m_session.Status().empty()) text = BuildProjectText(model);
    m_problems->ShowFindings(orrery::CheckProject(model, *text, m_session.paths()));
}

void EditorFrame::OpenProblem(const FindingPlace &place) {
    using K = FindingPlace::Kind;
    switch (place.kind) {
    case K::Element:
    case K::Qlob:
    case K::ToolSub:
    case K::MainLoad:
    case K::Variable:
    case K::Help:
        ShowTools();
        if (tools() && tools()->ShowPlace(place)) return;
        break;
    case K::Setting:
        if (place.name.starts_with("myproject")) return ShowSettings();
        break;
    default:
        break;
    }
    statusBar()->showMessage(tr("%1 is edited in an editor that comes in a later version; the "
                                "panel gives its line of the project file.")
                                 .arg(PlaceText(place)),
                             8000);
}

} // namespace orrery
