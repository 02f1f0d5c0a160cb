// The desktop's windows under the player's mouse and keys: tools dragged and closed, locks
// that keep a tool shut, statements that change what elements show, keys a message swallows,
// and a console line that stops at its width.
#include "actions/game.h"
#include "actions/statement.h"
#include "desk/quicklist.h"
#include "desk/tools.h"
#include "foundation/preferences.h"
#include "foundation/random.h"
#include "guitest.h"
#include "runtime/desktopwindow.h"
#include "runtime/qthost.h"
#include "session/playsession.h"
#include "widgets/deskpanels.h"
#include "widgets/look.h"
#include "widgets/sidemenuview.h"
#include "widgets/toolview.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace orrery::test {
namespace {

class DeskGui : public ::testing::Test {
protected:
    DeskGui()
        : paths(CopyAppFolder(dir)), preferences(dir.path() / "prefs"), random(11), host(paths, preferences),
          session(paths, host, random) {
        session.OpenProject("Night Shift");
        EXPECT_TRUE(session.NewGame("Cy").ok);
        desktop = std::make_unique<DesktopWindow>(session, host);
        desktop->resize(1280, 800);
        desktop->show();
        desktop->enter();
        Run("$stage = RETURN_COMPLEX [0]"); // any statement; then the welcome closes
        desktop->run([](Game &g) { g.desk.message.visible = false; });
    }

