// Adding, changing, moving and deleting elements, and the qombos.
#include "editor/elements.h"

#include "editor/places.h"
#include "editor/text.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "project/defaults.h"
#include "project/keytable.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

namespace orrery {

namespace {

// A new element's size by kind, in twips: large enough to show what it holds.
struct Size {
    std::int32_t width, height;
};
Size DefaultSize(ElementKind kind) {
    switch (kind) {
    case ElementKind::Button:
        return {1200, 375};
    case ElementKind::Label:
        return {1800, 255};
    case ElementKind::Text:
        return {2400, 285};
    case ElementKind::List:
        return {2400, 1200};
    case ElementKind::Image:
        return {960, 960};
    case ElementKind::Qonsole:
        return {4800, 2400};
    default:
        return {1200, 375};
    }
}

// A scalar setting as the project file writes it; "" for a key there is none of.
std::string SettingText(const ProjectSettings &settings, std::string_view name) {
    const SettingKey *key = FindSettingKey(name);
    return key ? SettingValueText(settings, *key) : std::string();
}

const ProjectSettings &NewProjectStyles() {
    static const ProjectSettings styles = [] {
        ProjectModel model;
        SetProjectDefaults(model, {});
        return model.settings;
    }();
    return styles;
}

// The cells of a new element of a kind, in the order the tool editor writes them: the tool's
// first and the kind's second, as every reader expects.
std::vector<std::pair<std::string, std::string>> NewCells(const ProjectModel &model,
                                                          ElementKind kind, std::string_view tool,
                                                          int number, std::string_view caption,
                                                          Position at) {
    const std::string word(KindWord(kind));
    std::vector<std::pair<std::string, std::string>> cells{{"atool", std::string(tool)},
                                                           {word, IntText(number)}};
    if (kind != ElementKind::Image) {
        const std::string style = "mtdefstyle" + word;
        // A console's default style is never written to the file, so a project read back has
        // none: it takes a new project's.
        const ProjectSettings &styles =
            kind == ElementKind::Qonsole && model.settings.mtdefstyleqonsolefontsize <= 0
                ? NewProjectStyles()
                : model.settings;
        const auto setting = [&](std::string_view what) {
            return SettingText(styles, style + std::string(what));
        };
        const std::string font = setting("fontname");
        cells.insert(cells.end(), {{"fontname", IsBlank(font) ? "Verdana" : font},
                                   {"fontsize", setting("fontsize")},
                                   {"forecolor", setting("forecolor")},
                                   {"backcolor", setting("backcolor")},
                                   {"fontbold", setting("bold")},
                                   {"fontitalic", setting("italic")},
                                   {"fontunderline", setting("underline")}});
        if (kind == ElementKind::Button || kind == ElementKind::Label)
            cells.emplace_back("caption", std::string(caption));
        if (kind == ElementKind::Label) cells.emplace_back("backstyle", "0");
        if (kind == ElementKind::Button) cells.emplace_back("backcolor2", setting("backcolor2"));
        if (FindSettingKey(style + "alignment"))
            cells.emplace_back("alignment", setting("alignment"));
    }
    const Size size = DefaultSize(kind);
    cells.insert(cells.end(), {{"left", IntText(at.left)},
                               {"top", IntText(at.top)},
                               {"width", IntText(size.width)},
                               {"height", IntText(size.height)}});
    if (kind == ElementKind::Qonsole)
        cells.emplace_back("commandlist", std::string(words::kNewQonsoleCommands));
    return cells;
}

// The first blank row; 0 when the table is full.
int FreeElementRow(const ProjectModel &model) {
    for (int row = 1; row <= kElementRows; ++row)
        if (IsBlank(model.Element(row)[kToolColumn]) && IsBlank(model.Element(row)[kNameColumn]))
            return row;
    return 0;
}

// The tool's name as its list holds it, or the refusal for a kind or a tool not chosen.
std::optional<Message> ToolFor(const ProjectModel &model, std::string_view tool, ElementKind kind,
                               std::string &name) {
    if (kind == ElementKind::Other) return words::kNoKindChosen;
    const int slot = FindTool(model, tool);
    if (!slot || Trim(model.ToolNameTable[slot]) == "-") return words::kNoToolChosen;
    name = Trim(model.ToolNameTable[slot]);
    return std::nullopt;
}

// Adds an element whose name is already clean; the transaction is the caller's.
std::optional<Message> AddNamed(Transaction &t, std::string_view tool, ElementKind kind,
                                const std::string &name, std::string_view caption, Position at) {
    ProjectModel &model = t.model();
    if (name.size() < 3) return words::kElementNameInvalid;
    if (auto problem = UnwritableName(name)) return problem;
    if (ElementNameExists(model, name)) return words::kElementNameExists;
    const int row = FreeElementRow(model);
    if (!row) return words::kTooManyElements;
    const int number = model.elementCount + 1;
    t.Set(place::Counter(&ProjectModel::elementCount), number);
    ElementRow element{};
    element[kNameColumn] = std::string(KindWord(kind)) + name;
    // The cells stand in the columns a reload would give them, one after another from the
    // first, so that saving the project again writes the same bytes.
    const auto cells = NewCells(model, kind, tool, number, caption, at);
    element[kToolColumn] = cells[0].first + ":" + cells[0].second;
    element[kKindColumn] = cells[1].first + ":" + cells[1].second;
    for (std::size_t i = 2; i < cells.size(); ++i)
        SetPropertyValue(element, cells[i].first, cells[i].second);
    t.Set(place::ElementRowAt(row), element);
    return std::nullopt;
}

// The rows of the named elements, or the refusal for a name no element has.
std::optional<Message> RowsOf(const ProjectModel &model, const std::vector<std::string> &names,
                              std::vector<int> &rows) {
    std::unordered_set<int> taken;
    for (const int row : ElementRowsByName(model, names)) {
        if (!row) return words::kNoSuchElement;
        if (taken.insert(row).second) rows.push_back(row);
    }
    return std::nullopt;
}

// Sets one cell of a row through the transaction.
void SetCell(Transaction &t, int row, std::string_view key, std::string_view value) {
    ElementRow element = t.model().Element(row);
    if (SetPropertyValue(element, key, value)) t.Set(place::ElementRowAt(row), element);
}

// The value as the property keeps it, or the refusal.
std::optional<Message> Storable(const ElementProperty &property, const ProjectModel &model,
                                std::string &value) {
    const ValueRange &range = property.range;
    switch (property.value) {
    case PropertyValueKind::KindNumber:
        return words::kKindNotChanged;
    case PropertyValueKind::Number:
    case PropertyValueKind::Twips:
    case PropertyValueKind::Colour:
        if (const auto number = ParseWholeNumber32(Trim(value)); number && range.Holds(*number)) {
            value = IntText(*number);
            return std::nullopt;
        }
        return words::NotInRange(property.label, range.low, range.high, range.choices);
    case PropertyValueKind::Boolean:
        if (const auto flag = ToBoolean(Trim(value))) {
            value = BoolText(*flag);
            return std::nullopt;
        }
        return words::NotTrueOrFalse(property.label);
    case PropertyValueKind::ToolName:
        if (!FindTool(model, value)) return words::kNoSuchTool;
        return std::nullopt;
    case PropertyValueKind::Action:
        value = Trim(StorableSequence(value));
        return std::nullopt;
    case PropertyValueKind::FileName:
        if (value.find_first_of("/\\") != std::string::npos || Trim(value) == ".." ||
            Trim(value) == ".")
            return words::kPictureWithPath;
        return UnwritableValue(value);
    default:
        return UnwritableValue(value);
    }
}

// The cell a nudge changes and by how much, in the order of the Nudge words.
struct NudgeStep {
    std::string_view key;
    std::int32_t delta;
    bool size;
};
NudgeStep StepOf(Nudge nudge) {
    static constexpr NudgeStep kSteps[] = {{"left", -kNudge, false}, {"left", kNudge, false},
                                           {"top", -kNudge, false},  {"top", kNudge, false},
                                           {"width", kNudge, true},  {"width", -kNudge, true},
                                           {"height", kNudge, true}, {"height", -kNudge, true}};
    return kSteps[static_cast<std::size_t>(nudge)];
}

std::int32_t Twips(const ElementRow &row, std::string_view key) {
    return RoundToInt32(Val(PropertyValue(row, key).value_or("0"))).value_or(0);
}

// Spaces the rows evenly along one axis, in the order they stand: the first and the last stay,
// and each gap between one element's far edge and the next one's near edge is the same. The
// remainder of the division goes to the first gaps, a twip each.
void Space(Transaction &t, std::vector<int> rows, std::string_view at, std::string_view size) {
    if (rows.size() < 3) return;
    const ProjectModel &model = t.model();
    std::stable_sort(rows.begin(), rows.end(), [&](int a, int b) {
        return Twips(model.Element(a), at) < Twips(model.Element(b), at);
    });
    std::int64_t sizes = 0;
    for (int row : rows) sizes += Twips(model.Element(row), size);
    const std::int64_t from = Twips(model.Element(rows.front()), at);
    const std::int64_t to = Twips(model.Element(rows.back()), at) + Twips(model.Element(rows.back()), size);
    const std::int64_t gaps = static_cast<std::int64_t>(rows.size()) - 1;
    const std::int64_t room = to - from - sizes;
    std::int64_t place = from;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i > 0 && i + 1 < rows.size()) SetCell(t, rows[i], at, IntText(place));
        const std::int64_t gap = room / gaps + (static_cast<std::int64_t>(i) < room % gaps ? 1 : 0);
        place += Twips(model.Element(rows[i]), size) + gap;
    }
}

} // namespace

