// The application tree and the one spelling of a project's directory.
#include "foundation/paths.h"

#include "foundation/codepage.h"
#include "foundation/text.h"
#include "foundation/textfile.h"

#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

std::optional<std::string> SafeComponent(std::string_view name) {
    if (name.empty() || name == "." || name == "..") return std::nullopt;
    for (const char c : name) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code == 127 || c == '/' || c == '\\') return std::nullopt;
    }
    return Cp1252ToUtf8(name);
}

std::optional<fs::path> AppPaths::ProjectPath(std::string_view projectName) const {
    const std::string folder = NormSafe(projectName);
    const auto component = SafeComponent(folder);
    if (!component) return std::nullopt;
    const fs::path canonical = DataPath() / *component;
    std::error_code error;
    if (fs::is_directory(canonical, error)) return canonical;
    // A directory made by hand, or on a system that kept the name's case.
    for (const auto &entry : fs::directory_iterator(DataPath(), error)) {
        std::error_code entryError;
        if (!entry.is_directory(entryError)) continue;
        if (NormText(Utf8ToCp1252(entry.path().filename().string())) == folder) return entry.path();
    }
    return canonical;
}

std::optional<fs::path> AppPaths::ProjectFile(std::string_view projectName) const {
    auto folder = ProjectPath(projectName);
    if (!folder) return std::nullopt;
    return *folder / "settings.dat";
}

bool AppPaths::ProjectExists(std::string_view projectName) const {
    const auto file = ProjectFile(projectName);
    return file && FileExists(*file);
}

bool AppPaths::MakeProjectDir(std::string_view projectName) const {
    const auto folder = ProjectPath(projectName);
    if (!folder) return false;
    std::error_code error;
    fs::create_directories(*folder, error);
    return fs::is_directory(*folder, error);
}

bool AppPaths::MakeProjectFolders(std::string_view projectName) const {
    const fs::path tree[] = {m_root,         DataPath(),         SavedPath(),
                             FontsPath(),    WorldPath(),        ResPath(),
                             ResPath() / "mp3", ResPath() / "uimages", ResPath() / "toolstyle"};
    std::error_code error;
    for (const auto &dir : tree) {
        fs::create_directories(dir, error);
        if (!fs::is_directory(dir, error)) return false;
    }
    return MakeProjectDir(projectName);
}

} // namespace orrery
