// The recording device's channels on a virtual clock.
#include "audio/recording.h"
#include "audio/sounds.h"
#include "support/tempdir.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

using namespace test;

constexpr AudioChannel kMusic = AudioChannel::Music;

class Recording : public ::testing::Test {
protected:
    Recording() {
        // A second of sound.
        WriteBytes(m_sound, Wav(WavFmt(8000) + RiffChunk("data", std::string(8000, '\x80'))));
    }
    AudioMode At(std::int64_t time) {
        m_now = time;
        return m_device.Status(kMusic);
    }

    TempDir m_dir;
    std::filesystem::path m_sound = m_dir.path() / "x.wav";
    std::int64_t m_now = 0;
    RecordingDevice m_device{[this] { return m_now; }};
};

TEST_F(Recording, RefusesWhatItCannotMeasure) {
    WriteBytes(m_dir.path() / "y.wma", "0&\xB2\x75");
    WriteBytes(m_dir.path() / "z.mp3", "not a sound");
    for (const char *name : {"absent.wav", "y.wma", "z.mp3"}) {
        EXPECT_FALSE(m_device.Open(kMusic, m_dir.path() / name)) << name;
        EXPECT_EQ(m_device.Status(kMusic), AudioMode::Closed) << name;
        EXPECT_EQ(m_device.File(kMusic), "") << name;
    }
    EXPECT_FALSE(m_device.Play(kMusic));
    ASSERT_TRUE(m_device.Open(kMusic, m_sound));
    // A channel takes a second file only once closed.
    EXPECT_FALSE(m_device.Open(kMusic, m_sound));
    EXPECT_EQ(m_device.Log().back(), "open foo " + m_sound.string());
}

TEST_F(Recording, ASoundEndsWhenItsTimeHasPlayed) {
    ASSERT_TRUE(m_device.Open(kMusic, m_sound));
    EXPECT_EQ(m_device.File(kMusic), m_sound);
    EXPECT_EQ(At(0), AudioMode::Stopped);
    ASSERT_TRUE(m_device.Play(kMusic));
    EXPECT_EQ(At(999), AudioMode::Playing);
    EXPECT_EQ(At(1000), AudioMode::Stopped);
    // Played again, it starts from the start.
    ASSERT_TRUE(m_device.Play(kMusic));
    EXPECT_EQ(At(1999), AudioMode::Playing);
    EXPECT_EQ(At(2000), AudioMode::Stopped);
    m_device.Close(kMusic);
    EXPECT_EQ(At(2000), AudioMode::Closed);
    EXPECT_EQ(m_device.File(kMusic), "");
}

TEST_F(Recording, PauseAndStopKeepThePosition) {
    ASSERT_TRUE(m_device.Open(kMusic, m_sound));
    m_device.Play(kMusic);
    m_now = 400;
    m_device.Pause(kMusic);
    EXPECT_EQ(At(5000), AudioMode::Paused);
    m_device.Stop(kMusic); // a paused channel is not stopped
    m_device.Resume(kMusic);
    EXPECT_EQ(At(5299), AudioMode::Playing);
    m_device.Stop(kMusic);
    EXPECT_EQ(At(9000), AudioMode::Stopped);
    m_device.Resume(kMusic); // nor is a stopped one resumed
    EXPECT_EQ(At(9000), AudioMode::Stopped);
    m_device.Play(kMusic);
    EXPECT_EQ(At(9300), AudioMode::Playing);
    EXPECT_EQ(At(9301), AudioMode::Stopped);
    // Each channel plays on its own.
    EXPECT_EQ(m_device.Status(AudioChannel::Effects), AudioMode::Closed);
    m_device.Close(kMusic);
    m_device.Close(kMusic);
    const std::vector<std::string> expected{"open foo " + m_sound.string(),
                                            "play foo",
                                            "pause foo",
                                            "resume foo",
                                            "stop foo",
                                            "play foo",
                                            "end foo",
                                            "close foo"};
    EXPECT_EQ(m_device.Log(), expected);
}

} // namespace
} // namespace orrery
