// The fixed substitution table of scrambled lines and the scramble and unscramble of a line.
#include "foundation/scramble.h"

#include "foundation/random.h"
#include "foundation/text.h"

#include <array>
#include <cstdint>

namespace orrery {

namespace {

constexpr int kFirstCode = 32;
constexpr int kLastCode = 148;
constexpr int kCodeCount = kLastCode - kFirstCode + 1;

// The image of codes 32..148 in order. Fixed for good: a distribution and the run-time that
// reads it must agree. The blank maps to itself on purpose: a scrambled line ends with the
// image of the trimmed text's first character, which is never a blank, so its image never is
// either and the trim on reading can't eat payload. The other fixed point is "n".
constexpr std::array<std::uint8_t, kCodeCount> kForward = {
    32,  141, 45,  88,  139, 55,  39,  117, 86,  42,  59,  106, 116, 114, 98,  119, 111,
    79,  105, 71,  84,  91,  80,  135, 131, 46,  94,  56,  53,  113, 123, 99,  100, 77,
    67,  37,  38,  78,  122, 64,  103, 148, 104, 44,  33,  54,  130, 138, 40,  102, 47,
    82,  136, 125, 65,  108, 120, 36,  60,  43,  41,  50,  109, 115, 118, 70,  97,  137,
    144, 126, 124, 52,  143, 146, 132, 48,  83,  87,  110, 57,  145, 75,  128, 121, 81,
    93,  73,  61,  85,  134, 34,  133, 58,  147, 51,  49,  76,  142, 129, 35,  101, 140,
    92,  62,  63,  127, 96,  74,  90,  89,  72,  107, 68,  66,  95,  69,  112};

constexpr std::array<std::uint8_t, kCodeCount>
Invert(const std::array<std::uint8_t, kCodeCount> &forward) {
    std::array<std::uint8_t, kCodeCount> inverse{};
    for (int i = 0; i < kCodeCount; ++i) {
        inverse[forward[i] - kFirstCode] = static_cast<std::uint8_t>(i + kFirstCode);
    }
    return inverse;
}

constexpr std::array<std::uint8_t, kCodeCount> kBackward = Invert(kForward);

unsigned char Lookup(const std::array<std::uint8_t, kCodeCount> &table, unsigned char code) {
    if (code < kFirstCode || code > kLastCode) return code;
    return table[code - kFirstCode];
}

} // namespace

unsigned char ScrambleMap(unsigned char code) {
    return Lookup(kForward, code);
}

unsigned char UnscrambleMap(unsigned char code) {
    return Lookup(kBackward, code);
}

std::string ScrambleText(std::string_view text, Random &random) {
    const std::string trimmed = Trim(text);
    std::string out;
    out.reserve(trimmed.size() * 2);
    for (char c : trimmed) {
        out += static_cast<char>(ScrambleMap(static_cast<unsigned char>(c)));
        // Filler is a letter "b".."y", never a line break or a blank.
        out += static_cast<char>('b' + random.Below(24));
    }
    return ReverseText(out);
}

std::string ScrambleText(std::string_view text) {
    return ScrambleText(text, ProcessRandom());
}

std::string UnscrambleText(std::string_view text) {
    const std::string trimmed = Trim(text);
    std::string out;
    out.reserve(trimmed.size() / 2);
    for (std::size_t i = 1; i < trimmed.size(); i += 2) {
        out += static_cast<char>(UnscrambleMap(static_cast<unsigned char>(trimmed[i])));
    }
    return ReverseText(out);
}

} // namespace orrery
