// Server records from templates, world sizes, the written template and a profile's copy.
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "network/directory.h"
#include "network/generator.h"
#include "network/profileworld.h"
#include "support/tempdir.h"

namespace orrery {
namespace {

// Names "N1".. and words of every length class, below a fresh application folder.
struct Sources {
    test::TempDir dir;
    AppPaths paths{dir.path()};
    WordBank words;

    Sources() {
        paths.MakeProjectFolders("G");
        std::string names, words_;
        for (int i = 1; i <= kNameRows; ++i) names += "N" + IntText(i) + "\r\n";
        const char *samples[] = {"ab", "tiny", "middle", "sunbeam", "extraordinary", "o'clock"};
        for (int i = 0; i < kWordRows; ++i) words_ += std::string(samples[i % 6]) + "\r\n";
        EXPECT_TRUE(WriteTextFile(paths.DataPath() / "names.dat", names));
        EXPECT_TRUE(WriteTextFile(paths.DataPath() / "words.dat", words_));
        EXPECT_TRUE(words.LoadNames(paths.DataPath() / "names.dat"));
        EXPECT_TRUE(words.LoadWords(paths.DataPath() / "words.dat"));
    }
};

// The fields a template adds behind ip, hostname and admin, over many records.
std::set<std::string> TemplateFields(const char *field, int records = 300) {
    static Sources sources;
    ProjectModel model;
    model.ServerFieldTable[1] = "IP (RANDOM:IP)*";
    model.ServerFieldTable[2] = field;
    Random random(11);
    std::set<std::string> seen;
    for (int i = 0; i < records; ++i) {
        std::string dns;
        const std::string record = GenerateServerRecord(9, model, sources.words, random, dns);
        seen.insert(record.substr(record.find(':', record.find(":admin=") + 1) == std::string::npos
                                      ? record.size()
                                      : record.find(':', record.find(":admin=") + 1)));
    }
    return seen;
}

TEST(WorldGenerator, TemplateKindsWriteTheirFields) {
    using Set = std::set<std::string>;
    EXPECT_EQ(TemplateFields("OS (Linux)*"), Set{":os=linux"});
    EXPECT_EQ(TemplateFields("OS (Linux)"), Set{""});
    EXPECT_EQ(TemplateFields("MY_FIELD (A/B Text)*"), Set{":myfield=ab text"});
    EXPECT_EQ(TemplateFields("LEVEL (RANDOM:5-4)*"), Set{":level=5"});
    EXPECT_EQ(TemplateFields("LEVEL (RANDOM:5-3)*"), Set{""});
    EXPECT_EQ(TemplateFields("NOTE (random thoughts)*"), Set{""});
    EXPECT_EQ(TemplateFields("X (RANDOM:FOO)*"), Set{""});
    EXPECT_EQ(TemplateFields("LINK (RANDOM:EXISTINGIP)*"), Set{":link=existingip"});
    EXPECT_EQ(TemplateFields("NOPAREN*"), Set{""});
    Set ports;
    for (int i = 1; i <= 10; ++i) ports.insert(":ports=" + IntText(i));
    EXPECT_EQ(TemplateFields("PORTS (RANDOM:1-10)*"), ports);
    for (const std::string &field : TemplateFields("CODE (RANDOM:LONGWORD)*"))
        EXPECT_TRUE(field == ":code=extraordinary" || std::regex_match(field, std::regex(":code=[A-Z]{12}")))
            << field;
}

TEST(WorldGenerator, RecordsAndDirectoryLinesHaveTheirShape) {
    Sources s;
    ProjectModel model;
    Random random(5);
    std::string dns;
    const std::string text = GenerateOctetRecords(50, 77, model, s.words, random, dns);
    const std::regex record(R"(ip=77(\.\d{1,3}){3}:hostname=[a-z]{2,14}\.(com|net|org|gov|mil|info|biz):admin=N\d+ N\d+)");
    int count = 0;
    for (std::string_view line : SplitLines(text)) {
        EXPECT_TRUE(std::regex_match(std::string(line), record)) << line;
        for (std::int16_t part = 2; part <= 4; ++part) {
            const double octet = Val(FieldBy(FieldBy(line, 1, ":"), part, "."));
            EXPECT_TRUE(octet >= 1 && octet <= 255) << line;
        }
        ++count;
    }
    EXPECT_EQ(count, 50);
    EXPECT_EQ(std::count(dns.begin(), dns.end(), '\n'), 50);
    EXPECT_EQ(dns.find('\''), std::string::npos);
}

TEST(WorldGenerator, ServersPerOctetFollowTheSizeSetting) {
    const std::pair<const char *, int> cases[] = {
        {"1", 0}, {"500", 1}, {"1000", 3}, {"2500", 9}, {"5000", 19}, {"10000", 39},
        {"", 0},  {"-600", 0}, {"1e12", kMaxServersPerOctet},
    };
    for (const auto &[setting, perOctet] : cases) EXPECT_EQ(ServersPerOctet(setting), perOctet) << setting;
}

TEST(WorldGenerator, EmptyWordTableFallsBackToCapitals) {
    WordBank empty;
    Random random(2);
    EXPECT_EQ(empty.RandomShortWord(random), "");
    EXPECT_TRUE(std::regex_match(empty.RandomLongWord(random), std::regex("[A-Z]{12}")));
    EXPECT_TRUE(std::regex_match(empty.RandomAverageWord(random), std::regex("[A-Z]{8}")));
    EXPECT_EQ(empty.RandomFullName(random), " ");
}

TEST(WorldGenerator, WorldOfOneServerAnOctetLoadsWhole) {
    Sources s;
    ProjectModel model;
    model.settings.myprojectname = "G";
    model.settings.myserversrandom = "500";
    Random random(8);
    std::vector<std::string> progress;
    const GenerateResult result = GenerateWorld(s.paths, model, s.words, random,
                                                [&](const std::string &line) { progress.push_back(line); });
    ASSERT_TRUE(result.done) << result.error;
    ASSERT_EQ(progress.size(), 255u);
    EXPECT_EQ(progress.front(), "GENERATING RANDOM SERVERS - 1.*.*.*");
    ServerDirectory world;
    world.LoadDns(s.paths.WorldPath());
    world.LoadServerRecords(s.paths.WorldPath());
    EXPECT_EQ(world.DnsCount(), 255);
    std::string ip = world.Dns(200).ip, property = "admin";
    EXPECT_TRUE(world.GetServerProperty(ip, property)->starts_with("N"));

    // A world of size 1 removes the directory and leaves the server files.
    const std::string before = ReadTextFile(s.paths.WorldPath() / "_1_.dat");
    model.settings.myserversrandom = "1";
    EXPECT_TRUE(GenerateWorld(s.paths, model, s.words, random).done);
    EXPECT_FALSE(FileExists(s.paths.WorldPath() / "dns.dat"));
    EXPECT_EQ(ReadTextFile(s.paths.WorldPath() / "_1_.dat"), before);

    std::filesystem::remove(s.paths.DataPath() / "names.dat");
    model.settings.myserversrandom = "500";
    const GenerateResult failed = GenerateWorld(s.paths, model, s.words, random);
    EXPECT_FALSE(failed.done);
    EXPECT_NE(failed.error.find("names.dat"), std::string::npos);
}

TEST(ProfileWorld, CustomServersStandBehindTheGeneratedOnes) {
    Sources s;
    ASSERT_TRUE(WriteTextFile(s.paths.WorldPath() / "_7_.dat", "ip=7.0.0.1:hostname=gen.net:admin=A B"));
    ASSERT_TRUE(WriteTextFile(s.paths.WorldPath() / "dns.dat", "7.0.0.1:gen.net"));
    ProjectModel model;
    model.CustomServerTable[2] = "ip=7.1.2.3:hostname=Bank.COM:admin=Vault Keeper:cash=1000";
    model.CustomServerTable[5] = "hostname=odd.net:ip=9.9.9.9";
    model.CustomServerTable[6] = "ip=x/../y:hostname=evil.net";
    ASSERT_TRUE(CreateProfileWorld(s.paths, " Ann ", model));
    EXPECT_FALSE(CreateProfileWorld(s.paths, "..", model));
    const auto folder = *ProfileFolder(s.paths, "Ann");
    EXPECT_EQ(folder, s.paths.SavedPath() / "Ann");

    ServerDirectory world;
    world.LoadDns(folder);
    world.LoadServerRecords(folder);
    EXPECT_EQ(world.Server(1, 7), "ip=7.0.0.1:hostname=gen.net:admin=A B");
    EXPECT_EQ(world.Server(2, 7), model.CustomServerTable[2]);
    std::string host = "Bank.COM", property = "cash";
    EXPECT_EQ(world.ResolveHostname(host), "Bank.COM");
    EXPECT_EQ(world.Dns(3).ip, "odd.net"); // fields are taken by place, not by name
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(s.paths.SavedPath()), {}), 1);
}

} // namespace
} // namespace orrery
