// Writes the demo game's music and sound effects into an application folder:
// make_sounds <application folder>. The music is General MIDI, composed here as notes; the
// effects are synthesised as 16-bit mono WAV files. Nothing is random, so two builds write the
// same bytes.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

void PutBigEndian(Bytes &out, std::uint32_t value, int bytes) {
    for (int i = bytes - 1; i >= 0; --i) out.push_back(std::uint8_t(value >> (8 * i)));
}
void PutLittleEndian(Bytes &out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(std::uint8_t(value >> (8 * i)));
}
void PutText(Bytes &out, std::string_view text) {
    out.insert(out.end(), text.begin(), text.end());
}

// A small generator of our own: its sequence is the same with every standard library.
struct Lcg {
    std::uint32_t state;
    std::uint32_t Next() { return state = state * 1664525u + 1013904223u; }
    int Below(int n) { return int((Next() >> 8) % std::uint32_t(n)); }
    double Unit() { return (Next() >> 8) / double(1 << 24) * 2 - 1; } // -1 to 1
};

// --- MIDI ---------------------------------------------------------------------------------

constexpr int kDivision = 480; // ticks to a quarter note
constexpr int kEighth = kDivision / 2;
constexpr int kBar = 4 * kDivision;
constexpr int kDrums = 9; // the General MIDI percussion channel

struct MidiEvent {
    std::uint32_t tick;
    int order; // at one tick: settings, then note ends, then note starts
    Bytes bytes;
};

class MidiTrack {
public:
    explicit MidiTrack(int channel) : m_channel(channel) {}
    void Program(int program, int volume, int pan, int reverb) {
        Add(0, 0, {std::uint8_t(0xC0 | m_channel), std::uint8_t(program)});
        Control(0, 7, volume);
        Control(0, 10, pan);
        Control(0, 91, reverb);
    }
    void Control(std::uint32_t tick, int control, int value) {
        Add(tick, 0, {std::uint8_t(0xB0 | m_channel), std::uint8_t(control), std::uint8_t(value)});
    }
    void Note(std::uint32_t tick, std::uint32_t length, int key, int velocity) {
        velocity = std::clamp(velocity, 1, 127);
        Add(tick, 2, {std::uint8_t(0x90 | m_channel), std::uint8_t(key), std::uint8_t(velocity)});
        Add(tick + length, 1, {std::uint8_t(0x80 | m_channel), std::uint8_t(key), 0});
    }
    void Meta(std::uint32_t tick, int type, const Bytes &data) {
        Bytes bytes{0xFF, std::uint8_t(type), std::uint8_t(data.size())};
        bytes.insert(bytes.end(), data.begin(), data.end());
        Add(tick, 0, bytes);
    }
    // The track chunk, its events in time order and closed at the given tick.
    Bytes Chunk(std::uint32_t end) const {
        std::vector<MidiEvent> events = m_events;
        std::stable_sort(events.begin(), events.end(), [](const MidiEvent &a, const MidiEvent &b) {
            return a.tick != b.tick ? a.tick < b.tick : a.order < b.order;
        });
        events.push_back(
            {std::max(end, events.empty() ? 0 : events.back().tick), 3, {0xFF, 0x2F, 0}});
        Bytes data;
        std::uint32_t now = 0;
        for (const MidiEvent &event : events) {
            PutDelta(data, event.tick - now);
            now = event.tick;
            data.insert(data.end(), event.bytes.begin(), event.bytes.end());
        }
        Bytes chunk;
        PutText(chunk, "MTrk");
        PutBigEndian(chunk, std::uint32_t(data.size()), 4);
        chunk.insert(chunk.end(), data.begin(), data.end());
        return chunk;
    }

private:
    void Add(std::uint32_t tick, int order, Bytes bytes) {
        m_events.push_back({tick, order, std::move(bytes)});
    }
    // A variable-length quantity: seven bits a byte, the high bit set on all but the last.
    static void PutDelta(Bytes &out, std::uint32_t delta) {
        Bytes groups{std::uint8_t(delta & 0x7F)};
        while (delta >>= 7) groups.push_back(std::uint8_t(0x80 | (delta & 0x7F)));
        out.insert(out.end(), groups.rbegin(), groups.rend());
    }

