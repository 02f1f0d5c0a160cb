// The run-time's main menu on screen: it draws the menu model, passes the mouse and the keys
// to it, and announces the player's choice. What a choice does is the owner's business.
#pragma once

#include "desk/mainmenu.h"
#include "foundation/paths.h"
#include "widgets/menupainter.h"

#include <QRect>
#include <QWidget>

namespace orrery {

struct ProjectModel;

class MenuWindow : public QWidget {
    Q_OBJECT
public:
    // The project is loaded already. The caller shows the window full screen; it lays itself
    // out from its own size whenever that changes.
    MenuWindow(const AppPaths &paths, ProjectModel &project, QWidget *parent = nullptr);

    // Line index (from 1) and image tag (1 to 8) on the window, in pixels; empty when absent.
    QRect lineRect(int index) const;
    QRect imageRect(int tag) const;
    QRect picture1Rect() const;
    int selectedLine() const { return m_menu.selectedLine; }
    int selectedImage() const { return m_menu.selectedImage; }
    const MainMenu &menu() const { return m_menu; }

signals:
    void newGameRequested();
    void loadGameRequested();
    void optionsRequested();
    void scoresRequested();
    void creditsRequested();
    void websiteRequested();
    void exitRequested();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Rebuild();
    void Carry(MenuAction action);

    ProjectModel &m_project;
    MainMenu m_menu;
    MenuPainter m_painter;
};

} // namespace orrery
