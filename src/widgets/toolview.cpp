// Tool windows on screen.
#include "widgets/toolview.h"

#include "foundation/text.h"
#include "widgets/look.h"
#include "widgets/picturecache.h"
#include "widgets/viewhost.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace orrery {

namespace {

QPixmap Toolstyle(const std::filesystem::path &resources, std::string_view file) {
    return LoadPicture(resources / "toolstyle", file);
}

QFont CaptionFont(const ProjectSettings &s) {
    return ProjectFont(s.mytoolsmfontname, 9, true);
}

} // namespace

int TitleBarHeight() { return Px(kTitleBarHeight); }

void PaintTitleBar(QPainter &painter, const QRect &bar, const ProjectSettings &s,
                   const std::filesystem::path &resources, const QString &caption, bool closeMark) {
    const QPixmap end = Toolstyle(resources, s.mytoolsimagebg);
    const QPixmap middle = Toolstyle(resources, s.mytoolsimagestretcher);
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

ToolView::ToolView(ViewHost &host, int box, QWidget *parent) : QWidget(parent), m_host(host), m_box(box) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setObjectName(ToQString("tool:" + host.box(box).tag));
    // The title bar's pictures are read as it is painted.
    connect(&Pictures(), &PictureCache::changed, this, qOverload<>(&QWidget::update));
}

ToolView::~ToolView() = default;

ElementView *ToolView::element(int row) const {
    const auto found = m_elements.find(row);
    return found == m_elements.end() ? nullptr : found->second;
}

QRect ToolView::closeRect() const {
    const ProjectSettings &s = m_host.settings();
    const int h = TitleBarHeight();
    return QRect(width() - Px(s.mytoolsexitreverseleft), Px(s.mytoolsexittop), h, h);
}

void ToolView::sync() {
    const ToolBox &box = m_host.box(m_box);
    const QRect geometry = PxRect(box.left, box.top, box.width, box.height);
    if (geometry != this->geometry()) setGeometry(geometry);
    syncElements();
    if (isVisible() != box.visible) setVisible(box.visible);
    // The chrome changes only with its caption or the panel's colour.
    const ToolChrome *dress = m_host.chrome(m_box);
    const std::string shown = (dress ? dress->caption + (dress->exiterVisible ? "x" : "-") : std::string()) +
                              "/" + std::to_string(box.backColor);
    if (shown != m_shown) {
        m_shown = shown;
        update();
    }
}

// A view for each control in the tool, made in the order the controls were loaded; the view of
// a control that has gone is dropped.
void ToolView::syncElements() {
    std::map<int, ElementView *> kept;
    for (const auto &[row, control] : m_host.elements(m_box)) {
        ElementView *view = kept.count(row) ? kept[row] : element(row);
        // An editor closes rows up when an element goes: another element may come to a row.
        if (view && view->widget()->objectName() != ToQString(control->tag)) {
            delete view->widget();
            m_elements.erase(row);
            view = nullptr;
        }
        if (!view) {
            view = MakeElementView(m_host, row, *control, this);
            if (!view) continue;
            view->widget()->setObjectName(ToQString(control->tag));
        }
        m_elements.erase(row);
        kept[row] = view;
        view->sync(*control);
    }
    for (const auto &[row, view] : m_elements) delete view->widget();
    m_elements = std::move(kept);
}

void ToolView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const ProjectSettings &s = m_host.settings();
    painter.fillRect(rect(), ToQColor(m_host.box(m_box).backColor));
    const ToolChrome *dress = m_host.chrome(m_box);
    PaintTitleBar(painter, QRect(0, 0, width(), TitleBarHeight()), s, m_host.resourceFolder(),
                  ToQString(dress ? dress->caption : ""), dress && dress->exiterVisible);
    if (s.mytoolsborder) {
        const int w = std::max(1, Px(s.mytoolsborderwidth * 15));
        painter.setPen(QPen(ToQColor(s.mytoolsbordercolor), w));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(w / 2, w / 2, -(w + 1) / 2, -(w + 1) / 2));
    }
}

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

void ToolView::mousePressEvent(QMouseEvent *event) {
    const QPoint at = event->position().toPoint();
    m_host.toolPressed(m_box);
    if (event->button() != Qt::LeftButton) return;
    if (closeRect().contains(at)) return; // closes on release
    if (at.y() < TitleBarHeight() && m_host.movable(m_box)) {
        m_dragging = true;
        m_dragFrom = event->globalPosition().toPoint() - pos();
    }
}

void ToolView::mouseMoveEvent(QMouseEvent *event) {
    m_host.hovered();
    if (!m_dragging) return;
    const QPoint topLeft = WithTitleBarInReach(event->globalPosition().toPoint() - m_dragFrom, *this, TitleBarHeight());
    move(topLeft);
    m_host.toolMoved(m_box, Twips(topLeft.x()), Twips(topLeft.y()));
}

void ToolView::mouseReleaseEvent(QMouseEvent *event) {
    if (m_dragging) {
        m_dragging = false;
        m_host.toolDropped(m_box);
        return;
    }
    const ToolChrome *dress = m_host.chrome(m_box);
    if (dress && dress->exiterVisible && event->button() == Qt::LeftButton &&
        closeRect().contains(event->position().toPoint()))
        m_host.toolClosed(m_box);
}

} // namespace orrery
