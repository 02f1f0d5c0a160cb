// Unsigned integers as the bytes of a binary file, for tests that build files by hand.
#pragma once

#include <cstdint>
#include <string>

namespace orrery::test {

// The low width bytes of value, least significant first.
inline std::string Little(std::uint32_t value, int width) {
    std::string bytes;
    for (int i = 0; i < width; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
    return bytes;
}

// The same, most significant first.
inline std::string Big(std::uint32_t value, int width) {
    std::string bytes;
    for (int i = width - 1; i >= 0; --i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
    return bytes;
}

} // namespace orrery::test
