// The length readers of each format behind MediaLength, on an open file.
#pragma once

#include "foundation/filewindow.h"

#include <cstdint>
#include <optional>

namespace orrery {

std::optional<std::int64_t> WavLength(FileWindow &file);
std::optional<std::int64_t> MidiLength(FileWindow &file);
std::optional<std::int64_t> Mp3Length(FileWindow &file);

} // namespace orrery
