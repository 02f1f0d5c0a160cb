// The distribution builder on a small project in a tree of its own: what is shipped, in the
// log's order; what is missing; the scrambled project; the world; fonts and the PAD listing.
#include "editor/fixture.h"
#include "foundation/paths.h"
#include "foundation/random.h"
#include "foundation/scramble.h"
#include "foundation/textfile.h"
#include "packaging/distribution.h"
#include "project/defaults.h"
#include "project/loader.h"
#include "support/orrery_run.h"
#include "support/tempdir.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

struct Distribution : ::testing::Test {
    test::TempDir dir;
    AppPaths app{dir.path() / "app"};
    ProjectModel model = test::NewProject();
    Random random{7};

    void SetUp() override {
        ASSERT_TRUE(app.MakeProjectFolders("Test"));
        const fs::path stock = fs::path(ORRERY_TEST_DATA) / ".." / ".." / "content" / "app" / "Data";
        for (const char *file : {"words.dat", "names.dat"})
            fs::copy_file(stock / file, app.DataPath() / file);
        WriteTextFile(app.DataPath() / "runner", "#!/bin/sh\n");
        for (const std::string &file : StockFiles())
            if (!fs::exists(app.Root() / file)) WriteTextFile(app.Root() / file, "stock");
        Media("uimages", "Logo.BMP");
        Media("uimages", "boom.wav", 1000);
        Media("mp3", "theme.mp3", 5000);
        model.settings.mymenubackground = "logo.bmp"; // any case finds it
        model.settings.mymenump3track = "theme.mp3";
        model.settings.mygamemp3tracks = "theme.mp3`gone.mp3";
        model.QlobTable[1] = "BANG PLAY_SOUND [boom.wav]`PLAY_SOUND [$sound]`PLAY_MUSIC [nope.mid]";
        // Neither a qlob's name nor a variable's names a file; a picture returned into an
        // element does.
        model.QlobTable[2] = "PLAY_INTRO MESSAGE [hi] [there]`$play_count = RETURN_COMPLEX [5]`"
                             "labelx = RETURN_IMAGE [pic.bmp]";
        Media("uimages", "pic.bmp");
        model.settings.myserversrandom = "100";
    }
    void Media(const char *folder, const char *name, std::size_t size = 10) {
        WriteTextFile(app.ResPath() / folder / name, std::string(size, 'x'));
    }
    DistributionResult Build(DistributionOptions options = {}) {
        if (SaveProject(model, app, "", 1).status != SaveStatus::Saved) ADD_FAILURE();
        options.random = &random;
        options.say = [this](const std::string &line) { log.push_back(line); };
        return BuildDistribution(model, app, options);
    }
    bool Logged(const std::string &line) {
        return std::find(log.begin(), log.end(), line) != log.end();
    }
    std::vector<std::string> log;
};

TEST_F(Distribution, ShipsWhatTheProjectNamesAndSaysWhatIsMissing) {
    const DistributionResult built = Build();
    ASSERT_TRUE(built.done) << built.error;
    const fs::path root = *app.ProjectPath("Test") / "Distro";
    EXPECT_EQ(built.root, root);
    EXPECT_EQ(log.front(), "Starting...");
    EXPECT_EQ(log[1], "Copying (and encrypting) file: settings.dat");
    EXPECT_EQ(log.back(), "Done!");
    for (const char *line : {"Copying file: logo.bmp", "Copying file (sound/music): boom.wav",
                             "Copying file: pic.bmp",
                             "Copying file (sound/music): nope.mid", "Copying file: gone.mp3"})
        EXPECT_TRUE(Logged(line)) << line;
    EXPECT_TRUE(fs::exists(root / "Res" / "uimages" / "Logo.BMP"));
    EXPECT_TRUE(fs::exists(root / "Res" / "uimages" / "boom.wav"));
    EXPECT_EQ(built.missing, (std::vector<std::string>{"Res/mp3/gone.mp3", "Res/uimages/nope.mid"}));
    // Each file holds its line end too; theme.mp3 counts twice, as it is named twice.
    EXPECT_EQ(built.sizeTotal, 2000000u + 5002 + 5002 + 1002);

    // The project scrambled, which the run-time reads back and never saves.
    const std::string shipped = ReadFileBytes(root / "Data" / "test" / "settings.dat").value_or("");
    ASSERT_TRUE(shipped.starts_with("[revise]\r\n"));
    ProjectModel loaded;
    ASSERT_TRUE(LoadProject(loaded, AppPaths(root), "Test").found);
    EXPECT_TRUE(loaded.scrambled);
    EXPECT_EQ(loaded.QlobTable[1], model.QlobTable[1]);
    EXPECT_EQ(ReadTextFile(root / "Data" / "pname.dat"), "test");
    EXPECT_TRUE((fs::status(root / "test").permissions() & fs::perms::owner_exec) != fs::perms::none)
        << "the run-time under the project's name";
    // Fewer than 128 random servers make none: an empty list of names and no octet files.
    EXPECT_EQ(ReadFileBytes(root / "Data" / "S" / "dns.dat").value_or("?"), "\r\n");
    EXPECT_FALSE(fs::exists(root / "Data" / "S" / "_1_.dat"));
}

