// The desk's units and values as Qt sees them: twips to pixels, colours with red in the low
// byte, Windows-1252 text, fonts by name, and pictures of the application folder.
#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace orrery {

inline constexpr int kTwipsPerPixel = 15;

inline int Px(std::int32_t twips) { return twips / kTwipsPerPixel; }
inline std::int32_t Twips(int pixels) { return pixels * kTwipsPerPixel; }
inline QRect PxRect(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    return QRect(Px(left), Px(top), Px(width), Px(height));
}

// A stored colour: red in the low byte. The toolkit's system colours (the high bit set) are
// read as the palette's nearest roles.
QColor ToQColor(std::int32_t colour);
// A colour as the project stores it: red + 256 green + 65536 blue.
std::int32_t StoredColour(const QColor &colour);

// Text of the system (Windows-1252) to and from the toolkit.
QString ToQString(std::string_view text);
std::string FromQString(const QString &text);

// A font of the project: a name, a size in points and its styles. "Verdana", the projects'
// usual choice, is served by a metrically similar free font when it isn't installed.
QFont ProjectFont(std::string_view name, double size, bool bold = false, bool italic = false,
                  bool underline = false);

// Offers every font file of the folder to the application's text, and maps the names the
// projects use to fonts that are present. Safe to call more than once.
void InstallFonts(const std::filesystem::path &fontsFolder);

// A picture of the application folder: the file below the folder, its name matched without
// regard to case, read through the shared picture cache. A missing or unreadable picture is a
// null pixmap: the control shows nothing.
QPixmap LoadPicture(const std::filesystem::path &folder, std::string_view file);

} // namespace orrery
