// Reading a project file into the model.
#pragma once

#include "foundation/paths.h"
#include "project/model.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace orrery {

struct LoadReport {
    bool found = false;    // the project file could be read
    std::string error;     // why not, for a person: "<file>: no such project", or why unreadable
    std::size_t lines = 0; // lines treated
    // The menu designer's form size as the file holds it; 0 where it holds none. The model
    // takes the screen's instead.
    std::int32_t savedMenuWidth = 0;
    std::int32_t savedMenuHeight = 0;
};

// Reads the project of that name into the model, which only ever grows: nothing is cleared,
// the element count goes on, and a line that fails to convert leaves its target as it was.
// A missing file leaves the model as it was. Afterwards a blank top menu gets its default, and
// a project without its layout screen size counts as made for the host's screen.
LoadReport LoadProject(ProjectModel &model, const AppPaths &paths, std::string_view name,
                       const HostScreen &screen = {});

// The same from the bytes of a project file already in memory; with a report, its menu size.
std::size_t LoadProjectText(ProjectModel &model, std::string_view name, std::string_view bytes,
                            const HostScreen &screen = {}, LoadReport *report = nullptr);

inline constexpr std::string_view kDefaultTopMenu =
    "File//-Exit=exit//Edit//-Cut=cut//-Copy=copy//-Paste=paste";

} // namespace orrery
