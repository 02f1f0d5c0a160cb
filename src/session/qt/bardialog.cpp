// The small windows' frame: title bar, caption, panel, buttons and the shared style sheet.
#include "session/qt/bardialog.h"

#include "widgets/flatbutton.h"
#include "widgets/look.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace orrery {

namespace {

constexpr int kPlainBarHeight = 28;

QPixmap FirstPicture(const std::filesystem::path &folder,
                     std::initializer_list<std::string_view> names) {
    for (std::string_view name : names) {
        QPixmap picture = LoadPicture(folder, name);
        if (!picture.isNull()) return picture;
    }
    return {};
}

// The bar: imleft at its left end and immid stretched over the rest, or a dark gradient with
// an accent line when the project has neither. Dragging it moves the window.
class TitleBar : public QWidget {
public:
    TitleBar(const AppPaths &paths, QWidget *parent) : QWidget(parent) {
        const auto folder = paths.ResPath() / "toolstyle";
        m_left = FirstPicture(folder, {"imleft.bmp", "imleft.png", "imleft.jpg", "imleft.gif"});
        m_mid = FirstPicture(folder, {"immid.bmp", "immid.png", "immid.jpg", "immid.gif"});
        const int pictured = std::max(m_left.height(), m_mid.height());
        setFixedHeight(pictured > 0 ? std::clamp(pictured, 20, 40) : kPlainBarHeight);
        setCursor(Qt::SizeAllCursor);
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        if (m_left.isNull() && m_mid.isNull()) return PaintPlain(painter);
        int left = 0;
        if (!m_left.isNull()) {
            left = m_left.width() * height() / std::max(1, m_left.height());
            painter.drawPixmap(QRect(0, 0, left, height()), m_left);
        }
        if (!m_mid.isNull())
            painter.drawPixmap(QRect(left, 0, width() - left, height()), m_mid);
        else
            painter.fillRect(QRect(left, 0, width() - left, height()), kBarPanelColour);
    }

    void mousePressEvent(QMouseEvent *event) override {
        if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
        // The window manager moves the window where it can; elsewhere the bar moves it itself.
        QWindow *handle = window()->windowHandle();
        m_dragging = !(handle && handle->startSystemMove());
        m_grab = event->globalPosition().toPoint() - window()->pos();
    }

    void mouseMoveEvent(QMouseEvent *event) override {
        if (m_dragging && (event->buttons() & Qt::LeftButton))
            window()->move(event->globalPosition().toPoint() - m_grab);
    }

    void mouseReleaseEvent(QMouseEvent *) override { m_dragging = false; }

private:
    void PaintPlain(QPainter &painter) {
        QLinearGradient shade(0, 0, 0, height());
        shade.setColorAt(0, QColor(30, 45, 51));
        shade.setColorAt(1, QColor(11, 17, 20));
        painter.fillRect(rect(), shade);
        // Three lit cells at the right end, fading like a terminal's cursor.
        for (int i = 0; i < 3; ++i) {
            QColor cell = kBarAccentColour;
            cell.setAlpha(230 - 70 * i);
            painter.fillRect(QRect(width() - 18 - 9 * i, height() / 2 - 3, 6, 6), cell);
        }
        QColor line = kBarAccentColour;
        line.setAlpha(170);
        painter.fillRect(QRect(0, height() - 1, width(), 1), line);
    }

    QPixmap m_left;
    QPixmap m_mid;
    QPoint m_grab;
    bool m_dragging = false;
};

QString StyleSheet() {
    return QStringLiteral(
               "QLabel { color: %1; }"
               "QLineEdit { background: %2; color: %3; border: 1px solid %4; padding: 5px 7px;"
               "  selection-background-color: %4; selection-color: white; }"
               "QLineEdit:focus { border-color: %3; }"
               "QListWidget { background: %2; color: %1; border: 1px solid %4; outline: 0; }"
               "QListWidget::item { padding: 4px 7px; border: none; }"
               "QListWidget::item:hover { background: #0f2a2e; }"
               "QListWidget::item:selected { background: %4; color: white; }"
               "QRadioButton, QCheckBox { color: %1; spacing: 8px; }"
               "QRadioButton::indicator, QCheckBox::indicator { width: 12px; height: 12px;"
               "  border: 1px solid %4; background: %2; }"
               "QRadioButton::indicator { border-radius: 7px; }"
               "QRadioButton::indicator:hover, QCheckBox::indicator:hover { border-color: %3; }"
               "QRadioButton::indicator:checked { border-color: %3; background: qradialgradient("
               "  cx:0.5, cy:0.5, radius:0.5, fx:0.5, fy:0.5, stop:0 %3, stop:0.5 %3,"
               "  stop:0.6 %2); }"
               "QCheckBox::indicator:checked { border-color: %3; background: %3; }"
               "QScrollBar:vertical { background: %2; width: 10px; margin: 0; }"
               "QScrollBar::handle:vertical { background: %4; min-height: 24px; }"
               "QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }"
               "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: none; }")
        .arg(kBarTextColour.name(), kBarFieldColour.name(), kBarAccentColour.name(),
             kBarEdgeColour.name());
}

FlatButton *BarButton(const QString &caption, const QString &name, bool lead, QWidget *parent) {
    auto *button = new FlatButton(caption, parent);
    button->setObjectName(name);
    button->setFont(ProjectFont("Verdana", 9, true));
    button->setBackColor(lead ? QColor(18, 60, 64) : QColor(26, 34, 38));
    button->setHoverColor(lead ? QColor(29, 109, 112) : QColor(44, 56, 61));
    button->setForeColor(lead ? QColor(230, 255, 251) : kBarTextColour);
    button->setMinimumSize(96, 28);
    return button;
}

} // namespace

BarDialog::BarDialog(const AppPaths &paths, const QString &caption, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint) {
    setFont(ProjectFont("Verdana", 9));
    setStyleSheet(StyleSheet());

    auto *bar = new TitleBar(paths, this);
    m_caption = new QLabel(caption, bar);
    m_caption->setObjectName("l");
    m_caption->setFont(ProjectFont("Verdana", 9, true));
    m_caption->setStyleSheet("color: #e6fffb; background: transparent;");
    m_caption->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *barRow = new QHBoxLayout(bar);
    barRow->setContentsMargins(40, 0, 12, 0); // the caption starts past the end piece's mark
    barRow->addWidget(m_caption);

    m_body = new QWidget(this);
    m_confirm = BarButton(tr("OK"), "ARButton1", true, this);
    m_cancel = BarButton(tr("Cancel"), "ARButton2", false, this);
    connect(m_confirm, &FlatButton::clicked, this, [this] { Confirm(); });
    connect(m_cancel, &FlatButton::clicked, this, [this] { Cancel(); });

    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(18, 6, 18, 16);
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(m_confirm);
    buttons->addWidget(m_cancel);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 1, 1); // the panel's edge line stays visible
    column->setSpacing(0);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(bar);
    column->addWidget(m_body);
    column->addLayout(buttons);
}

void BarDialog::SetCaption(const QString &caption) {
    m_caption->setText(caption);
}

QString BarDialog::Caption() const {
    return m_caption->text();
}

void BarDialog::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), kBarPanelColour);
    painter.setPen(kBarEdgeColour);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

HintList::HintList(const QString &hint, QWidget *parent) : QListWidget(parent), m_hint(hint) {}

void HintList::paintEvent(QPaintEvent *event) {
    QListWidget::paintEvent(event);
    if (count() > 0 || m_hint.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(kBarDimTextColour);
    painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap,
                     m_hint);
}

} // namespace orrery
