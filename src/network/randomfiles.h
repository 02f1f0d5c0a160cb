// The random files a player finds on servers: names made from the project's keywords, and
// text chosen by the name's extension. They live only in the run-time file table.
#pragma once

#include <string>
#include <string_view>

#include "project/model.h"

namespace orrery {

class Random;
class ServerDirectory;
class WordBank;

struct RandomFile {
    std::string name;
    std::string data;
};

inline const std::string &SlotKey(const RandomFile &file) { return file.name; }

// The run-time file table: 199 rows, a row with a blank name is free.
using FileTable = SlotTable<RandomFile, 199>;

// What the random texts draw on.
struct RandomSources {
    const ServerDirectory &directory;
    const WordBank &words;
    Random &random;
};

// A keyword drawn from the first c + 1 positions of the list, c being the rows of the file
// table already taken; up to 100 tries for a non-blank one, else the last draw.
std::string RandomKeyword(const FileTable &files, std::string_view keywords, Random &random);
// "data" for a name with a "-", else one of seven extensions.
std::string RandomFileExtension(std::string_view name, Random &random);
// The text of a file, by the first extension found in its name.
std::string RandomFileData(std::string_view name, const RandomSources &sources);
RandomFile GenerateRandomFile(const FileTable &files, std::string_view keywords,
                              const RandomSources &sources);

} // namespace orrery
