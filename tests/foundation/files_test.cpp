// Text files, the application tree and the stored preferences.
#include <gtest/gtest.h>

#include <fstream>

#include "foundation/paths.h"
#include "foundation/preferences.h"
#include "foundation/textfile.h"
#include "support/tempdir.h"

namespace orrery {
namespace {

std::string Bytes(const std::filesystem::path &file) { return ReadFileBytes(file).value_or("<none>"); }

TEST(TextFile, LineEndsOnTheWayInAndOut) {
    test::TempDir dir;
    const auto file = dir.path() / "t.dat";
    struct Case {
        const char *onDisk;
        const char *read;
    };
    const Case cases[] = {
        {"a\r\nb\r\n", "a\r\nb"}, {"a\r\nb", "a\r\nb"},   {"a\nb\rc", "a\r\nb\r\nc"},
        {"\r\n\r\n", "\r\n"},     {"", ""},               {"x\r\n\r\ny", "x\r\n\r\ny"},
    };
    for (const Case &c : cases) {
        ASSERT_TRUE(ReplaceFileAtomically(file, c.onDisk));
        EXPECT_EQ(ReadTextFile(file), c.read) << c.onDisk;
    }
    // Writing adds one line end, so a read, write and read again gives the same text.
    ASSERT_TRUE(WriteTextFile(file, "a\r\nb\r\n"));
    EXPECT_EQ(Bytes(file), "a\r\nb\r\n\r\n");
    EXPECT_EQ(ReadTextFile(file), "a\r\nb\r\n");
    ASSERT_TRUE(AppendTextFile(file, "c"));
    EXPECT_EQ(Bytes(file), "a\r\nb\r\n\r\nc\r\n");
    EXPECT_EQ(ReadTextFile(dir.path() / "absent"), "");
}

TEST(TextFile, ExistenceMeansAMeasurableFile) {
    test::TempDir dir;
    ASSERT_TRUE(ReplaceFileAtomically(dir.path() / "empty", ""));
    EXPECT_TRUE(FileExists(dir.path() / "empty"));
    EXPECT_FALSE(FileExists(dir.path()));
    EXPECT_FALSE(FileExists(dir.path() / "absent"));
    EXPECT_FALSE(WriteTextFile(dir.path() / "no" / "such" / "dir", "x"));
}

TEST(TextFile, AtomicReplaceLeavesNoTemporaryBehind) {
    test::TempDir dir;
    const auto file = dir.path() / "settings.dat";
    ASSERT_TRUE(ReplaceFileAtomically(file, "old"));
    ASSERT_TRUE(ReplaceFileAtomically(file, "new"));
    EXPECT_EQ(Bytes(file), "new");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1);
}

TEST(AppPaths, ProjectFoldersAndTheTree) {
    test::TempDir dir;
    const AppPaths paths(dir.path());
    struct Case {
        const char *name;
        const char *folder; // "" when the name makes no safe folder
    };
    const Case cases[] = {
        {"Game!", "game"},     {" My: Game ", "my game"}, {"a.b-c", "a.b-c"},
        {"..", ""},            {"!!!", ""},              {"../../etc", "....etc"},
        {"Caf\xE9", "caf\xC3\xA9"}, {"tab\there", ""},
    };
    for (const Case &c : cases) {
        const auto folder = paths.ProjectPath(c.name);
        EXPECT_EQ(folder ? folder->filename().string() : "", c.folder) << c.name;
    }
    ASSERT_TRUE(paths.MakeProjectFolders("Game!"));
    for (const char *sub : {"Data/S", "Saved", "Fonts", "Res/mp3", "Res/uimages", "Res/toolstyle", "Data/game"})
        EXPECT_TRUE(std::filesystem::is_directory(dir.path() / sub)) << sub;
    EXPECT_FALSE(paths.ProjectExists("Game"));
    ASSERT_TRUE(ReplaceFileAtomically(dir.path() / "Data/game/settings.dat", ""));
    EXPECT_TRUE(paths.ProjectExists("GAME!"));
}

TEST(Preferences, KeptPerProjectNameWithADefault) {
    test::TempDir dir;
    const PreferenceStore store(dir.path() / "prefs");
    EXPECT_EQ(store.GetPref("Game", "Music", " 1 "), "1");
    ASSERT_TRUE(store.SavePref("Game", "Music", " 0 "));
    ASSERT_TRUE(store.SavePref("Game", "Sound", "1"));
    ASSERT_TRUE(store.SavePref("game", "Music", "1"));
    ASSERT_TRUE(store.SavePref("../Game", "Music", "2"));
    EXPECT_EQ(store.GetPref("Game", "Music", "1"), "0");
    EXPECT_EQ(store.GetPref("Game", "Sound", "0"), "1");
    EXPECT_EQ(store.GetPref("game", "Music", "0"), "1");
    EXPECT_EQ(store.GetPref("../Game", "Music", "0"), "2");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1);
    EXPECT_EQ(store.FileFor("../Game").parent_path(), dir.path() / "prefs");
}

} // namespace
} // namespace orrery
