// The project checker.
#include "check/check.h"

#include "foundation/paths.h"
#include "project/model.h"

namespace orrery {

std::vector<Finding> CheckProject(const ProjectModel &, std::string_view, const AppPaths &) {
    return {};
}

std::vector<Finding> CheckStatement(const ProjectModel &, std::string_view,
                                    std::span<const std::string>) {
    return {};
}

} // namespace orrery
