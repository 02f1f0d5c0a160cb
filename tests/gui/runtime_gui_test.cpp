// A player's way through the run-time's real windows: the menu, a new profile, the desktop
// with its side menu, a tool's text box and button, a console, the top menu and the quicklist,
// back to the menu by Escape, the saved profile loaded again, and the menu's Exit.
#include "actions/game.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "desk/qonsole.h"
#include "foundation/preferences.h"
#include "guitest.h"
#include "platform/headless.h"
#include "runtime/desktopwindow.h"
#include "runtime/menuwindow.h"
#include "widgets/quitsignals.h"
#include "runtime/runtime.h"
#include "runtime/splash.h"
#include "session/playsession.h"
#include "session/qt/askerdialog.h"
#include "session/qt/profiledialog.h"
#include "widgets/deskpanels.h"
#include "widgets/elementviews.h"
#include "widgets/look.h"
#include "widgets/sidemenuview.h"
#include "widgets/toolview.h"

#include <QAbstractButton>
#include <QDesktopServices>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

namespace orrery::test {

// Stands in for the browser: keeps the pages it was asked to open.
class UrlCatcher : public QObject {
    Q_OBJECT
public:
    QStringList opened;
public slots:
    void open(const QUrl &url) { opened << url.toString(); }
};

namespace {

class RunnerGui : public ::testing::Test {
protected:
    RunnerGui()
        : root(CopyAppFolder(dir)), runtime(AppPaths(root), PreferenceStore(dir.path() / "prefs")) {
        runtime.setQuiet(true);
        runtime.setWindowSize(QSize(1280, 800));
    }

    Game &game() { return runtime.session().game(); }
    DesktopWindow *desktop() { return runtime.desktop(); }

    int SideEntry(const std::string &caption) {
        const auto &side = game().desk.SideMenu;
        for (std::size_t i = 1; i < side.size(); ++i)
            if (side[i].caption == caption) return static_cast<int>(i);
        return 0;
    }

    void OpenFromSideMenu(const std::string &caption) {
        SideMenuView *side = desktop()->sideMenu();
        QTest::mouseClick(side, Qt::LeftButton, {}, side->entryRect(SideEntry(caption)).center());
    }

    QWidget *Element(const std::string &tool, const std::string &name) {
        ToolView *view = desktop()->toolView(tool);
        return view ? view->findChild<QWidget *>(QString::fromStdString(name)) : nullptr;
    }

    // Starts a game from the menu's line, answering the profile screen.
    void StartFromMenu(int line, const std::function<void(ProfileDialog *)> &answer) {
        bool answered = false;
        WhenModal<ProfileDialog>([&](ProfileDialog *dialog) {
            answer(dialog);
            answered = true;
        });
        QTest::mouseClick(runtime.menu(), Qt::LeftButton, {},
                          runtime.menu()->lineRect(line).center());
        ASSERT_TRUE(WaitFor([&] { return answered && desktop() && desktop()->isVisible(); }));
        ASSERT_TRUE(runtime.session().Playing());
    }

    // Every line the game put in a list or on a console shows whole, up to the finale, where
    // every mail has come: none runs past its element or ends in an ellipsis.
    void ExpectEveryLineFits() {
        for (QListWidget *list : desktop()->findChildren<QListWidget *>())
            for (int i = 0; i < list->count(); ++i) {
                const QString text = list->item(i)->text();
                EXPECT_LE(list->fontMetrics().horizontalAdvance(text) + 8,
                          list->viewport()->width())
                    << list->objectName().toStdString() << ": " << text.toStdString();
            }
        for (QWidget *widget : desktop()->findChildren<QWidget *>()) {
            const auto *console = dynamic_cast<const QonsoleView *>(widget);
            if (!console) continue;
            const int column = ConsoleHistoryIndex(game().desk.consoles, console->row());
            ASSERT_GT(column, 0);
            for (const std::string &row :
                 game().desk.consoles.columns[static_cast<std::size_t>(column)].rows) {
                const QString shown = ToQString(" " + LookOfRow(row).text);
                EXPECT_LE(console->fontMetrics().horizontalAdvance(shown), console->width()) << row;
            }
        }
    }

    void LeaveByEscape() {
        QTest::keyClick(desktop(), Qt::Key_Escape);
        ASSERT_TRUE(WaitFor([&] { return !desktop() && runtime.menu()->isVisible(); }));
    }

