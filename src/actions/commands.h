// The statements that change what the player sees: elements, lists, tools, menus, the message
// panel, consoles, sound, and AUTHORIZE. Each returns "" or "cancel".
#pragma once

#include <string>

namespace orrery {

struct Game;
struct Statement;

std::string ElementHide(Game &game, Statement &st);
std::string ElementShow(Game &game, Statement &st);
std::string ElementBackcolor(Game &game, Statement &st);
std::string ElementForecolor(Game &game, Statement &st);
std::string ToolBackcolor(Game &game, Statement &st);
std::string SetFocus(Game &game, Statement &st);
std::string ListAdd(Game &game, Statement &st);
std::string ListRemove(Game &game, Statement &st);
std::string ListClear(Game &game, Statement &st);
std::string ConsolePrint(Game &game, Statement &st);
std::string Message(Game &game, Statement &st);
std::string Open(Game &game, Statement &st);
std::string Close(Game &game, Statement &st);
std::string CloseDisable(Game &game, Statement &st);
std::string CloseEnable(Game &game, Statement &st);
std::string MenuLockOn(Game &game, Statement &st);
std::string MenuLockOff(Game &game, Statement &st);
std::string WindowDisableMove(Game &game, Statement &st);
std::string WindowEnableMove(Game &game, Statement &st);
std::string SetBackgroundImage(Game &game, Statement &st);
std::string SetBackgroundImageReset(Game &game, Statement &st);
std::string PlayMusic(Game &game, Statement &st);
std::string PlaySound(Game &game, Statement &st);
std::string ExitSequence(Game &game, Statement &st);
std::string ExitGame(Game &game, Statement &st);
std::string Authorize(Game &game, Statement &st);
std::string ResetElement(Game &game, Statement &st);
std::string ResetTool(Game &game, Statement &st);

// Locks the side-menu entries of a tool, closing its window; unlocks them.
void MenuLock(Game &game, std::string_view tool);
void MenuUnlock(Game &game, std::string_view tool);
// Adds a row to a console.
void PrintConsole(Game &game, int row, const std::string &text);

} // namespace orrery
