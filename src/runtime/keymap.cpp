// Qt's keys to the desk's key codes.
#include "runtime/keymap.h"

#include <QKeyEvent>

namespace orrery {

namespace {

struct Mapping {
    int qtKey;
    int code;
};

// A symbol is reported as itself; the desk wants the key that types it. Shifted symbols come
// with shift held, so the key and the shift state together give back the symbol.
constexpr Mapping kSymbols[] = {
    {Qt::Key_Space, 32},
    {Qt::Key_Exclam, 49}, {Qt::Key_At, 50}, {Qt::Key_NumberSign, 51}, {Qt::Key_Dollar, 52},
    {Qt::Key_Percent, 53}, {Qt::Key_AsciiCircum, 54}, {Qt::Key_Ampersand, 55},
    {Qt::Key_Asterisk, 56}, {Qt::Key_ParenLeft, 57}, {Qt::Key_ParenRight, 48},
    {Qt::Key_Semicolon, 186}, {Qt::Key_Colon, 186}, {Qt::Key_Equal, 187}, {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188}, {Qt::Key_Less, 188}, {Qt::Key_Minus, 189}, {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190}, {Qt::Key_Greater, 190}, {Qt::Key_Slash, 191}, {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192}, {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219}, {Qt::Key_Backslash, 220}, {Qt::Key_Bar, 220},
    {Qt::Key_BracketRight, 221}, {Qt::Key_BraceRight, 221}, {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9}, {Qt::Key_Return, 13}, {Qt::Key_Enter, 13},
    {Qt::Key_Escape, 27}, {Qt::Key_Left, 37}, {Qt::Key_Up, 38}, {Qt::Key_Right, 39},
    {Qt::Key_Down, 40}, {Qt::Key_Delete, 46},
};

// The number pad's own codes.
constexpr Mapping kKeypad[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107}, {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110}, {Qt::Key_Slash, 111},
};

} // namespace

DeskKey DeskKeyOf(int key, int modifiers) {
    DeskKey out;
    out.plain = !(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    out.shift = (modifiers & Qt::ShiftModifier) != 0;
    const bool keypad = (modifiers & Qt::KeypadModifier) != 0;
    if (keypad && key >= Qt::Key_0 && key <= Qt::Key_9) {
        out.code = 96 + (key - Qt::Key_0);
        return out;
    }
    if (keypad && key != Qt::Key_Enter)
        for (const Mapping &m : kKeypad)
            if (m.qtKey == key) {
                out.code = m.code;
                return out;
            }
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
        out.code = key; // the same numbers as the desk's
        return out;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
        out.code = 112 + (key - Qt::Key_F1);
        return out;
    }
    for (const Mapping &m : kSymbols)
        if (m.qtKey == key) {
            out.code = m.code;
            return out;
        }
    return out;
}

DeskKey DeskKeyOf(const QKeyEvent &event) {
    return DeskKeyOf(event.key(), static_cast<int>(event.modifiers()));
}

} // namespace orrery
