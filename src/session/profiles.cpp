// The profile file written and read, and the three steps of a new game.
#include "session/profiles.h"

#include "actions/game.h"
#include "foundation/convert.h"
#include "foundation/scramble.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "network/generator.h"
#include "network/profileworld.h"

#include <algorithm>
#include <system_error>
#include <vector>

namespace orrery {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kCrLf = "\r\n";
constexpr std::string_view kVariableKey = "user-variable:";

// A field on one line: CRLF becomes "//" as the format has it for values. A lone CR or LF
// would split the record in the file, so it goes the same way; a value reads back with CRLF.
std::string OneLine(std::string_view text) {
    std::string line = ReplaceAll(text, kCrLf, "//");
    line = ReplaceAll(line, "\r", "//");
    return ReplaceAll(line, "\n", "//");
}

// The plain lines of the file, blank ones included, in their fixed order.
std::vector<std::string> ProfileLines(const Game &game) {
    std::vector<std::string> lines = {"playername:" + OneLine(Trim(game.PlayerName)), "",
                                      "[variables]", ""};
    for (const Variable &variable : game.VariableTable) {
        if (IsBlank(variable.name)) continue;
        lines.push_back(std::string(kVariableKey) + OneLine(Trim(variable.name)) + "=" +
                        OneLine(Trim(variable.value)));
    }
    lines.insert(lines.end(), {"", "[quicklist]", ""});
    for (std::size_t i = 1; i < game.desk.Quicklist.size(); ++i)
        lines.push_back("quicklist:" + OneLine(game.desk.Quicklist[i]));
    lines.insert(lines.end(), {"", "[locked-tools]", ""});
    for (std::size_t i = 1; i < game.desk.ToolLocked.size(); ++i)
        lines.push_back((game.desk.ToolLocked[i] ? "locked:" : "unlocked:") +
                        IntText(static_cast<std::int64_t>(i)));
    return lines;
}

// Reads one unscrambled line into the game. The quicklist counter runs over the whole file.
struct LineReader {
    Game &game;
    int quicklistCounter = 0;
    int variableCursor = 1; // every slot before it is taken: a load only fills

    void ReadVariable(const std::string &line) {
        const int slot = FirstFreeSlot(game.VariableTable, kVariableRows, variableCursor);
        variableCursor = slot;
        // A value ends at the second "=": a value that held one reads back cut there.
        game.VariableTable.Set(slot, {Trim(ReplaceAll(FieldBy(line, 1, "="), kVariableKey, "")),
                                      Trim(ReplaceAll(FieldBy(line, 2, "="), "//", kCrLf))});
    }

    void ReadQuicklist(const std::string &line) {
        auto &entries = game.desk.Quicklist;
        const int room = std::max(static_cast<int>(entries.size()) - 1, kQuicklistRows);
        quicklistCounter = std::min(quicklistCounter + 1, room + 1);
        if (quicklistCounter > room) return; // past the list's room: the entry is dropped
        if (static_cast<int>(entries.size()) <= quicklistCounter)
            entries.resize(static_cast<std::size_t>(quicklistCounter) + 1);
        // An entry ends at its first ":", as a value does at its second "=".
        entries[static_cast<std::size_t>(quicklistCounter)] = Trim(FieldAt(line, 2));
    }

    // Only a tool that exists takes a lock line; any other index is passed over.
    void ReadLock(const std::string &line, bool locked) {
        const auto index = ToInt32(FieldAt(line, 2));
        auto &locks = game.desk.ToolLocked;
        if (!index || *index < 1 || *index >= static_cast<std::int32_t>(locks.size())) return;
        locks[static_cast<std::size_t>(*index)] = locked;
    }

    void Read(std::string_view fileLine) {
        const std::string trimmed = Trim(fileLine);
        if (trimmed.empty()) return;
        const std::string line = UnscrambleText(trimmed);
        const std::string key = NormText(FieldAt(line, 1));
        // The player name line is not read: the name comes from the profile chosen.
        if (key == "user-variable")
            ReadVariable(line);
        else if (key == "quicklist")
            ReadQuicklist(line);
        else if (key == "locked")
            ReadLock(line, true);
        else if (key == "unlocked")
            ReadLock(line, false);
    }
};

} // namespace

