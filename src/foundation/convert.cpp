// Number and boolean conversions of text, independent of the process locale.
#include "foundation/convert.h"

#include "foundation/text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace orrery {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The value of one digit in the given base, or -1.
int DigitValue(char c, int base) {
    int v = 36; // a digit of no base
    if (c >= '0' && c <= '9') v = c - '0';
    if (c >= 'a' && c <= 'f') v = c - 'a' + 10;
    if (c >= 'A' && c <= 'F') v = c - 'A' + 10;
    return v < base ? v : -1;
}

// The longest number form at the front of a text.
struct Scan {
    double value = 0.0;
    std::size_t used = 0; // characters taken; 0 when there is no number
};

Scan ScanRadix(std::string_view text, int base) {
    Scan scan;
    std::size_t i = 2;
    for (; i < text.size(); ++i) {
        const int digit = DigitValue(text[i], base);
        if (digit < 0) break;
        scan.value = scan.value * base + digit;
    }
    if (i > 2) scan.used = i;
    return scan;
}

// from_chars leaves the value alone when it is out of range, so the order of magnitude decides
// between infinity and zero here.
double OutOfRange(std::string_view mantissa, std::size_t intDigits, long exponent, bool negative) {
    const std::size_t firstNonZero = mantissa.find_first_not_of('0');
    if (firstNonZero == std::string_view::npos) return 0.0;
    const long order =
        static_cast<long>(intDigits) - static_cast<long>(firstNonZero) - 1 + exponent;
    const double magnitude = order < 0 ? 0.0 : std::numeric_limits<double>::infinity();
    return negative ? -magnitude : magnitude;
}

Scan ScanDecimal(std::string_view text) {
    Scan scan;
    std::size_t i = 0;
    const bool negative = i < text.size() && text[i] == '-';
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
    std::string mantissa;
    std::size_t intDigits = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i, ++intDigits) mantissa += text[i];
    if (i < text.size() && text[i] == '.') {
        for (++i; i < text.size() && IsDigit(text[i]); ++i) mantissa += text[i];
    }
    if (mantissa.empty()) return scan;
    scan.used = i;

    // "D" is the old double-precision exponent letter; both read alike.
    long exponent = 0;
    if (i < text.size() && std::string_view("EeDd").find(text[i]) != std::string_view::npos) {
        std::size_t j = i + 1;
        const bool expNegative = j < text.size() && text[j] == '-';
        if (j < text.size() && (text[j] == '-' || text[j] == '+')) ++j;
        const std::size_t digitsStart = j;
        for (; j < text.size() && IsDigit(text[j]); ++j) {
            if (exponent < 100000) exponent = exponent * 10 + (text[j] - '0');
        }
        if (j > digitsStart) {
            scan.used = j;
            if (expNegative) exponent = -exponent;
        } else {
            exponent = 0;
        }
    }

    // The digits as one integer with the point folded into the exponent.
    const long fractionDigits = static_cast<long>(mantissa.size() - intDigits);
    const std::string form = mantissa + "e" + std::to_string(exponent - fractionDigits);
    double value = 0.0;
    const auto result = std::from_chars(form.data(), form.data() + form.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        scan.value = OutOfRange(mantissa, intDigits, exponent, negative);
    } else {
        scan.value = negative ? -value : value;
    }
    return scan;
}

Scan ScanNumber(std::string_view text) {
    if (text.size() >= 2 && text[0] == '&') {
        if (text[1] == 'H' || text[1] == 'h') return ScanRadix(text, 16);
        if (text[1] == 'O' || text[1] == 'o') return ScanRadix(text, 8);
        return {};
    }
    return ScanDecimal(text);
}

// Halves go to the even neighbour, so 2.5 and 1.5 both give 2.
double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction > 0.5) return below + 1.0;
    if (fraction < 0.5) return below;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

template <typename Int> std::optional<Int> RoundTo(double value) {
    if (!std::isfinite(value)) return std::nullopt;
    const double rounded = RoundHalfEven(value);
    if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max())) {
        return std::nullopt;
    }
    return static_cast<Int>(rounded);
}

} // namespace

double Val(std::string_view text) {
    // Blanks, tabs and line feeds are dropped from anywhere in the text before reading, so
    // " 1 2" reads as 12.
    std::string compact;
    compact.reserve(text.size());
    for (char c : text) {
        if (c != ' ' && c != '\t' && c != '\n') compact += c;
    }
    return ScanNumber(compact).value;
}

std::optional<double> ParseNumber(std::string_view text) {
    const std::string trimmed = Trim(text);
    const Scan scan = ScanNumber(trimmed);
    if (scan.used == 0 || scan.used != trimmed.size()) return std::nullopt;
    return scan.value;
}

bool IsNumeric(std::string_view text) {
    return ParseNumber(text).has_value();
}

std::optional<std::int16_t> RoundToInt16(double value) {
    return RoundTo<std::int16_t>(value);
}

std::optional<std::int32_t> RoundToInt32(double value) {
    return RoundTo<std::int32_t>(value);
}

double IntFloor(double value) {
    return std::floor(value);
}

std::optional<std::int16_t> ToInt16(std::string_view text) {
    const auto number = ParseNumber(text);
    return number ? RoundToInt16(*number) : std::nullopt;
}

std::optional<std::int32_t> ToInt32(std::string_view text) {
    const auto number = ParseNumber(text);
    return number ? RoundToInt32(*number) : std::nullopt;
}

std::optional<bool> ToBoolean(std::string_view text) {
    const std::string word = NormText(text);
    if (word == "true") return true;
    if (word == "false") return false;
    const auto number = ParseNumber(text);
    if (!number) return std::nullopt;
    return *number != 0.0;
}

std::string BoolText(bool value) {
    return value ? "True" : "False";
}

std::string IntText(std::int64_t value) {
    return std::to_string(value);
}

std::string NumberText(double value) {
    // Below 1e15 every whole double is exact and prints as plain digits.
    if (std::isfinite(value) && value == std::floor(value) && std::abs(value) < 1e15) {
        return IntText(static_cast<std::int64_t>(value));
    }
    char buffer[64];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15);
    return std::string(buffer, result.ptr);
}

std::optional<std::int64_t> ParseWholeNumber(std::string_view text) {
    std::int64_t value = 0;
    const char *end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, value);
    if (text.empty() || failure != std::errc() || stop != end) return std::nullopt;
    return value;
}

std::optional<std::int32_t> ParseWholeNumber32(std::string_view text) {
    const auto value = ParseWholeNumber(text);
    if (!value || *value < std::numeric_limits<std::int32_t>::min() ||
        *value > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(*value);
}

} // namespace orrery
