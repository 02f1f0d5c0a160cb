// Windows-1252 text, the system's own, to and from UTF-8 at the edges (file names, terminals,
// JSON, the toolkit).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orrery {

std::string Cp1252ToUtf8(std::string_view text);
// Characters with no Windows-1252 code, and malformed UTF-8, become "?".
std::string Utf8ToCp1252(std::string_view text);

// True for a byte that shows a character: neither a control code nor one of the five codes
// Windows-1252 leaves undefined.
bool IsPrintableCp1252(char byte);
// The byte of one character a person typed; none when Windows-1252 doesn't hold it or it
// prints nothing.
std::optional<char> Cp1252Char(char32_t code);

} // namespace orrery
