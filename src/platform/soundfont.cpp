// Finding the sound font.
#include "platform/soundfont.h"

#include "foundation/paths.h"

#include <array>

namespace orrery {

namespace fs = std::filesystem;

namespace {
// The small TimGM6mb first: it is the one a distribution carries, and the system's default
// may be a sound font of a hundred megabytes.
constexpr std::array<std::string_view, 3> kSystemSoundFonts{"/usr/share/sounds/sf2/TimGM6mb.sf2",
                                                            "/usr/share/sounds/sf2/default-GM.sf2",
                                                            "/usr/share/sounds/sf2/FluidR3_GM.sf2"};
} // namespace

std::optional<fs::path> FindSoundFont(const fs::path &gameRoot) {
    const fs::path own = gameRoot / kGameSoundFont;
    if (auto found = FindMediaFile(own.parent_path(), own.filename().string())) return found;
    std::error_code error;
    for (std::string_view file : kSystemSoundFonts)
        if (fs::is_regular_file(file, error)) return fs::path(file);
    return std::nullopt;
}

} // namespace orrery
