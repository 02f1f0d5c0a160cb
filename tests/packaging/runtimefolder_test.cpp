// The run-time in a game folder moved elsewhere: every library it and its display plugin load
// is the folder's own or the base system's.
#include "packaging/runtimefolder.h"
#include "foundation/textfile.h"
#include "support/orrery_run.h"
#include "support/tempdir.h"

#include <cstdlib>

#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

#ifdef ORRERY_RUNNER
// The demo packed by orrery package and copied elsewhere: played without a display, its
// scrambled project never written; its run-time started on the offscreen platform, which ends
// well when told to stop.
TEST(RunTimeFolder, TheDemoPackedAndCopiedElsewherePlays) {
    test::TempDir dir;
    const fs::path app = dir.path() / "app";
    fs::copy(ORRERY_APP_DIR, app, fs::copy_options::recursive);
    const fs::path out = dir.path() / "game";
    const test::ToolRun packed =
        test::Orrery({"package", app.string(), "Night Shift", "--out", out.string()});
    ASSERT_EQ(packed.code, 0) << packed.err;
    const fs::path moved = dir.path() / "elsewhere";
    fs::copy(out, moved, fs::copy_options::recursive);
    fs::remove_all(out);

    const fs::path project = moved / "Data" / "night shift" / "settings.dat";
    const std::string scrambled = ReadFileBytes(project).value_or("");
    ASSERT_TRUE(scrambled.starts_with("[revise]"));
    const test::ToolRun played = test::Orrery(
        {"play", moved.string(), "Night Shift", "--player", "tester", "--new", "--script", "-"},
        "show tools\n");
    EXPECT_EQ(played.code, 0) << played.err;
    EXPECT_NE(played.out.find("Mail: open"), std::string::npos) << played.out;
    EXPECT_EQ(ReadFileBytes(project).value_or(""), scrambled) << "never saved";

    const std::string run = "cd '" + moved.string() + "' && QT_QPA_PLATFORM=offscreen "
                            "timeout --foreground --preserve-status -s TERM 8 './night shift' >/dev/null 2>&1";
    // Eight seconds: a loaded machine takes its time to start it, and a stop that comes before
    // the run-time has set up its signals ends it the hard way. In the foreground, timeout
    // stops the run-time alone: a second stop sent to the group would end it at once.
    EXPECT_EQ(std::system(run.c_str()), 0) << "the run-time loaded its platform and ended well";
    for (const SharedLibrary &library : SharedLibrariesOf(moved / "night shift"))
        EXPECT_FALSE(library.path.empty()) << library.name;
}

TEST(RunTimeFolder, TheGameFolderPlaysWhereverItIsMoved) {
    test::TempDir dir;
    const fs::path built = dir.path() / "built";
    fs::create_directories(built);
    fs::copy_file(ORRERY_RUNNER, built / "night shift");
    const RunTimeFolder shipped = ShipRunTimeLibraries(built / "night shift", {}, {});
    EXPECT_TRUE(shipped.problems.empty()) << shipped.problems.front();
    EXPECT_TRUE(fs::exists(built / "qt.conf"));

    const fs::path moved = dir.path() / "elsewhere" / "it's here";
    fs::create_directories(moved.parent_path());
    fs::rename(built, moved);
    EXPECT_FALSE(fs::exists(moved / "plugins" / "multimedia" / "libffmpegmediaplugin.so"));
    for (const fs::path &program : {moved / "night shift", moved / "plugins" / "platforms" / "libqxcb.so",
                                    moved / "plugins" / "multimedia" / "libgstreamermediaplugin.so"}) {
        const auto libraries = SharedLibrariesOf(program);
        ASSERT_FALSE(libraries.empty()) << program;
        for (const SharedLibrary &library : libraries) {
            EXPECT_FALSE(library.path.empty()) << library.name << " of " << program;
            // Qt and what it pulls in come from the folder; the rest is the base system's
            // and what the base system's own libraries load.
            const bool inFolder = library.path.string().starts_with(moved.string());
            for (const char *own :
                 {"libQt6", "libicu", "libxkbcommon", "libdouble-conversion", "libfluidsynth"}) {
                if (library.name.starts_with(own)) {
                    EXPECT_TRUE(inFolder) << library.name;
                }
            }
            // The system's GStreamer loads its plugins, built against its own GLib.
            for (const char *system : {"libgst", "libglib-2.0"}) {
                if (library.name.starts_with(system)) {
                    EXPECT_FALSE(inFolder) << library.name;
                }
            }
        }
    }
}
#endif

TEST(RunTimeFolder, AFileThatIsNoProgramShipsNothing) {
    test::TempDir dir;
    const fs::path script = dir.path() / "runner";
    std::FILE *file = std::fopen(script.c_str(), "w");
    std::fputs("#!/bin/sh\n", file);
    std::fclose(file);
    const RunTimeFolder shipped = ShipRunTimeLibraries(script, {}, {});
    EXPECT_TRUE(shipped.shipped.empty());
    EXPECT_FALSE(fs::exists(dir.path() / "lib"));
}

} // namespace
} // namespace orrery
