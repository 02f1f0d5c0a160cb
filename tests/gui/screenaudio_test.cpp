// The sound channels on screen, on a machine that may have no sound card: a WAV and a MIDI file
// play, hold while paused, resume and come to their end no sooner than they last; what is no
// sound never opens, and nothing waits. The demo's music renders to its intended length.
#include "guitest.h"
#include "platform/soundfont.h"
#include "runtime/midiplayback.h"
#include "runtime/screenaudio.h"

#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orrery::test {
namespace {

namespace fs = std::filesystem;

// C, E and G on a piano, a tenth of a second each.
const unsigned char kShortMidi[] = {'M',  'T',  'h',  'd',  0,    0,    0,    6,    0,  0,
                                    0,    1,    0x01, 0xE0, // one track, 480 a beat
                                    'M',  'T',  'r',  'k',  0,    0,    0,    0x26, 0,  0xFF,
                                    0x51, 3,    0x07, 0xA1, 0x20, 0,    0xC0, 0, // 120 bpm, piano
                                    0,    0x90, 60,   100,  0x60, 0x80, 60,   0,    0,  0x90,
                                    64,   100,  0x60, 0x80, 64,   0,    0,    0x90, 67, 100,
                                    0x60, 0x80, 67,   0,    0,    0xFF, 0x2F, 0};

void WriteBytes(const fs::path &file, std::string_view bytes) {
    std::ofstream(file, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
}

fs::path ShortMidi(const TempDir &dir) {
    const fs::path file = dir.path() / "short.mid";
    WriteBytes(file,
               std::string_view(reinterpret_cast<const char *>(kShortMidi), sizeof kShortMidi));
    return file;
}

std::string_view Word(ScreenAudioDevice &device, AudioChannel channel) {
    return ModeWord(device.Status(channel));
}

TEST(ScreenAudio, AWavAndAMidiPlayPauseResumeAndComeToTheirEnd) {
    TempDir dir;
    ScreenAudioDevice device(ORRERY_APP_DIR);
    const struct {
        AudioChannel channel;
        fs::path file;
        int lastsMs;
    } sounds[] = {
        {AudioChannel::Effects, fs::path(ORRERY_APP_DIR) / "Res" / "uimages" / "beep.wav", 200},
        {AudioChannel::Music, ShortMidi(dir), 300},
    };
    constexpr int kPausedMs = 600;
    QElapsedTimer clock;
    clock.start();
    for (const auto &sound : sounds) {
        ASSERT_TRUE(device.Open(sound.channel, sound.file)) << sound.file;
        EXPECT_FALSE(device.Open(sound.channel, sound.file)) << "an open channel is closed first";
        EXPECT_EQ(Word(device, sound.channel), "stopped");
        ASSERT_TRUE(device.Play(sound.channel));
        EXPECT_EQ(Word(device, sound.channel), "playing");
        device.Pause(sound.channel);
    }
    // Held for longer than either lasts.
    QTest::qWait(kPausedMs);
    for (const auto &sound : sounds) {
        EXPECT_EQ(Word(device, sound.channel), "paused");
        device.Resume(sound.channel);
        EXPECT_EQ(Word(device, sound.channel), "playing");
    }
    // When each is first seen stopped: no sooner than it lasts, so it played and did not fail.
    std::vector<qint64> endedAt(std::size(sounds), -1);
    EXPECT_TRUE(WaitFor(
        [&] {
            for (std::size_t i = 0; i < endedAt.size(); ++i)
                if (endedAt[i] < 0 && device.Status(sounds[i].channel) == AudioMode::Stopped)
                    endedAt[i] = clock.elapsed();
            return std::count(endedAt.begin(), endedAt.end(), -1) == 0;
        },
        20000));
    for (std::size_t i = 0; i < endedAt.size(); ++i)
        EXPECT_GE(endedAt[i], kPausedMs + sounds[i].lastsMs) << sounds[i].file;
    // Played again after its end; a stop holds until it is played again; close forgets.
    for (const auto &sound : sounds) {
        ASSERT_TRUE(device.Play(sound.channel));
        EXPECT_EQ(Word(device, sound.channel), "playing");
        device.Stop(sound.channel);
        device.Resume(sound.channel);
        EXPECT_EQ(Word(device, sound.channel), "stopped")
            << "resume acts on a paused channel alone";
        device.Close(sound.channel);
        EXPECT_EQ(Word(device, sound.channel), "closed");
        EXPECT_FALSE(device.Play(sound.channel));
    }
}

TEST(ScreenAudio, WhatIsNoSoundDoesNotOpenAndNothingWaits) {
    TempDir dir;
    WriteBytes(dir.path() / "text.wav", "This is not a sound, whatever its name says.");
    WriteBytes(dir.path() / "header.mid", "MTh");
    WriteBytes(dir.path() / "empty.mp3", "");
    fs::create_directories(dir.path() / "folder.wav");
    ASSERT_EQ(::mkfifo((dir.path() / "pipe.wav").c_str(), 0600), 0)
        << "a reader of a pipe would wait";
    ScreenAudioDevice device(dir.path());
    QElapsedTimer clock;
    clock.start();
    for (const char *name :
         {"missing.wav", "text.wav", "header.mid", "empty.mp3", "folder.wav", "pipe.wav"}) {
        EXPECT_FALSE(device.Open(AudioChannel::Counter, dir.path() / name)) << name;
        EXPECT_EQ(Word(device, AudioChannel::Counter), "closed") << name;
    }
    EXPECT_LT(clock.elapsed(), 1000);
    // What begins as a sound but is none opens, and ends as soon as the sound system sees it.
    WriteBytes(dir.path() / "tagged.mp3", "ID3 and then nothing that plays");
    ASSERT_TRUE(device.Open(AudioChannel::Counter, dir.path() / "tagged.mp3"));
    ASSERT_TRUE(device.Play(AudioChannel::Counter));
    EXPECT_TRUE(WaitFor([&] { return device.Status(AudioChannel::Counter) == AudioMode::Stopped; }));
}

double Seconds(const std::vector<std::int16_t> &stereo, int rate) {
    return double(stereo.size()) / 2 / rate;
}

std::int16_t Peak(const std::vector<std::int16_t> &samples) {
    std::int16_t peak = 0;
    for (std::int16_t sample : samples)
        peak = std::max<std::int16_t>(peak, std::int16_t(std::abs(sample)));
    return peak;
}

TEST(MidiRender, TheDemoMusicIsHeardForItsIntendedLength) {
    const auto soundFont = FindSoundFont(ORRERY_APP_DIR);
    ASSERT_TRUE(soundFont) << "no General MIDI sound font on this machine";
    TempDir dir;
    const std::vector<std::int16_t> short_ = RenderMidi(ShortMidi(dir), *soundFont, 22050);
    EXPECT_GT(Peak(short_), 1000);
    EXPECT_GE(Seconds(short_, 22050), 0.3) << "its notes, and their fading";
    EXPECT_TRUE(RenderMidi(dir.path() / "missing.mid", *soundFont).empty());

    const struct {
        const char *file;
        double shortest, longest; // seconds
    } tracks[] = {
        {"menu-theme.mid", 20, 40}, {"night-watch.mid", 40, 90}, {"deep-trace.mid", 40, 90}};
    for (const auto &track : tracks) {
        const auto samples =
            RenderMidi(fs::path(ORRERY_APP_DIR) / "Res" / "mp3" / track.file, *soundFont, 11025);
        EXPECT_GT(Peak(samples), 4000) << track.file;
        EXPECT_GE(Seconds(samples, 11025), track.shortest) << track.file;
        EXPECT_LE(Seconds(samples, 11025), track.longest) << track.file;
    }
}

} // namespace
} // namespace orrery::test
