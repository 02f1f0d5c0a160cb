// The desk's units and values as Qt sees them.
#include "widgets/look.h"

#include "foundation/codepage.h"
#include "foundation/text.h"
#include "widgets/picturecache.h"

#include <QFontDatabase>
#include <QHash>
#include <QPalette>
#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

QColor ToQColor(std::int32_t colour) {
    const auto value = static_cast<std::uint32_t>(colour);
    if (value & 0x80000000u) {
        // A system colour: the low byte names it.
        const QPalette palette;
        switch (value & 0xFFu) {
        case 5: return palette.color(QPalette::Base);         // window background
        case 8: return palette.color(QPalette::Text);         // window text
        case 13: return palette.color(QPalette::Highlight);
        case 14: return palette.color(QPalette::HighlightedText);
        case 18: return palette.color(QPalette::ButtonText);
        default: return palette.color(QPalette::Button);      // button face and the rest
        }
    }
    return QColor(static_cast<int>(value & 0xFFu), static_cast<int>((value >> 8) & 0xFFu),
                  static_cast<int>((value >> 16) & 0xFFu));
}

std::int32_t StoredColour(const QColor &colour) {
    const QColor rgb = colour.toRgb();
    return rgb.red() | rgb.green() << 8 | rgb.blue() << 16;
}

QString ToQString(std::string_view text) {
    const std::string utf8 = Cp1252ToUtf8(text);
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string FromQString(const QString &text) { return Utf8ToCp1252(text.toUtf8().toStdString()); }

QFont ProjectFont(std::string_view name, double size, bool bold, bool italic, bool underline) {
    QFont font(ToQString(TrimView(name).empty() ? std::string_view("Verdana") : TrimView(name)));
    font.setPointSizeF(size > 0 ? size : 8);
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(underline);
    return font;
}

void InstallFonts(const fs::path &fontsFolder) {
    // Verdana's metrics are closest to DejaVu Sans (both descend from one design brief);
    // Tahoma and MS Sans Serif read well in it too.
    QFont::insertSubstitutions("Verdana", {"DejaVu Sans", "Bitstream Vera Sans"});
    QFont::insertSubstitutions("Tahoma", {"DejaVu Sans"});
    QFont::insertSubstitutions("MS Sans Serif", {"DejaVu Sans"});
    QFont::insertSubstitutions("Arial", {"Liberation Sans", "DejaVu Sans"});
    QFont::insertSubstitutions("Courier New", {"Liberation Mono", "DejaVu Sans Mono"});
    QFont::insertSubstitutions("Lucida Console", {"DejaVu Sans Mono"});

    static QHash<QString, bool> offered;
    std::error_code error;
    for (fs::directory_iterator it(fontsFolder, error), end; !error && it != end; it.increment(error)) {
        const QString file = QString::fromStdString(it->path().string());
        if (offered.contains(file) || !it->is_regular_file(error)) continue;
        offered.insert(file, true);
        // A file that isn't a font is passed over, like a font the system has already.
        QFontDatabase::addApplicationFont(file);
    }
}

QPixmap LoadPicture(const fs::path &folder, std::string_view file) { return Pictures().Load(folder, file); }

} // namespace orrery
