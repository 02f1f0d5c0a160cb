// The help panel's topics, the top menu's help entry and the clock's text.
#include "actions/engine_fixture.h"
#include "desk/help.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

using namespace std::chrono_literals;

TEST(Help, TopicsShowTheirHiddenTextWithLineBreaksAndTheProjectName) {
    test::EngineFixture f;
    f.project.settings.myprojectname = "Deep Net";
    f.project.HelpTable[1] = "Welcome:Welcome to $myprojectname!////Good luck!";
    f.project.HelpTable[3] = "Keys:Press [F1]: help.//Press  [F10].";
    LoadHelper(f.game);
    const HelpPanel &help = f.game.desk.help;
    EXPECT_FALSE(help.visible);
    ASSERT_EQ(help.items.size(), 2u);
    EXPECT_EQ(help.text, "Welcome to Deep Net!\r\n\r\nGood luck!");
    HelpListClick(f.game, 1);
    EXPECT_EQ(help.text, "Press [F1]: help.\r\nPress  [F10].");
    EXPECT_EQ(HelpItemText("Two  words        x        y"), "x        y");
}

TEST(Help, TheFirstMenuGetsTheHelpEntryUnlessTheMenuHasOne) {
    const std::pair<const char *, const char *> cases[] = {
        {"File//-Exit=exit//Edit", "File:-Show Help=help:-:-Exit=exit:Edit"},
        {"-Stray=x//Game", "-Stray=x:Game:-Show Help=help:-:"},
        {"File//-Exit=exit//Edit//-Manual= HELP ", "File//-Exit=exit//Edit//-Manual= HELP "},
        {"-Only=sub", "-Only=sub"},
    };
    for (const auto &[menu, expected] : cases) EXPECT_EQ(MenuWithHelpEntry(menu), expected) << menu;
}

TEST(Clock, ShowsTwelveHourTimeAndRefreshesWhileTheSettingIsOn) {
    const std::pair<std::chrono::minutes, const char *> cases[] = {
        {0min, "12:00 AM"}, {9h + 5min, "9:05 AM"}, {12h, "12:00 PM"}, {23h + 59min, "11:59 PM"}};
    for (const auto &[time, text] : cases) EXPECT_EQ(ClockText(time), text);

    test::EngineFixture f;
    LoadClock(f.game.desk, 10h);
    ClockTick(f.game, 11h);
    EXPECT_EQ(f.game.desk.clock.text, "10:00 AM") << "myclock off";
    f.project.settings.myclock = true;
    ClockTick(f.game, 11h);
    EXPECT_EQ(f.game.desk.clock.text, "11:00 AM");
}

} // namespace
} // namespace orrery
