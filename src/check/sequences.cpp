// Sequences and statements read as the run-time reads them, with what each names looked up.
#include "actions/catalogue.h"
#include "actions/game.h"
#include "actions/sequence.h"
#include "actions/statement.h"
#include "actions/variables.h"
#include "check/checker.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "project/elementprops.h"

#include <algorithm>
#include <cctype>

namespace orrery::check {

namespace {

// Functions that take the rest of the statement whole: brackets only quote it.
bool TakesWholeRest(std::string_view name) {
    return name == "return" || name == "return_complex" || name == "return_reverse";
}

// Trailing parameters a handler does without: a missing argument is empty text, and these
// handlers give the empty text a meaning (no qlob to run, not reversed, no exception).
int OptionalParams(std::string_view name) {
    static const TextMap<int> kOptional = {{"exit_sequence", 1},       {"move", 2},
                                           {"reset_tool", 2},          {"qlob_counter", 1},
                                           {"qlob_counter_kill", 1},   {"return_ask", 1},
                                           {"return_server_exists", 2}};
    const auto found = kOptional.find(name);
    return found == kOptional.end() ? 0 : found->second;
}

// An argument only the run-time knows: a variable's value, or the index of the clicked item.
bool KnownAtRunTime(std::string_view arg) {
    return arg.find('$') != std::string_view::npos || InStr(arg, "(?)");
}

bool NameByte(char c) {
    const auto u = static_cast<unsigned char>(c);
    return std::isalnum(u) || c == '-' || c == '_' || u >= 0x80;
}

// Each variable a text names: "$", a letter, then letters, digits, "-" and "_", with an index
// in parentheses that follows at once. Names inside an index come too.
template <typename Visit> void ForEachVariable(std::string_view text, Visit &&visit) {
    for (std::size_t at = text.find('$'); at != std::string_view::npos;
         at = text.find('$', at + 1)) {
        if (at + 1 >= text.size() || !std::isalpha(static_cast<unsigned char>(text[at + 1])))
            continue;
        std::size_t end = at + 1;
        while (end < text.size() && NameByte(text[end])) ++end;
        if (end < text.size() && text[end] == '(')
            if (const std::size_t close = text.find(')', end); close != std::string_view::npos)
                end = close + 1;
        visit(text.substr(at, end - at));
    }
}

bool IsSpecial(std::string_view name) {
    if (name == "$randomexistingip" || name == "$randomexistinghostname") return true;
    const auto specials = SpecialVariableNames();
    return std::any_of(specials.begin(), specials.end(),
                       [&](std::string_view special) { return name.starts_with(special); });
}

// The name under which a variable is looked for: an index computed at run time leaves its stem.
std::string NameOf(std::string_view written) {
    std::string name = NormText(written);
    if (const std::size_t open = name.find('(');
        open != std::string::npos && KnownAtRunTime(name.substr(open)))
        name.resize(open);
    return name;
}

// The word of a text that holds needle.
std::string WordHolding(std::string_view text, std::string_view needle) {
    const std::size_t at = text.find(needle);
    if (at == std::string_view::npos) return {};
    const std::size_t begin = text.find_last_of(" [", at);
    const std::size_t end = text.find_first_of(" ]", at);
    const std::size_t from = begin == std::string_view::npos ? 0 : begin + 1;
    return std::string(text.substr(from, end == std::string_view::npos ? end : end - from));
}

std::string CountText(std::size_t low, std::size_t high) {
    const std::string count =
        low == high ? IntText(static_cast<int>(low))
                    : IntText(static_cast<int>(low)) + " to " + IntText(static_cast<int>(high));
    return count + (high == 1 ? " argument" : " arguments");
}

std::size_t ArgumentCount(std::string_view rest) {
    if (IsBlank(rest)) return 0;
    const std::string text = BracketArgText(rest);
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '`')) + 1;
}

