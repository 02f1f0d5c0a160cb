// orrery package.
#include "tools/package_command.h"

#include "foundation/codepage.h"
#include "foundation/paths.h"
#include "packaging/distribution.h"
#include "platform/fonts.h"

#include <iostream>
#include <unistd.h>

namespace orrery {

int PackageCommand(const AppPaths &paths, const ProjectModel &model, const PackageOptions &options,
                   std::ostream &out, std::ostream &err) {
    DistributionOptions build;
    build.out = options.out;
    build.pad = options.pad;
    build.clean = options.clean;
    build.fontFile = [](const std::string &font) { return FindFontFile(font); };
    build.say = [&out](const std::string &line) { out << Cp1252ToUtf8(line) << "\n"; };
    const bool terminal = ::isatty(STDERR_FILENO) == 1 && &err == &std::cerr;
    build.octet = [&err, terminal](int octet) {
        if (terminal) err << "\rgenerating the world: octet " << octet << " of 255" << std::flush;
    };
    const DistributionResult built = BuildDistribution(model, paths, build);
    if (terminal) err << "\n";
    for (const std::string &missing : built.missing)
        err << "orrery: not shipped, not found: " << Cp1252ToUtf8(missing) << "\n";
    if (!built.done) {
        err << "orrery: " << Cp1252ToUtf8(built.error) << "\n";
        return 1;
    }
    err << "orrery: built " << built.root.string() << "\n";
    return options.strict && !built.missing.empty() ? 1 : 0;
}

} // namespace orrery
