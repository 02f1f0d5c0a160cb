// Adding, removing and excluding tools.
#include "editor/tools.h"

#include "editor/places.h"
#include "editor/text.h"
#include "editor/words.h"
#include "foundation/text.h"
#include "project/elementprops.h"

namespace orrery {

namespace {

constexpr int kToolListLimit = 99;


std::vector<std::string> ExclusionList(const ProjectSettings &s) {
    std::vector<std::string> names;
    for (std::int16_t i = 1;; ++i) {
        const std::string name = FieldBy(s.mysideexludelist, i, "//");
        if (name.empty() &&
            FieldBy(s.mysideexludelist, static_cast<std::int16_t>(i + 1), "//").empty())
            break;
        if (!IsBlank(name)) names.push_back(Trim(name));
    }
    return names;
}

std::string JoinExclusions(const std::vector<std::string> &names) {
    std::string list;
    for (const std::string &name : names) list += (list.empty() ? "" : "//") + name;
    return list;
}

} // namespace

int FindTool(const ProjectModel &model, std::string_view name) {
    const std::string wanted = NormText(name);
    for (int slot = 1; slot <= decltype(model.ToolNameTable)::kSize; ++slot)
        if (!IsBlank(model.ToolNameTable[slot]) && NormText(model.ToolNameTable[slot]) == wanted)
            return slot;
    return 0;
}

std::vector<std::string> ToolNames(const ProjectModel &model) {
    std::vector<std::string> names;
    for (const std::string &name : model.ToolNameTable)
        if (!IsBlank(name)) names.push_back(name);
    return names;
}

Outcome AddTool(ProjectModel &model, std::string_view typed) {
    Transaction t(model, "Add Tool");
    if (static_cast<int>(ToolNames(model).size()) >= kToolListLimit)
        return t.Refuse(words::kTooManyTools);
    const std::string name = Trim(typed);
    if (name != "-" && FindTool(model, name)) return t.Refuse(words::kToolExists);
    if (name.empty()) return t.Commit();
    if (auto problem = UnwritableName(name)) return t.Refuse(*problem);
    t.Set(place::Slot(&ProjectModel::ToolNameTable, FreeToolNameSlot(model)), name);
    return t.Commit();
}

Outcome RemoveTool(ProjectModel &model, std::string_view name) {
    Transaction t(model, "Remove Tool");
    const int slot = FindTool(model, name);
    if (!slot) return t.Refuse(words::kNoSuchTool);
    const std::string tag = ToolTag(model.ToolNameTable[slot]);
    t.Set(place::Slot(&ProjectModel::ToolNameTable, slot), std::string());
    for (int row = 1; row <= kElementRows; ++row)
        if (RowOfTool(model.Element(row), tag)) t.Set(place::ElementRowAt(row), ElementRow{});
    for (int sub = 1; sub <= decltype(model.ToolSubTable)::kSize; ++sub)
        if (!IsBlank(model.ToolSubTable[sub].key) &&
            ToolTag(FieldAt(model.ToolSubTable[sub].key, 1)) == tag)
            t.Set(place::Slot(&ProjectModel::ToolSubTable, sub), ToolSub{});
    return t.Commit({words::kRestartAfterToolRemoval});
}

Outcome ExcludeTool(ProjectModel &model, std::string_view name, bool excluded) {
    Transaction t(model, excluded ? "Exclude Tool" : "Include Tool");
    const int slot = FindTool(model, name);
    if (!slot) return t.Refuse(words::kNoSuchTool);
    const std::string tool = model.ToolNameTable[slot];
    std::vector<std::string> names = ExclusionList(model.settings);
    std::erase_if(names, [&](const std::string &n) { return NormText(n) == NormText(tool); });
    if (excluded) names.push_back(Trim(tool));
    t.Set(place::Setting(&ProjectSettings::mysideexludelist), JoinExclusions(names));
    return t.Commit();
}

} // namespace orrery