std::string UnknownHint(const StatementParts &parts) {
    if (parts.name.find('[') != std::string::npos)
        return "put a blank between the name and its first bracket";
    if (parts.target.find('[') != std::string::npos)
        return "an \"=\" inside an argument is taken for an assignment";
    if (parts.name == "next") return "a loop closes with NEXT and its variable";
    return "check its spelling against the catalogue";
}

} // namespace

// A timed sequence goes on the gun as it is stored: its first fields only, each statement once.
void SequenceChecker::CheckQueued(std::string_view stored, const Site &site) {
    const std::vector<std::string_view> fields = SequenceFields(stored);
    TextSet queued;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::string statement = Trim(fields[i]);
        if (statement.empty()) continue;
        if (i >= static_cast<std::size_t>(kGunSlots)) {
            m_findings.Warning("gun-limit",
                               "a timed sequence queues its first " + IntText(kGunSlots) +
                                   " statements only: move the rest into a qlob",
                               site.place, site.line);
            return;
        }
        if (!queued.insert(statement).second)
            m_findings.Warning("gun-duplicate",
                               Quoted(statement) +
                                   " stands twice in a timed sequence, and the queue drops the "
                                   "second: put it in a qlob",
                               site.place, site.line);
    }
}

void SequenceChecker::CheckSequence(std::string_view stored, const Site &site) {
    if (site.queued) CheckQueued(stored, site);
    const std::string prepared = PrepareSequence(stored);
    const std::vector<std::string_view> fields = SequenceFields(prepared);
    // The walk ends at the first two empty fields in a row.
    std::size_t end = 0;
    while (end < fields.size() &&
           !(IsBlank(fields[end]) && (end + 1 >= fields.size() || IsBlank(fields[end + 1]))))
        ++end;
    end = std::min<std::size_t>(end, kMaxSequenceFields);
    TextSet labels;
    for (std::size_t i = 0; i < end; ++i)
        if (const std::string_view line = TrimView(fields[i]); line.starts_with('~'))
            labels.insert(LabelTag(line));
    Site at = site;
    bool inLoop = false;
    for (std::size_t i = 0; i < end; ++i) {
        std::string line = Trim(fields[i]);
        if (line.empty()) continue;
        ++at.place.statement; // as the editor lists them: one a line, empty ones left out
        if (!IsSkippedLine(line)) CheckLine(std::move(line), labels, inLoop, at);
    }
    if (inLoop && !site.queued)
        m_findings.Warning("loop-form",
                           "FOR without NEXT: the body runs once; close it with NEXT $v",
                           site.place, site.line);
    if (std::any_of(fields.begin() + static_cast<std::ptrdiff_t>(end), fields.end(),
                    [](std::string_view field) { return !IsBlank(field); }))
        m_findings.Warning("unreached",
                           "the statements after two empty ones in a row, or past the 500th, "
                           "never run: remove the gap",
                           site.place, site.line);
}

void SequenceChecker::CheckLine(std::string line, const TextSet &labels, bool &inLoop,
                                const Site &site) {
    if (line.starts_with('~')) return;
    if (std::string condition; CutCondition(line, condition))
        NoteReads(condition, false, false, site);
    if (const auto tag = GotoTag(line)) {
        if (site.queued)
            m_findings.Warning(
                "queued-control",
                "_GOTO in a timed sequence: its statements are queued one by one, so "
                "the jump does nothing; put it in a qlob",
                site.place, site.line);
        else if (!labels.contains(*tag))
            m_findings.Error("missing-label",
                             "_GOTO " + Quoted(*tag) + ": the sequence has no label \"~" + *tag +
                                 "\"; add the label or fix the tag",
                             site.place, site.line);
        return;
    }
    if (OpensLoop(line) || ClosesLoop(line)) {
        const bool opens = OpensLoop(line);
        if (site.queued)
            m_findings.Warning("queued-control",
                               std::string(opens ? "FOR" : "NEXT") +
                                   " in a timed sequence: its statements are queued one by one, "
                                   "so the loop does nothing; put it in a qlob",
                               site.place, site.line);
        else if (opens && inLoop)
            m_findings.Warning("loop-form",
                               "a FOR inside a loop is no loop: it does nothing, and the first "
                               "NEXT closes the outer loop",
                               site.place, site.line);
        else if (!opens && !inLoop)
            m_findings.Warning("loop-form", "NEXT without a FOR before it does nothing", site.place,
                               site.line);
        if (opens && !inLoop) CheckLoop(line, site);
        inLoop = opens;
        return;
    }
    CheckCall(line, inLoop, false, site);
}

