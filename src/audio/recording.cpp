// The recording audio device on the game's virtual clock.
#include "audio/recording.h"

#include "audio/medialength.h"

namespace orrery {

RecordingDevice::RecordingDevice(Clock clock) : m_clock(std::move(clock)) {}

RecordingDevice::Channel &RecordingDevice::At(AudioChannel channel) {
    return m_channels[static_cast<std::size_t>(channel)];
}

void RecordingDevice::Record(std::string_view what, AudioChannel channel, std::string_view detail) {
    std::string line = std::string(what) + " " + std::string(AliasOf(channel));
    if (!detail.empty()) line += " " + std::string(detail);
    m_log.push_back(std::move(line));
}

void RecordingDevice::Settle(AudioChannel channel) {
    Channel &c = At(channel);
    if (c.mode != AudioMode::Playing) return;
    if (m_clock() - c.startedAt < c.length - c.position) return;
    c.mode = AudioMode::Stopped;
    c.position = 0;
    Record("end", channel);
}

bool RecordingDevice::Open(AudioChannel channel, const std::filesystem::path &file) {
    Channel &c = At(channel);
    if (c.mode != AudioMode::Closed) return false;
    const std::optional<std::int64_t> length = MediaLength(file);
    if (!length) {
        Record("refuse", channel, file.string());
        return false;
    }
    c = Channel{file, AudioMode::Stopped, *length, 0, 0};
    Record("open", channel, file.string());
    return true;
}

bool RecordingDevice::Play(AudioChannel channel) {
    Settle(channel);
    Channel &c = At(channel);
    if (c.mode == AudioMode::Closed) return false;
    if (c.mode == AudioMode::Playing) return true;
    c.mode = AudioMode::Playing;
    c.startedAt = m_clock();
    Record("play", channel);
    return true;
}

void RecordingDevice::Halt(AudioChannel channel, AudioMode mode, std::string_view what) {
    Settle(channel);
    Channel &c = At(channel);
    if (c.mode != AudioMode::Playing) return;
    c.position += m_clock() - c.startedAt;
    c.mode = mode;
    Record(what, channel);
}

void RecordingDevice::Pause(AudioChannel channel) {
    Halt(channel, AudioMode::Paused, "pause");
}

void RecordingDevice::Resume(AudioChannel channel) {
    Channel &c = At(channel);
    if (c.mode != AudioMode::Paused) return;
    c.mode = AudioMode::Playing;
    c.startedAt = m_clock();
    Record("resume", channel);
}

void RecordingDevice::Stop(AudioChannel channel) {
    Halt(channel, AudioMode::Stopped, "stop");
}

void RecordingDevice::Close(AudioChannel channel) {
    Channel &c = At(channel);
    if (c.mode == AudioMode::Closed) return;
    c = Channel{};
    Record("close", channel);
}

AudioMode RecordingDevice::Status(AudioChannel channel) {
    Settle(channel);
    return At(channel).mode;
}

std::filesystem::path RecordingDevice::File(AudioChannel channel) const {
    return m_channels[static_cast<std::size_t>(channel)].file;
}

} // namespace orrery
