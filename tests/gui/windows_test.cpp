// The small windows round a game: the profile screen's choices and messages, the credits that
// roll round for ever, and the options that keep the player's music and sound choices.
#include "foundation/paths.h"
#include "foundation/preferences.h"
#include "foundation/textfile.h"
#include "guitest.h"
#include "project/model.h"
#include "session/qt/creditswindow.h"
#include "session/qt/optionsdialog.h"
#include "session/qt/profiledialog.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace orrery::test {
namespace {

// A profile screen over a Saved folder, keeping the games it was asked to start.
struct ProfileScreenWindow {
    explicit ProfileScreenWindow(bool loadMode, std::initializer_list<const char *> saved = {}) {
        std::filesystem::create_directories(paths.SavedPath());
        for (const char *name : saved) EXPECT_TRUE(WriteTextFile(paths.SavedPath() / name, ""));
        dialog = std::make_unique<ProfileDialog>(paths, loadMode, [this](ProfileOption option, const std::string &name) {
            started.push_back((option == ProfileOption::New ? "new " : "load ") + name);
            return GameStart{true, {}, {}};
        });
        dialog->show();
    }
    void Start() { QTest::mouseClick(dialog->findChild<QAbstractButton *>("ARButton1"), Qt::LeftButton); }
    QLineEdit *Name() { return dialog->findChild<QLineEdit *>("Text1"); }
    QString Status() { return dialog->findChild<QLabel *>("Label1")->text(); }

    TempDir dir;
    AppPaths paths{dir.path()};
    std::vector<std::string> started;
    std::unique_ptr<ProfileDialog> dialog;
};

TEST(ProfileDialog, LoadsTheFirstProfileOrSaysThereIsNone) {
    ProfileScreenWindow some(true, {"Bo.vbz", "Ada.vbz"});
    QApplication::processEvents();
    Shot(some.dialog.get(), "profile-load.png");
    QTest::keyClick(some.dialog->findChild<QListWidget *>("List1"), Qt::Key_Return);
    EXPECT_EQ(some.started, std::vector<std::string>{"load Ada"});

    ProfileScreenWindow none(true);
    none.Start();
    EXPECT_TRUE(none.started.empty());
    EXPECT_EQ(none.Status(), "There is no saved profile yet: start a new one.");
}

TEST(ProfileDialog, ItsMessagesAreNeverNamesAndTypingReplacesThem) {
    ProfileScreenWindow screen(false, {"Ada.vbz"});
    QTest::keyClicks(screen.Name(), "Ada");
    screen.Start();
    EXPECT_EQ(screen.Name()->text(), "That profile name already exists!");
    EXPECT_EQ(screen.Name()->selectedText(), screen.Name()->text());
    screen.Start();
    EXPECT_EQ(screen.Name()->text(), "Enter profile name!");
    screen.Start();
    EXPECT_TRUE(screen.started.empty());
    QTest::keyClicks(screen.Name(), "Cy");
    EXPECT_EQ(screen.Name()->text(), "Cy");
    screen.Start();
    EXPECT_EQ(screen.started, std::vector<std::string>{"new Cy"});
}

TEST(CreditsWindow, RollsUpAndStartsAgainBelow) {
    TempDir dir;
    ProjectModel project;
    project.settings.mycredits = "Written by the night crew//Thanks for playing";
    CreditsWindow credits(project, AppPaths(dir.path()));
    credits.resize(800, 600);
    credits.show();
    auto *text = credits.findChild<QLabel *>("l");
    ASSERT_NE(text, nullptr);
    EXPECT_TRUE(text->text().contains("Thanks for playing"));
    const int start = text->y();
    credits.Roll();
    EXPECT_EQ(text->y(), start - 16); // 240 twips a tick
    int lowest = start, jumps = 0;
    for (int tick = 0; tick < 400; ++tick) {
        const int before = text->y();
        credits.Roll();
        if (text->y() > before) ++jumps;
        lowest = std::min(lowest, text->y());
    }
    EXPECT_GE(jumps, 2);                               // it never ends by itself
    EXPECT_GE(lowest, -text->height() - 40 - 16);      // and never rolls far past the top
}

TEST(OptionsDialog, SavesMusicAndSoundAndSaysWhetherMusicPlays) {
    TempDir dir;
    const PreferenceStore preferences(dir.path() / "prefs");
    ASSERT_TRUE(preferences.SavePref("Night Shift", "Music", "0"));
    std::vector<bool> switched;
    OptionsDialog options(AppPaths(dir.path()), preferences, "Night Shift",
                          [&](bool musicOn) { switched.push_back(musicOn); });
    auto *music = options.findChild<QCheckBox *>("Check1");
    auto *sound = options.findChild<QCheckBox *>("Check2");
    ASSERT_TRUE(music && sound);
    EXPECT_FALSE(music->isChecked());
    music->setChecked(true);
    sound->setChecked(false);
    QTest::mouseClick(options.findChild<QAbstractButton *>("ARButton1"), Qt::LeftButton);
    EXPECT_EQ(preferences.GetPref("Night Shift", "Music", ""), "1");
    EXPECT_EQ(preferences.GetPref("Night Shift", "Sound", ""), "0");
    EXPECT_EQ(switched, std::vector<bool>{true});
}

} // namespace
} // namespace orrery::test
