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

TEST(Codepage, ATypedCharacterIsOneByteThatPrintsOrNothing) {
    const std::pair<char32_t, int> rows[] = {
        {U'a', 'a'},   {U'?', '?'},     {U'\u00E9', 0xE9}, {U'\u20AC', 0x80}, {U'\u0178', 0x9F},
        {U'\u00A0', 0xA0}, {U'\u65E5', -1}, {U'\u0081', -1}, {U'\u009D', -1}, {U'\n', -1},
        {U'\u007F', -1}, {U'\U0001F600', -1},
    };
    for (const auto &[code, byte] : rows) {
        const auto c = Cp1252Char(code);
        if (byte < 0) EXPECT_FALSE(c) << static_cast<unsigned>(code);
        else EXPECT_EQ(static_cast<unsigned char>(c.value_or('\0')), byte) << static_cast<unsigned>(code);
    }
}

} // namespace
} // namespace orrery