std::int32_t SnapToGrid(std::int32_t twips) {
    const std::int32_t off = ((twips + 80) % kNudge + kNudge) % kNudge;
    return twips - off;
}

std::string CleanElementName(std::string_view typed) {
    std::string name = NormText(typed);
    for (std::string_view word : {"button", "label", "image", "list", "text"})
        name = ReplaceAll(name, word, "");
    return NormText(StripPunctuation(name));
}

bool ElementNameExists(const ProjectModel &model, std::string_view name) {
    const std::string wanted = NormText(name);
    for (int row = 1; row <= kElementRows; ++row)
        if (!IsBlank(model.Element(row)[kNameColumn]) &&
            NormText(model.Element(row)[kNameColumn]).ends_with(wanted))
            return true;
    return false;
}

std::vector<int> ElementRowsByName(const ProjectModel &model, const std::vector<std::string> &names) {
    std::unordered_map<std::string, int> firstRow;
    for (int row = 1; row <= kElementRows; ++row)
        if (std::string form = NormText(model.Element(row)[kNameColumn]); !form.empty())
            firstRow.emplace(std::move(form), row);
    std::vector<int> rows;
    rows.reserve(names.size());
    for (const std::string &name : names) {
        const auto found = firstRow.find(NormText(name));
        const bool onTool = found != firstRow.end() && !IsBlank(model.Element(found->second)[kToolColumn]);
        rows.push_back(onTool ? found->second : 0);
    }
    return rows;
}

