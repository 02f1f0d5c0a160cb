// The top menu: a bar written by the author in one line, its drop-down lists, and the action
// words its entries carry.
#pragma once

#include <string>
#include <vector>

namespace orrery {

struct Game;

// An entry of the bar; subs holds its sub-entries as the text they were written in.
struct TopEntry {
    std::string caption;
    std::string subs;
};

// An entry of a drop-down: caption, and the action word behind "=".
struct SubEntry {
    std::string caption;
    std::string word;
};

inline constexpr int kNoMenu = 999;

// Builds the bar from mytopmenu: "//" and ":" separate entries; "-Caption=word" belongs to the
// entry before. At most 100 fields are read.
void LoadTopMenu(Game &game);
// Opens the drop-down of entry index, or closes it with 999.
void SelMenu(Game &game, int index);
// Carries out sub-entry index of the open drop-down: help, exit, quicklist, cut, copy, paste,
// or any other text as a statement.
void ActivateTopMenu(Game &game, int index);

} // namespace orrery
