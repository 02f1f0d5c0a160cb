// Tool windows on screen.
#include "widgets/toolview.h"

#include "actions/game.h"
#include "desk/tools.h"
#include "foundation/paths.h"
#include "foundation/text.h"
#include "widgets/deskinput.h"
#include "widgets/look.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace orrery {

namespace {

QPixmap Toolstyle(const AppPaths &paths, std::string_view file) {
    return LoadPicture(paths.ResPath() / "toolstyle", file);
}

QFont CaptionFont(const ProjectSettings &s) {
    return ProjectFont(s.mytoolsmfontname, 9, true);
}

} // namespace

int TitleBarHeight() { return Px(kTitleBarHeight); }

void PaintTitleBar(QPainter &painter, const QRect &bar, const ProjectSettings &s, const AppPaths &paths,
                   const QString &caption, bool closeMark) {
    const QPixmap end = Toolstyle(paths, s.mytoolsimagebg);
    const QPixmap middle = Toolstyle(paths, s.mytoolsimagestretcher);
    const int h = bar.height();
    if (end.isNull() || middle.isNull()) {
        // Without the project's pictures the bar is a plain steel gradient.
        QLinearGradient steel(bar.topLeft(), bar.bottomLeft());
        steel.setColorAt(0, QColor(58, 70, 86));
        steel.setColorAt(1, QColor(22, 28, 36));
        painter.fillRect(bar, steel);
    } else {
        // The left end, the stretched middle from the divider, and the right end on top.
        const int middleLeft = Px(s.mytoolsdividerleft);
        const int middleWidth = std::max(0, bar.width() - Px(1440));
        painter.drawPixmap(QRect(bar.left(), bar.top(), end.width(), h), end);
        if (middleWidth > 0) painter.drawPixmap(QRect(bar.left() + middleLeft, bar.top(), middleWidth, h), middle);
        // The right end is the same picture, facing the other way.
        static QPixmap mirroredFrom, mirrored;
        if (mirroredFrom.cacheKey() != end.cacheKey()) {
            mirroredFrom = end;
            mirrored = end.transformed(QTransform().scale(-1, 1));
        }
        painter.drawPixmap(QRect(bar.right() + 1 - end.width(), bar.top(), end.width(), h), mirrored);
    }
    painter.setFont(CaptionFont(s));
    painter.setPen(ToQColor(s.mytoolsmforecolor));
    const QRect text(bar.left() + Px(s.mytoolstitleleft), bar.top(), bar.width() - Px(s.mytoolstitleleft) - 30, h);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, caption);
    if (closeMark) {
        const QRect mark(bar.right() + 1 - Px(s.mytoolsexitreverseleft), bar.top() + Px(s.mytoolsexittop), h, h);
        painter.setPen(QPen(ToQColor(s.mytoolsmforecolor), 2));
        const QRect x = mark.adjusted(8, 8, -8, -8);
        painter.drawLine(x.topLeft(), x.bottomRight());
        painter.drawLine(x.topRight(), x.bottomLeft());
    }
}

ToolView::ToolView(DeskInput &desk, int box, QWidget *parent) : QWidget(parent), m_desk(desk), m_box(box) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setObjectName(ToQString("tool:" + desk.game().desk.Box(box).tag));
}

ToolView::~ToolView() = default;

int ToolView::chrome() const {
    const auto &chrome = m_desk.game().desk.Chrome;
    for (std::size_t c = 1; c < chrome.size(); ++c)
        if (chrome[c].box == m_box) return static_cast<int>(c);
    return 0;
}

ElementView *ToolView::element(int row) const {
    const auto found = m_elements.find(row);
    return found == m_elements.end() ? nullptr : found->second;
}

QRect ToolView::closeRect() const {
    const ProjectSettings &s = m_desk.game().project.settings;
    const int h = TitleBarHeight();
    return QRect(width() - Px(s.mytoolsexitreverseleft), Px(s.mytoolsexittop), h, h);
}

void ToolView::sync() {
    Game &game = m_desk.game();
    const ToolBox &box = game.desk.Box(m_box);
    const QRect geometry = PxRect(box.left, box.top, box.width, box.height);
    if (geometry != this->geometry()) setGeometry(geometry);
    for (int row : game.desk.TLinkRows()) {
        const ElementControl *control = game.desk.Control(row);
        auto found = m_elements.find(row);
        if (!control || control->box != m_box) {
            if (found != m_elements.end()) {
                delete found->second->widget();
                m_elements.erase(found);
            }
            continue;
        }
        if (found == m_elements.end()) {
            ElementView *view = MakeElementView(m_desk, row, *control, this);
            if (!view) continue;
            view->widget()->setObjectName(ToQString(control->tag));
            found = m_elements.emplace(row, view).first;
        }
        found->second->sync(*control);
    }
    if (isVisible() != box.visible) setVisible(box.visible);
    // The chrome changes only with its caption or the panel's colour.
    const int c = chrome();
    const ToolChrome *dress = c ? &game.desk.Chrome[static_cast<std::size_t>(c)] : nullptr;
    const std::string shown = (dress ? dress->caption + (dress->exiterVisible ? "x" : "-") : std::string()) +
                              "/" + std::to_string(box.backColor);
    if (shown != m_shown) {
        m_shown = shown;
        update();
    }
}

