// The orrery tool as an author runs it: arguments, messages and exit codes.
#include "foundation/textfile.h"
#include "support/fifo.h"
#include "support/tempdir.h"
#include "support/orrery_run.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

namespace orrery {
namespace {

namespace fs = std::filesystem;

using test::Orrery;
using test::ToolRun;

TEST(OrreryTool, NewThenDumpResaveAndSummary) {
    test::TempDir dir;
    const std::string app = dir.path().string();
    // Arguments arrive in UTF-8 and the project's own text is Windows-1252.
    ASSERT_EQ(Orrery({"new", app, "Café Noir", "--author", "Zoë", "--email", "z@x"}).code, 0);
    const auto file = dir.path() / "Data" / "café noir" / "settings.dat";
    EXPECT_NE(ReadTextFile(file).find("myprojectauthor:Zo\xEB\r\n"), std::string::npos);

    const ToolRun dump = Orrery({"dump", app, "CAFÉ NOIR"});
    ASSERT_EQ(dump.code, 0) << dump.err;
    const auto json = nlohmann::json::parse(dump.out);
    EXPECT_EQ(json["settings"]["myprojectauthor"], "Zoë");
    EXPECT_EQ(json["services"].size(), 9u);
    EXPECT_EQ(json["variables"][1]["name"], "$player");

    const ToolRun resave = Orrery({"resave", app, "Café Noir", "--backup"});
    EXPECT_EQ(resave.code, 0) << resave.err;
    EXPECT_NE(resave.out.find("backup "), std::string::npos);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path() / "_autobackup"), {}), 1);

    ASSERT_TRUE(WriteTextFile(dir.path() / "Data" / "pname.dat", "Café Noir"));
    EXPECT_EQ(Orrery({"summary", app}).code, 1); // pname.dat holds Windows-1252, this was UTF-8
    ASSERT_TRUE(WriteTextFile(dir.path() / "Data" / "pname.dat", "Caf\xE9 Noir"));
    const ToolRun summary = Orrery({"summary", app});
    EXPECT_EQ(summary.code, 0) << summary.err;
    EXPECT_NE(summary.out.find("Services:       9"), std::string::npos) << summary.out;
}

