// The two stored preferences, "Music" and "Sound", kept per project name in the user's own
// settings folder, outside the application folder.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orrery {

class PreferenceStore {
public:
    // Keeps one small file per project name in the folder.
    explicit PreferenceStore(std::filesystem::path folder) : m_folder(std::move(folder)) {}
    // $XDG_CONFIG_HOME/orrery-kit, or ~/.config/orrery-kit.
    static std::filesystem::path DefaultFolder();

    // Stores value, trimmed, under key in section "Settings" of the project's name.
    bool SavePref(std::string_view projectName, std::string_view key, std::string_view value) const;
    // The stored value, trimmed, or fallback when there is none.
    std::string GetPref(std::string_view projectName, std::string_view key,
                    std::string_view fallback) const;

    // The file that holds a project's preferences: the name as it stands, with every byte
    // that isn't a plain letter, digit, blank, "-" or "_" written as %XX; a name too long for
    // a file is cut and ends in "~" and a hash of the whole name.
    std::filesystem::path FileFor(std::string_view projectName) const;

private:
    std::filesystem::path m_folder;
};

} // namespace orrery
