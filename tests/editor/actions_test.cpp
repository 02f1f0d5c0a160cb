// The action editor's operations: a sequence into the list and back, statements composed from
// the catalogue and read back, conditions, the variable list, and a save as one step.
#include "editor/actions.h"
#include "editor/elements.h"
#include "editor/fixture.h"
#include "editor/sequences.h"
#include "editor/words.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

using Lines = std::vector<std::string>;

TEST(ActionList, StoredSequencesLoadIntoLinesAndSaveBack) {
    struct Row {
        std::string stored;
        Lines lines;
        std::string saved;
    } rows[] = {
        {"  ", {}, "action:"},
        {"action:OPEN [x]`` : `WAIT [5]`",
         {"     OPEN [x]", "     WAIT [5]"},
         "action:     OPEN [x]`     WAIT [5]`"},
        // Control lines stand out: labels, jumps and a loop's ends are not indented.
        {"~TOP`_GOTO [TOP]`FOR $v = 1 TO 3`next $v`$a = RETURN_COMPLEX [1]`",
         {"~TOP", "_GOTO [TOP]", "FOR $v = 1 TO 3", "next $v", "     $a = RETURN_COMPLEX [1]"},
         "action:~TOP`_GOTO [TOP]`FOR $v = 1 TO 3`next $v`     $a = RETURN_COMPLEX [1]`"},
        // "_$" is the escape of "$", and a colon can't stand in a field of the file.
        {"MESSAGE [a: b] [_$x]", {"     MESSAGE [a: b] [_$x]"}, "action:     MESSAGE [a; b] [$x]`"},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(LoadActions(row.stored), row.lines) << row.stored;
        EXPECT_EQ(SavedActions(row.lines), row.saved) << row.stored;
    }
}

TEST(ActionList, EveryStatementIsKeptHoweverMany) {
    std::string stored;
    for (int i = 1; i <= 60; ++i) stored += "WAIT [" + std::to_string(i) + "]`";
    const Lines lines = LoadActions(stored);
    ASSERT_EQ(lines.size(), 60u);
    EXPECT_EQ(lines.back(), "     WAIT [60]");
}

TEST(ActionList, PasteCopyAndTheTextViewGoBackAndForth) {
    EXPECT_EQ(PasteLines("OPEN [x]\r\n\n:\n  _GOTO [A]\n~A\nFOR $v = 1 TO 2\n"),
              (Lines{"     OPEN [x]", "_GOTO [A]", "~A", "     FOR $v = 1 TO 2"}));
    const Lines list{"~A", "     OPEN [x]", "FOR $v = 1 TO 2", "     FOR $v = 1 TO 2", "NEXT $v"};
    EXPECT_EQ(CopyLines(list), "~A\n     OPEN [x]\nFOR $v = 1 TO 2\n     FOR $v = 1 TO 2\nNEXT $v\n");
    EXPECT_EQ(ActionsFromText(ActionsText(list)), list);
    // A line typed without its indent gets it, as a loaded one would.
    EXPECT_EQ(ActionsFromText("OPEN [y]\n\n~B"), (Lines{"     OPEN [y]", "~B"}));
}

ArgumentInput Text(std::string text) { return {false, std::move(text)}; }
ArgumentInput Listed(std::string text) { return {true, std::move(text)}; }

TEST(AddAccion, ComposesTheLinesOfAStatement) {
    struct Row {
        const char *why;
        Composition composition;
        Lines lines;
    } rows[] = {
        {"a command", {"open", {}, {Listed("Cracker")}, "None"}, {"     OPEN [Cracker]"}},
        {"a target cut before its paren, a condition",
         {"RETURN_COMPLEX", "_$slot(?) ", {Text("$a + ($b)")}, "$a = 1"},
         {"     _$slot = RETURN_COMPLEX [$a + ($b)] {$a = 1}"}},
        {"an empty argument, a colon in a text",
         {"MESSAGE", {}, {Text(""), Text("Time: now")}, ""},
         {"     MESSAGE [] [Time; now]"}},
        {"a list entry cut before its caption",
         {"ELEMENT_HIDE", {}, {Listed("Cracker"), Listed("labelstatus (Ready)")}, ""},
         {"     ELEMENT_HIDE [Cracker] [labelstatus]"}},
        {"a list's \"not used\" ends the statement",
         {"RETURN_COMPLEX", "$a", {Text("1"), Listed("NOT USED"), Text("2")}, ""},
         {"     $a = RETURN_COMPLEX [1]"}},
        {"a jump and its label, sanitised and in upper case",
         {"_GOTO", {}, {Text("the end!")}, "$a = 2"},
         {"_GOTO [THE END] {$A = 2}", "~THE END"}},
        {"a loop's two ends", {"_FOR", {}, {Text("1"), Text("$n")}, ""},
         {"FOR $v = 1 TO $n", "NEXT $v"}},
    };
    for (const Row &row : rows) {
        const Composed composed = AddAccion(row.composition);
        EXPECT_FALSE(composed.refusal) << row.why;
        EXPECT_EQ(composed.lines, row.lines) << row.why;
    }
    const Composed untagged = AddAccion({"_GOTO", {}, {Text(" ")}, ""});
    EXPECT_TRUE(untagged.lines.empty());
    EXPECT_EQ(untagged.refusal, words::kGotoNeedsTag);
}

