// Where a dragged element comes to rest: against the edges and centre lines of the elements
// beside it when one is within reach, else on the grid.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace orrery {

// An element's rectangle in twips.
struct Box {
    std::int32_t left = 0, top = 0, width = 0, height = 0;
};

struct Snapped {
    std::int32_t left = 0, top = 0;
    // The line it rests against on each axis, to be shown while dragging; none on the grid.
    std::optional<std::int32_t> guideX, guideY;
};

// The place for a box dragged to `moving`: on each axis, the nearest of the other boxes' near
// edges, far edges and centre lines that one of its own lines can meet within reach twips;
// failing that, the grid of SnapToGrid.
Snapped SnapDrag(const Box &moving, const std::vector<Box> &others, std::int32_t reach);

} // namespace orrery
