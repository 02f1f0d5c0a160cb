// The system's emblem, painted.
#include "widgets/emblem.h"

#include <QPainter>
#include <QRadialGradient>
#include <QtMath>
#include <algorithm>
#include <cmath>

namespace orrery {

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

} // namespace orrery
