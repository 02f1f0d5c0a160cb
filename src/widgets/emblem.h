// The system's emblem, a sun with two orbits and their planets.
#pragma once

#include <QRectF>

class QPainter;

namespace orrery {

// Drawn to fill the rect. The splash and the menu's small picture show it; no file is needed.
void PaintOrreryEmblem(QPainter &painter, const QRectF &rect);

} // namespace orrery
