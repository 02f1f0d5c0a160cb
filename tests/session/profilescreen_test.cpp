// The profile screen: the list of saved profiles, the checks on a new name, and a load's start.
#include "actions/engine_fixture.h"
#include "foundation/textfile.h"
#include "session/profilescreen.h"
#include "support/tempdir.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

// A Saved folder with profiles in every spelling, a world folder and other files.
struct Screen {
    test::TempDir dir;
    AppPaths paths{dir.path()};

    Screen() {
        fs::create_directories(paths.SavedPath() / "Ada");
        for (const char *file : {"Ada.vbz", "Ada.VBZ", "bob.VBZ", "Cy.Vbz", "notes.txt", "Dee",
                                 ".vbz", "x.vbz.saving"})
            EXPECT_TRUE(WriteTextFile(paths.SavedPath() / file, ""));
    }
};

TEST(ProfileScreen, ListAndLoadUseTheSpellingOnDisk) {
    Screen screen;
    EXPECT_EQ(LoadGamesList(screen.paths), (std::vector<std::string>{"Ada", "bob", "Cy"}));
    EXPECT_TRUE(LoadGamesList(AppPaths(screen.paths.SavedPath() / "Ada")).empty());

    test::EngineFixture f;
    f.game.paths = &screen.paths;
    f.game.files[3].name = "old.txt";
    EXPECT_EQ(GameLoad(f.game, " Cy ").loadPath, screen.paths.SavedPath() / "Cy.Vbz");
    EXPECT_EQ(f.game.PlayerName, "Cy");
    EXPECT_TRUE(f.game.files[3].name.empty()) << "files are not kept in a profile";
    EXPECT_EQ(GameLoad(f.game, "Ada").loadPath, screen.paths.SavedPath() / "Ada.vbz");
}

TEST(ProfileScreen, ConfirmChecksTheNameOrTheSelection) {
    Screen screen;
    using enum ProfileClick::Next;
    const std::string enter = "Enter profile name!", taken = "That profile name already exists!";
    const std::tuple<ProfileOption, const char *, ProfileClick::Next, std::string> cases[] = {
        {ProfileOption::New, "", ShowMessage, enter},
        {ProfileOption::New, " .VBZ ", ShowMessage, enter},
        {ProfileOption::New, "Enter profile name!", ShowMessage, enter},
        {ProfileOption::New, "That profile name already exists!", ShowMessage, enter},
        {ProfileOption::New, "Ada .vbz", ShowMessage, taken},
        {ProfileOption::New, "bob", ShowMessage, taken},
        {ProfileOption::New, "Dee", ShowMessage, taken},
        {ProfileOption::New, " Eve.VBZ", StartNew, "Eve"},
        {ProfileOption::New, "a\\b", ShowStatus, UnusableName("a\\b", NameKind::Player, NameProblem("a\\b", NameKind::Player))},
        {ProfileOption::New, "??", ShowStatus, UnusableName("??", NameKind::Player, NameProblem("??", NameKind::Player))},
        {ProfileOption::Load, "  ", ShowStatus, "Choose a profile to load."},
        {ProfileOption::Load, "Cy", StartLoad, "Cy"},
    };
    for (const auto &[option, input, next, text] : cases) {
        const ProfileClick click = ClickIt(screen.paths, option, input, input);
        EXPECT_EQ(click.next, next) << input;
        EXPECT_EQ(click.text, text) << input;
    }
    // With nothing saved, the screen says why nothing loads.
    const test::TempDir empty;
    const ProfileClick none = ClickIt(AppPaths(empty.path()), ProfileOption::Load, "", "");
    EXPECT_EQ(none.next, ShowStatus);
    EXPECT_EQ(none.text, "There is no saved profile yet: start a new one.");
}

} // namespace
} // namespace orrery
