// The project model: the scalar settings and the fixed, one-based tables of a project.
#pragma once

#include <array>
#include <cassert>
#include <cstdint>
#include <string>
#include <vector>

#include "project/settings.inc"

namespace orrery {

inline constexpr int kElementRows = 1499;
inline constexpr int kElementColumns = 23; // columns 0 to 22
// Columns of an element's row.
inline constexpr int kNameColumn = 0;       // the element's name, in its name form
inline constexpr int kToolColumn = 1;       // "atool:<tool>"; a row without it is free
inline constexpr int kKindColumn = 2;       // "<kind>:<number>"
inline constexpr int kPropertyColumns = 21; // columns 1 to 21 hold "<key>:<value>"
inline constexpr int kActionColumn = 20;    // the action, whatever the order of reading
inline constexpr int kRowNumberColumn = 22; // the row number, kept by the run-time
inline constexpr int kMenuImageLimit = 32767;
inline constexpr int kVariableRows = 2000;

// True when the text holds nothing but blanks: such a slot is free.
bool IsBlank(std::string_view text);

// A fixed table of records numbered from 1. There are no counters: a record is free when its
// key text is blank, and order of slots is order of reading, gaps included.
template <typename Record, int Size> class SlotTable {
public:
    static constexpr int kSize = Size;

    Record &operator[](int slot) {
        assert(Contains(slot));
        return m_slots[static_cast<std::size_t>(slot - 1)];
    }
    const Record &operator[](int slot) const {
        assert(Contains(slot));
        return m_slots[static_cast<std::size_t>(slot - 1)];
    }
    static constexpr bool Contains(int slot) { return slot >= 1 && slot <= Size; }

    auto begin() { return m_slots.begin(); }
    auto end() { return m_slots.end(); }
    auto begin() const { return m_slots.begin(); }
    auto end() const { return m_slots.end(); }

    bool operator==(const SlotTable &) const = default;

private:
    std::array<Record, Size> m_slots{};
};

using ElementRow = std::array<std::string, kElementColumns>;

struct Variable {
    std::string name;
    std::string value;
    bool operator==(const Variable &) const = default;
};

struct ToolSub {
    std::string key;      // "<tool>:<event>"
    std::string sequence;
    bool operator==(const ToolSub &) const = default;
};

// A label of the main menu; free when its caption is blank.
struct MenuLabel {
    std::string caption;
    std::string tag;
    std::string dataField; // two colon-separated fields
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t backColor = 0;
    std::int32_t foreColor = 0;
    std::int16_t backStyle = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    std::string fontSize;
    std::string fontName;
    bool operator==(const MenuLabel &) const = default;
};

// An image of the main menu: its file below Res/uimages, its position and data field.
struct MenuImage {
    std::string file;
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::string dataField;

    bool operator==(const MenuImage &) const = default;
};

inline const std::string &SlotKey(const std::string &slot) { return slot; }
inline const std::string &SlotKey(const Variable &slot) { return slot.name; }
inline const std::string &SlotKey(const ToolSub &slot) { return slot.key; }
inline const std::string &SlotKey(const MenuLabel &slot) { return slot.caption; }

// The scalar settings, one member per key of the project file, named as the key reads.
struct ProjectSettings {
#define ORRERY_DECLARE_SETTING(member, key, code, type) type member{};
    ORRERY_HEAD_SETTINGS(ORRERY_DECLARE_SETTING)
    ORRERY_TOOLSMENU_SETTINGS(ORRERY_DECLARE_SETTING)
    ORRERY_STYLE_SETTINGS(ORRERY_DECLARE_SETTING)
    ORRERY_READ_ONLY_SETTINGS(ORRERY_DECLARE_SETTING)
#undef ORRERY_DECLARE_SETTING
    bool operator==(const ProjectSettings &) const = default;
};

// The whole project as loaded, edited and saved. The current project name is
// settings.myprojectname. Loading only ever adds to a model.
struct ProjectModel {
    ProjectModel();

    ProjectSettings settings;
    bool scrambled = false;     // loaded from a distribution's file: never saved
    std::string lastSavedName;

    // Counters of the reader, kept across loads because a model only grows.
    int elementCount = 0;       // "[newel]" lines seen so far
    int propertyCount = 0;      // property lines of the current element
    int serverFieldCount = 0;
    int menuLabelCount = 0;

    std::vector<ElementRow> ElementTable; // rows 1 to 1499; row 0 is never used
    SlotTable<std::string, 99> ToolNameTable;
    SlotTable<std::string, 199> QlobTable;
    SlotTable<Variable, kVariableRows> VariableTable;
    SlotTable<std::string, 99> ServiceTable;
    SlotTable<std::string, 99> HelpTable;
    SlotTable<std::string, 99> DynamicTable;
    SlotTable<std::string, 99> QuantumLockTable;
    SlotTable<std::string, 500> CustomServerTable;
    SlotTable<ToolSub, 299> ToolSubTable;
    SlotTable<std::string, 250> ServerFieldTable;
    SlotTable<MenuLabel, 99> MenuLabelTable;
    std::vector<MenuImage> menuImages;

    ElementRow &Element(int row) { return ElementTable.at(static_cast<std::size_t>(row)); }
    const ElementRow &Element(int row) const {
        return ElementTable.at(static_cast<std::size_t>(row));
    }

    // Every field alike: what an undo step compares a model with.
    bool operator==(const ProjectModel &) const = default;
};

// The first free slot of a table from `from` on, or `whenFull` when there is none.
template <typename Table> int FirstFreeSlot(const Table &table, int whenFull, int from = 1) {
    for (int slot = from; slot <= Table::kSize; ++slot)
        if (IsBlank(SlotKey(table[slot]))) return slot;
    return whenFull;
}

// The slot finders. A full table answers with its last slot, which the next record then
// overwrites; a full service table answers 199, beyond its end, and the record is dropped.
int FreeCustomServerSlot(const ProjectModel &model);
int FreeQlobSlot(const ProjectModel &model);
int FreeDynamicSlot(const ProjectModel &model);
int FreeQuantumLockSlot(const ProjectModel &model);
int FreeHelpSlot(const ProjectModel &model);
int FreeToolSubSlot(const ProjectModel &model);
int FreeServiceSlot(const ProjectModel &model);
int FirstFreeVariable(const ProjectModel &model);
int FreeToolNameSlot(const ProjectModel &model);

// How far a search for an element's name walks the rows.
enum class RowWalk {
    WholeTable, // every row
    UpToGap,    // up to the first gap of three nameless rows, as the engine's statements walk
};
// True at a row that, with the two after it, has no name: the engine's walks stop there.
bool IsElementGap(const ProjectModel &model, int row);
// The first row whose name form equals nameForm, which is compared as it stands; 0 when none.
// In the whole table a blank name finds nothing; up to the gap it finds a nameless row.
int FindElementRow(const ProjectModel &model, std::string_view nameForm,
                   RowWalk walk = RowWalk::WholeTable);

// The first qlob whose name form begins with the name's, as a plain prefix; 0 when none or
// for a blank name.
int FindQlob(const ProjectModel &model, std::string_view name);

} // namespace orrery

namespace orrery {

// The screen the project is opened on, in twips. Without a display: 1024 by 768 pixels at
// 15 twips per pixel.
struct HostScreen {
    int widthTwips = 1024 * 15;
    int heightTwips = 768 * 15;
};

} // namespace orrery
