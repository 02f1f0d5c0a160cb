// Qonsoles: the command-line elements of tools. Each console keeps its printed rows, the line
// being typed and the commands its element knows; keys edit the line and Enter runs it. This
// is the whole console without any drawing: QonsoleScreen gives a shell the lines to paint.
#pragma once

#include <array>
#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrery {

class Desk;
struct ElementControl;
struct Game;

inline constexpr int kMaxQonsoles = 99;      // consoles that can have a column at one time
inline constexpr int kQonsoleRows = 100;     // printed rows kept, row 100 the newest
inline constexpr int kQonsoleCommands = 120; // command records per console
inline constexpr std::string_view kQonsolePrompt = "?:\\>";

// Colours of the console's own answers, red in the low byte.
inline constexpr std::int32_t kQonsoleRed = 255;       // "Unknown Command"
inline constexpr std::int32_t kQonsoleOrange = 33023;  // headings, usage, "Command Not Found: "
inline constexpr std::int32_t kQonsoleBlue = 14722428; // DATE, TIME, NOW and name lists
inline constexpr std::int32_t kQonsoleGreen = 65280;   // a command's help text

// The platform-neutral key codes a console understands. Every other code does nothing; the
// arrows are listed only to say so.
enum QonsoleKeyCode : int {
    kKeyBackspace = 8,
    kKeyEnter = 13,
    kKeySpace = 32,
    kKeyLeft = 37,
    kKeyUp = 38,
    kKeyRight = 39,
    kKeyDown = 40,
    kKey0 = 48,    // to kKey0 + 9
    kKeyA = 65,    // to kKeyA + 25
    kKeyPad0 = 96, // to kKeyPad0 + 9
    kKeyMultiply = 106,
    kKeyAdd = 107,
    kKeySubtract = 109,
    kKeyDecimal = 110,
    kKeyDivide = 111,
    kKeySemicolon = 186,
    kKeyEquals = 187,
    kKeyComma = 188,
    kKeyMinus = 189,
    kKeyPeriod = 190,
    kKeySlash = 191,
    kKeyBackquote = 192,
    kKeyOpenBracket = 219,
    kKeyBackslash = 220,
    kKeyCloseBracket = 221,
    kKeyQuote = 222,
};
// The shift state of a key: none or shift. Control or alt held types nothing.
inline constexpr int kShiftNone = 0;
inline constexpr int kShiftDown = 1;

// One console, a column of the console table.
struct Qonsole {
    // Row 0 holds the element's row number as text, which is how a console is found; rows 1
    // to 100 hold printed lines, row 100 the newest. A coloured row is "~<colour>~    <text>".
    std::array<std::string, kQonsoleRows + 1> rows;
    std::string prompt;                // "?:\>"
    std::string line;                  // the line being typed, prompt and a blank in front
    std::vector<std::string> commands; // records of the commandlist property, position 1 first
};

// How the shell measures text at a console's font, in twips. Without one the desk estimates
// a fixed-pitch font: a character 0.6 of the font size wide, a line 1.2 of it high.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;
    virtual std::int32_t Width(const ElementControl &console, std::string_view text) const = 0;
    virtual std::int32_t LineHeight(const ElementControl &console) const = 0;
};

// The consoles of the desk, numbered from 1 in order of creation.
struct QonsoleTable {
    std::vector<Qonsole> columns = std::vector<Qonsole>(1); // column 0 is never a console
    std::int16_t count = 0;
    // The element row of the console that takes keys: a click on a console sets it, any other
    // click on the desk, its tools or their elements sets 0.
    int focus = 0;
    const TextMeasure *measure = nullptr;
    std::function<std::time_t()>
        clock; // the wall clock of DATE, TIME and NOW; the system's if empty
};

// Empties every row, row 0 included, of every console: no element finds its column after.
void ClearConsoleHistory(QonsoleTable &table);
// Makes the console of an element row with its commands; its column, or 0 when the table is
// full, in which case the element is a console that shows nothing and takes no keys.
int CreateQonsole(QonsoleTable &table, int row, std::string_view commandList);
// Stores the first 120 back-tick fields of the list, trimmed, skipping empty ones.
void LoadCommandsArray(Qonsole &console, std::string_view list);
// The column of the element row's console: the first whose row 0 names the row; 0 if none.
int ConsoleHistoryIndex(const QonsoleTable &table, int row);

// Adds a plain row to the console of an element row; an element without a column is passed
// over. The line being typed stays.
void PrintQonsole(QonsoleTable &table, int row, const std::string &text);
// Adds a coloured row to a column and puts the line back to the bare prompt.
void ColourPrint(QonsoleTable &table, int column, const std::string &text, std::int32_t colour);

// What a row shows: its text, and its own colour when it is a coloured row.
struct QonsoleRowLook {
    std::string text;
    std::optional<std::int32_t> colour;
};
// A row beginning with "~" is coloured: the colour is the number after it, the text follows
// the second "~" (or, in the form CONSOLE_PRINT builds, the number). A colour no screen can
// show is painted in the console's own.
QonsoleRowLook LookOfRow(std::string_view row);

// One line a shell paints, top to bottom: the text with its leading blank, its colour (none
// for the console's fore colour), and its top in twips from the box's top.
struct QonsoleScreenLine {
    std::string text;
    std::optional<std::int32_t> colour;
    std::int32_t top = 0;
    bool operator==(const QonsoleScreenLine &) const = default;
};
// The lines of the console of an element row: the newest rows that fit above the input line,
// then the input line with its caret "_". Nothing for an element without a console.
std::vector<QonsoleScreenLine> QonsoleScreen(const Desk &desk, int row);

// A key on the console of an element row, with its shift state: a character typed, Backspace,
// or Enter, which runs the line.
void QonsoleKey(Game &game, int row, int keyCode, int shift);
// A key from the desk's key handler: true when a console is focused and took it.
bool FocusedQonsoleKey(Game &game, int keyCode, int shift);
// A character of the code page's upper half typed on the console of an element row, as a
// keyboard of another language gives it (é, ö, €); it goes in where a key's character would.
// Anything else is refused: control codes, undefined codes, and what the key table types.
void QonsoleChar(Game &game, int row, char c);
// A character from the desk's key handler for the focused console: true when one is focused.
bool FocusedQonsoleChar(Game &game, char c);
// Types the text on the console of an element row, then Enter: each character by its key, or
// as QonsoleChar; characters that neither gives are passed over.
void QonsoleType(Game &game, int row, std::string_view text);
// Runs a line on a console column: HELP, NOW, DATE, TIME or an author's command.
void ExecuteQonsoleLine(Game &game, int column, std::string_view line);

} // namespace orrery
