// Random names, words and host names, and the servers of a world template.
#include "network/generator.h"

#include <algorithm>
#include <system_error>

#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "network/directory.h"

namespace orrery {

namespace fs = std::filesystem;

namespace {

bool ReadList(const fs::path &file, std::vector<std::string> &rows, int limit) {
    const auto bytes = ReadFileBytes(file);
    if (!bytes) return false;
    std::fill(rows.begin(), rows.end(), std::string());
    int row = 0;
    for (std::string_view line : SplitLines(*bytes)) {
        if (++row > limit) break;
        rows[static_cast<std::size_t>(row)] = line;
    }
    return true;
}

std::string CapitalLetters(Random &random, int count) {
    std::string letters;
    for (int i = 0; i < count; ++i) letters += static_cast<char>(R(random, 26) + 65);
    return letters;
}

// A template's value for a random kind, or nullopt when the kind writes no field.
std::optional<std::string> RandomValue(std::string_view kind, const WordBank &words, Random &random) {
    if (kind.find('-') != std::string_view::npos) {
        const double low = Val(kind.substr(0, kind.find('-')));
        const double high = Val(kind.substr(kind.find('-') + 1)) + 1;
        // "5-4" still gives 5; "5-3" gives nothing.
        if (high - low < 0) return std::nullopt;
        return Trim(NumberText(R(random, high - low) + low));
    }
    if (kind == "word") return words.RandomWord(random);
    if (kind == "shortword") return words.RandomShortWord(random);
    if (kind == "averageword") return words.RandomAverageWord(random);
    if (kind == "longword") return words.RandomLongWord(random);
    if (kind == "name") return words.RandomFullName(random);
    if (kind == "existingip") return "[[existingip]]";
    if (kind == "existinghostname") return "[[existinghostname]]";
    return std::nullopt;
}

// ":<name>=<value>" for a server field template marked "*", or nothing.
std::string TemplateField(std::string_view field, const WordBank &words, Random &random) {
    const std::size_t open = field.find('(');
    if (field.find('*') == std::string_view::npos || open == std::string_view::npos) return {};
    const std::string name = NormText(field.substr(0, open));
    const std::string value = NormText(ReplaceAll(field.substr(open + 1), ")", ""));
    if (!InStr(value, "random")) return ":" + name + "=" + value;
    const std::string kind = ReplaceAll(NormText(FieldAt(value, 2)), "*", "");
    if (kind.empty()) return {};
    const auto written = RandomValue(kind, words, random);
    return written ? ":" + name + "=" + *written : std::string();
}

} // namespace

double R(Random &random, double n) { return IntFloor(random.Unit() * n); }

WordBank::WordBank() : m_names(kNameRows + 1), m_words(kWordRows + 1) {}

bool WordBank::LoadNames(const fs::path &file) { return ReadList(file, m_names, kNameRows - 1); }
bool WordBank::LoadWords(const fs::path &file) { return ReadList(file, m_words, kWordRows); }

std::string WordBank::RandomShortName(Random &random) const {
    return m_names[static_cast<std::size_t>(R(random, 13300) + 2)];
}

std::string WordBank::RandomFullName(Random &random) const {
    std::string first = RandomShortName(random);
    return first + " " + RandomShortName(random);
}

std::string WordBank::RandomWord(Random &random) const {
    return m_words[static_cast<std::size_t>(R(random, 19999) + 1)];
}

std::string WordBank::DrawWord(Random &random, bool (*fits)(std::size_t), int lastTry,
                               int fallbackLength) const {
    for (int tries = 1; tries < lastTry; ++tries) {
        std::string word = RandomWord(random);
        if (fits(word.size())) return word;
    }
    return CapitalLetters(random, fallbackLength);
}

std::string WordBank::RandomShortWord(Random &random) const {
    return DrawWord(random, [](std::size_t n) { return n < 6; }, 36, 12);
}

std::string WordBank::RandomAverageWord(Random &random) const {
    return DrawWord(random, [](std::size_t n) { return n >= 6 && n <= 9; }, 36, 8);
}

std::string WordBank::RandomLongWord(Random &random) const {
    return DrawWord(random, [](std::size_t n) { return n >= 10; }, 36, 12);
}

std::string WordBank::RandomHostName(Random &random) const {
    static constexpr std::string_view kDomains[] = {".com",  ".net",  ".org", ".gov",
                                                    ".mil", ".info", ".biz"};
    std::string stem = RandomWord(random);
    if (R(random, 3) == 1) stem += RandomWord(random);
    stem.resize(std::min<std::size_t>(stem.size(), 14));
    return stem + std::string(kDomains[static_cast<std::size_t>(R(random, 7))]);
}

int ServersPerOctet(std::string_view serversRandom) {
    // A hand-edited size is held to a thousand servers an octet: far past what a world can
    // load, yet not enough to fill a disk.
    const double perOctet = IntFloor(Val(serversRandom) / 255);
    return perOctet < 1 ? 0 : static_cast<int>(std::min(perOctet, double(kMaxServersPerOctet)));
}

std::string GenerateServerRecord(int octet, const ProjectModel &model, const WordBank &words,
                                 Random &random, std::string &dnsBuffer) {
    std::string ip = IntText(octet);
    for (int part = 0; part < 3; ++part) ip += "." + IntText(static_cast<int>(R(random, 255) + 1));
    const std::string host = ReplaceAll(NormText(words.RandomHostName(random)), "'", "");
    dnsBuffer += ip + ":" + host + "\r\n";
    std::string record = "ip=" + ip + ":hostname=" + host + ":admin=" + words.RandomFullName(random);
    for (int slot = 1; slot <= 99; ++slot)
        record += TemplateField(model.ServerFieldTable[slot], words, random);
    // Strips the marks from the whole line, field names included: "[[existingip]]" is stored
    // as the bare word, and a specific text loses its "*".
    return Trim(StripPunctuationKeepColon(record));
}

std::string GenerateOctetRecords(int count, int octet, const ProjectModel &model,
                                 const WordBank &words, Random &random, std::string &dnsBuffer) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += GenerateServerRecord(octet, model, words, random, dnsBuffer);
        text += "\r\n";
    }
    return text;
}

