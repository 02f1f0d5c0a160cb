// Run Simulation: the world generated with its progress, the project saved, and the game
// played by a run-time in a process of its own while the editor waits.
#include "editor/qt/editorframe.h"
#include "editor/qt/simulationdialog.h"
#include "editor/servers.h"
#include "editor/session.h"
#include "foundation/textfile.h"
#include "gui/guitest.h"

#include <QAction>
#include <QListWidget>
#include <QMdiArea>
#include <QProgressBar>
#include <QStatusBar>
#include <QTest>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>

namespace orrery {
namespace {

namespace fs = std::filesystem;

struct Simulation : ::testing::Test {
    test::TempDir dir;
    fs::path root = test::CopyAppFolder(dir);
    EditorSession session{AppPaths(root), AppPaths(ORRERY_APP_DIR)};

    void SetUp() override { ASSERT_FALSE(session.Open("Night Shift")); }
    // A stand-in for the run-time: writes its arguments beside it, then ends with the status.
    QString FakeRunner(int status, const char *pause = "0") {
        const fs::path script = dir.path() / "runner.sh";
        WriteTextFile(script, "#!/bin/sh\nsleep " + std::string(pause) + "\necho \"$@\" > \"" +
                                  (dir.path() / "args.txt").string() + "\"\nexit " +
                                  std::to_string(status) + "\n");
        fs::permissions(script, fs::perms::owner_all);
        return QString::fromStdString(script.string());
    }
};

TEST_F(Simulation, TheWorldIsGeneratedOctetByOctetThenTheProjectIsSaved) {
    ASSERT_TRUE(session.Apply(SetRandomServers(session.model(), "500")));
    fs::remove_all(session.paths().WorldPath());
    SimulationDialog dialog(session);
    dialog.show();
    ASSERT_TRUE(test::WaitFor([&] { return dialog.result() == QDialog::Accepted; }, 60000));
    auto *list = dialog.findChild<QListWidget *>("List1");
    ASSERT_EQ(list->count(), 255);
    EXPECT_EQ(list->item(0)->text(), "GENERATING RANDOM SERVERS - 1.*.*.*");
    EXPECT_EQ(list->currentRow(), 254) << "the list follows the work";
    EXPECT_EQ(dialog.findChild<QProgressBar *>("progress")->value(), 255);
    EXPECT_TRUE(fs::exists(session.paths().WorldPath() / "_255_.dat"));
}

TEST_F(Simulation, WithOneRandomServerNothingIsGenerated) {
    ASSERT_TRUE(session.Apply(SetRandomServers(session.model(), "1")));
    SimulationDialog dialog(session);
    dialog.show();
    ASSERT_TRUE(test::WaitFor([&] { return dialog.result() == QDialog::Accepted; }));
    EXPECT_EQ(dialog.findChild<QListWidget *>("List1")->count(), 0);
}

TEST_F(Simulation, TheEditorWaitsForTheGameAndIsBackWhenItEnds) {
    EditorFrame frame(session);
    frame.show();
    ASSERT_TRUE(frame.Apply(SetRandomServers(session.model(), "1")));
    const struct {
        int status;
        const char *message;
        bool missing; // no run-time where the editor looks for it
    } games[] = {{0, "", false},
                 {3, "The game ended with an error (exit status 3).", false},
                 {-1, "The game could not be started: ", true}};
    for (const auto &game : games) {
        frame.setRunnerProgram(game.missing ? QString::fromStdString((dir.path() / "none").string())
                                            : FakeRunner(game.status, "0.3"));
        int ended = -2;
        QObject::connect(&frame, &EditorFrame::gameEnded, &frame, [&](int code) { ended = code; });
        frame.RunSimulation();
        if (!game.missing) {
            ASSERT_TRUE(frame.gameRunning());
            EXPECT_FALSE(frame.centralWidget()->isEnabled());
            EXPECT_FALSE(frame.findChild<QAction *>("mnuundo")->isEnabled())
                << "nothing changes the project while a game plays it";
            EXPECT_EQ(frame.statusBar()->currentMessage(),
                      "A game is running: the editor is back when it ends.");
            frame.RunSimulation(); // a second game does not start beside the first
        }
        ASSERT_TRUE(test::WaitFor([&] { return ended != -2; }, 10000));
        EXPECT_EQ(ended, game.status);
        EXPECT_FALSE(frame.gameRunning());
        EXPECT_TRUE(frame.centralWidget()->isEnabled());
        const std::string said = frame.statusBar()->currentMessage().toStdString();
        EXPECT_EQ(said.substr(0, std::strlen(game.message)), game.message);
        frame.disconnect(&frame);
    }
    EXPECT_EQ(ReadTextFile(dir.path() / "args.txt"),
              "--root " + root.string() + " --project Night Shift");
}

} // namespace
} // namespace orrery
