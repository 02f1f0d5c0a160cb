// The element controls on screen.
#include "widgets/elementviews.h"

#include "desk/qonsole.h"
#include "foundation/text.h"
#include "widgets/look.h"
#include "widgets/picturecache.h"
#include "widgets/viewhost.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace orrery {

namespace {

QFont FontOf(const ElementControl &control) {
    return ProjectFont(control.fontName, control.fontSize, control.fontBold, control.fontItalic,
                       control.fontUnderline);
}

Qt::Alignment AlignmentOf(int alignment) {
    switch (alignment) {
    case 1: return Qt::AlignRight;
    case 2: return Qt::AlignHCenter;
    default: return Qt::AlignLeft;
    }
}

void SetColours(QWidget *widget, const QColor &fore, const QColor &back) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Text, fore);
    palette.setColor(QPalette::WindowText, fore);
    palette.setColor(QPalette::Base, back);
    palette.setColor(QPalette::Window, back);
    if (palette != widget->palette()) widget->setPalette(palette);
}

// Text measured at a console's own font, in twips.
class QtMeasure final : public TextMeasure {
public:
    std::int32_t Width(const ElementControl &console, std::string_view text) const override {
        return Twips(QFontMetrics(FontOf(console)).horizontalAdvance(ToQString(text)));
    }
    std::int32_t LineHeight(const ElementControl &console) const override {
        return Twips(QFontMetrics(FontOf(console)).height());
    }
};

} // namespace

const TextMeasure &QtTextMeasure() {
    static const QtMeasure measure;
    return measure;
}

void ElementView::sync(const ElementControl &control) {
    QWidget *w = widget();
    const QRect geometry = PxRect(control.left, control.top, control.width, control.height);
    if (w->geometry() != geometry) w->setGeometry(geometry);
    const QFont font = FontOf(control);
    if (w->font() != font) w->setFont(font);
    if (w->isVisible() != control.visible) w->setVisible(control.visible);
}

ElementView *MakeElementView(ViewHost &host, int row, const ElementControl &control, QWidget *panel) {
    switch (control.kind) {
    case ElementKind::Label: return new LabelView(host, row, panel);
    case ElementKind::Button: return new ButtonView(host, row, panel);
    case ElementKind::Text: return new TextView(host, row, panel);
    case ElementKind::List: return new ListView(host, row, panel);
    case ElementKind::Image: return new ImageView(host, row, panel);
    case ElementKind::Qonsole: return new QonsoleView(host, row, panel);
    case ElementKind::Other: break;
    }
    return nullptr;
}

// Labels: a caption drawn on the tool, on its own back colour with back style 1.
LabelView::LabelView(ViewHost &host, int row, QWidget *parent)
    : QWidget(parent), ElementView(host, row) {
    setMouseTracking(true);
}

void LabelView::sync(const ElementControl &control) {
    ElementView::sync(control);
    const QString caption = ToQString(control.caption);
    const QColor fore = ToQColor(control.foreColor), back = ToQColor(control.backColor);
    if (caption != m_caption || fore != m_fore || back != m_back || m_opaque != (control.backStyle == 1) ||
        m_alignment != control.alignment) {
        m_caption = caption;
        m_fore = fore;
        m_back = back;
        m_opaque = control.backStyle == 1;
        m_alignment = control.alignment;
        update();
    }
}

void LabelView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    if (m_opaque) painter.fillRect(rect(), m_back);
    painter.setPen(m_fore);
    painter.setFont(font());
    painter.drawText(rect(), static_cast<int>(AlignmentOf(m_alignment) | Qt::AlignTop) | Qt::TextWordWrap,
                     m_caption);
}

void LabelView::mouseDoubleClickEvent(QMouseEvent *) { m_host.doubleClicked(m_row); }

void LabelView::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::RightButton) {
        m_host.rightClicked(m_row, event->globalPosition().toPoint());
        return;
    }
    m_host.pressed(m_row, false);
}

void LabelView::mouseMoveEvent(QMouseEvent *) { m_host.hovered(); }

// Buttons: the flat button, lighter under the mouse.
ButtonView::ButtonView(ViewHost &host, int row, QWidget *parent)
    : FlatButton(parent), ElementView(host, row) {
    connect(this, &QAbstractButton::clicked, this, [this] { m_host.clicked(m_row); });
}

