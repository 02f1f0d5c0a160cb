// The largest project file the benchmarks measure against.
#pragma once

#include "foundation/paths.h"
#include "project/model.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace orrery {

// Every table full, every element with all its properties, texts of the length a real game
// has: the largest file a project can be, under that name.
ProjectModel MakeLargestModel(std::string_view name);

// A new folder below the system's temporary folder, for a benchmark's application folder; an
// empty path when none could be made.
std::filesystem::path MakeBenchFolder();

// A new bench folder holding the largest project, saved under the name; an empty path when it
// couldn't be made.
std::filesystem::path MakeLargestProjectFolder(std::string_view name);

// Loads the project into a new model at each iteration. The program's model exists from its
// start and outlives the load, so making a blank model and freeing it stay outside the time
// measured. With lines above 0, a load that doesn't treat that many lines is an error.
void MeasureLoad(benchmark::State &state, const AppPaths &paths, std::string_view name,
                 std::size_t lines = 0);

} // namespace orrery
