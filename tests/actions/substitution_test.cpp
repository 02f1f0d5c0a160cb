// The indexed substitution against the passes as plainly written, which walk every table for
// every argument, on random tables and texts: cascades, duplicates, gaps and stale names.
#include "actions/engine_fixture.h"
#include "foundation/text.h"

#include <gtest/gtest.h>
#include <random>

namespace orrery {
namespace {

// The passes as plainly written: every table walked for every argument.
struct Walked {
    const Game &game;

    bool BlankRow(int row) const {
        return row > kVariableRows || IsBlank(game.VariableTable[row].name);
    }
    bool BlankTag(int i) const { return NormText(game.desk.TLinkTag(i)).empty(); }

    std::string Variables(std::string text) const {
        text = ReplaceAll(text, "_$", "$");
        for (std::size_t length = 21; length >= 1; --length)
            for (int row = 1; row <= kVariableRows; ++row) {
                if (BlankRow(row) && BlankRow(row + 1) && BlankRow(row + 2)) break;
                const std::string name = NormText(game.VariableTable[row].name);
                if (!name.empty() && name.size() == length)
                    text = ReplaceAll(text, name, game.VariableTable[row].value);
            }
        return text;
    }
    std::string Expand(std::string text) const {
        if (IsBlank(text)) return {};
        text = ReplaceAll(text, "_$", "$");
        if (HasParens(text))
            text = text.substr(0, text.find('(')) + "(" + Variables(ParenText(text)) + ")" +
                   text.substr(text.find(')') + 1);
        text = Variables(text);
        for (int i = 1; i <= kElementRows; ++i) {
            if (BlankTag(i) && BlankTag(i + 1) && BlankTag(i + 2)) break;
            const std::string tag = NormText(game.desk.TLinkTag(i));
            if (!tag.empty()) text = ReplaceAll(text, tag, game.desk.TLinkString(i, tag));
        }
        return text;
    }
    std::string Get(std::string_view name) const {
        const std::string wanted = NormText(ReplaceAll(name, "_", ""));
        for (int row = 1; row <= kVariableRows; ++row) {
            if (BlankRow(row) && BlankRow(row + 1) && BlankRow(row + 2)) break;
            if (NormText(game.VariableTable[row].name) == wanted)
                return game.VariableTable[row].value;
        }
        return {};
    }
};

struct Maker {
    std::mt19937 engine{7};

    int Below(int n) { return static_cast<int>(engine() % static_cast<unsigned>(n)); }
    std::string Letters(int most) {
        std::string text;
        for (int n = Below(most + 1); n > 0; --n) text += "abA"[Below(3)];
        return text;
    }
    // Short names that are prefixes of one another or overlap themselves, now and then padded,
    // capitalised or longer than SubstituteVariables reaches.
    std::string Name() {
        switch (Below(12)) {
        case 0:
            return "";
        case 1:
            return " ";
        case 2:
            return " $" + Letters(2) + " ";
        case 3:
            return "$" + std::string(20 + static_cast<std::size_t>(Below(3)), 'a');
        case 4:
            return Letters(3); // without "$": "aa" overlaps itself in "aaa"
        default:
            return "$" + Letters(3);
        }
    }
    std::string Tag() {
        return std::string(Below(2) ? "label" : Below(2) ? "text" : "imag") + Letters(1);
    }
    // One name or tag at most, so cascades can't grow a text without end.
    std::string Content() {
        const std::string piece = Below(3) ? "$" + Letters(2) : Below(2) ? Tag() : "";
        return (Below(4) ? "" : "_") + piece + Letters(1);
    }
    std::string Text() {
        static const char *const kPieces[] = {"$", "_$", "(",  ")",     " ",
                                              "x", "A",  "ab", "label", "text"};
        std::string text;
        for (int n = Below(12); n > 0; --n)
            text += Below(2)   ? std::string(kPieces[Below(10)])
                    : Below(2) ? "$" + Letters(3)
                               : Tag();
        return text;
    }
};

TEST(Substitution, IndexedPassesGiveWhatTheWalksGive) {
    Maker make;
    int compared = 0;
    for (int round = 0; round < 60; ++round) {
        test::EngineFixture f;
        const Walked walked{f.game};
        for (int step = 0; step < 50; ++step) {
            // Names change between texts, so an index kept past a change would show.
            for (int n = make.Below(4); n >= 0; --n)
                f.game.VariableTable.Set(1 + make.Below(14), {make.Name(), make.Content()});
            if (make.Below(3) == 0) {
                const int row = 1 + make.Below(12);
                if (ElementControl *control = f.Element(row, make.Tag())) {
                    control->caption = make.Content();
                    control->text = make.Content();
                }
            }
            if (make.Below(6) == 0) f.game.desk.UnloadControl(1 + make.Below(12));
            for (int t = 0; t < 4; ++t) {
                const std::string text = make.Text();
                ASSERT_EQ(SubstituteVariables(f.game, text), walked.Variables(text)) << text;
                ASSERT_EQ(ExpandSpecials(f.game, text), walked.Expand(text)) << text;
                const std::string name = make.Name();
                ASSERT_EQ(GetVariable(f.game, name), walked.Get(name)) << name;
                ++compared;
            }
        }
    }
    EXPECT_EQ(compared, 12000);
}

} // namespace
} // namespace orrery
