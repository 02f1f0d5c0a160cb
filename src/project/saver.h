// Writing the project model to its file, with dated backups.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "foundation/paths.h"
#include "project/model.h"

namespace orrery {

enum class SaveStatus {
    NotAsked, // go wasn't 1: nothing done
    ReadOnly, // the project came from a distribution's scrambled file: never written
    Saved,
    Failed,
};

struct SaveResult {
    SaveStatus status = SaveStatus::NotAsked;
    std::filesystem::path file;
    std::filesystem::path backup; // empty unless a backup was written
    std::string error;            // for a person, naming the file
};

// Writes the whole model to the project's settings.dat when go is 1, replacing the file
// atomically; a name that NameProblem refuses is not saved; with mode "backup" (any case, blanks
// allowed) also a dated copy under _autobackup. Once the text is built, NormaliseForSave brings
// the model in line with what was written.
SaveResult SaveProject(ProjectModel &model, const AppPaths &paths, std::string_view mode, int go);
// The same with the date and time given as text, for a predictable backup name.
SaveResult SaveProject(ProjectModel &model, const AppPaths &paths, std::string_view mode, int go,
                       std::string_view nowText);

// The text of the project file, without the final line end that writing adds. Element
// properties and tool events are written as the clean-up of NormaliseForSave leaves them.
std::string BuildProjectText(const ProjectModel &model);
// The writer's clean-up, applied to the model: element properties left in older forms are
// repaired ("element:" and a doubled "action:" removed, a numbered "<column>:<key>:<value>"
// cut to its value, the action given its key) and tool events lose any "action:".
void NormaliseForSave(ProjectModel &model);

// The local date and time as "YYYY/MM/DD hh:mm:ss".
std::string CurrentDateTimeText();

} // namespace orrery
