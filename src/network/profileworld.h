// A new player's own copy of the world, with the project's custom servers merged in.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "foundation/paths.h"
#include "project/model.h"

namespace orrery {

// Saved/<player name>/ with the name trimmed; nullopt for a name that makes no safe folder.
std::optional<std::filesystem::path> ProfileFolder(const AppPaths &paths, std::string_view player);

// Copies the world template into the player's folder and appends each custom server to the
// file of its first octet and to the directory, behind the generated servers. Missing
// template files are passed over. False when the folder can't be made.
bool CreateProfileWorld(const AppPaths &paths, std::string_view player, const ProjectModel &model);

} // namespace orrery
