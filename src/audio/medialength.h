// How long a sound file plays, read from the file itself: WAV, MIDI and MP3.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace orrery {

// The playing length in milliseconds of a .wav, .mid (or .midi) or .mp3 file, told by its
// extension in any case. nullopt for any other extension, a file that can't be read, or one
// whose header or structure is malformed. Only headers are read, a piece at a time; an MP3 is
// walked frame by frame over its first kMaxScannedMpegBytes and a MIDI file above
// kMaxMidiBytes is refused.
std::optional<std::int64_t> MediaLength(const std::filesystem::path &file);

inline constexpr std::uint64_t kMaxScannedMpegBytes = 1024ull * 1024 * 1024;
inline constexpr std::uint64_t kMaxMidiBytes = 16ull * 1024 * 1024;

} // namespace orrery
