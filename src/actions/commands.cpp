// Commands on elements, lists, tools, menus, the message panel, consoles and sound.
#include "actions/commands.h"

#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "desk/elements.h"
#include "desk/qonsole.h"
#include "desk/tools.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "foundation/textfile.h"

#include <initializer_list>

namespace orrery {

namespace {

std::string Arg(const Statement &st, int index) { return BracketArg(st.rest, index); }

// The row of an element argument: name form, its index substituted, first equal name up to
// the rows' bound; 0 when none.
int ElementRowOf(Game &game, std::string element) {
    element = NormText(element);
    if (InStr(element, "($") && HasParens(element)) element = SubstituteVariables(game, element);
    return FindElementRow(game.project, element, RowWalk::UpToGap);
}

// The control of a row as the name's first kind word, in the handler's order, chooses it:
// nullptr when the tool is shut or the row's control is of another kind.
ElementControl *ChosenControl(Game &game, int row, std::string_view name,
                              std::initializer_list<ElementKind> kinds) {
    ElementControl *control = game.desk.Control(row);
    if (!control) return nullptr;
    for (ElementKind kind : kinds) {
        if (InStr(name, KindWord(kind))) return control->kind == kind ? control : nullptr;
    }
    return nullptr;
}

constexpr std::initializer_list<ElementKind> kAllKinds = {
    ElementKind::Button, ElementKind::Label, ElementKind::Text,
    ElementKind::List,   ElementKind::Image, ElementKind::Qonsole};
constexpr std::initializer_list<ElementKind> kColouredKinds = {
    ElementKind::Button, ElementKind::Label, ElementKind::Text, ElementKind::List, ElementKind::Qonsole};

ElementControl *ElementArg(Game &game, const Statement &st, std::initializer_list<ElementKind> kinds) {
    std::string tool = Arg(st, 1);
    ResolveToolRef(game, tool); // documentation only: element names are unique
    const std::string element = NormText(Arg(st, 2));
    const int row = ElementRowOf(game, element);
    return row ? ChosenControl(game, row, element, kinds) : nullptr;
}

std::string SetVisible(Game &game, const Statement &st, bool visible) {
    if (ElementControl *control = ElementArg(game, st, kAllKinds)) control->visible = visible;
    return {};
}

std::int32_t Colour(std::string_view text) { return RoundToInt32(Val(text)).value_or(0); }

ElementControl *ListOf(Game &game, const Statement &st) {
    const std::string name = NormText(Arg(st, 1));
    const int row = ElementRowOf(game, name);
    ElementControl *control = row ? game.desk.Control(row) : nullptr;
    return control && control->kind == ElementKind::List ? control : nullptr;
}

std::string WithLookup(Game &game, std::string text) { return LookupValue(game, text); }

void SetCloseMark(Game &game, const Statement &st, bool visible) {
    std::string name = Arg(st, 1);
    const int c = GetRealToolIndex(game, LookupValue(game, name));
    if (c == kNoTool) return;
    ToolChrome &chrome = game.desk.Chrome[static_cast<std::size_t>(c)];
    if (chrome.exiterVisible == visible) return;
    chrome.exiterVisible = visible;
    chrome.midWidth += (visible ? -1 : 1) * (kChromeRightWidth + 120);
}

std::string Unlocked(Game &game, const Statement &st, bool lock) {
    std::string name = Arg(st, 1);
    const std::string tool = LookupValue(game, name);
    if (lock) MenuLock(game, tool);
    else MenuUnlock(game, tool);
    return {};
}

void ApplyResetProperties(Game &game, ElementControl &control, int row) {
    ApplyProperties(control, game.project.Element(row), false);
}

} // namespace

void PrintConsole(Game &game, int row, const std::string &text) {
    PrintQonsole(game.desk.consoles, row, text);
}

void MenuLock(Game &game, std::string_view tool) {
    const std::string tag = LowerCase(tool);
    Desk &desk = game.desk;
    for (std::size_t s = 1; s < desk.SideMenu.size(); ++s) {
        if (desk.SideMenu[s].tag != tag) continue;
        desk.ToolLocked[s] = true;
        const int n = ToolOpen(game, tag);
        if (n && desk.Box(n).visible) UnloadBox(game, FindBox(game, tag));
    }
}

void MenuUnlock(Game &game, std::string_view tool) {
    const std::string tag = LowerCase(tool);
    Desk &desk = game.desk;
    for (std::size_t s = 1; s < desk.SideMenu.size(); ++s)
        if (desk.SideMenu[s].tag == tag) desk.ToolLocked[s] = false;
}

std::string ElementHide(Game &game, Statement &st) { return SetVisible(game, st, false); }
std::string ElementShow(Game &game, Statement &st) { return SetVisible(game, st, true); }

std::string ElementBackcolor(Game &game, Statement &st) {
    if (ElementControl *c = ElementArg(game, st, kColouredKinds)) c->backColor = Colour(Arg(st, 3));
    return {};
}

std::string ElementForecolor(Game &game, Statement &st) {
    if (ElementControl *c = ElementArg(game, st, kColouredKinds)) c->foreColor = Colour(Arg(st, 3));
    return {};
}

std::string ToolBackcolor(Game &game, Statement &st) {
    std::string tool = Arg(st, 1);
    const int n = ResolveToolRef(game, tool);
    if (n >= 1 && n <= kToolboxes) game.desk.Box(n).backColor = Colour(Arg(st, 2));
    return {};
}

std::string SetFocus(Game &game, Statement &st) {
    std::string tool = Arg(st, 1);
    ResolveToolRef(game, tool);
    const std::string element = NormText(Arg(st, 2));
    const int row = ElementRowOf(game, element);
    if (row && ChosenControl(game, row, element,
                             {ElementKind::Button, ElementKind::Label, ElementKind::Text,
                              ElementKind::List, ElementKind::Image}))
        game.desk.focusRow = row;
    return {};
}

std::string ListAdd(Game &game, Statement &st) {
    const std::string text = WithLookup(game, Arg(st, 2));
    if (text.empty()) return {};
    if (ElementControl *list = ListOf(game, st)) list->items.push_back(text);
    return {};
}

std::string ListRemove(Game &game, Statement &st) {
    const std::string text = NormText(WithLookup(game, Arg(st, 2)));
    ElementControl *list = ListOf(game, st);
    if (!list) return {};
    // Removing shifts the list under the index, so of two equal neighbours the second stays.
    const std::size_t count = list->items.size();
    for (std::size_t i = 0; i < count; ++i)
        if (i < list->items.size() && NormText(list->items[i]) == text)
            list->items.erase(list->items.begin() + static_cast<std::ptrdiff_t>(i));
    return {};
}

std::string ListClear(Game &game, Statement &st) {
    if (ElementControl *list = ListOf(game, st)) {
        list->items.clear();
        list->listIndex = -1;
        list->text.clear();
    }
    return {};
}

std::string ConsolePrint(Game &game, Statement &st) {
    const std::string colour = ExpandSpecials(game, Arg(st, 3));
    const std::string text = ExpandSpecials(game, Arg(st, 2));
    const std::string name = NormText(Arg(st, 1));
    if (const int row = FindElementRow(game.project, name))
        PrintConsole(game, row, "~" + Trim(colour) + "     " + text);
    return {};
}

std::string Message(Game &game, Statement &st) {
    MessagePanel &panel = game.desk.message;
    panel.title = ExpandSpecials(game, Arg(st, 1));
    panel.text = ReplaceAll(ExpandSpecials(game, Arg(st, 2)), "//", "\r\n");
    panel.visible = true;
    return {};
}

std::string Open(Game &game, Statement &st) {
    OpenT(game, Arg(st, 1));
    return {};
}

std::string Close(Game &game, Statement &st) {
    std::string tool = Arg(st, 1);
    const int n = ResolveToolRef(game, tool);
    if (n >= 1 && n <= kToolboxes) game.desk.Box(n).visible = false;
    game.desk.toolerVisible = false;
    ActivateToolSub(game, NormText(Arg(st, 1)), "close");
    return {};
}

std::string CloseDisable(Game &game, Statement &st) {
    SetCloseMark(game, st, false);
    return {};
}

std::string CloseEnable(Game &game, Statement &st) {
    SetCloseMark(game, st, true);
    return {};
}

std::string MenuLockOn(Game &game, Statement &st) { return Unlocked(game, st, true); }
std::string MenuLockOff(Game &game, Statement &st) { return Unlocked(game, st, false); }

std::string WindowDisableMove(Game &game, Statement &st) {
    game.desk.NoMoveList += ":" + NormText(Arg(st, 1)) + ":";
    return {};
}

std::string WindowEnableMove(Game &game, Statement &st) {
    game.desk.NoMoveList = ReplaceAll(game.desk.NoMoveList, ":" + NormText(Arg(st, 1)) + ":", "");
    return {};
}

std::string SetBackgroundImage(Game &game, Statement &st) {
    const auto file = SafeComponent(NormText(Arg(st, 1)));
    // A picture that can't be loaded leaves the old one.
    if (file && game.paths && FileExists(game.paths->ResPath() / "uimages" / *file))
        game.desk.background = *file;
    return {};
}

std::string SetBackgroundImageReset(Game &game, Statement &) {
    game.desk.background = game.project.settings.mygamebackground;
    return {};
}

std::string PlayMusic(Game &game, Statement &st) {
    // Music comes from counters and the desktop's own tracks; the name is only expanded.
    if (game.host.Preference("Music", "1") != "0") ExpandSpecials(game, Arg(st, 1));
    return {};
}

std::string PlaySound(Game &game, Statement &st) {
    if (game.host.Preference("Sound", "1") == "0") return {};
    const std::string name = Trim(ExpandSpecials(game, Arg(st, 1)));
    const auto file = SafeComponent(name);
    if (file && game.paths) game.host.PlaySound((game.paths->ResPath() / "uimages" / *file).string());
    return {};
}

std::string ExitSequence(Game &game, Statement &st) {
    std::string qlob = Trim(Arg(st, 1));
    if (!qlob.empty()) RunQlob(game, qlob);
    return std::string(kCancel);
}

std::string ExitGame(Game &game, Statement &) {
    game.host.Yield();
    game.desk.closeRequested = true;
    return {};
}

std::string Authorize(Game &game, Statement &st) {
    const std::int32_t current = ToInt32(ExpandSpecials(game, Arg(st, 1))).value_or(0);
    const std::string variable = StripBrackets(Arg(st, 1));
    const std::string costText = ReplaceAll(ExpandSpecials(game, StripBrackets(Arg(st, 2))), "$", "");
    const std::int16_t cost = ToInt16(costText).value_or(0);
    const std::string qlob = ExpandSpecials(game, StripBrackets(Arg(st, 3)));
    if (current < cost) {
        RunStatement(game, "QLOB [" + qlob + "]");
        return std::string(kCancel);
    }
    RunStatement(game, variable + " = RETURN_COMPLEX [" + variable + " - " + IntText(cost) + "]");
    return {};
}

std::string ResetElement(Game &game, Statement &st) {
    std::string tool = Arg(st, 1);
    ResolveToolRef(game, tool);
    const std::string element = NormText(Arg(st, 2));
    const int row = ElementRowOf(game, element);
    if (ElementControl *control = row ? ChosenControl(game, row, element, kColouredKinds) : nullptr)
        ApplyResetProperties(game, *control, row);
    return {};
}

std::string ResetTool(Game &game, Statement &st) {
    const std::string tool = NormText(Arg(st, 1));
    std::string first = NormText(Arg(st, 2)), second = NormText(Arg(st, 3));
    // A short exception would protect everything; it becomes a text no name holds.
    if (first.size() < 4) first = "skdjfslduiofsmdfhsuiohiofudh";
    if (second.size() < 4) second = "skdjfdslduiofsmdfhsuiohiofudh";
    for (int row = 1; row <= kElementRows; ++row) {
        if (IsElementGap(game.project, row)) break;
        const ElementRow &element = game.project.Element(row);
        const std::string name = NormText(element[kNameColumn]);
        if (!InStr(NormText(element[kToolColumn]), ":" + tool) || InStr(name, first) || InStr(name, second))
            continue;
        ElementControl *control = game.desk.Control(row);
        if (!control || control->kind == ElementKind::Image || control->kind == ElementKind::Other) continue;
        ApplyResetProperties(game, *control, row);
        PadLabelCaption(*control);
    }
    return {};
}

} // namespace orrery
