// The project checker: small projects with their reports, the demo game, and a statement
// being composed.
#include "check/check.h"
#include "editor/fixture.h"
#include "foundation/paths.h"
#include "project/defaults.h"
#include "support/tempdir.h"
#include "tools/cli.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

namespace orrery {
namespace {

namespace fs = std::filesystem;

const fs::path kCases = fs::path(ORRERY_TEST_DATA) / "check";
const fs::path kDemo = fs::path(ORRERY_TEST_DATA).parent_path().parent_path() / "content" / "app" /
                       "Data" / "night shift" / "settings.dat";

std::string ReadAll(const fs::path &file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

struct ToolRun {
    int code;
    std::string out;
    std::string err;
};

ToolRun Check(const std::vector<std::string> &args) {
    std::istringstream in;
    std::ostringstream out, err;
    const int code = RunOrreryCli(args, in, out, err);
    return {code, out.str(), err.str()};
}

// An application folder holding the project file under the name, and the stock media of a
// new tree as empty files.
void MakeApp(const fs::path &root, const std::string &name, const fs::path &projectFile) {
    const AppPaths paths(root);
    ASSERT_TRUE(paths.MakeProjectFolders(name));
    fs::copy_file(projectFile, *paths.ProjectFile(name));
    for (const std::string &file : StockFiles())
        if (file.starts_with("Res/")) std::ofstream(root / file).put('\n');
}

// Each folder of tests/data/check is a project with the report `orrery check` gives of it.
TEST(CheckCommand, ReportsEachCaseAsItsGoldenFile) {
    int cases = 0;
    for (const fs::directory_entry &entry : fs::directory_iterator(kCases)) {
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        test::TempDir dir;
        MakeApp(dir.path(), name, entry.path() / "settings.dat");
        const std::string expected = ReadAll(entry.path() / "expected.txt");
        const ToolRun run = Check({"check", dir.path().string(), name});
        EXPECT_EQ(run.out, expected);
        EXPECT_EQ(run.code, expected.find(": error: ") != std::string::npos ? 1 : 0) << run.err;
        ++cases;
    }
    EXPECT_GE(cases, 10);
}

TEST(CheckCommand, TheDemoGameChecksClean) {
    test::TempDir dir;
    MakeApp(dir.path(), "Night Shift", kDemo);
    const ToolRun run = Check({"check", dir.path().string(), "Night Shift"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "") << "neither errors nor warnings";
}

TEST(CheckCommand, JsonFormExitCodesAndAnUntouchedFolder) {
    test::TempDir dir;
    MakeApp(dir.path(), "missingqlob", kCases / "missingqlob" / "settings.dat");
    const auto stamp = fs::last_write_time(*AppPaths(dir.path()).ProjectFile("missingqlob"));
    const ToolRun run = Check({"check", dir.path().string(), "missingqlob", "--json"});
    EXPECT_EQ(run.code, 1);
    const auto findings = nlohmann::json::parse(run.out);
    const auto error = std::find_if(findings.begin(), findings.end(), [](const auto &finding) {
        return finding["severity"] == "error";
    });
    ASSERT_NE(error, findings.end());
    EXPECT_EQ((*error)["file"], "Data/missingqlob/settings.dat");
    EXPECT_EQ((*error)["line"], 3);
    EXPECT_EQ((*error)["code"], "missing-qlob");
    EXPECT_TRUE((*error)["message"].get<std::string>().starts_with("no qlob is named \"scna\""));
    EXPECT_EQ(fs::last_write_time(*AppPaths(dir.path()).ProjectFile("missingqlob")), stamp);
    std::size_t files = 0;
    for (const auto &file : fs::recursive_directory_iterator(dir.path()))
        files += file.is_regular_file();
    EXPECT_EQ(files, 1u + 7u); // the project file and the stock pictures

    EXPECT_EQ(Check({"check", dir.path().string(), "nothing here"}).code, 2);
}

TEST(CheckStatement, JudgesAStatementBeforeItJoinsASequence) {
    ProjectModel model = test::NewProject();
    model.QlobTable[1] = "scan MESSAGE [a] [b]";
    const std::vector<std::string> sequence = {"~top", "MESSAGE [a] [b]"};
    const struct {
        const char *statement;
        const char *code; // "" for none
    } rows[] = {
        {"QLOB [scan]", ""},
        {"_GOTO [top]", ""},
        {"_GOTO [end]", "missing-label"},
        {"QLOB [scna]", "missing-qlob"},
        {"OPEN [Ghost]", "missing-tool"},
        {"OPNE [Mail]", "unknown-statement"},
        {"MESSAGE [a]", "argument-count"},
        {"$nothing = RETURN_LENGTH [x]", "undeclared-variable"},
    };
    for (const auto &row : rows) {
        const auto findings = CheckStatement(model, row.statement, sequence);
        SCOPED_TRACE(row.statement);
        ASSERT_EQ(findings.size(), *row.code ? 1u : 0u);
        if (*row.code) {
            EXPECT_EQ(findings[0].code, row.code);
            EXPECT_EQ(findings[0].line, 0);
        }
    }
}

TEST(CheckProject, ANewProjectChecksClean) {
    const ProjectModel model = test::NewProject();
    EXPECT_TRUE(CheckProject(model, test::FileText(model), AppPaths("/nonexistent")).empty());
}

} // namespace
} // namespace orrery
