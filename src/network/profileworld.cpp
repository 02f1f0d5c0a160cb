// Building a player's live world from the template and the custom servers.
#include "network/profileworld.h"

#include <system_error>

#include "foundation/convert.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "network/directory.h"

namespace orrery {

namespace fs = std::filesystem;

namespace {

void CopyIfPresent(const fs::path &from, const fs::path &to) {
    std::error_code error;
    if (fs::is_regular_file(from, error))
        fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
}

// The trimmed text behind the first "=" of a field, at most 99 characters.
std::string FieldValue(std::string_view field) {
    const auto equals = field.find('=');
    const std::string_view value = equals == std::string_view::npos ? std::string_view{}
                                                                     : field.substr(equals + 1);
    return Trim(value).substr(0, 99);
}

void MergeCustomServer(const fs::path &folder, const std::string &record) {
    // The octet is read from the five characters behind "ip=": an address of up to three
    // digits and its point.
    const std::size_t at = InStr(record, "ip=");
    const std::string five = at ? record.substr(at + 2, 5) : std::string();
    const auto octet = SafeComponent(Trim(FieldBy(five, 1, ".")));
    if (octet) AppendTextFile(folder / ("_" + *octet + "_.dat"), record);
    AppendTextFile(folder / "dns.dat", FieldValue(FieldAt(record, 1)) + ":" +
                                           FieldValue(FieldAt(record, 2)));
}

} // namespace

std::optional<fs::path> ProfileFolder(const AppPaths &paths, std::string_view player) {
    const auto name = SafeComponent(Trim(player));
    if (!name) return std::nullopt;
    return paths.SavedPath() / *name;
}

bool CreateProfileWorld(const AppPaths &paths, std::string_view player, const ProjectModel &model) {
    const auto folder = ProfileFolder(paths, player);
    if (!folder) return false;
    std::error_code error;
    fs::create_directories(*folder, error);
    if (!fs::is_directory(*folder, error)) return false;
    for (int octet = 1; octet <= kOctets; ++octet) {
        const std::string file = "_" + IntText(octet) + "_.dat";
        CopyIfPresent(paths.WorldPath() / file, *folder / file);
    }
    CopyIfPresent(paths.WorldPath() / "dns.dat", *folder / "dns.dat");
    for (const std::string &record : model.CustomServerTable)
        if (!IsBlank(record)) MergeCustomServer(*folder, record);
    return true;
}

} // namespace orrery
