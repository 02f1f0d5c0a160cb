// The play script: player actions, time passing, and views of the game's state.
#include "tools/play_command.h"

#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <ostream>

#include "actions/sequence.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "foundation/codepage.h"
#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "platform/headless.h"
#include "session/playsession.h"
#include "shell/desktop.h"
#include "shell/qonsole.h"
#include "shell/quicklist.h"
#include "shell/tools.h"

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
        row = FindElementRow(game(), name);
        ElementControl *control = row ? game().desk.Control(row) : nullptr;
        if (!control) error = "element \"" + name + "\" is not on the desktop";
        return control;
    }
};

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
        s.out << rest << "=" << Shown(GetVariable(g, Utf8ToCp1252(rest))) << "\n";
    } else if (what == "vars") {
        for (const Variable &v : g.VariableTable)
            if (!IsBlank(v.name)) s.out << Shown(v.name) << "=" << Shown(v.value) << "\n";
    } else if (what == "element") {
        ShowElement(s, Utf8ToCp1252(rest));
    } else if (what == "console") {
        int row = 0;
        if (s.Element(Utf8ToCp1252(rest), row)) {
            const QonsoleTable &consoles = g.desk.consoles;
            const int column = ConsoleHistoryIndex(consoles, row);
            if (column == 0) return;
            for (int r = 1; r <= kQonsoleRows; ++r) {
                const std::string &text = consoles.columns[static_cast<std::size_t>(column)].rows[static_cast<std::size_t>(r)];
                if (!text.empty()) s.out << Shown(text) << "\n";
            }
        }
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
        s.error = "show what? (var, vars, element, console, message, tools, gun, quicklist)";
    }
}

using Command = std::function<void(Script &, const std::string &)>;

const std::map<std::string, Command> &Commands() {
    static const std::map<std::string, Command> commands = {
        {"statement", [](Script &s, const std::string &a) { RunStatement(s.game(), a); }},
        {"sequence", [](Script &s, const std::string &a) { RunSequence(s.game(), a, 0, 0); }},
        {"qlob", [](Script &s, const std::string &a) { std::string n = a; RunQlob(s.game(), n); }},
        {"open", [](Script &s, const std::string &a) { OpenT(s.game(), a); }},
        {"close",
         [](Script &s, const std::string &a) {
             const int c = GetRealToolIndex(s.game(), a);
             if (c == kNoTool) s.error = "tool \"" + a + "\" isn't open";
             else UnloadBox(s.game(), c);
         }},
        {"click", Click},
        {"type", Type},
        {"key",
         [](Script &s, const std::string &a) {
             DesktopKey(s.game(), static_cast<int>(Val(a)), InStr(NormText(a), "shift") > 0);
         }},
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
        {"quickclick",
         [](Script &s, const std::string &a) {
             QuickListClick(s.game(), static_cast<int>(Val(a)));
         }},
        {"answer", [](Script &s, const std::string &a) { s.host.answers.push_back(a); }},
        {"advance", [](Script &s, const std::string &a) { s.session.Advance(static_cast<std::int64_t>(Val(a))); }},
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
    PlaySession session(AppPaths(options.appDir), host, ProcessRandom());
    const std::string project = Utf8ToCp1252(options.project);
    if (!session.OpenProject(project).found) {
        err << "orrery: " << options.project << ": no such project in " << options.appDir << "\n";
        return 1;
    }
    const std::string player = Utf8ToCp1252(options.player);
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