void SequenceChecker::CheckDirectStatement(std::string_view statement, const Site &site,
                                           bool argumentsAppended) {
    std::string line = Trim(statement);
    if (line.empty()) return;
    if (InStr(line, "{") && line.ends_with('}')) {
        m_findings.Warning("condition-ignored",
                           "a statement with a condition does nothing here, where no sequence "
                           "tests it; call a qlob that holds it",
                           site.place, site.line);
        return;
    }
    CheckCall(line, false, argumentsAppended, site);
}

void SequenceChecker::CheckLoop(const std::string &line, const Site &site) {
    const auto bounds = ReadLoopBounds(line);
    if (!bounds) {
        m_findings.Warning("loop-form",
                           "a FOR with no TO ends the sequence: write FOR $v = start TO stop",
                           site.place, site.line);
        return;
    }
    const std::string norm = NormText(line);
    if (const std::string word = WordHolding(norm, "to"); word != "to")
        m_findings.Warning("loop-to",
                           Quoted(word) + " holds \"to\", which the loop takes for its keyword; "
                                          "rename it",
                           site.place, site.line);
    const std::string variable = Trim(line.substr(
        4, line.find('=') == std::string::npos ? std::string::npos : line.find('=') - 4));
    if (NormText(variable) != kLoopCounter)
        m_findings.Warning("loop-variable",
                           "FOR " + variable + ": the body's counter is always $v; write FOR $v",
                           site.place, site.line);
    NoteReads(bounds->start, true, false, site);
    NoteReads(bounds->stop, true, false, site);
}

void SequenceChecker::CheckCall(const std::string &line, bool inLoop, bool argumentsAppended,
                                const Site &site) {
    const StatementParts parts = SplitStatement(line);
    if (parts.name.empty()) return;
    const std::string function = UpperCase(parts.name);
    if (!m_index.dispatchNames.contains(parts.name)) {
        m_findings.Error("unknown-statement",
                         "no statement is named " + Quoted(function) + ": " + UnknownHint(parts),
                         site.place, site.line);
        return;
    }
    if (parts.name == "play_music")
        m_findings.Warning("silent-music",
                           "PLAY_MUSIC plays nothing: give the game's music in mygamemp3tracks or "
                           "as a counter's audio",
                           site.place, site.line);
    if (!TakesWholeRest(parts.name) && InStr(parts.rest, "lll")) {
        const std::string word = WordHolding(parts.rest, "lll");
        m_findings.Warning("lll-argument",
                           Quoted(word) + " holds \"lll\", which arguments lose (it reads " +
                               Quoted(ReplaceAll(word, "lll", "")) + "); rename it",
                           site.place, site.line);
    }
    CheckArguments(parts, function, argumentsAppended, site);
    if (parts.name == "create_variable") {
        NoteCreated(line, &site);
        NoteReads(BracketArg(parts.rest, 2), true, inLoop, site);
    } else {
        NoteReads(parts.rest, true, inLoop, site);
    }
    if (!parts.target.empty() && parts.name.starts_with("return"))
        CheckTarget(parts.target, function, site);
}

