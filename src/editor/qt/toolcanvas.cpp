// The preview and its gestures.
#include "editor/qt/toolcanvas.h"

#include "editor/qt/shellparts.h"
#include "editor/session.h"
#include "editor/snap.h"
#include "editor/words.h"
#include "widgets/look.h"
#include "widgets/toolview.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <unordered_set>

namespace orrery {

namespace {

// Where the tool's panel stands on the canvas, in twips, and the room kept round it.
constexpr std::int32_t kMargin = 360;
const QColor kSurface(58, 62, 70);
const QColor kMark(64, 156, 255);
const QColor kGuide(255, 92, 160);
constexpr int kSnapReach = 6; // pixels within which an edge pulls a dragged element

} // namespace

// Marks the selection and the rubber band over the views, and takes no input.
class SelectionLayer : public QWidget {
public:
    explicit SelectionLayer(ToolCanvas &canvas) : QWidget(&canvas), m_canvas(canvas) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        bool first = true;
        for (const std::string &name : m_canvas.m_selection) {
            const QRect r = m_canvas.ElementRect(name);
            if (r.isNull()) continue;
            painter.setPen(QPen(kMark, 1, first ? Qt::SolidLine : Qt::DashLine));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(r.adjusted(-1, -1, 0, 0));
            // Handles at the corners: filled on the element the others line up with.
            painter.setBrush(first ? QBrush(kMark) : QBrush(Qt::white));
            painter.setPen(QPen(kMark, 1));
            for (const QPoint corner : {r.topLeft(), r.topRight(), r.bottomLeft(), r.bottomRight()})
                painter.drawRect(QRect(corner - QPoint(3, 3), QSize(6, 6)));
            first = false;
        }
        if (m_canvas.m_gesture == ToolCanvas::Gesture::Dragging) {
            const QRect tool = m_canvas.ToolRect();
            painter.setPen(QPen(kGuide, 1, Qt::DashLine));
            if (const auto x = m_canvas.m_guides.guideX)
                painter.drawLine(tool.left() + Px(*x), tool.top(), tool.left() + Px(*x), tool.bottom());
            if (const auto y = m_canvas.m_guides.guideY)
                painter.drawLine(tool.left(), tool.top() + Px(*y), tool.right(), tool.top() + Px(*y));
        }
        if (m_canvas.m_gesture == ToolCanvas::Gesture::Band) {
            painter.setPen(QPen(kMark, 1));
            painter.setBrush(QColor(kMark.red(), kMark.green(), kMark.blue(), 40));
            painter.drawRect(m_canvas.m_band);
        }
    }

private:
    ToolCanvas &m_canvas;
};

ToolCanvas::ToolCanvas(EditorContext context, QWidget *parent)
    : QWidget(parent), m_context(std::move(context)), m_layer(new SelectionLayer(*this)) {
    setObjectName("Preview");
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setToolTip(tr("Click to select, Ctrl+click to add, drag round elements to select many.\n"
                  "Drag to move on the grid; hold Shift to line up with other elements.\n"
                  "Arrow keys move, Shift+arrow keys size, Delete deletes."));
}

ToolCanvas::~ToolCanvas() = default;

void ToolCanvas::ShowTool(const std::string &tool) {
    m_tool = tool;
    m_selection.clear();
    delete m_view;
    m_view = nullptr;
    Reload();
    emit selectionChanged();
}

