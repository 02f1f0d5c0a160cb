// The main menu on screen.
#include "runtime/menuwindow.h"

#include "foundation/text.h"
#include "project/model.h"
#include "runtime/keymap.h"
#include "widgets/look.h"
#include "widgets/picturecache.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <string>

namespace orrery {

MenuWindow::MenuWindow(const AppPaths &paths, ProjectModel &project, QWidget *parent)
    : QWidget(parent), m_project(project), m_painter(paths.ResPath() / "uimages") {
    setWindowTitle(ToQString(Trim(project.settings.myprojectname)) + QStringLiteral(" - Menu"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    connect(&Pictures(), &PictureCache::changed, this, qOverload<>(&QWidget::update));
    Rebuild();
}

QRect MenuWindow::lineRect(int index) const {
    return MenuPixels(LineOnForm(m_menu, index));
}
QRect MenuWindow::imageRect(int tag) const {
    return MenuPixels(ImageOnForm(m_menu, tag));
}
QRect MenuWindow::picture1Rect() const {
    return MenuPixels(m_menu.picture1);
}

// The menu fills the screen, so the window's size stands for the screen's as well.
void MenuWindow::Rebuild() {
    const MenuSize size{Twips(width()), Twips(height())};
    m_menu = BuildMainMenu(m_project, size, size, m_painter.measures());
    update();
}

void MenuWindow::Carry(MenuAction action) {
    switch (action) {
    case MenuAction::Nothing:
        break;
    case MenuAction::NewGame:
        emit newGameRequested();
        break;
    case MenuAction::LoadGame:
        emit loadGameRequested();
        break;
    case MenuAction::Options:
        emit optionsRequested();
        break;
    case MenuAction::Scores:
        emit scoresRequested();
        break;
    case MenuAction::Website:
        emit websiteRequested();
        break;
    case MenuAction::Credits:
        emit creditsRequested();
        break;
    case MenuAction::Exit:
        emit exitRequested();
        break;
    }
}

void MenuWindow::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    Rebuild();
}

void MenuWindow::mouseMoveEvent(QMouseEvent *event) {
    const int x = Twips(event->position().toPoint().x());
    const int y = Twips(event->position().toPoint().y());
    const int line = LineAt(m_menu, x, y);
    const int image = ImageAt(m_menu, x, y);
    const bool live = line || image || m_menu.picture1.Contains(x, y);
    setCursor(live ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if ((!line || line == m_menu.selectedLine) && (!image || image == m_menu.selectedImage)) return;
    if (line) SetSel(m_menu, line);
    if (image) SetOSSel(m_menu, image);
    update();
}

void MenuWindow::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) return;
    const int x = Twips(event->position().toPoint().x());
    const int y = Twips(event->position().toPoint().y());
    if (m_menu.picture1.Contains(x, y)) return Carry(MenuAction::Website);
    if (const int image = ImageAt(m_menu, x, y))
        return Carry(OpenAMenu(m_menu, kImageChoice, std::to_string(image)));
    if (const int line = LineAt(m_menu, x, y)) Carry(OpenAMenu(m_menu, line, ""));
}

void MenuWindow::keyPressEvent(QKeyEvent *event) {
    const int code = DeskKeyOf(*event).code;
    if (code != kMenuKeyEscape && code != kMenuKeyEnter && code != kMenuKeyUp &&
        code != kMenuKeyDown)
        return QWidget::keyPressEvent(event);
    const MenuAction action = MenuKey(m_menu, code);
    update();
    Carry(action);
}

void MenuWindow::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    m_painter.paint(painter, m_menu, size());
}

} // namespace orrery