TEST(AddAccion, ALineLoadsBackIntoItsFunction) {
    struct Row {
        const char *line;
        const char *function; // nullptr: not a function of the catalogue
        std::string target;
        Lines arguments;
        std::string condition;
    } rows[] = {
        {"     ELEMENT_HIDE [Cracker] [labelstatus]", "ELEMENT_HIDE", "", {"Cracker", "labelstatus"}, ""},
        {" $a = return_complex [1 = 1] [] {$b = 2}", "RETURN_COMPLEX", "$a", {"1 = 1", ""}, "$b = 2"},
        {"FOR $v = 1 TO $n", "_FOR", "", {"1", "$n"}, ""},
        {"_GOTO [END]", "_GOTO", "", {"END"}, ""},
        {"EXIT_GAME", "EXIT_GAME", "", {}, ""},
        {"~END", nullptr, "", {}, ""},
        {"NEXT $v", nullptr, "", {}, ""},
        {"RETURN [x]", nullptr, "", {}, ""},
    };
    for (const Row &row : rows) {
        const auto loaded = GetFunctionIndex(row.line);
        ASSERT_EQ(loaded.has_value(), row.function != nullptr) << row.line;
        if (!loaded) continue;
        EXPECT_EQ(loaded->entry->name, row.function) << row.line;
        EXPECT_EQ(loaded->target, row.target) << row.line;
        EXPECT_EQ(loaded->arguments, row.arguments) << row.line;
        EXPECT_EQ(loaded->condition, row.condition) << row.line;
    }
}

TEST(Conditions, OneOrOnePerNumberOfTheLoop) {
    EXPECT_EQ(BuildConditions({" $a", "=", "3 ", false, ""}).conditions, Lines{"$a = 3"});
    EXPECT_EQ(BuildConditions({"$a", ">", "3", true, "5"}).conditions,
              (Lines{"$a > 3", "$a > 4", "$a > 5"}));
    EXPECT_EQ(BuildConditions({"$a", "<", "x", false, "5"}).conditions, Lines{"$a < x"});
    for (const ConditionForm &form : {ConditionForm{"", "=", "1", false, ""}, ConditionForm{"$a", "", "1", false, ""},
                                      ConditionForm{"$a", "=", " ", false, ""}}) {
        const BuiltConditions built = BuildConditions(form);
        EXPECT_TRUE(built.conditions.empty());
        EXPECT_EQ(built.refusal, words::kFieldsIncomplete);
    }
    EXPECT_EQ(BuildConditions({"$a", "=", "1", true, "501"}).conditions.size(), 501u);
    EXPECT_EQ(BuildConditions({"$a", "=", "1", true, "1000000000"}).refusal, words::kLoopTooLong)
        << "a loop of a billion conditions is refused, not built";
}

TEST(ActionLists, VariablesAreOfferedWithAnUnderscoreAndArraysByTheirFirstItem) {
    ProjectModel model = test::NewProject();
    model.VariableTable[3] = {"$slot(1)", "a"};
    model.VariableTable[4] = {"$slot(2)", "b"};
    EXPECT_EQ(LoadList6(model), (Lines{"_$score", "_$player", "_$slot(?)"}));
}

TEST(StoreActions, ASaveIsOneStepWhereverTheSequenceLives) {
    ProjectModel model = test::NewProject();
    ASSERT_FALSE(AddQlob(model, "gate").refused());
    ASSERT_FALSE(AddElement(model, "Connector", ElementKind::Button, "fire").refused());
    const Lines lines{"     MESSAGE [a: b] [_$x]", "~END"};
    const SequencePlace places[] = {
        {SequencePlace::Kind::Element, "Connector", "buttonfire"},
        {SequencePlace::Kind::Qlob, "", "GATE"},
        {SequencePlace::Kind::ToolSub, "Connector", "open"},
        {SequencePlace::Kind::MainLoad, "", ""},
    };
    for (const SequencePlace &place : places) {
        const std::string before = test::FileText(model);
        Outcome outcome = StoreActions(model, place, lines);
        ASSERT_FALSE(outcome.refused()) << outcome.refusal->text;
        EXPECT_EQ(LoadActions(StoredActions(model, place)),
                  (Lines{"     MESSAGE [a; b] [$x]", "~END"}));
        outcome.change.Undo(model);
        EXPECT_EQ(test::FileText(model), before);
    }
    EXPECT_EQ(ActionCaption(model, places[0]), "Assign Actions [Connector -> buttonfire]");
    EXPECT_EQ(ActionCaption(model, places[3]), "Assign Actions [ main-load ]");
}

} // namespace
} // namespace orrery