void ToolCanvas::Reload() {
    if (!m_context.session || !m_context.session->IsOpen()) return;
    m_host.Show(m_context.session->model(), m_context.session->paths().ResPath(), m_tool, kMargin,
                kMargin);
    if (!m_view) {
        m_view = new ToolView(m_host, PreviewHost::kBox, this);
        // The author works on the views through the canvas: they take neither the mouse nor
        // the keys.
        m_view->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    m_view->sync();
    for (QWidget *child : m_view->findChildren<QWidget *>()) child->setFocusPolicy(Qt::NoFocus);
    m_rowOfTag.clear();
    for (int row : m_host.desk().TLinkRows())
        if (const ElementControl *c = m_host.control(row)) m_rowOfTag.emplace(c->tag, row);
    // What stays selected is what the preview still shows.
    const auto before = m_selection.size();
    std::erase_if(m_selection, [this](const std::string &name) { return !m_rowOfTag.count(name); });
    Fit();
    m_layer->raise();
    m_layer->update();
    if (m_selection.size() != before) emit selectionChanged();
}

void ToolCanvas::Fit() {
    const QRect tool = m_view && m_view->isVisibleTo(this) ? m_view->geometry() : QRect();
    setMinimumSize(tool.right() + Px(kMargin), tool.bottom() + Px(kMargin));
    m_layer->setGeometry(rect());
}

QRect ToolCanvas::ToolRect() const {
    return m_view ? m_view->geometry() : QRect();
}

QRect ToolCanvas::RowRect(int row) const {
    const ElementControl *c = m_host.control(row);
    if (!c || !m_view) return {};
    std::int32_t left = c->left, top = c->top;
    if (m_gesture == Gesture::Dragging) {
        const auto from = m_dragFrom.find(c->tag);
        if (from != m_dragFrom.end()) {
            left = from->second.box.left + m_dx;
            top = from->second.box.top + m_dy;
        }
    }
    return PxRect(left, top, c->width, c->height).translated(m_view->pos());
}

QRect ToolCanvas::ElementRect(const std::string &name) const {
    const auto found = m_rowOfTag.find(name);
    return found == m_rowOfTag.end() ? QRect() : RowRect(found->second);
}

int ToolCanvas::RowAt(QPoint at) const {
    const auto &rows = m_host.desk().TLinkRows();
    // A later element lies over an earlier one.
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        if (RowRect(*row).contains(at)) return *row;
    return 0;
}

std::string ToolCanvas::NameOf(int row) const {
    const ElementControl *c = m_host.control(row);
    return c ? c->tag : std::string();
}

bool ToolCanvas::Selected(const std::string &name) const {
    return std::find(m_selection.begin(), m_selection.end(), name) != m_selection.end();
}

void ToolCanvas::Select(std::vector<std::string> names) {
    m_selection = std::move(names);
    m_layer->update();
    emit selectionChanged();
}

void ToolCanvas::SelectAll() {
    std::vector<std::string> all;
    for (const auto &[row, control] : m_host.elements(PreviewHost::kBox)) all.push_back(control->tag);
    Select(std::move(all));
}

// A step made is shown when its owner hears of the change; a refused one leaves the views
// where a drag may have left them, so they are drawn again here.
void ToolCanvas::Apply(Outcome outcome) {
    if (!m_context.apply || !m_context.apply(std::move(outcome))) Reload();
}

void ToolCanvas::Nudge(orrery::Nudge nudge) {
    if (m_selection.empty()) return;
    Apply(NudgeElements(m_context.session->model(), nudge, m_selection));
}

void ToolCanvas::Align(orrery::Align align) {
    if (m_selection.size() < 2) return;
    Apply(AlignElements(m_context.session->model(), align, m_selection));
}

void ToolCanvas::DeleteSelected() {
    if (m_selection.empty()) return;
    if (!Ask(this, m_selection.size() == 1 ? words::kDeleteElement : words::kDeleteSelected)) return;
    const std::vector<std::string> going = std::move(m_selection);
    m_selection.clear();
    Apply(DeleteElements(m_context.session->model(), going));
    emit selectionChanged();
}

void ToolCanvas::CopyProperties() {
    if (m_selection.empty()) return;
    m_copied = orrery::CopyProperties(m_context.session->model(), m_selection.front());
}

void ToolCanvas::PasteProperties() {
    if (m_selection.empty() || m_copied.empty()) return;
    Apply(orrery::PasteProperties(m_context.session->model(), m_copied, m_selection));
}

void ToolCanvas::mousePressEvent(QMouseEvent *event) {
    setFocus(Qt::MouseFocusReason);
    const QPoint at = event->position().toPoint();
    const bool adding = event->modifiers() & Qt::ControlModifier;
    const std::string name = NameOf(RowAt(at));
    if (event->button() == Qt::RightButton) {
        if (!name.empty() && !Selected(name)) Select({name});
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    m_pressAt = at;
    if (name.empty()) {
        m_bandBase = adding ? m_selection : std::vector<std::string>{};
        m_band = QRect(at, at);
        m_gesture = Gesture::Band;
        Select(m_bandBase);
        return;
    }
    if (adding) {
        std::vector<std::string> next = m_selection;
        if (Selected(name)) std::erase(next, name);
        else next.push_back(name);
        return Select(std::move(next));
    }
    // The element pressed leads: the others line up with it.
    std::vector<std::string> next{name};
    if (Selected(name))
        for (const std::string &other : m_selection)
            if (other != name) next.push_back(other);
    Select(std::move(next));
    m_grabbed = name;
    m_gesture = Gesture::Pressed;
}

void ToolCanvas::mouseMoveEvent(QMouseEvent *event) {
    const QPoint at = event->position().toPoint();
    const bool toElements = event->modifiers() & Qt::ShiftModifier;
    switch (m_gesture) {
    case Gesture::Pressed:
        if ((at - m_pressAt).manhattanLength() >= QApplication::startDragDistance()) {
            BeginDrag();
            DragTo(at, toElements);
        }
        return;
    case Gesture::Dragging:
        return DragTo(at, toElements);
    case Gesture::Band:
        return BandTo(at);
    case Gesture::None:
        return;
    }
}

void ToolCanvas::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) return;
    if (m_gesture == Gesture::Dragging) return EndDrag();
    m_gesture = Gesture::None;
    m_layer->update();
}

