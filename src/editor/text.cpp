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

} // namespace orrery
