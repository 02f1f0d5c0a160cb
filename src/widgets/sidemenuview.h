// The side menu on screen: the list of tools a player may open, dressed as a tool.
#pragma once

#include <QWidget>
#include <string>

namespace orrery {

class DeskInput;

class SideMenuView : public QWidget {
    Q_OBJECT
public:
    SideMenuView(DeskInput &desk, QWidget *parent);
    void sync();
    // The rectangle of entry i, in the panel's pixels.
    QRect entryRect(int entry) const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    int entryAt(const QPoint &point) const;
    DeskInput &m_desk;
    int m_hover = 0;
    QPoint m_dragFrom;
    bool m_dragging = false;
    int m_entryHeight = 0;
    std::string m_shown; // the entries as last painted
};

} // namespace orrery
