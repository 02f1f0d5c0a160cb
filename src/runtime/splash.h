// The run-time's first window: the game's name beside the emblem, for 300 ms before the menu.
#pragma once

#include <QRectF>
#include <QWidget>

namespace orrery {

class SplashWindow : public QWidget {
    Q_OBJECT
public:
    // Frameless and centred on the screen; the 300 ms start with the window. title is the
    // game's name.
    explicit SplashWindow(const QString &title, QWidget *parent = nullptr);
    QString title() const { return m_title; }

signals:
    // The wait is over: the menu may come.
    void finished();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_title;
};

} // namespace orrery
