// Text primitives: the field, strip, list and arithmetic rules every record of the system rests on.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

// Lower-cases ASCII letters and the Windows-1252 capitals; every other byte stays.
std::string LowerCase(std::string_view text);
// Upper-cases ASCII letters and the Windows-1252 small letters: the inverse of LowerCase.
std::string UpperCase(std::string_view text);
// Removes blanks (code 32) at both ends and nothing else: tabs stay.
std::string Trim(std::string_view text);
// The same without a copy: a view into text.
std::string_view TrimView(std::string_view text);
// Case-sensitive replace of every occurrence, scanning left to right without overlap.
// An empty `from` leaves the text unchanged.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);
// Position (from 1) of the first occurrence of needle; 0 when absent. An empty needle is at 1.
std::size_t InStr(std::string_view text, std::string_view needle);

// The comparison form of every name: lower-cased, then trimmed.
std::string NormText(std::string_view text);
// The same into out, reusing its storage, for loops that take one name after another.
void AssignNormText(std::string &out, std::string_view text);
// True when NormText(text) holds needle, a lower-case ASCII text without blanks, without
// building the comparison form.
bool NormTextContains(std::string_view text, std::string_view needle);
// Every blank removed, then lower-cased and trimmed.
std::string NormNoSpaces(std::string_view text);
// StripPunctuation, then lower-cased and trimmed: the form in which a project name becomes
// a directory name.
std::string NormSafe(std::string_view text);

// Field n (from 1) of text split at every ":". Not trimmed. "" for n below 1, past the last
// field, and for an empty text.
std::string FieldAt(std::string_view text, std::int16_t n);
// The same for any delimiter of any length, matched exactly. An empty delimiter yields "".
std::string FieldBy(std::string_view text, std::int16_t n, std::string_view delimiter);
// Either of the two without a copy: a view into text.
std::string_view FieldView(std::string_view text, std::int16_t n, std::string_view delimiter = ":");

// The last path component of either separator, ignoring one trailing separator.
std::string LeafName(std::string_view path);
std::string LastChar(std::string_view text);
std::string NextToLastChar(std::string_view text);
std::string ReverseText(std::string_view text);
// Positions at which needle starts, overlaps counted. Lower-cases both arguments in place, as
// callers rely on. nullopt when the count overflows 16 bits; 0 for an empty needle.
std::optional<std::int16_t> CountMatches(std::string &text, std::string &needle);
// True when text has a ")" and a "(" and the first "(" stands before the first ")".
bool HasParens(std::string_view text);
// The index of a name such as "$list(3)"; "1" when the name has none.
std::string ParenIndex(std::string_view text);

// Plain removal of every occurrence of each sign, in order, with no blank left behind.
std::string StripPunctuation(std::string_view text);
std::string StripPunctuationKeepColon(std::string_view text);
std::string StripBrackets(std::string_view text); // "[" and "]", then trimmed
std::string StripOperators(std::string_view text);

// List conversions over the items of a list control, in order.
bool ListHasItem(std::string_view text, const std::vector<std::string> &items);
std::string ListToSlashText(const std::vector<std::string> &items);
std::string ListToTickText(const std::vector<std::string> &items);
// Appends up to 250 non-empty trimmed backtick fields of text to items; the rest are lost.
void TickTextToList(std::string_view text, std::vector<std::string> &items);

// Smallest position of any of * + - / in text; 0 when none or at position 9999 and beyond.
std::size_t FirstOperatorPos(std::string_view text);
// A chain of numbers and operators evaluated left to right without precedence, floored at
// the end. nullopt where the chain raises an error: no operator at all, or a division by zero.
std::optional<double> EvalChain(std::string_view text);
// a * (c / b), a * (b / c) and a / (b / c), rounded to 16 bits; nullopt on overflow or a
// division by zero.
std::optional<std::int16_t> ScaleProduct(double a, double b, double c);
std::optional<std::int16_t> ScaleByRatio(double a, double b, double c);
std::optional<std::int16_t> ScaleQuotient(double a, double b, double c);

// The three bytes of a colour in the red-low layout.
struct ColorParts {
    int red = 0;
    int green = 0;
    int blue = 0;
};
ColorParts SplitColor(std::int32_t color);

} // namespace orrery
