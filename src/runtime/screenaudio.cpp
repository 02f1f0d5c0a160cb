// The sound channels on screen.
#include "runtime/screenaudio.h"

#include "platform/soundfont.h"
#include "runtime/midiplayback.h"

#include <QAudioOutput>
#include <QMediaPlayer>
#include <QUrl>
#include <algorithm>
#include <fstream>
#include <string_view>

namespace orrery {

namespace fs = std::filesystem;

namespace {

enum class SoundKind { None, Media, Midi };

bool HasAt(std::string_view text, std::size_t at, std::string_view what) {
    return text.size() >= at + what.size() && text.substr(at, what.size()) == what;
}

// What the first bytes of the file say it is: a standard MIDI file, or a WAV, an MP3 (an ID3
// tag or an MPEG audio frame) or a WMA file (an ASF header) for the media player. Only a plain
// file is read: a named pipe would wait for a writer.
SoundKind KindOf(const fs::path &file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error)) return SoundKind::None;
    std::ifstream in(file, std::ios::binary);
    char head[16] = {};
    in.read(head, sizeof head);
    const std::string_view text(
        head, static_cast<std::size_t>(std::max<std::streamsize>(in.gcount(), 0)));
    const auto byte = [&text](std::size_t at) {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0u;
    };
    if (HasAt(text, 0, "MThd")) return SoundKind::Midi;
    const bool wave = HasAt(text, 0, "RIFF") && HasAt(text, 8, "WAVE");
    const bool mpeg = HasAt(text, 0, "ID3") || (byte(0) == 0xFF && (byte(1) & 0xE0) == 0xE0);
    const bool asf = HasAt(text, 0, "\x30\x26\xB2\x75\x8E\x66\xCF\x11");
    return wave || mpeg || asf ? SoundKind::Media : SoundKind::None;
}

} // namespace

// The media player and its output are made with the device, as the first of them sets up the
// sound system and takes a tenth of a second; the MIDI playback is made for the first MIDI file.
// The output is made before the player and goes after it.
struct ScreenAudioDevice::Channel {
    AudioMode mode = AudioMode::Closed;
    SoundKind kind = SoundKind::None;
    std::unique_ptr<QAudioOutput> output = std::make_unique<QAudioOutput>();
    std::unique_ptr<QMediaPlayer> player = std::make_unique<QMediaPlayer>();
    std::unique_ptr<MidiPlayback> midi;

    // The sound came to its end, or the sound system could not play the file after all: a
    // media player that ends stops by itself.
    bool Ended() const {
        if (kind == SoundKind::Midi) return midi->Ended();
        return player->playbackState() == QMediaPlayer::StoppedState ||
               player->mediaStatus() == QMediaPlayer::InvalidMedia ||
               player->error() != QMediaPlayer::NoError;
    }
    // A sound that ended is stopped; this is the one change that comes from the sound itself.
    void Settle() {
        if (mode == AudioMode::Playing && Ended()) mode = AudioMode::Stopped;
    }
};

ScreenAudioDevice::ScreenAudioDevice(const fs::path &gameRoot)
    : m_soundFont(FindSoundFont(gameRoot).value_or(fs::path())) {
    for (auto &channel : m_channels) {
        channel = std::make_unique<Channel>();
        channel->player->setAudioOutput(channel->output.get());
    }
}

ScreenAudioDevice::~ScreenAudioDevice() = default;

ScreenAudioDevice::Channel &ScreenAudioDevice::At(AudioChannel channel) {
    return *m_channels[static_cast<std::size_t>(channel)];
}

bool ScreenAudioDevice::Open(AudioChannel which, const fs::path &file) {
    Channel &channel = At(which);
    if (channel.mode != AudioMode::Closed) return false;
    const SoundKind kind = KindOf(file);
    std::error_code error;
    const fs::path full = fs::absolute(file, error);
    if (kind == SoundKind::None || error) return false;
    if (kind == SoundKind::Midi) {
        if (!channel.midi) channel.midi = std::make_unique<MidiPlayback>(m_soundFont);
        channel.midi->Load(full);
    } else {
        channel.player->setSource(QUrl::fromLocalFile(QString::fromStdString(full.string())));
    }
    channel.kind = kind;
    channel.mode = AudioMode::Stopped;
    return true;
}

// The media player's pause keeps the place, as a stop must; its own stop would go back to the
// start.
void ScreenAudioDevice::Start(Channel &channel) {
    if (channel.kind == SoundKind::Midi)
        channel.midi->Play();
    else
        channel.player->play();
}

void ScreenAudioDevice::Hold(Channel &channel) {
    if (channel.kind == SoundKind::Midi)
        channel.midi->Hold();
    else
        channel.player->pause();
}

bool ScreenAudioDevice::Play(AudioChannel which) {
    Channel &channel = At(which);
    if (channel.mode == AudioMode::Closed) return false;
    Start(channel);
    channel.mode = AudioMode::Playing;
    return true;
}

void ScreenAudioDevice::Pause(AudioChannel which) {
    Channel &channel = At(which);
    channel.Settle();
    if (channel.mode != AudioMode::Playing && channel.mode != AudioMode::Paused) return;
    Hold(channel);
    channel.mode = AudioMode::Paused;
}

void ScreenAudioDevice::Resume(AudioChannel which) {
    Channel &channel = At(which);
    channel.Settle();
    if (channel.mode != AudioMode::Playing && channel.mode != AudioMode::Paused) return;
    Start(channel);
    channel.mode = AudioMode::Playing;
}

void ScreenAudioDevice::Stop(AudioChannel which) {
    Channel &channel = At(which);
    channel.Settle();
    if (channel.mode != AudioMode::Playing) return;
    Hold(channel);
    channel.mode = AudioMode::Stopped;
}

void ScreenAudioDevice::Close(AudioChannel which) {
    Channel &channel = At(which);
    if (channel.kind == SoundKind::Midi) {
        channel.midi->Unload();
    } else if (channel.kind == SoundKind::Media) {
        channel.player->stop();
        channel.player->setSource(QUrl());
    }
    channel.kind = SoundKind::None;
    channel.mode = AudioMode::Closed;
}

AudioMode ScreenAudioDevice::Status(AudioChannel which) {
    Channel &channel = At(which);
    channel.Settle();
    return channel.mode;
}

} // namespace orrery
