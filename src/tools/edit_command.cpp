// The operations of orrery edit, by name.
#include "tools/edit_command.h"

#include "editor/elements.h"
#include "editor/sequences.h"
#include "editor/servers.h"
#include "editor/tools.h"
#include "editor/words.h"
#include "foundation/codepage.h"
#include "foundation/convert.h"
#include "foundation/paths.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "foundation/textfile.h"
#include "project/loader.h"
#include "project/saver.h"

#include <functional>
#include <iostream>
#include <iterator>
#include <span>

namespace orrery {

namespace {

using Words = std::span<const std::string>;

struct Operation {
    std::string_view name;
    std::string_view usage;
    std::string_view about;
    int least = 0; // words after the name
    int most = 0;  // -1: any number
    std::function<Outcome(ProjectModel &, Words)> run;
};

std::optional<ElementKind> KindByWord(std::string_view word) {
    const std::string name = NormText(word);
    const ElementKind kind = KindOfName(name);
    if (kind == ElementKind::Other || KindWord(kind) != name) return std::nullopt;
    return kind;
}

const Message kNotAKind{"Error",
                        "The kind is one of button, label, list, text, image and qonsole."};
const Message kNotAPosition{"Error", "A position is two whole numbers of twips: LEFT TOP."};
const Message kNotADistance{"Error", "A distance is two whole numbers of twips: DX DY."};

std::vector<std::string> Rest(Words words) {
    return {words.begin(), words.end()};
}

Outcome Refused(const Message &message) {
    return {{}, message, {}};
}


Outcome AddElementWords(ProjectModel &m, Words w) {
    const auto kind = KindByWord(w[1]);
    if (!kind) return Refused(kNotAKind);
    Position at;
    if (w.size() == 4) return Refused(kNotAPosition);
    if (w.size() == 5) {
        const auto left = ParseWholeNumber32(w[3]), top = ParseWholeNumber32(w[4]);
        if (!left || !top) return Refused(kNotAPosition);
        at = {*left, *top};
    }
    return AddElement(m, w[0], *kind, w[2], at);
}

const std::vector<Operation> &Operations() {
    static const std::vector<Operation> operations{
        {"add-tool", "NAME", "a tool in the side menu's list", 1, 1,
         [](ProjectModel &m, Words w) { return AddTool(m, w[0]); }},
        {"remove-tool", "NAME", "a tool with its elements and assignments", 1, 1,
         [](ProjectModel &m, Words w) { return RemoveTool(m, w[0]); }},
        {"exclude-tool", "NAME", "keep a tool out of the side menu", 1, 1,
         [](ProjectModel &m, Words w) { return ExcludeTool(m, w[0], true); }},
        {"include-tool", "NAME", "let an excluded tool back into the side menu", 1, 1,
         [](ProjectModel &m, Words w) { return ExcludeTool(m, w[0], false); }},
        {"hide-tool", "NAME", "hide a tool's entry in the side menu", 1, 1,
         [](ProjectModel &m, Words w) { return HideTool(m, w[0], true); }},
        {"show-tool", "NAME", "show a hidden tool's entry again", 1, 1,
         [](ProjectModel &m, Words w) { return HideTool(m, w[0], false); }},
        {"move-tool", "NAME|SLOT up|down",
         "swap a tool with its neighbour in the side menu's order; a slot number (that of its "
         "mytoolcaption record) picks one of several separators",
         2, 2,
         [](ProjectModel &m, Words w) {
             const std::string way = NormText(w[1]);
             if (way != "up" && way != "down")
                 return Refused({"Error", "The way is up or down."});
             const int slot = ParseWholeNumber32(w[0]).value_or(FindTool(m, w[0]));
             return MoveTool(m, slot, way == "up");
         }},
        {"add-element", "TOOL KIND NAME [LEFT TOP]",
         "an element of a kind (button, label, list, text, image, qonsole); it is stored as the "
         "kind word and NAME in lower case without kind words or punctuation (label status "
         "makes labelstatus), at least 3 letters, and no element's name may end in it", 3, 5,
         AddElementWords},
        {"add-array", "TOOL KIND COUNT [STEM]",
         "an array of up to 12 elements, named <kind><stem>(1) on; without a stem, a random "
         "number is the stem",
         3, 4,
         [](ProjectModel &m, Words w) {
             const auto kind = KindByWord(w[1]);
             if (!kind) return Refused(kNotAKind);
             return AddArray(m, w[0], *kind, w[2], ProcessRandom(), w.size() == 4 ? w[3] : "");
         }},
        {"set", "ELEMENT PROPERTY VALUE",
         "a property of an element by its stored name (caption, text, left, top, width, height, "
         "forecolor, backcolor, fontname, fontsize, fontbold, alignment, backstyle, datafield, "
         "action, commandlist, listitems); list items are separated by //, a caption's and a "
         "command list's lines by back-quotes",
         3, 3, [](ProjectModel &m, Words w) { return SetElementProperty(m, {w[0]}, w[1], w[2]); }},
        {"nudge", "DIRECTION ELEMENT...",
         "move (left, right, up, down) or size (wider, narrower, taller, shorter) by 120 twips", 2,
         -1,
         [](ProjectModel &m, Words w) {
             const auto nudge = NudgeByWord(w[0]);
             if (!nudge)
                 return Refused({"Error", "The direction is one of left, right, up, down, wider, "
                                          "narrower, taller and shorter."});
             return NudgeElements(m, *nudge, Rest(w.subspan(1)));
         }},
        {"move", "DX DY ELEMENT...", "move elements by a distance in twips, as a drag does", 3, -1,
         [](ProjectModel &m, Words w) {
             const auto dx = ParseWholeNumber32(w[0]), dy = ParseWholeNumber32(w[1]);
             if (!dx || !dy) return Refused(kNotADistance);
             return MoveElements(m, Rest(w.subspan(2)), *dx, *dy);
         }},
        {"align", "EDGE ELEMENT...",
         "line elements up with the first: left, top, right, bottom, same-width, same-height; "
         "or space three or more evenly: space-across, space-down", 2,
         -1,
         [](ProjectModel &m, Words w) {
             const auto align = AlignByWord(w[0]);
             if (!align)
                 return Refused({"Error", "The edge is one of left, top, right, bottom, "
                                          "same-width, same-height, space-across and "
                                          "space-down."});
             return AlignElements(m, *align, Rest(w.subspan(1)));
         }},
        {"delete", "ELEMENT...", "elements", 1, -1,
         [](ProjectModel &m, Words w) { return DeleteElements(m, Rest(w)); }},
        {"copy-properties", "FROM TO...",
         "back style, colours, font, size and alignment from one element to others", 2, -1,
         [](ProjectModel &m, Words w) {
             if (!ElementRowByName(m, w[0])) return Refused(words::kNoSuchElement);
             return PasteProperties(m, CopyProperties(m, w[0]), Rest(w.subspan(1)));
         }},
        {"add-qombo", "TOOL TYPE LEFT TOP", "a ready-made group of elements, type 1 to 7", 4, 4,
         [](ProjectModel &m, Words w) {
             const auto type = ParseWholeNumber32(w[1]), left = ParseWholeNumber32(w[2]), top = ParseWholeNumber32(w[3]);
             if (!type || !left || !top) return Refused(kNotAPosition);
             return AddQombo(m, w[0], *type, {*left, *top});
         }},
        {"add-var", "NAME VALUE", "a user variable and its default value", 2, 2,
         [](ProjectModel &m, Words w) { return AddXVar(m, w[0], w[1]); }},
        {"set-var", "NAME VALUE", "a user variable's default value", 2, 2,
         [](ProjectModel &m, Words w) { return SetVarValue(m, w[0], w[1]); }},
        {"remove-var", "NAME", "a user variable", 1, 1,
         [](ProjectModel &m, Words w) { return RemoveVar(m, w[0]); }},
        {"add-qlob", "NAME", "an empty qlob", 1, 1,
         [](ProjectModel &m, Words w) { return AddQlob(m, w[0]); }},
        {"set-qlob", "NAME STATEMENTS", "a qlob's statements, separated by back-quotes", 2, 2,
         [](ProjectModel &m, Words w) { return SetQlob(m, w[0], w[1]); }},
        {"remove-qlob", "NAME", "a qlob", 1, 1,
         [](ProjectModel &m, Words w) { return RemoveQlob(m, w[0]); }},
        {"set-sequence", "TARGET STATEMENTS",
         "the statements of an element, of main-load or of TOOL:EVENT (open, close, activate, "
         "every1second, every2seconds, every10seconds, every60seconds)",
         2, 2,
         [](ProjectModel &m, Words w) {
             if (NormText(w[0]) == "main-load") return SetMainLoad(m, w[1]);
             if (ElementRowByName(m, w[0])) return SetElementProperty(m, {w[0]}, "action", w[1]);
             const std::size_t colon = w[0].rfind(':');
             if (colon == std::string::npos) return Refused(words::kNoSuchElement);
             return SetToolSub(m, w[0].substr(0, colon), w[0].substr(colon + 1), w[1]);
         }},
        {"set-help", "TITLE TEXT", "a help topic; a new title adds one", 2, 2,
         [](ProjectModel &m, Words w) { return SetHelp(m, w[0], w[1]); }},
        {"remove-help", "TITLE", "a help topic", 1, 1,
         [](ProjectModel &m, Words w) { return RemoveHelp(m, w[0]); }},
        {"set-setting", "KEY VALUE",
         "a key of the project file, such as helpon or mygamebackground", 2, 2,
         [](ProjectModel &m, Words w) { return SetSetting(m, w[0], w[1]); }},
        {"set-random-servers", "N",
         "the number of random servers: 1, 500, 1000, 2500, 5000 or 10000", 1, 1,
         [](ProjectModel &m, Words w) { return SetRandomServers(m, w[0]); }},
        {"add-field", "NAME VALUE [--random]",
         "a server field; VALUE is a text or RANDOM:WORD, RANDOM:SHORTWORD, RANDOM:AVERAGEWORD, "
         "RANDOM:LONGWORD, RANDOM:<n1>-<n2>, RANDOM:NAME, RANDOM:EXISTINGIP, "
         "RANDOM:EXISTINGHOSTNAME; --random gives it to random servers too",
         2, 3,
         [](ProjectModel &m, Words w) {
             if (w.size() == 3 && w[2] != "--random")
                 return Refused({"Error", "Only --random may follow the value."});
             return AddServerField(m, w[0], w[1], w.size() == 3);
         }},
        {"remove-field", "NAME", "a server field", 1, 1,
         [](ProjectModel &m, Words w) { return RemoveServerField(m, w[0]); }},
        {"add-server", "FIELD=VALUE...", "a custom server with a value for each field named", 1, -1,
         [](ProjectModel &m, Words w) {
             std::vector<std::pair<std::string, std::string>> values;
             for (const std::string &word : w) {
                 const std::size_t equals = word.find('=');
                 if (equals == std::string::npos)
                     return Refused({"Error", "Each value is written FIELD=VALUE."});
                 values.emplace_back(word.substr(0, equals), word.substr(equals + 1));
             }
             return AddCustomServer(m, values);
         }},
        {"edit-server", "N RECORD", "custom server N (1 for the first) as a whole record", 2, 2,
         [](ProjectModel &m, Words w) {
             return EditCustomServer(m, ParseWholeNumber32(w[0]).value_or(0), w[1]);
         }},
        {"remove-server", "N", "custom server N (1 for the first)", 1, 1,
         [](ProjectModel &m, Words w) { return RemoveCustomServer(m, ParseWholeNumber32(w[0]).value_or(0)); }},
    };
    return operations;
}

const Operation *FindOperation(std::string_view name) {
    for (const Operation &operation : Operations())
        if (operation.name == name) return &operation;
    return nullptr;
}

void PrintHelp(std::ostream &out) {
    out << "Usage: orrery edit <app-dir> <name> <operation> [arguments]\n"
           "       orrery edit <app-dir> <name> --script FILE   (- for standard input)\n\n"
           "A script holds one operation a line; words are separated by blanks, and a word\n"
           "that holds blanks stands in double quotes. Lines that begin with # are passed over;\n"
           "a # later in a line is part of the line.\n"
           "A script is applied whole or not at all: the first refused line is reported as\n"
           "FILE:LINE: message, and nothing is saved.\n\nOperations:\n";
    for (const Operation &operation : Operations())
        out << "  " << operation.name << " " << operation.usage << "\n      " << operation.about
            << "\n";
}

// The refusal's text, behind its title where that says more than "Error".
std::string RefusalText(const Message &message) {
    const std::string text = Cp1252ToUtf8(message.text);
    return message.title == "Error" ? text : "[" + Cp1252ToUtf8(message.title) + "] " + text;
}

// What became of one operation: 0 when it went through, 1 when the system refused it, 2 when
// the words name no operation or don't fit it.
struct Applied {
    int status = 0;
    std::string problem;
};

Applied Apply(ProjectModel &model, std::vector<std::string> words) {
    const Operation *operation = FindOperation(words[0]);
    if (!operation) return {2, "unknown operation \"" + words[0] + "\" (see orrery edit --help)"};
    const int given = static_cast<int>(words.size()) - 1;
    if (given < operation->least || (operation->most >= 0 && given > operation->most))
        return {2, "usage: " + std::string(operation->name) + " " + std::string(operation->usage)};
    for (std::string &word : words) {
        std::string stored = Utf8ToCp1252(word);
        if (Cp1252ToUtf8(stored) != word)
            return {1, "\"" + word + "\" holds a character the project's code page (Windows-1252) "
                       "can't write"};
        word = std::move(stored);
    }
    const Outcome outcome = operation->run(model, Words(words).subspan(1));
    if (outcome.refused()) return {1, RefusalText(*outcome.refusal)};
    return {};
}

int Save(ProjectModel &model, const AppPaths &paths, std::ostream &err) {
    const SaveResult saved = SaveProject(model, paths, "", 1);
    if (saved.status == SaveStatus::Saved) return 0;
    err << "orrery: "
        << (saved.status == SaveStatus::ReadOnly
                ? "a project loaded from a scrambled file can't be saved"
                : saved.error)
        << "\n";
    return 1;
}

int RunScript(ProjectModel &model, const std::string &file, std::istream &in, std::ostream &err) {
    std::string text;
    if (file == "-") {
        text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    } else {
        ReadError error = ReadError::None;
        const auto bytes = ReadFileBytes(file, &error);
        if (!bytes) {
            err << "orrery: " << file << ": " << ReadErrorText(error) << "\n";
            return 2;
        }
        text = *bytes;
    }
    const std::string name = file == "-" ? "<stdin>" : file;
    // An editor's byte order mark is not part of the first word.
    if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    int number = 0;
    for (std::string_view line : SplitLines(text)) {
        ++number;
        std::vector<std::string> words;
        const std::string_view trimmed = TrimView(line);
        if (trimmed.empty() || trimmed.starts_with('#')) continue;
        const Applied applied =
            SplitWords(line, words) ? Apply(model, words) : Applied{2, "a quote is not closed"};
        if (applied.status != 0) {
            err << name << ":" << number << ": " << applied.problem << "\n";
            return 1;
        }
    }
    return 0;
}

} // namespace

bool SplitWords(std::string_view line, std::vector<std::string> &words) {
    words.clear();
    std::size_t i = 0;
    while (i < line.size()) {
        if (line[i] == ' ' || line[i] == '\t' || line[i] == '\r') {
            ++i;
            continue;
        }
        std::string word;
        bool quoted = false;
        for (;
             i < line.size() && (quoted || (line[i] != ' ' && line[i] != '\t' && line[i] != '\r'));
             ++i) {
            if (line[i] == '"')
                quoted = !quoted;
            else if (quoted && line[i] == '\\' && i + 1 < line.size())
                word += line[++i];
            else
                word += line[i];
        }
        if (quoted) return false;
        words.push_back(std::move(word));
    }
    return true;
}

int EditCommand(const std::vector<std::string> &args, std::istream &in, std::ostream &out,
                std::ostream &err) {
    // Words may begin with "-" (the tool separator, a negative position), so the command line
    // is read here, word by word, rather than by the option parser.
    if (args.empty() || args[0] == "--help" || args[0] == "-h") {
        PrintHelp(out);
        return args.empty() ? 2 : 0;
    }
    if (args.size() < 3) {
        err << "orrery: edit needs <app-dir> <name> and an operation or --script FILE\n";
        return 2;
    }
    const AppPaths paths(args[0]);
    const std::string name = Utf8ToCp1252(args[1]);
    if (const std::string problem = NameProblem(name, NameKind::Project); !problem.empty()) {
        err << "orrery: " << UnusableName(args[1], NameKind::Project, problem) << "\n";
        return 1;
    }
    ProjectModel model;
    const LoadReport report = LoadProject(model, paths, name);
    if (!report.found) {
        err << "orrery: " << report.error << "\n";
        return 1;
    }
    if (args[2] == "--script") {
        if (args.size() != 4) {
            err << "orrery: --script takes one file, or - for standard input\n";
            return 2;
        }
        const int status = RunScript(model, args[3], in, err);
        return status == 0 ? Save(model, paths, err) : status;
    }
    const Applied applied = Apply(model, {args.begin() + 2, args.end()});
    if (applied.status != 0) {
        err << (applied.status == 2 ? "orrery: " : "") << applied.problem << "\n";
        return applied.status;
    }
    return Save(model, paths, err);
}

} // namespace orrery