GenerateResult GenerateWorld(const AppPaths &paths, const ProjectModel &model, WordBank &words,
                             Random &random, const std::function<void(const std::string &)> &progress) {
    paths.MakeProjectFolders(model.settings.myprojectname);
    return GenerateWorldInto(paths.DataPath(), paths.WorldPath(), model, words, random, progress);
}

GenerateResult GenerateWorldInto(const fs::path &dataFolder, const fs::path &worldFolder,
                                 const ProjectModel &model, WordBank &words, Random &random,
                                 const std::function<void(const std::string &)> &progress) {
    GenerateResult result;
    result.serversPerOctet = ServersPerOctet(model.settings.myserversrandom);
    const fs::path dnsFile = worldFolder / "dns.dat";
    std::error_code ignored;
    fs::remove(dnsFile, ignored);
    if (result.serversPerOctet <= 0) {
        result.done = true;
        return result;
    }
    for (const auto &[file, load] : {std::pair{dataFolder / "words.dat", &WordBank::LoadWords},
                                     std::pair{dataFolder / "names.dat", &WordBank::LoadNames}}) {
        if (!(words.*load)(file)) {
            result.error = file.string() + ": cannot read the word source";
            return result;
        }
    }
    std::string dnsBuffer;
    for (int octet = 1; octet <= kOctets; ++octet) {
        if (progress) progress("GENERATING RANDOM SERVERS - " + IntText(octet) + ".*.*.*");
        dnsBuffer.clear();
        const fs::path file = worldFolder / ("_" + IntText(octet) + "_.dat");
        if (!WriteTextFile(file, GenerateOctetRecords(result.serversPerOctet, octet, model, words,
                                                      random, dnsBuffer)) ||
            !AppendTextFile(dnsFile, dnsBuffer)) {
            result.error = file.string() + ": cannot write the world";
            return result;
        }
    }
    result.done = true;
    return result;
}

} // namespace orrery
