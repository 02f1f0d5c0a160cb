// The server editor's operations: the number of random servers, the fields every generated
// server has, and the fixed (custom) servers.
#pragma once

#include "editor/change.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace orrery {

inline constexpr std::array<std::string_view, 6> kRandomServerCounts{"1",    "500",  "1000",
                                                                     "2500", "5000", "10000"};

// How many random servers a world has: one of kRandomServerCounts.
Outcome SetRandomServers(ProjectModel &model, std::string_view count);

// A field "<NAME> (<value>)", with "*" when random servers get it too. At most 49.
Outcome AddServerField(ProjectModel &model, std::string_view name, std::string_view value,
                       bool onRandomServers);
Outcome RemoveServerField(ProjectModel &model, std::string_view name);
// The fields in slot order, blank slots left out.
std::vector<std::string> ServerFields(const ProjectModel &model);
// A field's name: the text before its first blank.
std::string FieldName(std::string_view field);

// A custom server from one value per field, given as (field name, value): "ip" and
// "hostname" first, then the others in field order, each colon of a value written "-". A
// field not given has an empty value.
Outcome AddCustomServer(ProjectModel &model,
                        const std::vector<std::pair<std::string, std::string>> &values);
// Replaces the record of custom server n (1 for the first listed) as the edit box gives it.
Outcome EditCustomServer(ProjectModel &model, int n, std::string_view record);
Outcome RemoveCustomServer(ProjectModel &model, int n);
// The custom servers in slot order, blank slots left out.
std::vector<std::string> CustomServers(const ProjectModel &model);

} // namespace orrery