void ToolView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    Game &game = m_desk.game();
    const ProjectSettings &s = game.project.settings;
    painter.fillRect(rect(), ToQColor(game.desk.Box(m_box).backColor));
    const int c = chrome();
    const ToolChrome *dress = c ? &game.desk.Chrome[static_cast<std::size_t>(c)] : nullptr;
    PaintTitleBar(painter, QRect(0, 0, width(), TitleBarHeight()), s, m_desk.paths(),
                  ToQString(dress ? dress->caption : ""), dress && dress->exiterVisible);
    if (s.mytoolsborder) {
        const int w = std::max(1, Px(s.mytoolsborderwidth * 15));
        painter.setPen(QPen(ToQColor(s.mytoolsbordercolor), w));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(w / 2, w / 2, -(w + 1) / 2, -(w + 1) / 2));
    }
}

namespace {

// A window dragged on the desktop keeps its title bar in reach: wholly below the top edge, and
// at least this many pixels of it on the screen sideways and above the bottom edge.
constexpr int kBarInReach = 60;

QPoint WithTitleBarInReach(QPoint topLeft, const QWidget &window, int barHeight) {
    const QWidget *desktop = window.parentWidget();
    if (!desktop) return topLeft;
    const int keep = std::min(kBarInReach, window.width());
    topLeft.setX(std::clamp(topLeft.x(), keep - window.width(), desktop->width() - keep));
    topLeft.setY(std::clamp(topLeft.y(), 0, std::max(0, desktop->height() - barHeight)));
    return topLeft;
}

} // namespace

void ToolView::mousePressEvent(QMouseEvent *event) {
    const QPoint at = event->position().toPoint();
    m_desk.run([box = m_box](Game &game) { ToolPress(game, box); });
    if (event->button() != Qt::LeftButton) return;
    if (closeRect().contains(at)) return; // closes on release
    const std::string tag = m_desk.game().desk.Box(m_box).tag;
    const bool pinned = InStr(m_desk.game().desk.NoMoveList, ":" + tag + ":");
    if (at.y() < TitleBarHeight() && !pinned) {
        m_dragging = true;
        m_dragFrom = event->globalPosition().toPoint() - pos();
    }
}

void ToolView::mouseMoveEvent(QMouseEvent *event) {
    if (!m_desk.playing()) return;
    m_desk.game().desk.consoles.focus = 0;
    if (!m_dragging) return;
    const QPoint topLeft = WithTitleBarInReach(event->globalPosition().toPoint() - m_dragFrom, *this, TitleBarHeight());
    ToolBox &box = m_desk.game().desk.Box(m_box);
    box.left = Twips(topLeft.x());
    box.top = Twips(topLeft.y());
    move(topLeft);
    m_desk.run([](Game &) {});
}

void ToolView::mouseReleaseEvent(QMouseEvent *event) {
    if (m_dragging) {
        m_dragging = false;
        m_desk.run([box = m_box](Game &game) { SetToolerSel(game, box, true); });
        return;
    }
    const int c = chrome();
    if (c && event->button() == Qt::LeftButton && closeRect().contains(event->position().toPoint()) &&
        m_desk.game().desk.Chrome[static_cast<std::size_t>(c)].exiterVisible)
        m_desk.run([c](Game &game) { UnloadBox(game, c); });
}

// The side menu.
SideMenuView::SideMenuView(DeskInput &desk, QWidget *parent) : QWidget(parent), m_desk(desk) {
    setMouseTracking(true);
    setObjectName("sidemenu");
}

void SideMenuView::sync() {
    const Game &game = m_desk.game();
    const ProjectSettings &s = game.project.settings;
    const QFont font = ProjectFont(s.mytoolsmfontname, s.mytoolsmfontsize, s.mytoolsmbold, s.mytoolsmitalic,
                                   s.mytoolsmunderline);
    setFont(font);
    const QFontMetrics metrics(font);
    m_entryHeight = metrics.height();
    int widest = metrics.horizontalAdvance(ToQString(s.mysidemenucaption)) + Px(s.mytoolstitleleft) + 40;
    int bottom = TitleBarHeight() + 16;
    const auto &side = game.desk.SideMenu;
    for (std::size_t i = 1; i < side.size(); ++i) {
        if (!side[i].visible) continue;
        widest = std::max(widest, metrics.horizontalAdvance(ToQString(side[i].caption)) + 56);
        bottom = entryRect(static_cast<int>(i)).bottom();
    }
    const bool shown = s.mytoolsmenusidemenu;
    setVisible(shown);
    resize(std::max(widest, 180), bottom + Px(480) - 8);
    std::string locks;
    for (std::size_t i = 1; i < side.size(); ++i)
        locks += side[i].caption + (game.desk.ToolLocked[i] ? "L" : "-") + (side[i].visible ? "V" : "H");
    if (locks != m_shown) {
        m_shown = locks;
        update();
    }
}

