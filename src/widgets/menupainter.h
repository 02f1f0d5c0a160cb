// The main menu painted from its model: the background stretched over the form, the free
// pictures, the border and labels, the text or the image menu, and the small picture. The
// run-time's menu window and a menu designer paint it alike.
#pragma once

#include "desk/mainmenu.h"
#include "widgets/picturecache.h"

#include <QPixmap>
#include <QRect>
#include <QSize>
#include <filesystem>
#include <string_view>

class QPainter;

namespace orrery {

// A rectangle of the menu, in pixels.
QRect MenuPixels(const MenuRect &rect);

class MenuPainter {
public:
    // The menu's pictures are files in the folder (Res/uimages).
    explicit MenuPainter(std::filesystem::path pictures) : m_pictures(std::move(pictures)) {}

    // What BuildMainMenu lays the menu out by: captions in the real fonts, pictures as read.
    MenuMeasures measures() const;
    // Paints the menu over a form of that size, in pixels.
    void paint(QPainter &painter, const MainMenu &menu, const QSize &size);

private:
    QPixmap picture(std::string_view file) const;
    void paintBackground(QPainter &painter, const MainMenu &menu, const QSize &size);
    void paintPicturesAndBorder(QPainter &painter, const MainMenu &menu) const;
    void paintLabels(QPainter &painter, const MainMenu &menu) const;
    void paintTextMenu(QPainter &painter, const MainMenu &menu) const;
    void paintImageMenu(QPainter &painter, const MainMenu &menu) const;

    std::filesystem::path m_pictures;
    StretchedPicture m_background;
};

} // namespace orrery
