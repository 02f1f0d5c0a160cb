// The consoles of the desk: rows, line editing, commands and what a shell paints.
#include "desk/qonsole.h"

#include "actions/game.h"
#include "actions/statement.h"
#include "desk/desk.h"
#include "foundation/codepage.h"
#include "foundation/convert.h"
#include "foundation/text.h"

#include <algorithm>
#include <cmath>

namespace orrery {

namespace {

// Room a line leaves to the console's right edge, in twips.
constexpr std::int32_t kLineMargin = 480;
// Where the first painted line starts, in twips from the top.
constexpr std::int32_t kFirstLineTop = 120;
// Characters of a command's linked qlob name that are read.
constexpr std::size_t kMaxFunctionName = 999;

std::int32_t ClampTwips(double value) {
    if (!(value > 0)) return 0;
    return static_cast<std::int32_t>(std::min(value, 2147483647.0));
}

class EstimatedMeasure final : public TextMeasure {
public:
    std::int32_t Width(const ElementControl &console, std::string_view text) const override {
        return ClampTwips(std::round(console.fontSize * 12) * static_cast<double>(text.size()));
    }
    std::int32_t LineHeight(const ElementControl &console) const override {
        return ClampTwips(std::round(console.fontSize * 24));
    }
};

const TextMeasure &MeasureOf(const QonsoleTable &table) {
    static const EstimatedMeasure estimate;
    return table.measure ? *table.measure : estimate;
}

Qonsole *Column(QonsoleTable &table, int column) {
    if (column < 1 || column >= static_cast<int>(table.columns.size())) return nullptr;
    return &table.columns[static_cast<std::size_t>(column)];
}

// Rows 2 to 100 move up into rows 1 to 99, and the text becomes row 100.
void AddRow(Qonsole &console, std::string text) {
    std::move(console.rows.begin() + 2, console.rows.end(), console.rows.begin() + 1);
    console.rows[kQonsoleRows] = std::move(text);
}

void ResetLine(Qonsole &console) {
    console.line = console.prompt + " ";
}

// A record's name: its text before the first blank, the whole record when it has none.
std::string_view FirstWord(std::string_view record) {
    return record.substr(0, record.find(' '));
}

// The position (from 1) of the first record named word, in any case; 0 if none.
int FindCommand(const Qonsole &console, std::string_view word) {
    const std::string wanted = NormText(word);
    for (std::size_t i = 0; i < console.commands.size(); ++i)
        if (!console.commands[i].empty() && LowerCase(FirstWord(console.commands[i])) == wanted)
            return static_cast<int>(i) + 1;
    return 0;
}

// The character a key gives with a shift state; none for keys that type nothing.
std::optional<char> KeyChar(int key, int shift) {
    if (shift != kShiftNone && shift != kShiftDown) return std::nullopt;
    const bool shifted = shift == kShiftDown;
    if (key == kKeySpace) return ' ';
    if (key >= kKey0 && key <= kKey0 + 9)
        return shifted ? ")!@#$%^&*("[key - kKey0] : static_cast<char>('0' + key - kKey0);
    if (key >= kKeyA && key <= kKeyA + 25)
        return static_cast<char>((shifted ? 'A' : 'a') + key - kKeyA);
    if (key >= kKeyPad0 && key <= kKeyPad0 + 9) return static_cast<char>('0' + key - kKeyPad0);
    switch (key) {
    case kKeyMultiply:
        return '*';
    case kKeyAdd:
        return '+';
    case kKeySubtract:
        return '-';
    case kKeyDecimal:
        return '.';
    case kKeyDivide:
        return '/';
    case kKeySemicolon:
        return shifted ? ':' : ';';
    case kKeyEquals:
        return shifted ? '+' : '=';
    case kKeyComma:
        return ',';
    case kKeyMinus:
        return '-';
    case kKeyPeriod:
        return '.';
    case kKeySlash:
        return shifted ? '?' : '/';
    case kKeyBackquote:
        return '~';
    case kKeyOpenBracket:
        return shifted ? '{' : '[';
    case kKeyBackslash:
        return shifted ? '|' : '\\';
    case kKeyCloseBracket:
        return shifted ? '}' : ']';
    case kKeyQuote:
        return shifted ? '"' : '\'';
    default:
        return std::nullopt;
    }
}

struct KeyStroke {
    int key = 0;
    int shift = kShiftNone;
};

// The first key and shift state that types a character; key 0 for characters no key gives.
const std::array<KeyStroke, 256> &KeysOfChars() {
    static const std::array<KeyStroke, 256> table = [] {
        std::array<KeyStroke, 256> keys{};
        for (int key = 1; key < 256; ++key)
            for (int shift : {kShiftNone, kShiftDown})
                if (auto c = KeyChar(key, shift)) {
                    KeyStroke &slot = keys[static_cast<unsigned char>(*c)];
                    if (slot.key == 0) slot = {key, shift};
                }
        return keys;
    }();
    return table;
}

std::string WallClockText(const QonsoleTable &table, const char *format) {
    const std::time_t now = table.clock ? table.clock() : std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, format, &local);
    return std::string(text, length);
}

void Help(QonsoleTable &table, int column, const std::string &parameters) {
    const Qonsole &console = table.columns[static_cast<std::size_t>(column)];
    if (parameters.empty()) {
        ColourPrint(table, column, "HELP (Available Commands)", kQonsoleOrange);
        // The count goes on past the first row, so every name after the fifth has a row alone.
        std::int16_t count = 0;
        std::string names;
        for (const std::string &record : console.commands) {
            if (record.empty()) continue;
            ++count;
            names += LowerCase(FirstWord(record));
            if (count < 5) {
                names += ", ";
            } else {
                ColourPrint(table, column, names, kQonsoleBlue);
                names.clear();
            }
        }
        if (!names.empty()) ColourPrint(table, column, names, kQonsoleBlue);
        ColourPrint(table, column, "Type HELP [COMMAND] for more information.", kQonsoleOrange);
        return;
    }
    const int position = FindCommand(console, parameters);
    if (!position) {
        ColourPrint(table, column, "Command Not Found: " + parameters, kQonsoleOrange);
        return;
    }
    const std::string record = console.commands[static_cast<std::size_t>(position - 1)];
    const std::size_t open = record.find('(');
    if (open == std::string::npos) {
        // A record without its help in parentheses shows itself as the usage, and no help.
        ColourPrint(table, column, UpperCase(NormText(record)), kQonsoleOrange);
        return;
    }
    std::string help = StripPunctuation(Trim(std::string_view(record).substr(open + 1)));
    if (const std::size_t equals = help.find('='); equals != std::string::npos)
        help = Trim(std::string_view(help).substr(0, equals));
    ColourPrint(table, column, UpperCase(NormText(std::string_view(record).substr(0, open))),
                kQonsoleOrange);
    ColourPrint(table, column, help, kQonsoleGreen);
}

// An author's command: its linked function with each word of the parameters in brackets.
void RunCommand(Game &game, const std::string &record, const std::string &parameters) {
    const std::size_t equals = record.find('=');
    if (equals == std::string::npos) return; // a record linked to nothing runs nothing
    const std::string function =
        Trim(std::string_view(record).substr(equals + 1, kMaxFunctionName));
    RunStatement(game, function + " [" + ReplaceAll(parameters, " ", "] [") + "]");
}

void Enter(Game &game, int column) {
    Qonsole &console = *Column(game.desk.consoles, column);
    const std::size_t promptLength = console.prompt.size() + 1;
    const std::string typed =
        console.line.size() > promptLength ? console.line.substr(promptLength) : std::string();
    if (Trim(typed).empty()) return;
    AddRow(console, console.line);
    ResetLine(console);
    ExecuteQonsoleLine(game, column, typed);
}

// The guard reads the text, not the prompt: a typed "> " can't be erased either.
void Backspace(Qonsole &console) {
    if (console.line.size() < 2 || console.line.ends_with("> ")) return;
    console.line.pop_back();
}

} // namespace

