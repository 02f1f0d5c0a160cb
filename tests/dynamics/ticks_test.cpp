// Dynamics on the virtual clock: the flow's wave and crest, moving texts and shapes turning
// at the edges, boxes shifting their shades, the shifter field, and late ticks.
#include "fixture.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

using Colors = std::vector<std::int32_t>;

Colors ColorsOf(const DynamicFlow &flow) {
    Colors colors;
    for (const FlowLetter &letter : flow.letters) colors.push_back(letter.color);
    return colors;
}

TEST(FlowTicks, TheWavePassesTowardsTheStartWithItsCrestLifted) {
    const struct {
        Colors colors;
        int lifted;
    } rows[] = {
        {{25, 50, 75, 0}, 3}, {{50, 75, 0, 25}, 2}, {{75, 0, 25, 50}, 1},
        {{0, 25, 50, 75}, 0}, // the crest on the last letter, which the loop never lifts
        {{25, 50, 75, 0}, 3},
    };
    for (const bool across : {true, false}) {
        SCOPED_TRACE(across);
        DynamicsFixture f;
        FormDynamics d = f.LoadOne("menudynamic:textflow:1000:2000:0:0:0:100:abcd:A:10:0:0:0:" +
                                   std::string(across ? "false" : "true") + ":50:-60");
        const DynamicFlow &flow = StateOf<DynamicFlow>(d);
        const int line = across ? 2000 : 1000;
        for (int tick = 0; tick < 5; ++tick) {
            AdvanceDynamics(d, 50 * (tick + 1), f.random);
            EXPECT_EQ(ColorsOf(flow), rows[tick].colors) << tick;
            EXPECT_EQ(flow.lifted, rows[tick].lifted) << tick;
            for (int k = 1; k <= 4; ++k) {
                const MenuRect &r = flow.letters[static_cast<std::size_t>(k - 1)].rect;
                EXPECT_EQ(across ? r.top : r.left, k == rows[tick].lifted ? line - 60 : line);
            }
        }
        // the repaint takes in the lifted letter
        EXPECT_EQ(across ? d.dirty.back().top : d.dirty.back().left, line - 60);
    }
}

TEST(FlowTicks, NothingMovesWithoutADifferenceToCarry) {
    for (const char *text : {"5:5:abc", "7:99:x", "0:0:"}) {
        SCOPED_TRACE(text);
        DynamicsFixture f;
        FormDynamics d = f.LoadOne(std::string("menudynamic:textflow:10:20:0:0:") + text +
                                   ":A:10:0:0:0:false:50:60");
        const Colors before = ColorsOf(StateOf<DynamicFlow>(d));
        AdvanceDynamics(d, 50, f.random);
        AdvanceDynamics(d, 100, f.random);
        EXPECT_EQ(ColorsOf(StateOf<DynamicFlow>(d)), before);
        EXPECT_EQ(StateOf<DynamicFlow>(d).lifted, 0);
        EXPECT_TRUE(d.dirty.empty());
    }
}

TEST(MovingTicks, TextAndShapeTurnAtTheFormsEdges) {
    const struct {
        const char *record;
        int left, top; // after three ticks
    } rows[] = {
        // 1000 wide, 40 from the right edge: one step on, then back
        {"menudynamic:text:14320:5000:0:0:abcdefghij:true:50:0:A:10:0:0:0", 14290, 5090},
        {"menudynamic:shape:14750:10910:0:0:50:true:0", 14660, 10820},
        {"menudynamic:shape:14760:10920:0:0:50:true:0", 14670, 10830}, // touching both edges
        {"menudynamic:shape:0:0:0:0:50:true:0", 90, 90},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.record);
        DynamicsFixture f;
        FormDynamics d = f.LoadOne(row.record);
        for (int tick = 1; tick <= 3; ++tick) AdvanceDynamics(d, 50 * tick, f.random);
        EXPECT_EQ(d.dynamics[0].rect.left, row.left);
        EXPECT_EQ(d.dynamics[0].rect.top, row.top);
        ASSERT_EQ(d.dirty.size(), 6u); // the old and the new place of each step
        EXPECT_EQ(d.dirty[5].left, row.left);
    }
}

TEST(ShifterTicks, LitCellsFadeAndTheLastCellIsNeverDrawn) {
    DynamicsFixture f; // 10 by 4 cells, at most 20% of them lit in a tick
    FormDynamics d = f.LoadOne("menudynamic:shifters:0:0:1000:400:100:11:22::20:100:100:on:33");
    const DynamicShifters &field = StateOf<DynamicShifters>(d);
    int fewest = 40, most = 0;
    for (int tick = 1; tick <= 200; ++tick) {
        const std::vector<std::uint8_t> before = field.lit;
        AdvanceDynamics(d, 100 * tick, f.random);
        int lit = 0;
        for (int i = 0; i < 40; ++i) {
            const auto at = static_cast<std::size_t>(i);
            lit += field.lit[at];
            const std::int32_t wanted = field.lit[at] ? 11 : before[at] ? 33 : 22;
            ASSERT_EQ(ShifterCellColor(field, i), wanted) << tick << " " << i;
        }
        ASSERT_EQ(field.lit[39], 0);
        fewest = std::min(fewest, lit);
        most = std::max(most, lit);
    }
    EXPECT_EQ(fewest, 1);
    EXPECT_EQ(most, 8);
}

TEST(Clock, TicksRunInTimeOrderAndALateOneOnce) {
    DynamicsFixture f;
    f.project.DynamicTable[1] = "menudynamic:boxes:0:0:0:0:3:30:" + std::to_string(255 | 40 << 16);
    f.project.DynamicTable[2] = "menudynamic:shape:0:0:0:0:20:true:0";
    f.project.DynamicTable[3] = "menudynamic:textflow:0:0:0:0:0:9:ab:A:10:0:0:0:0:10:60";
    FormDynamics d = f.Load();
    ClearTFlows(d);
    EXPECT_TRUE(StateOf<DynamicFlow>(d, 2).letters.empty());
    EXPECT_EQ(NextDynamicDue(d), 20);
    d.dirty.clear();
    const auto &boxes = StateOf<DynamicBoxes>(d).boxes;
    const Colors shades = {boxes[0].color, boxes[1].color, boxes[2].color};
    EXPECT_EQ(shades, (Colors{255 | 40 << 16, 159 | 25 << 16, 63 | 10 << 16})); // full to a quarter
    EXPECT_EQ(boxes[2].rect.left, 600);

    AdvanceDynamics(d, 1000, f.random); // both late by many intervals: one tick each
    ASSERT_EQ(d.dirty.size(), 3u);
    EXPECT_EQ(d.dirty[1].left, 30); // the shape, due first, moved first
    EXPECT_EQ(d.dirty[2].width, 840);
    EXPECT_EQ((Colors{boxes[0].color, boxes[1].color, boxes[2].color}),
              (Colors{shades[2], shades[0], shades[1]}));
    EXPECT_EQ(NextDynamicDue(d), 1020); // each on its own beat
    AdvanceDynamics(d, 1020, f.random);
    EXPECT_EQ(d.dynamics[1].rect.left, 60);
    EXPECT_EQ(boxes[0].color, shades[1]);
}

} // namespace
} // namespace orrery
