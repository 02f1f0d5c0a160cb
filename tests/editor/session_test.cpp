// The editor's session: creating and opening with their refusals, steps saved at once and
// undone to the byte, the saves of the timer, of Exit and of closing, and the settings page's step.
#include "editor/session.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/scramble.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "support/tempdir.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

// A session on an empty application folder whose stock folder has nothing.
struct SessionTest : ::testing::Test {
    test::TempDir dir;
    EditorSession session{AppPaths(dir.path() / "app"), AppPaths(dir.path() / "stock")};

    std::string FileBytes(std::string_view name = "My Game") {
        return ReadFileBytes(*session.paths().ProjectFile(name)).value_or("");
    }
    void CreateMyGame() {
        ASSERT_EQ(session.Create({"My Game", "Me", "", "", "one/crlf/two"}), std::nullopt);
    }
    std::vector<fs::path> Backups() {
        std::vector<fs::path> files;
        std::error_code error;
        for (const auto &entry : fs::directory_iterator(session.paths().BackupPath(), error))
            files.push_back(entry.path());
        return files;
    }
};

TEST_F(SessionTest, CreateRefusesInTheWizardsWordsAndOpensWhatItMade) {
    EXPECT_EQ(session.Title(), "Orrery Kit []");
    const Message missing{"Error", std::string(kMissingNameOrAuthor)};
    const Message exists{"Error", std::string(kProjectAlreadyExists)};
    EXPECT_EQ(session.Create({"  ", "Me", "", "", ""}), missing);
    EXPECT_EQ(session.Create({"My Game", " ", "", "", ""}), missing);
    EXPECT_FALSE(session.IsOpen());

    CreateMyGame();
    EXPECT_TRUE(session.IsOpen());
    EXPECT_EQ(session.Title(), "Orrery Kit [my game]");
    EXPECT_EQ(session.model().settings.myprojectdescription, "one\r\ntwo");
    EXPECT_NE(FileBytes().find("myprojectauthor:Me"), std::string::npos);
    EXPECT_NE(session.Status().find("Data/names.dat is missing"), std::string::npos)
        << "the stock neither tree has is said";
    EXPECT_EQ(session.Create({"MY GAME", "Me", "", "", ""}), exists)
        << "the folder test ignores case";
}

TEST_F(SessionTest, TheListHoldsEveryFolderAndOpensOnlyProjects) {
    CreateMyGame();
    const fs::path data = session.paths().DataPath();
    fs::create_directories(data / "S");
    fs::create_directories(data / "empty");
    fs::create_directories(data / " ");
    WriteTextFile(data / "pname.dat", "My Game");
    EXPECT_EQ(session.ProjectList(), (std::vector<std::string>{"empty", "my game", "S"}));

    EXPECT_EQ(session.Open("S"), kInvalidProject);
    EXPECT_EQ(session.Open(""), kInvalidProject);
    EXPECT_EQ(session.SettingsFile("empty").refusal, kSettingsNotFound);
    EXPECT_EQ(session.SettingsFile("my game").file, data / "my game" / "settings.dat");
    EXPECT_EQ(session.Open("my game"), std::nullopt);
    EXPECT_EQ(session.Title(), "Orrery Kit [my game]");
    EXPECT_EQ(session.model().settings.myprojectauthor, "Me");
}

TEST_F(SessionTest, AStepItsUndoAndItsRedoAreEachSavedAtOnce) {
    CreateMyGame();
    const std::string before = FileBytes();
    const Outcome added = AddTool(session.model(), "Scanner");
    ASSERT_TRUE(session.Apply(added));
    const std::string after = FileBytes();
    EXPECT_NE(after.find("Scanner"), std::string::npos);
    session.Undo(added.change);
    EXPECT_EQ(FileBytes(), before);
    session.Redo(added.change);
    EXPECT_EQ(FileBytes(), after);

    EXPECT_FALSE(session.Apply(AddTool(session.model(), "scanner"))) << "refused: nothing to keep";
    EXPECT_FALSE(session.Apply(AddTool(session.model(), ""))) << "no change: nothing to keep";
    EXPECT_EQ(FileBytes(), after);
    EXPECT_TRUE(Backups().empty()) << "only Exit puts a backup aside";
}

