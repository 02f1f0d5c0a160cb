// The key table, made from the settings list, and the value treatments it names.
#include "project/keytable.h"

#include <algorithm>
#include <array>
#include <type_traits>

#include "foundation/convert.h"
#include "foundation/text.h"

namespace orrery {

namespace {

constexpr SettingKey Row(SettingMember member, std::string_view written, std::string_view name,
                         ValueCode code, KeyGroup group) {
    return SettingKey{written, name, code, group, member};
}

#define ORRERY_HEAD_ROW(m, key, code, type)                                                        \
    Row(&ProjectSettings::m, key, #m, ValueCode::code, KeyGroup::Head),
#define ORRERY_TOOLSMENU_ROW(m, key, code, type)                                                   \
    Row(&ProjectSettings::m, key, #m, ValueCode::code, KeyGroup::ToolsMenu),
#define ORRERY_STYLE_ROW(m, key, code, type)                                                       \
    Row(&ProjectSettings::m, key, #m, ValueCode::code, KeyGroup::Style),
#define ORRERY_READ_ONLY_ROW(m, key, code, type)                                                   \
    Row(&ProjectSettings::m, key, #m, ValueCode::code, KeyGroup::ReadOnly),

const SettingKey kKeys[] = {
    ORRERY_HEAD_SETTINGS(ORRERY_HEAD_ROW)
    ORRERY_TOOLSMENU_SETTINGS(ORRERY_TOOLSMENU_ROW)
    ORRERY_STYLE_SETTINGS(ORRERY_STYLE_ROW)
    ORRERY_READ_ONLY_SETTINGS(ORRERY_READ_ONLY_ROW)
};

// The readable keys sorted by name, for a binary search in place of a chain of comparisons.
// Names are unique, so the first equal key is the only one.
std::vector<const SettingKey *> SortedReadableKeys() {
    std::vector<const SettingKey *> sorted;
    for (const SettingKey &key : kKeys)
        if (key.code != ValueCode::ProjectName && key.code != ValueCode::WrittenOnly)
            sorted.push_back(&key);
    std::sort(sorted.begin(), sorted.end(),
              [](const SettingKey *a, const SettingKey *b) { return a->name < b->name; });
    return sorted;
}

template <typename Int> void AssignRounded(Int &target, double value) {
    if constexpr (std::is_same_v<Int, std::int16_t>) {
        if (auto rounded = RoundToInt16(value)) target = *rounded;
    } else {
        if (auto rounded = RoundToInt32(value)) target = *rounded;
    }
}

template <typename Int> void AssignInteger(Int &target, std::string_view text) {
    if constexpr (std::is_same_v<Int, std::int16_t>) {
        if (auto value = ToInt16(text)) target = *value;
    } else {
        if (auto value = ToInt32(text)) target = *value;
    }
}

std::string ReadText(ValueCode code, std::string_view line) {
    switch (code) {
    case ValueCode::ST: return Trim(FieldAt(line, 2));
    case ValueCode::L: return Trim(ReplaceAll(FieldAt(line, 2), "//", "\r\n"));
    case ValueCode::HiddenTools: return ReplaceAll(NormText(line), "myhiddentools:", "");
    case ValueCode::ServersRandom: return NumberText(Val(FieldAt(line, 2)));
    default: return FieldAt(line, 2);
    }
}

} // namespace

std::span<const SettingKey> SettingKeys() { return kKeys; }

const SettingKey *FindSettingKey(std::string_view name) {
    static const std::vector<const SettingKey *> sorted = SortedReadableKeys();
    const auto found = std::lower_bound(sorted.begin(), sorted.end(), name,
                                        [](const SettingKey *key, std::string_view wanted) {
                                            return key->name < wanted;
                                        });
    return found != sorted.end() && (*found)->name == name ? *found : nullptr;
}

void ReadSetting(ProjectSettings &settings, const SettingKey &key, std::string_view line) {
    std::visit(
        [&](auto member) {
            auto &target = settings.*member;
            using Value = std::remove_reference_t<decltype(target)>;
            if constexpr (std::is_same_v<Value, std::string>) {
                target = ReadText(key.code, line);
            } else if constexpr (std::is_same_v<Value, bool>) {
                if (auto value = ToBoolean(Trim(FieldAt(line, 2)))) target = *value;
            } else if (key.code == ValueCode::N) {
                AssignRounded(target, Val(FieldAt(line, 2)));
            } else {
                AssignInteger(target, Trim(FieldAt(line, 2)));
            }
        },
        key.member);
}

std::string SettingValueText(const ProjectSettings &settings, const SettingKey &key) {
    return std::visit(
        [&](auto member) -> std::string {
            const auto &value = settings.*member;
            using Value = std::remove_cvref_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::string>)
                return key.code == ValueCode::L ? ReplaceAll(value, "\r\n", "//") : value;
            else if constexpr (std::is_same_v<Value, bool>)
                return BoolText(value);
            else
                return IntText(value);
        },
        key.member);
}

void WriteSetting(std::string &out, const ProjectSettings &settings, const SettingKey &key) {
    out += key.written;
    out += ':';
    out += SettingValueText(settings, key);
    out += "\r\n";
}

namespace {

constexpr MenuLabelKey kMenuLabelKeys[] = {
    {"menulabelcaption", &MenuLabel::caption},
    {"menulabeltag", &MenuLabel::tag},
    {"menulabelleft", &MenuLabel::left},
    {"menulabeltop", &MenuLabel::top},
    {"menulabelforecolor", &MenuLabel::foreColor},
    {"menulabelbackstyle", &MenuLabel::backStyle},
    {"menulabelbackcolor", &MenuLabel::backColor},
    {"menulabelbold", &MenuLabel::bold},
    {"menulabelitalic", &MenuLabel::italic},
    {"menulabelunderline", &MenuLabel::underline},
    {"menulabelfontsize", &MenuLabel::fontSize},
    {"menulabelfontname", &MenuLabel::fontName},
    {"menulabeldatafield", &MenuLabel::dataField, true},
};

} // namespace

std::span<const MenuLabelKey> MenuLabelKeys() { return kMenuLabelKeys; }

const MenuLabelKey *FindMenuLabelKey(std::string_view name) {
    for (const MenuLabelKey &key : kMenuLabelKeys)
        if (key.key == name) return &key;
    return nullptr;
}

void ReadMenuLabelField(MenuLabel &label, const MenuLabelKey &key, std::string_view line) {
    const std::string value =
        key.twoFields ? FieldAt(line, 3) + ":" + FieldAt(line, 4) : FieldAt(line, 3);
    std::visit(
        [&](auto member) {
            auto &field = label.*member;
            using Field = std::remove_reference_t<decltype(field)>;
            if constexpr (std::is_same_v<Field, std::string>) {
                field = value;
            } else if constexpr (std::is_same_v<Field, bool>) {
                if (auto flag = ToBoolean(Trim(value))) field = *flag;
            } else {
                AssignInteger(field, Trim(value));
            }
        },
        key.member);
}

void WriteMenuLabelField(std::string &out, const MenuLabel &label, const MenuLabelKey &key,
                         std::string_view count) {
    out.append(key.key).append(1, ':').append(count);
    std::visit(
        [&](auto member) {
            const auto &field = label.*member;
            using Field = std::remove_cvref_t<decltype(field)>;
            if constexpr (std::is_same_v<Field, std::string>)
                out += TrimView(field);
            else if constexpr (std::is_same_v<Field, bool>)
                out += BoolText(field);
            else
                out += IntText(field);
        },
        key.member);
    out += "\r\n";
}

} // namespace orrery