void ToolCanvas::BeginDrag() {
    const std::unordered_set<std::string> selected(m_selection.begin(), m_selection.end());
    m_dragFrom.clear();
    m_others.clear();
    for (const auto &[row, c] : m_host.elements(PreviewHost::kBox)) {
        const Box box{c->left, c->top, c->width, c->height};
        if (selected.count(c->tag)) m_dragFrom.emplace(c->tag, Grabbed{row, box});
        else m_others.push_back(box);
    }
    m_dx = m_dy = 0;
    m_gesture = Gesture::Dragging;
}

// The element held comes to rest on the grid, or, with Shift held, against an edge or a centre
// line of another element within reach; the others keep their places beside it.
void ToolCanvas::DragTo(QPoint at, bool toElements) {
    const auto held = m_dragFrom.find(m_grabbed);
    if (held == m_dragFrom.end()) return;
    const Box &from = held->second.box;
    const QPoint moved = at - m_pressAt;
    const Box raw{from.left + Twips(moved.x()), from.top + Twips(moved.y()), from.width, from.height};
    const Snapped rest = SnapDrag(raw, toElements ? m_others : std::vector<Box>{}, Twips(kSnapReach));
    m_dx = rest.left - from.left;
    m_dy = rest.top - from.top;
    m_guides = rest;
    for (const auto &[name, grabbed] : m_dragFrom)
        if (ElementView *view = m_view->element(grabbed.row))
            view->widget()->move(Px(grabbed.box.left + m_dx), Px(grabbed.box.top + m_dy));
    m_layer->update();
}

// However far it went, a drag is one step.
void ToolCanvas::EndDrag() {
    m_gesture = Gesture::None;
    const std::int32_t dx = m_dx, dy = m_dy;
    m_dx = m_dy = 0;
    if (dx == 0 && dy == 0) return Reload();
    Apply(MoveElements(m_context.session->model(), m_selection, dx, dy));
}

void ToolCanvas::BandTo(QPoint at) {
    m_band = QRect(m_pressAt, at).normalized();
    std::vector<std::string> next = m_bandBase;
    for (const auto &[row, c] : m_host.elements(PreviewHost::kBox))
        if (RowRect(row).intersects(m_band) &&
            std::find(next.begin(), next.end(), c->tag) == next.end())
            next.push_back(c->tag);
    if (next != m_selection) return Select(std::move(next));
    m_layer->update();
}

void ToolCanvas::keyPressEvent(QKeyEvent *event) {
    const bool sizing = event->modifiers() & Qt::ShiftModifier;
    switch (event->key()) {
    case Qt::Key_Left: return Nudge(sizing ? Nudge::Narrower : Nudge::Left);
    case Qt::Key_Right: return Nudge(sizing ? Nudge::Wider : Nudge::Right);
    case Qt::Key_Up: return Nudge(sizing ? Nudge::Shorter : Nudge::Up);
    case Qt::Key_Down: return Nudge(sizing ? Nudge::Taller : Nudge::Down);
    case Qt::Key_Delete: return DeleteSelected();
    case Qt::Key_Escape: return Select({});
    default: break;
    }
    if (event->matches(QKeySequence::Copy)) return CopyProperties();
    if (event->matches(QKeySequence::Paste)) return PasteProperties();
    if (event->matches(QKeySequence::SelectAll)) return SelectAll();
    QWidget::keyPressEvent(event);
}

void ToolCanvas::contextMenuEvent(QContextMenuEvent *event) {
    if (!m_selection.empty() && !actions().isEmpty()) QMenu::exec(actions(), event->globalPos(), nullptr, this);
}

void ToolCanvas::paintEvent(QPaintEvent *event) {
    QPainter(this).fillRect(event->rect(), kSurface);
}

} // namespace orrery
