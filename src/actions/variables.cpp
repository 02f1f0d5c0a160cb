// Variables and the substitution passes.
#include "actions/variables.h"

#include "actions/game.h"
#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "network/directory.h"
#include "network/generator.h"

#include <algorithm>
#include <vector>

namespace orrery {

namespace {

// The tags of TLink as the element pass reads them: entries from 1 up to the first one where
// this tag and the next two are blank. Read again only after a control was loaded or unloaded.
const NameIndex &LoadedTags(Game &game) {
    const Desk &desk = game.desk;
    if (game.loadedTagsStamp == desk.TLinkStamp()) return game.loadedTags;
    std::vector<std::string> tags(kElementRows + 3);
    for (int i = 1; i <= std::min(desk.TLinkCount(), kElementRows); ++i)
        tags[static_cast<std::size_t>(i)] = NormText(desk.TLinkTag(i));
    const auto tag = [&](int i) -> const std::string & {
        return tags[static_cast<std::size_t>(i)];
    };
    game.loadedTags.Clear();
    for (int i = 1; i <= kElementRows; ++i) {
        if (tag(i).empty() && tag(i + 1).empty() && tag(i + 2).empty()) break;
        game.loadedTags.Add(tag(i), i);
    }
    game.loadedTagsStamp = desk.TLinkStamp();
    return game.loadedTags;
}

// Rebuilds text with the part inside its first parentheses substituted.
std::string WithIndexSubstituted(Game &game, const std::string &text) {
    if (!HasParens(text)) return text;
    const std::size_t open = text.find('(');
    const std::size_t close = text.find(')');
    return text.substr(0, open) + "(" + SubstituteVariables(game, ParenText(text)) + ")" +
           text.substr(close + 1);
}


// Names of loaded elements, in load order, replaced by their content.
std::string ElementNames(Game &game, std::string text) {
    game.CountWork(
        LoadedTags(game).ReplaceInOrder(text, [&game](int index, const std::string &tag) {
            return game.desk.TLinkString(index, tag);
        }));
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

std::span<const std::string_view> SpecialVariableNames() {
    static constexpr std::string_view kNames[] = {
        "$playername",      "$randomname",        "$randomshortname", "$randompassword",
        "$realip",          "$randomip",          "$randomshortword", "$randomaverageword",
        "$randomlongword",  "$random2",           "$random4",         "$random9",
        "$random25",        "$random100",         "$random1000"};
    return kNames;
}

std::string ExpandSpecialNames(Game &game, std::string text) {
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

std::string ExpandSpecials(Game &game, std::string_view text) {
    if (IsBlank(text)) return {};
    game.CountWork(text.size());
    std::string expanded = ExpandSpecialNames(game, std::string(text));
    game.CountWork(expanded.size());
    expanded = ReplaceAll(expanded, "_$", "$");
    expanded = WithIndexSubstituted(game, expanded);
    expanded = SubstituteVariables(game, expanded);
    return ElementNames(game, std::move(expanded));
}

// Every length from the longest down, each a walk of the table in row order; a name brought
// in by a replacement is caught if it is shorter, or of the same length at a later row.
std::string SubstituteVariables(Game &game, std::string_view text) {
    std::string result = ReplaceAll(text, "_$", "$");
    const RuntimeVariables &variables = game.VariableTable;
    game.CountWork(result.size() + variables.Index().substituted.ReplaceEachLength(
                                       result, [&variables](int row, const std::string &) {
                                           return variables[row].value;
                                       }));
    return result;
}

std::string ResolveIndexedName(Game &game, std::string_view text) {
    return WithIndexSubstituted(game, ReplaceAll(text, "_$", "$"));
}

std::string LookupValue(Game &game, std::string &text) {
    if (IsBlank(text)) return {};
    text = ReplaceAll(ReplaceAll(text, "$playername", Trim(game.PlayerName)), "_", "");
    if (const int row = FindVariable(game, text)) return game.VariableTable[row].value;
    const int row = FindElementRow(game.project, NormText(text));
    if (!row) return text;
    const ElementControl *control = game.desk.Control(row);
    if (!control) return {};
    std::string content;
    if (InStr(text, "button") || InStr(text, "label")) content = control->caption;
    if (InStr(text, "text") || InStr(text, "list")) content = control->text;
    return content;
}

int SetVariable(Game &game, std::string_view name, std::string_view value) {
    const int row = FindVariable(game, ReplaceAll(name, "_$", "$"));
    if (row) game.VariableTable.SetValue(row, Trim(ReplaceAll(value, "_$", "$")));
    return row ? 1 : 0;
}

std::string GetVariable(Game &game, std::string_view name) {
    const int row = FindVariable(game, ReplaceAll(name, "_", ""));
    return row ? game.VariableTable[row].value : std::string();
}

// The first row of that name form up to the table's bound; a blank name finds a blank row
// within it.
int FindVariable(const Game &game, std::string_view name) {
    const auto &firstRow = game.VariableTable.Index().firstRow;
    const auto found = firstRow.find(NormText(name));
    return found == firstRow.end() ? 0 : found->second;
}

void CreateVariable(Game &game, std::string_view name, std::string_view value) {
    const auto clean = [](std::string_view text) {
        return NormText(StripBrackets(text));
    };
    const std::string newName = ExpandSpecials(game, clean(name));
    const std::string newValue = ExpandSpecials(game, clean(value));
    int row = FirstFreeSlot(game.VariableTable, kVariableRows);
    if (const int existing = FindVariable(game, newName)) row = existing;
    game.VariableTable.Set(row, {newName, newValue});
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
