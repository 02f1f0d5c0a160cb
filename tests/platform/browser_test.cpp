// Which texts may reach the browser, and in what form.
#include <gtest/gtest.h>

#include "platform/browser.h"

namespace orrery {
namespace {

TEST(Browser, OnlyWebAndMailAddressesPass) {
    struct Case {
        const char *text;
        const char *url; // nullptr: refused
    };
    const Case cases[] = {
        {" orrery.example ", "http://orrery.example"},
        {"HTTPS://orrery.example/a?b=c", "HTTPS://orrery.example/a?b=c"},
        {"mailto:kim@orrery.example", "mailto:kim@orrery.example"},
        {"orrery.example:8080/x", "http://orrery.example:8080/x"},
        {"caf\xE9.example", "http://caf\xC3\xA9.example"},
        {"file:///etc/passwd", nullptr},
        {"javascript:alert(1)", nullptr},
        {"--help", "http://--help"},
        {"a b", nullptr},
        {"", nullptr},
    };
    for (const Case &c : cases) {
        const auto url = BrowserUrl(c.text);
        if (c.url) EXPECT_EQ(url.value_or("<refused>"), c.url) << c.text;
        else EXPECT_FALSE(url) << c.text;
    }
}

} // namespace
} // namespace orrery
