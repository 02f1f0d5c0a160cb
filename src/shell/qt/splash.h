// The run-time's first window: a small picture that stands for 300 ms before the menu comes.
#pragma once

#include <QRectF>
#include <QWidget>

class QPainter;

namespace orrery {

// The system's emblem, a sun with two orbits and their planets, drawn to fill the rect. The
// splash and the menu's small picture show it; no file is needed.
void PaintOrreryEmblem(QPainter &painter, const QRectF &rect);

class SplashWindow : public QWidget {
    Q_OBJECT
public:
    // Frameless and centred on the screen; the 300 ms start with the window.
    explicit SplashWindow(QWidget *parent = nullptr);

signals:
    // The wait is over: the menu may come.
    void finished();

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace orrery
