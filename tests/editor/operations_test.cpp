// The editor's operations: their rules and words, and that each one is undone and redone to
// the byte of the project file.
#include "editor/sequences.h"
#include "editor/servers.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "fixture.h"
#include "project/elementprops.h"

#include <functional>
#include <gtest/gtest.h>

namespace orrery {
namespace {

using test::FileText;
using test::NewProject;

TEST(Transaction, ARefusalAfterWritesLeavesTheModelAsItWas) {
    ProjectModel model = NewProject();
    const std::string before = FileText(model);
    Outcome outcome;
    {
        Transaction t(model, "test");
        t.Set([](ProjectModel &m) -> std::string & { return m.settings.myprojectauthor; },
              std::string("Someone Else"));
        t.Set([](ProjectModel &m) -> std::string & { return m.QlobTable[3]; }, std::string("X"));
        EXPECT_EQ(model.QlobTable[3], "X") << "an operation reads its own writes";
        outcome = t.Refuse({"Error", "no"});
    }
    EXPECT_TRUE(outcome.refused());
    EXPECT_TRUE(outcome.change.empty());
    EXPECT_EQ(FileText(model), before);
}

TEST(EditorOperations, RulesAndWords) {
    struct Row {
        const char *what;
        std::function<Outcome(ProjectModel &)> run;
        std::optional<Message> refusal;
    };
    const auto full = [](auto fill, auto run) {
        return [fill, run](ProjectModel &m) {
            fill(m);
            return run(m);
        };
    };
    const Row rows[] = {
        {"a tool named as another, in another case",
         [](ProjectModel &m) { return AddTool(m, " connector "); }, Message{words::kToolExists}},
        {"the separator repeats",
         [](ProjectModel &m) {
             AddTool(m, "-");
             return AddTool(m, "-");
         },
         std::nullopt},
        {"the 99th tool",
         full(
             [](ProjectModel &m) {
                 for (int i = 1; i <= 99; ++i) m.ToolNameTable[i] = "t" + std::to_string(i);
             },
             [](ProjectModel &m) { return AddTool(m, "new"); }),
         Message{words::kTooManyTools}},
        {"a tool name with a colon", [](ProjectModel &m) { return AddTool(m, "a:b"); },
         Message{words::kUnwritableName}},
        {"the 251st variable",
         full(
             [](ProjectModel &m) {
                 for (int i = 1; i <= 250; ++i)
                     m.VariableTable[i] = {"$v" + std::to_string(i), "0"};
             },
             [](ProjectModel &m) { return AddXVar(m, "$w", "0"); }),
         Message{words::kTooManyVariables}},
        {"a variable named twice",
         [](ProjectModel &m) {
             AddXVar(m, "$a", "1");
             return AddXVar(m, "a", "2");
         },
         Message{words::kVariableExists}},
        {"a sub that is not an event",
         [](ProjectModel &m) { return SetToolSub(m, "Console", "opening", "X"); },
         Message{words::kNoSubChosen}},
        {"the 50th server field",
         full(
             [](ProjectModel &m) {
                 for (int i = 1; i <= 49; ++i)
                     m.ServerFieldTable[i] = "F" + std::to_string(i) + " (x)";
             },
             [](ProjectModel &m) { return AddServerField(m, "more", "x", false); }),
         Message{words::kTooManyFields}},
        {"a server field named twice",
         [](ProjectModel &m) { return AddServerField(m, "ip", "1.2.3.4", false); },
         Message{"Error", "A server field with that name already exists."}},
        {"a qlob named twice",
         [](ProjectModel &m) {
             AddQlob(m, "go on");
             return AddQlob(m, "GO_ON");
         },
         Message{words::kQlobExists}},
    };
    for (const Row &row : rows) {
        ProjectModel model = NewProject();
        const Outcome outcome = row.run(model);
        EXPECT_EQ(outcome.refusal, row.refusal) << row.what;
    }
}

TEST(EditorOperations, WhatTheyStore) {
    ProjectModel m = NewProject();
    const Outcome variable = AddXVar(m, "speed", "fast_and_far");
    ASSERT_EQ(variable.notes.size(), 1u);
    EXPECT_EQ(variable.notes[0], words::kUnderscoresToDashes);
    EXPECT_EQ(m.VariableTable[FirstFreeVariable(m) - 1].name, "$speed");
    EXPECT_EQ(m.VariableTable[FirstFreeVariable(m) - 1].value, "fast-and-far");

    ASSERT_FALSE(AddQlob(m, "open the gate").refused());
    ASSERT_FALSE(SetQlob(m, "Open the gate", "A [x: y]``  `B").refused()) << "named as typed";
    EXPECT_EQ(m.QlobTable[FindQlobByName(m, "OPEN_THE_GATE")], "OPEN_THE_GATE A [x; y]`B`");

    ASSERT_FALSE(AddTool(m, "Mail Box").refused());
    ASSERT_FALSE(SetToolSub(m, "mail box", "OPEN", "action:QLOB [X]").refused());
    EXPECT_EQ(m.ToolSubTable[1].key, "mailbox:open") << "the run-time's form of the tool's name";
    EXPECT_EQ(m.ToolSubTable[1].sequence, "QLOB [X]");
    EXPECT_EQ(ToolSubSequence(m, "MailBox", "Open"), "QLOB [X]");
    ASSERT_FALSE(SetToolSub(m, "Mail Box", "open", "").refused());
    EXPECT_TRUE(IsBlank(m.ToolSubTable[1].key)) << "an empty sequence removes the assignment";

    ASSERT_FALSE(AddServerField(m, "fuel", "RANDOM:1-10", true).refused());
    EXPECT_EQ(ServerFields(m).back(), "FUEL (RANDOM:1-10)*");
    ASSERT_FALSE(
        AddCustomServer(m, {{"FUEL", "a:b"}, {"hostname", "x.y"}, {"ip", "1.2.3.4"}}).refused());
    EXPECT_EQ(CustomServers(m).back().substr(0, 30), "ip=1.2.3.4:hostname=x.y:admin=");
    EXPECT_NE(CustomServers(m).back().find("fuel=a-b:"), std::string::npos);
    EXPECT_TRUE(SetRandomServers(m, "750").refused());

    ASSERT_FALSE(SetHelp(m, "Intro", "one\r\ntwo: three").refused());
    EXPECT_EQ(m.HelpTable[FirstFreeSlot(m.HelpTable, 0) - 1], "Intro:one//two: three");
}

TEST(EditorOperations, TheSideMenusOrderExclusionsAndHiddenEntries) {
    ProjectModel m = NewProject(); // Connector, Console, Hyperqube, Mail System, ...
    ASSERT_FALSE(HideTool(m, "Mail System", true).refused());
    ASSERT_FALSE(HideTool(m, "console", true).refused());
    EXPECT_EQ(m.settings.myhiddentools, "mail system:console") << "as the reader gives it";
    ASSERT_FALSE(HideTool(m, "MAIL SYSTEM", false).refused());
    EXPECT_EQ(m.settings.myhiddentools, "console");
    EXPECT_TRUE(SideMenuHidden(m.settings, "Console"));
    EXPECT_FALSE(SideMenuHidden(m.settings, "Mail System"));
    ASSERT_FALSE(ExcludeTool(m, "Hyperqube", true).refused());
    EXPECT_TRUE(SideMenuExcluded(m.settings, "Hyperqube"));
    EXPECT_FALSE(SideMenuExcluded(m.settings, "Console"));

    EXPECT_TRUE(MoveTool(m, 1, true).change.empty()) << "the first goes no higher";
    m.ToolNameTable[3] = "";
    ASSERT_FALSE(MoveTool(m, 2, false).refused());
    EXPECT_EQ(ToolNames(m)[1], "Mail System") << "a blank slot is passed over";
    EXPECT_EQ(m.ToolNameTable[4], "Console");
    EXPECT_EQ(MoveTool(m, 3, false).refusal, words::kNoSuchTool);
    EXPECT_TRUE(MoveTool(m, 9, false).change.empty()) << "nor the last lower";
}

TEST(EditorOperations, EachIsUndoneAndRedoneToTheByte) {
    const std::pair<const char *, std::function<Outcome(ProjectModel &)>> steps[] = {
        {"add-tool", [](ProjectModel &m) { return AddTool(m, "Scanner"); }},
        {"remove-tool", [](ProjectModel &m) { return RemoveTool(m, "Mail System"); }},
        {"exclude-tool", [](ProjectModel &m) { return ExcludeTool(m, "Console", true); }},
        {"hide-tool", [](ProjectModel &m) { return HideTool(m, "Console", true); }},
        {"move-tool", [](ProjectModel &m) { return MoveTool(m, 2, true); }},
        {"add-var", [](ProjectModel &m) { return AddXVar(m, "$gold", "5"); }},
        {"set-var", [](ProjectModel &m) { return SetVarValue(m, "player", "Neo"); }},
        {"remove-var", [](ProjectModel &m) { return RemoveVar(m, "$player"); }},
        {"add-qlob", [](ProjectModel &m) { return AddQlob(m, "tick"); }},
        {"set-sequence",
         [](ProjectModel &m) { return SetToolSub(m, "Mail System", "close", "A`B"); }},
        {"main-load", [](ProjectModel &m) { return SetMainLoad(m, "QLOB [TICK]"); }},
        {"set-help", [](ProjectModel &m) { return SetHelp(m, "Keys", "F1"); }},
        {"set-setting", [](ProjectModel &m) { return SetSetting(m, "helpon", "False"); }},
        {"add-field", [](ProjectModel &m) { return AddServerField(m, "os", "RANDOM:WORD", true); }},
        {"remove-field", [](ProjectModel &m) { return RemoveServerField(m, "hostname"); }},
        {"add-server",
         [](ProjectModel &m) {
             return AddCustomServer(m, {{"ip", "9.9.9.9"}});
         }},
        {"random servers", [](ProjectModel &m) { return SetRandomServers(m, "1"); }},
    };
    for (const auto &[what, step] : steps) {
        ProjectModel model = NewProject();
        const std::string before = FileText(model);
        const Outcome outcome = step(model);
        ASSERT_FALSE(outcome.refused()) << what << ": " << outcome.refusal->text;
        const std::string after = FileText(model);
        EXPECT_NE(after, before) << what;
        outcome.change.Undo(model);
        EXPECT_EQ(FileText(model), before) << what;
        outcome.change.Redo(model);
        EXPECT_EQ(FileText(model), after) << what;
    }
}

} // namespace
} // namespace orrery
