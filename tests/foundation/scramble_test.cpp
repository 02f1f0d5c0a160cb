// Tests of the scramble table and the scrambling of lines.
#include "foundation/random.h"
#include "foundation/scramble.h"

#include <gtest/gtest.h>
#include <set>

namespace orrery {
namespace {

TEST(Scramble, TableIsAPermutationWithTwoFixedPoints) {
    std::set<int> images;
    std::vector<int> fixedPoints;
    for (int code = 32; code <= 148; ++code) {
        const auto c = static_cast<unsigned char>(code);
        const unsigned char mapped = ScrambleMap(c);
        ASSERT_GE(mapped, 32);
        ASSERT_LE(mapped, 148);
        images.insert(mapped);
        EXPECT_EQ(UnscrambleMap(mapped), c);
        if (mapped == c) fixedPoints.push_back(code);
    }
    EXPECT_EQ(images.size(), 117u);
    // The blank must be fixed, or a line could end in a blank that the reader trims away.
    EXPECT_EQ(fixedPoints, (std::vector<int>{32, 'n'}));
    for (int code : {0, 9, 31, 149, 255}) {
        EXPECT_EQ(ScrambleMap(static_cast<unsigned char>(code)), code);
        EXPECT_EQ(UnscrambleMap(static_cast<unsigned char>(code)), code);
    }
}

TEST(Scramble, LayoutIsFillerThenPayloadReversed) {
    std::string text;
    // Every code a line can hold: a line never has a line break of its own, and a scrambled
    // one must not gain one either.
    for (int code = 1; code <= 255; ++code) {
        if (code != '\n' && code != '\r') text += static_cast<char>(code);
    }
    text = "x" + text + "x"; // the ends may not be blanks, which a scramble trims
    Random random(7);
    const std::string scrambled = ScrambleText(text, random);
    ASSERT_EQ(scrambled.size(), text.size() * 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char filler = scrambled[2 * i];
        EXPECT_TRUE(filler >= 'b' && filler <= 'y') << i;
        const auto original = static_cast<unsigned char>(text[text.size() - 1 - i]);
        EXPECT_EQ(static_cast<unsigned char>(scrambled[2 * i + 1]), ScrambleMap(original));
    }
    EXPECT_EQ(UnscrambleText(scrambled), text);
    EXPECT_EQ(scrambled.find_first_of("\r\n"), std::string::npos);
}

TEST(Scramble, EdgesOfTrimmingAndLength) {
    EXPECT_EQ(UnscrambleText(ScrambleText(" abc ")), "abc");
    EXPECT_EQ(ScrambleText("   "), "");
    EXPECT_EQ(UnscrambleText(""), "");
    EXPECT_EQ(UnscrambleText("q"), "");
    EXPECT_EQ(ScrambleText("\xC9").substr(1), "\xC9");

    Random a(42), b(42);
    EXPECT_EQ(ScrambleText("same seed", a), ScrambleText("same seed", b));
}

} // namespace
} // namespace orrery
