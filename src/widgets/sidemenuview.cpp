// The side menu on screen.
#include "widgets/sidemenuview.h"

#include "actions/game.h"
#include "desk/tools.h"
#include "foundation/paths.h"
#include "foundation/text.h"
#include "widgets/deskinput.h"
#include "widgets/look.h"
#include "widgets/picturecache.h"
#include "widgets/toolview.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace orrery {

SideMenuView::SideMenuView(DeskInput &desk, QWidget *parent) : QWidget(parent), m_desk(desk) {
    setMouseTracking(true);
    setObjectName("sidemenu");
    connect(&Pictures(), &PictureCache::changed, this, qOverload<>(&QWidget::update));
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
    PaintTitleBar(painter, QRect(0, 0, width(), TitleBarHeight()), s, m_desk.paths().ResPath(),
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
