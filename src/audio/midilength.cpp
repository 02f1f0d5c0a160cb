// How long a Standard MIDI File plays: every track's events walked for their ticks, the tempo
// changes of all tracks applied in tick order.
#include "audio/lengthreaders.h"
#include "audio/medialength.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace orrery {

namespace {

// Half a second a quarter note until a tempo event says otherwise.
constexpr std::uint32_t kDefaultMicrosPerQuarter = 500'000;
// A length past this many milliseconds (some thirty years) comes from a broken file.
constexpr double kMaxMilliseconds = 1e12;

struct TempoChange {
    std::uint64_t tick;
    std::uint32_t microsPerQuarter;
};

// The bytes of one chunk, read in order; every read fails at the chunk's end.
class ChunkReader {
public:
    ChunkReader(FileWindow &file, std::uint64_t at, std::uint64_t end)
        : m_file(file), m_at(at), m_end(end) {}

    bool AtEnd() const { return m_at >= m_end; }
    std::optional<std::uint8_t> Byte() {
        if (AtEnd()) return std::nullopt;
        const std::string_view bytes = m_file.Read(m_at, 1);
        if (bytes.empty()) return std::nullopt;
        ++m_at;
        return static_cast<std::uint8_t>(bytes[0]);
    }
    // A variable-length quantity: seven bits a byte, high bit set on all but the last, at
    // most four bytes.
    std::optional<std::uint32_t> Quantity() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const std::optional<std::uint8_t> byte = Byte();
            if (!byte) return std::nullopt;
            value = (value << 7) | (*byte & 0x7Fu);
            if (!(*byte & 0x80)) return value;
        }
        return std::nullopt;
    }
    bool Skip(std::uint64_t count) {
        if (count > m_end - m_at) return false;
        m_at += count;
        return true;
    }

private:
    FileWindow &m_file;
    std::uint64_t m_at;
    std::uint64_t m_end;
};

// Data bytes after a channel message's status byte.
int ChannelDataBytes(std::uint8_t status) {
    const int kind = status & 0xF0;
    return kind == 0xC0 || kind == 0xD0 ? 1 : 2;
}

// A meta event; true at the end of the track. A tempo event adds its change.
std::optional<bool> ReadMeta(ChunkReader &track, std::uint64_t tick,
                             std::vector<TempoChange> &tempos) {
    const std::optional<std::uint8_t> type = track.Byte();
    const std::optional<std::uint32_t> length = type ? track.Quantity() : std::nullopt;
    if (!length) return std::nullopt;
    if (*type == 0x2F) return true;
    if (*type == 0x51 && *length == 3) {
        std::uint32_t micros = 0;
        for (int i = 0; i < 3; ++i) {
            const std::optional<std::uint8_t> byte = track.Byte();
            if (!byte) return std::nullopt;
            micros = (micros << 8) | *byte;
        }
        tempos.push_back({tick, micros});
        return false;
    }
    if (!track.Skip(*length)) return std::nullopt;
    return false;
}

// Walks one track's events to its end-of-track event or the end of its chunk, adding its tempo
// changes. The tick of its last event; nullopt when an event is malformed or cut short.
std::optional<std::uint64_t> ReadTrack(ChunkReader track, std::vector<TempoChange> &tempos) {
    std::uint64_t tick = 0;
    std::uint8_t running = 0;
    while (!track.AtEnd()) {
        const std::optional<std::uint32_t> delta = track.Quantity();
        const std::optional<std::uint8_t> first = delta ? track.Byte() : std::nullopt;
        if (!first) return std::nullopt;
        tick += *delta;
        if (*first < 0xF0) {
            // A data byte first repeats the last channel message's status: running status.
            const bool repeated = *first < 0x80;
            if (!repeated) running = *first;
            if (running == 0) return std::nullopt;
            if (!track.Skip(static_cast<std::uint64_t>(ChannelDataBytes(running) - repeated)))
                return std::nullopt;
            continue;
        }
        // System exclusive and meta events cancel running status.
        running = 0;
        if (*first == 0xF0 || *first == 0xF7) {
            const std::optional<std::uint32_t> length = track.Quantity();
            if (!length || !track.Skip(*length)) return std::nullopt;
        } else if (*first == 0xFF) {
            const std::optional<bool> end = ReadMeta(track, tick, tempos);
            if (!end) return std::nullopt;
            if (*end) return tick;
        } else {
            return std::nullopt;
        }
    }
    return tick;
}

