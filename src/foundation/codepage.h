// Windows-1252 text, the system's own, to and from UTF-8 at the edges (file names, terminals,
// JSON, the toolkit).
#pragma once

#include <string>
#include <string_view>

namespace orrery {

std::string Cp1252ToUtf8(std::string_view text);
// Characters with no Windows-1252 code, and malformed UTF-8, become "?".
std::string Utf8ToCp1252(std::string_view text);

} // namespace orrery
