// Pictures read from files and kept by path, until whoever replaces a file says so; and a
// picture kept stretched to a size.
#pragma once

#include <QHash>
#include <QObject>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <filesystem>
#include <string_view>

namespace orrery {

class PictureCache : public QObject {
    Q_OBJECT
public:
    // The picture file below the folder, its name matched without regard to case. A name that
    // leads out of the folder, or a missing or unreadable file, is a null pixmap; a missing one
    // stays missing until forgotten.
    QPixmap Load(const std::filesystem::path &folder, std::string_view file);
    // Forgets a file, or every file below a folder (case aside), so that the next Load reads it
    // again; views showing a picture draw it again.
    void Forget(const std::filesystem::path &path);
    void Clear();

signals:
    // Pictures were forgotten: whatever shows one loads it again.
    void changed();

private:
    struct Entry {
        QString file; // the file read, "" when none was found
        QPixmap picture;
    };
    QHash<QString, Entry> m_entries; // by the path asked for
};

// The cache the widgets load through.
PictureCache &Pictures();

// A picture stretched to a size, stretched again only when the size or the picture changes:
// stretching smoothly on every paint is slow.
class StretchedPicture {
public:
    const QPixmap &At(const QPixmap &picture, const QSize &size);

private:
    QPixmap m_stretched;
    qint64 m_from = 0; // the cache key of the picture it was stretched from
};

} // namespace orrery