void SequenceChecker::CheckArguments(const StatementParts &parts, std::string_view function,
                                     bool argumentsAppended, const Site &site) {
    const CatalogueEntry *entry = FindCatalogueEntry(parts.name);
    if (!entry || TakesWholeRest(parts.name)) return;
    const std::size_t most = entry->ParamCount();
    const std::size_t least = most - static_cast<std::size_t>(OptionalParams(parts.name));
    const std::size_t count = ArgumentCount(parts.rest);
    if (!argumentsAppended && (count < least || count > most))
        m_findings.Warning("argument-count",
                           std::string(function) + " takes " + CountText(least, most) + ", not " +
                               IntText(static_cast<int>(count)) +
                               ": check the brackets and the blanks between them",
                           site.place, site.line);
    // RETURN_IMAGE looks for its picture only when it gives it to an element.
    if (parts.name == "return_image" && !m_index.ElementRow(StripBrackets(parts.target))) return;
    const std::string args = BracketArgText(parts.rest);
    for (std::size_t i = 1; i <= most; ++i)
        CheckArgument(function, entry->labels[i - 1],
                      Trim(FieldBy(args, static_cast<std::int16_t>(i), "`")), site);
}

void SequenceChecker::CheckArgument(std::string_view function, std::string_view label,
                                    const std::string &arg, const Site &site) {
    if (arg.empty() || KnownAtRunTime(arg)) return;
    const auto missing = [&](std::string_view what, std::string_view fix) {
        m_findings.Error("missing-" + std::string(what),
                         "no " + std::string(what) + " is named " + Quoted(arg) + " (" +
                             std::string(function) + "): " + std::string(fix),
                         site.place, site.line);
    };
    const auto element = [&](ElementKind kind, std::string_view what) {
        const int row = m_index.ElementRow(arg);
        if (!row)
            missing(what, "fix the name");
        else if (KindOfName(m_index.model->Element(row)[kNameColumn]) != kind)
            m_findings.Error("missing-" + std::string(what),
                             Quoted(arg) + " is not a " + std::string(what) + " (" +
                                 std::string(function) + "): name a " + std::string(what) +
                                 " element",
                             site.place, site.line);
    };
    switch (ParamKindOf(label)) {
    case ParamKind::Tool:
        if (!m_index.ToolExists(arg)) missing("tool", "add the tool or fix the name");
        break;
    case ParamKind::Qlob:
        CheckQlob(function, arg, site);
        break;
    case ParamKind::Element:
        // An exception of RESET_TOOL is a part of a name, not a name.
        if (!InStr(NormText(label), "exception") && !m_index.ElementRow(arg))
            missing("element", "fix the name");
        break;
    case ParamKind::List:
        element(ElementKind::List, "list");
        break;
    case ParamKind::Console:
        element(ElementKind::Qonsole, "console");
        break;
    case ParamKind::File:
    case ParamKind::Audio:
    case ParamKind::Image:
        // PLAY_MUSIC looks for no file: it plays nothing.
        if (function != "PLAY_MUSIC" && MediaExists(m_index, MediaFolder::Pictures, arg) == false)
            m_findings.Error("missing-media",
                             Quoted(arg) + " is not in Res/uimages (" + std::string(function) +
                                 "): put the file there or fix the name",
                             site.place, site.line);
        break;
    default:
        break;
    }
}

void SequenceChecker::CheckQlob(std::string_view function, const std::string &name,
                                const Site &site) {
    const std::string norm = NormText(name);
    if (InStr(norm, "none")) return; // "none" runs nothing, on purpose
    const auto found = m_index.qlobPrefix.find(norm);
    if (found == m_index.qlobPrefix.end()) {
        m_findings.Error("missing-qlob",
                         "no qlob is named " + Quoted(name) + " (" + std::string(function) +
                             "): add the qlob or fix the name",
                         site.place, site.line);
        return;
    }
    const std::string &runs = m_index.qlobNames[static_cast<std::size_t>(found->second)];
    if (runs != norm)
        m_findings.Warning("qlob-prefix",
                           Quoted(name) + " runs qlob " + Quoted(runs) +
                               ", the first whose name begins so; rename one of them",
                           site.place, site.line);
}

