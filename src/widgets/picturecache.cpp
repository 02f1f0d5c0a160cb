// Pictures read from files and kept by path.
#include "widgets/picturecache.h"

#include "foundation/codepage.h"
#include "foundation/paths.h"
#include "foundation/text.h"

#include <QImage>
#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

namespace {

QString PathText(const fs::path &path) {
    return QString::fromStdString(path.lexically_normal().generic_string());
}

// Whether a file is the path or lies below it. Case aside: the projects' files come from a file
// system that ignores it, and a picture found under another case is the same picture.
bool Within(const QString &file, const QString &path) {
    if (file.isEmpty()) return false;
    const QString below = path.endsWith('/') ? path : path + '/';
    return file.compare(path, Qt::CaseInsensitive) == 0 ||
           file.startsWith(below, Qt::CaseInsensitive);
}

} // namespace

QPixmap PictureCache::Load(const fs::path &folder, std::string_view file) {
    const std::string_view name = TrimView(file);
    if (name.empty() || name.find('/') != std::string_view::npos ||
        name.find('\\') != std::string_view::npos || name == "." || name == "..")
        return {};
    // Pictures are read once: a paint asks again for every frame.
    const std::string utf8 = Cp1252ToUtf8(name);
    const QString asked = PathText(folder / utf8);
    if (auto found = m_entries.constFind(asked); found != m_entries.constEnd())
        return found->picture;
    const fs::path path = FindMediaFile(folder, name).value_or(fs::path());
    Entry entry;
    if (!path.empty()) {
        entry.file = PathText(path);
        // Read as an image: QPixmap's own loading keeps pictures by name, size and the second
        // they were written, so a file replaced within a second would come back as it was.
        entry.picture = QPixmap::fromImage(QImage(QString::fromStdString(path.string())));
    }
    m_entries.insert(asked, entry);
    return entry.picture;
}

void PictureCache::Forget(const fs::path &path) {
    const QString gone = PathText(path);
    m_entries.removeIf([&](const QHash<QString, Entry>::iterator &it) {
        return Within(it.key(), gone) || Within(it->file, gone);
    });
    emit changed();
}

void PictureCache::Clear() {
    m_entries.clear();
    emit changed();
}

PictureCache &Pictures() {
    static PictureCache cache;
    return cache;
}

const QPixmap &StretchedPicture::At(const QPixmap &picture, const QSize &size) {
    if (m_stretched.size() != size || m_from != picture.cacheKey()) {
        m_stretched = picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_from = picture.cacheKey();
    }
    return m_stretched;
}

} // namespace orrery