QRect SideMenuView::entryRect(int i) const {
    const auto &side = m_desk.game().desk.SideMenu;
    if (i < 1 || i >= static_cast<int>(side.size())) return {};
    // The model spaces the entries 405 twips apart from 240 below the title bar; on screen an
    // entry is as tall as its font, a little apart.
    int visibleBefore = 0;
    for (int j = 1; j < i; ++j)
        if (side[static_cast<std::size_t>(j)].visible) ++visibleBefore;
    const int top = TitleBarHeight() + Px(240) + visibleBefore * (m_entryHeight + Px(120));
    return QRect(0, top, width(), m_entryHeight);
}

int SideMenuView::entryAt(const QPoint &point) const {
    const auto &side = m_desk.game().desk.SideMenu;
    for (std::size_t i = 1; i < side.size(); ++i)
        if (side[i].visible && entryRect(static_cast<int>(i)).adjusted(0, -4, 0, 4).contains(point))
            return static_cast<int>(i);
    return 0;
}

void SideMenuView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const Game &game = m_desk.game();
    const ProjectSettings &s = game.project.settings;
    painter.fillRect(rect(), ToQColor(s.mytoolsbackcolor));
    PaintTitleBar(painter, QRect(0, 0, width(), TitleBarHeight()), s, m_desk.paths(),
                  ToQString(s.mysidemenucaption), false);
    const auto &side = game.desk.SideMenu;
    const QPixmap lock = LoadPicture(m_desk.paths().ResPath() / "uimages", LowerCase(s.mytoolslockfile));
    const QColor fore = ToQColor(s.mytoolsmforecolor);
    const Qt::Alignment align = s.mytoolsmalign == "1" ? Qt::AlignRight : s.mytoolsmalign == "2" ? Qt::AlignHCenter : Qt::AlignLeft;
    for (std::size_t i = 1; i < side.size(); ++i) {
        if (!side[i].visible) continue;
        const QRect entry = entryRect(static_cast<int>(i));
        const bool divider = side[i].caption.starts_with('-');
        if (divider) {
            painter.setPen(fore.darker(200));
            painter.drawLine(entry.left() + 12, entry.center().y(), entry.right() - 12, entry.center().y());
            continue;
        }
        const bool locked = game.desk.ToolLocked[i];
        if (static_cast<int>(i) == m_hover && !locked) {
            // The selection bar: 60 twips round the entry, a little in from the sides.
            painter.fillRect(entry.adjusted(4, -4, -4, 4), fore);
            painter.setPen(ToQColor(s.mytoolsbackcolor));
        } else {
            painter.setPen(locked ? fore.darker(180) : fore);
        }
        painter.drawText(entry.adjusted(16, 0, -28, 0), static_cast<int>(align | Qt::AlignVCenter),
                         ToQString(side[i].caption));
        if (locked) {
            const QRect mark(entry.right() - 24, entry.center().y() - 8, 16, 16);
            if (!lock.isNull()) painter.drawPixmap(mark, lock);
            else {
                painter.setPen(QPen(QColor(200, 80, 60), 2));
                painter.drawRect(mark.adjusted(2, 6, -2, 0));
                painter.drawArc(mark.adjusted(4, 0, -4, -6), 0, 180 * 16);
            }
        }
    }
    if (s.mytoolsborder) {
        painter.setPen(QPen(ToQColor(s.mytoolsbordercolor), 1));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void SideMenuView::mouseMoveEvent(QMouseEvent *event) {
    if (m_dragging) {
        move(WithTitleBarInReach(event->globalPosition().toPoint() - m_dragFrom, *this, TitleBarHeight()));
        return;
    }
    const int entry = entryAt(event->position().toPoint());
    if (entry != m_hover) {
        m_hover = entry;
        update();
    }
    if (m_desk.playing()) m_desk.game().desk.consoles.focus = 0;
}

void SideMenuView::leaveEvent(QEvent *) {
    m_hover = 0;
    update();
}

void SideMenuView::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton && event->position().y() < TitleBarHeight()) {
        m_dragging = true;
        m_dragFrom = event->globalPosition().toPoint() - pos();
    }
}

void SideMenuView::mouseReleaseEvent(QMouseEvent *event) {
    if (m_dragging) {
        m_dragging = false;
        return;
    }
    const int entry = entryAt(event->position().toPoint());
    if (entry == 0 || event->button() != Qt::LeftButton) return;
    if (m_desk.game().desk.SideMenu[static_cast<std::size_t>(entry)].caption.starts_with('-')) return;
    m_desk.run([entry](Game &game) {
        game.desk.consoles.focus = 0;
        OpenTool(game, entry);
    });
}

} // namespace orrery
