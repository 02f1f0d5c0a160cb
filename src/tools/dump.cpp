// The project model as JSON.
#include "tools/dump.h"

#include <type_traits>

#include "foundation/codepage.h"
#include "project/keytable.h"

namespace orrery {

namespace {

using Json = nlohmann::ordered_json;

std::string Utf8(const std::string &text) { return Cp1252ToUtf8(text); }

Json Settings(const ProjectSettings &settings) {
    Json json = Json::object();
    for (const SettingKey &key : SettingKeys()) {
        std::visit(
            [&](auto member) {
                const auto &value = settings.*member;
                if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, std::string>)
                    json[std::string(key.written)] = Utf8(value);
                else
                    json[std::string(key.written)] = value;
            },
            key.member);
    }
    return json;
}

template <typename Table> Json TextSlots(const Table &table) {
    Json json = Json::array();
    int slot = 0;
    for (const std::string &text : table) {
        ++slot;
        if (!IsBlank(text)) json.push_back({{"slot", slot}, {"text", Utf8(text)}});
    }
    return json;
}

Json Elements(const ProjectModel &model) {
    Json json = Json::array();
    for (int row = 1; row <= kElementRows; ++row) {
        const ElementRow &element = model.Element(row);
        Json columns = Json::object();
        for (int column = 1; column < kElementColumns; ++column)
            if (!element[column].empty()) columns[std::to_string(column)] = Utf8(element[column]);
        if (element[kNameColumn].empty() && columns.empty()) continue;
        json.push_back({{"row", row}, {"name", Utf8(element[kNameColumn])}, {"columns", columns}});
    }
    return json;
}

Json Menu(const ProjectModel &model) {
    Json images = Json::array();
    for (const MenuImage &image : model.menuImages)
        images.push_back({{"file", Utf8(image.file)}, {"left", image.left}, {"top", image.top},
                          {"dataField", Utf8(image.dataField)}});
    Json labels = Json::array();
    int slot = 0;
    for (const MenuLabel &l : model.MenuLabelTable) {
        ++slot;
        if (IsBlank(l.caption)) continue;
        labels.push_back({{"slot", slot}, {"caption", Utf8(l.caption)}, {"tag", Utf8(l.tag)},
                          {"left", l.left}, {"top", l.top}, {"foreColor", l.foreColor},
                          {"backStyle", l.backStyle}, {"backColor", l.backColor},
                          {"bold", l.bold}, {"italic", l.italic}, {"underline", l.underline},
                          {"fontSize", Utf8(l.fontSize)}, {"fontName", Utf8(l.fontName)},
                          {"dataField", Utf8(l.dataField)}});
    }
    return {{"images", images}, {"labels", labels}};
}

} // namespace

nlohmann::ordered_json ModelToJson(const ProjectModel &model) {
    Json json;
    json["name"] = Utf8(model.settings.myprojectname);
    json["scrambled"] = model.scrambled;
    json["elementCount"] = model.elementCount;
    json["settings"] = Settings(model.settings);
    json["menu"] = Menu(model);
    json["tools"] = TextSlots(model.ToolNameTable);
    json["serverFields"] = TextSlots(model.ServerFieldTable);
    json["elements"] = Elements(model);
    json["dynamics"] = TextSlots(model.DynamicTable);
    json["help"] = TextSlots(model.HelpTable);
    json["qlobs"] = TextSlots(model.QlobTable);
    json["quantumLocks"] = TextSlots(model.QuantumLockTable);
    json["services"] = TextSlots(model.ServiceTable);
    Json variables = Json::array();
    int slot = 0;
    for (const Variable &v : model.VariableTable) {
        ++slot;
        if (!IsBlank(v.name))
            variables.push_back({{"slot", slot}, {"name", Utf8(v.name)}, {"value", Utf8(v.value)}});
    }
    json["variables"] = variables;
    json["customServers"] = TextSlots(model.CustomServerTable);
    Json subs = Json::array();
    slot = 0;
    for (const ToolSub &sub : model.ToolSubTable) {
        ++slot;
        if (!IsBlank(sub.key))
            subs.push_back({{"slot", slot}, {"key", Utf8(sub.key)}, {"sequence", Utf8(sub.sequence)}});
    }
    json["toolSubs"] = subs;
    return json;
}

} // namespace orrery
