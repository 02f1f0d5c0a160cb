// How long a sound file plays: the choice by extension, and the WAV reader.
#include "audio/medialength.h"

#include "audio/lengthreaders.h"
#include "foundation/text.h"

#include <algorithm>
#include <string>

namespace orrery {

namespace {

// A RIFF file is walked over this many chunks at most before its data is found.
constexpr int kMaxRiffChunks = 1024;

struct WavChunks {
    std::optional<std::uint32_t> byteRate;
    std::optional<std::uint64_t> dataBytes;
};

// Walks the chunks after the RIFF header, each an id, a size and its bytes padded to an even
// length, to the format chunk and the data chunk in whichever order they come.
std::optional<WavChunks> FindWavChunks(FileWindow &file) {
    WavChunks found;
    std::uint64_t at = 12;
    for (int chunk = 0; chunk < kMaxRiffChunks && !(found.byteRate && found.dataBytes); ++chunk) {
        const std::string_view head = file.Read(at, 8);
        if (head.size() < 8) return std::nullopt;
        const std::uint64_t size = LittleEndianAt(head, 4, 4);
        const std::uint64_t body = at + 8;
        if (head.starts_with("fmt ")) {
            const std::string_view format = file.Read(body, 16);
            if (size < 16 || format.size() < 16) return std::nullopt;
            found.byteRate = LittleEndianAt(format, 8, 4);
        } else if (head.starts_with("data")) {
            // A recording cut short, or written as a stream, holds less than its size says: what
            // is there plays.
            found.dataBytes = std::min(size, file.Size() - std::min(body, file.Size()));
        }
        at = body + size + (size & 1);
    }
    return found;
}

} // namespace

std::optional<std::int64_t> WavLength(FileWindow &file) {
    const std::string_view head = file.Read(0, 12);
    if (head.size() < 12 || !head.starts_with("RIFF") || head.substr(8, 4) != "WAVE")
        return std::nullopt;
    const std::optional<WavChunks> chunks = FindWavChunks(file);
    if (!chunks || !chunks->byteRate || !chunks->dataBytes || *chunks->byteRate == 0)
        return std::nullopt;
    return static_cast<std::int64_t>(*chunks->dataBytes * 1000 / *chunks->byteRate);
}

std::optional<std::int64_t> MediaLength(const std::filesystem::path &file) {
    const std::string extension = LowerCase(file.extension().string());
    std::optional<std::int64_t> (*reader)(FileWindow &) = nullptr;
    if (extension == ".wav") reader = WavLength;
    if (extension == ".mid" || extension == ".midi") reader = MidiLength;
    if (extension == ".mp3") reader = Mp3Length;
    if (!reader) return std::nullopt;
    FileWindow window(file);
    if (!window.IsOpen()) return std::nullopt;
    return reader(window);
}

} // namespace orrery