    int m_channel;
    std::vector<MidiEvent> m_events;
};

// A standard MIDI file of format 1: a first track with the tempo, then one track a part.
Bytes MidiFile(int bpm, const std::vector<MidiTrack> &parts, std::uint32_t end) {
    MidiTrack conductor(0);
    const std::uint32_t microseconds = 60000000u / std::uint32_t(bpm);
    conductor.Meta(0, 0x51,
                   {std::uint8_t(microseconds >> 16), std::uint8_t(microseconds >> 8),
                    std::uint8_t(microseconds)});
    conductor.Meta(0, 0x58, {4, 2, 24, 8}); // 4/4
    Bytes file;
    PutText(file, "MThd");
    PutBigEndian(file, 6, 4);
    PutBigEndian(file, 1, 2);
    PutBigEndian(file, std::uint32_t(parts.size() + 1), 2);
    PutBigEndian(file, kDivision, 2);
    std::vector<const MidiTrack *> tracks{&conductor};
    for (const MidiTrack &part : parts) tracks.push_back(&part);
    for (const MidiTrack *track : tracks) {
        const Bytes chunk = track->Chunk(end);
        file.insert(file.end(), chunk.begin(), chunk.end());
    }
    return file;
}

// "C#5" as a key number, C4 being 60; -1 for a rest ("r").
int Key(std::string_view name) {
    static const std::map<char, int> steps{{'C', 0}, {'D', 2}, {'E', 4}, {'F', 5},
                                           {'G', 7}, {'A', 9}, {'B', 11}};
    if (name.empty() || name[0] == 'r') return -1;
    int key = steps.at(name[0]);
    std::size_t at = 1;
    for (; at < name.size() && (name[at] == '#' || name[at] == 'b'); ++at)
        key += name[at] == '#' ? 1 : -1;
    return key + 12 * (std::stoi(std::string(name.substr(at))) + 1);
}

// A tune written as "A4:2 C5:1 r:1 ...", each note with its length in eighths, from the tick
// given on. The velocity leans on the downbeats and breathes a little.
std::uint32_t Melody(MidiTrack &track, std::uint32_t tick, std::string_view tune, int velocity,
                     Lcg &lcg) {
    while (!tune.empty()) {
        const std::size_t space = tune.find(' ');
        const std::string_view word = tune.substr(0, space);
        tune = space == std::string_view::npos ? std::string_view() : tune.substr(space + 1);
        if (word.empty()) continue;
        const std::size_t colon = word.find(':');
        const int key = Key(word.substr(0, colon));
        const std::uint32_t length =
            std::uint32_t(std::stoi(std::string(word.substr(colon + 1)))) * kEighth;
        const int accent = tick % kBar == 0 ? 8 : tick % kDivision == 0 ? 3 : 0;
        if (key >= 0) track.Note(tick, length - 20, key, velocity + accent + lcg.Below(7) - 3);
        tick += length;
    }
    return tick;
}

struct Chord {
    int root;               // key number of the root, from C3 (48) to B3 (59)
    std::vector<int> tones; // above the root, in semitones
};

// The chords of a piece, one a bar.
struct Progression {
    std::vector<Chord> bars;
    std::uint32_t Start(std::size_t bar) const { return std::uint32_t(bar) * kBar; }
};

void Pad(MidiTrack &track, const Progression &song, std::size_t from, std::size_t to,
         int velocity) {
    for (std::size_t bar = from; bar < to; ++bar)
        for (int tone : song.bars[bar].tones)
            track.Note(song.Start(bar), kBar - 10, song.bars[bar].root + tone, velocity);
}

// Chord tones an octave above the pad, in the order of the pattern (indices into the tones,
// wrapping into the next octave), one note each step.
void Arpeggio(MidiTrack &track, const Progression &song, std::size_t from, std::size_t to,
              const std::vector<int> &pattern, int step, int velocity, Lcg &lcg) {
    for (std::size_t bar = from; bar < to; ++bar) {
        const Chord &chord = song.bars[bar];
        const int count = int(chord.tones.size());
        for (int i = 0; i * step < kBar; ++i) {
            const int index = pattern[std::size_t(i) % pattern.size()];
            const int key =
                chord.root + 12 + chord.tones[std::size_t(index % count)] + 12 * (index / count);
            const int lean = (i * step) % kDivision == 0 ? 6 : 0;
            track.Note(song.Start(bar) + std::uint32_t(i * step), std::uint32_t(step) * 3 / 2, key,
                       velocity + lean + lcg.Below(5) - 2);
        }
    }
}

