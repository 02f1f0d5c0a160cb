// The game desktop on screen.
#include "runtime/desktopwindow.h"

#include "desk/desktop.h"
#include "desk/menus.h"
#include "desk/quicklist.h"
#include "foundation/codepage.h"
#include "foundation/text.h"
#include "runtime/keymap.h"
#include "runtime/qthost.h"
#include "session/playsession.h"
#include "widgets/deskpanels.h"
#include "widgets/look.h"
#include "widgets/sidemenuview.h"
#include "widgets/toolview.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>
#include <algorithm>

namespace orrery {

DesktopWindow::DesktopWindow(PlaySession &session, QtHost &host, QWidget *parent)
    : QWidget(parent), m_session(session), m_host(host), m_views(*this) {
    setObjectName("zzMain");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(ToQString(Trim(session.projectName())));
    m_side = new SideMenuView(*this, this);
    m_side->move(8, 30);
    m_tooler = new QWidget(this);
    m_tooler->setObjectName("tooler");
    m_tooler->setAutoFillBackground(true);
    m_tooler->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_tooler->hide();
    m_help = new HelpView(*this, this);
    m_quicklist = new QuicklistView(*this, this);
    m_topBar = new TopMenuBar(*this, this);
    m_clock = new ClockView(*this, this);
    m_topList = new TopMenuList(*this, this);
    m_message = new MessageView(*this, this);
    m_debug = new DebugView(*this, this);
    for (QWidget *panel : std::initializer_list<QWidget *>{m_help, m_quicklist, m_topList, m_message, m_debug})
        panel->hide();
    m_quickMenu = new QMenu(this);
    m_quickMenu->setObjectName("zMenus");
    // The captions' "&" marks an access key the menu has no use for: shown, it underlines a dash.
    m_quickMenu->addAction(ToQString(kQuickAddServerCaption).remove(QLatin1Char('&')),
                           [this] { run([](Game &game) { AddQuickListServer(game); }); });
    m_quickMenu->addAction(ToQString(kQuickAddTextCaption).remove(QLatin1Char('&')),
                           [this] { run([](Game &game) { AddQuickListText(game); }); });
    connect(m_quickMenu, &QMenu::aboutToHide, this, [this] {
        if (playing()) game().desk.quickMenuVisible = false;
    });
    connect(&m_host, &QtHost::changed, this, &DesktopWindow::sync);
    connect(&Pictures(), &PictureCache::changed, this, qOverload<>(&QWidget::update));
    qApp->installEventFilter(this);
}

DesktopWindow::~DesktopWindow() {
    qApp->removeEventFilter(this);
    disconnect(&m_host, nullptr, this, nullptr);
}

bool DesktopWindow::playing() const { return m_session.Playing() && !m_leaving; }
Game &DesktopWindow::game() { return m_session.game(); }
const AppPaths &DesktopWindow::paths() const { return m_session.paths(); }

void DesktopWindow::enter() {
    Game &g = game();
    g.desk.formWidth = Twips(width());
    g.desk.formHeight = Twips(height());
    g.desk.consoles.measure = &QtTextMeasure();
    m_background = g.project.settings.mygamebackground;
    StyleQuickMenu();
    m_host.SetWindow(this);
    m_host.Run([this] { m_session.EnterDesktop(); });
}

// The pop-up wears the top menu's colours and font, as the game's other menus do.
void DesktopWindow::StyleQuickMenu() {
    const ProjectSettings &s = game().project.settings;
    m_quickMenu->setFont(ProjectFont("Verdana", 8, true));
    m_quickMenu->setStyleSheet(QStringLiteral("QMenu { background: %1; color: %2; border: 1px solid %3; padding: 2px; }"
                                              "QMenu::item { padding: 5px 18px; }"
                                              "QMenu::item:selected { background: %4; color: %5; }")
                                   .arg(ToQColor(s.mytopmenubackcolor).name(), ToQColor(s.mytopmenuforecolor).name(),
                                        ToQColor(s.mytoolsbordercolor).name(), ToQColor(s.mytopmenubackcolorsel).name(),
                                        ToQColor(s.mytopmenuforecolorsel).name()));
}

void DesktopWindow::run(const std::function<void(Game &)> &work) {
    if (!playing()) return;
    m_host.Run([&] { work(game()); });
}

void DesktopWindow::showQuickMenu(const QPoint &globalPos) {
    if (!playing() || !game().desk.quickMenuVisible) return;
    m_quickMenu->popup(globalPos);
}

ToolView *DesktopWindow::toolView(const std::string &tag) {
    if (!m_session.Playing()) return nullptr;
    for (const auto &[box, view] : m_tools)
        if (game().desk.Box(box).tag == tag) return view;
    return nullptr;
}

void DesktopWindow::sync() {
    if (!playing()) return;
    Game &g = game();
    Desk &desk = g.desk;
    m_side->sync();
    for (int n = 1; n <= desk.toolboxCount; ++n) {
        auto found = m_tools.find(n);
        if (found == m_tools.end()) found = m_tools.emplace(n, new ToolView(m_views, n, this)).first;
        found->second->sync();
    }
    restack();
    // The focus frame: 30 twips round the framed tool, just behind it.
    const auto framed = m_tools.find(desk.selectedBox);
    if (desk.toolerVisible && framed != m_tools.end() && framed->second->isVisible()) {
        QPalette palette = m_tooler->palette();
        palette.setColor(QPalette::Window, ToQColor(g.project.settings.mytoolsbordercolor).lighter(170));
        m_tooler->setPalette(palette);
        m_tooler->setGeometry(framed->second->geometry().adjusted(-2, -2, 2, 2));
        m_tooler->stackUnder(framed->second);
        m_tooler->show();
    } else {
        m_tooler->hide();
    }
    m_help->sync();
    m_quicklist->sync();
    m_topBar->sync();
    m_clock->sync();
    m_topList->sync();
    m_message->sync();
    m_debug->sync();
    followFocus();
    checkLeave();
}

// Keyboard focus follows the model's focused text box, unless the player is in a text box.
void DesktopWindow::followFocus() {
    const Desk &desk = game().desk;
    if (desk.focusRow <= 0 || desk.consoles.focus != 0) return;
    if (qobject_cast<TextView *>(QApplication::focusWidget())) return;
    const ElementControl *control = desk.Control(desk.focusRow);
    if (!control || control->kind != ElementKind::Text) return;
    const auto tool = m_tools.find(control->box);
    ElementView *view = tool == m_tools.end() ? nullptr : tool->second->element(desk.focusRow);
    if (view && view->widget()->isVisible()) view->widget()->setFocus();
}

void DesktopWindow::restack() {
    std::vector<std::pair<std::uint64_t, int>> order;
    for (const auto &[n, view] : m_tools) order.emplace_back(game().desk.Box(n).raisedAt, n);
    std::sort(order.begin(), order.end());
    if (order == m_order) return;
    m_order = order;
    for (const auto &[raised, n] : order) m_tools[n]->raise();
    for (QWidget *panel : std::initializer_list<QWidget *>{m_help, m_quicklist, m_topBar, m_clock, m_topList,
                                                          m_message, m_debug})
        panel->raise();
}

void DesktopWindow::requestLeave() {
    run([](Game &g) { g.desk.exitRequested = true; });
}

void DesktopWindow::closeEvent(QCloseEvent *event) {
    // The window manager's close is the player's Escape: the game is left, never dropped.
    if (!playing()) return QWidget::closeEvent(event);
    event->ignore();
    requestLeave();
}

void DesktopWindow::checkLeave() {
    if (m_leaving || !m_session.Playing()) return;
    const Desk &desk = game().desk;
    if (!desk.exitRequested && !desk.closeRequested) return;
    // The game ends once no statement is running; the owner does it from the event loop.
    if (m_host.Busy()) {
        QTimer::singleShot(50, this, &DesktopWindow::checkLeave);
        return;
    }
    m_leaving = true;
    hide();
    QTimer::singleShot(0, this, &DesktopWindow::leaveRequested);
}

bool DesktopWindow::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::KeyPress || !playing()) return QWidget::eventFilter(watched, event);
    // The form sees keys first, but only its own: a dialog over it keeps its keys.
    auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget || widget->window() != this) return QWidget::eventFilter(watched, event);
    return handleKey(static_cast<QKeyEvent *>(event));
}

