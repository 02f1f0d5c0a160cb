// ELF headers, read for the libraries a file needs.
#include "packaging/elf.h"

#include "foundation/text.h"
#include "foundation/textfile.h"

#include <cstring>
#include <deque>
#include <fstream>
#include <set>

namespace orrery {

namespace fs = std::filesystem;

namespace {

constexpr std::uint32_t kLoad = 1, kDynamic = 2;
constexpr std::int64_t kNeeded = 1, kStringTable = 5, kRunPathOld = 15, kRunPath = 29;

template <typename T> T At(const std::string &bytes, std::size_t offset) {
    T value{};
    if (offset + sizeof(T) <= bytes.size()) std::memcpy(&value, bytes.data() + offset, sizeof(T));
    return value;
}

// Reads length bytes at offset; an empty text when the file is shorter.
std::string ReadAt(std::ifstream &in, std::uint64_t offset, std::uint64_t length) {
    std::string bytes(length, '\0');
    in.seekg(static_cast<std::streamoff>(offset));
    in.read(bytes.data(), static_cast<std::streamsize>(length));
    return in.gcount() == static_cast<std::streamsize>(length) ? bytes : std::string();
}

void AddFolders(const fs::path &conf, std::vector<fs::path> &folders, int depth) {
    if (depth > 4) return;
    for (std::string_view raw : SplitLines(ReadFileBytes(conf).value_or(""))) {
        const std::string line = Trim(raw.substr(0, raw.find('#')));
        if (line.empty()) continue;
        if (line.starts_with("include ")) {
            // "include /etc/ld.so.conf.d/*.conf": every .conf file of that folder, in name order.
            const fs::path pattern = Trim(line.substr(8));
            std::error_code error;
            std::set<fs::path> included;
            for (fs::directory_iterator it(pattern.parent_path(), error), end; !error && it != end;
                 it.increment(error))
                if (it->path().extension() == pattern.extension()) included.insert(it->path());
            for (const fs::path &file : included) AddFolders(file, folders, depth + 1);
        } else {
            folders.emplace_back(line);
        }
    }
}

} // namespace

std::optional<ElfNeeds> ReadElfNeeds(const fs::path &file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    const std::string header = ReadAt(in, 0, 64);
    if (header.size() != 64 || header.compare(0, 4, "\x7f" "ELF") != 0 || header[4] != 2 ||
        header[5] != 1)
        return std::nullopt;
    ElfNeeds needs;
    needs.elfClass = static_cast<unsigned char>(header[4]);
    needs.machine = At<std::uint16_t>(header, 18);
    const auto programHeaders = At<std::uint64_t>(header, 32);
    const auto entrySize = At<std::uint16_t>(header, 54);
    const auto entries = At<std::uint16_t>(header, 56);
    if (entrySize < 56 || entries == 0) return needs; // nothing loaded: nothing needed
    const std::string table = ReadAt(in, programHeaders, std::uint64_t{entrySize} * entries);
    if (table.empty()) return std::nullopt;

    struct Segment {
        std::uint64_t offset, address, size;
    };
    std::vector<Segment> loads;
    std::optional<Segment> dynamic;
    for (std::size_t i = 0; i < entries; ++i) {
        const std::size_t at = i * entrySize;
        const Segment segment{At<std::uint64_t>(table, at + 8), At<std::uint64_t>(table, at + 16),
                              At<std::uint64_t>(table, at + 32)};
        const auto type = At<std::uint32_t>(table, at);
        if (type == kLoad) loads.push_back(segment);
        if (type == kDynamic) dynamic = segment;
    }
    if (!dynamic) return needs; // linked statically
    const std::string entriesText = ReadAt(in, dynamic->offset, dynamic->size);
    std::uint64_t strings = 0;
    std::vector<std::uint64_t> neededAt, runPathAt, oldRunPathAt;
    for (std::size_t at = 0; at + 16 <= entriesText.size(); at += 16) {
        const auto tag = At<std::int64_t>(entriesText, at);
        const auto value = At<std::uint64_t>(entriesText, at + 8);
        if (tag == 0) break;
        if (tag == kStringTable) strings = value;
        if (tag == kNeeded) neededAt.push_back(value);
        if (tag == kRunPath) runPathAt.push_back(value);
        if (tag == kRunPathOld) oldRunPathAt.push_back(value);
    }
    // The string table is given as an address: the loaded segment holding it says where it is
    // in the file.
    std::optional<std::uint64_t> stringsOffset;
    for (const Segment &load : loads)
        if (strings >= load.address && strings < load.address + load.size)
            stringsOffset = strings - load.address + load.offset;
    if (!stringsOffset) return std::nullopt;
    const auto text = [&](std::uint64_t offset) {
        std::string name;
        in.clear();
        in.seekg(static_cast<std::streamoff>(*stringsOffset + offset));
        std::getline(in, name, '\0');
        return name;
    };
    for (std::uint64_t offset : neededAt) needs.needed.push_back(text(offset));
    for (std::uint64_t offset : runPathAt.empty() ? oldRunPathAt : runPathAt)
        for (std::int16_t i = 1;; ++i) {
            const std::string path = FieldBy(text(offset), i, ":");
            if (path.empty()) break;
            needs.runPaths.push_back(path);
        }
    return needs;
}

std::vector<fs::path> LoaderFolders() {
    std::vector<fs::path> folders;
    AddFolders("/etc/ld.so.conf", folders, 0);
    for (const char *standard : {"/lib/x86_64-linux-gnu", "/usr/lib/x86_64-linux-gnu", "/lib64",
                                 "/usr/lib64", "/lib", "/usr/lib"})
        folders.emplace_back(standard);
    return folders;
}

std::vector<NeededLibrary> NeededLibraries(const std::vector<fs::path> &objects,
                                           const std::function<bool(const std::string &)> &passOver) {
    const std::vector<fs::path> loaderFolders = LoaderFolders();
    std::vector<NeededLibrary> found;
    std::set<std::string> seen;
    std::deque<fs::path> waiting(objects.begin(), objects.end());
    std::optional<ElfNeeds> first;
    while (!waiting.empty()) {
        const fs::path object = waiting.front();
        waiting.pop_front();
        const auto needs = ReadElfNeeds(object);
        if (!needs) continue;
        if (!first) first = needs;
        for (const std::string &name : needs->needed) {
            if (!seen.insert(name).second) continue;
            std::vector<fs::path> folders;
            for (const std::string &runPath : needs->runPaths)
                folders.emplace_back(ReplaceAll(runPath, "$ORIGIN", object.parent_path().string()));
            folders.insert(folders.end(), loaderFolders.begin(), loaderFolders.end());
            NeededLibrary library{name, {}};
            for (const fs::path &folder : folders) {
                const auto candidate = ReadElfNeeds(folder / name);
                // A library of another kind (32-bit beside 64-bit) is passed over, as the loader does.
                if (candidate && candidate->elfClass == first->elfClass &&
                    candidate->machine == first->machine) {
                    library.path = folder / name;
                    break;
                }
            }
            if (!library.path.empty() && !passOver(name)) waiting.push_back(library.path);
            found.push_back(std::move(library));
        }
    }
    return found;
}

} // namespace orrery
