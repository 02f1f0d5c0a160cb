// MIDI through FluidSynth.
#include "runtime/midiplayback.h"

#include <fluidsynth.h>
#include <system_error>

namespace orrery {

namespace fs = std::filesystem;

// A synthesizer with the sound font on settings of its own, the driver that renders it, and
// the player of the file being played.
struct MidiSynth {
    fluid_settings_t *settings = nullptr;
    fluid_synth_t *synth = nullptr;
    fluid_audio_driver_t *driver = nullptr;
    fluid_player_t *player = nullptr;

    MidiSynth() = default;
    MidiSynth(const MidiSynth &) = delete;
    MidiSynth &operator=(const MidiSynth &) = delete;
    ~MidiSynth() {
        DropPlayer();
        if (driver) delete_fluid_audio_driver(driver);
        if (synth) delete_fluid_synth(synth);
        if (settings) delete_fluid_settings(settings);
    }
    void DropPlayer() {
        if (!player) return;
        delete_fluid_player(player);
        player = nullptr;
        fluid_synth_all_sounds_off(synth, -1);
    }
};

namespace {

// A machine without a sound card is no error: FluidSynth's complaints stay unprinted.
void QuietenFluidSynth() {
    static std::once_flag once;
    std::call_once(once, [] {
        for (int level : {FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
            fluid_set_log_function(level, nullptr, nullptr);
    });
}

// Settings made first, as the synthesizer and the player read them when they are made.
std::unique_ptr<MidiSynth> MakeSynth(const fs::path &soundFont, const char *timing,
                                     double sampleRate) {
    QuietenFluidSynth();
    auto made = std::make_unique<MidiSynth>();
    made->settings = new_fluid_settings();
    if (!made->settings) return nullptr;
    fluid_settings_setstr(made->settings, "player.timing-source", timing);
    fluid_settings_setnum(made->settings, "synth.sample-rate", sampleRate);
    fluid_settings_setnum(made->settings, "synth.gain", 1.0);
    made->synth = new_fluid_synth(made->settings);
    if (!made->synth) return nullptr;
    if (!soundFont.empty()) fluid_synth_sfload(made->synth, soundFont.c_str(), 1);
    return made;
}

// The sound system's drivers in turn; with none, the file driver writes to /dev/null at the
// pace of real time, in blocks large enough not to wake every millisecond.
fluid_audio_driver_t *StartDriver(fluid_settings_t *settings, fluid_synth_t *synth) {
    for (const char *name : {"pulseaudio", "alsa"}) {
        if (fluid_settings_setstr(settings, "audio.driver", name) != FLUID_OK) continue;
        if (fluid_audio_driver_t *driver = new_fluid_audio_driver(settings, synth)) return driver;
    }
    fluid_settings_setstr(settings, "audio.driver", "file");
    fluid_settings_setstr(settings, "audio.file.name", "/dev/null");
    fluid_settings_setstr(settings, "audio.file.type", "raw");
    fluid_settings_setint(settings, "audio.period-size", 1024);
    return new_fluid_audio_driver(settings, synth);
}

} // namespace

MidiPlayback::MidiPlayback(fs::path soundFont) : m_soundFont(std::move(soundFont)) {
    try {
        m_preparing = std::thread([this] { Prepare(); });
    } catch (const std::system_error &) {
        Prepare(); // no thread to be had: made here, late but made
    }
}

MidiPlayback::~MidiPlayback() {
    if (m_preparing.joinable()) m_preparing.join();
}

void MidiPlayback::Prepare() {
    std::unique_ptr<MidiSynth> made = MakeSynth(m_soundFont, "system", 44100);
    if (made && !(made->driver = StartDriver(made->settings, made->synth))) made.reset();
    const std::lock_guard lock(m_mutex);
    m_synth = std::move(made);
    m_prepared = true;
    ApplyLocked();
}

// What was asked before the synthesizer was ready, or just now.
void MidiPlayback::ApplyLocked() {
    if (!m_synth) return;
    if (m_fileChanged) {
        m_fileChanged = false;
        m_synth->DropPlayer();
        if (!m_file.empty() && (m_synth->player = new_fluid_player(m_synth->synth)))
            fluid_player_add(m_synth->player, m_file.c_str());
    }
    if (m_startWanted && m_synth->player) fluid_player_play(m_synth->player);
    m_startWanted = false;
}

void MidiPlayback::Load(const fs::path &file) {
    const std::lock_guard lock(m_mutex);
    m_file = file;
    m_fileChanged = true;
    m_startWanted = false;
    ApplyLocked();
}

void MidiPlayback::Unload() {
    Load({});
}

void MidiPlayback::Play() {
    const std::lock_guard lock(m_mutex);
    m_startWanted = true;
    ApplyLocked();
}

void MidiPlayback::Hold() {
    const std::lock_guard lock(m_mutex);
    m_startWanted = false;
    if (m_synth && m_synth->player) fluid_player_stop(m_synth->player);
}

bool MidiPlayback::Ended() {
    const std::lock_guard lock(m_mutex);
    if (!m_prepared || m_startWanted) return false;
    return !m_synth || !m_synth->player ||
           fluid_player_get_status(m_synth->player) == FLUID_PLAYER_DONE;
}

std::vector<std::int16_t> RenderMidi(const fs::path &file, const fs::path &soundFont,
                                     int sampleRate) {
    std::vector<std::int16_t> samples;
    if (!fluid_is_midifile(file.c_str())) return samples;
    // The player advances with the samples written, so the file renders as fast as it can.
    const std::unique_ptr<MidiSynth> made = MakeSynth({}, "sample", sampleRate);
    if (!made || fluid_synth_sfload(made->synth, soundFont.c_str(), 1) == FLUID_FAILED)
        return samples;
    made->player = new_fluid_player(made->synth);
    if (!made->player || fluid_player_add(made->player, file.c_str()) != FLUID_OK ||
        fluid_player_play(made->player) != FLUID_OK)
        return samples;
    constexpr int kBlock = 1024;
    const std::size_t longest = std::size_t(sampleRate) * 2 * 60 * 10; // ten minutes, stereo
    while (fluid_player_get_status(made->player) == FLUID_PLAYER_PLAYING &&
           samples.size() < longest) {
        samples.resize(samples.size() + 2 * kBlock);
        std::int16_t *block = samples.data() + samples.size() - 2 * kBlock;
        if (fluid_synth_write_s16(made->synth, kBlock, block, 0, 2, block, 1, 2) != FLUID_OK) break;
    }
    return samples;
}

} // namespace orrery
