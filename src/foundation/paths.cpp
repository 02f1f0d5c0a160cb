// The application tree and the one spelling of a project's directory.
#include "foundation/paths.h"

#include "foundation/codepage.h"
#include "foundation/text.h"
#include "foundation/textfile.h"

#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

namespace {

// A backup's stamp at its full width, for the longest name a backup can have.
constexpr std::string_view kWidestStamp = "2000/01/01 00:00:00";

// Why the name can't be one path component; "" when it can.
std::string_view ComponentProblem(std::string_view name) {
    if (name.empty()) return "it is empty";
    if (name == "." || name == "..") return "it is \".\" or \"..\", which name folders already";
    for (const char c : name) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code == 127) return "it holds a control character";
        if (c == '/' || c == '\\') return "it holds \"/\" or \"\\\"";
    }
    return {};
}

std::string TooLong(std::size_t longest) {
    const std::size_t most = kMaxFileNameBytes - kTemporaryNameExtraBytes;
    if (longest <= most) return {};
    const std::size_t excess = longest - most;
    return "it is " + std::to_string(excess) + (excess == 1 ? " byte" : " bytes") +
           " too long for a file name";
}

} // namespace

std::optional<std::string> SafeComponent(std::string_view name) {
    if (!ComponentProblem(name).empty()) return std::nullopt;
    return Cp1252ToUtf8(name);
}

std::string BackupFileName(std::string_view projectName, std::string_view nowText) {
    return NormSafe(projectName) + "_" + NormSafe(nowText) + "_.dat";
}

std::string NameProblem(std::string_view name, NameKind kind) {
    const std::string trimmed = Trim(name);
    if (trimmed.empty()) return "it is empty";
    // A project's folder is its name without punctuation; a player's, the name itself.
    const std::string folder = kind == NameKind::Project ? NormSafe(trimmed) : trimmed;
    if (folder.empty()) return "it is empty once punctuation is left out";
    if (const std::string_view problem = ComponentProblem(folder); !problem.empty())
        return std::string(problem);
    if (folder.find('?') != std::string::npos)
        return "it holds \"?\" or a character that Windows-1252 cannot write";
    const std::string longest = kind == NameKind::Project
                                    ? BackupFileName(trimmed, kWidestStamp)
                                    : trimmed + std::string(kProfileExtension);
    return TooLong(Cp1252ToUtf8(longest).size());
}

std::string UnusableName(std::string_view name, NameKind kind, std::string_view problem) {
    return "\"" + std::string(name) + "\" is not a usable " +
           (kind == NameKind::Project ? "project" : "player") + " name: " + std::string(problem);
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

std::optional<std::filesystem::path> FindMediaFile(const std::filesystem::path &folder, std::string_view name) {
    const auto component = SafeComponent(Trim(name));
    if (!component) return std::nullopt;
    std::error_code error;
    if (fs::is_regular_file(folder / *component, error)) return folder / *component;
    const std::string wanted = LowerCase(Utf8ToCp1252(*component));
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (LowerCase(Utf8ToCp1252(it->path().filename().string())) == wanted &&
            it->is_regular_file(error))
            return it->path();
    return std::nullopt;
}

} // namespace orrery
