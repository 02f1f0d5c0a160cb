// The bundled demo game played from a new profile to its finale, and loaded back.
#include "support/tempdir.h"
#include "tools/cli.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

namespace orrery {
namespace {

namespace fs = std::filesystem;

const fs::path kTestData = ORRERY_TEST_DATA;
const fs::path kContent = kTestData.parent_path().parent_path() / "content" / "app" / "Data";

struct ToolRun {
    int code;
    std::string out;
    std::string err;
};

ToolRun Orrery(const std::vector<std::string> &args, const std::string &input = "") {
    std::istringstream in(input);
    std::ostringstream out, err;
    const int code = RunOrreryCli(args, in, out, err);
    return {code, out.str(), err.str()};
}

// An application folder with the demo game and the world the build generates for it.
bool MakeDemoApp(const fs::path &root) {
    const fs::path data = root / "Data";
    fs::create_directories(data / "night shift");
    for (const char *file : {"names.dat", "words.dat", "pname.dat", "night shift/settings.dat"})
        fs::copy_file(kContent / file, data / file);
    const ToolRun generated = Orrery({"generate", root.string(), "Night Shift"});
    EXPECT_EQ(generated.code, 0) << generated.err;
    return generated.code == 0;
}

// The trailing (or leading) run of "$name=value" lines: what "show vars" printed last (first).
std::string VariableBlock(const std::string &output, bool trailing) {
    std::vector<std::string> lines;
    std::istringstream in(output);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    std::string block;
    if (trailing) {
        for (auto line = lines.rbegin(); line != lines.rend() && line->starts_with('$'); ++line)
            block = *line + "\n" + block;
    } else {
        for (auto line = lines.begin(); line != lines.end() && line->starts_with('$'); ++line)
            block += *line + "\n";
    }
    return block;
}

TEST(DemoGame, PlaysFromANewProfileToSunriseAndLoadsBack) {
    test::TempDir dir;
    const std::string app = dir.path().string();
    ASSERT_TRUE(MakeDemoApp(dir.path()));

    const std::string script = (kTestData / "demo" / "playthrough.txt").string();
    const ToolRun night =
        Orrery({"play", app, "Night Shift", "--player", "Ann", "--new", "--script", script});
    ASSERT_EQ(night.code, 0) << night.err;
    EXPECT_EQ(night.err, "");
    // The key moments, in the order the script reaches them.
    const char *moments[] = {
        "title=Night Shift\n",
        "Console: never opened, locked\nCracker: never opened, locked\n",
        "Banner - Halvard Freight - night sync at six|",
        "$stage=1\n",
        "title=Not enough credits\n",
        "$credits=100\n",
        "<#7CA5E0>     help, status, scan, trace, killjob\n",
        "<#7CA5E0>      gate.halvard.com at 62.118.40.217\n"
        "<#7CA5E0>      runs halvard gatekeeper, 3 open ports.\n",
        "<#7CA5E0>      hop 3  81.42.7.199  depot.greyhaven.net\n",
        "$credits=150\n",
        "caption=depot.greyhaven.net\n",
        "\ndepot.greyhaven.net - 81.42.7.199\n",
        "title=Cracker\n",
        "$credits=30\n",
        "Cracker: open\n",
        "|Pass 8   LARKSPUR\n",
        "caption=Passcode LARKSPUR\n",
        "$hours=5\nvisible=True\ncaption=Hours to dawn - 5\n",
        "|Access granted.|Export job dawnrun waits for six o'clock.\n",
        "<#FF8000>      An hour has passed. Hours to dawn - 5.\n",
        "?:\\> killjob\n<#00FF00>      Export job dawnrun stopped.\n"
        "<#00FF00>      Nothing leaves the depot tonight.\n",
        "title=Sunrise\ntext=The export is dead",
        "$won=1\n$score=530\n",
        "items=From Mara - Sunrise|",
    };
    std::size_t at = 0;
    for (const char *moment : moments) {
        const std::size_t found = night.out.find(moment, at);
        ASSERT_NE(found, std::string::npos)
            << "missing after offset " << at << ": " << moment << "\n"
            << night.out;
        at = found;
    }
    const std::string saved = VariableBlock(night.out, true);
    ASSERT_NE(saved.find("$passcode=LARKSPUR\n"), std::string::npos) << saved;

    // The profile saved on exit: the same variables, the tools bought and unlocked, the
    // quicklist kept, and the inbox rebuilt by the first "every" event.
    const ToolRun morning = Orrery({"play", app, "Night Shift", "--player", "Ann", "--load"},
                                   "show vars\nadvance 200\nshow tools\nshow quicklist\n"
                                   "show element listinbox\nexit\n");
    ASSERT_EQ(morning.code, 0) << morning.err;
    EXPECT_EQ(VariableBlock(morning.out, false), saved);
    EXPECT_NE(morning.out.find("Console: never opened\nCracker: never opened\n"
                               "depot.greyhaven.net - 81.42.7.199\n"),
              std::string::npos)
        << morning.out;
    EXPECT_NE(morning.out.find("items=From Mara - Sunrise|"), std::string::npos) << morning.out;
}

} // namespace
} // namespace orrery