void SequenceChecker::CheckTarget(const std::string &target, std::string_view function,
                                  const Site &site) {
    const std::string name = NormText(StripBrackets(target));
    if (HasParens(name)) NoteReads(ParenText(name), false, false, site);
    if (name.starts_with('$')) {
        m_uses.push_back({NameOf(name), name, true, site});
        return;
    }
    if (KnownAtRunTime(name) || m_index.ElementRow(name)) return;
    m_findings.Error("missing-element",
                     "no variable or element is named " + Quoted(target) + ", so " +
                         std::string(function) + " drops its result: fix the target",
                     site.place, site.line);
}

void SequenceChecker::NoteReads(std::string_view text, bool substituted, bool inLoop,
                                const Site &site) {
    const std::string unescaped = ReplaceAll(text, "_$", "$");
    ForEachVariable(unescaped, [&](std::string_view written) {
        if (inLoop &&
            (written.starts_with(kLoopCounter) || written.starts_with(kLoopCounterUpper))) {
            if (written.size() > kLoopCounter.size())
                m_findings.Warning("loop-counter",
                                   Quoted(written) +
                                       " in a loop reads as the counter followed by " +
                                       Quoted(written.substr(2)) + "; rename it",
                                   site.place, site.line);
            return;
        }
        const std::string name = NameOf(written);
        if (IsSpecial(name)) return;
        // Conditions look names up whole and in name form; substitution finds them as written.
        m_uses.push_back({name, substituted ? std::string(written) : name, false, site});
    });
}

void SequenceChecker::NoteCreated(std::string_view line, const Site *site) {
    const StatementParts parts = SplitStatement(line);
    if (parts.name != "create_variable") return;
    const std::string name = NormText(BracketArg(parts.rest, 1));
    if (name.empty()) return;
    if (site && m_index.Declared(name))
        m_findings.Warning("create-existing",
                           "CREATE_VARIABLE " + name + ": " + name +
                               " exists, so a variable named by its value is made; give it a "
                               "value with a value function",
                           site->place, site->line);
    m_created.insert(NameOf(name));
}

void SequenceChecker::JudgeVariables() {
    TextSet assigned;
    for (const VariableUse &use : m_uses)
        if (use.assigned) assigned.insert(use.name);
    const auto known = [&](const std::string &name) {
        return m_index.Declared(name) || m_created.contains(name) ||
               (HasParens(name) && m_created.contains(name.substr(0, name.find('('))));
    };
    TextSet told; // one finding for a name at one place
    for (const VariableUse &use : m_uses) {
        const std::string where = use.name + "\n" + use.site.place.name + "\n" +
                                  IntText(use.site.line) + (use.assigned ? "=" : "");
        if (known(use.name)) {
            if (use.written != use.name && told.insert(where).second)
                m_findings.Warning("variable-case",
                                   Quoted(use.written) + " is never replaced: substitution finds " +
                                       use.name + " in lower case only; write it so",
                                   use.site.place, use.site.line);
            continue;
        }
        if (!use.assigned && assigned.contains(use.name)) continue;
        if (!told.insert(where).second) continue;
        if (use.assigned) {
            m_findings.Warning("undeclared-variable",
                               use.name + " is not declared or created, so a value given to it is "
                                          "dropped: declare it",
                               use.site.place, use.site.line);
            continue;
        }
        std::string hint = "declare it or fix the name";
        for (std::size_t length = use.name.size() - 1; length >= 2; --length)
            if (known(use.name.substr(0, length))) {
                hint = use.name.substr(0, length) + " is replaced inside it";
                break;
            }
        m_findings.Warning("undeclared-variable",
                           use.name + " is never declared or created: " + hint, use.site.place,
                           use.site.line);
    }
}

} // namespace orrery::check