int ElementRowByName(const ProjectModel &model, std::string_view name) {
    const int row = FindElementRow(model, NormText(name));
    return row && !IsBlank(model.Element(row)[kToolColumn]) ? row : 0;
}

Outcome AddElement(ProjectModel &model, std::string_view tool, ElementKind kind,
                   std::string_view typedName, Position at) {
    Transaction t(model, "Add Element");
    std::string owner;
    if (auto refusal = ToolFor(model, tool, kind, owner)) return t.Refuse(*refusal);
    const std::string name = CleanElementName(typedName);
    if (auto refusal = AddNamed(t, owner, kind, name, Trim(typedName), at))
        return t.Refuse(*refusal);
    return t.Commit();
}

Outcome AddArray(ProjectModel &model, std::string_view tool, ElementKind kind,
                 std::string_view count, Random &random, std::string_view typedStem,
                 Position at) {
    Transaction t(model, "Add Array");
    const int n = RoundToInt32(Val(count)).value_or(0);
    if (n <= 0) return t.Commit();
    if (n > kLargestArray) return t.Refuse(words::kArrayTooBig);
    std::string owner;
    if (auto refusal = ToolFor(model, tool, kind, owner)) return t.Refuse(*refusal);
    const std::string stem = typedStem.empty()
                                 ? IntText(static_cast<int>(random.Unit() * 8000) + 1000)
                                 : CleanElementName(typedStem);
    for (int i = 1; i <= n; ++i) {
        const std::string name = stem + "(" + IntText(i) + ")";
        if (auto refusal = AddNamed(t, owner, kind, name, name, at)) return t.Refuse(*refusal);
    }
    return t.Commit({words::kArrayWarning});
}

