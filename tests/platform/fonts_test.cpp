// Font files through fontconfig: an installed family is found, a stand-in is never taken.
#include "platform/fonts.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

TEST(Fonts, AnInstalledFamilyIsFoundAndAStandInIsNot) {
    const auto found = FindFontFile("dejavu sans"); // installed with the build's packages
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->filename(), "DejaVuSans.ttf");
    EXPECT_FALSE(FindFontFile("No Such Face 42"));
    EXPECT_FALSE(FindFontFile("  "));
}

} // namespace
} // namespace orrery