bool DesktopWindow::handleKey(QKeyEvent *event) {
    const DeskKey key = DeskKeyOf(*event);
    if (key.code == 0) return handleCharacter(*event);
    const Desk &desk = game().desk;
    const bool message = desk.message.visible;
    const bool console = desk.consoles.focus > 0;
    const bool own = key.code == 27 || (key.code >= 112 && key.code <= 123);
    run([&](Game &g) { DesktopKey(g, key.code, key.plain && key.shift); });
    // A key that closed the message box, went to a console or was the desktop's own goes no
    // further; any other goes on to the focused control.
    return message || console || own;
}

// A character of another language's keyboard, which no key code names, for the console or the
// message; a text box takes it as it comes.
bool DesktopWindow::handleCharacter(const QKeyEvent &event) {
    const QString text = event.text();
    if (text.size() != 1 || (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier))) return false;
    const std::optional<char> c = Cp1252Char(text.at(0).unicode());
    if (!c || static_cast<unsigned char>(*c) < 0x80) return false;
    const Desk &desk = game().desk;
    const bool taken = desk.message.visible || desk.consoles.focus > 0;
    run([c](Game &g) { DesktopChar(g, *c); });
    return taken;
}

void DesktopWindow::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QPixmap background = LoadPicture(paths().ResPath() / "uimages", m_background);
    if (background.isNull()) {
        QLinearGradient night(0, 0, 0, height());
        night.setColorAt(0, QColor(10, 16, 28));
        night.setColorAt(1, QColor(2, 4, 8));
        painter.fillRect(rect(), night);
        return;
    }
    painter.drawPixmap(0, 0, m_stretched.At(background, size()));
}

void DesktopWindow::resizeEvent(QResizeEvent *) {
    if (playing()) {
        game().desk.formWidth = Twips(width());
        game().desk.formHeight = Twips(height());
        sync();
    }
}

void DesktopWindow::mouseMoveEvent(QMouseEvent *) {
    if (!playing()) return;
    Game &g = game();
    DesktopMouseMove(g);
    if (g.desk.topMenuListVisible) run([](Game &gm) { SelMenu(gm, kNoMenu); });
}

void DesktopWindow::mousePressEvent(QMouseEvent *) {
    if (!playing()) return;
    run([](Game &g) {
        g.desk.consoles.focus = 0;
        if (g.desk.topMenuListVisible) SelMenu(g, kNoMenu);
    });
    setFocus();
}

} // namespace orrery
