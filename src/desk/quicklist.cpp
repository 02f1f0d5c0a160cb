// The quicklist's rows, its pop-up menu and its clicks.
#include "desk/quicklist.h"

#include "actions/game.h"
#include "foundation/convert.h"
#include "foundation/text.h"
#include "network/directory.h"
#include "session/profiles.h"

#include <algorithm>

namespace orrery {

namespace {

constexpr std::int16_t kServerWords = 20;
constexpr std::string_view kServerJoin = " - ";

int RowCount(const Desk &desk) {
    return std::max(0, static_cast<int>(desk.Quicklist.size()) - 1);
}

std::string &Row(Desk &desk, int row) {
    return desk.Quicklist[static_cast<std::size_t>(row)];
}

void OpenQuickMenu(Desk &desk, std::string candidate) {
    desk.quickCandidate = std::move(candidate);
    desk.quickMenuVisible = true;
}

// SelText: the value replaces the selection, and the caret ends behind it.
void InsertAtCaret(ElementControl &box, const std::string &value) {
    const std::size_t start = std::min(box.selStart, box.text.size());
    const std::size_t length = std::min(box.selLength, box.text.size() - start);
    box.text.replace(start, length, value);
    box.selStart = start + value.size();
    box.selLength = 0;
}

// A list takes the text as its selection: the first item of that name form is selected;
// with none, the text stands alone and nothing is selected.
void SetListText(ElementControl &list, const std::string &value) {
    const std::string wanted = NormText(value);
    const auto item = std::find_if(list.items.begin(), list.items.end(),
                                   [&](const std::string &i) { return NormText(i) == wanted; });
    const bool found = item != list.items.end();
    list.listIndex = found ? static_cast<int>(item - list.items.begin()) : -1;
    list.text = found ? *item : value;
}

} // namespace

void LoadQuickList(Game &game) {
    if (!game.project.settings.myqlist) return;
    Desk &desk = game.desk;
    desk.Quicklist.assign(static_cast<std::size_t>(kQuicklistRows) + 1, std::string());
    desk.quicklistSel = 0;
    desk.quicklistVisible = true;
}

std::string StripIndexMarks(std::string_view caption) {
    std::string text(caption);
    for (int n = 1; n <= 16; ++n) text = ReplaceAll(text, "(" + IntText(n) + ")", "");
    return Trim(text);
}

void LabelRightClick(Game &game, int row) {
    const ElementControl *label = game.desk.Control(row);
    if (!label || label->kind != ElementKind::Label) return;
    std::string candidate = StripIndexMarks(label->caption);
    std::string host = candidate;
    if (game.world.ServerExists(host)) OpenQuickMenu(game.desk, std::move(candidate));
}

void ListRightClick(Game &game, int row) {
    const ElementControl *list = game.desk.Control(row);
    if (list && list->kind == ElementKind::List) OpenQuickMenu(game.desk, list->text);
}

void AddQuickListServer(Game &game) {
    game.desk.quickMenuVisible = false;
    const std::string candidate = Trim(game.desk.quickCandidate);
    // A candidate without a blank is its own first word, so one loop serves both.
    for (std::int16_t i = 1; i <= kServerWords; ++i) {
        std::string word = FieldBy(candidate, i, " ");
        if (NormText(word).empty()) continue;
        // The word leaves ResolveIp in name form, so the host name is found for it even when
        // the text carried punctuation.
        const std::string ip = game.world.ResolveIp(word);
        if (!IsValidIp(ip)) continue;
        AddToList(game.desk, game.world.ResolveHostname(word) + std::string(kServerJoin) + ip);
    }
}

void AddQuickListText(Game &game) {
    game.desk.quickMenuVisible = false;
    AddToList(game.desk, Trim(game.desk.quickCandidate));
}

bool QuickListExists(const Desk &desk, std::string_view text) {
    const std::string wanted = NormText(text);
    for (int row = 1; row <= RowCount(desk); ++row)
        if (NormText(desk.Quicklist[static_cast<std::size_t>(row)]) == wanted) return true;
    return false;
}

void AddToList(Desk &desk, std::string_view text) {
    if (QuickListExists(desk, text)) return;
    std::string entry = Trim(text);
    const int rows = RowCount(desk);
    if (entry.empty() || rows == 0) return;
    for (int row = rows; row >= 2; --row) Row(desk, row) = Row(desk, row - 1);
    Row(desk, 1) = std::move(entry);
}

void SetQSel(Desk &desk, int row) {
    const bool filled = row >= 1 && row <= RowCount(desk) && !Row(desk, row).empty();
    desk.quicklistSel = filled ? row : 0;
}

std::string QuickListValue(Game &game, int row) {
    if (row < 1 || row > RowCount(game.desk)) return {};
    const std::string &caption = Row(game.desk, row);
    if (!InStr(caption, kServerJoin)) return caption;
    const std::string host = Trim(ReplaceAll(FieldBy(caption, 1, kServerJoin), "-", ""));
    std::string probe = host;
    return game.world.ServerExists(probe) ? host : caption;
}

void QuickListClick(Game &game, int row) {
    const std::string value = QuickListValue(game, row);
    ElementControl *target = game.desk.Control(game.desk.focusRow);
    if (value.empty() || !target) return;
    if (target->kind == ElementKind::Text)
        InsertAtCaret(*target, value);
    else if (target->kind == ElementKind::List)
        SetListText(*target, value);
}

void QuickListDelete(Desk &desk, int row) {
    if (row < 1 || row > RowCount(desk)) return;
    desk.Quicklist.erase(desk.Quicklist.begin() + row);
    desk.Quicklist.emplace_back();
}

void ToggleQuicklist(Desk &desk) {
    desk.quicklistVisible = !desk.quicklistVisible;
}

void ShowQuicklist(Desk &desk) {
    desk.quicklistVisible = true;
}

} // namespace orrery
