// Text files of CRLF-terminated lines, and atomic replacement.
#include "foundation/textfile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orrery {

namespace {

constexpr std::string_view kTemporaryEnd = ".saving";

// A file descriptor closed when it goes out of scope.
class Descriptor {
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() {
        if (m_fd >= 0) ::close(m_fd);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    int get() const { return m_fd; }

private:
    int m_fd;
};

bool WriteBytes(const std::filesystem::path &path, std::string_view bytes,
                std::ios::openmode mode) {
    std::ofstream out(path, std::ios::binary | mode);
    if (!out) return false;
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return !out.fail();
}

bool WriteAllToDescriptor(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Everything up to the end of the file. The size is a first guess with room for the read that
// finds the end; a file that grows meanwhile is read as it grows.
std::optional<std::string> ReadAllFromDescriptor(int fd, std::size_t expected) {
    std::string bytes(expected + 1, '\0');
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size()) bytes.resize(bytes.size() * 2);
        const ssize_t got = ::read(fd, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

// Six letters or digits, different in every call and every process.
std::string RandomTag() {
    static constexpr std::string_view kChars = "abcdefghijklmnopqrstuvwxyz0123456789";
    thread_local std::mt19937_64 engine = [] {
        std::random_device entropy;
        std::seed_seq seed{entropy(), entropy(), static_cast<unsigned>(::getpid())};
        return std::mt19937_64(seed);
    }();
    std::string tag(6, '0');
    for (char &c : tag) c = kChars[engine() % kChars.size()];
    return tag;
}

// Creates "<target>.XXXXXX.saving", new and locked, and returns its descriptor; -1 when none
// could be made. The lock tells a sweep that the file is in use until it is closed.
int CreateTemporary(const std::filesystem::path &target, std::filesystem::path &temp) {
    for (int attempt = 0; attempt < 16; ++attempt) {
        temp = target;
        temp += "." + RandomTag() + std::string(kTemporaryEnd);
        const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (fd < 0 && errno == EEXIST) continue;
        if (fd < 0) return -1;
        struct stat info {};
        // A sweep may have taken the file between its making and its lock: make another.
        if (::flock(fd, LOCK_EX) == 0 && ::fstat(fd, &info) == 0 && info.st_nlink > 0) return fd;
        ::close(fd);
    }
    return -1;
}

// Removes one temporary when no save holds it, and only the file that was checked.
void RemoveIfStale(const std::filesystem::path &file) {
    const Descriptor fd(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    if (fd.get() < 0 || ::flock(fd.get(), LOCK_EX | LOCK_NB) != 0) return;
    struct stat opened {};
    struct stat named {};
    if (::fstat(fd.get(), &opened) != 0 || !S_ISREG(opened.st_mode)) return;
    if (::lstat(file.c_str(), &named) != 0) return;
    if (opened.st_dev == named.st_dev && opened.st_ino == named.st_ino) ::unlink(file.c_str());
}

// Temporaries of saves that were interrupted: regular files whose names end in ".saving".
void SweepStaleTemporaries(const std::filesystem::path &folder) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        std::error_code kindError;
        if (name.ends_with(kTemporaryEnd) && entry->is_regular_file(kindError))
            RemoveIfStale(entry->path());
    }
}

} // namespace

bool WriteTextFile(const std::filesystem::path &path, std::string_view text) {
    std::string bytes(text);
    bytes += "\r\n";
    return WriteBytes(path, bytes, std::ios::trunc);
}

bool AppendTextFile(const std::filesystem::path &path, std::string_view text) {
    std::string bytes(text);
    bytes += "\r\n";
    return WriteBytes(path, bytes, std::ios::app);
}

std::string ReadTextFile(const std::filesystem::path &path) {
    const auto bytes = ReadFileBytes(path);
    if (!bytes) return {};
    std::string text;
    text.reserve(bytes->size() + 2);
    for (std::string_view line : SplitLines(*bytes)) {
        text += line;
        text += "\r\n";
    }
    if (text.size() >= 2) text.resize(text.size() - 2);
    return text;
}

bool FileExists(const std::filesystem::path &path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && !error;
}

std::string_view ReadErrorText(ReadError error) {
    // In the order of ReadError.
    static constexpr std::string_view kTexts[] = {"", "no such file", "not a regular file",
                                                  "cannot be read"};
    return kTexts[static_cast<std::size_t>(error)];
}

std::optional<std::string> ReadFileBytes(const std::filesystem::path &path, ReadError *error) {
    ReadError ignored;
    ReadError &why = error ? *error : ignored;
    // Opened without waiting, so that a pipe with no writer can't hold the program; what was
    // opened is then checked, not the name, which may have changed in between.
    const Descriptor fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (fd.get() < 0) {
        why = errno == ENOENT || errno == ENOTDIR ? ReadError::Missing : ReadError::Unreadable;
        return std::nullopt;
    }
    struct stat info {};
    if (::fstat(fd.get(), &info) != 0 || !S_ISREG(info.st_mode)) {
        why = ReadError::NotAFile;
        return std::nullopt;
    }
    auto bytes = ReadAllFromDescriptor(fd.get(), static_cast<std::size_t>(info.st_size));
    why = bytes ? ReadError::None : ReadError::Unreadable;
    return bytes;
}

bool ReplaceFileAtomically(const std::filesystem::path &path, std::string_view bytes) {
    const std::filesystem::path folder = path.parent_path().empty() ? "." : path.parent_path();
    SweepStaleTemporaries(folder);
    std::filesystem::path temp;
    const Descriptor fd(CreateTemporary(path, temp));
    if (fd.get() < 0) return false;
    // The rename comes before the close, which ends the lock: a sweep never sees this file
    // under its temporary name without the lock.
    const bool written = WriteAllToDescriptor(fd.get(), bytes) && ::fsync(fd.get()) == 0;
    if (!written || ::rename(temp.c_str(), path.c_str()) != 0) {
        ::unlink(temp.c_str());
        return false;
    }
    // The rename itself is durable only once the directory is flushed.
    const Descriptor dir(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.get() >= 0) ::fsync(dir.get());
    return true;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    ForEachLine(text, [&](std::string_view line) { lines.push_back(line); });
    return lines;
}

} // namespace orrery
