// The process's random source: a seeded 64-bit Mersenne Twister with portable draws.
#include "foundation/random.h"

#include <chrono>

namespace orrery {

namespace {

// An integer in [0, range) for range >= 1. The standard distributions differ between library
// versions; drawing by hand keeps a seeded sequence the same everywhere. Rejecting the top
// partial block keeps every value equally likely.
std::uint64_t DrawBelow(std::mt19937_64 &engine, std::uint64_t range) {
    const std::uint64_t top = std::mt19937_64::max();
    const std::uint64_t limit = top - top % range;
    std::uint64_t draw = engine();
    while (draw >= limit) draw = engine();
    return draw % range;
}

} // namespace

double Random::Unit() {
    return static_cast<double>(m_engine() >> 11) * 0x1.0p-53;
}

int Random::Below(int bound) {
    if (bound < 1) return 0;
    return static_cast<int>(DrawBelow(m_engine, static_cast<std::uint64_t>(bound)));
}

int Random::Between(int low, int high) {
    if (high < low) return low;
    const auto span = static_cast<std::uint64_t>(static_cast<std::int64_t>(high) - low) + 1;
    return static_cast<int>(low + static_cast<std::int64_t>(DrawBelow(m_engine, span)));
}

Random &ProcessRandom() {
    static Random random([] {
        std::random_device device;
        const auto ticks = static_cast<std::uint64_t>(
            std::chrono::high_resolution_clock::now().time_since_epoch().count());
        const std::uint64_t entropy = (static_cast<std::uint64_t>(device()) << 32) ^ device();
        return entropy ^ ticks;
    }());
    return random;
}

} // namespace orrery
