// The top menu.
#include "desk/menus.h"

#include "actions/game.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "desk/help.h"
#include "desk/quicklist.h"
#include "foundation/text.h"

#include <algorithm>

namespace orrery {

namespace {

void Clipboard(Game &game, bool cut) {
    ElementControl *control = game.desk.Control(game.desk.focusRow);
    if (!control) return;
    if (control->kind == ElementKind::List) {
        if (control->listIndex < 0 || control->listIndex >= static_cast<int>(control->items.size())) return;
        game.desk.clipboard = control->items[static_cast<std::size_t>(control->listIndex)];
        if (cut) control->items.erase(control->items.begin() + control->listIndex), control->listIndex = -1;
        return;
    }
    if (control->kind != ElementKind::Text) return;
    // With no selection the whole text goes.
    const bool selection = control->selLength > 0;
    const std::size_t start = selection ? static_cast<std::size_t>(control->selStart) : 0;
    const std::size_t length = selection ? static_cast<std::size_t>(control->selLength) : control->text.size();
    game.desk.clipboard = control->text.substr(std::min(start, control->text.size()), length);
    if (cut) control->text.erase(std::min(start, control->text.size()), length);
}

void Paste(Game &game) {
    ElementControl *control = game.desk.Control(game.desk.focusRow);
    if (!control) return;
    if (control->kind == ElementKind::List) control->items.push_back(game.desk.clipboard);
    if (control->kind != ElementKind::Text) return;
    const auto start = std::min(static_cast<std::size_t>(std::max(0, static_cast<int>(control->selStart))),
                                control->text.size());
    const auto length = static_cast<std::size_t>(std::max(0, static_cast<int>(control->selLength)));
    control->text.replace(start, length, game.desk.clipboard);
}

} // namespace

void LoadTopMenu(Game &game) {
    Desk &desk = game.desk;
    desk.TopMenu.assign(1, TopEntry{});
    const std::string text = ReplaceAll(MenuWithHelpEntry(game.project.settings.mytopmenu), "//", ":");
    std::string subs; // a sub-entry before any entry lands here and is lost
    for (std::int16_t i = 1; i <= 100; ++i) {
        const std::string field = Trim(FieldAt(text, i));
        if (field.starts_with('-')) {
            subs += field + ":";
        } else if (!field.empty()) {
            if (desk.TopMenu.size() > 1) desk.TopMenu.back().subs = subs;
            subs.clear();
            desk.TopMenu.push_back(TopEntry{field, {}});
        }
    }
    if (desk.TopMenu.size() > 1) desk.TopMenu.back().subs = subs;
    desk.selectedMenu = kNoMenu;
}

void SelMenu(Game &game, int index) {
    Desk &desk = game.desk;
    if (index == desk.selectedMenu) return;
    desk.selectedMenu = index;
    desk.TopMenuList.assign(1, SubEntry{});
    desk.topMenuListVisible = index != kNoMenu;
    if (index < 1 || index >= static_cast<int>(desk.TopMenu.size())) return;
    const std::string &subs = desk.TopMenu[static_cast<std::size_t>(index)].subs;
    for (std::int16_t i = 1; i < 32767; ++i) {
        const std::string field = FieldAt(subs, i);
        if (field.empty() && FieldAt(subs, static_cast<std::int16_t>(i + 1)).empty()) break;
        if (IsBlank(field)) continue;
        std::string caption = Trim(ReplaceAll(field, "-", ""));
        if (field.starts_with('-')) caption = Trim(field.substr(1));
        SubEntry entry{caption, {}};
        if (const auto equals = caption.find('='); equals != std::string::npos) {
            entry.caption = caption.substr(0, equals);
            entry.word = caption.substr(equals + 1);
        }
        desk.TopMenuList.push_back(entry);
    }
}

void ActivateTopMenu(Game &game, int index) {
    Desk &desk = game.desk;
    if (index < 1 || index >= static_cast<int>(desk.TopMenuList.size())) return;
    const std::string word = Trim(desk.TopMenuList[static_cast<std::size_t>(index)].word);
    SelMenu(game, kNoMenu);
    const std::string action = NormText(word);
    if (action.empty()) return;
    if (action == "help") ShowHelp(desk);
    else if (action == "exit") desk.exitRequested = true;
    else if (action == "quicklist") ShowQuicklist(desk);
    else if (action == "cut") Clipboard(game, true);
    else if (action == "copy") Clipboard(game, false);
    else if (action == "paste") Paste(game);
    else RunStatement(game, SubstituteVariables(game, word));
}

} // namespace orrery
