// Qonsoles played on a small project: a tool with a console opened, then keys, lines, help
// and prints, checked on the rows and on what a shell would paint.
#include "actions/commands.h"
#include "actions/engine_fixture.h"
#include "desk/qonsole.h"
#include "desk/tools.h"
#include "foundation/text.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

const std::string kSystem = "DATE (Show the current date.)`HELP (Show available commands.)`"
                            "NOW (Show the current time and date.)`TIME (Show the current time.)";

std::string Coloured(std::int32_t colour, const std::string &text) {
    return "~" + std::to_string(colour) + "~    " + text;
}

// A tool "Terminal" whose rows 1 to count are consoles; the estimate at font size 10 gives
// 120 twips a character and 240 a line, so 7 lines fit and a line takes 41 typed characters.
struct QonsoleFixture : test::EngineFixture {
    explicit QonsoleFixture(const std::string &commands = kSystem, int count = 1,
                            const std::string &height = "1680", const std::string &font = "10") {
        Declare({{"$log", ""}});
        project.ToolNameTable[1] = "Terminal";
        for (int row = 1; row <= count; ++row) {
            ElementRow &element = project.Element(row);
            element[0] = "qonsole" + std::to_string(row);
            element[1] = "atool:terminal";
            element[2] = "qonsole:" + std::to_string(row);
            element[3] = "commandlist:" + commands;
            element[4] = "width:6000";
            element[5] = "height:" + height;
            element[6] = "fontsize:" + font;
        }
        LoadSideMenu(game);
        RunStatement(game, "OPEN [terminal]");
    }
    const Qonsole &Console(int column = 1) {
        return game.desk.consoles.columns.at(static_cast<std::size_t>(column));
    }
    std::vector<std::string> Last(std::size_t n) {
        const auto &rows = Console().rows;
        return {rows.end() - static_cast<std::ptrdiff_t>(n), rows.end()};
    }
    void Type(const std::string &text) { QonsoleType(game, 1, text); }
};

TEST(Qonsole, OpeningNumbersConsolesAndPaintsFromTheBottom) {
    QonsoleFixture f(kSystem, 2);
    ASSERT_EQ(f.game.desk.consoles.count, 2);
    EXPECT_EQ(f.Console(2).rows[0], "2");
    EXPECT_EQ(ConsoleHistoryIndex(f.game.desk.consoles, 2), 2);
    EXPECT_EQ(f.Console().line, "?:\\> ");
    EXPECT_EQ(f.Console().commands.size(), 4u);

    const auto screen = QonsoleScreen(f.game.desk, 1);
    ASSERT_EQ(screen.size(), 6u); // 7 lines fit: rows 96 to 100, then the input line
    EXPECT_EQ(screen[0].text, " ");
    EXPECT_EQ(screen[0].top, 120);
    EXPECT_EQ(screen[4].text, " Welcome to this console");
    EXPECT_EQ(screen[5].text, " ?:\\> _");
    EXPECT_EQ(screen[5].top, 120 + 5 * 240);
    EXPECT_TRUE(QonsoleScreen(f.game.desk, 3).empty());
}

TEST(Qonsole, LinesAnswerInColour) {
    const std::string scan = "SCAN [HOST] [PORT] (Scan a host, fast!) = QLOB";
    struct Case {
        std::string commands, typed;
        std::vector<std::string> rows; // the newest rows, the echoed line first
    };
    const Case cases[] = {
        {kSystem,
         "HELP",
         {"?:\\> HELP", Coloured(33023, "HELP (Available Commands)"),
          Coloured(14722428, "date, help, now, time, "),
          Coloured(33023, "Type HELP [COMMAND] for more information.")}},
        {"A`B`C`D`E`F`HELP",
         "help",
         {Coloured(14722428, "a, b, c, d, e"), Coloured(14722428, "f"), Coloured(14722428, "help"),
          Coloured(33023, "Type HELP [COMMAND] for more information.")}},
        {kSystem + "`" + scan,
         "Help  scan",
         {Coloured(33023, "SCAN [HOST] [PORT]"), Coloured(65280, "Scan a host fast")}},
        {kSystem, "help xyz", {Coloured(33023, "Command Not Found: xyz")}},
        {kSystem, "frobnicate now", {"?:\\> frobnicate now", Coloured(255, "Unknown Command")}},
        {"", "HELP", {Coloured(255, "Unknown Command")}},
        {"PING (Ping a host)`HELP", "ping", {"Welcome to this console", "?:\\> ping"}},
        {"HELP`BARE", "help bare", {Coloured(33023, "BARE")}}, // no "(": usage alone
    };
    for (const Case &c : cases) {
        QonsoleFixture f(c.commands);
        f.Type(c.typed);
        EXPECT_EQ(f.Last(c.rows.size()), c.rows) << c.commands << " / " << c.typed;
        EXPECT_EQ(f.Console().line, "?:\\> ");
    }
}

