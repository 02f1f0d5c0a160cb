// Stored preferences in a small INI file per project name.
#include "foundation/preferences.h"

#include "foundation/text.h"
#include "foundation/textfile.h"

#include <cstdint>
#include <cstdlib>
#include <map>
#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kSection = "[Settings]";

using Entries = std::map<std::string, std::string>;

Entries ReadEntries(const fs::path &file) {
    Entries entries;
    const auto bytes = ReadFileBytes(file);
    if (!bytes) return entries;
    bool inSection = false;
    for (std::string_view line : SplitLines(*bytes)) {
        const std::string trimmed = Trim(line);
        if (!trimmed.empty() && trimmed.front() == '[') {
            inSection = trimmed == kSection;
            continue;
        }
        const auto equals = trimmed.find('=');
        if (inSection && equals != std::string::npos)
            entries[Trim(trimmed.substr(0, equals))] = Trim(trimmed.substr(equals + 1));
    }
    return entries;
}

} // namespace

fs::path PreferenceStore::DefaultFolder() {
    if (const char *config = std::getenv("XDG_CONFIG_HOME"); config && *config)
        return fs::path(config) / "orrery-kit";
    if (const char *home = std::getenv("HOME"); home && *home)
        return fs::path(home) / ".config" / "orrery-kit";
    return fs::temp_directory_path() / "orrery-kit";
}

fs::path PreferenceStore::FileFor(std::string_view projectName) const {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string name;
    for (const char c : projectName) {
        const auto code = static_cast<unsigned char>(c);
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           (c >= '0' && c <= '9') || c == ' ' || c == '-' || c == '_';
        if (plain) {
            name += c;
        } else {
            name += '%';
            name += kHex[code >> 4];
            name += kHex[code & 15];
        }
    }
    // A name too long for a file keeps its beginning and gets a hash of the whole name.
    constexpr std::string_view kExtension = ".ini";
    constexpr std::size_t kHashText = 17; // "~" and sixteen hex digits
    constexpr std::size_t kRoom = kMaxFileNameBytes - kTemporaryNameExtraBytes - kExtension.size();
    if (name.size() > kRoom) {
        std::uint64_t hash = 14695981039346656037ull; // FNV-1a
        for (const char c : projectName)
            hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ull;
        name.resize(kRoom - kHashText);
        name += '~';
        for (int shift = 60; shift >= 0; shift -= 4) name += kHex[(hash >> shift) & 15];
    }
    return m_folder / (name + std::string(kExtension));
}

bool PreferenceStore::SavePref(std::string_view projectName, std::string_view key,
                           std::string_view value) const {
    const fs::path file = FileFor(projectName);
    Entries entries = ReadEntries(file);
    entries[Trim(key)] = Trim(value);
    std::string text(kSection);
    text += '\n';
    for (const auto &[name, stored] : entries) text += name + '=' + stored + '\n';
    std::error_code error;
    fs::create_directories(m_folder, error);
    return ReplaceFileAtomically(file, text);
}

std::string PreferenceStore::GetPref(std::string_view projectName, std::string_view key,
                                 std::string_view fallback) const {
    const Entries entries = ReadEntries(FileFor(projectName));
    const auto found = entries.find(Trim(key));
    return found == entries.end() ? Trim(fallback) : found->second;
}

} // namespace orrery
