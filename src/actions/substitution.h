// The names the substitution passes look for, indexed so that a pass costs in proportion to
// its text and not to the tables, and the run-time variable table that keeps its index true.
#pragma once

#include "foundation/text.h"
#include "project/model.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orrery {

// A hash for maps keyed by text that are asked with views.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept {
        return std::hash<std::string_view>{}(text);
    }
};

template <typename Value>
using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

// Names to find in a text, each with the ascending positions that carry it: rows of a table
// or entries of TLink. A pass walks the positions in order, and at each one replaces every
// occurrence of its name if the text holds it at that moment; so a replacement can bring in a
// name that a later position then catches. The index replays exactly that walk, but it reads
// the text once: it counts the names the text holds, and after each replacement it reads only
// round the places that changed, or the whole text again when those are many. So a pass costs
// the text once, plus a copy and at most one more reading of it for each name replaced,
// however many names the text holds.
class NameIndex {
public:
    // The replacement for the name at a position, asked when the walk gets there.
    using ValueOf = std::function<std::string(int position, const std::string &name)>;

    // Positions come in ascending order; an empty name is never looked for.
    void Add(std::string_view name, int position);
    void Clear();

    // A start looked at for a name costs about what this many bytes of text copied do.
    static constexpr std::size_t kLookWork = 8;

    // One walk for each length of name in turn, longest first, over the positions of that
    // length. Returns the work of the walks in bytes: the texts they built, and the starts
    // they looked at.
    std::size_t ReplaceEachLength(std::string &text, const ValueOf &valueOf) const;
    // One walk over all positions, whatever the length of their names.
    std::size_t ReplaceInOrder(std::string &text, const ValueOf &valueOf) const;

private:
    struct Name {
        std::string text;
        std::vector<int> positions;
    };
    // The names of one length, and the bytes they begin and end with, to pass over most of
    // the text without a lookup.
    struct Group {
        std::size_t length = 0;
        std::string firstBytes; // each once
        std::array<bool, 256> first{};
        std::array<bool, 256> last{};
        TextMap<int> ids; // into m_names
    };
    class Walk;

    std::size_t Replay(std::string &text, const ValueOf &valueOf, bool byLength) const;

    std::vector<Group> m_groups; // longest names first
    std::vector<Name> m_names;
    std::string m_leads; // the first bytes of all names, each once
};

// The run-time user variables: rows 1 to 2000 of name and value, filled from row 1. Values
// change all the time and cost nothing more; names change only through Set and Clear, which
// is what keeps the index of the names true.
class RuntimeVariables {
public:
    static constexpr int kSize = kVariableRows;
    // SubstituteVariables leaves longer names alone.
    static constexpr std::size_t kLongestSubstituted = 21;

    const Variable &operator[](int row) const { return m_rows[row]; }
    auto begin() const { return m_rows.begin(); }
    auto end() const { return m_rows.end(); }

    void Set(int row, Variable variable);
    void SetValue(int row, std::string value) { m_rows[row].value = std::move(value); }
    void Clear();

    // What the walks over the table need to know of its names.
    struct Names {
        // Each name form up to the walks' bound, blank ones too, to the first row that has it.
        TextMap<int> firstRow;
        // The names SubstituteVariables replaces, by row.
        NameIndex substituted;
    };
    // Built again on the first call after a name has changed.
    const Names &Index() const;

private:
    SlotTable<Variable, kVariableRows> m_rows;
    mutable Names m_names;
    mutable bool m_stale = true;
};

} // namespace orrery
