// ELF headers read for what a file needs, against what the loader itself says.
#include "packaging/elf.h"
#include "packaging/runtimefolder.h"
#include "support/tempdir.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

TEST(Elf, TheHeadersNeedWhatTheLoaderFinds) {
    // This test program: the libraries the loader finds for it are those its headers need.
    const fs::path self = fs::read_symlink("/proc/self/exe");
    const auto needs = ReadElfNeeds(self);
    ASSERT_TRUE(needs.has_value());
    EXPECT_EQ(needs->elfClass, 2);
    const std::vector<NeededLibrary> read = NeededLibraries({self}, [](const std::string &) { return false; });
    const std::vector<SharedLibrary> loaded = SharedLibrariesOf(self);
    ASSERT_FALSE(loaded.empty());
    for (const SharedLibrary &library : loaded) {
        const auto same = std::find_if(read.begin(), read.end(),
                                       [&](const NeededLibrary &n) { return n.name == library.name; });
        ASSERT_NE(same, read.end()) << library.name;
        EXPECT_EQ(fs::canonical(same->path), fs::canonical(library.path)) << library.name;
    }
}

TEST(Elf, WhatIsNoElfFileNeedsNothing) {
    test::TempDir dir;
    const struct {
        const char *name;
        std::string bytes;
    } files[] = {{"script", "#!/bin/sh\n"}, {"short", "\x7f" "ELF"}, {"empty", ""},
                 {"thirty-two", std::string("\x7f" "ELF\x01\x01", 6) + std::string(58, '\0')}};
    for (const auto &file : files) {
        std::ofstream(dir.path() / file.name, std::ios::binary) << file.bytes;
        EXPECT_FALSE(ReadElfNeeds(dir.path() / file.name)) << file.name;
    }
    EXPECT_TRUE(NeededLibraries({dir.path() / "script"}, [](const std::string &) { return false; }).empty());
}

} // namespace
} // namespace orrery
