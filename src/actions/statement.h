// One action statement, from its text to its effect: the dispatcher of the engine.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orrery {

struct Game;

inline constexpr std::string_view kCancel = "cancel";

// A statement cut into its pieces: the target before the first "=", the rest after the name.
struct Statement {
    std::string target;
    std::string rest;
};

// A statement's text cut as the dispatcher cuts it: every "action:" prefix (in its three
// spellings) removed, the target before the first "=", the name up to the first blank after
// it in name form, and the rest.
struct StatementParts {
    std::string target;
    std::string name;
    std::string rest;
};
StatementParts SplitStatement(std::string_view statement);

// Runs one statement: yields once, cuts the target at the first "=" and the name at the first
// blank, and runs the first row of the dispatch table with that name. "cancel" stops the
// sequence being walked; every other result is "".
std::string RunStatement(Game &game, std::string statement);

// Argument `index` (from 1) of a rest: brackets quote, blanks outside them separate. Any run
// of three "l" is lost, as the separators' marker is removed.
std::string BracketArg(std::string_view rest, int index);
// Every argument of a rest, each one back-quote separated: what BracketArg takes its fields from.
std::string BracketArgText(std::string_view rest);

// The toolbox of a tool argument; 999 when no open tool has that name.
std::int32_t ResolveToolRef(Game &game, std::string &tool);

// The names of the dispatch table, in the order they are tested.
const std::string_view *DispatchNames(std::size_t &count);

} // namespace orrery
