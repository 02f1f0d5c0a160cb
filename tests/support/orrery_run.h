// Runs the orrery tool in the test's process, as an author runs it from a shell.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "tools/cli.h"

namespace orrery::test {

struct ToolRun {
    int code;
    std::string out;
    std::string err;
};

inline ToolRun Orrery(const std::vector<std::string> &args, const std::string &input = "") {
    std::istringstream in(input);
    std::ostringstream out, err;
    const int code = RunOrreryCli(args, in, out, err);
    return {code, out.str(), err.str()};
}

} // namespace orrery::test
