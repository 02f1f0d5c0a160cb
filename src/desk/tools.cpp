// The tool windows of the desk.
#include "desk/tools.h"

#include "actions/game.h"
#include "actions/sequence.h"
#include "desk/elements.h"
#include "desk/qonsole.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "project/elementprops.h"

#include <algorithm>

namespace orrery {

namespace {

void Centre(Game &game, ToolBox &box) {
    box.left = game.desk.formWidth / 2 - box.width / 2 - 240;
    box.top = game.desk.formHeight / 2 - box.height / 2;
}

// Makes the controls of the tool's rows, once, and sizes the panel round them. Events are
// pumped before every tenth row scanned, as the designed controls are given to the desk.
void LoadToolElements(Game &game, int n) {
    ToolBox &box = game.desk.Box(n);
    const DesignedTool design = BuildToolControls(game.project, box.tag);
    int nextPump = 1;
    const auto pumpUpTo = [&](int row) {
        for (; nextPump <= row; nextPump += 10) game.host.Yield();
    };
    for (const DesignedControl &designed : design.controls) {
        pumpUpTo(designed.row);
        PlaceDesignedControl(game.desk, n, designed);
        game.project.Element(designed.row)[kRowNumberColumn] = IntText(designed.row);
    }
    pumpUpTo(design.lastRowScanned);
    SizeToolBox(box, design);
}

void Impose(Game &game, int n, const std::string &caption) {
    Desk &desk = game.desk;
    desk.Chrome.push_back(DressTool(game.project.settings, n, desk.Box(n).width, caption));
    const int c = static_cast<int>(desk.Chrome.size()) - 1;
    if (c <= kToolboxes) desk.OpenTools[static_cast<std::size_t>(c)] = n;
}

void RaiseExisting(Game &game, int n) {
    ToolBox &box = game.desk.Box(n);
    if (!box.visible) ActivateToolSub(game, box.tag, "open");
    Centre(game, box);
    box.visible = true;
    SetToolerSel(game, n, true);
    SetToolBoxTextFocus(game, n);
    ActivateToolSub(game, box.tag, "activate");
}

void MakeNew(Game &game, int entry) {
    Desk &desk = game.desk;
    const SideEntry side = desk.SideMenu[static_cast<std::size_t>(entry)];
    if (desk.toolboxCount >= kMaxToolboxes) return;
    const int n = ++desk.toolboxCount;
    ToolBox &box = desk.Box(n);
    box.left = 10;
    box.tag = side.tag;
    box.backColor = game.project.settings.mytoolsbackcolor;
    LoadToolElements(game, n);
    Impose(game, n, side.caption);
    // Not `= ":"`: GCC 12 warns of an overlapping copy there that can't happen.
    if (desk.OpenToolList.empty()) desk.OpenToolList.push_back(':');
    desk.OpenToolList += side.tag + ":";
    Centre(game, box);
    box.visible = true;
    SetToolerSel(game, n, true);
    SetToolBoxTextFocus(game, n);
    ActivateToolSub(game, side.tag, "open");
    ActivateToolSub(game, side.tag, "activate");
}

void RunRowAction(Game &game, int row) {
    const std::string &action = game.project.Element(row)[kActionColumn];
    if (!IsBlank(action)) RunSequence(game, action, row, 0);
}

} // namespace

DesignedTool BuildToolControls(const ProjectModel &project, std::string_view tool) {
    DesignedTool design;
    std::int32_t right = 0, bottom = 0;
    for (int row = 1; row <= kLastToolRow; ++row) {
        design.lastRowScanned = row;
        const ElementRow &element = project.Element(row);
        if (IsBlank(element[kToolColumn]) && IsBlank(project.Element(row + 1)[kToolColumn])) break;
        if (!RowOfTool(element, tool)) continue;
        const ElementKind kind = KindOfName(NormText(FieldAt(element[kKindColumn], 1)));
        if (kind == ElementKind::Other) continue;
        ElementControl control;
        control.tag = element[kNameColumn];
        control.kind = kind;
        ApplyProperties(control, element, true);
        PadLabelCaption(control);
        control.visible = true;
        right = std::max(right, control.left + control.width);
        bottom = std::max(bottom, control.top + control.height);
        design.controls.push_back({row, std::move(control)});
    }
    if (right > 0) design.width = right;
    if (bottom > 0) design.height = bottom + 120 + kTitleBarHeight;
    return design;
}

ElementControl &PlaceDesignedControl(Desk &desk, int n, const DesignedControl &designed) {
    ElementControl &control = desk.LoadControl(designed.row, designed.control.tag, designed.control.kind);
    control = designed.control;
    control.box = n;
    if (control.kind == ElementKind::Qonsole) {
        CreateQonsole(desk.consoles, designed.row, control.commandList);
        PrintQonsole(desk.consoles, designed.row, "Welcome to this console");
    }
    return control;
}

void SizeToolBox(ToolBox &box, const DesignedTool &design) {
    if (design.width > 0) box.width = design.width;
    if (design.height > 0) box.height = design.height;
    box.width = std::max(box.width, kChromeRightWidth + 720);
}

ToolChrome DressTool(const ProjectSettings &settings, int n, std::int32_t width,
                     const std::string &caption) {
    ToolChrome chrome;
    chrome.box = n;
    chrome.caption = caption;
    chrome.tag = LowerCase(caption);
    chrome.midWidth = std::max(0, width - 1440);
    chrome.border = settings.mytoolsborder;
    return chrome;
}

void LoadSideMenu(Game &game) {
    const ProjectSettings &s = game.project.settings;
    Desk &desk = game.desk;
    desk.SideMenu.assign(1, SideEntry{});
    std::int32_t top = kTitleBarHeight + 240;
    for (const std::string &name : game.project.ToolNameTable) {
        if (IsBlank(name) || SideMenuExcluded(s, name)) continue;
        SideEntry entry{name, ReplaceAll(LowerCase(name), " ", ""), true, top};
        if (SideMenuHidden(s, name)) entry.visible = false;
        if (entry.visible) top += 285 + 120;
        desk.SideMenu.push_back(entry);
    }
    desk.ToolLocked.assign(desk.SideMenu.size(), false);
}

void OpenTool(Game &game, int entry) {
    Desk &desk = game.desk;
    if (entry < 1 || entry >= static_cast<int>(desk.SideMenu.size())) return;
    if (desk.ToolLocked[static_cast<std::size_t>(entry)]) return;
    const int n = ToolOpen(game, desk.SideMenu[static_cast<std::size_t>(entry)].tag);
    if (n) RaiseExisting(game, n);
    else MakeNew(game, entry);
}

void OpenT(Game &game, std::string_view name) {
    const std::string wanted = NormText(StripBrackets(name));
    if (wanted.empty()) return;
    const auto &side = game.desk.SideMenu;
    for (std::size_t s = 1; s < side.size(); ++s)
        if (NormText(side[s].caption) == wanted) return OpenTool(game, static_cast<int>(s));
}

int ToolOpen(const Game &game, std::string_view name) {
    for (int n = 1; n <= kMaxToolboxes; ++n)
        if (!name.empty() && game.desk.Box(n).tag == name) return n;
    return 0;
}

int GetRealToolIndex(const Game &game, std::string_view name) {
    const std::string wanted = NormText(name);
    const auto &chrome = game.desk.Chrome;
    for (std::size_t c = 1; c < chrome.size(); ++c)
        if (NormText(chrome[c].caption) == wanted) return static_cast<int>(c);
    return kNoTool;
}

int FindBox(const Game &game, std::string_view name) {
    const auto &chrome = game.desk.Chrome;
    for (std::size_t c = 1; c < chrome.size(); ++c)
        if (game.desk.Box(chrome[c].box).tag == name) return static_cast<int>(c);
    return kNoTool;
}

void UnloadBox(Game &game, int c) {
    Desk &desk = game.desk;
    if (c < 1 || c >= static_cast<int>(desk.Chrome.size())) return;
    desk.toolerVisible = false;
    game.host.Yield();
    ToolBox &box = desk.Box(desk.Chrome[static_cast<std::size_t>(c)].box);
    box.visible = false;
    const std::string tool = box.tag;
    ActivateToolSub(game, tool, "close");
    ClearTextBoxesInTool(game, tool);
}

void ActivateToolSub(Game &game, std::string_view tool, std::string_view event) {
    const std::string e = LowerCase(event);
    auto &subs = game.project.ToolSubTable;
    if (tool != kAllThatAreVisible) {
        const std::string key = LowerCase(tool) + ":" + e;
        for (const ToolSub &sub : subs)
            if (!IsBlank(sub.key) && LowerCase(sub.key) == key) RunSequence(game, sub.sequence, 0, 0);
        return;
    }
    for (const ToolSub &sub : subs) {
        if (!InStr(LowerCase(sub.key), ":" + e)) continue;
        const std::string name = FieldAt(LowerCase(sub.key), 1);
        if (!InStr(game.desk.OpenToolList, ":" + name + ":")) continue;
        const int n = ToolOpen(game, name);
        if (e == "open" || (n && game.desk.Box(n).visible)) RunSequence(game, sub.sequence, 0, 1);
    }
}

void ClearTextBoxesInTool(Game &game, std::string_view tool) {
    for (int row = 1; row <= kElementRows; ++row) {
        if (!RowOfTool(game.project.Element(row), tool)) continue;
        ElementControl *control = game.desk.Control(row);
        if (control && control->kind == ElementKind::Text) control->text.clear();
    }
}

void SetToolerSel(Game &game, int box, bool force) {
    Desk &desk = game.desk;
    if (box == desk.selectedBox && !force) return;
    desk.selectedBox = box;
    desk.toolerVisible = true;
    if (box >= 1 && box <= kMaxToolboxes) desk.Box(box).raisedAt = ++desk.raiseCounter;
}

void SetToolBoxTextFocus(Game &game, int box) {
    for (int row : game.desk.TLinkRows()) {
        const ElementControl *control = game.desk.Control(row);
        if (control && control->box == box && control->kind == ElementKind::Text) {
            game.desk.focusRow = row;
            return;
        }
    }
}

void ToolPress(Game &game, int box) {
    game.desk.consoles.focus = 0;
    SetToolerSel(game, box, false);
}

void QonsoleClick(Game &game, int row) {
    const ElementControl *console = game.desk.Control(row);
    if (!console || console->kind != ElementKind::Qonsole) return;
    SetToolerSel(game, console->box, false);
    game.desk.consoles.focus = row;
}

void ButtonClick(Game &game, int row) {
    if (row >= 1 && row <= kElementRows)
        RunSequence(game, game.project.Element(row)[kActionColumn], row, 0);
}

void ImageClick(Game &game, int row) { RunRowAction(game, row); }
void LabelDoubleClick(Game &game, int row) { RunRowAction(game, row); }
void ListClick(Game &game, int row) { RunRowAction(game, row); }

void TextEnter(Game &game, int row) {
    const ElementControl *text = game.desk.Control(row);
    if (!text || text->height >= 800) return;
    const std::string tool = ToolTag(FieldAt(game.project.Element(row)[kToolColumn], 2));
    for (int other = 1; other <= kElementRows; ++other) {
        const ElementControl *button = game.desk.Control(other);
        if (button && button->kind == ElementKind::Button && RowOfTool(game.project.Element(other), tool))
            return ButtonClick(game, other);
    }
}

} // namespace orrery
