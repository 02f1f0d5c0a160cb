// The width and height of a picture, read from the header of its file.
#include "foundation/picturesize.h"

#include "foundation/filewindow.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace orrery {

namespace {

using namespace std::string_view_literals;

// A JPEG's segments are walked up to this many; real files have a few dozen before the frame.
constexpr int kMaxJpegSegments = 4096;

std::optional<PictureSize> Positive(std::int64_t width, std::int64_t height) {
    if (width <= 0 || height <= 0 || width > INT32_MAX || height > INT32_MAX) return std::nullopt;
    return PictureSize{static_cast<int>(width), static_cast<int>(height)};
}

// The old OS/2 header holds 16-bit unsigned sizes; the Windows one signed 32-bit sizes, where a
// negative height means the rows run top-down.
std::optional<PictureSize> BmpSize(std::string_view head) {
    if (head.size() < 26) return std::nullopt;
    const std::uint32_t infoSize = LittleEndianAt(head, 14, 4);
    if (infoSize == 12) return Positive(LittleEndianAt(head, 18, 2), LittleEndianAt(head, 20, 2));
    if (infoSize < 40) return std::nullopt;
    const auto width = static_cast<std::int32_t>(LittleEndianAt(head, 18, 4));
    const auto height = static_cast<std::int32_t>(LittleEndianAt(head, 22, 4));
    return Positive(width, std::llabs(height));
}

std::optional<PictureSize> PngSize(std::string_view head) {
    if (head.size() < 24 || head.substr(12, 4) != "IHDR") return std::nullopt;
    return Positive(BigEndianAt(head, 16, 4), BigEndianAt(head, 20, 4));
}

std::optional<PictureSize> GifSize(std::string_view head) {
    if (head.size() < 10) return std::nullopt;
    return Positive(LittleEndianAt(head, 6, 2), LittleEndianAt(head, 8, 2));
}

// Start-of-frame markers: C0 to CF, less DHT (C4), JPG (C8) and DAC (CC).
bool IsStartOfFrame(unsigned char marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// Walks the segments from after the start-of-image marker to the first frame header.
std::optional<PictureSize> JpegSize(FileWindow &window) {
    std::uint64_t at = 2;
    for (int segment = 0; segment < kMaxJpegSegments; ++segment) {
        // Any number of 0xFF fill bytes may come before a marker.
        std::string_view bytes = window.Read(at, 2);
        if (bytes.size() < 2 || static_cast<unsigned char>(bytes[0]) != 0xFF) return std::nullopt;
        const auto marker = static_cast<unsigned char>(bytes[1]);
        if (marker == 0xFF) {
            ++at;
            continue;
        }
        at += 2;
        const bool standalone = marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
        if (standalone) continue;
        // The image data or its end before any frame header: there is no size to find.
        if (marker == 0xDA || marker == 0xD9) return std::nullopt;
        bytes = window.Read(at, 7);
        if (bytes.size() < 2) return std::nullopt;
        const std::uint32_t length = BigEndianAt(bytes, 0, 2);
        if (length < 2) return std::nullopt;
        if (IsStartOfFrame(marker)) {
            if (bytes.size() < 7) return std::nullopt;
            return Positive(BigEndianAt(bytes, 5, 2), BigEndianAt(bytes, 3, 2));
        }
        at += length;
    }
    return std::nullopt;
}

} // namespace

std::optional<PictureSize> ReadPictureSize(const std::filesystem::path &file) {
    FileWindow window(file);
    const std::string_view head = window.Read(0, 32);
    if (head.starts_with("BM")) return BmpSize(head);
    if (head.starts_with("\x89PNG\r\n\x1a\n"sv)) return PngSize(head);
    if (head.starts_with("GIF87a") || head.starts_with("GIF89a")) return GifSize(head);
    if (head.starts_with("\xFF\xD8"sv)) return JpegSize(window);
    return std::nullopt;
}

} // namespace orrery
