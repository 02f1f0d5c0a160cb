// The index of names for the substitution passes, and the run-time variable table.
#include "actions/substitution.h"

#include <algorithm>
#include <queue>
#include <utility>

namespace orrery {

namespace {

std::size_t Byte(char c) {
    return static_cast<unsigned char>(c);
}

// A stretch of text that a replacement took out or put in: [begin, end).
struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
};

} // namespace

// The state of one walk: how often the text holds each name now, and the names held, by the
// next position that carries them.
class NameIndex::Walk {
public:
    Walk(const NameIndex &index, std::size_t from, std::size_t to)
        : m_index(index), m_from(from), m_to(to), m_count(index.m_names.size(), 0) {}

    // Counts every name the text holds.
    void CountAll(std::string_view text) {
        std::string leads;
        for (std::size_t g = m_from; g < m_to; ++g)
            for (const char lead : m_index.m_groups[g].firstBytes)
                if (leads.find(lead) == std::string::npos) leads += lead;
        for (const char lead : leads)
            for (std::size_t at = text.find(lead); at != std::string_view::npos;
                 at = text.find(lead, at + 1))
                for (std::size_t g = m_from; g < m_to; ++g) Look(text, g, at, +1);
    }

    // Counts, with the sign given, the names that overlap one of the spans, or that cross the
    // place of an empty one. The spans are in order and don't overlap.
    void CountAround(std::string_view text, const std::vector<Span> &spans, int sign) {
        for (std::size_t g = m_from; g < m_to; ++g) {
            const std::size_t length = m_index.m_groups[g].length;
            if (length > text.size()) continue;
            std::size_t next = 0; // the first start not yet looked at
            for (const Span &span : spans) {
                const std::size_t lo =
                    std::max(next, span.begin + 1 > length ? span.begin + 1 - length : 0);
                const std::size_t hi =
                    std::min(span.end, text.size() - length + 1); // past the last
                for (const char lead : m_index.m_groups[g].firstBytes)
                    for (std::size_t at = text.find(lead, lo); at < hi;
                         at = text.find(lead, at + 1))
                        Look(text, g, at, sign);
                next = std::max(next, hi);
            }
        }
    }

    // The next name the walk replaces and its position; false when none is left.
    bool Next(int &position, int &id) {
        while (!m_due.empty()) {
            const auto [due, name] = m_due.top();
            m_due.pop();
            if (due <= m_cursor || m_count[static_cast<std::size_t>(name)] == 0) continue;
            m_cursor = position = due;
            id = name;
            return true;
        }
        return false;
    }

    int Count(int id) const { return m_count[static_cast<std::size_t>(id)]; }

private:
    void Look(std::string_view text, std::size_t g, std::size_t at, int sign) {
        const Group &group = m_index.m_groups[g];
        if (at + group.length > text.size() || !group.first[Byte(text[at])] ||
            !group.last[Byte(text[at + group.length - 1])])
            return;
        const auto found = group.ids.find(text.substr(at, group.length));
        if (found == group.ids.end()) return;
        int &count = m_count[static_cast<std::size_t>(found->second)];
        count += sign;
        if (sign > 0 && count == 1) Schedule(found->second);
    }

    // The name's first position past the cursor, if it has one.
    void Schedule(int id) {
        const std::vector<int> &positions = m_index.m_names[static_cast<std::size_t>(id)].positions;
        const auto next = std::upper_bound(positions.begin(), positions.end(), m_cursor);
        if (next != positions.end()) m_due.emplace(*next, id);
    }

    const NameIndex &m_index;
    std::size_t m_from;
    std::size_t m_to;
    std::vector<int> m_count;        // by name
    int m_cursor = 0;                // the position replaced last
    using Due = std::pair<int, int>; // position, name
    std::priority_queue<Due, std::vector<Due>, std::greater<>> m_due;
};

void NameIndex::Add(std::string_view name, int position) {
    if (name.empty()) return;
    auto group = std::find_if(m_groups.begin(), m_groups.end(),
                              [&](const Group &g) { return g.length <= name.size(); });
    if (group == m_groups.end() || group->length != name.size()) {
        group = m_groups.insert(group, Group{});
        group->length = name.size();
    }
    if (!group->first[Byte(name.front())]) group->firstBytes += name.front();
    group->first[Byte(name.front())] = true;
    group->last[Byte(name.back())] = true;
    auto found = group->ids.find(name);
    if (found == group->ids.end()) {
        found = group->ids.emplace(name, static_cast<int>(m_names.size())).first;
        m_names.push_back({std::string(name), {}});
    }
    m_names[static_cast<std::size_t>(found->second)].positions.push_back(position);
}

void NameIndex::Clear() {
    m_groups.clear();
    m_names.clear();
}

std::size_t NameIndex::ReplaceEachLength(std::string &text, const ValueOf &valueOf) const {
    std::size_t built = 0;
    for (std::size_t group = 0; group < m_groups.size(); ++group)
        built += Replay(text, valueOf, group, group + 1);
    return built;
}

std::size_t NameIndex::ReplaceInOrder(std::string &text, const ValueOf &valueOf) const {
    return Replay(text, valueOf, 0, m_groups.size());
}

// Each replacement is ReplaceAll of the name: every occurrence, left to right, without overlap.
// The names counted in what it took out are gone, and those in what it put in are new; all
// others are where they were.
std::size_t NameIndex::Replay(std::string &text, const ValueOf &valueOf, std::size_t from,
                              std::size_t to) const {
    Walk walk(*this, from, to);
    walk.CountAll(text);
    std::size_t built = 0;
    std::vector<Span> out, in;
    for (int position = 0, id = 0; walk.Next(position, id);) {
        const std::string &name = m_names[static_cast<std::size_t>(id)].text;
        const std::string value = valueOf(position, name);
        std::string result;
        result.reserve(text.size());
        out.clear();
        in.clear();
        std::size_t done = 0;
        for (std::size_t hit = text.find(name); hit != std::string::npos;
             hit = text.find(name, done)) {
            result.append(text, done, hit - done);
            out.push_back({hit, hit + name.size()});
            in.push_back({result.size(), result.size() + value.size()});
            result += value;
            done = hit + name.size();
        }
        result.append(text, done);
        walk.CountAround(text, out, -1);
        walk.CountAround(result, in, +1);
        text = std::move(result);
        built += text.size();
    }
    return built;
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
