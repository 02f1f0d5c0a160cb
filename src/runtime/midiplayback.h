// MIDI files played through FluidSynth with a General MIDI sound font: one channel's playback
// out through the sound system, and a whole file rendered offline into samples.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace orrery {

struct MidiSynth;

// One channel's MIDI: a synthesizer of its own with the sound font, heard through PulseAudio or
// ALSA, or on a machine with neither rendered into nothing at the pace of real time, so that a
// file still lasts as long as it would be heard. The player keeps time by the system's clock on
// a thread of its own, so that a file can be changed under a running sound. Reading the sound
// font takes a fifth of a second: the synthesizer is made on a thread of its own, and what is
// asked meanwhile is done as soon as it is ready. Nothing waits for the sound; nothing throws.
class MidiPlayback {
public:
    // An empty or unreadable sound font plays every file as silence, for its length.
    explicit MidiPlayback(std::filesystem::path soundFont);
    ~MidiPlayback();
    MidiPlayback(const MidiPlayback &) = delete;
    MidiPlayback &operator=(const MidiPlayback &) = delete;

    // Takes the file in place of the one before, held at its start.
    void Load(const std::filesystem::path &file);
    // Plays on from where Hold left the file, or from its start when it is new or has ended.
    void Play();
    // Stops where it is, its notes silenced.
    void Hold();
    void Unload();
    // Asked while playing: true once the file has come to its end and its last notes have died
    // away; false while the synthesizer is still being made.
    bool Ended();

private:
    void Prepare();
    void ApplyLocked();

    const std::filesystem::path m_soundFont;
    std::mutex m_mutex;
    std::unique_ptr<MidiSynth> m_synth;
    bool m_prepared = false; // the synthesizer has been made, or failed to be
    std::filesystem::path m_file;
    bool m_fileChanged = false;
    bool m_startWanted = false;
    std::thread m_preparing;
};

// The file rendered offline, as fast as the machine goes: interleaved stereo 16-bit samples at
// the given rate, up to the end of its last notes. Empty when the file or the sound font can't
// be read.
std::vector<std::int16_t> RenderMidi(const std::filesystem::path &file,
                                     const std::filesystem::path &soundFont,
                                     int sampleRate = 22050);

} // namespace orrery
