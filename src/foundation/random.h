// The process's one source of random numbers, seeded once; tests make their own.
#pragma once

#include <cstdint>
#include <random>

namespace orrery {

class Random {
public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}

    // A real number in [0, 1).
    double Unit();
    // An integer in [0, bound) for bound >= 1; 0 otherwise.
    int Below(int bound);
    // An integer in [low, high], inclusive; low when high < low.
    int Between(int low, int high);

private:
    std::mt19937_64 m_engine;
};

// Seeded once per process from the clock and the system's entropy.
Random &ProcessRandom();

} // namespace orrery