// The root in the bass's octave, on a rhythm of (eighth, offset above the root) steps.
void Bass(MidiTrack &track, const Progression &song, std::size_t from, std::size_t to,
          const std::vector<std::pair<int, int>> &rhythm, int velocity) {
    for (std::size_t bar = from; bar < to; ++bar) {
        const int root = 36 + song.bars[bar].root % 12;
        for (const auto &[eighth, above] : rhythm)
            track.Note(song.Start(bar) + std::uint32_t(eighth * kEighth), kEighth * 3 / 2,
                       root + above, velocity - (eighth % 2) * 8);
    }
}

// A drum pattern of (instrument, eighth, velocity) hits, bar after bar.
void Drums(MidiTrack &track, const Progression &song, std::size_t from, std::size_t to,
           const std::vector<std::array<int, 3>> &hits, Lcg &lcg) {
    for (std::size_t bar = from; bar < to; ++bar)
        for (const auto &[key, eighth, velocity] : hits)
            track.Note(song.Start(bar) + std::uint32_t(eighth * kEighth), kEighth / 2, key,
                       velocity + lcg.Below(7) - 3);
}

// General MIDI programs, counted from 0.
enum Program {
    kElectricPiano = 4,
    kCelesta = 8,
    kVibraphone = 11,
    kFingeredBass = 33,
    kSynthBass1 = 38,
    kSynthBass2 = 39,
    kHarp = 46,
    kFlute = 73,
    kSquareLead = 80,
    kWarmPad = 89,
    kHaloPad = 94,
    kSweepPad = 95,
};
enum DrumKey {
    kKick = 36,
    kSideStick = 37,
    kSnare = 38,
    kClosedHat = 42,
    kOpenHat = 46,
    kShaker = 70
};

// The players of a piece: a pad, an accompaniment, a bass and a tune on channels 1 to 4, each
// with its program, volume, pan and reverb, and the drums with their volume and reverb.
struct Band {
    MidiTrack pad{0}, backing{1}, bass{2}, tune{3}, drums{kDrums};

    Band(const std::array<std::array<int, 4>, 4> &voices, int drumVolume, int drumReverb) {
        MidiTrack *tracks[] = {&pad, &backing, &bass, &tune};
        for (std::size_t i = 0; i < voices.size(); ++i)
            tracks[i]->Program(voices[i][0], voices[i][1], voices[i][2], voices[i][3]);
        drums.Control(0, 7, drumVolume);
        drums.Control(0, 91, drumReverb);
    }
    std::vector<MidiTrack> Tracks() const { return {pad, backing, bass, tune, drums}; }
};

// The main menu: A minor, slow, a vibraphone tune over an electric piano's arpeggio. 31 s.
Bytes MenuTheme() {
    const Chord am{57, {0, 3, 7, 14}}, f{53, {0, 4, 7, 11}}, c{48, {4, 7, 11, 12}},
        g{55, {0, 4, 7, 9}}, dm{50, {3, 7, 10, 14}}, e7{52, {0, 4, 7, 10}};
    const Progression song{{am, am, am, f, c, g, am, f, dm, e7, am}};
    Lcg lcg{84};
    Band band({{{kWarmPad, 112, 64, 70},
                {kElectricPiano, 90, 40, 60},
                {kSynthBass1, 115, 64, 20},
                {kVibraphone, 127, 84, 70}}},
              88, 40);
    Pad(band.pad, song, 0, 11, 52);
    Arpeggio(band.backing, song, 0, 10, {0, 1, 2, 3, 2, 1, 2, 1}, kEighth, 46, lcg);
    band.backing.Note(song.Start(10), kBar, 69, 50);
    Bass(band.bass, song, 2, 10, {{0, 0}, {3, 0}, {4, 7}, {6, 12}}, 78);
    band.bass.Note(song.Start(10), kBar, 33, 80);
    Drums(band.drums, song, 2, 10,
          {{kKick, 0, 58},
           {kKick, 5, 40},
           {kSideStick, 6, 42},
           {kClosedHat, 1, 30},
           {kClosedHat, 3, 34},
           {kClosedHat, 5, 30},
           {kClosedHat, 7, 36}},
          lcg);
    Melody(band.tune, song.Start(2),
           "r:1 E5:1 A5:2 G5:1 E5:1 D5:2  C5:3 D5:1 E5:4  r:1 E5:1 G5:2 F5:1 E5:1 D5:2  "
           "D5:3 B4:1 G4:4  r:1 E5:1 A5:2 B5:1 C6:1 B5:2  A5:3 G5:1 F5:2 E5:2  "
           "D5:2 F5:2 A5:2 G5:1 F5:1  E5:2 D5:2 B4:2 G#4:2  A4:8",
           84, lcg);
    return MidiFile(84, band.Tracks(), song.Start(11));
}