TEST(Qonsole, AuthorCommandsRunTheirStatement) {
    QonsoleFixture f("ECHO [C] [T] [COL] (Print) = CONSOLE_PRINT`RUN [Q] (Run a qlob) = QLOB");
    f.project.QlobTable[1] = "greet $log = RETURN_COMPLEX [hi]";
    f.Type("run greet");
    EXPECT_EQ(f.Var("$log"), "hi");
    f.Type("echo qonsole1 hello 33023");
    EXPECT_EQ(f.Console().rows[100], "~33023     hello");
    const auto screen = QonsoleScreen(f.game.desk, 1);
    EXPECT_EQ(screen[screen.size() - 2].text, "      hello");
    EXPECT_EQ(screen[screen.size() - 2].colour, 33023);
}

TEST(Qonsole, RowsTellTheirColour) {
    const std::pair<std::string, QonsoleRowLook> cases[] = {
        {"?:\\> ~255~ x", {"?:\\> ~255~ x", std::nullopt}},
        {"~255~ x", {" x", 255}}, // a row has no escape
        {"~255     Scan done", {"     Scan done", 255}},
        {"~255     a~b", {"b", 255}}, // a second "~" anywhere ends the colour
        {"~99999999~ x", {" x", std::nullopt}},
        {"~-1~ x", {" x", std::nullopt}},
        {"~", {"", 0}},
    };
    for (const auto &[row, want] : cases) {
        const QonsoleRowLook look = LookOfRow(row);
        EXPECT_EQ(look.text, want.text) << row;
        EXPECT_EQ(look.colour, want.colour) << row;
    }
}

TEST(Qonsole, KeysTypeOnlyWhatTheTableGives) {
    QonsoleFixture f;
    const std::tuple<int, int, std::string> keys[] = {
        {kKeyA, kShiftNone, "a"},          {kKeyA + 25, kShiftDown, "Z"},
        {kKey0 + 1, kShiftDown, "!"},      {kKey0, kShiftDown, ")"},
        {kKeyPad0 + 7, kShiftDown, "7"},   {kKeySemicolon, kShiftDown, ":"},
        {kKeySlash, kShiftDown, "?"},      {kKeyQuote, kShiftDown, "\""},
        {kKeyBackslash, kShiftNone, "\\"}, {kKeyA, 2, ""},
        {kKeyUp, kShiftNone, ""},          {kKeyDown, kShiftNone, ""},
        {kKeyLeft, kShiftNone, ""},
    };
    for (const auto &[key, shift, typed] : keys) {
        const std::string before = f.Console().line;
        QonsoleKey(f.game, 1, key, shift);
        EXPECT_EQ(f.Console().line, before + typed) << key << "/" << shift;
    }
    QonsoleFixture g;
    EXPECT_FALSE(FocusedQonsoleKey(g.game, kKeyA, kShiftNone));
    g.game.desk.consoles.focus = 1;
    EXPECT_TRUE(FocusedQonsoleKey(g.game, kKeyA, kShiftNone));
    for (int i = 0; i < 3; ++i) QonsoleKey(g.game, 1, kKeyBackspace, kShiftNone);
    EXPECT_EQ(g.Console().line, "?:\\> ");
    QonsoleType(g.game, 1, "a<b_c>   ");
    EXPECT_EQ(g.Console().rows[99], "?:\\> abc   ");
}