Outcome SetElementProperty(ProjectModel &model, const std::vector<std::string> &elements,
                           std::string_view key, std::string_view typedValue) {
    return SetElementProperties(model, elements, {{std::string(key), std::string(typedValue)}});
}

Outcome SetElementProperties(ProjectModel &model, const std::vector<std::string> &elements,
                             const std::vector<PropertySetting> &values) {
    Transaction t(model, values.size() == 1 ? "Change " + NormText(values[0].first)
                                            : std::string("Change Properties"));
    std::vector<int> rows;
    if (auto refusal = RowsOf(model, elements, rows)) return t.Refuse(*refusal);
    for (int row : rows) {
        const ElementKind kind = KindOfName(NormText(model.Element(row)[kNameColumn]));
        for (const auto &[key, typedValue] : values) {
            const ElementProperty *property = FindElementProperty(key, kind);
            if (!property || !HasKind(property->kinds, kind))
                return t.Refuse(words::NoSuchProperty(KindWord(kind), key));
            std::string value(typedValue);
            if (auto refusal = Storable(*property, model, value)) return t.Refuse(*refusal);
            SetCell(t, row, property->key, value);
        }
    }
    return t.Commit();
}

std::vector<std::string> PropertyItems(PropertyValueKind kind, std::string_view value) {
    if (kind == PropertyValueKind::ListItems) return ListItemsOf(value);
    std::vector<std::string> items;
    TickTextToList(value, items);
    return items;
}

std::string ItemsProperty(PropertyValueKind kind, const std::vector<std::string> &items) {
    std::vector<std::string> kept;
    for (const std::string &item : items)
        if (!IsBlank(item))
            kept.push_back(kind == PropertyValueKind::ListItems ? item : Trim(item));
    if (kind == PropertyValueKind::ListItems) return ListToSlashText(kept);
    std::string joined;
    for (const std::string &item : kept) joined += (joined.empty() ? "" : "`") + item;
    return joined;
}

std::optional<Nudge> NudgeByWord(std::string_view word) {
    static constexpr std::pair<std::string_view, Nudge> kWords[] = {
        {"left", Nudge::Left},     {"right", Nudge::Right},    {"up", Nudge::Up},
        {"down", Nudge::Down},     {"wider", Nudge::Wider},    {"narrower", Nudge::Narrower},
        {"taller", Nudge::Taller}, {"shorter", Nudge::Shorter}};
    for (const auto &[name, nudge] : kWords)
        if (NormText(word) == name) return nudge;
    return std::nullopt;
}

Outcome NudgeElements(ProjectModel &model, Nudge nudge, const std::vector<std::string> &elements) {
    Transaction t(model, nudge <= Nudge::Down ? "Move" : "Size");
    std::vector<int> rows;
    if (auto refusal = RowsOf(model, elements, rows)) return t.Refuse(*refusal);
    const NudgeStep step = StepOf(nudge);
    // Nudges of the same elements in the same direction are one step, however many.
    std::string key = "nudge " + std::string(step.key) + (step.delta < 0 ? "-" : "+");
    for (int row : rows) key += " " + IntText(row);
    t.setMergeKey(std::move(key));
    for (int row : rows) {
        const std::int32_t value = Twips(model.Element(row), step.key) + step.delta;
        if (!step.size || value >= 0) SetCell(t, row, step.key, IntText(value));
    }
    return t.Commit();
}

Outcome MoveElements(ProjectModel &model, const std::vector<std::string> &elements, std::int32_t dx,
                     std::int32_t dy) {
    Transaction t(model, "Move");
    std::vector<int> rows;
    if (auto refusal = RowsOf(model, elements, rows)) return t.Refuse(*refusal);
    for (int row : rows) {
        const ElementRow &element = model.Element(row);
        const std::int32_t left = Twips(element, "left") + dx, top = Twips(element, "top") + dy;
        if (dx) SetCell(t, row, "left", IntText(left));
        if (dy) SetCell(t, row, "top", IntText(top));
    }
    return t.Commit();
}

std::optional<Align> AlignByWord(std::string_view word) {
    static constexpr std::pair<std::string_view, Align> kWords[] = {
        {"left", Align::Left},
        {"top", Align::Top},
        {"right", Align::Right},
        {"bottom", Align::Bottom},
        {"same-width", Align::SameWidth},
        {"same-height", Align::SameHeight},
        {"space-across", Align::SpaceAcross},
        {"space-down", Align::SpaceDown}};
    for (const auto &[name, align] : kWords)
        if (NormText(word) == name) return align;
    return std::nullopt;
}