// A game track: D Dorian, a flute over a harp; it ends on C, which leads back to its start. 63 s.
Bytes NightWatch() {
    const Chord dm{50, {3, 7, 10, 14}}, g{55, {0, 4, 7, 10}}, f{53, {0, 4, 7, 11}},
        c{48, {4, 7, 12, 14}}, bb{58, {0, 4, 7, 11}}, am{57, {0, 3, 7, 10}}, gm{55, {0, 3, 7, 10}},
        a{57, {0, 4, 7, 10}};
    std::vector<Chord> bars;
    for (int round = 0; round < 5; ++round) {
        const bool turn = round == 3;
        for (const Chord &chord :
             turn ? std::vector<Chord>{bb, am, gm, a} : std::vector<Chord>{dm, g, f, c})
            bars.push_back(chord);
    }
    const Progression song{bars};
    Lcg lcg{76};
    Band band({{{kHaloPad, 105, 64, 80},
                {kHarp, 110, 44, 60},
                {kFingeredBass, 120, 64, 20},
                {kFlute, 125, 80, 70}}},
              75, 50);
    Pad(band.pad, song, 0, 20, 48);
    Arpeggio(band.backing, song, 0, 20, {0, 1, 2, 3, 4, 3, 2, 1}, kEighth, 50, lcg);
    Bass(band.bass, song, 0, 20, {{0, 0}, {3, 7}, {4, 0}, {7, 12}}, 76);
    Drums(band.drums, song, 4, 19,
          {{kKick, 0, 50},
           {kSideStick, 4, 38},
           {kShaker, 1, 26},
           {kShaker, 3, 30},
           {kShaker, 5, 26},
           {kShaker, 7, 32}},
          lcg);
    Melody(band.tune, song.Start(4),
           "A4:4 C5:2 D5:2  B4:3 A4:1 G4:4  A4:2 C5:2 F5:3 E5:1  E5:6 r:2 "
           "D5:3 E5:1 F5:2 A5:2  G5:4 D5:2 B4:2  C5:2 A4:2 F4:2 A4:2  G4:6 r:2 "
           "F5:3 D5:1 A4:4  G5:2 E5:2 C5:2 A4:2  Bb4:2 D5:2 F5:2 G5:2  E5:4 C#5:4 "
           "A4:8  B4:4 D5:4  C5:8  r:8",
           78, lcg);
    return MidiFile(76, band.Tracks(), song.Start(20));
}

