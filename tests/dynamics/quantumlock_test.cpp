// Quantum locks: the signature a lock is keyed by, the dialog's positions and nudges on a
// 1024 by 768 form, and which dynamics a lock moves.
#include "fixture.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

const std::string kSeparator = "/.\\./.\\";
const std::string kHello = "menudynamic:text:100:200:0:0:Hello:false:50:0:Arial:10:0:0:0";

// A lock as the dialog stores it, keyed by the record as it stands.
void Lock(ProjectModel &project, int slot, const std::string &record, const std::string &lock) {
    project.QuantumLockTable[slot] = NormText(record) + kSeparator + lock;
}

TEST(QuantumLock, Signature) {
    EXPECT_EQ(DynamicSignature("menudynamic:text:1:2:0:0: Hi :true:50::Arial:10:false:x:y"),
              "Hi:true:50:Arial:10:false:");
    // seven empty fields: one pass leaves four of the seven ":"
    EXPECT_EQ(DynamicSignature("a:b:1:2:3:4"), "::::");
}

TEST(QuantumLock, PositionsOnTheForm) {
    struct Row {
        const char *lock;
        int left, top;
    };
    const MenuRect control{5, 6, 1000, 400};
    const Row rows[] = {
        // the dialog's nine pairs with the boxes left as they start
        {"-480, Center and Left, Top", 13880, 5560},
        {"480, Center and Left, Top", 480, 5560},
        {"Center, Center and Left, Top", 7180, 5560},
        {"Center, -600 and Left, Top", 7180, 10520},
        {"Center, 600 and Left, Top", 7180, 600},
        {"480, -480 and Left, Top", 480, 10640},
        {"-480, -480 and Left, Top", 13880, 10640},
        {"-480, 480 and Left, Top", 13880, 480},
        {"480, 480 and Left, Top", 480, 480},
        {"center, center and left, top", 7180, 5560},
        {"-480, 600 and +120, -60", 15360 - 480 - 1000 + 120, 600 - 60},
        {"CENTER, 10 and -+5, 7", 7175, 10},
        {"", 0, 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.lock);
        const MenuRect placed = LockPosition(row.lock, kForm, control);
        EXPECT_EQ(placed.left, row.left);
        EXPECT_EQ(placed.top, row.top);
        EXPECT_EQ(placed.width, 1000);
    }
}

TEST(QuantumLock, LoadingAppliesLocksByContent) {
    DynamicsFixture f;
    auto &table = f.project.DynamicTable;
    table[1] = kHello;
    table[2] = "menudynamic:boxes:100:200:0:0:3:100:255";
    table[3] = "menudynamic:textflow:100:200:0:0:0:9:ab:Arial:10:0:0:0:0:50:60";
    table[4] = "menudynamic:text:100:200:0:0:Hi:false:50:0:Arial:10:0:0:0";
    // a shape's record ends before field 13, so its signature's trailing ":" never match it
    table[5] = "menudynamic:shape:100:200:0:0:50:true:78";
    Lock(f.project, 1, "menudynamic:text:5:5:300:300:Hello:false:50:0:Arial:10:0:0:0",
         "-480, 600 and +120, -60");
    Lock(f.project, 2, table[2], "center, center and left, top");
    Lock(f.project, 3, table[3], "center, center and left, top");
    Lock(f.project, 4, table[4], "480, 480 and left, top");
    Lock(f.project, 5, table[5], "480, 480 and left, top");
    table[6] = "menudynamic:text:100:200:0:0:Ho:false:50:0:Arial:10:0:0:0";
    f.project.QuantumLockTable[6] = NormText(table[6]) + " 480, 480 and left, top";
    FormDynamics d = f.Load();
    EXPECT_EQ(DescribeDynamics(d), (std::vector<std::string>{
                                       "1 text 14500 540 500 240",
                                       "2 boxes 100 200 840 240",
                                       "3 textflow 7580 5640 200 240",
                                       "colors 0 4",
                                       "lifted 0",
                                       "4 text 480 480 200 240",
                                       "5 shape 100 200 600 600",
                                       "6 text 0 0 200 240",
                                   }));
    const DynamicFlow &flow = StateOf<DynamicFlow>(d, 2);
    EXPECT_EQ(flow.baseTop, 5640);
    EXPECT_EQ(flow.letters[1].rect.left, 7680);
    EXPECT_EQ(flow.letters[1].rect.top, 5640);

    // a changed text is another dynamic to its lock
    table[1] = "menudynamic:text:100:200:0:0:Hullo:false:50:0:Arial:10:0:0:0";
    EXPECT_EQ(DescribeDynamics(f.Load())[0], "1 text 100 200 500 240");
}

TEST(QuantumLock, AnyShiftersRecordMovesTheFormsOneField) {
    DynamicsFixture f;
    f.project.DynamicTable[1] = "menudynamic:shifters:100:200:0:0:100:1:2:Normal:25:120:120:on:3";
    f.project.DynamicTable[2] = "menudynamic:shifters:0:0:0:0:100:5:6:Normal:25:120:120:on:3";
    Lock(f.project, 1, f.project.DynamicTable[2], "-480, -480 and left, top");
    EXPECT_EQ(DescribeDynamics(f.Load())[0], "1 shifters 12480 9840 2400 1200");
}

} // namespace
} // namespace orrery
