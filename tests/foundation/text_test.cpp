// Tests of the text primitives: fields, names, strips, lists and chained arithmetic.
#include "foundation/text.h"

#include <array>
#include <gtest/gtest.h>

namespace orrery {
namespace {

TEST(Text, FieldsCountEmptyFieldsAndYieldEmptyOutOfRange) {
    struct Row {
        std::string_view text;
        std::int16_t n;
        std::string_view delimiter;
        std::string_view expected;
    };
    const Row rows[] = {
        {"a:b", 3, ":", ""},    {"", 1, ":", ""},        {"a::c", 2, ":", ""},
        {"a::c", 3, ":", "c"},  {"a:b", 0, ":", ""},     {" a : b ", 2, ":", " b "},
        {"x=1=2", 2, "=", "1"}, {"a//b//", 3, "//", ""}, {"a///b", 2, "//", "/b"},
        {"ab", 1, "", ""},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(std::string(row.text) + " #" + std::to_string(row.n));
        EXPECT_EQ(FieldBy(row.text, row.n, row.delimiter), row.expected);
        if (row.delimiter == ":") {
            EXPECT_EQ(FieldAt(row.text, row.n), row.expected);
        }
    }
}

TEST(Text, CaseFoldingAndTrimming) {
    EXPECT_EQ(LowerCase("AbZ\xC0\xDE\xD7\xDF\x8A\x8C\x8E\x9F"),
              "abz\xE0\xFE\xD7\xDF\x9A\x9C\x9E\xFF");
    // The inverse: the multiplication and division signs and sharp s have no other case.
    EXPECT_EQ(UpperCase("aBz\xE0\xFE\xF7\xD7\xDF\x9A\x9C\x9E\xFF"),
              "ABZ\xC0\xDE\xF7\xD7\xDF\x8A\x8C\x8E\x9F");
    EXPECT_EQ(Trim("\t a \t "), "\t a \t");
    EXPECT_EQ(NormText("  My Tool "), "my tool");
    EXPECT_EQ(NormNoSpaces(" A b  C "), "abc");
    EXPECT_EQ(NormSafe("My: Game!"), "my game");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
}

TEST(Text, NamesAndPaths) {
    const std::pair<std::string_view, std::string_view> leaves[] = {
        {"abc", "abc"}, {"c:\\x\\y\\", "y"}, {"c:/x/y.dat", "y.dat"}, {"x\\\\", ""}, {"", ""}};
    for (const auto &[path, leaf] : leaves) EXPECT_EQ(LeafName(path), leaf) << path;

    const std::pair<std::string_view, std::string_view> indexes[] = {
        {"Name", "1"},  {"name(7)", "7"}, {"a(1)b", "1b"},    {"$List(12) ", "12"},
        {"a)b(c", "1"}, {"x()", ""},      {"abcdef(3)", "3"},
    };
    for (const auto &[name, index] : indexes) EXPECT_EQ(ParenIndex(name), index) << name;
}

TEST(Text, CountMatchesOverlapsAndLowersArguments) {
    std::string text = "AaA", needle = "aA";
    EXPECT_EQ(CountMatches(text, needle), 2);
    EXPECT_EQ(text, "aaa");
    EXPECT_EQ(needle, "aa");

    std::string empty;
    EXPECT_EQ(CountMatches(text, empty), 0);
    std::string many(40000, 'a'), one = "a";
    EXPECT_EQ(CountMatches(many, one), std::nullopt);
}

TEST(Text, StripsRemoveExactlyTheirSigns) {
    const std::string all = "/\\\"':;[]}{|~_!@#$%^&*(),";
    const std::string survivors = "a-b.c=d+e<f>g?h`i j";
    EXPECT_EQ(StripPunctuation(all + survivors), survivors);
    EXPECT_EQ(StripPunctuationKeepColon(all + survivors), ":" + survivors);
    EXPECT_EQ(StripBrackets(" [a] [b] "), "a b");
    EXPECT_EQ(StripOperators("1+2-3*4/5=6"), "12345=6");
}

TEST(Text, ListConversions) {
    EXPECT_EQ(ListToSlashText({"a:b", "c"}), "a-b//c//");
    EXPECT_EQ(ListToTickText({" a ", "  ", "", "b"}), "a`b`");
    EXPECT_TRUE(ListHasItem(" ALPHA", {"beta", "alpha  "}));
    EXPECT_FALSE(ListHasItem("", {}));

    std::vector<std::string> items = {"kept"};
    TickTextToList(" x `` y `", items);
    EXPECT_EQ(items, (std::vector<std::string>{"kept", "x", "y"}));

    std::string many;
    for (int i = 1; i <= 251; ++i) many += "i" + std::to_string(i) + "`";
    items.clear();
    TickTextToList(many, items);
    ASSERT_EQ(items.size(), 250u);
    EXPECT_EQ(items.back(), "i250");
}

TEST(Text, FirstOperatorPos) {
    EXPECT_EQ(FirstOperatorPos("abc"), 0u);
    EXPECT_EQ(FirstOperatorPos("a/b-c"), 2u);
    EXPECT_EQ(FirstOperatorPos(std::string(9997, 'x') + "+"), 9998u);
    EXPECT_EQ(FirstOperatorPos(std::string(9998, 'x') + "+"), 0u);
}

TEST(Text, EvalChainIsLeftToRightAndFlooredAtTheEnd) {
    const std::pair<std::string_view, double> rows[] = {
        {"2+3*4", 20}, {"7/2", 3},     {"7/2*2", 7},      {"0-7/2", -4},        {"-5+2", -3},
        {"4*-2", -2},  {"12+abc", 12}, {"2 + 3 * 4", 20}, {"2007-04-05", 1998}, {"1.5*3", 4},
        {"-5", -5},    {"+5", 5},      {"1e2+1", 101},
    };
    for (const auto &[text, expected] : rows) EXPECT_EQ(EvalChain(text), expected) << text;
    EXPECT_EQ(EvalChain("42"), std::nullopt);
    EXPECT_EQ(EvalChain("1/0"), std::nullopt);
    EXPECT_EQ(EvalChain("5/abc"), std::nullopt);
}

TEST(Text, ScalesAndColors) {
    EXPECT_EQ(ScaleProduct(5, 2, 1), 2); // 2.5 goes to the even neighbour
    EXPECT_EQ(ScaleByRatio(3, 3, 2), 4); // 4.5 likewise
    EXPECT_EQ(ScaleQuotient(10, 1, 4), 40);
    EXPECT_EQ(ScaleProduct(1, 0, 1), std::nullopt);
    EXPECT_EQ(ScaleQuotient(1, 0, 1), std::nullopt);
    EXPECT_EQ(ScaleByRatio(40000, 1, 1), std::nullopt);

    const ColorParts parts = SplitColor(0x00336699);
    EXPECT_EQ((std::array{parts.red, parts.green, parts.blue}), (std::array{0x99, 0x66, 0x33}));
}

// The search in the comparison form without building it: only ASCII capitals fold to the
// needle's letters, and blanks at the ends never matter.
TEST(Text, NormTextContainsAgreesWithTheComparisonForm) {
    struct Row {
        std::string_view text;
        std::string_view needle;
        bool expected;
    };
    const Row rows[] = {
        {"OnAction", "action", true},
        {" ACTION: ", "action:", true},
        {"act ion", "action", false},
        {"\xC1"
         "ction",
         "action", false},
        {"transactio", "action", false},
        {"x", "", true},
        {"", "a", false},
        {"aCTIONACTION:", "action:", true},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(NormTextContains(row.text, row.needle), row.expected);
        EXPECT_EQ(InStr(NormText(row.text), row.needle) != 0, row.expected);
    }
    std::string reused = "a longer name held before";
    AssignNormText(reused, "  Short ");
    EXPECT_EQ(reused, "short");
    EXPECT_EQ(TrimView("  a b "), "a b");
}

} // namespace
} // namespace orrery
