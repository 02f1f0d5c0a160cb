// Variables and the substitution passes.
#include "actions/variables.h"

#include "actions/game.h"
#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "network/directory.h"
#include "network/generator.h"

namespace orrery {

namespace {

constexpr int kLongestSubstitutedName = 21;

const std::string &VariableName(const Game &game, int row) {
    static const std::string kNone;
    return row <= kVariableRows ? game.VariableTable[row].name : kNone;
}

// Scans of the table stop at the first row where this name and the next two are blank.
bool AtBound(const Game &game, int row) {
    return IsBlank(VariableName(game, row)) && IsBlank(VariableName(game, row + 1)) &&
           IsBlank(VariableName(game, row + 2));
}

// Calls visit(row) for each row up to the bound; visit returns true to stop.
template <typename Visit> void WalkVariables(const Game &game, Visit visit) {
    for (int row = 1; row <= kVariableRows && !AtBound(game, row); ++row)
        if (visit(row)) return;
}

// Rebuilds text with the part inside its first parentheses substituted.
std::string WithIndexSubstituted(Game &game, const std::string &text) {
    if (!HasParens(text)) return text;
    const std::size_t open = text.find('(');
    const std::size_t close = text.find(')');
    return text.substr(0, open) + "(" + SubstituteVariables(game, ParenText(text)) + ")" +
           text.substr(close + 1);
}

std::string Specials(Game &game, std::string text) {
    const auto replace = [&text](std::string_view name, const std::string &value) {
        text = ReplaceAll(text, name, value);
    };
    // Every value is drawn whether the text holds its name or not; the order binds, so
    // "$random2" takes the front of "$random25".
    replace("$playername", Trim(game.PlayerName));
    replace("$randomname", Trim(game.words.RandomFullName(game.random)));
    replace("$randomshortname", Trim(game.words.RandomShortName(game.random)));
    replace("$randompassword", NormText(game.words.RandomShortName(game.random)));
    replace("$realip", Trim(game.world.RandomExistingIp(game.random)));
    replace("$randomip", Trim(RandomIp(game)));
    replace("$randomshortword", Trim(game.words.RandomShortWord(game.random)));
    replace("$randomaverageword", Trim(game.words.RandomAverageWord(game.random)));
    replace("$randomlongword", Trim(game.words.RandomLongWord(game.random)));
    for (int n : {2, 4, 9, 25, 100, 1000}) replace("$random" + IntText(n), RandomUpTo(game, n));
    replace("(?)", "(" + Trim(game.CurrentArrayIndex) + ")");
    return text;
}

// Names of loaded elements, in load order, replaced by their content.
std::string ElementNames(Game &game, std::string text) {
    const Desk &desk = game.desk;
    for (int i = 1; i <= kElementRows; ++i) {
        const std::string tag = NormText(desk.TLinkTag(i));
        if (tag.empty() && NormText(desk.TLinkTag(i + 1)).empty() &&
            NormText(desk.TLinkTag(i + 2)).empty())
            break;
        if (!tag.empty() && InStr(text, tag)) text = ReplaceAll(text, tag, desk.TLinkString(i, tag));
    }
    return text;
}

} // namespace

std::string ParenText(std::string_view text) {
    const std::size_t open = text.find('(');
    if (open == std::string_view::npos) return {};
    const std::size_t close = text.find(')', open);
    return Trim(text.substr(open + 1, close == std::string_view::npos ? std::string_view::npos
                                                                      : close - open - 1));
}

std::string ExpandSpecials(Game &game, std::string_view text) {
    if (IsBlank(text)) return {};
    std::string expanded = Specials(game, std::string(text));
    expanded = ReplaceAll(expanded, "_$", "$");
    expanded = WithIndexSubstituted(game, expanded);
    expanded = SubstituteVariables(game, expanded);
    return ElementNames(game, std::move(expanded));
}

std::string SubstituteVariables(Game &game, std::string_view text) {
    std::string result = ReplaceAll(text, "_$", "$");
    for (std::size_t length = kLongestSubstitutedName; length >= 1; --length) {
        WalkVariables(game, [&](int row) {
            const Variable &variable = game.VariableTable[row];
            if (IsBlank(variable.name)) return false;
            const std::string name = NormText(variable.name);
            if (name.size() == length && InStr(result, name))
                result = ReplaceAll(result, name, variable.value);
            return false;
        });
    }
    return result;
}

std::string ResolveIndexedName(Game &game, std::string_view text) {
    return WithIndexSubstituted(game, ReplaceAll(text, "_$", "$"));
}

std::string LookupValue(Game &game, std::string &text) {
    if (IsBlank(text)) return {};
    text = ReplaceAll(ReplaceAll(text, "$playername", Trim(game.PlayerName)), "_", "");
    const std::string wanted = NormText(text);
    std::string value;
    bool found = false;
    WalkVariables(game, [&](int row) {
        const Variable &variable = game.VariableTable[row];
        if (NormText(variable.name) != wanted) return false;
        value = variable.value;
        return found = true;
    });
    if (found) return value;
    const int row = FindElementRow(game, text);
    if (!row) return text;
    const ElementControl *control = game.desk.Control(row);
    if (!control) return {};
    std::string content;
    if (InStr(text, "button") || InStr(text, "label")) content = control->caption;
    if (InStr(text, "text") || InStr(text, "list")) content = control->text;
    return content;
}

int SetVariable(Game &game, std::string_view name, std::string_view value) {
    const std::string wanted = NormText(ReplaceAll(name, "_$", "$"));
    const std::string stored = Trim(ReplaceAll(value, "_$", "$"));
    int set = 0;
    WalkVariables(game, [&](int row) {
        Variable &variable = game.VariableTable[row];
        if (NormText(variable.name) != wanted) return false;
        variable.value = stored;
        set = 1;
        return true;
    });
    return set;
}

std::string GetVariable(Game &game, std::string_view name) {
    const int row = FindVariable(game, ReplaceAll(name, "_", ""));
    return row ? game.VariableTable[row].value : std::string();
}

int FindVariable(const Game &game, std::string_view name) {
    const std::string wanted = NormText(name);
    int found = 0;
    WalkVariables(game, [&](int row) {
        if (NormText(game.VariableTable[row].name) != wanted) return false;
        found = row;
        return true;
    });
    return found;
}

void CreateVariable(Game &game, std::string_view name, std::string_view value) {
    const auto clean = [](std::string_view text) {
        return NormText(ReplaceAll(ReplaceAll(text, "[", ""), "]", ""));
    };
    const std::string newName = ExpandSpecials(game, clean(name));
    const std::string newValue = ExpandSpecials(game, clean(value));
    int row = FirstFreeSlot(game.VariableTable, kVariableRows);
    if (const int existing = FindVariable(game, newName)) row = existing;
    game.VariableTable[row] = {newName, newValue};
}

int FindElementRow(const Game &game, std::string_view name) {
    const std::string wanted = NormText(name);
    for (int row = 1; row <= kElementRows; ++row)
        if (!wanted.empty() && NormText(game.project.Element(row)[0]) == wanted) return row;
    return 0;
}

std::string RandomUpTo(Game &game, int n) {
    return IntText(static_cast<long long>(R(game.random, n)) + 1);
}

std::string RandomIp(Game &game) {
    std::string ip;
    for (int part = 0; part < 4; ++part)
        ip += (part ? "." : "") + IntText(static_cast<long long>(R(game.random, 255)) + 1);
    return ip;
}

} // namespace orrery
