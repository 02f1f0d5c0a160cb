// A regular file read piece by piece at any offset, for the header readers that look at a few
// bytes here and there and must not load a whole file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace orrery {

class FileWindow {
public:
    // Opens a regular file; anything else (missing, a directory, a pipe) gives a window that
    // is not open and reads nothing.
    explicit FileWindow(const std::filesystem::path &file);
    ~FileWindow();
    FileWindow(const FileWindow &) = delete;
    FileWindow &operator=(const FileWindow &) = delete;

    bool IsOpen() const { return m_fd >= 0; }
    // The file's length when it was opened.
    std::uint64_t Size() const { return m_size; }
    // Up to count bytes from offset, fewer at the end of the file or on a read error. A count
    // above kMaxPiece is cut to it. The view lasts until the next call.
    std::string_view Read(std::uint64_t offset, std::size_t count);
    // True when count bytes from offset lie inside the file.
    bool Holds(std::uint64_t offset, std::uint64_t count) const {
        return offset <= m_size && count <= m_size - offset;
    }

    static constexpr std::size_t kMaxPiece = 64 * 1024;

private:
    int m_fd = -1;
    std::uint64_t m_size = 0;
    // The last piece read, kept so that reads that walk forward in small steps cost no call.
    std::string m_buffer;
    std::uint64_t m_bufferStart = 0;
};

// Unsigned integers of width bytes (1 to 4) at the start of bytes, which must hold them.
std::uint32_t LittleEndianAt(std::string_view bytes, std::size_t at, int width);
std::uint32_t BigEndianAt(std::string_view bytes, std::size_t at, int width);

} // namespace orrery
