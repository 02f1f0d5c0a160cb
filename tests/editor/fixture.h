// What the editor's tests start from: a new project, and the text of its file.
#pragma once

#include "project/defaults.h"
#include "project/saver.h"

namespace orrery::test {

inline ProjectModel NewProject() {
    ProjectModel model;
    SetProjectDefaults(model, {"Test", "Author", "", "", ""});
    AddStandardServicesAndTools(model);
    return model;
}

inline std::string FileText(const ProjectModel &model) {
    ProjectModel copy = model;
    return BuildProjectText(copy);
}

} // namespace orrery::test
