// Tests of the Windows-1252 and UTF-8 conversions.
#include "foundation/codepage.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

TEST(Codepage, EveryByteSurvivesARoundTrip) {
    std::string all;
    for (int code = 0; code <= 255; ++code) all += static_cast<char>(code);
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
    EXPECT_EQ(Cp1252ToUtf8("\x80\x9F\x81\xE9"), "\xE2\x82\xAC\xC5\xB8\xC2\x81\xC3\xA9");
}

TEST(Codepage, UnmappableAndMalformedBecomeQuestionMarks) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"\xE6\x97\xA5", "?"},       // a character Windows-1252 lacks
        {"\xF0\x9F\x98\x80x", "?x"}, // four-byte sequence
        {"\xC2\x80", "?"},           // a C1 control that 0x80 does not stand for
        {"\x80", "?"},               // stray continuation byte
        {"\xE2\x82z", "?z"},         // cut-off sequence
        {"\xC0\xAF", "??"},          // overlong
        {"\xED\xA0\x80", "?"},       // surrogate
    };
    for (const auto &[utf8, cp1252] : rows) EXPECT_EQ(Utf8ToCp1252(utf8), cp1252);
}

} // namespace
} // namespace orrery
