// Text primitives: fields, strips, list conversions and chained arithmetic on text.
#include "foundation/text.h"

#include "foundation/convert.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace orrery {

namespace {

constexpr std::string_view kOperators = "+-/*";
constexpr std::string_view kPunctuation = "/\\\"':;[]}{|~_!@#$%^&*(),";
constexpr std::string_view kPunctuationNoColon = "/\\\"';[]}{|~_!@#$%^&*(),";

// Every sign is a single character, so removing them in one pass gives the same text as
// removing each sign in turn.
std::string RemoveChars(std::string_view text, std::string_view signs) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        if (signs.find(c) == std::string_view::npos) out += c;
    }
    return out;
}

// The lower-case image of every byte. Capitals are "A" to "Z", the Windows-1252 letters from
// 0xC0 to 0xDE but the multiplication sign 0xD7, and the four of 0x8A, 0x8C, 0x8E and 0x9F.
constexpr std::array<char, 256> MakeLowerTable() {
    std::array<char, 256> table{};
    for (int u = 0; u < 256; ++u) {
        int lower = u;
        if ((u >= 'A' && u <= 'Z') || (u >= 0xC0 && u <= 0xDE && u != 0xD7))
            lower = u + 0x20;
        else if (u == 0x8A)
            lower = 0x9A;
        else if (u == 0x8C)
            lower = 0x9C;
        else if (u == 0x8E)
            lower = 0x9E;
        else if (u == 0x9F)
            lower = 0xFF;
        table[static_cast<std::size_t>(u)] = static_cast<char>(lower);
    }
    return table;
}

constexpr std::array<char, 256> kLowerTable = MakeLowerTable();

char LowerChar(char c) {
    return kLowerTable[static_cast<unsigned char>(c)];
}

// Mid$ with 1-based start; clipped to the text.
std::string_view Mid(std::string_view text, std::size_t start, std::size_t count) {
    if (start < 1 || start > text.size()) return {};
    return text.substr(start - 1, count);
}

std::optional<std::int16_t> RoundScaled(double value) {
    if (!std::isfinite(value)) return std::nullopt;
    return RoundToInt16(value);
}

} // namespace

std::string LowerCase(std::string_view text) {
    std::string out(text);
    for (char &c : out) c = LowerChar(c);
    return out;
}

std::string UpperCase(std::string_view view) {
    std::string text(view);
    for (char &c : text) {
        const auto u = static_cast<unsigned char>(c);
        if ((u >= 'a' && u <= 'z') || (u >= 0xE0 && u <= 0xFE && u != 0xF7))
            c = static_cast<char>(u - 0x20);
        else if (u == 0x9A || u == 0x9C || u == 0x9E)
            c = static_cast<char>(u - 0x10);
        else if (u == 0xFF)
            c = static_cast<char>(0x9F);
    }
    return text;
}

std::string Trim(std::string_view text) {
    return std::string(TrimView(text));
}

std::string_view TrimView(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const std::size_t last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
    if (from.empty()) return std::string(text);
    std::string out;
    out.reserve(text.size());
    std::size_t pos = 0;
    for (std::size_t hit = text.find(from); hit != std::string_view::npos;
         hit = text.find(from, pos)) {
        out.append(text.substr(pos, hit - pos));
        out.append(to);
        pos = hit + from.size();
    }
    out.append(text.substr(pos));
    return out;
}

std::size_t InStr(std::string_view text, std::string_view needle) {
    const std::size_t hit = text.find(needle);
    return hit == std::string_view::npos ? 0 : hit + 1;
}

std::string NormText(std::string_view text) {
    std::string out;
    AssignNormText(out, text);
    return out;
}

// Lower-casing never makes or removes a blank, so trimming first gives the same text.
void AssignNormText(std::string &out, std::string_view text) {
    const std::string_view trimmed = TrimView(text);
    out.resize(trimmed.size());
    std::transform(trimmed.begin(), trimmed.end(), out.begin(), LowerChar);
}

