// The General MIDI sound font that MIDI music plays with: the game folder's own, which a
// distribution carries, or else the one the system has installed.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace orrery {

// Where a game folder carries its sound font, below its root.
inline constexpr std::string_view kGameSoundFont = "Data/gm.sf2";

// The game folder's Data/gm.sf2 (any case), or else the system's General MIDI sound font;
// nullopt when there is neither, and MIDI files then play as silence.
std::optional<std::filesystem::path> FindSoundFont(const std::filesystem::path &gameRoot);

} // namespace orrery
