// The run-time in a game folder moved elsewhere: every library it and its display plugin load
// is the folder's own or the base system's.
#include "packaging/runtimefolder.h"
#include "support/tempdir.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

#ifdef ORRERY_RUNNER
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
    for (const fs::path &program : {moved / "night shift", moved / "plugins" / "platforms" / "libqxcb.so"}) {
        const auto libraries = SharedLibrariesOf(program);
        ASSERT_FALSE(libraries.empty()) << program;
        for (const SharedLibrary &library : libraries) {
            EXPECT_FALSE(library.path.empty()) << library.name << " of " << program;
            // Qt and what it pulls in come from the folder; the rest is the base system's
            // and what the base system's own libraries load.
            const bool inFolder = library.path.string().starts_with(moved.string());
            for (const char *own : {"libQt6", "libicu", "libxkbcommon", "libdouble-conversion"})
                if (library.name.starts_with(own)) EXPECT_TRUE(inFolder) << library.name;
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
