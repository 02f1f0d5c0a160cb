// Profiles: the new game, the file's round trip and its losses, and bad files and names.
#include "actions/engine_fixture.h"
#include "foundation/convert.h"
#include "foundation/scramble.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "session/profiles.h"
#include "session/profilescreen.h"
#include "support/tempdir.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

using Pairs = std::vector<std::pair<std::string, std::string>>;

// A game in a fresh application folder, with a full name list and a desk of three tools.
struct ProfileFixture : test::EngineFixture {
    test::TempDir dir;
    AppPaths paths{dir.path()};

    ProfileFixture() {
        paths.MakeProjectFolders("G");
        std::string names;
        for (int i = 1; i <= kNameRows; ++i) names += "N" + IntText(i) + "\r\n";
        EXPECT_TRUE(WriteTextFile(paths.DataPath() / "names.dat", names));
        EXPECT_TRUE(words.LoadNames(paths.DataPath() / "names.dat"));
        game.paths = &paths;
        game.desk.Quicklist = {"", "10.0.0.1 - gate.com", "note"};
        game.desk.ToolLocked = {false, true, false, true};
    }
    Pairs Variables(int count) const {
        Pairs pairs;
        for (int slot = 1; slot <= count; ++slot)
            pairs.emplace_back(game.VariableTable[slot].name, game.VariableTable[slot].value);
        return pairs;
    }
    std::string Value(int slot) const { return game.VariableTable[slot].value; }
};

TEST(Profiles, NewGameRoundTripsWithTheFormatsLosses) {
    ProfileFixture f;
    const std::pair<const char *, const char *> defaults[] = {
        {"$a", " 1 "},
        {" ", "dropped"},
        {"$lines", "one\r\ntwo"},
        {"$eq", "a=b"},
        {"$me", "$randomplayername!"},
        {"$who", "$randomname & $randomname"}};
    int slot = 0;
    for (const auto &[name, value] : defaults) f.project.VariableTable[++slot] = {name, value};

    const GameStart start = GameNew(f.game, " Ada ");
    ASSERT_TRUE(start.ok) << start.error;
    EXPECT_TRUE(start.loadPath.empty());
    EXPECT_TRUE(fs::is_directory(f.paths.SavedPath() / "Ada"));
    EXPECT_EQ(f.Value(5), "Ada!");
    // One draw per slot, every occurrence getting it.
    const std::string who = f.Value(6);
    const std::string drawn = FieldBy(who, 1, " & ");
    EXPECT_NE(drawn.find(' '), std::string::npos);
    EXPECT_EQ(who, drawn + " & " + drawn);

    for (int row = 1; row <= kVariableRows; ++row) f.game.VariableTable.Set(row, {"junk", "junk"});
    f.game.desk.Quicklist = {"", "x", "y", "z"};
    f.game.desk.ToolLocked = {true, false, true, false};
    ASSERT_TRUE(LoadProfile(f.game, f.paths.SavedPath() / "Ada.vbz").ok);
    const Pairs expected = {{"$a", "1"},   {"$lines", "one\r\ntwo"},
                            {"$eq", "a"},  {"$me", "Ada!"},
                            {"$who", who}, {"", ""}};
    EXPECT_EQ(f.Variables(6), expected);
    EXPECT_EQ(f.game.desk.Quicklist,
              (std::vector<std::string>{"", "10.0.0.1 - gate.com", "note", "z"}));
    EXPECT_EQ(f.game.desk.ToolLocked, (std::vector<bool>{true, true, false, true}));
}

TEST(Profiles, FileIsScrambledLineByLineInItsFixedOrder) {
    ProfileFixture f;
    f.game.PlayerName = " Ada ";
    f.game.VariableTable.Set(2, {" $x ", "a\r\nb"});
    f.game.desk.Quicklist = {""};
    const std::string first = ProfileText(f.game);
    const std::string second = ProfileText(f.game);
    EXPECT_NE(first, second);
    EXPECT_TRUE(first.ends_with("\r\n") && !first.ends_with("\r\n\r\n"));

    std::string plain;
    for (std::string_view line : SplitLines(first)) plain += UnscrambleText(line) + "\r\n";
    EXPECT_EQ(plain, "playername:Ada\r\n\r\n[variables]\r\n\r\nuser-variable:$x=a//b\r\n\r\n"
                     "[quicklist]\r\n\r\n\r\n[locked-tools]\r\n\r\nlocked:1\r\nunlocked:2\r\n"
                     "locked:3\r\n");

    // Both saves load to the same state.
    ProfileFixture g;
    ApplyProfileText(g.game, first);
    const auto once = g.Variables(2);
    ApplyProfileText(g.game, second);
    EXPECT_EQ(g.Variables(2), once);
    EXPECT_EQ(once[0], (std::pair<std::string, std::string>{"$x", "a\r\nb"}));
}

