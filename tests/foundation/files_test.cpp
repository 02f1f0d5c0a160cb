// Text files, the application tree and the stored preferences.
#include "foundation/paths.h"
#include "foundation/preferences.h"
#include "foundation/textfile.h"
#include "support/fifo.h"
#include "support/tempdir.h"

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <thread>

namespace orrery {
namespace {

namespace fs = std::filesystem;

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

TEST(TextFile, OnlyARegularFileIsRead) {
    test::TempDir dir;
    const fs::path pipe = dir.path() / "settings.dat";
    ASSERT_TRUE(test::MakeFifo(pipe));
    fs::create_directory(dir.path() / "folder");
    ASSERT_TRUE(WriteTextFile(dir.path() / "file", "x"));
    const std::pair<fs::path, ReadError> cases[] = {
        {pipe, ReadError::NotAFile},
        {dir.path() / "folder", ReadError::NotAFile},
        {dir.path() / "absent", ReadError::Missing},
        {dir.path() / "file" / "below", ReadError::Missing},
    };
    // A pipe with no writer must not hold the reader.
    EXPECT_TRUE(test::FinishesInTime(
        [&] {
            for (const auto &[path, expected] : cases) {
                ReadError error = ReadError::None;
                EXPECT_FALSE(ReadFileBytes(path, &error)) << path;
                EXPECT_EQ(error, expected) << path;
                EXPECT_EQ(ReadTextFile(path), "") << path;
            }
        },
        {pipe}));
}

TEST(TextFile, EverySaveHasATemporaryOfItsOwn) {
    test::TempDir dir;
    const fs::path file = dir.path() / "Ann.vbz";
    // Two saves of one file at once: each succeeds, and the file is one of them, whole.
    const std::string a(4096, 'a'), b(8192, 'b');
    int failures = 0;
    std::thread other([&] {
        for (int i = 0; i < 200; ++i) failures += !ReplaceFileAtomically(file, a);
    });
    for (int i = 0; i < 200; ++i) failures += !ReplaceFileAtomically(file, b);
    other.join();
    EXPECT_EQ(failures, 0);
    const std::string last = Bytes(file);
    EXPECT_TRUE(last == a || last == b) << last.size();
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), {}), 1);
}

TEST(TextFile, InterruptedSavesLeaveNoTemporaryForLong) {
    test::TempDir dir;
    const fs::path d = dir.path();
    for (const char *stale : {"settings.dat.saving", "game_20240101 000000_.dat.q1w2e3.saving"})
        ASSERT_TRUE(WriteTextFile(d / stale, "half"));
    ASSERT_TRUE(WriteTextFile(d / "notes.txt", "mine"));
    fs::create_directory(d / "folder.saving");
    // A save in progress holds its temporary; the sweep passes it over.
    ASSERT_TRUE(WriteTextFile(d / "settings.dat.a1b2c3.saving", "busy"));
    const int held = ::open((d / "settings.dat.a1b2c3.saving").c_str(), O_RDONLY);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    ASSERT_TRUE(ReplaceFileAtomically(d / "settings.dat", "new"));
    ::close(held);
    std::vector<std::string> left;
    for (const auto &entry : fs::directory_iterator(d)) left.push_back(entry.path().filename());
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, (std::vector<std::string>{"folder.saving", "notes.txt", "settings.dat",
                                              "settings.dat.a1b2c3.saving"}));
}

TEST(AppPaths, OneCheckDecidesWhetherANameIsUsable) {
    using enum NameKind;
    const std::string e = "\xE9"; // two bytes in a file name
    struct Case {
        NameKind kind;
        std::string name;
        const char *problem; // a part of the reason; "" when the name is usable
    };
    const Case cases[] = {
        {Player, " Ada ", ""},
        {Player, "  ", "empty"},
        {Player, "..", "\"..\""},
        {Player, "a/b", "\"/\""},
        {Player, "a\\b", "\"/\""},
        {Player, "tab\there", "control character"},
        {Player, "??", "Windows-1252 cannot write"},
        // A profile is <name>.vbz, saved through <name>.vbz.XXXXXX.saving: 255 bytes at most.
        {Player, std::string(237, 'a'), ""},
        {Player, std::string(238, 'a'), "1 byte too long"},
        {Player, std::string(251, 'a'), "14 bytes too long"},
        {Player, std::string(118, '\xE9') + "a", ""},
        {Player, std::string(119, '\xE9'), "1 byte too long"},
        {Project, "Game!", ""},
        {Project, "../x", ""},
        {Project, "!!!", "empty once punctuation"},
        {Project, "\x01", "control character"},
        {Project, "Why?", "Windows-1252 cannot write"},
        // A backup is <folder>_<yyyymmdd hhmmss>_.dat, saved through a temporary too.
        {Project, std::string(220, 'A') + "!!", ""},
        {Project, std::string(221, 'a'), "1 byte too long"},
        {Project, std::string(255, 'a'), "35 bytes too long"},
    };
    for (const Case &c : cases) {
        const std::string problem = NameProblem(c.name, c.kind);
        if (*c.problem == '\0')
            EXPECT_EQ(problem, "") << c.name;
        else
            EXPECT_NE(problem.find(c.problem), std::string::npos) << c.name << ": " << problem;
    }
    EXPECT_EQ(UnusableName("??", Player, "it holds a control character"),
              "\"??\" is not a usable player name: it holds a control character");
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

    // Names too long for a file keep apart, each in a file that can be saved.
    const std::string longName(200, '\xE9');
    ASSERT_TRUE(store.SavePref(longName + "1", "Music", "0"));
    ASSERT_TRUE(store.SavePref(longName + "2", "Music", "1"));
    EXPECT_EQ(store.GetPref(longName + "1", "Music", "1"), "0");
    EXPECT_EQ(store.GetPref(longName + "2", "Music", "0"), "1");
}

} // namespace
} // namespace orrery
