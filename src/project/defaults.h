// What a new project starts with, and the wizard's creation step.
#pragma once

#include <string>
#include <vector>

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
    std::vector<std::string> missingStock; // stock files neither tree had, relative to the root
};

// The files every application folder carries, relative to its root: the generator's word
// lists and the pictures a new project's settings name.
const std::vector<std::string> &StockFiles();
// Copies each stock file that `to` lacks from `from`, never replacing one; returns those that
// neither has.
std::vector<std::string> CopyStock(const AppPaths &from, const AppPaths &to);

// The wizard's create button: refuses a blank name or author and an existing project, makes
// the application tree, fills the defaults, the services and the tools, and saves. With a
// stock folder, a new tree gets the stock files it lacks from there.
CreateResult CreateProject(ProjectModel &model, const AppPaths &paths, const NewProjectInfo &info,
                           const HostScreen &screen = {}, const AppPaths *stock = nullptr);

} // namespace orrery