void ClearConsoleHistory(QonsoleTable &table) {
    for (Qonsole &console : table.columns)
        for (std::string &row : console.rows) row.clear();
}

int CreateQonsole(QonsoleTable &table, int row, std::string_view commandList) {
    if (table.count >= kMaxQonsoles) return 0;
    // Columns never move once made: a command's statement may open a tool with a new console
    // while the console that ran it is still in use.
    table.columns.reserve(kMaxQonsoles + 1);
    const int column = ++table.count;
    table.columns.resize(static_cast<std::size_t>(column) + 1);
    Qonsole &console = table.columns[static_cast<std::size_t>(column)];
    console.rows[0] = IntText(row);
    console.prompt = kQonsolePrompt;
    ResetLine(console);
    LoadCommandsArray(console, commandList);
    return column;
}

void LoadCommandsArray(Qonsole &console, std::string_view list) {
    for (std::int16_t i = 1; i <= kQonsoleCommands; ++i) {
        if (console.commands.size() >= static_cast<std::size_t>(kQonsoleCommands)) return;
        std::string record = Trim(FieldView(list, i, "`"));
        if (!record.empty()) console.commands.push_back(std::move(record));
    }
}

int ConsoleHistoryIndex(const QonsoleTable &table, int row) {
    const std::string wanted = IntText(row);
    for (std::size_t column = 1; column < table.columns.size(); ++column)
        if (table.columns[column].rows[0] == wanted) return static_cast<int>(column);
    return 0;
}

void PrintQonsole(QonsoleTable &table, int row, const std::string &text) {
    if (Qonsole *console = Column(table, ConsoleHistoryIndex(table, row))) AddRow(*console, text);
}

void ColourPrint(QonsoleTable &table, int column, const std::string &text, std::int32_t colour) {
    Qonsole *console = Column(table, column);
    if (!console) return;
    AddRow(*console, "~" + IntText(colour) + "~    " + text);
    ResetLine(*console);
}