// Only "A" to "Z" lower-case to ASCII letters, so an ASCII needle matches without regard to
// the case of ASCII letters; a needle without blanks never meets what trimming removes.
bool NormTextContains(std::string_view text, std::string_view needle) {
    if (needle.empty()) return true;
    if (text.size() < needle.size()) return false;
    const std::size_t last = text.size() - needle.size();
    for (std::size_t i = 0; i <= last; ++i) {
        std::size_t j = 0;
        while (j < needle.size() && LowerChar(text[i + j]) == needle[j]) ++j;
        if (j == needle.size()) return true;
    }
    return false;
}

std::string NormNoSpaces(std::string_view text) {
    return NormText(RemoveChars(text, " "));
}

std::string NormSafe(std::string_view text) {
    return NormText(StripPunctuation(text));
}

std::string FieldAt(std::string_view text, std::int16_t n) {
    return std::string(FieldView(text, n, ":"));
}

std::string FieldBy(std::string_view text, std::int16_t n, std::string_view delimiter) {
    return std::string(FieldView(text, n, delimiter));
}

std::string_view FieldView(std::string_view text, std::int16_t n, std::string_view delimiter) {
    if (n < 1 || text.empty() || delimiter.empty()) return {};
    // A one-character delimiter, as nearly every one is, is found by the faster search.
    const auto find = [&](std::size_t from) {
        return delimiter.size() == 1 ? text.find(delimiter.front(), from)
                                     : text.find(delimiter, from);
    };
    std::size_t start = 0;
    for (int i = 1; i < n; ++i) {
        const std::size_t hit = find(start);
        if (hit == std::string_view::npos) return {};
        start = hit + delimiter.size();
    }
    const std::size_t end = find(start);
    return text.substr(start, end == std::string_view::npos ? text.size() - start : end - start);
}

std::string LeafName(std::string_view path) {
    std::string reversed = ReverseText(ReplaceAll(path, "/", "\\"));
    std::string_view rest = reversed;
    // A trailing separator, now leading, would otherwise make the leaf empty.
    if (!rest.empty() && rest.front() == '\\') rest.remove_prefix(1);
    rest = rest.substr(0, rest.find('\\'));
    return ReverseText(rest);
}

std::string LastChar(std::string_view text) {
    return text.empty() ? std::string() : std::string(1, text.back());
}

std::string NextToLastChar(std::string_view text) {
    return text.size() < 2 ? std::string() : std::string(1, text[text.size() - 2]);
}

std::string ReverseText(std::string_view text) {
    return std::string(text.rbegin(), text.rend());
}

std::optional<std::int16_t> CountMatches(std::string &text, std::string &needle) {
    text = LowerCase(text);
    needle = LowerCase(needle);
    if (needle.empty()) return 0;
    long count = 0;
    for (std::size_t hit = text.find(needle); hit != std::string::npos;
         hit = text.find(needle, hit + 1)) {
        ++count;
    }
    if (count > std::numeric_limits<std::int16_t>::max()) return std::nullopt;
    return static_cast<std::int16_t>(count);
}

bool HasParens(std::string_view text) {
    const std::size_t open = InStr(text, "(");
    const std::size_t close = InStr(text, ")");
    return open > 0 && close > 0 && open < close;
}

std::string ParenIndex(std::string_view text) {
    const std::string name = NormText(text);
    if (!HasParens(name)) return "1";
    // The count runs from the "(" but is the ")"'s position, so text behind the ")" of a
    // short name comes along: "a(1)b" gives "1b".
    const std::size_t open = InStr(name, "(");
    const std::size_t close = InStr(name, ")");
    return RemoveChars(Mid(name, open + 1, close - 1), "()");
}

std::string StripPunctuation(std::string_view text) {
    return RemoveChars(text, kPunctuation);
}