TEST(Qonsole, CharactersOfTheCodePagesUpperHalfGoInOthersAreRefused) {
    QonsoleFixture f;
    // é, ö, €, ß go in; an undefined code, a C1 control's place and the key table's own
    // characters by this road don't.
    for (const char c : std::string("\xE9\xF6\x80\xDF\x81\x9D<_a\x7F"))
        QonsoleChar(f.game, 1, c);
    EXPECT_EQ(f.Console().line, "?:\\> \xE9\xF6\x80\xDF");
    EXPECT_FALSE(FocusedQonsoleChar(f.game, '\xE9'));
    // Typed text takes them too, and the width limit holds for them.
    QonsoleFixture g;
    QonsoleType(g.game, 1, "caf\xE9");
    EXPECT_EQ(g.Console().rows[99], "?:\\> caf\xE9");
    QonsoleType(g.game, 1, std::string(60, '\xE9'));
    EXPECT_EQ(g.Console().rows[99], "?:\\> " + std::string(41, '\xE9'));
}

TEST(Qonsole, BlankLinesAndTheWidthLimit) {
    QonsoleFixture f;
    f.Type("   ");
    EXPECT_EQ(f.Console().rows[99], "");
    EXPECT_EQ(f.Console().line, "?:\\>    ");

    QonsoleFixture g;
    QonsoleType(g.game, 1, std::string(60, 'x'));
    EXPECT_EQ(g.Console().rows[99], "?:\\> " + std::string(41, 'x'));
    EXPECT_EQ(g.Console().rows[100], Coloured(255, "Unknown Command"));
}

TEST(Qonsole, RowsShiftAtTheirLimit) {
    QonsoleFixture f;
    for (int i = 1; i <= 105; ++i) PrintConsole(f.game, 1, "line " + std::to_string(i));
    EXPECT_EQ(f.Console().rows[0], "1");
    EXPECT_EQ(f.Console().rows[1], "line 6");
    EXPECT_EQ(f.Console().rows[100], "line 105");
    PrintConsole(f.game, 2, "nowhere"); // no console there
    EXPECT_EQ(f.Console().rows[100], "line 105");
    ClearConsoleHistory(f.game.desk.consoles);
    EXPECT_TRUE(QonsoleScreen(f.game.desk, 1).empty());
}

TEST(Qonsole, FailuresStayInTheirConsole) {
    QonsoleFixture many(kSystem, 100);
    EXPECT_EQ(many.game.desk.consoles.count, kMaxQonsoles);
    EXPECT_EQ(ConsoleHistoryIndex(many.game.desk.consoles, 100), 0);
    QonsoleType(many.game, 100, "help"); // the console past the table takes no keys
    EXPECT_TRUE(QonsoleScreen(many.game.desk, 100).empty());

    QonsoleFixture tall(kSystem, 1, "30000");
    EXPECT_EQ(QonsoleScreen(tall.game.desk, 1).size(), 101u); // rows 1 to 100, no row 0
    QonsoleFixture unsized(kSystem, 1, "1680", "0");
    EXPECT_EQ(QonsoleScreen(unsized.game.desk, 1).size(), 2u); // no line height: row 100 alone

    std::string list;
    for (int i = 0; i < 130; ++i) list += "C" + std::to_string(i) + "``";
    QonsoleFixture full(list);
    EXPECT_EQ(full.Console().commands.size(), 60u); // 120 fields read, half of them empty
}

TEST(Qonsole, NowIsDateAndTime) {
    QonsoleFixture f;
    f.game.desk.consoles.clock = [] { return std::time_t{86400 * 365}; };
    for (const char *line : {"date", "time", "now"}) f.Type(line);
    const auto text = [&](int row) { return Trim(LookOfRow(f.Console().rows[row]).text); };
    EXPECT_EQ(text(100), text(96) + " " + text(98));
    EXPECT_EQ(LookOfRow(f.Console().rows[96]).colour, kQonsoleBlue);
}

} // namespace
} // namespace orrery
