// Random servers, server fields and custom servers.
#include "editor/servers.h"

#include "editor/places.h"
#include "editor/text.h"
#include "editor/words.h"
#include "foundation/text.h"

#include <algorithm>

namespace orrery {

namespace {

constexpr int kFieldListLimit = 49;

template <typename Table> std::vector<std::string> Listed(const Table &table) {
    std::vector<std::string> items;
    for (const std::string &item : table)
        if (!IsBlank(item)) items.push_back(Trim(item));
    return items;
}

// The list written back from slot 1 on, as the editor's list holds it: gaps close.
template <typename Table>
void Relist(Transaction &t, Table ProjectModel::*table, const std::vector<std::string> &items) {
    for (int slot = 1; slot <= Table::kSize; ++slot) {
        const std::size_t i = static_cast<std::size_t>(slot - 1);
        t.Set(place::Slot(table, slot), i < items.size() ? items[i] : std::string());
    }
}

// The slot of the n-th listed record, 0 when there are fewer.
template <typename Table> int NthListed(const Table &table, int n) {
    for (int slot = 1; slot <= Table::kSize; ++slot)
        if (!IsBlank(table[slot]) && --n == 0) return slot;
    return 0;
}

const Message kNoSuchField{"Error", "There is no server field of that name."};
const Message kNoSuchServer{"Error", "There is no custom server with that number."};
const Message kNotACount{"Error", "The number of random servers is one of 1, 500, 1000, 2500, "
                                  "5000 and 10000."};

} // namespace

std::string FieldName(std::string_view field) {
    return FieldBy(TrimView(field), 1, " ");
}

std::vector<std::string> ServerFields(const ProjectModel &model) {
    return Listed(model.ServerFieldTable);
}

std::vector<std::string> CustomServers(const ProjectModel &model) {
    return Listed(model.CustomServerTable);
}

Outcome SetRandomServers(ProjectModel &model, std::string_view count) {
    Transaction t(model, "Random Servers");
    const std::string text = Trim(count);
    if (std::find(kRandomServerCounts.begin(), kRandomServerCounts.end(), text) ==
        kRandomServerCounts.end())
        return t.Refuse(kNotACount);
    t.Set(place::Setting(&ProjectSettings::myserversrandom), text);
    return t.Commit();
}

Outcome AddServerField(ProjectModel &model, std::string_view name, std::string_view value,
                       bool onRandomServers) {
    Transaction t(model, "Add Field");
    std::vector<std::string> fields = ServerFields(model);
    if (static_cast<int>(fields.size()) >= kFieldListLimit) return t.Refuse(words::kTooManyFields);
    if (NormText(name).empty()) return t.Commit();
    const std::string upper = UpperCase(Trim(name));
    if (auto problem = UnwritableName(upper)) return t.Refuse(*problem);
    if (upper.find(' ') != std::string::npos || upper.find('=') != std::string::npos)
        return t.Refuse(words::kUnwritableName);
    if (std::string(value).find_first_of("\r\n") != std::string::npos)
        return t.Refuse(words::kUnwritableValue);
    if (std::string(value).find_first_of("()") != std::string::npos)
        return t.Refuse({"Error", "A field's value stands in parentheses and can't hold one."});
    if (std::any_of(fields.begin(), fields.end(),
                    [&](const std::string &f) { return NormText(FieldName(f)) == NormText(upper); }))
        return t.Refuse({"Error", "A server field with that name already exists."});
    fields.push_back(upper + " (" + Trim(value) + ")" + (onRandomServers ? "*" : ""));
    Relist(t, &ProjectModel::ServerFieldTable, fields);
    return t.Commit();
}

Outcome RemoveServerField(ProjectModel &model, std::string_view name) {
    Transaction t(model, "Remove Field");
    std::vector<std::string> fields = ServerFields(model);
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const std::string &f) {
        return NormText(FieldName(f)) == NormText(name);
    });
    if (found == fields.end()) return t.Refuse(kNoSuchField);
    fields.erase(found);
    Relist(t, &ProjectModel::ServerFieldTable, fields);
    return t.Commit();
}

Outcome AddCustomServer(ProjectModel &model,
                        const std::vector<std::pair<std::string, std::string>> &values) {
    Transaction t(model, "Add Server");
    const std::vector<std::string> fields = ServerFields(model);
    for (const auto &[name, value] : values) {
        if (std::none_of(fields.begin(), fields.end(), [&](const std::string &f) {
                return NormText(FieldName(f)) == NormText(name);
            }))
            return t.Refuse(kNoSuchField);
        if (value.find_first_of("\r\n") != std::string::npos)
            return t.Refuse(words::kUnwritableValue);
    }
    const auto valueOf = [&](std::string_view field) {
        for (const auto &[name, value] : values)
            if (NormText(name) == NormText(field)) return ReplaceAll(value, ":", "-");
        return std::string();
    };
    std::string ip, hostname, others;
    for (const std::string &field : fields) {
        const std::string name = NormText(FieldName(field));
        const std::string part = name + "=" + valueOf(name) + ":";
        if (name == "ip")
            ip = part;
        else if (name == "hostname")
            hostname = part;
        else
            others += part;
    }
    const int slot = FirstFreeSlot(model.CustomServerTable, 0);
    if (!slot) return t.Refuse(words::kTooManyServers);
    t.Set(place::Slot(&ProjectModel::CustomServerTable, slot), ip + hostname + others);
    return t.Commit();
}

Outcome EditCustomServer(ProjectModel &model, int n, std::string_view record) {
    Transaction t(model, "Edit Server");
    std::vector<std::string> servers = CustomServers(model);
    if (n < 1 || n > static_cast<int>(servers.size())) return t.Refuse(kNoSuchServer);
    if (std::string(record).find_first_of("\r\n") != std::string::npos)
        return t.Refuse(words::kUnwritableValue);
    servers[static_cast<std::size_t>(n - 1)] = Trim(record);
    std::erase_if(servers, [](const std::string &s) { return IsBlank(s); });
    Relist(t, &ProjectModel::CustomServerTable, servers);
    return t.Commit();
}

Outcome RemoveCustomServer(ProjectModel &model, int n) {
    Transaction t(model, "Remove Server");
    const int slot = NthListed(model.CustomServerTable, n);
    if (!slot) return t.Refuse(kNoSuchServer);
    std::vector<std::string> servers = CustomServers(model);
    servers.erase(servers.begin() + (n - 1));
    Relist(t, &ProjectModel::CustomServerTable, servers);
    return t.Commit();
}

} // namespace orrery
