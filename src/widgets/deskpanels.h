// The small panels of the desktop, each painted from the desk model: the top menu's bar and
// drop-down, the quicklist, the help panel, the clock, the message box and the debug panel.
#pragma once

#include <QWidget>
#include <string>

namespace orrery {

class DeskInput;

// A panel that follows the model; the desktop calls sync after every change.
class DeskPanel : public QWidget {
    Q_OBJECT
public:
    DeskPanel(DeskInput &desk, const char *name, QWidget *parent);
    virtual void sync() = 0;

protected:
    // Repaints when what the panel shows, summed up in a text, has changed since last time.
    void refresh(std::string shown);
    DeskInput &m_desk;

private:
    std::string m_shown;
};

class TopMenuBar : public DeskPanel {
    Q_OBJECT
public:
    TopMenuBar(DeskInput &desk, QWidget *parent);
    void sync() override;
    QRect entryRect(int index) const; // entries from 1; 0 is the Exit label at the right end

protected:
    void paintEvent(QPaintEvent *) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
};

class TopMenuList : public DeskPanel {
    Q_OBJECT
public:
    TopMenuList(DeskInput &desk, QWidget *parent);
    void sync() override;
    QRect entryRect(int index) const;

protected:
    void paintEvent(QPaintEvent *) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *) override;

private:
    int m_hover = 0;
};

class QuicklistView : public DeskPanel {
    Q_OBJECT
public:
    QuicklistView(DeskInput &desk, QWidget *parent);
    void sync() override;
    QRect rowRect(int row) const;
    QRect deleteRect(int row) const;

protected:
    void paintEvent(QPaintEvent *) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
};

class HelpView : public DeskPanel {
    Q_OBJECT
public:
    HelpView(DeskInput &desk, QWidget *parent);
    void sync() override;
    QRect topicRect(int index) const; // from 0

protected:
    void paintEvent(QPaintEvent *) override;
    void mousePressEvent(QMouseEvent *event) override;
};

class ClockView : public DeskPanel {
    Q_OBJECT
public:
    ClockView(DeskInput &desk, QWidget *parent);
    void sync() override;

protected:
    void paintEvent(QPaintEvent *) override;
};

class MessageView : public DeskPanel {
    Q_OBJECT
public:
    MessageView(DeskInput &desk, QWidget *parent);
    void sync() override;
    QRect okRect() const;
    QRect closeRect() const;

protected:
    void paintEvent(QPaintEvent *) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool m_placed = false; // dragged by the player: stays where it was put until it closes
    bool m_dragging = false;
    QPoint m_dragFrom;
};

class DebugView : public DeskPanel {
    Q_OBJECT
public:
    DebugView(DeskInput &desk, QWidget *parent);
    void sync() override;
    QRect buttonRect() const;
    QRect labelRect() const;

protected:
    void paintEvent(QPaintEvent *) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool m_pressed = false;
};

} // namespace orrery
