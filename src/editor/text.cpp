// The editor's checks of names and values.
#include "editor/text.h"

#include "editor/words.h"
#include "foundation/text.h"

#include <algorithm>

namespace orrery {

namespace {

bool HasControl(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; });
}

} // namespace

std::optional<Message> UnwritableName(std::string_view name) {
    if (name.size() > kLongestName || HasControl(name) ||
        name.find_first_of(":`") != std::string_view::npos)
        return words::kUnwritableName;
    return std::nullopt;
}

std::optional<Message> UnwritableValue(std::string_view value) {
    if (HasControl(value) || value.find(':') != std::string_view::npos)
        return words::kUnwritableValue;
    return std::nullopt;
}

std::string StorableSequence(std::string_view statements) {
    std::string text = ReplaceAll(statements, "action:", "");
    std::replace(text.begin(), text.end(), ':', ';');
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return text;
}

namespace {

// Calls take with each piece of the text between separators.
template <typename Take> void EachPiece(std::string_view text, char separator, Take take) {
    for (std::size_t from = 0;;) {
        const std::size_t to = text.find(separator, from);
        take(text.substr(from, to == std::string_view::npos ? std::string_view::npos : to - from));
        if (to == std::string_view::npos) return;
        from = to + 1;
    }
}

} // namespace

std::string SequenceLines(std::string_view stored) {
    std::string lines;
    EachPiece(stored, '`', [&lines](std::string_view statement) {
        const std::string trimmed = Trim(statement);
        if (!trimmed.empty()) lines += trimmed + "\n";
    });
    return lines;
}

std::string SequenceFromLines(std::string_view lines) {
    std::string stored;
    EachPiece(lines, '\n', [&stored](std::string_view line) {
        const std::string trimmed = Trim(ReplaceAll(line, "\r", ""));
        if (!trimmed.empty()) stored += trimmed + "`";
    });
    return stored;
}

} // namespace orrery