// A game track: E minor, a little faster, a soft square lead over a pulsing synth bass and a
// celesta; it ends on B7, which leads back to its start. 73 s.
Bytes DeepTrace() {
    const Chord em{52, {0, 3, 7, 14}}, cmaj{48, {4, 7, 11, 12}}, am{57, {0, 3, 7, 10}},
        bsus{59, {0, 5, 7, 10}}, c{48, {4, 7, 12, 16}}, d{50, {0, 4, 7, 12}}, b7{59, {0, 4, 7, 10}},
        bm{59, {0, 3, 7, 10}}, g{55, {0, 4, 7, 12}};
    const std::vector<Chord> a{em, cmaj, am, bsus, em, c, d, b7};
    const std::vector<Chord> b{cmaj, d, bm, em, am, d, g, b7};
    std::vector<Chord> bars{em, cmaj, am, bsus};
    for (const auto *part : {&a, &b, &a}) bars.insert(bars.end(), part->begin(), part->end());
    const Progression song{bars};
    Lcg lcg{92};
    Band band({{{kSweepPad, 115, 64, 80},
                {kCelesta, 100, 90, 70},
                {kSynthBass2, 122, 64, 20},
                {kSquareLead, 105, 54, 80}}},
              82, 40);
    Pad(band.pad, song, 0, 28, 46);
    Arpeggio(band.backing, song, 4, 28, {0, 1, 2, 1, 3, 2, 1, 2}, kEighth / 2, 40, lcg);
    std::vector<std::pair<int, int>> pulse;
    for (int eighth = 0; eighth < 8; ++eighth) pulse.push_back({eighth, eighth == 6 ? 12 : 0});
    Bass(band.bass, song, 0, 28, pulse, 72);
    const std::vector<std::array<int, 3>> beat{
        {kKick, 0, 60},      {kKick, 4, 54},      {kKick, 7, 40},
        {kSnare, 2, 40},     {kSnare, 6, 44},     {kClosedHat, 1, 28},
        {kClosedHat, 3, 30}, {kClosedHat, 5, 28}, {kOpenHat, 7, 26}};
    Drums(band.drums, song, 4, 28, beat, lcg);
    const std::string_view partA =
        "E5:2 G5:2 B5:3 A5:1  G5:2 E5:2 B4:4  C5:2 E5:2 A5:2 G5:2  F#5:4 E5:4 "
        "E5:2 G5:2 B5:2 D6:2  C6:3 B5:1 G5:4  A5:2 F#5:2 D5:2 F#5:2  B4:2 D#5:2 F#5:4 ";
    const std::string_view partB =
        "E5:6 D5:1 E5:1  F#5:4 A5:4  F#5:2 D5:2 B4:4  E5:8 "
        "A4:2 C5:2 E5:2 G5:2  F#5:3 E5:1 D5:4  B4:2 D5:2 G5:4  F#5:4 D#5:4 ";
    std::uint32_t tick = Melody(band.tune, song.Start(4), partA, 70, lcg);
    tick = Melody(band.tune, tick, partB, 70, lcg);
    Melody(band.tune, tick, partA, 74, lcg);
    return MidiFile(92, band.Tracks(), song.Start(28));
}

// --- WAV ----------------------------------------------------------------------------------

constexpr int kRate = 22050;
constexpr double kTau = 6.283185307179586;

using Signal = std::vector<double>; // -1 to 1

Signal Silence(double seconds) {
    return Signal(std::size_t(seconds * kRate), 0.0);
}

// A rise and a fall in seconds, so that no sound starts or ends with a click.
double Envelope(double t, double length, double rise, double fall) {
    return std::clamp(std::min(t / rise, (length - t) / fall), 0.0, 1.0);
}

// A sine tone gliding from one frequency to another, with a little of its third harmonic,
// mixed in at the given time.
void Tone(Signal &out, double at, double length, double from, double to, double level,
          double third = 0.0) {
    double phase = 0;
    for (std::size_t i = 0; i < std::size_t(length * kRate); ++i) {
        const double t = double(i) / kRate;
        const std::size_t where = std::size_t(at * kRate) + i;
        if (where >= out.size()) break;
        phase += kTau * from * std::pow(to / from, t / length) / kRate;
        const double wave = std::sin(phase) + third * std::sin(3 * phase);
        out[where] += level * Envelope(t, length, 0.006, 0.03) * wave / (1 + third);
    }
}

// A bell: a struck tone with inharmonic partials dying away, the higher ones faster.
void Bell(Signal &out, double at, double frequency, double level, double decay) {
    const double partials[][2] = {{1.0, 1.0}, {2.76, 0.35}, {5.4, 0.12}};
    for (std::size_t i = 0; std::size_t(at * kRate) + i < out.size(); ++i) {
        const double t = double(i) / kRate;
        double sum = 0;
        for (const auto &[ratio, weight] : partials)
            sum += weight * std::exp(-t * ratio / decay) * std::sin(kTau * frequency * ratio * t);
        out[std::size_t(at * kRate) + i] += level * std::min(t / 0.004, 1.0) * sum;
    }
}

