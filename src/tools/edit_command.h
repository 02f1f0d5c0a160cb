// orrery edit: the editor's operations on a project without a display, one at a time or as a
// script that is applied whole or not at all.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace orrery {

// The words of a script line: separated by blanks; a word in double quotes may hold blanks,
// and inside quotes a backslash keeps the next character as it is. False when a quote isn't
// closed.
bool SplitWords(std::string_view line, std::vector<std::string> &words);

// args: <app-dir> <name> (<operation> [arguments] | --script FILE), or --help. Returns 0, 1 for
// a refusal or a failed save, 2 for a wrong command line.
int EditCommand(const std::vector<std::string> &args, std::istream &in, std::ostream &out,
                std::ostream &err);

} // namespace orrery
