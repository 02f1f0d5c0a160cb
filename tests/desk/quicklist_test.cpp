// The quicklist on a small world: entries from right clicks, clicks into the control used
// last, deletion, and the panel's rows.
#include "actions/engine_fixture.h"
#include "desk/quicklist.h"
#include "foundation/textfile.h"
#include "support/tempdir.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

using Rows = std::vector<std::string>;

struct QuickFixture : test::EngineFixture {
    QuickFixture() {
        test::TempDir dir;
        EXPECT_TRUE(
            WriteTextFile(dir.path() / "dns.dat",
                          "10.0.0.1:gate.com\n10.0.0.2:Mail-Hub.net\n10.0.0.3:vault.org\n"));
        world.LoadDns(dir.path());
        project.settings.myqlist = true;
        LoadQuickList(game);
    }
    Rows Entries() const { return {game.desk.Quicklist.begin() + 1, game.desk.Quicklist.end()}; }
};

TEST(Quicklist, NewestFirstNoEntryTwiceAndTheOldestFallsOff) {
    QuickFixture f;
    for (const char *text : {"one", "  two ", "   ", "three", " TWO"}) AddToList(f.game.desk, text);
    EXPECT_EQ(f.Entries(), (Rows{"three", "two", "one", "", "", ""}));
    for (const char *text : {"4", "5", "6", "7"}) AddToList(f.game.desk, text);
    EXPECT_EQ(f.Entries(), (Rows{"7", "6", "5", "4", "three", "two"}));
    QuickListDelete(f.game.desk, 2);
    EXPECT_EQ(f.Entries(), (Rows{"7", "5", "4", "three", "two", ""}));
    SetQSel(f.game.desk, 6);
    EXPECT_EQ(f.game.desk.quicklistSel, 0) << "an empty row selects nothing";
}

TEST(Quicklist, CandidatesFromRightClicksBecomeServerEntries) {
    std::string thirty;
    for (int i = 1; i <= 30; ++i) thirty += i == 20 ? "gate.com " : i == 21 ? "vault.org " : "w ";
    const std::pair<std::string, Rows> cases[] = {
        {"(3) Gate.com,", {"gate.com - 10.0.0.1", ""}},
        {"10.0.0.3 (16)", {"vault.org - 10.0.0.3", ""}},
        {"see 10.0.0.3 or GATE.com!", {"gate.com - 10.0.0.1", "vault.org - 10.0.0.3"}},
        {thirty, {"gate.com - 10.0.0.1", ""}},
    };
    for (const auto &[caption, top] : cases) {
        QuickFixture f;
        f.Element(1, "listhosts")->text = caption;
        ListRightClick(f.game, 1);
        AddQuickListServer(f.game);
        EXPECT_FALSE(f.game.desk.quickMenuVisible);
        EXPECT_EQ(Rows(f.game.desk.Quicklist.begin() + 1, f.game.desk.Quicklist.begin() + 3), top);
    }
    QuickFixture f;
    for (const char *caption : {"(17) gate.com", "(2) vault.org(1)"}) {
        f.Element(2, "labeltarget")->caption = caption;
        LabelRightClick(f.game, 2);
        EXPECT_EQ(f.game.desk.quickCandidate, caption[2] == '7' ? "" : "vault.org") << caption;
    }
}

TEST(Quicklist, ClickInsertsTheValueIntoTheControlUsedLast) {
    QuickFixture f;
    for (const char *text :
         {"note", "Mail-Hub.net - 10.0.0.2", "lost.net - 9.9.9.9", "gate.com - 10.0.0.1"})
        AddToList(f.game.desk, text);
    // A server entry gives its host name when that exists; "-" is taken out of it first.
    EXPECT_EQ(QuickListValue(f.game, 1), "gate.com");
    EXPECT_EQ(QuickListValue(f.game, 2), "lost.net - 9.9.9.9");
    EXPECT_EQ(QuickListValue(f.game, 3), "Mail-Hub.net - 10.0.0.2");

    ElementControl *box = f.Element(1, "textaddress");
    box->text = "ssh  now";
    box->selStart = 4;
    QuickListClick(f.game, 1);
    EXPECT_EQ(box->text, "ssh  now") << "no focus yet";
    f.game.desk.focusRow = 1;
    QuickListClick(f.game, 1);
    QuickListClick(f.game, 5); // empty
    box->selStart = 0;
    box->selLength = 3;
    QuickListClick(f.game, 4);
    EXPECT_EQ(box->text, "note gate.com now");
    EXPECT_EQ(box->selStart, 4u);

    ElementControl *list = f.Element(2, "listhosts");
    list->items = {"vault.org", "GATE.COM"};
    f.game.desk.focusRow = 2;
    QuickListClick(f.game, 1);
    EXPECT_EQ(list->listIndex, 1);
}

TEST(Quicklist, WithTheListOffThePanelHasNoRowsAndF10ShowsItEmpty) {
    QuickFixture f;
    f.game.desk = Desk();
    f.project.settings.myqlist = false;
    LoadQuickList(f.game);
    AddToList(f.game.desk, "note");
    EXPECT_TRUE(f.game.desk.Quicklist.empty());
    ToggleQuicklist(f.game.desk);
    EXPECT_TRUE(f.game.desk.quicklistVisible);
}

} // namespace
} // namespace orrery