TEST(Profiles, EmptyPathKeepsTheNewGameAndAnUnreadableFileChangesNothing) {
    ProfileFixture f;
    f.game.VariableTable.Set(1, {"$kept", "1"});
    EXPECT_TRUE(LoadProfile(f.game, " ").ok);
    const ProfileResult missing = LoadProfile(f.game, f.paths.SavedPath() / "Nobody.vbz");
    EXPECT_FALSE(missing.ok);
    EXPECT_NE(missing.error.find("Nobody.vbz"), std::string::npos);
    EXPECT_EQ(f.game.VariableTable[1].name, "$kept");

    EXPECT_NE(SaveProfile(f.game, f.paths.SavedPath() / "no" / "x.vbz").error.find("x.vbz"),
              std::string::npos);
}

TEST(Profiles, HandMadeAndBinaryFilesLoadWhatTheyCan) {
    ProfileFixture f;
    std::string text;
    for (const char *line :
         {"quicklist:1", "quicklist:2", "quicklist:3", "quicklist:4", "quicklist:5", "quicklist:6",
          "quicklist:7", "locked:0", "locked:x", "locked:3", "unlocked:1", "locked:99", "locked:-1",
          "user-variable:$bare", "USER-VARIABLE:$up=1"})
        text += ScrambleText(line, f.random) + "\r\n";
    for (int i = 0; i < 2001; ++i)
        text += ScrambleText("user-variable:$v" + IntText(i) + "=1") + "\n";
    for (int i = 0; i < 4096; ++i) text += static_cast<char>(f.random.Below(256));
    ApplyProfileText(f.game, text);

    EXPECT_EQ(f.game.desk.Quicklist, (std::vector<std::string>{"", "1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(f.game.desk.ToolLocked, (std::vector<bool>{false, false, false, true}));
    EXPECT_EQ(f.Variables(2), (Pairs{{"$bare", ""}, {"USER-VARIABLE:$up", "1"}}));
    EXPECT_EQ(f.game.VariableTable[kVariableRows].name, "$v2000") << "overflow overwrites the last";
    EXPECT_EQ(NextFreeRuntimeVariable(f.game), kVariableRows);
}

TEST(Profiles, NoPlayerNameLeadsOutsideSaved) {
    ProfileFixture f;
    for (const char *name : {"", "  ", ".", "..", "a/b", "../x", "a\\b", "tab\tname"}) {
        EXPECT_FALSE(ProfileFile(f.paths, name)) << name;
        EXPECT_FALSE(GameNew(f.game, name).ok) << name;
        EXPECT_FALSE(GameLoad(f.game, name).ok) << name;
        EXPECT_FALSE(SaveCurrentProfile(f.game).ok) << name;
    }
    EXPECT_TRUE(fs::is_empty(f.paths.SavedPath()));
    EXPECT_FALSE(fs::exists(f.dir.path() / "x.vbz"));
}

TEST(Profiles, ANewGameIsMadeWholeOrNotAtAll) {
    ProfileFixture f;
    // The longest name whose profile, saved through a temporary file, fits a file name.
    const std::string longest(237, 'a');
    ASSERT_TRUE(GameNew(f.game, longest).ok);
    EXPECT_TRUE(SaveCurrentProfile(f.game).ok);
    // Too long for the save, or holding what Windows-1252 can't write: refused in the name
    // check's words, with nothing made.
    for (const std::string &name :
         {std::string(238, 'a'), std::string(251, 'a'), std::string("??")}) {
        const GameStart start = GameNew(f.game, name);
        EXPECT_FALSE(start.ok) << name;
        EXPECT_NE(start.error.find("is not a usable player name"), std::string::npos)
            << start.error;
    }
    // A first save that fails takes the world it made with it.
    fs::create_directories(f.paths.SavedPath() / "Bo.vbz" / "in the way");
    EXPECT_FALSE(GameNew(f.game, "Bo").ok);
    std::vector<std::string> left;
    for (const auto &entry : fs::directory_iterator(f.paths.SavedPath()))
        left.push_back(entry.path().filename());
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, (std::vector<std::string>{"Bo.vbz", longest, longest + ".vbz"}));
}

} // namespace
} // namespace orrery
