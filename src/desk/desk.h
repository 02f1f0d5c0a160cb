// The desk model: the run-time's game desktop without any toolkit. Tools, the live controls of
// their elements by row, TLink in load order. The engine acts on it; a shell only draws it.
#pragma once

#include "desk/menus.h"
#include "desk/qonsole.h"
#include "project/elementprops.h"
#include "project/model.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orrery {

inline constexpr int kToolboxes = 500;
inline constexpr int kNoTool = 999;

// One tool window: a panel whose tag is the tool's name, made at its first opening.
struct ToolBox {
    std::string tag;
    bool visible = false;
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t backColor = 0;
    std::uint64_t raisedAt = 0; // brought to the front last when this is greatest
};

// The chrome of a tool: title bar parts, caption and close mark, by chrome index.
struct ToolChrome {
    int box = 0;             // the toolbox it dresses
    std::string caption;     // the title
    std::string tag;         // the title in lower case
    bool exiterVisible = true; // the close mark and the title bar's right end
    std::int32_t midWidth = 0;
    bool border = false;
};

// An entry of the side menu: caption the tool's title, tag its name without blanks.
struct SideEntry {
    std::string caption;
    std::string tag;
    bool visible = true;
    std::int32_t top = 0;
};

// The message panel of the desktop.
struct MessagePanel {
    bool visible = false;
    std::string title;
    std::string text;
};

// The help panel: its topics as the list holds them and the text of the chosen one.
struct HelpPanel {
    bool visible = false;
    std::string title;
    std::vector<std::string> items; // "<title>", eight blanks, "<text>": the text out of sight
    int selected = -1;              // the chosen topic, -1 for none
    std::string text;               // the chosen topic's text, as shown
};

// The clock panel and its five-second refresh.
struct ClockPanel {
    bool visible = false;
    bool ticking = false; // the refresh runs
    std::string text;
};

// Sizes of the tool chrome's pictures, in twips.
inline constexpr std::int32_t kTitleBarHeight = 375;
inline constexpr std::int32_t kChromeRightWidth = 600;
inline constexpr int kMaxToolboxes = 99;

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
    // The rows of TLink in load order; an unloaded control's row stays listed.
    const std::vector<int> &TLinkRows() const { return m_tlink; }
    // The tag of TLink entry i, "" when there is no live control there.
    std::string TLinkTag(int index) const;
    // The content of TLink entry i by the kind words of tag: text, list, label, button.
    std::string TLinkString(int index, std::string_view tag) const;
    // Changes whenever a control is loaded or unloaded, and no two desks share one: what is
    // built from the tags of TLink stays good while this stays the same.
    std::uint64_t TLinkStamp() const { return m_tlinkStamp; }
    // The TLink index whose control's tag has that name form; 0 when none.
    int ElIndex(std::string_view name) const;
    // The control of TLink entry i; nullptr when there is none.
    ElementControl *TLinkControl(int index);

    ToolBox &Box(int index) { return m_toolboxes.at(static_cast<std::size_t>(index)); }
    const ToolBox &Box(int index) const { return m_toolboxes.at(static_cast<std::size_t>(index)); }
    // The toolbox whose tag equals the name form of name; kNoTool when none.
    int GetToolIndex(std::string_view name) const;

    std::string OpenToolList; // ":tool:" for each tool opened once
    std::string NoMoveList;   // ":tool:" for each tool that can't be dragged
    std::vector<SideEntry> SideMenu{1}; // from index 1
    std::vector<ToolChrome> Chrome{1};  // from index 1, the chrome counter
    std::vector<int> OpenTools = std::vector<int>(kToolboxes + 1); // chrome index -> toolbox
    int toolboxCount = 0;  // toolboxes made
    int selectedBox = 0;   // the toolbox framed by the focus frame
    std::uint64_t raiseCounter = 0; // counts tools brought to the front
    bool toolerVisible = false;
    int focusRow = 0;      // the element that has the focus
    QonsoleTable consoles; // the qonsoles, by column in order of creation
    MessagePanel message;
    std::string background; // the desktop's picture file
    bool exitRequested = false; // the desktop is to close: ExitMe, which saves the profile
    bool closeRequested = false; // the desktop is to close without a save (EXIT_GAME)
    int debugClicks = 0;         // clicks on the debug panel's button
    std::vector<TopEntry> TopMenu{1};    // the bar, from index 1
    std::vector<SubEntry> TopMenuList{1}; // the open drop-down, from index 1
    int selectedMenu = 999;
    bool topMenuListVisible = false;
    std::string clipboard;
    bool activated = false;     // the first activation has run
    bool topMenuVisible = true; // F9
    bool debugVisible = false;  // shift and F12
    std::int32_t formWidth = 1024 * 15;
    std::int32_t formHeight = 768 * 15;

    // The quicklist's captions, from index 1; a profile keeps them.
    std::vector<std::string> Quicklist;
    bool quicklistVisible = false; // F10
    int quicklistSel = 0;          // the row the highlight stands behind, 0 for none
    std::string quickCandidate;    // kept by a right click for the pop-up menu
    bool quickMenuVisible = false; // the pop-up menu that adds the candidate
    HelpPanel help;
    ClockPanel clock;
    // One lock per tool of the side menu, from index 1: true while the tool is locked.
    std::vector<bool> ToolLocked;

private:
    std::vector<std::unique_ptr<ElementControl>> m_controls; // by row
    std::vector<int> m_tlink;                                 // rows, in load order
    std::uint64_t m_tlinkStamp = NewStamp();
    static std::uint64_t NewStamp();
    std::vector<ToolBox> m_toolboxes;                         // from index 1
};

} // namespace orrery
