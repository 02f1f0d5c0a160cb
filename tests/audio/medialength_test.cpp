// Playing lengths read from WAV, MIDI and MP3 files built in the test.
#include "audio/medialength.h"
#include "audio/sounds.h"
#include "support/tempdir.h"

#include <gtest/gtest.h>
#include <optional>

namespace orrery {
namespace {

using namespace test;
using namespace std::string_literals;

struct Case {
    const char *what;
    const char *name;
    std::string bytes;
    std::optional<std::int64_t> length;
};

void ExpectLengths(const std::vector<Case> &cases) {
    TempDir dir;
    for (const Case &c : cases) {
        const auto file = dir.path() / c.name;
        WriteBytes(file, c.bytes);
        EXPECT_EQ(MediaLength(file), c.length) << c.what;
    }
}

TEST(MediaLength, WavFromItsChunks) {
    const std::string data = RiffChunk("data", std::string(4000, '\x80'));
    ExpectLengths({
        {"plain", "a.wav", Wav(WavFmt(8000) + data), 500},
        {"upper-case extension", "A.WAV", Wav(WavFmt(8000) + data), 500},
        // An odd-sized chunk is padded to an even length before the next.
        {"other chunks first", "b.wav", Wav(RiffChunk("LIST", "abc") + WavFmt(8000) + data), 500},
        {"data before format", "c.wav", Wav(data + WavFmt(16000)), 250},
        {"data cut short plays what is there", "d.wav",
         Wav(WavFmt(8000) + "data" + Little(80000, 4) + std::string(800, '\x80')), 100},
        {"no data chunk", "e.wav", Wav(WavFmt(8000)), std::nullopt},
        {"no byte rate", "f.wav", Wav(WavFmt(0) + data), std::nullopt},
        {"cut inside the format", "g.wav", Wav(WavFmt(8000)).substr(0, 24), std::nullopt},
        {"not RIFF", "h.wav", "RIFX" + Wav(WavFmt(8000) + data).substr(4), std::nullopt},
        {"empty", "i.wav", "", std::nullopt},
    });
}

std::string MidiHeader(int format, int tracks, std::uint32_t division) {
    return "MThd" + Big(6, 4) + Big(static_cast<std::uint32_t>(format), 2) +
           Big(static_cast<std::uint32_t>(tracks), 2) + Big(division, 2);
}

std::string Track(const std::string &events) {
    return "MTrk" + Big(static_cast<std::uint32_t>(events.size()), 4) + events;
}

const std::string kEndOfTrack = "\xFF\x2F\x00"s;

TEST(MediaLength, MidiFollowsTempoAcrossTracks) {
    // 480 ticks a quarter. The first track holds the tempo map: half a second a quarter, then a
    // quarter of a second from tick 960. The second track's notes, in running status, with a
    // system exclusive message, end at tick 2880: 1000 ms before the change, 1000 ms after.
    const std::string tempoTrack =
        Track("\x00\xFF\x51\x03\x07\xA1\x20"s + "\x87\x40\xFF\x51\x03\x03\xD0\x90"s + // 960
              "\x87\x40"s + kEndOfTrack);                                             // 1920
    const std::string noteTrack =
        Track("\x00\x90\x3C\x40"s + "\x83\x60\x3C\x00"s + // 480
              "\x00\xF0\x03\x7E\x7F\xF7"s + "\x00\xC0\x05"s + "\x00\x90\x40\x40"s +
              "\x92\x60\x40\x00"s + // 480 + 2400 = 2880
              "\x00"s + kEndOfTrack);
    const std::string song = MidiHeader(1, 2, 480) + tempoTrack + noteTrack;
    // A quarter note at the default tempo, and the same time counted in SMPTE frames: 25 a
    // second of 40 ticks.
    const std::string quarter = MidiHeader(0, 1, 480) + Track("\x83\x60"s + kEndOfTrack);
    const std::string smpte = MidiHeader(0, 1, 0xE728) + Track("\x8B\x5C"s + kEndOfTrack);
    ExpectLengths({
        {"tempo change", "song.mid", song, 2000},
        {"other chunk between tracks", "b.midi",
         MidiHeader(1, 2, 480) + tempoTrack + "XTRA" + Big(2, 4) + "zz" + noteTrack, 2000},
        {"default tempo", "q.mid", quarter, 500},
        {"no end-of-track event", "n.mid", MidiHeader(0, 1, 480) + Track("\x83\x60\x90\x3C\x40"s),
         500},
        {"SMPTE", "s.mid", smpte, 1500},
        {"missing track", "m.mid", MidiHeader(1, 3, 480) + tempoTrack + noteTrack, std::nullopt},
        {"track cut short", "t.mid", song.substr(0, song.size() - 5), std::nullopt},
        {"running status with none to run", "r.mid",
         MidiHeader(0, 1, 480) + Track("\x00\x3C\x40"s + kEndOfTrack), std::nullopt},
        {"event cut short", "e.mid", MidiHeader(0, 1, 480) + Track("\x00\x90\x3C"s), std::nullopt},
        {"format 2", "f.mid", MidiHeader(2, 1, 480) + Track(kEndOfTrack), std::nullopt},
        {"no division", "d.mid", MidiHeader(0, 1, 0) + Track(kEndOfTrack), std::nullopt},
        {"quantity too long", "v.mid", MidiHeader(0, 1, 480) + Track("\xFF\xFF\xFF\xFF\x7F"s),
         std::nullopt},
    });
}

// MPEG 1 layer III, 128 kbit/s, 44.1 kHz, stereo: 417 bytes of 1152 samples a frame.
const std::string kMpeg1Frame = "\xFF\xFB\x90\x00"s + std::string(413, '\0');
// MPEG 2 layer III, 64 kbit/s, 22.05 kHz, mono: 208 bytes of 576 samples.
const std::string kMpeg2Frame = "\xFF\xF3\x80\xC0"s + std::string(204, '\0');

std::string Repeat(const std::string &piece, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += piece;
    return all;
}

std::string Id3v2(std::size_t size) {
    return "ID3\x03\x00\x00"s + static_cast<char>((size >> 21) & 0x7F) +
           static_cast<char>((size >> 14) & 0x7F) + static_cast<char>((size >> 7) & 0x7F) +
           static_cast<char>(size & 0x7F) + std::string(size, '\0');
}

TEST(MediaLength, Mp3ByFramesOrByItsFrameCount) {
    const std::string cbr = Repeat(kMpeg1Frame, 100); // 115200 samples
    std::string xing = kMpeg1Frame;
    xing.replace(36, 12, "Xing"s + Big(1, 4) + Big(1000, 4));
    std::string vbri = kMpeg1Frame;
    vbri.replace(36, 18, "VBRI"s + std::string(10, '\0') + Big(500, 4));
    std::string junkAfter = cbr;
    junkAfter.insert(417 * 10, "junk");
    const std::string tag = "TAG" + std::string(125, '\xFF');
    ExpectLengths({
        {"constant bit rate", "a.mp3", cbr, 2612},
        {"tags at both ends", "b.mp3", Id3v2(300) + cbr + tag, 2612},
        {"junk before the first frame", "c.mp3", "\xFF\x00zz"s + cbr, 2612},
        {"junk between frames", "d.mp3", junkAfter, 2612},
        {"junk that doesn't end", "e.mp3", cbr + std::string(1000, 'x') + cbr, 2612},
        {"MPEG 2 mono", "f.mp3", Repeat(kMpeg2Frame, 50), 1306},
        {"Xing frame count", "g.mp3", xing + Repeat(kMpeg1Frame, 3), 26122},
        {"VBRI frame count", "h.mp3", vbri + Repeat(kMpeg1Frame, 3), 13061},
        {"last frame cut short", "i.mp3", cbr.substr(0, cbr.size() - 100), 2612},
        {"text", "j.mp3", std::string(5000, 'a'), std::nullopt},
        {"tag with no frames", "k.mp3", Id3v2(100), std::nullopt},
        {"empty", "l.mp3", "", std::nullopt},
    });
}

TEST(MediaLength, OnlyKnownFilesHaveALength) {
    TempDir dir;
    const std::string wav = Wav(WavFmt(8000) + RiffChunk("data", std::string(800, '\x80')));
    for (const char *name : {"a.wma", "a.ogg", "a", "a.wav.txt"}) {
        WriteBytes(dir.path() / name, wav);
        EXPECT_EQ(MediaLength(dir.path() / name), std::nullopt) << name;
    }
    EXPECT_EQ(MediaLength(dir.path() / "absent.wav"), std::nullopt);
    std::filesystem::create_directory(dir.path() / "folder.wav");
    EXPECT_EQ(MediaLength(dir.path() / "folder.wav"), std::nullopt);
}

} // namespace
} // namespace orrery
