// The web addresses that may be handed to the user's browser.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orrery {

// The address to hand to the browser: trimmed, "http://" put in front when there is no
// scheme; only web and mail addresses pass, so that a project's text can't open a local file
// or pass an option to the opener.
std::optional<std::string> BrowserUrl(std::string_view text);

} // namespace orrery