    TempDir dir;
    std::filesystem::path root;
    Runtime runtime;
};

TEST_F(RunnerGui, PlaysFromMenuToDesktopAndBack) {
    runtime.start();
    ASSERT_NE(runtime.splash(), nullptr);
    EXPECT_EQ(runtime.splash()->title(), "Night Shift"); // the game's name, not the system's
    Shot(runtime.splash(), "splash.png");
    ASSERT_TRUE(WaitFor([&] { return runtime.menu() && runtime.menu()->isVisible(); }));
    Shot(runtime.menu(), "menu.png");

    // New Game: a profile named on the profile screen.
    StartFromMenu(1, [](ProfileDialog *dialog) {
        Shot(dialog, "profile.png");
        dialog->findChild<QLineEdit *>("Text1")->setText("Ada");
        QTest::mouseClick(dialog->findChild<QAbstractButton *>("ARButton1"), Qt::LeftButton);
    });
    EXPECT_EQ(game().PlayerName, "Ada");
    // The start-up sequence greets the player; any key closes the message.
    ASSERT_TRUE(WaitFor([&] { return game().desk.message.visible; }));
    Shot(desktop(), "desktop-welcome.png");
    QTest::keyClick(desktop(), Qt::Key_Return);
    EXPECT_FALSE(game().desk.message.visible);

    // The Connector from the side menu: the address typed, Connect pressed. The Console,
    // locked until then, opens.
    OpenFromSideMenu("Connector");
    ASSERT_TRUE(WaitFor([&] { return Element("connector", "textaddress") != nullptr; }));
    QWidget *address = Element("connector", "textaddress");
    QTest::mouseClick(address, Qt::LeftButton);
    QTest::keyClicks(address, "gate.halvard.com");
    EXPECT_EQ(game().desk.TLinkControl(game().desk.ElIndex("textaddress"))->text,
              "gate.halvard.com");
    QTest::mouseClick(Element("connector", "buttonconnect"), Qt::LeftButton);
    ASSERT_TRUE(WaitFor(
        [&] { return !game().desk.ToolLocked[static_cast<std::size_t>(SideEntry("Console"))]; }));

    // The Console: HELP typed on the desktop's keys after a click on the console.
    OpenFromSideMenu("Console");
    ASSERT_TRUE(WaitFor([&] { return Element("console", "qonsolemain") != nullptr; }));
    QWidget *console = Element("console", "qonsolemain");
    QTest::mouseClick(console, Qt::LeftButton);
    QTest::keyClicks(desktop(), "help");
    QTest::keyClick(desktop(), Qt::Key_Return);
    const auto &rows = game().desk.consoles.columns[1].rows;
    EXPECT_TRUE(std::any_of(rows.begin(), rows.end(), [](const std::string &row) {
        return row.find("HELP (Available Commands)") != std::string::npos;
    }));
    QTest::keyClicks(desktop(), "trace");
    QTest::keyClick(desktop(), Qt::Key_Return);
    ASSERT_TRUE(WaitFor([&] { return GetVariable(game(), "$stage") == "2"; }));
    desktop()->sync();
    Shot(console, "qonsole-help.png");
    Shot(desktop(), "desktop.png");

    // The top menu: File opens its drop-down, whose Show Help opens the help panel.
    TopMenuBar *bar = desktop()->topMenuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->entryRect(1).center());
    ASSERT_TRUE(game().desk.topMenuListVisible);
    TopMenuList *list = desktop()->topMenuList();
    int showHelp = 0;
    for (std::size_t i = 1; i < game().desk.TopMenuList.size(); ++i)
        if (game().desk.TopMenuList[i].word == "help") showHelp = static_cast<int>(i);
    ASSERT_GT(showHelp, 0);
    QTest::mouseClick(list, Qt::LeftButton, {}, list->entryRect(showHelp).center());
    EXPECT_TRUE(game().desk.help.visible);
    EXPECT_FALSE(game().desk.topMenuListVisible);

