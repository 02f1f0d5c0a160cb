// Generating a world template, and answering lookups on a world folder.
#include "tools/world_commands.h"

#include "foundation/codepage.h"
#include "foundation/convert.h"
#include "foundation/paths.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "network/directory.h"
#include "network/generator.h"

#include <filesystem>
#include <ostream>

namespace orrery {

int GenerateCommand(const AppPaths &paths, const ProjectModel &model, std::ostream &out,
                    std::ostream &err) {
    WordBank words;
    const GenerateResult result = GenerateWorld(paths, model, words, ProcessRandom(),
                                                [&](const std::string &line) { err << line << "\n"; });
    if (!result.done) {
        err << "orrery: " << result.error << "\n";
        return 1;
    }
    out << "generated " << result.serversPerOctet * kOctets << " servers ("
        << result.serversPerOctet << " per first octet) in " << paths.WorldPath().string() << "\n";
    return 0;
}

namespace {

// Each argument through a lookup, one answer per line.
template <typename Lookup>
int EachHost(const std::vector<std::string> &args, std::ostream &out, std::ostream &err, Lookup lookup) {
    if (args.empty()) {
        err << "orrery: name at least one host name or address\n";
        return 2;
    }
    for (const std::string &arg : args) {
        std::string host = Utf8ToCp1252(arg);
        out << Cp1252ToUtf8(lookup(host)) << "\n";
    }
    return 0;
}

int Property(const ServerDirectory &world, const std::vector<std::string> &args,
             std::ostream &out, std::ostream &err) {
    if (args.size() != 2) {
        err << "orrery: property takes a host and a property name\n";
        return 2;
    }
    std::string host = Utf8ToCp1252(args[0]), property = Utf8ToCp1252(args[1]);
    const auto value = world.GetServerProperty(host, property);
    if (!value) {
        err << "orrery: " << args[0] << " has an address whose first octet is no number from 1 to 255\n";
        return 1;
    }
    out << Cp1252ToUtf8(*value) << "\n";
    return 0;
}

} // namespace

int WorldCommand(const std::string &folder, const std::string &query,
                 const std::vector<std::string> &args, std::ostream &out, std::ostream &err) {
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error)) {
        err << "orrery: " << folder << ": no such world folder\n";
        return 1;
    }
    ServerDirectory world;
    world.LoadDns(folder);
    world.LoadServerRecords(folder);
    if (query == "resolve-ip")
        return EachHost(args, out, err, [&](std::string &h) { return world.ResolveIp(h); });
    if (query == "resolve-hostname")
        return EachHost(args, out, err, [&](std::string &h) { return world.ResolveHostname(h); });
    if (query == "exists")
        return EachHost(args, out, err, [&](std::string &h) { return BoolText(world.ServerExists(h)); });
    if (query == "property") return Property(world, args, out, err);
    if (query == "random-ip") out << Cp1252ToUtf8(world.RandomExistingIp(ProcessRandom())) << "\n";
    if (query == "random-hostname")
        out << Cp1252ToUtf8(world.RandomExistingHostname(ProcessRandom())) << "\n";
    return 0;
}

} // namespace orrery