TEST_F(SessionTest, ExitPutsABackupAsideAndClosingDoesNot) {
    CreateMyGame();
    session.Close();
    EXPECT_TRUE(Backups().empty());
    session.model().settings.myprojectemail = "me@example.org";
    session.Exit();
    const std::vector<fs::path> backups = Backups();
    ASSERT_EQ(backups.size(), 1u);
    const std::string name = backups[0].filename().string();
    EXPECT_EQ(name.substr(0, 8), "my game_");
    EXPECT_EQ(name.substr(name.size() - 5), "_.dat");
    EXPECT_EQ(ReadFileBytes(backups[0]).value_or(""), FileBytes());
    EXPECT_NE(FileBytes().find("me@example.org"), std::string::npos);
}

TEST_F(SessionTest, TheTimerNeverSavesAProjectFromAScrambledFile) {
    CreateMyGame();
    session.Autosave();
    EXPECT_EQ(session.LastSave().status, SaveStatus::Saved);

    std::string scrambled = "[revise]\r\n";
    for (std::string_view line : SplitLines(FileBytes())) scrambled += ScrambleText(line) + "\r\n";
    ASSERT_TRUE(session.paths().MakeProjectDir("Sold"));
    ASSERT_TRUE(ReplaceFileAtomically(*session.paths().ProjectFile("Sold"), scrambled));
    EditorSession reader(session.paths(), session.paths());
    ASSERT_EQ(reader.Open("Sold"), std::nullopt);
    reader.Autosave();
    EXPECT_EQ(reader.LastSave().status, SaveStatus::NotAsked);
    EXPECT_EQ(FileBytes("Sold"), scrambled);
}

TEST_F(SessionTest, TheSettingsPageWritesItsFieldsAsOneStep) {
    CreateMyGame();
    ProjectModel &model = session.model();
    const std::string before = FileBytes();
    const NewProjectInfo shown = ProjectInfo(model);
    EXPECT_EQ(shown.description, "one/crlf/two");

    Outcome step = SetProjectInfo(model, {"ignored", "You", "www.x.org", "y@x.org", "a/crlf/b"});
    ASSERT_FALSE(step.refused());
    EXPECT_EQ(step.change.name(), "Change Project Settings");
    EXPECT_EQ(model.settings.myprojectname, "My Game") << "the name is the folder's";
    EXPECT_EQ(model.settings.myprojectdescription, "a\r\nb");
    ASSERT_TRUE(session.Apply(step));
    session.Undo(step.change);
    EXPECT_EQ(FileBytes(), before) << "one undo takes back every field";

    const Outcome colon = SetProjectInfo(model, {"", "Them", "http://x.org", "", ""});
    ASSERT_TRUE(colon.refused());
    EXPECT_NE(colon.refusal->text.find("The website can't hold a colon"), std::string::npos);
    EXPECT_EQ(model.settings.myprojectauthor, "Me") << "the fields before the refused one go back";
    EXPECT_EQ(SetProjectInfo(model, {"", " ", "", "", ""}).refusal,
              (Message{"Error", std::string(kMissingNameOrAuthor)}));
}

} // namespace
} // namespace orrery

namespace orrery {
namespace {

TEST_F(SessionTest, OpeningAndClosingOnAnotherScreenChangesNothing) {
    CreateMyGame();
    const std::string before = FileBytes();
    EditorSession elsewhere{session.paths(), AppPaths(dir.path() / "stock"),
                            HostScreen{9000, 6000}};
    ASSERT_EQ(elsewhere.Open("My Game"), std::nullopt);
    elsewhere.Close();
    EXPECT_EQ(FileBytes(), before) << "the menu's saved form size stays the file's";
}

} // namespace
} // namespace orrery
