// Sound files built byte by byte for the audio tests.
#pragma once

#include "support/bytes.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace orrery::test {

inline std::string RiffChunk(const std::string &id, const std::string &body) {
    std::string chunk = id + Little(static_cast<std::uint32_t>(body.size()), 4) + body;
    if (body.size() % 2) chunk += '\0';
    return chunk;
}

// 8-bit mono PCM at the given rate: byte rate and sample rate alike.
inline std::string WavFmt(std::uint32_t byteRate) {
    return RiffChunk("fmt ", Little(1, 2) + Little(1, 2) + Little(byteRate, 4) +
                                 Little(byteRate, 4) + Little(1, 2) + Little(8, 2));
}

inline std::string Wav(const std::string &chunks) {
    return "RIFF" + Little(static_cast<std::uint32_t>(chunks.size() + 4), 4) + "WAVE" + chunks;
}

inline void WriteBytes(const std::filesystem::path &file, const std::string &bytes) {
    std::ofstream out(file, std::ios::binary);
    out << bytes;
}

} // namespace orrery::test
