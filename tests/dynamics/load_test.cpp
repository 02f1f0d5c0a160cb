// Loading dynamic records: which records a form takes, the sizes of unsized ones, scaling,
// and what each kind keeps of its fields.
#include "fixture.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

using Lines = std::vector<std::string>;

TEST(LoadDynamics, EachFormTakesItsOwnRecordsInIndexOrder) {
    DynamicsFixture f;
    f.pictures["logo.bmp"] = {900, 450};
    auto &table = f.project.DynamicTable;
    table[1] = "menudynamic:image:100:200:0:0:logo.bmp";
    table[2] = "dynamic:shape:0:0:0:0:100:true:255"; // made in the editor, placed nowhere
    table[4] = "menudynamic:text:300:400:0:0:Hi - there:false:50:255:Arial:10:false:false:false";
    table[5] = "maindynamic:shape:10:20:0:0:100:true:255";
    table[6] = "MenuDynamic : Shape :10:20:0:0:100:true:255";
    table[7] = "menudynamic:sprite:1:2:0:0";
    table[8] = "menudynamic:boxes:0:0:0:0:3:200:255";
    table[9] = "menudynamic:boxes:0:0:960:300:3:200:255";
    table[10] = "menudynamic:shifters:50:60:0:0:100:1:2:Normal:25:120:120:on:3";
    table[11] = "menudynamic:shifters:0:0:0:0:100:1:2:Normal:25:120:120:on:3";
    table[12] = "menudynamic:textflow:500:600:0:0:0:0:abc:Arial:10:false:false:false:false:50:-60";
    table[13] = "menudynamic:image:7:8:640:480:missing.bmp";
    table[14] = "menudynamics:image:7:8:640:480:missing.bmp";

    EXPECT_EQ(
        DescribeDynamics(f.Load()),
        (Lines{"1 image 100 200 900 450", "4 text 300 400 1000 240", "6 shape 10 20 600 600",
               "8 boxes 0 0 840 240", "9 boxes 0 0 960 300", "10 shifters 50 60 2400 1200",
               "12 textflow 500 600 300 240", "colors 0 0 0", "lifted 0", "13 image 7 8 640 480"}));
    EXPECT_EQ(DescribeDynamics(f.Load(DynamicForm::Desktop)), Lines{"5 shape 10 20 600 600"});
}

TEST(LoadDynamics, PositionsScaleFromTheOriginSizeToTheForm) {
    DynamicsFixture f;
    f.project.settings.originwidth = "7680";
    f.project.settings.originheight = "5760";
    f.project.DynamicTable[1] = "menudynamic:shape:100:200:300:400:0:false:0";
    f.project.DynamicTable[2] = "menudynamic:shape:100:200:0:0:0:false:0";
    EXPECT_EQ(DescribeDynamics(f.Load()),
              (Lines{"1 shape 200 400 600 800", "2 shape 200 400 600 600"}));
    f.project.settings.originwidth = "";
    EXPECT_EQ(DescribeDynamics(f.Load())[0], "1 shape 100 400 300 800");
}

TEST(LoadDynamics, ShifterChoices) {
    struct Row {
        const char *speed, *degree, *border;
        int interval, degreeWanted;
        bool borderWanted;
    };
    const Row rows[] = {
        {"Slow", "50", "on", 200, 50, true},      {"FAST", "100", "None", 50, 100, false},
        {"Normal", "0", "FALSE", 100, 25, false}, {"", "12.5", " 0 ", 100, 25, false},
        {"x", "101", "", 100, 25, false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.speed);
        DynamicsFixture f;
        FormDynamics d = f.LoadOne(std::string("menudynamic:shifters:0:0:1000:500:100:1:2:") +
                                   row.speed + ":" + row.degree + ":200:100:" + row.border + ":3");
        const DynamicShifters &field = StateOf<DynamicShifters>(d);
        EXPECT_EQ(d.dynamics[0].interval, row.interval);
        EXPECT_EQ(field.degree, row.degreeWanted);
        EXPECT_EQ(field.border, row.borderWanted);
        EXPECT_EQ(field.columns * 10 + field.rows, 55);
    }
}

TEST(LoadDynamics, FlowGradientAndPeak) {
    const auto rgb = [](int r, int g, int b) { return std::to_string(r | g << 8 | b << 16); };
    const struct {
        std::string record, colors;
        std::optional<std::int32_t> peak;
    } rows[] = {
        // red 10 to 110 and blue 30 to 0 in fifths
        {rgb(10, 20, 30) + ":" + rgb(110, 20, 0) + ":abcde",
         "colors " + rgb(10, 20, 30) + " " + rgb(30, 20, 24) + " " + rgb(50, 20, 18) + " " +
             rgb(70, 20, 12) + " " + rgb(90, 20, 6),
         std::stoi(rgb(90, 20, 6))},
        {"0:2:abcd", "colors 0 0 1 1", std::nullopt}, // no colour is one letter's alone
        {"0:3:abcd", "colors 0 0 1 2", 2},
        {"7:99:x", "colors 7", 7},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.record);
        DynamicsFixture f;
        FormDynamics d = f.LoadOne("menudynamic:textflow:10:20:0:0:" + row.record +
                                   ":Arial:10:0:0:0:false:50:60");
        EXPECT_EQ(DescribeDynamics(d)[1], row.colors);
        EXPECT_EQ(StateOf<DynamicFlow>(d).peakColor, row.peak);
    }
    DynamicsFixture f;
    FormDynamics d = f.LoadOne("menudynamic:textflow:10:20:0:0:0:9:ab:Arial:10:0:0:0:True:50:60");
    EXPECT_EQ(StateOf<DynamicFlow>(d).letters[1].rect.top, 260); // vertical: below the first
    EXPECT_EQ(DescribeDynamics(d)[0], "1 textflow 10 20 100 480");
}

} // namespace
} // namespace orrery
