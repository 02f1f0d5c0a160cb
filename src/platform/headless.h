// A host without a display: a virtual clock, answers given in advance, and a record of what
// would have been shown or played. Tests and the orrery tool play whole games with it.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "actions/game.h"

namespace orrery {

class HeadlessHost : public Host {
public:
    void Bind(Game *game) override { m_game = game; }
    // Ticks that fell due, after a WAIT for instance, run inside the yield.
    void Yield() override;
    void Sleep(int milliseconds) override { slept += milliseconds; }
    std::string Ask(const std::string &question, const std::string &option1,
                    const std::string &option2) override;
    void PlaySound(const std::string &file) override { sounds.push_back(file); }
    void PlayCounterAudio(const std::string &file) override { sounds.push_back(file); }
    void ShowMessageBox(const std::string &text) override { messageBoxes.push_back(text); }

    std::deque<std::string> answers; // the next RETURN_ASK takes the first
    std::vector<std::string> questions;
    std::vector<std::string> sounds;
    std::vector<std::string> messageBoxes;
    long long slept = 0;

private:
    Game *m_game = nullptr;
    int m_depth = 0;
};

} // namespace orrery
