// orrery check: a project's mistakes, each on the line of the project file where it stands.
#pragma once

#include <iosfwd>
#include <string>

namespace orrery {

// Checks the project without changing a byte of the folder, printing each finding as
// "<file>:<line>: error|warning: <message>", or with json an array of objects with file, line,
// severity, code and message. Returns 0 with no error, 1 with errors, 2 when the project
// can't be read.
int CheckCommand(const std::string &appDir, const std::string &name, bool json, std::ostream &out,
                 std::ostream &err);

} // namespace orrery