    // The quicklist: the traced depot, right-clicked in the Connector, added as a server.
    OpenFromSideMenu("Connector");
    QWidget *found = Element("connector", "labelfound");
    ASSERT_NE(found, nullptr);
    QTest::mouseClick(found, Qt::RightButton);
    ASSERT_TRUE(desktop()->quickMenu()->isVisible());
    desktop()->quickMenu()->actions().at(0)->trigger();
    EXPECT_NE(game().desk.Quicklist[1].find("depot.greyhaven.net"), std::string::npos);
    // F10 shows and hides it.
    const bool shown = desktop()->quicklist()->isVisible();
    QTest::keyClick(desktop(), Qt::Key_F10);
    EXPECT_NE(desktop()->quicklist()->isVisible(), shown);
    if (!desktop()->quicklist()->isVisible()) QTest::keyClick(desktop(), Qt::Key_F10);

    // To the finale: the cracker bought from the mail, the depot's passcode cracked with the
    // host clicked in from the quicklist, the login, and KILLJOB on the console.
    QTest::mouseClick(Element("mail", "buttonbuy"), Qt::LeftButton);
    ASSERT_TRUE(WaitFor([&] { return game().desk.message.visible; }));
    QTest::keyClick(desktop(), Qt::Key_Return);
    ASSERT_TRUE(WaitFor([&] { return Element("cracker", "textcrack") != nullptr; }));
    QTest::mouseClick(Element("cracker", "textcrack"), Qt::LeftButton);
    QuicklistView *quick = desktop()->quicklist();
    QTest::mouseClick(quick, Qt::LeftButton, {}, quick->rowRect(1).center());
    EXPECT_EQ(game().desk.TLinkControl(game().desk.ElIndex("textcrack"))->text,
              "depot.greyhaven.net");
    QTest::mouseClick(Element("cracker", "buttoncrack"), Qt::LeftButton);
    const std::string passcode = GetVariable(game(), "$passcode");
    ASSERT_FALSE(passcode.empty());
    OpenFromSideMenu("Connector");
    QWidget *address2 = Element("connector", "textaddress");
    QTest::mouseClick(address2, Qt::LeftButton);
    QTest::keyClick(address2, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(address2, "depot.greyhaven.net");
    QTest::mouseClick(Element("connector", "textpasscode"), Qt::LeftButton);
    QTest::keyClicks(Element("connector", "textpasscode"), QString::fromStdString(passcode));
    QTest::mouseClick(Element("connector", "buttonconnect"), Qt::LeftButton);
    ASSERT_EQ(GetVariable(game(), "$loggedin"), "1");
    OpenFromSideMenu("Console");
    QTest::mouseClick(console, Qt::LeftButton);
    QTest::keyClicks(desktop(), "killjob");
    QTest::keyClick(desktop(), Qt::Key_Return);
    ASSERT_TRUE(
        WaitFor([&] { return GetVariable(game(), "$won") == "1" && game().desk.message.visible; }));
    desktop()->sync();
    Shot(desktop(), "finale.png");
    ExpectEveryLineFits();
    QTest::keyClick(desktop(), Qt::Key_Return);

    // Escape saves the profile and goes back to the menu.
    LeaveByEscape();
    EXPECT_TRUE(std::filesystem::exists(root / "Saved" / "Ada.vbz"));

    // Load Game: the saved profile comes back with its progress and its quicklist.
    StartFromMenu(2, [](ProfileDialog *dialog) {
        auto *profiles = dialog->findChild<QListWidget *>("List1");
        ASSERT_EQ(profiles->count(), 1);
        profiles->setCurrentRow(0);
        QTest::mouseClick(dialog->findChild<QAbstractButton *>("ARButton1"), Qt::LeftButton);
    });
    ASSERT_TRUE(WaitFor([&] { return game().desk.activated; }));
    EXPECT_EQ(GetVariable(game(), "$won"), "1");
    EXPECT_NE(game().desk.Quicklist[1].find("depot.greyhaven.net"), std::string::npos);
    LeaveByEscape();

    // The menu's Exit ends the run-time.
    QSignalSpy finished(&runtime, &Runtime::finished);
    int exitLine = 1;
    while (!runtime.menu()->lineRect(exitLine + 1).isEmpty()) ++exitLine;
    QTest::mouseClick(runtime.menu(), Qt::LeftButton, {},
                      runtime.menu()->lineRect(exitLine).center());
    EXPECT_EQ(finished.count(), 1);
}

// What a game holds after it was left, read back without a display.
std::string SavedVariable(const AppPaths &paths, const std::string &player,
                          const std::string &name) {
    HeadlessHost host;
    Random random(3);
    PlaySession session(paths, host, random);
    session.OpenProject("Night Shift");
    if (!session.LoadGame(player).ok || !session.EnterDesktop().ok) return "<unreadable>";
    return GetVariable(session.game(), name);
}

TEST_F(RunnerGui, ClosingTheWindowOrATerminationSignalSavesTheGame) {
    QuitSignals stopSignals;
    QObject::connect(&stopSignals, &QuitSignals::arrived, &runtime, &Runtime::quit);
    QSignalSpy finished(&runtime, &Runtime::finished);
    runtime.start();
    ASSERT_TRUE(WaitFor([&] { return runtime.menu() && runtime.menu()->isVisible(); }));
    StartFromMenu(1, [](ProfileDialog *dialog) {
        dialog->findChild<QLineEdit *>("Text1")->setText("Cy");
        QTest::mouseClick(dialog->findChild<QAbstractButton *>("ARButton1"), Qt::LeftButton);
    });
    desktop()->run([](Game &g) { RunStatement(g, "$note = RETURN_COMPLEX [closed]"); });
    // The window manager's close goes back to the menu, as Escape does.
    desktop()->close();
    ASSERT_TRUE(WaitFor([&] { return !desktop() && runtime.menu()->isVisible(); }));
    EXPECT_EQ(finished.count(), 0);
    EXPECT_EQ(SavedVariable(AppPaths(root), "Cy", "$note"), "closed");

    StartFromMenu(2, [](ProfileDialog *dialog) {
        dialog->findChild<QListWidget *>("List1")->setCurrentRow(0);
        QTest::mouseClick(dialog->findChild<QAbstractButton *>("ARButton1"), Qt::LeftButton);
    });
    desktop()->run([](Game &g) { RunStatement(g, "$note = RETURN_COMPLEX [terminated]"); });
    std::raise(SIGTERM);
    ASSERT_TRUE(WaitFor([&] { return finished.count() == 1; }));
    EXPECT_EQ(SavedVariable(AppPaths(root), "Cy", "$note"), "terminated");
}

TEST_F(RunnerGui, TheWebsiteQuitsOnlyWhenItOpens) {
    runtime.start();
    ASSERT_TRUE(WaitFor([&] { return runtime.menu() && runtime.menu()->isVisible(); }));
    QSignalSpy finished(&runtime, &Runtime::finished);
    const QPoint emblem = runtime.menu()->picture1Rect().center();
    // Nothing opens web pages here: the game goes on.
    QTest::mouseClick(runtime.menu(), Qt::LeftButton, {}, emblem);
    QApplication::processEvents();
    EXPECT_EQ(finished.count(), 0);
    EXPECT_TRUE(runtime.menu()->isVisible());
    // A browser takes the page: the game ends.
    UrlCatcher browser;
    QDesktopServices::setUrlHandler("https", &browser, "open");
    QTest::mouseClick(runtime.menu(), Qt::LeftButton, {}, emblem);
    QDesktopServices::unsetUrlHandler("https");
    EXPECT_EQ(browser.opened, QStringList{"https://orrery-kit.org/"});
    EXPECT_EQ(finished.count(), 1);
}

TEST_F(RunnerGui, AsksWithTheAskerAndGoesOnWithTheAnswer) {
    runtime.start();
    ASSERT_TRUE(WaitFor([&] { return runtime.menu() && runtime.menu()->isVisible(); }));
    StartFromMenu(1, [](ProfileDialog *dialog) {
        dialog->findChild<QLineEdit *>("Text1")->setText("Bo");
        QTest::mouseClick(dialog->findChild<QAbstractButton *>("ARButton1"), Qt::LeftButton);
    });
    WhenModal<AskerDialog>([](AskerDialog *asker) {
        Shot(asker, "asker.png");
        QTest::mouseClick(asker->findChild<QAbstractButton *>("b2"), Qt::LeftButton);
    });
    desktop()->run([](Game &g) {
        RunStatement(g, "$target = RETURN_ASK [Trace the caller?] [Yes] [Not now]");
    });
    EXPECT_EQ(GetVariable(game(), "$target"), "Not now");
}

} // namespace
} // namespace orrery::test

#include "runtime_gui_test.moc"
