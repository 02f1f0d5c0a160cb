// Random file names from the keyword list, and their text by extension.
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "foundation/random.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "network/directory.h"
#include "network/generator.h"
#include "network/randomfiles.h"
#include "support/tempdir.h"

namespace orrery {
namespace {

const std::string kKeywords = "alpha\r\nbeta\r\ngamma\r\n";

struct Fixture {
    ServerDirectory directory;
    WordBank words;
    Random random{17};
    RandomSources sources{directory, words, random};

    Fixture() {
        test::TempDir dir;
        WriteTextFile(dir.path() / "dns.dat", "1.1.1.1:one.net\r\n2.2.2.2:two.net\r\n3.3.3.3:three.net");
        directory.LoadDns(dir.path());
    }
};

TEST(RandomFiles, NamesStemFromKeywordsAsFarAsTheTableIsFilled) {
    Fixture f;
    FileTable files;
    const std::regex shape(R"((about|1|rem-|file)?alpha(-\d{3})?(xxx|sys|s|0|-int|lock|a|1|i)?\.(note|list|enc|servers|ip|text|misc|data))");
    for (int i = 0; i < 300; ++i) {
        const RandomFile file = GenerateRandomFile(files, kKeywords, f.sources);
        EXPECT_TRUE(std::regex_match(file.name, shape)) << file.name;
        if (file.name.find('-') != std::string::npos) {
            EXPECT_TRUE(file.name.ends_with(".data")) << file.name;
        }
    }
    files[1].name = "taken";
    files[2].name = "taken";
    std::set<std::string> keywords;
    for (int i = 0; i < 300; ++i) keywords.insert(RandomKeyword(files, kKeywords, f.random));
    EXPECT_EQ(keywords, (std::set<std::string>{"alpha", "beta"}));
    const RandomFile bare = GenerateRandomFile(FileTable{}, "", f.sources);
    EXPECT_TRUE(std::regex_match(bare.name, std::regex(R"((about|1|rem-|file)?(xxx|sys|s|0|-int|lock|a|1|i)?(-\d{3})?\.\w+)"))) << bare.name;
}

TEST(RandomFiles, DataFollowsTheExtension) {
    Fixture f;
    EXPECT_EQ(RandomFileData("Secret.ENC", f.sources), "This file is encrypted.");
    const std::string ip = RandomFileData("x.ip", f.sources);
    EXPECT_TRUE(ip == "1.1.1.1" || ip == "2.2.2.2") << ip;
    for (int i = 0; i < 50; ++i) {
        const std::string list = RandomFileData("net.servers", f.sources);
        std::int16_t n = 0;
        for (std::string line; !(line = FieldBy(list, static_cast<std::int16_t>(++n), "\r\n")).empty();)
            EXPECT_EQ(IsValidIp(line), n % 2 == 1) << list;
        EXPECT_TRUE(n >= 2 && n <= 6) << list;
    }
    std::set<std::string> kinds;
    for (int i = 0; i < 200; ++i) kinds.insert(RandomFileData("memo.text", f.sources).substr(0, 10));
    EXPECT_EQ(kinds.size(), 5u);
    EXPECT_TRUE(kinds.count("blank file"));
}

} // namespace
} // namespace orrery
