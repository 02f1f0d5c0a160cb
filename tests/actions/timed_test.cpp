// Counters, flashers, WAIT and MOVE on the game's clock.
#include "desk/timers.h"
#include "engine_fixture.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

struct Clocked : test::EngineFixture {
    Clocked() {
        Declare({{"$log", ""}, {"$left", "3"}, {"$other", "2"}});
        project.QlobTable[1] = "tick $log = RETURN_COMPLEX [$log t$left]";
        project.QlobTable[2] = "boom $log = RETURN_COMPLEX [$log boom]";
        project.QlobTable[3] = "bang $log = RETURN_COMPLEX [$log bang]";
    }
    void Advance(std::int64_t ms) { RunDueTimers(game, game.now + ms); }
};

TEST(Counters, CountDownRunTheIntervalQlobThenTheFinale) {
    Clocked f;
    RunStatement(f.game, "QLOB_COUNTER [boom] [tick] [$left] [100]");
    f.Advance(999);
    EXPECT_EQ(f.Var("$log"), "");
    f.Advance(1);
    EXPECT_EQ(f.Var("$log"), "t2");
    f.Advance(5000);
    EXPECT_EQ(f.Var("$log"), "t2 t1 t0 boom");
    EXPECT_TRUE(f.game.timers.qlob.empty());
}

TEST(Counters, EndedTimersLeaveTheTicksAlone) {
    // Ten thousand restarts, kills or flashes leave only what still runs for a tick to visit.
    struct Case {
        const char *statements;
        std::size_t counters;
        std::size_t flashers;
    };
    const Case cases[] = {
        {"QLOB_COUNTER [boom] [tick] [$left] [100]", 1, 0},
        {"QLOB_COUNTER [boom] [tick] [$left] [100]`QLOB_COUNTER_KILL [boom]", 0, 0},
        {"FLASH_ON [t] [labelalarm] [300]`FLASH_OFF [t] [labelalarm]", 0, 0},
    };
    for (const Case &c : cases) {
        Clocked f;
        f.Element(1, "labelalarm");
        for (int turn = 0; turn < 10000; ++turn) f.Run(c.statements);
        EXPECT_EQ(f.game.timers.qlob.size(), c.counters) << c.statements;
        EXPECT_EQ(f.game.timers.misc.size(), c.flashers) << c.statements;
        f.Advance(5000);
        EXPECT_EQ(f.Var("$log"), c.counters ? "t2 t1 t0 boom" : "") << c.statements;
    }
}

TEST(Counters, EndedCountersStillAnswerKillsAndKeepTheirOrder) {
    Clocked f;
    RunStatement(f.game, "QLOB_COUNTER_KILL [boom] [bang]"); // no counter yet: nothing runs
    EXPECT_EQ(f.Var("$log"), "");
    RunStatement(f.game, "QLOB_COUNTER [boom] [tick] [$left] [100]");
    f.Advance(3000);
    EXPECT_EQ(f.host.resumes, 1);
    RunStatement(f.game, "QLOB_COUNTER_KILL [boom] [bang]"); // the ended counter resumes the music
    EXPECT_EQ(f.host.resumes, 2);
    EXPECT_EQ(f.Var("$log"), "t2 t1 t0 boom bang");

    // Due together, counters tick in the order they were loaded, whatever ended before.
    f.Declare({{"$log", ""}, {"$left", "9"}, {"$other", "9"}});
    f.project.QlobTable[4] = "each $log = RETURN_COMPLEX [$log $left,$other]";
    RunStatement(f.game, "QLOB_COUNTER [x] [each] [$left] [100]");
    RunStatement(f.game, "QLOB_COUNTER [bang] [each] [$other] [100]");
    RunStatement(f.game, "QLOB_COUNTER_KILL [x]");
    RunStatement(f.game, "QLOB_COUNTER [boom] [each] [$left] [100]");
    f.Advance(1000);
    EXPECT_EQ(f.Var("$log"), "9,8 8,8");
}

TEST(Counters, KillsReplacementsAndTextVariables) {
    Clocked f;
    f.Declare({{"$log", ""}, {"$left", "abc"}, {"$other", "2"}});
    RunStatement(f.game, "QLOB_COUNTER [boom] [tick] [$left] [10]");
    f.Advance(100);
    EXPECT_EQ(f.Var("$log"), "tabc-1 boom"); // text counts as 0: the first tick ends it

    Clocked g;
    RunStatement(g.game, "QLOB_COUNTER [boom] [tick] [$left] [100]");
    RunStatement(g.game, "QLOB_COUNTER [boom] [tick] [$left] [100]"); // replaces the first
    RunStatement(g.game, "QLOB_COUNTER [bang] [none] [$other] [100]");
    g.Advance(1000);
    EXPECT_EQ(g.Var("$log"), "t2");
    RunStatement(g.game, "QLOB_COUNTER_KILL [o] [bang]"); // a fragment: both counters stop
    g.Advance(5000);
    EXPECT_EQ(g.Var("$log"), "t2 bang");
}

TEST(Counters, WaitBlocksTicksAndTheNextTickComesOnce) {
    Clocked f;
    f.Declare({{"$log", ""}, {"$left", "9"}});
    RunStatement(f.game, "QLOB_COUNTER [boom] [tick] [$left] [50]");
    RunStatement(f.game, "WAIT [2000]");
    EXPECT_EQ(f.game.now, 2000);
    EXPECT_EQ(f.Var("$log"), "");
    f.Advance(1);
    EXPECT_EQ(f.Var("$log"), "t8");
}

TEST(Counters, TicksRunInsideAYieldingSequence) {
    Clocked f;
    f.Declare({{"$log", ""}, {"$left", "5"}});
    RunStatement(f.game, "QLOB_COUNTER [boom] [tick] [$left] [100]");
    f.game.now = 1000; // the tick is due; the next yield runs it
    f.host.onYield = [&] { RunDueTimers(f.game, f.game.now); };
    f.Run("$log = RETURN_COMPLEX [$log walk]");
    EXPECT_EQ(f.Var("$log"), "t4 walk");
}

TEST(Flashers, FlashUntilOffAndEndVisible) {
    Clocked f;
    ElementControl *label = f.Element(1, "labelalarm");
    label->visible = false;
    RunStatement(f.game, "FLASH_ON [t] [labelalarm] [300]");
    RunStatement(f.game, "FLASH_ON [t] [labelalarm] [50]"); // one flasher an element
    f.Advance(300);
    EXPECT_TRUE(label->visible);
    f.Advance(300);
    EXPECT_FALSE(label->visible);
    RunStatement(f.game, "FLASH_OFF [t] [labelalarm]");
    EXPECT_TRUE(label->visible);
    f.Advance(3000);
    EXPECT_TRUE(label->visible);
    EXPECT_EQ(f.game.timers.miscCount, 2);
}

TEST(Move, ReverseCountsFromTheFarEdge) {
    Clocked f;
    f.game.desk.Box(1).tag = "map";
    f.game.desk.Box(1).width = 3000;
    f.game.desk.Box(1).height = 2000;
    RunStatement(f.game, "MOVE [map] [100] [200] [TRUE] [no]");
    EXPECT_EQ(f.game.desk.Box(1).left, f.game.desk.formWidth - 100 - 3000);
    EXPECT_EQ(f.game.desk.Box(1).top, 200);
}

} // namespace
} // namespace orrery
