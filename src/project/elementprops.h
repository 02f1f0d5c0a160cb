// The properties of an element: the one table of their keys, and a row's cells by key.
#pragma once

#include "project/model.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

// The kind of an element. Its name begins with the kind word, and the engine reads the kind
// from the name, never from the kind column.
enum class ElementKind { Other, Button, Label, Text, List, Image, Qonsole };

// The kind of an element from its name: the first kind word found, in the order button,
// label, text, list, image, qonsole.
ElementKind KindOfName(std::string_view name);
// The kind word: "button" for ElementKind::Button; "other" for Other, which no name holds.
std::string_view KindWord(ElementKind kind);

// A set of kinds, one bit each.
using KindSet = std::uint8_t;
constexpr KindSet KindBit(ElementKind kind) {
    return static_cast<KindSet>(1u << static_cast<int>(kind));
}
constexpr bool HasKind(KindSet kinds, ElementKind kind) {
    return (kinds & KindBit(kind)) != 0;
}

// The live control of one element of an open tool: what its properties set, and what the
// player changes while it is shown.
struct ElementControl {
    std::string tag; // the element's name, fixed once loaded
    ElementKind kind = ElementKind::Other;
    std::string caption;            // button, label
    std::string text;               // text box; a list's selected item
    std::vector<std::string> items; // list
    int listIndex = -1;             // list: the selected item, -1 for none
    std::size_t selStart = 0;       // text box: the caret, from 0
    std::size_t selLength = 0;      // text box: the selection's length behind the caret
    bool visible = true;
    std::int32_t foreColor = 0;
    std::int32_t backColor = 0;
    std::string fontName;
    double fontSize = 8;
    bool fontBold = false;
    bool fontItalic = false;
    bool fontUnderline = false;
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int16_t alignment = 0;
    std::int16_t backStyle = 0;
    std::string dataField;
    std::string picture;     // image: the file shown
    std::string commandList; // qonsole: its commands, as the property holds them
    int box = 0;             // the toolbox the element stands in
};

// What a property's value holds.
enum class PropertyValueKind {
    ToolName,   // the owning tool
    KindNumber, // the element's number; the key is its kind
    Text,
    Lines, // text whose line breaks are stored as back-quotes
    Number,
    Twips,
    Colour,
    Boolean,     // "True" or "False"
    ListItems,   // items separated by "//"
    CommandList, // a qonsole's commands
    Action,      // a sequence of statements
    FileName,    // below Res/uimages
    FontName,
};

// The whole numbers a property holds; for a short range, the word of each number in turn.
struct ValueRange {
    std::int32_t low = std::numeric_limits<std::int32_t>::min();
    std::int32_t high = std::numeric_limits<std::int32_t>::max();
    std::string_view choices = {}; // "left|right|centre": low, low + 1, ...

    constexpr bool Holds(std::int64_t value) const { return value >= low && value <= high; }
};

// Where the tool editor's property panel shows a property.
enum class PropertyGroup { Element, Text, Layout, Font, Colours, Content, Action };

// One key of an element's property cells. A key whose column differs by kind has a row per
// column.
struct ElementProperty {
    std::string_view key; // as the cell holds it, in name form
    int column;           // where the tool editor first puts it; 0 for "after the others"
    KindSet kinds;        // the kinds the tool editor gives it
    PropertyValueKind value;
    // Sets the control from the value; making is true when the control is being made, false
    // when it is put back to its designed state. nullptr: the key never reaches a control.
    void (*read)(ElementControl &control, std::string_view value, bool making);
    // The value as the control holds it now; nullptr where there is none to read back.
    std::string (*write)(const ElementControl &control);
    ValueRange range; // what the editor stores, for a number, a colour or twips
    PropertyGroup group;
    std::string_view label; // the property for an author: "font size", "back colour"
};

// Every key, in column order.
std::span<const ElementProperty> ElementProperties();
// The row of a key (any case, blanks allowed) as a control of that kind has it, a property
// before the kind's own marker ("text" on a text box is its content); with kind Other, or
// when no row names the kind, the key's first row. nullptr for an unknown key.
const ElementProperty *FindElementProperty(std::string_view key,
                                           ElementKind kind = ElementKind::Other);

// A list's items as a list control takes them from its property: separated by "//", empty
// ones passed over, ending at two empty ones in a row.
std::vector<std::string> ListItemsOf(std::string_view value);

// Applies one "key:value" property cell to a control. Unknown keys and properties the kind
// doesn't have are passed over. A list's items and a console's commands are taken only when
// the control is made, so a reset leaves them.
void ApplyProperty(ElementControl &control, std::string_view key, std::string_view value,
                   bool making);
// Applies every property cell of an element's row after the kind column, but the action.
void ApplyProperties(ElementControl &control, const ElementRow &row, bool making);

// The tag of a tool: its name without blanks, in name form, as the run-time keys its panel,
// its side-menu entry and its event assignments.
std::string ToolTag(std::string_view toolName);
// True when the row's element belongs to the tool of that tag, by its "atool:" cell.
bool RowOfTool(const ElementRow &row, std::string_view tag);
// True when the tool has no entry in the side menu: its name stands whole in the exclusion
// list, whose entries are separated by "//".
bool SideMenuExcluded(const ProjectSettings &settings, std::string_view toolName);
// True when the tool's entry is there but hidden: its tag stands anywhere in the hidden list,
// read without blanks, so a tag that is part of another hidden tool's is hidden too.
bool SideMenuHidden(const ProjectSettings &settings, std::string_view toolName);

// True for a key that names the action: any key holding "action", as the reader takes it.
bool IsActionKey(std::string_view key);
// The column of the cell that holds the key, found by key since columns move on reload; an
// action is always column 20, and the kind column is never one. 0 when the row has none.
int PropertyColumn(const ElementRow &row, std::string_view key);
// The value of the key's cell, its second field; nullopt when the row has none.
std::optional<std::string> PropertyValue(const ElementRow &row, std::string_view key);
// Writes "<key>:<value>" into the key's cell, else into the first free property column; an
// action always into column 20. Answers the column, 0 when the row has no room.
int SetPropertyValue(ElementRow &row, std::string_view key, std::string_view value);

} // namespace orrery
