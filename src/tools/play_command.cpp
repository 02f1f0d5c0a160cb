// The play script: player actions, time passing, and views of the game's state.
#include "tools/play_command.h"

#include "actions/sequence.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "desk/desktop.h"
#include "desk/qonsole.h"
#include "desk/quicklist.h"
#include "desk/tools.h"
#include "foundation/codepage.h"
#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "platform/headless.h"
#include "session/playsession.h"
#include "session/profilescreen.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <ostream>

namespace orrery {

namespace {

// One line of output: the system's text in UTF-8, its line breaks as "//".
std::string Shown(const std::string &text) { return Cp1252ToUtf8(ReplaceAll(text, "\r\n", "//")); }

struct Script {
    PlaySession &session;
    HeadlessHost &host;
    std::ostream &out;
    std::string error; // set by a command that fails

    Game &game() { return session.game(); }

    ElementControl *Element(const std::string &name, int &row) {
        row = FindElementRow(game().project, NormText(name));
        ElementControl *control = row ? game().desk.Control(row) : nullptr;
        if (!control) error = "element \"" + name + "\" is not on the desktop";
        return control;
    }
};

// The longest a single "advance" lets time pass: a day.
constexpr std::int64_t kMaxAdvance = 24 * 60 * 60 * 1000;
// Shown texts of "show elements" are cut to this many characters.
constexpr std::size_t kShortText = 40;

// The argument as a whole number in decimal digits from low to high; otherwise nullopt, with
// the script's error naming the command and what it takes.
std::optional<std::int64_t> WholeNumber(Script &s, std::string_view command, std::string_view text,
                                        std::int64_t low, std::int64_t high) {
    const auto value = ParseWholeNumber(text);
    if (value && *value >= low && *value <= high) return value;
    s.error = std::string(command) + ": \"" + std::string(text) + "\" is not a whole number from " +
              IntText(low) + " to " + IntText(high);
    return std::nullopt;
}

void Click(Script &s, const std::string &name) {
    int row = 0;
    ElementControl *control = s.Element(name, row);
    if (!control) return;
    switch (control->kind) {
    case ElementKind::Button: return ButtonClick(s.game(), row);
    case ElementKind::Image: return ImageClick(s.game(), row);
    case ElementKind::List: return ListClick(s.game(), row);
    case ElementKind::Label: return LabelDoubleClick(s.game(), row);
    default: s.error = "element \"" + name + "\" can't be clicked";
    }
}

void Type(Script &s, const std::string &args) {
    const std::size_t blank = args.find(' ');
    const std::string name = args.substr(0, blank);
    const std::string text = blank == std::string::npos ? "" : args.substr(blank + 1);
    int row = 0;
    ElementControl *control = s.Element(name, row);
    if (!control) return;
    if (control->kind == ElementKind::Text) control->text = text;
    else if (control->kind == ElementKind::Qonsole) QonsoleType(s.game(), row, text);
    else s.error = "element \"" + name + "\" takes no typing";
}

// A right click opens the quicklist's pop-up menu where the element offers a candidate.
void RightClick(Script &s, const std::string &name) {
    int row = 0;
    ElementControl *control = s.Element(name, row);
    if (!control) return;
    if (control->kind == ElementKind::Label)
        LabelRightClick(s.game(), row);
    else if (control->kind == ElementKind::List)
        ListRightClick(s.game(), row);
    else
        s.error = "element \"" + name + "\" has no quicklist menu";
}

// The pop-up menu's two entries: the candidate as servers, or as it stands.
void QuickAdd(Script &s, const std::string &args) {
    if (!s.game().desk.quickMenuVisible) {
        s.error = "the quicklist menu isn't open";
        return;
    }
    const std::string how = NormText(args);
    if (how == "server")
        AddQuickListServer(s.game());
    else if (how == "text")
        AddQuickListText(s.game());
    else
        s.error = "quickadd what? (server, text)";
}

void ShowElement(Script &s, const std::string &name) {
    int row = 0;
    const ElementControl *c = s.Element(name, row);
    if (!c) return;
    std::string items;
    for (const std::string &item : c->items) items += (items.empty() ? "" : "|") + item;
    s.out << "visible=" << BoolText(c->visible) << "\ncaption=" << Shown(c->caption)
          << "\ntext=" << Shown(c->text) << "\nitems=" << Shown(items)
          << "\nselected=" << c->listIndex << "\n";
}

// A variable's name starts with "$"; the script may leave it out.
void ShowVar(Script &s, const std::string &name) {
    if (name.empty()) {
        s.error = "show var: which variable?";
        return;
    }
    const Game &g = s.game();
    const std::string plain = ReplaceAll(name, "_", "");
    int row = FindVariable(g, plain);
    if (!row && !plain.starts_with('$')) row = FindVariable(g, "$" + plain);
    if (row)
        s.out << Shown(g.VariableTable[row].name) << "=" << Shown(g.VariableTable[row].value)
              << "\n";
    else
        s.out << Shown(name) << "=\n";
}

// A coloured row reads "<#RRGGBB> " and its text; a plain row, or one whose colour no screen
// can show, reads as its text alone.
void ShowConsole(Script &s, const std::string &name) {
    int row = 0;
    if (!s.Element(name, row)) return;
    const QonsoleTable &consoles = s.game().desk.consoles;
    const int column = ConsoleHistoryIndex(consoles, row);
    if (column == 0) return;
    const auto &rows = consoles.columns[static_cast<std::size_t>(column)].rows;
    for (std::size_t r = 1; r < rows.size(); ++r) {
        if (rows[r].empty()) continue;
        const QonsoleRowLook look = LookOfRow(rows[r]);
        if (look.colour) {
            // Colours keep red in the low byte.
            const auto c = static_cast<unsigned>(*look.colour);
            char tag[16];
            std::snprintf(tag, sizeof tag, "<#%02X%02X%02X> ", c & 0xFF, (c >> 8) & 0xFF,
                          (c >> 16) & 0xFF);
            s.out << tag;
        }
        s.out << Shown(look.text) << "\n";
    }
}

std::string Short(const std::string &text) {
    if (text.size() <= kShortText) return Shown(text);
    return Shown(text.substr(0, kShortText)) + "...";
}

// What an element shows, in short: a caption, a text, a list's length or a picture.
std::string ContentInShort(const ElementControl &c) {
    switch (c.kind) {
    case ElementKind::Text:
        return ", text=" + Short(c.text);
    case ElementKind::List:
        return ", items=" + IntText(static_cast<std::int64_t>(c.items.size()));
    case ElementKind::Image:
        return ", picture=" + Short(c.picture);
    case ElementKind::Qonsole:
        return "";
    default:
        return ", caption=" + Short(c.caption);
    }
}

std::string ToolCaption(const Desk &desk, int box) {
    for (std::size_t c = 1; c < desk.Chrome.size(); ++c)
        if (desk.Chrome[c].box == box) return desk.Chrome[c].caption;
    return desk.Box(box).tag;
}

// One line per element on the desktop, in the order of the element table, or of one tool.
void ShowElements(Script &s, const std::string &tool) {
    const Desk &desk = s.game().desk;
    int box = 0;
    if (!tool.empty()) {
        const int chrome = GetRealToolIndex(s.game(), tool);
        if (chrome == kNoTool) {
            s.error = "tool \"" + tool + "\" is not on the desktop";
            return;
        }
        box = desk.Chrome[static_cast<std::size_t>(chrome)].box;
    }
    for (int row = 1; row <= kElementRows; ++row) {
        const ElementControl *c = desk.Control(row);
        if (!c || (box && c->box != box)) continue;
        s.out << Shown(c->tag) << ": " << KindWord(c->kind) << " in "
              << Shown(ToolCaption(desk, c->box)) << ", " << (c->visible ? "visible" : "hidden")
              << ContentInShort(*c) << "\n";
    }
}

void ShowTools(Script &s) {
    const Desk &desk = s.game().desk;
    for (std::size_t e = 1; e < desk.SideMenu.size(); ++e) {
        const SideEntry &entry = desk.SideMenu[e];
        const int n = ToolOpen(s.game(), entry.tag);
        s.out << Shown(entry.caption) << ": "
              << (n == 0 ? "never opened" : desk.Box(n).visible ? "open" : "closed")
              << (desk.ToolLocked[e] ? ", locked" : "") << (entry.visible ? "" : ", hidden") << "\n";
    }
}

void Show(Script &s, const std::string &args) {
    const std::string what = FieldBy(args, 1, " ");
    const std::string rest = Trim(args.substr(std::min(args.size(), what.size())));
    Game &g = s.game();
    if (what == "var") {
        ShowVar(s, rest);
    } else if (what == "vars") {
        for (const Variable &v : g.VariableTable)
            if (!IsBlank(v.name)) s.out << Shown(v.name) << "=" << Shown(v.value) << "\n";
    } else if (what == "element") {
        ShowElement(s, rest);
    } else if (what == "elements") {
        ShowElements(s, rest);
    } else if (what == "console") {
        ShowConsole(s, rest);
    } else if (what == "message") {
        s.out << "visible=" << BoolText(g.desk.message.visible) << "\ntitle=" << Shown(g.desk.message.title)
              << "\ntext=" << Shown(g.desk.message.text) << "\n";
    } else if (what == "tools") {
        ShowTools(s);
    } else if (what == "gun") {
        for (const std::string &slot : g.GunQueue)
            if (!IsBlank(slot)) s.out << Shown(slot) << "\n";
    } else if (what == "quicklist") {
        for (std::size_t i = 1; i < g.desk.Quicklist.size(); ++i)
            if (!IsBlank(g.desk.Quicklist[i])) s.out << Shown(g.desk.Quicklist[i]) << "\n";
    } else {
        s.error =
            "show what? (var, vars, element, elements, console, message, tools, gun, quicklist)";
    }
}

// "key <code> [shift]": a key code from 1 to 255, and the word "shift" or nothing.
void Key(Script &s, const std::string &args) {
    const std::string code = FieldBy(args, 1, " ");
    const std::string shift = Trim(args.substr(code.size()));
    if (!shift.empty() && NormText(shift) != "shift") {
        s.error = "key: \"" + shift + "\" after the code is not \"shift\"";
        return;
    }
    if (const auto key = WholeNumber(s, "key", code, 1, 255))
        DesktopKey(s.game(), static_cast<int>(*key), !shift.empty());
}

void QuickClick(Script &s, const std::string &args) {
    const auto row = WholeNumber(s, "quickclick", args, 1, 32767);
    if (!row) return;
    const auto rows = static_cast<std::int64_t>(s.game().desk.Quicklist.size()) - 1;
    if (*row > rows)
        s.error =
            "quickclick: the quicklist has " + IntText(std::max<std::int64_t>(rows, 0)) + " rows";
    else
        QuickListClick(s.game(), static_cast<int>(*row));
}

using Command = std::function<void(Script &, const std::string &)>;

const std::map<std::string, Command> &Commands() {
    static const std::map<std::string, Command> commands = {
        {"statement", [](Script &s, const std::string &a) { RunStatement(s.game(), a); }},
        {"sequence", [](Script &s, const std::string &a) { RunSequence(s.game(), a, 0, 0); }},
        {"qlob",
         [](Script &s, const std::string &a) {
             std::string n = a;
             RunQlob(s.game(), n);
         }},
        {"open", [](Script &s, const std::string &a) { OpenT(s.game(), a); }},
        {"close",
         [](Script &s, const std::string &a) {
             const int c = GetRealToolIndex(s.game(), a);
             if (c == kNoTool)
                 s.error = "tool \"" + a + "\" isn't open";
             else
                 UnloadBox(s.game(), c);
         }},
        {"click", Click},
        {"type", Type},
        {"key", Key},
        {"focus",
         [](Script &s, const std::string &a) {
             int row = 0;
             const ElementControl *control = s.Element(a, row);
             if (!control) return;
             s.game().desk.focusRow = row;
             s.game().desk.consoles.focus = control->kind == ElementKind::Qonsole ? row : 0;
         }},
        {"rightclick", RightClick},
        {"quickadd", QuickAdd},
        {"quickclick", QuickClick},
        {"answer", [](Script &s, const std::string &a) { s.host.answers.push_back(a); }},
        {"advance",
         [](Script &s, const std::string &a) {
             if (const auto ms = WholeNumber(s, "advance", a, 0, kMaxAdvance))
                 s.session.Advance(*ms);
         }},
        {"show", Show},
        {"exit",
         [](Script &s, const std::string &) {
             const ProfileResult saved = s.session.Exit();
             if (!saved.ok) s.error = saved.error;
         }},
    };
    return commands;
}

int RunScript(Script &s, std::istream &in, const std::string &scriptName, std::ostream &err) {
    const std::string input{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    int number = 0;
    for (std::string_view raw : SplitLines(input)) {
        ++number;
        const std::string line = Utf8ToCp1252(Trim(raw));
        if (line.empty() || line.starts_with('#')) continue;
        const std::size_t blank = line.find(' ');
        const std::string word = LowerCase(line.substr(0, blank));
        const std::string args = blank == std::string::npos ? "" : Trim(line.substr(blank + 1));
        const auto command = Commands().find(word);
        if (command == Commands().end()) s.error = "unknown command \"" + word + "\"";
        else if (!s.session.Playing()) s.error = "the game has ended";
        else command->second(s, args);
        if (ProfileResult saved; s.error.empty() && s.session.EndIfAsked(saved) && !saved.ok)
            s.error = saved.error;
        if (!s.error.empty()) {
            err << scriptName << ":" << number << ": " << Cp1252ToUtf8(s.error) << "\n";
            return 1;
        }
    }
    return 0;
}

} // namespace

int PlayCommand(const PlayOptions &options, std::istream &in, std::ostream &out, std::ostream &err) {
    HeadlessHost host;
    const AppPaths paths(options.appDir);
    PlaySession session(paths, host, ProcessRandom());
    const std::string project = Utf8ToCp1252(options.project);
    if (const std::string problem = NameProblem(project, NameKind::Project); !problem.empty()) {
        err << "orrery: " << UnusableName(options.project, NameKind::Project, problem) << "\n";
        return 1;
    }
    if (const LoadReport report = session.OpenProject(project); !report.found) {
        err << "orrery: " << report.error << "\n";
        return 1;
    }
    std::string player = Utf8ToCp1252(options.player);
    if (options.newGame) {
        // A new profile is named as on the profile screen, which refuses a name in use.
        // A name no file can carry is refused below, in the player's own spelling.
        const ProfileClick click = ClickIt(paths, ProfileOption::New, player, "");
        if (click.next == ProfileClick::Next::ShowMessage) {
            err << "orrery: \"" << options.player << "\": " << Cp1252ToUtf8(click.text) << "\n";
            return 1;
        }
        if (click.next == ProfileClick::Next::StartNew) player = click.text;
    }
    if (const std::string problem = NameProblem(player, NameKind::Player); !problem.empty()) {
        err << "orrery: " << UnusableName(options.player, NameKind::Player, problem) << "\n";
        return 1;
    }
    const GameStart start = options.newGame ? session.NewGame(player) : session.LoadGame(player);
    if (!start.ok) {
        err << "orrery: " << Cp1252ToUtf8(start.error) << "\n";
        return 1;
    }
    if (const ProfileResult loaded = session.EnterDesktop(); !loaded.ok) {
        err << "orrery: " << Cp1252ToUtf8(loaded.error) << "\n";
        return 1;
    }
    Script script{session, host, out, {}};
    if (options.script.empty() || options.script == "-") return RunScript(script, in, "<stdin>", err);
    std::ifstream file(options.script, std::ios::binary);
    if (!file) {
        err << "orrery: " << options.script << ": cannot read the script\n";
        return 1;
    }
    return RunScript(script, file, options.script, err);
}

} // namespace orrery
