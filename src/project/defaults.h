// What a new project starts with, and the wizard's creation step.
#pragma once

#include <string>

#include "foundation/paths.h"
#include "project/model.h"

namespace orrery {

// What the author types into the new-project form. The description's line breaks may be
// written "/crlf/".
struct NewProjectInfo {
    std::string name;
    std::string author;
    std::string website;
    std::string email;
    std::string description;
};

// Fills the model with a playable skeleton; doesn't save. Settings not named here are false,
// 0 or blank.
void SetProjectDefaults(ProjectModel &model, const NewProjectInfo &info,
                        const HostScreen &screen = {});
// The creation step's standard services and side-menu tools.
void AddStandardServicesAndTools(ProjectModel &model);

inline constexpr std::string_view kMissingNameOrAuthor =
    "Please enter a 'Project Name' and 'Project Author'.";
inline constexpr std::string_view kProjectAlreadyExists = "A project with that name already exists.";

struct CreateResult {
    bool created = false;
    std::string message; // why not, in the system's own words
};

// The wizard's create button: refuses a blank name or author and an existing project, makes
// the application tree, fills the defaults, the services and the tools, and saves.
CreateResult CreateProject(ProjectModel &model, const AppPaths &paths, const NewProjectInfo &info,
                           const HostScreen &screen = {});

} // namespace orrery
