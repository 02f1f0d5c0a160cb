// The run-time's libraries and plugins in a game folder.
#include "packaging/runtimefolder.h"

#include "foundation/codepage.h"
#include "foundation/textfile.h"
#include "packaging/elf.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>
#include <sys/wait.h>

namespace orrery {

namespace fs = std::filesystem;

namespace {

// Libraries by the start of their file names. GLib and GStreamer are the system's because the
// system's GStreamer loads its own plugins into the game, and they must meet the GLib and
// GStreamer they were built with; the sound system's client libraries speak to its server.
constexpr std::array<std::string_view, 38> kBaseLibraries{
    "linux-vdso.so", "ld-linux", "libc.so", "libm.so", "libpthread.so", "libdl.so", "librt.so",
    "libresolv.so", "libutil.so", "libstdc++.so", "libgcc_s.so", "libX11.so", "libX11-xcb.so",
    "libxcb.so", "libXau.so", "libXdmcp.so", "libXext.so", "libXrender.so", "libGL.so",
    "libGLX.so", "libGLdispatch.so", "libEGL.so", "libOpenGL.so", "libdrm.so", "libgbm.so",
    "libfontconfig.so", "libfreetype.so", "libdbus-1.so", "libsystemd.so", "libz.so",
    "libexpat.so", "libglib-2.0.so", "libgobject-2.0.so", "libgmodule-2.0.so", "libgio-2.0.so",
    "libgst", "libasound.so", "libpulse"};

// The plugin folders a game needs, each file or only the one named: the X display, its GL
// integration, picture formats, the input methods for composed keys, and sound through
// GStreamer; Qt's FFmpeg media backend stays behind, so that Qt never chooses it.
struct PluginFolder {
    std::string_view name;
    std::string_view only;
};
constexpr std::array<PluginFolder, 5> kPluginFolders{
    {{"platforms", {}},
     {"xcbglintegrations", {}},
     {"imageformats", {}},
     {"platforminputcontexts", {}},
     {"multimedia", "libgstreamermediaplugin.so"}}};

// Quoted for the shell: the file names of a game folder may hold blanks and quotes.
std::string Quoted(const fs::path &path) {
    std::string text = "'";
    for (char c : path.string()) text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + "'";
}

// The standard output of a command, and whether it ended well.
bool RunCommand(const std::string &command, std::string &output) {
    FILE *pipe = ::popen(command.c_str(), "r");
    if (!pipe) return false;
    char buffer[4096];
    std::size_t got = 0;
    while ((got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, got);
    const int status = ::pclose(pipe);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Sets one run path on every file, in one run of patchelf.
bool SetRunPath(const std::vector<fs::path> &files, std::string_view runPath) {
    if (files.empty()) return true;
    std::string command = "patchelf --set-rpath '" + std::string(runPath) + "'";
    for (const fs::path &file : files) command += " " + Quoted(file);
    std::string ignored;
    return RunCommand(command + " 2>/dev/null", ignored);
}

} // namespace

std::vector<SharedLibrary> SharedLibrariesOf(const std::vector<fs::path> &programs) {
    std::string command = "ldd";
    for (const fs::path &program : programs) command += " " + Quoted(program);
    std::string report;
    // ldd fails when one of several files is no program; what it says of the others stands.
    RunCommand(command + " 2>/dev/null", report);
    std::vector<SharedLibrary> libraries;
    std::set<std::string> named;
    for (std::string_view line : SplitLines(report)) {
        const std::size_t arrow = line.find(" => ");
        if (arrow == std::string_view::npos) continue; // a file's heading, the loader, the kernel's
        std::string_view name = line.substr(0, arrow);
        name.remove_prefix(std::min(name.find_first_not_of(" \t"), name.size()));
        std::string_view where = line.substr(arrow + 4);
        const std::size_t address = where.rfind(" (");
        if (address != std::string_view::npos) where = where.substr(0, address);
        if (!named.insert(std::string(name)).second) continue;
        libraries.push_back({std::string(name),
                             where.starts_with("not found") ? fs::path() : fs::path(where)});
    }
    return libraries;
}

std::vector<SharedLibrary> SharedLibrariesOf(const fs::path &program) {
    return SharedLibrariesOf(std::vector<fs::path>{program});
}

bool IsBaseSystemLibrary(std::string_view name) {
    return std::any_of(kBaseLibraries.begin(), kBaseLibraries.end(),
                       [name](std::string_view base) { return name.starts_with(base); });
}

RunTimeFolder ShipRunTimeLibraries(const fs::path &executable, const fs::path &pluginSource,
                                   const std::function<void(const std::string &)> &say) {
    RunTimeFolder folder;
    // Problems are told in the system's own text, as the rest of the build's log.
    const auto problem = [&folder](const std::string &utf8) { folder.problems.push_back(Utf8ToCp1252(utf8)); };
    const fs::path root = executable.parent_path();
    const auto isBase = [](const std::string &name) { return IsBaseSystemLibrary(name); };
    const std::vector<NeededLibrary> needed = NeededLibraries({executable}, isBase);
    if (needed.empty()) return folder; // not a program that loads libraries
    fs::path plugins = pluginSource;
    for (const NeededLibrary &library : needed)
        if (plugins.empty() && library.name.starts_with("libQt6Core.so") && !library.path.empty())
            plugins = library.path.parent_path() / "qt6" / "plugins";

    std::vector<fs::path> pluginFiles;
    std::error_code error;
    for (const auto &[kind, only] : kPluginFolders) {
        const fs::path from = plugins / kind;
        if (!fs::is_directory(from, error)) continue;
        fs::create_directories(root / "plugins" / kind, error);
        for (const auto &entry : fs::directory_iterator(from, error)) {
            if (entry.path().extension() != ".so") continue;
            if (!only.empty() && entry.path().filename() != only) continue;
            const fs::path target = root / "plugins" / kind / entry.path().filename();
            if (say) say("Copying file (run-time plugin): " + Utf8ToCp1252(entry.path().filename().string()));
            if (!fs::copy_file(entry.path(), target, fs::copy_options::overwrite_existing, error)) {
                problem(target.string() + ": cannot be written");
                continue;
            }
            folder.shipped.push_back("plugins/" + std::string(kind) + "/" + target.filename().string());
            pluginFiles.push_back(target);
        }
    }
    if (!fs::is_directory(root / "plugins" / "platforms", error))
        problem("Qt's display plugins were not found in " + plugins.string());

    // What the program and its plugins load, read from their headers.
    std::vector<fs::path> users{executable};
    users.insert(users.end(), pluginFiles.begin(), pluginFiles.end());
    std::vector<fs::path> libraryFiles;
    fs::create_directories(root / "lib", error);
    for (const NeededLibrary &library : NeededLibraries(users, isBase)) {
        if (IsBaseSystemLibrary(library.name)) continue;
        if (library.path.empty()) {
            problem(library.name + ": the system has no such library");
            continue;
        }
        const fs::path target = root / "lib" / library.name;
        if (say) say("Copying file (run-time library): " + Utf8ToCp1252(library.name));
        // The file itself, not the link the loader followed, under the name it asks for.
        if (!fs::copy_file(fs::canonical(library.path, error), target,
                           fs::copy_options::overwrite_existing, error)) {
            problem(target.string() + ": cannot be written");
            continue;
        }
        folder.shipped.push_back("lib/" + library.name);
        libraryFiles.push_back(target);
    }
    // Each file finds the folder's libraries from where it stands.
    if (!SetRunPath(libraryFiles, "$ORIGIN") || !SetRunPath(pluginFiles, "$ORIGIN/../../lib") ||
        !SetRunPath({executable}, "$ORIGIN/lib"))
        problem("the run paths cannot be set (is patchelf installed?)");
    if (!WriteTextFile(root / "qt.conf", "[Paths]\r\nPrefix = .\r\nPlugins = plugins\r\nLibraries = lib"))
        problem((root / "qt.conf").string() + ": cannot be written");
    // The loader's own word on the result: every library found.
    for (const SharedLibrary &library : SharedLibrariesOf(executable))
        if (library.path.empty())
            problem(library.name + ": the run-time does not find it");
    return folder;
}

} // namespace orrery
