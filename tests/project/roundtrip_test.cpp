// The project file read and written back: golden bytes, fixed point, scrambled copies.
#include "foundation/random.h"
#include "foundation/scramble.h"
#include "foundation/textfile.h"
#include "project/loader.h"
#include "project/saver.h"
#include "support/tempdir.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace orrery {
namespace {

const std::filesystem::path kRich = std::filesystem::path(ORRERY_TEST_DATA) / "project" / "rich";

std::string ReadOrFail(const std::filesystem::path &file) {
    auto bytes = ReadFileBytes(file);
    EXPECT_TRUE(bytes) << file;
    return bytes.value_or("");
}

// Puts the bytes as the project file of "Rich Game" below a fresh application folder.
AppPaths InstallProject(const test::TempDir &dir, std::string_view bytes) {
    AppPaths paths(dir.path());
    EXPECT_TRUE(paths.MakeProjectFolders("Rich Game"));
    EXPECT_TRUE(ReplaceFileAtomically(*paths.ProjectFile("Rich Game"), bytes));
    return paths;
}

std::string LoadAndSave(const std::string &bytes) {
    test::TempDir dir;
    const AppPaths paths = InstallProject(dir, bytes);
    ProjectModel model;
    EXPECT_TRUE(LoadProject(model, paths, "Rich Game").found);
    EXPECT_EQ(SaveProject(model, paths, "", 1).status, SaveStatus::Saved);
    return ReadOrFail(*paths.ProjectFile("Rich Game"));
}

TEST(ProjectRoundTrip, RichProjectSavesTheGoldenBytesAndIsAFixedPoint) {
    const std::string first = LoadAndSave(ReadOrFail(kRich / "settings.dat"));
    if (std::getenv("ORRERY_UPDATE_GOLDEN")) {
        ASSERT_TRUE(ReplaceFileAtomically(kRich / "expected.dat", first));
    }
    EXPECT_EQ(first, ReadOrFail(kRich / "expected.dat"));
    EXPECT_EQ(LoadAndSave(first), first);
}

TEST(ProjectRoundTrip, ScrambledCopyLoadsTheSameModelAndNeverSaves) {
    const std::string plain = ReadOrFail(kRich / "expected.dat");
    Random random(7);
    std::string scrambled = "[revise]\r\n";
    for (std::string_view line : SplitLines(plain)) scrambled += ScrambleText(line, random) + "\r\n";

    test::TempDir dir;
    const AppPaths paths = InstallProject(dir, scrambled);
    ProjectModel model;
    LoadProject(model, paths, "Rich Game");
    EXPECT_TRUE(model.scrambled);
    EXPECT_EQ(SaveProject(model, paths, "backup", 1).status, SaveStatus::ReadOnly);
    EXPECT_EQ(ReadOrFail(*paths.ProjectFile("Rich Game")), scrambled);
    EXPECT_FALSE(std::filesystem::exists(paths.BackupPath()));

    // The model is the plain one: its text, once the flag is cleared, is the plain file's.
    model.scrambled = false;
    EXPECT_EQ(BuildProjectText(model) + "\r\n", plain);
}

TEST(ProjectRoundTrip, ReviseInMidFileUnscramblesOnlyTheLinesAfterIt) {
    ProjectModel model;
    Random random(1);
    const std::string text = "myprojectauthor:Plain\r\n[revise]\r\n" +
                             ScrambleText("myprojectwebsite:hidden.example", random) + "\r\n";
    LoadProjectText(model, "x", text);
    EXPECT_EQ(model.settings.myprojectauthor, "Plain");
    EXPECT_EQ(model.settings.myprojectwebsite, "hidden.example");
}

// An undo stack keeps copies of the model: building the text must leave it as it was, and a
// second save must find nothing left to tidy.
TEST(ProjectSave, BuildingReadsTheModelAndASecondSaveWritesTheSameBytes) {
    test::TempDir dir;
    const AppPaths paths = InstallProject(dir, ReadOrFail(kRich / "settings.dat"));
    ProjectModel model;
    LoadProject(model, paths, "Rich Game");
    const ProjectModel before = model;
    const std::string text = BuildProjectText(model);
    EXPECT_TRUE(model == before);

    ASSERT_EQ(SaveProject(model, paths, "", 1).status, SaveStatus::Saved);
    const std::string first = ReadOrFail(*paths.ProjectFile("Rich Game"));
    EXPECT_EQ(first, text + "\r\n");
    const ProjectModel saved = model;
    ASSERT_EQ(SaveProject(model, paths, "", 1).status, SaveStatus::Saved);
    EXPECT_EQ(ReadOrFail(*paths.ProjectFile("Rich Game")), first);
    EXPECT_TRUE(model == saved);
}

TEST(ProjectSave, GoOtherThanOneDoesNothing) {
    test::TempDir dir;
    AppPaths paths(dir.path());
    ProjectModel model;
    model.settings.myprojectname = "Quiet";
    EXPECT_EQ(SaveProject(model, paths, "backup", 0).status, SaveStatus::NotAsked);
    EXPECT_FALSE(std::filesystem::exists(paths.DataPath()));
    EXPECT_TRUE(model.lastSavedName.empty());
}

TEST(ProjectSave, BackupGoesBesideTheProjectWithAStampedName) {
    test::TempDir dir;
    AppPaths paths(dir.path());
    ProjectModel model;
    model.settings.myprojectname = "My:Game";
    const SaveResult saved = SaveProject(model, paths, "  BackUp ", 1, "2026/11/21 10:49:46");
    ASSERT_EQ(saved.status, SaveStatus::Saved);
    EXPECT_EQ(saved.backup, paths.BackupPath() / "mygame_20261121 104946_.dat");
    EXPECT_EQ(ReadOrFail(saved.backup), ReadOrFail(saved.file));
    EXPECT_EQ(saved.file, paths.DataPath() / "mygame" / "settings.dat");
    EXPECT_EQ(model.lastSavedName, "My:Game");
}

// While it lives, no file of the process can grow past the limit: a write fails midway, as it
// does on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &m_old);
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, m_old.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    rlimit m_old{};
    void (*m_oldHandler)(int) = nullptr;
};