std::optional<fs::path> ProfileFile(const AppPaths &paths, std::string_view player) {
    auto file = ProfileFolder(paths, player);
    if (file) *file += kProfileExtension;
    return file;
}

void ClearRuntimeVariables(Game &game) {
    game.VariableTable.Clear();
}

int NextFreeRuntimeVariable(const Game &game) {
    return FirstFreeSlot(game.VariableTable, kVariableRows);
}

void ResetPlayerVariables(Game &game) {
    ClearRuntimeVariables(game);
    const std::string player = Trim(game.PlayerName);
    for (int slot = 1; slot <= kVariableRows; ++slot) {
        Variable variable = game.project.VariableTable[slot];
        // Every slot draws, whether or not its value asks, so the draws don't depend on the
        // values.
        const std::string fullName = Trim(game.words.RandomFullName(game.random));
        const std::string shortName = Trim(game.words.RandomShortName(game.random));
        variable.value = ReplaceAll(variable.value, "$randomname", fullName);
        variable.value = ReplaceAll(variable.value, "$randomshortname", shortName);
        variable.value = ReplaceAll(variable.value, "$randomplayername", player);
        game.VariableTable.Set(slot, std::move(variable));
    }
}

std::string ProfileText(Game &game) {
    std::string text;
    for (const std::string &line : ProfileLines(game)) {
        if (!line.empty()) text += ScrambleText(line, game.random);
        text += kCrLf;
    }
    return text;
}

ProfileResult SaveProfile(Game &game, const fs::path &file) {
    if (ReplaceFileAtomically(file, ProfileText(game))) return {};
    return {false, file.string() + ": cannot write the profile; the old one is kept"};
}

ProfileResult SaveCurrentProfile(Game &game) {
    if (const std::string problem = NameProblem(game.PlayerName, NameKind::Player);
        !problem.empty())
        return {false, UnusableName(game.PlayerName, NameKind::Player, problem)};
    const auto file = game.paths ? ProfileFile(*game.paths, game.PlayerName) : std::nullopt;
    if (!file) return {false, "no application folder to save the profile in"};
    return SaveProfile(game, *file);
}

void ApplyProfileText(Game &game, std::string_view bytes) {
    ClearRuntimeVariables(game);
    LineReader reader{game};
    for (std::string_view line : SplitLines(bytes)) reader.Read(line);
}

ProfileResult LoadProfile(Game &game, const fs::path &file) {
    if (Trim(file.string()).empty()) return {};
    // Read before anything is cleared, so a profile that can't be read leaves the game as it
    // was.
    ReadError error = ReadError::None;
    const auto bytes = ReadFileBytes(file, &error);
    if (!bytes)
        return {false,
                file.string() + ": cannot read the profile: " + std::string(ReadErrorText(error))};
    ApplyProfileText(game, *bytes);
    return {};
}

ProfileResult NewGameSetup(Game &game, const fs::path &file) {
    if (const std::string problem = NameProblem(game.PlayerName, NameKind::Player);
        !problem.empty())
        return {false, UnusableName(game.PlayerName, NameKind::Player, problem)};
    const auto folder = game.paths ? ProfileFolder(*game.paths, game.PlayerName) : std::nullopt;
    std::error_code error;
    const bool folderWasThere = folder && fs::exists(*folder, error);
    if (!folder || !CreateProfileWorld(*game.paths, game.PlayerName, game.project))
        return {false, "cannot make the world folder for the player \"" + game.PlayerName + "\""};
    ResetPlayerVariables(game);
    ProfileResult saved = SaveProfile(game, file);
    // A new game that couldn't be saved leaves no world of its own behind.
    if (!saved.ok && !folderWasThere) fs::remove_all(*folder, error);
    return saved;
}

} // namespace orrery
