// What the editor accepts as a name or a value: text the project file can keep as written.
#pragma once

#include "editor/change.h"

#include <optional>
#include <string>
#include <string_view>

namespace orrery {

inline constexpr std::size_t kLongestName = 100;

// Why a name of a tool, a qlob, a variable or a help topic can't be written, or nothing when
// it can: a colon ends a field, a back-quote ends a statement, a control character ends a line.
std::optional<Message> UnwritableName(std::string_view name);
// Why a property value can't be written: a colon would cut it at the next reading.
std::optional<Message> UnwritableValue(std::string_view value);
// A sequence as the action editor stores it: "action:" removed, and every colon, which the
// file can't keep inside a field, written as a semicolon.
std::string StorableSequence(std::string_view statements);

// A stored sequence as lines of text, one statement a line, for an author to edit.
std::string SequenceLines(std::string_view stored);
// Lines of text as a stored sequence: each non-empty line trimmed and closed by a back-quote.
std::string SequenceFromLines(std::string_view lines);

} // namespace orrery
