// The sound channels of a game on screen: MP3, WAV and WMA through Qt Multimedia, with a media
// player and an audio output for each channel; MIDI through FluidSynth with the game's sound
// font. On a machine with no sound card a sound plays into nothing for as long as it lasts.
#pragma once

#include "audio/device.h"

#include <array>
#include <filesystem>
#include <memory>

namespace orrery {

class ScreenAudioDevice : public AudioDevice {
public:
    // The game folder: MIDI plays with its Data/gm.sf2, or else with the system's sound font.
    explicit ScreenAudioDevice(const std::filesystem::path &gameRoot);
    ~ScreenAudioDevice() override;

    // A file is taken for what its first bytes say it is, whatever its name: a file that is
    // none of the four kinds, or can't be read, doesn't open. Nothing here waits for the sound
    // system; a file the sound system fails to play later ends at once, stopped.
    bool Open(AudioChannel channel, const std::filesystem::path &file) override;
    bool Play(AudioChannel channel) override;
    void Pause(AudioChannel channel) override;
    void Resume(AudioChannel channel) override;
    void Stop(AudioChannel channel) override;
    void Close(AudioChannel channel) override;
    AudioMode Status(AudioChannel channel) override;

private:
    struct Channel;
    Channel &At(AudioChannel channel);
    void Start(Channel &channel);
    void Hold(Channel &channel);

    std::filesystem::path m_soundFont; // empty when there is none
    std::array<std::unique_ptr<Channel>, kAudioChannels.size()> m_channels;
};

} // namespace orrery
