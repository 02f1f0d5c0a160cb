// Adding, removing and excluding tools.
#include "editor/tools.h"

#include "editor/places.h"
#include "editor/text.h"
#include "editor/words.h"
#include "foundation/text.h"
#include "project/elementprops.h"

#include <algorithm>

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

std::string JoinList(const std::vector<std::string> &names, std::string_view separator) {
    std::string list;
    for (const std::string &name : names) {
        if (!list.empty()) list += separator;
        list += name;
    }
    return list;
}

// The hidden list's entries, separated by colons as the reader keeps them.
std::vector<std::string> HiddenList(const ProjectSettings &s) {
    std::vector<std::string> names;
    for (std::size_t from = 0; from <= s.myhiddentools.size();) {
        const std::size_t end = std::min(s.myhiddentools.find(':', from), s.myhiddentools.size());
        const std::string name = Trim(std::string_view(s.myhiddentools).substr(from, end - from));
        if (!name.empty()) names.push_back(name);
        from = end + 1;
    }
    return names;
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
    t.Set(place::Setting(&ProjectSettings::mysideexludelist), JoinList(names, "//"));
    return t.Commit();
}

Outcome HideTool(ProjectModel &model, std::string_view name, bool hidden) {
    Transaction t(model, hidden ? "Hide Tool" : "Show Tool");
    const int slot = FindTool(model, name);
    if (!slot) return t.Refuse(words::kNoSuchTool);
    const std::string tag = ToolTag(model.ToolNameTable[slot]);
    std::vector<std::string> names = HiddenList(model.settings);
    std::erase_if(names, [&](const std::string &n) { return ToolTag(n) == tag; });
    if (hidden) names.push_back(NormText(model.ToolNameTable[slot]));
    // In the form the reader gives the line, so that a reload finds the same text.
    t.Set(place::Setting(&ProjectSettings::myhiddentools), NormText(JoinList(names, ":")));
    return t.Commit();
}

Outcome MoveTool(ProjectModel &model, int slot, bool up) {
    Transaction t(model, up ? "Move Tool Up" : "Move Tool Down");
    auto &table = model.ToolNameTable;
    if (!table.Contains(slot) || IsBlank(table[slot])) return t.Refuse(words::kNoSuchTool);
    const int step = up ? -1 : 1;
    int other = slot + step;
    while (table.Contains(other) && IsBlank(table[other])) other += step;
    if (!table.Contains(other)) return t.Commit();
    const std::string moving = table[slot];
    t.Set(place::Slot(&ProjectModel::ToolNameTable, slot), table[other]);
    t.Set(place::Slot(&ProjectModel::ToolNameTable, other), moving);
    return t.Commit();
}

} // namespace orrery
