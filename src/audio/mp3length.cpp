// How long an MP3 file plays: its MPEG audio frames walked and their samples counted, or the
// frame count that a Xing, Info or VBRI header in the first frame gives.
#include "audio/lengthreaders.h"
#include "audio/medialength.h"

#include <array>

namespace orrery {

namespace {

// How far the first frame may lie after the tags, and how much junk may sit between two
// frames before the walk gives up.
constexpr std::uint64_t kMaxLeadingJunk = 64 * 1024;
constexpr std::uint64_t kMaxJunkBetweenFrames = 256;
// ID3v2 tags are skipped up to this many in a row.
constexpr int kMaxId3Tags = 8;

enum class MpegVersion { V1, V2, V25 };

struct FrameHeader {
    MpegVersion version;
    int layer;
    int sampleRate;
    bool mono;
    std::uint32_t bytes;
    std::uint32_t samples;

    bool SameStream(const FrameHeader &other) const {
        return version == other.version && layer == other.layer && sampleRate == other.sampleRate;
    }
};

// Kilobits a second by bitrate index, for MPEG 1 layers I, II, III and MPEG 2 and 2.5 layers
// I, and II and III together. Index 0 (free format) and 15 are not taken.
constexpr std::array<std::array<int, 15>, 5> kBitrates{{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},
}};
constexpr std::array<int, 3> kSampleRatesV1{44100, 48000, 32000};

// The frame that four header bytes describe, when they are one.
std::optional<FrameHeader> ParseFrameHeader(std::string_view bytes) {
    if (bytes.size() < 4) return std::nullopt;
    const std::uint32_t h = BigEndianAt(bytes, 0, 4);
    const std::uint32_t versionBits = (h >> 19) & 3;
    const std::uint32_t layerBits = (h >> 17) & 3;
    const std::uint32_t bitrateIndex = (h >> 12) & 15;
    const std::uint32_t rateIndex = (h >> 10) & 3;
    if ((h >> 21) != 0x7FF || versionBits == 1 || layerBits == 0 || bitrateIndex == 0 ||
        bitrateIndex == 15 || rateIndex == 3 || (h & 3) == 2)
        return std::nullopt;
    FrameHeader frame{};
    frame.version = versionBits == 3   ? MpegVersion::V1
                    : versionBits == 2 ? MpegVersion::V2
                                       : MpegVersion::V25;
    frame.layer = 4 - static_cast<int>(layerBits);
    const int divisor = frame.version == MpegVersion::V1   ? 1
                        : frame.version == MpegVersion::V2 ? 2
                                                           : 4;
    frame.sampleRate = kSampleRatesV1[rateIndex] / divisor;
    frame.mono = ((h >> 6) & 3) == 3;
    const bool v1 = frame.version == MpegVersion::V1;
    const std::size_t table = v1                 ? static_cast<std::size_t>(frame.layer - 1)
                              : frame.layer == 1 ? 3
                                                 : 4;
    const std::uint32_t bitsPerSecond =
        static_cast<std::uint32_t>(kBitrates[table][bitrateIndex]) * 1000;
    const std::uint32_t padding = (h >> 9) & 1;
    const auto rate = static_cast<std::uint32_t>(frame.sampleRate);
    if (frame.layer == 1) {
        frame.samples = 384;
        frame.bytes = (12 * bitsPerSecond / rate + padding) * 4;
    } else {
        // Layer III outside MPEG 1 halves the frame: 576 samples.
        const bool half = frame.layer == 3 && !v1;
        frame.samples = half ? 576 : 1152;
        frame.bytes = (half ? 72 : 144) * bitsPerSecond / rate + padding;
    }
    return frame;
}

// An ID3v2 tag: "ID3", version, flags, a 28-bit size in four 7-bit bytes, and a footer of ten
// more bytes when the flags say so. Skips the tags at the start of the file.
std::uint64_t AfterId3Tags(FileWindow &file) {
    std::uint64_t at = 0;
    for (int tag = 0; tag < kMaxId3Tags; ++tag) {
        const std::string_view head = file.Read(at, 10);
        if (head.size() < 10 || !head.starts_with("ID3")) break;
        std::uint64_t size = 0;
        for (std::size_t i = 6; i < 10; ++i) size = (size << 7) | (head[i] & 0x7F);
        at += 10 + size + ((head[5] & 0x10) ? 10 : 0);
    }
    return at;
}

// The first offset from at, up to at + reach, where a frame header lies, of the same stream as
// like when there is one.
std::optional<std::uint64_t> FindFrame(FileWindow &file, std::uint64_t at, std::uint64_t reach,
                                       const FrameHeader *like) {
    for (std::uint64_t i = at; i <= at + reach && file.Holds(i, 4); ++i) {
        const std::optional<FrameHeader> frame = ParseFrameHeader(file.Read(i, 4));
        if (frame && (!like || like->SameStream(*frame))) return i;
    }
    return std::nullopt;
}

// The first frame is taken when the next one follows it, or when it ends the file: a lone 0xFF
// in a tag's padding or in junk must not start the walk.
std::optional<std::uint64_t> FindFirstFrame(FileWindow &file, std::uint64_t from) {
    std::uint64_t at = from;
    while (std::optional<std::uint64_t> found =
               FindFrame(file, at, from + kMaxLeadingJunk - at, nullptr)) {
        const FrameHeader frame = *ParseFrameHeader(file.Read(*found, 4));
        const std::uint64_t next = *found + frame.bytes;
        const std::optional<FrameHeader> following = ParseFrameHeader(file.Read(next, 4));
        if (next >= file.Size() || (following && following->SameStream(frame))) return found;
        at = *found + 1;
        if (at > from + kMaxLeadingJunk) break;
    }
    return std::nullopt;
}

// The frame count of a Xing or Info header (after the side information of a layer III frame)
// or of a VBRI header (32 bytes after the frame header); nullopt when there is none.
std::optional<std::uint32_t> HeaderFrameCount(FileWindow &file, std::uint64_t frameAt,
                                              const FrameHeader &frame) {
    if (frame.layer != 3) return std::nullopt;
    const bool v1 = frame.version == MpegVersion::V1;
    const std::uint64_t sideInfo = v1 ? (frame.mono ? 17 : 32) : (frame.mono ? 9 : 17);
    const std::string_view xing = file.Read(frameAt + 4 + sideInfo, 12);
    if (xing.size() == 12 && (xing.starts_with("Xing") || xing.starts_with("Info")) &&
        (BigEndianAt(xing, 4, 4) & 1))
        return BigEndianAt(xing, 8, 4);
    const std::string_view vbri = file.Read(frameAt + 4 + 32, 18);
    if (vbri.size() == 18 && vbri.starts_with("VBRI")) return BigEndianAt(vbri, 14, 4);
    return std::nullopt;
}

// Counts the samples of the frames from the first on, over a little junk between frames, to an
// ID3v1 tag, junk that doesn't end, or the end of what is scanned.
std::uint64_t CountSamples(FileWindow &file, std::uint64_t at, const FrameHeader &first) {
    std::uint64_t samples = 0;
    const std::uint64_t limit = std::min(file.Size(), kMaxScannedMpegBytes);
    while (at < limit) {
        std::optional<FrameHeader> frame = ParseFrameHeader(file.Read(at, 4));
        if (!frame || !frame->SameStream(first)) {
            if (file.Read(at, 3) == "TAG") break;
            const std::optional<std::uint64_t> next =
                FindFrame(file, at + 1, kMaxJunkBetweenFrames, &first);
            if (!next) break;
            at = *next;
            frame = ParseFrameHeader(file.Read(at, 4));
        }
        samples += frame->samples;
        at += frame->bytes;
    }
    return samples;
}

} // namespace

std::optional<std::int64_t> Mp3Length(FileWindow &file) {
    const std::optional<std::uint64_t> start = FindFirstFrame(file, AfterId3Tags(file));
    if (!start) return std::nullopt;
    const FrameHeader first = *ParseFrameHeader(file.Read(*start, 4));
    const auto perSecond = static_cast<std::uint64_t>(first.sampleRate);
    if (const std::optional<std::uint32_t> frames = HeaderFrameCount(file, *start, first))
        return static_cast<std::int64_t>(std::uint64_t{*frames} * first.samples * 1000 / perSecond);
    const std::uint64_t samples = CountSamples(file, *start, first);
    return static_cast<std::int64_t>(samples * 1000 / perSecond);
}

} // namespace orrery
