// Windows-1252 to and from UTF-8.
#include "foundation/codepage.h"

#include <array>
#include <cstdint>

namespace orrery {

namespace {

// Unicode of the codes 0x80..0x9F. The five codes Windows-1252 leaves undefined keep their own
// value, so every byte survives a round trip through UTF-8.
constexpr std::array<char32_t, 32> kHighBlock = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char kUnmappable = '?';

void AppendUtf8(std::string &out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

char ToCp1252(char32_t code) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
    for (std::size_t i = 0; i < kHighBlock.size(); ++i) {
        if (kHighBlock[i] == code) return static_cast<char>(0x80 + i);
    }
    return kUnmappable;
}

struct Decoded {
    char32_t code = 0;
    std::size_t length = 1; // bytes consumed
    bool valid = false;
};

// One UTF-8 sequence at the front of text. An invalid one consumes its longest valid-looking
// prefix (at least one byte), so a cut-off sequence becomes a single "?".
Decoded DecodeOne(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return {lead, 1, true};
    std::size_t length = 0;
    char32_t code = 0;
    char32_t lowest = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, code = lead & 0x1Fu, lowest = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, code = lead & 0x0Fu, lowest = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, code = lead & 0x07u, lowest = 0x10000;
    } else {
        return {};
    }
    std::size_t i = 1;
    for (; i < length && i < text.size(); ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0u) != 0x80u) break;
        code = (code << 6) | (next & 0x3Fu);
    }
    if (i < length) return {0, i, false};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < lowest || code > 0x10FFFF || surrogate) return {0, length, false};
    return {code, length, true};
}

} // namespace

std::string Cp1252ToUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80 && byte < 0xA0) {
            AppendUtf8(out, kHighBlock[byte - 0x80u]);
        } else {
            AppendUtf8(out, byte);
        }
    }
    return out;
}

std::string Utf8ToCp1252(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const Decoded decoded = DecodeOne(text);
        out += decoded.valid ? ToCp1252(decoded.code) : kUnmappable;
        text.remove_prefix(decoded.length);
    }
    return out;
}

bool IsPrintableCp1252(char byte) {
    const auto b = static_cast<unsigned char>(byte);
    if (b < 0x20 || b == 0x7F) return false;
    return b < 0x80 || b >= 0xA0 || kHighBlock[b - 0x80u] != static_cast<char32_t>(b);
}

std::optional<char> Cp1252Char(char32_t code) {
    const char byte = ToCp1252(code);
    if ((byte == kUnmappable && code != U'?') || !IsPrintableCp1252(byte)) return std::nullopt;
    return byte;
}

} // namespace orrery