TEST(OrreryTool, RefusalsExitNonZeroWithAClearMessage) {
    test::TempDir dir;
    const std::string app = dir.path().string();
    ASSERT_EQ(Orrery({"new", app, "Game", "--author", "A"}).code, 0);
    struct Case {
        std::vector<std::string> args;
        int code;
        const char *message;
    };
    const Case cases[] = {
        {{"new", app, "game", "--author", "B"}, 1, "A project with that name already exists."},
        {{"new", app, "  ", "--author", "B"},
         1,
         "Please enter a 'Project Name' and 'Project Author'."},
        {{"new", app, "Other"}, 2, "--author is required"},
        {{"dump", app, "Missing"}, 1, "no such project"},
        {{"resave", app, ".."}, 1, "not a usable project name"},
        // Names Windows-1252 can't write would all become "?": refused, not collapsed.
        {{"new", app, "Ωμέγα", "--author", "B"},
         1,
         "\"Ωμέγα\" is not a usable project name: it holds \"?\""},
        {{"dump", app, "Δέλτα"}, 1, "\"Δέλτα\" is not a usable project name"},
        {{"new", app, "\x01\x02", "--author", "B"}, 1, "it holds a control character"},
        {{"new", app, std::string(500, 'a'), "--author", "B"}, 1, "bytes too long"},
        {{"frobnicate"}, 2, "frobnicate"},
        {{}, 2, "subcommand"},
    };
    for (const Case &c : cases) {
        const ToolRun run = Orrery(c.args);
        EXPECT_EQ(run.code, c.code) << run.err;
        EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
    }
    const ToolRun help = Orrery({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_NE(help.out.find("resave"), std::string::npos);
}

// Pipes and folders where files belong are reported, never waited on.
TEST(OrreryTool, WhatIsNoFileIsReportedAsSuch) {
    test::TempDir dir;
    const std::string app = dir.path().string();
    const fs::path data = dir.path() / "Data";
    for (const char *name : {"Piped", "Folder", "Net"})
        ASSERT_EQ(Orrery({"new", app, name, "--author", "A"}).code, 0);
    fs::remove(data / "folder" / "settings.dat");
    fs::create_directory(data / "folder" / "settings.dat");
    ASSERT_TRUE(WriteTextFile(data / "words.dat", "word"));
    const std::vector<fs::path> pipes = {data / "piped" / "settings.dat", data / "pname.dat",
                                         data / "S" / "dns.dat", data / "names.dat"};
    for (const fs::path &pipe : pipes) {
        fs::remove(pipe);
        ASSERT_TRUE(test::MakeFifo(pipe)) << pipe;
    }
    struct Case {
        std::vector<std::string> args;
        int code;
        const char *message;
    };
    const std::string notAFile = "settings.dat: cannot read the project file: not a regular file";
    const Case cases[] = {
        {{"dump", app, "Piped"}, 1, notAFile.c_str()},
        {{"resave", app, "Folder"}, 1, notAFile.c_str()},
        {{"dump", app, "Missing"}, 1, "missing/settings.dat: no such project"},
        {{"summary", app}, 1, "pname.dat names none: not a regular file"},
        {{"world", (data / "S").string(), "exists", "1.2.3.4"}, 0, ""},
        {{"generate", app, "Net"}, 1, "names.dat"},
    };
    EXPECT_TRUE(test::FinishesInTime(
        [&] {
            for (const Case &c : cases) {
                const ToolRun run = Orrery(c.args);
                EXPECT_EQ(run.code, c.code) << c.args[0] << ": " << run.err;
                EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
            }
        },
        pipes));
}

TEST(OrreryTool, ScrambleAndUnscrambleEachLine) {
    const ToolRun scrambled = Orrery({"scramble"}, "myqlist:True\r\n  helpon:False  \n");
    ASSERT_EQ(scrambled.code, 0);
    EXPECT_EQ(std::count(scrambled.out.begin(), scrambled.out.end(), '\n'), 2);
    EXPECT_EQ(Orrery({"unscramble"}, scrambled.out).out, "myqlist:True\nhelpon:False\n");
}

TEST(OrreryTool, ResaveRefusesAScrambledProject) {
    test::TempDir dir;
    const std::string app = dir.path().string();
    ASSERT_EQ(Orrery({"new", app, "Sealed", "--author", "A"}).code, 0);
    const auto file = dir.path() / "Data" / "sealed" / "settings.dat";
    ASSERT_TRUE(WriteTextFile(file, "[revise]\r\n" + Orrery({"scramble"}, "myprojectauthor:B").out));
    const ToolRun run = Orrery({"resave", app, "Sealed"});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("scrambled"), std::string::npos);
    const ToolRun summary = Orrery({"summary", app, "Sealed"});
    EXPECT_NE(summary.out.find("Sealed (scrambled)"), std::string::npos) << summary.out;
    EXPECT_NE(summary.out.find("Author:         B\n"), std::string::npos) << summary.out;
}

} // namespace
} // namespace orrery

namespace orrery {
namespace {

TEST(OrreryTool, GenerateAWorldAndLookThingsUpInIt) {
    test::TempDir dir;
    const std::string app = dir.path().string();
    ASSERT_EQ(Orrery({"new", app, "Net", "--author", "A"}).code, 0);
    EXPECT_EQ(Orrery({"generate", app, "Net"}).code, 1); // no word sources yet
    std::string names, words;
    for (int i = 0; i < 13400; ++i) names += "Name\r\n";
    for (int i = 0; i < 20000; ++i) words += "word\r\n";
    ASSERT_TRUE(WriteTextFile(dir.path() / "Data" / "names.dat", names));
    ASSERT_TRUE(WriteTextFile(dir.path() / "Data" / "words.dat", words));
    const ToolRun generated = Orrery({"generate", app, "Net"});
    ASSERT_EQ(generated.code, 0) << generated.err;
    EXPECT_NE(generated.out.find("generated 4845 servers"), std::string::npos);
    EXPECT_NE(generated.err.find("GENERATING RANDOM SERVERS - 255.*.*.*"), std::string::npos);

    const std::string world = (dir.path() / "Data" / "S").string();
    const std::string ip = Orrery({"world", world, "random-ip"}).out;
    ASSERT_EQ(std::count(ip.begin(), ip.end(), '.'), 3) << ip;
    const std::string host = ip.substr(0, ip.size() - 1);
    EXPECT_EQ(Orrery({"world", world, "exists", host, "nowhere.net"}).out, "True\nFalse\n");
    EXPECT_EQ(Orrery({"world", world, "property", host, "admin"}).out, "Name Name\n");
    EXPECT_EQ(Orrery({"world", world, "property", host}).code, 2);
    EXPECT_EQ(Orrery({"world", app + "/nowhere", "random-ip"}).code, 1);
}

} // namespace
} // namespace orrery
