// Variables, qlobs, tool assignments, the start-up sequence, help topics and settings.
#include "editor/sequences.h"

#include "editor/places.h"
#include "editor/text.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/text.h"
#include "project/elementprops.h"
#include "project/keytable.h"

#include <algorithm>

namespace orrery {

namespace {

constexpr int kVariableListLimit = 250;

int CountVariables(const ProjectModel &model) {
    return static_cast<int>(std::count_if(model.VariableTable.begin(), model.VariableTable.end(),
                                          [](const Variable &v) { return !IsBlank(v.name); }));
}

int FindVariable(const ProjectModel &model, std::string_view name) {
    const std::string wanted = NormText(name);
    for (int slot = 1; slot <= kVariableRows; ++slot)
        if (!IsBlank(model.VariableTable[slot].name) &&
            NormText(model.VariableTable[slot].name) == wanted)
            return slot;
    return 0;
}

std::string DollarName(std::string_view typed) {
    std::string name = Trim(typed);
    if (!name.starts_with('$')) name.insert(0, "$");
    return name;
}

// Stores a variable's default value in its slot: a value the file cannot hold is refused, and
// underscores become dashes, with a note.
Outcome StoreVariable(Transaction &t, int slot, const std::string &name,
                      std::string_view typedValue) {
    std::string value(typedValue);
    if (value.find('=') != std::string::npos || UnwritableValue(value))
        return t.Refuse(words::kUnwritableValue);
    std::vector<Message> notes;
    if (value.find('_') != std::string::npos) {
        notes.push_back(words::kUnderscoresToDashes);
        std::replace(value.begin(), value.end(), '_', '-');
    }
    t.Set(place::Slot(&ProjectModel::VariableTable, slot), Variable{name, Trim(value)});
    return t.Commit(std::move(notes));
}

int FindToolSub(const ProjectModel &model, std::string_view key) {
    for (int slot = 1; slot <= decltype(model.ToolSubTable)::kSize; ++slot)
        if (!IsBlank(model.ToolSubTable[slot].key) &&
            NormNoSpaces(model.ToolSubTable[slot].key) == key)
            return slot;
    return 0;
}

int FindHelp(const ProjectModel &model, std::string_view title) {
    for (int slot = 1; slot <= decltype(model.HelpTable)::kSize; ++slot)
        if (!IsBlank(model.HelpTable[slot]) &&
            NormText(FieldAt(model.HelpTable[slot], 1)) == NormText(title))
            return slot;
    return 0;
}

} // namespace

std::string QlobName(std::string_view typed) {
    std::string name = Trim(typed);
    std::replace(name.begin(), name.end(), ' ', '_');
    return UpperCase(name);
}

Outcome AddXVar(ProjectModel &model, std::string_view typed, std::string_view typedValue) {
    Transaction t(model, "New Variable");
    if (Trim(typed).empty()) return t.Commit();
    const std::string name = DollarName(typed);
    if (CountVariables(model) >= kVariableListLimit) return t.Refuse(words::kTooManyVariables);
    if (auto problem = UnwritableName(name)) return t.Refuse(*problem);
    if (name.find('=') != std::string::npos) return t.Refuse(words::kUnwritableValue);
    if (FindVariable(model, name)) return t.Refuse(words::kVariableExists);
    return StoreVariable(t, FirstFreeVariable(model), name, typedValue);
}

Outcome SetVarValue(ProjectModel &model, std::string_view name, std::string_view value) {
    Transaction t(model, "Variable Value");
    const int slot = FindVariable(model, DollarName(name));
    if (!slot) return t.Refuse(words::kNoSuchVariable);
    return StoreVariable(t, slot, model.VariableTable[slot].name, value);
}

Outcome RemoveVar(ProjectModel &model, std::string_view name) {
    Transaction t(model, "Remove Variable");
    const int slot = FindVariable(model, DollarName(name));
    if (!slot) return t.Refuse(words::kNoSuchVariable);
    t.Set(place::Slot(&ProjectModel::VariableTable, slot), Variable{});
    return t.Commit();
}

int FindQlobByName(const ProjectModel &model, std::string_view name) {
    const std::string wanted = NormText(name);
    if (wanted.empty()) return 0;
    for (int slot = 1; slot <= decltype(model.QlobTable)::kSize; ++slot) {
        const std::string &record = model.QlobTable[slot];
        if (!IsBlank(record) && NormText(FieldBy(TrimView(record), 1, " ")) == wanted) return slot;
    }
    return 0;
}

Outcome AddQlob(ProjectModel &model, std::string_view typed) {
    Transaction t(model, "New Qlob");
    const std::string name = QlobName(typed);
    if (name.empty()) return t.Commit();
    if (auto problem = UnwritableName(name)) return t.Refuse(*problem);
    if (FindQlobByName(model, name)) return t.Refuse(words::kQlobExists);
    const int slot = FirstFreeSlot(model.QlobTable, 0);
    if (!slot) return t.Refuse(words::kTooManyQlobs);
    t.Set(place::Slot(&ProjectModel::QlobTable, slot), name);
    return t.Commit();
}

Outcome SetQlob(ProjectModel &model, std::string_view name, std::string_view statements) {
    Transaction t(model, "Edit Qlob");
    const int slot = FindQlobByName(model, QlobName(name));
    if (!slot) return t.Refuse(words::kNoSuchQlob);
    std::string record = QlobName(name) + " ";
    const std::string text = StorableSequence(statements);
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find('`', from), text.size());
        const std::string_view line = std::string_view(text).substr(from, end - from);
        if (!IsBlank(line)) record.append(line).append("`");
        from = end + 1;
    }
    t.Set(place::Slot(&ProjectModel::QlobTable, slot), record);
    return t.Commit();
}

