// Tool windows and the commands on them, played on a small project without a display.
#include "actions/commands.h"
#include "desk/desktop.h"
#include "desk/tools.h"
#include "engine_fixture.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

struct DeskFixture : test::EngineFixture {
    DeskFixture() {
        Declare({{"$log", ""}, {"$score", "100"}});
        project.ToolNameTable[1] = "Connector";
        project.ToolNameTable[2] = "Mapper";
        project.ToolNameTable[3] = "Map";
        project.ToolNameTable[4] = "Secret";
        project.ToolNameTable[5] = "Gone";
        project.settings.myhiddentools = "secret";
        project.settings.mysideexludelist = "gone";
        Row(1, "labelstatus", "connector", {"caption:Ready`now", "backstyle:1", "alignment:0", "left:100", "width:2000", "top:50", "height:300"});
        Row(2, "textaddress", "connector", {"text:10.0.0.1", "left:100", "top:400", "width:3000", "height:285"});
        Row(3, "buttongo", "connector", {"caption:Go", "left:3200", "top:400", "width:900", "height:300"}, "$log = RETURN_COMPLEX [$log go:textaddress]");
        Row(4, "listhosts", "connector", {"listitems:a//b//b//c//", "left:100", "top:800", "width:3000", "height:1500"});
        Row(5, "labelfire", "mapper", {"caption:[empty]"});
        Row(6, "labelfirewall", "map", {"caption:x"});
        project.ToolSubTable[1] = {"connector:open", "$log = RETURN_COMPLEX [$log open]"};
        project.ToolSubTable[2] = {"connector:activate", "$log = RETURN_COMPLEX [$log activate]"};
        project.ToolSubTable[3] = {"connector:close", "$log = RETURN_COMPLEX [$log close]"};
        project.ToolSubTable[4] = {"mapper:close", "$log = RETURN_COMPLEX [$log mapperclose]"};
        LoadSideMenu(game);
    }
    void Row(int row, const std::string &name, const std::string &tool, std::initializer_list<std::string> props,
             const std::string &action = "") {
        ElementRow &element = project.Element(row);
        element[0] = name;
        element[1] = "atool:" + tool;
        for (const char *kind : {"button", "label", "text", "list", "image", "qonsole"})
            if (name.starts_with(kind)) element[2] = std::string(kind) + ":" + std::to_string(row);
        int column = 3;
        for (const std::string &p : props) element[static_cast<std::size_t>(column++)] = p;
        if (!action.empty()) element[kActionColumn] = "action:" + action;
    }
    std::string Log() { return Var("$log"); }
    void Do(const std::string &statement) { RunStatement(game, statement); }
};

TEST(ToolWindows, SideMenuOpensToolsAndDressesThemOnce) {
    DeskFixture f;
    ASSERT_EQ(f.game.desk.SideMenu.size(), 5u); // Connector, Mapper, Map, Secret (hidden)
    EXPECT_FALSE(f.game.desk.SideMenu[4].visible);
    f.Do("OPEN [connector]");
    EXPECT_EQ(f.Log(), "open activate");
    const ElementControl *status = f.game.desk.Control(1);
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(status->caption, " Ready\r\nnow");
    EXPECT_EQ(f.game.desk.Control(4)->items, (std::vector<std::string>{"a", "b", "b", "c"}));
    const ToolBox &box = f.game.desk.Box(1);
    EXPECT_TRUE(box.visible);
    EXPECT_EQ(box.width, 4100);
    EXPECT_EQ(box.height, 2300 + 120 + kTitleBarHeight);
    EXPECT_EQ(f.game.desk.OpenToolList, ":connector:");
    EXPECT_EQ(f.project.Element(3)[kRowNumberColumn], "3");

    f.game.desk.Control(2)->text = "typed";
    ButtonClick(f.game, 3);
    EXPECT_EQ(f.Log(), "open activate go:typed");
    UnloadBox(f.game, 1);
    EXPECT_EQ(f.game.desk.Control(2)->text, "");
    f.Do("OPEN [CONNECTOR]");
    EXPECT_EQ(f.Log(), "open activate go:typed close open activate");
    EXPECT_EQ(f.game.desk.toolboxCount, 1);
    EXPECT_EQ(f.game.desk.Chrome.size(), 2u);

    f.Do("OPEN [secret]");
    EXPECT_EQ(f.game.desk.toolboxCount, 2);
    f.Do("OPEN [gone]");
    EXPECT_EQ(f.game.desk.toolboxCount, 2);
}

TEST(ToolWindows, TheKindColumnIsNoProperty) {
    DeskFixture f;
    f.Row(7, "textnote", "connector", {"left:100"});
    f.Do("OPEN [connector]");
    EXPECT_EQ(f.game.desk.Control(7)->text, ""); // not its number, 7
    EXPECT_EQ(f.game.desk.Control(2)->text, "10.0.0.1");
}

