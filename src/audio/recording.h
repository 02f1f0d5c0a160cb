// The recording audio device: plays on the game's virtual clock instead of a sound system, so
// that the headless player follows what the player would hear, and keeps a log of it.
#pragma once

#include "audio/device.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orrery {

class RecordingDevice : public AudioDevice {
public:
    // The clock tells the time in milliseconds; it must not go back.
    using Clock = std::function<std::int64_t()>;
    explicit RecordingDevice(Clock clock);

    // Takes the file when it exists and MediaLength knows its length: a file whose length
    // can't be read is refused, as a sound system refuses one it can't play. A .wma file,
    // which no reader here knows, is refused too.
    bool Open(AudioChannel channel, const std::filesystem::path &file) override;
    // Starts the sound, or goes on from where a stop or a pause left it; the sound ends when
    // the clock passes its start and the length still to play, and the channel is then stopped
    // with its position back at the start. Play on a playing channel changes nothing.
    bool Play(AudioChannel channel) override;
    void Pause(AudioChannel channel) override;
    void Resume(AudioChannel channel) override;
    void Stop(AudioChannel channel) override;
    void Close(AudioChannel channel) override;
    AudioMode Status(AudioChannel channel) override;

    // The file a channel has open; empty when it is closed.
    std::filesystem::path File(AudioChannel channel) const;
    // What the device did, a line each: "open foo Res/mp3/x.mid", "play foo", "pause foo",
    // "resume foo", "stop foo", "close foo", "end foo" when a sound is found to have ended,
    // and "refuse foo <file>". A command that had nothing to act on leaves no line.
    const std::vector<std::string> &Log() const { return m_log; }

private:
    struct Channel {
        std::filesystem::path file;
        AudioMode mode = AudioMode::Closed;
        std::int64_t length = 0;
        // Milliseconds already played, up to the last pause or stop.
        std::int64_t position = 0;
        // When the current play began, while playing.
        std::int64_t startedAt = 0;
    };

    Channel &At(AudioChannel channel);
    // Ends a playing sound whose time has run out.
    void Settle(AudioChannel channel);
    // Pause and stop alike: a playing channel keeps its position and takes the mode.
    void Halt(AudioChannel channel, AudioMode mode, std::string_view what);
    void Record(std::string_view what, AudioChannel channel, std::string_view detail = {});

    Clock m_clock;
    std::array<Channel, kAudioChannels.size()> m_channels;
    std::vector<std::string> m_log;
};

} // namespace orrery
