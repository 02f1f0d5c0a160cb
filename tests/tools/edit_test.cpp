// orrery edit as an author scripts it: words, refusals, and a script applied whole or not at all.
#include "foundation/textfile.h"
#include "support/tempdir.h"
#include "support/orrery_run.h"
#include "tools/edit_command.h"

#include <gtest/gtest.h>
#include <sstream>

namespace orrery {
namespace {

using test::Orrery;
using test::ToolRun;

TEST(EditWords, SplitLikeAShell) {
    const std::pair<const char *, std::vector<std::string>> rows[] = {
        {"add-tool  Mail", {"add-tool", "Mail"}},
        {"add-tool \"Mail Box\"", {"add-tool", "Mail Box"}},
        {"set-qlob GO \"say \\\"hi\\\"\"", {"set-qlob", "GO", "say \"hi\""}},
        {"add-server ip=\"1.2.3.4\"x", {"add-server", "ip=1.2.3.4x"}},
        {"set-help T \"\"", {"set-help", "T", ""}},
    };
    for (const auto &[line, expected] : rows) {
        std::vector<std::string> words;
        ASSERT_TRUE(SplitWords(line, words)) << line;
        EXPECT_EQ(words, expected) << line;
    }
    std::vector<std::string> words;
    EXPECT_FALSE(SplitWords("add-tool \"open", words));
}

class EditTool : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(Orrery({"new", app, "Game", "--author", "A"}).code, 0); }
    std::string File() const { return ReadTextFile(dir.path() / "Data" / "game" / "settings.dat"); }
    test::TempDir dir;
    std::string app = dir.path().string();
};

TEST_F(EditTool, AScriptIsAppliedWholeOrNotAtAll) {
    const std::string before = File();
    const std::string script = "# tools first\n"
                               "add-tool \"Mail Box\"\n"
                               "add-var gold 5\n"
                               "add-tool \"mail box\"\n"
                               "add-qlob never\n";
    const ToolRun refused = Orrery({"edit", app, "Game", "--script", "-"}, script);
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.err, "<stdin>:4: A tool with that name already exists.\n");
    EXPECT_EQ(File(), before) << "nothing of a refused script is saved";

    const ToolRun applied = Orrery({"edit", app, "Game", "--script", "-"},
                                   "\xEF\xBB\xBF" // an editor's byte order mark
                                   "add-tool \"Mail Box\"\nadd-var gold 5\n"
                                   "add-element \"Mail Box\" label status 120 240\n"
                                   "set labelstatus caption \"Credits - none\"\n"
                                   "set-var gold 7\nhide-tool \"Mail Box\"\n"
                                   "move-tool \"Mail Box\" up\n");
    EXPECT_EQ(applied.code, 0) << applied.err;
    EXPECT_EQ(applied.out, "");
    EXPECT_NE(File().find("mytoolcaption:9:Mail Box\r\n"), std::string::npos);
    EXPECT_NE(File().find("variable:$gold=7\r\n"), std::string::npos);
    EXPECT_NE(File().find("[newel]:label:labelstatus\r\nelement:1:atool:Mail Box\r\n"),
              std::string::npos);
    EXPECT_NE(File().find("caption:Credits - none\r\n"), std::string::npos);
    const std::string edited = File();
    ASSERT_EQ(Orrery({"resave", app, "Game"}).code, 0);
    EXPECT_EQ(File(), edited) << "what the editor writes, a reload and a save write again";
}

TEST_F(EditTool, ARefusalPrintsItsWordsWithATitleThatSaysMore) {
    const ToolRun plain = Orrery({"edit", app, "Game", "add-tool", "connector"});
    EXPECT_EQ(plain.code, 1);
    EXPECT_EQ(plain.err, "A tool with that name already exists.\n");
    const ToolRun titled = Orrery({"edit", app, "Game", "set-sequence", "Console:opening", "X"});
    EXPECT_EQ(titled.code, 1);
    EXPECT_EQ(titled.err.substr(0, 8), "[Hello] ");
    EXPECT_EQ(Orrery({"edit", app, "Game", "add-tool"}).code, 2);
    EXPECT_EQ(Orrery({"edit", app, "Game", "paint-it-black"}).code, 2);
    EXPECT_EQ(Orrery({"edit", app, "Nothing", "add-tool", "x"}).code, 1);
    EXPECT_EQ(Orrery({"edit", app, "Game", "add-tool", "-"}).code, 0)
        << "a word may begin with a dash";
}

TEST_F(EditTool, HelpListsEveryOperation) {
    const ToolRun help = Orrery({"edit", "--help"});
    EXPECT_EQ(help.code, 0);
    for (const char *operation :
         {"add-tool", "remove-tool", "add-var", "add-qlob", "set-qlob", "remove-qlob",
          "set-sequence", "add-field", "add-server", "set-random-servers"})
        EXPECT_NE(help.out.find(std::string("  ") + operation + " "), std::string::npos)
            << operation;
}

} // namespace
} // namespace orrery