TEST(ToolWindows, LocksKeepToolsShut) {
    DeskFixture f;
    f.Do("OPEN [connector]");
    f.Do("MENU_LOCK_ON [connector]");
    EXPECT_FALSE(f.game.desk.Box(1).visible);
    EXPECT_TRUE(f.game.desk.ToolLocked[1]);
    f.Do("OPEN [connector]");
    EXPECT_FALSE(f.game.desk.Box(1).visible);
    f.Do("MENU_LOCK_OFF [connector]");
    f.Do("OPEN [connector]");
    EXPECT_TRUE(f.game.desk.Box(1).visible);
}

TEST(Commands, ElementsListsAndPanels) {
    DeskFixture f;
    f.Do("ELEMENT_HIDE [mapper] [labelfire]"); // a shut tool: nothing happens
    f.Do("OPEN [connector]");
    f.Do("ELEMENT_HIDE [connector] [labelstatus]");
    f.Do("ELEMENT_BACKCOLOR [connector] [textaddress] [255]");
    f.Do("LIST_ADD [listhosts] []");
    f.Do("LIST_ADD [listhosts] [$score]");
    f.Do("LIST_REMOVE [listhosts] [B]");
    f.Do("MESSAGE [Note] [line one//$score]");
    f.Do("WINDOW_DISABLE_MOVE [Connector]");
    f.Do("WINDOW_DISABLE_MOVE [connector]");
    EXPECT_EQ(f.game.desk.NoMoveList, ":connector::connector:");
    f.Do("WINDOW_ENABLE_MOVE [connector]");
    EXPECT_FALSE(f.game.desk.Control(1)->visible);
    EXPECT_EQ(f.game.desk.Control(2)->backColor, 255);
    EXPECT_EQ(f.game.desk.Control(4)->items, (std::vector<std::string>{"a", "b", "c", "100"}));
    EXPECT_EQ(f.game.desk.message.text, "line one\r\n100");
    EXPECT_EQ(f.game.desk.NoMoveList, "");
    f.Do("CLOSE [mapper]"); // never opened: its close sequence runs all the same
    EXPECT_EQ(f.Log(), "open activate mapperclose");
}

TEST(Commands, AuthorizeChargesOrCancels) {
    DeskFixture f;
    f.project.QlobTable[1] = "poor $log = RETURN_COMPLEX [$log poor]";
    f.Run("AUTHORIZE [$score] [0] [poor]`$log = RETURN_COMPLEX [$log free:$score]");
    f.Run("AUTHORIZE [$score] [$40] [poor]`$log = RETURN_COMPLEX [$log paid:$score]");
    f.Run("AUTHORIZE [$score] [61] [poor]`$log = RETURN_COMPLEX [$log never]");
    EXPECT_EQ(f.Log(), "free:100 paid:60 poor");
}

TEST(Commands, ResetsPutDesignBackAroundExceptions) {
    DeskFixture f;
    f.Do("OPEN [mapper]");
    f.Do("OPEN [map]");
    f.game.desk.Control(5)->caption = "changed";
    f.game.desk.Control(6)->caption = "changed";
    f.Do("RESET_TOOL [map] [fir]"); // too short to protect: both prefix tools reset
    EXPECT_EQ(f.game.desk.Control(5)->caption, "");
    EXPECT_EQ(f.game.desk.Control(6)->caption, "x");
    f.game.desk.Control(5)->caption = "changed";
    f.game.desk.Control(6)->caption = "changed";
    f.Do("RESET_TOOL [map] [fire]"); // protects labelfire and labelfirewall
    EXPECT_EQ(f.game.desk.Control(5)->caption, "changed");
    EXPECT_EQ(f.game.desk.Control(6)->caption, "changed");
    f.Do("OPEN [connector]");
    f.Do("LIST_CLEAR [listhosts]");
    f.Do("RESET_ELEMENT [connector] [listhosts]");
    EXPECT_TRUE(f.game.desk.Control(4)->items.empty());
}

} // namespace
} // namespace orrery

namespace orrery {
namespace {

TEST(ToolWindows, EnterInAShortTextBoxClicksTheToolsButton) {
    DeskFixture f;
    f.Do("OPEN [connector]");
    f.game.desk.focusRow = 2;
    f.game.desk.message.visible = true;
    DesktopKey(f.game, Key::Enter, false); // closes the message and does nothing else
    EXPECT_EQ(f.Log(), "open activate");
    DesktopKey(f.game, Key::Enter, false);
    EXPECT_EQ(f.Log(), "open activate go:10.0.0.1");
    f.game.desk.Control(2)->height = 800; // a tall box takes Enter as a line break
    DesktopKey(f.game, Key::Enter, false);
    EXPECT_EQ(f.Log(), "open activate go:10.0.0.1");
}

} // namespace
} // namespace orrery
