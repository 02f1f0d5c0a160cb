// The application tree: every directory the system reads or writes, below one root.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orrery {

// A name from a project or a player as one path component: Windows-1252 converted to UTF-8.
// nullopt when it is empty, "." or "..", or holds a separator or a control character, so that
// no name can lead outside the application folder.
std::optional<std::string> SafeComponent(std::string_view name);

// The file of that name (Windows-1252) in the folder, matched without regard to case: the
// projects' media come from file systems that ignore it, and the run-time and the packager
// find them alike. nullopt when there is none, or when the name is no plain file name.
std::optional<std::filesystem::path> FindMediaFile(const std::filesystem::path &folder,
                                                   std::string_view name);

// The extension a profile is written under: Saved/<player name>.vbz.
inline constexpr std::string_view kProfileExtension = ".vbz";

// The name of a backup: "<project>_<stamp>_.dat", both stripped of punctuation and lower-cased.
std::string BackupFileName(std::string_view projectName, std::string_view nowText);

enum class NameKind { Project, Player };

// Why a project or a player name can't be used, in words for a person ("it holds a control
// character"); "" when it can. The one check of a name before anything is made from it: it
// makes a folder name that stays in the application folder; it holds no "?", which is what a
// character Windows-1252 cannot write becomes, so that two such names can't share one file;
// and the longest file name made from it (a backup's or a profile's, with a save's temporary
// ending) fits the file system.
std::string NameProblem(std::string_view name, NameKind kind);
// The refusal of a name, for a person: "\"<name>\" is not a usable project name: <problem>".
std::string UnusableName(std::string_view name, NameKind kind, std::string_view problem);

class AppPaths {
public:
    explicit AppPaths(std::filesystem::path root) : m_root(std::move(root)) {}

    const std::filesystem::path &Root() const { return m_root; }
    std::filesystem::path DataPath() const { return m_root / "Data"; }
    std::filesystem::path ResPath() const { return m_root / "Res"; }
    std::filesystem::path SavedPath() const { return m_root / "Saved"; }
    std::filesystem::path FontsPath() const { return m_root / "Fonts"; }
    std::filesystem::path WorldPath() const { return DataPath() / "S"; }
    std::filesystem::path BackupPath() const { return m_root / "_autobackup"; }
    std::filesystem::path ProjectNameFile() const { return DataPath() / "pname.dat"; }

    // The directory of a project. A project has one spelling on disk, its name stripped of
    // punctuation and lower-cased; an existing directory whose name differs only in case is
    // found and used instead. nullopt for a name that makes no safe directory name.
    std::optional<std::filesystem::path> ProjectPath(std::string_view projectName) const;
    std::optional<std::filesystem::path> ProjectFile(std::string_view projectName) const;
    // True when the project's settings.dat can be measured.
    bool ProjectExists(std::string_view projectName) const;
    // Creates the project's directory; an existing one is no error.
    bool MakeProjectDir(std::string_view projectName) const;
    // Creates the whole tree for a project, passing over directories that exist.
    bool MakeProjectFolders(std::string_view projectName) const;

private:
    std::filesystem::path m_root;
};

} // namespace orrery
