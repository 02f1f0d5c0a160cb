// Sequences as authors write them: loops, jumps, conditions, qlobs, the gun, and the walks
// that would once have stopped the program.
#include <gtest/gtest.h>

#include "engine_fixture.h"
#include "foundation/convert.h"

namespace orrery {
namespace {

const std::string kAppend = "$log = RETURN_COMPLEX [$log ";

// Runs a sequence on a fresh game with $log, $a, $b, $total declared; returns $log.
std::string Log(const std::string &sequence, std::function<void(test::EngineFixture &)> setup = {}) {
    test::EngineFixture f;
    f.Declare({{"$log", ""}, {"$a", "2"}, {"$b", "4"}, {"$total", "3"}, {"$word", "Abc"}});
    if (setup) setup(f);
    f.Run(sequence);
    return f.Var("$log");
}

TEST(RunSequence, ControlFormsOfTheLanguage) {
    struct Case {
        const char *sequence;
        const char *log;
    };
    const Case cases[] = {
        {"", ""},
        {"$log = RETURN_COMPLEX [a]``$log = RETURN_COMPLEX [$log b]", "a b"},
        {"$log = RETURN_COMPLEX [a]```$log = RETURN_COMPLEX [$log b]", "a b"},
        {"$log = RETURN_COMPLEX [a]` ` `$log = RETURN_COMPLEX [$log b]", "a"},
        {"FOR $v = 1 TO 3`$log = RETURN_COMPLEX [$log $v]`NEXT $v", "1 2 3"},
        {"FOR $v = 5 TO 3`$log = RETURN_COMPLEX [$log $v]`NEXT $v", "5"},
        {"FOR $v = $a TO $b`$log = RETURN_COMPLEX [$log $v]`NEXT $v", "2 3 4"},
        {"FOR $v = $total TO 5`$log = RETURN_COMPLEX [$log $v]`NEXT $v", "3"},
        {"FOR $v = 1 TO 2`$log = RETURN_COMPLEX [$log $value]`NEXT $v", "1alue 2alue"},
        {"FOR $v = 1 TO 2`$log = RETURN_COMPLEX [$log x]`NEXT", "x"},
        {"_GOTO [end]`$log = RETURN_COMPLEX [skipped]`~end`$log = RETURN_COMPLEX [$log end]", "end"},
        {"$log = RETURN_COMPLEX [a]`_GOTO nowhere`$log = RETURN_COMPLEX [lost]", "a"},
        {"$log = RETURN_COMPLEX [a] {$a = 2}`$log = RETURN_COMPLEX [$log b] {$a = 3}", "a"},
        {"$log = RETURN_COMPLEX [a]`EXIT_SEQUENCE`$log = RETURN_COMPLEX [$log b]", "a"},
        {"FOR $v = 1 TO 99999`$log = RETURN_COMPLEX [x]`NEXT $v", "x"}, // ends at the counter's limit
        {"FOR $v = 1`$log = RETURN_COMPLEX [x]`NEXT $v", ""},
    };
    for (const Case &c : cases) EXPECT_EQ(Log(c.sequence), c.log) << c.sequence;
}

TEST(EvalCondition, OperatorByPresenceAndOperandsByLookup) {
    struct Case {
        const char *condition;
        bool holds;
    };
    const Case cases[] = {
        {"$word = abc", true},  {"$a = 2.0", true},   {"$a < abc", false}, {"$a > abc", false},
        {"$a < $b", true},      {"$b > $a", true},    {"$a <= 3", false},  {"$a >= 2", false},
        {"$a", false},          {"my_var = 5", true}, {"labelx = hi", true}, {"$a < 10", true},
    };
    for (const Case &c : cases) {
        test::EngineFixture f;
        f.Declare({{"$a", "2"}, {"$b", "4"}, {"$word", "ABC"}, {"myvar", "5"}});
        f.Element(1, "labelx")->caption = "HI";
        EXPECT_EQ(EvalCondition(f.game, c.condition), c.holds) << c.condition;
    }
}

TEST(Substitution, SpecialsInTheirBindingOrder) {
    test::EngineFixture f;
    f.Declare({{"$x", ""}, {"$a", "short"}, {"$ab", "long"}, {"$abcdefghijklmnopqrst", "21"},
               {"$abcdefghijklmnopqrstu", "22"}});
    f.game.PlayerName = " Kim ";
    f.game.CurrentArrayIndex = " 3 ";
    EXPECT_EQ(ExpandSpecials(f.game, "   "), "");
    EXPECT_EQ(ExpandSpecials(f.game, "$playername:$Score:$ab:$a:slot(?)"), "Kim:$Score:long:short:slot(3)");
    // A name of 22 characters is never substituted, so a shorter one takes its front.
    EXPECT_EQ(ExpandSpecials(f.game, "$abcdefghijklmnopqrst $abcdefghijklmnopqrstu"), "21 21u");
    std::string longName = "$abcdefghijklmnopqrstu";
    EXPECT_EQ(LookupValue(f.game, longName), "22");
    for (int i = 0; i < 100; ++i) {
        const std::string r25 = ExpandSpecials(f.game, "$random25");
        EXPECT_TRUE(r25 == "15" || r25 == "25") << r25;
        const int r1000 = std::stoi(ExpandSpecials(f.game, "$random1000"));
        EXPECT_TRUE(r1000 % 10 == 0 && r1000 >= 10 && r1000 <= 1000) << r1000;
    }
    EXPECT_EQ(ExpandSpecials(f.game, "_$a ($a)"), "short (short)");
}

TEST(Substitution, ElementNamesReadTheirContentInLoadOrder) {
    test::EngineFixture f;
    f.Element(1, "labelname")->caption = "Moira";
    f.Element(2, "textname")->text = "typed";
    f.Element(3, "buttonclosed", false);
    EXPECT_EQ(ExpandSpecials(f.game, "hi labelname, textnamed"), "hi Moira, typedd");
    std::string name = "text_name";
    EXPECT_EQ(LookupValue(f.game, name), "typed");
    EXPECT_EQ(name, "textname");
}

TEST(Variables, SetCreateAndIndexedTargets) {
    test::EngineFixture f;
    f.Declare({{"$i", "2"}, {"$slot(2)", "old"}, {"$who", "x"}});
    RunStatement(f.game, "$slot($i) = RETURN_COMPLEX [new]");
    EXPECT_EQ(f.Var("$slot(2)"), "new");
    EXPECT_EQ(SetVariable(f.game, "$nobody", "1"), 0);
    CreateVariable(f.game, "[$fresh]", "[Bob]");
    EXPECT_EQ(f.Var("$fresh"), "bob");
    CreateVariable(f.game, "$who", "y"); // the name expands to the value of $who
    EXPECT_EQ(f.Var("x"), "y");
    EXPECT_EQ(f.Var("$who"), "x");
}

TEST(Qlobs, PrefixMatchAndCancelEndsOnlyTheQlob) {
    EXPECT_EQ(Log("QLOB [scan]`$log = RETURN_COMPLEX [$log after]",
                  [](test::EngineFixture &f) {
                      f.project.QlobTable[1] = "scanner $log = RETURN_COMPLEX [$log first]`EXIT_SEQUENCE`"
                                               "$log = RETURN_COMPLEX [$log never]";
                      f.project.QlobTable[2] = "scan $log = RETURN_COMPLEX [$log second]";
                  }),
              "first after");
    EXPECT_EQ(Log("QLOB [none]`QLOB []"), "");
}

TEST(Containment, RunawayWalksEndQuietly) {
    // A qlob that calls itself ends at the depth limit; a jump loop without a statement ends.
    EXPECT_EQ(Log("QLOB [loop]`$log = RETURN_COMPLEX [$log done]",
                  [](test::EngineFixture &f) {
                      f.project.QlobTable[1] = "loop $log = RETURN_COMPLEX [x]`QLOB [loop]";
                  }),
              "x done");
    EXPECT_EQ(Log("~top`_GOTO top`$log = RETURN_COMPLEX [never]"), "");
    test::EngineFixture f;
    RunSequence(f.game, "$log = RETURN_COMPLEX [x]", kElementRows + 1, 0);
    EXPECT_EQ(f.game.RunningSequences, 0);
    EXPECT_EQ(f.game.walkDepth, 0);
}

TEST(Gun, QueuedStatementsComeOutInOrderWithoutDuplicates) {
    test::EngineFixture f;
    f.Declare({{"$log", ""}});
    RunSequence(f.game, "$log = RETURN_COMPLEX [$log a]`$log = RETURN_COMPLEX [$log b]", 0, 1);
    EnqueueStatements(f.game, "$log = RETURN_COMPLEX [$log a]`$log = RETURN_COMPLEX [$log c] {$log = a b}");
    EXPECT_EQ(f.game.GunQueue[3], "$log = RETURN_COMPLEX [$log c] {$log = a b}");
    for (int tick = 0; tick < 4; ++tick) GunTick(f.game);
    EXPECT_EQ(f.Var("$log"), "a b c");
    EXPECT_TRUE(f.game.GunQueue[1].empty());

    std::string many;
    for (int i = 1; i <= 95; ++i) many += "s" + IntText(i) + "`";
    EnqueueStatements(f.game, many);
    EXPECT_EQ(f.game.GunQueue[kGunSlots], "s89");
}

TEST(Containment, StatementLoopsEndAtTheRunsStepLimit) {
    // Every field visited is a step, in the qlobs a run calls too; "tick" yields and does nothing.
    struct Case {
        const char *sequence;
        std::int64_t limit;
        int statements;
    };
    const Case cases[] = {
        {"~a`tick`_GOTO a", kMaxWalkSteps, 333333}, // the work, set out of reach, ends nothing
        {"~a`tick`tick {$a = 9}`_GOTO a", 3000, 750},
        {"~a`QLOB [spin]`_GOTO a", 3000, 1500}, // each turn: 3 steps here, 3 in the qlob
        {"QLOB [forever]`tick", 3000, 1001},    // the qlob's loop ends the caller too
    };
    for (const Case &c : cases) {
        test::EngineFixture f;
        f.Declare({{"$a", "2"}});
        f.project.QlobTable[1] = "spin tick`tick";
        f.project.QlobTable[2] = "forever ~b`tick`_GOTO b";
        f.game.walkStepLimit = c.limit;
        f.game.walkWorkLimit = INT64_MAX;
        f.Run(c.sequence);
        EXPECT_EQ(f.host.yields, c.statements) << c.sequence;
        EXPECT_EQ(f.game.walkDepth, 0);
        f.Run("tick"); // the next run has steps of its own
        EXPECT_EQ(f.host.yields, c.statements + 1) << c.sequence;
    }
}

TEST(Containment, RunsEndWhenTheirWorkIsSpent) {
    // Each would run to the step limit, for seconds to minutes; the work ends it far sooner.
    // The doubling stops where a delivery can't take its text, the qlob's caller never goes on.
    struct Case {
        const char *sequence;
        std::size_t logLength;
        int mostStatements;
    };
    const Case cases[] = {
        {"$log = RETURN_COMPLEX [x]`~top`$log = RETURN_COMPLEX [$log$log]`_GOTO [top]", 32768,
         2000},
        {"QLOB [twice]`$log = RETURN_COMPLEX [never]", 0, 40000},
        {"~a`$log = RETURN_RANDOM_CHAR [65535]`_GOTO a", 65535, 100},
        // Full of "$": each counts as a start looked at for a name, not as one byte.
        {"$log = RETURN_COMPLEX [$not]`~top`$log = RETURN_COMPLEX [$log$log]`_GOTO [top]", 32768,
         500},
    };
    for (const Case &c : cases) {
        test::EngineFixture f;
        f.Declare({{"$log", ""}});
        f.project.QlobTable[1] = "twice QLOB [twice]`QLOB [twice]";
        f.Run(c.sequence);
        EXPECT_GT(f.game.walkWork, kMaxWalkWork) << c.sequence;
        EXPECT_LT(f.host.yields, c.mostStatements) << c.sequence;
        EXPECT_EQ(f.Var("$log").size(), c.logLength) << c.sequence;
        const int yields = f.host.yields;
        f.Run("tick"); // the next run has work of its own
        EXPECT_EQ(f.host.yields, yields + 1) << c.sequence;
    }
}

TEST(Containment, AValueThatHoldsItsOwnNameIsReplacedOncePerPass) {
    // Expanded, then substituted again: two passes, each replacing the name once.
    const auto selfNamed = [](test::EngineFixture &f) { f.Declare({{"$log", "x$log"}}); };
    EXPECT_EQ(Log("$log = RETURN_COMPLEX [$log!]", selfNamed), "xx$log!");
}

TEST(Containment, AValueTooLongForADeliveryLeavesTheTargetAsItWas) {
    test::EngineFixture f;
    f.Declare({{"$log", "x"}});
    f.game.walkStepLimit = 60; // twenty turns of the loop
    f.Run("~a`$log = RETURN_COMPLEX [$log$log]`_GOTO a");
    EXPECT_EQ(f.Var("$log"), std::string(32768, 'x'));
}

} // namespace
} // namespace orrery