Outcome AlignElements(ProjectModel &model, Align align, const std::vector<std::string> &elements) {
    Transaction t(model, "Align");
    std::vector<int> rows;
    if (auto refusal = RowsOf(model, elements, rows)) return t.Refuse(*refusal);
    if (rows.empty()) return t.Commit();
    const auto box = [&](int row) {
        const ElementRow &e = model.Element(row);
        return std::array<std::int32_t, 4>{Twips(e, "left"), Twips(e, "top"), Twips(e, "width"),
                                           Twips(e, "height")};
    };
    if (align == Align::SpaceAcross || align == Align::SpaceDown) {
        const bool across = align == Align::SpaceAcross;
        Space(t, rows, across ? "left" : "top", across ? "width" : "height");
        return t.Commit();
    }
    const auto [left, top, width, height] = box(rows.front());
    for (int row : rows) {
        const std::int32_t w = box(row)[2], h = box(row)[3];
        switch (align) {
        case Align::Left:
            SetCell(t, row, "left", IntText(left));
            break;
        case Align::Top:
            SetCell(t, row, "top", IntText(top));
            break;
        case Align::Right:
            SetCell(t, row, "left", IntText(left + width - w));
            break;
        case Align::Bottom:
            SetCell(t, row, "top", IntText(top + height - h));
            break;
        case Align::SameWidth:
            SetCell(t, row, "width", IntText(width));
            break;
        case Align::SameHeight:
            SetCell(t, row, "height", IntText(height));
            break;
        default:
            break;
        }
    }
    return t.Commit();
}

Outcome DeleteElements(ProjectModel &model, const std::vector<std::string> &elements) {
    Transaction t(model, elements.size() == 1 ? "Delete Element" : "Delete Elements");
    std::vector<int> rows;
    if (auto refusal = RowsOf(model, elements, rows)) return t.Refuse(*refusal);
    std::vector<ElementRow> kept;
    int last = 0;
    for (int row = 1; row <= kElementRows; ++row) {
        if (std::find(rows.begin(), rows.end(), row) != rows.end()) continue;
        if (!IsBlank(model.Element(row)[kToolColumn]) || !IsBlank(model.Element(row)[kNameColumn]))
            last = row;
        kept.push_back(model.Element(row));
    }
    // Rows close up from the first deleted one to the last in use, so that no gap of two
    // blank rows hides the rows behind it from the tool's scan.
    const int first = *std::min_element(rows.begin(), rows.end());
    for (int row = first; row <= std::max(last, *std::max_element(rows.begin(), rows.end()));
         ++row) {
        const std::size_t i = static_cast<std::size_t>(row - 1);
        t.Set(place::ElementRowAt(row), i < kept.size() ? kept[i] : ElementRow{});
    }
    return t.Commit();
}

std::vector<std::string> CopyProperties(const ProjectModel &model, std::string_view element) {
    std::vector<std::string> cells;
    const int row = ElementRowByName(model, element);
    if (!row) return cells;
    for (std::string_view key : kCopiedProperties)
        if (const auto value = PropertyValue(model.Element(row), key))
            cells.push_back(std::string(key) + ":" + *value);
    return cells;
}

Outcome PasteProperties(ProjectModel &model, const std::vector<std::string> &cells,
                        const std::vector<std::string> &elements) {
    Transaction t(model, "Paste Properties");
    std::vector<int> rows;
    if (auto refusal = RowsOf(model, elements, rows)) return t.Refuse(*refusal);
    for (int row : rows) {
        const ElementKind kind = KindOfName(NormText(model.Element(row)[kNameColumn]));
        for (const std::string &cell : cells) {
            const std::string key = NormText(FieldAt(cell, 1));
            const ElementProperty *property = FindElementProperty(key, kind);
            if (property && HasKind(property->kinds, kind) &&
                std::find(std::begin(kCopiedProperties), std::end(kCopiedProperties), key) !=
                    std::end(kCopiedProperties))
                SetCell(t, row, key, FieldAt(cell, 2));
        }
    }
    return t.Commit();
}

} // namespace orrery
