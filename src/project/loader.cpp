// LoadProject: every line of a project file, plain or scrambled, to its place in the model.
#include "project/loader.h"

#include "foundation/convert.h"
#include "foundation/scramble.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "project/elementprops.h"
#include "project/keytable.h"

#include <algorithm>
#include <array>

namespace orrery {

namespace {

struct RecordKey;

// The state of one reading pass. The cursors remember, per table, the slot before which every
// slot is taken, so that each record's search for a free slot doesn't start again at slot 1;
// the answers are those of a scan from slot 1, since reading never frees a slot.
struct Reader {
    explicit Reader(ProjectModel &m) : model(m) {}

    ProjectModel &model;
    int toolNameCursor = 1;
    int qlobCursor = 1;
    int variableCursor = 1;
    int serviceCursor = 1;
    int helpCursor = 1;
    int dynamicCursor = 1;
    int quantumLockCursor = 1;
    int customServerCursor = 1;
    int toolSubCursor = 1;
    std::string key;         // the key of the line in hand, in its comparison form
    std::string unscrambled; // the line in hand of a scrambled file
    LoadReport *report = nullptr; // takes the keys the model passes over
    // Records come in runs of one key, so the key of the last record is tried first.
    const RecordKey *lastRecord = nullptr;
};

template <typename Table> int NextFree(const Table &table, int whenFull, int &cursor) {
    const int slot = FirstFreeSlot(table, whenFull, cursor);
    if (Table::Contains(slot)) cursor = slot;
    return slot;
}

// A whole-line record: every "<key>:" removed from the line, the rest trimmed and kept.
template <typename Table>
void StoreWholeLine(Table &table, int whenFull, int &cursor, std::string_view line,
                    std::string_view keyWithColon) {
    const int slot = NextFree(table, whenFull, cursor);
    if (Table::Contains(slot)) table[slot] = Trim(ReplaceAll(line, keyWithColon, ""));
}

// Fields 1 to N of a line split at every ":", found in one pass; a field past the last is
// empty, as FieldView gives it.
template <std::size_t N> std::array<std::string_view, N> LeadingFields(std::string_view line) {
    std::array<std::string_view, N> fields{};
    std::size_t n = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i < line.size() && n < N; ++i) {
        if (line[i] != ':') continue;
        fields[n++] = line.substr(start, i - start);
        start = i + 1;
    }
    if (n < N) fields[n] = line.substr(start);
    return fields;
}

std::string JoinFields34(std::string_view line) {
    return FieldAt(line, 3) + ":" + FieldAt(line, 4);
}

void NewElement(Reader &r, std::string_view line) {
    ProjectModel &m = r.model;
    ++m.elementCount;
    m.propertyCount = 0;
    if (m.elementCount > kElementRows) return; // past the table's end: the element vanishes
    ElementRow &row = m.Element(m.elementCount);
    static constexpr std::array<std::string_view, 5> kNumbered = {"button", "label", "text", "list",
                                                                  "image"};
    const std::string type = NormText(FieldAt(line, 2));
    if (std::find(kNumbered.begin(), kNumbered.end(), type) != kNumbered.end())
        row[kKindColumn] = type + ":" + IntText(m.elementCount);
    row[kNameColumn] = NormText(FieldAt(line, 3));
}

// The most frequent line of all, so it is put together in place: "<key>:<value>".
void StoreElementProperty(Reader &r, std::string_view line) {
    ProjectModel &m = r.model;
    m.propertyCount = std::min(m.propertyCount + 1, kPropertyColumns);
    if (m.elementCount < 1 || m.elementCount > kElementRows) return;
    const auto [element, number, key, value] = LeadingFields<4>(line);
    const int column = IsActionKey(key) ? kActionColumn : m.propertyCount;
    std::string &cell = m.Element(m.elementCount)[static_cast<std::size_t>(column)];
    cell.clear();
    cell.reserve(key.size() + 1 + value.size());
    cell.append(key).append(1, ':').append(value);
}

void StoreVariable(Reader &r, std::string_view line) {
    auto &table = r.model.VariableTable;
    const int slot = NextFree(table, 2000, r.variableCursor);
    table[slot].name = Trim(ReplaceAll(FieldView(line, 1, "="), "variable:", ""));
    table[slot].value = TrimView(FieldView(line, 2, "="));
}

void StoreToolSub(Reader &r, std::string_view line) {
    auto &table = r.model.ToolSubTable;
    const int slot = NextFree(table, 299, r.toolSubCursor);
    table[slot].key = FieldAt(line, 2) + ":" + FieldAt(line, 3);
    table[slot].sequence = FieldAt(line, 4);
}

void StoreToolCaption(Reader &r, std::string_view line) {
    const int slot = NextFree(r.model.ToolNameTable, 99, r.toolNameCursor);
    r.model.ToolNameTable[slot] = Trim(FieldAt(line, 3));
}

void StoreServerField(Reader &r, std::string_view line) {
    ProjectModel &m = r.model;
    const int slot = ++m.serverFieldCount;
    if (!decltype(m.ServerFieldTable)::Contains(slot)) return;
    m.ServerFieldTable[slot] = Trim(line.substr(line.find(':') + 1));
}

MenuImage *CurrentImage(ProjectModel &m) {
    return m.menuImages.empty() ? nullptr : &m.menuImages.back();
}

MenuLabel *CurrentLabel(ProjectModel &m) {
    const int slot = m.menuLabelCount;
    return decltype(m.MenuLabelTable)::Contains(slot) ? &m.MenuLabelTable[slot] : nullptr;
}

void SetInt32(std::int32_t &target, std::string_view text) {
    if (auto value = ToInt32(Trim(text))) target = *value;
}

void TreatMenuImageLine(Reader &r, std::string_view key, std::string_view line) {
    ProjectModel &m = r.model;
    if (key == "menuimagetag") {
        if (m.menuImages.size() < static_cast<std::size_t>(kMenuImageLimit))
            m.menuImages.push_back(MenuImage{FieldAt(line, 3), 0, 0, {}});
        return;
    }
    MenuImage *image = CurrentImage(m);
    if (!image) return;
    if (key == "menuimageleft")
        SetInt32(image->left, FieldAt(line, 3));
    else if (key == "menuimagetop")
        SetInt32(image->top, FieldAt(line, 3));
    else if (key == "menuimagedatafield")
        image->dataField = JoinFields34(line);
}

// A menu label's block: its caption line takes the next label, the later lines fill it.
void TreatMenuLabelLine(Reader &r, const MenuLabelKey &key, std::string_view line) {
    ProjectModel &m = r.model;
    if (key.key == MenuLabelKeys().front().key) ++m.menuLabelCount;
    if (MenuLabel *label = CurrentLabel(m)) ReadMenuLabelField(*label, key, line);
}

using LineHandler = void (*)(Reader &, std::string_view key, std::string_view line);

struct RecordKey {
    std::string_view name;
    LineHandler handler;
};

// The keys of records and blocks, sorted by name. Every other key is a menu label's or a scalar
// setting.
constexpr RecordKey kRecordKeys[] = {
    {"[newel]", [](Reader &r, std::string_view, std::string_view l) { NewElement(r, l); }},
    {"customserver",
     [](Reader &r, std::string_view, std::string_view l) {
         StoreWholeLine(r.model.CustomServerTable, 500, r.customServerCursor, l, "customserver:");
     }},
    {"element",
     [](Reader &r, std::string_view, std::string_view l) { StoreElementProperty(r, l); }},
    {"helpme",
     [](Reader &r, std::string_view, std::string_view l) {
         StoreWholeLine(r.model.HelpTable, 99, r.helpCursor, l, "helpme:");
     }},
    {"maindynamic",
     [](Reader &r, std::string_view, std::string_view l) {
         const int slot = NextFree(r.model.DynamicTable, 99, r.dynamicCursor);
         r.model.DynamicTable[slot] = Trim(l);
     }},
    {"menudynamic",
     [](Reader &r, std::string_view, std::string_view l) {
         const int slot = NextFree(r.model.DynamicTable, 99, r.dynamicCursor);
         r.model.DynamicTable[slot] = Trim(l);
     }},
    {"menuimagedatafield", TreatMenuImageLine},
    {"menuimageleft", TreatMenuImageLine},
    {"menuimagetag", TreatMenuImageLine},
    {"menuimagetop", TreatMenuImageLine},
    {"mytoolcaption",
     [](Reader &r, std::string_view, std::string_view l) { StoreToolCaption(r, l); }},
    {"qlob",
     [](Reader &r, std::string_view, std::string_view l) {
         StoreWholeLine(r.model.QlobTable, 199, r.qlobCursor, l, "qlob:");
     }},
    {"quantumlock",
     [](Reader &r, std::string_view, std::string_view l) {
         StoreWholeLine(r.model.QuantumLockTable, 99, r.quantumLockCursor, l, "quantumlock:");
     }},
    {"serverfield",
     [](Reader &r, std::string_view, std::string_view l) { StoreServerField(r, l); }},
    {"service",
     [](Reader &r, std::string_view, std::string_view l) {
         StoreWholeLine(r.model.ServiceTable, 199, r.serviceCursor, l, "service:");
     }},
    {"toolsub", [](Reader &r, std::string_view, std::string_view l) { StoreToolSub(r, l); }},
    {"variable", [](Reader &r, std::string_view, std::string_view l) { StoreVariable(r, l); }},
};

const RecordKey *FindRecordKey(std::string_view key) {
    const auto found = std::lower_bound(
        std::begin(kRecordKeys), std::end(kRecordKeys), key,
        [](const RecordKey &record, std::string_view wanted) { return record.name < wanted; });
    return found != std::end(kRecordKeys) && found->name == key ? found : nullptr;
}

// The line up to its first colon is its key. A key written just as the previous record's is
// already in its comparison form and needs no normalising.
void TreatLine(Reader &r, std::string_view line, std::size_t colon) {
    const std::string_view written = line.substr(0, colon);
    if (r.lastRecord && written == r.lastRecord->name) {
        r.lastRecord->handler(r, written, line);
        return;
    }
    AssignNormText(r.key, written);
    const std::string_view key = r.key;
    if (const RecordKey *record = FindRecordKey(key)) {
        r.lastRecord = record;
        record->handler(r, key, line);
    } else if (const MenuLabelKey *field = FindMenuLabelKey(key)) {
        TreatMenuLabelLine(r, *field, line);
    } else if (const SettingKey *setting = FindSettingKey(key)) {
        ReadSetting(r.model.settings, *setting, line);
    } else if (r.report && (key == "mymenufullwidth" || key == "mymenufullheight")) {
        const std::int32_t value = RoundToInt32(Val(FieldAt(line, 2))).value_or(0);
        (key == "mymenufullwidth" ? r.report->savedMenuWidth : r.report->savedMenuHeight) = value;
    }
}

void FinishLoading(ProjectModel &m, const HostScreen &screen) {
    ProjectSettings &s = m.settings;
    if (IsBlank(s.mytopmenu)) s.mytopmenu = kDefaultTopMenu;
    if (IsBlank(s.originwidth) || IsBlank(s.originheight)) {
        s.originwidth = IntText(screen.widthTwips);
        s.originheight = IntText(screen.heightTwips);
    }
    // The menu designer fills the screen; its size is what a save records.
    s.mymenufullwidth = screen.widthTwips;
    s.mymenufullheight = screen.heightTwips;
}

} // namespace

