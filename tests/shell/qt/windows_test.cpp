// The small windows round a game: the credits roll round for ever, and the options keep the
// player's music and sound choices.
#include "guitest.h"

#include "foundation/paths.h"
#include "foundation/preferences.h"
#include "project/model.h"
#include "session/qt/creditswindow.h"
#include "session/qt/optionsdialog.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

namespace orrery::test {
namespace {

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
