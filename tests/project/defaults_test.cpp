// A new project: its defaults, the creation step, and what survives a save and reload.
#include <gtest/gtest.h>

#include "foundation/textfile.h"
#include "project/defaults.h"
#include "project/keytable.h"
#include "project/loader.h"
#include "support/tempdir.h"

namespace orrery {
namespace {

NewProjectInfo Info(std::string name = "Night Shift", std::string author = "Kim") {
    return {std::move(name), std::move(author), "night.example", "kim@night.example",
            " One/crlf/Two "};
}

TEST(ProjectDefaults, CreatedProjectReloadsWithEverySettingButTheQonsoleStyle) {
    test::TempDir dir;
    const AppPaths paths(dir.path());
    ProjectModel created;
    ASSERT_TRUE(CreateProject(created, paths, Info()).created);
    EXPECT_EQ(created.settings.myprojectdescription, "One\r\nTwo");
    EXPECT_EQ(created.settings.mycredits, "[Night Shift]//Credits");
    EXPECT_EQ(created.settings.mtdefstyleqonsolebackcolor, 0x404040);
    EXPECT_EQ(created.ServiceTable[9], "HYPERQUBE(333)=Hyperqube=//none");
    EXPECT_EQ(created.ToolNameTable[1], "Connector");
    EXPECT_EQ(created.ToolNameTable[9], "Site Controller");
    EXPECT_EQ(created.HelpTable[1].substr(0, 33), "Welcome:Welcome to $myprojectname");

    ProjectModel reloaded;
    ASSERT_TRUE(LoadProject(reloaded, paths, "Night Shift").found);
    // The qonsole style isn't written, so a reload has the blank model's values there.
    const ProjectSettings blank;
    for (const SettingKey &key : SettingKeys()) {
        const ProjectSettings &expected = key.group == KeyGroup::ReadOnly ? blank : created.settings;
        const bool same = std::visit(
            [&](auto member) { return expected.*member == reloaded.settings.*member; }, key.member);
        EXPECT_TRUE(same) << key.written;
    }
    EXPECT_EQ(reloaded.settings.qkeywords, created.settings.qkeywords);
    EXPECT_EQ(reloaded.VariableTable[2].value, "Player1");
    EXPECT_EQ(reloaded.ServerFieldTable[3], "ADMIN (RANDOM:PERSON)");
    EXPECT_EQ(reloaded.HelpTable[3], created.HelpTable[3]);
}

TEST(ProjectDefaults, CreationRefusesBlankFieldsAndExistingProjects) {
    test::TempDir dir;
    const AppPaths paths(dir.path());
    ProjectModel model;
    EXPECT_EQ(CreateProject(model, paths, Info(" ", "Kim")).message, kMissingNameOrAuthor);
    EXPECT_EQ(CreateProject(model, paths, Info("Game", "")).message, kMissingNameOrAuthor);
    ASSERT_TRUE(CreateProject(model, paths, Info("Game!")).created);
    ProjectModel again;
    EXPECT_EQ(CreateProject(again, paths, Info("GAME")).message, kProjectAlreadyExists);
    EXPECT_TRUE(std::filesystem::is_directory(paths.ResPath() / "toolstyle"));
    EXPECT_TRUE(std::filesystem::is_directory(paths.WorldPath()));
    // A name that can't be used is refused in the name check's words before any folder.
    const AppPaths fresh(dir.path() / "fresh");
    for (const std::string &name :
         {std::string("\x01\x02"), std::string(500, 'a'), std::string("??")})
        EXPECT_NE(
            CreateProject(again, fresh, Info(name)).message.find("is not a usable project name"),
            std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(fresh.Root()));
}

} // namespace
} // namespace orrery

namespace orrery {
namespace {

TEST(ApplicationStock, ANewTreeGetsWhatItLacksAndNothingIsReplaced) {
    test::TempDir from, to;
    const AppPaths source(from.path()), target(to.path());
    const std::vector<std::string> &stock = StockFiles();
    for (std::size_t i = 0; i + 1 < stock.size(); ++i) { // the last one the source lacks too
        std::filesystem::create_directories((from.path() / stock[i]).parent_path());
        ASSERT_TRUE(WriteTextFile(from.path() / stock[i], "stock " + stock[i]));
    }
    std::filesystem::create_directories(to.path() / "Data");
    ASSERT_TRUE(WriteTextFile(to.path() / "Data/words.dat", "the author's own"));

    EXPECT_EQ(CopyStock(source, target), std::vector<std::string>{stock.back()});
    EXPECT_EQ(ReadTextFile(to.path() / "Data/words.dat"), "the author's own");
    EXPECT_EQ(ReadTextFile(to.path() / "Data/names.dat"), "stock Data/names.dat");
}

} // namespace
} // namespace orrery