std::size_t LoadProjectText(ProjectModel &model, std::string_view name, std::string_view bytes,
                            const HostScreen &screen, LoadReport *report) {
    model.settings.myprojectname = std::string(name);
    model.scrambled = false;
    Reader reader{model};
    reader.report = report;
    std::size_t count = 0;
    ForEachLine(bytes, [&](std::string_view line) {
        if (model.scrambled) {
            reader.unscrambled = UnscrambleText(line);
            line = reader.unscrambled;
        }
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos && NormText(line) == "[revise]") model.scrambled = true;
        TreatLine(reader, line, colon);
        ++count;
    });
    FinishLoading(model, screen);
    return count;
}

LoadReport LoadProject(ProjectModel &model, const AppPaths &paths, std::string_view name,
                       const HostScreen &screen) {
    LoadReport report;
    const auto file = paths.ProjectFile(name);
    ReadError error = ReadError::None;
    const auto bytes = file ? ReadFileBytes(*file, &error) : std::nullopt;
    report.found = bytes.has_value();
    if (!file)
        report.error = UnusableName(name, NameKind::Project, NameProblem(name, NameKind::Project));
    else if (error == ReadError::Missing)
        report.error = file->string() + ": no such project";
    else if (!report.found)
        report.error =
            file->string() + ": cannot read the project file: " + std::string(ReadErrorText(error));
    report.lines =
        LoadProjectText(model, name, bytes ? *bytes : std::string_view{}, screen, &report);
    return report;
}

} // namespace orrery