TEST(ProjectSave, FailedWriteKeepsTheOldFileAndNoTemporary) {
    test::TempDir dir;
    AppPaths paths(dir.path());
    ProjectModel model;
    model.settings.myprojectname = "Kept";
    ASSERT_EQ(SaveProject(model, paths, "", 1).status, SaveStatus::Saved);
    const auto file = *paths.ProjectFile("Kept");
    const std::string before = ReadOrFail(file);
    model.settings.myprojectauthor = "changed";
    SaveResult failed;
    {
        const FileSizeLimit full(100);
        failed = SaveProject(model, paths, "", 1);
    }
    EXPECT_EQ(failed.status, SaveStatus::Failed);
    EXPECT_NE(failed.error.find("settings.dat"), std::string::npos);
    EXPECT_EQ(ReadOrFail(file), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file.parent_path()), {}), 1);
}

// The longest name a project makes is its backup's; a name whose backup can't be written is
// refused before anything is made.
TEST(ProjectSave, ANameIsSavedWithItsBackupOrNotAtAll) {
    test::TempDir dir;
    AppPaths paths(dir.path());
    ProjectModel model;
    model.settings.myprojectname = std::string(220, 'a');
    const SaveResult saved = SaveProject(model, paths, "backup", 1);
    EXPECT_EQ(saved.status, SaveStatus::Saved);
    EXPECT_TRUE(saved.error.empty()) << saved.error;
    EXPECT_FALSE(saved.backup.empty());
    for (const std::string &name : {std::string(221, 'a'), std::string("Wh?")}) {
        model.settings.myprojectname = name;
        const SaveResult refused = SaveProject(model, paths, "backup", 1);
        EXPECT_EQ(refused.status, SaveStatus::Failed);
        EXPECT_NE(refused.error.find("is not a usable project name"), std::string::npos)
            << refused.error;
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(paths.DataPath()), {}), 1);
}

TEST(ProjectSave, HostileNamesStayInsideTheApplicationFolder) {
    test::TempDir dir;
    AppPaths paths(dir.path() / "app");
    for (const char *name : {"..", " . ", "::..::", "\x01"}) {
        ProjectModel model;
        model.settings.myprojectname = name;
        EXPECT_EQ(SaveProject(model, paths, "backup", 1).status, SaveStatus::Failed) << name;
        EXPECT_FALSE(LoadProject(model, paths, name).found);
    }
    // "../x" loses its separators and stays a plain folder name.
    ProjectModel model;
    model.settings.myprojectname = "../x";
    EXPECT_EQ(SaveProject(model, paths, "", 1).file, paths.DataPath() / "..x" / "settings.dat");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1);
}

TEST(ProjectLoad, ProjectDirectoryIsFoundWhateverItsCase) {
    test::TempDir dir;
    AppPaths paths(dir.path());
    std::filesystem::create_directories(paths.DataPath() / "Night Shift");
    ASSERT_TRUE(WriteTextFile(paths.DataPath() / "Night Shift" / "settings.dat", "myprojectauthor:Kim"));
    EXPECT_TRUE(paths.ProjectExists("night shift!"));
    ProjectModel model;
    EXPECT_TRUE(LoadProject(model, paths, "NIGHT SHIFT").found);
    EXPECT_EQ(model.settings.myprojectauthor, "Kim");
    EXPECT_EQ(SaveProject(model, paths, "", 1).file, paths.DataPath() / "Night Shift" / "settings.dat");
}

TEST(ProjectLoad, MissingFileLeavesTheModelButUpgradesTheScreen) {
    test::TempDir dir;
    ProjectModel model;
    model.settings.myprojectauthor = "kept";
    const LoadReport report = LoadProject(model, AppPaths(dir.path()), "absent", HostScreen{1000, 2000});
    EXPECT_FALSE(report.found);
    EXPECT_EQ(model.settings.myprojectauthor, "kept");
    EXPECT_EQ(model.settings.originwidth, "1000");
    EXPECT_EQ(model.settings.originheight, "2000");
    EXPECT_EQ(model.settings.mytopmenu, kDefaultTopMenu);
}

} // namespace
} // namespace orrery