// A UI confirm: two short rising blips.
Signal Beep() {
    Signal out = Silence(0.22);
    Tone(out, 0.0, 0.07, 1320, 1320, 0.32, 0.1);
    Tone(out, 0.08, 0.12, 1760, 1760, 0.30, 0.1);
    return out;
}

// The trace alarm: three soft whoops rising from E5 to A5, 1.5 s.
Signal Alarm() {
    Signal out = Silence(1.5);
    for (int i = 0; i < 3; ++i) Tone(out, 0.5 * i, 0.44, 659.3, 880.0, 0.42, 0.25);
    return out;
}

// Typing and data: a run of short chirps, each on a key click, at uneven times.
Signal Keys() {
    Lcg lcg{7};
    const double pitches[] = {1800, 2100, 2400, 2700, 3000};
    std::vector<double> times{0.01};
    for (int i = 1; i < 8; ++i) times.push_back(times.back() + 0.045 + 0.02 * lcg.Below(4));
    Signal out = Silence(times.back() + 0.06);
    for (double at : times) {
        const double pitch = pitches[lcg.Below(5)];
        Tone(out, at, 0.03, pitch, pitch * 1.12, 0.18);
        for (std::size_t n = 0; n < 90; ++n) // the click: a little noise dying away
            out[std::size_t(at * kRate) + n] += 0.10 * lcg.Unit() * std::exp(-double(n) / 18);
    }
    return out;
}

// Access granted: a rising C major arpeggio of bells.
Signal Access() {
    Signal out = Silence(1.1);
    const double notes[] = {1046.5, 1318.5, 1568.0, 2093.0};
    for (int i = 0; i < 4; ++i) Bell(out, 0.09 * i, notes[i], 0.16, 0.28);
    return out;
}

Bytes WavFile(const Signal &signal) {
    Bytes data;
    for (std::size_t i = 0; i < signal.size(); ++i) {
        const double fade = Envelope(double(i) / kRate, double(signal.size()) / kRate, 0.002, 0.01);
        const long sample = std::lround(std::clamp(signal[i] * fade, -1.0, 1.0) * 32767);
        PutLittleEndian(data, std::uint32_t(std::int32_t(sample)), 2);
    }
    Bytes file;
    PutText(file, "RIFF");
    PutLittleEndian(file, std::uint32_t(36 + data.size()), 4);
    PutText(file, "WAVEfmt ");
    PutLittleEndian(file, 16, 4);
    PutLittleEndian(file, 1, 2); // PCM
    PutLittleEndian(file, 1, 2); // mono
    PutLittleEndian(file, kRate, 4);
    PutLittleEndian(file, kRate * 2, 4);
    PutLittleEndian(file, 2, 2);
    PutLittleEndian(file, 16, 2);
    PutText(file, "data");
    PutLittleEndian(file, std::uint32_t(data.size()), 4);
    file.insert(file.end(), data.begin(), data.end());
    return file;
}

// --- Writing them out ---------------------------------------------------------------------

struct Sound {
    const char *path;
    Bytes (*make)();
};

const Sound kSounds[] = {
    {"Res/mp3/menu-theme.mid", MenuTheme},
    {"Res/mp3/night-watch.mid", NightWatch},
    {"Res/mp3/deep-trace.mid", DeepTrace},
    {"Res/uimages/beep.wav", [] { return WavFile(Beep()); }},
    {"Res/uimages/alarm.wav", [] { return WavFile(Alarm()); }},
    {"Res/uimages/keys.wav", [] { return WavFile(Keys()); }},
    {"Res/uimages/access.wav", [] { return WavFile(Access()); }},
};

bool Save(const fs::path &app, const Sound &sound) {
    const fs::path path = app / sound.path;
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    const Bytes bytes = sound.make();
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char *>(bytes.data()), std::streamsize(bytes.size()));
    if (out.flush()) return true;
    std::fprintf(stderr, "make_sounds: %s: cannot write the sound\n", path.c_str());
    return false;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_sounds <application folder>\n");
        return 2;
    }
    bool ok = true;
    for (const Sound &sound : kSounds) ok = Save(argv[1], sound) && ok;
    return ok ? 0 : 1;
}
