// The largest project file the benchmarks measure against.
#pragma once

#include "project/model.h"

#include <string_view>

namespace orrery {

// Every table full, every element with all its properties, texts of the length a real game
// has: the largest file a project can be, under that name.
ProjectModel MakeLargestModel(std::string_view name);

} // namespace orrery