double MillisecondsByTempo(std::uint64_t endTick, std::vector<TempoChange> tempos,
                           std::uint32_t ticksPerQuarter) {
    std::stable_sort(tempos.begin(), tempos.end(),
                     [](const TempoChange &a, const TempoChange &b) { return a.tick < b.tick; });
    double micros = 0;
    std::uint64_t lastTick = 0;
    double tempo = kDefaultMicrosPerQuarter;
    for (const TempoChange &change : tempos) {
        if (change.tick >= endTick) break;
        micros += static_cast<double>(change.tick - lastTick) * tempo / ticksPerQuarter;
        lastTick = change.tick;
        tempo = change.microsPerQuarter;
    }
    micros += static_cast<double>(endTick - lastTick) * tempo / ticksPerQuarter;
    return micros / 1000;
}

// A division with its high bit set counts SMPTE frames a second (its high byte negated; 29
// stands for 29.97) and ticks a frame (its low byte), with no regard for tempo.
std::optional<double> MillisecondsBySmpte(std::uint64_t endTick, std::uint32_t division) {
    const int frames = -static_cast<std::int8_t>(division >> 8);
    const std::uint32_t ticksPerFrame = division & 0xFF;
    if (frames != 24 && frames != 25 && frames != 29 && frames != 30) return std::nullopt;
    if (ticksPerFrame == 0) return std::nullopt;
    const double perSecond = (frames == 29 ? 29.97 : frames) * ticksPerFrame;
    return static_cast<double>(endTick) * 1000 / perSecond;
}

// The next track chunk from at, over any chunk of another kind: its body's start and end.
std::optional<std::pair<std::uint64_t, std::uint64_t>> NextTrack(FileWindow &file,
                                                                 std::uint64_t &at) {
    while (file.Holds(at, 8)) {
        const std::string_view head = file.Read(at, 8);
        const std::uint64_t body = at + 8;
        const std::uint64_t size = BigEndianAt(head, 4, 4);
        if (!file.Holds(body, size)) return std::nullopt;
        at = body + size;
        if (head.starts_with("MTrk")) return std::pair{body, at};
    }
    return std::nullopt;
}

} // namespace

std::optional<std::int64_t> MidiLength(FileWindow &file) {
    if (file.Size() > kMaxMidiBytes) return std::nullopt;
    const std::string_view header = file.Read(0, 14);
    if (header.size() < 14 || !header.starts_with("MThd")) return std::nullopt;
    const std::uint32_t headerSize = BigEndianAt(header, 4, 4);
    const std::uint32_t format = BigEndianAt(header, 8, 2);
    const std::uint32_t tracks = BigEndianAt(header, 10, 2);
    const std::uint32_t division = BigEndianAt(header, 12, 2);
    // Format 2 holds independent patterns with no common time line.
    if (headerSize < 6 || format > 1 || tracks == 0 || division == 0) return std::nullopt;

    std::vector<TempoChange> tempos;
    std::uint64_t endTick = 0;
    std::uint64_t at = 8 + std::uint64_t{headerSize};
    for (std::uint32_t i = 0; i < tracks; ++i) {
        const auto chunk = NextTrack(file, at);
        if (!chunk) return std::nullopt;
        const std::optional<std::uint64_t> last =
            ReadTrack(ChunkReader(file, chunk->first, chunk->second), tempos);
        if (!last) return std::nullopt;
        endTick = std::max(endTick, *last);
    }
    const std::optional<double> milliseconds =
        division & 0x8000 ? MillisecondsBySmpte(endTick, division)
                          : MillisecondsByTempo(endTick, std::move(tempos), division);
    if (!milliseconds || *milliseconds > kMaxMilliseconds) return std::nullopt;
    return static_cast<std::int64_t>(std::llround(*milliseconds));
}

} // namespace orrery
