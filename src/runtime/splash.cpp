// The splash window and the emblem it shows.
#include "runtime/splash.h"

#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <QScreen>
#include <QTimer>
#include <QtMath>
#include <algorithm>
#include <cmath>

namespace orrery {

namespace {
constexpr int kSplashWait = 300; // ms
constexpr QSize kSplashSize{480, 220};
} // namespace

void PaintOrreryEmblem(QPainter &painter, const QRectF &rect) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre = rect.center();
    const qreal radius = std::min(rect.width(), rect.height()) / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(14, 20, 40));
    painter.drawEllipse(centre, radius, radius);

    // Two tilted orbits, each with its planet.
    const struct {
        qreal size, tilt, angle;
        QColor planet;
    } orbits[] = {{0.55, -20, 30, QColor(110, 190, 255)}, {0.85, 25, 200, QColor(240, 140, 90)}};
    for (const auto &orbit : orbits) {
        painter.save();
        painter.translate(centre);
        painter.rotate(orbit.tilt);
        const qreal rx = radius * orbit.size, ry = rx * 0.45;
        painter.setPen(QPen(QColor(170, 180, 210, 160), std::max<qreal>(1, radius / 24)));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QPointF(0, 0), rx, ry);
        const qreal a = qDegreesToRadians(orbit.angle);
        painter.setPen(Qt::NoPen);
        painter.setBrush(orbit.planet);
        painter.drawEllipse(QPointF(rx * std::cos(a), ry * std::sin(a)), radius / 9, radius / 9);
        painter.restore();
    }

    QRadialGradient sun(centre, radius / 4);
    sun.setColorAt(0, QColor(255, 250, 210));
    sun.setColorAt(1, QColor(250, 190, 50));
    painter.setBrush(sun);
    painter.drawEllipse(centre, radius / 4.5, radius / 4.5);
    painter.restore();
}

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
