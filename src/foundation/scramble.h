// The line scrambling of a distribution's project file: a fixed substitution with filler.
#pragma once

#include <string>
#include <string_view>

namespace orrery {

class Random;

// Trimmed text, each code 32..148 mapped through the fixed table, each followed by a filler
// letter "b".."y", the whole reversed. "" for an empty text.
std::string ScrambleText(std::string_view text, Random &random);
std::string ScrambleText(std::string_view text);
// The inverse: the characters at even positions, unmapped, reversed. Text that was never
// scrambled gives nonsense, never an error.
std::string UnscrambleText(std::string_view text);

// The substitution table itself, for tests: Map(c) for codes 32..148, identity elsewhere.
unsigned char ScrambleMap(unsigned char code);
unsigned char UnscrambleMap(unsigned char code);

} // namespace orrery
