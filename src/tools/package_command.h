// orrery package: a project's game folder, built as the editor's builder builds it.
#pragma once

#include <iosfwd>
#include <string>

namespace orrery {

class AppPaths;
struct ProjectModel;

struct PackageOptions {
    std::string out;     // the game folder; empty for Data/<project folder>/Distro
    bool pad = false;    // a PAD listing beside the folder
    bool clean = false;  // the folder emptied first
    bool strict = false; // a file the project names and the build lacks fails the command
};

// The log's lines on out, the world's progress on err when it is a terminal, and what was not
// shipped. 0 when built (and, with strict, nothing was missing); 1 otherwise.
int PackageCommand(const AppPaths &paths, const ProjectModel &model, const PackageOptions &options,
                   std::ostream &out, std::ostream &err);

} // namespace orrery
