// The orrery tool's commands on worlds: generating a template and looking things up in one.
#pragma once

#include "foundation/paths.h"
#include "project/model.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace orrery {

// Generates the loaded project's world template into <app-dir>/Data/S, progress on err.
int GenerateCommand(const AppPaths &paths, const ProjectModel &model, std::ostream &out,
                    std::ostream &err);

// The lookups a world folder answers, one answer per line.
inline const std::vector<std::string> kWorldQueries = {
    "resolve-ip", "resolve-hostname", "exists", "property", "random-ip", "random-hostname"};
int WorldCommand(const std::string &folder, const std::string &query,
                 const std::vector<std::string> &args, std::ostream &out, std::ostream &err);

} // namespace orrery
