// The main menu painted.
#include "widgets/menupainter.h"

#include "widgets/emblem.h"
#include "widgets/look.h"

#include <QFontMetrics>
#include <QPainter>

namespace orrery {

namespace {

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

QRect MenuPixels(const MenuRect &rect) {
    return PxRect(rect.left, rect.top, rect.width, rect.height);
}

MenuMeasures MenuPainter::measures() const {
    MenuMeasures measures;
    measures.text = MeasureCaption;
    measures.picture = [this](std::string_view file) {
        const QPixmap found = picture(file);
        return MenuSize{Twips(found.width()), Twips(found.height())};
    };
    return measures;
}

QPixmap MenuPainter::picture(std::string_view file) const {
    return LoadPicture(m_pictures, file);
}

void MenuPainter::paint(QPainter &painter, const MainMenu &menu, const QSize &size) {
    paintBackground(painter, menu, size);
    paintPicturesAndBorder(painter, menu);
    paintLabels(painter, menu);
    paintTextMenu(painter, menu);
    paintImageMenu(painter, menu);
    PaintOrreryEmblem(painter, MenuPixels(menu.picture1));
}

void MenuPainter::paintBackground(QPainter &painter, const MainMenu &menu, const QSize &size) {
    const QPixmap background = picture(menu.backgroundFile);
    if (background.isNull() || size.isEmpty()) {
        painter.fillRect(QRect(QPoint(0, 0), size), Qt::black);
        return;
    }
    painter.drawPixmap(0, 0, m_background.At(background, size));
}

void MenuPainter::paintPicturesAndBorder(QPainter &painter, const MainMenu &menu) const {
    for (const MenuPicture &shown : menu.pictures)
        painter.drawPixmap(MenuPixels(shown.rect).topLeft(), picture(shown.file));
    if (!menu.border.shown) return;
    const int width = menu.border.width;
    painter.setPen(
        QPen(ToQColor(menu.border.color), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    // The line runs inside the shape's bounds.
    painter.drawRect(MenuPixels(menu.border.rect)
                         .adjusted(width / 2, width / 2, -(width + 1) / 2, -(width + 1) / 2));
}

void MenuPainter::paintLabels(QPainter &painter, const MainMenu &menu) const {
    for (const MenuFreeLabel &label : menu.labels) {
        const QRect rect = MenuPixels(label.rect);
        if (label.backStyle == 1) painter.fillRect(rect, ToQColor(label.backColor));
        DrawCaption(painter, rect, label.caption, ToQFont(label.font), label.foreColor);
    }
}

void MenuPainter::paintTextMenu(QPainter &painter, const MainMenu &menu) const {
    if (menu.boxVisible) {
        const QRect box = MenuPixels(menu.box);
        painter.fillRect(box, ToQColor(menu.boxBackColor));
        if (menu.highlightPlaced)
            painter.fillRect(MenuPixels(menu.highlight).translated(box.topLeft()),
                             ToQColor(menu.selBackColor));
    }
    if (menu.imageMenu) return;
    const QFont font = ToQFont(menu.font);
    for (int i = 1; i <= static_cast<int>(menu.lines.size()); ++i)
        DrawCaption(painter, MenuPixels(LineOnForm(menu, i)),
                    menu.lines[static_cast<std::size_t>(i - 1)].caption, font,
                    LineForeColor(menu, i));
}

void MenuPainter::paintImageMenu(QPainter &painter, const MainMenu &menu) const {
    if (!menu.imageMenu) return;
    painter.fillRect(MenuPixels(menu.imageBox), ToQColor(menu.imageBackColor));
    for (int tag = 1; tag <= static_cast<int>(menu.images.size()); ++tag) {
        const QPixmap shown = picture(ImagePicture(menu, tag));
        if (!shown.isNull())
            painter.drawPixmap(MenuPixels(ImageOnForm(menu, tag)).topLeft(), shown);
    }
}

} // namespace orrery
