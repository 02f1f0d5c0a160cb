// How a statement is cut and dispatched, and how arguments are read.
#include <gtest/gtest.h>

#include <set>

#include "engine_fixture.h"

namespace orrery {
namespace {

TEST(BracketArg, BracketsQuoteAndBlanksSeparate) {
    struct Case {
        const char *rest;
        int index;
        const char *arg;
    };
    const Case cases[] = {
        {"[a] [b]", 1, "a"},          {"[a] [b]", 2, "b"},      {"[a][b]", 1, "ab"},
        {"[a]  [b]", 2, ""},          {"[a]  [b]", 3, "b"},     {"two words", 2, "words"},
        {"[my tool] x", 1, "my tool"}, {"[ballloon]", 1, "baoon"}, {"[a] [b]", 3, ""},
        {"[a [b] c]", 1, "a b"},      {"[a]", 0, ""},
    };
    for (const Case &c : cases) EXPECT_EQ(BracketArg(c.rest, c.index), c.arg) << c.rest << " " << c.index;
}

TEST(RunStatement, TheFirstEqualsAndTheFirstBlankDecide) {
    struct Case {
        const char *statement;
        const char *x; // $x afterwards
    };
    const Case cases[] = {
        {"$x = RETURN_COMPLEX [$a + 1]", "8"},
        {"$x=RETURN_COMPLEX [$a + 1]", "8"},
        {"$x = RETURN_COMPLEX[$a + 1]", "0"},
        {"$X = return_Complex [5]", "5"},
        {"action:$x = ACTION:RETURN_COMPLEX [6]", "6"},
        {"aCTION:$x = RETURN_COMPLEX [6]", "0"},
        {"$x = RETURN_COMPLEX [a=b]", "a=b"}, // only the first "=" splits
        {"$x = RETURN_COMPLEX [9] {$a = 7}", "0"}, // a condition outside a walk: nothing
        {"action:", "0"},
        {"$x = NO_SUCH_FUNCTION [1]", "0"},
    };
    for (const Case &c : cases) {
        test::EngineFixture f;
        f.Declare({{"$x", "0"}, {"$a", "7"}});
        EXPECT_EQ(RunStatement(f.game, c.statement), "") << c.statement;
        EXPECT_EQ(f.Var("$x"), c.x) << c.statement;
    }
}

TEST(RunStatement, EveryStatementYieldsOnceAndAPendingClickRunsInside) {
    test::EngineFixture f;
    f.Declare({{"$log", ""}});
    f.host.onYield = [&] { f.Run("$log = RETURN_COMPLEX [$log clicked]"); };
    f.Run("$log = RETURN_COMPLEX [$log first]`$log = RETURN_COMPLEX [$log second]");
    // The click ran inside the first statement's yield, before that statement read $log.
    EXPECT_EQ(f.Var("$log"), "clicked first second");
    EXPECT_EQ(f.host.yields, 3);
}

TEST(ReturnComplex, ArithmeticChainsAndText) {
    struct Case {
        const char *expression;
        const char *value;
    };
    const Case cases[] = {
        {"[$score + 12000]", "12100"}, {"[hello]", "hello"},       {"[-]", "-"},
        {"[3.7]", "3.7"},              {"[3.7 + 0]", "3"},         {"[2 + 3 * 4]", "20"},
        {"[7 / 2 * 2]", "7"},          {"[0 - 7 / 2]", "-4"},      {"[1 / 0]", "1 / 0"},
        {"[abc-def]", "abc-def"},      {"[+5]", "+5"},             {"[-5 + 3]", "-2"},
        {"[5 * -3]", "-3"},            {"[2007-04-05]", "1998"},   {"[12 + abc]", "12"},
        {"[$name + 1]", "bob + 1"},    {"[$score] + [$score]", "200"},
    };
    for (const Case &c : cases) {
        test::EngineFixture f;
        f.Declare({{"$x", ""}, {"$score", "100"}, {"$name", "bob"}});
        RunStatement(f.game, std::string("$x = RETURN_COMPLEX ") + c.expression);
        EXPECT_EQ(f.Var("$x"), c.value) << c.expression;
    }
}

TEST(ValueFunctions, TheFamilyOnVariables) {
    struct Case {
        const char *statement;
        const char *value;
    };
    const Case cases[] = {
        {"$x = RETURN_LENGTH []", "0"},
        {"$x = RETURN_LENGTH [ abc ]", "3"},
        {"$x = RETURN_MID [$name] [2] [3]", "BCD"},
        {"$x = RETURN_MID [abc] [0] [2]", ""},
        {"$x = RETURN_INSTR [$name] [cd]", "3"},
        {"$x = RETURN_RANDOM [5] [5]", "5"},
        {"$x = RETURN_TIMEFORMAT [0]", "0:00"},
        {"$x = RETURN_TIMEFORMAT [75]", "1:15"},
        {"$x = RETURN_TIMEFORMAT [3600]", "60:00"},
        {"$x = RETURN_TIMEFORMAT [-5]", "0:-05"},
        {"$x = RETURN_TIMEFORMAT [7]", "0:07"},
        {"$x = RETURN_ASC [A]", "65"},
        {"$x = RETURN_CHR [66]", "B"},
        {"$x = RETURN_UCASE [$name]", "ABCDE"},
        {"$x = RETURN_LCASE [$name]", "abcde"},
        {"$x = RETURN_REVERSE [$flag]", "false"},
        {"$x = RETURN_REVERSE [1]", "0"},
        {"$x = RETURN_REVERSE [stressed]", "desserts"},
        {"$x = RETURN [$name]", "ABCDE"},
        {"$x = RETURN_IP [nowhere.net]", "Server Not Found"},
        {"$x = RETURN_SERVER_PROPERTY [nowhere.net] [os]", "Not Found"},
    };
    for (const Case &c : cases) {
        test::EngineFixture f;
        f.Declare({{"$x", "unset"}, {"$name", "ABCDE"}, {"$flag", "TRUE"}});
        RunStatement(f.game, c.statement);
        EXPECT_EQ(f.Var("$x"), c.value) << c.statement;
    }
}

TEST(ValueFunctions, RandomRangesHold) {
    test::EngineFixture f;
    f.Declare({{"$x", ""}});
    std::set<std::string> seen;
    for (int i = 0; i < 300; ++i) {
        RunStatement(f.game, "$x = RETURN_RANDOM [9] [1]");
        seen.insert(f.Var("$x"));
        RunStatement(f.game, "$x = RETURN_RANDOM_CHAR [0]");
        EXPECT_EQ(f.Var("$x").size(), 1u);
    }
    // 9 needs a draw of exactly 0.
    EXPECT_EQ(seen, (std::set<std::string>{"2", "3", "4", "5", "6", "7", "8"}));
}

TEST(ValueFunctions, ResultsReachElementsByTheirKind) {
    test::EngineFixture f;
    ElementControl *label = f.Element(1, "labelstatus");
    ElementControl *list = f.Element(2, "listhosts");
    ElementControl *text = f.Element(3, "textinput");
    f.Element(4, "labelclosed", false);
    RunStatement(f.game, "labelstatus = RETURN_COMPLEX [a//b]");
    RunStatement(f.game, "LISTHOSTS = RETURN_COMPLEX [one]");
    RunStatement(f.game, "listhosts = RETURN_COMPLEX [two]");
    RunStatement(f.game, "listhosts = RETURN [one]");
    RunStatement(f.game, "textinput = RETURN [labelstatus]");
    RunStatement(f.game, "labelclosed = RETURN_COMPLEX [x]");
    EXPECT_EQ(label->caption, "a\r\nb");
    EXPECT_EQ(list->items, (std::vector<std::string>{"one", "two"}));
    EXPECT_EQ(list->listIndex, 0);
    EXPECT_EQ(text->text, "a\r\nb");
}

TEST(ValueFunctions, RefusalsCancelTheWalk) {
    test::EngineFixture f;
    f.Declare({{"$x", ""}, {"$after", "no"}, {"$exists", ""}});
    f.project.QlobTable[1] = "missing $after = RETURN_COMPLEX [from qlob]";
    f.host.answers = {"No", "Yes"};
    f.Run("$x = RETURN_ASK [Sure?] [Yes] [No] [enabled]`$after = RETURN_COMPLEX [ran]");
    EXPECT_EQ(f.Var("$x"), "");
    EXPECT_EQ(f.Var("$after"), "no");
    f.Run("$x = RETURN_ASK [Sure?] [Yes] [No] [enabled]`$after = RETURN_COMPLEX [ran]");
    EXPECT_EQ(f.Var("$x"), "Yes");
    EXPECT_EQ(f.Var("$after"), "ran");
    f.Run("$exists = RETURN_SERVER_EXISTS [nowhere.net] [x] [missing]`$after = RETURN_COMPLEX [late]");
    EXPECT_EQ(f.Var("$exists"), "false");
    EXPECT_EQ(f.Var("$after"), "from qlob");
}

} // namespace
} // namespace orrery