QonsoleRowLook LookOfRow(std::string_view row) {
    if (!row.starts_with('~')) return {std::string(row), std::nullopt};
    const std::string_view rest = row.substr(1);
    QonsoleRowLook look;
    if (const auto colour = RoundToInt32(Val(rest)); colour && *colour >= 0 && *colour <= 0xFFFFFF)
        look.colour = *colour;
    if (const std::size_t second = rest.find('~'); second != std::string_view::npos) {
        look.text = rest.substr(second + 1);
        return look;
    }
    // CONSOLE_PRINT's rows have no second "~": the text follows the colour's number.
    std::size_t end = rest.find_first_not_of(' ');
    if (end == std::string_view::npos) return look;
    if (rest[end] == '-' || rest[end] == '+') ++end;
    end = std::min(rest.find_first_not_of("0123456789.", end), rest.size());
    look.text = rest.substr(end);
    return look;
}

std::vector<QonsoleScreenLine> QonsoleScreen(const Desk &desk, int row) {
    const ElementControl *control = desk.Control(row);
    const int column = ConsoleHistoryIndex(desk.consoles, row);
    if (!control || !column) return {};
    const Qonsole &console = desk.consoles.columns[static_cast<std::size_t>(column)];
    const std::int32_t lineHeight = MeasureOf(desk.consoles).LineHeight(*control);
    // L lines fit; the newest L - 2 rows stand above the input line. A box too tall for all
    // 100 rows starts at row 1 with empty space above.
    const int fit = lineHeight > 0 ? control->height / lineHeight : 0;
    const int first = std::clamp(kQonsoleRows + 3 - fit, 1, kQonsoleRows);
    std::vector<QonsoleScreenLine> lines;
    std::int32_t top = kFirstLineTop;
    for (int r = first; r <= kQonsoleRows; ++r, top += lineHeight) {
        QonsoleRowLook look = LookOfRow(console.rows[static_cast<std::size_t>(r)]);
        lines.push_back({" " + look.text, look.colour, top});
    }
    lines.push_back({" " + console.line + "_", std::nullopt, top});
    return lines;
}

namespace {

// A character at the end of the line, while one blank and the line fit the console's width
// less its margin.
void Append(Game &game, int row, char c) {
    QonsoleTable &table = game.desk.consoles;
    Qonsole *console = Column(table, ConsoleHistoryIndex(table, row));
    const ElementControl *control = game.desk.Control(row);
    if (!console || !control) return;
    if (MeasureOf(table).Width(*control, " " + console->line) > control->width - kLineMargin) return;
    console->line += c;
}

} // namespace

void QonsoleKey(Game &game, int row, int keyCode, int shift) {
    QonsoleTable &table = game.desk.consoles;
    const int column = ConsoleHistoryIndex(table, row);
    Qonsole *console = Column(table, column);
    if (!console) return;
    if (keyCode == kKeyEnter) return Enter(game, column);
    if (keyCode == kKeyBackspace) return Backspace(*console);
    if (const std::optional<char> typed = KeyChar(keyCode, shift)) Append(game, row, *typed);
}

void QonsoleChar(Game &game, int row, char c) {
    if (static_cast<unsigned char>(c) >= 0x80 && IsPrintableCp1252(c)) Append(game, row, c);
}

bool FocusedQonsoleChar(Game &game, char c) {
    const int row = game.desk.consoles.focus;
    if (row == 0) return false;
    QonsoleChar(game, row, c);
    return true;
}

bool FocusedQonsoleKey(Game &game, int keyCode, int shift) {
    const int row = game.desk.consoles.focus;
    if (row == 0) return false;
    QonsoleKey(game, row, keyCode, shift);
    return true;
}

void QonsoleType(Game &game, int row, std::string_view text) {
    for (char c : text) {
        const KeyStroke stroke = KeysOfChars()[static_cast<unsigned char>(c)];
        if (stroke.key != 0) QonsoleKey(game, row, stroke.key, stroke.shift);
        else QonsoleChar(game, row, c);
    }
    QonsoleKey(game, row, kKeyEnter, kShiftNone);
}

void ExecuteQonsoleLine(Game &game, int column, std::string_view line) {
    QonsoleTable &table = game.desk.consoles;
    const Qonsole *console = Column(table, column);
    if (!console) return;
    const std::string text = Trim(line);
    const std::size_t blank = text.find(' ');
    const std::string word = blank == std::string::npos ? text : Trim(text.substr(0, blank));
    const std::string parameters = blank == std::string::npos ? "" : Trim(text.substr(blank + 1));
    const int position = FindCommand(*console, word);
    if (!position) return ColourPrint(table, column, "Unknown Command", kQonsoleRed);
    const std::string name = NormText(word);
    if (name == "help")
        Help(table, column, parameters);
    else if (name == "now")
        ColourPrint(table, column, WallClockText(table, "%x %X"), kQonsoleBlue);
    else if (name == "date")
        ColourPrint(table, column, WallClockText(table, "%x"), kQonsoleBlue);
    else if (name == "time")
        ColourPrint(table, column, WallClockText(table, "%X"), kQonsoleBlue);
    else
        RunCommand(game, console->commands[static_cast<std::size_t>(position - 1)], parameters);
}

} // namespace orrery
