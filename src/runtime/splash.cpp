// The splash window.
#include "runtime/splash.h"

#include "widgets/emblem.h"

#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <algorithm>

namespace orrery {

namespace {
constexpr int kSplashWait = 300; // ms
constexpr QSize kSplashSize{480, 220};
} // namespace

SplashWindow::SplashWindow(const QString &title, QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint), m_title(title) {
    setFixedSize(kSplashSize);
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->geometry().center() - rect().center());
    QTimer::singleShot(kSplashWait, this, &SplashWindow::finished);
}

void SplashWindow::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient back(0, 0, 0, height());
    back.setColorAt(0, QColor(28, 36, 64));
    back.setColorAt(1, QColor(6, 8, 18));
    painter.fillRect(rect(), back);
    painter.setPen(QColor(90, 110, 160));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));

    const int side = height() - 60;
    PaintOrreryEmblem(painter, QRectF(30, 30, side, side));

    const QRect text(side + 60, 30, width() - side - 90, side);
    QFont title = font();
    title.setPointSize(24);
    title.setBold(true);
    // A long name is made smaller until it fits, then cut.
    while (title.pointSize() > 12 && QFontMetrics(title).horizontalAdvance(m_title) > text.width())
        title.setPointSize(title.pointSize() - 2);
    painter.setFont(title);
    painter.setPen(QColor(235, 238, 250));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(title).elidedText(m_title, Qt::ElideRight, text.width()));
    QFont note = font();
    note.setPointSize(9);
    painter.setFont(note);
    painter.setPen(QColor(150, 160, 190));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignBottom, QStringLiteral("Loading\u2026"));
}

} // namespace orrery
