// Dynamics on the virtual clock: the flow's wave and crest, moving texts and shapes turning
// at the edges, boxes shifting their shades, the shifter field, and late ticks.
#include "fixture.h"

#include <gtest/gtest.h>

#include <set>

namespace orrery {
namespace {

std::vector<std::int32_t> Colors(const DynamicFlow &flow) {
    std::vector<std::int32_t> colors;
    for (const FlowLetter &letter : flow.letters) colors.push_back(letter.color);
    return colors;
}

TEST(FlowTicks, TheWavePassesTowardsTheStartWithItsCrestLifted) {
    struct Row {
        std::vector<std::int32_t> colors;
        int lifted;
    };
    const Row rows[] = {
        {{25, 50, 75, 0}, 3},
        {{50, 75, 0, 25}, 2},
        {{75, 0, 25, 50}, 1},
        {{0, 25, 50, 75}, 0}, // the crest on the last letter, which the loop never lifts
        {{25, 50, 75, 0}, 3},
    };
    for (const char *vertical : {"false", "true"}) {
        SCOPED_TRACE(vertical);
        DynamicsFixture f;
        FormDynamics d = f.LoadOne(std::string("menudynamic:textflow:1000:2000:0:0:0:100:abcd:A:10:"
                                               "0:0:0:") +
                                   vertical + ":50:-60");
        const DynamicFlow &flow = StateOf<DynamicFlow>(d);
        const bool across = std::string(vertical) == "false";
        for (std::size_t tick = 0; tick < std::size(rows); ++tick) {
            SCOPED_TRACE(tick);
            AdvanceDynamics(d, 50 * static_cast<std::int64_t>(tick + 1), f.random);
            EXPECT_EQ(Colors(flow), rows[tick].colors);
            EXPECT_EQ(flow.lifted, rows[tick].lifted);
            for (int k = 1; k <= 4; ++k) {
                const MenuRect &r = flow.letters[static_cast<std::size_t>(k - 1)].rect;
                const int off = k == rows[tick].lifted ? -60 : 0;
                EXPECT_EQ(across ? r.top : r.left, (across ? 2000 : 1000) + off);
            }
        }
        // the crest's rect is repainted: the panel grown by the lift
        ASSERT_FALSE(d.dirty.empty());
        const MenuRect &paint = d.dirty.back();
        EXPECT_EQ(across ? paint.top : paint.left, (across ? 2000 : 1000) - 60);
    }
}

TEST(FlowTicks, NothingMovesWithoutADifferenceToCarry) {
    for (const char *text : {"5:5:abc", "7:99:x", "0:0:"}) {
        SCOPED_TRACE(text);
        DynamicsFixture f;
        FormDynamics d = f.LoadOne(std::string("menudynamic:textflow:10:20:0:0:") + text +
                                   ":A:10:0:0:0:false:50:60");
        const std::vector<std::int32_t> before = Colors(StateOf<DynamicFlow>(d));
        AdvanceDynamics(d, 500, f.random);
        AdvanceDynamics(d, 1000, f.random);
        EXPECT_EQ(Colors(StateOf<DynamicFlow>(d)), before);
        EXPECT_EQ(StateOf<DynamicFlow>(d).lifted, 0);
        EXPECT_TRUE(d.dirty.empty());
    }
}

TEST(FlowTicks, ClearingStopsAndEmptiesTheFlows) {
    DynamicsFixture f;
    f.project.DynamicTable[1] = "menudynamic:textflow:10:20:0:0:0:100:abcd:A:10:0:0:0:0:50:60";
    f.project.DynamicTable[2] = "menudynamic:shape:0:0:0:0:70:true:0";
    FormDynamics d = f.Load();
    ClearTFlows(d);
    EXPECT_EQ(NextDynamicDue(d), 70);
    EXPECT_TRUE(StateOf<DynamicFlow>(d).letters.empty());
    EXPECT_EQ(DescribeDynamics(d)[1], "colors");
}

TEST(MovingTicks, TextAndShapeTurnAtTheFormsEdges) {
    struct Row {
        const char *record;
        int left, top; // after three ticks
    };
    // A 1000 by 200 text starting 40 twips from the right edge, a 600 square near the
    // bottom-right corner, one in the top-left corner heading out on the second tick.
    const Row rows[] = {
        {"menudynamic:text:14320:5000:0:0:abcdefghij:true:50:0:A:10:0:0:0", 14320 + 30 - 60,
         5090},
        {"menudynamic:shape:14750:10910:0:0:50:true:0", 14750 - 90, 10910 - 90},
        {"menudynamic:shape:14760:10920:0:0:50:true:0", 14760 - 90, 10920 - 90},
        {"menudynamic:shape:0:0:0:0:50:true:0", 90, 90},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.record);
        DynamicsFixture f;
        FormDynamics d = f.LoadOne(row.record);
        for (int tick = 1; tick <= 3; ++tick) AdvanceDynamics(d, 50 * tick, f.random);
        EXPECT_EQ(d.dynamics[0].rect.left, row.left);
        EXPECT_EQ(d.dynamics[0].rect.top, row.top);
        ASSERT_EQ(d.dirty.size(), 6u); // the old and the new place of each step
        EXPECT_EQ(d.dirty[1].left, d.dirty[2].left);
        EXPECT_EQ(d.dirty[5].left, row.left);
        EXPECT_EQ(d.dirty[5].top, row.top);
    }
}

TEST(BoxTicks, ColoursShiftOneBoxRound) {
    DynamicsFixture f;
    FormDynamics d = f.LoadOne("menudynamic:boxes:0:0:0:0:3:100:255");
    const auto &boxes = StateOf<DynamicBoxes>(d).boxes;
    const std::int32_t shades[] = {boxes[0].color, boxes[1].color, boxes[2].color};
    AdvanceDynamics(d, 100, f.random);
    EXPECT_EQ(boxes[0].color, shades[2]);
    EXPECT_EQ(boxes[1].color, shades[0]);
    EXPECT_EQ(boxes[2].color, shades[1]);
    AdvanceDynamics(d, 300, f.random);
    EXPECT_EQ(boxes[0].color, shades[1]);
    ASSERT_EQ(d.dirty.size(), 2u);
    EXPECT_EQ(d.dirty[0].width, 840);
}

TEST(ShifterTicks, LitCellsFadeAndTheLastCellIsNeverDrawn) {
    DynamicsFixture f;
    // 10 by 4 cells; at most 20% of 40 lit in a tick
    FormDynamics d = f.LoadOne("menudynamic:shifters:0:0:1000:400:100:11:22:Normal:20:100:100:"
                               "on:33");
    const DynamicShifters &field = StateOf<DynamicShifters>(d);
    ASSERT_EQ(field.Count(), 40);
    std::set<int> counts;
    for (int tick = 1; tick <= 200; ++tick) {
        const std::vector<std::uint8_t> before = field.lit;
        AdvanceDynamics(d, 100 * tick, f.random);
        int lit = 0;
        for (int i = 0; i < 40; ++i) {
            const auto at = static_cast<std::size_t>(i);
            lit += field.lit[at];
            const std::int32_t wanted = field.lit[at] ? 11 : before[at] ? 33 : 22;
            ASSERT_EQ(ShifterCellColor(field, i), wanted) << "tick " << tick << " cell " << i;
        }
        counts.insert(lit);
        ASSERT_EQ(field.lit[39], 0);
    }
    EXPECT_GE(*counts.begin(), 1);
    EXPECT_LE(*counts.rbegin(), 8);
    EXPECT_GT(counts.size(), 3u);

    // the same seed picks the same cells
    DynamicsFixture g;
    FormDynamics again = g.LoadOne(f.project.DynamicTable[1]);
    for (int tick = 1; tick <= 200; ++tick) AdvanceDynamics(again, 100 * tick, g.random);
    EXPECT_EQ(StateOf<DynamicShifters>(again).lit, field.lit);
}

TEST(Clock, TicksRunInTimeOrderAndALateOneOnce) {
    DynamicsFixture f;
    f.project.DynamicTable[1] = "menudynamic:boxes:0:0:0:0:2:30:255";
    f.project.DynamicTable[2] = "menudynamic:shape:0:0:0:0:20:true:0";
    f.project.DynamicTable[3] = "menudynamic:image:0:0:0:0:a.bmp";
    FormDynamics d = f.Load();
    EXPECT_EQ(NextDynamicDue(d), 20);

    AdvanceDynamics(d, 19, f.random);
    EXPECT_TRUE(d.dirty.empty());
    AdvanceDynamics(d, 1000, f.random); // both late by many intervals: one tick each
    ASSERT_EQ(d.dirty.size(), 3u);
    EXPECT_EQ(d.dirty[1].left, 30); // the shape, due first, moved first
    EXPECT_EQ(d.dirty[2].width, 540);
    EXPECT_EQ(d.dynamics[0].due, 1020); // each on its own beat
    EXPECT_EQ(d.dynamics[1].due, 1020);
    EXPECT_EQ(d.now, 1000);
    d.dirty.clear();
    AdvanceDynamics(d, 1020, f.random);
    EXPECT_EQ(d.dirty.size(), 3u);
    EXPECT_EQ(d.dynamics[1].rect.left, 60);
}

} // namespace
} // namespace orrery
