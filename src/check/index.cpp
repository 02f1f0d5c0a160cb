// The project's names, indexed once for every statement the checker reads.
#include "actions/statement.h"
#include "check/checker.h"
#include "foundation/codepage.h"
#include "foundation/paths.h"
#include "foundation/text.h"
#include "project/elementprops.h"

#include <filesystem>

namespace orrery::check {

namespace {

// The file names of a folder, lower-cased in the system's own code page.
TextSet FolderFiles(const std::filesystem::path &folder) {
    TextSet files;
    std::error_code error;
    for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end;
         it.increment(error))
        files.insert(LowerCase(Utf8ToCp1252(it->path().filename().string())));
    return files;
}

void IndexQlobs(ProjectIndex &index, const ProjectModel &model) {
    index.qlobNames.assign(decltype(model.QlobTable)::kSize + 1, {});
    for (int slot = 1; slot <= decltype(model.QlobTable)::kSize; ++slot) {
        const std::string norm = NormText(model.QlobTable[slot]);
        if (norm.empty()) continue;
        const std::string name = norm.substr(0, norm.find(' '));
        // A call runs the first qlob whose name form begins with the called name.
        for (std::size_t length = 1; length <= name.size(); ++length)
            index.qlobPrefix.try_emplace(name.substr(0, length), slot);
        index.qlobNames[static_cast<std::size_t>(slot)] = name;
    }
}

void IndexVariables(ProjectIndex &index, const ProjectModel &model) {
    for (int slot = 1; slot <= kVariableRows; ++slot) {
        const std::string name = NormText(model.VariableTable[slot].name);
        if (name.empty()) continue;
        index.variables.try_emplace(name, slot);
        if (HasParens(name)) index.variableStems.insert(name.substr(0, name.find('(')));
    }
}

} // namespace

bool ProjectIndex::ToolExists(std::string_view name) const {
    return toolNames.contains(NormText(name)) || toolTags.contains(ToolTag(name));
}

int ProjectIndex::ElementRow(std::string_view name) const {
    const auto found = elements.find(NormText(name));
    return found == elements.end() ? 0 : found->second;
}

bool ProjectIndex::Declared(std::string_view name) const {
    return variables.contains(name) || variableStems.contains(name);
}

ProjectIndex BuildIndex(const ProjectModel &model, const AppPaths *paths) {
    ProjectIndex index;
    index.model = &model;
    for (const std::string &tool : model.ToolNameTable) {
        if (IsBlank(tool)) continue;
        index.toolNames.insert(NormText(tool));
        index.toolTags.insert(ToolTag(tool));
    }
    for (int row = 1; row <= kElementRows; ++row) {
        const std::string &name = model.Element(row)[kNameColumn];
        if (!IsBlank(name)) index.elements.try_emplace(NormText(name), row);
    }
    IndexQlobs(index, model);
    IndexVariables(index, model);
    std::size_t count = 0;
    const std::string_view *names = DispatchNames(count);
    index.dispatchNames.insert(names, names + count);
    std::error_code error;
    if (paths && std::filesystem::is_directory(paths->ResPath(), error)) {
        index.media.emplace();
        for (std::size_t i = 0; i < kMediaFolders.size(); ++i)
            (*index.media)[i] = FolderFiles(paths->ResPath() / kMediaFolders[i]);
    }
    return index;
}

std::optional<bool> MediaExists(const ProjectIndex &index, MediaFolder folder,
                                std::string_view file) {
    if (!index.media) return std::nullopt;
    const std::string name = Trim(file);
    // A picture is named by its file name alone: a path leads nowhere the run-time looks.
    if (name.find_first_of("/\\") != std::string::npos) return false;
    return (*index.media)[static_cast<std::size_t>(folder)].contains(LowerCase(name));
}

} // namespace orrery::check
