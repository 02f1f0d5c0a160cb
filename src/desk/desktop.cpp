// The game desktop: load, first activation, keys and exit.
#include "desk/desktop.h"

#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/statement.h"
#include "desk/help.h"
#include "desk/menus.h"
#include "desk/qonsole.h"
#include "desk/quicklist.h"
#include "desk/timers.h"
#include "desk/tools.h"
#include "foundation/text.h"
#include "network/directory.h"
#include "network/generator.h"
#include "network/profileworld.h"

namespace orrery {

void LoadDesktop(Game &game) {
    Desk &desk = game.desk;
    const ProjectSettings &s = game.project.settings;
    desk.OpenToolList.clear();
    if (game.paths) game.words.LoadNames(game.paths->DataPath() / "names.dat");
    desk.background = s.mygamebackground;
    if (s.mytoolsmenutopmenu) LoadTopMenu(game);
    if (s.mytoolsmenusidemenu) LoadSideMenu(game);
    else desk.ToolLocked.assign(1, false);
    StartDesktopTimers(game);
    if (s.myclock) LoadClock(desk, LocalTimeOfDay());
    LoadHelper(game);
    LoadQuickList(game);
    desk.activated = false;
}

void FirstActivate(Game &game, const std::function<void()> &loadProfile) {
    Desk &desk = game.desk;
    if (desk.activated) return;
    desk.NoMoveList.clear();
    desk.activated = true;
    if (game.paths)
        if (const auto folder = ProfileFolder(*game.paths, game.PlayerName)) {
            game.world.LoadDns(*folder);
            game.world.LoadServerRecords(*folder);
        }
    game.host.Yield();
    RunSequence(game, game.project.settings.mymainsubload, 0, 0);
    game.host.Yield();
    if (loadProfile) loadProfile();
    for (const char *event : {"every1second", "every2seconds", "every10seconds", "every60seconds"})
        ActivateToolSub(game, kAllThatAreVisible, event);
    desk.toolerVisible = false;
}

void DesktopKey(Game &game, int keyCode, bool shift) {
    Desk &desk = game.desk;
    if (shift && keyCode == Key::F12) desk.debugVisible = !desk.debugVisible;
    if (desk.message.visible) {
        desk.message.visible = false;
        return;
    }
    // Escape with a drop-down of the top menu open closes the drop-down only.
    if (keyCode == Key::Escape && desk.topMenuListVisible) return SelMenu(game, kNoMenu);
    if (keyCode == Key::Escape) desk.exitRequested = true;
    if (keyCode == Key::F1) ToggleHelp(desk);
    if (keyCode == Key::F9) desk.topMenuVisible = !desk.topMenuVisible;
    if (keyCode == Key::F10) ToggleQuicklist(desk);
    if (keyCode == Key::F11) ToggleClock(desk);
    if (FocusedQonsoleKey(game, keyCode, shift ? kShiftDown : kShiftNone)) return;
    // Then the focused control has the key: Enter in a short text box clicks its tool's button.
    const ElementControl *focused = desk.Control(desk.focusRow);
    if (keyCode == Key::Enter && focused && focused->kind == ElementKind::Text) TextEnter(game, desk.focusRow);
}

void DesktopChar(Game &game, char c) {
    if (game.desk.message.visible) {
        game.desk.message.visible = false;
        return;
    }
    FocusedQonsoleChar(game, c);
}

void DesktopMouseMove(Game &game) { game.desk.consoles.focus = 0; }

void DebugButtonClick(Game &game) { ++game.desk.debugClicks; }

void DebugLabelClick(Game &game) {
    if (game.desk.debugClicks == 3) RunStatement(game, "$score = RETURN_COMPLEX [$score + 12000]");
}

void ExitMe(Game &game, const std::function<void()> &saveProfile) {
    if (saveProfile) saveProfile();
    game.host.Yield();
    game.desk.exitRequested = true;
}

std::string ReplaceVars(std::string_view text, std::string_view projectName) {
    return ReplaceAll(ReplaceAll(text, "$projectname", projectName), "$myprojectname", projectName);
}

} // namespace orrery
