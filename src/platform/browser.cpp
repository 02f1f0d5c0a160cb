// Opening a web address with the desktop's opener.
#include "platform/browser.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "foundation/codepage.h"
#include "foundation/text.h"

extern char **environ;

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

bool OpenInBrowser(std::string_view text) {
    const auto url = BrowserUrl(text);
    if (!url) return false;
    // The opener runs in a grandchild, so no child is left for us to reap.
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0) {
        pid_t opener = 0;
        char *argv[] = {const_cast<char *>("xdg-open"), const_cast<char *>(url->c_str()), nullptr};
        _exit(posix_spawnp(&opener, "xdg-open", nullptr, nullptr, argv, environ) == 0 ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace orrery
