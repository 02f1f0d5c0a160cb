// The web addresses that may be handed to the user's browser.
#include "platform/browser.h"

#include "foundation/codepage.h"
#include "foundation/text.h"

namespace orrery {

std::optional<std::string> BrowserUrl(std::string_view text) {
    std::string url = Trim(text);
    if (url.empty()) return std::nullopt;
    for (const char c : url)
        if (static_cast<unsigned char>(c) <= 32) return std::nullopt;
    const std::string lower = LowerCase(url);
    const bool web = lower.starts_with("http://") || lower.starts_with("https://");
    if (!web && !lower.starts_with("mailto:")) {
        if (lower.find(':') != std::string::npos && lower.find(':') < lower.find('.'))
            return std::nullopt; // another scheme: file:, javascript:, ...
        url.insert(0, "http://");
    }
    return Cp1252ToUtf8(url);
}

} // namespace orrery
