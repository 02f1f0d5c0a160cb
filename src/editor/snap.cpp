// Snapping a drag.
#include "editor/snap.h"

#include "editor/elements.h"

#include <cstdlib>

namespace orrery {

namespace {

struct AxisRest {
    std::int32_t at;
    std::optional<std::int32_t> guide;
};

// One axis: the box's start, centre and end against each other box's.
AxisRest RestOnAxis(std::int32_t at, std::int32_t size, const std::vector<std::pair<std::int32_t, std::int32_t>> &others,
                    std::int32_t reach) {
    AxisRest best{SnapToGrid(at), std::nullopt};
    std::int64_t nearest = std::int64_t(reach) + 1;
    for (const auto &[start, length] : others)
        for (const std::int64_t line : {std::int64_t(start), start + std::int64_t(length) / 2, std::int64_t(start) + length})
            for (const std::int64_t own : {std::int64_t(0), std::int64_t(size) / 2, std::int64_t(size)}) {
                const std::int64_t candidate = line - own;
                const std::int64_t distance = std::llabs(candidate - at);
                if (distance < nearest) {
                    nearest = distance;
                    best = {static_cast<std::int32_t>(candidate), static_cast<std::int32_t>(line)};
                }
            }
    return best;
}

} // namespace

Snapped SnapDrag(const Box &moving, const std::vector<Box> &others, std::int32_t reach) {
    std::vector<std::pair<std::int32_t, std::int32_t>> across, down;
    for (const Box &other : others) {
        across.emplace_back(other.left, other.width);
        down.emplace_back(other.top, other.height);
    }
    const AxisRest x = RestOnAxis(moving.left, moving.width, across, reach);
    const AxisRest y = RestOnAxis(moving.top, moving.height, down, reach);
    return {x.at, y.at, x.guide, y.guide};
}

} // namespace orrery