void ButtonView::sync(const ElementControl &control) {
    ElementView::sync(control);
    const QString caption = ToQString(control.caption);
    if (text() != caption) setText(caption);
    const QColor back = ToQColor(control.backColor);
    setBackColor(back);
    // The second colour: a shade darker on a light button, lighter on a dark one.
    if (back.lightness() > 128) setHoverColor(back.darker(125));
    else setHoverColor(back.value() < 24 ? QColor(40, 60, 80) : back.lighter(150));
    setForeColor(ToQColor(control.foreColor));
}

// Text boxes: typed text goes to the model as it is typed; the model's changes come back.
TextView::TextView(ViewHost &host, int row, QWidget *parent)
    : QPlainTextEdit(parent), ElementView(host, row) {
    setFrameShape(QFrame::Box);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_syncing) pushText();
        updateScrollBar();
    });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] {
        if (!m_syncing) pushSelection();
    });
    connect(this, &QPlainTextEdit::selectionChanged, this, [this] {
        if (!m_syncing) pushSelection();
    });
}

void TextView::pushText() {
    // The model keeps the line breaks of the system's text.
    m_host.textEdited(m_row, ReplaceAll(FromQString(toPlainText()), "\n", "\r\n"));
    pushSelection();
}

void TextView::pushSelection() {
    const QTextCursor cursor = textCursor();
    // Positions count the system's two-character line breaks.
    const QString text = toPlainText();
    auto systemPosition = [&](int position) {
        return static_cast<std::size_t>(position + text.left(position).count(QLatin1Char('\n')));
    };
    const std::size_t start = systemPosition(cursor.selectionStart());
    m_host.selectionChanged(m_row, start, systemPosition(cursor.selectionEnd()) - start);
}

void TextView::sync(const ElementControl &control) {
    ElementView::sync(control);
    m_syncing = true;
    SetColours(this, ToQColor(control.foreColor), ToQColor(control.backColor));
    m_short = control.height < 800;
    QString shown = ToQString(control.text);
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (toPlainText() != shown) {
        setPlainText(shown);
        QTextCursor cursor = textCursor();
        const qsizetype caret = std::min<qsizetype>(static_cast<qsizetype>(control.selStart), shown.size());
        cursor.setPosition(static_cast<int>(caret));
        setTextCursor(cursor);
    }
    m_syncing = false;
    layOut();
    updateScrollBar();
}

// A one-line box reads like a line edit: its text in one line, centred in the box's height,
// scrolled sideways to the caret. A taller box wraps its text under a scroll bar.
void TextView::layOut() {
    const int inner = contentsRect().height();
    const int line = fontMetrics().height();
    const int above = m_short ? std::max(0, (inner - line) / 2) : 0;
    const int below = m_short ? std::max(0, inner - line - above) : 0;
    const QMargins margins(m_short ? Px(30) : 0, above, 0, below);
    if (viewportMargins() != margins) setViewportMargins(margins);
    const qreal documentMargin = m_short ? 0 : 4;
    if (document()->documentMargin() != documentMargin) document()->setDocumentMargin(documentMargin);
    const auto wrap = m_short ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth;
    if (lineWrapMode() != wrap) setLineWrapMode(wrap);
    if (m_short) verticalScrollBar()->setValue(0);
}

void TextView::updateScrollBar() {
    // The bar shows when the text is as tall as the box, less a margin; never on one line.
    const int textHeight = static_cast<int>(document()->size().height()) * fontMetrics().lineSpacing();
    const bool needed = !m_short && Twips(textHeight) >= Twips(height()) - 60;
    const auto policy = needed ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
    if (verticalScrollBarPolicy() != policy) setVerticalScrollBarPolicy(policy);
}

void TextView::resizeEvent(QResizeEvent *event) {
    QPlainTextEdit::resizeEvent(event);
    layOut();
}

void TextView::keyPressEvent(QKeyEvent *event) {
    // The desktop saw the key first; Enter in a short box was its tool's button.
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && m_short) return;
    QPlainTextEdit::keyPressEvent(event);
}

