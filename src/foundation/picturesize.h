// The width and height of a picture, read from the header of its file.
#pragma once

#include <filesystem>
#include <optional>

namespace orrery {

struct PictureSize {
    int width;
    int height;
};

// Width and height in pixels of a BMP, PNG, GIF or JPEG picture, told by its content rather
// than its name. nullopt for any other file, one that can't be read, or a header that is cut
// short or gives no positive size. Reads a few bytes only, whatever the file's size.
std::optional<PictureSize> ReadPictureSize(const std::filesystem::path &file);

} // namespace orrery
