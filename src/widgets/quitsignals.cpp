// The termination signals, delivered on the event loop through a socket pair.
#include "widgets/quitsignals.h"

#include <QSocketNotifier>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace orrery {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};
int g_pair[2] = {-1, -1};
struct sigaction g_old[std::size(kSignals)];

void OnSignal(int number) {
    // Only what is safe in a handler: one byte down the pair. A second signal while the first
    // is still being handled finds the default action back in place and ends the program.
    const char byte = static_cast<char>(number);
    [[maybe_unused]] const auto written = ::write(g_pair[0], &byte, 1);
    std::signal(number, SIG_DFL);
}

} // namespace

QuitSignals::QuitSignals(QObject *parent) : QObject(parent) {
    if (g_pair[0] >= 0 || ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_pair) != 0) return;
    m_notifier = new QSocketNotifier(g_pair[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(g_pair[1], &byte, 1) == 1) emit arrived();
    });
    struct sigaction action {};
    action.sa_handler = OnSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], &action, &g_old[i]);
}

QuitSignals::~QuitSignals() {
    if (!m_notifier) return;
    for (std::size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], &g_old[i], nullptr);
    delete m_notifier;
    ::close(g_pair[0]);
    ::close(g_pair[1]);
    g_pair[0] = g_pair[1] = -1;
}

} // namespace orrery