void TextView::focusInEvent(QFocusEvent *event) {
    m_host.focused(m_row);
    QPlainTextEdit::focusInEvent(event);
}

void TextView::mousePressEvent(QMouseEvent *event) {
    m_host.pressed(m_row, true);
    QPlainTextEdit::mousePressEvent(event);
}

// Lists: the items of the model; a click selects and runs the element's action.
ListView::ListView(ViewHost &host, int row, QWidget *parent) : QListWidget(parent), ElementView(host, row) {
    setFrameShape(QFrame::Box);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ListView::sync(const ElementControl &control) {
    ElementView::sync(control);
    m_syncing = true;
    SetColours(this, ToQColor(control.foreColor), ToQColor(control.backColor));
    if (m_items != control.items) {
        m_items = control.items;
        clear();
        for (const std::string &item : m_items) addItem(ToQString(item));
    }
    if (currentRow() != control.listIndex) setCurrentRow(control.listIndex);
    m_syncing = false;
}

void ListView::mousePressEvent(QMouseEvent *event) {
    QListWidget::mousePressEvent(event);
    m_host.listPressed(m_row, currentRow());
    if (event->button() == Qt::RightButton) m_host.rightClicked(m_row, event->globalPosition().toPoint());
}

void ListView::mouseReleaseEvent(QMouseEvent *event) {
    QListWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) m_host.clicked(m_row);
}

// Images: the picture stretched to the control; pressed, it sinks a pixel.
ImageView::ImageView(ViewHost &host, int row, QWidget *parent) : QWidget(parent), ElementView(host, row) {
    connect(&Pictures(), &PictureCache::changed, this, &ImageView::load);
}

void ImageView::sync(const ElementControl &control) {
    ElementView::sync(control);
    if (control.picture != m_file) {
        m_file = control.picture;
        load();
    }
}

void ImageView::load() {
    m_picture = LoadPicture(m_host.resourceFolder() / "uimages", m_file);
    update();
}

void ImageView::paintEvent(QPaintEvent *) {
    if (m_picture.isNull()) return;
    QPainter painter(this);
    const int shift = m_pressed ? 1 : 0;
    painter.drawPixmap(rect().translated(shift, shift), m_picture);
}

void ImageView::mousePressEvent(QMouseEvent *event) {
    m_host.pressed(m_row, false);
    if (event->button() != Qt::LeftButton) return;
    m_pressed = m_host.hasAction(m_row);
    update();
}

void ImageView::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) return;
    const bool inside = rect().contains(event->position().toPoint());
    m_pressed = false;
    update();
    if (inside) m_host.clicked(m_row);
}

// Qonsoles: the rows that fit and the input line with its caret, painted by hand.
QonsoleView::QonsoleView(ViewHost &host, int row, QWidget *parent) : QWidget(parent), ElementView(host, row) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::IBeamCursor);
}

void QonsoleView::sync(const ElementControl &control) {
    ElementView::sync(control);
    const QColor fore = ToQColor(control.foreColor), back = ToQColor(control.backColor);
    std::vector<QonsoleScreenLine> lines = m_host.qonsoleLines(m_row);
    const bool focused = m_host.hasKeys(m_row);
    if (fore != m_fore || back != m_back || lines != m_lines || focused != m_focused) {
        m_fore = fore;
        m_back = back;
        m_lines = std::move(lines);
        m_focused = focused;
        update();
    }
}

void QonsoleView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), m_back);
    painter.setFont(font());
    const QFontMetrics metrics(font());
    for (const QonsoleScreenLine &line : m_lines) {
        painter.setPen(line.colour ? ToQColor(*line.colour) : m_fore);
        painter.drawText(QPoint(0, Px(line.top) + metrics.ascent()), ToQString(line.text));
    }
    // The console that has the keys wears a frame of its own colour.
    if (m_focused) {
        QColor frame = m_fore;
        frame.setAlpha(110);
        painter.setPen(frame);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void QonsoleView::mousePressEvent(QMouseEvent *) {
    m_host.clicked(m_row);
    // The keys come through the desktop's handler, which holds the keyboard focus.
    if (window()) window()->setFocus();
}

} // namespace orrery
