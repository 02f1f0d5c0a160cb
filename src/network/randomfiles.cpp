// Random file names and their contents.
#include "network/randomfiles.h"

#include "foundation/convert.h"
#include "foundation/text.h"
#include "network/directory.h"
#include "network/generator.h"

namespace orrery {

namespace {

int TakenRows(const FileTable &files) {
    const int firstFree = FirstFreeSlot(files, FileTable::kSize + 1);
    return firstFree - 1;
}

std::string ThreeDigits(int value) {
    std::string digits = IntText(value);
    return std::string(3 - std::min<std::size_t>(digits.size(), 3), '0') + digits;
}

std::string Affixed(const std::string &n, int d) {
    switch (d) {
    case 0: return n + "xxx";
    case 1: return n + "sys";
    case 2: return n + "s";
    case 3: return n + "0";
    case 4: return n + "-int";
    case 5: return n + "lock";
    case 6: return n + "a";
    case 7: return n + "1";
    case 8: return "about" + n;
    case 9: return "1" + n;
    case 11: return "rem-" + n;
    case 12: return n + "i";
    case 13: return "file" + n;
    default: return n;
    }
}

std::string ServerList(const RandomSources &s) {
    const int lines = static_cast<int>(R(s.random, 5)) + 1;
    std::string data;
    for (int i = 1; i <= lines; ++i) {
        data += i % 2 ? s.directory.RandomExistingIp(s.random)
                      : s.directory.RandomExistingHostname(s.random);
        data += "\r\n";
    }
    return data;
}

std::string Message(const RandomSources &s) {
    switch (static_cast<int>(R(s.random, 5)) + 1) {
    case 1: {
        std::string name = s.words.RandomFullName(s.random);
        return "Note to self - remember to write to " + name + " about you know what. (" +
               s.words.RandomWord(s.random) + ")";
    }
    case 2: return "blank file";
    case 3:
        return "Thank you for registering at " + s.directory.RandomExistingHostname(s.random) +
               "\r\n\r\nFor security, your account details have been sent to your email account.";
    case 4: {
        std::string names;
        for (int i = 1; i <= 5; ++i) names += (i > 1 ? "\r\n" : "") + s.words.RandomFullName(s.random);
        return names;
    }
    default:
        return "Word on the street is that the server " + s.directory.RandomExistingIp(s.random) +
               " may be carrying information about an account with a lot of cash. Distribute "
               "this message to hackers only.";
    }
}

} // namespace

std::string RandomKeyword(const FileTable &files, std::string_view keywords, Random &random) {
    const int taken = TakenRows(files);
    const std::string list = ReplaceAll(keywords, "\r\n", ":");
    std::string word;
    for (int draw = 0; draw < 100; ++draw) {
        word = FieldAt(list, static_cast<std::int16_t>(R(random, taken) + 1));
        if (!IsBlank(word)) return word;
    }
    return word;
}

std::string RandomFileExtension(std::string_view name, Random &random) {
    static constexpr std::string_view kExtensions[] = {"note", "list", "enc", "servers",
                                                       "ip",   "text", "misc"};
    if (name.find('-') != std::string_view::npos) return "data";
    return std::string(kExtensions[static_cast<std::size_t>(R(random, 7))]);
}

std::string RandomFileData(std::string_view name, const RandomSources &sources) {
    const std::string t = NormText(name);
    if (InStr(t, ".ip")) return sources.directory.RandomExistingIp(sources.random);
    if (InStr(t, ".enc")) return "This file is encrypted.";
    if (InStr(t, ".server")) return ServerList(sources);
    return Message(sources);
}

RandomFile GenerateRandomFile(const FileTable &files, std::string_view keywords,
                              const RandomSources &sources) {
    std::string name = RandomKeyword(files, keywords, sources.random);
    if (R(sources.random, 3) == 1)
        name += "-" + ThreeDigits(static_cast<int>(R(sources.random, 100)));
    name = Affixed(name, static_cast<int>(R(sources.random, 20)));
    name += "." + RandomFileExtension(name, sources.random);
    RandomFile file{name, RandomFileData(name, sources)};
    return file;
}

} // namespace orrery
