// The profile screen's checks and the start of a game, without any drawing.
#include "session/profilescreen.h"

#include "actions/game.h"
#include "foundation/codepage.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "session/profiles.h"

#include <algorithm>
#include <array>
#include <optional>
#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kEnterName = "Enter profile name!";
constexpr std::string_view kNameTaken = "That profile name already exists!";
constexpr std::string_view kNothingToLoad = "There is no saved profile yet: start a new one.";
constexpr std::string_view kChooseProfile = "Choose a profile to load.";

// The spellings of the profile extension, the one the program writes first. On a file system
// that ignores case they are one file; here each is looked for.
constexpr std::array<std::string_view, 3> kExtensions = {".vbz", ".Vbz", ".VBZ"};

std::string WithoutExtensions(std::string_view name) {
    std::string plain(name);
    for (std::string_view extension : kExtensions) plain = ReplaceAll(plain, extension, "");
    return plain;
}

// The file of a profile in the first spelling that exists; nullopt when there is none or the
// name makes no safe file name.
std::optional<fs::path> FoundProfileFile(const AppPaths &paths, std::string_view name) {
    const auto component = SafeComponent(Trim(name));
    if (!component) return std::nullopt;
    for (std::string_view extension : kExtensions) {
        const fs::path file = paths.SavedPath() / (*component + std::string(extension));
        if (FileExists(file)) return file;
    }
    return std::nullopt;
}

// A name is taken by a file of that name or by its profile. A name that makes no file name
// takes nothing here; its new game fails at the file.
bool ProfileTaken(const AppPaths &paths, std::string_view name) {
    const auto component = SafeComponent(name);
    if (!component) return false;
    return FileExists(paths.SavedPath() / *component) || FoundProfileFile(paths, name);
}

// The profile name of a file in Saved; nullopt for a file of another kind.
std::optional<std::string> ProfileName(const fs::path &file) {
    const std::string name = Utf8ToCp1252(file.filename().string());
    for (std::string_view extension : kExtensions) {
        if (!name.ends_with(extension)) continue;
        std::string stem = name.substr(0, name.size() - extension.size());
        if (Trim(stem).empty()) return std::nullopt;
        return stem;
    }
    return std::nullopt;
}

bool AlphabeticalOrder(const std::string &a, const std::string &b) {
    const std::string lowerA = LowerCase(a);
    const std::string lowerB = LowerCase(b);
    return lowerA != lowerB ? lowerA < lowerB : a < b;
}

// Sets the player and forgets the files of any game before: files are not kept in a profile.
void StartPlayer(Game &game, std::string_view name) {
    game.PlayerName = Trim(name);
    game.files = FileTable{};
}

GameStart CannotStart(const Game &game) {
    return {false, "cannot use a profile for the name \"" + game.PlayerName + "\"", {}};
}

} // namespace

std::vector<std::string> LoadGamesList(const AppPaths &paths) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(paths.SavedPath(), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code kindError;
        if (!entry->is_regular_file(kindError)) continue;
        if (auto name = ProfileName(entry->path())) names.push_back(std::move(*name));
    }
    std::sort(names.begin(), names.end(), AlphabeticalOrder);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

ProfileClick ClickIt(const AppPaths &paths, ProfileOption option, std::string_view typed,
                     std::string_view selected) {
    if (option == ProfileOption::Load) {
        if (!Trim(selected).empty()) return {ProfileClick::Next::StartLoad, std::string(selected)};
        const bool none = orrery::LoadGamesList(paths).empty();
        return {ProfileClick::Next::ShowStatus, std::string(none ? kNothingToLoad : kChooseProfile)};
    }
    // Trimmed again after the extensions go, so that the name checked is the name the new
    // game gets: "Ada .vbz" must not pass the check and then overwrite "Ada".
    const std::string name = Trim(WithoutExtensions(Trim(typed)));
    // The screen's own messages stand in the name box; neither is ever a name.
    if (name.empty() || name == kEnterName || name == kNameTaken)
        return {ProfileClick::Next::ShowMessage, std::string(kEnterName)};
    if (ProfileTaken(paths, name))
        return {ProfileClick::Next::ShowMessage, std::string(kNameTaken)};
    // A name no file can carry is refused before anything is made, and the screen says why.
    if (const std::string problem = NameProblem(name, NameKind::Player); !problem.empty())
        return {ProfileClick::Next::ShowStatus, UnusableName(name, NameKind::Player, problem)};
    return {ProfileClick::Next::StartNew, name};
}

GameStart GameNew(Game &game, std::string_view name) {
    StartPlayer(game, name);
    const auto file = game.paths ? ProfileFile(*game.paths, game.PlayerName) : std::nullopt;
    if (!file) return CannotStart(game);
    const ProfileResult setup = NewGameSetup(game, *file);
    if (!setup.ok) return {false, setup.error, {}};
    return {true, {}, {}};
}

GameStart GameLoad(Game &game, std::string_view name) {
    StartPlayer(game, name);
    if (!game.paths) return CannotStart(game);
    auto file = FoundProfileFile(*game.paths, game.PlayerName);
    // A profile gone from the folder since the list was read fails at its load.
    if (!file) file = ProfileFile(*game.paths, game.PlayerName);
    if (!file) return CannotStart(game);
    return {true, {}, *file};
}

} // namespace orrery
