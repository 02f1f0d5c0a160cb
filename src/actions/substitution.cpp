// The index of names for the substitution passes, and the run-time variable table.
#include "actions/substitution.h"

#include <algorithm>

namespace orrery {

namespace {

std::size_t Byte(char c) {
    return static_cast<unsigned char>(c);
}

} // namespace

void NameIndex::Add(std::string_view name, int position) {
    if (name.empty()) return;
    auto group = std::find_if(m_groups.begin(), m_groups.end(),
                              [&](const Group &g) { return g.length <= name.size(); });
    if (group == m_groups.end() || group->length != name.size()) {
        group = m_groups.insert(group, Group{});
        group->length = name.size();
    }
    if (group->firstBytes.find(name.front()) == std::string::npos)
        group->firstBytes += name.front();
    group->last[Byte(name.back())] = true;
    auto found = group->positions.find(name);
    if (found == group->positions.end())
        found = group->positions.emplace(name, std::vector<int>{}).first;
    found->second.push_back(position);
}

NameIndex::Hit NameIndex::Next(std::string_view text, int after, std::size_t from,
                               std::size_t to) const {
    Hit best;
    for (std::size_t g = from; g < to; ++g) {
        const Group &group = m_groups[g];
        const std::size_t length = group.length;
        if (length > text.size()) continue;
        const std::string_view starts = text.substr(0, text.size() - length + 1);
        for (const char lead : group.firstBytes)
            for (std::size_t i = starts.find(lead); i != std::string_view::npos;
                 i = starts.find(lead, i + 1)) {
                if (!group.last[Byte(text[i + length - 1])]) continue;
                const auto found = group.positions.find(text.substr(i, length));
                if (found == group.positions.end()) continue;
                const std::vector<int> &positions = found->second;
                const auto next = std::upper_bound(positions.begin(), positions.end(), after);
                if (next != positions.end() && (!best.name || *next < best.position))
                    best = {*next, &found->first};
            }
    }
    return best;
}

void RuntimeVariables::Set(int row, Variable variable) {
    m_rows[row] = std::move(variable);
    m_stale = true;
}

void RuntimeVariables::Clear() {
    for (int row = 1; row <= kSize; ++row) m_rows[row] = {};
    m_stale = true;
}

const RuntimeVariables::Names &RuntimeVariables::Index() const {
    if (!m_stale) return m_names;
    const auto blank = [this](int row) { return row > kSize || IsBlank(m_rows[row].name); };
    m_names.firstRow.clear();
    m_names.substituted.Clear();
    std::string name;
    for (int row = 1; row <= kSize; ++row) {
        // Walks stop at the first row where this name and the next two are blank.
        if (blank(row) && blank(row + 1) && blank(row + 2)) break;
        AssignNormText(name, m_rows[row].name);
        m_names.firstRow.emplace(name, row);
        if (name.size() <= kLongestSubstituted) m_names.substituted.Add(name, row);
    }
    m_stale = false;
    return m_names;
}

} // namespace orrery