TEST_F(Distribution, TheReportSaysWhatWasWrittenMissingLeftOutAndLeftOver) {
    Media("uimages", "unused.bmp");
    const fs::path root = *app.ProjectPath("Test") / "Distro";
    fs::create_directories(root / "Res" / "uimages");
    WriteTextFile(root / "Res" / "uimages" / "old.bmp", "from an earlier build");
    const DistributionResult built = Build();
    ASSERT_TRUE(built.done);
    const auto written = std::find_if(built.written.begin(), built.written.end(),
                                      [](const auto &file) { return file.first == "Data/pname.dat"; });
    ASSERT_NE(written, built.written.end());
    EXPECT_EQ(written->second, 6u) << "test and its line end";
    EXPECT_EQ(built.unnamed, std::vector<std::string>{"Res/uimages/unused.bmp"});
    EXPECT_EQ(built.notWritten, std::vector<std::string>{"Res/uimages/old.bmp"});
    const std::string report = ReadTextFile(root.parent_path() / "build-report.txt");
    const std::string file = ReadTextFile(*app.ProjectFile("Test"));
    const auto lines = SplitLines(file);
    const auto named = std::find_if(lines.begin(), lines.end(), [](std::string_view line) {
        return line.starts_with("mygamemp3tracks:");
    });
    EXPECT_NE(report.find("  Res/mp3/gone.mp3 (named on line " +
                          std::to_string(named - lines.begin() + 1) + " of settings.dat)"),
              std::string::npos)
        << report;
    EXPECT_NE(report.find("Total size: " + std::to_string(built.folderSize) + " bytes"),
              std::string::npos);
    EXPECT_TRUE(Logged("Total size: " + std::to_string(built.folderSize) + " bytes"));
    EXPECT_EQ(log.back(), "Done!");
}

// The application's sound font goes with a game that ships a MIDI file as music or as a
// statement's sound, and with no other: the MIDI file the fixture's statement names is missing.
TEST_F(Distribution, TheSoundFontGoesWithMidiAlone) {
    WriteTextFile(app.DataPath() / "gm.sf2", "sound font");
    const std::string font = ReadFileBytes(app.DataPath() / "gm.sf2").value_or("");
    Media("mp3", "Tune.MID");
    Media("uimages", "chime.mid");
    const struct {
        const char *tracks;
        const char *qlob;
        bool carried;
    } cases[] = {
        {"theme.mp3", "", false},
        {"theme.mp3`tune.mid", "", true},
        {"theme.mp3", "RING PLAY_SOUND [chime.mid]", true},
    };
    for (const auto &c : cases) {
        model.settings.mygamemp3tracks = c.tracks;
        model.QlobTable[3] = c.qlob;
        DistributionOptions options;
        options.out = dir.path() / ("game " + std::string(c.tracks) + c.qlob);
        ASSERT_TRUE(Build(options).done);
        EXPECT_EQ(ReadFileBytes(options.out / "Data" / "gm.sf2").value_or("none"),
                  c.carried ? font : "none")
            << c.tracks << " " << c.qlob;
    }
}

