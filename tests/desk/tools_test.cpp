// Designing a tool's controls from its rows: what the run-time opens and an editor previews.
#include "desk/tools.h"
#include "project/model.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

void Row(ProjectModel &project, int row, const std::string &name, const std::string &tool,
         const std::vector<std::string> &cells) {
    ElementRow &element = project.Element(row);
    element[0] = name;
    element[1] = "atool:" + tool;
    for (std::size_t i = 0; i < cells.size(); ++i) element[2 + i] = cells[i];
}

TEST(ToolDesign, TakesTheToolsRowsAppliesTheirPropertiesAndLeavesTheModelAlone) {
    ProjectModel project;
    Row(project, 1, "labelstatus", "Mail Box",
        {"label:1", "caption:Ready", "backstyle:1", "left:120", "top:240", "width:1200",
         "height:300"});
    Row(project, 2, "buttongo", "other",
        {"button:2", "left:0", "top:0", "width:9000", "height:9000"});
    Row(project, 3, "textaddress", "mailbox",
        {"text:3", "text:here", "left:600", "top:900", "width:2400", "height:285"});
    Row(project, 4, "weird", "mailbox", {"thing:4", "left:0", "top:0", "width:99999"});
    // A single blank row is passed over; two end the scan.
    Row(project, 6, "imagelogo", "mailbox",
        {"image:6", "datafield:logo.gif", "left:3000", "top:60", "width:600", "height:600"});
    Row(project, 9, "listfar", "mailbox", {"list:9", "left:0", "top:0", "width:1", "height:1"});
    const ProjectModel before = project;

    const DesignedTool design = BuildToolControls(project, "mailbox");

    ASSERT_EQ(design.controls.size(), 3u);
    EXPECT_EQ(design.controls[0].row, 1);
    EXPECT_EQ(design.controls[0].control.caption, " Ready") << "back style 1, aligned left";
    EXPECT_EQ(design.controls[1].control.text, "here");
    EXPECT_EQ(design.controls[2].control.picture, "logo.gif");
    for (const DesignedControl &designed : design.controls) EXPECT_TRUE(designed.control.visible);
    EXPECT_EQ(design.width, 3600);
    EXPECT_EQ(design.height, 1185 + 120 + kTitleBarHeight);
    EXPECT_EQ(design.lastRowScanned, 7);
    for (int row = 1; row <= kElementRows; ++row)
        ASSERT_EQ(project.Element(row), before.Element(row)) << row;
}

TEST(ToolDesign, AToolWithoutElementsHasNoSize) {
    ProjectModel project;
    const DesignedTool design = BuildToolControls(project, "empty");
    EXPECT_TRUE(design.controls.empty());
    EXPECT_EQ(design.width, 0);
    EXPECT_EQ(design.height, 0);
}

} // namespace
} // namespace orrery
