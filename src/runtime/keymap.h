// The player's keys as the desk knows them: the key codes of the desktop and its consoles,
// read from Qt's key events on a US keyboard layout.
#pragma once

class QKeyEvent;

namespace orrery {

struct DeskKey {
    int code = 0;       // 0 for a key the desk doesn't know
    bool shift = false; // shift held, and neither control nor alt
    bool plain = true;  // neither control nor alt held
};

DeskKey DeskKeyOf(const QKeyEvent &event);
// The same from a key and its modifiers, as Qt reports them.
DeskKey DeskKeyOf(int qtKey, int modifiers);

} // namespace orrery
