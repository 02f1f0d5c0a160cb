// The two-colour flat button.
#include "widgets/flatbutton.h"

#include <QPainter>

namespace orrery {

FlatButton::FlatButton(QWidget *parent) : QAbstractButton(parent) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::NoFocus);
}

FlatButton::FlatButton(const QString &caption, QWidget *parent) : FlatButton(parent) {
    setText(caption);
}

void FlatButton::setBackColor(const QColor &colour) {
    if (colour == m_back) return;
    m_back = colour;
    update();
}

void FlatButton::setHoverColor(const QColor &colour) {
    if (colour == m_hover) return;
    m_hover = colour;
    update();
}

void FlatButton::setForeColor(const QColor &colour) {
    if (colour == m_fore) return;
    m_fore = colour;
    update();
}

QSize FlatButton::sizeHint() const {
    const QSize size = fontMetrics().size(Qt::TextShowMnemonic, text());
    return {size.width() + 24, size.height() + 10};
}

void FlatButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const bool lit = isEnabled() && (m_under || isDown());
    painter.fillRect(rect(), lit ? m_hover : m_back);
    // A hairline of the second colour keeps the button's edge when both colours are alike.
    painter.setPen(lit ? m_back : m_hover);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(isEnabled() ? m_fore : m_fore.darker(160));
    painter.setFont(font());
    painter.drawText(rect().translated(isDown() ? 1 : 0, isDown() ? 1 : 0),
                     Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic, text());
}

void FlatButton::enterEvent(QEnterEvent *event) {
    m_under = true;
    update();
    QAbstractButton::enterEvent(event);
}

void FlatButton::leaveEvent(QEvent *event) {
    m_under = false;
    update();
    QAbstractButton::leaveEvent(event);
}

} // namespace orrery
