// The keys a player types reach consoles as the desk's key codes, shifted symbols included;
// and a run-time finds its application folder from where it stands.
#include "desk/qonsole.h"
#include "runtime/keymap.h"
#include "runtime/runtime.h"
#include "support/tempdir.h"

#include <fstream>
#include <gtest/gtest.h>

namespace orrery::test {
namespace {

TEST(DeskKeys, QtKeysBecomeTheKeysThatTypeThem) {
    struct Case {
        int qtKey;
        Qt::KeyboardModifiers modifiers;
        int code;
        bool shift;
    };
    const Case cases[] = {
        {Qt::Key_A, Qt::NoModifier, kKeyA, false},
        {Qt::Key_Z, Qt::ShiftModifier, kKeyA + 25, true},
        {Qt::Key_7, Qt::NoModifier, kKey0 + 7, false},
        {Qt::Key_Exclam, Qt::ShiftModifier, kKey0 + 1, true},       // shift 1
        {Qt::Key_ParenRight, Qt::ShiftModifier, kKey0, true},       // shift 0
        {Qt::Key_5, Qt::KeypadModifier, kKeyPad0 + 5, false},
        {Qt::Key_Asterisk, Qt::KeypadModifier, kKeyMultiply, false}, // not shift 8
        {Qt::Key_Minus, Qt::NoModifier, kKeyMinus, false},
        {Qt::Key_Underscore, Qt::ShiftModifier, kKeyMinus, true},
        {Qt::Key_Colon, Qt::ShiftModifier, kKeySemicolon, true},
        {Qt::Key_QuoteDbl, Qt::ShiftModifier, kKeyQuote, true},
        {Qt::Key_Bar, Qt::ShiftModifier, kKeyBackslash, true},
        {Qt::Key_Return, Qt::NoModifier, kKeyEnter, false},
        {Qt::Key_Enter, Qt::KeypadModifier, kKeyEnter, false},
        {Qt::Key_F12, Qt::ShiftModifier, 123, true},
        {Qt::Key_Escape, Qt::NoModifier, 27, false},
        {Qt::Key_Home, Qt::NoModifier, 0, false}, // unknown to the desk
    };
    for (const Case &c : cases) {
        const DeskKey key = DeskKeyOf(c.qtKey, static_cast<int>(c.modifiers));
        EXPECT_EQ(key.code, c.code) << std::hex << c.qtKey;
        EXPECT_EQ(key.shift, c.shift) << std::hex << c.qtKey;
        EXPECT_TRUE(key.plain);
    }
    EXPECT_FALSE(DeskKeyOf(Qt::Key_A, Qt::ControlModifier).plain);
}

TEST(RuntimeRoot, FoundBesideTheProgramOrAboveIt) {
    TempDir dir;
    const auto root = dir.path();
    std::filesystem::create_directories(root / "Data");
    std::ofstream(root / "Data" / "pname.dat") << "Night Shift\r\n";
    // The build keeps the run-time as Data/runner; a distribution keeps a copy at the top.
    EXPECT_EQ(Runtime::FindRoot(root / "Data" / "runner"), root);
    EXPECT_EQ(Runtime::FindRoot(root / "Night Shift"), root);
}

} // namespace
} // namespace orrery::test
