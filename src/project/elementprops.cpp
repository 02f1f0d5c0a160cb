// The element property table, its readers and writers, and a row's cells by key.
#include "project/elementprops.h"

#include "foundation/convert.h"
#include "foundation/text.h"

namespace orrery {

namespace {

using K = ElementKind;
using V = PropertyValueKind;

constexpr KindSet Kinds(std::initializer_list<ElementKind> kinds) {
    KindSet set = 0;
    for (ElementKind kind : kinds) set = static_cast<KindSet>(set | KindBit(kind));
    return set;
}

constexpr KindSet kAll = Kinds({K::Button, K::Label, K::Text, K::List, K::Image, K::Qonsole});
constexpr KindSet kAllButImage = Kinds({K::Button, K::Label, K::Text, K::List, K::Qonsole});
constexpr KindSet kCaptioned = Kinds({K::Button, K::Label});

std::int32_t Twips(std::string_view value) {
    return RoundToInt32(Val(value)).value_or(0);
}
std::int16_t Small(std::string_view value) {
    return static_cast<std::int16_t>(Twips(value));
}

void SetFlag(bool &flag, std::string_view value) {
    if (auto parsed = ToBoolean(Trim(value))) flag = *parsed;
}

// A caption keeps its line breaks as back-quotes, and "[empty]" stands for no text.
std::string CaptionText(std::string_view value) {
    return ReplaceAll(ReplaceAll(value, "`", "\r\n"), "[empty]", "");
}

// Readers: one per key, as the control takes the value.
using Reader = void (*)(ElementControl &, std::string_view, bool);

constexpr Reader kFontName = [](ElementControl &c, std::string_view v, bool) { c.fontName = v; };
constexpr Reader kFontSize = [](ElementControl &c, std::string_view v, bool) {
    c.fontSize = Val(v);
};
constexpr Reader kForeColor = [](ElementControl &c, std::string_view v, bool) {
    c.foreColor = Twips(v);
};
constexpr Reader kBackColor = [](ElementControl &c, std::string_view v, bool) {
    c.backColor = Twips(v);
};
constexpr Reader kBold = [](ElementControl &c, std::string_view v, bool) {
    SetFlag(c.fontBold, v);
};
constexpr Reader kItalic = [](ElementControl &c, std::string_view v, bool) {
    SetFlag(c.fontItalic, v);
};
constexpr Reader kUnderline = [](ElementControl &c, std::string_view v, bool) {
    SetFlag(c.fontUnderline, v);
};
constexpr Reader kLeft = [](ElementControl &c, std::string_view v, bool) { c.left = Twips(v); };
constexpr Reader kTop = [](ElementControl &c, std::string_view v, bool) { c.top = Twips(v); };
constexpr Reader kWidth = [](ElementControl &c, std::string_view v, bool) { c.width = Twips(v); };
constexpr Reader kHeight = [](ElementControl &c, std::string_view v, bool) { c.height = Twips(v); };
constexpr Reader kAlignment = [](ElementControl &c, std::string_view v, bool) {
    c.alignment = Small(v);
};
constexpr Reader kBackStyle = [](ElementControl &c, std::string_view v, bool) {
    if (c.kind == K::Label) c.backStyle = Small(v);
};
constexpr Reader kListItems = [](ElementControl &c, std::string_view v, bool making) {
    if (making && c.kind == K::List) {
        std::vector<std::string> items = ListItemsOf(v);
        c.items.insert(c.items.end(), items.begin(), items.end());
    }
};
constexpr Reader kText = [](ElementControl &c, std::string_view v, bool) {
    if (c.kind == K::Text) c.text = v;
};
constexpr Reader kCaption = [](ElementControl &c, std::string_view v, bool) {
    if (HasKind(kCaptioned, c.kind)) c.caption = CaptionText(v);
};
constexpr Reader kCommandList = [](ElementControl &c, std::string_view v, bool making) {
    if (making && c.kind == K::Qonsole) c.commandList = v;
};
// Every kind keeps the data field; an image shows it as its picture.
constexpr Reader kDataField = [](ElementControl &c, std::string_view v, bool) {
    c.dataField = v;
    if (c.kind == K::Image) c.picture = v;
};

// Writers: the value as a control holds it, in the form its reader takes.
using Writer = std::string (*)(const ElementControl &);

constexpr Writer kFontNameOut = [](const ElementControl &c) { return c.fontName; };
constexpr Writer kFontSizeOut = [](const ElementControl &c) { return NumberText(c.fontSize); };
constexpr Writer kForeColorOut = [](const ElementControl &c) { return IntText(c.foreColor); };
constexpr Writer kBackColorOut = [](const ElementControl &c) { return IntText(c.backColor); };
constexpr Writer kBoldOut = [](const ElementControl &c) { return BoolText(c.fontBold); };
constexpr Writer kItalicOut = [](const ElementControl &c) { return BoolText(c.fontItalic); };
constexpr Writer kUnderlineOut = [](const ElementControl &c) { return BoolText(c.fontUnderline); };
constexpr Writer kLeftOut = [](const ElementControl &c) { return IntText(c.left); };
constexpr Writer kTopOut = [](const ElementControl &c) { return IntText(c.top); };
constexpr Writer kWidthOut = [](const ElementControl &c) { return IntText(c.width); };
constexpr Writer kHeightOut = [](const ElementControl &c) { return IntText(c.height); };
constexpr Writer kAlignmentOut = [](const ElementControl &c) { return IntText(c.alignment); };
constexpr Writer kBackStyleOut = [](const ElementControl &c) { return IntText(c.backStyle); };
constexpr Writer kListItemsOut = [](const ElementControl &c) { return ListToSlashText(c.items); };
constexpr Writer kTextOut = [](const ElementControl &c) { return c.text; };
constexpr Writer kCaptionOut = [](const ElementControl &c) {
    return ReplaceAll(c.caption, "\r\n", "`");
};
constexpr Writer kCommandListOut = [](const ElementControl &c) { return c.commandList; };
constexpr Writer kDataFieldOut = [](const ElementControl &c) { return c.dataField; };

// What the editor stores. Places and sizes reach far beyond any screen: a larger number is a
// slip of the keyboard. A colour is red + 256 green + 65536 blue.
constexpr ValueRange kAny{};
constexpr ValueRange kColours{0, 0xFFFFFF};
constexpr ValueRange kPlaces{-1000000, 1000000};
constexpr ValueRange kSizes{0, 1000000};
constexpr ValueRange kFontSizes{1, 999};
constexpr ValueRange kAlignments{0, 2, "left|right|centre"};
constexpr ValueRange kBackStyles{0, 1, "transparent|opaque"};

using G = PropertyGroup;

// Columns as the tool editor first lays an element out. Where a column depends on the kind
// (alignment), the key has a row per column. The second line of a row is the editor's: what
// it stores, where its panel shows the property, and the property's name for an author.
// clang-format off
constexpr ElementProperty kProperties[] = {
    // key            column kinds              value              read           write
    //                                           range         group        label
    {"atool",            1, kAll,                V::ToolName,    nullptr,       nullptr,
                                                 kAny,         G::Element,  "tool"},
    {"button",           2, KindBit(K::Button),  V::KindNumber,  nullptr,       nullptr,
                                                 kAny,         G::Element,  "button"},
    {"label",            2, KindBit(K::Label),   V::KindNumber,  nullptr,       nullptr,
                                                 kAny,         G::Element,  "label"},
    {"text",             2, KindBit(K::Text),    V::KindNumber,  nullptr,       nullptr,
                                                 kAny,         G::Element,  "text box"},
    {"list",             2, KindBit(K::List),    V::KindNumber,  nullptr,       nullptr,
                                                 kAny,         G::Element,  "list"},
    {"image",            2, KindBit(K::Image),   V::KindNumber,  nullptr,       nullptr,
                                                 kAny,         G::Element,  "image"},
    {"qonsole",          2, KindBit(K::Qonsole), V::KindNumber,  nullptr,       nullptr,
                                                 kAny,         G::Element,  "qonsole"},
    {"fontname",         4, kAllButImage,        V::FontName,    kFontName,     kFontNameOut,
                                                 kAny,         G::Font,     "font"},
    {"fontsize",         5, kAllButImage,        V::Number,      kFontSize,     kFontSizeOut,
                                                 kFontSizes,   G::Font,     "font size"},
    {"forecolor",        6, kAllButImage,        V::Colour,      kForeColor,    kForeColorOut,
                                                 kColours,     G::Colours,  "fore colour"},
    {"backcolor",        7, kAllButImage,        V::Colour,      kBackColor,    kBackColorOut,
                                                 kColours,     G::Colours,  "back colour"},
    {"fontbold",         8, kAllButImage,        V::Boolean,     kBold,         kBoldOut,
                                                 kAny,         G::Font,     "bold"},
    {"fontitalic",       9, kAllButImage,        V::Boolean,     kItalic,       kItalicOut,
                                                 kAny,         G::Font,     "italic"},
    {"fontunderline",   10, kAllButImage,        V::Boolean,     kUnderline,    kUnderlineOut,
                                                 kAny,         G::Font,     "underline"},
    {"listitems",       11, KindBit(K::List),    V::ListItems,   kListItems,    kListItemsOut,
                                                 kAny,         G::Content,  "items"},
    {"text",            11, KindBit(K::Text),    V::Text,        kText,         kTextOut,
                                                 kAny,         G::Text,     "text"},
    {"caption",         11, kCaptioned,          V::Lines,       kCaption,      kCaptionOut,
                                                 kAny,         G::Text,     "caption"},
    {"backstyle",       12, KindBit(K::Label),   V::Number,      kBackStyle,    kBackStyleOut,
                                                 kBackStyles,  G::Colours,  "back style"},
    {"left",            13, kAll,                V::Twips,       kLeft,         kLeftOut,
                                                 kPlaces,      G::Layout,   "left"},
    {"top",             14, kAll,                V::Twips,       kTop,          kTopOut,
                                                 kPlaces,      G::Layout,   "top"},
    {"width",           15, kAll,                V::Twips,       kWidth,        kWidthOut,
                                                 kSizes,       G::Layout,   "width"},
    {"height",          16, kAll,                V::Twips,       kHeight,       kHeightOut,
                                                 kSizes,       G::Layout,   "height"},
    {"alignment",       17, Kinds({K::Label, K::Text, K::List, K::Qonsole}),
                                                 V::Number,      kAlignment,    kAlignmentOut,
                                                 kAlignments,  G::Text,     "alignment"},
    {"backcolor2",      17, KindBit(K::Button),  V::Colour,      nullptr,       nullptr,
                                                 kColours,     G::Colours,  "second back colour"},
    {"alignment",       18, KindBit(K::Button),  V::Number,      kAlignment,    kAlignmentOut,
                                                 kAlignments,  G::Text,     "alignment"},
    {"tag",             19, KindBit(K::Button),  V::Text,        nullptr,       nullptr,
                                                 kAny,         G::Element,  "tag"},
    {"action",          20, kAll,                V::Action,      nullptr,       nullptr,
                                                 kAny,         G::Action,   "action"},
    {"datafield",        0, KindBit(K::Image),   V::FileName,    kDataField,    kDataFieldOut,
                                                 kAny,         G::Content,  "picture"},
    {"commandlist",      0, KindBit(K::Qonsole), V::CommandList, kCommandList,  kCommandListOut,
                                                 kAny,         G::Content,  "commands"},
};
// clang-format on

// The row that reads the key into a control. "text" is both a kind key and a text box's
// content; only the content has a reader.
const ElementProperty *ReaderRow(std::string_view key) {
    for (const ElementProperty &property : kProperties)
        if (property.read && property.key == key) return &property;
    return nullptr;
}

// The key of a property cell in its name form: the text before its first colon.
std::string CellKey(const std::string &cell) {
    return NormText(FieldView(cell, 1));
}

} // namespace

std::vector<std::string> ListItemsOf(std::string_view value) {
    std::vector<std::string> items;
    for (std::int16_t i = 1; i < 32767; ++i) {
        const std::string item = FieldBy(value, i, "//");
        if (item.empty() && FieldBy(value, static_cast<std::int16_t>(i + 1), "//").empty()) break;
        if (!item.empty()) items.push_back(item);
    }
    return items;
}

ElementKind KindOfName(std::string_view name) {
    static constexpr ElementKind kOrder[] = {K::Button, K::Label, K::Text,
                                             K::List,   K::Image, K::Qonsole};
    for (ElementKind kind : kOrder)
        if (name.find(KindWord(kind)) != std::string_view::npos) return kind;
    return K::Other;
}

std::string_view KindWord(ElementKind kind) {
    // In the order of ElementKind.
    static constexpr std::string_view kWords[] = {"other", "button", "label",  "text",
                                                  "list",  "image",  "qonsole"};
    return kWords[static_cast<std::size_t>(kind)];
}

std::span<const ElementProperty> ElementProperties() {
    return kProperties;
}

const ElementProperty *FindElementProperty(std::string_view key, ElementKind kind) {
    const std::string wanted = NormText(key);
    const ElementProperty *first = nullptr;
    const ElementProperty *marker = nullptr; // "text" is a kind as well as a text box's content
    for (const ElementProperty &property : kProperties) {
        if (property.key != wanted) continue;
        if (!first) first = &property;
        if (kind == K::Other) return &property;
        if (!HasKind(property.kinds, kind)) continue;
        if (property.value != V::KindNumber) return &property;
        marker = &property;
    }
    return marker ? marker : first;
}

void ApplyProperty(ElementControl &control, std::string_view key, std::string_view value,
                   bool making) {
    if (const ElementProperty *property = ReaderRow(NormText(key)))
        property->read(control, value, making);
}

void ApplyProperties(ElementControl &control, const ElementRow &row, bool making) {
    // The kind column holds the kind with the element's number ("text:4"), not a property:
    // read as one, it would give a text box without its own text its number.
    for (int column = kKindColumn + 1; column <= kPropertyColumns; ++column) {
        if (column == kActionColumn) continue;
        const std::string &cell = row[static_cast<std::size_t>(column)];
        if (IsBlank(cell)) continue;
        const std::size_t colon = cell.find(':');
        if (colon == std::string::npos) continue;
        ApplyProperty(control, cell.substr(0, colon), FieldAt(cell, 2), making);
    }
}

bool IsActionKey(std::string_view key) {
    return NormTextContains(key, "action");
}

std::string ToolTag(std::string_view toolName) {
    return NormNoSpaces(toolName);
}

bool RowOfTool(const ElementRow &row, std::string_view tag) {
    return !tag.empty() && !IsBlank(row[kToolColumn]) &&
           ToolTag(FieldAt(row[kToolColumn], 2)) == tag;
}

bool SideMenuExcluded(const ProjectSettings &settings, std::string_view toolName) {
    const std::string list =
        ":" + LowerCase(ReplaceAll(settings.mysideexludelist, "//", ":")) + ":";
    return InStr(list, ":" + LowerCase(toolName) + ":") != 0;
}

bool SideMenuHidden(const ProjectSettings &settings, std::string_view toolName) {
    return InStr(ReplaceAll(LowerCase(settings.myhiddentools), " ", ""), ToolTag(toolName)) != 0;
}

int PropertyColumn(const ElementRow &row, std::string_view key) {
    if (IsActionKey(key)) return IsBlank(row[kActionColumn]) ? 0 : kActionColumn;
    const std::string wanted = NormText(key);
    for (int column = 1; column <= kPropertyColumns; ++column) {
        // The kind column holds "<kind>:<number>", and "text" is both a kind and a text box's
        // content: a property is never looked for there.
        if (column == kKindColumn) continue;
        const std::string &cell = row[static_cast<std::size_t>(column)];
        if (!IsBlank(cell) && CellKey(cell) == wanted) return column;
    }
    return 0;
}

std::optional<std::string> PropertyValue(const ElementRow &row, std::string_view key) {
    const int column = PropertyColumn(row, key);
    if (column == 0) return std::nullopt;
    return FieldAt(row[static_cast<std::size_t>(column)], 2);
}

int SetPropertyValue(ElementRow &row, std::string_view key, std::string_view value) {
    int column = IsActionKey(key) ? kActionColumn : PropertyColumn(row, key);
    // The action's column stays free for it.
    for (int c = 1; column == 0 && c <= kPropertyColumns; ++c)
        if (c != kActionColumn && c != kKindColumn && IsBlank(row[static_cast<std::size_t>(c)]))
            column = c;
    if (column == 0) return 0;
    std::string &cell = row[static_cast<std::size_t>(column)];
    cell.assign(key).append(1, ':').append(value);
    return column;
}

} // namespace orrery
