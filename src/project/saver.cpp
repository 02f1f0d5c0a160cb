// SaveProject: the model in the writing order of the project file.
#include "project/saver.h"

#include "foundation/convert.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "project/keytable.h"

#include <array>
#include <ctime>
#include <system_error>

namespace orrery {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

void Line(std::string &out, std::string_view a, std::string_view b = {}, std::string_view c = {},
          std::string_view d = {}) {
    out += a;
    out += b;
    out += c;
    out += d;
    out += kLineEnd;
}

void WriteKeys(std::string &out, const ProjectSettings &settings, KeyGroup group) {
    for (const SettingKey &key : SettingKeys())
        if (key.group == group) WriteSetting(out, settings, key);
}

void WriteMenuImages(std::string &out, const ProjectModel &m) {
    int n = 0;
    for (const MenuImage &image : m.menuImages) {
        if (IsBlank(image.file)) continue;
        const std::string count = IntText(++n) + ":";
        Line(out, "menuimagetag:", count, Trim(image.file));
        Line(out, "menuimageleft:", count, IntText(image.left));
        Line(out, "menuimagetop:", count, IntText(image.top));
        Line(out, "menuimagedatafield:", count, Trim(image.dataField));
    }
}

void WriteMenuLabels(std::string &out, const ProjectModel &m) {
    int n = 0;
    for (const MenuLabel &label : m.MenuLabelTable) {
        if (IsBlank(label.caption)) continue;
        const std::string count = IntText(++n) + ":";
        for (const MenuLabelKey &key : MenuLabelKeys()) WriteMenuLabelField(out, label, key, count);
    }
}

// "element:" or "action:action:" in a property: text left by older forms. Both end in a colon,
// so only the colons of the property are visited, and a property has few.
bool HasOldForm(std::string_view property) {
    for (std::size_t colon = property.find(':'); colon != std::string_view::npos;
         colon = property.find(':', colon + 1)) {
        const std::string_view upToColon = property.substr(0, colon + 1);
        if (upToColon.ends_with("element:") || upToColon.ends_with("action:action:")) return true;
    }
    return false;
}

// IsNumeric of a property's first field, mostly a key such as "caption". A number starts with
// a digit, a sign, a point or the "&" of "&H" and "&O", so any other first character answers
// at once.
bool FirstFieldIsNumber(std::string_view property) {
    const std::size_t first = property.find_first_not_of(' ');
    if (first == std::string_view::npos) return false;
    if (std::string_view("0123456789+-.&").find(property[first]) == std::string_view::npos)
        return false;
    return IsNumeric(FieldView(property, 1));
}

// The clean-up of a property, which repairs text left by older forms. Answers whether the
// property may still hold "element:": only the repair can leave one, since an "action:" put in
// front can't complete one and a third field holds no colon.
bool CleanProperty(std::string &property, int column) {
    const bool repaired = HasOldForm(property);
    if (repaired) {
        property = ReplaceAll(property, "element:", "");
        property = ReplaceAll(property, "action:action:", "action:");
    }
    if (column == kActionColumn && !NormTextContains(property, "action:"))
        property.insert(0, "action:");
    if (FirstFieldIsNumber(property)) property = FieldAt(property, 3);
    return repaired;
}

const std::string &ElementPrefix(int column) {
    static const auto prefixes = [] {
        std::array<std::string, kPropertyColumns + 1> all;
        for (int c = 1; c <= kPropertyColumns; ++c) all[c] = "element:" + IntText(c) + ":";
        return all;
    }();
    return prefixes[static_cast<std::size_t>(column)];
}

// Whether the clean-up would change the property: most are clean and are written as they
// stand, without a copy.
bool NeedsCleaning(const std::string &property, int column) {
    return HasOldForm(property) ||
           (column == kActionColumn && !NormTextContains(property, "action:")) ||
           FirstFieldIsNumber(property);
}

// A property as the clean-up leaves it, with the "element:<column>:" prefix unless it holds one.
void WriteProperty(std::string &out, const std::string &stored, int column) {
    const std::string &prefix = ElementPrefix(column);
    if (!NeedsCleaning(stored, column)) {
        Line(out, prefix, stored);
        return;
    }
    std::string property = stored;
    const bool mayHoldPrefix = CleanProperty(property, column);
    if (mayHoldPrefix && InStr(property, prefix))
        Line(out, property);
    else
        Line(out, prefix, property);
}

// Elements without an owning tool are dropped.
template <typename Each> void ForEachWrittenElement(const ProjectModel &m, Each each) {
    for (int row = 1; row <= kElementRows; ++row)
        if (!IsBlank(m.Element(row)[kToolColumn])) each(row);
}

void WriteElements(std::string &out, const ProjectModel &m) {
    ForEachWrittenElement(m, [&](int row) {
        const ElementRow &element = m.Element(row);
        Line(out, "[newel]:", FieldView(element[kKindColumn], 1), ":", element[kNameColumn]);
        for (int column = 1; column <= kPropertyColumns; ++column) {
            const std::string &property = element[static_cast<std::size_t>(column)];
            if (!IsBlank(property)) WriteProperty(out, property, column);
        }
        out += kLineEnd;
    });
}

// A tool event's key never holds "action:"; older forms left one.
std::string ToolSubKey(const std::string &key) {
    return InStr(key, "action:") ? ReplaceAll(key, "action:", "") : key;
}

template <typename Table>
void WriteRecords(std::string &out, const Table &table, std::string_view prefix) {
    for (const std::string &record : table)
        if (!IsBlank(record)) Line(out, prefix, TrimView(record));
}

void Heading(std::string &out, std::string_view heading) {
    out += kLineEnd;
    Line(out, heading);
    out += kLineEnd;
}

void WriteSections(std::string &out, const ProjectModel &m) {
    Heading(out, "[tools]");
    WriteElements(out, m);
    Heading(out, "[dynamics]");
    WriteRecords(out, m.DynamicTable, "");
    Heading(out, "[help]");
    WriteRecords(out, m.HelpTable, "helpme:");
    Heading(out, "[qlobs]");
    WriteRecords(out, m.QlobTable, "qlob:");
    Heading(out, "[quantumlocks]");
    WriteRecords(out, m.QuantumLockTable, "quantumlock:");
    Heading(out, "[services]");
    WriteRecords(out, m.ServiceTable, "service:");
    Heading(out, "[variables]");
    for (const Variable &variable : m.VariableTable)
        if (!IsBlank(variable.name))
            Line(out, "variable:", TrimView(variable.name), "=", TrimView(variable.value));
    Heading(out, "[custom servers]");
    WriteRecords(out, m.CustomServerTable, "customserver:");
    Heading(out, "[toolsubs]");
    for (const ToolSub &sub : m.ToolSubTable)
        if (!IsBlank(sub.key))
            Line(out, "toolsub:", Trim(ToolSubKey(sub.key)), ":", Trim(sub.sequence));
}

} // namespace

