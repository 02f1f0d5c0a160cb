// Picture sizes read from headers built in the test.
#include "foundation/picturesize.h"
#include "support/bytes.h"
#include "support/tempdir.h"

#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>

namespace orrery {
namespace {

using namespace std::string_literals;
using test::Big;
using test::Little;

std::string Bmp(std::uint32_t infoSize, const std::string &sizes) {
    return "BM" + Little(0, 4) + Little(0, 4) + Little(54, 4) + Little(infoSize, 4) + sizes +
           std::string(40, '\0');
}

std::string Png(std::uint32_t width, std::uint32_t height) {
    return "\x89PNG\r\n\x1a\n"s + Big(13, 4) + "IHDR" + Big(width, 4) + Big(height, 4) +
           "\x08\x06\x00\x00\x00"s;
}

std::string Jpeg(const std::string &segments) {
    return "\xFF\xD8"s + segments;
}

std::string Segment(char marker, const std::string &body) {
    return "\xFF"s + marker + Big(static_cast<std::uint32_t>(body.size() + 2), 2) + body;
}

TEST(PictureSize, FromEachFormatsHeader) {
    struct Case {
        const char *name;
        std::string bytes;
        std::optional<std::pair<int, int>> size;
    };
    const std::string frame = "\x08"s + Big(120, 2) + Big(160, 2) + "\x03"s;
    const std::string app0 = Segment('\xE0', "JFIF\0"s + std::string(9, '\0'));
    const Case cases[] = {
        {"a.bmp", Bmp(40, Little(3, 4) + Little(2, 4)), std::pair{3, 2}},
        {"top-down.bmp", Bmp(124, Little(3, 4) + Little(static_cast<std::uint32_t>(-2), 4)),
         std::pair{3, 2}},
        {"core.bmp", Bmp(12, Little(5, 2) + Little(7, 2)), std::pair{5, 7}},
        {"no-width.bmp", Bmp(40, Little(0, 4) + Little(2, 4)), std::nullopt},
        {"a.png", Png(640, 480), std::pair{640, 480}},
        {"too-wide.png", Png(0x80000000u, 1), std::nullopt},
        {"cut.png", Png(640, 480).substr(0, 20), std::nullopt},
        {"a.gif", "GIF89a"s + Little(300, 2) + Little(200, 2) + "\0\0\0"s, std::pair{300, 200}},
        {"a.jpg", Jpeg(app0 + "\xFF"s + Segment('\xC2', frame)), std::pair{160, 120}},
        {"tables.jpeg",
         Jpeg(Segment('\xC4', "abc") + Segment('\xDB', "d") + Segment('\xC0', frame)),
         std::pair{160, 120}},
        {"scan-first.jpg", Jpeg(app0 + Segment('\xDA', "x") + Segment('\xC0', frame)),
         std::nullopt},
        {"cut.jpg", Jpeg(app0 + Segment('\xC0', frame).substr(0, 6)), std::nullopt},
        // The content decides, not the name.
        {"really-a-gif.png", "GIF87a"s + Little(9, 2) + Little(8, 2) + "\0\0"s, std::pair{9, 8}},
        {"text.bmp", "hello, world", std::nullopt},
        {"empty.png", "", std::nullopt},
    };
    test::TempDir dir;
    for (const Case &c : cases) {
        const auto file = dir.path() / c.name;
        std::ofstream(file, std::ios::binary) << c.bytes;
        const std::optional<PictureSize> size = ReadPictureSize(file);
        ASSERT_EQ(size.has_value(), c.size.has_value()) << c.name;
        if (size) {
            EXPECT_EQ(size->width, c.size->first) << c.name;
            EXPECT_EQ(size->height, c.size->second) << c.name;
        }
    }
    EXPECT_FALSE(ReadPictureSize(dir.path() / "absent.png"));
    EXPECT_FALSE(ReadPictureSize(dir.path()));
}

} // namespace
} // namespace orrery
