// The key table of the project file: how each scalar setting is read and written.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "project/model.h"

namespace orrery {

// How a value is read from its line and written back.
enum class ValueCode {
    S,             // the field as it stands / the text
    ST,            // the field trimmed / the text
    L,             // "//" to line breaks, trimmed / line breaks to "//"
    B,             // the field trimmed to boolean, unchanged when not one / "True", "False"
    N,             // Val of the field rounded / decimal integer
    I,             // the field trimmed to integer, unchanged when not one / decimal integer
    HiddenTools,   // the whole line in name form with every "myhiddentools:" removed
    ServersRandom, // Val of the field as decimal text
    ProjectName,   // never read: a project keeps the name it was opened under
    WrittenOnly,   // never read: the menu designer's size
};

// Where a key stands in the file.
enum class KeyGroup { Head, ToolsMenu, Style, ReadOnly };

using SettingMember =
    std::variant<std::string ProjectSettings::*, bool ProjectSettings::*,
                 std::int16_t ProjectSettings::*, std::int32_t ProjectSettings::*>;

struct SettingKey {
    std::string_view written; // the key as the writer puts it
    std::string_view name;    // the key in its reading form
    ValueCode code;
    KeyGroup group;
    SettingMember member;
};

// Every scalar key, each group in writing order.
std::span<const SettingKey> SettingKeys();
// The key whose reading form is `name`; nullptr when there is none.
const SettingKey *FindSettingKey(std::string_view name);

// Applies one line to the setting. A value that fails to convert leaves the setting as it was.
void ReadSetting(ProjectSettings &settings, const SettingKey &key, std::string_view line);
// The setting's value as the file writes it.
std::string SettingValueText(const ProjectSettings &settings, const SettingKey &key);
// Appends "<key>:<value>" and CRLF.
void WriteSetting(std::string &out, const ProjectSettings &settings, const SettingKey &key);

using MenuLabelMember =
    std::variant<std::string MenuLabel::*, bool MenuLabel::*, std::int16_t MenuLabel::*,
                 std::int32_t MenuLabel::*>;

// A key of a menu label's block, "<key>:<count>:<value>".
struct MenuLabelKey {
    std::string_view key;
    MenuLabelMember member;
    bool twoFields = false; // the value runs over two fields: the data field
};

// The keys of a menu label's block in writing order; the caption opens a block.
std::span<const MenuLabelKey> MenuLabelKeys();
// The key of that name form; nullptr when there is none.
const MenuLabelKey *FindMenuLabelKey(std::string_view name);
// Applies one line of the block to the label. A number or boolean that fails to convert
// leaves the field as it was.
void ReadMenuLabelField(MenuLabel &label, const MenuLabelKey &key, std::string_view line);
// Appends "<key>:<count>:<value>" and CRLF, text trimmed.
void WriteMenuLabelField(std::string &out, const MenuLabel &label, const MenuLabelKey &key,
                         std::string_view count);

} // namespace orrery
