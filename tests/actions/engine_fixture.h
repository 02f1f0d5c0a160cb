// A game without a display for the engine's tests: a project, a small world, and a host that
// records its yields and answers questions from a list.
#pragma once

#include <deque>
#include <functional>

#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "foundation/random.h"
#include "network/directory.h"
#include "network/generator.h"

namespace orrery::test {

class ScriptedHost : public Host {
public:
    void Yield() override {
        ++yields;
        if (onYield) {
            auto pending = std::move(onYield); // runs once, inside the yielding statement
            onYield = nullptr;
            pending();
        }
    }
    void Sleep(int milliseconds) override { slept += milliseconds; }
    void ResumeMusic() override { ++resumes; }
    std::string Ask(const std::string &, const std::string &, const std::string &) override {
        if (answers.empty()) return "";
        std::string answer = answers.front();
        answers.pop_front();
        return answer;
    }

    int yields = 0;
    int slept = 0;
    int resumes = 0;
    std::deque<std::string> answers;
    std::function<void()> onYield;
};

struct EngineFixture {
    ProjectModel project;
    ServerDirectory world;
    WordBank words;
    Random random{42};
    ScriptedHost host;
    Game game{project, world, words, random, host};

    // Declares variables in order, as a project's [variables] section does.
    void Declare(std::initializer_list<std::pair<const char *, const char *>> variables) {
        int row = 0;
        for (const auto &[name, value] : variables) game.VariableTable.Set(++row, {name, value});
    }
    std::string Var(std::string_view name) { return GetVariable(game, name); }
    void Run(const std::string &sequence) { RunSequence(game, sequence, 0, 0); }
    // Adds an element row and, with a control, makes it live as if its tool were open.
    ElementControl *Element(int row, const std::string &name, bool live = true) {
        project.Element(row)[0] = name;
        project.Element(row)[1] = "atool:t";
        return live ? &game.desk.LoadControl(row, name, KindOfName(name)) : nullptr;
    }
};

} // namespace orrery::test
