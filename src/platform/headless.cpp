// The headless host.
#include "platform/headless.h"

#include "desk/timers.h"

namespace orrery {

void HeadlessHost::Yield() {
    // A tick's own statements yield too; ticks due at this moment have already been moved on.
    if (!m_game || m_depth > 0) return;
    ++m_depth;
    RunDueTimers(*m_game, m_game->now);
    --m_depth;
}

std::string HeadlessHost::Ask(const std::string &question, const std::string &option1,
                              const std::string &option2) {
    questions.push_back(question + " [" + option1 + "] [" + option2 + "]");
    if (answers.empty()) return "";
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
}

} // namespace orrery
