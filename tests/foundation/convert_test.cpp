// Tests of the number and boolean conversions of text.
#include "foundation/convert.h"

#include <cmath>
#include <gtest/gtest.h>

namespace orrery {
namespace {

TEST(Convert, ValReadsTheLeadingNumberAndNeverFails) {
    const std::pair<std::string_view, double> rows[] = {
        {"", 0},     {"abc", 0},    {"12abc", 12},  {" 1 2 3", 123}, {"-5", -5},
        {"--5", 0},  {"-.5", -0.5}, {"1.2.3", 1.2}, {"1D2", 100},    {"2.5E-1", 0.25},
        {"1e+x", 1}, {"&h1f", 31},  {"&O19", 1},    {"&H", 0},       {"1e-400", 0},
    };
    for (const auto &[text, expected] : rows) EXPECT_EQ(Val(text), expected) << text;
    EXPECT_EQ(Val("1e400"), HUGE_VAL);
}

TEST(Convert, ParseNumberTakesOnlyWholeNumberForms) {
    const std::pair<std::string_view, std::optional<double>> rows[] = {
        {" 42 ", 42},          {"-1.5", -1.5},          {"5.", 5},
        {"&HFF", 255},         {"", std::nullopt},      {".", std::nullopt},
        {"1e", std::nullopt},  {"12abc", std::nullopt}, {"1 2", std::nullopt},
        {"\t1", std::nullopt},
    };
    for (const auto &[text, expected] : rows) EXPECT_EQ(ParseNumber(text), expected) << text;
}

TEST(Convert, RoundingGoesHalfToEvenWithinRange) {
    const std::pair<double, std::optional<std::int16_t>> rows[] = {
        {2.5, 2},
        {3.5, 4},
        {-2.5, -2},
        {0.5, 0},
        {2.5001, 3},
        {32767.5, std::nullopt},
        {-32768.5, -32768},
        {-32768.6, std::nullopt},
        {NAN, std::nullopt},
    };
    for (const auto &[value, expected] : rows) EXPECT_EQ(RoundToInt16(value), expected) << value;
    EXPECT_EQ(RoundToInt32(2147483647.5), std::nullopt);
    EXPECT_EQ(IntFloor(-1.5), -2);
}

TEST(Convert, TextToIntegerBooleanAndBack) {
    EXPECT_EQ(ToInt16(" 2.5 "), 2);
    EXPECT_EQ(ToInt16("40000"), std::nullopt);
    EXPECT_EQ(ToInt32("40000"), 40000);

    const std::pair<std::string_view, std::optional<bool>> booleans[] = {
        {" FALSE ", false}, {"tRuE", true}, {"0.0", false}, {"-1", true}, {"yes", std::nullopt},
    };
    for (const auto &[text, expected] : booleans) EXPECT_EQ(ToBoolean(text), expected) << text;

    const std::pair<double, std::string_view> numbers[] = {
        {5000, "5000"},  {-3, "-3"}, {0.1, "0.1"}, {-0.0, "0"}, {1.0 / 3, "0.333333333333333"},
        {1e20, "1e+20"},
    };
    for (const auto &[value, text] : numbers) EXPECT_EQ(NumberText(value), text) << value;
}

} // namespace
} // namespace orrery
