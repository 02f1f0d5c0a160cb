// The desk model: the run-time's game desktop without any toolkit. Tools, the live controls of
// their elements by row, TLink in load order. The engine acts on it; a shell only draws it.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "project/model.h"

namespace orrery {

inline constexpr int kToolboxes = 500;
inline constexpr int kNoTool = 999;

// The kind of an element, read from its name, which begins with the kind word.
enum class ElementKind { Other, Button, Label, Text, List, Image, Qonsole };

// The live control of one element of an open tool.
struct ElementControl {
    std::string tag; // the element's name
    ElementKind kind = ElementKind::Other;
    std::string caption;            // button, label
    std::string text;               // text box; a list's selected item
    std::vector<std::string> items; // list
    int listIndex = -1;             // list: the selected item, -1 for none
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
    std::string picture; // image: the file shown
};

// One tool window: a panel whose tag is the tool's name form, with its caption.
struct ToolBox {
    std::string tag;
    std::string caption;
    bool visible = false;
};

class Desk {
public:
    Desk() : m_controls(kElementRows + 1), m_toolboxes(kToolboxes + 1) {}

    // The control of an element's row; nullptr while its tool isn't open.
    ElementControl *Control(int row);
    const ElementControl *Control(int row) const;
    // Creates the control of a row and appends it to TLink.
    ElementControl &LoadControl(int row, std::string tag, ElementKind kind);
    // Removes the control of a row; its TLink entry stays, empty.
    void UnloadControl(int row);

    // TLink: the rows of loaded controls in load order, from index 1.
    int TLinkCount() const { return static_cast<int>(m_tlink.size()); }
    // The tag of TLink entry i, "" when there is no live control there.
    std::string TLinkTag(int index) const;
    // The content of TLink entry i by the kind words of tag: text, list, label, button.
    std::string TLinkString(int index, std::string_view tag) const;

    ToolBox &Box(int index) { return m_toolboxes.at(static_cast<std::size_t>(index)); }
    const ToolBox &Box(int index) const { return m_toolboxes.at(static_cast<std::size_t>(index)); }
    // The toolbox whose tag equals the name form of name; kNoTool when none.
    int GetToolIndex(std::string_view name) const;

    std::string OpenToolList; // ":tool:" for each open tool

    // The quicklist's captions, from index 1; a profile keeps them.
    std::vector<std::string> Quicklist;
    // One lock per tool of the side menu, from index 1: true while the tool is locked.
    std::vector<bool> ToolLocked;

private:
    std::vector<std::unique_ptr<ElementControl>> m_controls; // by row
    std::vector<int> m_tlink;                                 // rows, in load order
    std::vector<ToolBox> m_toolboxes;                         // from index 1
};

// The kind of an element from its name; the first kind word found, in the order button,
// label, text, list, image, qonsole.
ElementKind KindOfName(std::string_view name);

} // namespace orrery
