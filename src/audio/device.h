// The three sound channels and what the platform must offer for them: open a file under a
// channel's alias, play without waiting, pause, resume, stop, close and a status. A device
// on screen plays through the sound system, or into nothing on a machine without one; the
// recording device plays on the game's virtual clock and keeps a log.
#pragma once

#include <array>
#include <filesystem>
#include <string_view>

namespace orrery {

// Music (alias "foo"), a counter's audio ("foob") and sound effects ("fooc").
enum class AudioChannel { Music, Counter, Effects };
inline constexpr std::array<AudioChannel, 3> kAudioChannels{AudioChannel::Music, AudioChannel::Counter,
                                                            AudioChannel::Effects};

constexpr std::string_view AliasOf(AudioChannel channel) {
    switch (channel) {
    case AudioChannel::Music: return "foo";
    case AudioChannel::Counter: return "foob";
    case AudioChannel::Effects: return "fooc";
    }
    return "foo";
}

// What a channel's status says. A sound that reaches its end is stopped; only close makes a
// channel closed again.
enum class AudioMode { Closed, Playing, Paused, Stopped };

constexpr std::string_view ModeWord(AudioMode mode) {
    switch (mode) {
    case AudioMode::Closed: return "closed";
    case AudioMode::Playing: return "playing";
    case AudioMode::Paused: return "paused";
    case AudioMode::Stopped: return "stopped";
    }
    return "closed";
}

class AudioDevice {
public:
    virtual ~AudioDevice() = default;
    // Opens the file under the channel's alias; the channel must be closed. False when the
    // device can't play the file: the channel stays closed.
    virtual bool Open(AudioChannel channel, const std::filesystem::path &file) = 0;
    // Starts the open file from its start, or from where a stop left it, and returns at once.
    // False when the device refuses.
    virtual bool Play(AudioChannel channel) = 0;
    // Pause and resume act on a playing or a paused channel alone; stop on a playing one.
    virtual void Pause(AudioChannel channel) = 0;
    virtual void Resume(AudioChannel channel) = 0;
    virtual void Stop(AudioChannel channel) = 0;
    // Ends the sound and forgets the file; a closed channel stays closed.
    virtual void Close(AudioChannel channel) = 0;
    virtual AudioMode Status(AudioChannel channel) = 0;
};

} // namespace orrery
