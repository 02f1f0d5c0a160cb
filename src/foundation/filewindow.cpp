// A regular file read piece by piece at any offset.
#include "foundation/filewindow.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orrery {

FileWindow::FileWindow(const std::filesystem::path &file) {
    // Non-blocking, so that a pipe in the file's place is refused rather than waited on.
    const int fd = ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) return;
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size < 0) {
        ::close(fd);
        return;
    }
    m_fd = fd;
    m_size = static_cast<std::uint64_t>(info.st_size);
}

FileWindow::~FileWindow() {
    if (m_fd >= 0) ::close(m_fd);
}

std::string_view FileWindow::Read(std::uint64_t offset, std::size_t count) {
    if (m_fd < 0 || offset >= m_size) return {};
    count = std::min(count, kMaxPiece);
    if (count > m_size - offset) count = static_cast<std::size_t>(m_size - offset);
    const bool inBuffer =
        offset >= m_bufferStart && offset - m_bufferStart + count <= m_buffer.size();
    if (!inBuffer) {
        m_buffer.resize(kMaxPiece);
        std::size_t filled = 0;
        while (filled < kMaxPiece) {
            const ssize_t got = ::pread(m_fd, m_buffer.data() + filled, kMaxPiece - filled,
                                        static_cast<off_t>(offset + filled));
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0) break;
            filled += static_cast<std::size_t>(got);
        }
        m_buffer.resize(filled);
        m_bufferStart = offset;
    }
    const std::size_t at = static_cast<std::size_t>(offset - m_bufferStart);
    return std::string_view(m_buffer).substr(at, count);
}

std::uint32_t LittleEndianAt(std::string_view bytes, std::size_t at, int width) {
    std::uint32_t value = 0;
    for (int i = width - 1; i >= 0; --i)
        value = (value << 8) | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

std::uint32_t BigEndianAt(std::string_view bytes, std::size_t at, int width) {
    std::uint32_t value = 0;
    for (int i = 0; i < width; ++i)
        value = (value << 8) | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

} // namespace orrery
