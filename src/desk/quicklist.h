// The quicklist: the player's notepad of targets on the desktop, filled from a pop-up menu
// by a right click on a label or a list, and emptied into the text box used last.
#pragma once

#include <string>
#include <string_view>

namespace orrery {

struct Game;
class Desk;

// The two entries of the pop-up menu, in order.
inline constexpr std::string_view kQuickAddServerCaption = "&--> Add to Quicklist [TARGET SERVER]";
inline constexpr std::string_view kQuickAddTextCaption = "&--> Add to Quicklist [TEXT]";

// With myqlist on: six empty rows, and the panel shown. With it off the panel has no rows.
void LoadQuickList(Game &game);

// The caption without the marks "(1)" to "(16)", trimmed.
std::string StripIndexMarks(std::string_view caption);
// Right button on a label: a caption that names a known server, once its marks are gone,
// becomes the candidate and the pop-up opens. Any other caption does nothing.
void LabelRightClick(Game &game, int row);
// Right button on a list: its selected item becomes the candidate and the pop-up opens.
void ListRightClick(Game &game, int row);

// The pop-up's entries; each closes it. Server: each of the candidate's first twenty words
// that resolves to an address becomes "<hostname> - <ip>"; the others are dropped.
void AddQuickListServer(Game &game);
void AddQuickListText(Game &game);

// True when a row holds the text in name form.
bool QuickListExists(const Desk &desk, std::string_view text);
// Puts the trimmed text in row 1, pushing the others down and the oldest out. A text that
// stands already, in any case, or an empty one changes nothing.
void AddToList(Desk &desk, std::string_view text);

// Mouse over row n: the highlight stands behind it; an empty row or 0 selects nothing.
void SetQSel(Desk &desk, int row);
// The text a click on row n gives: the host name of a server entry that exists, otherwise
// the whole caption.
std::string QuickListValue(Game &game, int row);
// A click on row n inserts its value at the caret of the text box used last, or sets the
// text of a list; other controls, and an empty row, ignore it.
void QuickListClick(Game &game, int row);
// The delete mark of row n: the later rows move up, leaving no gap.
void QuickListDelete(Desk &desk, int row);

// F10.
void ToggleQuicklist(Desk &desk);
// The top menu's "quicklist" word.
void ShowQuicklist(Desk &desk);

} // namespace orrery
