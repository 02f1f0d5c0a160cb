// The system's fonts, through fontconfig: the file of a font family a project names, for a
// game folder that has to carry it.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace orrery {

// The file of the installed font whose family is that name (Windows-1252, any case), the
// regular style preferred; nullopt when no installed font has that family. Fontconfig offers
// a stand-in for every name: a stand-in is not the font, and is not taken.
std::optional<std::filesystem::path> FindFontFile(std::string_view family);

} // namespace orrery
