// Text files of CRLF-terminated lines, and atomic replacement.
#include "foundation/textfile.h"

#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <system_error>
#include <unistd.h>

namespace orrery {

namespace {

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

std::optional<std::string> ReadFileBytes(const std::filesystem::path &path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error) return std::nullopt;
    std::string bytes(size, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    return bytes;
}

bool ReplaceFileAtomically(const std::filesystem::path &path, std::string_view bytes) {
    std::filesystem::path temp = path;
    temp += ".saving";
    const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) return false;
    const bool written = WriteAllToDescriptor(fd, bytes) && ::fsync(fd) == 0;
    if (::close(fd) != 0 || !written) {
        std::remove(temp.c_str());
        return false;
    }
    std::error_code error;
    std::filesystem::rename(temp, path, error);
    if (error) {
        std::remove(temp.c_str());
        return false;
    }
    // The rename itself is durable only once the directory is flushed.
    const int dir = ::open(path.parent_path().empty() ? "." : path.parent_path().c_str(),
                           O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
    return true;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    ForEachLine(text, [&](std::string_view line) { lines.push_back(line); });
    return lines;
}

} // namespace orrery