    Game &game() { return session.game(); }
    void Run(const std::string &statement) {
        desktop->run([&](Game &g) { RunStatement(g, statement); });
    }
    ToolView *Open(const std::string &tool) {
        desktop->run([&](Game &g) { OpenT(g, tool); });
        return desktop->toolView(NormTag(tool));
    }
    static std::string NormTag(std::string tool) {
        for (char &c : tool) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return tool;
    }
    QWidget *Element(ToolView *tool, const char *name) { return tool->findChild<QWidget *>(name); }
    void Drag(QWidget *widget, QPoint from, QPoint by) {
        QTest::mousePress(widget, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, QPointF(from + by), widget->mapToGlobal(QPointF(from + by)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &move);
        QTest::mouseRelease(widget, Qt::LeftButton, {}, from + by);
    }

    TempDir dir;
    AppPaths paths;
    PreferenceStore preferences;
    Random random;
    QtHost host;
    PlaySession session;
    std::unique_ptr<DesktopWindow> desktop;
};

TEST_F(DeskGui, EachToolOpensInItsOwnPlaceOnTheSmallestScreen) {
    desktop->resize(1024, 768);
    Run("MENU_LOCK_OFF [console]");
    Run("MENU_LOCK_OFF [cracker]");
    std::map<std::string, QRect> placed;
    for (const char *tool : {"Mail", "Connector", "Console", "Cracker"}) {
        ToolView *view = Open(tool);
        ASSERT_NE(view, nullptr) << tool;
        placed[tool] = view->geometry();
        EXPECT_TRUE(desktop->rect().contains(placed[tool])) << tool;
    }
    desktop->run([](Game &g) {
        g.desk.help.visible = true;
        ShowQuicklist(g.desk);
    });
    Shot(desktop.get(), "desktop-1024.png");
    // The panels stand above the tools: no tool goes under them, nor under the side menu.
    const QWidget *panels[] = {desktop->sideMenu(), desktop->quicklist(), desktop->findChild<QWidget *>("helper")};
    for (const auto &[tool, rect] : placed) {
        for (const QWidget *panel : panels) {
            ASSERT_NE(panel, nullptr);
            EXPECT_FALSE(rect.intersects(panel->geometry())) << tool << " under " << panel->objectName().toStdString();
        }
        // The Cracker, bought late, may lie over the Mail; no other two tools meet.
        for (const auto &[other, otherRect] : placed)
            if (tool < other && !(std::set<std::string>{tool, other} == std::set<std::string>{"Cracker", "Mail"})) {
                EXPECT_FALSE(rect.intersects(otherRect)) << tool << " over " << other;
            }
    }
}

TEST_F(DeskGui, ToolsDragByTheirTitleBarUnlessPinned) {
    ToolView *tool = Open("Connector");
    ASSERT_NE(tool, nullptr);
    const ToolBox &box = game().desk.Box(tool->box());
    const std::int32_t left = box.left, top = box.top;
    Drag(tool, QPoint(60, 10), QPoint(50, 30));
    // The model keeps where the player put it, to the pixel.
    EXPECT_EQ(Px(box.left), Px(left) + 50);
    EXPECT_EQ(Px(box.top), Px(top) + 30);
    EXPECT_EQ(tool->pos(), QPoint(Px(box.left), Px(box.top)));
    const std::int32_t dragged = box.left;

    Run("WINDOW_DISABLE_MOVE [Connector]");
    Drag(tool, QPoint(60, 10), QPoint(50, 30));
    EXPECT_EQ(box.left, dragged);
    // A press below the title bar never drags.
    Run("WINDOW_ENABLE_MOVE [Connector]");
    Drag(tool, QPoint(60, 100), QPoint(50, 30));
    EXPECT_EQ(box.left, dragged);
}

TEST_F(DeskGui, TheCloseMarkHidesTheToolAndEmptiesItsTextBoxesUntilDisabled) {
    ToolView *tool = Open("Connector");
    QWidget *address = Element(tool, "textaddress");
    QTest::mouseClick(address, Qt::LeftButton);
    QTest::keyClicks(address, "gate.halvard.com");
    QTest::mouseClick(tool, Qt::LeftButton, {}, tool->closeRect().center());
    EXPECT_FALSE(game().desk.Box(tool->box()).visible);
    EXPECT_FALSE(tool->isVisible());
    EXPECT_EQ(game().desk.TLinkControl(game().desk.ElIndex("textaddress"))->text, "");

    Open("Connector");
    Run("CLOSE_DISABLE [Connector]");
    QTest::mouseClick(tool, Qt::LeftButton, {}, tool->closeRect().center());
    EXPECT_TRUE(tool->isVisible());
}

TEST_F(DeskGui, ALockedToolStaysShutAndStatementsShowOnElements) {
    SideMenuView *side = desktop->sideMenu();
    int cracker = 0;
    for (std::size_t i = 1; i < game().desk.SideMenu.size(); ++i)
        if (game().desk.SideMenu[i].caption == "Cracker") cracker = static_cast<int>(i);
    QTest::mouseClick(side, Qt::LeftButton, {}, side->entryRect(cracker).center());
    EXPECT_EQ(desktop->toolView("cracker"), nullptr);

    ToolView *tool = Open("Connector");
    Run("ELEMENT_HIDE [Connector] [labeladdress]");
    EXPECT_FALSE(Element(tool, "labeladdress")->isVisible());
    Run("LIST_ADD [listlog] [Connected to nowhere]");
    auto *log = qobject_cast<QListWidget *>(Element(tool, "listlog"));
    ASSERT_NE(log, nullptr);
    EXPECT_EQ(log->item(log->count() - 1)->text(), "Connected to nowhere");
}

TEST_F(DeskGui, AnOpenMessageSwallowsTheNextKeyEscapeIncluded) {
    Run("MESSAGE [Night Shift] [Still here?]");
    ASSERT_TRUE(game().desk.message.visible);
    QTest::keyClick(desktop.get(), Qt::Key_Escape);
    EXPECT_FALSE(game().desk.message.visible);
    EXPECT_FALSE(game().desk.exitRequested);
}

TEST_F(DeskGui, AOneLineTextBoxShowsItsWholeTextCentredWithoutAScrollBar) {
    ToolView *tool = Open("Connector");
    auto *address = qobject_cast<QPlainTextEdit *>(Element(tool, "textaddress"));
    ASSERT_NE(address, nullptr);
    auto expectWholeAndCentred = [&](const char *when) {
        desktop->sync();
        EXPECT_FALSE(address->verticalScrollBar()->isVisible()) << when;
        // The caret's rectangle at the start, one line of the font high.
        const QRect caret = address->cursorRect(QTextCursor(address->document()));
        const QRect line(caret.topLeft(), QSize(caret.width(), address->fontMetrics().height()));
        const QRect inside = address->viewport()->rect();
        EXPECT_GE(line.top(), inside.top()) << when;
        EXPECT_LE(line.bottom(), inside.bottom()) << when;
        EXPECT_NEAR(line.center().y(), inside.center().y(), 2) << when;
    };
    QTest::mouseClick(address, Qt::LeftButton);
    QTest::keyClicks(address, "gate.halvard.com");
    expectWholeAndCentred("typed");
    Shot(tool, "connector.png");
    // Emptied by hand and filled from the quicklist, it shows what it holds.
    desktop->run([](Game &g) { AddToList(g.desk, "depot.greyhaven.net - 81.42.7.199"); });
    QTest::keyClick(address, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(address, Qt::Key_Backspace);
    QuicklistView *quick = desktop->quicklist();
    desktop->run([](Game &g) { ShowQuicklist(g.desk); });
    QTest::mouseClick(quick, Qt::LeftButton, {}, quick->rowRect(1).center());
    EXPECT_EQ(address->toPlainText(), "depot.greyhaven.net");
    expectWholeAndCentred("from the quicklist");
}

TEST_F(DeskGui, AToolsTitleBarStaysInReachWhereverItIsDragged) {
    ToolView *tool = Open("Connector");
    const QRect screen = desktop->rect();
    for (const QPoint by : {QPoint(-3000, 0), QPoint(3000, 3000), QPoint(0, -3000)}) {
        Drag(tool, QPoint(60, 10), by);
        const QRect bar(tool->pos(), QSize(tool->width(), TitleBarHeight()));
        EXPECT_GE(bar.top(), 0) << by.x() << "," << by.y();
        EXPECT_LE(bar.bottom(), screen.bottom()) << by.x() << "," << by.y();
        EXPECT_GE(bar.intersected(screen).width(), 60) << by.x() << "," << by.y();
        EXPECT_EQ(tool->pos(), QPoint(Px(game().desk.Box(tool->box()).left), Px(game().desk.Box(tool->box()).top)));
    }
}

TEST_F(DeskGui, TheQuicklistMenuWearsTheGamesColoursAndTheDebugButtonAnswers) {
    ToolView *tool = Open("Connector");
    Run("labelfound = RETURN_COMPLEX [depot.greyhaven.net]");
    QTest::mouseClick(Element(tool, "labelfound"), Qt::RightButton);
    QMenu *menu = desktop->quickMenu();
    ASSERT_TRUE(menu->isVisible());
    for (const QAction *action : menu->actions()) EXPECT_FALSE(action->text().contains('&'));
    const QImage shown = menu->grab().toImage();
    menu->grab().save(QString(ORRERY_SCREENS_DIR) + "/quickmenu.png");
    EXPECT_EQ(shown.pixelColor(shown.width() - 6, shown.height() / 4),
              ToQColor(game().project.settings.mytopmenubackcolor));
    menu->hide();

    QTest::keyClick(desktop.get(), Qt::Key_F12, Qt::ShiftModifier);
    auto *debug = desktop->findChild<DebugView *>("Picture2");
    ASSERT_TRUE(debug && debug->isVisible());
    const QImage before = debug->grab().toImage();
    QTest::mousePress(debug, Qt::LeftButton, {}, debug->buttonRect().center());
    EXPECT_NE(debug->grab().toImage(), before);
    QTest::mouseRelease(debug, Qt::LeftButton, {}, debug->buttonRect().center());
    EXPECT_EQ(game().desk.debugClicks, 1);
    EXPECT_NE(debug->grab().toImage(), before); // the count stands beside it
}

TEST_F(DeskGui, TheTopMenuChoosesOnReleaseAndEscapeClosesOnlyItsDropDown) {
    TopMenuBar *bar = desktop->topMenuBar();
    TopMenuList *list = desktop->topMenuList();
    auto openFile = [&] {
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->entryRect(1).center());
        ASSERT_TRUE(game().desk.topMenuListVisible);
    };
    openFile();
    QTest::keyClick(desktop.get(), Qt::Key_Escape);
    EXPECT_FALSE(game().desk.topMenuListVisible);
    EXPECT_FALSE(game().desk.exitRequested);

    // The press on an entry keeps the list open; the release carries the entry out.
    desktop->run([](Game &g) { g.desk.help.visible = false; });
    openFile();
    int showHelp = 0;
    for (std::size_t i = 1; i < game().desk.TopMenuList.size(); ++i)
        if (game().desk.TopMenuList[i].word == "help") showHelp = static_cast<int>(i);
    ASSERT_GT(showHelp, 0);
    const QPoint at = list->entryRect(showHelp).center();
    QTest::mousePress(list, Qt::LeftButton, {}, at);
    EXPECT_TRUE(game().desk.topMenuListVisible);
    QTest::mouseRelease(list, Qt::LeftButton, {}, at);
    EXPECT_TRUE(game().desk.help.visible);
    EXPECT_FALSE(game().desk.topMenuListVisible);
}

TEST_F(DeskGui, AConsoleTakesTheCodePagesCharactersFromAnyKeyboard) {
    Run("MENU_LOCK_OFF [console]");
    ToolView *tool = Open("Console");
    QTest::mouseClick(Element(tool, "qonsolemain"), Qt::LeftButton);
    // As a French or German keyboard sends them: a key Qt names, with its text.
    for (const auto &[key, text] : {std::pair{Qt::Key_Eacute, u"\u00E9"}, {Qt::Key_Odiaeresis, u"\u00F6"},
                                    {Qt::Key_unknown, u"\u20AC"}, {Qt::Key_unknown, u"\u65E5"}}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString::fromUtf16(text));
        QApplication::sendEvent(desktop.get(), &press);
    }
    EXPECT_EQ(game().desk.consoles.columns[1].line, "?:\\> \xE9\xF6\x80");
}

TEST_F(DeskGui, AConsoleLineStopsAtTheConsolesWidth) {
    Run("MENU_LOCK_OFF [console]");
    ToolView *tool = Open("Console");
    QWidget *console = Element(tool, "qonsolemain");
    QTest::mouseClick(console, Qt::LeftButton);
    QTest::keyClicks(desktop.get(), QString(300, QLatin1Char('w')));
    const std::string &line = game().desk.consoles.columns[1].line;
    EXPECT_LT(line.size(), 300u);
    // The last character went in while the line still fitted; the next one didn't.
    const QFontMetrics metrics(console->font());
    const int limit = console->width() - Px(480);
    EXPECT_LE(metrics.horizontalAdvance(ToQString(" " + line.substr(0, line.size() - 1))), limit + 1);
    EXPECT_GT(metrics.horizontalAdvance(ToQString(" " + line)), limit - 1);
    // Backspace and Enter still work at the limit.
    QTest::keyClick(desktop.get(), Qt::Key_Backspace);
    EXPECT_EQ(game().desk.consoles.columns[1].line.size(), line.size());
    QTest::keyClick(desktop.get(), Qt::Key_Return);
    EXPECT_EQ(game().desk.consoles.columns[1].rows[99].rfind("Unknown Command"), std::string::npos);
}

} // namespace
} // namespace orrery::test