void NormaliseForSave(ProjectModel &m) {
    ForEachWrittenElement(m, [&](int row) {
        ElementRow &element = m.Element(row);
        for (int column = 1; column <= kPropertyColumns; ++column) {
            std::string &property = element[static_cast<std::size_t>(column)];
            if (!IsBlank(property)) CleanProperty(property, column);
        }
    });
    for (ToolSub &sub : m.ToolSubTable)
        if (!IsBlank(sub.key)) sub.key = ToolSubKey(sub.key);
}

std::string BuildProjectText(const ProjectModel &m) {
    std::string out;
    out.reserve(64 * 1024);
    WriteKeys(out, m.settings, KeyGroup::Head);
    WriteMenuImages(out, m);
    WriteMenuLabels(out, m);
    WriteKeys(out, m.settings, KeyGroup::ToolsMenu);
    int n = 0;
    for (const std::string &caption : m.ToolNameTable)
        if (!IsBlank(caption)) Line(out, "mytoolcaption:", IntText(++n), ":", Trim(caption));
    WriteRecords(out, m.ServerFieldTable, "serverfield:");
    WriteKeys(out, m.settings, KeyGroup::Style);
    WriteSections(out, m);
    return out;
}

std::string CurrentDateTimeText() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y/%m/%d %H:%M:%S", &local);
    return text;
}

SaveResult SaveProject(ProjectModel &model, const AppPaths &paths, std::string_view mode, int go) {
    return SaveProject(model, paths, mode, go, CurrentDateTimeText());
}

SaveResult SaveProject(ProjectModel &model, const AppPaths &paths, std::string_view mode, int go,
                       std::string_view nowText) {
    SaveResult result;
    if (go != 1) return result;
    if (model.scrambled) {
        result.status = SaveStatus::ReadOnly;
        return result;
    }
    const std::string &name = model.settings.myprojectname;
    model.lastSavedName = name;
    result.status = SaveStatus::Failed;
    if (const std::string problem = NameProblem(name, NameKind::Project); !problem.empty()) {
        result.error = UnusableName(name, NameKind::Project, problem);
        return result;
    }
    const auto file = paths.ProjectFile(name);
    if (!file || !paths.MakeProjectDir(name)) {
        result.error = (file ? file->parent_path() : paths.DataPath()).string() +
                       ": cannot make the project's folder";
        return result;
    }
    result.file = *file;
    // The text is built from the model as it stands and the model tidied after: the clean-up
    // of a legacy property can change it again a second time, and the file must hold one pass.
    std::string text = BuildProjectText(model);
    text += kLineEnd;
    NormaliseForSave(model);
    if (!ReplaceFileAtomically(*file, text)) {
        result.error = file->string() + ": cannot write the project file; the old one is kept";
        return result;
    }
    result.status = SaveStatus::Saved;
    if (NormText(mode) != "backup") return result;
    const std::string backupName = BackupFileName(name, nowText);
    const auto component = SafeComponent(backupName);
    std::error_code error;
    std::filesystem::create_directories(paths.BackupPath(), error);
    if (component && ReplaceFileAtomically(paths.BackupPath() / *component, text))
        result.backup = paths.BackupPath() / *component;
    else
        result.error = "cannot write the backup " + (paths.BackupPath() / backupName).string();
    return result;
}

} // namespace orrery