std::string StripPunctuationKeepColon(std::string_view text) {
    return RemoveChars(text, kPunctuationNoColon);
}

std::string StripBrackets(std::string_view text) {
    return Trim(RemoveChars(text, "[]"));
}

std::string StripOperators(std::string_view text) {
    return RemoveChars(text, kOperators);
}

bool ListHasItem(std::string_view text, const std::vector<std::string> &items) {
    const std::string wanted = NormText(text);
    return std::any_of(items.begin(), items.end(),
                       [&](const std::string &item) { return NormText(item) == wanted; });
}

std::string ListToSlashText(const std::vector<std::string> &items) {
    std::string out;
    for (const std::string &item : items) {
        // A colon inside a field value would split the record it is stored in.
        out += ReplaceAll(item, ":", "-");
        out += "//";
    }
    return out;
}

std::string ListToTickText(const std::vector<std::string> &items) {
    std::string out;
    for (const std::string &item : items) {
        std::string trimmed = Trim(item);
        if (trimmed.empty()) continue;
        out += trimmed;
        out += '`';
    }
    return out;
}

void TickTextToList(std::string_view text, std::vector<std::string> &items) {
    constexpr int kMaxItems = 250;
    if (text.empty()) return;
    std::size_t start = 0;
    for (int i = 1; i <= kMaxItems; ++i) {
        const std::size_t end = text.find('`', start);
        std::string item = Trim(text.substr(start, end - start)); // npos runs to the end
        if (!item.empty()) items.push_back(std::move(item));
        if (end == std::string_view::npos) return;
        start = end + 1;
    }
}

std::size_t FirstOperatorPos(std::string_view text) {
    // 9999 stands for "not found" in the chain arithmetic, so a hit that far out is no hit.
    constexpr std::size_t kNone = 9999;
    const std::size_t hit = text.find_first_of(kOperators);
    if (hit == std::string_view::npos || hit + 1 >= kNone) return 0;
    return hit + 1;
}

std::optional<double> EvalChain(std::string_view text) {
    const std::size_t first = FirstOperatorPos(text);
    if (first == 0) return std::nullopt;
    double acc = Val(text.substr(0, first - 1));
    std::string_view rest = text;
    for (std::size_t p = first; p != 0; p = FirstOperatorPos(rest)) {
        rest = rest.substr(p - 1);
        const char op = rest.front();
        const std::size_t next = FirstOperatorPos(rest.substr(1));
        // The operator and its operand: up to, not including, the next operator.
        const std::size_t take = std::min<std::size_t>(next == 0 ? 10000 : next, rest.size());
        const double v = Val(StripOperators(rest.substr(0, take)));
        switch (op) {
        case '+':
            acc += v;
            break;
        case '-':
            acc -= v;
            break;
        case '*':
            acc *= v;
            break;
        default:
            if (v == 0.0) return std::nullopt;
            acc /= v;
            break;
        }
        rest = rest.substr(take);
    }
    if (!std::isfinite(acc)) return std::nullopt;
    return IntFloor(acc);
}

std::optional<std::int16_t> ScaleProduct(double a, double b, double c) {
    if (b == 0.0) return std::nullopt;
    return RoundScaled(a * (c / b));
}

std::optional<std::int16_t> ScaleByRatio(double a, double b, double c) {
    if (c == 0.0) return std::nullopt;
    return RoundScaled(a * (b / c));
}

std::optional<std::int16_t> ScaleQuotient(double a, double b, double c) {
    if (c == 0.0) return std::nullopt;
    const double ratio = b / c;
    if (ratio == 0.0) return std::nullopt;
    return RoundScaled(a / ratio);
}

ColorParts SplitColor(std::int32_t color) {
    const auto bits = static_cast<std::uint32_t>(color);
    return {static_cast<int>(bits & 0xFFu), static_cast<int>((bits >> 8) & 0xFFu),
            static_cast<int>((bits >> 16) & 0xFFu)};
}

} // namespace orrery
