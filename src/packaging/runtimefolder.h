// The run-time made to play on a machine with no Orrery Kit and no Qt: the shared libraries it
// needs that a plain desktop system lacks, under lib/; Qt's plugins for the X display, the
// picture formats and sound, under plugins/; a qt.conf that points Qt at them; and run paths relative to
// each file, so that the folder plays wherever it is moved.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

// A library a program needs, as the system's loader finds it; an empty path when it finds none.
struct SharedLibrary {
    std::string name;
    std::filesystem::path path;
};

// The libraries the program needs, directly and through others, from the loader's own report
// (ldd). Empty for a file that is no dynamic program.
std::vector<SharedLibrary> SharedLibrariesOf(const std::filesystem::path &program);
// The same for several files at once, each library once.
std::vector<SharedLibrary> SharedLibrariesOf(const std::vector<std::filesystem::path> &programs);

// True for a library every desktop system has and a game must take from it: the C library and
// its loader, the C++ runtime, the X and GL libraries, and those tied to the system's own
// configuration and services (fontconfig, freetype, D-Bus, systemd, zlib, expat, GLib and
// GStreamer, ALSA and PulseAudio).
bool IsBaseSystemLibrary(std::string_view name);

struct RunTimeFolder {
    std::vector<std::string> shipped; // "lib/libQt6Core.so.6", "plugins/platforms/libqxcb.so"
    std::vector<std::string> problems; // what could not be done, for a person
};

// Makes the copied executable, standing at the game folder's root, play from there: its
// libraries and the plugins of pluginSource (Qt's plugin folder; empty to find it beside the
// Qt libraries the program uses) copied in, the run paths set with patchelf, and qt.conf
// written. say gets a log line for each file shipped.
RunTimeFolder ShipRunTimeLibraries(const std::filesystem::path &executable,
                                   const std::filesystem::path &pluginSource,
                                   const std::function<void(const std::string &)> &say);

} // namespace orrery
