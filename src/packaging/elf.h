// What a program or a shared library asks the loader for, read from its own ELF headers: the
// libraries it needs and where it says to look for them. Reading the headers loads nothing
// and runs nothing, which asking the loader itself (ldd) does.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orrery {

struct ElfNeeds {
    unsigned char elfClass = 0; // 1: 32-bit, 2: 64-bit
    std::uint16_t machine = 0;
    std::vector<std::string> needed;   // DT_NEEDED, in order
    std::vector<std::string> runPaths; // DT_RUNPATH or else DT_RPATH, split at ":"
};

// The needs of a 64-bit little-endian ELF file; nullopt for anything else or a damaged file.
std::optional<ElfNeeds> ReadElfNeeds(const std::filesystem::path &file);

// The folders the loader searches after an object's own run paths: those of /etc/ld.so.conf
// and the files it includes, then the standard ones.
std::vector<std::filesystem::path> LoaderFolders();

struct NeededLibrary {
    std::string name;
    std::filesystem::path path; // empty when no folder has it
};

// Every library the objects need, directly and through the libraries they need, each once,
// found as the loader finds it (run paths with $ORIGIN, then the loader's folders, a library of
// the objects' kind only). A library for which passOver is true is listed but not followed.
std::vector<NeededLibrary> NeededLibraries(const std::vector<std::filesystem::path> &objects,
                                           const std::function<bool(const std::string &)> &passOver);

} // namespace orrery