TEST_F(Distribution, TheWorldHasItsServersPerOctet) {
    model.settings.myserversrandom = "5000";
    int octets = 0;
    DistributionOptions options;
    options.octet = [&octets](int) { ++octets; };
    ASSERT_TRUE(Build(options).done);
    EXPECT_EQ(octets, 255);
    const fs::path world = *app.ProjectPath("Test") / "Distro" / "Data" / "S";
    EXPECT_EQ(SplitLines(ReadFileBytes(world / "_17_.dat").value_or("")).size(), 20u);
}

TEST_F(Distribution, AFolderIsEmptiedOnlyWhenItIsAGameFolder) {
    DistributionOptions options;
    options.clean = true;
    options.out = app.Root();
    EXPECT_NE(Build(options).error.find("holds the application"), std::string::npos);
    options.out = dir.path() / "elsewhere";
    fs::create_directories(options.out);
    WriteTextFile(options.out / "keep.txt", "mine");
    EXPECT_NE(Build(options).error.find("holds no game"), std::string::npos);
    EXPECT_TRUE(fs::exists(options.out / "keep.txt"));
    // Another application folder names a game too, and holds its projects in clear.
    options.out = dir.path() / "second install";
    ASSERT_TRUE(AppPaths(options.out).MakeProjectFolders("Test"));
    WriteTextFile(options.out / "Data" / "pname.dat", "test");
    WriteTextFile(options.out / "Data" / "test" / "settings.dat", "myprojectname:Test");
    EXPECT_NE(Build(options).error.find("holds no game"), std::string::npos);
    EXPECT_TRUE(fs::exists(options.out / "Data" / "test" / "settings.dat"));

    options.out = dir.path() / "game";
    ASSERT_TRUE(Build(options).done);
    log.clear();
    WriteTextFile(options.out / "Res" / "uimages" / "stale.bmp", "old");
    ASSERT_TRUE(Build(options).done);
    EXPECT_FALSE(fs::exists(options.out / "Res" / "uimages" / "stale.bmp"));
}

TEST_F(Distribution, EachFontIsAskedForOnce) {
    const std::string file = "mymenufont:Tahoma\r\n"
                             "element:4:fontname:Arial Black\r\n"
                             "element:4:fontname:tahoma\r\n"
                             "menulabelfontname:3:Lucida Console\r\n"
                             "menudynamic:textflow:1:2:3:4:5:6:7:Impact\r\n"
                             "maindynamic:textflow:1:2:3:4:5:6:7:12:Gothic\r\n"
                             "mtdefstylelabelfontname:Verdana\r\n";
    EXPECT_EQ(RequiredFonts(file),
              (std::vector<std::string>{"Tahoma", "Lucida Console", "Impact"}));
}

TEST_F(Distribution, ThePadListingIsFilledIn) {
    PadValues values{"Night Shift", std::chrono::year_month_day(std::chrono::year(2026), std::chrono::month(3), std::chrono::day(4)),
                     " $5 ", 2'621'440, "hack", "short", std::string(500, 'm'), "long"};
    const std::string pad = ReplacePadVars(
        "$pad-projectname|$pad-releaseday.$pad-releasemonth.$pad-releaseyear|$pad-cost|"
        "$pad-sizekilobytes|$pad-sizemegabytes|$pad-padfilename|$pad-installerexe|"
        "$pad-description450|$pad-description45",
        values);
    EXPECT_EQ(pad, "Night_Shift|04.03.2026|5|2560|2.50|night_shift.xml|night_shift_d.msi|" +
                       std::string(450, 'm') + "|short");
}

TEST_F(Distribution, TheCommandFailsWhenStrictAndSomethingIsMissing) {
    ASSERT_EQ(SaveProject(model, app, "", 1).status, SaveStatus::Saved);
    const fs::path out = dir.path() / "out";
    const test::ToolRun run = test::Orrery(
        {"package", app.Root().string(), "Test", "--out", out.string(), "--strict"});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.out.find("Copying file: gone.mp3\n"), std::string::npos);
    EXPECT_NE(run.err.find("not shipped, not found: Res/mp3/gone.mp3"), std::string::npos);
    EXPECT_TRUE(fs::exists(out / "Data" / "pname.dat"));
    EXPECT_EQ(test::Orrery({"package", app.Root().string(), "Test", "--out", out.string()}).code, 0);
}

} // namespace
} // namespace orrery
