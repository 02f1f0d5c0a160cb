// The project model as JSON, for authors and their scripts.
#pragma once

#include <nlohmann/json.hpp>

#include "project/model.h"

namespace orrery {

// Every setting under its written key, every non-blank table slot with its number, and every
// element row with its columns. Text is converted to UTF-8.
nlohmann::ordered_json ModelToJson(const ProjectModel &model);

} // namespace orrery
