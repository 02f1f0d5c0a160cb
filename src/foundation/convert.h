// Conversions between text and numbers as every file format of the system reads them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orrery {

// The number at the start of the text: blanks skipped, digits, one point and an exponent read,
// stopping at the first other character; "&H" and "&O" prefixes read hexadecimal and octal.
// 0 when there is no leading number. Never fails.
double Val(std::string_view text);

// The whole text, blanks around it allowed, is one number form (sign, digits, point, exponent,
// or an &H / &O form). nullopt otherwise, the empty text included.
std::optional<double> ParseNumber(std::string_view text);
bool IsNumeric(std::string_view text);

// Round to nearest, exact halves to the even neighbour; nullopt outside the target's range.
std::optional<std::int16_t> RoundToInt16(double value);
std::optional<std::int32_t> RoundToInt32(double value);
// The next integer at or below the value.
double IntFloor(double value);

// "to integer": the text must be a number form (a decimal part is rounded half to even);
// nullopt is a type mismatch or an overflow.
std::optional<std::int16_t> ToInt16(std::string_view text);
std::optional<std::int32_t> ToInt32(std::string_view text);
// A whole number written as decimal digits with an optional leading "-", and nothing else:
// no blanks, no point, no sign "+"; nullopt otherwise or when it overflows.
std::optional<std::int64_t> ParseWholeNumber(std::string_view text);
// The same within the range of a 32-bit integer.
std::optional<std::int32_t> ParseWholeNumber32(std::string_view text);
// "True" or "False" in any case, or a number (0 is false); nullopt otherwise.
std::optional<bool> ToBoolean(std::string_view text);

std::string BoolText(bool value);           // "True" or "False"
std::string IntText(std::int64_t value);    // decimal digits, leading "-" when negative
// A real number as text the way the system prints one: whole numbers without a point,
// others with up to 15 significant digits and no trailing zeros.
std::string NumberText(double value);

} // namespace orrery
