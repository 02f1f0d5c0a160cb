// The game desktop on screen: the background, the side menu, the tools with their elements,
// the top menu, the quicklist, help, clock, message box and debug panel, each a view of the
// desk model. The player's keys and clicks go to the model; after each, the views follow it.
#pragma once

#include "runtime/deskviewhost.h"
#include "widgets/deskinput.h"
#include "widgets/picturecache.h"

#include <QMenu>
#include <QPointer>
#include <QWidget>
#include <map>
#include <string>
#include <vector>

namespace orrery {

class PlaySession;
class QtHost;
class ToolView;
class SideMenuView;
class TopMenuBar;
class TopMenuList;
class QuicklistView;
class HelpView;
class ClockView;
class MessageView;
class DebugView;

class DesktopWindow : public QWidget, public DeskInput {
    Q_OBJECT
public:
    DesktopWindow(PlaySession &session, QtHost &host, QWidget *parent = nullptr);
    ~DesktopWindow() override;

    // The desktop's load and first activation: the game begins. False with a reason when the
    // saved profile couldn't be read; the game then runs from its start.
    void enter();

    bool playing() const override;
    Game &game() override;
    const AppPaths &paths() const override;
    void run(const std::function<void(Game &)> &work) override;
    void showQuickMenu(const QPoint &globalPos) override;

    // The views, for tests and the benchmarks.
    ToolView *toolView(const std::string &tag);
    SideMenuView *sideMenu() const { return m_side; }
    TopMenuBar *topMenuBar() const { return m_topBar; }
    TopMenuList *topMenuList() const { return m_topList; }
    QuicklistView *quicklist() const { return m_quicklist; }
    QMenu *quickMenu() const { return m_quickMenu; }
    // Brings every view up to the model.
    void sync();
    // Leaves the game as Escape does, saving the profile; the owner is told by leaveRequested.
    void requestLeave();

signals:
    // The game asked to leave: ExitMe or EXIT_GAME. The owner ends it.
    void leaveRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    bool handleKey(QKeyEvent *event);
    bool handleCharacter(const QKeyEvent &event);
    void StyleQuickMenu();
    void restack();
    void followFocus();
    void checkLeave();

    PlaySession &m_session;
    QtHost &m_host;
    DeskViewHost m_views; // what the tools draw, and their input to the engine
    std::string m_background; // the picture's file below Res/uimages
    StretchedPicture m_stretched;
    SideMenuView *m_side = nullptr;
    QWidget *m_tooler = nullptr;
    std::map<int, ToolView *> m_tools; // by toolbox
    TopMenuBar *m_topBar = nullptr;
    TopMenuList *m_topList = nullptr;
    QuicklistView *m_quicklist = nullptr;
    HelpView *m_help = nullptr;
    ClockView *m_clock = nullptr;
    MessageView *m_message = nullptr;
    DebugView *m_debug = nullptr;
    QMenu *m_quickMenu = nullptr;
    std::vector<std::pair<std::uint64_t, int>> m_order; // the tools' stacking, last raised last
    bool m_leaving = false;
};

} // namespace orrery
