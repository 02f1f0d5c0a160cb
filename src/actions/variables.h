// User variables, special variables and the substitution passes every argument goes through.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace orrery {

struct Game;

// The full substitution: specials in their binding order, "_$", the index in parentheses,
// user variables, then the names of loaded elements by their content. "" for a blank text.
std::string ExpandSpecials(Game &game, std::string_view text);
// The first pass of ExpandSpecials: the special names ("$playername", "$random25"...) in
// their binding order, each value drawn whether the text holds its name or not.
std::string ExpandSpecialNames(Game &game, std::string text);
// The special names ExpandSpecialNames replaces, in its order, "(?)" aside.
std::span<const std::string_view> SpecialVariableNames();
// User variables only, longest names first, each replacement open to later names.
std::string SubstituteVariables(Game &game, std::string_view text);
// Substitutes only the text within the first parentheses: "$slot($i)" by the value of $i.
std::string ResolveIndexedName(Game &game, std::string_view text);
// The text between the first "(" and the next ")", trimmed.
std::string ParenText(std::string_view text);
// A whole operand: a variable's value, a loaded element's content, or the text itself. The
// text loses its underscores and gets the player's name, as the caller sees.
std::string LookupValue(Game &game, std::string &text);

// 1 when a variable of that name exists and now holds the trimmed value, else 0.
int SetVariable(Game &game, std::string_view name, std::string_view value);
// The value of a variable, "" when there is none.
std::string GetVariable(Game &game, std::string_view name);
// CREATE_VARIABLE: both texts without brackets, in name form, expanded; an existing row of
// that name is overwritten, else the first free one.
void CreateVariable(Game &game, std::string_view name, std::string_view value);
// The row of a variable, 0 when none.
int FindVariable(const Game &game, std::string_view name);

// A whole number from 1 to n, as text.
std::string RandomUpTo(Game &game, int n);
// Four numbers from 1 to 255 with points between.
std::string RandomIp(Game &game);

} // namespace orrery
