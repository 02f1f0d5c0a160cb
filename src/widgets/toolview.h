// Tool windows on screen: a panel with its chrome (title bar, caption, close mark, border)
// holding the views of its elements, dragged by its title bar; and the side menu, which is
// dressed as a tool.
#pragma once

#include "widgets/elementviews.h"

#include <QWidget>
#include <map>
#include <memory>

namespace orrery {

class AppPaths;
class DeskInput;
struct ProjectSettings;

// Paints a title bar of the project's pictures across the top of a rectangle, with a caption.
void PaintTitleBar(QPainter &painter, const QRect &bar, const ProjectSettings &settings,
                   const AppPaths &paths, const QString &caption, bool closeMark);
// The height of a title bar, in pixels.
int TitleBarHeight();

class ToolView : public QWidget {
    Q_OBJECT
public:
    ToolView(DeskInput &desk, int box, QWidget *parent);
    ~ToolView() override;

    int box() const { return m_box; }
    // Brings the panel and its elements up to the model.
    void sync();
    ElementView *element(int row) const;
    // The close mark, in the panel's pixels.
    QRect closeRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int chrome() const;
    DeskInput &m_desk;
    int m_box;
    std::map<int, ElementView *> m_elements; // by row; the widgets are children
    QPoint m_dragFrom;                       // where a drag by the title bar began
    bool m_dragging = false;
    std::string m_shown;                     // the chrome as last painted
};

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
