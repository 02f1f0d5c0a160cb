// Tool windows on screen: a panel with its chrome (title bar, caption, close mark, border)
// holding the views of its elements, dragged by its title bar.
#pragma once

#include "widgets/elementviews.h"

#include <QWidget>
#include <filesystem>
#include <map>

namespace orrery {

class ViewHost;
struct ProjectSettings;

// Paints a title bar of the project's pictures (below resources/toolstyle) across the top of a
// rectangle, with a caption.
void PaintTitleBar(QPainter &painter, const QRect &bar, const ProjectSettings &settings,
                   const std::filesystem::path &resources, const QString &caption, bool closeMark);
// The height of a title bar, in pixels.
int TitleBarHeight();
// Where a window dragged to topLeft stops so that its title bar stays in reach on its parent.
QPoint WithTitleBarInReach(QPoint topLeft, const QWidget &window, int barHeight);

class ToolView : public QWidget {
    Q_OBJECT
public:
    ToolView(ViewHost &host, int box, QWidget *parent);
    ~ToolView() override;

    int box() const { return m_box; }
    // Brings the panel and its elements up to the host's controls.
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
    void syncElements();
    ViewHost &m_host;
    int m_box;
    std::map<int, ElementView *> m_elements; // by row; the widgets are children
    QPoint m_dragFrom;                       // where a drag by the title bar began
    bool m_dragging = false;
    std::string m_shown;                     // the chrome as last painted
};

} // namespace orrery