namespace orrery {
namespace {

// Escape leaves the desktop through ExitMe, which saves; EXIT_GAME closes it without a save.
TEST(DemoGame, TheDesktopEndsTheGameWithOrWithoutASave) {
    test::TempDir dir;
    const std::string app = dir.path().string();
    ASSERT_TRUE(MakeDemoApp(dir.path()));
    const auto play = [&](const char *mode, const std::string &script) {
        return Orrery({"play", app, "Night Shift", "--player", "Bo", mode}, script);
    };
    const fs::path profile = dir.path() / "Saved" / "Bo.vbz";

    ToolRun run = play("--new", "key 13\nstatement $credits = RETURN_COMPLEX [777]\nkey 27\nshow vars\n");
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "<stdin>:4: the game has ended\n");
    EXPECT_NE(play("--load", "show var $credits\n").out.find("$credits=777"), std::string::npos);

    run = play("--load", "statement $credits = RETURN_COMPLEX [1]\nstatement EXIT_GAME\n");
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_NE(play("--load", "show var $credits\n").out.find("$credits=777"), std::string::npos);
}

} // namespace
} // namespace orrery

namespace orrery {
namespace {

// What an author's script may ask and what it is refused, with the script's own messages.
TEST(DemoGame, TheScriptShowsTheDeskAndRefusesWhatItCannotDo) {
    test::TempDir dir;
    const std::string app = dir.path().string();
    ASSERT_TRUE(MakeDemoApp(dir.path()));
    const auto play = [&](const char *mode, const std::string &player, const std::string &script) {
        return Orrery({"play", app, "Night Shift", "--player", player, mode}, script);
    };

    ToolRun run = play("--new", "Ann",
                       "show var credits\nshow var $CREDITS\nopen Connector\n"
                       "show elements Connector\nshow elements\n");
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("$credits=100\n$credits=100\nlabeladdress: label in Connector, "
                                    "visible, caption=Address\n"))
        << run.out;
    EXPECT_NE(run.out.find("labelhint: label in Connector, visible, caption=Last host traced "
                           "(right-click to keep it...\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("labeldawn: label in Connector, visible, caption=Hours to dawn - 6\n"
                           "listinbox: list in Mail, visible, items="),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("buttonbuy: button in Mail, hidden, caption="), std::string::npos);

    // Each line stops its script with a message that says what was wrong.
    const std::pair<const char *, const char *> refused[] = {
        {"advance 1e30", "advance: \"1e30\" is not a whole number from 0 to 86400000"},
        {"advance 86400001", "advance: \"86400001\" is not a whole number from 0 to 86400000"},
        {"advance abc", "advance: \"abc\" is not a whole number"},
        {"advance -5", "advance: \"-5\" is not a whole number"},
        {"advance nan", "advance: \"nan\" is not a whole number"},
        {"advance inf", "advance: \"inf\" is not a whole number"},
        {"advance", "advance: \"\" is not a whole number"},
        {"key 13 shoft", "key: \"shoft\" after the code is not \"shift\""},
        {"key 0", "key: \"0\" is not a whole number from 1 to 255"},
        {"quickclick 7", "quickclick: the quicklist has 6 rows"},
        {"quickclick x", "quickclick: \"x\" is not a whole number"},
        {"show var", "show var: which variable?"},
        {"show elements Nowhere", "tool \"Nowhere\" is not on the desktop"},
    };
    for (const auto &[line, message] : refused) {
        run = play("--load", "Ann", std::string(line) + "\n");
        EXPECT_EQ(run.code, 1) << line;
        EXPECT_NE(run.err.find(std::string("<stdin>:1: ") + message), std::string::npos)
            << line << ": " << run.err;
    }

    // A new profile under a name in use is refused as on the profile screen, and names that
    // Windows-1252 can't write don't become one file.
    const fs::path profile = dir.path() / "Saved" / "Ann.vbz";
    const auto before = fs::last_write_time(profile);
    run = play("--new", "Ann.VBZ", "");
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "orrery: \"Ann.VBZ\": That profile name already exists!\n");
    EXPECT_EQ(fs::last_write_time(profile), before);
    for (const char *player : {"Ωμ", "Δέ"}) {
        run = play("--new", player, "");
        EXPECT_EQ(run.code, 1);
        EXPECT_NE(run.err.find(std::string("\"") + player + "\" is not a usable player name"),
                  std::string::npos)
            << run.err;
    }
    EXPECT_FALSE(fs::exists(dir.path() / "Saved" / "??.vbz"));
}

} // namespace
} // namespace orrery
