// The small panels of the desktop.
#include "widgets/deskpanels.h"

#include "actions/game.h"
#include "desk/desktop.h"
#include "desk/help.h"
#include "desk/menus.h"
#include "desk/quicklist.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "widgets/deskinput.h"
#include "widgets/look.h"

#include <QMouseEvent>
#include <QPainter>

namespace orrery {

namespace {

constexpr int kBarHeight = 22;
constexpr int kQuickRowHeight = 18;
constexpr int kPanelTitle = 22;

const ProjectSettings &SettingsOf(DeskInput &desk) { return desk.game().project.settings; }

QFont PanelFont(int size = 8, bool bold = false) { return ProjectFont("Verdana", size, bold); }

// A panel's frame and title strip in the tools' colours.
void PaintFrame(QPainter &painter, const QRect &rect, const ProjectSettings &s, const QString &title) {
    painter.fillRect(rect, ToQColor(s.mytoolsbackcolor));
    const QRect strip(rect.left(), rect.top(), rect.width(), kPanelTitle);
    QLinearGradient steel(strip.topLeft(), strip.bottomLeft());
    steel.setColorAt(0, QColor(44, 56, 72));
    steel.setColorAt(1, QColor(20, 26, 34));
    painter.fillRect(strip, steel);
    painter.setPen(QColor(150, 210, 230));
    painter.setFont(PanelFont(8, true));
    painter.drawText(strip.adjusted(8, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft, title);
    painter.setPen(ToQColor(s.mytoolsbordercolor).lighter(150));
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

} // namespace

DeskPanel::DeskPanel(DeskInput &desk, const char *name, QWidget *parent) : QWidget(parent), m_desk(desk) {
    setObjectName(name);
    setMouseTracking(true);
}

void DeskPanel::refresh(std::string shown) {
    if (shown == m_shown) return;
    m_shown = std::move(shown);
    update();
}

namespace {
std::string Joined(const std::vector<std::string> &texts) {
    std::string out;
    for (const std::string &text : texts) out += text + '\n';
    return out;
}
} // namespace

// The top menu's bar: its entries from 480 twips, and Exit at the right end.
TopMenuBar::TopMenuBar(DeskInput &desk, QWidget *parent) : DeskPanel(desk, "topmenu", parent) {}

void TopMenuBar::sync() {
    const Desk &desk = m_desk.game().desk;
    setGeometry(0, 0, parentWidget()->width(), kBarHeight);
    setVisible(desk.topMenuVisible);
    refresh(std::to_string(desk.selectedMenu) + (desk.topMenuListVisible ? "o" : "c") +
            std::to_string(desk.TopMenu.size()) + "/" + std::to_string(width()));
}

QRect TopMenuBar::entryRect(int index) const {
    const QFontMetrics metrics(PanelFont());
    if (index == 0) {
        const int w = metrics.horizontalAdvance("Exit") + 24;
        return QRect(width() - w - 8, 0, w, height());
    }
    const auto &entries = m_desk.game().desk.TopMenu;
    int left = Px(480);
    for (int i = 1; i < static_cast<int>(entries.size()); ++i) {
        const int w = metrics.horizontalAdvance(ToQString(entries[static_cast<std::size_t>(i)].caption)) + 16;
        if (i == index) return QRect(left, 0, w, height());
        left += w + Px(120);
    }
    return {};
}

void TopMenuBar::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const ProjectSettings &s = SettingsOf(m_desk);
    const Desk &desk = m_desk.game().desk;
    painter.fillRect(rect(), ToQColor(s.mytopmenubackcolor));
    painter.setFont(PanelFont());
    for (int i = 1; i < static_cast<int>(desk.TopMenu.size()); ++i) {
        const QRect entry = entryRect(i);
        const bool open = desk.selectedMenu == i && desk.topMenuListVisible;
        if (open) painter.fillRect(entry, ToQColor(s.mytopmenubackcolorsel));
        painter.setPen(ToQColor(open ? s.mytopmenuforecolorsel : s.mytopmenuforecolor));
        painter.drawText(entry, Qt::AlignCenter, ToQString(desk.TopMenu[static_cast<std::size_t>(i)].caption));
    }
    painter.setPen(ToQColor(s.mytopmenuforecolor));
    painter.drawText(entryRect(0), Qt::AlignCenter, "Exit");
    // The game's name in the middle of the bar.
    painter.drawText(rect(), Qt::AlignCenter, ToQString(Trim(m_desk.game().project.settings.myprojectname)));
}

void TopMenuBar::mouseMoveEvent(QMouseEvent *event) {
    const Desk &desk = m_desk.game().desk;
    if (!desk.topMenuListVisible) return; // a drop-down follows the mouse once one is open
    for (int i = 1; i < static_cast<int>(desk.TopMenu.size()); ++i)
        if (entryRect(i).contains(event->position().toPoint()) && desk.selectedMenu != i)
            m_desk.run([i](Game &game) { SelMenu(game, i); });
}

void TopMenuBar::mousePressEvent(QMouseEvent *event) {
    const QPoint at = event->position().toPoint();
    if (entryRect(0).contains(at)) {
        m_desk.run([](Game &game) { game.desk.exitRequested = true; });
        return;
    }
    const Desk &desk = m_desk.game().desk;
    for (int i = 1; i < static_cast<int>(desk.TopMenu.size()); ++i)
        if (entryRect(i).contains(at)) {
            const bool open = desk.topMenuListVisible && desk.selectedMenu == i;
            m_desk.run([i, open](Game &game) { SelMenu(game, open ? kNoMenu : i); });
            return;
        }
    m_desk.run([](Game &game) { SelMenu(game, kNoMenu); });
}

// The drop-down of the open entry.
TopMenuList::TopMenuList(DeskInput &desk, QWidget *parent) : DeskPanel(desk, "topmenulist", parent) {}

QRect TopMenuList::entryRect(int index) const {
    const int rowHeight = QFontMetrics(PanelFont()).height() + Px(60);
    return QRect(0, 4 + (index - 1) * rowHeight, width(), rowHeight);
}

void TopMenuList::sync() {
    const Desk &desk = m_desk.game().desk;
    const bool shown = desk.topMenuListVisible && desk.topMenuVisible;
    if (!shown) {
        hide();
        return;
    }
    const QFontMetrics metrics(PanelFont());
    int widest = 0;
    for (std::size_t i = 1; i < desk.TopMenuList.size(); ++i)
        widest = std::max(widest, metrics.horizontalAdvance(ToQString(desk.TopMenuList[i].caption)));
    const auto *bar = parentWidget()->findChild<TopMenuBar *>();
    const int left = bar ? std::max(0, bar->entryRect(desk.selectedMenu).left() - Px(120)) : 0;
    const int count = static_cast<int>(desk.TopMenuList.size()) - 1;
    setGeometry(left, kBarHeight, std::max(widest + Px(240), Px(420)) + 16, entryRect(count + 1).top() + 4);
    show();
    raise();
    std::string listed = std::to_string(desk.selectedMenu);
    for (const SubEntry &entry : desk.TopMenuList) listed += entry.caption + "\n";
    refresh(std::move(listed));
}

void TopMenuList::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const ProjectSettings &s = SettingsOf(m_desk);
    const Desk &desk = m_desk.game().desk;
    painter.fillRect(rect(), ToQColor(s.mytopmenubackcolor));
    painter.setFont(PanelFont());
    for (int i = 1; i < static_cast<int>(desk.TopMenuList.size()); ++i) {
        const QRect entry = entryRect(i);
        const std::string &caption = desk.TopMenuList[static_cast<std::size_t>(i)].caption;
        if (caption == "-" || caption.empty()) {
            painter.setPen(ToQColor(s.mytopmenuforecolor));
            painter.drawLine(entry.left() + 6, entry.center().y(), entry.right() - 6, entry.center().y());
            continue;
        }
        if (i == m_hover) painter.fillRect(entry, ToQColor(s.mytopmenubackcolorsel));
        painter.setPen(ToQColor(i == m_hover ? s.mytopmenuforecolorsel : s.mytopmenuforecolor));
        painter.drawText(entry.adjusted(Px(120), 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, ToQString(caption));
    }
    painter.setPen(ToQColor(s.mytopmenuforecolor));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TopMenuList::mouseMoveEvent(QMouseEvent *event) {
    const Desk &desk = m_desk.game().desk;
    int hover = 0;
    for (int i = 1; i < static_cast<int>(desk.TopMenuList.size()); ++i)
        if (entryRect(i).contains(event->position().toPoint())) hover = i;
    if (hover != m_hover) {
        m_hover = hover;
        update();
    }
}

void TopMenuList::leaveEvent(QEvent *) {
    m_hover = 0;
    update();
}

// The press is the list's own: on the desktop below, it would close the list before the
// release could choose an entry.
void TopMenuList::mousePressEvent(QMouseEvent *event) { event->accept(); }

void TopMenuList::mouseReleaseEvent(QMouseEvent *event) {
    const Desk &desk = m_desk.game().desk;
    for (int i = 1; i < static_cast<int>(desk.TopMenuList.size()); ++i)
        if (entryRect(i).contains(event->position().toPoint())) {
            m_hover = 0;
            m_desk.run([i](Game &game) { ActivateTopMenu(game, i); });
            return;
        }
}

// The quicklist: at the right edge below the bar, newest entry first, a delete mark each.
QuicklistView::QuicklistView(DeskInput &desk, QWidget *parent) : DeskPanel(desk, "quicklist", parent) {}

QRect QuicklistView::rowRect(int row) const {
    return QRect(4, kPanelTitle + 4 + (row - 1) * kQuickRowHeight, width() - 28, kQuickRowHeight);
}

QRect QuicklistView::deleteRect(int row) const {
    const QRect r = rowRect(row);
    return QRect(r.right() + 4, r.top(), 18, r.height());
}

void QuicklistView::sync() {
    const Desk &desk = m_desk.game().desk;
    const int rows = std::max(0, static_cast<int>(desk.Quicklist.size()) - 1);
    const int w = 280;
    setGeometry(parentWidget()->width() - w - 8, kBarHeight + 8, w, kPanelTitle + 8 + rows * kQuickRowHeight + 4);
    if (isVisible() != desk.quicklistVisible) {
        setVisible(desk.quicklistVisible);
        if (desk.quicklistVisible) raise();
    }
    refresh(Joined(desk.Quicklist) + std::to_string(desk.quicklistSel));
}

void QuicklistView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const ProjectSettings &s = SettingsOf(m_desk);
    const Desk &desk = m_desk.game().desk;
    painter.fillRect(rect(), ToQColor(s.myqlistbackcolor));
    const QRect strip(0, 0, width(), kPanelTitle);
    painter.fillRect(strip, ToQColor(s.myqlistbordercolor));
    // The title in the rows' colour, which the project keeps readable on the list.
    painter.setPen(ToQColor(s.myqforecolor));
    painter.setFont(PanelFont(8, true));
    painter.drawText(strip.adjusted(8, 0, 0, 0), Qt::AlignVCenter, "Quicklist");
    const QFont rowFont = ProjectFont(s.myqfontname, s.myqfontsize > 0 ? s.myqfontsize : 8, s.myqisbold,
                                      s.myqisitalic, s.myqisunderline);
    for (int row = 1; row < static_cast<int>(desk.Quicklist.size()); ++row) {
        const QRect r = rowRect(row);
        const bool odd = row % 2 == 1;
        const std::int32_t back = odd ? s.myqlistbackcolor1 : s.myqlistbackcolor2;
        if (back != 0 || s.myqlistbackcolor1 != s.myqlistbackcolor2) painter.fillRect(r, ToQColor(back));
        if (row == desk.quicklistSel && !desk.Quicklist[static_cast<std::size_t>(row)].empty())
            painter.fillRect(r, ToQColor(s.myqselcolor));
        painter.setFont(rowFont);
        painter.setPen(ToQColor(s.myqforecolor));
        painter.drawText(r.adjusted(4, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         ToQString(desk.Quicklist[static_cast<std::size_t>(row)]));
        if (!desk.Quicklist[static_cast<std::size_t>(row)].empty()) {
            painter.setPen(QColor(220, 90, 80));
            painter.drawText(deleteRect(row), Qt::AlignCenter, "x");
        }
    }
    painter.setPen(ToQColor(s.myqlistbordercolor));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void QuicklistView::mouseMoveEvent(QMouseEvent *event) {
    const Desk &desk = m_desk.game().desk;
    for (int row = 1; row < static_cast<int>(desk.Quicklist.size()); ++row)
        if (rowRect(row).contains(event->position().toPoint()) && desk.quicklistSel != row) {
            m_desk.run([row](Game &game) { SetQSel(game.desk, row); });
            return;
        }
}

void QuicklistView::mousePressEvent(QMouseEvent *event) {
    const QPoint at = event->position().toPoint();
    const Desk &desk = m_desk.game().desk;
    for (int row = 1; row < static_cast<int>(desk.Quicklist.size()); ++row) {
        if (deleteRect(row).contains(at)) return m_desk.run([row](Game &game) { QuickListDelete(game.desk, row); });
        if (rowRect(row).contains(at)) return m_desk.run([row](Game &game) { QuickListClick(game, row); });
    }
}

// The help panel: the topics on the left, the chosen one's text beside them.
HelpView::HelpView(DeskInput &desk, QWidget *parent) : DeskPanel(desk, "helper", parent) {}

QRect HelpView::topicRect(int index) const {
    return QRect(6, kPanelTitle + 6 + index * 18, 170, 18);
}

void HelpView::sync() {
    const Desk &desk = m_desk.game().desk;
    const int h = 230;
    setGeometry(Px(120), parentWidget()->height() - h - Px(120), 560, h);
    if (isVisible() != desk.help.visible) {
        setVisible(desk.help.visible);
        if (desk.help.visible) raise();
    }
    refresh(std::to_string(desk.help.selected) + Joined(desk.help.items) + desk.help.text);
}

void HelpView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const ProjectSettings &s = SettingsOf(m_desk);
    const Desk &desk = m_desk.game().desk;
    PaintFrame(painter, rect(), s, ToQString(desk.help.title.empty() ? std::string("Help") : desk.help.title));
    const QFont font = ProjectFont(s.mtdefstylelabelfontname, s.mtdefstylelabelfontsize > 0 ? s.mtdefstylelabelfontsize : 8);
    painter.setFont(font);
    const QColor fore = ToQColor(s.mtdefstylelabelforecolor) == Qt::black ? QColor(210, 220, 230)
                                                                           : ToQColor(s.mtdefstylelabelforecolor);
    for (int i = 0; i < static_cast<int>(desk.help.items.size()); ++i) {
        const QRect r = topicRect(i);
        if (i == desk.help.selected) painter.fillRect(r, ToQColor(s.mytoolsbordercolor));
        painter.setPen(fore);
        const std::string &item = desk.help.items[static_cast<std::size_t>(i)];
        const std::size_t hidden = item.find("        ");
        painter.drawText(r.adjusted(4, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         ToQString(item.substr(0, hidden)));
    }
    painter.setPen(ToQColor(s.mytoolsbordercolor).lighter(150));
    painter.drawLine(182, kPanelTitle + 6, 182, height() - 8);
    painter.setPen(fore);
    QString text = ToQString(desk.help.text);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    painter.drawText(QRect(192, kPanelTitle + 6, width() - 200, height() - kPanelTitle - 12),
                     Qt::TextWordWrap | Qt::AlignTop | Qt::AlignLeft, text);
}

void HelpView::mousePressEvent(QMouseEvent *event) {
    const Desk &desk = m_desk.game().desk;
    for (int i = 0; i < static_cast<int>(desk.help.items.size()); ++i)
        if (topicRect(i).contains(event->position().toPoint()))
            return m_desk.run([i](Game &game) { HelpListClick(game, i); });
}

// The clock, centred at the top edge, in the top menu's colours.
ClockView::ClockView(DeskInput &desk, QWidget *parent) : DeskPanel(desk, "clock", parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ClockView::sync() {
    const Desk &desk = m_desk.game().desk;
    const int w = 110;
    setGeometry(parentWidget()->width() / 2 - w / 2 + 140, 0, w, kBarHeight);
    if (isVisible() != desk.clock.visible) {
        setVisible(desk.clock.visible);
        if (desk.clock.visible) raise();
    }
    refresh(desk.clock.text);
}

void ClockView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const ProjectSettings &s = SettingsOf(m_desk);
    painter.fillRect(rect(), ToQColor(s.mytopmenubackcolor));
    painter.setPen(ToQColor(s.mytopmenuforecolor));
    painter.setFont(PanelFont(8, true));
    painter.drawText(rect(), Qt::AlignCenter, ToQString(m_desk.game().desk.clock.text));
}

// The message box of the engine: title, text and an OK; any click on it closes it.
MessageView::MessageView(DeskInput &desk, QWidget *parent) : DeskPanel(desk, "mbox", parent) {}

void MessageView::sync() {
    const Desk &desk = m_desk.game().desk;
    const QSize size(420, 170);
    if (!m_placed)
        setGeometry(parentWidget()->width() / 2 - size.width() / 2,
                    parentWidget()->height() / 2 - size.height() / 2, size.width(), size.height());
    if (isVisible() != desk.message.visible) setVisible(desk.message.visible);
    if (!desk.message.visible) m_placed = false;
    else raise();
    refresh(desk.message.title + "\n" + desk.message.text);
}

QRect MessageView::okRect() const { return QRect(width() / 2 - 40, height() - 36, 80, 24); }
QRect MessageView::closeRect() const { return QRect(width() - kPanelTitle, 0, kPanelTitle, kPanelTitle); }

void MessageView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const ProjectSettings &s = SettingsOf(m_desk);
    const Desk &desk = m_desk.game().desk;
    PaintFrame(painter, rect(), s, ToQString(desk.message.title));
    painter.setPen(QColor(220, 230, 240));
    painter.setFont(PanelFont(9));
    painter.drawText(rect().adjusted(16, kPanelTitle + 12, -16, -44), Qt::TextWordWrap | Qt::AlignTop,
                     ToQString(desk.message.text));
    painter.drawText(closeRect(), Qt::AlignCenter, "x");
    painter.fillRect(okRect(), ToQColor(s.mytoolsbordercolor));
    painter.setPen(Qt::white);
    painter.drawText(okRect(), Qt::AlignCenter, "OK");
}

// The OK button and the close mark close the message; a press anywhere else drags it.
void MessageView::mousePressEvent(QMouseEvent *event) {
    const QPoint at = event->position().toPoint();
    if (okRect().contains(at) || closeRect().contains(at)) {
        m_desk.run([](Game &game) { game.desk.message.visible = false; });
        return;
    }
    m_dragging = true;
    m_dragFrom = event->globalPosition().toPoint() - pos();
}

void MessageView::mouseMoveEvent(QMouseEvent *event) {
    if (!m_dragging) return;
    m_placed = true;
    move(event->globalPosition().toPoint() - m_dragFrom);
}

void MessageView::mouseReleaseEvent(QMouseEvent *) { m_dragging = false; }

// The hidden debug panel.
DebugView::DebugView(DeskInput &desk, QWidget *parent) : DeskPanel(desk, "Picture2", parent) {}

QRect DebugView::buttonRect() const { return QRect(width() - 70, 4, 64, 20); }
QRect DebugView::labelRect() const { return QRect(8, height() - 22, 100, 18); }

void DebugView::sync() {
    const Desk &desk = m_desk.game().desk;
    setGeometry(parentWidget()->width() - 340, parentWidget()->height() - 260, 330, 250);
    if (isVisible() != desk.debugVisible) setVisible(desk.debugVisible);
    if (desk.debugVisible) {
        raise();
        refresh(Joined(std::vector<std::string>(m_desk.game().GunQueue.begin(), m_desk.game().GunQueue.end())) +
                std::to_string(m_desk.game().RunningSequences) + "/" + std::to_string(desk.debugClicks));
    }
}

void DebugView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const Game &game = m_desk.game();
    painter.fillRect(rect(), QColor(12, 12, 12));
    painter.setPen(QColor(0, 220, 120));
    painter.setFont(ProjectFont("Courier New", 8));
    painter.drawText(QPoint(8, 16), "DEBUG");
    // The button sinks while held, and counts its clicks beside it.
    if (m_pressed) painter.fillRect(buttonRect(), QColor(0, 220, 120));
    painter.drawRect(buttonRect());
    painter.setPen(m_pressed ? QColor(12, 12, 12) : QColor(0, 220, 120));
    painter.drawText(buttonRect(), Qt::AlignCenter, "...");
    painter.setPen(QColor(0, 220, 120));
    if (game.desk.debugClicks > 0)
        painter.drawText(buttonRect().translated(-buttonRect().width() - 6, 0), Qt::AlignVCenter | Qt::AlignRight,
                         QString::number(game.desk.debugClicks));
    painter.drawText(QPoint(8, 36), "Gun");
    int y = 52;
    for (const std::string &slot : game.GunQueue) {
        if (slot.empty()) continue;
        painter.drawText(QPoint(16, y), ToQString(slot.substr(0, 48)));
        if ((y += 14) > height() - 60) break;
    }
    painter.drawText(QPoint(8, height() - 40), "Queue");
    painter.drawText(labelRect(), Qt::AlignVCenter, ToQString(IntText(game.RunningSequences)));
}

void DebugView::mousePressEvent(QMouseEvent *event) {
    const QPoint at = event->position().toPoint();
    if (buttonRect().contains(at)) {
        m_pressed = true;
        update();
        m_desk.run([](Game &game) { DebugButtonClick(game); });
    } else if (labelRect().contains(at)) {
        m_desk.run([](Game &game) { DebugLabelClick(game); });
    }
}

void DebugView::mouseReleaseEvent(QMouseEvent *) {
    if (!m_pressed) return;
    m_pressed = false;
    update();
}

} // namespace orrery
