// The world generator: the name and word lists, the random text helpers, and the making of a
// world template of random servers.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/paths.h"
#include "project/model.h"

namespace orrery {

class Random;

inline constexpr int kNameRows = 13400;
inline constexpr int kWordRows = 20000;
inline constexpr int kMaxServersPerOctet = 1000;

// NameTable and WordTable. The rows drawn are fixed numbers, whatever the length of the
// files: a short file gives empty texts for the rows it lacks.
class WordBank {
public:
    WordBank();

    // Up to 13,399 names and 20,000 words, one per line. False when the file can't be read.
    bool LoadNames(const std::filesystem::path &file);
    bool LoadWords(const std::filesystem::path &file);

    std::string RandomShortName(Random &random) const; // one name, rows 2 to 13,301
    std::string RandomFullName(Random &random) const;  // two names and a blank
    std::string RandomWord(Random &random) const;      // rows 1 to 19,999
    std::string RandomShortWord(Random &random) const;   // under 6 characters
    std::string RandomAverageWord(Random &random) const; // 6 to 9 characters
    std::string RandomLongWord(Random &random) const;    // 10 characters or more
    // One or two words cut to 14 characters, with a top-level domain.
    std::string RandomHostName(Random &random) const;

private:
    std::string DrawWord(Random &random, bool (*fits)(std::size_t length), int lastTry,
                         int fallbackLength) const;

    std::vector<std::string> m_names; // rows 1 to 13,400
    std::vector<std::string> m_words; // rows 1 to 20,000
};

// The integer part of a uniform draw in [0, 1) times n.
double R(Random &random, double n);

// The number of servers per first octet for a `myserversrandom` text.
int ServersPerOctet(std::string_view serversRandom);

// One random server of the octet, as its record line; "<ip>:<host>" and CRLF go to dnsBuffer.
// Only server field templates marked "*" add fields.
std::string GenerateServerRecord(int octet, const ProjectModel &model, const WordBank &words,
                                 Random &random, std::string &dnsBuffer);
// The octet's whole file text: count records, each followed by CRLF.
std::string GenerateOctetRecords(int count, int octet, const ProjectModel &model,
                                 const WordBank &words, Random &random, std::string &dnsBuffer);

struct GenerateResult {
    bool done = false;
    int serversPerOctet = 0;
    std::string error; // for a person, naming the file
};

// Rebuilds the world template in Data/S from the project's settings, reporting a line per
// octet. With no servers to make, only the directory is removed.
GenerateResult GenerateWorld(const AppPaths &paths, const ProjectModel &model, WordBank &words,
                             Random &random,
                             const std::function<void(const std::string &)> &progress = {});
// The same into any world folder, the words and names read from dataFolder: a distribution's
// world is written into the game folder from the editor's word lists.
GenerateResult GenerateWorldInto(const std::filesystem::path &dataFolder,
                                 const std::filesystem::path &worldFolder,
                                 const ProjectModel &model, WordBank &words, Random &random,
                                 const std::function<void(const std::string &)> &progress = {});

} // namespace orrery
