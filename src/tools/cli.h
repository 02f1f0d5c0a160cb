// The orrery command-line tool, callable in-process so that tests drive it as authors do.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace orrery {

// Runs the tool on arguments (without the program name). Returns the process's exit code:
// 0 on success, 1 when the work failed, 2 for bad arguments.
int RunOrreryCli(const std::vector<std::string> &args, std::istream &in, std::ostream &out,
                 std::ostream &err);

} // namespace orrery