Outcome RemoveQlob(ProjectModel &model, std::string_view name) {
    Transaction t(model, "Remove Qlob");
    const int slot = FindQlobByName(model, QlobName(name));
    if (!slot) return t.Refuse(words::kNoSuchQlob);
    t.Set(place::Slot(&ProjectModel::QlobTable, slot), std::string());
    return t.Commit();
}

Outcome SetToolSub(ProjectModel &model, std::string_view tool, std::string_view event,
                   std::string_view statements) {
    Transaction t(model, "Assign Tool Sub");
    const std::string sub = NormText(event);
    if (std::find(kToolSubs.begin(), kToolSubs.end(), sub) == kToolSubs.end())
        return t.Refuse(words::kNoSubChosen);
    if (!FindTool(model, tool)) return t.Refuse(words::kNoSuchTool);
    // The run-time finds a tool's assignments by the tool's name without blanks: a key with a
    // blank in it would never fire.
    const std::string key = ToolTag(tool) + ":" + sub;
    const std::string sequence = Trim(StorableSequence(statements));
    const int slot = FindToolSub(model, key);
    if (sequence.empty()) {
        if (slot) t.Set(place::Slot(&ProjectModel::ToolSubTable, slot), ToolSub{});
        return t.Commit();
    }
    const int target = slot ? slot : FirstFreeSlot(model.ToolSubTable, 0);
    if (!target) return t.Refuse(words::kTooManyToolSubs);
    t.Set(place::Slot(&ProjectModel::ToolSubTable, target), ToolSub{key, sequence});
    return t.Commit();
}

std::string ToolSubSequence(const ProjectModel &model, std::string_view tool,
                            std::string_view event) {
    const int slot = FindToolSub(model, ToolTag(tool) + ":" + NormText(event));
    return slot ? model.ToolSubTable[slot].sequence : std::string();
}

Outcome SetMainLoad(ProjectModel &model, std::string_view statements) {
    Transaction t(model, "Assign Startup Commands");
    t.Set(place::Setting(&ProjectSettings::mymainsubload), Trim(StorableSequence(statements)));
    return t.Commit();
}

Outcome SetHelp(ProjectModel &model, std::string_view typedTitle, std::string_view typedText) {
    Transaction t(model, "Edit Help");
    const std::string title = Trim(typedTitle);
    if (title.empty()) return t.Commit();
    if (auto problem = UnwritableName(title)) return t.Refuse(*problem);
    std::string text = ReplaceAll(ReplaceAll(typedText, "\r\n", "//"), "\n", "//");
    if (text.find_first_of("\r\t") != std::string::npos ||
        UnwritableValue(ReplaceAll(text, ":", "")))
        return t.Refuse(words::kUnwritableValue);
    int slot = FindHelp(model, title);
    if (!slot) slot = FirstFreeSlot(model.HelpTable, 0);
    if (!slot) return t.Refuse(words::kTooManyHelpTopics);
    t.Set(place::Slot(&ProjectModel::HelpTable, slot), title + ":" + text);
    return t.Commit();
}

Outcome RemoveHelp(ProjectModel &model, std::string_view title) {
    Transaction t(model, "Remove Help");
    const int slot = FindHelp(model, title);
    if (!slot) return t.Refuse({"Error", "There is no help topic of that title."});
    t.Set(place::Slot(&ProjectModel::HelpTable, slot), std::string());
    return t.Commit();
}

Outcome FillListing(ProjectModel &model) {
    Transaction t(model, "Listing");
    ProjectSettings filled = model.settings;
    for (std::string *text : {&filled.myprojectdescriptionshort, &filled.myprojectdescriptionmedium,
                              &filled.myprojectdescriptionlong})
        if (IsBlank(*text)) *text = filled.myprojectdescription;
    if (IsBlank(filled.myprojectkeywords)) filled.myprojectkeywords = "hacking, hackers";
    if (filled != model.settings)
        t.Set([](ProjectModel &m) -> ProjectSettings & { return m.settings; }, std::move(filled));
    return t.Commit();
}

Outcome SetSetting(ProjectModel &model, std::string_view key, std::string_view value) {
    return SetSettings(model, {{std::string(key), std::string(value)}});
}

Outcome SetSettings(ProjectModel &model,
                    const std::vector<std::pair<std::string, std::string>> &values) {
    Transaction t(model, values.size() == 1 ? "Change Setting" : "Change Settings");
    ProjectSettings changed = model.settings;
    for (const auto &[key, value] : values) {
        const SettingKey *setting = FindSettingKey(NormText(key));
        if (!setting || setting->code == ValueCode::ProjectName ||
            setting->code == ValueCode::WrittenOnly)
            return t.Refuse({"Error", "There is no setting \"" + key + "\"."});
        if (auto problem = UnwritableValue(value)) return t.Refuse(*problem);
        ReadSetting(changed, *setting, std::string(setting->name) + ":" + value);
    }
    if (changed != model.settings)
        t.Set([](ProjectModel &m) -> ProjectSettings & { return m.settings; }, std::move(changed));
    return t.Commit();
}

} // namespace orrery
