// The main menu on screen.
#include "runtime/menuwindow.h"

#include "foundation/text.h"
#include "project/model.h"
#include "runtime/keymap.h"
#include "runtime/splash.h"
#include "widgets/look.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <string>

namespace orrery {

namespace {

QRect ToPixels(const MenuRect &rect) {
    return PxRect(rect.left, rect.top, rect.width, rect.height);
}

QFont ToQFont(const MenuFont &font) {
    return ProjectFont(font.name, font.size, font.bold, font.italic, font.underline);
}

MenuSize MeasureCaption(std::string_view caption, const MenuFont &font) {
    const QFontMetrics metrics(ToQFont(font));
    return {Twips(metrics.horizontalAdvance(ToQString(caption))), Twips(metrics.height())};
}

void DrawCaption(QPainter &painter, const QRect &rect, std::string_view caption, const QFont &font,
                 std::int32_t colour) {
    painter.setFont(font);
    painter.setPen(ToQColor(colour));
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine | Qt::TextDontClip,
                     ToQString(caption));
}

} // namespace

MenuWindow::MenuWindow(const AppPaths &paths, ProjectModel &project, QWidget *parent)
    : QWidget(parent), m_paths(paths), m_project(project) {
    setWindowTitle(ToQString(Trim(project.settings.myprojectname)) + QStringLiteral(" - Menu"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    Rebuild();
}

QRect MenuWindow::lineRect(int index) const {
    return ToPixels(LineOnForm(m_menu, index));
}
QRect MenuWindow::imageRect(int tag) const {
    return ToPixels(ImageOnForm(m_menu, tag));
}
QRect MenuWindow::picture1Rect() const {
    return ToPixels(m_menu.picture1);
}

// The menu fills the screen, so the window's size stands for the screen's as well.
void MenuWindow::Rebuild() {
    const MenuSize size{Twips(width()), Twips(height())};
    MenuMeasures measures;
    measures.text = MeasureCaption;
    measures.picture = [this](std::string_view file) {
        const QPixmap picture = Picture(file);
        return MenuSize{Twips(picture.width()), Twips(picture.height())};
    };
    m_menu = BuildMainMenu(m_project, size, size, measures);
    const QPixmap background = Picture(m_menu.backgroundFile);
    m_background =
        background.isNull() || size.width <= 0 || size.height <= 0
            ? QPixmap()
            : background.scaled(this->size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    update();
}

QPixmap MenuWindow::Picture(std::string_view file) const {
    return LoadPicture(m_paths.ResPath() / "uimages", file);
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
    if (m_background.isNull())
        painter.fillRect(rect(), Qt::black);
    else
        painter.drawPixmap(0, 0, m_background);
    for (const MenuPicture &picture : m_menu.pictures)
        painter.drawPixmap(ToPixels(picture.rect).topLeft(), Picture(picture.file));
    if (m_menu.border.shown) {
        const int width = m_menu.border.width;
        painter.setPen(QPen(ToQColor(m_menu.border.color), width, Qt::SolidLine, Qt::SquareCap,
                            Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        // The line runs inside the shape's bounds.
        painter.drawRect(ToPixels(m_menu.border.rect)
                             .adjusted(width / 2, width / 2, -(width + 1) / 2, -(width + 1) / 2));
    }
    PaintLabels(painter);
    PaintTextMenu(painter);
    PaintImageMenu(painter);
    PaintOrreryEmblem(painter, ToPixels(m_menu.picture1));
}

void MenuWindow::PaintLabels(QPainter &painter) const {
    for (const MenuFreeLabel &label : m_menu.labels) {
        const QRect rect = ToPixels(label.rect);
        if (label.backStyle == 1) painter.fillRect(rect, ToQColor(label.backColor));
        DrawCaption(painter, rect, label.caption, ToQFont(label.font), label.foreColor);
    }
}

void MenuWindow::PaintTextMenu(QPainter &painter) const {
    if (m_menu.boxVisible) {
        const QRect box = ToPixels(m_menu.box);
        painter.fillRect(box, ToQColor(m_menu.boxBackColor));
        if (m_menu.highlightPlaced)
            painter.fillRect(ToPixels(m_menu.highlight).translated(box.topLeft()),
                             ToQColor(m_menu.selBackColor));
    }
    if (m_menu.imageMenu) return;
    const QFont font = ToQFont(m_menu.font);
    for (int i = 1; i <= static_cast<int>(m_menu.lines.size()); ++i)
        DrawCaption(painter, lineRect(i), m_menu.lines[static_cast<std::size_t>(i - 1)].caption,
                    font, LineForeColor(m_menu, i));
}

void MenuWindow::PaintImageMenu(QPainter &painter) const {
    if (!m_menu.imageMenu) return;
    painter.fillRect(ToPixels(m_menu.imageBox), ToQColor(m_menu.imageBackColor));
    for (int tag = 1; tag <= static_cast<int>(m_menu.images.size()); ++tag) {
        const QPixmap picture = Picture(ImagePicture(m_menu, tag));
        if (!picture.isNull()) painter.drawPixmap(imageRect(tag).topLeft(), picture);
    }
}

} // namespace orrery
